#pragma once

#include <span>

#include "platform/automation/types.h"
#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// The first picture in a gif file on its screen; what is transparent, and what of the screen it does not
/// cover, is white. Error 481 when the bytes cannot be read.
Picture ReadGif(std::span<const Byte> file);

}  // namespace quenzel7::loomis2
