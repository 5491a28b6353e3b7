#include "framework/mono_bitmaps.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <thread>

#include "platform/gdi/owned.h"
#include "platform/gdi/recorder.h"
#include "tests/framework/handles_left.h"
#include "tests/framework/mono_picture.h"
#include "tests/framework/stretch_mode.h"
#include "tests/framework/wrong_handles.h"
#include "tests/platform/automation/allocation_watch.h"
#include "tests/platform/gdi/picture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using gdi::HBITMAP;
using gdi::OwnedBitmap;
using test::AnyMonoPicture;
using test::BitsOf;
using test::Bytes;
using test::FormatOf;
using test::HandlesLeft;
using test::Mono;
using test::MonoPicture;
using test::StretchModeIs;
using test::WrongHandles;
using Calls = std::vector<std::string>;
using Format = std::vector<Long>;

TEST(CopyMonoBitmap, AsksAndPaintsInThisOrder) {
  const OwnedBitmap bitmap(Mono(17, 1, {0xFF, 0x00, 0x80, 0x00}));
  gdi::Recorder recorder;
  const OwnedBitmap copy(CopyMonoBitmap(bitmap.Get()));
  EXPECT_EQ(recorder.Take(), (Calls{
                                 "GetObjectA(bitmap:1, 24)",
                                 "CreateCompatibleDC(null) -> dc:1",
                                 "SelectObject(dc:1, bitmap:1)",
                                 "CreateCompatibleDC(null) -> dc:2",
                                 "CreateCompatibleBitmap(dc:2, 17, 1) -> bitmap:2",
                                 "SelectObject(dc:2, bitmap:2)",
                                 "BitBlt(dc:2, 0, 0, 17, 1, dc:1, 0, 0, 0xcc0020)",
                                 "DeleteDC(dc:2)",
                                 "DeleteDC(dc:1)",
                             }));
  EXPECT_EQ(BitsOf(copy.Get()), (Bytes{0xFF, 0x00, 0x80, 0x00}));
}

TEST(CopyMonoBitmap, MakesOneNewBitmapThatBelongsToTheCaller) {
  const OwnedBitmap bitmap(Mono(9, 2, {0x5A, 0x80, 0xA5, 0x00}));
  const std::size_t before = gdi::LiveObjects();
  const HBITMAP copy = CopyMonoBitmap(bitmap.Get());
  EXPECT_EQ(gdi::LiveObjects(), before + 1);
  EXPECT_NE(copy, bitmap.Get());
  EXPECT_EQ(gdi::DeleteObject(copy), 1) << "no context holds it";
  EXPECT_EQ(BitsOf(bitmap.Get()), (Bytes{0x5A, 0x80, 0xA5, 0x00}));
}

TEST(CopyMonoBitmap, OfAnyPictureHasItsPixels) {
  EXPECT_TRUE(rc::check([] {
    const MonoPicture picture = AnyMonoPicture(1);
    const OwnedBitmap bitmap(Mono(picture.w, picture.h, picture.WordAligned()));
    const OwnedBitmap copy(CopyMonoBitmap(bitmap.Get()));
    RC_ASSERT(FormatOf(copy.Get()) == (Format{picture.w, picture.h, 1}));
    RC_ASSERT(BitsOf(copy.Get()) == picture.WordAligned());
  }));
}

TEST(CopyMonoBitmap, OfABitmapInColoursHasWhiteWhereItIsWhite) {
  const Bytes colors = {0xFF, 0xFF, 0xFF, 0, 0xFF, 0xFF, 0xFE, 0, 0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0};
  const OwnedBitmap bitmap(gdi::CreateBitmap(4, 1, 1, 32, colors.data()));
  const OwnedBitmap copy(CopyMonoBitmap(bitmap.Get()));
  EXPECT_EQ(FormatOf(copy.Get()), (Format{4, 1, 1}));
  EXPECT_EQ(BitsOf(copy.Get()), (Bytes{0b10010000, 0}));
}

