#pragma once

#include <string>

#include "hosts/cli/picture.h"
#include "platform/png/png_file.h"

namespace quenzel7::cli {

using png::kLargestScale;
using png::PicturePlace;

/// Writes a picture as png::SavePng does. Throws UserError "picture PATH cannot be written: ...".
void WritePng(const std::string& path, const Picture& picture, int scale = 1);

}  // namespace quenzel7::cli
