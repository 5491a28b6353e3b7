#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/ado/cells.h"
#include "platform/ado/jet_dialect.h"
#include "platform/ado/sqlite_value.h"
#include "platform/automation/variant.h"

struct sqlite3;
struct sqlite3_stmt;

namespace quenzel7::ado {

class SqliteDatabase;

/// A compiled statement of an open database. It may outlive the connection: from the moment that the database
/// is closed it is nothing any more and is not to be run.
///
/// Errors: the engine's own message with the statement, under the database error number. Where a text `shown`
/// is given the message has that instead of the compiled text.
class SqliteStatement {
 public:
  SqliteStatement(SqliteDatabase& database, std::string_view text, std::string_view shown = {});
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;
  ~SqliteStatement();

  sqlite3_stmt* Handle() const { return statement_; }

  /// Binds parameter 1, 2 ... Texts and byte blocks are not copied: they have to live until Reset.
  void Bind(int parameter, std::int64_t value);
  void Bind(int parameter, const Cells& cells, std::size_t place);
  void BindNull(int parameter);
  void Bind(int parameter, const Literal& literal);

  /// Goes to the next row of the result; false when there is none, the statement is then ready to run again.
  bool Step(std::string_view shown = {});
  /// Ends the run, so that the statement can run again.
  void Reset();
  /// Runs a statement that gives no rows.
  void Run() {
    while (Step()) continue;
  }

  int ColumnCount() const;
  std::int64_t Integer(int column) const;
  /// Copies columns of the current row, as many as there are `kinds`, from column `first` on, into the cells
  /// from `place` on.
  void ReadRow(int first, std::span<const ColumnKind> kinds, Cells& cells, std::size_t place) const;
  /// How often the engine compiled the statement again because the schema had changed.
  int Recompiled() const;

 private:
  void Check(int result);
  [[noreturn]] void RaiseError(std::string_view shown) const;

  SqliteDatabase& database_;
  sqlite3_stmt* statement_ = nullptr;
};

}  // namespace quenzel7::ado
