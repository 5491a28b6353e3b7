#include "platform/loomis2/png_reader.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/platform/automation/allocation_watch.h"
#include "tests/support/coded_pictures.h"
#include "tests/support/picture_samples.h"
#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

using test::PngBytes;
using test::Shown;

TEST(Png, IsPutOnWhite) {
  EXPECT_EQ(Shown(ReadPng(PngBytes({.width = 2,
                                    .height = 2,
                                    .rows = {0x11, 0x22, 0x33, 0xFF, 0, 0, 0, 0,  //
                                             0, 0, 0, 0x80, 0x44, 0x55, 0x66, 0xFF}}))),
            "112233 FFFFFF / 7F7F7F 445566");
}

TEST(Png, WithoutAnyAlphaInUseIsWhite) {
  EXPECT_EQ(Shown(ReadPng(PngBytes({.rows = {0x11, 0x22, 0x33, 0}}))), "FFFFFF");
}

TEST(Png, OfEveryKindOfColour) {
  EXPECT_EQ(Shown(ReadPng(PngBytes({.width = 2, .bits = 8, .colorType = 2, .rows = {1, 2, 3, 4, 5, 6}}))),
            "010203 040506");
  EXPECT_EQ(Shown(ReadPng(PngBytes({.width = 2, .bits = 8, .colorType = 0, .rows = {0x12, 0xFE}}))),
            "121212 FEFEFE");
  EXPECT_EQ(Shown(ReadPng(PngBytes({.width = 2, .bits = 1, .colorType = 0, .rows = {0x40}}))),
            "000000 FFFFFF");
  EXPECT_EQ(Shown(ReadPng(PngBytes(
                {.width = 2, .bits = 2, .colorType = 3, .rows = {0x60}, .colors = {1, 0x112233, 0x445566}}))),
            "112233 445566");
  EXPECT_EQ(Shown(ReadPng(PngBytes({.bits = 16, .colorType = 2, .rows = {0x80, 0, 0x40, 0, 0x20, 0}}))),
            "804020");
}

TEST(Png, ThatIsDamagedIsRefused) {
  std::vector<Byte> file = PngBytes({.rows = {1, 2, 3, 4}});
  file[16] ^= 1;
  EXPECT_RAISES(481, "the png picture cannot be read: IHDR: CRC error", ReadPng(file));
  file[16] ^= 1;
  file.resize(50);
  EXPECT_RAISES(481, "the png picture cannot be read: read beyond end of data", ReadPng(file));
}

TEST(Png, OfAHugeSizeIsRefusedBeforeMemoryIsTaken) {
  const automation::AllocationWatch watch;
  EXPECT_RAISES(481, "a picture of 20000 x 20000 pixels is too large: expected at most 67108864",
                ReadPng(test::PngHeader(20000, 20000)));
  EXPECT_RAISES(
      481, "a picture of 5000 x 6000 pixels is too large for 41 bytes: expected at most 8256 pixels a byte",
      ReadPng(test::PngHeader(5000, 6000)));
  EXPECT_LT(watch.Biggest(), 1000u);
  EXPECT_RAISES(481, "the png picture cannot be read: read beyond end of data",
                ReadPng(test::PngHeader(41, 8256)));
}

TEST(Png, ThatIsBlankMayHaveVeryManyPixelsAByte) {
  const std::vector<Byte> file = PngBytes(
      {.width = 4096, .height = 4096, .bits = 1, .colorType = 0, .rows = std::vector<Byte>(4096 * 512)});
  EXPECT_LT(file.size(), 4096u);
  EXPECT_EQ(ReadPng(file).pixels, std::vector<std::uint32_t>(4096 * 4096));
}

}  // namespace
}  // namespace quenzel7::loomis2
