#include <gtest/gtest.h>

#include "platform/automation/array.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/owned.h"
#include "platform/loomis2/file_image_library.h"
#include "platform/loomis2/picture_file.h"
#include "tests/support/coded_pictures.h"
#include "tests/support/failing_memory.h"
#include "tests/support/picture_samples.h"
#include "tests/support/raises.h"

// In a program of its own, since it is linked with an allocation in the place of that of the language.

namespace quenzel7::loomis2 {
namespace {

TEST(OutOfMemory, IsErrorSevenForAPictureOfAnyKind) {
  constexpr std::size_t kWidth = 200, kHeight = 100;
  const std::vector<Byte> files[] = {
      test::BmpBytes({.width = kWidth, .height = kHeight, .pixels = std::vector<Byte>(kWidth * kHeight * 3)}),
      test::BmpBytes(
          {.width = kWidth, .height = kHeight, .bits = 8, .pixels = {0, 1, 0, 1, 0, 1}, .coding = 1}),
      test::IconBytes(1, {test::PngBytes({.width = kWidth,
                                          .height = kHeight,
                                          .colorType = 0,
                                          .rows = std::vector<Byte>(kWidth * kHeight)})}),
      test::JpegBytes({.width = kWidth, .height = kHeight, .samples = std::vector<Byte>(kWidth * kHeight)}),
      test::GifBytes({.width = kWidth, .height = kHeight, .colors = {0, 1}, .pixels = {0}}),
  };
  for (const std::vector<Byte>& file : files) {
    EXPECT_RAISES(7, "no room for a picture of 200 x 100 pixels", [&] {
      const test::Failing failing(0, kWidth * kHeight * 4);
      DecodePicture(file);
    }());
    EXPECT_EQ(DecodePicture(file).width, 200);
  }
}

TEST(OutOfMemory, IsErrorSevenForABitmapOfAPicture) {
  FileImageLibrary library(nullptr);
  library.Palette(automation::Array::OfSize(automation::VariantKind::Long, 1));
  const gdi::OwnedBitmap source(gdi::CreateBitmap(1, 1, 1, 1, nullptr));
  const std::vector<Byte> indices(1000), words(2000);
  // The first room of 4000 bytes is for the picture, the second for the bitmap.
  for (const int after : {0, 1}) {
    const auto failsToMake = [&](auto make) {
      EXPECT_RAISES(7, "there is no room for the picture", [&] {
        const test::Failing failing(after, 4000);
        make();
      }());
      gdi::DeleteObject(make());
    };
    failsToMake([&] { return library.CreateBitmapFrom8bpp(indices, 100, 10); });
    failsToMake([&] { return library.CreateBitmapFrom16bpp(words, 100, 10); });
    failsToMake([&] { return library.StretchBitmap(source.Get(), 100, 10); });
  }
}

}  // namespace
}  // namespace quenzel7::loomis2
