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

/// The types that have a name, in order of their numbers: 1 MB memory bit, 2 IB input bit, 3 MW memory word,
/// 4 QB output bit, 5 MD memory double word, 6 SW system word, 7 MR memory real; 16 MU, 36 SU and 67 XU
/// unsigned double words of memory, system and extension; 15, 34, 35, 37 and 38 constants, which hold a value
/// of their own. The letters follow the size prefixes of IEC 61131-3 (B, W, D, R for real, U for unsigned).
std::span<const OperandTypeInfo> OperandTypes();

/// The operand as reports show it: "MB 5"; a constant as its value: "12.5"; an operand of a type without a
/// name as "#23 5"; behind that ", network 3" unless the network is 0, the controller's own.
std::string OperandText(Long type, Long address, Long network, Currency value);

}  // namespace quenzel7::fennick1
