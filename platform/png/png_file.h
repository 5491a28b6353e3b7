#pragma once

#include <string>

#include "platform/png/png_encoder.h"

namespace quenzel7::png {

/// How errors call a picture: "picture out.png".
inline std::string PicturePlace(const std::string& path) { return "picture " + path; }

/// Writes a picture as a PNG file, as EncodePng makes it. The file takes its place complete or not at all.
/// Raises "picture PATH cannot be written: ..." with the system's words: error 76 where there is no such
/// folder, 70 where it may not be written, 7 for want of memory, otherwise 57.
void SavePng(const std::string& path, const PixelView& picture, int scale = 1);

}  // namespace quenzel7::png
