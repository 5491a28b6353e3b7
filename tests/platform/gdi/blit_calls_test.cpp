#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "platform/gdi/raster_op.h"
#include "platform/gdi/selected.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();
using Text = std::vector<std::string>;

TEST(PatBlt, CombinesTheBrushByTheRasterCode) {
  Surface surface(2, 1);
  surface.Clear(0x0F0F0F);
  const SelectedBrush brush(surface.Dc(), CreateSolidBrush(0x123456));
  const auto after = [&](std::uint32_t code) {
    surface.Clear(0x0F0F0F);
    EXPECT_EQ(PatBlt(surface.Dc(), 1, 0, 1, 1, code), 1);
    EXPECT_EQ(surface.At(0, 0), 0x0F0F0Fu);
    return surface.At(1, 0);
  };
  EXPECT_EQ(after(BLACKNESS), 0u);
  EXPECT_EQ(after(WHITENESS), 0xFFFFFFu);
  EXPECT_EQ(after(PATCOPY), 0x123456u);
  EXPECT_EQ(after(PATINVERT), 0x1D3B59u);
  EXPECT_EQ(after(DSTINVERT), 0xF0F0F0u);
}

TEST(PatBlt, RefusesCodesThatNeedASource) {
  const Surface surface = White(2, 1);
  for (const std::uint32_t code : {SRCCOPY, NOTSRCCOPY, SRCAND, SRCPAINT, SRCINVERT}) {
    EXPECT_EQ(PatBlt(surface.Dc(), 0, 0, 2, 1, code), 0) << code;
  }
  EXPECT_EQ(Rows(surface), (Text{".."}));
  EXPECT_EQ(PatBlt(0, 0, 0, 2, 1, BLACKNESS), 0);
}

TEST(PatBlt, NegativeMeasuresGoToTheLeftAndUp) {
  const Surface surface = White(5, 4);
  PatBlt(surface.Dc(), 4, 3, -3, -2, BLACKNESS);
  EXPECT_EQ(Rows(surface), (Text{".....", ".###.", ".###.", "....."}));
}

TEST(PatBlt, WithoutBrushDrawsOnlyWhatNeedsNone) {
  const Surface surface = White(2, 1);
  SelectObject(surface.Dc(), GetStockObject(NULL_BRUSH));
  EXPECT_EQ(PatBlt(surface.Dc(), 0, 0, 1, 1, PATCOPY), 1);
  EXPECT_EQ(PatBlt(surface.Dc(), 0, 0, 1, 1, PATINVERT), 1);
  EXPECT_EQ(Rows(surface), (Text{".."}));
  EXPECT_EQ(PatBlt(surface.Dc(), 0, 0, 1, 1, BLACKNESS), 1);
  EXPECT_EQ(Rows(surface), (Text{"#."}));
}

TEST(PatBlt, ReachesOverTheWholePlane) {
  const Surface surface = White(2, 1);
  PatBlt(surface.Dc(), kMin, kMin, kMax, kMax, BLACKNESS);
  EXPECT_EQ(Rows(surface), (Text{".."}));
  PatBlt(surface.Dc(), 1, kMax, kMax, kMin, BLACKNESS);
  EXPECT_EQ(Rows(surface), (Text{".#"}));
}

TEST(BitBlt, CopiesPixels) {
  Surface source = White(4, 3);
  source.Set(1, 1, kRed);
  source.Set(2, 1, kBlue);
  const Surface target = White(5, 3);
  EXPECT_EQ(BitBlt(target.Dc(), 2, 0, 2, 2, source.Dc(), 1, 1, SRCCOPY), 1);
  EXPECT_EQ(Rows(target), (Text{"..rb.", ".....", "....."}));
}

