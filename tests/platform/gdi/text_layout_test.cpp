#include "platform/gdi/text_layout.h"

#include <gtest/gtest.h>

#include "tests/platform/gdi/font_samples.h"

namespace quenzel7::gdi {
namespace {

using Lines = std::vector<std::string>;

/// Unifont at 16 pixels: every character is 8 wide.
Font& Eights() {
  thread_local const auto font = FontFor(Described("Unifont", 16));
  return *font;
}

/// The lines as they are painted, stretches between tabs with the column that each begins in: "ab@0 c@32".
Lines Laid(std::string_view text, const TextRules& rules) {
  TextLayout layout;
  layout.Lay(Eights(), text, rules);
  Lines lines;
  for (const TextLayout::Line& line : layout.Lines()) {
    std::string shown;
    layout.ForEachPart(
        Eights(), line,
        [&](std::int64_t x, std::string_view part) {
          if (!shown.empty()) shown += ' ';
          shown.append(part).append("@").append(std::to_string(x));
        },
        [&](std::int64_t x, std::int64_t width) {
          shown += " _" + std::to_string(x) + "+" + std::to_string(width);
        });
    lines.push_back(shown + " |" + std::to_string(line.width));
  }
  return lines;
}

TextRules Breaking(std::int64_t width) {
  TextRules rules;
  rules.width = width;
  rules.breaksWords = true;
  return rules;
}

TEST(TextLayout, BreaksAtLineEndsOfEveryKind) {
  EXPECT_EQ(Laid("a\r\nbc\rd\ne", {}), (Lines{"a@0 |8", "bc@0 |16", "d@0 |8", "e@0 |8"}));
  EXPECT_EQ(Laid("a\n\rb", {}), (Lines{"a@0 |8", " |0", "b@0 |8"}));
  EXPECT_EQ(Laid("a\n\nb", {}), (Lines{"a@0 |8", " |0", "b@0 |8"}));
  EXPECT_EQ(Laid("\na", {}), (Lines{" |0", "a@0 |8"}));
}

TEST(TextLayout, ALineEndAtTheEndBeginsNoLine) {
  EXPECT_EQ(Laid("a\r\n", {}), Lines{"a@0 |8"});
  EXPECT_EQ(Laid("a\n\n", {}), (Lines{"a@0 |8", " |0"}));
  EXPECT_EQ(Laid("\n", {}), Lines{" |0"});
}

TEST(TextLayout, AnEmptyTextIsOneEmptyLine) {
  EXPECT_EQ(Laid("", {}), Lines{" |0"});
  TextRules single;
  single.isSingleLine = true;
  EXPECT_EQ(Laid("", single), Lines{" |0"});
}

TEST(TextLayout, ASingleLineKeepsLineEndsAsCharacters) {
  TextRules single;
  single.isSingleLine = true;
  const Lines lines = Laid("a\nb", single);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].substr(0, 5), "a\nb@0");
}

TEST(TextLayout, BreaksAtTheSpacesBeforeAWordThatDoesNotFit) {
  EXPECT_EQ(Laid("ab cd", Breaking(40)), Lines{"ab cd@0 |40"});
  EXPECT_EQ(Laid("ab cd", Breaking(39)), (Lines{"ab@0 |16", "cd@0 |16"}));
  EXPECT_EQ(Laid("ab   cd ef", Breaking(40)), (Lines{"ab@0 |16", "cd ef@0 |40"}));
  EXPECT_EQ(Laid("a b c d", Breaking(24)), (Lines{"a b@0 |24", "c d@0 |24"}));
  EXPECT_EQ(Laid("ab\ncd ef", Breaking(24)), (Lines{"ab@0 |16", "cd@0 |16", "ef@0 |16"}));
}

TEST(TextLayout, BreaksAtTabsTooEvenWithoutStops) {
  EXPECT_EQ(Laid("ab\tcd", Breaking(24)), (Lines{"ab@0 |16", "cd@0 |16"}));
  EXPECT_EQ(Laid("ab \t cd", Breaking(24)), (Lines{"ab@0 |16", "cd@0 |16"}));
}

TEST(TextLayout, AWordThatIsTooWideHasALineOfItsOwn) {
  EXPECT_EQ(Laid("abcdef", Breaking(24)), Lines{"abcdef@0 |48"});
  EXPECT_EQ(Laid("a bcdef g", Breaking(24)), (Lines{"a@0 |8", "bcdef@0 |40", "g@0 |8"}));
  EXPECT_EQ(Laid("  abc", Breaking(24)), Lines{"  abc@0 |40"});
  EXPECT_EQ(Laid("a b", Breaking(0)), (Lines{"a@0 |8", "b@0 |8"}));
  EXPECT_EQ(Laid("a b", Breaking(-100)), (Lines{"a@0 |8", "b@0 |8"}));
}

TEST(TextLayout, SpacesAtTheEndNeverBreak) { EXPECT_EQ(Laid("ab   ", Breaking(24)), Lines{"ab   @0 |40"}); }

TEST(TextLayout, WithoutBreakingLinesMayBeWider) {
  TextRules rules;
  rules.width = 8;
  EXPECT_EQ(Laid("ab cd", rules), Lines{"ab cd@0 |40"});
}

