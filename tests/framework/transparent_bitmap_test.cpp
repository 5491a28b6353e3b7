#include "framework/transparent_bitmap.h"

#include <gtest/gtest.h>

#include "platform/gdi/owned.h"
#include "platform/gdi/recorder.h"
#include "tests/framework/handles_left.h"
#include "tests/framework/mono_picture.h"
#include "tests/framework/wrong_handles.h"
#include "tests/platform/automation/allocation_watch.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7 {
namespace {

using gdi::COLORREF;
using gdi::HBITMAP;
using gdi::kBlack;
using gdi::kBlue;
using gdi::kGreen;
using gdi::kRed;
using gdi::kWhite;
using gdi::OwnedBitmap;
using gdi::Surface;
using test::BitsOf;
using test::Bytes;
using Calls = std::vector<std::string>;

/// Pixels of the few given colours in no particular order.
Surface Scattered(int width, int height, int bitsPerPixel, const std::vector<COLORREF>& colors) {
  Surface surface(width, height, bitsPerPixel);
  std::uint32_t seed = 7;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      seed = seed * 1664525u + 1013904223u;
      surface.Set(x, y, colors[(seed >> 24) % colors.size()]);
    }
  }
  return surface;
}

/// A bitmap of its own, selected nowhere, with the pixels of a surface.
HBITMAP Unselected(const Surface& surface) {
  const Bytes bits = BitsOf(surface.BitmapHandle());
  return gdi::CreateBitmap(surface.Width(), surface.Height(), 1,
                           static_cast<std::uint32_t>(surface.BitsPerPixel()), bits.data());
}

/// What painting has to make of a target, pixel by pixel: a pixel of the key colour leaves the target's. On
/// one bit only white is white; of a one-bit picture white is the key.
void PaintByPixel(Surface& target, const Surface& picture, Long x, Long y, COLORREF key) {
  for (int row = 0; row < picture.Height(); ++row) {
    for (int column = 0; column < picture.Width(); ++column) {
      const COLORREF color = picture.At(column, row);
      if (color == (picture.BitsPerPixel() == 1 ? kWhite : key)) continue;
      target.Set(x + column, y + row, target.BitsPerPixel() == 1 && color != kWhite ? kBlack : color);
    }
  }
}

struct Size {
  int w, h;
};
struct Place {
  Long x, y;
};

/// Paints pictures of several sizes at places inside of the target, across each of its edges and outside, and
/// compares all pixels with the model. What is handed over is the key with a highest byte.
void ComparePainting(int targetBits, int pictureBits, const std::vector<COLORREF>& pictureColors,
                     COLORREF key, COLORREF highestByte = 0) {
  const std::vector<COLORREF> targetColors = targetBits == 1
                                                 ? std::vector<COLORREF>{kBlack, kWhite}
                                                 : std::vector<COLORREF>{kGreen, 0x123456, kWhite};
  for (const Size& size : {Size{1, 1}, Size{7, 5}, Size{8, 8}, Size{17, 3}, Size{33, 2}, Size{64, 40}}) {
    for (const Place& place :
         {Place{0, 0}, Place{3, 2}, Place{-3, 4}, Place{5, -2}, Place{18, 9}, Place{-40, 0}, Place{24, 0},
          Place{0, 13}, Place{2147483647, -2147483647 - 1}}) {
      const Surface picture = Scattered(size.w, size.h, pictureBits, pictureColors);
      Surface target = Scattered(23, 13, targetBits, targetColors);
      Surface expected = Scattered(23, 13, targetBits, targetColors);
      if (place.x < 1000) PaintByPixel(expected, picture, place.x, place.y, key);
      const OwnedBitmap bitmap(Unselected(picture));
      const Bytes bitsBefore = BitsOf(bitmap.Get());
      const std::size_t objectsBefore = gdi::LiveObjects();
      DrawBitmapTransparent(target.Dc(), bitmap.Get(), place.x, place.y, key | highestByte);
      EXPECT_EQ(gdi::Colors(target), gdi::Colors(expected))
          << size.w << " x " << size.h << " at " << place.x << ", " << place.y;
      EXPECT_EQ(BitsOf(bitmap.Get()), bitsBefore);
      EXPECT_EQ(gdi::LiveObjects(), objectsBefore);
    }
  }
}

