#include "images/panel_pixels.h"

#include <gtest/gtest.h>

#include <limits>

#include "framework/library_state.h"
#include "platform/platform.h"
#include "tests/support/noting_image_library.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using Lines = std::vector<std::string>;

class PanelPixels : public ::testing::Test {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    LibraryState::Current() = {};
    LibraryState::Current().ImageLibrary = library_;
  }
  void TearDown() override { LibraryState::Current() = {}; }

  const std::shared_ptr<test::NotingImageLibrary> library_ = std::make_shared<test::NotingImageLibrary>();
  PixelBytes data_ = {9};
  Long crc_ = 5;
};

TEST_F(PanelPixels, TheImageLibraryIsTheOneThatWasSetUp) {
  EXPECT_EQ(CurrentImageLibrary().get(), library_.get());
  LibraryState::Current() = {};
  EXPECT_RAISES(91, "there is no image library: InitImageLibrary was not called", CurrentImageLibrary());
}

TEST(ImageData, IsValidWhenItsLengthIsThatOfItsSize) {
  const struct {
    std::size_t length;
    Long dx, dy, bits;
  } valid[] = {{8, 3, 2, 0},  {8, 4, 2, 0},  {12, 3, 2, 16}, {16, 4, 2, 16}, {8, 3, 2, 15},
               {8, 3, 2, 17}, {8, 3, 2, -1}, {0, 0, 0, 0},   {0, 0, 5, 16},  {2, 1, 1, 8}};
  for (const auto& size : valid) {
    const auto isValid = [&](std::size_t length) {
      return IsImageDataValid(PixelBytes(length), size.dx, size.dy, size.bits);
    };
    EXPECT_TRUE(isValid(size.length)) << size.length;
    EXPECT_FALSE(isValid(size.length + 1)) << size.length;
    if (size.length > 0) {
      EXPECT_FALSE(isValid(size.length - 1)) << size.length;
    }
  }
  // Sizes that take more than a Long are just too large.
  EXPECT_FALSE(IsImageDataValid({}, 65536, 65536, 0));
  EXPECT_FALSE(IsImageDataValid({}, 65536, 32768, 16));
  EXPECT_FALSE(IsImageDataValid(PixelBytes(8), -3, 2, 0));
  // No product of sizes below 0 is a length.
  constexpr Long kLowest = std::numeric_limits<Long>::min(), kMost = std::numeric_limits<Long>::max();
  for (const Long bits : {0, 16}) {
    EXPECT_FALSE(IsImageDataValid(PixelBytes(bits == 16 ? 12 : 8), -3, -2, bits));
    EXPECT_FALSE(IsImageDataValid(PixelBytes(bits == 16 ? 2 : 0), -1, -1, bits));
    EXPECT_FALSE(IsImageDataValid({}, -1, 0, bits));
    EXPECT_FALSE(IsImageDataValid({}, 0, -1, bits));
    for (const Long size : {kLowest, kMost}) EXPECT_FALSE(IsImageDataValid({}, size, size, bits));
  }
}

TEST_F(PanelPixels, ABitmapIsMadeInTheFormOfThePixels) {
  for (const Long bits : {0, 8, 15, 17}) EXPECT_NE(BitmapOfPixels({1, 2, 3}, 4, 5, bits), 0u);
  EXPECT_NE(BitmapOfPixels({1, 2, 3}, 4, 5, 16), 0u);
  EXPECT_EQ(library_->calls, (Lines{"from 8bpp 3 bytes 4x5", "from 8bpp 3 bytes 4x5", "from 8bpp 3 bytes 4x5",
                                    "from 8bpp 3 bytes 4x5", "from 16bpp 3 bytes 4x5"}));
  library_->makesBitmaps = false;
  EXPECT_EQ(BitmapOfPixels({1}, 4, 5, 0), 0u);
}

TEST_F(PanelPixels, AStretchedBitmapIsAllThatStays) {
  EXPECT_NE(StretchedBitmapOfPixels({1, 2, 3}, 4, 5, 6, 7, 0), 0u);
  EXPECT_EQ(library_->calls, (Lines{"from 8bpp 3 bytes 4x5", "stretch #1 6x7"}));
  EXPECT_EQ(library_->Kept(), Lines{"#2"});
  library_->calls.clear();
  StretchedBitmapOfPixels({1, 2, 3}, 4, 5, 6, 7, 16);
  EXPECT_EQ(library_->calls, (Lines{"from 16bpp 3 bytes 4x5", "stretch #3 6x7"}));
}

