#include "platform/corvane1/utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace quenzel7::corvane1 {
namespace {

std::u32string Taken(std::string_view text) {
  std::u32string characters;
  while (!text.empty()) characters += TakeCharacter(text);
  return characters;
}

TEST(TakeCharacter, TakesOneToFourBytes) {
  EXPECT_EQ(Taken("A\x7F"), (std::u32string{0x41, 0x7F}));
  EXPECT_EQ(Taken("\xC2\x80\xDF\xBF"), (std::u32string{0x80, 0x7FF}));
  EXPECT_EQ(Taken("\xE0\xA0\x80\xE4\xB8\xAD\xEF\xBF\xBF"), (std::u32string{0x800, 0x4E2D, 0xFFFF}));
  EXPECT_EQ(Taken("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), (std::u32string{0x10000, 0x10FFFF}));
  EXPECT_EQ(Taken("\xED\x9F\xBF\xEE\x80\x80"), (std::u32string{0xD7FF, 0xE000}));
  EXPECT_EQ(Taken(std::string_view("\0A", 2)), (std::u32string{0, 0x41}));
}

TEST(TakeCharacter, ReplacesBytesThatBeginNothing) {
  EXPECT_EQ(Taken("\x80\xBF\xC0\xC1\xF5\xFF"), std::u32string(6, 0xFFFD));
}

TEST(TakeCharacter, ReplacesOverlongFormsSurrogatesAndWhatIsTooLarge) {
  EXPECT_EQ(Taken("\xE0\x9F\xBF"), std::u32string(3, 0xFFFD));
  EXPECT_EQ(Taken("\xED\xA0\x80"), std::u32string(3, 0xFFFD));
  EXPECT_EQ(Taken("\xF0\x8F\xBF\xBF"), std::u32string(4, 0xFFFD));
  EXPECT_EQ(Taken("\xF4\x90\x80\x80"), std::u32string(4, 0xFFFD));
}

TEST(TakeCharacter, ReplacesTheBeginningOfACharacterAsOne) {
  EXPECT_EQ(Taken("\xE4\xB8"), std::u32string(1, 0xFFFD));
  EXPECT_EQ(Taken("\xF0\x90\x80"
                  "A"),
            (std::u32string{0xFFFD, 'A'}));
  EXPECT_EQ(Taken("\xC3"
                  "A"),
            (std::u32string{0xFFFD, 'A'}));
  EXPECT_EQ(Taken("\xE4\xB8\xC3\xA4"), (std::u32string{0xFFFD, 0xE4}));
  EXPECT_EQ(Taken("\xE4\xB8\xC0"), (std::u32string{0xFFFD, 0xFFFD}));
}

}  // namespace
}  // namespace quenzel7::corvane1
