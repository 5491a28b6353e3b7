#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/ado/sqlite_connection.h"
#include "platform/automation/convert.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::ado {

constexpr Long kDatabaseError = -2147467259;

/// A database file on disk with some tables:
///   Elements(ID numbered by the database, Xs, Ys, Name TEXT, Data BLOB, Size REAL, Price CURRENCY, Any),
///   Links(Element, Place): no key, so that rows are found by their hidden number.
class DatabaseTest : public ::testing::Test {
 protected:
  void SetUp() override {
    connection_ = OpenSqlite(Path(), {.mode = OpenMode::Create});
    Run("CREATE TABLE Elements(ID INTEGER PRIMARY KEY AUTOINCREMENT, Xs INTEGER, Ys INTEGER, Name TEXT,"
        " Data BLOB, Size REAL, Price CURRENCY, Any)");
    Run("CREATE TABLE Links(Element INTEGER, Place INTEGER)");
  }

  std::string Path() const { return folder_.File("scratch.db"); }
  RecordsetRef Run(const std::string& statement) { return connection_->Execute(statement); }
  RecordsetRef Open(const std::string& query, CursorType cursor = adOpenStatic,
                    LockType lock = adLockOptimistic) {
    return OpenRecordset(*connection_, query, cursor, lock);
  }

  /// The rows of a query as the engine gives them to a second connection: columns parted by "|", Null as
  /// "Null".
  std::vector<std::string> Rows(const std::string& query, const std::vector<std::string>& columns) {
    const SqliteConnectionRef other = OpenSqlite(Path(), {.mode = OpenMode::ReadOnly});
    std::vector<std::string> lines;
    for (const auto rows = other->Execute(query); !rows->Eof(); rows->MoveNext()) {
      std::string line;
      for (const std::string& column : columns) {
        const automation::Variant value = rows->Get(column);
        if (!line.empty()) line += '|';
        line += value.IsNull() ? "Null" : automation::To<std::string>(value);
      }
      lines.push_back(line);
    }
    return lines;
  }
  std::vector<std::string> Elements() {
    return Rows("SELECT * FROM Elements ORDER BY ID", {"ID", "Xs", "Ys", "Name"});
  }

  test::TemporaryFolder folder_;
  SqliteConnectionRef connection_;
};

using Lines = std::vector<std::string>;

}  // namespace quenzel7::ado
