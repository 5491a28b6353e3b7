#include "platform/loomis2/gif_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/platform/automation/allocation_watch.h"
#include "tests/support/coded_pictures.h"
#include "tests/support/picture_samples.h"
#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

using Bytes = std::vector<Byte>;
using test::GifBytes;
using test::GifSample;

const std::vector<std::uint32_t> kColors{0x111111, 0xFF0102, 0x03FE04, 0x0506FD};

std::string Shows(const GifSample& sample) { return test::Shown(ReadGif(GifBytes(sample))); }

GifSample Small() {
  return {
      .width = 2, .height = 2, .colors = kColors, .frameWidth = 2, .frameHeight = 2, .pixels = {0, 1, 2, 3}};
}

/// Where the frame's description begins when there are four colours before it and nothing else.
constexpr std::size_t kFrame = 13 + 4 * 3;

TEST(Gif, HasTheColoursOfItsScreen) { EXPECT_EQ(Shows(Small()), "111111 FF0102 / 03FE04 0506FD"); }

TEST(Gif, HasTheColoursOfItsFrameBeforeThoseOfItsScreen) {
  GifSample sample = Small();
  sample.ownColors = {0xA00000, 0xB00000, 0xC00000, 0xD00000};
  EXPECT_EQ(Shows(sample), "A00000 B00000 / C00000 D00000");
  sample.colors = {};
  EXPECT_EQ(Shows(sample), "A00000 B00000 / C00000 D00000");
}

TEST(Gif, WithoutColoursIsRefused) {
  Bytes file = GifBytes(Small());
  file.erase(file.begin() + 13, file.begin() + kFrame);
  file[10] = static_cast<Byte>(file[10] & 0x7F);
  EXPECT_RAISES(481, "the gif file has no colours", ReadGif(file));
}

TEST(Gif, OfColoursBeyondItsTableIsBlackThere) {
  Bytes file = GifBytes(Small());
  // Two of the four colours.
  file.erase(file.begin() + 19, file.begin() + kFrame);
  file[10] = static_cast<Byte>(file[10] & 0xF8);
  EXPECT_EQ(test::Shown(ReadGif(file)), "111111 FF0102 / 000000 000000");
}

TEST(Gif, IsWhiteWhereItIsTransparent) {
  GifSample sample = Small();
  sample.transparent = 2;
  EXPECT_EQ(Shows(sample), "111111 FF0102 / FFFFFF 0506FD");
  sample.transparent = 0;
  EXPECT_EQ(Shows(sample), "FFFFFF FF0102 / 03FE04 0506FD");
  sample.transparent = -1;
  EXPECT_EQ(Shows(sample), "111111 FF0102 / 03FE04 0506FD");
}

TEST(Gif, PassesOverOtherExtensions) {
  Bytes file = GifBytes(Small());
  const Bytes comment{0x21, 0xFE, 4, 1, 0, 0, 1, 2, 9, 9, 0};
  file.insert(file.begin() + kFrame, comment.begin(), comment.end());
  EXPECT_EQ(test::Shown(ReadGif(file)), "111111 FF0102 / 03FE04 0506FD");
  // A description of the wrong length is none.
  const Bytes wrong{0x21, 0xF9, 3, 1, 0, 0, 0};
  file.insert(file.begin() + kFrame, wrong.begin(), wrong.end());
  EXPECT_EQ(test::Shown(ReadGif(file)), "111111 FF0102 / 03FE04 0506FD");
  // The other extensions do not take back what is transparent.
  const Bytes transparent{0x21, 0xF9, 4, 1, 0, 0, 1, 0};
  file.insert(file.begin() + kFrame, transparent.begin(), transparent.end());
  EXPECT_EQ(test::Shown(ReadGif(file)), "111111 FFFFFF / 03FE04 0506FD");
}

TEST(Gif, HasNothingTransparentWhereASecondDescriptionTakesItBack) {
  Bytes file = GifBytes(Small());
  const Bytes descriptions{0x21, 0xF9, 4, 1, 0, 0, 1, 0, 0x21, 0xF9, 4, 0, 0, 0, 1, 0};
  file.insert(file.begin() + kFrame, descriptions.begin(), descriptions.end());
  EXPECT_EQ(test::Shown(ReadGif(file)), "111111 FF0102 / 03FE04 0506FD");
}

TEST(Gif, IsWhiteWhereTheFrameDoesNotReach) {
  GifSample sample = Small();
  sample.width = 4;
  sample.height = 3;
  sample.left = 1;
  sample.top = 1;
  EXPECT_EQ(Shows(sample),
            "FFFFFF FFFFFF FFFFFF FFFFFF / FFFFFF 111111 FF0102 FFFFFF / FFFFFF 03FE04 0506FD FFFFFF");
}

