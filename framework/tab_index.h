#pragma once

#include "platform/automation/types.h"

namespace quenzel7 {

/// The tab number of an element that is not in the tab order.
inline constexpr Long kNoTabIndex = 255;

/// Counts from 0 along the page's tab numbers, in ascending order and each once, to the first that is not the
/// count: the smallest number that no element has. A number below 0 ends the count at 0 at once, also where 0
/// is taken. An element without a number does not count. Errors of the database; 91 when no project is open.
Long NextTabIndex(Long page);

}  // namespace quenzel7
