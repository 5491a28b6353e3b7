#include "platform/ado/sqlite_database.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

#include "tests/platform/ado/database_test.h"

namespace quenzel7::ado {
namespace {

using automation::Variant;
using test::RaisedBy;

class SqliteDatabaseTest : public DatabaseTest {
 protected:
  SqliteDatabase& Database() { return *connection_->Database(); }
  /// How many statements are compiled while the action runs.
  template <class Action>
  std::size_t CompiledBy(Action action) {
    const std::size_t before = Database().Compiled();
    action();
    return Database().Compiled() - before;
  }
};

TEST_F(SqliteDatabaseTest, StatementsThatDifferInTheirLiteralsAreCompiledOnce) {
  EXPECT_EQ(CompiledBy([&] {
              for (int id = -3; id < 100; ++id) Run("DELETE * FROM Elements WHERE ID=" + std::to_string(id));
            }),
            1u);
  EXPECT_EQ(CompiledBy([&] { Run("DELETE * FROM Elements WHERE ID=200"); }), 0u);
  EXPECT_EQ(CompiledBy([&] { Run("DELETE * FROM Elements WHERE Xs=200"); }), 1u);
}

TEST_F(SqliteDatabaseTest, TextsThatDifferInTheNumberAtTheirEndRunWithTheirOwnNumber) {
  for (const char* xs : {"-12", "-1", "0", "7", "123456789", "1234567890", "12345678901"}) {
    Run(std::string("INSERT INTO Elements(Xs) VALUES(") + xs + ")");
  }
  for (const char* xs : {"-12", "-1", "0", "7", "123456789", "1234567890", "12345678901", "7"}) {
    const Lines one{xs};
    EXPECT_EQ(Rows(std::string("SELECT * FROM Elements WHERE Xs=") + xs, {"Xs"}), one) << xs;
    EXPECT_EQ(Rows(std::string("SELECT * FROM Elements WHERE ID>0 AND Xs=") + xs, {"Xs"}), one) << xs;
    EXPECT_EQ(Rows(std::string("SELECT * FROM Elements WHERE Xs= ") + xs, {"Xs"}), one) << xs;
  }
  EXPECT_EQ(Rows("SELECT * FROM Elements WHERE Xs=8", {"Xs"}), Lines{});
  // Behind "<=" and "<>" stand numbers too, and a name may end in one.
  EXPECT_EQ(Rows("SELECT * FROM Elements WHERE Xs<=-12", {"Xs"}), Lines{"-12"});
  EXPECT_EQ(Rows("SELECT * FROM Elements WHERE Xs<=-13", {"Xs"}), Lines{});
  EXPECT_EQ(Rows("SELECT * FROM Elements WHERE Xs=7-0", {"Xs"}), Lines{"7"});
  EXPECT_EQ(Rows("SELECT * FROM Elements WHERE Xs=7-1", {"Xs"}), Lines{});
}

TEST_F(SqliteDatabaseTest, ATextThatEndsInANumberIsForgottenWithItsStatement) {
  const auto look = [&](const char* id) { return Run(std::string("SELECT * FROM Elements WHERE ID=") + id); };
  look("1");
  EXPECT_EQ(CompiledBy([&] { look("2"); }), 0u);
  for (std::size_t number = 0; number < SqliteDatabase::kMostStatements; ++number) {
    Run("SELECT Xs AS Other" + std::to_string(number) + " FROM Elements");
  }
  EXPECT_EQ(CompiledBy([&] { look("3"); }), 1u);
  EXPECT_EQ(CompiledBy([&] { look("4"); }), 0u);
}

TEST_F(SqliteDatabaseTest, EachStatementRunsWithItsOwnLiterals) {
  for (const char* values : {"1,'a'", "-2,'b'", "3,'it''s'", "4.5,'\"'"}) {
    Run(std::string("INSERT INTO Elements(Xs,Name) VALUES(") + values + ")");
  }
  EXPECT_EQ(Rows("SELECT * FROM Elements ORDER BY ID", {"Xs", "Name"}),
            (Lines{"1|a", "-2|b", "3|it's", "4.5|\""}));
}

TEST_F(SqliteDatabaseTest, EachUseOfAStatementIsCompiledForItself) {
  EXPECT_EQ(CompiledBy([&] {
              for (int time = 0; time < 3; ++time) {
                Open("SELECT * FROM Elements WHERE ID=1", adOpenStatic, adLockReadOnly);
                Open("SELECT * FROM Elements WHERE ID=2", adOpenStatic, adLockOptimistic);
                Open("SELECT * FROM Elements WHERE ID=3", adOpenDynamic, adLockOptimistic);
                Run("SELECT * FROM Elements WHERE ID=4");
              }
            }),
            3u);
}

TEST_F(SqliteDatabaseTest, KeepsTheStatementsUsedLast) {
  EXPECT_EQ(SqliteDatabase::kMostStatements, 256u);
  const auto statement = [](std::size_t number) {
    return "SELECT Xs AS Column" + std::to_string(number) + " FROM Elements";
  };
  for (std::size_t number = 0; number < 256; ++number) Run(statement(number));
  EXPECT_EQ(CompiledBy([&] { Run(statement(0)); }), 0u) << "256 statements are kept";
  EXPECT_EQ(CompiledBy([&] { Run(statement(256)); }), 1u);
  EXPECT_EQ(CompiledBy([&] { Run(statement(0)); }), 0u) << "it was used later than statement 1";
  EXPECT_EQ(CompiledBy([&] { Run(statement(2)); }), 0u);
  EXPECT_EQ(CompiledBy([&] { Run(statement(1)); }), 1u) << "it was the one not used for longest";
}

TEST_F(SqliteDatabaseTest, ARecordsetOutlivesItsStatement) {
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  const auto recordset = Open("SELECT * FROM Elements");
  for (int number = 0; number < 300; ++number) {
    Run("SELECT Xs AS Column" + std::to_string(number) + " FROM Elements");
  }
  recordset->Put("Xs", Long{2});
  recordset->Update();
  EXPECT_EQ(recordset->Get("Xs"), Variant(Long{2}));
}

TEST_F(SqliteDatabaseTest, ALiteralThatCannotBeLiftedIsLeftInItsPlace) {
  EXPECT_EQ(Run("SELECT Name FROM Elements WHERE CAST(Xs AS VARCHAR(5))='x'")->RecordCount(), -1);
  Run("INSERT INTO Elements(Xs) VALUES(CAST('12' AS DECIMAL(10,5)))");
  EXPECT_EQ(Elements(), (Lines{"1|12|Null|Null"}));
}

TEST_F(SqliteDatabaseTest, NumbersAfterAStatementThatCannotBeKeptAreRight) {
  connection_->BeginTrans();
  const auto recordset = Open("SELECT * FROM Elements");
  recordset->AddNew();
  recordset->Update();
  Run("INSERT INTO Elements(Xs) VALUES(CAST('12' AS DECIMAL(10,5)))");
  recordset->AddNew();
  EXPECT_EQ(recordset->Get("ID"), Variant(Long{3}));
  recordset->Update();
  connection_->CommitTrans();
}

TEST_F(SqliteDatabaseTest, TheLastNumberIsReadOncePerTransaction) {
  const auto timesRead = [this] {
    for (sqlite3_stmt* at = nullptr; (at = sqlite3_next_stmt(Database().Handle(), at));) {
      if (sqlite3_sql(at) == std::string("SELECT seq FROM sqlite_sequence WHERE name=?")) {
        return sqlite3_stmt_status(at, SQLITE_STMTSTATUS_RUN, 0);
      }
    }
    return 0;
  };
  const auto addTwo = [this] {
    const auto recordset = Open("SELECT * FROM Elements WHERE ID=-1");
    recordset->AddNew();
    recordset->AddNew();
    recordset->Update();
  };
  addTwo();
  EXPECT_EQ(timesRead(), 2);
  connection_->BeginTrans();
  addTwo();
  addTwo();
  EXPECT_EQ(timesRead(), 3);
  Run("UPDATE Elements SET Xs=1");
  addTwo();
  EXPECT_EQ(timesRead(), 4);
  connection_->CommitTrans();
  connection_->BeginTrans();
  addTwo();
  EXPECT_EQ(timesRead(), 5);
}

TEST_F(SqliteDatabaseTest, TellsAWrongStatementFromWhatHindersARightOne) {
  EXPECT_NE(test::ErrorOf([&] { Run("SELECT abs(-9223372036854775807-1)"); }), 0);
  EXPECT_TRUE(Database().IsStatementWrong());
  EXPECT_NE(test::ErrorOf([&] { Run("INSERT INTO Elements(ID) VALUES('x')"); }), 0);
  EXPECT_FALSE(Database().IsStatementWrong());
}

TEST_F(SqliteDatabaseTest, AStatementThatCannotBeKeptReadsItsRows) {
  Run("INSERT INTO Elements(Xs,Name) VALUES(1,'x')");
  const std::string query = "SELECT * FROM Elements WHERE CAST(Name AS VARCHAR(5))='x'";
  EXPECT_EQ(Database().Prepare(query, SqliteQuery::Use::TakenRows).ActualUse(), SqliteQuery::Use::Rows);
  EXPECT_EQ(Database().Prepare(query, SqliteQuery::Use::ChangeableRows).ActualUse(),
            SqliteQuery::Use::ChangeableRows);
  EXPECT_EQ(Rows(query, {"Xs", "Name"}), Lines{"1|x"});
}

TEST_F(SqliteDatabaseTest, AStatementWithoutAnythingDoesNothing) {
  EXPECT_EQ(test::RaisedBy([&] { Run(""); }).description, "the statement is empty");
  EXPECT_EQ(test::RaisedBy([&] { Run(" ; "); }).description, "the statement is empty");
}

TEST_F(SqliteDatabaseTest, ClosingWithManyOpenRecordsetsLeavesNothing) {
  Run("INSERT INTO Elements(Xs) VALUES(1)");
  std::vector<RecordsetRef> open;
  for (const CursorType cursor : {adOpenForwardOnly, adOpenKeyset, adOpenDynamic, adOpenStatic}) {
    open.push_back(Open("SELECT * FROM Elements", cursor));
    open.back()->Put("Xs", Long{cursor});
    open.back()->Update();
    open.back()->Get("Xs");
    open.push_back(Open("SELECT * FROM Links", cursor));
    open.back()->AddNew();
  }
  connection_->Close();
  EXPECT_FALSE(Database().IsOpen());
  for (const RecordsetRef& recordset : open) recordset->Close();
}

}  // namespace
}  // namespace quenzel7::ado
