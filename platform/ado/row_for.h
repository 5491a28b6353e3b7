#pragma once

#include <initializer_list>
#include <string_view>

#include "platform/ado/connection.h"
#include "platform/automation/variant.h"

namespace quenzel7::ado {

/// What a row is found by: a column and its value there, a whole number or a text.
struct KeyValue {
  std::string_view column;
  automation::Variant value;
};

/// The row of a table that has these values in its key columns, opened for writing: the one that is there, or
/// else a new one that has the keys so far. `Update` writes it. Errors of the database.
RecordsetRef RowFor(Connection& connection, std::string_view table, std::initializer_list<KeyValue> keys);

}  // namespace quenzel7::ado
