#include "platform/automation/arithmetic.h"

#include <cmath>
#include <limits>
#include <string>

#include "platform/automation/automation_error.h"

namespace quenzel7::automation {
namespace {

[[noreturn]] void RaiseOverflow(const std::string& what, const char* width) {
  throw AutomationError(ErrorNumber::Overflow, "overflow: " + what + " does not fit " + width);
}

std::string Text(Long a, const char* sign, Long b) { return std::to_string(a) + sign + std::to_string(b); }

/// A whole number (already rounded) as 32 bits.
Long Whole(Double value) {
  if (!(value >= std::numeric_limits<Long>::min() && value <= std::numeric_limits<Long>::max())) {
    RaiseOverflow(std::to_string(value), "32 bits");
  }
  return static_cast<Long>(value);
}

}  // namespace

Long Add(Long a, Long b) {
  Long sum;
  if (__builtin_add_overflow(a, b, &sum)) RaiseOverflow(Text(a, " + ", b), "32 bits");
  return sum;
}

Long Subtract(Long a, Long b) {
  Long difference;
  if (__builtin_sub_overflow(a, b, &difference)) RaiseOverflow(Text(a, " - ", b), "32 bits");
  return difference;
}

Long Multiply(Long a, Long b) {
  Long product;
  if (__builtin_mul_overflow(a, b, &product)) RaiseOverflow(Text(a, " * ", b), "32 bits");
  return product;
}

Long Negate(Long a) { return Subtract(0, a); }

Long IntDiv(Long a, Long b) {
  if (b == 0) throw AutomationError(ErrorNumber::DivisionByZero, std::to_string(a) + " was divided by zero");
  if (b == -1) return Negate(a);
  return a / b;
}

Integer ToInteger(Long value) {
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max()) {
    RaiseOverflow(std::to_string(value), "16 bits");
  }
  return static_cast<Integer>(value);
}

Long RoundHalfEven(Double value) { return Whole(std::nearbyint(value)); }

Long Fix(Double value) { return Whole(std::trunc(value)); }

}  // namespace quenzel7::automation
