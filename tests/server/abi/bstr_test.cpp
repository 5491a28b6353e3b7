#include "server/abi/bstr.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <new>
#include <string>
#include <vector>

#include "tests/support/failing_memory.h"

namespace quenzel7::server {
namespace {

using Units = std::u16string;

static_assert(sizeof(OLECHAR) == sizeof(char16_t));

Units UnitsAndFree(BSTR text) {
  const Units units(text, text + SysStringLen(text));
  EXPECT_EQ(text[units.size()], 0);
  SysFreeString(text);
  return units;
}

Units ToUnits(std::string_view utf8) { return UnitsAndFree(ToBstr(utf8)); }

std::string ToUtf8(const Units& units) {
  const std::vector<OLECHAR> characters(units.begin(), units.end());
  const BSTR text = SysAllocStringLen(characters.data(), static_cast<UINT>(characters.size()));
  const std::string utf8 = FromBstr(text);
  SysFreeString(text);
  return utf8;
}

/// First and last characters of each length in either form, and others between, one a row.
struct Form {
  const char* utf8;
  Units units;
};
const std::vector<Form>& Forms() {
  static const std::vector<Form> kForms = {
      {"\x01", {0x01}},
      {"A", {'A'}},
      {"\x7F", {0x7F}},
      {"\xC2\x80", {0x80}},
      {"\xDF\xBF", {0x7FF}},
      {"\xD6\xA5", {0x5A5}},
      {"\xE0\xA0\x80", {0x800}},
      {"\xE4\xBD\xA0", {0x4F60}},
      {"\xE4\xBD\xA5", {0x4F65}},
      {"\xED\x9F\xBF", {0xD7FF}},
      {"\xEE\x80\x80", {0xE000}},
      {"\xEF\xBF\xBF", {0xFFFF}},
      {"\xF0\x90\x80\x80", {0xD800, 0xDC00}},
      {"\xF0\x9F\x98\x80", {0xD83D, 0xDE00}},
      {"\xF0\x92\x8D\x85", {0xD808, 0xDF45}},
      {"\xF4\x8F\xBF\xBF", {0xDBFF, 0xDFFF}},
  };
  return kForms;
}

TEST(Bstr, CharactersOfEachLengthGoInAndOut) {
  for (const Form& form : Forms()) {
    SCOPED_TRACE(form.utf8);
    EXPECT_EQ(ToUnits(form.utf8), form.units);
    EXPECT_EQ(ToUtf8(form.units), form.utf8);
  }
}

TEST(Bstr, CharactersFollowEachOther) {
  std::string utf8;
  Units units;
  for (const Form& form : Forms()) {
    utf8 += form.utf8;
    units += form.units;
  }
  EXPECT_EQ(ToUnits(utf8), units);
  EXPECT_EQ(ToUtf8(units), utf8);
}

TEST(Bstr, AnEmptyTextIsNotNullAndANullOneIsEmpty) {
  EXPECT_EQ(ToUnits(""), Units());
  EXPECT_EQ(ToUtf8({}), "");
  EXPECT_EQ(FromBstr(nullptr), "");
  EXPECT_EQ(FromUtf16(nullptr), "");
}

TEST(Bstr, ZerosAreCharactersLikeOthers) {
  EXPECT_EQ(ToUnits(std::string_view("\0a\0", 3)), (Units{0, 'a', 0}));
  EXPECT_EQ(ToUtf8({0, 'a', 0}), std::string("\0a\0", 3));
}

TEST(Bstr, ATextWithoutANumberEndsAtItsZero) {
  const OLECHAR text[] = {'a', 0xD83D, 0xDE00, 0, 'b', 0};
  EXPECT_EQ(FromUtf16(text), "a\xF0\x9F\x98\x80");
  EXPECT_EQ(FromUtf16(text + 3), "");
}

TEST(Bstr, WhatIsNoUtf8BecomesTheReplacement) {
  EXPECT_EQ(ToUnits("a\xFFz"), (Units{'a', 0xFFFD, 'z'}));
  EXPECT_EQ(ToUnits("\xED\xA0\x80"), (Units{0xFFFD, 0xFFFD, 0xFFFD}));
  EXPECT_EQ(ToUnits("\xF0\x9F\x98"), (Units{0xFFFD}));
}

TEST(Bstr, HalfASurrogatePairBecomesTheReplacement) {
  const std::string replacement = "\xEF\xBF\xBD";
  for (const char16_t half : {char16_t{0xD800}, char16_t{0xDBFF}, char16_t{0xDC00}, char16_t{0xDFFF}}) {
    SCOPED_TRACE(static_cast<int>(half));
    EXPECT_EQ(ToUtf8({half}), replacement);
    EXPECT_EQ(ToUtf8({half, 'a'}), replacement + "a");
    EXPECT_EQ(ToUtf8({half, 0xE000}), replacement + "\xEE\x80\x80");
    EXPECT_EQ(ToUtf8({half, 0xD7FF}), replacement + "\xED\x9F\xBF");
  }
  EXPECT_EQ(ToUtf8({0xDC00, 0xD800}), replacement + replacement);
  EXPECT_EQ(ToUtf8({0xDC00, 0xDC00}), replacement + replacement);
  EXPECT_EQ(ToUtf8({0xD800, 0xD83D, 0xDE00}), replacement + "\xF0\x9F\x98\x80");
  EXPECT_EQ(ToUtf8({0xD83D, 0xDE00, 0xDE00}), "\xF0\x9F\x98\x80" + replacement);
}

TEST(Bstr, ThePairOfAnEndAndWhatStandsBehindItIsNone) {
  const OLECHAR characters[] = {'a', 0xD83D, 0xDE00};
  const BSTR text = SysAllocStringLen(characters, 2);
  // The zero behind the text is overwritten: only what belongs to the text may be looked at.
  text[2] = 0xDE00;
  EXPECT_EQ(FromBstr(text), "a\xEF\xBF\xBD");
  SysFreeString(text);
}

TEST(Bstr, HalfACharacterAtTheEndIsLeftOut) {
  const BSTR text = SysAllocStringByteLen("a\0b", 3);
  EXPECT_EQ(FromBstr(text), "a");
  SysFreeString(text);
}

TEST(Bstr, WithoutRoomItThrows) {
  const test::Failing failing(0);
  EXPECT_THROW(ToBstr("a"), std::bad_alloc);
}

TEST(Bstr, WhatGoesInComesOut) {
  EXPECT_TRUE(rc::check("UTF-8 of whole characters", [](const std::vector<std::uint16_t>& picks) {
    std::string utf8;
    for (const std::uint16_t pick : picks) utf8 += Forms()[pick % Forms().size()].utf8;
    const BSTR text = ToBstr(utf8);
    const std::string back = FromBstr(text);
    SysFreeString(text);
    RC_ASSERT(back == utf8);
  }));
  EXPECT_TRUE(
      rc::check("any characters of 16 bits but surrogates", [](std::vector<std::uint16_t> characters) {
        for (std::uint16_t& character : characters)
          if (character >= 0xD800 && character < 0xE000) character ^= 0x8000;
        const Units units(characters.begin(), characters.end());
        RC_ASSERT(ToUnits(ToUtf8(units)) == units);
      }));
  EXPECT_TRUE(rc::check("any bytes are UTF-8 after a round", [](const std::string& bytes) {
    const std::string once = ToUtf8(ToUnits(bytes));
    RC_ASSERT(ToUtf8(ToUnits(once)) == once);
  }));
}

}  // namespace
}  // namespace quenzel7::server
