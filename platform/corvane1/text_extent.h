#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

#include "platform/automation/types.h"
#include "platform/corvane1/text_lines.h"

namespace quenzel7::corvane1 {

/// Width and height of a text in panel pixels.
struct TextExtent {
  Long width = 0, height = 0;

  friend bool operator==(const TextExtent&, const TextExtent&) = default;
};

/// The rectangle that the lines of a text take, one below the other: as wide as the widest, measured by
/// `widthOf(line)`. An empty text takes no rectangle, 0 x 0; what 32 bits cannot hold is the largest number.
template <class WidthOf>
TextExtent ExtentOfLines(std::string_view text, Long lineHeight, WidthOf&& widthOf) {
  if (text.empty()) return {};
  std::int64_t widest = 0, height = 0;
  ForEachLine(text, [&](std::string_view line) {
    widest = std::max<std::int64_t>(widest, widthOf(line));
    height += lineHeight;
  });
  const auto clamped = [](std::int64_t value) {
    return static_cast<Long>(std::min<std::int64_t>(value, std::numeric_limits<Long>::max()));
  };
  return {clamped(widest), clamped(height)};
}

}  // namespace quenzel7::corvane1
