#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/automation/types.h"
#include "platform/loomis2/picture.h"

namespace quenzel7::fuzz {

/// What makes a picture of the bytes of a file, as `loomis2::DecodePicture` does.
using PictureDecoder = loomis2::Picture (*)(std::span<const Byte> file);

/// Reads bytes as a picture file. Gives what was promised of the picture or of the error and not kept, empty
/// if everything was: a picture has as many pixels as its measures say, at least one, each of three colours
/// and no more; an error is of the number for pictures and says something.
std::string ReadAsPicture(PictureDecoder decode, std::span<const std::uint8_t> bytes);

}  // namespace quenzel7::fuzz
