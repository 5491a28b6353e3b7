#include "fuzz/gdi_calls.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"

namespace quenzel7::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::vector<std::filesystem::path> StoredInputs() {
  std::vector<std::filesystem::path> inputs;
  const auto folder = std::filesystem::path(QUENZEL7_SOURCE_DIR) / "fuzz/corpus/gdi";
  for (const auto& entry : std::filesystem::directory_iterator(folder)) inputs.push_back(entry.path());
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

Bytes Contents(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

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
  const auto inputs = StoredInputs();
  EXPECT_GE(inputs.size(), 50u);
  for (const auto& input : inputs) {
    EXPECT_EQ(RunGdiCalls(Contents(input)), "") << input.filename();
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

}  // namespace
}  // namespace quenzel7::fuzz
