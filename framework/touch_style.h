#pragma once

#include "framework/element_contract.h"
#include "framework/enums.h"

namespace quenzel7 {

/// The address of a touch that opens a keypad: it has no operand of its own.
inline constexpr Long kKeypadTouch = -2;

/// What a touch on the element does. A variable is known by the name of its class, clsVar, and asked by name
/// for what its answer depends on: VarType, IsCalendarVar, and Switch of its handler. Errors: those of call
/// by name; 91 when the variable has no handler to ask.
enTouchStyle GetTouchStyle(ItfHmiElement& element);

}  // namespace quenzel7
