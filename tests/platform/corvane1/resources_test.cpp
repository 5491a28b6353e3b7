#include "platform/corvane1/resources.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/raises.h"

namespace quenzel7::corvane1 {
namespace {

using Pixels = std::array<std::uint32_t, 64>;

Pixels PixelsOf(const gdi::OwnedBitmap& bitmap) {
  Pixels pixels{};
  EXPECT_EQ(gdi::GetBitmapBits(bitmap.Get(), sizeof pixels, pixels.data()), 256);
  return pixels;
}

TEST(Resources, NumberTheBadgeOfGlobalVariables) { EXPECT_EQ(kGlobalVariableBadge, 501); }

TEST(Resources, GiveTheBadgeAsALetterOnAGround) {
  constexpr std::uint32_t b = 0x1E6FD9, w = 0xFFFFFF;
  const gdi::OwnedBitmap badge = DrawnResources().LoadPicture(501);
  EXPECT_EQ(PixelsOf(badge), (Pixels{
                                 b, b, b, b, b, b, b, b,  //
                                 b, b, w, w, w, w, b, b,  //
                                 b, w, b, b, b, b, w, b,  //
                                 b, w, b, b, b, b, b, b,  //
                                 b, w, b, b, w, w, w, b,  //
                                 b, w, b, b, b, b, w, b,  //
                                 b, b, w, w, w, w, b, b,  //
                                 b, b, b, b, b, b, b, b,  //
                             }));
}

TEST(Resources, GiveTheBadgeInEightByEightPixelsOf32Bits) {
  const gdi::OwnedBitmap badge = DrawnResources().LoadPicture(501);
  gdi::BITMAP form{};
  ASSERT_EQ(gdi::GetObjectA(badge.Get(), sizeof form, &form), 24);
  EXPECT_EQ(form.bmWidth, 8);
  EXPECT_EQ(form.bmHeight, 8);
  EXPECT_EQ(form.bmPlanes, 1);
  EXPECT_EQ(form.bmBitsPixel, 32);
}

TEST(Resources, PaintTheBadgeInTheColoursOfContexts) {
  const gdi::OwnedBitmap badge = DrawnResources().LoadPicture(501);
  const gdi::OwnedContext memory(0);
  const gdi::Selection selection(memory.Get(), badge.Get());
  // Red is the lowest byte there.
  EXPECT_EQ(gdi::GetPixel(memory.Get(), 0, 0), 0xD96F1Eu);
  EXPECT_EQ(gdi::GetPixel(memory.Get(), 2, 1), 0xFFFFFFu);
}

TEST(Resources, GiveANewBitmapEachTimeWhichGoesWithItsOwner) {
  const std::size_t before = gdi::LiveObjects();
  {
    DrawnResources resources;
    const gdi::OwnedBitmap first = resources.LoadPicture(501), second = resources.LoadPicture(501);
    EXPECT_NE(first.Get(), 0u);
    EXPECT_NE(first.Get(), second.Get());
    EXPECT_EQ(gdi::LiveObjects(), before + 2);
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST(Resources, RefuseEveryOtherNumber) {
  const std::size_t before = gdi::LiveObjects();
  DrawnResources resources;
  EXPECT_RAISES(326, "there is no picture 502; the only one is 501", resources.LoadPicture(502));
  for (const Long number :
       {std::numeric_limits<Long>::min(), -501, -1, 0, 500, std::numeric_limits<Long>::max()}) {
    EXPECT_EQ(test::ErrorOf([&] { resources.LoadPicture(number); }), 326) << number;
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
}

}  // namespace
}  // namespace quenzel7::corvane1
