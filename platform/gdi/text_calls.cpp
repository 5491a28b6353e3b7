#include <string_view>

#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/text_of.h"
#include "platform/gdi/text_painter.h"

namespace quenzel7::gdi {

using internal::Note;
using internal::Object;

namespace {

constexpr std::uint32_t kLastByte = 255;
constexpr std::uint8_t kSpace = 0x20, kDefaultCharacter = '?';
constexpr std::int32_t kDotsPerInch = 96;
constexpr std::uint8_t kDefaultCharSet = 1, kAnsiCharSet = 0;

std::uint8_t Flag(std::uint8_t value) { return value != 0 ? 1 : 0; }

}  // namespace

BOOL TextOutA(HDC dc, std::int32_t x, std::int32_t y, const char* text, std::int32_t count) {
  const std::string_view shown = TextOf(text, count);
  Note("TextOutA", Object{dc}, x, y, shown, count);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr || !IsText(text, count)) return 0;
  if (context->path.IsRecording()) return 1;
  TextPainter(*context, Everywhere()).Paint(x, y, shown);
  return 1;
}

BOOL GetTextExtentPoint32A(HDC dc, const char* text, std::int32_t count, SIZE* size) {
  const std::string_view shown = TextOf(text, count);
  Note("GetTextExtentPoint32A", Object{dc}, shown, count);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr || size == nullptr || !IsText(text, count)) return 0;
  Font& font = FontOf(*context);
  *size = {In32Bits(WidthOf(font, shown)), font.Height()};
  return 1;
}

BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics) {
  Note("GetTextMetricsA", Object{dc});
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr || metrics == nullptr) return 0;
  Font& font = FontOf(*context);
  const LOGFONT& look = context->font;
  TEXTMETRICA found{};
  found.tmHeight = font.Height();
  found.tmAscent = font.Ascent();
  found.tmDescent = font.Descent();
  found.tmInternalLeading = font.InternalLeading();
  found.tmExternalLeading = font.ExternalLeading();
  found.tmAveCharWidth = font.AverageWidth();
  found.tmMaxCharWidth = font.MaxWidth();
  found.tmWeight = font.Weight();
  found.tmDigitizedAspectX = found.tmDigitizedAspectY = kDotsPerInch;
  found.tmFirstChar = kSpace;
  found.tmLastChar = kLastByte;
  found.tmDefaultChar = kDefaultCharacter;
  found.tmBreakChar = kSpace;
  found.tmItalic = Flag(look.lfItalic);
  found.tmUnderlined = Flag(look.lfUnderline);
  found.tmStruckOut = Flag(look.lfStrikeOut);
  const int pitch = font.IsFixedPitch() ? 0 : TMPF_FIXED_PITCH;
  found.tmPitchAndFamily = static_cast<std::uint8_t>(font.Family() | TMPF_VECTOR | TMPF_TRUETYPE | pitch);
  found.tmCharSet = look.lfCharSet == kDefaultCharSet ? kAnsiCharSet : look.lfCharSet;
  *metrics = found;
  return 1;
}

BOOL GetCharWidth32A(HDC dc, std::uint32_t first, std::uint32_t last, std::int32_t* widths) {
  Note("GetCharWidth32A", Object{dc}, first, last);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr || widths == nullptr || first > last || last > kLastByte) return 0;
  Font& font = FontOf(*context);
  for (std::uint32_t byte = first; byte <= last; ++byte) {
    *widths++ = font.MeasuresOfByte(static_cast<unsigned char>(byte)).advance;
  }
  return 1;
}

}  // namespace quenzel7::gdi