TEST(BitBlt, DoesTheFiveOperations) {
  const std::pair<std::uint32_t, COLORREF> expected[] = {{SRCCOPY, 0x0F1234},
                                                         {NOTSRCCOPY, 0xF0EDCB},
                                                         {SRCAND, 0x0F1034},
                                                         {SRCPAINT, 0xFF1FFF},
                                                         {WHITENESS, 0xFFFFFF}};
  for (const auto& [code, color] : expected) {
    Surface source(1, 1), target(1, 1);
    source.Clear(0x0F1234);
    target.Clear(0xFF1DFF);
    EXPECT_EQ(BitBlt(target.Dc(), 0, 0, 1, 1, source.Dc(), 0, 0, code), 1);
    EXPECT_EQ(target.At(0, 0), color) << code;
  }
}

TEST(BitBlt, FromOneBitTakesTextAndBackgroundColorOfTheTarget) {
  Surface source(3, 1, 1);
  source.Set(1, 0, kWhite);
  const Surface target(3, 1);
  SetTextColor(target.Dc(), kRed);
  SetBkColor(target.Dc(), kGreen);
  SetTextColor(source.Dc(), kBlue);
  SetBkColor(source.Dc(), kBlue);
  BitBlt(target.Dc(), 0, 0, 3, 1, source.Dc(), 0, 0, SRCCOPY);
  EXPECT_EQ(Rows(target), (Text{"rgr"}));
}

TEST(BitBlt, ToOneBitIsOneWhereThePixelIsTheBackgroundColorOfTheSource) {
  Surface source(4, 1);
  source.Set(0, 0, 0x123456);
  source.Set(1, 0, 0x123457);
  source.Set(3, 0, 0x123456);
  const Surface target(4, 1, 1);
  SetBkColor(source.Dc(), 0x123456);
  SetBkColor(target.Dc(), 0);
  BitBlt(target.Dc(), 0, 0, 4, 1, source.Dc(), 0, 0, SRCCOPY);
  EXPECT_EQ(Rows(target), (Text{".##."}));
}

TEST(BitBlt, BetweenOneBitCopiesBitsWhateverTheColors) {
  Surface source(4, 1, 1);
  source.Set(2, 0, kWhite);
  const Surface target(4, 1, 1);
  SetTextColor(target.Dc(), kWhite);
  SetBkColor(target.Dc(), kBlack);
  BitBlt(target.Dc(), 1, 0, 3, 1, source.Dc(), 1, 0, SRCCOPY);
  EXPECT_EQ(Rows(target), (Text{"##.#"}));
}

TEST(BitBlt, DoesNotDrawWhatLiesOutsideTheSource) {
  const Surface source(2, 2);
  const Surface target = White(5, 5);
  EXPECT_EQ(BitBlt(target.Dc(), 0, 0, 5, 5, source.Dc(), -1, -2, SRCCOPY), 1);
  EXPECT_EQ(Rows(target), (Text{".....", ".....", ".##..", ".##..", "....."}));
  EXPECT_EQ(BitBlt(target.Dc(), 0, 0, 5, 5, source.Dc(), 2, 0, SRCCOPY), 1);
  EXPECT_EQ(BitBlt(target.Dc(), 0, 0, 5, 5, source.Dc(), kMin, kMax, SRCCOPY), 1);
  EXPECT_EQ(BitBlt(target.Dc(), kMin, kMin, kMax, kMax, source.Dc(), kMin, kMin, SRCCOPY), 1);
  EXPECT_EQ(Rows(target), (Text{".....", ".....", ".##..", ".##..", "....."}));
}

TEST(BitBlt, NegativeMeasuresGoToTheLeftAndUpInBoth) {
  Surface source = White(3, 3);
  source.Set(0, 0, kRed);
  const Surface target = White(3, 3);
  EXPECT_EQ(BitBlt(target.Dc(), 3, 3, -2, -2, source.Dc(), 2, 2, SRCCOPY), 1);
  EXPECT_EQ(Rows(target), (Text{"...", ".r.", "..."}));
}

