#pragma once

#include <span>

#include "platform/automation/types.h"
#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// The largest picture in an icon or cursor file, of several of that size the one of most bits a pixel. What
/// it leaves transparent is white, and so is what would invert the screen. Where it has alpha its mask does
/// not count; mask rows that are missing are opaque. Error 481 when its bytes, or the header or place of any
/// picture, cannot be read.
Picture ReadIcon(std::span<const Byte> file);

}  // namespace quenzel7::loomis2
