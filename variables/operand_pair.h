#pragma once

#include "platform/automation/types.h"

namespace quenzel7 {

/// An operand that a handler keeps among its settings: type and address. Type 0 is none.
struct OperandPair {
  Long type = 0;
  Long address = 0;

  friend bool operator==(const OperandPair&, const OperandPair&) = default;
};

}  // namespace quenzel7