TEST(BitBlt, NeedsASourceOnlyForCodesThatUseIt) {
  const Surface target = White(2, 1);
  EXPECT_EQ(BitBlt(target.Dc(), 0, 0, 2, 1, 0, 0, 0, SRCCOPY), 0);
  EXPECT_EQ(BitBlt(target.Dc(), 0, 0, 2, 1, 77, 0, 0, SRCAND), 0);
  EXPECT_EQ(Rows(target), (Text{".."}));
  EXPECT_EQ(BitBlt(target.Dc(), 1, 0, 1, 1, 0, 0, 0, BLACKNESS), 1);
  EXPECT_EQ(Rows(target), (Text{".#"}));
  EXPECT_EQ(BitBlt(0, 0, 0, 1, 1, target.Dc(), 0, 0, SRCCOPY), 0);
  EXPECT_EQ(BitBlt(0, 0, 0, 1, 1, 0, 0, 0, BLACKNESS), 0);
}

TEST(BitBlt, OfANullBrushDrawsOnlyWhatNeedsNone) {
  const Surface source(2, 1), target = White(2, 1);
  SelectObject(target.Dc(), GetStockObject(NULL_BRUSH));
  constexpr std::uint32_t kMergeCopy = 0x00C000CA;
  EXPECT_EQ(BitBlt(target.Dc(), 0, 0, 2, 1, source.Dc(), 0, 0, kMergeCopy), 1);
  EXPECT_EQ(BitBlt(target.Dc(), 0, 0, 2, 1, 0, 0, 0, PATCOPY), 1);
  EXPECT_EQ(Rows(target), (Text{".."}));
}

/// The definition of a blit, pixel by pixel, reading everything before writing anything.
struct NaiveBlit {
  COLORREF text, background, sourceBackground, brush, gap;
  int hatch;  ///< -1 for none

  bool HasInk(int x, int y) const {
    return hatch < 0 || (hatch == HS_FDIAGONAL ? x % 8 == y % 8 : x % 8 == 4);
  }

  void operator()(Surface& target, int x, int y, int w, int h, const Surface& source, int sx, int sy,
                  std::uint32_t code) const {
    const std::vector<COLORREF> from = Colors(source);
    const bool toMono = target.BitsPerPixel() == 1, fromMono = source.BitsPerPixel() == 1;
    for (int v = 0; v < h; ++v) {
      for (int u = 0; u < w; ++u) {
        const int tx = x + u, ty = y + v, fx = sx + u, fy = sy + v;
        if (target.At(tx, ty) == CLR_INVALID || fx < 0 || fy < 0 || fx >= source.Width() ||
            fy >= source.Height())
          continue;
        COLORREF s = from[static_cast<std::size_t>(fy * source.Width() + fx)];
        if (fromMono && !toMono) s = s != 0 ? background : text;
        if (!fromMono && toMono) s = s == sourceBackground ? kWhite : kBlack;
        COLORREF p = HasInk(tx, ty) ? brush : gap;
        if (toMono) p = p == kWhite ? kWhite : kBlack;
        target.Set(tx, ty, RasterTerms(RasterTable(code), p)(s, target.At(tx, ty)) & 0xFFFFFF);
      }
    }
  }
};