/// The calls of painting a picture of 7 x 5 at (3, -2) of a target, from making the bitmaps to deleting them.
/// Only how the copy that saves the picture is made differs: `makingSave`, and the name of that copy.
Calls PaintingWith(const Calls& makingSave, const std::string& save) {
  Calls calls = {
      "GetObjectA(bitmap:1, 24)",
      "CreateCompatibleDC(dc:1) -> dc:2",
      "CreateCompatibleDC(dc:1) -> dc:3",
      "CreateCompatibleDC(dc:1) -> dc:4",
      "CreateCompatibleDC(dc:1) -> dc:5",
      "CreateCompatibleDC(dc:1) -> dc:6",
      "CreateBitmap(7, 5, 1, 1) -> bitmap:2",
      "CreateBitmap(7, 5, 1, 1) -> bitmap:3",
      "CreateCompatibleBitmap(dc:1, 7, 5) -> bitmap:4",
  };
  const Calls painting = {
      "SelectObject(dc:2, bitmap:1)",
      "SelectObject(dc:4, bitmap:2)",
      "SelectObject(dc:5, bitmap:3)",
      "SelectObject(dc:6, bitmap:4)",
      "SelectObject(dc:3, " + save + ")",
      "BitBlt(dc:3, 0, 0, 7, 5, dc:2, 0, 0, 0xcc0020)",
      "SetBkColor(dc:2, 0x123456)",
      "BitBlt(dc:4, 0, 0, 7, 5, dc:2, 0, 0, 0xcc0020)",
      "SetBkColor(dc:2, 0xffffff)",
      "BitBlt(dc:5, 0, 0, 7, 5, dc:4, 0, 0, 0x330008)",
      "BitBlt(dc:6, 0, 0, 7, 5, dc:1, 3, -2, 0xcc0020)",
      "BitBlt(dc:6, 0, 0, 7, 5, dc:4, 0, 0, 0x8800c6)",
      "BitBlt(dc:2, 0, 0, 7, 5, dc:5, 0, 0, 0x8800c6)",
      "BitBlt(dc:6, 0, 0, 7, 5, dc:2, 0, 0, 0xee0086)",
      "BitBlt(dc:1, 3, -2, 7, 5, dc:6, 0, 0, 0xcc0020)",
      "BitBlt(dc:2, 0, 0, 7, 5, dc:3, 0, 0, 0xcc0020)",
      "SelectObject(dc:3, default-bitmap)",
      "SelectObject(dc:6, default-bitmap)",
      "SelectObject(dc:5, default-bitmap)",
      "SelectObject(dc:4, default-bitmap)",
      "SelectObject(dc:2, default-bitmap)",
      "DeleteObject(" + save + ")",
      "DeleteObject(bitmap:4)",
      "DeleteObject(bitmap:3)",
      "DeleteObject(bitmap:2)",
      "DeleteDC(dc:6)",
      "DeleteDC(dc:5)",
      "DeleteDC(dc:4)",
      "DeleteDC(dc:3)",
      "DeleteDC(dc:2)",
  };
  calls.insert(calls.end(), makingSave.begin(), makingSave.end());
  calls.insert(calls.end(), painting.begin(), painting.end());
  return calls;
}

Calls CallsOfPainting(int targetBits, std::uint32_t pictureBits) {
  const Surface target(20, 12, targetBits);
  const OwnedBitmap bitmap(gdi::CreateBitmap(7, 5, 1, pictureBits, nullptr));
  gdi::Recorder recorder;
  // The target is met first, so that it is number 1 in all lists.
  gdi::GetBkMode(target.Dc());
  recorder.Take();
  DrawBitmapTransparent(target.Dc(), bitmap.Get(), 3, -2, 0x123456);
  return recorder.Take();
}

TEST(DrawBitmapTransparent, OfColoursOnColoursSavesInABitmapLikeTheTarget) {
  EXPECT_EQ(CallsOfPainting(32, 32),
            PaintingWith({"CreateCompatibleBitmap(dc:1, 7, 5) -> bitmap:5", "GetObjectA(bitmap:5, 24)"},
                         "bitmap:5"));
}

TEST(DrawBitmapTransparent, OfOneBitSavesInABitmapLikeAnyTarget) {
  for (const int targetBits : {1, 32}) {
    EXPECT_EQ(CallsOfPainting(targetBits, 1),
              PaintingWith({"CreateCompatibleBitmap(dc:1, 7, 5) -> bitmap:5"}, "bitmap:5"));
  }
}

TEST(DrawBitmapTransparent, OfColoursOnOneBitSavesInABitmapLikeThePicture) {
  EXPECT_EQ(CallsOfPainting(1, 32),
            PaintingWith({"CreateCompatibleBitmap(dc:1, 7, 5) -> bitmap:5", "GetObjectA(bitmap:5, 24)",
                          "CreateBitmap(7, 5, 1, 32) -> bitmap:6", "DeleteObject(bitmap:5)"},
                         "bitmap:6"));
}

