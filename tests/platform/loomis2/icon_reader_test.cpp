#include "platform/loomis2/icon_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/platform/automation/allocation_watch.h"
#include "tests/support/coded_pictures.h"
#include "tests/support/picture_samples.h"
#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

using test::DibBytes;
using test::DibSample;
using test::IconBytes;
using test::PngBytes;
using test::RaisedBy;
using test::Shown;

using Bytes = std::vector<Byte>;

std::string Shows(const std::vector<Bytes>& pictures) { return Shown(ReadIcon(IconBytes(1, pictures))); }
std::string Shows(const DibSample& sample) { return Shows({DibBytes(sample)}); }

/// An opaque picture of one colour: measures, depth, and the byte that its pixels are made of.
Bytes Plain(std::int32_t width, std::int32_t height, std::uint32_t bits, Byte pixel) {
  const std::uint32_t row = (static_cast<std::uint32_t>(width) * bits + 31) / 32 * 4;
  const std::vector<std::uint32_t> colors(bits <= 8 ? std::size_t{1} << bits : 0, pixel * 0x010101u);
  Bytes pixels(row * static_cast<std::uint32_t>(height), pixel);
  for (std::size_t i = 3; bits == 32 && i < pixels.size(); i += 4) pixels[i] = 0xFF;
  return DibBytes({.width = width, .height = 2 * height, .bits = bits, .pixels = pixels, .colors = colors});
}

/// The first pixel of the picture that is taken.
std::string Taken(const std::vector<Bytes>& pictures) { return Shows(pictures).substr(0, 6); }

TEST(Icon, OfOneBitIsWhereItsMaskIsClear) {
  EXPECT_EQ(Shows({.width = 3,
                   .height = 4,
                   .bits = 1,
                   .pixels = {0x40, 0, 0, 0, 0x80, 0, 0, 0, 0x20, 0, 0, 0, 0xC0, 0, 0, 0},
                   .colors = {0x111111, 0x222222}}),
            "FFFFFF FFFFFF 111111 / 111111 222222 FFFFFF");
}

TEST(Icon, OfEveryDepthHasItsMaskAfterItsPixels) {
  const Bytes mask{0x40, 0, 0, 0};
  const auto withMask = [&mask](Bytes pixels) {
    pixels.insert(pixels.end(), mask.begin(), mask.end());
    return pixels;
  };
  const std::vector<std::uint32_t> colors{0x111111, 0x222222};
  std::vector<std::uint32_t> sixteen = colors, all = colors;
  sixteen.resize(16);
  all.resize(256);
  EXPECT_EQ(
      Shows({.width = 2, .height = 2, .bits = 4, .pixels = withMask({0x10, 0, 0, 0}), .colors = sixteen}),
      "222222 FFFFFF");
  EXPECT_EQ(Shows({.width = 2, .height = 2, .bits = 8, .pixels = withMask({1, 0, 0, 0}), .colors = all}),
            "222222 FFFFFF");
  EXPECT_EQ(Shows({.width = 2,
                   .height = 2,
                   .bits = 8,
                   .pixels = withMask({1, 0, 0, 0}),
                   .colors = colors,
                   .colorsUsed = 2}),
            "222222 FFFFFF");
  EXPECT_EQ(Shows({.width = 2, .height = 2, .bits = 16, .pixels = withMask({0x1F, 0, 0, 0})}),
            "0000FF FFFFFF");
  EXPECT_EQ(Shows({.width = 2, .height = 2, .pixels = withMask({1, 2, 3, 4, 5, 6, 0, 0})}), "030201 FFFFFF");
  EXPECT_EQ(Shows({.width = 2, .height = 2, .bits = 32, .pixels = withMask({1, 2, 3, 0, 4, 5, 6, 0})}),
            "030201 FFFFFF");
  // Colours that only help to show it on few of them come before the pixels as well.
  EXPECT_EQ(Shows({.width = 2,
                   .height = 2,
                   .pixels = withMask({1, 2, 3, 4, 5, 6, 0, 0}),
                   .colors = colors,
                   .colorsUsed = 2}),
            "030201 FFFFFF");
}

TEST(Icon, RowsOfTheMaskAreWholeFoursOfBytes) {
  Bytes pixels(36 * 2);
  pixels.insert(pixels.end(), {0, 0, 0, 0, 0x40, 0, 0, 0, 0x80, 0, 0, 0, 0x40, 0, 0, 0});
  std::vector<std::uint32_t> colors(256);
  const std::string shown = Shows({.width = 34, .height = 4, .bits = 8, .pixels = pixels, .colors = colors});
  std::string upper = "FFFFFF", lower = "000000";
  for (int x = 1; x < 34; ++x) {
    for (std::string* row : {&upper, &lower}) *row += x == 33 ? " FFFFFF" : " 000000";
  }
  EXPECT_EQ(shown, upper + " / " + lower);
}