TEST(BitBlt, IsWhatItsDefinitionSaysPixelByPixel) {
  std::mt19937 random(99);
  const auto between = [&](int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
  };
  for (int i = 0; i < 4000; ++i) {
    const int targetBits = between(0, 1) != 0 ? 1 : 32, sourceBits = between(0, 1) != 0 ? 1 : 32;
    Surface target(between(1, 60), between(1, 9), targetBits),
        source(between(1, 60), between(1, 9), sourceBits);
    Scatter(target, static_cast<std::uint32_t>(i));
    Scatter(source, static_cast<std::uint32_t>(i) + 12345);
    const COLORREF someSourceColor = source.At(0, 0);
    for (int y = 0; y < source.Height(); ++y) source.Set(between(0, source.Width() - 1), y, someSourceColor);
    const bool onItself = between(0, 2) == 0;
    Surface& from = onItself ? target : source;

    const int hatches[] = {-1, HS_VERTICAL, HS_FDIAGONAL};
    const int hatch = hatches[between(0, 2)];
    const NaiveBlit naive{0x123456, kBlack, onItself ? kBlack : someSourceColor, kWhite, kBlack, hatch};
    SetTextColor(target.Dc(), naive.text);
    SetBkColor(target.Dc(), naive.background);
    SetBkColor(source.Dc(), someSourceColor);
    const SelectedBrush brush(
        target.Dc(), hatch < 0 ? CreateSolidBrush(naive.brush) : CreateHatchBrush(hatch, naive.brush));
    const std::uint32_t codes[] = {SRCCOPY,
                                   SRCCOPY,
                                   NOTSRCCOPY,
                                   SRCAND,
                                   SRCPAINT,
                                   SRCINVERT,
                                   static_cast<std::uint32_t>(between(0, 255)) << 16};
    const std::uint32_t code = codes[between(0, 6)];
    if (!NeedsSource(RasterTable(code))) continue;
    const int x = between(-10, 50), y = between(-3, 8), w = between(0, 50), h = between(0, 9);
    const int sx = between(-10, 50), sy = between(-3, 8);

    Surface expected(target.Width(), target.Height(), targetBits);
    for (int v = 0; v < target.Height(); ++v) {
      for (int u = 0; u < target.Width(); ++u) expected.Set(u, v, target.At(u, v));
    }
    naive(expected, x, y, w, h, onItself ? expected : source, sx, sy, code);
    ASSERT_EQ(BitBlt(target.Dc(), x, y, w, h, from.Dc(), sx, sy, code), 1);
    ASSERT_EQ(Colors(target), Colors(expected)) << "blit number " << i;
  }
}

/// Bytes of a bitmap in the form of GetBitmapBits.
std::vector<std::uint8_t> BitsOf(const Surface& surface) {
  const std::int32_t size = GetBitmapBits(surface.BitmapHandle(), 0, nullptr);
  std::vector<std::uint8_t> bits(static_cast<std::size_t>(size));
  GetBitmapBits(surface.BitmapHandle(), size, bits.data());
  return bits;
}

/// Compares a blit at every width up to some, with padding and all, with its definition. `fromX` and `x` are
/// where it begins, and `more` is by how much both bitmaps are wider and higher than what is copied.
void CompareWidths(int targetBits, int sourceBits, int x, int fromX, int more, std::uint32_t code) {
  for (int width = 1; width <= 75; ++width) {
    Surface target(x + width + more, 3 + more, targetBits),
        source(fromX + width + more, 3 + more, sourceBits);
    Surface expected(target.Width(), target.Height(), targetBits);
    Scatter(target, 3);
    Scatter(expected, 3);
    Scatter(source, 4);
    const COLORREF key = source.At(fromX, 0);
    for (int i = 0; i < width; i += 3) source.Set(fromX + i, 1, key);
    const NaiveBlit naive{0x123456, 0xFEDCBA, key, kWhite, kWhite, -1};
    SetTextColor(target.Dc(), naive.text);
    SetBkColor(target.Dc(), naive.background);
    SetBkColor(source.Dc(), key);
    naive(expected, x, 1, width, 2, source, fromX, 0, code);
    ASSERT_EQ(BitBlt(target.Dc(), x, 1, width, 2, source.Dc(), fromX, 0, code), 1);
    ASSERT_EQ(BitsOf(target), BitsOf(expected)) << targetBits << " from " << sourceBits << " bits, " << width
                                                << " pixels at " << x << " from " << fromX;
  }
}

TEST(BitBlt, OfAnyWidthIsWhatItsDefinitionSays) {
  for (const std::uint32_t code : {SRCCOPY, NOTSRCCOPY, SRCAND, SRCPAINT, SRCINVERT}) {
    for (const int targetBits : {1, 32}) {
      for (const int sourceBits : {1, 32}) {
        for (const int more : {0, 1, 40}) {
          CompareWidths(targetBits, sourceBits, 0, 0, more, code);
          CompareWidths(targetBits, sourceBits, 8, 0, more, code);
          CompareWidths(targetBits, sourceBits, 3, 5, more, code);
          CompareWidths(targetBits, sourceBits, 8, 7, more, code);
          CompareWidths(targetBits, sourceBits, 7, 16, more, code);
        }
      }
    }
  }
}

