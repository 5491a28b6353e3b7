#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/automation/types.h"

namespace quenzel7::loomis2 {

inline constexpr std::uint32_t kWhite = 0xFFFFFF, kBlack = 0;

/// The word of a pixel, 0x00RRGGBB.
constexpr std::uint32_t PixelOf(Byte red, Byte green, Byte blue) {
  return std::uint32_t{red} << 16 | std::uint32_t{green} << 8 | blue;
}

/// The colours of a picture whose pixels are numbers of colours.
class ColorTable {
 public:
  ColorTable() = default;
  explicit ColorTable(std::vector<std::uint32_t> colors) : colors_(std::move(colors)) {}

  /// The colour of that number; black beyond the end of the table.
  std::uint32_t operator[](std::size_t number) const {
    return number < colors_.size() ? colors_[number] : kBlack;
  }

 private:
  std::vector<std::uint32_t> colors_;
};

}  // namespace quenzel7::loomis2
