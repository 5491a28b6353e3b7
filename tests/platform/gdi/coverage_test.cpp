#include "platform/gdi/coverage.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <vector>

namespace quenzel7::gdi {
namespace {

using Text = std::vector<std::string>;

Coverage Nothing(int width, int height) {
  Coverage coverage;
  coverage.Begin(width, height);
  return coverage;
}

/// What is painted, counting how often: each painting adds one to a pixel by inverting bits, so a pixel that
/// is painted twice is empty again.
Text Painted(const Coverage& coverage) {
  Bitmap bitmap(coverage.Width(), coverage.Height(), 32);
  SpanPainter painter(bitmap, Ink::Solid(0), RasterTable(DSTINVERT));
  coverage.Paint(painter);
  Text rows;
  for (int y = 0; y < bitmap.Height(); ++y) {
    std::string row;
    for (int x = 0; x < bitmap.Width(); ++x) row += bitmap.At(x, y) != 0 ? '#' : '.';
    rows.push_back(row);
  }
  return rows;
}

Text OneRow(std::initializer_list<std::array<int, 2>> stretches) {
  Coverage coverage = Nothing(12, 1);
  for (const auto& [left, right] : stretches) coverage.Span(0, left, right);
  return Painted(coverage);
}

TEST(Coverage, BeginsEmpty) {
  const Coverage coverage = Nothing(3, 2);
  EXPECT_EQ(Painted(coverage), (Text{"...", "..."}));
  EXPECT_FALSE(coverage.IsFull());
  EXPECT_FALSE(coverage.IsFull(0));
}

TEST(Coverage, HasNoSizeBeforeItBegins) {
  EXPECT_EQ(Coverage().Width(), 0);
  EXPECT_EQ(Coverage().Height(), 0);
}

TEST(Coverage, LeavesTheRightEndOut) { EXPECT_EQ(OneRow({{2, 5}}), Text{"..###......."}); }

TEST(Coverage, OfNoOrNegativeLengthIsNothing) { EXPECT_EQ(OneRow({{4, 4}, {7, 6}}), Text{"............"}); }

TEST(Coverage, KeepsGapsAndOrderWhateverTheOrderOfThoseThatCome) {
  EXPECT_EQ(OneRow({{8, 10}, {1, 2}, {4, 6}}), Text{".#..##..##.."});
}

TEST(Coverage, PaintsEachPixelOnceHoweverOftenItIsCovered) {
  EXPECT_EQ(OneRow({{2, 6}, {4, 8}}), Text{"..######...."});
  EXPECT_EQ(OneRow({{4, 8}, {2, 6}}), Text{"..######...."});
  EXPECT_EQ(OneRow({{2, 8}, {3, 4}}), Text{"..######...."});
  EXPECT_EQ(OneRow({{3, 4}, {6, 7}, {2, 8}}), Text{"..######...."});
  EXPECT_EQ(OneRow({{1, 3}, {5, 6}, {9, 11}, {2, 10}}), Text{".##########."});
}

TEST(Coverage, StretchesThatTouchBecomeOne) {
  Coverage coverage = Nothing(6, 1);
  coverage.Span(0, 0, 2);
  coverage.Span(0, 4, 6);
  EXPECT_FALSE(coverage.IsFull(0));
  coverage.Span(0, 2, 4);
  EXPECT_TRUE(coverage.IsFull(0));
}

TEST(Coverage, CutsOffWhatLiesOutside) {
  Coverage coverage = Nothing(4, 2);
  constexpr std::int64_t kFar = std::int64_t{1} << 40;
  coverage.Span(-1, 0, 4);
  coverage.Span(2, 0, 4);
  coverage.Span(-kFar, 0, 4);
  coverage.Span(kFar, 0, 4);
  coverage.Span(0, -5, 0);
  coverage.Span(0, 4, 9);
  EXPECT_EQ(Painted(coverage), (Text{"....", "...."}));
  coverage.Span(0, -kFar, 1);
  coverage.Span(1, 3, kFar);
  EXPECT_EQ(Painted(coverage), (Text{"#...", "...#"}));
}

TEST(Coverage, IsFullWithTheLastPixelOfTheLastRow) {
  Coverage coverage = Nothing(3, 2);
  coverage.Span(1, -1, 4);
  EXPECT_TRUE(coverage.IsFull(1));
  EXPECT_FALSE(coverage.IsFull(0));
  coverage.Span(1, 0, 3);
  coverage.Span(0, 0, 2);
  EXPECT_FALSE(coverage.IsFull());
  coverage.Span(0, 2, 3);
  EXPECT_TRUE(coverage.IsFull());
  EXPECT_EQ(Painted(coverage), (Text{"###", "###"}));
}

TEST(Coverage, NeedsTheLeftEndTooToBeFull) {
  Coverage coverage = Nothing(3, 1);
  coverage.Span(0, 1, 3);
  EXPECT_FALSE(coverage.IsFull());
}

TEST(Coverage, AllIsEveryPixel) {
  Coverage coverage = Nothing(3, 2);
  coverage.Span(1, 1, 2);
  coverage.All();
  EXPECT_TRUE(coverage.IsFull());
  EXPECT_EQ(Painted(coverage), (Text{"###", "###"}));
}

TEST(Coverage, BeginsAnewForSurfacesOfOtherSizes) {
  Coverage coverage = Nothing(5, 3);
  coverage.All();
  coverage.Begin(4, 2);
  EXPECT_FALSE(coverage.IsFull());
  EXPECT_EQ(Painted(coverage), (Text{"....", "...."}));
  coverage.Span(1, 1, 3);
  coverage.Begin(5, 4);
  EXPECT_EQ(Painted(coverage), (Text{".....", ".....", ".....", "....."}));
}

TEST(Coverage, OfRandomStretchesIsTheirUnion) {
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    Coverage coverage = Nothing(40, 1);
    std::string expected(40, '.');
    for (int i = 0; i < 12; ++i) {
      const int left = static_cast<int>(random() % 44) - 2, right = left + static_cast<int>(random() % 8);
      coverage.Span(0, left, right);
      for (int x = std::max(left, 0); x < std::min(right, 40); ++x)
        expected[static_cast<std::size_t>(x)] = '#';
    }
    ASSERT_EQ(Painted(coverage), Text{expected}) << round;
  }
}

}  // namespace
}  // namespace quenzel7::gdi
