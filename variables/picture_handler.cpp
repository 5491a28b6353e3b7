#include "variables/picture_handler.h"

#include "images/panel_pixels.h"
#include "platform/gdi/gdi.h"

namespace quenzel7 {

PictureCanvas::PictureCanvas(Long hdc, Long width, Long height) : memory_(hdc) {
  bitmap_.Reset(gdi::CreateCompatibleBitmap(hdc, width, height));
  gdi::SelectObject(memory_.Get(), bitmap_.Get());
}

void PictureCanvas::ShowIn(clsBitmap& element) {
  element.ImageCRC(kPaintedImage);
  element.hBmp(bitmap_.Release());
}

}  // namespace quenzel7
