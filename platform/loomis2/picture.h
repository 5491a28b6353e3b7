#pragma once

#include <cstdint>
#include <vector>

#include "platform/automation/types.h"

namespace quenzel7::loomis2 {

/// A picture as read from a file: rows from the top down without padding, each pixel 0x00RRGGBB, as the
/// surfaces of the graphics interface keep them. Where a file has no pixel to show, the picture is white.
struct Picture {
  Long width = 0, height = 0;
  std::vector<std::uint32_t> pixels = {};
};

}  // namespace quenzel7::loomis2
