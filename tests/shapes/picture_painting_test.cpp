#include "shapes/picture_painting.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/gdi/owned.h"
#include "tests/platform/gdi/picture.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using Calls = std::vector<std::string>;

/// A bitmap of these colours, 0x00RRGGBB, in one row.
gdi::HBITMAP RowOf(const std::vector<std::uint32_t>& pixels) {
  return gdi::CreateBitmap(static_cast<Long>(pixels.size()), 1, 1, 32, pixels.data());
}

TEST(PicturePainting, ABitmapThatIsGivenReplacesTheOneBefore) {
  const std::size_t before = gdi::LiveObjects();
  const gdi::HBITMAP bitmap = RowOf({1, 2});
  gdi::OwnedBitmap owned(RowOf({3}));
  TakeBitmap(owned, bitmap);
  EXPECT_EQ(gdi::LiveObjects(), before + 1);
  // The same one stays alive.
  TakeBitmap(owned, bitmap);
  EXPECT_EQ(owned.Get(), bitmap);
  EXPECT_EQ(gdi::LiveObjects(), before + 1);
  TakeBitmap(owned, 0);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST(PicturePainting, AnAreaIsFilledInAColorOfThePanel) {
  test::TracedColors colors;
  EXPECT_EQ(test::CallsOfPainting([&](Long dc) {
              FillInPanelColor(dc, {3, -2, 8, 9}, 200, colors);
            }),
            (Calls{"CreateSolidBrush(0x0a00c8) -> brush:1", "FillRect(dc:1, {3, -2, 8, 9}, brush:1)",
                   "DeleteObject(brush:1)"}));
  EXPECT_EQ(colors.asked, std::vector<Long>{200});
}

TEST(PicturePainting, OpaqueTakesFiveCalls) {
  const gdi::OwnedBitmap bitmap(gdi::CreateBitmap(5, 7, 1, 32, nullptr));
  EXPECT_EQ(test::CallsOfPainting([&](Long dc) {
              PaintOpaquePicture(dc, 3, -2, bitmap.Get(), {5, 7, 32});
            }),
            (Calls{"CreateCompatibleDC(dc:1) -> dc:2", "SelectObject(dc:2, bitmap:1)",
                   "BitBlt(dc:1, 3, -2, 5, 7, dc:2, 0, 0, 0xcc0020)", "SelectObject(dc:2, default-bitmap)",
                   "DeleteDC(dc:2)"}));
}

/// Keys of which each part counts for itself.
TEST(PicturePainting, OfTwoBytesIsTransparentInTheColorOfItsFirstPixel) {
  test::TracedColors colors;
  for (const std::uint32_t key : {0x010203u, 0xFF0000u, 0x00FF00u, 0x0000FFu, 0x000000u, 0xFFFFFFu}) {
    gdi::Surface surface(4, 1);
    surface.Clear(0x778899);
    const gdi::OwnedBitmap bitmap(RowOf({key, 0x445566, key, key ^ 0x010000}));
    PaintTransparentPicture(surface.Dc(), 0, 0, bitmap.Get(), {}, 16, colors);
    EXPECT_EQ(surface.At(0, 0), 0x778899u);
    EXPECT_EQ(surface.At(1, 0), 0x665544u);
    EXPECT_EQ(surface.At(2, 0), 0x778899u);
    EXPECT_NE(surface.At(3, 0), 0x778899u);
  }
  EXPECT_TRUE(colors.asked.empty());
}

TEST(PicturePainting, OfOneByteIsTransparentInThePanelColorOfItsFirstPixel) {
  for (const Long bits : {0, 8, 15, 17}) {
    test::TracedColors colors;
    gdi::Surface surface(5, 3);
    surface.Clear(0x778899);
    // Number 200 is 0x0a00c8 here, blue first; the bitmap begins with another colour.
    const gdi::OwnedBitmap bitmap(RowOf({0x445566, 0xC8000A, 0x0A00C8}));
    PaintTransparentPicture(surface.Dc(), 1, 2, bitmap.Get(), {200, 3}, bits, colors);
    EXPECT_EQ(colors.asked, std::vector<Long>{200});
    EXPECT_EQ(gdi::Colors(surface),
              (std::vector<gdi::COLORREF>{0x778899, 0x778899, 0x778899, 0x778899, 0x778899, 0x778899,
                                          0x778899, 0x778899, 0x778899, 0x778899, 0x778899, 0x665544,
                                          0x778899, 0xC8000A, 0x778899}));
  }
}

TEST(PicturePainting, LooksAtFourBytesOfTheBitmapForItsKey) {
  test::TracedColors colors;
  const gdi::OwnedBitmap bitmap(RowOf({1, 2, 3}));
  const Calls calls = test::CallsOfPainting(
      [&](Long dc) { PaintTransparentPicture(dc, 0, 0, bitmap.Get(), {}, 16, colors); });
  EXPECT_EQ(calls.front(), "GetBitmapBits(bitmap:1, 4)");
  EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                          [](const std::string& call) { return call.starts_with("GetBitmapBits"); }),
            1);
}

}  // namespace
}  // namespace quenzel7
