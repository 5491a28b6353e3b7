#include "platform/loomis2/dib.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/platform/automation/allocation_watch.h"
#include "tests/support/picture_samples.h"
#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

using test::DibSample;

/// The picture of a bitmap whose pixels follow its colours, with alpha where it has any.
Picture Read(const DibSample& sample) {
  const std::vector<Byte> bytes = test::DibBytes(sample);
  ByteReader reader(bytes, "the bitmap");
  const DibHeader header = ReadDibHeader(reader);
  const ColorTable colors = ReadDibColors(reader.Take(sample.colors.size() * header.bytesPerColor), header);
  return ReadDibPixels(reader, header, colors);
}

std::string Shows(const DibSample& sample) { return test::Shown(Read(sample)); }

std::vector<std::uint32_t> Grays(std::uint32_t count) {
  std::vector<std::uint32_t> colors;
  for (std::uint32_t number = 0; number < count; ++number) colors.push_back((number + 1) * 0x010101);
  return colors;
}

TEST(Dib, OfOneBitHasTheLeftPixelHighest) {
  EXPECT_EQ(Shows({.width = 10, .bits = 1, .pixels = {0xB1, 0x40, 0, 0}, .colors = {0xAA0000, 0x0000BB}}),
            "0000BB AA0000 0000BB 0000BB AA0000 AA0000 AA0000 0000BB AA0000 0000BB");
}

TEST(Dib, OfTwoBits) {
  EXPECT_EQ(Shows({.width = 5, .bits = 2, .pixels = {0x1B, 0x80, 0, 0}, .colors = Grays(4)}),
            "010101 020202 030303 040404 030303");
}

TEST(Dib, OfFourBits) {
  EXPECT_EQ(Shows({.width = 3, .bits = 4, .pixels = {0x0F, 0x70, 0, 0}, .colors = Grays(16)}),
            "010101 101010 080808");
}

TEST(Dib, OfEightBits) {
  EXPECT_EQ(Shows({.width = 3, .bits = 8, .pixels = {0, 255, 7, 0}, .colors = Grays(255)}),
            "010101 000000 080808");
}

TEST(Dib, OfSixteenBitsHasFiveOfEachColour) {
  EXPECT_EQ(Shows({.width = 4, .bits = 16, .pixels = {0x00, 0x7C, 0xE0, 0x03, 0x1F, 0x00, 0x21, 0x84}}),
            "FF0000 00FF00 0000FF 080808");
}

TEST(Dib, OfTwentyFourBitsHasBlueFirst) {
  EXPECT_EQ(Shows({.width = 2, .bits = 24, .pixels = {1, 2, 3, 4, 5, 6, 0, 0}}), "030201 060504");
}

TEST(Dib, OfThirtyTwoBitsLeavesTheLastByte) {
  EXPECT_EQ(Shows({.width = 2, .bits = 32, .pixels = {1, 2, 3, 4, 5, 6, 7, 8}}), "030201 070605");
}

TEST(Dib, RowsAreWholeFoursOfBytesAndTheLowestComesFirst) {
  EXPECT_EQ(DibRowBytes(1, 1), 4u);
  EXPECT_EQ(DibRowBytes(32, 1), 4u);
  EXPECT_EQ(DibRowBytes(33, 1), 8u);
  EXPECT_EQ(DibRowBytes(3, 24), 12u);
  EXPECT_EQ(DibRowBytes(2147483647, 32), 8589934588u);
  EXPECT_EQ(Shows({.width = 1, .height = 3, .pixels = {1, 0, 0, 99, 2, 0, 0, 99, 3, 0, 0, 99}}),
            "000003 / 000002 / 000001");
}

TEST(Dib, OfNegativeHeightHasTheHighestRowFirst) {
  EXPECT_EQ(Shows({.width = 1, .height = -3, .pixels = {1, 0, 0, 99, 2, 0, 0, 99, 3, 0, 0, 99}}),
            "000001 / 000002 / 000003");
}

