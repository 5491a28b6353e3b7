#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "hosts/cli/text_file.h"
#include "platform/ado/connection.h"
#include "platform/corvane1/project_file.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/png_reader.h"
#include "tests/hosts/cli/run_program.h"
#include "tests/support/temporary_folder.h"

/// Runs the built program as a user does.
namespace quenzel7::cli {
namespace {

namespace fs = std::filesystem;

class ProgramTest : public test::CliProjectTest {
 protected:
  void SetUp() override {}
  void TearDown() override {}

  test::ProgramRun Run(const std::vector<std::string>& arguments) {
    return test::RunProgram(folder_.File(""), arguments);
  }
  std::string File(const std::string& name) const { return folder_.File(name); }
  void Write(const std::string& name, const std::string& text) { WriteTextFile(File(name), text, "file"); }
  std::string TextOf(const std::string& name) { return ReadTextFile(File(name), "file"); }
  void ImportPages(const std::vector<Long>& numbers) {
    for (const Long number : numbers) {
      Write("ok.json", PageText(number, {ElementText(number, 2, 30, 40, "\"TouchOprndAddr\": 5")}));
      ASSERT_EQ(Run({"import", "ok.json", "p.qz7"}).status, 0);
    }
  }
  void ExpectFailure(const std::vector<std::string>& arguments, const std::string& line) {
    const test::ProgramRun run = Run(arguments);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, line + "\n");
  }
  std::vector<std::string> Files() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.File("")))
      names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }
  void InProject(const std::string& statement) {
    const ado::ConnectionRef connection = corvane1::OpenProject(File("p.qz7"), corvane1::ProjectMode::Open);
    connection->Execute(statement);
    connection->Close();
  }

 private:
  quenzel7::test::TemporaryFolder folder_;
};

TEST_F(ProgramTest, TellsItsVersion) {
  const auto run = Run({"--version"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "quenzel7 " QUENZEL7_VERSION "\n");
}

TEST_F(ProgramTest, HelpTellsEveryCommand) {
  const auto run = Run({"--help"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  for (const char* command :
       {"import", "export", "render", "list", "check", "report", "diff", "strings", "settings", "demo"}) {
    EXPECT_NE(run.out.find(command), std::string::npos) << command;
    const auto help = Run({command, "--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find(command), std::string::npos);
  }
}

TEST_F(ProgramTest, BringsTextsInAndOut) {
  ImportPages({1});
  const std::string texts = "number,language,text,font\r\n,1,English,\r\n5,1,boiler,3\r\n";
  Write("in.csv", texts);
  const auto in = Run({"strings", "p.qz7", "import", "in.csv"});
  EXPECT_EQ(in.status, 0);
  EXPECT_EQ(in.out, "1 text and 1 language imported into p.qz7\n");
  const auto out = Run({"strings", "p.qz7", "export", "out.csv"});
  EXPECT_EQ(out.status, 0);
  EXPECT_EQ(out.out, "");
  EXPECT_EQ(TextOf("out.csv"), texts);
  ExpectFailure({"strings", "p.qz7", "import", "none.csv"},
                "strings file none.csv cannot be read: No such file or directory");
  EXPECT_EQ(Run({"strings", "p.qz7", "both", "in.csv"}).status, 2);
  EXPECT_EQ(Run({"strings", "p.qz7", "import"}).status, 2);
}

TEST_F(ProgramTest, ExportsAPageAsImportedWhenTheLibraryGivesItsTexts) {
  const std::string page =
      R"({"page": 1, "panel": {"type": 1, "width": 100, "height": 60}, "elements": [
    {"class": "clsText", "Dx": 90, "Dy": 50, "Txt": "own", "StorageStringID": 5}]})";
  Write("panel.json", page);
  Run({"import", "panel.json", "p.qz7"});
  Write("in.csv", "number,language,text,font\r\n,1,English,\r\n5,1,boiler,3\r\n");
  Run({"strings", "p.qz7", "import", "in.csv"});
  EXPECT_EQ(Run({"export", "p.qz7"}).out, page);
  EXPECT_NE(Run({"list", "p.qz7"}).out.find("\"boiler\""), std::string::npos);
}

TEST_F(ProgramTest, ShowsTextsInTheCodePageOfTheProject) {
  const std::string page =
      R"({"page": 1, "panel": {"type": 1, "width": 100, "height": 60}, "elements": [
    {"class": "clsText", "Dx": 90, "Dy": 50, "Flat3D": 0, "Txt": "\u0416\r\nx\r\n\u0428"}]})";
  Write("panel.json", page);
  const std::string box = "Language is not supported: Tessaline can't handle Multibyte chars\n";
  EXPECT_EQ(Run({"import", "panel.json", "p.qz7"}).err, box + box);
  const auto render = Run({"render", "p.qz7", "-o", "x.png"});
  EXPECT_EQ(render.status, 0);
  EXPECT_EQ(render.err, box + box);
  EXPECT_EQ(Run({"check", "p.qz7"}).err, "");
  EXPECT_EQ(Run({"list", "p.qz7"}).err, box + box);
  EXPECT_EQ(Run({"export", "p.qz7"}).err, box + box);
  for (const std::vector<std::string>& sides :
       {std::vector<std::string>{"p.qz7", "p.qz7"}, {"p.qz7", "panel.json"}, {"panel.json", "p.qz7"}}) {
    const auto diff = Run({"diff", sides[0], sides[1]});
    EXPECT_EQ(diff.status, 0);
    EXPECT_EQ(diff.err, "");
  }
  const auto settings = Run({"settings", "p.qz7", "7000/1=1251", "6000/6022=1"});
  EXPECT_EQ(settings.status, 0);
  EXPECT_EQ(settings.out, "6000/6022=1\n7000/1=1251\n");
  EXPECT_EQ(Run({"render", "p.qz7", "-o", "y.png"}).err, "");
  EXPECT_NE(TextOf("x.png"), TextOf("y.png"));
  EXPECT_EQ(Run({"check", "p.qz7"}).status, 0);
  EXPECT_EQ(Run({"export", "p.qz7"}).out, page);
  EXPECT_EQ(Run({"settings", "p.qz7"}).out, settings.out);
  ExpectFailure({"settings", "p.qz7", "7000"},
                "setting \"7000\": SECTION/KEY=TEXT is expected, with whole numbers for section and key");
}

