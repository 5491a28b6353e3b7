#include "shapes/current_pen.h"

namespace quenzel7 {

gdi::LOGPEN CurrentPen(Long hdc) {
  gdi::LOGPEN pen{};
  gdi::GetObjectA(gdi::GetCurrentObject(hdc, gdi::OBJ_PEN), sizeof pen, &pen);
  return pen;
}

}  // namespace quenzel7
