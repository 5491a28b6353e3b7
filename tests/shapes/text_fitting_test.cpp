#include "shapes/text_fitting.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/corvane1/text_lines.h"
#include "platform/gdi/code_page.h"
#include "platform/platform.h"
#include "tests/support/raises.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using corvane1::ShownBox;
using corvane1::TextExtent;
using test::ErrorOf;

constexpr Long kLeast = std::numeric_limits<Long>::min(), kMost = std::numeric_limits<Long>::max();

/// Every character equally wide, but for some.
CharWidths Widths(Long each, std::initializer_list<std::pair<unsigned char, Long>> others = {}) {
  CharWidths widths;
  widths.fill(each);
  for (const auto& [code, width] : others) widths[code] = width;
  return widths;
}

/// A different width for every code, from 1000 on.
CharWidths WidthsByCode() {
  CharWidths widths;
  for (std::size_t code = 0; code < widths.size(); ++code) widths[code] = 1000 + static_cast<Long>(code);
  return widths;
}

const ShownBox kForeign = {"Tessaline can't handle Multibyte chars", 0, "Language is not supported"};
using Boxes = std::vector<ShownBox>;

/// The embedded services afresh; boxes are kept and not printed.
class Fitting : public ::testing::Test {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    Platform::Current().messageBoxes = boxes_;
  }
  void TearDown() override { Platform::Current() = Platform(); }

  /// The boxes shown since the last time.
  Boxes TakeBoxes() {
    const Boxes shown(boxes_->Shown().begin(), boxes_->Shown().end());
    boxes_->Clear();
    return shown;
  }

  static void SetCodePage(const std::string& number) {
    const auto settings =
        std::make_shared<corvane1::LayeredSettings>(std::make_shared<corvane1::HeldProjectDatabase>());
    settings->Set(7000, 1, number);
    Platform::Current().settings = settings;
  }

 private:
  const std::shared_ptr<corvane1::CollectedMessageBoxes> boxes_ =
      std::make_shared<corvane1::CollectedMessageBoxes>(nullptr);
};

/// What comes of fitting a text: the rest of it, full and used size.
struct Case {
  std::string text;
  gdi::RECT room;
  std::string fitted;
  TextExtent full, used;
};

/// In lines 10 pixels high.
void ExpectFitted(const CharWidths& widths, const std::vector<Case>& cases) {
  for (const Case& row : cases) {
    const FittedText fitted = FitTextToRect(row.text, row.room, 10, widths);
    const std::string place = "'" + row.text + "' in " + std::to_string(row.room.right - row.room.left) +
                              " x " + std::to_string(row.room.bottom - row.room.top);
    EXPECT_EQ(fitted.text, row.fitted) << place;
    EXPECT_EQ(fitted.full.width, row.full.width) << place;
    EXPECT_EQ(fitted.full.height, row.full.height) << place;
    EXPECT_EQ(fitted.used.width, row.used.width) << place;
    EXPECT_EQ(fitted.used.height, row.used.height) << place;
  }
}

gdi::RECT Room(Long width, Long height) { return {0, 0, width, height}; }

// --- One line ---

TEST_F(Fitting, ALineIsCutBeforeTheFirstCharacterThatDoesNotFit) {
  const corvane1::AnsiCodePage page;
  struct Row {
    Long width;
    std::string_view text;
    Long used;
  };
  for (const Row& row : {Row{-1, "", 0}, Row{0, "", 0}, Row{4, "", 0}, Row{5, "i", 5}, Row{6, "i", 5},
                         Row{24, "i", 5}, Row{25, "iW", 25}, Row{26, "iW", 25}, Row{29, "iW", 25},
                         Row{30, "iWi", 30}, Row{31, "iWi", 30}, Row{kLeast, "", 0}, Row{kMost, "iWi", 30}}) {
    const FittedLine line = FitLineToWidth("iWi", row.width, Widths(5, {{'W', 20}}), page);
    EXPECT_EQ(line.text, row.text) << row.width;
    EXPECT_EQ(line.usedWidth, row.used) << row.width;
    EXPECT_EQ(line.fullWidth, 30) << row.width;
  }
}

TEST_F(Fitting, ALineGoesOnFromItsOwnBeginning) {
  // A narrow character behind the cut is not taken although it would fit.
  const FittedLine line = FitLineToWidth("iWi", 10, Widths(5, {{'W', 20}}), corvane1::AnsiCodePage());
  EXPECT_EQ(line.text, "i");
  EXPECT_EQ(line.usedWidth, 5);
}