TEST_F(ProgramTest, WrongUseIsOneLine) {
  const std::string more = "; quenzel7 --help tells more";
  ExpectFailure({}, "quenzel7: A subcommand is required" + more);
  ExpectFailure({"--scale", "2"}, "quenzel7: A subcommand is required" + more);
  ExpectFailure({"exprot", "p.qz7"}, "quenzel7: there is no command \"exprot\"" + more);
  ExpectFailure({"import"}, "quenzel7: PAGE.json is required" + more);
  ExpectFailure({"import", "a"}, "quenzel7: PROJECT is required" + more);
  ExpectFailure({"render", "p"}, "quenzel7: --output is required" + more);
  ExpectFailure({"check"}, "quenzel7: PROJECT is required" + more);
  ExpectFailure({"diff", "a"}, "quenzel7: B is required" + more);
  ExpectFailure({"list", "p", "q"}, "quenzel7: The following argument was not expected: q" + more);
  for (const char* scale : {"0", "17", "1.5", "x"}) {
    EXPECT_EQ(Run({"render", "p", "-o", "x", "--scale", scale}).status, 2) << scale;
  }
  for (const char* page : {"-1", "2147483648", "x"}) {
    const auto run = Run({"export", "p", "--page", page});
    EXPECT_EQ(run.status, 2) << page;
    EXPECT_EQ(run.err.substr(0, 16), "quenzel7: --page");
  }
}

