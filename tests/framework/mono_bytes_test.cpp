#include "framework/mono_bytes.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <utility>

#include "framework/mono_bitmaps.h"
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

Bytes BytesOf(HBITMAP bitmap, Long w = -1, Long h = -1) {
  Bytes bytes = {1, 2, 3};
  BitmapToBytes(bitmap, bytes, w, h);
  return bytes;
}

TEST(BitmapToBytes, AtItsOwnSizeReadsTheBitmapItself) {
  const OwnedBitmap bitmap(Mono(9, 2, {0x5A, 0x80, 0xA5, 0x00}));
  gdi::Recorder recorder;
  EXPECT_EQ(BytesOf(bitmap.Get()), (Bytes{0x5A, 0x80, 0xA5, 0x00, 9, 0, 2, 0, 0}));
  EXPECT_EQ(recorder.Take(), (Calls{"GetObjectA(bitmap:1, 24)", "GetBitmapBits(bitmap:1, 4)"}));
}

TEST(BitmapToBytes, LeavesNothingOfWhatTheArrayHeld) {
  const OwnedBitmap bitmap(Mono(9, 2, {0x5A, 0x80, 0xA5, 0x00}));
  Bytes bytes(20, 0xEE);
  BitmapToBytes(bitmap.Get(), bytes);
  EXPECT_EQ(bytes, (Bytes{0x5A, 0x80, 0xA5, 0x00, 9, 0, 2, 0, 0}));
  bytes.assign(20, 0xEE);
  BitmapToBytes(0, bytes);
  EXPECT_EQ(bytes, (Bytes{0, 0, 0, 0, 0}));
  bytes.assign(20, 0xEE);
  BitmapToBytes(bitmap.Get(), bytes, 0, 3);
  EXPECT_EQ(bytes, (Bytes{0, 0, 3, 0, 0}));
}

TEST(BitmapToBytes, KeepsTheSizeWhenEitherMeasureIsMinus1) {
  const OwnedBitmap bitmap(Mono(9, 2, {0x5A, 0x80, 0xA5, 0x00}));
  const Bytes own = {0x5A, 0x80, 0xA5, 0x00, 9, 0, 2, 0, 0};
  EXPECT_EQ(BytesOf(bitmap.Get(), -1, -1), own);
  EXPECT_EQ(BytesOf(bitmap.Get(), -1, 7), own);
  EXPECT_EQ(BytesOf(bitmap.Get(), 7, -1), own);
  EXPECT_EQ(BytesOf(bitmap.Get(), -1, -2), own);
  EXPECT_EQ(BytesOf(bitmap.Get(), -2, -1), own);
}

TEST(BitmapToBytes, OfAnotherSizeReadsAStretchedCopyAndDeletesIt) {
  const OwnedBitmap bitmap(Mono(4, 1, {0b10110000, 0}));
  const StretchModeIs mode(gdi::WHITEONBLACK);
  const std::size_t before = gdi::LiveObjects();
  gdi::Recorder recorder;
  EXPECT_EQ(BytesOf(bitmap.Get(), 2, 3), (Bytes{0b11000000, 0, 0b11000000, 0, 0b11000000, 0, 2, 0, 3, 0, 0}));
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
                                 "GetBitmapBits(bitmap:2, 6)",
                                 "DeleteObject(bitmap:2)",
                             }));
  EXPECT_EQ(gdi::LiveObjects(), before);
  EXPECT_EQ(BitsOf(bitmap.Get()), (Bytes{0b10110000, 0}));
}

TEST(BitmapToBytes, StoresRowsOfAnEvenNumberOfBytes) {
  struct Row {
    Long w;
    std::size_t stride;
  };
  for (const Row& row : {Row{1, 2}, Row{8, 2}, Row{9, 2}, Row{16, 2}, Row{17, 4}, Row{32, 4}, Row{33, 6}}) {
    const OwnedBitmap bitmap(gdi::CreateBitmap(row.w, 3, 1, 1, nullptr));
    EXPECT_EQ(BytesOf(bitmap.Get()).size(), 3 * row.stride + 5) << row.w;
  }
}

