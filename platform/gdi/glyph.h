#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quenzel7::gdi {

/// The picture of a character, one bit a pixel, and how far the next one is to the right.
struct Glyph {
  int left = 0;     ///< of the picture, from the point where the character begins
  int top = 0;      ///< rows from the picture's first one down to the baseline
  int advance = 0;  ///< to the point where the next character begins; never negative
  int width = 0, height = 0;
  int stride = 0;                  ///< bytes a row
  std::vector<std::uint8_t> bits;  ///< rows from the top, leftmost pixel in the highest bit, padding 0

  /// Whether there is a picture of which only the measures are left.
  bool IsForgotten() const { return bits.empty() && width > 0; }

  /// A picture of these measures without any pixel set.
  static Glyph Blank(int left, int top, int width, int height, int advance);

  const std::uint8_t* Row(int y) const { return bits.data() + static_cast<std::size_t>(y) * stride; }
  bool At(int x, int y) const { return (Row(y)[x / 8] >> (7 - x % 8) & 1) != 0; }
  void Set(int x, int y) {
    bits[static_cast<std::size_t>(y) * stride + x / 8] |= static_cast<std::uint8_t>(0x80 >> x % 8);
  }
};

/// The glyph painted twice, one pixel apart. The advance grows by that pixel, unless it is 0.
Glyph Emboldened(const Glyph& glyph);

/// The glyph leaning to the right by one pixel in four rows, turned about the first row above the baseline.
Glyph Slanted(const Glyph& glyph);

/// The outline of a box that stands for a character that no face has: as high as the ascent, less a pixel
/// above, and with a pixel free on both sides. Measures too small for that give a blank.
Glyph BoxGlyph(int advance, int ascent);

}  // namespace quenzel7::gdi
