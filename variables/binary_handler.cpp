#include "variables/binary_handler.h"

#include "framework/operands.h"
#include "platform/automation/property_bag.h"

namespace quenzel7 {

BinaryHandler::BinaryHandler() : operandBags_(std::make_shared<automation::Collection>()) {}

void BinaryHandler::ItfVarBinaryHandler_DeleteAllOperands() {
  for (const ExtraOperand& operand : ExtraOperands()) {
    if (operand.pair->type != 0) ReleaseOperand(operand.pair->type, operand.pair->address);
  }
}

void BinaryHandler::ItfVarBinaryHandler_RestoreAllOperands(Long pVarID) {
  Long place = 0;
  for (const ExtraOperand& operand : ExtraOperands()) {
    if (!operand.isRestored) continue;
    const automation::CollectionRef bags = operandBags_;
    if (!bags) automation::detail::RaiseObjectNotSet();
    OperandPair& pair = *operand.pair;
    RestoreOperand(pair.type, pair.address, bags->ObjectAt<automation::PropertyBag>(++place));
    AddOperandRow(pVarID, pair.type, pair.address, eOP_VarBinaryDataOperand, kLocalNetwork);
  }
}

HandlerRef BinaryHandler::ItfVarBinaryHandler_Replica() {
  const std::shared_ptr<BinaryHandler> copy = NewOfClass();
  Keys().Copy(*copy, *this);
  copy->operandBags_ = operandBags_;
  return copy;
}

void BinaryHandler::ItfVarBinaryHandler_ReplaceOperand(Long pOpType, Long pOpAddress, Long pNewOpType,
                                                       Long pNewOpAddress) {
  for (const ExtraOperand& operand : ExtraOperands()) {
    if (*operand.pair == OperandPair{pOpType, pOpAddress}) *operand.pair = {pNewOpType, pNewOpAddress};
  }
}

void BinaryHandler::ItfVarBinaryHandler_AddOperandsToHmiOperands(Long pVarID) {
  for (const ExtraOperand& operand : ExtraOperands()) {
    AddOperandRow(pVarID, operand.pair->type, operand.pair->address, eOP_VarBinaryDataOperand, kLocalNetwork);
  }
}

void BinaryHandler::ItfVarBinaryHandler_BuildOpPropBag() {
  auto bags = std::make_shared<automation::Collection>();
  for (const ExtraOperand& operand : ExtraOperands()) {
    for (int bag = 0; bag < operand.bags; ++bag) {
      bags->Add(NewOperandBag(operand.pair->type, operand.pair->address, kLocalNetwork));
    }
  }
  operandBags_ = std::move(bags);
}

void BinaryHandler::ItfVarBinaryHandler_ReleaseResources() {
  ReleaseOwned();
  operandBags_.reset();
}

}  // namespace quenzel7
