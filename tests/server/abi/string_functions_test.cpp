#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "server/quenzel7_automation.h"
#include "tests/support/failing_memory.h"
#include "tests/support/nothing_left.h"

namespace quenzel7::server {
namespace {

using test::NothingLeft;

constexpr OLECHAR kWord[] = {'P', 'a', 0xE4, 0xD83D, 0xDE00, 0};

std::uint32_t NumberBefore(BSTR text) {
  std::uint32_t number = 0;
  std::memcpy(&number, reinterpret_cast<const char*>(text) - 4, 4);
  return number;
}

/// The bytes of the text and the two behind it, of a text that is freed then.
std::string BytesAndEndOf(BSTR text) {
  const std::string bytes(reinterpret_cast<const char*>(text), NumberBefore(text) + 2);
  SysFreeString(text);
  return bytes;
}

std::string BytesOf(const OLECHAR* text, std::size_t count) {
  return std::string(reinterpret_cast<const char*>(text), count);
}

TEST(StringFunctions, ATextHasTheNumberOfItsBytesBeforeItAndAZeroBehindIt) {
  const NothingLeft nothingLeft;
  const BSTR text = SysAllocString(kWord);
  ASSERT_NE(text, nullptr);
  EXPECT_NE(text, kWord);
  EXPECT_EQ(NumberBefore(text), 10u);
  EXPECT_EQ(SysStringByteLen(text), 10u);
  EXPECT_EQ(SysStringLen(text), 5u);
  EXPECT_EQ(BytesAndEndOf(text), BytesOf(kWord, 12));
}

TEST(StringFunctions, CharactersLieAlignedToEightBytes) {
  const NothingLeft nothingLeft;
  for (const UINT length : {0u, 1u, 2u, 3u, 100u}) {
    const BSTR text = SysAllocStringLen(nullptr, length);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(text) % 8, 0u) << length;
    SysFreeString(text);
  }
}

TEST(StringFunctions, AnEmptyTextIsNotANullOne) {
  const NothingLeft nothingLeft;
  const OLECHAR nothing[] = {0, 'x'};
  const BSTR text = SysAllocString(nothing);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(SysStringByteLen(text), 0u);
  EXPECT_EQ(BytesAndEndOf(text), std::string(2, '\0'));
  EXPECT_EQ(BytesAndEndOf(SysAllocStringLen(kWord, 0)), std::string(2, '\0'));
  EXPECT_EQ(BytesAndEndOf(SysAllocStringByteLen("x", 0)), std::string(2, '\0'));
}

TEST(StringFunctions, ANullTextIsEmptyAndIsFreedAsSuch) {
  const NothingLeft nothingLeft;
  EXPECT_EQ(SysAllocString(nullptr), nullptr);
  EXPECT_EQ(SysStringLen(nullptr), 0u);
  EXPECT_EQ(SysStringByteLen(nullptr), 0u);
  SysFreeString(nullptr);
}

TEST(StringFunctions, TheFirstCharactersAreTakenZerosIncluded) {
  const NothingLeft nothingLeft;
  const OLECHAR characters[] = {'a', 0, 'b', 'c', 'd'};
  const BSTR text = SysAllocStringLen(characters, 3);
  EXPECT_EQ(NumberBefore(text), 6u);
  EXPECT_EQ(SysStringLen(text), 3u);
  EXPECT_EQ(BytesAndEndOf(text), BytesOf(characters, 6) + std::string(2, '\0'));
}

TEST(StringFunctions, WithoutCharactersThereAreSoManyZeros) {
  const NothingLeft nothingLeft;
  // What is freed before has other bytes than zeros, so that zeros must have been written.
  SysFreeString(SysAllocStringByteLen(std::string(14, '\xFF').c_str(), 14));
  EXPECT_EQ(BytesAndEndOf(SysAllocStringLen(nullptr, 7)), std::string(16, '\0'));
  SysFreeString(SysAllocStringByteLen(std::string(7, '\xFF').c_str(), 7));
  EXPECT_EQ(BytesAndEndOf(SysAllocStringByteLen(nullptr, 7)), std::string(9, '\0'));
}

TEST(StringFunctions, AnOddNumberOfBytesIsKeptAndHasTwoZerosBehindIt) {
  const NothingLeft nothingLeft;
  SysFreeString(SysAllocStringByteLen(std::string(8, '\xFF').c_str(), 8));
  const BSTR text = SysAllocStringByteLen("\x01\x02\x03\x04\x05", 5);
  EXPECT_EQ(NumberBefore(text), 5u);
  EXPECT_EQ(SysStringByteLen(text), 5u);
  EXPECT_EQ(SysStringLen(text), 2u);
  EXPECT_EQ(BytesAndEndOf(text), std::string("\x01\x02\x03\x04\x05\0\0", 7));
}

TEST(StringFunctions, WithoutRoomThereIsNoText) {
  const NothingLeft nothingLeft;
  const auto fails = [](auto make) {
    const test::Failing failing(0);
    return make() == nullptr && test::allocationsLeft == -1;
  };
  EXPECT_TRUE(fails([] { return SysAllocString(kWord); }));
  EXPECT_TRUE(fails([] { return SysAllocStringLen(kWord, 2); }));
  EXPECT_TRUE(fails([] { return SysAllocStringByteLen("ab", 2); }));
}

TEST(StringFunctions, BytesThatTheirNumberCannotTellAreNotEvenTried) {
  const NothingLeft nothingLeft;
  const auto tries = [](UINT characters) {
    const test::Failing failing(0);
    EXPECT_EQ(SysAllocStringLen(nullptr, characters), nullptr);
    return test::allocationsLeft == -1;
  };
  EXPECT_TRUE(tries(0x7FFFFFFF));
  EXPECT_FALSE(tries(0x80000000));
  EXPECT_FALSE(tries(0xFFFFFFFF));
  const test::Failing failing(0);
  EXPECT_EQ(SysAllocStringByteLen(nullptr, 0xFFFFFFFF), nullptr);
  EXPECT_EQ(test::allocationsLeft, -1);
}

}  // namespace
}  // namespace quenzel7::server
