/// The disk becomes full at each write in turn: every time a clear error, nothing half done, nothing left
/// open.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/automation_error.h"
#include "tests/platform/ado/database_test.h"
#include "tests/platform/ado/failing_vfs.h"

namespace quenzel7::ado {
namespace {

using automation::AutomationError;
using automation::To;

constexpr int kRows = 8;
constexpr int kMostWrites = 2000;

class DiskFull : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    Run("INSERT INTO Elements(Xs,Name) VALUES(1,'before')");
    Run("INSERT INTO Links VALUES(1,1)");
    connection_->Close();
  }

  /// Adds rows through recordsets and statements, changes one, deletes one.
  static void Work(Connection& connection) {
    const std::vector<Byte> block(3000, 7);
    for (Long row = 0; row < kRows; ++row) {
      const auto recordset =
          OpenRecordset(connection, "SELECT * FROM Elements WHERE ID=-1", adOpenStatic, adLockOptimistic);
      recordset->AddNew();
      recordset->Put("Xs", row);
      recordset->Put("Data", automation::Array::OfBytes(block));
      recordset->Update();
      connection.Execute("INSERT INTO Links VALUES(" + std::to_string(To<Long>(recordset->Get("ID"))) +
                         ",0)");
    }
    const auto recordset =
        OpenRecordset(connection, "SELECT * FROM Elements WHERE ID=1", adOpenDynamic, adLockOptimistic);
    recordset->Put("Name", "after");
    recordset->Update();
    const auto links =
        OpenRecordset(connection, "SELECT * FROM Links WHERE Element=1", adOpenStatic, adLockOptimistic);
    links->Delete();
  }

  /// The state of a database: "before", "after", or what is wrong with it.
  std::string State(const std::string& path) const {
    const auto connection = OpenSqlite(path);
    const auto one = [&](const std::string& query, const char* column) {
      return To<std::string>(connection->Execute(query)->Get(column));
    };
    const std::string check = one("PRAGMA quick_check", "quick_check");
    if (check != "ok") return check;
    const std::string counts = one("SELECT COUNT(*) AS N FROM Elements", "N") + " elements, " +
                               one("SELECT COUNT(*) AS N FROM Links", "N") + " links, " +
                               one("SELECT Name FROM Elements WHERE ID=1", "Name");
    if (counts == "1 elements, 1 links, before") return "before";
    if (counts == std::to_string(kRows + 1) + " elements, " + std::to_string(kRows) + " links, after")
      return "after";
    return counts;
  }

  /// Runs the bracketed work with the disk failing as set up; true when it was committed.
  bool Attempt(const std::string& path, const FailingVfs& disk) {
    const auto connection = OpenSqlite(path, {.fileSystem = disk.Name()});
    // With so little memory pages are written long before the end of the transaction.
    connection->Execute("PRAGMA cache_size=2");
    bool committed = false;
    try {
      Transaction transaction(*connection);
      Work(*connection);
      transaction.Commit();
      committed = true;
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.Number(), kDatabaseError);
      EXPECT_EQ(error.Description().substr(0, 28), "database or disk is full; in");
    }
    connection->Close();
    return committed;
  }

  /// A fresh copy of the database.
  std::string Copy(int number) const {
    const std::string path = folder_.File("copy-" + std::to_string(number) + ".db");
    std::filesystem::copy_file(Path(), path);
    return path;
  }
  static void Remove(const std::string& path) {
    for (const char* companion : {"", "-wal", "-shm"}) std::filesystem::remove(path + companion);
  }

  FailingVfs disk_;
};

TEST_F(DiskFull, AtAnyWriteFromThenOnLeavesAllOrNothing) {
  int attempt = 0;
  int failed = 0;
  do {
    ASSERT_LT(++attempt, kMostWrites);
    const std::string path = Copy(attempt);
    disk_.FailFrom(attempt);
    bool committed = false;
    try {
      committed = Attempt(path, disk_);
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.Number(), kDatabaseError) << "opening fails too";
    }
    failed += committed ? 0 : 1;
    EXPECT_EQ(disk_.OpenFiles(), 0);
    disk_.Heal();
    EXPECT_EQ(State(path), committed ? "after" : "before") << "write " << attempt;
    Remove(path);
  } while (disk_.Failures() > 0);
  EXPECT_GT(failed, 10);
}

