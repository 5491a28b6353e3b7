#pragma once

#include <memory>
#include <string>

#include "platform/ado/sqlite_connection.h"
#include "platform/automation/convert.h"
#include "platform/fennick1/operand_store.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::fennick1 {

/// A database file with the table of a project's operands, and the store on it.
class OperandProject {
 public:
  OperandProject() {
    connection_ = ado::OpenSqlite(Path(), {.mode = ado::OpenMode::Create});
    connection_->Execute(
        "CREATE TABLE Operands(Type INTEGER, Address INTEGER, NetID INTEGER, Comment TEXT, Value CURRENCY,"
        " PRIMARY KEY(Type, Address, NetID))");
  }

  const std::shared_ptr<ProjectOperandStore>& Store() const { return store_; }
  ado::Connection& Connection() { return *connection_; }
  const ado::ConnectionRef& HeldConnection() const { return connection_; }

  void Reopen() {
    connection_->Close();
    connection_ = ado::OpenSqlite(Path());
  }

  /// All operands in order: "type address network; ".
  std::string Rows() {
    std::string rows;
    const auto found = connection_->Execute("SELECT * FROM Operands ORDER BY Type, Address, NetID");
    for (; !found->Eof(); found->MoveNext()) {
      for (const char* column : {"Type", "Address", "NetID"}) {
        rows += automation::To<std::string>(found->Get(column)) + " ";
      }
      rows.back() = ';';
      rows += ' ';
    }
    return rows;
  }

 private:
  std::string Path() const { return folder_.File("operands.db"); }

  test::TemporaryFolder folder_;
  ado::ConnectionRef connection_;
  std::shared_ptr<ProjectOperandStore> store_ =
      std::make_shared<ProjectOperandStore>([this] { return connection_; });
};

}  // namespace quenzel7::fennick1
