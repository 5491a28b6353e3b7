#include "platform/ado/sqlite_statement.h"

#include <sqlite3.h>

#include <limits>
#include <span>

#include "platform/ado/sqlite_database.h"
#include "platform/automation/array.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"

namespace quenzel7::ado {

using automation::Variant;

SqliteStatement::SqliteStatement(SqliteDatabase& database, std::string_view text, std::string_view shown)
    : database_(database) {
  const int result = sqlite3_prepare_v3(database.Handle(), text.data(), static_cast<int>(text.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement_, nullptr);
  if (result != SQLITE_OK) database.RaiseError(shown.empty() ? text : shown);
  if (!statement_) {
    throw automation::AutomationError(automation::ErrorNumber::Database, "the statement is empty");
  }
}

SqliteStatement::~SqliteStatement() {
  // Closing the database has finalized all statements.
  if (database_.IsOpen()) sqlite3_finalize(statement_);
}

void SqliteStatement::Check(int result) {
  if (result != SQLITE_OK) RaiseError({});
}

void SqliteStatement::RaiseError(std::string_view shown) const {
  database_.RaiseError(shown.empty() ? sqlite3_sql(statement_) : shown);
}

void SqliteStatement::Bind(int parameter, std::int64_t value) {
  Check(sqlite3_bind_int64(statement_, parameter, value));
}

void SqliteStatement::BindNull(int parameter) { Check(sqlite3_bind_null(statement_, parameter)); }

void SqliteStatement::Bind(int parameter, const Cells& cells, std::size_t place) {
  const Variant value = cells.Get(place);
  if (const Long* number = value.If<Long>()) {
    Check(sqlite3_bind_int64(statement_, parameter, *number));
  } else if (value.IsNull()) {
    Check(sqlite3_bind_null(statement_, parameter));
  } else if (const Double* real = value.If<Double>()) {
    Check(sqlite3_bind_double(statement_, parameter, *real));
  } else if (const Currency* currency = value.If<Currency>()) {
    Check(sqlite3_bind_int64(statement_, parameter, currency->tenThousandths));
  } else if (value.IsText()) {
    // The cell keeps the text when `value` goes.
    const std::string& text = value.Text();
    Check(sqlite3_bind_text64(statement_, parameter, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
  } else {
    const std::span<const Byte> bytes = value.Elements().Cells<Byte>();
    // Without bytes there is no pointer, which would mean Null.
    Check(bytes.empty()
              ? sqlite3_bind_zeroblob(statement_, parameter, 0)
              : sqlite3_bind_blob64(statement_, parameter, bytes.data(), bytes.size(), SQLITE_STATIC));
  }
}

void SqliteStatement::Bind(int parameter, const Literal& literal) {
  if (const auto* whole = std::get_if<std::int64_t>(&literal)) {
    Check(sqlite3_bind_int64(statement_, parameter, *whole));
  } else if (const auto* real = std::get_if<double>(&literal)) {
    Check(sqlite3_bind_double(statement_, parameter, *real));
  } else {
    const auto& text = std::get<std::string>(literal);
    Check(sqlite3_bind_text64(statement_, parameter, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
  }
}

bool SqliteStatement::Step(std::string_view shown) {
  const int result = sqlite3_step(statement_);
  if (result == SQLITE_ROW) return true;
  if (result == SQLITE_DONE) {
    sqlite3_reset(statement_);
    return false;
  }
  sqlite3_reset(statement_);  // The engine still knows its message afterwards.
  RaiseError(shown);
}

void SqliteStatement::Reset() { sqlite3_reset(statement_); }

int SqliteStatement::ColumnCount() const { return sqlite3_column_count(statement_); }

std::int64_t SqliteStatement::Integer(int column) const { return sqlite3_column_int64(statement_, column); }

void SqliteStatement::ReadRow(int first, std::span<const ColumnKind> kinds, Cells& cells,
                              std::size_t place) const {
  CopyColumns(statement_, first, kinds, cells, place);
}

int SqliteStatement::Recompiled() const {
  return sqlite3_stmt_status(statement_, SQLITE_STMTSTATUS_REPREPARE, 0);
}

}  // namespace quenzel7::ado