TEST(Dib, OfTheOldestHeaderHasColoursOfThreeBytes) {
  EXPECT_EQ(Shows({.width = 2,
                   .height = 2,
                   .bits = 1,
                   .pixels = {0x40, 0, 0, 0, 0x80, 0, 0, 0},
                   .colors = {0x112233, 0x445566},
                   .header = 12}),
            "445566 112233 / 112233 445566");
  EXPECT_EQ(Shows({.width = 1, .pixels = {1, 2, 3, 0}, .header = 12}), "030201");
}

TEST(Dib, OfTheOldestHeaderHasMeasuresWithoutSign) {
  std::vector<Byte> pixels(32767 * 4);
  pixels[32766 * 4] = 0x80;
  const Picture picture =
      Read({.width = 1, .height = 32767, .bits = 1, .pixels = pixels, .colors = {0, 0x00FF00}, .header = 12});
  EXPECT_EQ(picture.width, 1);
  EXPECT_EQ(picture.height, 32767);
  EXPECT_EQ(picture.pixels.front(), 0x00FF00u);
  const Picture wide = Read({.width = 32767,
                             .bits = 1,
                             .pixels = std::vector<Byte>(4096, 0xFF),
                             .colors = {0, 0x00FF00},
                             .header = 12});
  EXPECT_EQ(wide.width, 32767);
  EXPECT_EQ(wide.pixels.back(), 0x00FF00u);
  // With a sign these would be below 0.
  EXPECT_RAISES(481, "a picture of 40000 x 1 pixels is too large: expected at most 32767 a side",
                Read({.width = 40000, .bits = 1, .header = 12}));
  EXPECT_RAISES(481, "a picture of 1 x 40000 pixels is too large: expected at most 32767 a side",
                Read({.width = 1, .height = 40000, .bits = 1, .header = 12}));
}

TEST(Dib, OfEveryLaterHeaderHasItsColoursAfterIt) {
  for (const std::uint32_t header : {40u, 52u, 56u, 108u, 124u}) {
    EXPECT_EQ(Shows({.width = 2,
                     .bits = 8,
                     .pixels = {1, 0, 0, 0},
                     .colors = {0x112233, 0x445566},
                     .header = header,
                     .masks = std::vector<std::uint32_t>(header < 52 ? 0 : 3, 0x5A),
                     .colorsUsed = 2}),
              "445566 112233")
        << header;
  }
}

TEST(Dib, OtherHeadersAreRefused) {
  for (const std::uint32_t header : {0u, 11u, 13u, 16u, 39u, 41u, 64u, 107u, 123u, 125u, 0xFFFFFFFFu}) {
    std::vector<Byte> bytes(200);
    for (std::size_t i = 0; i < 4; ++i) bytes[i] = static_cast<Byte>(header >> 8 * i);
    ByteReader reader(bytes, "it");
    EXPECT_RAISES(481,
                  "a bitmap header of " + std::to_string(header) +
                      " bytes cannot be read: expected 12, 40, 52, 56, 108 or 124",
                  ReadDibHeader(reader));
  }
}

TEST(Dib, HeadersThatEndEarlyAreRefused) {
  for (const std::uint32_t header : {12u, 40u, 52u, 56u, 108u, 124u}) {
    const std::vector<Byte> whole = test::DibBytes({.header = header});
    for (std::size_t size = 0; size < whole.size(); ++size) {
      ByteReader reader({whole.data(), size}, "it");
      EXPECT_EQ(test::ErrorOf([&] { ReadDibHeader(reader); }), 481) << header << ", " << size;
    }
    ByteReader reader(whole, "it");
    ReadDibHeader(reader);
    EXPECT_EQ(reader.Position(), header);
  }
}

TEST(Dib, MasksOfTheColoursFollowAHeaderOfForty) {
  EXPECT_EQ(Shows({.width = 3,
                   .bits = 16,
                   .pixels = {0x00, 0xF8, 0xE0, 0x07, 0x1F, 0x00, 0, 0},
                   .coding = 3,
                   .masks = {0xF800, 0x07E0, 0x001F}}),
            "FF0000 00FF00 0000FF");
  // Any order, any place, any width.
  EXPECT_EQ(Shows({.width = 2,
                   .bits = 32,
                   .pixels = {0x78, 0x56, 0xF4, 0x0F, 0xFF, 0x00, 0x00, 0xF0},
                   .coding = 3,
                   .masks = {0x000000FF, 0x0000FF00, 0x0FF00000}}),
            "7856FF FF0000");
}

