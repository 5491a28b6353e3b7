#include "images/image_compression.h"

#include <gtest/gtest.h>

#include "images/image_queries.h"
#include "images/image_rows.h"
#include "tests/support/image_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using corvane1::ShownBox;

/// Ends with the status that it was told, and gives a byte all the same.
class FailingCompressor final : public compression::Compressor {
 public:
  explicit FailingCompressor(Long status) : status_(status) {}
  Long Compress(const PixelBytes&, PixelBytes& block) override {
    block = {1};
    return status_;
  }
  Long UnCompress(const PixelBytes&, PixelBytes& data) override {
    data = {2};
    return status_;
  }

 private:
  Long status_;
};

class ImageCompression : public test::ImageProjectTest {
 protected:
  static void Fail(Long status) {
    Platform::Current().newCompressor = [status] { return std::make_shared<FailingCompressor>(status); };
  }
  std::vector<ShownBox> ShownBoxes() const { return {Boxes().begin(), Boxes().end()}; }
};

TEST_F(ImageCompression, GivesBackWhatItWasGiven) {
  for (const PixelBytes& pixels : {PixelBytes{}, PixelBytes{0}, PixelBytes{1, 2, 3}, PixelBytes(1000, 7)}) {
    EXPECT_EQ(UnCompressData(CompressData(pixels)), pixels);
  }
  EXPECT_LT(CompressData(PixelBytes(1000, 7)).size(), 100u);
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(ImageCompression, TakesACompressorOfItsOwnEachTime) {
  int made = 0;
  const auto make = Platform::Current().newCompressor;
  Platform::Current().newCompressor = [&] {
    ++made;
    return make();
  };
  const PixelBytes block = CompressData({1});
  EXPECT_EQ(made, 1);
  UnCompressData(block);
  EXPECT_EQ(made, 2);
}

TEST_F(ImageCompression, WhatCannotBeCompressedIsEmptyAndABoxTellsSo) {
  for (const Long status : {1, -1}) {
    Fail(status);
    EXPECT_EQ(CompressData({1, 2, 3}), PixelBytes{});
  }
  const ShownBox box{"Failed to Compress Data", 0, "Quenzel7"};
  EXPECT_EQ(ShownBoxes(), (std::vector<ShownBox>{box, box}));
}

TEST_F(ImageCompression, WhatCannotBeUnCompressedIsEmptyAndABoxTellsSo) {
  for (const Long status : {1, -1}) {
    Fail(status);
    EXPECT_EQ(UnCompressData({1, 2, 3}), PixelBytes{});
  }
  const ShownBox box{"Failed to UnCompress Data", 0, "Quenzel7"};
  EXPECT_EQ(ShownBoxes(), (std::vector<ShownBox>{box, box}));
}

TEST_F(ImageCompression, AStatusOf0TakesTheResult) {
  Fail(0);
  EXPECT_EQ(CompressData({5}), PixelBytes{1});
  EXPECT_EQ(UnCompressData({5}), PixelBytes{2});
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(ImageCompression, BytesThatAreNoBlockAreTold) {
  EXPECT_EQ(UnCompressData({1, 2, 3}), PixelBytes{});
  EXPECT_EQ(ShownBoxes(), (std::vector<ShownBox>{{"Failed to UnCompress Data", 0, "Quenzel7"}}));
}

TEST_F(ImageCompression, WithoutACompressorIsAnError) {
  const std::function<std::shared_ptr<compression::Compressor>()> makers[] = {nullptr,
                                                                              [] { return nullptr; }};
  for (const auto& make : makers) {
    Platform::Current().newCompressor = make;
    EXPECT_RAISES(429, "the host makes no compressor", CompressData({1}));
    EXPECT_RAISES(429, "the host makes no compressor", UnCompressData({1}));
  }
}

TEST_F(ImageCompression, ThatFailsLeavesARowWithEmptyColumnsAndPixelsThatAreNone) {
  PutImage(1, 50, kImageInUse);
  Fail(1);
  EXPECT_EQ(GetImageData8bppByCRC(50), PixelBytes{});
  EXPECT_EQ(ShownBoxes(), (std::vector<ShownBox>{{"Failed to UnCompress Data", 0, "Quenzel7"}}));
  test::LibraryPicture picture = Picture(50);
  AddBitmapImageToProject(ToSave(picture), 1, 0, 0);
  const ShownBox box{"Failed to Compress Data", 0, "Quenzel7"};
  EXPECT_EQ(ShownBoxes(), (std::vector<ShownBox>{{"Failed to UnCompress Data", 0, "Quenzel7"}, box, box}));
  EXPECT_EQ(ImageAt(1), "1050 3 2 4 3 C:\\p\\50.png empty empty");
}

}  // namespace
}  // namespace quenzel7
