#include "platform/loomis2/alpha.h"

#include <gtest/gtest.h>

#include "tests/support/picture_samples.h"

namespace quenzel7::loomis2 {
namespace {

TEST(OverWhite, IsWhiteWithoutAlphaAndTheColourWithAllOfIt) {
  EXPECT_EQ(OverWhite(0x00000000), 0xFFFFFFu);
  EXPECT_EQ(OverWhite(0x00123456), 0xFFFFFFu);
  EXPECT_EQ(OverWhite(0xFF123456), 0x123456u);
  EXPECT_EQ(OverWhite(0xFF000000), 0x000000u);
}

TEST(OverWhite, MixesEachColourAndRoundsToTheNearest) {
  EXPECT_EQ(OverWhite(0x80000000), 0x7F7F7Fu);
  EXPECT_EQ(OverWhite(0x01000000), 0xFEFEFEu);
  EXPECT_EQ(OverWhite(0x80FF0040), 0xFF7F9Fu);  // 159.13
  EXPECT_EQ(OverWhite(0x40804020), 0xDFCFC7u);  // 223.1, 207.1, 199.0
  EXPECT_EQ(OverWhite(0x01800000), 0xFFFEFEu);  // 254.502
  EXPECT_EQ(OverWhite(0x017F0000), 0xFEFEFEu);  // 254.498
}

TEST(BlendOverWhite, LeavesAPictureWithoutAnyAlphaAsItIs) {
  Picture picture{2, 1, {0x00123456, 0x00ABCDEF}};
  EXPECT_FALSE(BlendOverWhite(picture));
  EXPECT_EQ(test::Shown(picture), "123456 ABCDEF");
}

TEST(BlendOverWhite, TakesAlphaAsInUseAsSoonAsAPixelHasAny) {
  Picture faint{1, 1, {0x01000000}};
  EXPECT_TRUE(BlendOverWhite(faint));
  EXPECT_EQ(test::Shown(faint), "FEFEFE");
  Picture picture{3, 1, {0x00123456, 0x01000000, 0xFF0000FF}};
  EXPECT_TRUE(BlendOverWhite(picture));
  EXPECT_EQ(test::Shown(picture), "FFFFFF FEFEFE 0000FF");
}

}  // namespace
}  // namespace quenzel7::loomis2
