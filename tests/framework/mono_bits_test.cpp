#include "framework/mono_bits.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <string>
#include <utility>

#include "tests/framework/mono_picture.h"
#include "tests/platform/automation/allocation_watch.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::AllocationWatch;
using test::AnyMonoPicture;
using test::Bytes;
using test::ErrorOf;
using test::MonoPicture;

constexpr Long kLargest = 2147483647;

TEST(WordAlignedSize, RoundsRowsUpToAnEvenNumberOfBytes) {
  struct Row {
    Long w, stride;
  };
  for (const Row& row : {Row{0, 0}, Row{1, 2}, Row{7, 2}, Row{8, 2}, Row{9, 2}, Row{15, 2}, Row{16, 2},
                         Row{17, 4}, Row{24, 4}, Row{25, 4}, Row{32, 4}, Row{33, 6}, Row{65535, 8192}}) {
    EXPECT_EQ(WordAlignedSize(row.w, 1), row.stride) << row.w;
    EXPECT_EQ(WordAlignedSize(row.w, 5), 5 * row.stride) << row.w;
    EXPECT_EQ(WordAlignedSize(row.w, 0), 0) << row.w;
  }
}

TEST(WordAlignedSize, GoesUpToTheLargestNumber) {
  EXPECT_EQ(WordAlignedSize(65535, 65535), 536862720);
  EXPECT_EQ(WordAlignedSize(16, 1073741823), 2147483646);
  EXPECT_EQ(WordAlignedSize(kLargest, 7), 1879048192);
  EXPECT_EQ(WordAlignedSize(0, kLargest), 0);
  EXPECT_RAISES(6, "a picture of 16 x 1073741824 pixels takes 2147483648 bytes, beyond 2147483647",
                WordAlignedSize(16, 1073741824));
  EXPECT_RAISES(6, "a picture of 2147483647 x 8 pixels takes 2147483648 bytes, beyond 2147483647",
                WordAlignedSize(kLargest, 8));
  EXPECT_EQ(ErrorOf([] { WordAlignedSize(kLargest, kLargest); }), 6);
}

TEST(MonoBits, RefuseNegativeMeasures) {
  const Bytes bytes(100);
  Bytes changed = bytes;
  for (const auto& measures : {std::pair<Long, Long>{-1, 5}, {5, -1}, {-1, -1}, {-2147483647 - 1, 1}}) {
    const Long w = measures.first, h = measures.second;
    const std::string description = "a picture of " + std::to_string(w) + " x " + std::to_string(h) +
                                    " pixels; neither measure may be negative";
    EXPECT_RAISES(5, description, WordAlignedSize(w, h));
    EXPECT_RAISES(5, description, PackedToWordAligned(w, h, bytes));
    EXPECT_RAISES(5, description, RotateMonoBits(bytes, w, h));
    EXPECT_RAISES(5, description, WordAlignedToPacked(changed, w, h));
  }
  EXPECT_EQ(changed, bytes);
}

TEST(WordAlignedToPacked, TakesThePaddingOutInPlace) {
  Bytes bytes = {0x11, 0x12, 0x13, 0xEE, 0x21, 0x22, 0x23, 0xEE};
  WordAlignedToPacked(bytes, 24, 2);
  EXPECT_EQ(bytes, (Bytes{0x11, 0x12, 0x13, 0x21, 0x22, 0x23}));
}

TEST(WordAlignedToPacked, CutsOffWhatFollowsTheRows) {
  Bytes bytes = {0x11, 0xEE, 0x21, 0xEE, 8, 0, 2, 0, 0};
  WordAlignedToPacked(bytes, 8, 2);
  EXPECT_EQ(bytes, (Bytes{0x11, 0x21}));
}

TEST(WordAlignedToPacked, LeavesEvenRowsAndTheBitsBeyondTheWidthAlone) {
  Bytes bytes = {0x11, 0x12, 0x21, 0xFF};
  WordAlignedToPacked(bytes, 9, 2);
  EXPECT_EQ(bytes, (Bytes{0x11, 0x12, 0x21, 0xFF}));
}

TEST(WordAlignedToPacked, OfNoPixelsIsEmpty) {
  for (const auto& [w, h] : {std::pair<Long, Long>{0, 3}, {3, 0}, {0, kLargest}}) {
    Bytes bytes = {1, 2, 3};
    WordAlignedToPacked(bytes, w, h);
    EXPECT_EQ(bytes, Bytes{}) << w << " x " << h;
  }
}

