#pragma once

#include <memory>

#include "server/apartment.h"
#include "server/stub.h"
#include "tests/platform/automation/sample_object.h"
#include "tests/server/host.h"

namespace quenzel7::server::test {

/// An object of the library in a host's hands.
inline Pointer Handed(const automation::ObjectRef& object) {
  return Pointer(Apartment::Current().Hold(object)->Default());
}

/// An object with members of every kind, held by a host.
struct SampleInHands {
  std::shared_ptr<automation::Sample> sample = std::make_shared<automation::Sample>();
  Pointer host = Handed(sample);
};

}  // namespace quenzel7::server::test
