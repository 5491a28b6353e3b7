#include "fuzz/gdi_calls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"
#include "tests/support/stored_inputs.h"

namespace quenzel7::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// The calls that bytes stand for, without those that the session makes of itself.
std::vector<std::string> CallsOf(const Bytes& bytes) {
  gdi::Recorder recorder;
  EXPECT_EQ(RunGdiCalls(bytes), "");
  return recorder.Take();
}

/// Whether any call begins so.
bool Calls(const std::vector<std::string>& calls, const std::string& beginning) {
  return std::any_of(calls.begin(), calls.end(), [&](const std::string& call) {
    return call.compare(0, beginning.size(), beginning) == 0;
  });
}

TEST(RunGdiCalls, StoredInputsKeepEveryPromise) {
  const std::size_t before = gdi::LiveObjects();
  const auto inputs = test::StoredInputs("gdi");
  EXPECT_GE(inputs.size(), 50u);
  for (const auto& input : inputs) {
    EXPECT_EQ(RunGdiCalls(test::Contents(input)), "") << input.filename();
    EXPECT_EQ(gdi::LiveObjects(), before) << input.filename();
  }
}

TEST(RunGdiCalls, OfNoBytesMakesNoCallsOfItsOwn) { EXPECT_EQ(RunGdiCalls({}), ""); }

TEST(RunGdiCalls, DecodesArgumentsFromLeftToRight) {
  // No recorder of its own; Rectangle on the first context; LineTo on the second with a 16-bit number.
  const Bytes bytes{0, 28, 0, 65, 66, 67, 68, 32, 1, 0xC0, 0x10, 0x27, 0xEF};
  const auto calls = CallsOf(bytes);
  EXPECT_TRUE(Calls(calls, "Rectangle(dc:1, 1, 2, 3, 4)"));
  EXPECT_TRUE(Calls(calls, "LineTo(dc:2, 10000, 2147483647)"));
}

TEST(RunGdiCalls, NumbersBeyondTheTableAreNoCalls) {
  CallsOf({0});  // The first session of all asks for the first bitmap.
  const auto nothing = CallsOf({0});
  EXPECT_EQ(CallsOf({0, 63}), nothing);
  EXPECT_GT(CallsOf({0, 9, 0}).size(), nothing.size());
}

TEST(RunGdiCalls, NumbersRepeatEvery64) {
  EXPECT_TRUE(Calls(CallsOf({0, 64 + 28, 0, 65, 66, 67, 68}), "Rectangle(dc:1, 1, 2, 3, 4)"));
}

TEST(RunGdiCalls, ListensItselfWhereTheFirstByteIsOdd) {
  EXPECT_FALSE(Calls(CallsOf({1, 28, 0, 65, 66, 67, 68}), "Rectangle"));
}

TEST(RunGdiCalls, StopsAfterAHundredCalls) {
  Bytes bytes{0};
  for (int i = 0; i < 150; ++i) bytes.insert(bytes.end(), {35, 0});
  const auto calls = CallsOf(bytes);
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "BeginPath(dc:1)"), 100);
}

TEST(RunGdiCalls, AsksForBitmapsThatCannotBeAndForSmallOnesInsteadOfHugeOnes) {
  const auto calls = CallsOf({0, 18, 0xEF, 0xEF, 1, 0, 18, 0xC0, 0, 32, 0xC0, 1, 32, 1, 0});
  EXPECT_TRUE(Calls(calls, "CreateBitmap(2147483647, 2147483647, 1, 32) -> null"));
  EXPECT_TRUE(Calls(calls, "CreateBitmap(0, 1, 1, 32) -> bitmap"));
}

TEST(RunGdiCalls, MakesFontsOfBytes) {
  // Height 12, underlined at weight 700, Greek, fixed pitch, the third face; then selected.
  EXPECT_TRUE(
      Calls(CallsOf({0, 43, 0, 64 + 12, 2 + 4 * 8, 2, 1, 2}),
            "CreateFontIndirectA({12, 0, 0, 0, 700, 0, 2, 0, 161, 0, 0, 0, 1, \"Unifont\"}) -> font:1"));
  EXPECT_TRUE(Calls(CallsOf({0, 43, 0, 64, 0, 0, 0, 0, 44, 0, 0}), "SelectObject(dc:1, font:1)"));
  EXPECT_TRUE(Calls(CallsOf({0, 43, 0xFF}), "CreateFontIndirectA(null) -> null"));
}

TEST(RunGdiCalls, AsksForHugeFontsOnlyByTheEndsOfTheRange) {
  const auto heightOf = [](std::uint8_t low, std::uint8_t high) {
    return CallsOf({0, 43, 0, 0xC0, low, high, 0, 0, 0, 0});
  };
  EXPECT_TRUE(Calls(heightOf(100, 0), "CreateFontIndirectA({100, "));
  EXPECT_TRUE(Calls(heightOf(101, 0), "CreateFontIndirectA({0, "));
  EXPECT_TRUE(Calls(heightOf(0x01, 0x40), "CreateFontIndirectA({23, "));
  EXPECT_TRUE(Calls(heightOf(0x02, 0x40), "CreateFontIndirectA({16386, "));
  EXPECT_TRUE(
      Calls(CallsOf({0, 43, 0, 0xE0, 0xC0, 0, 0xEF}), "CreateFontIndirectA({-2147483648, 2147483647, "));
}

TEST(RunGdiCalls, TextsComeWithTheirLengthOrAWrongOne) {
  const auto paints = [](Bytes text) {
    Bytes bytes{0, 47, 0, 65, 66};
    bytes.insert(bytes.end(), text.begin(), text.end());
    return CallsOf(bytes);
  };
  EXPECT_TRUE(Calls(paints({2, 'a', 'b'}), "TextOutA(dc:1, 1, 2, \"ab\", 2)"));
  EXPECT_TRUE(Calls(paints({4 * 32 + 1, 'a', 64 + 5}), "TextOutA(dc:1, 1, 2, null, 5)"));
  EXPECT_TRUE(Calls(paints({5 * 32 + 1, 'a'}), "TextOutA(dc:1, 1, 2, \"a\", 2147483647)"));
  EXPECT_TRUE(Calls(paints({6 * 32 + 1, 'a'}), "TextOutA(dc:1, 1, 2, \"\", -1)"));
  EXPECT_TRUE(Calls(paints({7 * 32 + 2, 'a', 'b', 64 + 1}), "TextOutA(dc:1, 1, 2, \"a\", 1)"));
}

TEST(RunGdiCalls, FormatsOfTextsAreAnyTogether) {
  const auto draws = [](Bytes format) {
    Bytes bytes{0, 50, 0, 1, 'a', 0, 65, 66, 67, 68};
    bytes.insert(bytes.end(), format.begin(), format.end());
    return CallsOf(bytes);
  };
  EXPECT_TRUE(Calls(draws({0, 0}), "DrawTextA(dc:1, \"a\", 1, {1, 2, 3, 4}, 0x000000)"));
  EXPECT_TRUE(Calls(draws({1 + 16, 32}), "DrawTextA(dc:1, \"a\", 1, {1, 2, 3, 4}, 0x000051)"));
  EXPECT_TRUE(Calls(draws({64, 64, 3}), "DrawTextA(dc:1, \"a\", 1, {1, 2, 3, 4}, 0x000380)"));
  EXPECT_TRUE(Calls(draws({0, 128, 1, 2, 3, 4}), "DrawTextA(dc:1, \"a\", 1, {1, 2, 3, 4}, 0x4030201)"));
}

}  // namespace
}  // namespace quenzel7::fuzz
