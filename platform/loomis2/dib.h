#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/loomis2/byte_reader.h"
#include "platform/loomis2/color_table.h"
#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// How the pixels of a bitmap are coded.
enum class DibCoding : std::uint32_t { kPlain = 0, kRuns8 = 1, kRuns4 = 2, kMasks = 3, kMasksAndAlpha = 6 };

/// Where a pixel of 16 bits or more has its colours.
struct ColorMasks {
  std::uint32_t red = 0, green = 0, blue = 0, alpha = 0;
};

/// The header of a device-independent bitmap, which stands in bmp files and in icons.
struct DibHeader {
  std::int64_t width = 0, height = 0;  ///< as they stand there, but the height without its sign
  bool isTopDown = false;              ///< the first row is the highest, where the height is negative
  int bitsPerPixel = 0;
  DibCoding coding = DibCoding::kPlain;
  std::uint64_t colors = 0;  ///< how many follow the header
  std::uint64_t bytesPerColor = 0;
  ColorMasks masks = {};
};

/// The bytes of a row of pixels, a whole number of four bytes.
std::uint64_t DibRowBytes(std::int64_t width, int bitsPerPixel);

/// Reads a header of 12, 40, 52, 56, 108 or 124 bytes with the masks that follow it. The alpha mask of a
/// later header counts in every coding. Error 481 for other headers and for depths and codings that cannot be
/// read.
DibHeader ReadDibHeader(ByteReader& reader);

/// The colours in the bytes between the header and the pixels: as many as the header says, as pixels can name
/// and as there are; none where pixels are no numbers of colours.
ColorTable ReadDibColors(std::span<const Byte> bytes, const DibHeader& header);

/// Reads the pixels: 0xAARRGGBB, where alpha is 0 in all of them unless the header has a mask for it. What
/// runs leave out is white. Error 481 when the size cannot be, or when there are fewer bytes than it needs.
Picture ReadDibPixels(ByteReader& reader, const DibHeader& header, const ColorTable& colors);

}  // namespace quenzel7::loomis2
