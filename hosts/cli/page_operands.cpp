#include "hosts/cli/page_operands.h"

#include <memory>

#include "framework/operands.h"
#include "hosts/cli/element_calls.h"
#include "platform/fennick1/operand.h"
#include "platform/platform.h"

namespace quenzel7::cli {
namespace {

using automation::To;

constexpr OperandProperty kOperandProperties[] = {
    {"TouchOprndAddr", eOP_TouchOperand},
    {"VisibleOpAddr", eOP_VisibleOperand},
};

/// An operand of the project, entered in it or not.
std::shared_ptr<fennick1::Operand> OperandAt(Long type, Long address, Long network) {
  auto operand = std::make_shared<fennick1::Operand>(Platform::Current().operands);
  operand->OperandType(type);
  operand->OperandAddress(address);
  operand->OperandNetID(network);
  return operand;
}

}  // namespace

std::span<const OperandProperty> OperandProperties() { return kOperandProperties; }

PageOperands::PageOperands(ado::Connection& connection) : connection_(connection) {
  for (const Operand& used : Used()) {
    const auto [type, address, network] = used;
    if (IsValueOperandType(type)) continue;
    const auto operand = OperandAt(type, address, network);
    if (operand->IsDefined()) copies_[used] = operand->PropBag();
  }
}

std::vector<PageOperands::Operand> PageOperands::Used() const {
  const auto rows =
      ado::OpenRecordset(connection_, "SELECT DISTINCT OprndType, OprndAddr, OprndNetID FROM HMI_Operands",
                         ado::adOpenStatic, ado::adLockReadOnly);
  std::vector<Operand> used;
  for (; !rows->Eof(); rows->MoveNext()) {
    try {
      used.emplace_back(To<Long>(rows->Get("OprndType")), To<Long>(rows->Get("OprndAddr")),
                        To<Long>(rows->Get("OprndNetID")));
    } catch (const automation::AutomationError&) {
      // What is no number names no operand that could be lost.
    }
  }
  return used;
}

void PageOperands::AddRows(ItfHmiElement& element) {
  for (const OperandProperty& property : kOperandProperties) {
    if (!element.Class().Default().Find(property.name)) continue;
    const Long address = To<Long>(automation::GetByName(element, property.name));
    if (address < 0) continue;
    AddOperandRow(IdOf(element), kMemoryBit, address, property.purpose, kLocalNetwork);
    added_.emplace_back(kMemoryBit, address, kLocalNetwork);
  }
}

void PageOperands::Settle() {
  for (const Operand& used : Used()) {
    const auto copy = copies_.find(used);
    if (copy == copies_.end()) continue;
    auto [type, address, network] = used;
    RestoreOperand(type, address, copy->second);
  }
  for (const auto& [type, address, network] : added_) {
    const auto operand = OperandAt(type, address, network);
    if (!operand->IsDefined()) operand->AddToProject();
  }
}

}  // namespace quenzel7::cli
