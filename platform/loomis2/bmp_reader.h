#pragma once

#include <span>

#include "platform/automation/types.h"
#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// The picture in a bmp file. Alpha counts only where the header has a mask for it and some pixel has any; it
/// is put on white then. Error 481 when the bytes cannot be read.
Picture ReadBmp(std::span<const Byte> file);

}  // namespace quenzel7::loomis2
