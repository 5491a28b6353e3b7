#pragma once

#include "platform/automation/types.h"

namespace quenzel7 {

/// The tab number of an element that is not in the tab order.
inline constexpr Long kNoTabIndex = 255;

/// The smallest tab number from 0 that no element of the page has; an element without one does not count.
/// Errors of the database; 91 when no project is open.
Long NextTabIndex(Long page);

}  // namespace quenzel7
