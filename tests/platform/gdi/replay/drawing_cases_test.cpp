#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "hosts/gdi_replay/replay.h"

namespace quenzel7::gdi_replay {
namespace {

const std::filesystem::path kFolder =
    std::filesystem::path(QUENZEL7_TEST_DATA) / "platform" / "gdi" / "cases";

/// A family of cases and how many there are.
struct Family {
  std::string name;
  int cases;
};

void PrintTo(const Family& family, std::ostream* out) { *out << family.name; }

class DrawingCases : public testing::TestWithParam<Family> {};

TEST_P(DrawingCases, AllReplayAsRecorded) {
  const FamilyResult result = ReplayFile(kFolder / (GetParam().name + ".txt"));
  EXPECT_EQ(result.cases.size(), static_cast<std::size_t>(GetParam().cases));
  for (const CaseResult& drawingCase : result.cases) {
    EXPECT_EQ(drawingCase.verdict, CaseResult::Verdict::kPassed)
        << drawingCase.name << ": " << drawingCase.missingOperation
        << (drawingCase.differences.empty() ? "" : drawingCase.differences[0]);
  }
  EXPECT_TRUE(result.ArcsAreNear()) << result.MedianFarPercentOfArcs();
}

INSTANTIATE_TEST_SUITE_P(Families, DrawingCases,
                         testing::Values(Family{"alphablend", 32}, Family{"arcs", 47}, Family{"bitmaps", 35},
                                         Family{"blit", 53}, Family{"ellipse", 57}, Family{"fillrect", 49},
                                         Family{"geolines", 58}, Family{"lines", 61}, Family{"maskblit", 32},
                                         Family{"paths", 51}, Family{"rectangle", 50}, Family{"regions", 48},
                                         Family{"roundrect", 56}, Family{"state", 38}, Family{"stretch", 46}),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace quenzel7::gdi_replay
