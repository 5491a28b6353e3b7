#pragma once

#include <array>
#include <cstdint>
#include <cstring>

namespace quenzel7::gdi {

/// Stores the same word in a box of `width` x `height` words, `stride` words from row to row. Nothing if a
/// measure is not positive.
void StoreBox(std::uint32_t* begin, std::int64_t width, std::int64_t height, std::int64_t stride,
              std::uint32_t word);

/// Stores the same word `count` times; nothing if `count` is not positive.
inline void StoreWords(std::uint32_t* begin, std::int64_t count, std::uint32_t word) {
  // A short run is done before a call would begin.
  constexpr std::int64_t kShort = 16;
  if (count > kShort) {
    StoreBox(begin, count, 1, count, word);
  } else {
    for (std::int64_t i = 0; i < count; ++i) begin[i] = word;
  }
}

/// Stores eight words over and over, the first at `begin`, `count` in all; `count` is not negative.
inline void StoreEight(std::uint32_t* begin, std::int64_t count, const std::uint32_t* eight) {
  std::array<std::uint32_t, 8> words;
  std::memcpy(words.data(), eight, sizeof words);
  for (; count >= 8; count -= 8, begin += 8) std::memcpy(begin, words.data(), sizeof words);
  std::memcpy(begin, words.data(), static_cast<std::size_t>(count) * sizeof words[0]);
}

/// The ways in which `StoreBox` may go: any machine knows the portable one; the wide one is quicker and needs
/// a machine that has wide stores.
bool HasWideStores();
void StoreBoxPortably(std::uint32_t* begin, std::int64_t width, std::int64_t height, std::int64_t stride,
                      std::uint32_t word);
void StoreBoxWidely(std::uint32_t* begin, std::int64_t width, std::int64_t height, std::int64_t stride,
                    std::uint32_t word);

}  // namespace quenzel7::gdi