TEST_F(Fitting, ALineOfNoCharactersIsEmptyInAnyWidth) {
  for (const Long width : {kLeast, -1, 0, 1, kMost}) {
    const FittedLine line = FitLineToWidth("", width, Widths(5), corvane1::AnsiCodePage());
    EXPECT_EQ(line.text, "");
    EXPECT_EQ(line.fullWidth, 0);
    EXPECT_EQ(line.usedWidth, 0);
  }
}

TEST_F(Fitting, CharactersOfNoWidthStandWhereverTheLineHasGot) {
  const CharWidths widths = Widths(5, {{'0', 0}});
  const corvane1::AnsiCodePage page;
  EXPECT_EQ(FitLineToWidth("00ab00c", 10, widths, page).text, "00ab00");
  EXPECT_EQ(FitLineToWidth("00ab00c", 9, widths, page).text, "00a");
  EXPECT_EQ(FitLineToWidth("00", 0, widths, page).text, "00");
  EXPECT_EQ(FitLineToWidth("00", -1, widths, page).text, "");
  EXPECT_EQ(FitLineToWidth("00ab00c", 9, widths, page).fullWidth, 15);
}

TEST_F(Fitting, CharactersOfNegativeWidthTakeBackAndACutStays) {
  const CharWidths widths = Widths(5, {{'<', -5}});
  const corvane1::AnsiCodePage page;
  FittedLine line = FitLineToWidth("a<a<ab", 5, widths, page);
  EXPECT_EQ(line.text, "a<a<a");
  EXPECT_EQ(line.usedWidth, 5);
  EXPECT_EQ(line.fullWidth, 10);
  // The sum comes back below the width, behind the cut.
  line = FitLineToWidth("ab<<<", 5, widths, page);
  EXPECT_EQ(line.text, "a");
  EXPECT_EQ(line.usedWidth, 5);
  EXPECT_EQ(line.fullWidth, -5);
  line = FitLineToWidth("<<", -10, widths, page);
  EXPECT_EQ(line.text, "");
  EXPECT_EQ(line.usedWidth, 0);
  EXPECT_EQ(line.fullWidth, -10);
  line = FitLineToWidth("<<", -5, widths, page);
  EXPECT_EQ(line.text, "<<");
  EXPECT_EQ(line.usedWidth, -10);
}

TEST_F(Fitting, ACharacterOfSeveralBytesIsCutWhole) {
  const corvane1::AnsiCodePage page;
  const std::string line = "\xC3\xA4\xE2\x82\xAC!";
  EXPECT_EQ(FitLineToWidth(line, 9, Widths(5), page).text, "\xC3\xA4");
  EXPECT_EQ(FitLineToWidth(line, 10, Widths(5), page).text, "\xC3\xA4\xE2\x82\xAC");
  EXPECT_EQ(FitLineToWidth(line, 4, Widths(5), page).text, "");
  EXPECT_EQ(FitLineToWidth(line, 4, Widths(5), page).fullWidth, 15);
}

TEST_F(Fitting, ALineWiderThanAllNumbersIsAnError) {
  const corvane1::AnsiCodePage page;
  const CharWidths widths = Widths(1, {{'W', kMost}, {'N', kLeast}, {'-', -1}});
  EXPECT_EQ(FitLineToWidth("W", kMost, widths, page).usedWidth, kMost);
  EXPECT_RAISES(6, "overflow: 2147483647 + 1 does not fit 32 bits",
                FitLineToWidth("Wa", kMost, widths, page));
  // Also behind the cut.
  EXPECT_EQ(ErrorOf([&] { FitLineToWidth("Wa", 0, widths, page); }), 6);
  EXPECT_EQ(FitLineToWidth("N", kMost, widths, page).usedWidth, kLeast);
  EXPECT_RAISES(6, "overflow: -2147483648 + -1 does not fit 32 bits",
                FitLineToWidth("N-", kMost, widths, page));
  EXPECT_EQ(FitLineToWidth("NW", kMost, widths, page).usedWidth, -1);
}

// --- Texts in rectangles ---

