#pragma once

#include <cstdint>

#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// What a pixel 0xAARRGGBB, whose colours are not multiplied by its alpha, shows on white: 0x00RRGGBB, each
/// colour rounded to the nearest.
std::uint32_t OverWhite(std::uint32_t pixel);

/// Puts a picture whose pixels are 0xAARRGGBB on white. Where no pixel has any alpha, alpha is taken as not
/// in use and the colours stay. Gives whether it was in use.
bool BlendOverWhite(Picture& picture);

}  // namespace quenzel7::loomis2
