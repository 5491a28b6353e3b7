#include "platform/fennick1/operand_types.h"

#include <algorithm>

#include "platform/automation/convert.h"

namespace quenzel7::fennick1 {
namespace {

constexpr OperandTypeInfo kTypes[] = {
    {1, "MB", "memory bit"},
    {2, "IB", "input bit"},
    {3, "MW", "memory word"},
    {4, "QB", "output bit"},
    {5, "MD", "memory double word"},
    {6, "SW", "system word"},
    {7, "MR", "memory real"},
    {15, "", "constant"},
    {16, "MU", "memory unsigned double word"},
    {34, "", "constant"},
    {35, "", "constant"},
    {36, "SU", "system unsigned double word"},
    {37, "", "constant"},
    {38, "", "constant"},
    {67, "XU", "extended unsigned double word"},
};

}  // namespace

std::span<const OperandTypeInfo> OperandTypes() { return kTypes; }

std::string OperandText(Long type, Long address, Long network, Currency value) {
  const auto* found = std::find_if(std::begin(kTypes), std::end(kTypes),
                                   [type](const OperandTypeInfo& info) { return info.type == type; });
  const bool known = found != std::end(kTypes);
  std::string text;
  if (known && found->IsConstant()) {
    text = automation::To<std::string>(value);
  } else {
    text = known ? found->name : "#";
    if (!known) text += std::to_string(type);
    (text += ' ') += std::to_string(address);
  }
  if (network != 0) text += ", network " + std::to_string(network);
  return text;
}

}  // namespace quenzel7::fennick1
