#include "hosts/cli/page_operands.h"

#include <memory>

#include "framework/operands.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/variable_settings.h"
#include "platform/fennick1/operand.h"
#include "platform/platform.h"

namespace quenzel7::cli {
namespace {

using automation::To;

/// A property that holds the address of an operand: of a memory bit, or of the type that another property
/// tells, 0 for none.
struct OperandProperty {
  std::string_view name;
  enOperandPurpose purpose;
  std::string_view type;
};

constexpr OperandProperty kOperandProperties[] = {
    {"TouchOprndAddr", eOP_TouchOperand, {}},
    {"EnabledOpAddr", eOP_EnabledOperand, {}},
    {"VisibleOpAddr", eOP_VisibleOperand, {}},
    {"HighlightOpAddr", eOP_HighlightOperand, {}},
    {"KeypadSuccessOpAddr", eOP_KeypadSuccessOperand, {}},
    {"OperandAddress", eOP_VarLinkOperand, "OperandType"},
    {"StorageStringID", eOP_StorageStringIdOperand, "StorageStringType"},
};

Long NumberOf(ItfHmiElement& element, std::string_view property) {
  return To<Long>(automation::GetByName(element, property));
}

/// An operand of the project, entered in it or not.
std::shared_ptr<fennick1::Operand> OperandAt(Long type, Long address, Long network) {
  auto operand = std::make_shared<fennick1::Operand>(Platform::Current().operands);
  operand->OperandType(type);
  operand->OperandAddress(address);
  operand->OperandNetID(network);
  return operand;
}

}  // namespace

std::vector<UsedOperand> OperandsOf(ItfHmiElement& element) {
  std::vector<UsedOperand> used;
  for (const auto& [name, purpose, typeName] : kOperandProperties) {
    if (!element.Class().Default().Find(name)) continue;
    const Long address = NumberOf(element, name);
    const Long type = typeName.empty() ? kMemoryBit : NumberOf(element, typeName);
    if (address >= 0 && type != 0) used.push_back({name, purpose, type, address});
  }
  return used;
}

PageOperands::PageOperands(ado::Connection& connection) : connection_(connection) {
  for (const Operand& used : Used()) {
    const auto [type, address, network] = used;
    if (IsValueOperandType(type)) continue;
    const auto operand = OperandAt(type, address, network);
    if (operand->IsDefined()) copies_[used] = operand->PropBag();
  }
}

std::vector<PageOperands::Operand> PageOperands::Used(const std::string& where) const {
  const auto rows = ado::OpenRecordset(
      connection_, "SELECT DISTINCT OprndType, OprndAddr, OprndNetID FROM HMI_Operands" + where,
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
  for (const UsedOperand& used : OperandsOf(element)) {
    AddOperandRow(IdOf(element), used.type, used.address, used.purpose, kLocalNetwork);
    added_.emplace_back(used.type, used.address, kLocalNetwork);
  }
  if (!IsVariable(element)) return;
  // Which operands a handler has beside the link operand, only its rows tell.
  HandlerOf(element)->AddOperandsToHmiOperands(IdOf(element));
  const std::vector<Operand> ofHandler =
      Used(" WHERE ElementID=" + std::to_string(IdOf(element)) +
           " AND OprndPurpose=" + std::to_string(eOP_VarBinaryDataOperand));
  added_.insert(added_.end(), ofHandler.begin(), ofHandler.end());
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
