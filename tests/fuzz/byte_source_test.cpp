#include "fuzz/byte_source.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace quenzel7::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min(),
                       kMax = std::numeric_limits<std::int32_t>::max();

std::int32_t NumberOf(const Bytes& bytes) { return ByteSource(bytes).Number(); }
float RealOf(const Bytes& bytes) { return ByteSource(bytes).Real(); }

TEST(ByteSource, GivesByteAfterByteThenZeros) {
  const Bytes bytes{7, 255};
  ByteSource source(bytes);
  EXPECT_FALSE(source.IsUsedUp());
  EXPECT_EQ(source.Byte(), 7);
  EXPECT_FALSE(source.IsUsedUp());
  EXPECT_EQ(source.Byte(), 255);
  EXPECT_TRUE(source.IsUsedUp());
  EXPECT_EQ(source.Byte(), 0);
}

TEST(ByteSource, WordsHaveTheLowestByteFirst) {
  const Bytes bytes{0x01, 0x02, 0x03, 0xF4, 0x05};
  ByteSource source(bytes);
  EXPECT_EQ(source.Word(), 0xF4030201u);
  EXPECT_EQ(source.Byte(), 5);
}

TEST(ByteSource, NumbersOfOneByteAreSmall) {
  EXPECT_EQ(NumberOf({0}), -64);
  EXPECT_EQ(NumberOf({64}), 0);
  EXPECT_EQ(NumberOf({0xBF}), 127);
}

TEST(ByteSource, NumbersOfMoreBytesReachFurther) {
  EXPECT_EQ(NumberOf({0xC0, 0x34, 0x12}), 0x1234);
  EXPECT_EQ(NumberOf({0xDF, 0xFF, 0xFF}), -1);
  EXPECT_EQ(NumberOf({0xF0, 0x78, 0x56, 0x34, 0x12}), 0x12345678);
  EXPECT_EQ(NumberOf({0xFF, 0xFE, 0xFF, 0xFF, 0xFF}), -2);
}

TEST(ByteSource, NumbersIncludeTheEndsOfTheirRange) {
  EXPECT_EQ(NumberOf({0xE0}), kMin);
  EXPECT_EQ(NumberOf({0xE1}), kMin + 1);
  EXPECT_EQ(NumberOf({0xEF}), kMax);
}

TEST(ByteSource, RealsIncludeWhatIsNotFinite) {
  EXPECT_EQ(RealOf({0, 64 + 45}), 45.0F);
  EXPECT_EQ(RealOf({1, 64 + 7}), 1.0F);
  EXPECT_EQ(RealOf({0xF0}), 0.0F);
  EXPECT_EQ(RealOf({0xF6}), std::numeric_limits<float>::infinity());
  EXPECT_TRUE(std::isnan(RealOf({0xF7})));
  EXPECT_EQ(RealOf({0xFC}), std::numeric_limits<float>::max());
}

}  // namespace
}  // namespace quenzel7::fuzz