TEST_F(Fitting, TextsAreCutToTheWidthLineByLine) {
  ExpectFitted(Widths(5, {{'W', 20}}),
               {{"iiii", Room(20, 10), "iiii", {20, 10}, {20, 10}},
                {"iiii", Room(21, 10), "iiii", {20, 10}, {20, 10}},
                {"iiii", Room(19, 10), "iii", {20, 10}, {15, 10}},
                {"iiii", Room(5, 10), "i", {20, 10}, {5, 10}},
                {"iiii", Room(4, 10), "", {20, 10}, {0, 10}},
                {"iiii", Room(0, 10), "", {20, 10}, {0, 10}},
                {"iWi", Room(29, 10), "iW", {30, 10}, {25, 10}},
                {"Wii", Room(19, 10), "", {30, 10}, {0, 10}},
                {"iii\r\nW", Room(19, 20), "iii\r\n", {20, 20}, {15, 20}},
                {"W\r\niii", Room(19, 20), "\r\niii", {20, 20}, {15, 20}},
                {"WW\r\ni\r\nWii", Room(25, 30), "W\r\ni\r\nWi", {40, 30}, {25, 30}}});
}

TEST_F(Fitting, LinesThatDoNotFitAreDroppedFromTheEnd) {
  const std::string text = "aaa\r\nbb\r\nc";
  ExpectFitted(Widths(10), {{text, Room(30, 29), "aaa\r\nbb", {30, 30}, {30, 20}},
                            {text, Room(30, 30), "aaa\r\nbb\r\nc", {30, 30}, {30, 30}},
                            {text, Room(30, 31), "aaa\r\nbb\r\nc", {30, 30}, {30, 30}},
                            {text, Room(30, 1000), "aaa\r\nbb\r\nc", {30, 30}, {30, 30}},
                            {text, Room(30, 20), "aaa\r\nbb", {30, 30}, {30, 20}},
                            {text, Room(30, 19), "aaa", {30, 30}, {30, 10}},
                            {text, Room(30, 10), "aaa", {30, 30}, {30, 10}},
                            {text, Room(30, 9), "", {30, 30}, {30, 0}},
                            {text, Room(30, 0), "", {30, 30}, {30, 0}}});
}

TEST_F(Fitting, LinesForWhichThereIsNoRoomCountForTheWidths) {
  ExpectFitted(Widths(10), {{"a\r\nbb\r\nccc", Room(30, 10), "a", {30, 30}, {30, 10}},
                            {"a\r\nbb\r\nccc", Room(29, 10), "a", {30, 30}, {20, 10}},
                            {"ccc\r\nbb\r\na", Room(15, 10), "c", {30, 30}, {10, 10}}});
}

TEST_F(Fitting, EmptyLinesAreLines) {
  ExpectFitted(Widths(10), {{"a\r\n\r\nb", Room(10, 30), "a\r\n\r\nb", {10, 30}, {10, 30}},
                            {"a\r\n\r\nb", Room(10, 20), "a\r\n", {10, 30}, {10, 20}},
                            {"a\r\n", Room(10, 20), "a\r\n", {10, 20}, {10, 20}},
                            {"a\r\n", Room(10, 19), "a", {10, 20}, {10, 10}},
                            {"\r\na", Room(10, 20), "\r\na", {10, 20}, {10, 20}},
                            {"\r\na", Room(10, 10), "", {10, 20}, {10, 10}},
                            {"\r\n", Room(10, 20), "\r\n", {0, 20}, {0, 20}},
                            {"\r\n", Room(10, 10), "", {0, 20}, {0, 10}},
                            {"\r\n\r\n", Room(0, 30), "\r\n\r\n", {0, 30}, {0, 30}}});
}

TEST_F(Fitting, HalfABreakIsACharacter) {
  ExpectFitted(Widths(10, {{'\r', 3}, {'\n', 4}}),
               {{"a\rb", Room(23, 10), "a\rb", {23, 10}, {23, 10}},
                {"a\rb", Room(22, 10), "a\r", {23, 10}, {13, 10}},
                {"a\nb", Room(24, 10), "a\nb", {24, 10}, {24, 10}},
                {"a\nb", Room(13, 10), "a", {24, 10}, {10, 10}},
                {"a\n\rb", Room(27, 20), "a\n\rb", {27, 10}, {27, 10}},
                {"a\r\r\nb", Room(13, 20), "a\r\r\nb", {13, 20}, {13, 20}},
                {"a\r\n\nb", Room(14, 20), "a\r\n\nb", {14, 20}, {14, 20}},
                {"a\r", Room(12, 10), "a", {13, 10}, {10, 10}}});
}

