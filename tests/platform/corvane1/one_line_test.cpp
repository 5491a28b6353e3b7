#include "platform/corvane1/one_line.h"

#include <gtest/gtest.h>

namespace quenzel7::corvane1 {
namespace {

TEST(OneLine, LeavesALineAsItIs) {
  EXPECT_EQ(OneLine(""), "");
  EXPECT_EQ(OneLine(" a  line ~ \xC3\xA4"), " a  line ~ \xC3\xA4");
}

TEST(OneLine, ALineBreakIsOneBlankHoweverItIsWritten) {
  EXPECT_EQ(OneLine("a\r\nb\nc\rd"), "a b c d");
  EXPECT_EQ(OneLine("\r\n\r\n"), "  ");
  EXPECT_EQ(OneLine("\n\r"), "  ");
  EXPECT_EQ(OneLine("\n"), " ");
}

TEST(OneLine, EveryControlCharacterIsABlank) {
  EXPECT_EQ(OneLine("a\tb\x1F"
                    "c\x7F"
                    "d\x1B[2J"),
            "a b c d [2J");
  EXPECT_EQ(OneLine(std::string("a\0b", 3)), "a b");
}

}  // namespace
}  // namespace quenzel7::corvane1