TEST_F(ProgramTest, ImportsIntoANewProject) {
  Write("panel.json", PageText(1, {ElementText(1, 2, 30, 40), ElementText(1, 2, 30, 40)}));
  const auto run = Run({"import", "panel.json", "p.qz7"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, "page 1: 2 elements imported into p.qz7\n");
  EXPECT_EQ(Files(), (std::vector<std::string>{"p.qz7", "panel.json"}));
}

TEST_F(ProgramTest, ANewProjectTakesNoLogOfAnEarlierOne) {
  for (const char* ending : {"-wal", "-shm", "-journal"}) Write(std::string("p.qz7") + ending, "left behind");
  ImportPages({1});
  EXPECT_EQ(Files(), (std::vector<std::string>{"ok.json", "p.qz7"}));
}

TEST_F(ProgramTest, TellsWhatAnImportReplaced) {
  ImportPages({1});
  Write("panel.json", PageText(1, {ElementText(1, 2, 30, 40), ElementText(1, 2, 30, 40)}));
  EXPECT_EQ(Run({"import", "panel.json", "p.qz7"}).out,
            "page 1: 2 elements imported into p.qz7, in place of 1 element\n");
  EXPECT_EQ(Files(), (std::vector<std::string>{"ok.json", "p.qz7", "panel.json"}));
}

TEST_F(ProgramTest, ExportGivesThePageFileByteForByte) {
  const std::string canonical = PageText(1, {ElementText(1, 2, 30, 40, "\"PenStyle\": \"ePS_Dash\"")});
  std::string windows;
  for (const char letter : canonical)
    windows += letter == '\n' ? std::string("\r\n") : std::string(1, letter);
  for (const std::string& text : {canonical, windows, " " + canonical}) {
    Write("panel.json", text);
    ASSERT_EQ(Run({"import", "panel.json", "p.qz7"}).status, 0);
    const auto run = Run({"export", "p.qz7"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, text);
    const auto toFile = Run({"export", "p.qz7", "--page", "1", "-o", "out.json"});
    EXPECT_EQ(toFile.status, 0);
    EXPECT_EQ(toFile.out, "");
    EXPECT_EQ(TextOf("out.json"), text);
  }
}

TEST_F(ProgramTest, AnEditedPageIsExportedInCanonicalForm) {
  Write("panel.json",
        "{\"page\":1,\"name\":\"Boiler\",\"panel\":{\"type\":1,\"width\":320,\"height\":240},"
        "\"elements\":[{\"class\":\"clsRectangle\",\"Dx\":3}]}");
  ASSERT_EQ(Run({"import", "panel.json", "p.qz7"}).status, 0);
  InProject("UPDATE HMI_Elements SET Xs=7");
  EXPECT_EQ(Run({"export", "p.qz7"}).out, PageText(1, {ElementText(7, 0, 3, 0)}));
}

TEST_F(ProgramTest, RendersThePage) {
  Write("panel.json", R"({"page": 1, "panel": {"type": 1, "width": 4, "height": 2}, "elements": [
    {"class": "clsRectangle", "Xs": 1, "Dx": 2, "Dy": 1, "FillStyle": "eFS_Solid", "ColorBack": 9, "ColorFore": 9}]})");
  ASSERT_EQ(Run({"import", "panel.json", "p.qz7"}).status, 0);
  const auto run = Run({"render", "p.qz7", "-o", "x.png"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out + run.err, "");
  const Picture picture = test::ReadPng(File("x.png"));
  constexpr std::uint32_t W = 0xFFFFFF, B = 0;
  EXPECT_EQ(picture.width, 4);
  EXPECT_EQ(picture.pixels, (std::vector<std::uint32_t>{W, B, B, W, W, W, W, W}));
  ASSERT_EQ(Run({"render", "p.qz7", "--page", "1", "-o", "x.png", "--scale", "16"}).status, 0);
  const Picture large = test::ReadPng(File("x.png"));
  EXPECT_EQ(large.width, 64);
  EXPECT_EQ(large.height, 32);
  EXPECT_EQ(large.pixels[15], W);
  EXPECT_EQ(large.pixels[16], B);
  EXPECT_EQ(Files(), (std::vector<std::string>{"p.qz7", "panel.json", "x.png"}));
}

TEST_F(ProgramTest, ListsPagesAndElements) {
  ImportPages({12, 3});
  const auto run = Run({"list", "p.qz7"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out,
            "page  name    panel  size     elements\n"
            "   3  Boiler      1  320x240         1\n"
            "  12  Boiler      1  320x240         1\n"
            "\n"
            "page  order  ID  class         tool tip                                  text\n"
            "   3      1   2  clsRectangle  (Touch - MB 5) Pos: 3, 2 ; Size: 30, 40\n"
            "  12      1   1  clsRectangle  (Touch - MB 5) Pos: 12, 2 ; Size: 30, 40\n");
}

TEST_F(ProgramTest, ListsVariablesByNameAndTypeWithoutAnOrder) {
  Write("panel.json", R"({"page": 1, "panel": {"type": 1, "width": 4, "height": 2}, "elements": [
    {"class": "clsVar", "VarType": "eVT_Numeric", "VarName": "Speed", "OperandType": 3, "OperandAddress": 5}]})");
  Run({"import", "panel.json", "p.qz7"});
  EXPECT_EQ(Run({"list", "p.qz7"}).out,
            "page  name  panel  size  elements\n"
            "   1            1  4x2          1\n"
            "\n"
            "page  order  ID  class   tool tip                                          text\n"
            "   1          1  clsVar  Speed ( Numeric ; MW 5 )  Pos: 0, 0 ; Size: 0, 0  \"Speed\"\n");
}

TEST_F(ProgramTest, ListsTheMembersOfGroupsBelowThem) {
  Write("panel.json", R"({"page": 1, "panel": {"type": 1, "width": 4, "height": 2}, "elements": [
    {"class": "clsGroup", "elements": [
      {"class": "clsGroup", "elements": [{"class": "clsText", "Dx": 60, "Dy": 9, "Txt": "12 \u00b0C\r\n\"x\""}]},
      {"class": "clsFrame", "Dx": 300, "Dy": 200, "Txt": ""}]},
    {"class": "clsRoundRect"}]})");
  EXPECT_EQ(Run({"import", "panel.json", "p.qz7"}).out, "page 1: 5 elements imported into p.qz7\n");
  EXPECT_EQ(Run({"list", "p.qz7"}).out,
            "page  name  panel  size  elements\n"
            "   1            1  4x2          5\n"
            "\n"
            "page  order  ID  class         tool tip                    text\n"
            "   1          4  clsGroup\n"
            "   1          2    clsGroup\n"
            "   1      1   1      clsText   Pos: 0, 0 ; Size: 60, 9     \"12 \u00b0C\\r\\n\"x\"\"\n"
            "   1      2   3    clsFrame    Pos: 0, 0 ; Size: 300, 200  \"\"\n"
            "   1      3   5  clsRoundRect  Pos: 0, 0 ; Size: 0, 0\n");
}