TEST(WordAlignedToPacked, OfAnArrayTooShortIsASubscriptErrorAndChangesNothing) {
  Bytes bytes = {1, 2, 3, 4, 5, 6, 7};
  EXPECT_RAISES(9, "a picture of 24 x 2 pixels takes 8 bytes, the array has 7",
                WordAlignedToPacked(bytes, 24, 2));
  EXPECT_EQ(bytes, (Bytes{1, 2, 3, 4, 5, 6, 7}));
}

TEST(PackedToWordAligned, PutsAByte0BehindOddRows) {
  EXPECT_EQ(PackedToWordAligned(24, 2, {0x11, 0x12, 0x13, 0x21, 0x22, 0x23}),
            (Bytes{0x11, 0x12, 0x13, 0, 0x21, 0x22, 0x23, 0}));
  EXPECT_EQ(PackedToWordAligned(8, 2, {0xFF, 0xFF}), (Bytes{0xFF, 0, 0xFF, 0}));
  EXPECT_EQ(PackedToWordAligned(9, 2, {1, 2, 3, 4}), (Bytes{1, 2, 3, 4}));
}

TEST(PackedToWordAligned, PassesOverWhatFollowsTheRows) {
  EXPECT_EQ(PackedToWordAligned(8, 1, {0x11, 0x21}), (Bytes{0x11, 0}));
}

TEST(PackedToWordAligned, OfNoPixelsIsEmpty) {
  EXPECT_EQ(PackedToWordAligned(0, 3, {1, 2, 3}), Bytes{});
  EXPECT_EQ(PackedToWordAligned(3, 0, {1, 2, 3}), Bytes{});
  EXPECT_EQ(PackedToWordAligned(0, kLargest, {}), Bytes{});
}

TEST(PackedToWordAligned, OfAnArrayTooShortIsASubscriptError) {
  EXPECT_RAISES(9, "a picture of 24 x 2 pixels takes 6 bytes, the array has 5",
                PackedToWordAligned(24, 2, {1, 2, 3, 4, 5}));
}

TEST(PackedToWordAligned, TellsOfAResultTooLargeBeforeTheRowsAreMissed) {
  EXPECT_RAISES(6, "a picture of 8 x 1073741824 pixels takes 2147483648 bytes, beyond 2147483647",
                PackedToWordAligned(8, 1073741824, {}));
  EXPECT_EQ(ErrorOf([] { PackedToWordAligned(8, 1073741823, {}); }), 9);
}

TEST(RotateMonoBits, TurnsAQuarterClockwise) {
  // # . #      . #
  // . # .  ->  # .
  //            . #
  EXPECT_EQ(RotateMonoBits({0b10100000, 0b01000000}, 3, 2), (Bytes{0b01000000, 0b10000000, 0b01000000}));
}

TEST(RotateMonoBits, MakesARowAColumnAndAColumnARow) {
  EXPECT_EQ(RotateMonoBits({0x80, 0x80}, 9, 1), (Bytes{0x80, 0, 0, 0, 0, 0, 0, 0, 0x80}));
  // The first row goes to the last column, which is in a byte of its own.
  EXPECT_EQ(RotateMonoBits({0x80, 0, 0, 0, 0, 0, 0, 0, 0}, 1, 9), (Bytes{0x00, 0x80}));
  EXPECT_EQ(RotateMonoBits({0, 0, 0, 0, 0, 0, 0, 0, 0x80}, 1, 9), (Bytes{0x80, 0x00}));
}

TEST(RotateMonoBits, ClearsTheBitsBeyondTheWidth) {
  EXPECT_EQ(RotateMonoBits({0xFF}, 1, 1), Bytes{0x80});
  EXPECT_EQ(RotateMonoBits({0x7F}, 1, 1), Bytes{0x00});
}

TEST(RotateMonoBits, PassesOverWhatFollowsTheRows) {
  EXPECT_EQ(RotateMonoBits({0x80, 0xFF}, 1, 1), Bytes{0x80});
}

TEST(RotateMonoBits, OfNoPixelsIsEmpty) {
  EXPECT_EQ(RotateMonoBits({1, 2, 3}, 0, 3), Bytes{});
  EXPECT_EQ(RotateMonoBits({1, 2, 3}, 3, 0), Bytes{});
  EXPECT_EQ(RotateMonoBits({}, 0, kLargest), Bytes{});
  EXPECT_EQ(RotateMonoBits({}, kLargest, 0), Bytes{});
}

