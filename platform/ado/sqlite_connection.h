#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/ado/connection.h"

namespace quenzel7::ado {

class SqliteDatabase;

enum class OpenMode : Byte {
  /// The file has to be there; it is only looked at, and left as it is together with what lies beside it.
  /// Nobody should be writing it meanwhile.
  Inspect,
  /// The file has to be there; statements that would change it fail.
  ReadOnly,
  /// The file has to be there.
  ReadWrite,
  /// A file that is not there is made, empty.
  Create,
};

/// How a database file is opened.
struct OpenOptions {
  OpenMode mode = OpenMode::ReadWrite;
  /// How long a statement waits, in milliseconds, while another connection holds the lock it needs.
  int busyTimeout = 5000;
  /// Name of the engine's file system layer; empty for the usual one.
  std::string fileSystem = {};
};

/// A connection on an SQLite database file, for one thread at a time. Statements are translated from the Jet
/// dialect (see jet_dialect.h) and kept compiled by their text without its literals.
///
/// When the engine had to give up a transaction on its own (a full disk), every further statement fails until
/// RollbackTrans, so that no half of the bracketed work can become lasting.
class SqliteConnection final : public Connection {
 public:
  /// Called with the text of each statement that is run or opened, as it was given.
  using StatementObserver = std::function<void(std::string_view)>;

  explicit SqliteConnection(std::shared_ptr<SqliteDatabase> database);
  ~SqliteConnection() override;

  RecordsetRef Execute(const std::string& statement) override;
  RecordsetRef CreateRecordset() override;
  void BeginTrans() override;
  void CommitTrans() override;
  void RollbackTrans() override;
  std::string FilePath() const override;
  void Close() override;

  /// Statements that this connection runs from now on are told to the observer; an empty one ends that.
  void SetStatementObserver(StatementObserver observer);

  const std::shared_ptr<SqliteDatabase>& Database() const { return database_; }

 private:
  std::shared_ptr<SqliteDatabase> database_;
};

using SqliteConnectionRef = std::shared_ptr<SqliteConnection>;

/// Opens a database file. The path is taken as it is, whatever characters it has. Writing connections keep a
/// write-ahead log beside the file, in which a commit is safe against a crash of the program and the database
/// consistent after a loss of power.
///
/// Errors: the engine's own message behind the path, as 'cannot open "PATH": MESSAGE', under the database
/// error number. A writing connection has to have the file to itself for a moment when it keeps no such log
/// yet; it fails so when another connection does not let go within the busy timeout.
SqliteConnectionRef OpenSqlite(const std::string& path, const OpenOptions& options = {});

}  // namespace quenzel7::ado