TEST_F(Fitting, ARectangleCountsByItsSizeWhereverItIs) {
  ExpectFitted(Widths(10),
               {{"abc\r\nd", {100, 200, 120, 210}, "ab", {30, 20}, {20, 10}},
                {"abc\r\nd", {-100, -200, -80, -190}, "ab", {30, 20}, {20, 10}},
                {"abc\r\nd", {-5, -5, 15, 15}, "ab\r\nd", {30, 20}, {20, 20}},
                {"abc\r\nd", {kMost - 20, kMost - 10, kMost, kMost}, "ab", {30, 20}, {20, 10}},
                {"abc\r\nd", {kLeast, kLeast, kLeast + 20, kLeast + 10}, "ab", {30, 20}, {20, 10}}});
}

TEST_F(Fitting, ANegativeRectangleHoldsNothing) {
  ExpectFitted(Widths(10), {{"ab\r\nc", Room(-1, 20), "\r\n", {20, 20}, {0, 20}},
                            {"ab\r\nc", Room(20, -1), "", {20, 20}, {20, 0}},
                            {"ab\r\nc", Room(20, -9), "", {20, 20}, {20, 0}},
                            {"ab\r\nc", Room(20, -10), "", {20, 20}, {20, -10}},
                            {"ab\r\nc", Room(20, -1000), "", {20, 20}, {20, -1000}},
                            {"ab\r\nc", Room(-1000, -1000), "", {20, 20}, {0, -1000}}});
}

TEST_F(Fitting, TheHeightOfALineDecidesHowManyThereAreRoomFor) {
  const std::string text = "a\r\nb\r\nc";
  struct Row {
    Long lineHeight;
    std::string fitted;
    Long full, used;
  };
  for (const Row& row :
       {Row{1, text, 3, 3}, Row{8, text, 24, 24}, Row{9, "a\r\nb", 27, 18}, Row{12, "a\r\nb", 36, 24},
        Row{13, "a", 39, 13}, Row{24, "a", 72, 24}, Row{25, "", 75, 0}, Row{-8, "", -24, 24}}) {
    const FittedText fitted = FitTextToRect(text, Room(10, 24), row.lineHeight, Widths(10));
    EXPECT_EQ(fitted.text, row.fitted) << row.lineHeight;
    EXPECT_EQ(fitted.full, (TextExtent{10, row.full})) << row.lineHeight;
    EXPECT_EQ(fitted.used, (TextExtent{10, row.used})) << row.lineHeight;
  }
}

TEST_F(Fitting, AnEmptyTextTakesNothingAndAsksNothing) {
  const auto settings = std::make_shared<test::TracedSettings>();
  Platform::Current().settings = settings;
  // A line height of 0 and a rectangle that cannot be are not looked at.
  const FittedText fitted = FitTextToRect("", {kLeast, kLeast, kMost, kMost}, 0, Widths(10));
  EXPECT_EQ(fitted.text, "");
  EXPECT_EQ(fitted.full, (TextExtent{0, 0}));
  EXPECT_EQ(fitted.used, (TextExtent{0, 0}));
  EXPECT_EQ(settings->asked, std::vector<std::string>{});
}

TEST_F(Fitting, NoWidthIsTakenForLessThanWhatAllLinesStartFrom) {
  const CharWidths widths = Widths(
      0, {{'a', -99998}, {'b', -99999}, {'c', -100000}, {'d', -999998}, {'e', -999999}, {'f', -1000000}});
  ExpectFitted(widths, {{"a", Room(0, 10), "a", {-99998, 10}, {-99998, 10}},
                        {"b", Room(0, 10), "b", {-99999, 10}, {-99999, 10}},
                        {"c", Room(0, 10), "c", {-99999, 10}, {-100000, 10}},
                        {"d", Room(0, 10), "d", {-99999, 10}, {-999998, 10}},
                        {"e", Room(0, 10), "e", {-99999, 10}, {-999999, 10}},
                        {"f", Room(0, 10), "f", {-99999, 10}, {-999999, 10}},
                        {"f\r\na", Room(0, 20), "f\r\na", {-99998, 20}, {-99998, 20}}});
}

// --- Errors ---

TEST_F(Fitting, ALineHeightOf0IsADivisionBy0) {
  EXPECT_RAISES(11, "a text cannot be fitted into lines of height 0",
                FitTextToRect("a", Room(10, 20), 0, Widths(10)));
  EXPECT_EQ(ErrorOf([] { FitTextToRect("a", Room(10, 0), 0, Widths(10)); }), 11);
}