TEST(TextLayout, TabsMoveOnToTheNextStop) {
  TextRules rules;
  rules.tabStep = 32;
  EXPECT_EQ(Laid("a\tb\t\tc", rules), Lines{"a@0 b@32 c@96 |104"});
  EXPECT_EQ(Laid("abc\td", rules), Lines{"abc@0 d@32 |40"});
  EXPECT_EQ(Laid("abcd\te", rules), Lines{"abcd@0 e@64 |72"});
  EXPECT_EQ(Laid("\ta", rules), Lines{"a@32 |40"});
  EXPECT_EQ(Laid("a\t", rules), Lines{"a@0 |32"});
  rules.breaksWords = true;
  rules.width = 39;
  EXPECT_EQ(Laid("a\tb", rules), (Lines{"a@0 |8", "b@0 |8"}));
}

TEST(TextLayout, WithoutStopsTabsAreCharacters) { EXPECT_EQ(Laid("a\tb", {})[0].substr(0, 5), "a\tb@0"); }

TEST(TextLayout, PrefixesMarkTheCharacterBehindThem) {
  TextRules rules;
  rules.hasPrefixes = true;
  EXPECT_EQ(Laid("a&bc", rules), Lines{"abc@0 _8+8 |24"});
  EXPECT_EQ(Laid("&a&b", rules), Lines{"ab@0 _0+8 _8+8 |16"});
  EXPECT_EQ(Laid("a&&b", rules), Lines{"a&b@0 |24"});
  EXPECT_EQ(Laid("a&", rules), Lines{"a@0 |8"});
  EXPECT_EQ(Laid("&&&a", rules), Lines{"&a@0 _8+8 |16"});
  EXPECT_EQ(Laid("x\na&b", rules), (Lines{"x@0 |8", "ab@0 _8+8 |16"}));
  EXPECT_EQ(Laid("a&b", {}), Lines{"a&b@0 |24"});
  rules.tabStep = 32;
  EXPECT_EQ(Laid("a\t&b", rules), Lines{"a@0 b@32 _32+8 |40"});
}

TEST(TextLayout, MarksOfALineThatAreCutOffAreNotShownOnTheNext) {
  TextRules rules;
  rules.hasPrefixes = rules.cutsEveryLine = true;
  rules.width = 40;
  EXPECT_EQ(Laid("&abcdef&g\nh&i", rules), (Lines{"ab@0 ...@16 _0+8 |40", "hi@0 _8+8 |16"}));
  rules.cutsEveryLine = false;
  rules.breaksWords = true;
  EXPECT_EQ(Laid("abcd& &e &f", rules), (Lines{"abcd@0 |32", "e f@0 _0+8 _16+8 |24"}));
}

TEST(TextLayout, AMillionMarksAreNoTrouble) {
  // Each mark is looked at once, else this would not end.
  constexpr std::size_t kCount = 1000000;
  std::string text;
  for (std::size_t i = 0; i < kCount; ++i) text += "&a";
  TextRules rules;
  rules.hasPrefixes = true;
  TextLayout layout;
  layout.Lay(Eights(), text, rules);
  std::size_t marks = 0, misplaced = 0;
  layout.ForEachPart(
      Eights(), layout.Lines().front(), [](std::int64_t, std::string_view) {},
      [&](std::int64_t x, std::int64_t width) {
        misplaced += x != static_cast<std::int64_t>(8 * marks) || width != 8 ? 1 : 0;
        ++marks;
      });
  EXPECT_EQ(marks, kCount);
  EXPECT_EQ(misplaced, 0u);
}

TEST(TextLayout, MarksBelongToTheirLines) {
  TextRules rules;
  rules.hasPrefixes = true;
  EXPECT_EQ(Laid("&a&b\nc\nd&e\n&f", rules),
            (Lines{"ab@0 _0+8 _8+8 |16", "c@0 |8", "de@0 _8+8 |16", "f@0 _0+8 |8"}));
}

TEST(TextLayout, CutsLinesThatAreTooWide) {
  TextRules rules;
  rules.cutsEveryLine = true;
  rules.width = 48;
  EXPECT_EQ(Laid("abcdef", rules), Lines{"abcdef@0 |48"});
  EXPECT_EQ(Laid("abcdefg", rules), Lines{"abc@0 ...@24 |48"});
  rules.width = 47;
  EXPECT_EQ(Laid("abcdef", rules), Lines{"ab@0 ...@16 |40"});
  rules.width = 23;
  EXPECT_EQ(Laid("abcdef", rules), Lines{"...@0 |24"});
  EXPECT_EQ(Laid("abcdef\nab\nabcdef", rules), (Lines{"...@0 |24", "ab@0 |16", "...@0 |24"}));
}

TEST(TextLayout, CutsOnlyTheLastLineIfToldSo) {
  TextRules rules;
  rules.cutsLastLine = true;
  rules.width = 32;
  EXPECT_EQ(Laid("abcdef\nabcdef", rules), (Lines{"abcdef@0 |48", "a@0 ...@8 |32"}));
  EXPECT_EQ(Laid("abcdef\nab", rules), (Lines{"abcdef@0 |48", "ab@0 |16"}));
}

TEST(TextLayout, KnowsTheWidestLineAndServesAgain) {
  TextLayout layout;
  layout.Lay(Eights(), "a\nabc\nab", {});
  EXPECT_EQ(layout.WidestLine(), 24);
  layout.Lay(Eights(), "", {});
  EXPECT_EQ(layout.WidestLine(), 0);
  EXPECT_EQ(layout.Lines().size(), 1u);
}

}  // namespace
}  // namespace quenzel7::gdi