TEST(DrawBitmapTransparent, LeavesTheBackgroundWhereThePictureHasTheColour) {
  Surface target(4, 2);
  target.Clear(kGreen);
  Surface picture(3, 1);
  picture.Set(0, 0, kRed);
  picture.Set(1, 0, kBlue);
  picture.Set(2, 0, kWhite);
  const OwnedBitmap bitmap(Unselected(picture));
  DrawBitmapTransparent(target.Dc(), bitmap.Get(), 1, 1, kBlue);
  EXPECT_EQ(gdi::Rows(target), (std::vector<std::string>{"gggg", "grg."}));
}

TEST(DrawBitmapTransparent, DoesNotMindTheHighestByteOfTheColour) {
  for (const COLORREF highest : {0x01000000u, 0x02000000u, 0x80000000u, 0xFF000000u}) {
    ComparePainting(32, 32, {kRed, kBlue, kWhite, kBlack}, kBlue, highest);
    ComparePainting(32, 32, {kRed, kBlue, kWhite, kBlack}, kWhite, highest);
    ComparePainting(1, 32, {kRed, kBlue, kWhite, kBlack}, kBlack, highest);
  }
}

TEST(DrawBitmapTransparent, PaintsColoursOnColours) {
  ComparePainting(32, 32, {kRed, kBlue, kWhite, kBlack}, kBlue);
}

TEST(DrawBitmapTransparent, TakesWhiteAndBlackForTheColourToo) {
  ComparePainting(32, 32, {kRed, 0x010203, kWhite, kBlack}, kWhite);
  ComparePainting(32, 32, {kRed, 0x010203, kWhite, kBlack}, kBlack);
}

TEST(DrawBitmapTransparent, TellsColoursThatAreNextToEachOtherApart) {
  ComparePainting(32, 32, {0x808080, 0x808081, 0x80807F, 0x818080, 0x808180}, 0x808080);
}

TEST(DrawBitmapTransparent, PaintsAllOfAPictureWithoutTheColour) {
  ComparePainting(32, 32, {kRed, kBlack}, 0x00FEFE);
}

TEST(DrawBitmapTransparent, PaintsColoursOnOneBit) {
  ComparePainting(1, 32, {kRed, kBlue, kWhite, kBlack}, kBlue);
  ComparePainting(1, 32, {kRed, kWhite, kBlack}, kWhite);
  ComparePainting(1, 32, {kRed, kWhite, kBlack}, kBlack);
}

TEST(DrawBitmapTransparent, PaintsTheBlackOfAOneBitPictureWhateverTheColour) {
  for (const COLORREF key : {kWhite, kBlack, kRed}) {
    ComparePainting(32, 1, {kWhite, kBlack}, key);
    ComparePainting(1, 1, {kWhite, kBlack}, key);
  }
}

TEST(DrawBitmapTransparent, DoesNotMindTheColoursOfTheTargetAndKeepsThem) {
  Surface target(2, 1);
  target.Clear(kGreen);
  gdi::SetBkColor(target.Dc(), kRed);
  gdi::SetTextColor(target.Dc(), kBlue);
  const Bytes bits = {0b01000000, 0};
  const OwnedBitmap bitmap(gdi::CreateBitmap(2, 1, 1, 1, bits.data()));
  DrawBitmapTransparent(target.Dc(), bitmap.Get(), 0, 0, kWhite);
  EXPECT_EQ(gdi::Rows(target), std::vector<std::string>{"#g"});
  EXPECT_EQ(gdi::GetBkColor(target.Dc()), kRed);
  EXPECT_EQ(gdi::GetTextColor(target.Dc()), kBlue);
}

TEST(DrawBitmapTransparent, LeavesTheBitmapFree) {
  const Surface target(2, 1);
  const HBITMAP bitmap = gdi::CreateBitmap(2, 1, 1, 32, nullptr);
  DrawBitmapTransparent(target.Dc(), bitmap, 0, 0, kWhite);
  EXPECT_EQ(gdi::GetCurrentObject(target.Dc(), gdi::OBJ_BITMAP), target.BitmapHandle());
  EXPECT_EQ(gdi::DeleteObject(bitmap), 1) << "no context holds it";
}

TEST(DrawBitmapTransparent, OfWhatIsNoBitmapPaintsNothing) {
  Surface target(3, 2);
  target.Clear(kGreen);
  const test::WrongHandles wrong;
  const std::size_t before = gdi::LiveObjects();
  for (const auto& [name, handle] : wrong.All()) {
    DrawBitmapTransparent(target.Dc(), handle, 0, 0, kRed);
    EXPECT_EQ(gdi::Rows(target), (std::vector<std::string>{"ggg", "ggg"})) << name;
    EXPECT_EQ(gdi::LiveObjects(), before) << name;
  }
  DrawBitmapTransparent(target.Dc(), target.Dc(), 0, 0, kRed);
  EXPECT_EQ(gdi::Rows(target), (std::vector<std::string>{"ggg", "ggg"})) << "the target itself";
}