TEST(Dib, MasksInALaterHeaderAreThoseOfTheColours) {
  DibSample sample{.bits = 32, .pixels = {1, 2, 3, 4}, .header = 52, .coding = 3};
  sample.masks = {0xFF, 0xFF00, 0xFF0000};
  EXPECT_EQ(Shows(sample), "010203");
  sample.masks.push_back(0);
  for (const std::uint32_t header : {56u, 108u, 124u}) {
    sample.header = header;
    EXPECT_EQ(Shows(sample), "010203") << header;
  }
}

TEST(Dib, MasksOfALaterHeaderDoNotCountInAnotherCoding) {
  EXPECT_EQ(Shows({.bits = 32, .pixels = {1, 2, 3, 4}, .header = 52, .masks = {0xFF, 0xFF00, 5}}), "030201");
  EXPECT_EQ(Shows({.bits = 16, .pixels = {0x1F, 0, 0, 0}, .header = 52, .masks = {0x1F, 0, 5}}), "0000FF");
}

TEST(Dib, AMaskOfNoBitsLeavesTheColourOut) {
  EXPECT_EQ(Shows({.bits = 32, .pixels = {1, 2, 3, 4}, .coding = 3, .masks = {0xFF0000, 0, 0xFF}}), "030001");
}

TEST(Dib, MasksWithGapsAreRefused) {
  const std::string description = "a mask of the bits 0x00000505 cannot be read: expected adjacent bits";
  for (std::size_t mask = 0; mask < 4; ++mask) {
    std::vector<std::uint32_t> masks{0xFF0000, 0xFF00, 0xFF, 0xFF000000};
    masks[mask] = 0x505;
    EXPECT_RAISES(481, description,
                  Shows({.bits = 32, .pixels = {1, 2, 3, 4}, .header = 56, .coding = 3, .masks = masks}));
  }
}

TEST(Dib, AlphaCountsWhereTheHeaderHasAMaskForIt) {
  const std::vector<std::uint32_t> masks{0xFF0000, 0xFF00, 0xFF, 0xFF000000};
  for (const std::uint32_t coding : {0u, 3u, 6u}) {
    for (const std::uint32_t header : {56u, 108u, 124u}) {
      EXPECT_EQ(
          Shows({.bits = 32, .pixels = {1, 2, 3, 4}, .header = header, .coding = coding, .masks = masks}),
          "4030201")
          << header << ", " << coding;
    }
  }
  EXPECT_EQ(Shows({.bits = 32, .pixels = {1, 2, 3, 4}, .header = 40, .coding = 6, .masks = masks}),
            "4030201");
  EXPECT_EQ(Shows({.bits = 16, .pixels = {0x1F, 0x80, 0, 0}, .header = 56, .masks = {0, 0, 0, 0x8000}}),
            "FF0000FF");
}

TEST(Dib, AlphaHasNoMaskInAHeaderOf40Or52) {
  DibSample sample{
      .bits = 32, .pixels = {1, 2, 3, 4, 5, 6, 7, 8}, .coding = 3, .masks = {0xFF0000, 0xFF00, 0xFF}};
  EXPECT_EQ(Shows(sample), "030201");
  sample.header = 52;
  EXPECT_EQ(Shows(sample), "030201");
  sample.coding = 6;
  EXPECT_EQ(Shows(sample), "030201");
}

TEST(Dib, AlphaMasksDoNotCountInOtherDepths) {
  const std::vector<std::uint32_t> masks{0, 0, 0, 5};
  EXPECT_EQ(Shows({.bits = 24, .pixels = {1, 2, 3, 0}, .header = 56, .masks = masks}), "030201");
  EXPECT_EQ(Shows({.bits = 8, .pixels = {0, 0, 0, 0}, .colors = {0x112233}, .header = 56, .masks = masks}),
            "112233");
}

