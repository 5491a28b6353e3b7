#include "platform/gdi/span_painter.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace quenzel7::gdi {
namespace {

// Whether a hatch has ink at a pixel, by the rule of each hatch.
bool HasInk(std::uint32_t hatch, int x, int y) {
  const int u = x % 8, v = y % 8;
  switch (hatch) {
    case HS_HORIZONTAL:
      return v == 3;
    case HS_VERTICAL:
      return u == 4;
    case HS_FDIAGONAL:
      return u == v;
    case HS_BDIAGONAL:
      return u + v == 7;
    case HS_CROSS:
      return v == 3 || u == 4;
    default:
      return u == v || u + v == 7;
  }
}

Bitmap Scattered(int width, int height, int bitsPerPixel, std::uint32_t seed) {
  Bitmap bitmap(width, height, bitsPerPixel);
  std::mt19937 random(seed);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      bitmap.Set(x, y, static_cast<COLORREF>(bitsPerPixel == 1 ? random() % 2 : random() & 0xFFFFFF));
  }
  return bitmap;
}

std::vector<COLORREF> Colors(const Bitmap& bitmap) {
  std::vector<COLORREF> colors;
  for (int y = 0; y < bitmap.Height(); ++y) {
    for (int x = 0; x < bitmap.Width(); ++x) colors.push_back(bitmap.At(x, y));
  }
  return colors;
}

// The definition of a fill, pixel by pixel.
void FillNaively(Bitmap& bitmap, const Box& box, const Brush& brush, COLORREF background,
                 std::uint8_t table) {
  for (int y = 0; y < bitmap.Height(); ++y) {
    for (int x = 0; x < bitmap.Width(); ++x) {
      if (x < box.left || x >= box.right || y < box.top || y >= box.bottom) continue;
      const bool isInk = brush.style != BS_HATCHED || HasInk(brush.hatch, x, y);
      COLORREF pattern = isInk ? brush.color : background;
      if (bitmap.IsMono()) pattern = IsNearerWhite(pattern) ? 0xFFFFFF : 0;
      bitmap.Set(x, y, RasterTerms(table, pattern)(0, bitmap.At(x, y)) & 0xFFFFFF);
    }
  }
}

class EveryFill : public testing::TestWithParam<int> {};

