#pragma once

#include "platform/loomis2/byte_reader.h"
#include "platform/loomis2/color_table.h"
#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// Paints rows that are coded in runs of 4 or 8 bits a pixel into the picture, the lowest row first. Pixels
/// that are skipped stay, and what reaches past the right edge is cut. Reading ends with the end of the
/// bitmap or with its last pixel. Error 481 when the bytes end before that.
void ReadRuns(ByteReader& reader, int bitsPerPixel, const ColorTable& colors, Picture& picture);

}  // namespace quenzel7::loomis2
