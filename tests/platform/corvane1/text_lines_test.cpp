#include "platform/corvane1/text_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quenzel7::corvane1 {
namespace {

using Lines = std::vector<std::string>;

Lines LinesOf(std::string_view text) {
  Lines lines;
  ForEachLine(text, [&](std::string_view line) { lines.emplace_back(line); });
  return lines;
}

TEST(ForEachLine, VisitsTheLinesInOrder) {
  EXPECT_EQ(LinesOf("one"), (Lines{"one"}));
  EXPECT_EQ(LinesOf("one\r\ntwo\r\nthree"), (Lines{"one", "two", "three"}));
}

TEST(ForEachLine, LinesMayBeEmpty) {
  EXPECT_EQ(LinesOf(""), (Lines{""}));
  EXPECT_EQ(LinesOf("\r\n"), (Lines{"", ""}));
  EXPECT_EQ(LinesOf("one\r\n\r\ntwo\r\n"), (Lines{"one", "", "two", ""}));
}

TEST(ForEachLine, OneHalfOfABreakIsACharacter) {
  EXPECT_EQ(LinesOf("a\nb\rc\n\rd"), (Lines{"a\nb\rc\n\rd"}));
  EXPECT_EQ(LinesOf("a\r\r\nb"), (Lines{"a\r", "b"}));
}

}  // namespace
}  // namespace quenzel7::corvane1
