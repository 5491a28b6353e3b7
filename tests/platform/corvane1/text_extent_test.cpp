#include "platform/corvane1/text_extent.h"

#include <gtest/gtest.h>

namespace quenzel7::corvane1 {
namespace {

constexpr Long kMost = std::numeric_limits<Long>::max();

TextExtent ExtentOf(std::string_view text) {
  return ExtentOfLines(text, 10, [](std::string_view line) { return 3 * static_cast<Long>(line.size()); });
}

TEST(ExtentOfLines, IsTheWidestLineAndAllHeights) {
  EXPECT_EQ(ExtentOf("abc"), (TextExtent{9, 10}));
  EXPECT_EQ(ExtentOf("a\r\nabcd\r\nab"), (TextExtent{12, 30}));
  EXPECT_EQ(ExtentOf("a\r\n"), (TextExtent{3, 20}));
}

TEST(ExtentOfLines, OfAnEmptyTextIsNothing) {
  EXPECT_EQ(ExtentOf(""), (TextExtent{0, 0}));
  EXPECT_EQ(ExtentOf("\r\n"), (TextExtent{0, 20}));
}

TEST(ExtentOfLines, BeyondAllNumbersIsTheLargest) {
  const auto wide = [](std::int64_t width) {
    return ExtentOfLines("a", kMost, [&](std::string_view) { return width; });
  };
  EXPECT_EQ(wide(kMost), (TextExtent{kMost, kMost}));
  EXPECT_EQ(wide(std::int64_t{kMost} + 1), (TextExtent{kMost, kMost}));
  EXPECT_EQ(ExtentOfLines("\r\n", kMost, [](std::string_view) { return 0; }), (TextExtent{0, kMost}));
}

}  // namespace
}  // namespace quenzel7::corvane1
