#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ado/column_index.h"
#include "platform/ado/jet_dialect.h"
#include "platform/ado/sqlite_statement.h"

namespace quenzel7::ado {

/// The numbers that the rows of a table have.
struct RowNumbers {
  /// At least the highest that was given to a row, or shown for one.
  std::int64_t last = 0;
  /// The state of the database, see SqliteDatabase::NextNumber, in which that was read.
  std::uint64_t readAt = 0;
};

/// The table whose rows a query gives, as far as its rows can be found again and changed.
struct SqliteTable {
  std::string name;
  /// The name under which the row's number is found: the table's integer key, or "rowid".
  std::string rowIdColumn;
  /// Where the database numbers the rows, each with a number that no row had before: what is known of the
  /// numbers; else nullptr.
  RowNumbers* numbers = nullptr;
};

/// What is known of the rows that a query gives: their columns, and the statements that read and write one of
/// them. Shared by all recordsets of one statement text.
class SqliteShape {
 public:
  /// Reads the columns of a compiled query. With `rowIds` its first column is the row's number and no column
  /// of its own, and rows can be changed if the other columns all stand in one table.
  SqliteShape(SqliteDatabase& database, const SqliteStatement& query, bool rowIds);

  int ColumnCount() const { return static_cast<int>(columns_.Names().size()); }
  int Find(std::string_view column) const { return columns_.Find(column); }
  const std::vector<std::string>& Names() const { return columns_.Names(); }
  ColumnKind Kind(int column) const { return kinds_[static_cast<std::size_t>(column)]; }
  const std::vector<ColumnKind>& Kinds() const { return kinds_; }
  /// The table, or nullptr when rows of this query cannot be changed.
  const SqliteTable* Table() const { return table_ ? &*table_ : nullptr; }
  /// The column that is the row's number, or ColumnIndex::kNone.
  int RowIdColumn() const { return rowIdColumn_; }

  /// Statements on one row of the table, compiled when first used. `written` tells for each column whether it
  /// is written; the written columns are parameters 1, 2 ... in order. The row's number is the parameter
  /// behind them, of an INSERT only `withNumber`.
  SqliteStatement& Insert(const std::vector<std::uint8_t>& written, bool withNumber);
  SqliteStatement& Update(const std::vector<std::uint8_t>& written);
  /// Parameter 1 is the row's number.
  SqliteStatement& Delete();
  SqliteStatement& Select();

 private:
  enum class WriterKind : std::uint8_t { Insert, InsertWithNumber, Update };
  struct Writer {
    WriterKind kind;
    std::vector<std::uint8_t> written;
    std::unique_ptr<SqliteStatement> statement;
  };

  SqliteStatement& WriterOf(WriterKind kind, const std::vector<std::uint8_t>& written);
  std::string InsertText(const std::vector<std::uint8_t>& written, bool withNumber) const;
  std::string UpdateText(const std::vector<std::uint8_t>& written) const;

  SqliteDatabase& database_;
  ColumnIndex columns_;
  std::vector<ColumnKind> kinds_;
  /// The columns' names in the table.
  std::vector<std::string> origins_;
  std::optional<SqliteTable> table_;
  int rowIdColumn_ = ColumnIndex::kNone;
  std::vector<Writer> writers_;
  std::unique_ptr<SqliteStatement> delete_;
  std::unique_ptr<SqliteStatement> select_;
};

/// A statement compiled for one use of its rows.
class SqliteQuery {
 public:
  enum class Use : char {
    /// The rows are only read.
    Rows = 'r',
    /// The rows are only read, each as a whole: the statement hands them to the database's row taker and
    /// gives
    /// their numbers there.
    TakenRows = 't',
    /// The rows are copied and can be changed: the row's number comes before the columns.
    ChangeableRows = 'c',
    /// Only the numbers of the rows are wanted.
    Keys = 'k',
  };

  /// Compiles a Jet statement; errors show the text `shown`. Where its rows cannot be found again by number,
  /// or taken, the use becomes Rows.
  SqliteQuery(SqliteDatabase& database, std::string_view statement, std::string_view shown, Use use);

  /// What the statement gives; it may be another than asked for.
  Use ActualUse() const { return use_; }
  SqliteStatement& Statement() { return *statement_; }
  /// Whether the statement can change the database.
  bool Writes() const { return writes_; }
  /// Whether the statement gives rows.
  bool IsQuery() const { return isQuery_; }
  /// The columns of the rows; of other than taken rows read anew when the schema has changed.
  const std::shared_ptr<SqliteShape>& Shape();
  /// Compiles the statement once more, for Rows.
  void TakeNoMore(std::string_view shown);

 private:
  void PrepareWithNumbers(const TranslatedStatement& jet, Use use);
  void PrepareTaken(const TranslatedStatement& jet);

  SqliteDatabase& database_;
  Use use_;
  std::unique_ptr<SqliteStatement> statement_;
  /// The statement that reads the columns: of ChangeableRows and Keys behind the row's number, of TakenRows
  /// as they are.
  std::string wholeText_;
  bool isQuery_;
  bool writes_;
  int recompiled_ = 0;
  std::shared_ptr<SqliteShape> shape_;
};

}  // namespace quenzel7::ado