TEST_F(PanelPixels, PixelsOfOneByteTakeTheModeAndThePanelsColours) {
  EXPECT_EQ(ConvertToPixels(0, 3, 6, 7, 0, data_, crc_), 0);
  EXPECT_EQ(ConvertToPixels(0, 3, 6, 7, 16, data_, crc_), 0);
  EXPECT_EQ(library_->calls, (Lines{"to 8bpp mode 3 #0 of 256 colours 6x7", "to 16bpp #0 6x7"}));
  EXPECT_EQ(data_, (PixelBytes{1, 2}));
  EXPECT_EQ(crc_, 77);
  library_->status = 5;
  EXPECT_EQ(ConvertToPixels(0, 3, 6, 7, 17, data_, crc_), 5);
}

TEST_F(PanelPixels, RebuildingStretchesTheOriginalAndLeavesNoBitmap) {
  EXPECT_TRUE(RebuildImageData({1, 2, 3}, 4, 5, 6, 7, data_, crc_, 0));
  EXPECT_EQ(library_->calls,
            (Lines{"from 8bpp 3 bytes 4x5", "stretch #1 6x7", "to 8bpp mode 0 #2 of 256 colours 6x7"}));
  EXPECT_EQ(library_->Kept(), Lines{});
  EXPECT_EQ(data_, (PixelBytes{1, 2}));
  EXPECT_EQ(crc_, 77);
  library_->calls.clear();
  EXPECT_TRUE(RebuildImageData({1, 2, 3}, 4, 5, 6, 7, data_, crc_, 16));
  EXPECT_EQ(library_->calls, (Lines{"from 16bpp 3 bytes 4x5", "stretch #3 6x7", "to 16bpp #4 6x7"}));
}

TEST_F(PanelPixels, RebuildingIsDoneAtStatus0And6Only) {
  for (const Long status : {0, 6}) {
    library_->status = status;
    EXPECT_TRUE(RebuildImageData({1}, 1, 1, 1, 1, data_, crc_, 0)) << status;
  }
  data_ = {9};
  crc_ = 5;
  for (const Long status : {-1, 1, 2, 3, 4, 5, 7}) {
    library_->status = status;
    EXPECT_FALSE(RebuildImageData({1}, 1, 1, 1, 1, data_, crc_, 0)) << status;
  }
  EXPECT_EQ(data_, PixelBytes{9});
  EXPECT_EQ(crc_, 5);
}

TEST_F(PanelPixels, WhatTheLibraryWroteBeforeItGaveUpIsNotTakenOver) {
  library_->status = loomis2::kImageRefused;
  library_->writesAnyway = true;
  for (const Long bits : {0, 16}) {
    EXPECT_FALSE(RebuildImageData({1}, 1, 1, 1, 1, data_, crc_, bits));
    EXPECT_EQ(data_, PixelBytes{9});
    EXPECT_EQ(crc_, 5);
  }
}

TEST_F(PanelPixels, WithoutAnImageLibraryThereAreNoBitmaps) {
  LibraryState::Current() = {};
  EXPECT_EQ(test::ErrorOf([] { BitmapOfPixels({1}, 1, 1, 0); }), 91);
  EXPECT_EQ(test::ErrorOf([] { StretchedBitmapOfPixels({1}, 1, 1, 1, 1, 0); }), 91);
  EXPECT_EQ(test::ErrorOf([&] { ConvertToPixels(0, 0, 1, 1, 0, data_, crc_); }), 91);
  EXPECT_EQ(test::ErrorOf([&] { RebuildImageData({1}, 1, 1, 1, 1, data_, crc_, 0); }), 91);
}

TEST(FileName, IsTheLastPartOfThePathBehindTheFirstSemicolon) {
  const struct {
    const char *path, *name;
  } cases[] = {{"", ""},
               {"a.png", "a.png"},
               {"C:\\p\\a.png", "a.png"},
               {"/home/p/a.png", "a.png"},
               {"C:\\p/q\\a.png", "a.png"},
               {"lib\\x;C:\\p\\a.png", "a.png"},
               {";a.png", "a.png"},
               {"a.png;", ""},
               {"x;y;C:\\p\\a.png", "a.png"},
               {"x;y;z", "y;z"},
               {"a\\b;c", "c"},
               {"x;C:\\p\\a;b.png", "a;b.png"},
               {"C:\\p\\", ""}};
  for (const auto& file : cases) EXPECT_EQ(GetFileName(file.path), file.name) << file.path;
}

TEST(PanelPixelNumbers, AreThese) {
  EXPECT_EQ(kNoImage, -1);
  EXPECT_EQ(kPaintedImage, 0x3F3F3F3F);
  EXPECT_EQ(kTwoBytePixels, 16);
}

}  // namespace
}  // namespace quenzel7