TEST_F(ProgramTest, ChecksAProject) {
  ImportPages({1});
  const auto sound = Run({"check", "p.qz7"});
  EXPECT_EQ(sound.status, 0);
  EXPECT_EQ(sound.out, "nothing found in 1 page, 1 element and 1 operand row\n");
  InProject("UPDATE HMI_Elements SET Type=99");
  const auto run = Run({"check", "p.qz7"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out,
            "page 1, row 1: there is no class of element type 99\n1 finding in 1 page, 1 element and 1 "
            "operand row\n");
}

TEST_F(ProgramTest, ReportsWhatElementsTell) {
  ImportPages({1, 2});
  const std::string lines = ",2,30,40)\n  Pen Width: 1\n";
  const std::string page2 = "Page 2\nclsRectangle 2\n  Coordinates (Left,Top,Width,Height): (2" + lines;
  const auto whole = Run({"report", "p.qz7"});
  EXPECT_EQ(whole.status, 0);
  EXPECT_EQ(whole.err, "");
  EXPECT_EQ(whole.out,
            "Page 1\nclsRectangle 1\n  Coordinates (Left,Top,Width,Height): (1" + lines + "\n" + page2);
  EXPECT_EQ(Run({"report", "p.qz7", "--page", "2"}).out, page2);
  EXPECT_EQ(Run({"report", "p.qz7", "--page", "2", "-o", "x.txt"}).out, "");
  EXPECT_EQ(TextOf("x.txt"), page2);
  InProject("UPDATE HMI_Elements SET Type=99 WHERE ID=2");
  const auto damaged = Run({"report", "p.qz7", "--page", "2"});
  EXPECT_EQ(damaged.status, 1);
  EXPECT_EQ(damaged.out, "Page 2\npage 2, row 2: there is no class of element type 99\n");
}

TEST_F(ProgramTest, TellsDifferences) {
  ImportPages({1, 2});
  fs::copy_file(File("p.qz7"), File("q.qz7"));
  InProject("UPDATE HMI_Elements SET Xs=7");
  const std::vector<std::string> command = {"diff", "q.qz7", "p.qz7", "--page", "2", "-o", "x.png"};
  const auto run = Run(command);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, "page 2: element 1 (clsRectangle): Xs 2 -> 7\n1 difference on 1 page\n");
  EXPECT_EQ(test::ReadPng(File("x.png")).width, 320);
  const auto same = Run({"diff", "p.qz7", "p.qz7"});
  EXPECT_EQ(same.status, 0);
  EXPECT_EQ(same.out, "nothing differs in 2 pages with 2 elements\n");
  ExpectFailure({"diff", "q.qz7", "p.qz7", "-o", "y.png"},
                "several pages differ (1, 2): choose one for the picture with --page");
  ExpectFailure({"diff", "q.qz7", "p.qz7", "--page", "2", "-o", "none/y.png"},
                "picture none/y.png cannot be written: No such file or directory");
}

TEST_F(ProgramTest, ReadingAProjectLeavesItAsItIs) {
  ImportPages({1});
  const std::string before = TextOf("p.qz7");
  Run({"export", "p.qz7"});
  Run({"list", "p.qz7"});
  Run({"check", "p.qz7"});
  Run({"report", "p.qz7"});
  Run({"diff", "p.qz7", "ok.json", "-o", "y.png"});
  Run({"diff", "p.qz7", "p.qz7"});
  Run({"render", "p.qz7", "-o", "x.png"});
  EXPECT_EQ(TextOf("p.qz7"), before);
  EXPECT_EQ(Files(), (std::vector<std::string>{"ok.json", "p.qz7", "x.png"}));
}

