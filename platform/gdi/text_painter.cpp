#include "platform/gdi/text_painter.h"

#include <algorithm>

#include "platform/gdi/byte_masks.h"

namespace quenzel7::gdi {
namespace {

/// Puts the word where the mask is set. The two do not overlap, which the compiler has to be told before it
/// works on several words at once.
inline void MixEight(std::uint32_t* __restrict out, const std::uint32_t* __restrict mask,
                     std::uint32_t word) {
  for (std::size_t i = 0; i < 8; ++i) out[i] ^= (out[i] ^ word) & mask[i];
}

Box Common(const Box& a, const Box& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

}  // namespace

Font& FontOf(Context& context) {
  if (context.realizedFont == nullptr) context.realizedFont = FontFor(context.font);
  return *context.realizedFont;
}

std::int64_t WidthOf(Font& font, std::string_view text) {
  std::int64_t width = 0;
  for (const char c : text) width += font.MeasuresOfByte(static_cast<unsigned char>(c)).advance;
  return width;
}

TextPainter::TextPainter(Context& context, const Box& clip)
    : context_(context),
      font_(FontOf(context)),
      clip_(clip.ClippedTo(*context.bitmap)),
      ink_(*context.bitmap, Ink::Solid(context.text)),
      word_(SwapRedAndBlue(context.text)) {}

void TextPainter::Paint(std::int64_t x, std::int64_t y, std::string_view text) {
  const LOGFONT& look = context_.font;
  const std::int64_t width = WidthOf(font_, text);
  if (context_.backgroundMode == OPAQUE) {
    SpanPainter background(*context_.bitmap, Ink::Solid(context_.background));
    background.Fill(Common({x, y, x + width, y + font_.Height()}, clip_));
  }
  const std::int64_t baseline = y + font_.Ascent();
  std::int64_t pen = x;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    PaintByte(byte, pen, baseline);
    pen += font_.MeasuresOfByte(byte).advance;
  }
  if (look.lfUnderline != 0) Underline(x, y, width);
  if (look.lfStrikeOut != 0) Across(font_.StrikeOut(), x, y, width);
}

void TextPainter::Across(const Font::Line& line, std::int64_t x, std::int64_t y, std::int64_t width) {
  const std::int64_t top = y + line.first;
  ink_.Fill(Common({x, top, x + width, top + line.count}, clip_));
}

void TextPainter::PaintByte(unsigned char byte, std::int64_t pen, std::int64_t baseline) {
  const Glyph& measures = font_.MeasuresOfByte(byte);
  const std::int64_t left = pen + measures.left, top = baseline - measures.top;
  const Box all{left, top, left + measures.width, top + measures.height};
  const Box box = Common(all, clip_);
  if (box.IsEmpty()) return;
  const Glyph& glyph = font_.GlyphOfByte(byte);
  // The padding of a glyph's rows is mixed too and changes nothing, but it must lie inside the bitmap.
  const bool isInside = box.left == all.left && box.top == all.top && box.right == all.right &&
                        box.bottom == all.bottom && left + glyph.stride * 8 <= ink_.Target().Width();
  if (isInside && !ink_.Target().IsMono()) {
    PaintWords(glyph, static_cast<std::int32_t>(left), static_cast<std::int32_t>(top));
    return;
  }
  for (std::int64_t y = box.top; y < box.bottom; ++y) {
    for (std::int64_t x = box.left; x < box.right; ++x) {
      if (!glyph.At(static_cast<int>(x - left), static_cast<int>(y - top))) continue;
      ink_.ClippedPixel(static_cast<std::int32_t>(x), static_cast<std::int32_t>(y));
    }
  }
}

void TextPainter::PaintWords(const Glyph& glyph, std::int32_t left, std::int32_t top) {
  const std::uint32_t word = word_;
  const std::uint8_t* bits = glyph.bits.data();
  for (int y = 0; y < glyph.height; ++y) {
    std::uint32_t* out = context_.bitmap->Words(top + y) + left;
    for (int i = 0; i < glyph.stride; ++i, out += 8) MixEight(out, kByteMasks[*bits++].data(), word);
  }
}

}  // namespace quenzel7::gdi
