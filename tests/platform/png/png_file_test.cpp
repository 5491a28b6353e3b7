#include "platform/png/png_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "platform/files/whole_file.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/png_files.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::png {
namespace {

const std::vector<std::uint32_t> kPixels{0xFF0000, 0x00FF00, 0x0000FF, 0x123456, 0xFFFFFF, 0x000000};
const PixelView kPicture{3, 2, kPixels};

TEST(PngFile, HasTheBytesOfTheEncodedPicture) {
  const test::TemporaryFolder folder;
  for (const int scale : {1, 3}) {
    SavePng(folder.File("x.png"), kPicture, scale);
    const std::vector<Byte> bytes = EncodePng(kPicture, scale);
    EXPECT_EQ(files::ReadWholeFile(folder.File("x.png"), "file"), std::string(bytes.begin(), bytes.end()));
  }
  SavePng(folder.File("x.png"), kPicture);
  EXPECT_EQ(test::ReadPngFile(folder.File("x.png")).width, 3) << "not enlarged unless wanted";
}

TEST(PngFile, TellsWhichPictureCannotBeWritten) {
  EXPECT_RAISES(76, "picture /nowhere/x.png cannot be written: No such file or directory",
                SavePng("/nowhere/x.png", kPicture));
}

TEST(PngFile, TellsWhenThereIsNoRoom) {
  const test::TemporaryFolder folder;
  const std::string path = folder.File("x.png");
  const std::string expected = "picture " + path + " cannot be written: File too large";
  // More than a buffer: not only closing the file meets the error.
  std::vector<std::uint32_t> noise;
  for (std::uint32_t index = 0; index < 300000; ++index) noise.push_back(index * 2654435761u >> 3);
  const test::FileSizeLimit full(0);
  EXPECT_RAISES(57, expected, SavePng(path, kPicture));
  EXPECT_RAISES(57, expected, SavePng(path, {1000, 300, noise}));
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(PngFile, WhatCannotBeEncodedLeavesWhatWasThere) {
  const test::TemporaryFolder folder;
  SavePng(folder.File("x.png"), kPicture);
  const std::vector<std::uint32_t> row(1000001);
  EXPECT_RAISES(7, "picture " + folder.File("x.png") + " cannot be written: Cannot allocate memory",
                SavePng(folder.File("x.png"), {1000001, 1, row}));
  EXPECT_EQ(test::ReadPngFile(folder.File("x.png")).words, kPixels);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

}  // namespace
}  // namespace quenzel7::png