TEST_F(ProgramTest, NothingIsWrittenOverWhatIsRead) {
  ImportPages({1});
  fs::copy_file(File("ok.json"), File("b.json"));
  fs::create_symlink("p.qz7", File("link"));
  const std::string project = TextOf("p.qz7"), page = TextOf("ok.json");
  for (const char* output : {"p.qz7", "./p.qz7", "link"}) {
    const std::string refused = std::string(output) + " cannot be written: it is p.qz7, which is read";
    ExpectFailure({"export", "p.qz7", "-o", output}, "page file " + refused);
    ExpectFailure({"render", "p.qz7", "-o", output}, "picture " + refused);
    ExpectFailure({"diff", "p.qz7", "b.json", "-o", output}, "picture " + refused);
    ExpectFailure({"strings", "p.qz7", "export", output}, "strings file " + refused);
  }
  for (const auto& [a, b] : {std::pair("ok.json", "b.json"), std::pair("b.json", "ok.json")}) {
    ExpectFailure({"diff", a, b, "-o", "ok.json"},
                  "picture ok.json cannot be written: it is ok.json, which is read");
  }
  EXPECT_EQ(TextOf("p.qz7"), project);
  EXPECT_EQ(TextOf("ok.json"), page);
  EXPECT_EQ(Files(), (std::vector<std::string>{"b.json", "link", "ok.json", "p.qz7"}));
}

TEST_F(ProgramTest, PagesThatAreNotThereAreTold) {
  ImportPages({1});
  for (const char* command : {"export", "render", "report"}) {
    ExpectFailure({command, "p.qz7", "--page", "5", "-o", "x"},
                  "project p.qz7 has no page 5; there is page 1");
  }
  ImportPages({4});
  for (const char* command : {"export", "render"}) {
    ExpectFailure({command, "p.qz7", "-o", "x"},
                  "project p.qz7 has several pages (1, 4): choose one with --page");
  }
  EXPECT_FALSE(fs::exists(File("x")));
}

TEST_F(ProgramTest, Page0IsAPageLikeOthers) {
  ImportPages({0});
  EXPECT_EQ(Run({"export", "p.qz7"}).out, TextOf("ok.json"));
  ImportPages({4});
  ImportPages({0});
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"export", "p.qz7"}, {"render", "p.qz7", "-o", "x"}}) {
    ExpectFailure(command, "project p.qz7 has several pages (0, 4): choose one with --page");
  }
  const auto run = Run({"export", "p.qz7", "--page", "0"});
  EXPECT_EQ(run.out, TextOf("ok.json"));
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(Run({"render", "p.qz7", "--page", "0", "-o", "x.png"}).status, 0);
  EXPECT_EQ(Run({"diff", "p.qz7", "ok.json", "--page", "0"}).out,
            "nothing differs in 1 page with 1 element\n");
  EXPECT_EQ(Run({"check", "p.qz7"}).out, "nothing found in 2 pages, 2 elements and 2 operand rows\n");
}

TEST_F(ProgramTest, ExportTellsWhatNoPageFileCanHold) {
  Write("ok.json", R"({"page": 1, "panel": {"type": 1, "width": 4, "height": 2}, "elements": [
    {"class": "clsGroup"}, {"class": "clsGroup"}, {"class": "clsGroup"}, {"class": "clsGroup"},
    {"class": "clsLine", "TouchOprndAddr": 5}]})");
  ASSERT_EQ(Run({"import", "ok.json", "p.qz7"}).status, 0);
  const std::string refused = "note: import will refuse this page file: ";
  InProject("UPDATE HMI_Elements SET GroupID=ID-1 WHERE ID IN (2, 3, 4)");
  const auto deep = Run({"export", "p.qz7"});
  EXPECT_EQ(deep.status, 0);
  EXPECT_EQ(deep.out.substr(0, 13), "{\n  \"page\": 1");
  const std::string group = ", element 1 (clsGroup)";
  EXPECT_EQ(deep.err, refused + "page 1" + group + group + group + group + ": groups nest at most 3 deep\n");
  InProject("UPDATE HMI_Elements SET GroupID=-1 WHERE ID<5");
  InProject("UPDATE HMI_Elements SET GroupID=1 WHERE ID=5");
  const auto touchable = Run({"export", "p.qz7", "-o", "out.json"});
  EXPECT_EQ(touchable.status, 0);
  EXPECT_EQ(
      touchable.err,
      refused +
          "page 1, element 4 (clsGroup), element 1 (clsLine): property \"TouchOprndAddr\" must be -1 in a "
          "group, which holds no touchable element; 5 was given\n");
  EXPECT_TRUE(fs::exists(File("out.json")));
  InProject("UPDATE HMI_Elements SET GroupID=-1, DisplayID=-5");
  InProject("DELETE * FROM HostPages");
  EXPECT_EQ(Run({"export", "p.qz7"}).err,
            refused + "page -5: \"page\" must be a whole number from 0 to 2147483647, -5 was given\n");
}

