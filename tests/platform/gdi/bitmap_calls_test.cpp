#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

BITMAP Describe(HBITMAP bitmap) {
  BITMAP out{};
  GetObjectA(bitmap, sizeof out, &out);
  return out;
}

TEST(CreateBitmap, TakesRowsPaddedTo16Bits) {
  const std::array<std::uint8_t, 4> bytes{0xA0, 0xFF, 0x40, 0x00};
  const HBITMAP bitmap = CreateBitmap(3, 2, 1, 1, bytes.data());
  std::array<std::uint8_t, 5> out{9, 9, 9, 9, 9};
  EXPECT_EQ(GetBitmapBits(bitmap, 5, out.data()), 4);
  EXPECT_EQ(out, (std::array<std::uint8_t, 5>{0xA0, 0x00, 0x40, 0x00, 9}));
  DeleteObject(bitmap);
}

TEST(CreateBitmap, WithoutBitsIsBlack) {
  const HBITMAP bitmap = CreateBitmap(1, 1, 1, 32, nullptr);
  std::array<std::uint8_t, 4> out{9, 9, 9, 9};
  EXPECT_EQ(GetBitmapBits(bitmap, 4, out.data()), 4);
  EXPECT_EQ(out, (std::array<std::uint8_t, 4>{0, 0, 0, 0}));
  DeleteObject(bitmap);
}

TEST(CreateBitmap, WithoutWidthOrHeightIsOnePixelOfOneBit) {
  for (const auto& [width, height] : {std::pair{0, 5}, {5, 0}, {0, 0}}) {
    const HBITMAP bitmap = CreateBitmap(width, height, 1, 32, nullptr);
    ASSERT_NE(bitmap, 0);
    EXPECT_EQ(Describe(bitmap).bmWidth, 1);
    EXPECT_EQ(Describe(bitmap).bmHeight, 1);
    EXPECT_EQ(Describe(bitmap).bmBitsPixel, 1);
    DeleteObject(bitmap);
  }
}

TEST(CreateBitmap, RefusesOtherFormatsAndMeasures) {
  constexpr int kMax = std::numeric_limits<int>::max();
  for (const std::uint32_t bits : {0u, 2u, 4u, 8u, 16u, 24u, 31u, 33u}) {
    EXPECT_EQ(CreateBitmap(2, 2, 1, bits, nullptr), 0) << bits;
  }
  EXPECT_EQ(CreateBitmap(2, 2, 0, 1, nullptr), 0);
  EXPECT_EQ(CreateBitmap(2, 2, 2, 1, nullptr), 0);
  EXPECT_EQ(CreateBitmap(-1, 2, 1, 1, nullptr), 0);
  EXPECT_EQ(CreateBitmap(2, -1, 1, 1, nullptr), 0);
  EXPECT_EQ(CreateBitmap(kMax, kMax, 1, 32, nullptr), 0);
}

TEST(CreateCompatibleBitmap, HasTheFormatOfTheSelectedBitmap) {
  const HDC fresh = CreateCompatibleDC(0);
  const Surface color(2, 2), mono(2, 2, 1);
  for (const auto& [dc, bits] : {std::pair{fresh, 1}, {color.Dc(), 32}, {mono.Dc(), 1}}) {
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, 10, 11);
    EXPECT_EQ(Describe(bitmap).bmBitsPixel, bits);
    EXPECT_EQ(Describe(bitmap).bmWidth, 10);
    EXPECT_EQ(Describe(bitmap).bmHeight, 11);
    DeleteObject(bitmap);
  }
  DeleteDC(fresh);
}

TEST(CreateCompatibleBitmap, FailsAsCreateBitmapDoes) {
  const Surface surface(2, 2);
  EXPECT_EQ(CreateCompatibleBitmap(0, 2, 2), 0);
  EXPECT_EQ(CreateCompatibleBitmap(77, 2, 2), 0);
  EXPECT_EQ(CreateCompatibleBitmap(surface.Dc(), -2, 2), 0);
  const HBITMAP bitmap = CreateCompatibleBitmap(surface.Dc(), 0, 2);
  EXPECT_EQ(Describe(bitmap).bmBitsPixel, 1);
  DeleteObject(bitmap);
}

TEST(GetBitmapBits, GivesAsMuchAsFitsOrTellsHowMuchThereIs) {
  const HBITMAP bitmap = CreateBitmap(17, 3, 1, 1, nullptr);
  std::array<std::uint8_t, 5> out{};
  EXPECT_EQ(GetBitmapBits(bitmap, 5, out.data()), 5);
  EXPECT_EQ(GetBitmapBits(bitmap, 0, nullptr), 12);
  EXPECT_EQ(GetBitmapBits(bitmap, 0, out.data()), 0);
  EXPECT_EQ(GetBitmapBits(bitmap, -1, out.data()), 0);
  EXPECT_EQ(GetBitmapBits(0, 5, out.data()), 0);
  EXPECT_EQ(GetBitmapBits(GetStockObject(BLACK_PEN), 5, out.data()), 0);
  DeleteObject(bitmap);
}

TEST(GetBitmapBits, OfTheDefaultBitmapIsOneRow) {
  const HDC dc = CreateCompatibleDC(0);
  std::array<std::uint8_t, 4> out{9, 9, 9, 9};
  EXPECT_EQ(GetBitmapBits(GetCurrentObject(dc, OBJ_BITMAP), 4, out.data()), 2);
  EXPECT_EQ(out, (std::array<std::uint8_t, 4>{0, 0, 9, 9}));
  DeleteDC(dc);
}

TEST(GetPixel, GivesColorsInsideAndInvalidOutside) {
  Surface surface = White(3, 2);
  surface.Set(2, 1, 0x123456);
  EXPECT_EQ(GetPixel(surface.Dc(), 2, 1), 0x123456u);
  EXPECT_EQ(GetPixel(surface.Dc(), 0, 0), kWhite);
  EXPECT_EQ(GetPixel(surface.Dc(), 3, 1), CLR_INVALID);
  EXPECT_EQ(GetPixel(surface.Dc(), 2, 2), CLR_INVALID);
  EXPECT_EQ(GetPixel(surface.Dc(), -1, 0), CLR_INVALID);
  EXPECT_EQ(GetPixel(surface.Dc(), 0, -1), CLR_INVALID);
  EXPECT_EQ(GetPixel(0, 0, 0), CLR_INVALID);
}

TEST(Channels, RedIsTheLowestByte) {
  EXPECT_EQ(RGB(0x12, 0x34, 0x56), 0x563412u);
  EXPECT_EQ(RGB(0x112, 0x234, 0x356), 0x563412u);
}

}  // namespace
}  // namespace quenzel7::gdi
