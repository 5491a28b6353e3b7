#pragma once

#include "platform/automation/types.h"

namespace quenzel7::server {

/// How many objects and class factories the hosts of this process hold, and how often they have locked the
/// library; while there are any it must stay loaded.
Long LiveObjects();

/// Counts one for as long as it lives.
class LiveObject {
 public:
  LiveObject();
  LiveObject(const LiveObject&) = delete;
  LiveObject& operator=(const LiveObject&) = delete;
  ~LiveObject();
};

/// Locks the library, or takes one lock back, if there is one.
void LockServer(bool lock);

}  // namespace quenzel7::server
