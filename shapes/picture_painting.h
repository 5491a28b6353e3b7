#pragma once

#include "framework/bitmap_size.h"
#include "images/panel_pixels.h"
#include "platform/corvane1/color_service.h"
#include "platform/gdi/owned.h"
#include "platform/gdi/types.h"

/// How elements paint a picture of the project.
namespace quenzel7 {

/// Gives an element a bitmap, which it then owns; the one it had is deleted unless it is the same.
void TakeBitmap(gdi::OwnedBitmap& owned, gdi::HBITMAP bitmap);

/// Fills an area in a colour of the panel.
void FillInPanelColor(Long hdc, const gdi::RECT& area, Long color, corvane1::ColorService& colors);

/// Paints the bitmap, which is of that size, at a point in panel pixels.
void PaintOpaquePicture(Long hdc, Long x, Long y, gdi::HBITMAP bitmap, const BitmapSize& size);

/// Paints the bitmap in its own size at a point; its pixels of the colour of its first one, whatever that is,
/// let the background show. The bitmap stays as it is. `pixels` are those it was made of, if any, and `bits`
/// what one of them takes. That colour is the panel colour of the first of them, by `colors`; of pixels of 16
/// bits, and where there are none, that of the bitmap's own pixel at the left above.
void PaintTransparentPicture(Long hdc, Long x, Long y, gdi::HBITMAP bitmap, const PixelBytes& pixels,
                             Long bits, corvane1::ColorService& colors);

}  // namespace quenzel7