TEST_F(ProgramTest, ProjectsThatAreNotThereAreTold) {
  for (const std::vector<std::string>& command : {std::vector<std::string>{"export", "none.qz7"},
                                                  {"list", "none.qz7"},
                                                  {"check", "none.qz7"},
                                                  {"report", "none.qz7"},
                                                  {"render", "none.qz7", "-o", "x.png"}}) {
    ExpectFailure(command, "project file \"none.qz7\": there is no such file");
  }
  EXPECT_TRUE(Files().empty());
}

TEST_F(ProgramTest, AFileThatIsNoProjectIsRefusedAndStays) {
  Write("ok.json", PageText(1, {}));
  Write("notes.txt", "These are notes.\n");
  const std::string line =
      "project file \"notes.txt\": is not a project: it does not begin as a database file does";
  for (const std::vector<std::string>& command : {std::vector<std::string>{"import", "ok.json", "notes.txt"},
                                                  {"export", "notes.txt"},
                                                  {"list", "notes.txt"},
                                                  {"check", "notes.txt"},
                                                  {"report", "notes.txt"},
                                                  {"render", "notes.txt", "-o", "x.png"}}) {
    ExpectFailure(command, line);
  }
  EXPECT_EQ(TextOf("notes.txt"), "These are notes.\n");
  EXPECT_EQ(Files(), (std::vector<std::string>{"notes.txt", "ok.json"}));
}

TEST_F(ProgramTest, WhatCannotBeComparedIsTold) {
  ImportPages({1});
  Write("notes.txt", "These are notes.\n");
  ExpectFailure(
      {"diff", "p.qz7", "notes.txt"},
      "file notes.txt is neither a project nor a page file: it begins neither as a database file nor with {");
  ExpectFailure({"diff", "none.qz7", "p.qz7"}, "file none.qz7 cannot be read: No such file or directory");
  Write("panel.json", "{\n  \"page\": 1,\n  \"elements\": [}");
  ExpectFailure({"diff", "p.qz7", "panel.json"},
                "page file panel.json, line 3, column 16: malformed JSON: syntax error while parsing value - "
                "unexpected "
                "'}'; expected '[', '{', or a literal");
  ExpectFailure({"diff", "p.qz7", "ok.json", "--page", "5"},
                "neither project p.qz7 nor page file ok.json has a page 5");
  InProject("UPDATE HMI_Elements SET Type=99");
  ExpectFailure({"diff", "ok.json", "p.qz7"},
                "project p.qz7, row 1 of HMI_Elements: there is no class of element type 99");
}

TEST_F(ProgramTest, AnEmptyFileIsNoProject) {
  Write("ok.json", PageText(1, {}));
  Write("empty.qz7", "");
  ExpectFailure({"import", "ok.json", "empty.qz7"},
                "project file \"empty.qz7\": is not a project: it does not begin as a database file does");
  EXPECT_EQ(TextOf("empty.qz7"), "");
}

TEST_F(ProgramTest, AFolderForANewProjectMustBeThere) {
  Write("ok.json", PageText(1, {}));
  ExpectFailure({"import", "ok.json", "none/p.qz7"}, "project file \"none/p.qz7\": there is no such folder");
  EXPECT_EQ(Files(), (std::vector<std::string>{"ok.json"}));
}

TEST_F(ProgramTest, RowsThatDoNotLoadAreNamed) {
  ImportPages({1});
  InProject("UPDATE HMI_Elements SET Type=99");
  const std::string line = "project p.qz7, row 1 of HMI_Elements: there is no class of element type 99";
  ExpectFailure({"export", "p.qz7"}, line);
  ExpectFailure({"list", "p.qz7"}, line);
  ExpectFailure({"render", "p.qz7", "-o", "x.png"}, line);
  EXPECT_FALSE(fs::exists(File("x.png")));
  EXPECT_EQ(Run({"import", "ok.json", "p.qz7"}).out,
            "page 1: 1 element imported into p.qz7, in place of 1 element\n");
  EXPECT_EQ(Run({"check", "p.qz7"}).out, "nothing found in 1 page, 1 element and 1 operand row\n");
}

TEST_F(ProgramTest, OutputsThatCannotBeWrittenAreTold) {
  ImportPages({1});
  ExpectFailure({"export", "p.qz7", "-o", "none/x.json"},
                "page file none/x.json cannot be written: No such file or directory");
  ExpectFailure({"render", "p.qz7", "-o", "none/x.png"},
                "picture none/x.png cannot be written: No such file or directory");
  ExpectFailure({"render", "p.qz7", "-o", "."}, "picture . cannot be written: Is a directory");
  const auto run = test::RunProgramWithOutputTo(File(""), {"export", "p.qz7"}, "/dev/full");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "standard output cannot be written\n");
}

std::string WithElement(const std::string& element) {
  return R"({"page": 1, "panel": {"type": 1, "width": 320, "height": 240}, "elements": [{"class": "clsRectangle"}, )" +
         element + "]}";
}

