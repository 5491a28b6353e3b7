#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/automation/types.h"

/// The kinds of operands of a controller, by their number.
namespace quenzel7::fennick1 {

/// What an operand of a type is.
struct OperandTypeInfo {
  Long type;
  /// The short name that stands before the address; empty for constants, which show their value.
  std::string_view name;
  std::string_view meaning;

  bool IsConstant() const { return name.empty(); }
};

/// The types that have a name, in order of their numbers:
///   1 MB memory bit, 2 SB system bit, 3 MI memory integer (16 bits), 4 SI system integer,
///   5 ML memory long (32 bits), 6 SL system long, 7 MF memory float, 16 MDW memory double word (32 bits,
///   unsigned), 36 SDW system double word, 65 EI, 66 EL, 67 EDW extended integer, long and double word;
///   15, 34, 35, 37, 38 constants, which hold a value of their own.
std::span<const OperandTypeInfo> OperandTypes();

/// The operand as reports show it: "MB 5"; a constant as its value: "12.5"; an operand of a type without a
/// name as "#23 5"; behind that ", network 3" unless the network is 0, the controller's own.
std::string OperandText(Long type, Long address, Long network, Currency value);

}  // namespace quenzel7::fennick1
