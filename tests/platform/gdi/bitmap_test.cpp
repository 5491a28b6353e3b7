#include "platform/gdi/bitmap.h"

#include <gtest/gtest.h>

#include <array>

namespace quenzel7::gdi {
namespace {

TEST(Bitmap, RowsOf32BitsAreWordsWithoutPadding) {
  Bitmap bitmap(3, 2, 32);
  EXPECT_EQ(bitmap.WidthBytes(), 12);
  EXPECT_EQ(bitmap.Pixels().size(), 6u);
  EXPECT_EQ(bitmap.Words(1), bitmap.Words(0) + 3);
  EXPECT_FALSE(bitmap.IsMono());
}

TEST(Bitmap, RowsOfOneBitArePaddedTo16Bits) {
  EXPECT_EQ(Bitmap(1, 1, 1).WidthBytes(), 2);
  EXPECT_EQ(Bitmap(16, 1, 1).WidthBytes(), 2);
  EXPECT_EQ(Bitmap(17, 1, 1).WidthBytes(), 4);
  Bitmap bitmap(17, 3, 1);
  EXPECT_TRUE(bitmap.IsMono());
  EXPECT_EQ(bitmap.Bytes(2), bitmap.Bytes(0) + 8);
  EXPECT_TRUE(bitmap.Pixels().empty());
}

TEST(Bitmap, BeginsBlack) {
  EXPECT_EQ(Bitmap(2, 2, 32).At(1, 1), 0u);
  EXPECT_EQ(Bitmap(2, 2, 1).At(1, 1), 0u);
}

TEST(Bitmap, FitsUpToTwoGigabytes) {
  EXPECT_TRUE(Bitmap::Fits(1, 1, 32));
  EXPECT_FALSE(Bitmap::Fits(0, 1, 32));
  EXPECT_FALSE(Bitmap::Fits(1, 0, 32));
  EXPECT_FALSE(Bitmap::Fits(-1, 1, 32));
  EXPECT_FALSE(Bitmap::Fits(1, -1, 32));
  EXPECT_TRUE(Bitmap::Fits(1 << 14, (1 << 15) - 1, 32));
  EXPECT_FALSE(Bitmap::Fits(1 << 14, 1 << 15, 32));
  EXPECT_TRUE(Bitmap::Fits(16, 0x3FFFFFFF, 1));
  EXPECT_FALSE(Bitmap::Fits(16, 0x40000000, 1));
  EXPECT_FALSE(Bitmap::Fits(0x7FFFFFFF, 0x7FFFFFFF, 32));
}

TEST(Bitmap, WordIsRedGreenBlueFromTheTopAndAColorTheOtherWayRound) {
  Bitmap bitmap(1, 1, 32);
  bitmap.Set(0, 0, 0x123456);
  EXPECT_EQ(bitmap.Words(0)[0], 0x563412u);
  EXPECT_EQ(bitmap.At(0, 0), 0x123456u);
  EXPECT_EQ(SwapRedAndBlue(0xFF123456), 0x563412u);
}

TEST(Bitmap, LeftmostBitIsTheHighest) {
  Bitmap bitmap(10, 1, 1);
  bitmap.Set(0, 0, 1);
  bitmap.Set(9, 0, 0xFFFFFF);
  EXPECT_EQ(bitmap.Bytes(0)[0], 0x80);
  EXPECT_EQ(bitmap.Bytes(0)[1], 0x40);
  EXPECT_EQ(bitmap.At(0, 0), 0xFFFFFFu);
  EXPECT_EQ(bitmap.At(1, 0), 0u);
  bitmap.Set(0, 0, 0);
  EXPECT_EQ(bitmap.Bytes(0)[0], 0x00);
}

TEST(Bitmap, KnowsWhatIsInside) {
  const Bitmap bitmap(3, 2, 32);
  EXPECT_TRUE(bitmap.Contains(0, 0));
  EXPECT_TRUE(bitmap.Contains(2, 1));
  EXPECT_FALSE(bitmap.Contains(3, 1));
  EXPECT_FALSE(bitmap.Contains(2, 2));
  EXPECT_FALSE(bitmap.Contains(-1, 0));
  EXPECT_FALSE(bitmap.Contains(0, -1));
}

TEST(Bitmap, LoadClearsThePaddingOfOneBit) {
  Bitmap bitmap(10, 2, 1);
  const std::array<std::uint8_t, 4> bytes{0xFF, 0xFF, 0x12, 0x7F};
  bitmap.Load(bytes.data());
  std::array<std::uint8_t, 4> out{};
  EXPECT_EQ(bitmap.Store(out), 4u);
  EXPECT_EQ(out, (std::array<std::uint8_t, 4>{0xFF, 0xC0, 0x12, 0x40}));
}

TEST(Bitmap, LoadTakesBlueGreenRedAndDropsTheFourthByte) {
  Bitmap bitmap(2, 1, 32);
  const std::array<std::uint8_t, 8> bytes{1, 2, 3, 0xEE, 4, 5, 6, 0xEE};
  bitmap.Load(bytes.data());
  EXPECT_EQ(bitmap.At(0, 0), 0x010203u);
  EXPECT_EQ(bitmap.At(1, 0), 0x040506u);
  std::array<std::uint8_t, 8> out{};
  EXPECT_EQ(bitmap.Store(out), 8u);
  EXPECT_EQ(out, (std::array<std::uint8_t, 8>{1, 2, 3, 0, 4, 5, 6, 0}));
}

TEST(Bitmap, StoreGivesNoMoreThanThereIsRoomFor) {
  Bitmap bitmap(2, 1, 32);
  bitmap.Set(0, 0, 0x010203);
  std::array<std::uint8_t, 3> out{};
  EXPECT_EQ(bitmap.Store(out), 3u);
  EXPECT_EQ(out, (std::array<std::uint8_t, 3>{1, 2, 3}));
  std::array<std::uint8_t, 1> one{};
  EXPECT_EQ(Bitmap(16, 4, 1).Store(one), 1u);
}

TEST(NearerWhite, WeighsGreenMoreThanRedAndRedMoreThanBlue) {
  EXPECT_TRUE(IsNearerWhite(0xFFFFFF));
  EXPECT_FALSE(IsNearerWhite(0x000000));
  EXPECT_TRUE(IsNearerWhite(0x808080));
  EXPECT_FALSE(IsNearerWhite(0x7F7F7F));
  EXPECT_TRUE(IsNearerWhite(0x00FF00));
  EXPECT_FALSE(IsNearerWhite(0x0000FF));
  EXPECT_FALSE(IsNearerWhite(0xFF0000));
  EXPECT_FALSE(IsNearerWhite(0xFF00FF));
  EXPECT_TRUE(IsNearerWhite(0x00FFFF));
}

}  // namespace
}  // namespace quenzel7::gdi
