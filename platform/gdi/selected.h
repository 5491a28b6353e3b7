#pragma once

#include "platform/gdi/owned.h"

namespace quenzel7::gdi {

/// Selects a new object into a context and owns it: at the end the context gets back what it had, then the
/// new object is deleted. If the object could not be made or selected, the context keeps what it has.
///
///     const gdi::SelectedPen pen(dc, gdi::CreatePenIndirect(&logPen));
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : object_(object), selection_(dc, object) {}

  HGDIOBJ Get() const { return object_.Get(); }

 private:
  // In this order: an object that a context holds cannot be deleted.
  OwnedObject object_;
  Selection selection_;
};

using SelectedPen = Selected;
using SelectedBrush = Selected;
using SelectedFont = Selected;
using SelectedBitmap = Selected;

}  // namespace quenzel7::gdi
