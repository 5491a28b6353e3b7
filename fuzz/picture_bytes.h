#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace quenzel7::fuzz {

/// Reads bytes as a picture file. Gives what was promised of the picture or of the error and not kept, empty
/// if everything was: a picture has as many pixels as its measures say, at least one, each of three colours
/// and no more; an error is of the number for pictures and says something.
std::string ReadAsPicture(std::span<const std::uint8_t> bytes);

}  // namespace quenzel7::fuzz
