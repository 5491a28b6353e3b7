#pragma once

#include <string>

#include "hosts/cli/picture.h"

namespace quenzel7::cli {

/// The largest enlargement of a written picture.
inline constexpr int kLargestScale = 16;

/// How messages call a picture: "picture out.png".
inline std::string PicturePlace(const std::string& path) { return "picture " + path; }

/// Writes a picture as PNG, red, green and blue in 8 bits each, every pixel as a square of `scale` (1 to
/// kLargestScale) pixels. The file takes its place complete or not at all. Throws UserError
/// "picture PATH cannot be written: ...".
void WritePng(const std::string& path, const Picture& picture, int scale = 1);

}  // namespace quenzel7::cli
