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

/// Stores eight words over and over, the first at `begin`, `count` in all; `twice` has the eight two times.
inline void StoreEight(std::uint32_t* begin, std::int64_t count, const std::uint32_t* twice) {
  constexpr std::size_t kBytes = 8 * sizeof(std::uint32_t);
  if (count < 8) {
    for (std::int64_t i = 0; i < count; ++i) begin[i] = twice[i];
    return;
  }
  std::array<std::uint32_t, 8> words;
  std::memcpy(words.data(), twice, kBytes);
  for (std::int64_t i = 0; i + 8 <= count; i += 8) std::memcpy(begin + i, words.data(), kBytes);
  // The last eight lie partly on those before, turned so that they agree.
  std::memcpy(begin + count - 8, twice + count % 8, kBytes);
}

/// The ways in which `StoreBox` may go: any machine knows the portable one; the wide one is quicker and needs
/// a machine that has wide stores.
bool HasWideStores();
void StoreBoxPortably(std::uint32_t* begin, std::int64_t width, std::int64_t height, std::int64_t stride,
                      std::uint32_t word);
void StoreBoxWidely(std::uint32_t* begin, std::int64_t width, std::int64_t height, std::int64_t stride,
                    std::uint32_t word);

}  // namespace quenzel7::gdi
