#include "platform/loomis2/begins_with.h"

#include <gtest/gtest.h>

#include <vector>

namespace quenzel7::loomis2 {
namespace {

TEST(BeginsWith, ComparesEveryByteOfTheMark) {
  const std::vector<Byte> bytes{0xFF, 0xD8, 0x00};
  EXPECT_TRUE(BeginsWith(bytes, ""));
  EXPECT_TRUE(BeginsWith(bytes, "\xFF"));
  EXPECT_TRUE(BeginsWith(bytes, "\xFF\xD8"));
  EXPECT_TRUE(BeginsWith(bytes, std::string_view("\xFF\xD8\0", 3)));
  EXPECT_FALSE(BeginsWith(bytes, std::string_view("\xFF\xD8\0\0", 4)));
  EXPECT_FALSE(BeginsWith(bytes, "\xFE"));
  EXPECT_FALSE(BeginsWith(bytes, "\xFF\xD9"));
  EXPECT_FALSE(BeginsWith({}, "B"));
}

}  // namespace
}  // namespace quenzel7::loomis2