TEST(DrawBitmapTransparent, OnWhatIsNoContextPaintsNothingAndLeavesThePicture) {
  const Surface picture = Scattered(7, 5, 32, {kRed, kBlue, kWhite});
  const OwnedBitmap bitmap(Unselected(picture));
  const Bytes bits = BitsOf(bitmap.Get());
  const gdi::HDC deleted = gdi::CreateCompatibleDC(0);
  gdi::DeleteDC(deleted);
  const std::size_t before = gdi::LiveObjects();
  for (const gdi::HDC handle : {0, 12345, deleted, bitmap.Get()}) {
    DrawBitmapTransparent(handle, bitmap.Get(), 0, 0, kRed);
    EXPECT_EQ(gdi::LiveObjects(), before) << handle;
    EXPECT_EQ(BitsOf(bitmap.Get()), bits) << handle;
  }
}

TEST(DrawBitmapTransparent, WithoutABitmapOfItsOwnPaintsNothingAndLeavesThePicture) {
  for (const int targetBits : {1, 32}) {
    Surface target(7, 5, targetBits), painted(7, 5, targetBits);
    target.Clear(kWhite);
    painted.Clear(kWhite);
    const Surface picture = Scattered(7, 5, 32, {kRed, kBlack});
    PaintByPixel(painted, picture, 0, 0, kRed);
    const OwnedBitmap bitmap(Unselected(picture));
    const Bytes bits = BitsOf(bitmap.Get());
    const std::vector<COLORREF> before = gdi::Colors(target);
    // Five contexts and four bitmaps; on one bit the fourth is made twice before the first is deleted.
    const std::size_t needed = targetBits == 1 ? 10 : 9;
    for (std::size_t left = 0; left <= needed; ++left) {
      const test::HandlesLeft handles(left);
      const std::size_t objects = gdi::LiveObjects();
      DrawBitmapTransparent(target.Dc(), bitmap.Get(), 0, 0, kRed);
      EXPECT_EQ(gdi::Colors(target), left < needed ? before : gdi::Colors(painted)) << left;
      EXPECT_EQ(BitsOf(bitmap.Get()), bits) << left;
      EXPECT_EQ(gdi::LiveObjects(), objects) << left;
    }
  }
}

TEST(DrawBitmapTransparent, WithoutMemoryForAColouredBitmapPaintsNothingAndLeavesThePicture) {
  struct Row {
    int targetBits, pictureBits;
  };
  // On one bit it is the copy that saves the picture, else also the one that is worked on.
  for (const Row& row : {Row{1, 32}, Row{32, 1}, Row{32, 32}}) {
    Surface target(20, 12, row.targetBits);
    target.Clear(kWhite);
    const std::vector<COLORREF> before = gdi::Colors(target);
    const Surface picture = Scattered(800, 400, row.pictureBits, {kWhite, kBlack});
    const OwnedBitmap bitmap(Unselected(picture));
    const Bytes bits = BitsOf(bitmap.Get());
    const std::size_t objects = gdi::LiveObjects();
    {
      const automation::AllocationWatch watch(800 * 400 * 4 - 1);
      DrawBitmapTransparent(target.Dc(), bitmap.Get(), 0, 0, kRed);
    }
    EXPECT_EQ(gdi::Colors(target), before) << row.targetBits << " " << row.pictureBits;
    EXPECT_EQ(BitsOf(bitmap.Get()), bits) << row.targetBits << " " << row.pictureBits;
    EXPECT_EQ(gdi::LiveObjects(), objects);
  }
}

TEST(DrawBitmapTransparent, OfABitmapThatAContextHoldsIsABlackRectangle) {
  Surface target(4, 3);
  target.Clear(kGreen);
  const Surface held = gdi::White(2, 2);
  const std::size_t before = gdi::LiveObjects();
  DrawBitmapTransparent(target.Dc(), held.BitmapHandle(), 1, 1, kWhite);
  EXPECT_EQ(gdi::Rows(target), (std::vector<std::string>{"gggg", "g##g", "g##g"}));
  EXPECT_EQ(gdi::Rows(held), (std::vector<std::string>{"..", ".."}));
  EXPECT_EQ(gdi::LiveObjects(), before);
}

}  // namespace
}  // namespace quenzel7
