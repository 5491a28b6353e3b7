#include "hosts/cli/diff_picture.h"

#include <gtest/gtest.h>

namespace quenzel7::cli {
namespace {

constexpr std::uint32_t W = 0xFFFFFF, A = 0xE02020, B = 0x1060F0, AB = 0xA020C0;

using Pixels = std::vector<std::uint32_t>;

TEST(DiffPicture, EqualPixelsAreFadedGrey) {
  // The weights of the three colours, and that white stays and black does not.
  const PaintedPage page{{5, 1, {0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF}},
                         std::vector<bool>(5, true)};
  EXPECT_EQ(DiffPicture(page, page).pixels, (Pixels{0xAAAAAA, 0xFFFFFF, 0xC4C4C4, 0xDCDCDC, 0xB4B4B4}));
}

TEST(DiffPicture, PixelsThatDifferHaveTheColourOfThePageWhoseElementsPaintThem) {
  const PaintedPage a{{4, 1, {1, 2, 3, 4}}, {true, false, true, false}};
  const PaintedPage b{{4, 1, {9, 9, 9, 9}}, {false, true, true, false}};
  EXPECT_EQ(DiffPicture(a, b).pixels, (Pixels{A, B, AB, AB}));
}

TEST(DiffPicture, IsAsLargeAsBothPagesTogether) {
  const PaintedPage wide{{3, 1, {W, W, W}}, std::vector<bool>(3)};
  const PaintedPage high{{1, 2, {W, W}}, std::vector<bool>(2)};
  const Picture picture = DiffPicture(wide, high);
  EXPECT_EQ(picture.width, 3);
  EXPECT_EQ(picture.height, 2);
  EXPECT_EQ(picture.pixels, (Pixels{W, A, A, B, W, W}));
  EXPECT_EQ(DiffPicture(high, wide).pixels, (Pixels{W, B, B, A, W, W}));
}

}  // namespace
}  // namespace quenzel7::cli