TEST(BitBlt, MovesWholeRowsOfABitmapOverItself) {
  for (const int shift : {-2, 2}) {
    Surface surface(7, 6);
    Scatter(surface, 5);
    const std::vector<COLORREF> before = Colors(surface);
    BitBlt(surface.Dc(), 0, shift, 7, 6, surface.Dc(), 0, 0, SRCCOPY);
    for (int y = 0; y < 6; ++y) {
      const int from = y - shift < 0 || y - shift >= 6 ? y : y - shift;
      for (int x = 0; x < 7; ++x) EXPECT_EQ(surface.At(x, y), before[static_cast<std::size_t>(from * 7 + x)]);
    }
  }
}

TEST(BitBlt, FromTheDefaultBitmapIsOneBit) {
  const HDC fresh = CreateCompatibleDC(0);
  const Surface target = White(2, 1);
  SetTextColor(target.Dc(), kRed);
  EXPECT_EQ(BitBlt(target.Dc(), 0, 0, 2, 1, fresh, 0, 0, SRCCOPY), 1);
  EXPECT_EQ(Rows(target), (Text{"r."}));
  DeleteDC(fresh);
}

/// Three pixels: red, green, blue.
Surface Flag() {
  Surface surface(3, 1);
  surface.Set(0, 0, kRed);
  surface.Set(1, 0, kGreen);
  surface.Set(2, 0, kBlue);
  return surface;
}

TEST(StretchBlt, Enlarges) {
  const Surface source = Flag(), target = White(8, 3);
  EXPECT_EQ(StretchBlt(target.Dc(), 1, 1, 6, 2, source.Dc(), 0, 0, 3, 1, SRCCOPY), 1);
  EXPECT_EQ(Rows(target), (Text{"........", ".rrggbb.", ".rrggbb."}));
}

TEST(StretchBlt, OfEqualSizeIsABlit) {
  const Surface source = Flag(), target = White(5, 1);
  StretchBlt(target.Dc(), 1, 0, 3, 1, source.Dc(), 0, 0, 3, 1, SRCCOPY);
  EXPECT_EQ(Rows(target), (Text{".rgb."}));
}

TEST(StretchBlt, MirrorsWhenTheSignsDiffer) {
  const Surface source = Flag(), target = White(5, 1);
  StretchBlt(target.Dc(), 4, 0, -3, 1, source.Dc(), 0, 0, 3, 1, SRCCOPY);
  EXPECT_EQ(Rows(target), (Text{".bgr."}));
  StretchBlt(target.Dc(), 1, 0, 3, 1, source.Dc(), 3, 0, -3, 1, SRCCOPY);
  EXPECT_EQ(Rows(target), (Text{".bgr."}));
  StretchBlt(target.Dc(), 4, 0, -3, 1, source.Dc(), 3, 0, -3, 1, SRCCOPY);
  EXPECT_EQ(Rows(target), (Text{".rgb."}));
  Surface column = White(1, 2);
  column.Set(0, 0, kRed);
  const Surface flipped = White(1, 4);
  StretchBlt(flipped.Dc(), 0, 4, 1, -4, column.Dc(), 0, 0, 1, 2, SRCCOPY);
  EXPECT_EQ(Rows(flipped), (Text{".", ".", "r", "r"}));
}

TEST(StretchBlt, ReducesAColumnToTheOnePixelThatItIsGiven) {
  Surface tall = White(1, 3);
  tall.Set(0, 1, kRed);
  const Surface target = White(3, 2);
  EXPECT_EQ(StretchBlt(target.Dc(), 1, 1, 1, 1, tall.Dc(), 0, 0, 1, 3, SRCCOPY), 1);
  EXPECT_EQ(Rows(target), (Text{"...", ".r."}));
}

