#include "variables/picture_handler.h"

#include "images/panel_pixels.h"
#include "platform/gdi/gdi.h"

namespace quenzel7 {

PictureHandler::PictureHandler() : drawing_(std::make_shared<clsBitmap>()) {}

clsBitmap& PictureHandler::Drawing() const {
  if (!drawing_) automation::detail::RaiseObjectNotSet();
  return *drawing_;
}

PictureCanvas::PictureCanvas(Long hdc, Long width, Long height) : memory_(hdc) {
  bitmap_.Reset(gdi::CreateCompatibleBitmap(hdc, width, height));
  gdi::SelectObject(memory_.Get(), bitmap_.Get());
}

void PictureCanvas::ShowIn(clsBitmap& element) {
  element.ImageCRC(kPaintedImage);
  element.hBmp(bitmap_.Release());
}

}  // namespace quenzel7
