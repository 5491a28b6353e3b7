#include "hosts/cli/png_writer.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "hosts/cli/text_file.h"
#include "tests/hosts/cli/messages.h"
#include "tests/hosts/cli/png_reader.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli {
namespace {

using quenzel7::test::TemporaryFolder;

const Picture kPicture{3, 2, {0xFF0000, 0x00FF00, 0x0000FF, 0x123456, 0xFFFFFF, 0x000000}};

TEST(PngWriter, WritesEveryPixelInItsColour) {
  const TemporaryFolder folder;
  WritePng(folder.File("x.png"), kPicture);
  const Picture read = test::ReadPng(folder.File("x.png"));
  EXPECT_EQ(read.width, 3);
  EXPECT_EQ(read.height, 2);
  EXPECT_EQ(read.pixels, kPicture.pixels);
}

TEST(PngWriter, WritesTheFileToItsEnd) {
  const TemporaryFolder folder;
  WritePng(folder.File("x.png"), kPicture);
  const std::string bytes = ReadTextFile(folder.File("x.png"), "file");
  // An empty last chunk: its length, name and check.
  EXPECT_EQ(bytes.substr(bytes.size() - 12), std::string("\0\0\0\0IEND\xAE\x42\x60\x82", 12));
}

TEST(PngWriter, IgnoresTheUnusedByte) {
  const TemporaryFolder folder;
  WritePng(folder.File("x.png"), {1, 1, {0xFF112233}});
  EXPECT_EQ(test::ReadPng(folder.File("x.png")).pixels, (std::vector<std::uint32_t>{0x112233}));
}

TEST(PngWriter, EnlargesPixelsToSquares) {
  const TemporaryFolder folder;
  for (const int scale : {2, kLargestScale}) {
    WritePng(folder.File("x.png"), kPicture, scale);
    const Picture read = test::ReadPng(folder.File("x.png"));
    ASSERT_EQ(read.width, 3 * scale);
    ASSERT_EQ(read.height, 2 * scale);
    for (int y = 0; y < read.height; ++y) {
      for (int x = 0; x < read.width; ++x) {
        ASSERT_EQ(read.pixels[static_cast<std::size_t>(y * read.width + x)],
                  kPicture.pixels[static_cast<std::size_t>(y / scale * 3 + x / scale)]);
      }
    }
  }
}

TEST(PngWriter, PicturesGrowAtMostSixteenTimes) { EXPECT_EQ(kLargestScale, 16); }

TEST(PngWriter, TellsWhichPictureCannotBeWritten) {
  EXPECT_EQ(test::MessageOf([] { WritePng("/nowhere/x.png", kPicture); }),
            "picture /nowhere/x.png cannot be written: No such file or directory");
}

TEST(PngWriter, TellsWhenThereIsNoRoom) {
  const TemporaryFolder folder;
  const std::string path = folder.File("x.png");
  const std::string expected = "picture " + path + " cannot be written: File too large";
  // More than a buffer: not only closing the file meets the error.
  Picture noise{1000, 300, {}};
  for (std::uint32_t index = 0; index < 300000; ++index) noise.pixels.push_back(index * 2654435761u >> 3);
  std::string told, toldOfNoise;
  {
    const quenzel7::test::FileSizeLimit full(0);
    told = test::MessageOf([&] { WritePng(path, kPicture); });
    toldOfNoise = test::MessageOf([&] { WritePng(path, noise); });
  }
  EXPECT_EQ(told, expected);
  EXPECT_EQ(toldOfNoise, expected);
}

TEST(PngWriter, APictureThatIsThereIsReplaced) {
  const TemporaryFolder folder;
  WriteTextFile(folder.File("x.png"), "old", "file");
  WritePng(folder.File("x.png"), kPicture);
  EXPECT_EQ(test::ReadPng(folder.File("x.png")).pixels, kPicture.pixels);
}

}  // namespace
}  // namespace quenzel7::cli
