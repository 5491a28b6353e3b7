#pragma once

#include <algorithm>
#include <span>
#include <string_view>

#include "platform/automation/types.h"

namespace quenzel7::loomis2 {

/// Whether the bytes begin with those of a mark.
inline bool BeginsWith(std::span<const Byte> bytes, std::string_view mark) {
  return bytes.size() >= mark.size() &&
         std::equal(mark.begin(), mark.end(), bytes.begin(),
                    [](char expected, Byte byte) { return static_cast<Byte>(expected) == byte; });
}

}  // namespace quenzel7::loomis2
