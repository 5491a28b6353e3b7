#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

#include "platform/gdi/bitmap.h"
#include "platform/gdi/path.h"
#include "platform/gdi/types.h"

/// What handles stand for. Pens and brushes are plain values: a context keeps a copy of what is
/// selected into it, so that drawing looks up no handle but the context's.
namespace quenzel7::gdi {

class Font;

struct Pen {
  std::uint32_t style = PS_SOLID;  ///< with the flags of an extended pen
  std::int32_t width = 0;
  COLORREF color = 0;
  bool isExtended = false;

  std::uint32_t Line() const { return style & PS_STYLE_MASK; }
  bool IsNull() const { return Line() == PS_NULL; }
  /// Whether lines of this pen are one pixel wide and painted pixel by pixel.
  bool IsThin() const { return width <= 1; }
  /// Whether lines have gaps: a pen of `CreatePenIndirect` wider than 1 is solid whatever its style.
  bool IsDashed() const { return IsThin() && Line() >= PS_DASH && Line() <= PS_DASHDOTDOT; }
};

struct Brush {
  std::uint32_t style = BS_SOLID;
  COLORREF color = 0xFFFFFF;
  std::uint32_t hatch = 0;
};

/// A memory context. `bitmap` is the selected one, or its own default of one pixel and one bit.
struct Context {
  Context();
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  Bitmap defaultBitmap{1, 1, 1};
  Bitmap* bitmap = &defaultBitmap;
  HBITMAP bitmapHandle;
  HPEN penHandle;
  Pen pen;
  HBRUSH brushHandle;
  Brush brush;
  HFONT fontHandle;
  LOGFONT font;
  std::shared_ptr<Font> realizedFont;  ///< null until text is drawn or measured in it
  std::int32_t backgroundMode = OPAQUE;
  COLORREF background = 0xFFFFFF;
  COLORREF text = 0;
  std::int32_t stretchMode = BLACKONWHITE;
  POINT position{0, 0};
  Path path;

  /// What the gaps of hatches and dashes are painted in; nothing if they are left as they are.
  std::optional<COLORREF> GapColor() const {
    return backgroundMode == OPAQUE ? std::optional(background) : std::nullopt;
  }
};

/// Stock handles are the same on every thread, are never deleted and need no entry in a table.
HGDIOBJ StockHandle(std::int32_t index);
/// The index of a stock handle, or -1.
std::int32_t StockIndex(HGDIOBJ handle);
std::optional<Pen> StockPen(HGDIOBJ handle);
std::optional<Brush> StockBrush(HGDIOBJ handle);
/// Null if it is no stock font.
const LOGFONT* StockFont(HGDIOBJ handle);

/// Stands for the bitmap that every context has from the beginning.
extern const HBITMAP kDefaultBitmapHandle;

}  // namespace quenzel7::gdi