TEST(StretchBlt, ReducesByTheModeOfTheTarget) {
  const Surface source = Flag(), target = White(3, 1);
  SetStretchBltMode(source.Dc(), WHITEONBLACK);
  StretchBlt(target.Dc(), 0, 0, 1, 1, source.Dc(), 0, 0, 3, 1, SRCCOPY);
  SetStretchBltMode(target.Dc(), WHITEONBLACK);
  StretchBlt(target.Dc(), 1, 0, 1, 1, source.Dc(), 0, 0, 3, 1, SRCCOPY);
  SetStretchBltMode(target.Dc(), COLORONCOLOR);
  StretchBlt(target.Dc(), 2, 0, 1, 1, source.Dc(), 0, 0, 3, 1, SRCCOPY);
  EXPECT_EQ(Rows(target), (Text{"#.b"}));
}

TEST(StretchBlt, TakesRasterCodesAndConvertsDepths) {
  Surface source(2, 1, 1);
  source.Set(0, 0, kWhite);
  const Surface target = White(4, 1);
  SetTextColor(target.Dc(), kRed);
  SetBkColor(target.Dc(), kBlue);
  StretchBlt(target.Dc(), 0, 0, 4, 1, source.Dc(), 0, 0, 2, 1, SRCCOPY);
  EXPECT_EQ(Rows(target), (Text{"bbrr"}));
  StretchBlt(target.Dc(), 0, 0, 4, 1, source.Dc(), 0, 0, 2, 1, SRCINVERT);
  EXPECT_EQ(Rows(target), (Text{"####"}));
  EXPECT_EQ(StretchBlt(target.Dc(), 1, 0, 2, 1, 0, 0, 0, 0, 0, WHITENESS), 1);
  EXPECT_EQ(Rows(target), (Text{"#..#"}));
  const Surface mono = White(2, 1, 1);
  SetBkColor(target.Dc(), kBlack);
  StretchBlt(mono.Dc(), 0, 0, 2, 1, target.Dc(), 0, 0, 2, 1, SRCCOPY);
  EXPECT_EQ(Rows(mono), (Text{".#"}));
}

TEST(StretchBlt, DoesNotDrawWhatLiesOutsideTheSource) {
  const Surface source = Flag(), target = White(12, 1);
  StretchBlt(target.Dc(), 0, 0, 10, 1, source.Dc(), -1, 0, 5, 1, SRCCOPY);
  EXPECT_EQ(Rows(target), (Text{"..rrggbb...."}));
  StretchBlt(target.Dc(), 0, 0, 10, 1, source.Dc(), 3, 0, 5, 1, SRCCOPY);
  StretchBlt(target.Dc(), 0, 0, 10, 1, source.Dc(), 0, 1, 5, 1, SRCCOPY);
  EXPECT_EQ(Rows(target), (Text{"..rrggbb...."}));
}

TEST(StretchBlt, OfTheWholePlaneIsClipped) {
  const Surface source = Flag(), target = White(3, 1);
  EXPECT_EQ(StretchBlt(target.Dc(), kMin, kMin, kMax, kMax, source.Dc(), 0, 0, 3, 1, SRCCOPY), 1);
  EXPECT_EQ(Rows(target), (Text{"..."}));
  EXPECT_EQ(StretchBlt(target.Dc(), -1000000000, 0, 2000000002, 1, source.Dc(), 0, 0, 3, 1, SRCCOPY), 1);
  EXPECT_EQ(Rows(target), (Text{"ggg"}));
  EXPECT_EQ(StretchBlt(target.Dc(), 0, 0, 3, 1, source.Dc(), -1000000000, 0, kMax, 1, SRCCOPY), 1);
  EXPECT_EQ(Rows(target), (Text{"g#g"}));
}

