#pragma once

#include <cstdint>
#include <string_view>

#include "platform/gdi/font.h"
#include "platform/gdi/objects.h"
#include "platform/gdi/span_painter.h"

namespace quenzel7::gdi {

/// The font that a context's texts are drawn in.
Font& FontOf(Context& context);

/// How far a text reaches to the right, in pixels.
std::int64_t WidthOf(Font& font, std::string_view text);

/// Paints lines of text as a context has them: font, colours, background mode.
class TextPainter {
 public:
  /// Paints nothing outside of `clip` and of the context's bitmap.
  TextPainter(Context& context, const Box& clip);

  /// A line whose cell has its top left corner at (x, y). On an opaque background the cell is painted first:
  /// as wide as the sum of the advances, as high as the font.
  void Paint(std::int64_t x, std::int64_t y, std::string_view text);

  /// The line below a character or a text whose cell begins at (x, y).
  void Underline(std::int64_t x, std::int64_t y, std::int64_t width) {
    Across(font_.Underline(), x, y, width);
  }

 private:
  void Across(const Font::Line& line, std::int64_t x, std::int64_t y, std::int64_t width);
  /// The picture of a byte, made only if some of it shows.
  void PaintByte(unsigned char byte, std::int64_t pen, std::int64_t baseline);
  void PaintWords(const Glyph& glyph, std::int32_t left, std::int32_t top);

  Context& context_;
  Font& font_;
  const Box clip_;
  SpanPainter ink_;
  const std::uint32_t word_;  ///< the text colour as a pixel of 32 bits
};

}  // namespace quenzel7::gdi
