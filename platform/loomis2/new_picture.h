#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// The longest side of a picture, in pixels.
inline constexpr std::int64_t kLongestSide = 32767;

/// The most pixels that a picture can have: 256 MiB of them.
inline constexpr std::int64_t kMostPixels = std::int64_t{64} << 20;

/// The most pixels that a byte of a compressed file can stand for, but for a png. What encoders make stays
/// below: runs reach 128 pixels a byte, the Huffman codes of a jpg 512 and the longest codes of a gif 2560.
inline constexpr std::int64_t kMostPixelsPerByte = 4096;

/// The same for a png: deflate makes up to 1032 bytes of one, and each may have eight pixels of one bit.
inline constexpr std::int64_t kMostPngPixelsPerByte = 8256;

/// Error 481 unless both measures are from 1 to `kLongestSide` and the picture has at most `kMostPixels`.
void CheckPictureSize(std::int64_t width, std::int64_t height);

/// The same for a picture that is compressed into so many bytes, which may stand for `most` pixels each.
/// Whoever reads a header calls it before memory is taken for what the header promises.
void CheckCodedPictureSize(std::int64_t width, std::int64_t height, std::size_t bytes,
                           std::int64_t most = kMostPixelsPerByte);

/// A white picture of a size that has been checked. Error 7 when there is no room for it.
Picture WhitePicture(std::int64_t width, std::int64_t height);

}  // namespace quenzel7::loomis2
