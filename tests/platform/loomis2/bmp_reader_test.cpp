#include "platform/loomis2/bmp_reader.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/picture_samples.h"
#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

using test::BmpBytes;
using test::DibSample;
using test::Shown;

const std::vector<std::uint32_t> kMasks{0xFF0000, 0xFF00, 0xFF, 0xFF000000};

TEST(Bmp, HasItsPixelsWhereItsHeaderSays) {
  const DibSample sample{.width = 2, .pixels = {1, 2, 3, 4, 5, 6, 0, 0}};
  EXPECT_EQ(Shown(ReadBmp(BmpBytes(sample))), "030201 060504");
  EXPECT_EQ(Shown(ReadBmp(BmpBytes(sample, 7))), "030201 060504");
}

TEST(Bmp, HasAsManyColoursAsFitBeforeThePixels) {
  const DibSample sample{.width = 3, .bits = 8, .pixels = {0, 1, 2, 0}, .colors = {0x111111, 0x222222}};
  EXPECT_EQ(Shown(ReadBmp(BmpBytes(sample))), "111111 222222 000000");
  EXPECT_EQ(Shown(ReadBmp(BmpBytes(sample, 3))), "111111 222222 000000");
  EXPECT_EQ(Shown(ReadBmp(BmpBytes(sample, 4))), "111111 222222 A5A5A5");
}

TEST(Bmp, MayHaveMoreColoursThanItsPixelsCanName) {
  EXPECT_EQ(Shown(ReadBmp(BmpBytes({.width = 2,
                                    .bits = 1,
                                    .pixels = {0x40, 0, 0, 0},
                                    .colors = {0x111111, 0x222222, 0x333333},
                                    .colorsUsed = 3}))),
            "111111 222222");
}

TEST(Bmp, IsPutOnWhiteWhereItHasAlpha) {
  EXPECT_EQ(
      Shown(ReadBmp(BmpBytes(
          {.width = 2, .bits = 32, .pixels = {1, 2, 3, 0, 0, 0, 0, 0x80}, .header = 108, .masks = kMasks}))),
      "FFFFFF 7F7F7F");
}

TEST(Bmp, WithoutAnyAlphaIsOpaque) {
  EXPECT_EQ(Shown(ReadBmp(
                BmpBytes({.width = 1, .bits = 32, .pixels = {1, 2, 3, 0}, .header = 108, .masks = kMasks}))),
            "030201");
  EXPECT_EQ(Shown(ReadBmp(BmpBytes({.width = 1, .bits = 32, .pixels = {1, 2, 3, 0x80}}))), "030201");
}

TEST(Bmp, WithPixelsInsideItsHeaderIsRefused) {
  std::vector<Byte> file = BmpBytes({.pixels = {1, 2, 3, 0}});
  file[10] = 53;
  EXPECT_RAISES(481, "pixels from byte 53 on cannot be: the header ends at byte 54", ReadBmp(file));
  std::vector<Byte> masked = BmpBytes({.bits = 32, .pixels = {1, 2, 3, 0}, .coding = 3, .masks = {1, 2, 4}});
  masked[10] = 54;
  EXPECT_RAISES(481, "pixels from byte 54 on cannot be: the header ends at byte 66", ReadBmp(masked));
}

TEST(Bmp, WithPixelsBeyondItsEndIsRefused) {
  std::vector<Byte> file = BmpBytes({.pixels = {1, 2, 3, 0}});
  file[10] = 59;
  EXPECT_RAISES(481, "the bmp file ends after 58 bytes: expected 5 from byte 54 on", ReadBmp(file));
  file[10] = 58;
  EXPECT_RAISES(481, "the bmp file ends after 58 bytes: expected 4 from byte 58 on", ReadBmp(file));
  file[13] = 0xFF;
  EXPECT_RAISES(481, "the bmp file ends after 58 bytes: expected 4278190084 from byte 54 on", ReadBmp(file));
}

TEST(Bmp, ThatEndsEarlyIsRefused) {
  const std::vector<std::uint32_t> colors{0x111111, 0x222222};
  for (const DibSample& sample :
       {DibSample{.width = 2, .height = 2, .bits = 1, .pixels = {1, 2, 3, 4, 5, 6, 7, 8}, .colors = colors},
        DibSample{.width = 2, .pixels = {1, 2, 3, 4, 5, 6, 7, 8}, .header = 12},
        DibSample{.width = 2, .bits = 32, .pixels = {1, 2, 3, 4, 5, 6, 7, 8}, .header = 124, .masks = kMasks},
        DibSample{.width = 2, .bits = 32, .pixels = {1, 2, 3, 4, 5, 6, 7, 8}, .coding = 6, .masks = kMasks},
        DibSample{.width = 3,
        .height = 2,
        .bits = 8,
        .pixels = {3, 1, 0, 0, 0, 3, 1, 0, 1, 0, 0, 1},
        .colors = colors,
        .coding = 1},
        DibSample{.width = 3,
        .height = 2,
        .bits = 4,
        .pixels = {3, 1, 0, 2, 0, 1, 1, 0, 0, 1},
        .colors = colors,
        .coding = 2}}) {
    test::ExpectNoBeginningIsAnotherPicture(BmpBytes(sample));
  }
  std::vector<Byte> file = BmpBytes({.pixels = {1, 2, 3, 0}});
  file.resize(13);
  EXPECT_RAISES(481, "the bmp file ends after 13 bytes: expected 4 from byte 10 on", ReadBmp(file));
  file.resize(9);
  EXPECT_RAISES(481, "the bmp file ends after 9 bytes: expected 10 from byte 0 on", ReadBmp(file));
}

}  // namespace
}  // namespace quenzel7::loomis2
