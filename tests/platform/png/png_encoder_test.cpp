#include "platform/png/png_encoder.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

#include "platform/files/whole_file.h"
#include "tests/support/png_files.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::png {
namespace {

const std::vector<std::uint32_t> kPixels{0xFF0000, 0x00FF00, 0x0000FF, 0x123456, 0xFFFFFF, 0x000000};
const PixelView kPicture{3, 2, kPixels};

std::string Text(std::span<const Byte> bytes) { return {bytes.begin(), bytes.end()}; }

/// What a reader sees in the bytes of a file.
test::Pixels Read(const std::vector<Byte>& file) {
  const test::TemporaryFolder folder;
  files::WriteWholeFile(folder.File("x.png"), Text(file), "file");
  return test::ReadPngFile(folder.File("x.png"));
}

TEST(PngEncoder, KeepsEveryPixelInItsColour) {
  const test::Pixels read = Read(EncodePng(kPicture));
  EXPECT_EQ(read.width, 3);
  EXPECT_EQ(read.height, 2);
  EXPECT_EQ(read.words, kPixels);
}

TEST(PngEncoder, MakesColoursOfEightBitsWithoutInterlacing) {
  const std::string file = Text(EncodePng(kPicture));
  // The mark of the format, and the first chunk: its length and name, width and height, bits of a colour,
  // colours without a palette, and three zeros.
  EXPECT_EQ(file.substr(0, 29),
            std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\3\0\0\0\2\x08\2\0\0\0", 29));
}

TEST(PngEncoder, EndsTheFile) {
  const std::string file = Text(EncodePng(kPicture));
  // An empty last chunk: its length, name and check.
  EXPECT_EQ(file.substr(file.size() - 12), std::string("\0\0\0\0IEND\xAE\x42\x60\x82", 12));
}

TEST(PngEncoder, IgnoresTheUnusedByte) {
  const std::vector<std::uint32_t> pixel{0xFF112233};
  EXPECT_EQ(Read(EncodePng({1, 1, pixel})).words, (std::vector<std::uint32_t>{0x112233}));
}

TEST(PngEncoder, EnlargesPixelsToSquares) {
  for (const int scale : {2, kLargestScale}) {
    const test::Pixels read = Read(EncodePng(kPicture, scale));
    ASSERT_EQ(read.width, 3 * scale);
    ASSERT_EQ(read.height, 2 * scale);
    for (int y = 0; y < read.height; ++y) {
      for (int x = 0; x < read.width; ++x) {
        ASSERT_EQ(read.words[static_cast<std::size_t>(y * read.width + x)],
                  kPixels[static_cast<std::size_t>(y / scale * 3 + x / scale)]);
      }
    }
  }
}

TEST(PngEncoder, PicturesGrowAtMostSixteenTimes) { EXPECT_EQ(kLargestScale, 16); }

TEST(PngEncoder, GivesASinkTheSameBytesPieceByPiece) {
  std::string given;
  int pieces = 0;
  EncodePng(kPicture, 2, [&](std::span<const Byte> bytes) {
    given += Text(bytes);
    ++pieces;
  });
  EXPECT_EQ(given, Text(EncodePng(kPicture, 2)));
  EXPECT_GT(pieces, 1);
}

TEST(PngEncoder, PassesOnWhatASinkThrowsAtAnyPiece) {
  int pieces = 0;
  EncodePng(kPicture, 1, [&pieces](std::span<const Byte>) { ++pieces; });
  ::testing::internal::CaptureStderr();
  for (int last = 0; last < pieces; ++last) {
    int taken = 0;
    try {
      EncodePng(kPicture, 1, [&](std::span<const Byte>) {
        if (taken == last) throw std::out_of_range("full");
        ++taken;
      });
      ADD_FAILURE() << "piece " << last << " was refused";
    } catch (const std::out_of_range& error) {
      EXPECT_STREQ(error.what(), "full");
    }
    EXPECT_EQ(taken, last) << "nothing more is given after a refusal";
  }
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST(PngEncoder, WhatItCannotDoIsWantOfMemory) {
  // More than the library takes.
  const std::vector<std::uint32_t> row(1000001);
  EXPECT_THROW(EncodePng({1000001, 1, row}), std::bad_alloc);
  EXPECT_NO_THROW(EncodePng({1000000, 1, std::span(row).first(1000000)}));
}

}  // namespace
}  // namespace quenzel7::png
