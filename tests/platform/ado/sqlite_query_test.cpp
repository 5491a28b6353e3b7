#include "platform/ado/sqlite_query.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

#include "platform/ado/sqlite_database.h"
#include "tests/platform/ado/database_test.h"

namespace quenzel7::ado {
namespace {

using Use = SqliteQuery::Use;
using Kind = ColumnKind;

class SqliteQueryTest : public DatabaseTest {
 protected:
  SqliteDatabase& Database() { return *connection_->Database(); }
  SqliteQuery Query(const std::string& statement, Use use) { return {Database(), statement, statement, use}; }
};

TEST_F(SqliteQueryTest, KeepsItsUseForPlainRowsOfOneTable) {
  for (const Use use : {Use::Rows, Use::ChangeableRows, Use::Keys}) {
    EXPECT_EQ(Query("SELECT Xs FROM Elements", use).ActualUse(), use);
  }
}

TEST_F(SqliteQueryTest, BecomesRowsForEverythingElse) {
  Run("CREATE VIEW Shown AS SELECT * FROM Elements");
  for (const Use use : {Use::ChangeableRows, Use::Keys}) {
    for (const char* statement :
         {"SELECT DISTINCT Xs FROM Elements", "SELECT COUNT(*) FROM Elements",
          "SELECT Xs, Xs+1 FROM Elements", "SELECT * FROM Shown", "DELETE FROM Elements"}) {
      EXPECT_EQ(Query(statement, use).ActualUse(), Use::Rows) << statement;
    }
  }
}

TEST_F(SqliteQueryTest, WholeRowsAreTaken) {
  Run("CREATE VIEW Shown AS SELECT Xs AS A, Xs AS B, ID+1 FROM Elements");
  for (const char* statement : {"SELECT * FROM Elements", "SELECT * FROM Links", "SELECT * FROM Shown"}) {
    SqliteQuery query = Query(statement, Use::TakenRows);
    EXPECT_EQ(query.ActualUse(), Use::TakenRows) << statement;
    EXPECT_TRUE(query.IsQuery());
    EXPECT_FALSE(query.Writes());
    EXPECT_EQ(query.Statement().ColumnCount(), 1);
    EXPECT_EQ(Query(statement, Use::Rows).ActualUse(), Use::Rows);
  }
  for (const char* statement : {"SELECT Xs FROM Elements", "SELECT * FROM Elements ORDER BY 1",
                                "DELETE * FROM Elements", "SELECT DISTINCT * FROM Elements"}) {
    EXPECT_EQ(Query(statement, Use::TakenRows).ActualUse(), Use::Rows) << statement;
  }
}

TEST_F(SqliteQueryTest, TakenRowsHaveTheShapeOfTheRows) {
  SqliteQuery query = Query("SELECT * FROM Elements", Use::TakenRows);
  const auto shape = query.Shape();
  EXPECT_EQ(shape->ColumnCount(), 8);
  EXPECT_EQ(shape->Find("Any"), 7);
  EXPECT_EQ(shape->Kinds(), (std::vector<Kind>{Kind::Plain, Kind::Plain, Kind::Plain, Kind::Plain,
                                               Kind::Plain, Kind::Plain, Kind::Currency, Kind::Plain}));
  EXPECT_EQ(shape->Table(), nullptr);
  Run("ALTER TABLE Elements ADD COLUMN More");
  query.Statement().Step();
  EXPECT_EQ(query.Statement().Recompiled(), 1);
  EXPECT_EQ(query.Shape(), shape);
}

TEST_F(SqliteQueryTest, RowsAreTakenNoMoreOnceThatIsSaid) {
  SqliteQuery query = Query("SELECT * FROM Links WHERE Place=1", Use::TakenRows);
  EXPECT_EQ(query.Shape()->ColumnCount(), 2);
  Run("INSERT INTO Links VALUES(7,1)");
  Run("ALTER TABLE Links ADD COLUMN More");
  query.TakeNoMore("as it was written");
  EXPECT_EQ(query.ActualUse(), Use::Rows);
  EXPECT_EQ(query.Shape()->ColumnCount(), 3);
  ASSERT_TRUE(query.Statement().Step());
  EXPECT_EQ(query.Statement().Integer(0), 7);
}

TEST_F(SqliteQueryTest, WhereTheTableIsGoneRowsAreStillToBeTaken) {
  SqliteQuery query = Query("SELECT * FROM Links", Use::TakenRows);
  Run("DROP TABLE Links");
  EXPECT_RAISES(kDatabaseError, "no such table: Links; in: as it was written",
                query.TakeNoMore("as it was written"));
  EXPECT_EQ(query.ActualUse(), Use::TakenRows);
}

TEST_F(SqliteQueryTest, TablesWithMoreColumnsThanAFunctionTakesAreReadColumnByColumn) {
  const int most = sqlite3_limit(Database().Handle(), SQLITE_LIMIT_FUNCTION_ARG, -1);
  for (const int count : {most, most + 1}) {
    std::string columns = "C1";
    for (int number = 2; number <= count; ++number) columns += ",C" + std::to_string(number);
    Run("CREATE TABLE Wide(" + columns + ")");
    Run("INSERT INTO Wide(C" + std::to_string(count) + ") VALUES(" + std::to_string(count) + ")");
    EXPECT_EQ(Query("SELECT * FROM Wide", Use::TakenRows).ActualUse(),
              count == most ? Use::TakenRows : Use::Rows);
    const auto row = Run("SELECT * FROM Wide");
    EXPECT_EQ(row->FieldCount(), count);
    EXPECT_EQ(row->Get("C" + std::to_string(count)), automation::Variant(Long{count}));
    Run("DROP TABLE Wide");
  }
}

TEST_F(SqliteQueryTest, KnowsWhetherItGivesRowsAndWrites) {
  SqliteQuery query = Query("SELECT * FROM Elements", Use::ChangeableRows);
  EXPECT_TRUE(query.IsQuery());
  EXPECT_FALSE(query.Writes());
  SqliteQuery statement = Query("DELETE * FROM Elements", Use::Rows);
  EXPECT_FALSE(statement.IsQuery());
  EXPECT_TRUE(statement.Writes());
}

TEST_F(SqliteQueryTest, TheShapeNamesTheColumns) {
  SqliteQuery query = Query("SELECT Name AS Title, ID, Price FROM elements", Use::ChangeableRows);
  const SqliteShape& shape = *query.Shape();
  EXPECT_EQ(shape.ColumnCount(), 3);
  EXPECT_EQ(shape.Find("TITLE"), 0);
  EXPECT_EQ(shape.Find("Name"), ColumnIndex::kNone);
  EXPECT_EQ(shape.RowIdColumn(), 1);
  EXPECT_EQ(shape.Kind(1), Kind::Plain);
  EXPECT_EQ(shape.Kind(2), Kind::Currency);
  ASSERT_TRUE(shape.Table());
  EXPECT_EQ(shape.Table()->name, "Elements");
  EXPECT_EQ(shape.Table()->rowIdColumn, "ID");
  EXPECT_EQ(shape.Table()->numbers, &Database().NumbersOf("Elements"));
}

TEST_F(SqliteQueryTest, ATableWithoutAKeyHasAHiddenNumber) {
  SqliteQuery query = Query("SELECT * FROM Links", Use::Keys);
  const SqliteShape& shape = *query.Shape();
  EXPECT_EQ(shape.RowIdColumn(), ColumnIndex::kNone);
  ASSERT_TRUE(shape.Table());
  EXPECT_EQ(shape.Table()->rowIdColumn, "rowid");
  EXPECT_EQ(shape.Table()->numbers, nullptr);
}

TEST_F(SqliteQueryTest, ReadOnlyRowsHaveNoTable) {
  EXPECT_EQ(Query("SELECT * FROM Links", Use::Rows).Shape()->Table(), nullptr);
}

TEST_F(SqliteQueryTest, TheShapeIsSharedUntilTheSchemaChanges) {
  SqliteQuery query = Query("SELECT * FROM Links", Use::ChangeableRows);
  const auto before = query.Shape();
  query.Statement().Run();
  EXPECT_EQ(query.Shape(), before);
  Run("ALTER TABLE Links ADD COLUMN More");
  query.Statement().Run();
  EXPECT_NE(query.Shape(), before);
  EXPECT_EQ(query.Shape()->ColumnCount(), 3);
}

TEST_F(SqliteQueryTest, StatementsOnARowAreCompiledOnce) {
  SqliteQuery query = Query("SELECT * FROM Links", Use::ChangeableRows);
  SqliteShape& shape = *query.Shape();
  EXPECT_EQ(&shape.Insert({1, 0}, true), &shape.Insert({1, 0}, true));
  EXPECT_NE(&shape.Insert({1, 0}, true), &shape.Insert({1, 1}, true));
  EXPECT_NE(&shape.Insert({1, 0}, true), &shape.Insert({1, 0}, false));
  EXPECT_NE(&shape.Insert({1, 0}, false), &shape.Update({1, 0}));
  EXPECT_EQ(&shape.Update({1, 0}), &shape.Update({1, 0}));
  EXPECT_EQ(&shape.Delete(), &shape.Delete());
  EXPECT_EQ(&shape.Select(), &shape.Select());
}

TEST_F(SqliteQueryTest, ManySetsOfWrittenColumnsAllWork) {
  Run("CREATE TABLE Wide(A, B, C, D)");
  const auto recordset = Open("SELECT * FROM Wide");
  const char* const columns[] = {"A", "B", "C", "D"};
  for (int turn = 0; turn < 2; ++turn) {
    for (Long set = 0; set < 16; ++set) {
      recordset->AddNew();
      for (int column = 0; column < 4; ++column) {
        if (set >> column & 1) recordset->Put(columns[column], set);
      }
      recordset->Update();
    }
  }
  const Lines rows = Rows("SELECT * FROM Wide", {"A", "B", "C", "D"});
  ASSERT_EQ(rows.size(), 32u);
  EXPECT_EQ(rows[5], "5|Null|5|Null");
  EXPECT_EQ(rows[15], "15|15|15|15");
  EXPECT_EQ(rows[16], "Null|Null|Null|Null");
  EXPECT_EQ(rows[26], "Null|10|Null|10");
}

TEST_F(SqliteQueryTest, OfManySetsOfWrittenColumnsTheLastEightStayCompiled) {
  Run("CREATE TABLE Wide(A, B, C, D)");
  SqliteQuery query = Query("SELECT * FROM Wide", Use::ChangeableRows);
  SqliteShape& shape = *query.Shape();
  const auto compiled = [this] {
    int count = 0;
    for (sqlite3_stmt* at = nullptr; (at = sqlite3_next_stmt(Database().Handle(), at));) ++count;
    return count;
  };
  const auto insert = [&](unsigned set) {
    const auto has = [set](unsigned column) { return static_cast<std::uint8_t>(set >> column & 1); };
    shape.Insert({has(0), has(1), has(2), has(3)}, true);
  };
  const int before = compiled();
  for (unsigned set = 0; set < 8; ++set) insert(set);
  EXPECT_EQ(compiled(), before + 8);
  for (unsigned set = 8; set < 16; ++set) insert(set);
  EXPECT_EQ(compiled(), before + 8);
  // Without their table nothing can be compiled any more.
  Run("DROP TABLE Wide");
  for (unsigned set = 8; set < 16; ++set) EXPECT_NO_THROW(insert(set)) << set;
  EXPECT_RAISES(kDatabaseError, "no such table: Wide; in: INSERT INTO \"Wide\"(\"A\",\"rowid\") VALUES(?,?)",
                insert(1));
}

TEST_F(SqliteQueryTest, NamesWithAnyCharactersAreWritten) {
  Run("CREATE TABLE \"odd \"\"table\"(\"a \"\"column\" INTEGER, [select] TEXT)");
  const auto recordset =
      OpenRecordset(*connection_, "SELECT * FROM [odd \"table]", adOpenDynamic, adLockOptimistic);
  recordset->AddNew();
  recordset->Put("a \"column", Long{1});
  recordset->Put("select", "x");
  recordset->Update();
  EXPECT_EQ(recordset->Get("A \"COLUMN"), automation::Variant(Long{1}));
  recordset->Put("select", "y");
  recordset->Update();
  EXPECT_EQ(recordset->Get("select"), automation::Variant("y"));
  recordset->Delete();
  recordset->MoveNext();
  EXPECT_TRUE(recordset->Eof());
}

}  // namespace
}  // namespace quenzel7::ado
