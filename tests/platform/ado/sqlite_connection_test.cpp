#include "platform/ado/sqlite_connection.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/platform/ado/database_test.h"
#include "tests/support/working_folder.h"

namespace quenzel7::ado {
namespace {

namespace fs = std::filesystem;

using automation::To;
using automation::Variant;
using test::RaisedBy;

class SqliteConnectionTest : public DatabaseTest {
 protected:
  /// The names of the files in the folder, in order.
  Lines Files() const {
    Lines names;
    for (const auto& entry : fs::directory_iterator(fs::path(Path()).parent_path())) {
      names.push_back(entry.path().filename());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  static std::string Bytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  Variant Pragma(Connection& connection, const std::string& name) {
    return connection.Execute("PRAGMA " + name)->Get(name == "busy_timeout" ? "timeout" : name);
  }
};

TEST_F(SqliteConnectionTest, ExecuteGivesTheRowsOfAQuery) {
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  Run("INSERT INTO Elements(Xs) VALUES(2)");
  const auto rows = Run("SELECT * FROM Elements ORDER BY ID DESC");
  EXPECT_EQ(rows->Get("Xs"), Variant(Long{2}));
  EXPECT_EQ(rows->RecordCount(), -1);
  EXPECT_RAISES(3251, "the recordset was opened read-only", rows->Put("Xs", Long{3}));
  rows->MoveNext();
  EXPECT_EQ(rows->Get("Xs"), Variant(Long{1}));
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
}

TEST_F(SqliteConnectionTest, ExecuteGivesAClosedRecordsetForOtherStatements) {
  EXPECT_RAISES(3704, "the recordset is closed", Run("UPDATE Elements SET Xs=1")->Eof());
}

TEST_F(SqliteConnectionTest, ErrorsCarryTheMessageOfTheEngineAndTheStatementAsItWasGiven) {
  EXPECT_RAISES(kDatabaseError, "no such table: Nothing; in: DELETE * FROM Nothing WHERE ID=5",
                Run("DELETE * FROM Nothing WHERE ID=5"));
  EXPECT_RAISES(kDatabaseError, "no such column: Zs; in: SELECT Zs FROM Elements",
                Run("SELECT Zs FROM Elements"));
  EXPECT_RAISES(kDatabaseError, "near \"SELEC\": syntax error; in: SELEC 1", Run("SELEC 1"));
  Run("INSERT INTO Elements(ID) VALUES(1)");
  EXPECT_RAISES(kDatabaseError,
                "UNIQUE constraint failed: Elements.ID; in: INSERT INTO Elements(ID) VALUES(1)",
                Run("INSERT INTO Elements(ID) VALUES(1)"));
  EXPECT_RAISES(kDatabaseError,
                "unrecognized token: \"'open\"; in: DELETE FROM Elements WHERE ID=1 AND Name='open",
                Run("DELETE FROM Elements WHERE ID=1 AND Name='open"));
}

TEST_F(SqliteConnectionTest, AStatementThatFailedCanRunAgain) {
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(test::RaisedBy([&] { Run("INSERT INTO Elements(ID) VALUES('x')"); }).description,
              "datatype mismatch; in: INSERT INTO Elements(ID) VALUES('x')");
  }
  Run("INSERT INTO Elements(ID) VALUES('7')");
  EXPECT_EQ(Elements(), (Lines{"7|Null|Null|Null"}));
}

TEST_F(SqliteConnectionTest, AMissingColumnInBracketsIsNoText) {
  EXPECT_EQ(test::RaisedBy([&] { Run("SELECT [Zs] FROM Elements"); }).description,
            "no such column: Zs; in: SELECT [Zs] FROM Elements");
}

TEST_F(SqliteConnectionTest, ClosedItRefusesEverythingButClosing) {
  connection_->Close();
  connection_->Close();
  EXPECT_RAISES(3704, "the connection is closed", Run("SELECT * FROM Elements"));
  EXPECT_RAISES(3704, "the connection is closed", connection_->BeginTrans());
  EXPECT_RAISES(3704, "the connection is closed", connection_->CommitTrans());
  EXPECT_RAISES(3704, "the connection is closed", connection_->RollbackTrans());
}

TEST_F(SqliteConnectionTest, TellsItsFileFromTheRootForAllItsLife) {
  const fs::path folder = fs::path(Path()).parent_path();
  SqliteConnectionRef connection;
  {
    const test::WorkingFolder there(folder);
    connection = OpenSqlite("../" + folder.filename().string() + "/./new.db", {.mode = OpenMode::Create});
  }
  EXPECT_EQ(connection->FilePath(), folder / "new.db");
  connection->Close();
  EXPECT_EQ(connection->FilePath(), folder / "new.db");
}

TEST_F(SqliteConnectionTest, ClosingRollsBack) {
  connection_->BeginTrans();
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  connection_->Close();
  EXPECT_EQ(Elements(), Lines{});
}

TEST_F(SqliteConnectionTest, ClosingTakesTheLogAway) {
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  EXPECT_EQ(Files(), (Lines{"scratch.db", "scratch.db-shm", "scratch.db-wal"}));
  const auto open = Open("SELECT * FROM Elements");
  const auto adding = Open("SELECT * FROM Elements", adOpenDynamic);
  adding->AddNew();
  connection_->Close();
  EXPECT_EQ(Files(), (Lines{"scratch.db"}));
}

// Transactions.

TEST_F(SqliteConnectionTest, WhatIsBracketedBecomesLastingTogether) {
  connection_->BeginTrans();
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  recordset->Put("Xs", Long{2});
  recordset->Update();
  EXPECT_EQ(Elements(), Lines{});
  connection_->CommitTrans();
  EXPECT_EQ(Elements(), (Lines{"1|1|Null|Null", "2|2|Null|Null"}));
}

TEST_F(SqliteConnectionTest, RollbackUndoesWhatIsBracketed) {
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  connection_->BeginTrans();
  Run("DELETE FROM Elements");
  connection_->RollbackTrans();
  EXPECT_EQ(Elements(), (Lines{"1|1|Null|Null"}));
}

TEST_F(SqliteConnectionTest, TransactionsDoNotNest) {
  EXPECT_RAISES(3219, "no transaction is open", connection_->CommitTrans());
  EXPECT_RAISES(3219, "no transaction is open", connection_->RollbackTrans());
  connection_->BeginTrans();
  EXPECT_RAISES(3219, "a transaction is already open", connection_->BeginTrans());
  connection_->CommitTrans();
  EXPECT_RAISES(3219, "no transaction is open", connection_->CommitTrans());
  connection_->BeginTrans();
  connection_->RollbackTrans();
  EXPECT_RAISES(3219, "no transaction is open", connection_->RollbackTrans());
}

TEST_F(SqliteConnectionTest, ATransactionBegunByAStatementCounts) {
  Run("BEGIN");
  EXPECT_RAISES(3219, "a transaction is already open", connection_->BeginTrans());
}

TEST_F(SqliteConnectionTest, AfterTheEngineGaveUpTheTransactionNothingIsWrittenUntilItIsRolledBack) {
  connection_->BeginTrans();
  Run("INSERT INTO Elements(ID) VALUES(1)");
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->Put("Xs", Long{5});
  const auto adding = Open("SELECT * FROM Elements");
  adding->AddNew();
  EXPECT_EQ(test::RaisedBy([&] { Run("INSERT OR ROLLBACK INTO Elements(ID) VALUES(1)"); }).number,
            kDatabaseError);
  const std::string givenUp =
      "the database has given up the transaction after an error; roll it back first; in: ";
  EXPECT_RAISES(kDatabaseError, givenUp + "INSERT INTO Elements(ID) VALUES(2)",
                Run("INSERT INTO Elements(ID) VALUES(2)"));
  EXPECT_RAISES(kDatabaseError, givenUp + "Update", recordset->Update());
  EXPECT_RAISES(kDatabaseError, givenUp + "Delete", recordset->Delete());
  EXPECT_RAISES(kDatabaseError, givenUp + "AddNew", adding->Update());
  EXPECT_RAISES(kDatabaseError, givenUp + "COMMIT", connection_->CommitTrans());
  EXPECT_RAISES(3219, "a transaction is already open", connection_->BeginTrans());
  EXPECT_EQ(Elements(), Lines{});
  connection_->RollbackTrans();
  Run("INSERT INTO Elements(ID) VALUES(3)");
  EXPECT_EQ(Elements(), (Lines{"3|Null|Null|Null"}));
}

// Two connections.

TEST_F(SqliteConnectionTest, ALockedDatabaseIsAnErrorAfterTheWait) {
  const auto other = OpenSqlite(Path(), {.busyTimeout = 10});
  connection_->BeginTrans();
  EXPECT_RAISES(kDatabaseError, "database is locked; in: INSERT INTO Elements(Xs) VALUES(1)",
                other->Execute("INSERT INTO Elements(Xs) VALUES(1)"));
  EXPECT_RAISES(kDatabaseError, "database is locked; in: BEGIN IMMEDIATE", other->BeginTrans());
  EXPECT_RAISES(3219, "no transaction is open", other->CommitTrans());
  const auto recordset = OpenRecordset(*other, "SELECT * FROM Elements", adOpenStatic, adLockOptimistic);
  recordset->AddNew();
  EXPECT_EQ(test::RaisedBy([&] { recordset->Update(); }).number, kDatabaseError);
  connection_->CommitTrans();
  recordset->Update();
  EXPECT_EQ(Elements(), (Lines{"1|Null|Null|Null"}));
}

TEST_F(SqliteConnectionTest, ReadersDoNotWaitForWriters) {
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  connection_->BeginTrans();
  Run("UPDATE Elements SET Xs=2");
  EXPECT_EQ(Elements(), (Lines{"1|1|Null|Null"}));
}

// Opening.

TEST_F(SqliteConnectionTest, OptionsHaveTheirDefaults) {
  const OpenOptions options;
  EXPECT_EQ(options.mode, OpenMode::ReadWrite);
  EXPECT_EQ(options.busyTimeout, 5000);
  EXPECT_EQ(options.fileSystem, "");
  EXPECT_EQ(Pragma(*OpenSqlite(Path()), "busy_timeout"), Variant(Long{5000}));
  EXPECT_EQ(Pragma(*OpenSqlite(Path(), {.busyTimeout = 77}), "busy_timeout"), Variant(Long{77}));
}

TEST_F(SqliteConnectionTest, WritingConnectionsKeepALog) {
  EXPECT_EQ(Pragma(*connection_, "journal_mode"), Variant("wal"));
  EXPECT_EQ(Pragma(*connection_, "synchronous"), Variant(Long{1}));
  EXPECT_EQ(Pragma(*connection_, "foreign_keys"), Variant(Long{1}));
}

TEST_F(SqliteConnectionTest, OnlyCreateMakesAFile) {
  const std::string path = folder_.File("new.db");
  for (const OpenMode mode : {OpenMode::Inspect, OpenMode::ReadOnly, OpenMode::ReadWrite}) {
    EXPECT_RAISES(kDatabaseError, "cannot open \"" + path + "\": unable to open database file",
                  OpenSqlite(path, {.mode = mode}));
    EXPECT_FALSE(fs::exists(path));
  }
  OpenSqlite(path, {.mode = OpenMode::Create})->Execute("CREATE TABLE T(A)");
  EXPECT_TRUE(fs::exists(path));
}

TEST_F(SqliteConnectionTest, AnEmptyPathIsRefused) {
  EXPECT_RAISES(kDatabaseError, "cannot open \"\": the path is empty",
                OpenSqlite("", {.mode = OpenMode::Create}));
}

TEST_F(SqliteConnectionTest, APathWithAZeroByteIsRefused) {
  const std::string path = folder_.File(std::string("a\0b", 3));
  EXPECT_EQ(test::RaisedBy([&] { OpenSqlite(path, {.mode = OpenMode::Create}); }).number, kDatabaseError);
  EXPECT_FALSE(fs::exists(folder_.File("a")));
}

TEST_F(SqliteConnectionTest, PathsAreTakenAsTheyAre) {
  for (const char* name : {"a b.db", "50%20.db", "what?mode=memory", "a#b", "\xC3\xA9\xE2\x82\xAC.db",
                           "new\nline", "'quote\"", "semi;colon&", "back\\slash"}) {
    const std::string path = folder_.File(name);
    OpenSqlite(path, {.mode = OpenMode::Create})->Execute("CREATE TABLE T(A)");
    EXPECT_TRUE(fs::is_regular_file(path)) << name;
    for (const OpenMode mode : {OpenMode::Inspect, OpenMode::ReadOnly}) {
      EXPECT_TRUE(OpenSqlite(path, {.mode = mode})->Execute("SELECT * FROM T")->Eof()) << name;
    }
  }
}

TEST_F(SqliteConnectionTest, NamesThatTheEngineWouldUnderstandOtherwiseAreFiles) {
  const fs::path before = fs::current_path();
  fs::current_path(fs::path(Path()).parent_path());
  for (const char* name : {":memory:", "file:a?mode=memory"}) {
    OpenSqlite(name, {.mode = OpenMode::Create})->Execute("CREATE TABLE T(A)");
    EXPECT_TRUE(fs::is_regular_file(fs::path(Path()).parent_path() / name)) << name;
    EXPECT_TRUE(OpenSqlite(name, {.mode = OpenMode::Inspect})->Execute("SELECT * FROM T")->Eof()) << name;
  }
  fs::current_path(before);
}

TEST_F(SqliteConnectionTest, AnUnknownFileSystemIsRefused) {
  EXPECT_RAISES(kDatabaseError, "cannot open \"" + Path() + "\": no such vfs: nothing",
                OpenSqlite(Path(), {.fileSystem = "nothing"}));
}

TEST_F(SqliteConnectionTest, AFileThatIsNoDatabaseIsRefused) {
  std::ofstream(folder_.File("letter.txt")) << std::string(2000, 'x');
  EXPECT_RAISES(kDatabaseError,
                "cannot open \"" + folder_.File("letter.txt") +
                    "\": file is not a database; in: PRAGMA journal_mode=WAL",
                OpenSqlite(folder_.File("letter.txt")));
  EXPECT_EQ(Bytes(folder_.File("letter.txt")), std::string(2000, 'x'));
}

TEST_F(SqliteConnectionTest, AWriterWithoutALogNeedsTheFileToItselfForAMoment) {
  Run("PRAGMA journal_mode=DELETE");
  Run("BEGIN");
  Run("SELECT * FROM Elements");
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  EXPECT_RAISES(kDatabaseError,
                "cannot open \"" + Path() + "\": database is locked; in: PRAGMA journal_mode=WAL",
                OpenSqlite(Path(), {.busyTimeout = 0}));
  Run("COMMIT");
  EXPECT_EQ(Pragma(*OpenSqlite(Path(), {.busyTimeout = 0}), "journal_mode"), Variant("wal"));
}

TEST_F(SqliteConnectionTest, AReadOnlyConnectionReadsAndDoesNotWrite) {
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  connection_->Close();
  const std::string before = Bytes(Path());
  for (const OpenMode mode : {OpenMode::ReadOnly, OpenMode::Inspect}) {
    const auto reader = OpenSqlite(Path(), {.mode = mode});
    EXPECT_EQ(reader->Execute("SELECT * FROM Elements")->Get("Xs"), Variant(Long{1}));
    EXPECT_RAISES(kDatabaseError, "attempt to write a readonly database; in: DELETE * FROM Elements",
                  reader->Execute("DELETE * FROM Elements"));
    reader->BeginTrans();
    const auto recordset = OpenRecordset(*reader, "SELECT * FROM Elements", adOpenStatic, adLockOptimistic);
    recordset->Put("Xs", Long{2});
    EXPECT_EQ(test::RaisedBy([&] { recordset->Update(); }).number, kDatabaseError);
    reader->RollbackTrans();
    reader->Close();
    EXPECT_EQ(Files(), (Lines{"scratch.db"}));
    EXPECT_EQ(Bytes(Path()), before);
  }
}

TEST_F(SqliteConnectionTest, AReadOnlyConnectionSeesWhatOthersWrite) {
  const auto reader = OpenSqlite(Path(), {.mode = OpenMode::ReadOnly});
  EXPECT_TRUE(reader->Execute("SELECT * FROM Elements")->Eof());
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  EXPECT_FALSE(reader->Execute("SELECT * FROM Elements")->Eof());
}

TEST_F(SqliteConnectionTest, InspectingLeavesALogAsItIs) {
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  // As after a crash: the log holds what is not yet in the file.
  for (const char* companion : {"", "-wal"}) {
    fs::copy_file(Path() + companion, folder_.File("crashed.db") + companion);
  }
  const std::string file = Bytes(folder_.File("crashed.db"));
  const std::string log = Bytes(folder_.File("crashed.db-wal"));
  EXPECT_FALSE(log.empty());
  const auto reader = OpenSqlite(folder_.File("crashed.db"), {.mode = OpenMode::Inspect});
  EXPECT_EQ(reader->Execute("SELECT * FROM Elements")->Get("Xs"), Variant(Long{1}));
  reader->Close();
  EXPECT_EQ(Bytes(folder_.File("crashed.db")), file);
  EXPECT_EQ(Bytes(folder_.File("crashed.db-wal")), log);
}

// Observing.

TEST_F(SqliteConnectionTest, TheObserverIsToldOfEachStatementAsItWasGiven) {
  Lines seen;
  connection_->SetStatementObserver([&](std::string_view statement) { seen.emplace_back(statement); });
  Run("DELETE * FROM Elements WHERE ID=-1");
  const auto recordset = Open("SELECT * FROM Elements WHERE Name=\"a\"");
  recordset->AddNew();
  recordset->Put("Xs", Long{1});
  recordset->Update();
  recordset->Get("Xs");
  recordset->Delete();
  connection_->BeginTrans();
  connection_->CommitTrans();
  EXPECT_EQ(test::RaisedBy([&] { Run("SELECT * FROM Nothing"); }).number, kDatabaseError);
  connection_->SetStatementObserver({});
  Run("SELECT * FROM Elements");
  EXPECT_EQ(seen, (Lines{"DELETE * FROM Elements WHERE ID=-1", "SELECT * FROM Elements WHERE Name=\"a\"",
                         "SELECT * FROM Nothing"}));
}

}  // namespace
}  // namespace quenzel7::ado
