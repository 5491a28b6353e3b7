#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/ado/cells.h"

struct sqlite3_stmt;
struct sqlite3_value;

namespace quenzel7::ado {

/// What the values of a column are read as beyond what the engine says.
enum class ColumnKind : std::uint8_t {
  Plain,
  /// Whole numbers are ten-thousandths.
  Currency,
};

/// Copies values of the engine, as many as there are `kinds`, into the cells from `place` on. Error 6 when an
/// amount does not fit a Currency.
void CopyValues(sqlite3_value* const* values, std::span<const ColumnKind> kinds, Cells& cells,
                std::size_t place);

/// The same for the columns of a statement's current row, from column `first` on.
void CopyColumns(sqlite3_stmt* statement, int first, std::span<const ColumnKind> kinds, Cells& cells,
                 std::size_t place);

}  // namespace quenzel7::ado
