#include "platform/ado/row_taker.h"

#include <sqlite3.h>

#include <cstddef>

namespace quenzel7::ado {

void RowTaker::AddTo(sqlite3* database) {
  // Of any number of arguments; not for views and triggers, which other programs run too. If there is no
  // memory for it the function is missing, and rows are read column by column.
  sqlite3_create_function(database, kFunction.data(), -1, SQLITE_UTF8 | SQLITE_DIRECTONLY, this, &Take,
                          nullptr, nullptr);
}

void RowTaker::Take(sqlite3_context* context, int count, sqlite3_value** values) {
  const auto& taker = *static_cast<const RowTaker*>(sqlite3_user_data(context));
  if (!taker.cells_ || static_cast<std::size_t>(count) != taker.kinds_.size()) {
    sqlite3_result_error(context, "no such row is being taken", -1);
    return;
  }
  try {
    Cells& cells = *taker.cells_;
    const std::size_t place = cells.Size();
    const std::size_t width = taker.kinds_.size();
    cells.Resize(place + width);
    CopyValues(values, taker.kinds_, cells, place);
    sqlite3_result_int64(context, static_cast<sqlite3_int64>(place / width));
  } catch (...) {
    // Nothing may be thrown through the engine. Who reads the row column by column is told what is wrong.
    sqlite3_result_error(context, "the row cannot be taken", -1);
  }
}

}  // namespace quenzel7::ado
