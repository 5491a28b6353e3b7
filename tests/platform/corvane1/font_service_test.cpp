#include "platform/corvane1/font_service.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <vector>

#include "platform/corvane1/panel_font_service.h"
#include "tests/support/font_double.h"
#include "tests/support/raises.h"

namespace quenzel7::corvane1 {
namespace {

constexpr Long kLeast = std::numeric_limits<Long>::min(), kMost = std::numeric_limits<Long>::max();

class GetTextPosition : public ::testing::Test {
 protected:
  GetTextPosition() { fonts_.Measures("text", {30, 10}); }

  TextPosition At(Long x, Long y, Long width, Long height, Long alignment, Long frameFlag = 0) {
    return fonts_.GetTextPosition("text", 5, x, y, width, height, alignment, frameFlag);
  }
  /// In a rectangle at (100, 200) with room to spare on both sides.
  TextPosition Standing(Long alignment) { return At(100, 200, 51, 33, alignment); }

  test::FontDouble::Log log_ = std::make_shared<std::vector<std::string>>();
  test::FontDouble fonts_{log_};
};

TEST_F(GetTextPosition, StandsInNineAlignmentsByRows) {
  EXPECT_EQ(Standing(0), (TextPosition{100, 200}));
  EXPECT_EQ(Standing(1), (TextPosition{110, 200}));
  EXPECT_EQ(Standing(2), (TextPosition{121, 200}));
  EXPECT_EQ(Standing(3), (TextPosition{100, 211}));
  EXPECT_EQ(Standing(4), (TextPosition{110, 211}));
  EXPECT_EQ(Standing(5), (TextPosition{121, 211}));
  EXPECT_EQ(Standing(6), (TextPosition{100, 223}));
  EXPECT_EQ(Standing(7), (TextPosition{110, 223}));
  EXPECT_EQ(Standing(8), (TextPosition{121, 223}));
}

TEST_F(GetTextPosition, AnyOtherAlignmentIsTopLeft) {
  for (const Long alignment : {kLeast, -1, 9, 10, kMost}) {
    EXPECT_EQ(Standing(alignment), (TextPosition{100, 200})) << alignment;
  }
}

TEST_F(GetTextPosition, MeasuresTheTextInItsFontOnce) {
  Standing(4);
  EXPECT_EQ(*log_, (std::vector<std::string>{"measure text in font 5"}));
}

TEST_F(GetTextPosition, KeepsClearOfARaisedAndASunkenFrame) {
  for (const Long flag : {1, 3}) {
    EXPECT_EQ(At(100, 200, 58, 38, 0, flag), (TextPosition{104, 204})) << flag;
    EXPECT_EQ(At(100, 200, 58, 38, 4, flag), (TextPosition{114, 214})) << flag;
    EXPECT_EQ(At(100, 200, 58, 38, 8, flag), (TextPosition{124, 224})) << flag;
  }
}

TEST_F(GetTextPosition, AnyOtherFlagIsNoFrame) {
  for (const Long flag : {kLeast, -1, 0, 2, 4, 5, kMost}) {
    EXPECT_EQ(At(100, 200, 58, 38, 0, flag), (TextPosition{100, 200})) << flag;
    EXPECT_EQ(At(100, 200, 58, 38, 8, flag), (TextPosition{128, 228})) << flag;
  }
}

TEST_F(GetTextPosition, AnOptimalSizeHoldsTheTextExactlyInEveryAlignment) {
  for (Long alignment = 0; alignment < 9; ++alignment) {
    EXPECT_EQ(At(100, 200, 38, 18, alignment, 1), (TextPosition{104, 204})) << alignment;
    EXPECT_EQ(At(100, 200, 30, 10, alignment), (TextPosition{100, 200})) << alignment;
  }
}

TEST_F(GetTextPosition, WhatFittingAllowsInAFrameBeginsInsideIt) {
  for (Long alignment = 0; alignment < 9; ++alignment) {
    EXPECT_EQ(At(100, 200, 37, 17, alignment, 1), (TextPosition{104, 204})) << alignment;
  }
}

TEST_F(GetTextPosition, ATextThatIsTooLargeShowsItsBeginning) {
  for (Long alignment = 0; alignment < 9; ++alignment) {
    EXPECT_EQ(At(100, 200, 10, 4, alignment), (TextPosition{100, 200})) << alignment;
    EXPECT_EQ(At(100, 200, 0, 0, alignment, 1), (TextPosition{104, 204})) << alignment;
    EXPECT_EQ(At(100, 200, -5, kLeast, alignment, 3), (TextPosition{104, 204})) << alignment;
  }
}

TEST_F(GetTextPosition, HalvesGoToTheLeftAndUp) {
  EXPECT_EQ(At(0, 0, 31, 11, 4), (TextPosition{0, 0}));
  EXPECT_EQ(At(0, 0, 32, 12, 4), (TextPosition{1, 1}));
  EXPECT_EQ(At(-1, -1, 33, 13, 4), (TextPosition{0, 0}));
}

TEST_F(GetTextPosition, AnEmptyTextStandsAtAPointOfTheRectangle) {
  EXPECT_EQ(fonts_.GetTextPosition("", 5, 10, 20, 7, 9, 4, 0), (TextPosition{13, 24}));
  EXPECT_EQ(fonts_.GetTextPosition("", 5, 10, 20, 7, 9, 8, 0), (TextPosition{17, 29}));
}

TEST_F(GetTextPosition, BeyondAllNumbersIsAnError) {
  EXPECT_EQ(At(kMost - 21, kMost - 23, 51, 33, 8), (TextPosition{kMost, kMost}));
  EXPECT_EQ(test::ErrorOf([&] { At(kMost - 20, 0, 51, 33, 8); }), 6);
  EXPECT_EQ(test::ErrorOf([&] { At(0, kMost - 22, 51, 33, 8); }), 6);
  EXPECT_EQ(At(kMost - 4, kMost - 4, 0, 0, 0, 1), (TextPosition{kMost, kMost}));
  EXPECT_EQ(test::ErrorOf([&] { At(kMost - 3, 0, 0, 0, 0, 1); }), 6);
  EXPECT_EQ(test::ErrorOf([&] { At(0, kMost - 3, 0, 0, 0, 1); }), 6);
  EXPECT_EQ(At(kLeast, kLeast, kMost, kMost, 8), (TextPosition{-31, -11}));
}

TEST(GetTextPositionOfThePanel, TakesAllLinesAsOneBlock) {
  PanelFontService fonts;
  EXPECT_EQ(fonts.GetTextPosition("abc\r\nx", 0, 10, 20, 100, 100, 4, 0), (TextPosition{48, 54}));
  EXPECT_EQ(fonts.GetTextPosition("abc\r\nx", 0, 10, 20, 100, 100, 8, 1), (TextPosition{82, 84}));
}

/// Characters of font 3 as wide as they are told, all others 4 pixels wide; other fonts have no width.
class WideFonts final : public test::FontDouble {
 public:
  explicit WideFonts(std::map<char, Long> widths)
      : FontDouble(std::make_shared<std::vector<std::string>>()), wider_(std::move(widths)) {}
  std::array<Long, 256> GetCharWidths(Long fontNumber) override {
    std::array<Long, 256> widths{};
    if (fontNumber != 3) return widths;
    widths.fill(4);
    for (const auto& [character, width] : wider_) widths[static_cast<unsigned char>(character)] = width;
    return widths;
  }

