#pragma once

#include <memory>
#include <span>

#include "framework/operands.h"
#include "platform/automation/collection.h"
#include "platform/automation/property_bag.h"

/// Operand tables: which operands a class has, in the order of their bags, and when each of them is there.
namespace quenzel7 {

/// One operand of an element.
template <class Element>
struct ElementOperand {
  enOperandPurpose purpose;
  Long Element::*address;
  /// Where the type is kept; nullptr for a memory bit.
  Long Element::*type;
  /// Whether the collection of bags has one for it.
  bool (*hasBag)(const Element&);
  /// Whether it comes back when all operands are restored; only what has a bag does.
  bool (*isRestored)(const Element&);
};

/// For an operand that is always there.
template <class Element>
constexpr bool Always(const Element&) {
  return true;
}

/// A new collection with a bag for each operand that has one, in the order of the table.
template <class Element>
automation::CollectionRef BagsOf(const Element& element, std::span<const ElementOperand<Element>> operands) {
  auto bags = std::make_shared<automation::Collection>();
  for (const ElementOperand<Element>& operand : operands) {
    if (!operand.hasBag(element)) continue;
    const Long type = operand.type ? element.*operand.type : kMemoryBit;
    bags->Add(NewOperandBag(type, element.*operand.address, kLocalNetwork));
  }
  return bags;
}

/// Brings the operands back from their bags, and writes the element's rows of them anew; what holds a value
/// has another address then, which the element takes. Error 91 without a collection, error 9 when it has too
/// few bags; what was restored before stays.
template <class Element>
void RestoreFromBags(Element& element, const automation::CollectionRef& bags,
                     std::span<const ElementOperand<Element>> operands) {
  Long place = 0;
  for (const ElementOperand<Element>& operand : operands) {
    if (operand.hasBag(element)) ++place;
    if (!operand.isRestored(element)) continue;
    if (!bags) automation::detail::RaiseObjectNotSet();
    Long memoryBit = kMemoryBit;
    Long& type = operand.type ? element.*operand.type : memoryBit;
    Long& address = element.*operand.address;
    RestoreOperand(type, address, bags->template ObjectAt<automation::PropertyBag>(place));
    AddOperandRow(element.ID(), type, address, operand.purpose, kLocalNetwork);
  }
}

}  // namespace quenzel7
