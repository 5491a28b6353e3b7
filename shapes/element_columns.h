#pragma once

#include <string_view>

#include "framework/columns.h"
#include "framework/project.h"

/// Entries of column tables that elements of all classes share.
namespace quenzel7 {

/// ID, address, group or colour that is not there.
inline constexpr Long kNone = -1;

/// The number of the class.
template <class Element>
constexpr Column<Element> TypeColumn() {
  return {"Type", [](const Element& element) { return automation::Variant(element.ElementType()); }, nullptr};
}

/// The page that the host has open.
template <class Element>
constexpr Column<Element> DisplayColumn() {
  return {"DisplayID", [](const Element&) { return automation::Variant(CurrentDisplayID()); }, nullptr};
}

/// What an element without the property writes: 0 in 16 bits.
template <class Element>
constexpr Column<Element> ZeroColumn(std::string_view name) {
  return ConstantColumn<Element, Integer, 0>(name);
}
/// The same in 32 bits.
template <class Element>
constexpr Column<Element> LongZeroColumn(std::string_view name) {
  return ConstantColumn<Element, Long, 0>(name);
}
/// What an element without the operand writes: no address, in 32 bits.
template <class Element>
constexpr Column<Element> NoOperandColumn(std::string_view name) {
  return ConstantColumn<Element, Long, kNone>(name);
}

}  // namespace quenzel7