TEST(Dib, DepthsAndCodingsThatDoNotGoTogetherAreRefused) {
  const auto isRead = [](std::uint32_t bits, std::uint32_t coding) {
    const std::vector<Byte> bytes =
        test::DibBytes({.bits = bits, .coding = coding, .masks = {0xFF, 0, 0, 0}});
    ByteReader reader(bytes, "it");
    const test::Raised raised = test::RaisedBy([&] { ReadDibHeader(reader); });
    if (raised.number != 0) {
      EXPECT_EQ(raised,
                (test::Raised{481, "a bitmap of " + std::to_string(bits) + " bits a pixel in coding " +
                                       std::to_string(coding) + " cannot be read"}));
    }
    return raised.number == 0;
  };
  std::string read;
  for (std::uint32_t coding = 0; coding < 9; ++coding) {
    for (std::uint32_t bits = 0; bits < 65; ++bits) {
      if (isRead(bits, coding)) read += std::to_string(coding) + ":" + std::to_string(bits) + " ";
    }
  }
  EXPECT_EQ(read, "0:1 0:2 0:4 0:8 0:16 0:24 0:32 1:8 2:4 3:16 3:32 6:16 6:32 ");
  EXPECT_FALSE(isRead(24, 0xFFFFFFFF));
}

TEST(Dib, ColoursAreAsManyAsTheHeaderSays) {
  const auto colorsOf = [](std::uint32_t bits, std::uint32_t used) {
    const std::vector<Byte> bytes = test::DibBytes({.bits = bits, .colorsUsed = used});
    ByteReader reader(bytes, "it");
    return ReadDibHeader(reader).colors;
  };
  EXPECT_EQ(colorsOf(1, 0), 2u);
  EXPECT_EQ(colorsOf(4, 0), 16u);
  EXPECT_EQ(colorsOf(8, 0), 256u);
  EXPECT_EQ(colorsOf(8, 3), 3u);
  EXPECT_EQ(colorsOf(4, 99), 99u);
  EXPECT_EQ(colorsOf(16, 0), 0u);
  EXPECT_EQ(colorsOf(24, 0), 0u);
  EXPECT_EQ(colorsOf(24, 5), 5u);
  EXPECT_EQ(colorsOf(8, 0xFFFFFFFF), 0xFFFFFFFFu);
}

TEST(Dib, PixelsOfColoursBeyondTheTableAreBlack) {
  const DibSample sample{
      .width = 4, .bits = 8, .pixels = {0, 1, 2, 255}, .colors = Grays(4), .colorsUsed = 2};
  EXPECT_EQ(Shows(sample), "010101 020202 000000 000000");
  DibSample shorter = sample;
  shorter.colors = Grays(1);
  EXPECT_EQ(Shows(shorter), "010101 000000 000000 000000");
}

TEST(Dib, ColoursOfWhichBytesAreMissingDoNotCount) {
  const std::vector<Byte> bytes{1, 0, 0, 0, 2, 0, 0};
  DibHeader header;
  header.bitsPerPixel = 8;
  header.colors = 9;
  header.bytesPerColor = 4;
  EXPECT_EQ(ReadDibColors(bytes, header)[0], 1u);
  EXPECT_EQ(ReadDibColors(bytes, header)[1], 0u);
  header.bytesPerColor = 3;
  EXPECT_EQ(ReadDibColors(bytes, header)[1], 0x000200u);
}

TEST(Dib, ColoursThatNoPixelCanNameAreNotRead) {
  const std::vector<Byte> bytes(4 * 300, 5);
  DibHeader header;
  header.colors = 300;
  header.bytesPerColor = 4;
  for (const auto& [bits, count] : {std::pair{1, 2u}, {2, 4u}, {4, 16u}, {8, 256u}}) {
    header.bitsPerPixel = bits;
    const ColorTable colors = ReadDibColors(bytes, header);
    EXPECT_EQ(colors[count - 1], 0x050505u) << bits;
    EXPECT_EQ(colors[count], kBlack) << bits;
  }
  for (const int bits : {16, 24, 32}) {
    header.bitsPerPixel = bits;
    EXPECT_EQ(ReadDibColors(bytes, header)[0], kBlack) << bits;
  }
}