TEST_P(EveryFill, IsWhatItsDefinitionSaysPixelByPixel) {
  std::mt19937 random(42);
  const auto between = [&](int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
  };
  // The last is AND: what black ink overwrites, a white gap keeps.
  constexpr std::uint32_t kAnd = 0x00A000C9;
  const std::uint32_t codes[] = {PATCOPY, PATCOPY, PATCOPY, PATINVERT, DSTINVERT, BLACKNESS, WHITENESS, kAnd};
  for (int i = 0; i < 3000; ++i) {
    const int width = between(1, 70), height = between(1, 12);
    Bitmap actual = Scattered(width, height, GetParam(), static_cast<std::uint32_t>(i));
    Bitmap expected = actual;
    const Box box{between(-20, 80), between(-4, 14), between(-20, 80), between(-4, 14)};
    const Brush brush{between(0, 1) != 0 ? BS_HATCHED : BS_SOLID, static_cast<COLORREF>(random() & 0xFFFFFF),
                      static_cast<std::uint32_t>(between(0, 5))};
    const auto background = static_cast<COLORREF>(random() & 0xFFFFFF);
    const std::uint8_t table = RasterTable(codes[between(0, 7)]);
    SpanPainter(actual, InkOf(brush, background), table).Fill(box);
    FillNaively(expected, box, brush, background, table);
    ASSERT_EQ(Colors(actual), Colors(expected)) << "fill number " << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Depths, EveryFill, testing::Values(1, 32));

TEST(SpanPainter, WholeRowsAreFilledToTheLastPixelAndNoFurther) {
  Bitmap bitmap(3, 4, 32);
  SpanPainter(bitmap, Ink::Solid(0x0000FF)).Fill({-5, 1, 9, 3});
  EXPECT_EQ(Colors(bitmap), (std::vector<COLORREF>{0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0}));
}

TEST(SpanPainter, BoxesFarOutsideTouchNothing) {
  Bitmap bitmap(3, 3, 32);
  SpanPainter painter(bitmap, Ink::Solid(0xFFFFFF));
  const std::int64_t far = std::int64_t{1} << 33;
  painter.Fill({3, 0, far, far});
  painter.Fill({-far, -far, 0, far});
  painter.Fill({0, 3, far, far});
  painter.Fill({0, -far, far, 0});
  painter.Fill({2, 2, 2, 3});
  painter.Fill({2, 2, 1, 3});
  EXPECT_EQ(Colors(bitmap), std::vector<COLORREF>(9, 0));
  painter.Fill({-far, -far, far, far});
  EXPECT_EQ(Colors(bitmap), std::vector<COLORREF>(9, 0xFFFFFF));
}

TEST(SpanPainter, FourthByteOfAPixelStaysZero) {
  Bitmap bitmap(2, 1, 32);
  SpanPainter(bitmap, Ink::Solid(0xFF123456)).Fill({0, 0, 1, 1});
  SpanPainter(bitmap, Ink::Solid(0), RasterTable(DSTINVERT)).Fill({1, 0, 2, 1});
  EXPECT_EQ(bitmap.Words(0)[0], 0x563412u);
  EXPECT_EQ(bitmap.Words(0)[1], 0xFFFFFFu);
}

TEST(SpanPainter, SpanIsOneRow) {
  Bitmap bitmap(3, 3, 32);
  SpanPainter(bitmap, Ink::Solid(1)).Span(1, 1, 3);
  EXPECT_EQ(Colors(bitmap), (std::vector<COLORREF>{0, 0, 0, 0, 1, 1, 0, 0, 0}));
}

TEST(SpanPainter, HatchThatOverwritesOnlyWithItsInkKeepsWhatIsInItsGaps) {
  constexpr std::uint8_t kAnd = 0xA0, kOr = 0xFA;
  Bitmap bitmap(8, 1, 32);
  SpanPainter(bitmap, Ink::Solid(0x123456)).Fill({0, 0, 8, 1});
  SpanPainter(bitmap, InkOf(Brush{BS_HATCHED, 0, HS_VERTICAL}, 0xFFFFFF), kAnd).Fill({0, 0, 8, 1});
  std::vector<COLORREF> expected(8, 0x123456);
  expected[4] = 0;
  EXPECT_EQ(Colors(bitmap), expected);
  SpanPainter(bitmap, InkOf(Brush{BS_HATCHED, 0, HS_VERTICAL}, 0xFFFFFF), kOr).Fill({0, 0, 8, 1});
  expected.assign(8, 0xFFFFFF);
  expected[4] = 0;
  EXPECT_EQ(Colors(bitmap), expected);
}

TEST(SpanPainter, RowSpanIsCutOffAtBothSides) {
  for (const int bits : {1, 32}) {
    for (const std::uint8_t table : {RasterTable(PATCOPY), RasterTable(DSTINVERT)}) {
      Bitmap bitmap(4, 2, bits);
      SpanPainter painter(bitmap, Ink::Solid(0xFFFFFF), table);
      const std::int64_t far = std::int64_t{1} << 40;
      painter.RowSpan(1, 3, 3);
      painter.RowSpan(1, 3, 1);
      painter.RowSpan(1, 4, far);
      painter.RowSpan(1, -far, 0);
      EXPECT_EQ(Colors(bitmap), std::vector<COLORREF>(8, 0));
      painter.RowSpan(1, -far, 1);
      painter.RowSpan(1, 2, 3);
      EXPECT_EQ(Colors(bitmap), (std::vector<COLORREF>{0, 0, 0, 0, 0xFFFFFF, 0, 0xFFFFFF, 0}));
      painter.RowSpan(0, 3, far);
      EXPECT_EQ(Colors(bitmap), (std::vector<COLORREF>{0, 0, 0, 0xFFFFFF, 0xFFFFFF, 0, 0xFFFFFF, 0}));
    }
  }
}

TEST(SpanPainter, PixelIsCombinedByTheOperation) {
  for (const int bits : {1, 32}) {
    Bitmap bitmap(9, 1, bits);
    bitmap.Set(8, 0, 0xFFFFFF);
    SpanPainter painter(bitmap, Ink::Solid(0), RasterTable(DSTINVERT));
    painter.ClippedPixel(0, 0);
    painter.ClippedPixel(8, 0);
    EXPECT_EQ(Colors(bitmap), (std::vector<COLORREF>{0xFFFFFF, 0, 0, 0, 0, 0, 0, 0, 0})) << bits;
  }
}

TEST(SpanPainter, PixelIsInkOrGap) {
  for (const int bits : {1, 32}) {
    Bitmap bitmap(10, 1, bits);
    bitmap.Set(8, 0, 0xFFFFFF);
    SpanPainter painter(bitmap, Ink{0xFFFFFF, 0, nullptr});
    painter.ClippedPixel(1, 0);
    painter.ClippedPixel(8, 0, true);
    painter.ClippedPixel(9, 0, false);
    EXPECT_EQ(Colors(bitmap), (std::vector<COLORREF>{0, 0xFFFFFF, 0, 0, 0, 0, 0, 0, 0, 0xFFFFFF})) << bits;
  }
}

TEST(Box, BetweenTakesTheCornersInAnyOrder) {
  for (const Box& box : {Box::Between(1, 2, 5, 9), Box::Between(5, 9, 1, 2), Box::Between(5, 2, 1, 9)}) {
    EXPECT_EQ(box.left, 1);
    EXPECT_EQ(box.top, 2);
    EXPECT_EQ(box.right, 5);
    EXPECT_EQ(box.bottom, 9);
    EXPECT_EQ(box.Width(), 4);
    EXPECT_EQ(box.Height(), 7);
  }
}

TEST(Box, IsEmptyWithoutWidthOrHeight) {
  EXPECT_FALSE((Box{0, 0, 1, 1}.IsEmpty()));
  EXPECT_TRUE((Box{0, 0, 0, 1}.IsEmpty()));
  EXPECT_TRUE((Box{0, 0, 1, 0}.IsEmpty()));
  EXPECT_TRUE((Box{0, 0, 4, 4}.Inset(2).IsEmpty()));
  EXPECT_FALSE((Box{0, 0, 5, 5}.Inset(2).IsEmpty()));
  EXPECT_EQ((Box{0, 0, 5, 6}.Inset(2).bottom), 4);
}

TEST(SpanPainter, GapsWithoutAColorStayAsTheyAre) {
  for (const int bitsPerPixel : {1, 32}) {
    Bitmap bitmap(19, 8, bitsPerPixel), before(19, 8, bitsPerPixel);
    for (int y = 0; y < 8; ++y) {
      for (int x = 0; x < 19; ++x) {
        const COLORREF color = (x * 3 + y) % 5 < 2 ? 0xFFFFFFu : 0;
        bitmap.Set(x, y, color);
        before.Set(x, y, color);
      }
    }
    SpanPainter(bitmap, InkOf(Brush{BS_HATCHED, 0xFFFFFF, HS_VERTICAL}, std::nullopt)).Fill({1, 0, 18, 8});
    for (int y = 0; y < 8; ++y) {
      for (int x = 0; x < 19; ++x) {
        const bool isInk = x % 8 == 4 && x < 18;
        EXPECT_EQ(bitmap.At(x, y), isInk ? 0xFFFFFFu : before.At(x, y))
            << bitsPerPixel << ": " << x << "," << y;
      }
    }
    SpanPainter painter(bitmap, Ink{0, std::nullopt, nullptr});
    bitmap.Set(2, 2, 0xFFFFFF);
    painter.ClippedPixel(2, 2, true);
    EXPECT_EQ(bitmap.At(2, 2), 0xFFFFFFu);
    painter.ClippedPixel(2, 2, false);
    EXPECT_EQ(bitmap.At(2, 2), 0u);
  }
}

TEST(Ink, IsSolidBlackUnlessTold) {
  const Ink ink;
  EXPECT_EQ(ink.color, 0u);
  EXPECT_EQ(ink.gap, std::optional<COLORREF>(0));
  EXPECT_EQ(ink.hatch, nullptr);
}

TEST(InkOf, HatchTakesTheBackgroundForItsGaps) {
  const Ink hatched = InkOf(Brush{BS_HATCHED, 0x11, HS_CROSS}, 0x22);
  EXPECT_EQ(hatched.color, 0x11u);
  EXPECT_EQ(hatched.gap, 0x22u);
  EXPECT_NE(hatched.hatch, nullptr);
  EXPECT_EQ(InkOf(Brush{BS_SOLID, 0x11, HS_CROSS}, 0x22).hatch, nullptr);
}

}  // namespace
}  // namespace quenzel7::gdi
