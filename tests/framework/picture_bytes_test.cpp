#include "framework/picture_bytes.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/framework/mono_picture.h"
#include "tests/platform/automation/allocation_watch.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::Bytes;

TEST(PictureName, TellsWidthAndHeight) {
  EXPECT_EQ(PictureName(17, 3), "a picture of 17 x 3 pixels");
  EXPECT_EQ(PictureName(-1, 2147483647), "a picture of -1 x 2147483647 pixels");
}

TEST(NewPictureBytes, AreAll0) {
  EXPECT_EQ(NewPictureBytes(0, 0, 0), Bytes{});
  EXPECT_EQ(NewPictureBytes(3, 24, 1), (Bytes{0, 0, 0}));
}

TEST(NewPictureBytes, WithoutRoomAreError7) {
  const automation::AllocationWatch watch(999);
  EXPECT_EQ(NewPictureBytes(999, 8, 999).size(), 999u);
  EXPECT_RAISES(7, "no room for the 1000 bytes of a picture of 8 x 1000 pixels",
                NewPictureBytes(1000, 8, 1000));
}

}  // namespace
}  // namespace quenzel7
