#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/automation/types.h"

namespace quenzel7::test {

/// A jpg file: its samples as they are handed to the encoder, which keeps those of even squares of eight
/// exactly.
struct JpegSample {
  enum class Kind { kGray, kYcc, kRgb, kCmyk, kYcck };
  Kind kind = Kind::kGray;
  std::uint32_t width = 8, height = 8;
  std::vector<Byte> samples = {};
  bool hasAdobeMarker = false;
  /// 0 for a plain file; else it is progressive, with so many scans (2 to 127) of a gray picture.
  int scans = 0;
  bool areColorsHalved = false;  ///< both colours are kept at half the size, the brightness is not
  std::vector<Byte> exif = {};   ///< of a camera's marker, none when empty
};
std::vector<Byte> JpegBytes(const JpegSample& sample);

/// The first of two colours in every pixel of a row of squares of eight, the second in the next square, and
/// so on: the samples of an 8 pixels high picture.
std::vector<Byte> Squares(const std::vector<std::vector<Byte>>& colors);

/// A gif file of one frame; each colour 0x00RRGGBB.
struct GifSample {
  int width = 1, height = 1;  ///< of the screen
  std::vector<std::uint32_t> colors = {};
  int left = 0, top = 0, frameWidth = 1, frameHeight = 1;
  std::vector<std::uint32_t> ownColors = {};
  std::vector<Byte> pixels = {};  ///< rows of numbers from the top down
  bool isInterlaced = false;
  std::optional<int> transparent = {};
};
std::vector<Byte> GifBytes(const GifSample& sample);

/// A png stream, rows as they stand in it before they are compressed.
struct PngSample {
  std::uint32_t width = 1, height = 1;
  int bits = 8, colorType = 6;
  std::vector<Byte> rows = {};
  std::vector<std::uint32_t> colors = {};
};
std::vector<Byte> PngBytes(const PngSample& sample);

/// The beginning of a png stream of that size, up to where its pixels would come.
std::vector<Byte> PngHeader(std::uint32_t width, std::uint32_t height);

}  // namespace quenzel7::test
