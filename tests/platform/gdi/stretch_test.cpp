#include "platform/gdi/stretch.h"

#include <gtest/gtest.h>

#include "platform/gdi/types.h"

namespace quenzel7::gdi {
namespace {

TEST(StretchAxis, EnlargingTakesTheNearestPixel) {
  const StretchAxis axis(3, 8, false);
  std::vector<std::int64_t> pixels;
  for (int k = 0; k < 8; ++k) {
    EXPECT_EQ(axis.At(k).end, axis.At(k).first + 1);
    pixels.push_back(axis.At(k).first);
  }
  EXPECT_EQ(pixels, (std::vector<std::int64_t>{0, 0, 0, 1, 1, 2, 2, 2}));
}

TEST(StretchAxis, FollowsItsFormulaForAllSmallLengths) {
  for (std::int64_t s = 1; s <= 40; ++s) {
    for (std::int64_t d = 1; d <= 40; ++d) {
      const StretchAxis axis(s, d, false), mirrored(s, d, true);
      for (std::int64_t k = 0; k < d; ++k) {
        const auto [first, end] = axis.At(k);
        EXPECT_EQ(mirrored.At(d - 1 - k).first, first);
        EXPECT_EQ(mirrored.At(d - 1 - k).end, end);
        if (d >= s) {
          EXPECT_EQ(first, ((2 * k + 1) * s - 1) / (2 * d));
          EXPECT_EQ(end, first + 1);
          continue;
        }
        for (std::int64_t q = 0; q < s; ++q) {
          const bool goesHere = ((2 * q + 1) * d - 1) / (2 * s) == k;
          EXPECT_EQ(q >= first && q < end, goesHere) << s << " to " << d << " pixel " << k;
        }
        EXPECT_LT(first, end);
      }
    }
  }
}

TEST(StretchAxis, TakesLengthsOfTheWholePlane) {
  const std::int64_t whole = (std::int64_t{1} << 32) - 1;
  EXPECT_EQ(StretchAxis(whole, whole, false).At(whole - 1).first, whole - 1);
  EXPECT_EQ(StretchAxis(1, whole, false).At(whole - 1).first, 0);
  EXPECT_EQ(StretchAxis(2, whole, false).At(whole / 2 - 1).first, 0);
  EXPECT_EQ(StretchAxis(2, whole, false).At(whole / 2 + 1).first, 1);
  EXPECT_EQ(StretchAxis(whole, 1, false).At(0).first, 0);
  EXPECT_EQ(StretchAxis(whole, 1, false).At(0).end, whole);
  EXPECT_EQ(StretchAxis(whole, whole - 1, false).At(whole - 2).end, whole);
}

class StretchedPixels : public testing::Test {
 protected:
  // 2 x 2 in one: 0b1100, 0b1010 over 0b0110, 0b1000 in the low bits.
  Bitmap Source() const {
    Bitmap source(3, 3, 32);
    source.Words(0)[1] = 0xC;
    source.Words(0)[2] = 0xA;
    source.Words(1)[1] = 0x6;
    source.Words(1)[2] = 0x8;
    return source;
  }
};

TEST_F(StretchedPixels, MeetByAndByOrOrKeepOne) {
  const std::vector<StretchAxis::Pixels> columns{{1, 3}}, rows{{0, 2}};
  EXPECT_EQ(Stretched(Source(), columns, rows, BLACKONWHITE).Words(0)[0], 0x0u);
  EXPECT_EQ(Stretched(Source(), columns, rows, WHITEONBLACK).Words(0)[0], 0xEu);
  EXPECT_EQ(Stretched(Source(), columns, rows, COLORONCOLOR).Words(0)[0], 0xAu);
  EXPECT_EQ(Stretched(Source(), columns, {{0, 1}}, BLACKONWHITE).Words(0)[0], 0x8u);
  EXPECT_EQ(Stretched(Source(), {{1, 2}}, rows, BLACKONWHITE).Words(0)[0], 0x4u);
}

TEST_F(StretchedPixels, AreAsManyAsAskedFor) {
  const Bitmap result = Stretched(Source(), {{1, 2}, {1, 2}, {2, 3}}, {{0, 1}, {1, 2}}, COLORONCOLOR);
  EXPECT_EQ(result.Width(), 3);
  EXPECT_EQ(result.Height(), 2);
  EXPECT_EQ(result.Words(0)[1], 0xCu);
  EXPECT_EQ(result.Words(1)[2], 0x8u);
}

TEST_F(StretchedPixels, OfOneBitAreBits) {
  Bitmap source(10, 2, 1);
  source.Set(8, 0, 1);
  source.Set(9, 1, 1);
  const std::vector<StretchAxis::Pixels> columns{{7, 8}, {8, 10}, {9, 10}, {9, 10}}, rows{{0, 2}};
  const auto bits = [&](std::int32_t mode) { return Stretched(source, columns, rows, mode).Bytes(0)[0]; };
  EXPECT_EQ(bits(BLACKONWHITE), 0x00);
  EXPECT_EQ(bits(WHITEONBLACK), 0x70);
  EXPECT_EQ(bits(COLORONCOLOR), 0x00);
  EXPECT_EQ(Stretched(source, columns, {{1, 2}}, COLORONCOLOR).Bytes(0)[0], 0x70);
}

}  // namespace
}  // namespace quenzel7::gdi
