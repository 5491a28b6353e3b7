#include <gtest/gtest.h>

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

}  // namespace
}  // namespace quenzel7::loomis2
