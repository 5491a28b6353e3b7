#include "platform/ado/sqlite_value.h"

#include <sqlite3.h>

#include <string>

#include "platform/automation/array.h"
#include "platform/automation/convert.h"

namespace quenzel7::ado {
namespace {

using automation::Variant;

/// Texts, blocks of bytes, and numbers that are no Long.
Variant OtherValue(sqlite3_value* value, ColumnKind kind) {
  // The size is asked for behind the contents, which may have to be brought to their form first.
  const auto size = [value] { return static_cast<std::size_t>(sqlite3_value_bytes(value)); };
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER: {
      const std::int64_t number = sqlite3_value_int64(value);
      if (kind == ColumnKind::Currency) return Currency{number};
      return static_cast<Double>(number);
    }
    case SQLITE_FLOAT: {
      const Variant number = sqlite3_value_double(value);
      return kind == ColumnKind::Currency ? Variant(automation::To<Currency>(number)) : number;
    }
    case SQLITE_TEXT: {
      const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
      return std::string(text, size());
    }
    default: {
      const auto* bytes = static_cast<const Byte*>(sqlite3_value_blob(value));
      return automation::Array::OfBytes(std::span(bytes, size()));
    }
  }
}

inline void CopyValue(sqlite3_value* value, ColumnKind kind, Cells& cells, std::size_t place) {
  const int type = sqlite3_value_type(value);
  if (type == SQLITE_NULL) {
    cells.SetNull(place);
    return;
  }
  if (type == SQLITE_INTEGER && kind == ColumnKind::Plain) {
    const std::int64_t number = sqlite3_value_int64(value);
    if (number == static_cast<Long>(number)) {
      cells.SetLong(place, static_cast<Long>(number));
      return;
    }
  }
  cells.Set(place, OtherValue(value, kind));
}

}  // namespace

void CopyValues(sqlite3_value* const* values, std::span<const ColumnKind> kinds, Cells& cells,
                std::size_t place) {
  for (const ColumnKind kind : kinds) CopyValue(*values++, kind, cells, place++);
}

void CopyColumns(sqlite3_stmt* statement, int first, std::span<const ColumnKind> kinds, Cells& cells,
                 std::size_t place) {
  // The connection has no lock of its own, so a value need not be protected to be looked at.
  for (const ColumnKind kind : kinds) {
    CopyValue(sqlite3_column_value(statement, first++), kind, cells, place++);
  }
}

}  // namespace quenzel7::ado