TEST(Dib, RunsPaintOnWhite) {
  EXPECT_EQ(Shows({.width = 2,
                   .height = 2,
                   .bits = 8,
                   .pixels = {1, 1, 0, 0, 2, 2, 0, 1},
                   .colors = Grays(3),
                   .coding = 1,
                   .colorsUsed = 3}),
            "030303 030303 / 020202 FFFFFF");
  EXPECT_EQ(Shows({.width = 3, .bits = 4, .pixels = {3, 0x21, 0, 1}, .colors = Grays(16), .coding = 2}),
            "030303 020202 030303");
}

TEST(Dib, RunsFromTheTopDownAreRefused) {
  for (const DibSample& sample :
       {DibSample{.height = -1, .bits = 8, .coding = 1}, DibSample{.height = -1, .bits = 4, .coding = 2}}) {
    EXPECT_RAISES(481, "a bitmap coded in runs cannot have its highest row first", Read(sample));
  }
}

TEST(Dib, MeasuresBelowOneAreRefused) {
  EXPECT_RAISES(481, "a picture of 0 x 1 pixels cannot be: expected at least 1 x 1", Read({.width = 0}));
  EXPECT_RAISES(481, "a picture of -1 x 1 pixels cannot be: expected at least 1 x 1", Read({.width = -1}));
  EXPECT_RAISES(481, "a picture of 1 x 0 pixels cannot be: expected at least 1 x 1", Read({.height = 0}));
  EXPECT_RAISES(481, "a picture of 0 x 1 pixels cannot be: expected at least 1 x 1",
                Read({.width = 0, .bits = 8, .pixels = {0, 1}, .coding = 1}));
  EXPECT_RAISES(481, "a picture of 1 x 0 pixels cannot be: expected at least 1 x 1",
                Read({.height = 0, .bits = 8, .pixels = {0, 1}, .coding = 1}));
}

TEST(Dib, HugePicturesAreRefusedBeforeMemoryIsTaken) {
  const automation::AllocationWatch watch;
  EXPECT_RAISES(481, "a picture of 20000 x 20000 pixels is too large: expected at most 67108864",
                Read({.width = 20000, .height = 20000}));
  EXPECT_RAISES(481, "a picture of 20000 x 20000 pixels is too large: expected at most 67108864",
                Read({.width = 20000, .height = -20000}));
  EXPECT_RAISES(481, "a picture of 1 x 2147483648 pixels is too large: expected at most 32767 a side",
                Read({.width = 1, .height = static_cast<std::int32_t>(0x80000000)}));
  EXPECT_RAISES(481, "the bitmap ends after 44 bytes: expected 192000000 from byte 40 on",
                Read({.width = 8000, .height = 8000, .pixels = {1, 2, 3, 4}}));
  EXPECT_RAISES(481, "a picture of 20000 x 20000 pixels is too large: expected at most 67108864",
                Read({.width = 20000, .height = 20000, .bits = 8, .pixels = {0, 1}, .coding = 1}));
  EXPECT_RAISES(481,
                "a picture of 8193 x 1 pixels is too large for 2 bytes: expected at most 4096 pixels a byte",
                Read({.width = 8193, .bits = 8, .pixels = {0, 1}, .coding = 1}));
  EXPECT_LT(watch.Biggest(), 1000u);
  EXPECT_EQ(Read({.width = 8192, .bits = 8, .pixels = {0, 1}, .coding = 1}).pixels.back(), 0xFFFFFFu);
}

TEST(Dib, PixelsMustAllBeThere) {
  EXPECT_RAISES(481, "the bitmap ends after 47 bytes: expected 8 from byte 40 on",
                Read({.width = 1, .height = 2, .pixels = {1, 2, 3, 4, 5, 6, 7}}));
  EXPECT_EQ(Shows({.width = 1, .height = 2, .pixels = {1, 2, 3, 4, 5, 6, 7, 8, 9}}), "070605 / 030201");
}

}  // namespace
}  // namespace quenzel7::loomis2
