#pragma once

#include <string>
#include <string_view>

#include "platform/ado/recordset.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"

namespace quenzel7::cli {

/// A column of the recordset's current row as a T. Errors: 3265 when the column is missing, and those of the
/// conversion, each with "column 'NAME' of TABLE: " before its description.
template <class T>
T ReadColumn(const ado::Recordset& row, std::string_view table, std::string_view column) {
  try {
    return automation::To<T>(row.Get(column));
  } catch (const automation::AutomationError& error) {
    throw error.In("column '" + std::string(column) + "' of " + std::string(table));
  }
}

}  // namespace quenzel7::cli