TEST(StretchBlt, WithoutMeasuresDrawsNothing) {
  const Surface source = Flag(), target = White(3, 1);
  EXPECT_EQ(StretchBlt(target.Dc(), 0, 0, 3, 1, source.Dc(), 0, 0, 0, 1, SRCCOPY), 1);
  EXPECT_EQ(StretchBlt(target.Dc(), 0, 0, 3, 1, source.Dc(), 0, 0, 3, 0, SRCCOPY), 1);
  EXPECT_EQ(StretchBlt(target.Dc(), 0, 0, 0, 1, source.Dc(), 0, 0, 3, 1, SRCCOPY), 1);
  EXPECT_EQ(StretchBlt(target.Dc(), 0, 0, 3, 0, source.Dc(), 0, 0, 3, 1, SRCCOPY), 1);
  EXPECT_EQ(Rows(target), (Text{"..."}));
}

TEST(StretchBlt, FailsWithoutContexts) {
  const Surface surface = White(2, 1);
  EXPECT_EQ(StretchBlt(0, 0, 0, 1, 1, surface.Dc(), 0, 0, 1, 1, SRCCOPY), 0);
  EXPECT_EQ(StretchBlt(surface.Dc(), 0, 0, 1, 1, 0, 0, 0, 1, 1, SRCCOPY), 0);
}

TEST(StretchBlt, OntoItselfReadsBeforeItWrites) {
  Surface surface = White(6, 1);
  surface.Set(0, 0, kRed);
  surface.Set(1, 0, kGreen);
  surface.Set(2, 0, kBlue);
  StretchBlt(surface.Dc(), 0, 0, 6, 1, surface.Dc(), 0, 0, 3, 1, SRCCOPY);
  EXPECT_EQ(Rows(surface), (Text{"rrggbb"}));
}

constexpr BLENDFUNCTION Constant(std::uint8_t alpha) { return {AC_SRC_OVER, 0, alpha, 0}; }

TEST(AlphaBlend, MixesEachChannel) {
  Surface source(2, 1), target(4, 1);
  source.Clear(0xFF8000);
  target.Clear(0x0040FF);
  EXPECT_EQ(AlphaBlend(target.Dc(), 1, 0, 2, 1, source.Dc(), 0, 0, 2, 1, Constant(100)), 1);
  // (255 * 100) / 255, (128 * 100 + 64 * 155) / 255 = 89.1, 255 * 155 / 255
  EXPECT_EQ(Colors(target), (std::vector<COLORREF>{0x0040FF, 0x64599B, 0x64599B, 0x0040FF}));
}

TEST(AlphaBlend, AtTheEndsIsSourceOrTarget) {
  Surface source(1, 1), target(1, 1);
  source.Clear(0x123456);
  target.Clear(0x654321);
  AlphaBlend(target.Dc(), 0, 0, 1, 1, source.Dc(), 0, 0, 1, 1, Constant(0));
  EXPECT_EQ(target.At(0, 0), 0x654321u);
  AlphaBlend(target.Dc(), 0, 0, 1, 1, source.Dc(), 0, 0, 1, 1, Constant(255));
  EXPECT_EQ(target.At(0, 0), 0x123456u);
}

TEST(AlphaBlend, IsClippedToTheTarget) {
  const Surface source = Flag(), target = White(3, 1);
  EXPECT_EQ(AlphaBlend(target.Dc(), -1, 0, 3, 1, source.Dc(), 0, 0, 3, 1, Constant(255)), 1);
  EXPECT_EQ(Rows(target), (Text{"gb."}));
  EXPECT_EQ(AlphaBlend(target.Dc(), 5, 0, 3, 1, source.Dc(), 0, 0, 3, 1, Constant(255)), 1);
  EXPECT_EQ(AlphaBlend(target.Dc(), 0, kMin, 3, 1, source.Dc(), 0, 0, 3, 1, Constant(255)), 1);
  EXPECT_EQ(Rows(target), (Text{"gb."}));
}

