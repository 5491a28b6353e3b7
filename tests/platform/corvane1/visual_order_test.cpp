#include "platform/corvane1/visual_order.h"

#include <gtest/gtest.h>

#include <string>

namespace quenzel7::corvane1 {
namespace {

using Order = std::optional<std::u32string>;

TEST(VisualOrder, TurnsAHebrewWordAround) {
  EXPECT_EQ(VisualOrder("\xD7\x9C\xD7\x97\xD7\xA5"), Order(U"\u05E5\u05D7\u05DC"));
}

TEST(VisualOrder, TurnsAnArabicWordAroundWithoutJoiningIt) {
  EXPECT_EQ(VisualOrder("\xD9\x85\xD8\xB6\xD8\xAE\xD8\xA9"), Order(U"\u0629\u062E\u0636\u0645"));
}

TEST(VisualOrder, KeepsNumbersAndLatinWordsInHebrewReadable) {
  // alef bet 12.5 gimel bar
  EXPECT_EQ(VisualOrder("\xD7\x90\xD7\x91 12.5 \xD7\x92 bar"), Order(U"bar \u05D2 12.5 \u05D1\u05D0"));
}

TEST(VisualOrder, MirrorsBracketsAmongHebrew) {
  EXPECT_EQ(VisualOrder("\xD7\x90(\xD7\x91)"), Order(U"(\u05D1)\u05D0"));
  EXPECT_EQ(VisualOrder("\xD7\x90[1<2]"), Order(U"[2>1]\u05D0"));
  // Around a Latin word in a Hebrew line they belong to the line.
  EXPECT_EQ(VisualOrder("\xD7\x90 (bar)"), Order(U"(bar) \u05D0"));
}

TEST(VisualOrder, PairsBracketsBeforeItTakesTheirSide) {
  // The bracket that closes behind Hebrew goes with the one that opened in the Latin line.
  EXPECT_EQ(VisualOrder("a(b \xD7\x90) \xD7\x91"), Order(U"a(b \u05D0) \u05D1"));
}

TEST(VisualOrder, TurnsOnlyTheHebrewInALatinLine) {
  EXPECT_EQ(VisualOrder("Pump \xD7\x90\xD7\x91 \xD7\x92 on"), Order(U"Pump \u05D2 \u05D1\u05D0 on"));
  EXPECT_EQ(VisualOrder("Pump (\xD7\x90\xD7\x91)"), Order(U"Pump (\u05D1\u05D0)"));
}

TEST(VisualOrder, TakesTheSideOfTheFirstStrongCharacter) {
  EXPECT_EQ(VisualOrder("1. a \xD7\x90!"), Order(U"1. a \u05D0!"));
  EXPECT_EQ(VisualOrder("1. \xD7\x90 a!"), Order(U"!a \u05D0 .1"));
}

TEST(VisualOrder, PutsBlanksAtTheEndOnTheSideWhereTheLineEnds) {
  EXPECT_EQ(VisualOrder("\xD7\x90 a  "), Order(U"  a \u05D0"));
  EXPECT_EQ(VisualOrder("a \xD7\x90  "), Order(U"a \u05D0  "));
}

TEST(VisualOrder, LeavesMarksBehindTheirLetter) {
  // shin with its dot, lamed
  EXPECT_EQ(VisualOrder("\xD7\xA9\xD7\x81\xD7\x9C"), Order(U"\u05DC\u05E9\u05C1"));
}

TEST(VisualOrder, TurnsGroupsOfArabicDigitsAround) {
  EXPECT_EQ(VisualOrder("\xD9\xA1\xD9\xA2 \xD9\xA3"), Order(U"\u0663 \u0661\u0662"));
}

TEST(VisualOrder, BeginsOnTheLeftWithoutAStrongCharacter) {
  EXPECT_EQ(VisualOrder("\xD9\xA1!"), Order(U"\u0661!"));
}

TEST(VisualOrder, ObeysMarksOfDirectionAndKeepsThem) {
  EXPECT_EQ(VisualOrder("\xE2\x80\x8F"
                        "a!"),
            Order(U"!a\u200F"));
}

TEST(VisualOrder, OfALineThatRunsToTheRightIsThatOfTheLine) {
  EXPECT_EQ(VisualOrder(""), Order());
  EXPECT_EQ(VisualOrder(" 12.5 (%) "), Order());
  EXPECT_EQ(VisualOrder("Speed (12 \xE2\x82\xAC)"), Order());
  EXPECT_EQ(VisualOrder("\xCE\xA0\xD0\x9D\xE4\xB8\xAD"), Order());
  EXPECT_EQ(VisualOrder("\xFF\xD7"), Order());
}

TEST(VisualOrder, LooksAtTheFirstRightToLeftCharacterThereIs) {
  // U+058F is the last before the Hebrew block, which begins at U+0590.
  EXPECT_EQ(VisualOrder("\xD6\x8F!"), Order());
  EXPECT_EQ(VisualOrder("\xD6\x90!"), Order(U"!\u0590"));
}

TEST(VisualOrder, FindsTheOnlyHebrewCharacterWhereverItStands) {
  EXPECT_EQ(VisualOrder("\xD7\x90 1"), Order(U"1 \u05D0"));
  EXPECT_EQ(VisualOrder("1 \xD7\x90"), Order(U"\u05D0 1"));
}

TEST(VisualOrder, CountsBytesThatAreNoUtf8) {
  EXPECT_EQ(VisualOrder("\xD7\x90\xFF\xD7\x91"), Order(U"\u05D1\uFFFD\u05D0"));
}

TEST(VisualOrder, TakesCharactersBeyondSixteenBits) {
  EXPECT_EQ(VisualOrder("\xF0\x9E\xA4\x80\xF0\x9E\xA4\x81"), Order(U"\U0001E901\U0001E900"));
}

}  // namespace
}  // namespace quenzel7::corvane1
