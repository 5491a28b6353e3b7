#include "platform/gdi/glyph.h"

namespace quenzel7::gdi {
namespace {

constexpr int kRowsPerLeanPixel = 4;

/// How many pixels a row leans to the right; negative below the baseline. Rounded down.
int LeanOf(int rowsAboveBaseline) {
  const int down = rowsAboveBaseline < 0 ? kRowsPerLeanPixel - 1 : 0;
  return (rowsAboveBaseline - down) / kRowsPerLeanPixel;
}

/// Adds the pixels of a glyph's row to those of another glyph, moved to the right.
void AddRow(const Glyph& glyph, int y, int by, Glyph& to) {
  const std::uint8_t* row = glyph.Row(y);
  std::uint8_t* out = to.bits.data() + static_cast<std::size_t>(y) * to.stride + by / 8;
  const int shift = by % 8;
  for (int i = 0; i < glyph.stride; ++i) {
    out[i] |= static_cast<std::uint8_t>(row[i] >> shift);
    // Only what is set is carried over: behind the last pixel there may be no byte.
    const auto carried = static_cast<std::uint8_t>(row[i] << (8 - shift));
    if (carried != 0) out[i + 1] |= carried;
  }
}

}  // namespace

Glyph Glyph::Blank(int left, int top, int width, int height, int advance) {
  Glyph glyph;
  glyph.left = left;
  glyph.top = top;
  glyph.advance = advance;
  glyph.width = width;
  glyph.height = height;
  glyph.stride = (width + 7) / 8;
  glyph.bits.resize(static_cast<std::size_t>(glyph.stride) * static_cast<std::size_t>(height));
  return glyph;
}

Glyph Emboldened(const Glyph& glyph) {
  const int advance = glyph.advance > 0 ? glyph.advance + 1 : 0;
  if (glyph.bits.empty()) return Glyph::Blank(0, 0, 0, 0, advance);
  Glyph bold = Glyph::Blank(glyph.left, glyph.top, glyph.width + 1, glyph.height, advance);
  for (int y = 0; y < glyph.height; ++y) {
    AddRow(glyph, y, 0, bold);
    AddRow(glyph, y, 1, bold);
  }
  return bold;
}

Glyph Slanted(const Glyph& glyph) {
  if (glyph.bits.empty()) return glyph;
  const int most = LeanOf(glyph.top - 1), least = LeanOf(glyph.top - glyph.height);
  Glyph slanted =
      Glyph::Blank(glyph.left + least, glyph.top, glyph.width + most - least, glyph.height, glyph.advance);
  for (int y = 0; y < glyph.height; ++y) {
    AddRow(glyph, y, LeanOf(glyph.top - 1 - y) - least, slanted);
  }
  return slanted;
}

Glyph BoxGlyph(int advance, int ascent) {
  const int width = advance - 2, height = ascent - 1;
  if (width < 1 || height < 1) return Glyph::Blank(0, 0, 0, 0, advance);
  Glyph box = Glyph::Blank(1, height, width, height, advance);
  for (int x = 0; x < width; ++x) {
    box.Set(x, 0);
    box.Set(x, height - 1);
  }
  for (int y = 0; y < height; ++y) {
    box.Set(0, y);
    box.Set(width - 1, y);
  }
  return box;
}

}  // namespace quenzel7::gdi
