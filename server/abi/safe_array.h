#pragma once

#include <cstddef>

#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// Whether someone is at the cells of the array, or at those of an array in one of them.
bool IsLocked(const SAFEARRAY& array);

/// How many cells the array has in all dimensions together; 2^32 when that or more, which no array is made
/// with.
std::size_t CellCount(const SAFEARRAY& array);

}  // namespace quenzel7::server
