#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

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

/// A column kept in a 32-bit field of the element, both ways.
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

/// The columns of a class in their order. A class whose table differs from another one's by entries makes it
/// from that one, so that only the difference is told; an entry that is not there does not compile.
template <class Element, std::size_t N>
struct ColumnTable {
  std::array<Column<Element>, N> columns;

  constexpr operator std::span<const Column<Element>>() const { return columns; }

  /// The table without a column.
  constexpr ColumnTable<Element, N - 1> Without(std::string_view name) const {
    ColumnTable<Element, N - 1> table{};
    const auto next = std::copy_n(columns.begin(), PlaceOf(name), table.columns.begin());
    std::copy(columns.begin() + PlaceOf(name) + 1, columns.end(), next);
    return table;
  }

  /// The table with a column in the place of the one of its name.
  constexpr ColumnTable With(const Column<Element>& column) const {
    ColumnTable table = *this;
    table.columns[PlaceOf(column.name)] = column;
    return table;
  }

  /// The table with one more column, right after the one of that name.
  constexpr ColumnTable<Element, N + 1> WithAfter(std::string_view name,
                                                  const Column<Element>& column) const {
    ColumnTable<Element, N + 1> table{};
    auto next = std::copy_n(columns.begin(), PlaceOf(name) + 1, table.columns.begin());
    *next++ = column;
    std::copy(columns.begin() + PlaceOf(name) + 1, columns.end(), next);
    return table;
  }

 private:
  constexpr std::size_t PlaceOf(std::string_view name) const {
    std::size_t place = 0;
    while (columns.at(place).name != name) ++place;
    return place;
  }
};

/// A table of the given columns.
template <class Element, class... Columns>
constexpr ColumnTable<Element, 1 + sizeof...(Columns)> MakeColumnTable(const Column<Element>& first,
                                                                       const Columns&... others) {
  return {{{first, others...}}};
}

/// Writes the columns into the recordset's current row, in the order of the table.
template <class Element>
void WriteColumns(ado::Recordset& row, const Element& element, std::span<const Column<Element>> columns) {
  for (const Column<Element>& column : columns) row.Put(column.name, column.value(element));
}

/// Takes the columns of the recordset's current row into the element, in the order of the table. Errors: 3265
/// when a column is missing, and those of the conversions (94 for Null), telling the column.
template <class Element>
void ReadColumns(const ado::Recordset& row, Element& element, std::span<const Column<Element>> columns) {
  for (const Column<Element>& column : columns) {
    try {
      column.assign(element, row.Get(column.name));
    } catch (const automation::AutomationError& error) {
      throw error.In("column '" + std::string(column.name) + "' of HMI_Elements");
    }
  }
}

}  // namespace quenzel7
