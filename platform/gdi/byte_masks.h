#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace quenzel7::gdi {

/// For each byte of a row of bits eight words, all ones where the bit is set and 0 elsewhere, leftmost pixel
/// first: eight pixels are then mixed without a branch, and in as few steps as the machine's registers allow.
inline constexpr auto kByteMasks = [] {
  std::array<std::array<std::uint32_t, 8>, 256> masks{};
  for (std::size_t byte = 0; byte < masks.size(); ++byte) {
    for (std::size_t i = 0; i < 8; ++i) masks[byte][i] = (byte >> (7 - i) & 1) != 0 ? 0xFFFFFFFF : 0;
  }
  return masks;
}();

}  // namespace quenzel7::gdi
