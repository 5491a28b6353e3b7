#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/cells.h"
#include "platform/ado/recordset.h"
#include "platform/ado/sqlite_database.h"
#include "platform/ado/sqlite_query.h"

namespace quenzel7::ado {

/// A recordset of an SQLite database.
///
/// Rows can be changed when the query gives plain rows of one table that SQLite can find again by number; of
/// any other query they are read-only whatever the lock. Static and forward-only recordsets are a copy of the
/// rows; keyset and dynamic ones keep the rows' numbers and read a row when it is looked at, so that a row
/// that was deleted meanwhile raises a database error then. Putting values into a row reads nothing.
///
/// Whatever was put into a row is written by Update, by a move to another row and by AddNew; Close forgets
/// it. After Update the row shows what the database made of it. A row that was deleted meanwhile cannot be
/// updated or deleted: a database error.
class SqliteRecordset final : public Recordset {
 public:
  explicit SqliteRecordset(std::shared_ptr<SqliteDatabase> database);

  void Open(const std::string& source, Connection& connection, CursorType cursor, LockType lock,
            CommandOption options) override;
  /// Runs a statement for reading its rows, if it gives any, once and in order.
  void Execute(const std::string& statement);
  void Close() override;

  void AddNew() override;
  void Update() override;
  void Delete() override;

  bool Eof() const override;
  bool Bof() const override;
  void MoveFirst() override;
  void MoveNext() override { Move(1); }
  void Move(Long rows) override;
  Long RecordCount() const override;
  Long FieldCount() const override;

  automation::Variant Get(std::string_view column) const override;
  void Put(std::string_view column, const automation::Variant& value) override;

 private:
  struct Row {
    std::int64_t id;
    /// The cells are not, or not any more, what the database holds.
    bool stale;
  };

  void Run(const std::string& statement, SqliteQuery::Use use);
  /// Opens with the rows of a query that takes them; false, still closed, where reading them column by column
  /// may do what that could not.
  bool TakeRows(SqliteQuery& query, const std::string& source);
  void ReadRows(SqliteQuery& query, const std::string& source);
  bool HasRow() const { return adding_ || (!deleted_ && position_ >= 0 && position_ < std::ssize(rows_)); }
  void RequireOpen() const {
    if (!shape_ || !database_->IsOpen()) RaiseClosed();
  }
  void RequireRow() const {
    RequireOpen();
    if (!HasRow()) RaiseNoRow();
  }
  void RequireChangeable() const {
    RequireOpen();
    if (!changeable_) RaiseNotChangeable();
  }
  [[noreturn]] void RaiseClosed() const;
  [[noreturn]] void RaiseNoRow() const;
  [[noreturn]] void RaiseNotChangeable() const;
  std::size_t Column(std::string_view name) const;
  /// The place of the current row's first cell.
  std::size_t FirstCell() const {
    return onDemand_ ? 0 : static_cast<std::size_t>(position_) * shape_->Kinds().size();
  }
  Row& CurrentRow() const { return rows_[static_cast<std::size_t>(position_)]; }
  void ReadCurrentRow() const;
  /// Takes from the row that was found what was not put.
  void ReadColumns(const SqliteStatement& select) const;
  void GoTo(std::int64_t position);
  /// Binds the written columns from parameter 1 on; gives the last parameter.
  int BindWritten(SqliteStatement& statement) const;
  void InsertRow();
  void UpdateRow();
  void Forget();

  std::shared_ptr<SqliteDatabase> database_;
  /// None while closed.
  std::shared_ptr<SqliteShape> shape_;
  CursorType cursor_ = adOpenForwardOnly;
  LockType lock_ = adLockReadOnly;
  bool changeable_ = false;
  /// Only the current row has cells.
  bool onDemand_ = false;

  mutable std::vector<Row> rows_;
  mutable Cells cells_;
  /// From -1 (before the first row) to the number of rows (behind the last).
  std::int64_t position_ = 0;
  /// The current row is new and not yet among rows_; its cells lie behind those of the others.
  bool adding_ = false;
  /// The number that the new row is going to have, in a table that numbers its rows.
  Long newNumber_ = 0;
  /// The current row was deleted; position_ is that of the row behind it.
  bool deleted_ = false;
  /// Which columns of the current row were put and not yet written.
  std::vector<std::uint8_t> written_;
  bool changed_ = false;
};

}  // namespace quenzel7::ado
