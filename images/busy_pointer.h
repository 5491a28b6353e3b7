#pragma once

#include "platform/platform.h"

namespace quenzel7 {

/// Shows the host's busy pointer for as long as it lives, also when an error ends the work.
class BusyPointer {
 public:
  BusyPointer() { Show(corvane1::kBusyPointer); }
  ~BusyPointer() {
    try {
      Show(corvane1::kDefaultPointer);
    } catch (...) {
      // A pointer that stays matters less than the error that ended the work.
    }
  }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  static void Show(corvane1::HostPointer pointer) { Platform::Current().hostFrame->SetPointer(pointer); }
};

}  // namespace quenzel7