TEST_F(Fitting, SizesBeyondAllNumbersAreErrors) {
  const CharWidths widths = Widths(10, {{'W', kMost}});
  EXPECT_RAISES(6, "overflow: 2147483647 - -1 does not fit 32 bits",
                FitTextToRect("a", {-1, 0, kMost, 10}, 10, widths));
  EXPECT_RAISES(6, "overflow: -2147483648 - 1 does not fit 32 bits",
                FitTextToRect("a", {1, 0, kLeast, 10}, 10, widths));
  EXPECT_RAISES(6, "overflow: 2147483647 - -2 does not fit 32 bits",
                FitTextToRect("a", {0, -2, 10, kMost}, 10, widths));
  EXPECT_EQ(ErrorOf([&] { FitTextToRect("a", {0, 0, kMost, kMost}, 10, widths); }), 0);
  EXPECT_RAISES(6, "overflow: 2147483647 + 10 does not fit 32 bits",
                FitTextToRect("Wa", Room(10, 10), 10, widths));
  // In a line for which there is no room, too.
  EXPECT_EQ(ErrorOf([&] { FitTextToRect("a\r\nWa", Room(10, 10), 10, widths); }), 6);
  EXPECT_RAISES(6, "overflow: 2 * 1073741824 does not fit 32 bits",
                FitTextToRect("a\r\nb", Room(10, 10), 1073741824, widths));
  EXPECT_EQ(FitTextToRect("a\r\nb", Room(10, 10), 1073741823, widths).full.height, 2147483646);
  EXPECT_EQ(ErrorOf([&] { FitTextToRect("a", {0, 0, 10, kLeast}, -1, widths); }), 6);
}

// --- Code pages ---

/// A character in UTF-8.
std::string Utf8(char32_t character) {
  const auto byte = [](char32_t bits) { return std::string(1, static_cast<char>(bits)); };
  if (character < 0x80) return byte(character);
  if (character < 0x800) return byte(0xC0 | character >> 6) + byte(0x80 | (character & 0x3F));
  return byte(0xE0 | character >> 12) + byte(0x80 | (character >> 6 & 0x3F)) +
         byte(0x80 | (character & 0x3F));
}

TEST_F(Fitting, EveryCharacterOfTheCodePageHasTheWidthOfItsCode) {
  struct Row {
    const char* page;
    std::uint8_t charSet;
    int characters;
  };
  const CharWidths widths = WidthsByCode();
  for (const Row& row :
       {Row{"1252", 0, 251}, Row{"1253", 161, 239}, Row{"1251", 204, 255}, Row{"1255", 177, 233}}) {
    SetCodePage(row.page);
    int characters = 0;
    Long code = 0;
    for (const char32_t character : gdi::CodePageOf(row.charSet)) {
      const Long own = code++;
      if (character == 0xFFFD) continue;
      ++characters;
      const std::string text = Utf8(character);
      const FittedText fitted = FitTextToRect(text, Room(1000 + own, 10), 10, widths);
      EXPECT_EQ(fitted.text, text) << row.page << " code " << own;
      EXPECT_EQ(fitted.full.width, 1000 + own) << row.page;
    }
    EXPECT_EQ(characters, row.characters) << row.page;
    EXPECT_EQ(TakeBoxes(), Boxes{}) << row.page;
  }
}

TEST_F(Fitting, TheSettingTellsTheCodePageAtEachFit) {
  const CharWidths widths = WidthsByCode();
  const std::string euro = "\xE2\x82\xAC", omega = "\xCF\x89", ya = "\xD1\x8F", alef = "\xD7\x90";
  const auto widthOf = [&](const std::string& text) {
    return FitTextToRect(text, Room(9999, 10), 10, widths).full.width;
  };
  // No setting is the Western page.
  EXPECT_EQ(widthOf(euro), 1000 + 0x80);
  EXPECT_EQ(widthOf("\xC3\xBF"), 1000 + 0xFF);
  SetCodePage("1253");
  EXPECT_EQ(widthOf(omega), 1000 + 0xF9);
  SetCodePage("1251");
  EXPECT_EQ(widthOf(ya), 1000 + 0xFF);
  EXPECT_EQ(widthOf(euro), 1000 + 0x88);
  SetCodePage("1255");
  EXPECT_EQ(widthOf(alef), 1000 + 0xE0);
  EXPECT_EQ(TakeBoxes(), Boxes{});
  EXPECT_EQ(widthOf(omega), 0);
  EXPECT_EQ(TakeBoxes(), Boxes{kForeign});
}

