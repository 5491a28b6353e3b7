#include "variables/key_table.h"

#include "framework/operands.h"

namespace quenzel7 {
namespace {

using automation::Variant;

constexpr std::int64_t kOne = 10000;

}  // namespace

Variant OperandForChangeKey(const OperandPair& operand, ChangeKeyForm form) {
  const bool isCurrency = form == ChangeKeyForm::Currencies;
  if (!IsValueOperandType(operand.type)) {
    return isCurrency ? Variant(Currency{operand.address * kOne}) : Variant(operand.address);
  }
  const Variant value(OperandValueOf(operand.type, operand.address, kLocalNetwork));
  return isCurrency ? value : Variant(automation::To<Long>(value));
}

}  // namespace quenzel7
