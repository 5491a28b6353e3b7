#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

#include "platform/gdi/span_painter.h"

/// How the calls that take texts read their arguments.
namespace quenzel7::gdi {

/// Whether a text and its length can be drawn: the length is not negative, and there is a text unless it is
/// 0.
constexpr bool IsText(const char* text, std::int32_t count) {
  return count >= 0 && (text != nullptr || count == 0);
}

/// At most `count` bytes of a text, up to its terminator if there is one before; without a text null. A
/// length that is too large so does no harm.
inline std::string_view TextOf(const char* text, std::int32_t count) {
  if (text == nullptr) return {};
  return {text, count > 0 ? strnlen(text, static_cast<std::size_t>(count)) : 0};
}

/// A clip that leaves everything.
inline Box Everywhere() {
  constexpr std::int64_t kFar = std::numeric_limits<std::int64_t>::max();
  return {-kFar, -kFar, kFar, kFar};
}

/// The number, or the nearest one that 32 bits can hold.
constexpr std::int32_t In32Bits(std::int64_t value) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

}  // namespace quenzel7::gdi