TEST(Icon, HasNoMaskBeyondItsWidth) {
  EXPECT_EQ(Shows({.width = 1,
                   .height = 6,
                   .pixels = {1,    0,   0,   0,   2,    0,   0,   0,   3,    0,   0,   0,  //
                              0x7F, 255, 255, 255, 0x7F, 255, 255, 255, 0x7F, 255, 255, 255}}),
            "000003 / 000002 / 000001");
}

TEST(Icon, IsWhiteWhereItWouldInvertTheScreen) {
  EXPECT_EQ(Shows({.width = 1, .height = 2, .pixels = {0, 0, 0xFF, 0, 0x80, 0, 0, 0}}), "FFFFFF");
}

TEST(Icon, WithAlphaIsPutOnWhiteAndItsMaskDoesNotCount) {
  EXPECT_EQ(Shows({.width = 3,
                   .height = 2,
                   .bits = 32,
                   .pixels = {1, 2, 3, 0xFF, 0, 0, 0, 0x80, 9, 9, 9, 0, 0x80, 0, 0, 0}}),
            "030201 7F7F7F FFFFFF");
  EXPECT_EQ(Shows({.width = 1,
                   .height = 2,
                   .bits = 32,
                   .pixels = {0x80, 1, 2, 3},
                   .coding = 6,
                   .masks = {0xFF000000, 0xFF0000, 0xFF00, 0xFF}}),
            "818080");
}

TEST(Icon, HasNoAlphaInBitsOfItsColours) {
  const Bytes pixels{0x33, 0x11, 0x22, 0x80, 0x33, 0x11, 0x22, 0, 0x40, 0, 0, 0};
  EXPECT_EQ(Shows({.width = 2,
                   .height = 2,
                   .bits = 32,
                   .pixels = pixels,
                   .coding = 3,
                   .masks = {0xFF000000, 0xFF0000, 0xFF00}}),
            "802211 FFFFFF");
  EXPECT_EQ(Shows({.width = 2,
                   .height = 2,
                   .bits = 32,
                   .pixels = pixels,
                   .coding = 3,
                   .masks = {0xFF, 0xFF000000, 0xFF00}}),
            "338011 FFFFFF");
  EXPECT_EQ(Shows({.width = 2,
                   .height = 2,
                   .bits = 32,
                   .pixels = pixels,
                   .coding = 3,
                   .masks = {0xFF, 0xFF0000, 0x01000000}}),
            "332200 FFFFFF");
  // The byte is free here, and the mask does not count.
  EXPECT_EQ(Shows({.width = 2,
                   .height = 2,
                   .bits = 32,
                   .pixels = pixels,
                   .coding = 3,
                   .masks = {0xFF, 0xFF0000, 0xFF00}}),
            "999088 FFFFFF");
}

TEST(Icon, MayBeABlankPngOfManyPixels) {
  const Bytes png =
      PngBytes({.width = 4096, .height = 4096, .bits = 1, .colorType = 0, .rows = Bytes(4096 * 512, 0xFF)});
  EXPECT_EQ(ReadIcon(IconBytes(1, {png})).pixels, std::vector<std::uint32_t>(4096 * 4096, 0xFFFFFF));
}

TEST(Icon, FromTheTopDownHasItsMaskSoToo) {
  EXPECT_EQ(Shows({.width = 1, .height = -4, .pixels = {1, 0, 0, 0, 2, 0, 0, 0, 0x80, 0, 0, 0, 0, 0, 0, 0}}),
            "FFFFFF / 000002");
}

TEST(Icon, IsOpaqueWhereItsMaskIsMissing) {
  const Bytes pixels{1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0, 0x80, 0, 0, 0, 0x80};
  EXPECT_EQ(Shows({.width = 1, .height = 6, .pixels = pixels}), "000003 / FFFFFF / FFFFFF");
  EXPECT_EQ(Shows({.width = 1, .height = 6, .pixels = {pixels.begin(), pixels.begin() + 16}}),
            "000003 / 000002 / FFFFFF");
  EXPECT_EQ(Shows({.width = 1, .height = 6, .pixels = {pixels.begin(), pixels.begin() + 12}}),
            "000003 / 000002 / 000001");
  EXPECT_EQ(
      RaisedBy([&] {
        Shows({.width = 1, .height = 6, .pixels = {pixels.begin(), pixels.begin() + 11}});
      }),
      (test::Raised{481, "picture 1 of the icon file ends after 51 bytes: expected 12 from byte 40 on"}));
}

