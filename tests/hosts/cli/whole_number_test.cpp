#include "hosts/cli/whole_number.h"

#include <gtest/gtest.h>

namespace quenzel7::cli {
namespace {

TEST(WholeNumberFromText, IsTheNumberThatTheWholeTextIs) {
  EXPECT_EQ(WholeNumberFromText("0"), 0);
  EXPECT_EQ(WholeNumberFromText("007"), 7);
  EXPECT_EQ(WholeNumberFromText("2147483647"), 2147483647);
  EXPECT_EQ(WholeNumberFromText("-2147483648"), -2147483647 - 1);
  EXPECT_EQ(WholeNumberFromText(std::string_view("123").substr(0, 2)), 12);
}

TEST(WholeNumberFromText, IsNothingForOtherTexts) {
  for (const char* text : {"", "-", "x", "1x", " 1", "1 ", "+1", "1.0", "1e1", "2147483648", "-2147483649"}) {
    EXPECT_EQ(WholeNumberFromText(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace quenzel7::cli
