#pragma once

#include "platform/automation/types.h"

/// Arithmetic as the automation run-time does it: an overflow is an error, never a wrapped number.
namespace quenzel7::automation {

/// a + b; error 6 when it does not fit 32 bits.
Long Add(Long a, Long b);
/// a - b; error 6 when it does not fit 32 bits.
Long Subtract(Long a, Long b);
/// a * b; error 6 when it does not fit 32 bits.
Long Multiply(Long a, Long b);
/// -a; error 6 for the smallest number.
Long Negate(Long a);

/// a / b truncated toward zero; error 11 when b is 0, error 6 when the quotient does not fit 32 bits.
Long IntDiv(Long a, Long b);

/// Narrows to 16 bits; error 6 when the number lies outside -32768 to 32767.
Integer ToInteger(Long value);

/// The nearest integer, a half to the even neighbour; error 6 when it does not fit 32 bits or is no number.
Long RoundHalfEven(Double value);

/// The integer part, truncated toward zero; error 6 when it does not fit 32 bits or is no number.
Long Fix(Double value);

}  // namespace quenzel7::automation