TEST(AlphaBlend, StretchesWithoutMixingSourcePixels) {
  const Surface source = Flag(), target = White(6, 2);
  AlphaBlend(target.Dc(), 0, 0, 6, 1, source.Dc(), 0, 0, 3, 1, Constant(255));
  AlphaBlend(target.Dc(), 0, 1, 1, 1, source.Dc(), 0, 0, 3, 1, Constant(255));
  EXPECT_EQ(Rows(target), (Text{"rrggbb", "b....."}));
}

TEST(AlphaBlend, ConvertsOneBit) {
  Surface mono(2, 1, 1);
  mono.Set(1, 0, kWhite);
  const Surface target = White(2, 1);
  SetTextColor(target.Dc(), kRed);
  SetBkColor(target.Dc(), kBlue);
  AlphaBlend(target.Dc(), 0, 0, 2, 1, mono.Dc(), 0, 0, 2, 1, Constant(255));
  EXPECT_EQ(Rows(target), (Text{"rb"}));
  const Surface black(2, 1), white = White(2, 1, 1);
  AlphaBlend(white.Dc(), 0, 0, 1, 1, black.Dc(), 0, 0, 1, 1, Constant(127));
  AlphaBlend(white.Dc(), 1, 0, 1, 1, black.Dc(), 0, 0, 1, 1, Constant(128));
  EXPECT_EQ(Rows(white), (Text{".#"}));
}

TEST(AlphaBlend, RefusesWhatItDoesNotKnow) {
  const Surface source = Flag(), target = White(3, 1);
  const auto blend = [&](int w, int h, int sx, int sy, int sw, int sh, BLENDFUNCTION how = Constant(255)) {
    return AlphaBlend(target.Dc(), 0, 0, w, h, source.Dc(), sx, sy, sw, sh, how);
  };
  EXPECT_EQ(blend(-1, 1, 0, 0, 3, 1), 0);
  EXPECT_EQ(blend(3, -1, 0, 0, 3, 1), 0);
  EXPECT_EQ(blend(3, 1, 0, 0, -1, 1), 0);
  EXPECT_EQ(blend(3, 1, 0, 0, 3, -1), 0);
  EXPECT_EQ(blend(3, 1, -1, 0, 3, 1), 0);
  EXPECT_EQ(blend(3, 1, 0, -1, 3, 1), 0);
  EXPECT_EQ(blend(3, 1, 1, 0, 3, 1), 0);
  EXPECT_EQ(blend(3, 1, 0, 1, 3, 1), 0);
  EXPECT_EQ(blend(3, 1, kMax, 0, kMax, 1), 0);
  EXPECT_EQ(blend(3, 1, 0, 0, 3, 1, {1, 0, 255, 0}), 0);
  EXPECT_EQ(blend(3, 1, 0, 0, 3, 1, {0, 1, 255, 0}), 0);
  EXPECT_EQ(blend(3, 1, 0, 0, 3, 1, {0, 0, 255, 1}), 0);
  EXPECT_EQ(AlphaBlend(0, 0, 0, 3, 1, source.Dc(), 0, 0, 3, 1, Constant(255)), 0);
  EXPECT_EQ(AlphaBlend(target.Dc(), 0, 0, 3, 1, 0, 0, 0, 3, 1, Constant(255)), 0);
  EXPECT_EQ(blend(3, 1, 0, 0, 0, 1), 1);
  EXPECT_EQ(blend(3, 1, 0, 0, 3, 0), 1);
  EXPECT_EQ(blend(0, 1, 0, 0, 3, 1), 1);
  EXPECT_EQ(Rows(target), (Text{"..."}));
}

TEST(AlphaBlend, OntoItselfReadsBeforeItWrites) {
  Surface surface = White(4, 1);
  surface.Set(0, 0, kBlack);
  AlphaBlend(surface.Dc(), 1, 0, 3, 1, surface.Dc(), 0, 0, 3, 1, Constant(255));
  EXPECT_EQ(Rows(surface), (Text{"##.."}));
}

}  // namespace
}  // namespace quenzel7::gdi
