#include "platform/gdi/region.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <utility>

namespace quenzel7::gdi {
namespace {

TEST(RegionBody, IsOnePixelLessAtTheRightAndTheBottom) {
  for (const Box& body :
       {Region::Body(2, 3, 10, 12), Region::Body(10, 12, 2, 3), Region::Body(2, 12, 10, 3)}) {
    EXPECT_EQ(body.left, 2);
    EXPECT_EQ(body.top, 3);
    EXPECT_EQ(body.right, 9);
    EXPECT_EQ(body.bottom, 11);
  }
  EXPECT_TRUE(Region::Body(0, 0, 1, 5).IsEmpty());
  EXPECT_TRUE(Region::Body(0, 0, 5, 1).IsEmpty());
}

// The interface leaves a box of no measure open. The rule for reversed corners puts it before the edge.
TEST(RegionBody, OfNoWidthIsThePixelBefore) {
  const Box body = Region::Body(5, 5, 5, 15);
  EXPECT_EQ(body.left, 4);
  EXPECT_EQ(body.right, 5);
  EXPECT_EQ(body.top, 5);
  EXPECT_EQ(body.bottom, 14);
}

TEST(Region, ContainsWhatItsRowsHold) {
  const Box body{-3, 2, 14, 13};
  for (const int corner : {0, 5, 9, 40}) {
    const Region region(body, corner, corner);
    const RoundedBox figure(body, corner, corner);
    for (int y = -1; y < 16; ++y) {
      for (int x = -6; x < 18; ++x) {
        const bool isRow = y >= 2 && y < 13;
        const bool expected = isRow && x >= figure.At(y).left && x < figure.At(y).right;
        EXPECT_EQ(region.Contains(x, y), expected) << x << " " << y << " corner " << corner;
      }
    }
  }
}

TEST(Region, MeetsABoxIfAnyPixelOfItIsInside) {
  std::mt19937 random(17);
  const auto between = [&](int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
  };
  for (int i = 0; i < 3000; ++i) {
    const Box body{between(0, 8), between(0, 8), between(9, 20), between(9, 20)};
    const Region region(body, between(0, 25), between(0, 25));
    const Box box = Box::Between(between(-2, 22), between(-2, 22), between(-2, 22), between(-2, 22));
    bool expected = false;
    for (auto y = box.top; y < std::max(box.bottom, box.top + 1); ++y) {
      for (auto x = box.left; x < std::max(box.right, box.left + 1); ++x) expected |= region.Contains(x, y);
    }
    ASSERT_EQ(region.Meets(box), expected) << i;
  }
}

/// Whether a box of at least one pixel meets a row of the figure itself.
bool MeetsRows(const RoundedBox& figure, const Box& box) {
  const Box& body = figure.Bounds();
  if (body.IsEmpty()) return false;
  for (auto y = std::max(box.top, body.top); y < std::min(box.bottom, body.bottom); ++y) {
    if (box.left < figure.At(y).right && box.right > figure.At(y).left) return true;
  }
  return false;
}

TEST(Region, IsTheSameWithAndWithoutItsFigureMade) {
  constexpr int kLeft = -2, kTop = 3, kLargest = 60, kAround = 2;
  std::mt19937 random(3);
  int wrongPoints = 0, wrongBoxes = 0;
  for (int width = 0; width <= kLargest; ++width) {
    for (int height = 0; height <= kLargest; ++height) {
      const Box body{kLeft, kTop, kLeft + width, kTop + height};
      for (const auto& [cornerWidth, cornerHeight] :
           {std::pair{width, height}, std::pair{width / 2, height / 2}, std::pair{0, 0}}) {
        const RoundedBox figure(body, cornerWidth, cornerHeight);
        for (int y = kTop - kAround; y < kTop + height + kAround; ++y) {
          // The first question comes from the left, where nothing needs the figure.
          const Region region(body, cornerWidth, cornerHeight);
          for (int x = kLeft - kAround; x < kLeft + width + kAround; ++x) {
            wrongPoints += region.Contains(x, y) != MeetsRows(figure, {x, y, x + 1, y + 1});
          }
        }
        const Region region(body, cornerWidth, cornerHeight);
        for (int i = 0; i < 10; ++i) {
          std::uniform_int_distribution<int> place(-5, kLargest + 5), size(1, 40);
          const int x = place(random), y = place(random);
          const Box box{x, y, x + size(random), y + size(random)};
          const bool expected = MeetsRows(figure, box);
          wrongBoxes += region.Meets(box) != expected;
          wrongBoxes += Region(body, cornerWidth, cornerHeight).Meets(box) != expected;
        }
      }
    }
  }
  EXPECT_EQ(wrongPoints, 0);
  EXPECT_EQ(wrongBoxes, 0);
}

TEST(Region, WithoutPixelsContainsNothing) {
  const Region region({3, 3, 3, 9}, 5, 5);
  EXPECT_FALSE(region.Contains(3, 5));
  EXPECT_FALSE(region.Meets({-100, -100, 100, 100}));
}

TEST(Region, OfTheWholePlaneAnswersAtOnce) {
  constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();
  const Box body = Region::Body(kMin, kMin, kMax, kMax);
  const Region region(body, body.Width(), body.Height());
  EXPECT_TRUE(region.Contains(0, 0));
  EXPECT_FALSE(region.Contains(kMin, kMin));
  EXPECT_TRUE(region.Contains(kMin, -1));
  EXPECT_TRUE(region.Meets({kMin, kMin, kMax, kMax}));
}

}  // namespace
}  // namespace quenzel7::gdi