const std::vector<std::pair<std::string, std::string>> kWrongPages = {
    {"{\n  \"page\": 1,\n  \"elements\": [}",
     "page file panel.json, line 3, column 16: malformed JSON: syntax error while parsing value - unexpected "
     "'}'; "
     "expected '[', '{', or a literal"},
    {"",
     "page file panel.json, line 1, column 1: malformed JSON: syntax error while parsing value - unexpected "
     "end of "
     "input; expected '[', '{', or a literal"},
    {"5", "page file panel.json: must be an object, 5 was given"},
    {"{\"page\": 1}", "page file panel.json: \"panel\" is missing"},
    {WithElement(R"({"class": "clsRectangel"})"),
     "page file panel.json, element 2: class \"clsRectangel\" does not exist; nearest is \"clsRectangle\""},
    {WithElement(R"({"class": "clsRectangle", "PenWidht": 1})"),
     "page file panel.json, element 2 (clsRectangle): property \"PenWidht\" does not exist; nearest is "
     "\"PenWidth\""},
    {WithElement(R"({"class": "clsRectangle", "PenWidth": 1.5})"),
     "page file panel.json, element 2 (clsRectangle): property \"PenWidth\" must be a whole number from "
     "-2147483648 to "
     "2147483647, 1.5 was given"},
    {WithElement(R"({"class": "clsRectangle", "PenWidth": 1e12})"),
     "page file panel.json, element 2 (clsRectangle): property \"PenWidth\" must be a whole number from "
     "-2147483648 to "
     "2147483647, 1000000000000.0 was given"},
    {WithElement(R"({"class": "clsRectangle", "PenWidth": "two"})"),
     "page file panel.json, element 2 (clsRectangle): property \"PenWidth\" must be a whole number from "
     "-2147483648 to "
     "2147483647, \"two\" was given"},
    {WithElement(R"({"class": "clsRectangle", "PenWidth": true})"),
     "page file panel.json, element 2 (clsRectangle): property \"PenWidth\" must be a whole number from "
     "-2147483648 to "
     "2147483647, true was given"},
    {WithElement(R"({"class": "clsRectangle", "PenStyle": "ePS_Dsh"})"),
     "page file panel.json, element 2 (clsRectangle): property \"PenStyle\" must be a member of enPenStyle "
     "or a whole "
     "number, \"ePS_Dsh\" was given; nearest is \"ePS_Dash\""},
    {WithElement(R"({"class": "clsRectangle", "ID": 4})"),
     "page file panel.json, element 2 (clsRectangle): property \"ID\" cannot be set: it is given by the "
     "project and the "
     "element's place in the file"},
    {WithElement(R"({"class": "clsRectangle", "Xs": 4, "Xs": 4})"),
     "page file panel.json, element 2 (clsRectangle): property \"Xs\" is given twice"},
    {WithElement(R"({"class": "clsGroup", "elements": [{"class": "clsLine", "TouchOprndAddr": 4}]})"),
     "page file panel.json, element 2 (clsGroup), element 1 (clsLine): property \"TouchOprndAddr\" must be "
     "-1 "
     "in a group, which holds no touchable element; 4 was given"},
    {WithElement(R"({"class": "clsRectangle", "a\nb": 4})"),
     "page file panel.json, element 2 (clsRectangle): property \"a\\nb\" does not exist; nearest is \"Xs\""},
};

TEST_F(ProgramTest, AWrongPageFileLeavesTheProjectAsItWas) {
  ImportPages({1});
  const std::string before = TextOf("p.qz7");
  for (const auto& [text, line] : kWrongPages) {
    Write("panel.json", text);
    ExpectFailure({"import", "panel.json", "p.qz7"}, line);
    EXPECT_EQ(TextOf("p.qz7"), before) << text;
    ExpectFailure({"import", "panel.json", "new.qz7"}, line);
  }
  EXPECT_EQ(Files(), (std::vector<std::string>{"ok.json", "p.qz7", "panel.json"}));
}

TEST_F(ProgramTest, APageFileThatIsNotThereIsTold) {
  ImportPages({1});
  const std::string before = TextOf("p.qz7");
  ExpectFailure({"import", "none.json", "p.qz7"},
                "page file none.json cannot be read: No such file or directory");
  ExpectFailure({"import", ".", "p.qz7"}, "page file . cannot be read: Is a directory");
  ExpectFailure({"import", "none.json", "new.qz7"},
                "page file none.json cannot be read: No such file or directory");
  EXPECT_EQ(TextOf("p.qz7"), before);
  EXPECT_EQ(Files(), (std::vector<std::string>{"ok.json", "p.qz7"}));
}

