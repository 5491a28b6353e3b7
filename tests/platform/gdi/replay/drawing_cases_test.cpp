#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "hosts/gdi_replay/replay.h"

namespace quenzel7::gdi_replay {
namespace {

const std::filesystem::path kFolder =
    std::filesystem::path(QUENZEL7_TEST_DATA) / "platform" / "gdi" / "cases";

/// A family of cases, and how many of them there are.
struct Family {
  std::string name;
  int cases;
};

void PrintTo(const Family& family, std::ostream* out) { *out << family.name; }

class DrawingCases : public testing::TestWithParam<Family> {};

TEST_P(DrawingCases, AllReplayAsRecorded) {
  const FamilyResult result = ReplayFile(kFolder / (GetParam().name + ".txt"));
  for (const CaseResult& drawingCase : result.cases) {
    if (drawingCase.verdict == CaseResult::Verdict::kPassed) continue;
    ADD_FAILURE() << drawingCase.name << ": "
                  << (drawingCase.differences.empty() ? "no operation " + drawingCase.missingOperation
                                                      : drawingCase.differences[0]);
  }
  EXPECT_EQ(result.Count(CaseResult::Verdict::kPassed), GetParam().cases);
  for (const CaseResult& drawingCase : result.cases) EXPECT_TRUE(drawingCase.isQuirk || drawingCase.isEqual);
}

INSTANTIATE_TEST_SUITE_P(Families, DrawingCases,
                         testing::Values(Family{"bitmaps", 35}, Family{"blit", 53}, Family{"fillrect", 49},
                                         Family{"maskblit", 32}, Family{"rectangle", 50}, Family{"state", 38}),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace quenzel7::gdi_replay
