#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <utility>

#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"

namespace quenzel7::gdi {

using internal::Hex;
using internal::Made;
using internal::Note;
using internal::Object;

namespace {

constexpr COLORREF kColorBits = 0x00FFFFFF;

/// Gives a description out if there is room for it.
template <typename Description>
std::int32_t Describe(const Description& description, std::int32_t size, void* out) {
  constexpr std::int32_t kSize = sizeof(Description);
  if (out == nullptr) return kSize;
  if (size < kSize) return 0;
  std::memcpy(out, &description, kSize);
  return kSize;
}

std::int32_t DescribePen(const Pen& pen, std::int32_t size, void* out) {
  if (!pen.isExtended) return Describe(LOGPEN{pen.style, {pen.width, 0}, pen.color}, size, out);
  const auto width = static_cast<std::uint32_t>(pen.width);
  return Describe(EXTLOGPEN{pen.style, width, BS_SOLID, pen.color, 0, 0, {0}}, size, out);
}

std::int32_t DescribeBitmap(const Bitmap& bitmap, std::int32_t size, void* out) {
  const auto bitsPerPixel = static_cast<std::int16_t>(bitmap.BitsPerPixel());
  return Describe(BITMAP{0, bitmap.Width(), bitmap.Height(), bitmap.WidthBytes(), 1, bitsPerPixel, 0}, size,
                  out);
}

/// Gives out as much of a font's description as there is room for.
std::int32_t DescribeFont(const LOGFONT& font, std::int32_t size, void* out) {
  constexpr std::int32_t kSize = sizeof font;
  if (out == nullptr) return kSize;
  const std::int32_t count = std::clamp(size, 0, kSize);
  std::memcpy(out, &font, static_cast<std::size_t>(count));
  return count;
}

HBRUSH AddBrush(std::uint32_t style, COLORREF color, std::uint32_t hatch) {
  if (style > BS_HATCHED || (style == BS_HATCHED && hatch > HS_DIAGCROSS)) return 0;
  return Handles().Add(Brush{style, color & kColorBits, style == BS_HATCHED ? hatch : 0});
}

/// Styles of extended pens that are known: a basic style, an end cap, a join and a type.
bool IsExtendedStyle(std::uint32_t style) {
  const std::uint32_t known = PS_STYLE_MASK | PS_ENDCAP_MASK | PS_JOIN_MASK | PS_GEOMETRIC;
  return (style & ~known) == 0 && (style & PS_STYLE_MASK) <= PS_INSIDEFRAME &&
         (style & PS_ENDCAP_MASK) <= PS_ENDCAP_FLAT && (style & PS_JOIN_MASK) <= PS_JOIN_MITER;
}

}  // namespace

HPEN CreatePenIndirect(const LOGPEN* pen) {
  Note("CreatePenIndirect", pen);
  if (pen == nullptr) return Made(0);
  if (pen->lopnStyle == PS_NULL) return Made(Handles().Add(*StockPen(StockHandle(NULL_PEN))));
  const std::uint32_t style = pen->lopnStyle <= PS_INSIDEFRAME ? pen->lopnStyle : std::uint32_t{PS_SOLID};
  const std::int32_t width = std::max(pen->lopnWidth.x, -std::numeric_limits<std::int32_t>::max());
  return Made(Handles().Add(Pen{style, std::abs(width), pen->lopnColor & kColorBits, false}));
}

HPEN ExtCreatePen(std::uint32_t style, std::uint32_t width, const LOGBRUSH* brush, std::uint32_t styleCount,
                  const std::uint32_t* styles) {
  Note("ExtCreatePen", Hex{style}, width, brush, styleCount);
  const bool hasPattern = styleCount != 0 || styles != nullptr;
  if (hasPattern || brush == nullptr || brush->lbStyle != BS_SOLID || !IsExtendedStyle(style)) return Made(0);
  const std::uint32_t widest = std::numeric_limits<std::int32_t>::max();
  const auto pixels = static_cast<std::int32_t>(std::min(width, widest));
  return Made(Handles().Add(Pen{style, pixels, brush->lbColor & kColorBits, true}));
}

HBRUSH CreateBrushIndirect(const LOGBRUSH* brush) {
  Note("CreateBrushIndirect", brush);
  return Made(brush != nullptr ? AddBrush(brush->lbStyle, brush->lbColor, brush->lbHatch) : 0);
}

HBRUSH CreateSolidBrush(COLORREF color) {
  Note("CreateSolidBrush", Hex{color});
  return Made(AddBrush(BS_SOLID, color, 0));
}

HBRUSH CreateHatchBrush(std::int32_t hatch, COLORREF color) {
  Note("CreateHatchBrush", hatch, Hex{color});
  return Made(AddBrush(BS_HATCHED, color, static_cast<std::uint32_t>(hatch)));
}

HFONT CreateFontIndirectA(const LOGFONT* font) {
  Note("CreateFontIndirectA", font);
  if (font == nullptr) return Made(0);
  auto kept = std::make_unique<LOGFONT>(*font);
  kept->lfFaceName[sizeof kept->lfFaceName - 1] = '\0';
  return Made(Handles().Add(std::move(kept)));
}

BOOL DeleteObject(HGDIOBJ object) {
  Note("DeleteObject", Object{object});
  if (StockIndex(object) >= 0) return 1;
  if (Handles().Selections(object) > 0 || Handles().Find<Context>(object) != nullptr) return 0;
  return Handles().Remove(object);
}

std::int32_t GetObjectA(HGDIOBJ object, std::int32_t size, void* out) {
  Note("GetObjectA", Object{object}, size);
  if (const auto pen = FindPen(object)) return DescribePen(*pen, size, out);
  if (const auto brush = FindBrush(object)) {
    return Describe(LOGBRUSH{brush->style, brush->color, brush->hatch}, size, out);
  }
  if (const LOGFONT* font = FindFont(object)) return DescribeFont(*font, size, out);
  if (const Bitmap* bitmap = Handles().Find<Bitmap>(object)) return DescribeBitmap(*bitmap, size, out);
  if (object == kDefaultBitmapHandle) return DescribeBitmap(Bitmap(1, 1, 1), size, out);
  return 0;
}

HGDIOBJ GetStockObject(std::int32_t index) {
  Note("GetStockObject", index);
  const HGDIOBJ handle = StockHandle(index);
  const bool isKnown = index >= 0 && StockIndex(handle) == index && handle != kDefaultBitmapHandle;
  return isKnown ? handle : 0;
}

std::size_t LiveObjects() { return Handles().LiveObjects(); }

}  // namespace quenzel7::gdi
