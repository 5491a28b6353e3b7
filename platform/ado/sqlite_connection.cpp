#include "platform/ado/sqlite_connection.h"

#include <utility>

#include "platform/ado/sqlite_database.h"
#include "platform/ado/sqlite_recordset.h"

namespace quenzel7::ado {

SqliteConnection::SqliteConnection(std::shared_ptr<SqliteDatabase> database)
    : database_(std::move(database)) {}

SqliteConnection::~SqliteConnection() = default;

RecordsetRef SqliteConnection::Execute(const std::string& statement) {
  auto recordset = std::make_shared<SqliteRecordset>(database_);
  recordset->Execute(statement);
  return recordset;
}

RecordsetRef SqliteConnection::CreateRecordset() { return std::make_shared<SqliteRecordset>(database_); }

void SqliteConnection::BeginTrans() { database_->BeginTrans(); }

void SqliteConnection::CommitTrans() { database_->CommitTrans(); }

void SqliteConnection::RollbackTrans() { database_->RollbackTrans(); }

std::string SqliteConnection::FilePath() const { return database_->FilePath(); }

void SqliteConnection::Close() { database_->Close(); }

void SqliteConnection::SetStatementObserver(StatementObserver observer) {
  database_->SetObserver(std::move(observer));
}

SqliteConnectionRef OpenSqlite(const std::string& path, const OpenOptions& options) {
  return std::make_shared<SqliteConnection>(std::make_shared<SqliteDatabase>(path, options));
}

}  // namespace quenzel7::ado