TEST(CopyMonoBitmap, OfWhatIsNoBitmapIsOneBlackPixel) {
  const WrongHandles wrong;
  for (const auto& [name, handle] : wrong.All()) {
    const std::size_t before = gdi::LiveObjects();
    const HBITMAP copy = CopyMonoBitmap(handle);
    EXPECT_EQ(gdi::LiveObjects(), before + 1) << name;
    EXPECT_EQ(FormatOf(copy), (Format{1, 1, 1})) << name;
    EXPECT_EQ(BitsOf(copy), (Bytes{0, 0})) << name;
    EXPECT_EQ(gdi::DeleteObject(copy), 1) << name;
  }
}

TEST(CopyMonoBitmap, OfABitmapThatAContextHoldsIsBlack) {
  const gdi::Surface held = gdi::White(3, 2, 1);
  const OwnedBitmap copy(CopyMonoBitmap(held.BitmapHandle()));
  EXPECT_EQ(FormatOf(copy.Get()), (Format{3, 2, 1}));
  EXPECT_EQ(BitsOf(copy.Get()), (Bytes{0, 0, 0, 0}));
}

TEST(CopyMonoBitmap, WithoutABitmapLeftIsNone) {
  const OwnedBitmap bitmap(Mono(3, 1, {0b10100000, 0}));
  for (const std::size_t left : {0u, 1u, 2u}) {
    const HandlesLeft handles(left);
    const std::size_t before = gdi::LiveObjects();
    EXPECT_EQ(CopyMonoBitmap(bitmap.Get()), 0) << left;
    EXPECT_EQ(gdi::LiveObjects(), before) << left;
  }
  const HandlesLeft handles(3);
  const OwnedBitmap copy(CopyMonoBitmap(bitmap.Get()));
  EXPECT_EQ(BitsOf(copy.Get()), (Bytes{0b10100000, 0}));
}

TEST(NewWhiteMonoBitmap, AsksAndPaintsInThisOrder) {
  const std::size_t before = gdi::LiveObjects();
  gdi::Recorder recorder;
  const HBITMAP bitmap = NewWhiteMonoBitmap(9, 2);
  EXPECT_EQ(recorder.Take(), (Calls{
                                 "CreateBitmap(9, 2, 1, 1) -> bitmap:1",
                                 "CreateCompatibleDC(null) -> dc:1",
                                 "SelectObject(dc:1, bitmap:1)",
                                 "PatBlt(dc:1, 0, 0, 9, 2, 0xff0062)",
                                 "DeleteDC(dc:1)",
                             }));
  EXPECT_EQ(gdi::LiveObjects(), before + 1);
  EXPECT_EQ(gdi::DeleteObject(bitmap), 1) << "no context holds it";
}

TEST(NewWhiteMonoBitmap, IsWhiteAllOver) {
  for (const auto& [w, h] : {std::pair<Long, Long>{1, 1}, {8, 1}, {9, 3}, {16, 2}, {17, 2}, {640, 480}}) {
    const OwnedBitmap bitmap(NewWhiteMonoBitmap(w, h));
    MonoPicture white(w, h);
    white.pixels.flip();
    EXPECT_EQ(FormatOf(bitmap.Get()), (Format{w, h, 1}));
    EXPECT_EQ(BitsOf(bitmap.Get()), white.WordAligned()) << w << " x " << h;
  }
}

TEST(NewWhiteMonoBitmap, WithoutWidthOrHeightIsOneBlackPixel) {
  for (const auto& [w, h] : {std::pair<Long, Long>{0, 5}, {5, 0}, {0, 0}}) {
    const OwnedBitmap bitmap(NewWhiteMonoBitmap(w, h));
    EXPECT_EQ(FormatOf(bitmap.Get()), (Format{1, 1, 1}));
    EXPECT_EQ(BitsOf(bitmap.Get()), (Bytes{0, 0}));
  }
}

