#include "platform/corvane1/ansi_code_page.h"

#include <gtest/gtest.h>

#include "tests/support/raises.h"

namespace quenzel7::corvane1 {
namespace {

class AnsiCodePageSetting : public ::testing::Test {
 protected:
  AnsiCodePage Set(const std::string& text) {
    settings_.Set(7000, 1, text);
    return AnsiCodePageOf(settings_);
  }

  LayeredSettings settings_{std::make_shared<HeldProjectDatabase>()};
};

TEST(AnsiCodePage, IsTheWesternEuropeanOneByDefault) {
  EXPECT_EQ(AnsiCodePage().Number(), 1252);
  EXPECT_EQ(AnsiCodePage().CharSet(), 0);
}

TEST(AnsiCodePage, HasTheCharacterSetOfItsTexts) {
  EXPECT_EQ(AnsiCodePage(1253).CharSet(), 161);
  EXPECT_EQ(AnsiCodePage(1255).CharSet(), 177);
  EXPECT_EQ(AnsiCodePage(1251).Number(), 1251);
}

TEST(AnsiCodePage, OfAnyOtherNumberIsAnError) {
  EXPECT_RAISES(5, "code page 1259: one of 437, 874, 1250 to 1258 is expected", AnsiCodePage(1259));
  EXPECT_EQ(test::ErrorOf([] { AnsiCodePage(1249); }), 5);
  EXPECT_EQ(test::ErrorOf([] { AnsiCodePage(0); }), 5);
  EXPECT_EQ(test::ErrorOf([] { AnsiCodePage(65001); }), 5);
  EXPECT_EQ(
      test::ErrorOf([] { AnsiCodePage(1250), AnsiCodePage(1258), AnsiCodePage(874), AnsiCodePage(437); }), 0);
}

TEST(AnsiCodePage, GivesTheCodesOfItsCharacters) {
  const AnsiCodePage western, greek(1253);
  EXPECT_EQ(western.CodeOf(U'A'), 65);
  EXPECT_EQ(western.CodeOf(0x20AC), 128);
  EXPECT_EQ(western.CodeOf(0xFF), 255);
  EXPECT_EQ(greek.CodeOf(0x3C9), 0xF9);
}

TEST(AnsiCodePage, HasNoCodeForWhatItCannotShow) {
  EXPECT_EQ(AnsiCodePage().CodeOf(0x3C9), std::nullopt);
  EXPECT_EQ(AnsiCodePage(1253).CodeOf(0xFF), std::nullopt);
  EXPECT_EQ(AnsiCodePage().CodeOf(0x4E2D), std::nullopt);
  EXPECT_EQ(AnsiCodePage().CodeOf(0xFFFD), std::nullopt);
}

TEST(AnsiCodePage, EncodesOneByteACharacter) {
  EXPECT_EQ(AnsiCodePage().Encoded("5 \xE2\x82\xAC \xC3\xA4\r\n"), "5 \x80 \xE4\r\n");
  EXPECT_EQ(AnsiCodePage(1251).Encoded("\xD0\x90\xD1\x8F"), "\xC0\xFF");
  EXPECT_EQ(AnsiCodePage().Encoded(""), "");
}

TEST(AnsiCodePage, EncodesCharactersAsItDoesTexts) {
  EXPECT_EQ(AnsiCodePage().Encoded(U"5 \u20AC \u00E4\r\n\u03C9"), "5 \x80 \xE4\r\n?");
  EXPECT_EQ(AnsiCodePage(1255).Encoded(U"\u05E5\u05D7"), "\xF5\xE7");
  EXPECT_EQ(AnsiCodePage().Encoded(U""), "");
}

TEST(AnsiCodePage, PutsAQuestionMarkForWhatHasNoCode) {
  EXPECT_EQ(AnsiCodePage().Encoded("a\xD0\x90"
                                   "b\xE4\xB8\xAD"),
            "a?b?");
  EXPECT_EQ(AnsiCodePage().Encoded("a\xFF"
                                   "b\xE4\xB8"),
            "a?b?");
  EXPECT_EQ(AnsiCodePage().Encoded("\xF0\x9F\x98\x80"), "?");
}

TEST_F(AnsiCodePageSetting, IsThePageOf1252WhenThereIsNone) {
  EXPECT_EQ(AnsiCodePageOf(settings_).Number(), 1252);
}

TEST_F(AnsiCodePageSetting, TellsTheNumber) {
  EXPECT_EQ(Set("1253").Number(), 1253);
  EXPECT_EQ(Set("1255").CharSet(), 177);
  EXPECT_EQ(Set(" 1250 ").Number(), 1250);
  EXPECT_EQ(Set("1250.6").Number(), 1251);
}

TEST_F(AnsiCodePageSetting, AnotherSectionOrKeyIsAnotherSetting) {
  settings_.Set(7000, 2, "1253");
  settings_.Set(6000, 1, "1253");
  EXPECT_EQ(AnsiCodePageOf(settings_).Number(), 1252);
}

TEST_F(AnsiCodePageSetting, ThatIsNoCodePageIsAnErrorThatNamesIt) {
  EXPECT_RAISES(5, "setting 7000/1: code page 932: one of 437, 874, 1250 to 1258 is expected", Set("932"));
  EXPECT_EQ(test::ErrorOf([&] { Set("Greek"); }), 13);
  EXPECT_EQ(test::DescriptionOf([&] { Set("Greek"); }).rfind("setting 7000/1: ", 0), 0u);
  EXPECT_EQ(test::ErrorOf([&] { Set(""); }), 13);
  EXPECT_EQ(test::ErrorOf([&] { Set("99999999999"); }), 6);
}

}  // namespace
}  // namespace quenzel7::corvane1
