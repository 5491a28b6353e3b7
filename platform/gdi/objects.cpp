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

bool IsStockIndex(std::int32_t index) {
  return (index >= WHITE_BRUSH && index <= NULL_PEN) || index == SYSTEM_FONT || index == kDefaultBitmapIndex;
}

}  // namespace

const HBITMAP kDefaultBitmapHandle = kStockBit | kDefaultBitmapIndex;

Context::Context()
    : bitmapHandle(kDefaultBitmapHandle),
      penHandle(StockHandle(BLACK_PEN)),
      pen(kStockPens[BLACK_PEN - WHITE_PEN]),
      brushHandle(StockHandle(WHITE_BRUSH)),
      brush(kStockBrushes[WHITE_BRUSH]) {}

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

}  // namespace quenzel7::gdi
