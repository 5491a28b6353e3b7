#include "platform/loomis2/new_picture.h"

#include <gtest/gtest.h>

#include "tests/support/picture_samples.h"
#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

using test::DescriptionOf;

TEST(CheckPictureSize, TakesFromOnePixelTo64Mi) {
  CheckPictureSize(1, 1);
  CheckPictureSize(8192, 8192);
  CheckPictureSize(2048, 32767);
  CheckPictureSize(32767, 2048);
}

TEST(CheckPictureSize, RefusesMeasuresBelowOne) {
  EXPECT_RAISES(481, "a picture of 0 x 5 pixels cannot be: expected at least 1 x 1", CheckPictureSize(0, 5));
  EXPECT_RAISES(481, "a picture of 5 x 0 pixels cannot be: expected at least 1 x 1", CheckPictureSize(5, 0));
  EXPECT_RAISES(481, "a picture of -3 x -4 pixels cannot be: expected at least 1 x 1",
                CheckPictureSize(-3, -4));
}

TEST(CheckPictureSize, RefusesMorePixelsThan64Mi) {
  EXPECT_RAISES(481, "a picture of 8192 x 8193 pixels is too large: expected at most 67108864",
                CheckPictureSize(8192, 8193));
  EXPECT_RAISES(481, "a picture of 2049 x 32767 pixels is too large: expected at most 67108864",
                CheckPictureSize(2049, 32767));
  EXPECT_RAISES(481, "a picture of 20000 x 20000 pixels is too large: expected at most 67108864",
                CheckPictureSize(20000, 20000));
}

TEST(CheckPictureSize, RefusesLongerSidesThan32767) {
  EXPECT_RAISES(481, "a picture of 32768 x 1 pixels is too large: expected at most 32767 a side",
                CheckPictureSize(32768, 1));
  EXPECT_RAISES(481, "a picture of 1 x 32768 pixels is too large: expected at most 32767 a side",
                CheckPictureSize(1, 32768));
  EXPECT_RAISES(481,
                "a picture of 2147483647 x 4294967296 pixels is too large: expected at most 32767 a side",
                CheckPictureSize(2147483647, 4294967296));
}

TEST(CheckCodedPictureSize, TakesUpTo4096PixelsAByte) {
  CheckCodedPictureSize(4096, 3, 3);
  EXPECT_RAISES(481,
                "a picture of 4097 x 3 pixels is too large for 3 bytes: expected at most 4096 pixels a byte",
                CheckCodedPictureSize(4097, 3, 3));
  EXPECT_RAISES(481,
                "a picture of 1 x 1 pixels is too large for 0 bytes: expected at most 4096 pixels a byte",
                CheckCodedPictureSize(1, 1, 0));
}

TEST(CheckCodedPictureSize, TakesAsManyPixelsAByteAsItIsTold) {
  EXPECT_EQ(kMostPngPixelsPerByte, 8256);
  CheckCodedPictureSize(7, 3, 3, 7);
  EXPECT_RAISES(481, "a picture of 8 x 3 pixels is too large for 3 bytes: expected at most 7 pixels a byte",
                CheckCodedPictureSize(8, 3, 3, 7));
}

TEST(CheckCodedPictureSize, RefusesWhatCannotBeInAnyFile) {
  EXPECT_EQ(DescriptionOf([] { CheckCodedPictureSize(0, 1, 100); }),
            "a picture of 0 x 1 pixels cannot be: expected at least 1 x 1");
  EXPECT_EQ(DescriptionOf([] { CheckCodedPictureSize(8192, 8193, 1 << 20); }),
            "a picture of 8192 x 8193 pixels is too large: expected at most 67108864");
}

TEST(WhitePicture, IsWhite) {
  const Picture picture = WhitePicture(3, 2);
  EXPECT_EQ(picture.width, 3);
  EXPECT_EQ(picture.height, 2);
  EXPECT_EQ(test::Shown(picture), "FFFFFF FFFFFF FFFFFF / FFFFFF FFFFFF FFFFFF");
}

}  // namespace
}  // namespace quenzel7::loomis2