TEST_F(Fitting, TheSettingIsReadOncePerText) {
  const auto settings = std::make_shared<test::TracedSettings>();
  Platform::Current().settings = settings;
  FitTextToRect("a\r\nb\r\nc", Room(10, 10), 10, Widths(10));
  EXPECT_EQ(settings->asked, std::vector<std::string>{"7000/1/1252"});
}

TEST_F(Fitting, ASettingThatIsNoCodePageIsAnErrorThatNamesIt) {
  SetCodePage("932");
  EXPECT_RAISES(5, "setting 7000/1: code page 932: one of 437, 874, 1250 to 1258 is expected",
                FitTextToRect("a", Room(10, 10), 10, Widths(10)));
  // It comes before everything else.
  EXPECT_EQ(ErrorOf([] { FitTextToRect("a", Room(10, 10), 0, Widths(10)); }), 5);
  EXPECT_EQ(ErrorOf([] { FitTextToRect("a", {-1, 0, kMost, 0}, 10, Widths(10)); }), 5);
  SetCodePage("Greek");
  EXPECT_EQ(ErrorOf([] { FitTextToRect("a", Room(10, 10), 10, Widths(10)); }), 13);
  SetCodePage("3000000000");
  EXPECT_EQ(ErrorOf([] { FitTextToRect("a", Room(10, 10), 10, Widths(10)); }), 6);
}

// --- Characters that cannot be shown ---

const std::string kOmega = "\xCF\x89";

TEST_F(Fitting, ALineWithAForeignCharacterIsToldAndCountsAsEmpty) {
  const corvane1::AnsiCodePage page;
  for (const std::string& line : {kOmega, "a" + kOmega, kOmega + "a", "a" + kOmega + "b", kOmega + kOmega}) {
    const FittedLine fitted = FitLineToWidth(line, 100, Widths(10), page);
    EXPECT_EQ(fitted.text, "") << line;
    EXPECT_EQ(fitted.fullWidth, 0) << line;
    EXPECT_EQ(fitted.usedWidth, 0) << line;
    EXPECT_EQ(TakeBoxes(), Boxes{kForeign}) << line;
  }
}

TEST_F(Fitting, AForeignCharacterBehindTheCutIsToldToo) {
  const FittedLine fitted = FitLineToWidth("aaa" + kOmega, 10, Widths(10), corvane1::AnsiCodePage());
  EXPECT_EQ(fitted.text, "");
  EXPECT_EQ(fitted.fullWidth, 0);
  EXPECT_EQ(TakeBoxes(), Boxes{kForeign});
}

TEST_F(Fitting, FittingGoesOnWithTheNextLine) {
  ExpectFitted(Widths(10),
               {{"a\r\n" + kOmega + "bbbb\r\nccc", Room(20, 30), "a\r\n\r\ncc", {30, 30}, {20, 30}}});
  EXPECT_EQ(TakeBoxes(), Boxes{kForeign});
  ExpectFitted(Widths(10), {{kOmega + "\r\nb", Room(20, 30), "\r\nb", {10, 20}, {10, 20}}});
  EXPECT_EQ(TakeBoxes(), Boxes{kForeign});
  ExpectFitted(Widths(10), {{kOmega, Room(20, 30), "", {0, 10}, {0, 10}}});
  EXPECT_EQ(TakeBoxes(), Boxes{kForeign});
}

TEST_F(Fitting, EveryForeignLineIsToldOnceAtEveryFit) {
  const std::string text = kOmega + kOmega + "\r\na\r\n" + kOmega + "\r\n" + kOmega;
  for (int fit = 0; fit < 3; ++fit) {
    FitTextToRect(text, Room(100, 100), 10, Widths(10));
    EXPECT_EQ(TakeBoxes(), (Boxes{kForeign, kForeign, kForeign})) << fit;
  }
}

TEST_F(Fitting, AForeignLineForWhichThereIsNoRoomIsTold) {
  ExpectFitted(Widths(10), {{"a\r\n" + kOmega + "\r\nb", Room(20, 10), "a", {10, 30}, {10, 10}}});
  EXPECT_EQ(TakeBoxes(), Boxes{kForeign});
  ExpectFitted(Widths(10), {{kOmega, Room(20, 0), "", {0, 10}, {0, 0}}});
  EXPECT_EQ(TakeBoxes(), Boxes{kForeign});
}

