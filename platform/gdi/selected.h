#pragma once

#include "platform/gdi/gdi.h"

namespace quenzel7::gdi {

/// Selects a new object into a context and owns it: at the end the context gets back what it had, and
/// the new object is deleted. If the object could not be made or selected, the context keeps what it
/// has.
///
///     const gdi::SelectedPen pen(dc, gdi::CreatePenIndirect(&logPen));
template <ObjectType kType>
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : dc_(dc), object_(object), before_(SelectObject(dc, object)) {}
  ~Selected() {
    if (before_ != 0) SelectObject(dc_, before_);
    if (object_ != 0) DeleteObject(object_);
  }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

  HGDIOBJ Get() const { return object_; }

 private:
  HDC dc_;
  HGDIOBJ object_;
  HGDIOBJ before_;
};

using SelectedPen = Selected<OBJ_PEN>;
using SelectedBrush = Selected<OBJ_BRUSH>;
using SelectedFont = Selected<OBJ_FONT>;
using SelectedBitmap = Selected<OBJ_BITMAP>;

}  // namespace quenzel7::gdi
