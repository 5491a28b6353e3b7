#include <gtest/gtest.h>

#include <filesystem>

#include "hosts/cli/commands.h"
#include "hosts/cli/demo_files.h"
#include "hosts/cli/diff_picture.h"
#include "hosts/cli/text_file.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/golden.h"
#include "tests/hosts/cli/messages.h"
#include "tests/hosts/cli/png_reader.h"

namespace quenzel7::cli {
namespace {

namespace fs = std::filesystem;

/// Project a is what is imported, project b a copy of it that is changed.
class DiffCommandTest : public test::CliProjectTest {
 protected:
  struct Run {
    int status;
    std::string out;
  };
  Run Diff(const std::string& a, const std::string& b, std::optional<Long> page = {},
           const std::string& picture = {}) {
    std::ostringstream out, err;
    const int status = DiffCommand(a, b, page, picture, {out, err});
    EXPECT_EQ(err.str(), "");
    return {status, out.str()};
  }
  /// A copy of the project, in which statements have been executed.
  std::string Changed(const std::vector<std::string>& statements) {
    fs::copy_file(Path(), File("b.qz7"), fs::copy_options::overwrite_existing);
    const ado::ConnectionRef connection = corvane1::OpenProject(File("b.qz7"), corvane1::ProjectMode::Open);
    for (const std::string& statement : statements) connection->Execute(statement);
    connection->Close();
    return File("b.qz7");
  }
  /// Imports page files and closes the project.
  void ImportAll(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) Import(text);
    Open(corvane1::ProjectMode::ReadOnly);
  }
  std::string Write(const std::string& name, const std::string& text) {
    WriteTextFile(File(name), text, "file");
    return File(name);
  }
  std::string File(const std::string& name) const { return folder_.File(name); }

 private:
  quenzel7::test::TemporaryFolder folder_;
};

const std::string kOne = test::CliProjectTest::PageText(
    1, {test::CliProjectTest::ElementText(1, 2, 30, 40), test::CliProjectTest::ElementText(5, 6, 70, 80)});
const std::string kTwo = test::CliProjectTest::PageText(2, {test::CliProjectTest::ElementText(9, 2, 30, 40)});

TEST_F(DiffCommandTest, AProjectDoesNotDifferFromItself) {
  ImportAll({kOne, kTwo});
  const Run run = Diff(Path(), Path());
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "nothing differs in 2 pages with 3 elements\n");
}

TEST_F(DiffCommandTest, Page0IsAPageLikeOthers) {
  const std::string zero = PageText(0, {ElementText(1, 2, 30, 40)});
  ImportAll({zero, kOne});
  const std::string b = Changed({"UPDATE HMI_Elements SET PenWidth=3"});
  EXPECT_EQ(Diff(Path(), b, 0).out,
            "page 0: element 1 (clsRectangle): PenWidth 1 -> 3\n1 difference on 1 page\n");
  EXPECT_EQ(Diff(Write("x", zero), Path()).out, "nothing differs in 1 page with 1 element\n");
  EXPECT_EQ(test::MessageOf([&] { Diff(Write("x", kOne), Write("y", kOne), 0); }),
            "neither page file " + File("x") + " nor page file " + File("y") + " has a page 0");
}

TEST_F(DiffCommandTest, EmptyProjectsDoNotDiffer) {
  const Run run = Diff(Path(), Path());
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "nothing differs in 0 pages with 0 elements\n");
}

TEST_F(DiffCommandTest, TellsDifferencesPageByPage) {
  ImportAll({kTwo, kOne});
  const Run run = Diff(Path(), Changed({"UPDATE HMI_Elements SET PenWidth=3 WHERE Xs<>5"}));
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "page 1: element 1 (clsRectangle): PenWidth 1 -> 3\n"
            "page 2: element 1 (clsRectangle): PenWidth 1 -> 3\n"
            "2 differences on 2 pages\n");
}

TEST_F(DiffCommandTest, TellsPagesThatCameAndWent) {
  ImportAll({kOne, kTwo});
  const std::string b = Changed(
      {"UPDATE HMI_Elements SET DisplayID=3 WHERE DisplayID=2", "DELETE * FROM HostPages WHERE DisplayID=2"});
  const Run run = Diff(Path(), b);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out,
            "page 2 went: \"Boiler\", 1 element\n"
            "page 3 came: \"\", 1 element\n"
            "2 differences on 2 pages\n");
}

