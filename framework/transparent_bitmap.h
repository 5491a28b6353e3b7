#pragma once

#include "platform/automation/types.h"
#include "platform/gdi/types.h"

namespace quenzel7 {

/// Paints a bitmap with its top left corner at (x, y) of a context so that its pixels of the given colour
/// leave the background showing. The bitmap has its pixels unchanged afterwards. Work bitmaps and contexts
/// are made for each call and deleted at once; if one of the bitmaps cannot be made nothing is painted.
/// The highest byte of the colour does not count.
///
/// A one-bit picture knows no colours: its white pixels are those that leave the background showing, whatever
/// the colour, and its others are black. A handle that is no bitmap paints nothing; a bitmap that a context
/// holds cannot be read and becomes a black rectangle.
void DrawBitmapTransparent(gdi::HDC dc, gdi::HBITMAP bitmap, Long x, Long y, gdi::COLORREF color);

}  // namespace quenzel7