TEST_F(Fitting, BytesThatAreNoCharacterAreForeign) {
  for (const std::string bytes : {"\xFF", "\x80", "\xC3", "\xE2\x82", "\xC0\xAF", "\xED\xA0\x80",
                                  "\xEF\xBF\xBD", "\xF0\x9F\x98\x80", "\xE4\xB8\xAD"}) {
    ExpectFitted(Widths(10), {{"a" + bytes + "b\r\nc", Room(20, 20), "\r\nc", {10, 20}, {10, 20}}});
    EXPECT_EQ(TakeBoxes(), Boxes{kForeign});
  }
}

TEST_F(Fitting, ABreakEndsAForeignCharacter) {
  // The bytes left over do not reach into the break.
  ExpectFitted(Widths(10), {{"a\xE2\x82\r\nb", Room(20, 20), "\r\nb", {10, 20}, {10, 20}}});
  EXPECT_EQ(TakeBoxes(), Boxes{kForeign});
}

TEST_F(Fitting, OnlyAForeignCharacterIsTold) {
  FitTextToRect("a\r\n\xC3\xA4", Room(0, 0), 10, Widths(10));
  EXPECT_EQ(TakeBoxes(), Boxes{});
}

TEST_F(Fitting, WhatTheUserAnswersChangesNothing) {
  const auto boxes = std::make_shared<corvane1::CollectedMessageBoxes>(nullptr);
  boxes->Answer(-1);
  Platform::Current().messageBoxes = boxes;
  ExpectFitted(Widths(10), {{kOmega + "\r\nb", Room(20, 30), "\r\nb", {10, 20}, {10, 20}}});
}

// --- The fonts of the panel ---

TEST_F(Fitting, InTheFontsOfThePanelTheFullSizeIsTheRectangleOfTheText) {
  corvane1::FontService& fonts = *Platform::Current().fontService;
  for (const Long font : {0, 1, 2, 3, 10, 19, 28, 37, 39}) {
    for (const std::string text :
         {"i", "Width", "five\r\nlines\r\n\r\nof text,\r\nWWW", "\xE2\x82\xAC 5.00"}) {
      const FittedText fitted =
          FitTextToRect(text, Room(30, 40), fonts.GetCharHeight(font), fonts.GetCharWidths(font));
      EXPECT_EQ(fitted.full, fonts.GetTextRect(text, font)) << text << " in font " << font;
    }
  }
}

TEST_F(Fitting, InAFontOfThePanelATextIsCutWhereItsRectangleEnds) {
  corvane1::FontService& fonts = *Platform::Current().fontService;
  const auto widths = fonts.GetCharWidths(0);
  // 8 x 16 pixels each.
  ASSERT_EQ(fonts.GetCharHeight(0), 16);
  const auto fitted = [&](Long width, Long height) {
    return FitTextToRect("Pump 1\r\nof 3", Room(width, height), 16, widths).text;
  };
  EXPECT_EQ(fitted(48, 32), "Pump 1\r\nof 3");
  EXPECT_EQ(fitted(47, 32), "Pump \r\nof 3");
  EXPECT_EQ(fitted(31, 32), "Pum\r\nof ");
  EXPECT_EQ(fitted(48, 31), "Pump 1");
  EXPECT_EQ(fitted(48, 15), "");
}

// --- What holds of every text ---

/// A number from low to high, both included, each as likely as the others from the first try on.
Long Between(Long low, Long high) {
  return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(low, high + 1));
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  corvane1::ForEachLine(text, [&](std::string_view line) { lines.emplace_back(line); });
  return lines;
}

/// Characters of one and of more bytes, halves of breaks and, seldom, a foreign one.
std::string AnyLine() {
  static const char* const kCharacters[] = {"a",        "W",  "i",  " ", "\xC3\xA4", "\xE2\x82\xAC",
                                            "\xC5\x93", "\r", "\n", ".", "0",        "\xCF\x89"};
  std::string line;
  for (Long left = Between(0, 12); left > 0; --left) {
    // Two such halves in a row would be a break.
    const auto last = static_cast<Long>(std::size(kCharacters)) - (Between(0, 9) > 0 ? 2 : 1);
    const std::string next = kCharacters[Between(0, last)];
    if (next != "\n" || line.empty() || line.back() != '\r') line += next;
  }
  return line;
}

