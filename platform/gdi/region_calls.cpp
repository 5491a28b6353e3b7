#include <memory>

#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"

namespace quenzel7::gdi {

using internal::Made;
using internal::Note;
using internal::Object;

HRGN CreateEllipticRgn(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
  Note("CreateEllipticRgn", left, top, right, bottom);
  const Box body = Region::Body(left, top, right, bottom);
  return Made(Handles().Add(std::make_unique<Region>(body, body.Width(), body.Height())));
}

HRGN CreateRoundRectRgn(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
                        std::int32_t width, std::int32_t height) {
  Note("CreateRoundRectRgn", left, top, right, bottom, width, height);
  const Box body = Region::Body(left, top, right, bottom);
  return Made(Handles().Add(std::make_unique<Region>(body, Magnitude(width), Magnitude(height))));
}

BOOL PtInRegion(HRGN region, std::int32_t x, std::int32_t y) {
  Note("PtInRegion", Object{region}, x, y);
  const Region* found = Handles().Find<Region>(region);
  return found != nullptr && found->Contains(x, y);
}

BOOL RectInRegion(HRGN region, const RECT* rect) {
  Note("RectInRegion", Object{region}, rect);
  const Region* found = Handles().Find<Region>(region);
  if (found == nullptr || rect == nullptr) return 0;
  return found->Meets(Box::Between(rect->left, rect->top, rect->right, rect->bottom));
}

}  // namespace quenzel7::gdi