TEST(Icon, MayBeACursor) { EXPECT_EQ(Shown(ReadIcon(IconBytes(2, {Plain(1, 1, 24, 0x12)}))), "121212"); }

TEST(Icon, OfSeveralPicturesIsTheLargest) {
  EXPECT_EQ(Taken({Plain(2, 2, 24, 1), Plain(3, 2, 8, 2), Plain(1, 5, 24, 3)}), "020202");
  EXPECT_EQ(Taken({Plain(5, 1, 24, 1), Plain(2, 3, 8, 2), Plain(2, 2, 24, 3)}), "020202");
}

TEST(Icon, OfSeveralLargestIsTheDeepest) {
  EXPECT_EQ(Taken({Plain(2, 2, 8, 1), Plain(2, 2, 24, 2), Plain(2, 2, 16, 3)}), "020202");
}

TEST(Icon, OfSeveralThatAreAsLargeAndDeepIsTheFirst) {
  EXPECT_EQ(Taken({Plain(1, 1, 24, 9), Plain(2, 2, 24, 1), Plain(4, 1, 24, 2)}), "010101");
}

TEST(Icon, MayBeAPng) {
  EXPECT_EQ(Shows({PngBytes({.width = 2, .rows = {1, 2, 3, 0xFF, 0, 0, 0, 0}})}), "010203 FFFFFF");
  EXPECT_EQ(Taken({Plain(2, 1, 32, 9), PngBytes({.width = 3, .colorType = 0, .rows = {1, 2, 3}})}), "010101");
  EXPECT_EQ(Taken({Plain(3, 1, 32, 9), PngBytes({.width = 2, .colorType = 0, .rows = {1, 2}})}), "090909");
  EXPECT_EQ(Taken({Plain(3, 1, 32, 9), PngBytes({.height = 4, .colorType = 0, .rows = {1, 2, 3, 4}})}),
            "010101");
}

TEST(Icon, KnowsHowLargeALargePngIs) {
  const Bytes png = PngBytes({.width = 300, .colorType = 0, .rows = Bytes(300, 1)});
  EXPECT_EQ(Taken({Plain(299, 1, 8, 9), png}), "010101");
  EXPECT_EQ(Taken({Plain(301, 1, 8, 9), png}), "090909");
}

TEST(Icon, KnowsHowDeepAPngIs) {
  struct Case {
    test::PngSample png;
    std::uint32_t depth, less;
  };
  const std::vector<std::uint32_t> colors(200, 0x010101);
  for (const Case& one : {Case{{.bits = 8, .colorType = 0, .rows = {1}}, 8, 4},
                          Case{{.bits = 16, .colorType = 0, .rows = {1, 1}}, 16, 8},
                          Case{{.bits = 8, .colorType = 2, .rows = {1, 1, 1}}, 24, 16},
                          Case{{.bits = 8, .colorType = 3, .rows = {7}, .colors = colors}, 8, 4},
                          Case{{.bits = 8, .colorType = 4, .rows = {1, 255}}, 16, 8},
                          Case{{.bits = 8, .colorType = 6, .rows = {1, 1, 1, 255}}, 32, 24}}) {
    const Bytes png = PngBytes(one.png);
    EXPECT_EQ(Taken({Plain(1, 1, one.less, 9), png}), "010101") << one.png.colorType;
    EXPECT_EQ(Taken({png, Plain(1, 1, one.depth, 9)}), "010101") << one.png.colorType;
    EXPECT_EQ(Taken({Plain(1, 1, one.depth, 9), png}), Taken({Plain(1, 1, one.depth, 9)}))
        << one.png.colorType;
  }
}

TEST(Icon, TakesAPngOfUnknownColoursAsTheShallowest) {
  for (const Byte colorType : {Byte{1}, Byte{5}, Byte{7}, Byte{255}}) {
    Bytes png = PngBytes({.rows = {1, 1, 1, 255}});
    png[25] = colorType;
    EXPECT_EQ(Taken({png, Plain(1, 1, 1, 9)}), "090909");
    EXPECT_EQ(RaisedBy([&] { Shows({png}); }).number, 481);
  }
}

TEST(Icon, WithoutPicturesIsRefused) {
  EXPECT_RAISES(481, "the icon file has no picture", ReadIcon(IconBytes(1, {})));
}

TEST(Icon, WithAnOddNumberOfRowsIsRefused) {
  EXPECT_RAISES(481, "picture 2 of the icon file has 3 rows with its mask: expected an even number",
                ReadIcon(IconBytes(1, {Plain(1, 1, 24, 1), DibBytes({.height = 3})})));
}