TEST_F(DiffCommandTest, OnePageCanBeChosen) {
  ImportAll({kOne, kTwo});
  const std::string b =
      Changed({"UPDATE HMI_Elements SET PenWidth=3 WHERE Xs=9", "DELETE * FROM HMI_Elements WHERE Xs=1"});
  EXPECT_EQ(Diff(Path(), b, 2).out,
            "page 2: element 1 (clsRectangle): PenWidth 1 -> 3\n1 difference on 1 page\n");
  EXPECT_EQ(Diff(Path(), b, 1).out,
            "page 1: element 1 (clsRectangle) went, at (1, 2) with size (30, 40)\n1 difference on 1 page\n");
  EXPECT_EQ(test::MessageOf([&] { Diff(Path(), b, 7); }),
            "neither project " + Path() + " nor project " + b + " has a page 7");
}

TEST_F(DiffCommandTest, FillStylesAreCompared) {
  ImportAll({PageText(1, {ElementText(1, 2, 30, 40, "\"FillStyle\": \"eFS_Solid\"")})});
  EXPECT_EQ(Diff(Path(), Changed({"DELETE * FROM HostProperties"})).out,
            "page 1: element 1 (clsRectangle): FillStyle \"eFS_Solid\" -> \"eFS_Hollow\"\n1 difference on 1 "
            "page\n");
}

TEST_F(DiffCommandTest, IdAndGuidTellWhatChangedAltogether) {
  // The second one becomes like the first one was, and the first one like none.
  ImportAll({kOne});
  const std::string b =
      Changed({"UPDATE HMI_Elements SET Xs=2, Ys=2, Dx=30, Dy=40 WHERE ID=2",
               "UPDATE HMI_Elements SET Xs=200, Ys=100, Dx=9, Dy=9, PenWidth=5, ColorFore=3, "
               "ColorBack=4, ColorForeTouch=5, ColorBackTouch=6 WHERE ID=1"});
  EXPECT_EQ(Diff(Path(), b).out.substr(0, 50), "page 1: element 1 (clsRectangle): Xs 1 -> 200\npage");
  // A GUID of its own is another element.
  const std::string c = Changed({"UPDATE HMI_Elements SET Xs=2, Ys=2, Dx=30, Dy=40, GUID=8 WHERE ID=2",
                                 "UPDATE HMI_Elements SET Xs=200, Ys=100, Dx=9, Dy=9, GUID=9 WHERE ID=1"});
  EXPECT_EQ(Diff(Path(), c).out.substr(0, 44), "page 1: element 1 (clsRectangle) moved in th");
}

TEST_F(DiffCommandTest, AProjectIsComparedWithAPageFileByItsPage) {
  ImportAll({kOne, kTwo});
  const std::string file = Write("x", PageText(2, {ElementText(9, 2, 30, 41)}));
  EXPECT_EQ(Diff(Path(), file).out,
            "page 2: element 1 (clsRectangle): Dy 40 -> 41\n1 difference on 1 page\n");
  EXPECT_EQ(Diff(file, Path()).out,
            "page 2: element 1 (clsRectangle): Dy 41 -> 40\n1 difference on 1 page\n");
  EXPECT_EQ(Diff(file, Path(), 1).out, "page 1 came: \"Boiler\", 2 elements\n1 difference on 1 page\n");
  const Run same = Diff(Write("y", kTwo), Path());
  EXPECT_EQ(same.out, "nothing differs in 1 page with 1 element\n");
  EXPECT_EQ(same.status, 0);
}

TEST_F(DiffCommandTest, PageFilesOfDifferentPagesHaveNoneInCommon) {
  EXPECT_EQ(
      Diff(Write("a", kOne), Write("b", kTwo)).out,
      "page 1 went: \"Boiler\", 2 elements\npage 2 came: \"Boiler\", 1 element\n2 differences on 2 pages\n");
}

TEST_F(DiffCommandTest, ALineBreakInANameStaysOnItsLine) {
  std::string named = kOne;
  named.replace(named.find("Boiler"), 6, "A\\nB");
  EXPECT_EQ(Diff(Write("a", kOne), Write("b", named)).out,
            "page 1: name \"Boiler\" -> \"A\\nB\"\n1 difference on 1 page\n");
}

TEST_F(DiffCommandTest, PaintsThePageThatDiffers) {
  const auto page = [](Long number, Long xs) {
    return R"({"page": )" + std::to_string(number) +
           R"(, "panel": {"type": 1, "width": 4, "height": 1}, "elements": [{"class": "clsRectangle", "Xs": )" +
           std::to_string(xs) +
           R"(, "Dx": 1, "Dy": 1, "ColorBack": 9, "ColorFore": 9}, {"class": "clsEllipse", "ColorFore": 9}]})";
  };
  ImportAll({page(1, 0), page(2, 0)});
  const std::string b = Changed({"UPDATE HMI_Elements SET Xs=2 WHERE DisplayID=2 AND Type=1"});
  EXPECT_EQ(Diff(Path(), b, {}, File("x.png")).status, 1);
  constexpr std::uint32_t W = 0xFFFFFF;
  EXPECT_EQ(test::ReadPng(File("x.png")).pixels,
            (std::vector<std::uint32_t>{kDiffersInA, W, kDiffersInB, W}));
  // The other way round, and a page file.
  Diff(Write("y", page(2, 2)), Path(), {}, File("x.png"));
  EXPECT_EQ(test::ReadPng(File("x.png")).pixels,
            (std::vector<std::uint32_t>{kDiffersInB, W, kDiffersInA, W}));
}

