#include "platform/fennick1/operand_types.h"

#include <algorithm>

#include "platform/automation/convert.h"

namespace quenzel7::fennick1 {
namespace {

constexpr OperandTypeInfo kTypes[] = {
    {1, "MB", "memory bit"},
    {2, "SB", "system bit"},
    {3, "MI", "memory integer"},
    {4, "SI", "system integer"},
    {5, "ML", "memory long"},
    {6, "SL", "system long"},
    {7, "MF", "memory float"},
    {15, "", "constant"},
    {16, "MDW", "memory double word"},
    {34, "", "constant"},
    {35, "", "constant"},
    {36, "SDW", "system double word"},
    {37, "", "constant"},
    {38, "", "constant"},
    {65, "EI", "extended integer"},
    {66, "EL", "extended long"},
    {67, "EDW", "extended double word"},
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
