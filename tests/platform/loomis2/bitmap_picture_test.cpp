#include "platform/loomis2/bitmap_picture.h"

#include <gtest/gtest.h>

#include "platform/gdi/gdi.h"
#include "platform/gdi/owned.h"

namespace quenzel7::loomis2 {
namespace {

using Pixels = std::vector<std::uint32_t>;

TEST(BitmapPictures, MakeBitmapsOf32Bits) {
  const gdi::OwnedBitmap bitmap(BitmapOf({3, 2, {0x010203, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF, 0}}));
  gdi::BITMAP form{};
  ASSERT_EQ(gdi::GetObjectA(bitmap.Get(), sizeof form, &form), 24);
  EXPECT_EQ(form.bmWidth, 3);
  EXPECT_EQ(form.bmHeight, 2);
  EXPECT_EQ(form.bmBitsPixel, 32);
  std::vector<Byte> bits(24);
  EXPECT_EQ(gdi::GetBitmapBits(bitmap.Get(), 24, bits.data()), 24);
  EXPECT_EQ(bits, (std::vector<Byte>{3,   2, 1, 0, 0,   0,   255, 0, 0, 255, 0, 0,  //
                                     255, 0, 0, 0, 255, 255, 255, 0, 0, 0,   0, 0}));
}

TEST(BitmapPictures, ReadBitmapsOf32Bits) {
  const Picture picture{2, 3, {0x010203, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF, 0}};
  const gdi::OwnedBitmap bitmap(BitmapOf(picture));
  const auto read = PictureOf(bitmap.Get());
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->width, 2);
  EXPECT_EQ(read->height, 3);
  EXPECT_EQ(read->pixels, picture.pixels);
}

TEST(BitmapPictures, ReadOneBitAsBlackAndWhite) {
  const Byte bits[] = {0x80, 0x40, 0x01, 0x80};
  const gdi::OwnedBitmap bitmap(gdi::CreateBitmap(10, 2, 1, 1, bits));
  const auto read = PictureOf(bitmap.Get());
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->width, 10);
  EXPECT_EQ(read->height, 2);
  constexpr std::uint32_t kW = 0xFFFFFF;
  EXPECT_EQ(read->pixels, (Pixels{kW, 0, 0, 0, 0, 0, 0, 0, 0, kW, 0, 0, 0, 0, 0, 0, 0, kW, kW, 0}));
}

TEST(BitmapPictures, ReadNothingElse) {
  EXPECT_FALSE(PictureOf(0).has_value());
  EXPECT_FALSE(PictureOf(12345).has_value());
  const gdi::OwnedObject brush(gdi::CreateSolidBrush(0));
  EXPECT_FALSE(PictureOf(brush.Get()).has_value());
  // Their descriptions are longer than a bitmap's, and this one's begins as if it were some pixels wide.
  EXPECT_FALSE(PictureOf(gdi::GetStockObject(gdi::SYSTEM_FONT)).has_value());
  gdi::LOGFONT description{};
  description.lfWidth = -1;
  const gdi::OwnedObject font(gdi::CreateFontIndirectA(&description));
  EXPECT_FALSE(PictureOf(font.Get()).has_value());
  const gdi::HBITMAP gone = BitmapOf({1, 1, {0}});
  gdi::DeleteObject(gone);
  EXPECT_FALSE(PictureOf(gone).has_value());
}

}  // namespace
}  // namespace quenzel7::loomis2
