#include <gtest/gtest.h>

#include <filesystem>

#include "hosts/cli/commands.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/variable_settings.h"
#include "platform/automation/call_by_name.h"
#include "tests/hosts/cli/cli_project.h"

namespace quenzel7::cli {
namespace {

class ReportCommandTest : public test::CliProjectTest {
 protected:
  struct Run {
    int status;
    std::string out;
  };
  Run Report(std::optional<Long> page = {}, const std::string& output = {}) {
    std::ostringstream out, err;
    const int status = ReportCommand(Path(), page, output, {out, err});
    EXPECT_EQ(err.str(), "");
    return {status, out.str()};
  }
  static std::string Page(Long number, const std::string& elements) {
    return R"({"page": )" + std::to_string(number) +
           R"(, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [)" + elements + "]}";
  }
  static std::string Line(Long x) {
    return R"({"class": "clsLine", "Xs": )" + std::to_string(x) + R"(, "Ys": 2, "Dx": 3, "Dy": 4})";
  }
  static std::string LineReport(Long id, Long x) {
    return "clsLine " + std::to_string(id) + "\n  Coordinates (Left,Top,Width,Height): (" +
           std::to_string(x) + ",2,3,4)\n  Pen Width: 1\n";
  }
};

TEST_F(ReportCommandTest, EachElementHasAHeadingAndItsLines) {
  Import(Page(1, R"(
    {"class": "clsVar", "VarType": "eVT_Numeric", "VarName": "Speed", "OperandType": 3, "OperandAddress": 5,
     "Xs": 1, "Ys": 2, "Dx": 50, "Dy": 20, "Handler": {"Postfix": "rpm"}},
    {"class": "clsVar", "VarType": "eVT_ListText", "VarName": "State\n2", "OperandType": 3,
     "OperandAddress": 6, "Xs": 1, "Ys": 30, "Dx": 50, "Dy": 20,
     "Handler": {"ListTexts": [{"Txt": "stopped"}, {"Txt": "in\r\nmotion"}]}},
    {"class": "clsRectangle", "Xs": 1, "Ys": 2, "Dx": 30, "Dy": 40, "VisibleOpAddr": 7},
    {"class": "clsGroup", "elements": [
      {"class": "clsGroup", "elements": [
        {"class": "clsText", "Xs": 5, "Ys": 6, "Dx": 60, "Dy": 30, "Txt": "a\r\nb"}]},
      {"class": "clsLine", "Xs": 3, "Ys": 4, "Dx": 5, "Dy": 6}]})"));
  const Run run = Report();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, R"(Page 1
clsRectangle 3
  Coordinates (Left,Top,Width,Height): (1,2,30,40)
  Pen Width: 1
  Hide Operand: MB 7
clsGroup 7
  clsGroup 5
    clsText 4 "a\r\nb"
      Coordinates (Left,Top,Width,Height): (5,6,60,30)
      Text: a ...
      Font: DejaVu Sans 16
      Alignment: Center Center
      Style: 3D (Pressed)
  clsLine 6
    Coordinates (Left,Top,Width,Height): (3,4,5,6)
    Pen Width: 1
clsVar 1 "Speed"
  Coordinates (Left,Top,Width,Height): (1,2,50,20)
  Linked Operand: MW 5
  Font: DejaVu Sans 16
  Alignment: Center Center
  Style: 3D (Pressed)
  Features:
           Format: 99999
           Postfix: rpm
           Arrows Increment Value: 0
clsVar 2 "State\n2"
  Coordinates (Left,Top,Width,Height): (1,30,50,20)
  Linked Operand: MW 6
  Style: 3D (Pressed)
  Index  Text
  1      stopped
  2      in\r\nmotion
)");
}

TEST_F(ReportCommandTest, PagesComeByNumber) {
  Import(Page(12, Line(20)));
  Import(Page(3, Line(10)));
  Import(Page(5, ""));
  const std::string page3 = "Page 3\n" + LineReport(2, 10);
  const std::string page12 = "Page 12\n" + LineReport(1, 20);
  EXPECT_EQ(Report().out, page3 + "\nPage 5\nno elements\n\n" + page12);
  EXPECT_EQ(Report(3).out, page3);
  EXPECT_EQ(Report(12).out, page12);
  const Run empty = Report(5);
  EXPECT_EQ(empty.status, 0);
  EXPECT_EQ(empty.out, "Page 5\nno elements\n");
}

TEST_F(ReportCommandTest, AProjectWithoutElementsSaysSo) {
  const std::string line = "project " + Path() + " has no elements\n";
  EXPECT_EQ(Report().out, line);
  Import(Page(1, ""));
  Import(Page(2, ""));
  const Run run = Report();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, line);
}

TEST_F(ReportCommandTest, APageThatIsNotThereIsTold) {
  EXPECT_EQ(test::MessageOf([&] { Report(1); }), "project " + Path() + " has no pages");
  Import(Page(1, Line(1)));
  EXPECT_EQ(test::MessageOf([&] { Report(2, File("x")); }),
            "project " + Path() + " has no page 2; there is page 1");
  EXPECT_FALSE(std::filesystem::exists(File("x")));
}

TEST_F(ReportCommandTest, ARowThatDoesNotLoadIsToldAsByACheckBehindItsPage) {
  Import(Page(1, Line(1) + "," + Line(2) + "," + Line(3)));
  Import(Page(2, Line(4)));
  Connection().Execute("UPDATE HMI_Elements SET Type=99 WHERE ID=1");
  Connection().Execute("UPDATE HMI_Elements SET Xs='a\nb' WHERE ID=2");
  const std::string findings =
      "page 1, row 1: there is no class of element type 99\n"
      "page 1, row 2 (clsLine): column 'Xs' of HMI_Elements: type mismatch: \"a\\nb\" is not a number\n";
  const Run run = Report();
  EXPECT_EQ(run.status, kFound);
  EXPECT_EQ(run.out, "Page 1\n" + LineReport(3, 3) + findings + "\nPage 2\n" + LineReport(4, 4));
  std::ostringstream checked;
  CheckCommand(Path(), {checked, checked});
  EXPECT_EQ(checked.str().substr(0, findings.size()), findings);
  EXPECT_EQ(Report(2).status, 0);
  Connection().Execute("DELETE * FROM HMI_Elements WHERE ID>2");
  EXPECT_EQ(Report(1).out, "Page 1\n" + findings);
  EXPECT_EQ(Report().out, "Page 1\n" + findings + "\nPage 2\nno elements\n");
}

TEST_F(ReportCommandTest, AnElementThatCannotReportIsToldBehindItsLines) {
  Import(Page(1, R"({"class": "clsVar", "VarType": "eVT_BinaryText", "VarName": "On", "Dx": 50, "Dy": 20})"));
  const ElementRef variable = Load().elements.at(0);
  automation::InvokeByName(*HandlerOf(*variable), "Clear");
  automation::InvokeByName(*HandlerOf(*variable), "AppendText");
  SaveElement(Session(), *variable);
  Import(Page(2, Line(1)));
  const Run run = Report();
  EXPECT_EQ(run.status, kFound);
  EXPECT_EQ(run.out,
            "Page 1\n"
            "clsVar 1 \"On\"\n"
            "  Coordinates (Left,Top,Width,Height): (0,0,50,20)\n"
            "  Linked Operand: \n"
            "  Style: 3D (Pressed)\n"
            "page 1, row 1 (clsVar): text 2 of a list was asked for, there are 1 to 1\n"
            "\nPage 2\n" +
                LineReport(2, 1));
}

TEST_F(ReportCommandTest, IsWrittenToAFile) {
  Import(Page(1, Line(1) + "," + Line(2)));
  Connection().Execute("UPDATE HMI_Elements SET Type=99 WHERE ID=2");
  const std::string output = File("report.txt");
  const Run run = Report({}, output);
  EXPECT_EQ(run.status, kFound);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(ReadTextFile(output, "report"), Report().out);
}

TEST_F(ReportCommandTest, IsNotWrittenOverTheProject) {
  Import(Page(1, Line(1)));
  EXPECT_EQ(test::MessageOf([&] { Report({}, Path()); }),
            "report " + Path() + " cannot be written: it is " + Path() + ", which is read");
  EXPECT_EQ(test::MessageOf([&] { Report({}, File("none/x")); }),
            "report " + File("none/x") + " cannot be written: No such file or directory");
}

}  // namespace
}  // namespace quenzel7::cli