TEST(Icon, CodedInRunsIsRefused) {
  for (const std::uint32_t bits : {8u, 4u}) {
    EXPECT_RAISES(
        481, "picture 1 of the icon file is coded in runs, which icons cannot be",
        ReadIcon(IconBytes(1, {DibBytes({.height = 2, .bits = bits, .coding = bits == 8 ? 1u : 2u})})));
  }
}

TEST(Icon, WithAPictureOutsideOfTheFileIsRefusedWhicheverItIs) {
  for (const std::size_t entry : {0u, 1u}) {
    Bytes file = IconBytes(1, {Plain(1, 1, 24, 1), Plain(2, 2, 24, 2)});
    ++file[6 + 16 * entry + 11];
    EXPECT_EQ(RaisedBy([&] { ReadIcon(file); }).number, 481);
    --file[6 + 16 * entry + 11];
    file[6 + 16 * entry + 15] = 0x7F;
    EXPECT_RAISES(481,
                  "the icon file ends after 138 bytes: expected " +
                      std::to_string(0x7F000000 + (entry == 0 ? 38 : 82)) + " from byte 0 on",
                  ReadIcon(file));
  }
}

TEST(Icon, WithAHeaderThatCannotBeReadIsRefusedWhicheverItIs) {
  Bytes bad = Plain(1, 1, 24, 1);
  bad[0] = 41;
  EXPECT_EQ(
      RaisedBy([&] {
        Shows({Plain(2, 2, 24, 2), bad});
      }),
      (test::Raised{481, "a bitmap header of 41 bytes cannot be read: expected 12, 40, 52, 56, 108 or 124"}));
  const Bytes png{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I', 'H', 'D', 'R', 0, 0, 0, 1};
  EXPECT_EQ(
      RaisedBy([&] {
        Shows({Plain(2, 2, 24, 2), png});
      }),
      (test::Raised{481, "picture 2 of the icon file ends after 20 bytes: expected 4 from byte 20 on"}));
}

TEST(Icon, WithMoreColoursThanBytesIsRefused) {
  EXPECT_EQ(
      RaisedBy([] {
        Shows(DibSample{.height = 2, .bits = 8, .pixels = {1, 2, 3, 4}, .colorsUsed = 0xFFFFFFFF});
      }),
      (test::Raised{481,
                    "picture 1 of the icon file ends after 44 bytes: expected 17179869180 from byte 40 on"}));
}

TEST(Icon, OfAHugeSizeIsRefusedBeforeMemoryIsTaken) {
  const automation::AllocationWatch watch;
  const std::string description = "a picture of 20000 x 20000 pixels is too large: expected at most 67108864";
  EXPECT_EQ(RaisedBy([] { Shows({.width = 20000, .height = 40000, .pixels = {1}}); }),
            (test::Raised{481, description}));
  EXPECT_EQ(RaisedBy([] { Shows({test::PngHeader(20000, 20000)}); }), (test::Raised{481, description}));
  EXPECT_EQ(RaisedBy([] { Shows({.width = 0, .height = 2, .pixels = {1}}); }),
            (test::Raised{481, "a picture of 0 x 1 pixels cannot be: expected at least 1 x 1"}));
  EXPECT_LT(watch.Biggest(), 1000u);
}

TEST(Icon, WithMeasuresThatCannotBeIsRefusedWhateverElseItHolds) {
  EXPECT_EQ(RaisedBy([] {
              Shows({Plain(2, 2, 24, 1), DibBytes({.width = -1, .height = 2})});
            }),
            (test::Raised{481, "a picture of -1 x 1 pixels cannot be: expected at least 1 x 1"}));
  EXPECT_EQ(RaisedBy([] {
              Shows({Plain(2, 2, 24, 1), test::PngHeader(0xFFFFFFFF, 0xFFFFFFFF)});
            }).number,
            481);
}

TEST(Icon, ThatEndsEarlyIsRefused) {
  test::ExpectNoBeginningIsAnotherPicture(
      IconBytes(1, {Plain(2, 1, 24, 1), Plain(2, 2, 4, 2), Plain(1, 1, 1, 3)}));
  test::ExpectNoBeginningIsAnotherPicture(IconBytes(2, {Plain(2, 1, 24, 1), Plain(2, 2, 32, 2)}));
  test::ExpectNoBeginningIsAnotherPicture(
      IconBytes(1, {Plain(1, 1, 8, 1), PngBytes({.width = 2, .rows = {1, 2, 3, 255, 5, 6, 7, 8}})}));
  EXPECT_RAISES(481, "the icon file ends after 5 bytes: expected 2 from byte 4 on",
                ReadIcon(Bytes{0, 0, 1, 0, 1}));
}

}  // namespace
}  // namespace quenzel7::loomis2
