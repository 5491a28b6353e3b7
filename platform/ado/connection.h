#pragma once

#include <memory>
#include <string>

#include "platform/ado/recordset.h"
#include "platform/automation/object.h"

namespace quenzel7::ado {

/// An open database. Statements are texts with plain decimal numbers in them, in the Jet dialect of SQL.
///
/// Errors: 3704 when it is closed; the engine's own message under the database error number.
class Connection : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "Connection";

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// Runs a statement. A query gives a read-only, forward-only recordset of its rows on its first row; any
  /// other statement gives a closed recordset.
  virtual RecordsetRef Execute(const std::string& statement) = 0;
  /// A recordset of this database, not yet open.
  virtual RecordsetRef CreateRecordset() = 0;

  /// Everything between BeginTrans and CommitTrans becomes lasting together, or not at all (RollbackTrans).
  /// Transactions do not nest: error 3219 for a second BeginTrans, or for an end without a beginning.
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  virtual void RollbackTrans() = 0;

  /// The file that the database is in, from the root and without "." and "..", also once the connection is
  /// closed. Empty when it is in none, or the connection cannot tell.
  virtual std::string FilePath() const { return {}; }

  /// Ends the connection; an open transaction is rolled back. Closing twice does nothing.
  virtual void Close() = 0;
};

using ConnectionRef = std::shared_ptr<Connection>;

/// Whether there is a connection and it is the one that was noted, which is told without taking part in its
/// ownership. One that has gone is no other's equal.
bool IsSameConnection(const ConnectionRef& connection, const std::weak_ptr<Connection>& noted);

/// A new recordset of the connection, opened.
inline RecordsetRef OpenRecordset(Connection& connection, const std::string& source, CursorType cursor,
                                  LockType lock, CommandOption options = adCmdText) {
  RecordsetRef recordset = connection.CreateRecordset();
  recordset->Open(source, connection, cursor, lock, options);
  return recordset;
}

/// Brackets many statements: begins a transaction, and rolls it back when left without Commit. The destructor
/// never throws: a failed roll-back leaves the database as the engine left it, and the error that led there
/// matters more.
class Transaction {
 public:
  explicit Transaction(Connection& connection) : connection_(connection) { connection_.BeginTrans(); }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();

  void Commit();

 private:
  Connection& connection_;
  bool open_ = true;
};

}  // namespace quenzel7::ado