TEST(NewWhiteMonoBitmap, RefusesMeasuresThatNoPictureHas) {
  const std::size_t before = gdi::LiveObjects();
  gdi::Recorder recorder;
  EXPECT_RAISES(5, "a picture of -1 x 4 pixels; neither measure may be negative", NewWhiteMonoBitmap(-1, 4));
  EXPECT_RAISES(5, "a picture of 4 x -1 pixels; neither measure may be negative", NewWhiteMonoBitmap(4, -1));
  EXPECT_RAISES(6, "a picture of 16 x 1073741824 pixels takes 2147483648 bytes, beyond 2147483647",
                NewWhiteMonoBitmap(16, 1073741824));
  EXPECT_TRUE(recorder.Calls().empty());
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST(NewWhiteMonoBitmap, WithoutRoomForItsBytesIsError7) {
  constexpr std::size_t kSize = 1000 * 1000;
  OwnedBitmap(NewWhiteMonoBitmap(1, 1)).Reset(0);
  const std::size_t before = gdi::LiveObjects();
  {
    gdi::Recorder recorder;
    const automation::AllocationWatch watch(kSize - 1);
    EXPECT_RAISES(7, "no room for the 1000000 bytes of a picture of 8000 x 1000 pixels",
                  NewWhiteMonoBitmap(8000, 1000));
    EXPECT_TRUE(recorder.Calls().empty());
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
  const automation::AllocationWatch watch(kSize);
  const OwnedBitmap bitmap(NewWhiteMonoBitmap(8000, 1000));
  EXPECT_EQ(FormatOf(bitmap.Get()), (Format{8000, 1000, 1}));
}

TEST(NewWhiteMonoBitmap, WithoutABitmapLeftIsNoneAndWithoutAContextLeftBlack) {
  {
    const HandlesLeft handles(0);
    const std::size_t before = gdi::LiveObjects();
    EXPECT_EQ(NewWhiteMonoBitmap(3, 1), 0);
    EXPECT_EQ(gdi::LiveObjects(), before);
  }
  {
    const HandlesLeft handles(1);
    const OwnedBitmap bitmap(NewWhiteMonoBitmap(3, 1));
    EXPECT_EQ(FormatOf(bitmap.Get()), (Format{3, 1, 1}));
    EXPECT_EQ(BitsOf(bitmap.Get()), (Bytes{0, 0}));
  }
  const HandlesLeft handles(2);
  const OwnedBitmap bitmap(NewWhiteMonoBitmap(3, 1));
  EXPECT_EQ(BitsOf(bitmap.Get()), (Bytes{0b11100000, 0}));
}

TEST(StretchMonoBitmap, AsksAndPaintsInThisOrder) {
  const OwnedBitmap bitmap(Mono(4, 1, {0b10110000, 0}));
  const StretchModeIs mode(gdi::WHITEONBLACK);
  gdi::Recorder recorder;
  const OwnedBitmap stretched(StretchMonoBitmap(bitmap.Get(), 2, 3));
  EXPECT_EQ(recorder.Take(), (Calls{
                                 "GetObjectA(bitmap:1, 24)",
                                 "CreateCompatibleDC(null) -> dc:1",
                                 "CreateCompatibleBitmap(dc:1, 2, 3) -> bitmap:2",
                                 "SelectObject(dc:1, bitmap:2)",
                                 "PatBlt(dc:1, 0, 0, 2, 3, 0xff0062)",
                                 "CreateCompatibleDC(null) -> dc:2",
                                 "SelectObject(dc:2, bitmap:1)",
                                 "SetStretchBltMode(dc:1, 2)",
                                 "StretchBlt(dc:1, 0, 0, 2, 3, dc:2, 0, 0, 4, 1, 0xcc0020)",
                                 "SetStretchBltMode(dc:1, 1)",
                                 "DeleteDC(dc:2)",
                                 "DeleteDC(dc:1)",
                             }));
}

TEST(StretchMonoBitmap, ReducesByTheModeOfTheLibrary) {
  const OwnedBitmap bitmap(Mono(4, 1, {0b10110000, 0}));
  struct Row {
    Long mode;
    Byte bits;
  };
  // Mode 1 keeps black, mode 2 white, mode 3 the later pixel of each pair; 0 and what is no mode leaves a
  // new context's 1.
  for (const Row& row : {Row{0, 0b01000000}, Row{1, 0b01000000}, Row{2, 0b11000000}, Row{3, 0b01000000},
                         Row{4, 0b01000000}, Row{-1, 0b01000000}}) {
    const StretchModeIs mode(row.mode);
    const OwnedBitmap stretched(StretchMonoBitmap(bitmap.Get(), 2, 1));
    EXPECT_EQ(BitsOf(stretched.Get()), (Bytes{row.bits, 0})) << row.mode;
  }
}

TEST(StretchMonoBitmap, TellsAllModesApartAndLeavesTheLibraryItsMode) {
  const OwnedBitmap bitmap(Mono(4, 1, {0b01100000, 0}));
  struct Row {
    Long mode;
    Byte bits;
  };
  // Each pair has one black and one white pixel.
  for (const Row& row :
       {Row{0, 0x00}, Row{1, 0x00}, Row{2, 0xC0}, Row{3, 0x80}, Row{4, 0x00}, Row{-1, 0x00}}) {
    const StretchModeIs mode(row.mode);
    const OwnedBitmap stretched(StretchMonoBitmap(bitmap.Get(), 2, 1));
    EXPECT_EQ(BitsOf(stretched.Get()), (Bytes{row.bits, 0})) << row.mode;
    EXPECT_EQ(LibraryState::Current().StretchMode, row.mode);
  }
}

TEST(StretchMonoBitmap, BeforeAPanelIsChosenLeavesTheContextItsOwnMode) {
  const OwnedBitmap bitmap(Mono(4, 1, {0b10110000, 0}));
  ASSERT_EQ(LibraryState::Current().StretchMode, 0);
  gdi::Recorder recorder;
  const OwnedBitmap stretched(StretchMonoBitmap(bitmap.Get(), 2, 1));
  const Calls calls = recorder.Take();
  ASSERT_EQ(calls.size(), 12u);
  EXPECT_EQ(calls[7], "SetStretchBltMode(dc:1, 0)");
  // The refused call said 0, and 0 is what is put back: refused again.
  EXPECT_EQ(calls[9], "SetStretchBltMode(dc:1, 0)");
}

TEST(StretchMonoBitmap, TakesTheModeOfItsOwnThread) {
  const OwnedBitmap bitmap(Mono(4, 1, {0b10110000, 0}));
  std::thread([] { LibraryState::Current().StretchMode = gdi::WHITEONBLACK; }).join();
  const OwnedBitmap stretched(StretchMonoBitmap(bitmap.Get(), 2, 1));
  EXPECT_EQ(BitsOf(stretched.Get()), (Bytes{0b01000000, 0}));
}

TEST(StretchMonoBitmap, EnlargesByRepeatingPixels) {
  const OwnedBitmap bitmap(Mono(3, 2, {0b10100000, 0, 0b01000000, 0}));
  const StretchModeIs mode(gdi::BLACKONWHITE);
  const OwnedBitmap stretched(StretchMonoBitmap(bitmap.Get(), 6, 4));
  EXPECT_EQ(FormatOf(stretched.Get()), (Format{6, 4, 1}));
  EXPECT_EQ(BitsOf(stretched.Get()), (Bytes{0b11001100, 0, 0b11001100, 0, 0b00110000, 0, 0b00110000, 0}));
}

TEST(StretchMonoBitmap, ToItsOwnSizeIsACopyOfAnyPicture) {
  EXPECT_TRUE(rc::check([] {
    const MonoPicture picture = AnyMonoPicture(1);
    const StretchModeIs mode(*rc::gen::inRange(0, 4));
    const OwnedBitmap bitmap(Mono(picture.w, picture.h, picture.WordAligned()));
    const OwnedBitmap stretched(StretchMonoBitmap(bitmap.Get(), picture.w, picture.h));
    RC_ASSERT(FormatOf(stretched.Get()) == (Format{picture.w, picture.h, 1}));
    RC_ASSERT(BitsOf(stretched.Get()) == picture.WordAligned());
    RC_ASSERT(BitsOf(bitmap.Get()) == picture.WordAligned());
  }));
}

TEST(StretchMonoBitmap, MakesOneNewBitmapThatBelongsToTheCaller) {
  const OwnedBitmap bitmap(Mono(4, 1, {0b10110000, 0}));
  const std::size_t before = gdi::LiveObjects();
  const HBITMAP stretched = StretchMonoBitmap(bitmap.Get(), 7, 5);
  EXPECT_EQ(gdi::LiveObjects(), before + 1);
  EXPECT_EQ(gdi::DeleteObject(stretched), 1) << "no context holds it";
}

TEST(StretchMonoBitmap, OfWhatIsNoBitmapIsWhite) {
  const WrongHandles wrong;
  for (const auto& [name, handle] : wrong.All()) {
    const std::size_t before = gdi::LiveObjects();
    const HBITMAP stretched = StretchMonoBitmap(handle, 3, 1);
    EXPECT_EQ(gdi::LiveObjects(), before + 1) << name;
    EXPECT_EQ(FormatOf(stretched), (Format{3, 1, 1})) << name;
    EXPECT_EQ(BitsOf(stretched), (Bytes{0b11100000, 0})) << name;
    gdi::DeleteObject(stretched);
  }
}

TEST(StretchMonoBitmap, OfABitmapThatAContextHoldsIsBlackWhereItsFirstPixelGoesAndWhiteElsewhere) {
  const gdi::Surface held = gdi::White(3, 1, 1);
  const OwnedBitmap stretched(StretchMonoBitmap(held.BitmapHandle(), 3, 1));
  EXPECT_EQ(FormatOf(stretched.Get()), (Format{3, 1, 1}));
  EXPECT_EQ(BitsOf(stretched.Get()), (Bytes{0b01100000, 0}));
}

TEST(StretchMonoBitmap, ToNoWidthOrHeightIsOneBlackPixel) {
  const OwnedBitmap bitmap(Mono(4, 1, {0b11110000, 0}));
  for (const auto& [w, h] : {std::pair<Long, Long>{0, 5}, {5, 0}, {0, 0}}) {
    const OwnedBitmap stretched(StretchMonoBitmap(bitmap.Get(), w, h));
    EXPECT_EQ(FormatOf(stretched.Get()), (Format{1, 1, 1}));
    EXPECT_EQ(BitsOf(stretched.Get()), (Bytes{0, 0}));
  }
}

TEST(StretchMonoBitmap, WithoutABitmapLeftIsNoneAndWithoutAContextForTheSourceWhite) {
  const OwnedBitmap bitmap(Mono(3, 1, {0b10100000, 0}));
  for (const std::size_t left : {0u, 1u}) {
    const HandlesLeft handles(left);
    const std::size_t before = gdi::LiveObjects();
    EXPECT_EQ(StretchMonoBitmap(bitmap.Get(), 3, 1), 0) << left;
    EXPECT_EQ(gdi::LiveObjects(), before) << left;
  }
  {
    const HandlesLeft handles(2);
    const OwnedBitmap stretched(StretchMonoBitmap(bitmap.Get(), 3, 1));
    EXPECT_EQ(BitsOf(stretched.Get()), (Bytes{0b11100000, 0}));
  }
  const HandlesLeft handles(3);
  const OwnedBitmap stretched(StretchMonoBitmap(bitmap.Get(), 3, 1));
  EXPECT_EQ(BitsOf(stretched.Get()), (Bytes{0b10100000, 0}));
}

TEST(StretchMonoBitmap, RefusesMeasuresThatNoPictureHas) {
  const OwnedBitmap bitmap(Mono(4, 1, {0b10110000, 0}));
  const std::size_t before = gdi::LiveObjects();
  gdi::Recorder recorder;
  EXPECT_RAISES(5, "a picture of -1 x 4 pixels; neither measure may be negative",
                StretchMonoBitmap(bitmap.Get(), -1, 4));
  EXPECT_RAISES(5, "a picture of 4 x -1 pixels; neither measure may be negative",
                StretchMonoBitmap(bitmap.Get(), 4, -1));
  EXPECT_RAISES(6, "a picture of 16 x 1073741824 pixels takes 2147483648 bytes, beyond 2147483647",
                StretchMonoBitmap(bitmap.Get(), 16, 1073741824));
  EXPECT_TRUE(recorder.Calls().empty());
  EXPECT_EQ(gdi::LiveObjects(), before);
}

}  // namespace
}  // namespace quenzel7