TEST_F(DiskFull, AtOneWriteOnlyLeavesAllOrNothing) {
  int attempt = 0;
  int failed = 0;
  do {
    ASSERT_LT(++attempt, kMostWrites);
    const std::string path = Copy(attempt);
    disk_.FailAt(attempt);
    const bool committed = Attempt(path, disk_);
    failed += committed ? 0 : 1;
    EXPECT_EQ(disk_.OpenFiles(), 0);
    disk_.Heal();
    EXPECT_EQ(State(path), committed ? "after" : "before") << "write " << attempt;
    Remove(path);
  } while (disk_.Failures() > 0);
  EXPECT_GT(failed, 10);
}

TEST_F(DiskFull, TheSameConnectionGoesOnWhenThereIsRoomAgain) {
  int attempt = 0;
  do {
    ASSERT_LT(++attempt, kMostWrites);
    const std::string path = Copy(attempt);
    disk_.Heal();
    const auto connection = OpenSqlite(path, {.fileSystem = disk_.Name()});
    disk_.FailFrom(attempt);
    bool committed = false;
    try {
      Transaction transaction(*connection);
      Work(*connection);
      transaction.Commit();
      committed = true;
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.Description().substr(0, 28), "database or disk is full; in");
    }
    disk_.Heal();
    if (!committed) {
      Transaction transaction(*connection);
      Work(*connection);
      transaction.Commit();
    }
    connection->Close();
    EXPECT_EQ(disk_.OpenFiles(), 0);
    EXPECT_EQ(State(path), "after") << "write " << attempt;
    Remove(path);
  } while (disk_.Failures() > 0);
}

TEST_F(DiskFull, WithoutATransactionEachStatementIsAllOrNothing) {
  int attempt = 0;
  do {
    ASSERT_LT(++attempt, kMostWrites);
    const std::string path = Copy(attempt);
    disk_.FailFrom(attempt);
    int written = 0;
    try {
      const auto connection = OpenSqlite(path, {.fileSystem = disk_.Name()});
      const auto recordset =
          OpenRecordset(*connection, "SELECT * FROM Elements", adOpenStatic, adLockOptimistic);
      for (int row = 0; row < 4; ++row) {
        recordset->AddNew();
        recordset->Put("Name", std::string(2000, 'x'));
        recordset->Update();
        ++written;
      }
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.Number(), kDatabaseError);
      EXPECT_EQ(error.Description().substr(0, 28), "database or disk is full; in");
    }
    EXPECT_EQ(disk_.OpenFiles(), 0);
    disk_.Heal();
    const auto reopened = OpenSqlite(path);
    EXPECT_EQ(To<std::string>(reopened->Execute("PRAGMA quick_check")->Get("quick_check")), "ok");
    EXPECT_EQ(To<Long>(reopened->Execute("SELECT COUNT(*) AS N FROM Elements")->Get("N")), 1 + written);
    reopened->Close();
    Remove(path);
  } while (disk_.Failures() > 0);
}

TEST_F(DiskFull, ANewFileIsEmptyOrHasItsTable) {
  int attempt = 0;
  do {
    ASSERT_LT(++attempt, kMostWrites);
    const std::string path = folder_.File("new-" + std::to_string(attempt) + ".db");
    disk_.FailFrom(attempt);
    bool made = false;
    std::string beginning = "cannot open \"" + path + "\": database or disk is full; in";
    try {
      const auto connection = OpenSqlite(path, {.mode = OpenMode::Create, .fileSystem = disk_.Name()});
      beginning = "database or disk is full; in";
      connection->Execute("CREATE TABLE T(A)");
      made = true;
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.Number(), kDatabaseError);
      EXPECT_EQ(error.Description().substr(0, beginning.size()), beginning);
    }
    EXPECT_EQ(disk_.OpenFiles(), 0);
    disk_.Heal();
    const auto reopened = OpenSqlite(path);
    EXPECT_EQ(To<Long>(reopened->Execute("SELECT COUNT(*) AS N FROM sqlite_master")->Get("N")), made ? 1 : 0);
    reopened->Close();
    Remove(path);
  } while (disk_.Failures() > 0);
  EXPECT_GT(attempt, 2);
}

}  // namespace
}  // namespace quenzel7::ado
