#include "platform/gdi/code_page.h"

#include <gtest/gtest.h>

namespace quenzel7::gdi {
namespace {

TEST(CodePage, AsciiIsTheSameInAll) {
  for (const int set : {0, 1, 161, 162, 163, 177, 178, 186, 204, 222, 238, 255, 77}) {
    const CodePage& page = CodePageOf(static_cast<std::uint8_t>(set));
    for (char32_t c = 0; c < 128; ++c) ASSERT_EQ(page[c], c) << set;
  }
}

TEST(CodePage, EachCharacterSetHasItsOwn) {
  struct Case {
    int set;
    unsigned byte;
    char32_t character;
  };
  for (const Case& test :
       {Case{0, 0x80, 0x20AC},   Case{1, 0xE4, 0x00E4},   Case{161, 0xE1, 0x03B1}, Case{162, 0xFD, 0x0131},
        Case{163, 0xFE, 0x20AB}, Case{163, 0xCC, 0x0300}, Case{222, 0x80, 0x20AC}, Case{222, 0xA1, 0x0E01},
        Case{164, 0xFE, 0x00FE}, Case{221, 0xA1, 0x00A1}, Case{177, 0xE0, 0x05D0}, Case{178, 0xC7, 0x0627},
        Case{186, 0xE0, 0x0105}, Case{204, 0xC0, 0x0410}, Case{238, 0xE8, 0x010D}, Case{255, 0xDB, 0x2588},
        Case{255, 0x81, 0x00FC}, Case{2, 0x80, 0x20AC},   Case{254, 0xE4, 0x00E4}, Case{203, 0xC0, 0x00C0}}) {
    EXPECT_EQ(CodePageOf(static_cast<std::uint8_t>(test.set))[test.byte], test.character) << test.set;
  }
}

TEST(CodePage, LettersThatMarksCouldFollowAreNotHeldBack) {
  const CodePage& hebrew = CodePageOf(177);
  for (unsigned i = 0; i < 27; ++i) EXPECT_EQ(hebrew[0xE0 + i], 0x05D0 + i);
}

TEST(CodePage, LettersOfTheVietnamesePageStandForThemselves) {
  const CodePage& vietnamese = CodePageOf(163);
  EXPECT_EQ(vietnamese[0xE2], 0x00E2u);
  EXPECT_EQ(vietnamese[0xFD], 0x01B0u);
  EXPECT_EQ(vietnamese[0xF2], 0x0323u);
}

TEST(CodePage, BytesWithoutMeaningAreReplaced) {
  EXPECT_EQ(CodePageOf(0)[0x81], 0xFFFDu);
  EXPECT_EQ(CodePageOf(161)[0xFF], 0xFFFDu);
}

TEST(CodePage, IsWorkedOutOnce) {
  EXPECT_EQ(&CodePageOf(0), &CodePageOf(1));
  EXPECT_EQ(&CodePageOf(161), &CodePageOf(161));
  EXPECT_NE(&CodePageOf(161), &CodePageOf(162));
}

TEST(CharSetOfCodePage, IsTheOneWhoseTextsAreInThePage) {
  struct Case {
    int page, set;
  };
  for (const Case& test :
       {Case{437, 255}, Case{874, 222}, Case{1250, 238}, Case{1251, 204}, Case{1252, 0}, Case{1253, 161},
        Case{1254, 162}, Case{1255, 177}, Case{1256, 178}, Case{1257, 186}, Case{1258, 163}}) {
    EXPECT_EQ(CharSetOfCodePage(test.page), test.set) << test.page;
  }
}

TEST(CharSetOfCodePage, IsNoneForOtherNumbers) {
  for (const int page : {-1, 0, 1, 436, 438, 873, 875, 932, 1249, 1259, 65001}) {
    EXPECT_EQ(CharSetOfCodePage(page), std::nullopt) << page;
  }
}

TEST(ByteOf, FindsEveryCharacterOfEveryPage) {
  for (const int set : {0, 161, 162, 163, 177, 178, 186, 204, 222, 238, 255, 77}) {
    const auto charSet = static_cast<std::uint8_t>(set);
    const CodePage& page = CodePageOf(charSet);
    for (unsigned byte = 0; byte < 256; ++byte) {
      if (page[byte] == 0xFFFD) continue;
      EXPECT_EQ(ByteOf(page[byte], charSet), byte) << set;
    }
  }
}

TEST(ByteOf, IsNoneForWhatThePageDoesNotHave) {
  EXPECT_EQ(ByteOf(0x20AC, 0), 0x80);
  EXPECT_EQ(ByteOf(0x20AC, 255), std::nullopt);
  EXPECT_EQ(ByteOf(0x03B1, 161), 0xE1);
  EXPECT_EQ(ByteOf(0x03B1, 0), std::nullopt);
  EXPECT_EQ(ByteOf(0x00E4, 161), std::nullopt);
  EXPECT_EQ(ByteOf(127, 0), 127);
  EXPECT_EQ(ByteOf(128, 0), std::nullopt);
  EXPECT_EQ(ByteOf(0x10FFFF, 0), std::nullopt);
}

TEST(ByteOf, BytesThatThePageLeavesOpenStandForNothing) {
  EXPECT_EQ(ByteOf(0xFFFD, 0), std::nullopt);
  EXPECT_EQ(ByteOf(0xFFFD, 161), std::nullopt);
}

}  // namespace
}  // namespace quenzel7::gdi
