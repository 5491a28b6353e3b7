#pragma once

#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// What the faces of all objects are called through.
extern const IDispatchVtbl kDispatchCalls;
extern const IEnumVARIANTVtbl kEnumeratorCalls;

}  // namespace quenzel7::server
