#include "platform/corvane1/text_service.h"

#include <gtest/gtest.h>

#include <string>

namespace quenzel7::corvane1 {
namespace {

/// Alef, and the Arabic meem.
const std::string kAlef = "\xD7\x90", kMeem = "\xD9\x85";
const std::string kLeftIsolate = "\xE2\x81\xA6", kRightIsolate = "\xE2\x81\xA7",
                  kOpenIsolate = "\xE2\x81\xA8", kEndOfIsolate = "\xE2\x81\xA9";

Long OrderOf(const std::string& text) { return FirstLetterTextService().TextOrder(text); }

TEST(TextService, TellsSidesByFixedNumbers) {
  EXPECT_EQ(kRightToLeft, 1);
  EXPECT_EQ(kLeftToRight, 2);
}

TEST(TextOrder, OfLatinGreekAndChineseIsFromTheLeft) {
  EXPECT_EQ(OrderOf("bar"), kLeftToRight);
  EXPECT_EQ(OrderOf("\xCE\xA9"), kLeftToRight);
  EXPECT_EQ(OrderOf("\xE4\xB8\xAD"), kLeftToRight);
}

TEST(TextOrder, OfHebrewAndArabicIsFromTheRight) {
  EXPECT_EQ(OrderOf(kAlef), kRightToLeft);
  EXPECT_EQ(OrderOf(kMeem), kRightToLeft);
  // Beyond 16 bits.
  EXPECT_EQ(OrderOf("\xF0\x9E\xA4\x80"), kRightToLeft);
}

TEST(TextOrder, IsThatOfTheFirstLetter) {
  EXPECT_EQ(OrderOf("a" + kAlef), kLeftToRight);
  EXPECT_EQ(OrderOf(kAlef + "a"), kRightToLeft);
  EXPECT_EQ(OrderOf(" (12.5 %) " + kAlef + " bar"), kRightToLeft);
  EXPECT_EQ(OrderOf(" (12.5 %) bar " + kMeem), kLeftToRight);
}

TEST(TextOrder, WithoutALetterIsFromTheLeft) {
  for (const char* text : {"", " ", "%", "12.5", "\xC2\xB0", "(-)"}) EXPECT_EQ(OrderOf(text), 2) << text;
}

TEST(TextOrder, OfDigitsInArabicIsFromTheLeft) { EXPECT_EQ(OrderOf("\xD9\xA1\xD9\xA2"), kLeftToRight); }

TEST(TextOrder, ObeysMarksOfDirectionAsLetters) {
  EXPECT_EQ(OrderOf("\xE2\x80\x8F"
                    "bar"),
            kRightToLeft);
  EXPECT_EQ(OrderOf("\xE2\x80\x8E" + kAlef), kLeftToRight);
}

TEST(TextOrder, PassesOverEmbeddingsAndOverrides) {
  // Right-to-left embedding and override, left-to-right embedding.
  EXPECT_EQ(OrderOf("\xE2\x80\xAB"
                    "bar"),
            kLeftToRight);
  EXPECT_EQ(OrderOf("\xE2\x80\xAE"
                    "bar"),
            kLeftToRight);
  EXPECT_EQ(OrderOf("\xE2\x80\xAA" + kAlef), kRightToLeft);
}

TEST(TextOrder, PassesOverWhatIsIsolated) {
  EXPECT_EQ(OrderOf(kRightIsolate + kAlef + kEndOfIsolate + " bar"), kLeftToRight);
  EXPECT_EQ(OrderOf(kLeftIsolate + "bar" + kEndOfIsolate + kAlef), kRightToLeft);
  EXPECT_EQ(OrderOf(kOpenIsolate + "bar" + kEndOfIsolate + kMeem), kRightToLeft);
}

TEST(TextOrder, PassesOverIsolatesWithinIsolates) {
  EXPECT_EQ(OrderOf(kLeftIsolate + kLeftIsolate + "a" + kEndOfIsolate + "b" + kEndOfIsolate + kAlef),
            kRightToLeft);
}

TEST(TextOrder, PassesOverAnIsolateWithoutAnEnd) {
  EXPECT_EQ(OrderOf(kRightIsolate + kAlef), kLeftToRight);
  EXPECT_EQ(OrderOf(kLeftIsolate + kLeftIsolate + "a" + kEndOfIsolate + kAlef), kLeftToRight);
}

TEST(TextOrder, PassesOverAnEndWithoutAnIsolate) {
  EXPECT_EQ(OrderOf(kEndOfIsolate + kAlef), kRightToLeft);
  EXPECT_EQ(OrderOf(kEndOfIsolate + kLeftIsolate + "a" + kEndOfIsolate + kAlef), kRightToLeft);
}

TEST(TextOrder, CountsAllLinesAsOne) { EXPECT_EQ(OrderOf("%\n" + kAlef), kRightToLeft); }

TEST(TextOrder, PassesOverBytesThatAreNoUtf8) {
  EXPECT_EQ(OrderOf("\xFF\xD7"), kLeftToRight);
  EXPECT_EQ(OrderOf("\xFF" + kAlef), kRightToLeft);
}

}  // namespace
}  // namespace quenzel7::corvane1