std::string AnyText() {
  std::string text = AnyLine();
  for (Long more = Between(0, 5); more > 0; --more) text += "\r\n" + AnyLine();
  return text;
}

CharWidths AnyWidths(Long least) {
  CharWidths widths;
  for (Long& width : widths) width = Between(least, 12);
  return widths;
}

void Check(const std::function<void()>& property) {
  // The same cases in every run, unless the caller asks for others.
  setenv("RC_PARAMS", "seed=20", 0);
  EXPECT_TRUE(rc::check(property));
}

TEST_F(Fitting, NoTextExceedsItsRectangleAndAllOfThemAreBeginningsLineByLine) {
  Check([] {
    const std::string text = AnyText();
    const CharWidths widths = AnyWidths(0);
    const Long width = Between(0, 80), height = Between(0, 60), lineHeight = Between(1, 16);
    const FittedText fitted = FitTextToRect(text, Room(width, height), lineHeight, widths);
    const std::vector<std::string> lines = LinesOf(text), kept = LinesOf(fitted.text);
    RC_ASSERT(kept.size() <= lines.size());
    for (std::size_t i = 0; i < kept.size(); ++i)
      RC_ASSERT(lines[i].compare(0, kept[i].size(), kept[i]) == 0);
    if (!fitted.text.empty()) RC_ASSERT(static_cast<Long>(kept.size()) * lineHeight <= height);
    RC_ASSERT(fitted.used.width <= width);
    RC_ASSERT(fitted.used.height <= height);
    RC_ASSERT(fitted.used.width <= fitted.full.width);
    RC_ASSERT(fitted.used.height <= fitted.full.height);
    // What is left measures no more than the rectangle.
    const TextExtent left = FitTextToRect(fitted.text, Room(kMost, kMost), lineHeight, widths).full;
    RC_ASSERT(left.width <= fitted.used.width);
    RC_ASSERT(left.height <= height);
  });
}

TEST_F(Fitting, AFittedTextFitsAsItIs) {
  Check([] {
    const std::string text = AnyText();
    const CharWidths widths = AnyWidths(-6);
    const gdi::RECT room = Room(Between(-10, 80), Between(-10, 60));
    const Long lineHeight = Between(1, 16);
    const FittedText once = FitTextToRect(text, room, lineHeight, widths);
    const FittedText again = FitTextToRect(once.text, room, lineHeight, widths);
    RC_ASSERT(again.text == once.text);
    RC_ASSERT(again.used.width <= once.used.width || once.text.empty());
  });
}

TEST_F(Fitting, TheFullSizeIsTheSameInEveryRectangle) {
  Check([] {
    const std::string text = AnyText();
    const CharWidths widths = AnyWidths(-6);
    const Long lineHeight = Between(1, 16);
    const auto fullIn = [&](const gdi::RECT& room) {
      return FitTextToRect(text, room, lineHeight, widths).full;
    };
    const gdi::RECT room{Between(-50, 50), Between(-50, 50), Between(-50, 90), Between(-50, 90)};
    RC_ASSERT(fullIn(room) == fullIn(Room(kMost, kMost)));
  });
}

TEST_F(Fitting, NoMoreFitsIntoTheRectangle) {
  Check([] {
    const std::string text = AnyText();
    const CharWidths widths = AnyWidths(0);
    const Long width = Between(0, 80), height = Between(0, 60), lineHeight = Between(1, 16);
    const FittedText fitted = FitTextToRect(text, Room(width, height), lineHeight, widths);
    const std::vector<std::string> lines = LinesOf(text);
    const auto room = static_cast<std::size_t>(height / lineHeight);
    if (room == 0) {
      RC_ASSERT(fitted.text.empty());
      return;
    }
    if (text.empty()) return;
    const std::vector<std::string> kept = LinesOf(fitted.text);
    RC_ASSERT(kept.size() == std::min(lines.size(), room));
    for (std::size_t i = 0; i < kept.size(); ++i) {
      if (kept[i] == lines[i] || lines[i].find(kOmega) != std::string::npos) continue;
      std::size_t end = kept[i].size() + 1;
      while (end < lines[i].size() && (static_cast<unsigned char>(lines[i][end]) & 0xC0) == 0x80) ++end;
      const std::string longer = lines[i].substr(0, end);
      RC_ASSERT(FitTextToRect(longer, Room(kMost, kMost), lineHeight, widths).full.width > width);
    }
  });
}

}  // namespace
}  // namespace quenzel7
