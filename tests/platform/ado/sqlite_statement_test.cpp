#include "platform/ado/sqlite_statement.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/ado/sqlite_database.h"
#include "platform/automation/array.h"
#include "tests/platform/ado/database_test.h"

namespace quenzel7::ado {
namespace {

using automation::NullValue;
using automation::Variant;
using Kind = ColumnKind;

class SqliteStatementTest : public DatabaseTest {
 protected:
  SqliteDatabase& Database() { return *connection_->Database(); }
  static Variant Read(const SqliteStatement& statement, int column, Kind kind = Kind::Plain) {
    Cells cells;
    cells.Resize(1);
    statement.ReadRow(column, {&kind, 1}, cells, 0);
    return cells.Get(0);
  }
};

TEST_F(SqliteStatementTest, StepsThroughItsRowsAndCanRunAgain) {
  SqliteStatement statement(Database(), "SELECT 5 UNION ALL SELECT 6");
  for (int time = 0; time < 2; ++time) {
    ASSERT_TRUE(statement.Step());
    EXPECT_EQ(statement.Integer(0), 5);
    ASSERT_TRUE(statement.Step());
    EXPECT_EQ(statement.Integer(0), 6);
    EXPECT_FALSE(statement.Step());
  }
}

TEST_F(SqliteStatementTest, ResetBeginsAgain) {
  SqliteStatement statement(Database(), "SELECT 5 UNION ALL SELECT 6");
  statement.Step();
  statement.Step();
  statement.Reset();
  statement.Step();
  EXPECT_EQ(statement.Integer(0), 5);
}

TEST_F(SqliteStatementTest, RunGoesThroughAllRows) {
  SqliteStatement statement(Database(), "INSERT INTO Elements(Xs) SELECT 1 UNION ALL SELECT 2 RETURNING Xs");
  statement.Run();
  EXPECT_EQ(Elements(), (Lines{"1|1|Null|Null", "2|2|Null|Null"}));
}

TEST_F(SqliteStatementTest, BindsEachKindOfCell) {
  const Variant values[] = {NullValue{},
                            Long{-5},
                            Double{0.5},
                            Currency{INT64_MIN},
                            "t\xC3\xA9xt",
                            "",
                            automation::Array::OfBytes(std::vector<Byte>{0, 1}),
                            automation::Array::OfBytes({})};
  SqliteStatement statement(Database(), "SELECT ?1");
  for (const Variant& value : values) {
    Cells cells;
    cells.Resize(2);
    cells.Set(1, value);
    statement.Bind(1, cells, 1);
    ASSERT_TRUE(statement.Step());
    EXPECT_EQ(Read(statement, 0, value.If<Currency>() ? Kind::Currency : Kind::Plain), value);
    statement.Reset();
  }
}

TEST_F(SqliteStatementTest, BindsEachKindOfLiteral) {
  SqliteStatement statement(Database(), "SELECT ?1, ?2, ?3, ?4, ?5");
  statement.Bind(1, Literal(std::int64_t{7}));
  statement.Bind(2, Literal(0.25));
  const Literal text = std::string("a\0b", 3);
  statement.Bind(3, text);
  statement.Bind(4, std::int64_t{8});
  statement.Bind(5, std::int64_t{9});
  statement.BindNull(5);
  ASSERT_TRUE(statement.Step());
  EXPECT_EQ(Read(statement, 0), Variant(Long{7}));
  EXPECT_EQ(Read(statement, 1), Variant(0.25));
  EXPECT_EQ(Read(statement, 2), Variant(std::string("a\0b", 3)));
  EXPECT_EQ(Read(statement, 3), Variant(Long{8}));
  EXPECT_EQ(Read(statement, 4), Variant(NullValue{}));
  EXPECT_EQ(statement.ColumnCount(), 5);
}

TEST_F(SqliteStatementTest, ReadingWritesNothingButItsCell) {
  SqliteStatement statement(Database(), "SELECT 1, 'a'");
  ASSERT_TRUE(statement.Step());
  Cells cells;
  cells.Resize(3);
  for (std::size_t place = 0; place < 3; ++place) cells.SetLong(place, 9);
  const Kind kind = Kind::Plain;
  statement.ReadRow(1, {&kind, 1}, cells, 1);
  EXPECT_EQ(cells.Get(0), Variant(Long{9}));
  EXPECT_EQ(cells.Get(1), Variant("a"));
  EXPECT_EQ(cells.Get(2), Variant(Long{9}));
}

TEST_F(SqliteStatementTest, ErrorsShowTheTextOrWhatIsShownInstead) {
  EXPECT_RAISES(kDatabaseError, "no such table: Missing; in: SELECT * FROM Missing",
                SqliteStatement(Database(), "SELECT * FROM Missing"));
  EXPECT_RAISES(kDatabaseError, "no such table: Missing; in: as it was written",
                SqliteStatement(Database(), "SELECT * FROM Missing", "as it was written"));
  SqliteStatement statement(Database(), "INSERT INTO Elements(ID) VALUES(?)");
  const Literal text = "x";
  statement.Bind(1, text);
  EXPECT_RAISES(kDatabaseError, "datatype mismatch; in: INSERT INTO Elements(ID) VALUES(?)",
                statement.Step());
  EXPECT_RAISES(kDatabaseError, "datatype mismatch; in: as it was written",
                statement.Step("as it was written"));
  EXPECT_RAISES(kDatabaseError, "column index out of range; in: INSERT INTO Elements(ID) VALUES(?)",
                statement.Bind(2, std::int64_t{1}));
}

TEST_F(SqliteStatementTest, MayOutliveItsDatabase) {
  const auto database = std::make_shared<SqliteDatabase>(Path(), OpenOptions{});
  const SqliteStatement statement(*database, "SELECT * FROM Elements");
  database->Close();
  EXPECT_RAISES(3704, "the connection is closed", SqliteStatement(*database, "SELECT 1"));
}

TEST_F(SqliteStatementTest, CountsHowOftenTheSchemaMadeItCompileAgain) {
  SqliteStatement statement(Database(), "SELECT * FROM Elements");
  statement.Step();
  EXPECT_EQ(statement.Recompiled(), 0);
  statement.Reset();
  Run("ALTER TABLE Elements ADD COLUMN More");
  statement.Step();
  EXPECT_EQ(statement.Recompiled(), 1);
  EXPECT_EQ(statement.Recompiled(), 1);
}

}  // namespace
}  // namespace quenzel7::ado