TEST(RotateMonoBits, OfAnArrayTooShortIsASubscriptError) {
  EXPECT_RAISES(9, "a picture of 9 x 3 pixels takes 6 bytes, the array has 5",
                RotateMonoBits({1, 2, 3, 4, 5}, 9, 3));
  EXPECT_EQ(ErrorOf([] { RotateMonoBits({}, 1, 1); }), 9);
}

TEST(RotateMonoBits, TellsOfAResultTooLargeBeforeTheRowsAreMissed) {
  EXPECT_RAISES(6, "a picture of 9 x 1073741824 pixels takes 2147483648 bytes, beyond 2147483647",
                RotateMonoBits({}, 1073741824, 9));
  EXPECT_EQ(ErrorOf([] { RotateMonoBits({}, 1073741823, 9); }), 9);
  // Turned, a picture of one row takes a byte a pixel.
  EXPECT_EQ(ErrorOf([] { RotateMonoBits({}, kLargest, 1); }), 9);
}

TEST(MonoBits, WithoutRoomForANewArrayAreError7) {
  const Bytes packed(1000);
  const AllocationWatch watch(1999);
  EXPECT_RAISES(7, "no room for the 2000 bytes of a picture of 8 x 1000 pixels",
                PackedToWordAligned(8, 1000, packed));
  EXPECT_EQ(PackedToWordAligned(8, 999, packed).size(), 1998u);
  // A row of 2000 pixels becomes 2000 rows of one; what is to be made is named.
  EXPECT_RAISES(7, "no room for the 2000 bytes of a picture of 1 x 2000 pixels",
                RotateMonoBits(packed, 2000, 1));
  EXPECT_EQ(RotateMonoBits(packed, 1999, 1).size(), 1999u);
}

TEST(RotateMonoBits, AllocatesOnlyItsResult) {
  const Bytes packed(800 / 8 * 480, 0x5A);
  const AllocationWatch watch;
  const Bytes turned = RotateMonoBits(packed, 800, 480);
  EXPECT_EQ(watch.Count(), 1u);
  EXPECT_EQ(turned.size(), 800u * 60);
}

TEST(RotateMonoBits, MovesEveryPixelOfAnyPicture) {
  EXPECT_TRUE(rc::check([] {
    const MonoPicture picture = AnyMonoPicture();
    MonoPicture turned(picture.h, picture.w);
    for (Long r = 0; r < picture.h; ++r) {
      for (Long c = 0; c < picture.w; ++c) turned.At(picture.h - 1 - r, c) = picture.At(c, r);
    }
    RC_ASSERT(RotateMonoBits(picture.Packed(), picture.w, picture.h) == turned.Packed());
  }));
}

TEST(RotateMonoBits, FourTimesGivesThePictureBack) {
  EXPECT_TRUE(rc::check([] {
    const MonoPicture picture = AnyMonoPicture();
    Bytes bytes = picture.Packed();
    for (int turn = 0; turn < 4; ++turn) {
      const bool isUpright = turn % 2 == 0;
      bytes = RotateMonoBits(bytes, isUpright ? picture.w : picture.h, isUpright ? picture.h : picture.w);
    }
    RC_ASSERT(bytes == picture.Packed());
  }));
}

TEST(MonoBits, GoFromOneLayoutToTheOtherAndBack) {
  EXPECT_TRUE(rc::check([] {
    const MonoPicture picture = AnyMonoPicture();
    Bytes bytes = PackedToWordAligned(picture.w, picture.h, picture.Packed());
    RC_ASSERT(bytes == picture.WordAligned());
    RC_ASSERT(static_cast<Long>(bytes.size()) == WordAlignedSize(picture.w, picture.h));
    WordAlignedToPacked(bytes, picture.w, picture.h);
    RC_ASSERT(bytes == picture.Packed());
  }));
}

TEST(InvertBytes, ComplementsEveryByte) {
  Bytes bytes = {0x00, 0xFF, 0x80, 0x5A, 0x01};
  InvertBytes(bytes);
  EXPECT_EQ(bytes, (Bytes{0xFF, 0x00, 0x7F, 0xA5, 0xFE}));
  Bytes none;
  InvertBytes(none);
  EXPECT_EQ(none, Bytes{});
}

}  // namespace
}  // namespace quenzel7
