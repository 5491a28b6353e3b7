#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/ado/jet_dialect.h"
#include "platform/ado/row_taker.h"
#include "platform/ado/sqlite_connection.h"
#include "platform/ado/sqlite_query.h"

struct sqlite3;

namespace quenzel7::ado {

/// An open database file, shared by its connection and the recordsets opened on that: the engine's handle,
/// the statements kept compiled, and the numbers given to new rows.
class SqliteDatabase {
 public:
  /// Compiled statements that are kept; of more, the one not used for longest goes.
  static constexpr std::size_t kMostStatements = 256;

  /// Opens the file; errors as for OpenSqlite.
  SqliteDatabase(const std::string& path, const OpenOptions& options);
  SqliteDatabase(const SqliteDatabase&) = delete;
  SqliteDatabase& operator=(const SqliteDatabase&) = delete;
  ~SqliteDatabase() { Close(); }

  /// The file, from the root and without "." and "..".
  const std::string& FilePath() const { return filePath_; }
  bool IsOpen() const { return handle_ != nullptr; }
  /// The engine's handle; error 3704 when the database is closed.
  sqlite3* Handle() const;
  /// Raises the engine's last message with the statement that failed.
  [[noreturn]] void RaiseError(std::string_view statement) const;

  /// Error 3704 when the database is closed, a database error with the statement when the engine has given up
  /// the transaction on its own.
  void RequireUsable(std::string_view statement) const;
  /// The statement compiled for that use, its literals bound, ready to step. It stays valid until the next
  /// call.
  SqliteQuery& Prepare(std::string_view statement, SqliteQuery::Use use);
  /// Runs a statement of the layer's own, which gives no rows.
  void Run(const char* statement);

  /// Runs a statement of the layer's own that changes one row. False when there was no such row.
  bool RunOnRow(SqliteStatement& statement);
  std::int64_t LastRowId() const;

  /// What is known of the numbers of a table; stays at its place.
  RowNumbers& NumbersOf(const std::string& table) { return numbers_[table]; }
  /// The number for a new row of a table that the database numbers: above all that the table ever had and all
  /// that this connection has shown. Error 6 when there is none left.
  Long NextNumber(const SqliteTable& table);

  void BeginTrans();
  void CommitTrans();
  void RollbackTrans();
  /// Ends everything; an open transaction is rolled back.
  void Close();

  void Observe(std::string_view statement) const {
    if (observer_) observer_(statement);
  }
  void SetObserver(SqliteConnection::StatementObserver observer) { observer_ = std::move(observer); }

  /// What the rows of SqliteQuery::Use::TakenRows are handed to.
  RowTaker& Taker() { return taker_; }
  /// Whether the engine's last error lies in the statement itself, and not in what hinders it.
  bool IsStatementWrong() const;

  /// How many statements were compiled since the database was opened.
  std::size_t Compiled() const { return compiled_; }

 private:
  /// Not open yet.
  explicit SqliteDatabase(bool readOnly) : readOnly_(readOnly) {}
  void Open(const std::string& path, const OpenOptions& options);

  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  struct Kept {
    const std::string* key = nullptr;
    /// Its place in byHead_, if it has one.
    const std::string* head = nullptr;
    std::unique_ptr<SqliteQuery> query;
  };
  using KeptList = std::list<Kept>;

  /// The statement that is about to run, put first among those that are kept.
  SqliteQuery& MakeLatest(KeptList::iterator kept);

  RowTaker taker_;
  sqlite3* handle_ = nullptr;
  std::string filePath_;
  bool readOnly_ = false;
  bool inTransaction_ = false;
  std::size_t compiled_ = 0;
  LiftedStatement lifted_;
  /// The statement used last comes first.
  KeptList kept_;
  std::unordered_map<std::string, KeptList::iterator, TextHash, std::equal_to<>> byText_;
  /// Statements whose only literal is a number at the end, by the text before it as it was given.
  std::unordered_map<std::string, KeptList::iterator, TextHash, std::equal_to<>> byHead_;
  std::string head_;
  /// A statement that could not be kept.
  std::unique_ptr<SqliteQuery> passing_;
  std::unordered_map<std::string, RowNumbers> numbers_;
  /// Grows whenever rows may have got numbers that are not noted in numbers_.
  std::uint64_t numberState_ = 1;
  std::unique_ptr<SqliteStatement> lastNumberStatement_;
  SqliteConnection::StatementObserver observer_;
};

}  // namespace quenzel7::ado
