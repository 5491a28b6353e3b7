#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

#include "platform/automation/types.h"

namespace quenzel7::cli {

/// The number that a text is from its first character to its last: digits, a minus before them if it is
/// negative. Nothing for any other text and for what does not fit 32 bits.
inline std::optional<Long> WholeNumberFromText(std::string_view text) {
  Long number = 0;
  const char* end = text.data() + text.size();
  const auto [read, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || read != end) return {};
  return number;
}

}  // namespace quenzel7::cli
