#include "platform/gdi/word_store.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace quenzel7::gdi {
namespace {

constexpr std::uint32_t kBefore = 7, kWord = 0x00AB12CD;

// Short and long ones, with what lies next to them.
TEST(StoreWords, StoresJustAsManyAsAreAskedFor) {
  for (std::int64_t count = -1; count <= 40; ++count) {
    std::vector<std::uint32_t> words(42, kBefore);
    StoreWords(words.data() + 1, count, kWord);
    for (std::int64_t i = 0; i < 42; ++i) {
      EXPECT_EQ(words[static_cast<std::size_t>(i)], i >= 1 && i <= count ? kWord : kBefore) << count;
    }
  }
}

TEST(StoreEight, RepeatsTheWordsUpToTheCount) {
  const std::vector<std::uint32_t> twice{10, 11, 12, 13, 14, 15, 16, 17, 10, 11, 12, 13, 14, 15, 16, 17};
  for (std::int64_t count = -1; count <= 26; ++count) {
    std::vector<std::uint32_t> words(28, kBefore);
    StoreEight(words.data() + 1, count, twice.data());
    for (std::int64_t i = 0; i < 28; ++i) {
      const bool isInside = i >= 1 && i <= count;
      EXPECT_EQ(words[static_cast<std::size_t>(i)],
                isInside ? static_cast<std::uint32_t>(10 + (i - 1) % 8) : kBefore)
          << count;
    }
  }
}

using Store = std::function<void(std::uint32_t*, std::int64_t, std::int64_t, std::int64_t, std::uint32_t)>;

// Every width from every place in a block of eight on, in rows that lie apart or next to each other.
void ExpectStoresBoxes(const Store& store) {
  constexpr std::int64_t kStart = 16;
  for (std::int64_t width = -1; width <= 36; ++width) {
    for (std::int64_t offset = 0; offset < 8; ++offset) {
      for (const std::int64_t gap : {0, 1, 5}) {
        for (const std::int64_t height : {-1, 0, 1, 3}) {
          const std::int64_t stride = std::max<std::int64_t>(width, 0) + gap;
          std::vector<std::uint32_t> words(static_cast<std::size_t>(2 * kStart + 8 + 3 * 41), kBefore);
          std::vector<std::uint32_t> expected = words;
          for (std::int64_t row = 0; row < height; ++row) {
            for (std::int64_t x = 0; x < width; ++x) {
              expected[static_cast<std::size_t>(kStart + offset + row * stride + x)] = kWord;
            }
          }
          store(words.data() + kStart + offset, width, height, stride, kWord);
          ASSERT_EQ(words, expected) << width << " at " << offset << " gap " << gap << " height " << height;
        }
      }
    }
  }
}

TEST(StoreBox, StoresRowsAndLeavesWhatLiesBetween) { ExpectStoresBoxes(StoreBox); }

TEST(StoreBox, StoresTheSamePortably) { ExpectStoresBoxes(StoreBoxPortably); }

TEST(StoreBox, StoresTheSameWidely) {
  if (!HasWideStores()) GTEST_SKIP() << "this machine has no wide stores";
  ExpectStoresBoxes(StoreBoxWidely);
}

}  // namespace
}  // namespace quenzel7::gdi
