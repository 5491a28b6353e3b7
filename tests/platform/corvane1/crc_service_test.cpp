#include "platform/corvane1/crc_service.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace quenzel7::corvane1 {
namespace {

Long CrcOf(std::string_view text) {
  const std::vector<Byte> bytes(text.begin(), text.end());
  return StandardCrc().Crc(bytes);
}

TEST(StandardCrc, GivesTheKnownValuesAsSignedNumbers) {
  EXPECT_EQ(CrcOf("123456789"), static_cast<Long>(0xCBF43926));
  EXPECT_LT(CrcOf("123456789"), 0);
  EXPECT_EQ(CrcOf("a"), static_cast<Long>(0xE8B7BE43));
  EXPECT_EQ(CrcOf("abc"), 0x352441C2);
}

TEST(StandardCrc, OfNothingIs0) {
  EXPECT_EQ(CrcOf(""), 0);
  EXPECT_EQ(StandardCrc().Crc({}), 0);
  const Byte one = 1;
  EXPECT_EQ(StandardCrc().Crc({&one, 0}), 0);
}

TEST(StandardCrc, CountsZeroBytesToo) {
  EXPECT_EQ(StandardCrc().Crc(std::vector<Byte>(1)), static_cast<Long>(0xD202EF8D));
  EXPECT_EQ(StandardCrc().Crc(std::vector<Byte>(4)), 0x2144DF1C);
}

}  // namespace
}  // namespace quenzel7::corvane1