TEST(BitmapToBytes, EndsInTheSizeIn16BitsLowByteFirstAndAByte0) {
  const OwnedBitmap bitmap(gdi::CreateBitmap(0x0123, 0x0204, 1, 1, nullptr));
  const Bytes bytes = BytesOf(bitmap.Get());
  EXPECT_EQ(Bytes(bytes.end() - 5, bytes.end()), (Bytes{0x23, 0x01, 0x04, 0x02, 0}));
}

TEST(BitmapToBytes, KeepsTheLow16BitsOfLargerMeasures) {
  struct Row {
    Long w, h;
    Bytes trailer;
  };
  for (const Row& row :
       {Row{65535, 1, {0xFF, 0xFF, 1, 0, 0}}, Row{65536, 1, {0, 0, 1, 0, 0}}, Row{65537, 1, {1, 0, 1, 0, 0}},
        Row{1, 65535, {1, 0, 0xFF, 0xFF, 0}}, Row{1, 65536 + 258, {1, 0, 2, 1, 0}}}) {
    const OwnedBitmap bitmap(gdi::CreateBitmap(row.w, row.h, 1, 1, nullptr));
    const Bytes bytes = BytesOf(bitmap.Get());
    EXPECT_EQ(bytes.size(), BitsOf(bitmap.Get()).size() + 5) << row.w << " x " << row.h;
    EXPECT_EQ(Bytes(bytes.end() - 5, bytes.end()), row.trailer) << row.w << " x " << row.h;
  }
}

TEST(BitmapToBytes, OfABitmapInColoursGivesTheFirstBytesOfItsRows) {
  const Bytes colors = {1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 10, 11, 12, 0};
  const OwnedBitmap bitmap(gdi::CreateBitmap(2, 2, 1, 32, colors.data()));
  EXPECT_EQ(BytesOf(bitmap.Get()), (Bytes{1, 2, 3, 0, 2, 0, 2, 0, 0}));
}

TEST(BitmapToBytes, ResizingABitmapInColoursMakesAOneBitPictureOfIt) {
  const Bytes colors = {0xFF, 0xFF, 0xFF, 0, 0, 0, 0xFF, 0};
  const OwnedBitmap bitmap(gdi::CreateBitmap(2, 1, 1, 32, colors.data()));
  EXPECT_EQ(BytesOf(bitmap.Get(), 2, 1), (Bytes{0b10000000, 0, 2, 0, 1, 0, 0}));
}

