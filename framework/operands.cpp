#include "framework/operands.h"

#include "framework/project.h"
#include "platform/fennick1/operand.h"
#include "platform/platform.h"

namespace quenzel7 {
namespace {

constexpr Long kConstant16 = 34;
constexpr Long kConstant32 = 35;
constexpr Long kRestoredConstant16 = 37;
constexpr Long kRestoredConstant32 = 38;

/// An operand of the open project, made anew for one use.
struct NewOperand : fennick1::Operand {
  NewOperand() : Operand(Platform::Current().operands) {}
  NewOperand(Long type, Long address, Long network) : NewOperand() {
    OperandType(type);
    OperandAddress(address);
    OperandNetID(network);
  }
};

std::string Number(Long value) { return std::to_string(value); }

}  // namespace

void AddOperandRow(Long elementId, Long type, Long address, enOperandPurpose purpose, Long network) {
  if (type == 0) return;
  // The row has the network before the purpose, the arguments the other way round.
  ProjectConnection()->Execute(
      "INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) VALUES (" +
      Number(elementId) + "," + Number(type) + "," + Number(address) + "," + Number(network) + "," +
      Number(purpose) + ")");
}

void RemoveOperandRow(Long elementId, Long type, Long address, Long network, enOperandPurpose purpose) {
  ProjectConnection()->Execute("DELETE * FROM HMI_Operands WHERE ElementID=" + Number(elementId) +
                               " AND OprndType=" + Number(type) + " AND OprndAddr=" + Number(address) +
                               " AND OprndNetID =" + Number(network) +
                               " AND OprndPurpose=" + Number(purpose));
  // The row's network picks the row; the operand is the controller's own, as everywhere in this library.
  NewOperand operand(type, address, kLocalNetwork);
  if (operand.IsDefined()) operand.RemoveFromProject();
}

void RemoveAllOperandRows(Long elementId) {
  ProjectConnection()->Execute("DELETE * FROM HMI_Operands WHERE ElementID=" + Number(elementId));
}

void ReleaseOperand(Long type, Long address) {
  NewOperand operand(type, address, kLocalNetwork);
  // The store is asked as hosts expect, but the operand goes whatever it answers.
  static_cast<void>(operand.IsDefined());
  operand.RemoveFromProject();
}

automation::PropertyBagRef NewOperandBag(Long type, Long address, Long network) {
  NewOperand operand(type, address, network);
  static_cast<void>(operand.IsDefined());
  return operand.PropBag();
}

void RestoreOperand(Long& type, Long& address, const automation::PropertyBagRef& bag) {
  NewOperand operand;
  operand.PropBag(bag);
  const Long kept = operand.OperandType();
  if (kept == 0) return;
  if (!IsValueOperandType(kept)) {
    if (!operand.IsDefined()) {
      operand.PropBag(bag);
      operand.AddToProject();
    }
    return;
  }
  const auto value = operand.OperandValue();
  if (kept == kConstant16 || kept == kConstant32) {
    type = kept == kConstant16 ? kRestoredConstant16 : kRestoredConstant32;
    operand.OperandType(type);
  }
  operand.OperandComment("");
  address = operand.GetFreeAddress();
  operand.OperandAddress(address);
  operand.OperandValue(value);
  operand.AddToProject();
}

std::string OperandDescription(Long type, Long address, Long network) {
  if (type == 0) return {};
  NewOperand operand(type, address, network);
  return operand.IsDefined() ? operand.OperandText() : std::string();
}

Currency OperandValueOf(Long type, Long address, Long network) {
  return NewOperand(type, address, network).OperandValue();
}

bool IsValueOperandType(Long type) {
  return type == 15 || type == kConstant16 || type == kConstant32 || type == kRestoredConstant16 ||
         type == kRestoredConstant32;
}

}  // namespace quenzel7