TEST(Gif, IsCutWhereTheFrameLeavesTheScreen) {
  GifSample sample = Small();
  sample.left = 1;
  EXPECT_EQ(Shows(sample), "FFFFFF 111111 / FFFFFF 03FE04");
  sample.left = 0;
  sample.top = 1;
  EXPECT_EQ(Shows(sample), "FFFFFF FFFFFF / 111111 FF0102");
  sample.left = 2;
  sample.top = 0;
  EXPECT_EQ(Shows(sample), "FFFFFF FFFFFF / FFFFFF FFFFFF");
  sample.left = 65535;
  sample.top = 65535;
  EXPECT_EQ(Shows(sample), "FFFFFF FFFFFF / FFFFFF FFFFFF");
  sample = Small();
  sample.width = sample.height = 1;
  EXPECT_EQ(Shows(sample), "111111");
  const Picture wide = ReadGif(GifBytes(
      {.width = 5000, .colors = kColors, .frameWidth = 5000, .frameHeight = 2, .pixels = Bytes(10000, 1)}));
  EXPECT_EQ(wide.pixels, std::vector<std::uint32_t>(5000, 0xFF0102));
}

TEST(Gif, MayHaveItsRowsInterlaced) {
  for (const int height : {1, 2, 3, 4, 5, 8, 9, 17}) {
    GifSample sample{.width = 1, .height = height, .frameHeight = height, .isInterlaced = true};
    std::string expected;
    for (int y = 0; y < height; ++y) {
      sample.colors.push_back(static_cast<std::uint32_t>(0x100000 + y));
      sample.pixels.push_back(static_cast<Byte>(y));
      expected +=
          (y == 0 ? "1000" : " / 1000") + std::string(y < 16 ? "0" : "1") + "0123456789ABCDEF"[y % 16];
    }
    EXPECT_EQ(Shows(sample), expected);
  }
}

TEST(Gif, OfSeveralFramesIsTheFirst) {
  Bytes file = GifBytes(Small());
  GifSample other = Small();
  other.pixels = {3, 3, 3, 3};
  const Bytes second = GifBytes(other);
  file.pop_back();
  file.insert(file.end(), second.begin() + kFrame, second.end());
  EXPECT_EQ(test::Shown(ReadGif(file)), "111111 FF0102 / 03FE04 0506FD");
}

TEST(Gif, WithoutAFrameIsRefused) {
  Bytes file = GifBytes(Small());
  file[kFrame] = 0x3B;
  EXPECT_RAISES(481, "the gif file has no picture", ReadGif(file));
  file[kFrame] = 0x3C;
  EXPECT_RAISES(481, "the gif file cannot be read: Wrong record type detected", ReadGif(file));
}

TEST(Gif, OfNoSizeIsRefused) {
  Bytes file = GifBytes(Small());
  file[6] = 0;
  EXPECT_RAISES(481, "a picture of 0 x 2 pixels cannot be: expected at least 1 x 1", ReadGif(file));
  file[6] = 2;
  file[kFrame + 7] = 0;
  EXPECT_RAISES(481, "a picture of 2 x 0 pixels cannot be: expected at least 1 x 1", ReadGif(file));
}

TEST(Gif, OfAHugeSizeIsRefusedBeforeMemoryIsTaken) {
  for (const std::size_t place : {std::size_t{6}, kFrame + 5}) {
    Bytes file = GifBytes(Small());
    const automation::AllocationWatch watch;
    for (const std::size_t at : {place, place + 2}) {
      file[at] = 0x20;
      file[at + 1] = 0x4E;
    }
    EXPECT_RAISES(481, "a picture of 20000 x 20000 pixels is too large: expected at most 67108864",
                  ReadGif(file));
    for (const std::size_t at : {place + 1, place + 3}) file[at] = 0x0F;
    EXPECT_RAISES(481,
                  "a picture of 3872 x 3872 pixels is too large for " + std::to_string(file.size()) +
                      " bytes: expected at most 4096 pixels a byte",
                  ReadGif(file));
    EXPECT_LT(watch.Biggest(), 1000u);
  }
}

TEST(Gif, WithDamagedPixelsIsRefused) {
  Bytes file = GifBytes(Small());
  file[kFrame + 10] = 13;
  EXPECT_EQ(test::ErrorOf([&] { ReadGif(file); }), 481);
}

TEST(Gif, ThatEndsEarlyIsRefused) {
  GifSample sample = Small();
  sample.transparent = 1;
  sample.ownColors = kColors;
  const Bytes file = GifBytes(sample);
  test::ExpectNoBeginningIsAnotherPicture(file);
  test::ExpectNoBeginningIsAnotherPicture(GifBytes(Small()));
  test::ExpectNoBeginningIsAnotherPicture(GifBytes({.width = 1,
                                                    .height = 9,
                                                    .colors = kColors,
                                                    .frameHeight = 9,
                                                    .pixels = {0, 1, 2, 3, 2, 1, 0, 1, 2},
                                                    .isInterlaced = true}));
  EXPECT_RAISES(481, "the gif file cannot be read: Failed to read from given file",
                ReadGif(std::span(file).first(5)));
  EXPECT_RAISES(481, "the gif file cannot be read: Failed to read from given file",
                ReadGif(std::span(file).first(kFrame + 3)));
  EXPECT_RAISES(481, "the gif file cannot be read: Data is not in GIF format", ReadGif(Bytes(20, 'G')));
}

}  // namespace
}  // namespace quenzel7::loomis2
