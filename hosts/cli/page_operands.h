#pragma once

#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "framework/element_contract.h"
#include "framework/enums.h"
#include "platform/ado/connection.h"
#include "platform/automation/property_bag.h"

namespace quenzel7::cli {

/// An operand that an element uses, by a property that holds its address.
struct UsedOperand {
  std::string_view property;
  enOperandPurpose purpose;
  Long type, address;
};

/// The operands that an element has to have rows in HMI_Operands for. An address below 0 is none: no operand,
/// or a touch without one of its own. StorageStringID is an address where StorageStringType tells a type.
std::vector<UsedOperand> OperandsOf(ItfHmiElement& element);

/// The operands of a page that is being imported. The library adds no operand rows for new assignments, and
/// deleting an element takes its operands out of the project even when another page uses them: both is the
/// host's to see to.
class PageOperands {
 public:
  /// Takes a copy of every operand that the project's elements use, before elements are deleted.
  explicit PageOperands(ado::Connection& connection);

  /// Adds the rows of a saved element's operands.
  void AddRows(ItfHmiElement& element);

  /// When all elements are there: brings back the operands that elements still use and that deleting took
  /// away, with their comments and values, and enters the new ones in the project.
  void Settle();

 private:
  /// Type, address and network.
  using Operand = std::tuple<Long, Long, Long>;

  /// Those of the rows that the condition chooses.
  std::vector<Operand> Used(const std::string& where = {}) const;

  ado::Connection& connection_;
  std::map<Operand, automation::PropertyBagRef> copies_;
  std::vector<Operand> added_;
};

}  // namespace quenzel7::cli
