#include "platform/loomis2/run_length.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/loomis2/new_picture.h"
#include "tests/support/picture_samples.h"
#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

/// Sixteen colours whose words are their numbers.
ColorTable Numbered() {
  std::vector<std::uint32_t> colors;
  for (std::uint32_t number = 0; number < 16; ++number) colors.push_back(number);
  return ColorTable(colors);
}

/// The picture that the bytes paint: a letter of each pixel's number, and a point where none was painted.
std::string Painted(const std::vector<Byte>& bytes, int bits, Long width, Long height) {
  ByteReader reader(bytes, "it");
  Picture picture = WhitePicture(width, height);
  ReadRuns(reader, bits, Numbered(), picture);
  std::string text;
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    if (i != 0 && i % static_cast<std::size_t>(width) == 0) text += '/';
    text += picture.pixels[i] == kWhite ? '.' : "0123456789ABCDEF"[picture.pixels[i]];
  }
  return text;
}

TEST(Runs, OfEightBitsRepeatAPixel) { EXPECT_EQ(Painted({3, 7, 1, 2, 0, 1}, 8, 4, 1), "7772"); }

TEST(Runs, OfFourBitsRepeatTwoPixelsInTurn) {
  EXPECT_EQ(Painted({5, 0xA3, 1, 0x4F, 0, 1}, 4, 6, 1), "A3A3A4");
}

TEST(Runs, PaintTheLowestRowFirst) {
  EXPECT_EQ(Painted({2, 1, 0, 0, 2, 2, 0, 0, 2, 3, 0, 1}, 8, 2, 3), "33/22/11");
}

TEST(Runs, ThatEndARowEarlyLeaveTheRest) {
  EXPECT_EQ(Painted({1, 1, 0, 0, 0, 0, 3, 2, 0, 1}, 8, 3, 4), ".../222/.../1..");
}

TEST(Runs, EndWithTheBitmapAndLeaveTheRest) { EXPECT_EQ(Painted({2, 1, 0, 1, 9, 9}, 8, 3, 2), ".../11."); }

TEST(Runs, FollowPixelsThatStandOneByOne) {
  EXPECT_EQ(Painted({0, 4, 1, 2, 3, 4, 1, 5}, 8, 5, 1), "12345");
  EXPECT_EQ(Painted({0, 4, 0x12, 0x34, 1, 0x50}, 4, 5, 1), "12345");
}

TEST(Runs, OfPixelsOneByOneFillPairsOfBytes) {
  EXPECT_EQ(Painted({0, 3, 1, 2, 3, 99, 1, 4}, 8, 4, 1), "1234");
  EXPECT_EQ(Painted({0, 3, 0x12, 0x3F, 1, 0x40}, 4, 4, 1), "1234");
  EXPECT_EQ(Painted({0, 5, 0x12, 0x34, 0x5F, 99, 1, 0x60}, 4, 6, 1), "123456");
  EXPECT_EQ(Painted({0, 8, 0x12, 0x34, 0x56, 0x78, 1, 0x90}, 4, 9, 1), "123456789");
  EXPECT_EQ(Painted({0, 9, 0x12, 0x34, 0x56, 0x78, 0x9F, 99, 1, 0xA0}, 4, 10, 1), "123456789A");
}

TEST(Runs, OfManyPixelsOneByOne) {
  std::vector<Byte> bytes{0, 255};
  bytes.resize(2 + 256, 5);
  bytes.insert(bytes.end(), {1, 6});
  EXPECT_EQ(Painted(bytes, 8, 256, 1), std::string(255, '5') + "6");
  bytes.assign({0, 255});
  bytes.resize(2 + 128, 0x55);
  bytes.insert(bytes.end(), {1, 0x60});
  EXPECT_EQ(Painted(bytes, 4, 256, 1), std::string(255, '5') + "6");
}

TEST(Runs, SkipToTheRightAndUp) {
  EXPECT_EQ(Painted({1, 1, 0, 2, 2, 1, 1, 2, 0, 1}, 8, 4, 3), "..../...2/1...");
  EXPECT_EQ(Painted({1, 0x10, 0, 2, 0, 2, 1, 0x20, 0, 1}, 4, 2, 3), ".2/../1.");
}

TEST(Runs, AreCutAtTheRightEdge) {
  EXPECT_EQ(Painted({9, 1, 0, 0, 1, 2, 0, 1}, 8, 3, 2), "2../111");
  EXPECT_EQ(Painted({0, 4, 1, 2, 3, 4, 1, 5, 0, 0, 1, 6, 0, 1}, 8, 3, 2), "6../123");
  EXPECT_EQ(Painted({0, 2, 255, 0, 5, 1, 0, 2, 255, 0, 5, 1, 0, 0, 2, 2, 0, 1}, 8, 300, 2).substr(0, 3),
            "22.");
}

TEST(Runs, ThatNeverEndTheirRowAreReadToItsEndAndOn) {
  std::vector<Byte> bytes;
  for (int i = 0; i < 100000; ++i) bytes.insert(bytes.end(), {1, 7, 255, 8, 0, 4, 9, 9, 9, 9});
  bytes.insert(bytes.end(), {0, 0, 255, 5});
  EXPECT_EQ(Painted(bytes, 8, 1, 2), "5/7");
  EXPECT_EQ(Painted(bytes, 8, 3, 2), "555/788");
}

TEST(Runs, SkippedPastTheRightEdgePaintNothing) {
  EXPECT_EQ(Painted({0, 2, 3, 0, 1, 9, 0, 0, 1, 2, 0, 1}, 8, 3, 2), "2../...");
}

TEST(Runs, ThatLeaveTheTopPaintNothingMore) {
  EXPECT_EQ(Painted({1, 1, 0, 2, 0, 2}, 8, 2, 2), "../1.");
  EXPECT_EQ(Painted({1, 1, 0, 2, 0, 9}, 8, 2, 2), "../1.");
  EXPECT_EQ(Painted({1, 1, 0, 0, 1, 2, 0, 0}, 8, 2, 2), "2./1.");
}

TEST(Runs, NeedNoEndAfterTheLastPixel) {
  EXPECT_EQ(Painted({2, 1, 0, 0, 2, 2}, 8, 2, 2), "22/11");
  EXPECT_EQ(Painted({2, 1, 0, 0, 3, 2}, 8, 2, 2), "22/11");
}

TEST(Runs, ThatStopBeforeTheLastPixelAreRefused) {
  EXPECT_RAISES(481, "it ends after 6 bytes: expected 1 from byte 6 on",
                Painted({2, 1, 0, 0, 1, 2}, 8, 2, 2));
  EXPECT_RAISES(481, "it ends after 3 bytes: expected 1 from byte 3 on", Painted({2, 1, 0}, 8, 2, 2));
  EXPECT_RAISES(481, "it ends after 2 bytes: expected 1 from byte 2 on", Painted({2, 1}, 8, 2, 2));
  EXPECT_RAISES(481, "it ends after 5 bytes: expected 4 from byte 2 on", Painted({0, 3, 1, 2, 3}, 8, 3, 1));
  EXPECT_RAISES(481, "it ends after 3 bytes: expected 1 from byte 3 on", Painted({0, 2, 1}, 8, 3, 1));
}

TEST(Runs, OfColoursBeyondTheTableAreBlack) { EXPECT_EQ(Painted({1, 200, 1, 15}, 8, 2, 1), "0F"); }

}  // namespace
}  // namespace quenzel7::loomis2
