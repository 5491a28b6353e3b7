#pragma once

#include <span>

#include "platform/automation/types.h"
#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// The picture in the bytes of a file: bmp, ico, cur, jpg or gif, told apart by how they begin. Error 481
/// says what is wrong with the bytes, or that a metafile cannot be read; 7 when there is no room for the
/// picture.
Picture DecodePicture(std::span<const Byte> file);

}  // namespace quenzel7::loomis2