TEST_F(ProgramTest, AnImportThatFailsHalfWayLeavesTheProjectAsItWas) {
  ImportPages({1});
  InProject("UPDATE Numbers SET Next=2147483646");
  const std::string before = TextOf("p.qz7");
  Write("panel.json", PageText(1, {ElementText(1, 2, 3, 4), ElementText(1, 2, 3, 4)}));
  const auto run = Run({"import", "panel.json", "p.qz7"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err.substr(0, 47), "page file panel.json, element 2 (clsRectangle):");
  EXPECT_EQ(TextOf("p.qz7"), before);
  EXPECT_EQ(Files(), (std::vector<std::string>{"ok.json", "p.qz7", "panel.json"}));
}

TEST_F(ProgramTest, LongWorkShowsAProgressBarOnATerminal) {
  Write("panel.json", PageText(1, {ElementText(1, 2, 30, 40)}));
  const auto run = test::RunProgram(File(""), {"import", "panel.json", "p.qz7"}, test::ErrorsTo::Terminal);
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.err.find("importing [#########################] 100 %"), std::string::npos);
  EXPECT_EQ(run.out, "page 1: 1 element imported into p.qz7\n");
}

TEST_F(ProgramTest, RunsItsDemoInAFolderOfItsOwn) {
  const auto run = Run({"demo"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_TRUE(fs::exists(File("quenzel7-demo/reopened.png")));
  EXPECT_EQ(Run({"demo", "-o", "elsewhere"}).status, 0);
  EXPECT_TRUE(fs::exists(File("elsewhere/boiler.qz7")));
}

TEST_F(ProgramTest, TakesOtherFilesForPicturesThatAreNotThere) {
  const std::string folder = QUENZEL7_SOURCE_DIR "/demo/pictures/", bitmap = R"({"class": "clsBitmap", )";
  WriteTextFile(File("gone.json"),
                R"({"page": 1, "panel": {"type": 1, "width": 80, "height": 40}, "elements": [)" + bitmap +
                    R"("Dx": 8, "Dy": 8, "Picture": "a.bmp"}, )" + bitmap +
                    R"("Dx": 8, "Dy": 8, "Picture": "b.bmp"}]})",
                "file");
  const auto run = Run({"import", "--picture", folder + "fan.bmp", "--picture", folder + "start.bmp",
                        "gone.json", "gone.qz7"});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.status, 0);
  const std::string listed = Run({"image", "gone.qz7", "list"}).out;
  EXPECT_NE(listed.find("element 1  " + folder + "fan.bmp"), std::string::npos) << listed;
  EXPECT_NE(listed.find("element 2  " + folder + "start.bmp"), std::string::npos) << listed;
}

TEST_F(ProgramTest, BringsPicturesIntoAProjectAndOut) {
  ImportPages({1});
  const std::string fan = QUENZEL7_SOURCE_DIR "/demo/pictures/fan.bmp";
  const test::ProgramRun added = Run({"image", "p.qz7", "add", fan, fan, "--size", "8x6", "--bits", "16",
                                      "--page", "1", "--type", "4", "--transparent"});
  EXPECT_EQ(added.status, 0);
  EXPECT_EQ(added.err, "");
  const std::string crc = added.out.substr(8, added.out.find(" of ") - 8);
  const std::string line = "picture " + crc + " of 8x6: page 1, type ";
  EXPECT_EQ(added.out,
            line + "4, from " + fan + "\n" + line + "5, from " + fan + "\n2 pictures added to p.qz7\n");
  const test::ProgramRun listed = Run({"image", "p.qz7", "list"});
  EXPECT_NE(
      listed.out.find(crc + "  in use  8x6   40x40       16      2  page 1 type 4, page 1 type 5  " + fan),
      std::string::npos)
      << listed.out;
  EXPECT_EQ(Run({"image", "p.qz7", "extract", crc, "-o", "x.png"}).status, 0);
  EXPECT_EQ(test::ReadPng(File("x.png")).width, 8);
  EXPECT_EQ(Run({"image", "p.qz7", "extract", crc, "--original", "-o", "x.png"}).status, 0);
  EXPECT_EQ(test::ReadPng(File("x.png")).width, 40);
  ExpectFailure({"image", "p.qz7", "extract", "-5", "-o", "x.png"},
                "project p.qz7 has no picture -5; quenzel7 image PROJECT list tells them");
  ExpectFailure({"image", "p.qz7", "add", fan, "--bits", "9"},
                "quenzel7: --bits: 9 not in {8,16}; quenzel7 --help tells more");
  ExpectFailure({"image", "p.qz7"}, "quenzel7: A subcommand is required; quenzel7 --help tells more");
}

}  // namespace
}  // namespace quenzel7::cli
