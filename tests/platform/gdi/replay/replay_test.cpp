#include "hosts/gdi_replay/replay.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "platform/gdi/gdi.h"

namespace quenzel7::gdi_replay {
namespace {

using Verdict = CaseResult::Verdict;

class ReplayFolder_ : public testing::Test {
 protected:
  void SetUp() override {
    const auto* info = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::path(testing::TempDir()) / (std::string("replay_") + info->name());
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  void Write(const std::string& name, const std::string& text) { std::ofstream(folder_ / name) << text; }

  int Run() {
    std::ostringstream report, errors;
    const int result = ReplayFolder(folder_, report, errors);
    report_ = report.str();
    errors_ = errors.str();
    return result;
  }

  std::filesystem::path folder_;
  std::string report_, errors_;
};

// A black pixel at (1, 0) of 4 x 1, after what the case does.
std::string Checking(const std::string& head, const std::string& calls) {
  return "case " + head + "\nsurface S 4 1 32\nstock B 4\n" + calls +
         "check S\npixels 4 1\npalette w ffffff b 000000\nw b 2*w\nend\nendcase\n";
}

TEST_F(ReplayFolder_, PassesWhenAllIsAsExpected) {
  Write("one.txt", Checking("one_001", "FillRect S 1 0 2 1 B\n"));
  Write("two.txt", "case two_001\ndc D\nquery GetBkColor D\nresult 0x00ffffff\nendcase\n");
  Write("README.md", "no case\n");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(report_, "2 passed, 0 failed, 0 skipped\n");
  EXPECT_EQ(errors_, "");
}

TEST_F(ReplayFolder_, NamesFileCaseCheckAndFirstDifferentPixel) {
  Write("one.txt", Checking("one_001", "FillRect S 2 0 3 1 B\n") +
                       "case one_002\ndc D\nquery SetBkColor D 0x000001\nresult 0x00ffffff\n"
                       "query GetBkColor D\nresult 0x00000002\nendcase\n");
  EXPECT_EQ(Run(), 1);
  EXPECT_EQ(report_,
            "one.txt one_001 check 1: first at (1, 0), expected 000000, actual ffffff\n"
            "one.txt one_002 check 2: query GetBkColor D: expected 0x00000002, actual 0x00000001\n"
            "0 passed, 2 failed, 0 skipped\n");
}

TEST_F(ReplayFolder_, SkipsWhatTheInterfaceDoesNotHaveAndSaysSo) {
  Write("one.txt",
        "case a\ndc D\nTwirl D 1\nendcase\ncase b\ndc D\nTwirl D 1\nendcase\n"
        "case c\ndc D\nquery Spin D\nresult 1\nendcase\n");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(report_,
            "no operation \"Spin\": 1 cases skipped\nno operation \"Twirl\": 2 cases skipped\n"
            "0 passed, 0 failed, 3 skipped\n");
}

TEST_F(ReplayFolder_, ReportsQuirksApart) {
  Write("one.txt", Checking("equal quirk", "FillRect S 1 0 2 1 B\n") +
                       Checking("near quirk", "FillRect S 1 0 3 1 B\n") + Checking("far quirk", ""));
  EXPECT_EQ(Run(), 1);
  EXPECT_EQ(report_,
            "one.txt far (quirk) check 1: first at (1, 0), expected 000000, actual ffffff\n"
            "quirks of one: 1 equal, 1 near, 1 far; far pixels median 0.0 %, worst 100.0 %\n"
            "2 passed, 1 failed, 0 skipped\n");
}

TEST_F(ReplayFolder_, WrongValueOfAQuirkFails) {
  Write("one.txt", "case a quirk\ndc D\nquery GetBkColor D\nresult 0x00000000\nendcase\n");
  EXPECT_EQ(Run(), 1);
}

/// A quirk case of one dot at (5, 0) by an arc that ends far from there.
std::string WrongArc(const std::string& name) {
  return "case " + name + " quirk\nsurface S 9 1 32\nMoveToEx S 0 0\nAngleArc S 0 0 1 0 0\n" +
         "check S\npixels 9 1\n5*ffffff 000000 3*ffffff\nend\nendcase\n";
}
/// One whose arc is drawn as recorded.
std::string RightArc(const std::string& name) {
  return "case " + name + " quirk\nsurface S 9 1 32\nMoveToEx S 0 0\nAngleArc S 0 0 1 0 0\n" +
         "check S\npixels 9 1\n000000 8*ffffff\nend\nendcase\n";
}

TEST_F(ReplayFolder_, QuirksWithArcsAreJudgedByTheirMedian) {
  Write("one.txt", WrongArc("a") + RightArc("b") + RightArc("c"));
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(report_,
            "quirks of one: 2 equal, 0 near, 1 far; far pixels median 0.0 %, worst 100.0 %\n"
            "3 passed, 0 failed, 0 skipped\n");
  Write("one.txt", WrongArc("a") + RightArc("b") + WrongArc("c"));
  EXPECT_EQ(Run(), 1);
  EXPECT_EQ(report_,
            "one.txt: the arcs of half of the quirk cases are too far off\n"
            "quirks of one: 1 equal, 0 near, 2 far; far pixels median 100.0 %, worst 100.0 %\n"
            "3 passed, 1 failed, 0 skipped\n");
}

TEST_F(ReplayFolder_, UnmarkedCaseWithArcsMayNotBeFar) {
  std::string unmarked = WrongArc("a");
  unmarked.erase(unmarked.find(" quirk"), 6);
  Write("one.txt", unmarked);
  EXPECT_EQ(Run(), 1);
}

TEST_F(ReplayFolder_, UnmarkedCaseMayNotEvenBeNear) {
  Write("one.txt", Checking("near", "FillRect S 1 0 3 1 B\n"));
  EXPECT_EQ(Run(), 1);
}

TEST_F(ReplayFolder_, RefusesMalformedFilesWithTheirPlace) {
  Write("a.txt", "case a\nsurface S 3 x 32\nendcase\n");
  EXPECT_EQ(Run(), 2);
  EXPECT_EQ(errors_, "a.txt:2: \"x\" is not a number of 32 bits\n");
  EXPECT_EQ(report_, "");
  const std::pair<std::string, std::string> wrong[] = {
      {"surface S 3", "a.txt:2: an argument is missing\n"},
      {"surface S 0 1 32",
       "a.txt:2: no surface of 0 x 1 at 32 bits a pixel; measures must be positive, bits 1 or 32\n"},
      {"dc D E", "a.txt:2: more arguments than \"dc\" takes\n"},
      {"SetBkColor D 0", "a.txt:2: nothing is named \"D\"\n"},
      {"fill S 0", "a.txt:2: no surface is named \"S\"\n"},
      {"bitmap M 8 1 1 1 80", "a.txt:2: the bytes do not fit the measures\n"},
      {"bitmap M 8 1 1 1 80zz", "a.txt:2: the bytes are not hexadecimal\n"},
      {"query", "a.txt:2: query without result\n"},
      {"stock P 0\nstock P 1", "a.txt:3: \"P\" is made twice\n"},
      {"dc D\nPolyline D 2 1 1", "a.txt:3: the number of points is wrong\n"},
      {"surface S 1 1 32\nnoise S 1 0 1 0", "a.txt:3: noise needs cells and colours\n"},
      {"surface S 1 1 32\nquery GetBitmapBits S.bmp -1\nresult 0", "a.txt:3: the size is not usable\n"},
  };
  for (const auto& [lines, message] : wrong) {
    Write("a.txt", "case a\n" + lines + "\nendcase\n");
    EXPECT_EQ(Run(), 2) << lines;
    EXPECT_EQ(errors_, message);
  }
}

TEST_F(ReplayFolder_, NeedsAFolderWithCases) {
  EXPECT_EQ(Run(), 2);
  EXPECT_EQ(errors_, folder_.string() + ": no folder with .txt files\n");
  folder_ /= "none";
  EXPECT_EQ(Run(), 2);
}

class ReplayCase : public ReplayFolder_ {
 protected:
  CaseResult Result(const std::string& lines) {
    Write("c.txt", "case c\n" + lines + "endcase\n");
    return Replay(ReadCases(folder_ / "c.txt")[0], folder_ / "c.txt");
  }
  void ExpectPasses(const std::string& lines) {
    const CaseResult result = Result(lines);
    EXPECT_EQ(result.verdict, Verdict::kPassed)
        << (result.differences.empty() ? result.missingOperation : result.differences[0]);
  }
};

TEST_F(ReplayCase, StageIsSetPixelByPixel) {
  ExpectPasses(
      "surface S 3 2 32\nblock S 1 -1 9 2 0x0000ff\ncheck S\npixels 3 2\nffffff 2*0000ff\n3*ffffff\nend\n"
      "fill S 0x123456\ncheck S\npixels 3 2\n3*123456\n=1\nend\n");
}

TEST_F(ReplayCase, GradientIsByPlace) {
  ExpectPasses("surface S 2 2 32\ngradient S\ncheck S\npixels 2 2\n000000 030008\n050a00 080a08\nend\n");
}

TEST_F(ReplayCase, NoiseIsCellByCell) {
  // seed 1: 1103527590 -> r 16838, then 2524885223 -> r 5758.
  ExpectPasses(
      "surface S 3 1 32\nnoise S 1 2 5 0x000000 0x111111 0x222222\ncheck S\npixels 3 1\n2*222222 "
      "111111\nend\n");
}

TEST_F(ReplayCase, OneBitSurfaceShowsBlackAndWhite) {
  ExpectPasses(
      "surface S 3 1 1\nblock S 0 0 1 1 0x000000\nblock S 1 0 1 1 0x000001\ncheck S\n"
      "pixels 3 1\n000000 2*ffffff\nend\nquery GetBitmapBits S.bmp 2\nresult 2 6000\n");
}

TEST_F(ReplayCase, ObjectsAreToldByTheirNames) {
  ExpectPasses(
      "dc D\nquery GetCurrentObject D 1\nresult stock:7\nquery GetCurrentObject D 7\nresult default-bitmap\n"
      "logpen P 0 1 0\nquery SelectObject D P\nresult stock:7\nquery GetCurrentObject D 1\nresult P\n"
      "query GetCurrentObject D 99\nresult null\nsurface S 1 1 32\nquery GetCurrentObject S 7\nresult "
      "S.bmp\n");
}

TEST_F(ReplayCase, LeavesNothingBehind) {
  const std::size_t before = gdi::LiveObjects();
  Result(
      "dc D\nsurface S 2 2 32\nlogpen P 0 1 0\nSelectObject D P\nSelectObject S P\nbitmap M 2 2 1 1 null\n"
      "SelectObject D M\n");
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(ReplayFolder_, QuirkWithCurvesMayHaveThreeFarPixelsInAHundred) {
  const auto drawn = [](const std::string& lastRow) {
    return "case a quirk\nsurface S 100 3 32\nstock B 4\nFillRect S 0 0 100 1 B\nEllipse S 0 0 0 0\n"
           "check S\npixels 100 3\n100*000000\n100*ffffff\n" +
           lastRow + "\nend\nendcase\n";
  };
  Write("one.txt", drawn("000000 9*ffffff 000000 9*ffffff 000000 79*ffffff"));
  EXPECT_EQ(Run(), 0);
  Write("one.txt", drawn("000000 9*ffffff 000000 9*ffffff 000000 9*ffffff 000000 69*ffffff"));
  EXPECT_EQ(Run(), 1);
}

}  // namespace
}  // namespace quenzel7::gdi_replay