TEST_F(DiffCommandTest, APageThatIsNotThereIsWhite) {
  const std::string page = R"({"page": 1, "panel": {"type": 1, "width": 2, "height": 1}, "elements": [)"
                           R"({"class": "clsRectangle", "Dx": 1, "Dy": 1, "ColorBack": 9, "ColorFore": 9}]})";
  ImportAll({page});
  const std::string b = Changed({"DELETE * FROM HMI_Elements", "DELETE * FROM HostPages"});
  constexpr std::uint32_t W = 0xFFFFFF;
  Diff(Path(), b, {}, File("x.png"));
  EXPECT_EQ(test::ReadPng(File("x.png")).pixels, (std::vector<std::uint32_t>{kDiffersInA, W}));
  Diff(b, Path(), {}, File("x.png"));
  EXPECT_EQ(test::ReadPng(File("x.png")).pixels, (std::vector<std::uint32_t>{kDiffersInB, W}));
}

TEST_F(DiffCommandTest, SeveralPagesThatDifferHaveToBeChosenFrom) {
  ImportAll({kOne, kTwo, PageText(3, {})});
  const std::string b = Changed({"UPDATE HMI_Elements SET PenWidth=3"});
  EXPECT_EQ(test::MessageOf([&] { Diff(Path(), b, {}, File("x.png")); }),
            "several pages differ (1, 2): choose one for the picture with --page");
  EXPECT_FALSE(fs::exists(File("x.png")));
  Diff(Path(), b, 2, File("x.png"));
  EXPECT_TRUE(fs::exists(File("x.png")));
}

TEST_F(DiffCommandTest, WhereNothingDiffersNothingIsPainted) {
  ImportAll({kOne});
  EXPECT_EQ(Diff(Path(), Path(), {}, File("x.png")).status, 0);
  EXPECT_FALSE(fs::exists(File("x.png")));
}

TEST_F(DiffCommandTest, ThePictureOfAChangedPageIsTheGoldenOne) {
  const auto page = [](const std::string& moved, const std::string& colour, const std::string& more) {
    return R"({"page": 1, "panel": {"type": 1, "width": 120, "height": 80}, "elements": [
      {"class": "clsRectangle", "Dx": 120, "Dy": 80, "FillStyle": 1, "ColorBack": 104, "ColorFore": 104},
      {"class": "clsRoundRect", "Xs": 6, "Ys": 6, "Dx": 108, "Dy": 68, "ColorFore": 9, "ColorBack": 72},
      {"class": "clsEllipse", "Xs": )" +
           moved + R"(, "Ys": 16, "Dx": 30, "Dy": 24, "FillStyle": 1, "ColorBack": 0},
      {"class": "clsRectangle", "Xs": 70, "Ys": 46, "Dx": 36, "Dy": 20, "FillStyle": 1, "ColorBack": )" +
           colour + "}" + more + "]}";
  };
  const std::string line =
      R"(, {"class": "clsLine", "Xs": 14, "Ys": 68, "Dx": 40, "Dy": -20, "PenWidth": 3, "ColorFore": 9})";
  Diff(Write("a", page("16", "40", "")), Write("b", page("36", "60", line)), {}, File("x.png"));
  test::ExpectGolden(test::ReadPng(File("x.png")), "difference");
}

TEST_F(DiffCommandTest, TenThousandElementsThatAllChangedAreCompared) {
  std::vector<std::string> before, after;
  for (Long at = 0; at < 10'000; ++at) {
    before.push_back(ElementText(at % 100, at / 100, 3, 4));
    after.push_back(ElementText(at % 100, at / 100, 3, 4, "\"PenWidth\": 2"));
  }
  std::rotate(after.begin(), after.begin() + 1, after.end());
  const Run run = Diff(Write("a", PageText(1, before)), Write("b", PageText(1, after)));
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 10'002);
  EXPECT_EQ(run.out.substr(0, 82),
            "page 1: element 1 (clsRectangle) moved in the drawing order, it is now element 100");
}

}  // namespace
}  // namespace quenzel7::cli
