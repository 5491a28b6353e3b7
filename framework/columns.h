#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "framework/named_table.h"
#include "platform/ado/recordset.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"
#include "platform/automation/variant.h"

/// Column tables: which columns of its row an element writes and reads, in which order, and where they come
/// from.
namespace quenzel7 {

/// One column of an element's row.
template <class Element>
struct Column {
  std::string_view name;
  /// What saving writes; nullptr when the column is only read.
  automation::Variant (*value)(const Element&) = nullptr;
  /// What loading does with the value; nullptr when the column is only written.
  void (*assign)(Element&, const automation::Variant&) = nullptr;
};

/// A column kept in a field of the element, both ways, in the width of the field.
template <class Element, auto Field>
constexpr Column<Element> FieldColumn(std::string_view name) {
  using Value = std::remove_cvref_t<decltype(std::declval<Element&>().*Field)>;
  return {name, [](const Element& element) { return automation::From(element.*Field); },
          [](Element& element, const automation::Variant& value) {
            element.*Field = automation::To<Value>(value);
          }};
}

/// A column that an element without the property writes as a constant, in the width of T.
template <class Element, class T, T Constant>
constexpr Column<Element> ConstantColumn(std::string_view name) {
  return {name, [](const Element&) { return automation::Variant(Constant); }, nullptr};
}

/// The columns of a class in their order.
template <class Element, std::size_t N>
using ColumnTable = NamedTable<Column<Element>, N>;

/// A table of the given columns.
template <class Element, class... Columns>
constexpr ColumnTable<Element, 1 + sizeof...(Columns)> MakeColumnTable(const Column<Element>& first,
                                                                       const Columns&... others) {
  return MakeNamedTable(first, others...);
}

/// The same error, telling the column.
inline automation::AutomationError InColumn(const automation::AutomationError& error,
                                            std::string_view column) {
  return error.In("column '" + std::string(column) + "' of HMI_Elements");
}

/// Writes the columns into the recordset's current row, in the order of the table. Errors of the database,
/// and those of a value that its column cannot hold, telling the column.
template <class Element>
void WriteColumns(ado::Recordset& row, const Element& element, std::span<const Column<Element>> columns) {
  for (const Column<Element>& column : columns) {
    automation::Variant value;
    try {
      value = column.value(element);
    } catch (const automation::AutomationError& error) {
      throw InColumn(error, column.name);
    }
    row.Put(column.name, value);
  }
}

/// Takes the columns of the recordset's current row into the element, in the order of the table. Errors: 3265
/// when a column is missing, and those of the conversions (94 for Null), telling the column.
template <class Element>
void ReadColumns(const ado::Recordset& row, Element& element, std::span<const Column<Element>> columns) {
  for (const Column<Element>& column : columns) {
    try {
      column.assign(element, row.Get(column.name));
    } catch (const automation::AutomationError& error) {
      throw InColumn(error, column.name);
    }
  }
}

}  // namespace quenzel7
