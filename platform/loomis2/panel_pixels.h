#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/automation/types.h"
#include "platform/automation/variant.h"
#include "platform/loomis2/picture.h"

/// Pixels as panels show them: palette indices, one byte each, rows padded to an even number of bytes; or
/// two bytes each, the lower one first, with five bits of red, six of green and five of blue, red highest.
namespace quenzel7::loomis2 {

/// Pixels that were made of a picture, and whether every colour could be kept.
struct PanelPixels {
  std::vector<Byte> bytes = {};
  bool isExact = true;
};

/// The colours of a panel, each 0x00RRGGBB, by index.
using PanelColors = std::vector<std::uint32_t>;

/// The colours of an array of 1 to 256 32-bit integers 0x00BBGGRR, of one dimension; nothing for any other
/// value.
std::optional<PanelColors> PanelColorsOf(const automation::Variant& palette);

/// The picture that palette indices show; nothing when they are not those of a picture of that size or an
/// index has no colour. What the padding holds does not matter.
std::optional<Picture> PictureOf8bpp(std::span<const Byte> pixels, Long dx, Long dy,
                                     const PanelColors& colors);

/// The picture that pixels of two bytes show: 31 of red is 255, and what lies between is filled up by the
/// highest bits. Nothing when they are not those of a picture of that size.
std::optional<Picture> PictureOf16bpp(std::span<const Byte> pixels, Long dx, Long dy);

/// The pixels of two bytes that show the picture: each channel the nearest, of two as near the darker.
PanelPixels PixelsOf16bpp(const Picture& picture);

/// The number that tells a picture or a file apart: the CRC-32 of the bytes, as a signed number. The two
/// numbers that mean something else where pictures are kept, -1 for none and 0x3F3F3F3F for one that is
/// painted and not kept, become the numbers before them, -2 and 0x3F3F3F3E.
Long PictureCrc(std::span<const Byte> bytes);

}  // namespace quenzel7::loomis2
