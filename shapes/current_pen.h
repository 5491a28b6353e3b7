#pragma once

#include "platform/automation/types.h"
#include "platform/gdi/gdi.h"

namespace quenzel7 {

/// The pen that is selected in the context; all 0 for a wrong handle.
gdi::LOGPEN CurrentPen(Long hdc);

}  // namespace quenzel7
