#include "framework/picture_utils.h"

#include <gtest/gtest.h>

#include "framework/mdl_grp_elmnt_utils.h"
#include "platform/gdi/owned.h"
#include "tests/framework/mono_picture.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7 {
namespace {

using gdi::OwnedBitmap;
using test::Bytes;

/// Paints a one-bit bitmap's black over green.
std::vector<std::string> PaintedOnGreen(gdi::HBITMAP bitmap, int w, int h) {
  gdi::Surface target(w, h);
  target.Clear(gdi::kGreen);
  DrawBitmapTransparent(target.Dc(), bitmap, 0, 0, gdi::kWhite);
  return gdi::Rows(target);
}

class PictureUtils : public ::testing::Test {
 protected:
  /// The byte form of the bitmap after `change` on its packed rows.
  template <class Change>
  static gdi::HBITMAP Changed(gdi::HBITMAP bitmap, Long newW, Long newH, Change change) {
    Bytes bytes;
    BitmapToBytes(bitmap, bytes);
    WordAlignedToPacked(bytes, 9, 2);
    change(bytes);
    Bytes stored = PackedToWordAligned(newW, newH, bytes);
    for (const Long number : {newW, 0, newH, 0, 0}) stored.push_back(static_cast<Byte>(number));
    return BytesToBitmap(stored);
  }

  static constexpr Byte kBits[] = {0b00000000, 0b00000000, 0b01111111, 0b10000000};
  const OwnedBitmap bitmap_{gdi::CreateBitmap(9, 2, 1, 1, kBits)};
};

TEST_F(PictureUtils, TurnAPictureThroughItsBytes) {
  ASSERT_EQ(PaintedOnGreen(bitmap_.Get(), 9, 2), (std::vector<std::string>{"#########", "#gggggggg"}));
  const OwnedBitmap turned(
      Changed(bitmap_.Get(), 2, 9, [](Bytes& bytes) { bytes = RotateMonoBits(bytes, 9, 2); }));
  EXPECT_EQ(PaintedOnGreen(turned.Get(), 2, 9),
            (std::vector<std::string>{"##", "g#", "g#", "g#", "g#", "g#", "g#", "g#", "g#"}));
}

TEST_F(PictureUtils, InvertAPictureThroughItsBytes) {
  const OwnedBitmap inverted(Changed(bitmap_.Get(), 9, 2, InvertBytes));
  EXPECT_EQ(PaintedOnGreen(inverted.Get(), 9, 2), (std::vector<std::string>{"ggggggggg", "g########"}));
}

}  // namespace
}  // namespace quenzel7
