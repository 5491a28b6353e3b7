#include "platform/gdi/ellipse.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace quenzel7::gdi {
namespace {

std::vector<std::string> Outline(int width, int height) {
  const EllipseQuarter quarter(width, height);
  std::vector<std::string> rows(static_cast<std::size_t>(height),
                                std::string(static_cast<std::size_t>(width), '.'));
  for (int y = 0; y < height; ++y) {
    const auto [first, last] = quarter.At(y);
    for (auto x = first; x <= last; ++x) {
      rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = '#';
      rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(width - 1 - x)] = '#';
    }
  }
  return rows;
}

TEST(EllipseQuarter, CirclesOfThreeToNine) {
  EXPECT_EQ(Outline(3, 3), (std::vector<std::string>{".#.", "#.#", ".#."}));
  EXPECT_EQ(Outline(4, 4), (std::vector<std::string>{".##.", "#..#", "#..#", ".##."}));
  EXPECT_EQ(Outline(5, 5), (std::vector<std::string>{".###.", "#...#", "#...#", "#...#", ".###."}));
  EXPECT_EQ(Outline(6, 6),
            (std::vector<std::string>{"..##..", ".#..#.", "#....#", "#....#", ".#..#.", "..##.."}));
  EXPECT_EQ(Outline(9, 9),
            (std::vector<std::string>{"...###...", ".##...##.", ".#.....#.", "#.......#", "#.......#",
                                      "#.......#", ".#.....#.", ".##...##.", "...###..."}));
}

TEST(EllipseQuarter, UpToTwoPixelsIsAFullBar) {
  EXPECT_EQ(Outline(2, 3), (std::vector<std::string>{"##", "##", "##"}));
  EXPECT_EQ(Outline(5, 2), (std::vector<std::string>{"#####", "#####"}));
  EXPECT_EQ(Outline(1, 2), (std::vector<std::string>{"#", "#"}));
  EXPECT_EQ(Outline(7, 1), (std::vector<std::string>{"#######"}));
}

TEST(EllipseQuarter, SlimOnesEndInATip) {
  EXPECT_EQ(Outline(3, 6), (std::vector<std::string>{".#.", "#.#", "#.#", "#.#", "#.#", ".#."}));
  EXPECT_EQ(Outline(6, 3), (std::vector<std::string>{".####.", "#....#", ".####."}));
}

// Follows the rule pixel by pixel: from the middle of the left side, a step outward if f of the pixel
// beside the corner and of the corner sum up to at most 0, a step inward if f of the pixel before it and
// of it sum up to at least 0.
TEST(EllipseQuarter, EveryStepGoesToTheNearerSide) {
  for (int width = 3; width <= 40; ++width) {
    for (int height = 3; height <= 40; ++height) {
      const std::int64_t a = width - 1, b = height - 1;
      const auto f = [&](std::int64_t x, std::int64_t row) {
        return b * b * (a - 2 * x) * (a - 2 * x) + a * a * (b - 2 * row) * (b - 2 * row) - a * a * b * b;
      };
      std::vector<std::vector<int>> visited(static_cast<std::size_t>(height));
      std::int64_t x = 0, row = b / 2;
      while (2 * x <= a) {
        visited[static_cast<std::size_t>(row)].push_back(static_cast<int>(x));
        const std::int64_t corner = f(x + 1, row - 1);
        const bool outward = corner + f(x + 1, row) <= 0, inward = corner + f(x, row - 1) >= 0;
        ASSERT_TRUE(outward || inward);
        row -= outward;
        x += inward;
      }
      const EllipseQuarter quarter(width, height);
      for (std::int64_t y = b / 2; y >= 0; --y) {
        const auto& pixels = visited[static_cast<std::size_t>(y)];
        const auto [first, last] = quarter.At(y);
        ASSERT_EQ(first, pixels.empty() ? x - 1 : pixels.front()) << width << "x" << height << " row " << y;
        ASSERT_EQ(last, pixels.empty() ? x - 1 : pixels.back()) << width << "x" << height << " row " << y;
        const auto mirrored = quarter.At(height - 1 - y);
        ASSERT_EQ(mirrored.first, first);
        ASSERT_EQ(mirrored.last, last);
      }
    }
  }
}

TEST(EllipseQuarter, TouchesAllFourSides) {
  for (const auto& [width, height] :
       {std::pair{50, 90}, {91, 33}, {16384, 7}, {9, 16384}, {3, 20}, {4, 20}}) {
    const EllipseQuarter quarter(width, height);
    EXPECT_EQ(quarter.At((height - 1) / 2).first, 0) << width << "x" << height;
    EXPECT_GE(quarter.At(0).last, (width - 1) / 2) << width << "x" << height;
  }
}

// Either across or along, every pixel is the nearest one to the true ellipse; on both sides of the limit
// up to which the outline is traced.
TEST(EllipseQuarter, LargeOnesFollowTheTrueEllipse) {
  for (const auto& [width, height] :
       {std::pair{16384.0, 16384.0}, {16385.0, 16385.0}, {20000.0, 500.0}, {500.0, 20001.0}}) {
    const EllipseQuarter quarter(static_cast<std::int64_t>(width), static_cast<std::int64_t>(height));
    const double a = (width - 1) / 2, b = (height - 1) / 2;
    for (std::int64_t row = 0; row <= static_cast<std::int64_t>(b); ++row) {
      const auto [first, last] = quarter.At(row);
      ASSERT_GE(last, first);
      const double x = a - static_cast<double>(first), y = b - static_cast<double>(row);
      const double offAcross = std::abs(x - a * std::sqrt(std::max(0.0, 1 - y * y / b / b)));
      const double offAlong = std::abs(y - b * std::sqrt(std::max(0.0, 1 - x * x / a / a)));
      ASSERT_LE(std::min(offAcross, offAlong), 0.5001) << width << "x" << height << " row " << row;
      if (row > 0) {
        ASSERT_LE(std::abs(last - (quarter.At(row - 1).first - 1)), 1) << row;
      }
    }
    EXPECT_EQ(quarter.At(static_cast<std::int64_t>(b)).first, 0);
    EXPECT_GE(quarter.At(0).last, static_cast<std::int64_t>(a));
  }
}

TEST(EllipseQuarter, OfTheWholePlaneCostsNoMemory) {
  const EllipseQuarter quarter(std::int64_t{1} << 32, std::int64_t{1} << 32);
  EXPECT_EQ(quarter.At((std::int64_t{1} << 31) - 1).first, 0);
  EXPECT_GT(quarter.At(1).first, 0);
}

}  // namespace
}  // namespace quenzel7::gdi
