#pragma once

#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// Whether a VARIANT can say that it holds this: a value, an array, or what a pointer leads to.
bool IsKnownKind(VARTYPE kind);

/// Whether the value owns an array that cannot be destroyed now.
bool IsLocked(const VARIANT& value);

}  // namespace quenzel7::server
