#include "platform/gdi/objects.h"

namespace quenzel7::gdi {
namespace {

/// No handle of a table has this bit.
constexpr Handle kStockBit = 0x40000000;
constexpr std::int32_t kDefaultBitmapIndex = 21;

constexpr std::array<Brush, 6> kStockBrushes{{{BS_SOLID, 0xFFFFFF, 0},
                                              {BS_SOLID, 0xC0C0C0, 0},
                                              {BS_SOLID, 0x808080, 0},
                                              {BS_SOLID, 0x404040, 0},
                                              {BS_SOLID, 0x000000, 0},
                                              {BS_NULL, 0x000000, 0}}};
constexpr std::array<Pen, 3> kStockPens{
    {{PS_SOLID, 0, 0xFFFFFF, false}, {PS_SOLID, 0, 0x000000, false}, {PS_NULL, 1, 0x000000, false}}};

struct StockFontEntry {
  std::int32_t index;
  LOGFONT font;
};

constexpr LOGFONT Fixed(std::int32_t height, std::uint8_t charSet) {
  return {height, 0, 0, 0, 400, 0, 0, 0, charSet, 0, 0, 0, FIXED_PITCH | FF_MODERN, "Unifont"};
}
constexpr LOGFONT Proportional(std::int32_t height, std::int32_t weight) {
  return {height, 0, 0, 0, weight, 0, 0, 0, 0, 0, 0, 0, VARIABLE_PITCH | FF_SWISS, "DejaVu Sans"};
}

constexpr std::uint8_t kAnsi = 0, kOem = 255;
constexpr std::array<StockFontEntry, 7> kStockFonts{{{OEM_FIXED_FONT, Fixed(16, kOem)},
                                                     {ANSI_FIXED_FONT, Fixed(16, kAnsi)},
                                                     {ANSI_VAR_FONT, Proportional(14, 400)},
                                                     {SYSTEM_FONT, Proportional(16, 700)},
                                                     {DEVICE_DEFAULT_FONT, Proportional(16, 700)},
                                                     {SYSTEM_FIXED_FONT, Fixed(16, kAnsi)},
                                                     {DEFAULT_GUI_FONT, Proportional(-11, 400)}}};

const LOGFONT* StockFontAt(std::int32_t index) {
  for (const StockFontEntry& entry : kStockFonts) {
    if (entry.index == index) return &entry.font;
  }
  return nullptr;
}

bool IsStockIndex(std::int32_t index) {
  return (index >= WHITE_BRUSH && index <= NULL_PEN) || StockFontAt(index) != nullptr ||
         index == kDefaultBitmapIndex;
}

}  // namespace

const HBITMAP kDefaultBitmapHandle = kStockBit | kDefaultBitmapIndex;

Context::Context()
    : bitmapHandle(kDefaultBitmapHandle),
      penHandle(StockHandle(BLACK_PEN)),
      pen(kStockPens[BLACK_PEN - WHITE_PEN]),
      brushHandle(StockHandle(WHITE_BRUSH)),
      brush(kStockBrushes[WHITE_BRUSH]),
      fontHandle(StockHandle(SYSTEM_FONT)),
      font(*StockFontAt(SYSTEM_FONT)) {}

HGDIOBJ StockHandle(std::int32_t index) { return kStockBit | index; }

std::int32_t StockIndex(HGDIOBJ handle) {
  const std::int32_t index = handle & ~kStockBit;
  return (handle & kStockBit) != 0 && IsStockIndex(index) ? index : -1;
}

std::optional<Pen> StockPen(HGDIOBJ handle) {
  const std::int32_t index = StockIndex(handle);
  if (index < WHITE_PEN || index > NULL_PEN) return std::nullopt;
  return kStockPens[static_cast<std::size_t>(index - WHITE_PEN)];
}

std::optional<Brush> StockBrush(HGDIOBJ handle) {
  const std::int32_t index = StockIndex(handle);
  if (index < WHITE_BRUSH || index > NULL_BRUSH) return std::nullopt;
  return kStockBrushes[static_cast<std::size_t>(index)];
}

const LOGFONT* StockFont(HGDIOBJ handle) { return StockFontAt(StockIndex(handle)); }

}  // namespace quenzel7::gdi