 private:
  std::map<char, Long> wider_;
};

TEST(GetGUIDigit, IsTheWidest) {
  for (Long digit = 0; digit <= 9; ++digit) {
    EXPECT_EQ(WideFonts({{static_cast<char>('0' + digit), 5}}).GetGUIDigit(3), digit);
  }
}

TEST(GetGUIDigit, IsTheGreatestOfThoseAsWide) {
  EXPECT_EQ(WideFonts({}).GetGUIDigit(3), 9);
  EXPECT_EQ(WideFonts({{'0', 5}, {'1', 5}}).GetGUIDigit(3), 1);
  EXPECT_EQ(WideFonts({{'3', 5}, {'7', 5}}).GetGUIDigit(3), 7);
  EXPECT_EQ(WideFonts({{'3', 6}, {'7', 5}}).GetGUIDigit(3), 3);
  EXPECT_EQ(WideFonts({{'3', 5}, {'7', 6}}).GetGUIDigit(3), 7);
  EXPECT_EQ(WideFonts({{'0', 6}, {'9', 5}}).GetGUIDigit(3), 0);
}

TEST(GetGUIDigit, LooksAtDigitsOfThatFontOnly) {
  EXPECT_EQ(WideFonts({{'/', 9}, {':', 9}, {'2', 5}}).GetGUIDigit(3), 2);
  EXPECT_EQ(WideFonts({{'2', 5}}).GetGUIDigit(2), 9);
}

}  // namespace
}  // namespace quenzel7::corvane1