TEST(BitmapToBytes, OfWhatIsNoBitmapIsATrailerAlone) {
  const WrongHandles wrong;
  const std::size_t before = gdi::LiveObjects();
  for (const auto& [name, handle] : wrong.All()) {
    EXPECT_EQ(BytesOf(handle), (Bytes{0, 0, 0, 0, 0})) << name;
    EXPECT_EQ(BytesOf(handle, 3, 1), (Bytes{0b11100000, 0, 3, 0, 1, 0, 0})) << name;
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST(BitmapToBytes, ResizedToNothingIsATrailerAlone) {
  const OwnedBitmap bitmap(Mono(9, 2, {0x5A, 0x80, 0xA5, 0x00}));
  const std::size_t before = gdi::LiveObjects();
  EXPECT_EQ(BytesOf(bitmap.Get(), 0, 0), (Bytes{0, 0, 0, 0, 0}));
  EXPECT_EQ(BytesOf(bitmap.Get(), 0, 3), (Bytes{0, 0, 3, 0, 0}));
  EXPECT_EQ(BytesOf(bitmap.Get(), 3, 0), (Bytes{3, 0, 0, 0, 0}));
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST(BitmapToBytes, RefusesMeasuresThatNoPictureHasAndLeavesTheArray) {
  const OwnedBitmap bitmap(Mono(9, 2, {0x5A, 0x80, 0xA5, 0x00}));
  Bytes bytes = {1, 2, 3};
  gdi::Recorder recorder;
  EXPECT_RAISES(5, "a picture of -2 x 1 pixels; neither measure may be negative",
                BitmapToBytes(bitmap.Get(), bytes, -2, 1));
  EXPECT_RAISES(5, "a picture of 1 x -2 pixels; neither measure may be negative",
                BitmapToBytes(bitmap.Get(), bytes, 1, -2));
  EXPECT_RAISES(6, "a picture of 16 x 1073741824 pixels takes 2147483648 bytes, beyond 2147483647",
                BitmapToBytes(bitmap.Get(), bytes, 16, 1073741824));
  // Rows that would leave an array of 2147483647 bytes no place for the trailer.
  EXPECT_RAISES(
      6, "a picture of 16 x 1073741822 pixels takes 2147483644 bytes before its trailer, beyond 2147483642",
      BitmapToBytes(bitmap.Get(), bytes, 16, 1073741822));
  EXPECT_EQ(bytes, (Bytes{1, 2, 3}));
  EXPECT_TRUE(recorder.Calls().empty());
}

TEST(BitmapToBytes, WithoutRoomForTheArrayIsError7AndLeavesIt) {
  const OwnedBitmap bitmap(gdi::CreateBitmap(8000, 1000, 1, 1, nullptr));
  const std::size_t before = gdi::LiveObjects();
  Bytes bytes = {1, 2, 3};
  {
    gdi::Recorder recorder;
    const automation::AllocationWatch watch(1000004);
    EXPECT_RAISES(7, "no room for the 1000005 bytes of a picture of 8000 x 1000 pixels",
                  BitmapToBytes(bitmap.Get(), bytes));
    EXPECT_EQ(recorder.Take(), Calls{"GetObjectA(bitmap:1, 24)"});
    EXPECT_RAISES(7, "no room for the 1000005 bytes of a picture of 4000 x 2000 pixels",
                  BitmapToBytes(bitmap.Get(), bytes, 4000, 2000));
    // The largest rows that an array can have with their trailer.
    EXPECT_RAISES(7, "no room for the 2147483647 bytes of a picture of 16 x 1073741821 pixels",
                  BitmapToBytes(bitmap.Get(), bytes, 16, 1073741821));
    EXPECT_TRUE(recorder.Calls().empty());
  }
  EXPECT_EQ(bytes, (Bytes{1, 2, 3}));
  EXPECT_EQ(gdi::LiveObjects(), before);
  const automation::AllocationWatch watch(1000005);
  BitmapToBytes(bitmap.Get(), bytes);
  EXPECT_EQ(bytes.size(), 1000005u);
}

TEST(BitmapToBytes, WithoutAResizedCopyHasRowsOf0) {
  const OwnedBitmap bitmap(Mono(2, 1, {0xC0, 0}));
  for (const std::size_t left : {0u, 1u}) {
    const HandlesLeft handles(left);
    const std::size_t before = gdi::LiveObjects();
    EXPECT_EQ(BytesOf(bitmap.Get(), 4, 1), (Bytes{0, 0, 4, 0, 1, 0, 0})) << left;
    EXPECT_EQ(gdi::LiveObjects(), before) << left;
  }
  const HandlesLeft handles(3);
  EXPECT_EQ(BytesOf(bitmap.Get(), 4, 1), (Bytes{0xF0, 0, 4, 0, 1, 0, 0}));
}

TEST(WholeBitmapToBytes, OfAOneBitBitmapAreTheBytesThatAreStored) {
  for (const Long w : {1, 8, 9, 16, 17, 33}) {
    const OwnedBitmap bitmap(NewWhiteMonoBitmap(w, 3));
    EXPECT_EQ(WholeBitmapToBytes(bitmap.Get()), BytesOf(bitmap.Get())) << w;
  }
  const OwnedBitmap bitmap(Mono(9, 2, {0x5A, 0x80, 0xA5, 0x00}));
  gdi::Recorder recorder;
  EXPECT_EQ(WholeBitmapToBytes(bitmap.Get()), (Bytes{0x5A, 0x80, 0xA5, 0x00, 9, 0, 2, 0, 0}));
  EXPECT_EQ(recorder.Take(), (Calls{"GetObjectA(bitmap:1, 24)", "GetBitmapBits(bitmap:1, 4)"}));
}

TEST(WholeBitmapToBytes, OfABitmapInColoursHoldEveryPixel) {
  Bytes colors;
  for (Byte pixel = 0; pixel < 15; ++pixel) {
    for (const int channel : {1, 2, 3}) colors.push_back(static_cast<Byte>(16 * channel + pixel));
    colors.push_back(0);
  }
  const OwnedBitmap bitmap(gdi::CreateBitmap(3, 5, 1, 32, colors.data()));
  gdi::Recorder recorder;
  Bytes expected = colors;
  for (const Byte byte : {3, 0, 5, 0, 0}) expected.push_back(byte);
  EXPECT_EQ(WholeBitmapToBytes(bitmap.Get()), expected);
  EXPECT_EQ(recorder.Take(), (Calls{"GetObjectA(bitmap:1, 24)", "GetBitmapBits(bitmap:1, 60)"}));
}

TEST(WholeBitmapToBytes, EndInTheLow16BitsOfTheSize) {
  const OwnedBitmap bitmap(gdi::CreateBitmap(0x10203, 1, 1, 32, nullptr));
  const Bytes bytes = WholeBitmapToBytes(bitmap.Get());
  ASSERT_EQ(bytes.size(), 0x10203u * 4 + 5);
  EXPECT_EQ(Bytes(bytes.end() - 5, bytes.end()), (Bytes{0x03, 0x02, 1, 0, 0}));
}

TEST(WholeBitmapToBytes, OfWhatIsNoBitmapAreATrailerAlone) {
  const WrongHandles wrong;
  for (const auto& [name, handle] : wrong.All()) {
    EXPECT_EQ(WholeBitmapToBytes(handle), (Bytes{0, 0, 0, 0, 0})) << name;
  }
}

TEST(WholeBitmapToBytes, WithoutRoomForTheArrayAreError7) {
  const OwnedBitmap bitmap(gdi::CreateBitmap(500, 500, 1, 32, nullptr));
  {
    const automation::AllocationWatch watch(1000004);
    EXPECT_RAISES(7, "no room for the 1000005 bytes of a picture of 500 x 500 pixels",
                  WholeBitmapToBytes(bitmap.Get()));
  }
  const automation::AllocationWatch watch(1000005);
  EXPECT_EQ(WholeBitmapToBytes(bitmap.Get()).size(), 1000005u);
}

TEST(BytesToBitmap, MakesAOneBitBitmapOfTheRowsAndTheSizeInTheTrailer) {
  gdi::Recorder recorder;
  const OwnedBitmap bitmap(BytesToBitmap({0x5A, 0x80, 0xA5, 0x00, 9, 0, 2, 0, 0}));
  EXPECT_EQ(recorder.Take(), Calls{"CreateBitmap(9, 2, 1, 1) -> bitmap:1"});
  EXPECT_EQ(BitsOf(bitmap.Get()), (Bytes{0x5A, 0x80, 0xA5, 0x00}));
}

TEST(BytesToBitmap, ReadsBothBytesOfEachMeasureWithoutASign) {
  Bytes bytes(2 * 0x0102 + 5);
  bytes[516] = 1;
  bytes[518] = 0x02;
  bytes[519] = 0x01;
  const OwnedBitmap tall(BytesToBitmap(bytes));
  EXPECT_EQ(FormatOf(tall.Get()), (Format{1, 0x0102, 1}));

  bytes.assign(0x1002 + 5, 0);
  bytes[0x1002] = 0x01;
  bytes[0x1003] = 0x80;
  bytes[0x1004] = 1;
  const OwnedBitmap wide(BytesToBitmap(bytes));
  EXPECT_EQ(FormatOf(wide.Get()), (Format{0x8001, 1, 1}));
}

TEST(BytesToBitmap, FindsTheTrailerFromTheEndAndPassesOverWhatStandsBeforeIt) {
  const OwnedBitmap bitmap(BytesToBitmap({0x80, 0x00, 0xEE, 0xEE, 0xEE, 1, 0, 1, 0, 7}));
  EXPECT_EQ(FormatOf(bitmap.Get()), (Format{1, 1, 1}));
  EXPECT_EQ(BitsOf(bitmap.Get()), (Bytes{0x80, 0x00}));
}

TEST(BytesToBitmap, OfAPictureWithoutWidthOrHeightIsOneBlackPixel) {
  for (const Bytes& bytes : {Bytes{0, 0, 0, 0, 0}, Bytes{5, 0, 0, 0, 0}, Bytes{0, 0, 5, 0, 0}}) {
    const OwnedBitmap bitmap(BytesToBitmap(bytes));
    EXPECT_EQ(FormatOf(bitmap.Get()), (Format{1, 1, 1}));
    EXPECT_EQ(BitsOf(bitmap.Get()), (Bytes{0, 0}));
  }
}

TEST(BytesToBitmap, OfMeasuresBeyond16BitsMakesWhatTheirLow16BitsTell) {
  struct Row {
    Long w, h;
    Format made;
    Bytes bits;
  };
  // 0 x 1 and 1 x 0 are one black pixel; else the first rows are read in the stride of the smaller width.
  for (const Row& row :
       {Row{65536, 1, {1, 1, 1}, {0, 0}}, Row{1, 65536, {1, 1, 1}, {0, 0}},
        Row{65537, 1, {1, 1, 1}, {0x80, 0}}, Row{65536 + 20, 1, {20, 1, 1}, {0xFF, 0xFF, 0xF0, 0}},
        Row{1, 65538, {1, 2, 1}, {0x80, 0, 0x80, 0}}}) {
    const OwnedBitmap white(NewWhiteMonoBitmap(row.w, row.h));
    const OwnedBitmap bitmap(BytesToBitmap(BytesOf(white.Get())));
    EXPECT_EQ(FormatOf(bitmap.Get()), row.made) << row.w << " x " << row.h;
    EXPECT_EQ(BitsOf(bitmap.Get()), row.bits) << row.w << " x " << row.h;
  }
}

TEST(BytesToBitmap, OfAnArrayTooShortForItsTrailerIsASubscriptError) {
  const std::size_t before = gdi::LiveObjects();
  EXPECT_RAISES(9, "a picture ends in a trailer of 5 bytes, the array has 0", BytesToBitmap({}));
  EXPECT_RAISES(9, "a picture ends in a trailer of 5 bytes, the array has 4", BytesToBitmap({1, 0, 1, 0}));
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST(BytesToBitmap, OfRowsShorterThanTheTrailerTellsIsASubscriptError) {
  const std::size_t before = gdi::LiveObjects();
  EXPECT_RAISES(9, "a picture of 9 x 2 pixels takes 4 bytes before its trailer, the array has 3",
                BytesToBitmap({1, 2, 3, 9, 0, 2, 0, 0}));
  EXPECT_RAISES(9,
                "a picture of 65535 x 65535 pixels takes 536862720 bytes before its trailer, the array has 0",
                BytesToBitmap({0xFF, 0xFF, 0xFF, 0xFF, 0}));
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST(MonoBytes, GoFromBytesToABitmapAndBack) {
  EXPECT_TRUE(rc::check([] {
    const MonoPicture picture = AnyMonoPicture(1);
    const OwnedBitmap bitmap(BytesToBitmap(picture.Stored()));
    RC_ASSERT(FormatOf(bitmap.Get()) == (Format{picture.w, picture.h, 1}));
    RC_ASSERT(BytesOf(bitmap.Get()) == picture.Stored());
    RC_ASSERT(BytesOf(bitmap.Get(), picture.w, picture.h) == picture.Stored());
  }));
}

}  // namespace
}  // namespace quenzel7
