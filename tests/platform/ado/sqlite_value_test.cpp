#include "platform/ado/sqlite_value.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

#include "platform/ado/sqlite_database.h"
#include "platform/automation/array.h"
#include "tests/platform/ado/database_test.h"

namespace quenzel7::ado {
namespace {

using automation::Array;
using automation::NullValue;
using automation::Variant;

class SqliteValueTest : public DatabaseTest {
 protected:
  /// What a value written in SQL is copied as, by both ways, which have to agree.
  Variant Copied(const std::string& value, ColumnKind kind = ColumnKind::Plain) {
    SqliteStatement statement(*connection_->Database(), "SELECT " + value);
    statement.Step();
    Cells cells;
    cells.Resize(2);
    CopyColumns(statement.Handle(), 0, {&kind, 1}, cells, 0);
    sqlite3_value* const single = sqlite3_column_value(statement.Handle(), 0);
    CopyValues(&single, {&kind, 1}, cells, 1);
    EXPECT_EQ(cells.Get(0), cells.Get(1)) << value;
    return cells.Get(1);
  }
  Variant Amount(const std::string& value) { return Copied(value, ColumnKind::Currency); }
};

TEST_F(SqliteValueTest, WholeNumbersOf32BitsAreLongs) {
  EXPECT_EQ(Copied("0"), Variant(Long{0}));
  EXPECT_EQ(Copied("2147483647"), Variant(Long{2147483647}));
  EXPECT_EQ(Copied("-2147483648"), Variant(Long{-2147483647 - 1}));
}

TEST_F(SqliteValueTest, WholeNumbersBeyondAreReal) {
  EXPECT_EQ(Copied("2147483648"), Variant(Double{2147483648.0}));
  EXPECT_EQ(Copied("-2147483649"), Variant(Double{-2147483649.0}));
  EXPECT_EQ(Copied("4294967296"), Variant(Double{4294967296.0}));
}

TEST_F(SqliteValueTest, OtherValuesKeepTheirKind) {
  EXPECT_EQ(Copied("NULL"), Variant(NullValue{}));
  EXPECT_EQ(Copied("0.5"), Variant(0.5));
  EXPECT_EQ(Copied("2.0"), Variant(2.0));
  EXPECT_EQ(Copied("'t\xC3\xA9xt'"), Variant("t\xC3\xA9xt"));
  EXPECT_EQ(Copied("''"), Variant(""));
  EXPECT_EQ(Copied("CAST(x'610062' AS TEXT)"), Variant(std::string("a\0b", 3)));
  EXPECT_EQ(Copied("x'00FF'"), Variant(Array::OfBytes(std::vector<Byte>{0, 255})));
  EXPECT_EQ(Copied("zeroblob(2)"), Variant(Array::OfBytes(std::vector<Byte>{0, 0})));
  EXPECT_EQ(Copied("x''"), Variant(Array::OfBytes({})));
}

TEST_F(SqliteValueTest, NumbersOfACurrencyColumnAreAmounts) {
  EXPECT_EQ(Amount("15000"), Variant(Currency{15000}));
  EXPECT_EQ(Amount("9223372036854775807"), Variant(Currency{INT64_MAX}));
  EXPECT_EQ(Amount("1.5"), Variant(Currency{15000}));
  EXPECT_EQ(Amount("NULL"), Variant(NullValue{}));
  EXPECT_EQ(Amount("'x'"), Variant("x"));
  EXPECT_EQ(test::ErrorOf([&] { Amount("1e300"); }), 6);
}

TEST_F(SqliteValueTest, ColumnsAreCopiedFromTheFirstThatIsNamedOnIntoTheirCellsOnly) {
  SqliteStatement statement(*connection_->Database(), "SELECT 1, 2, 3, 4");
  ASSERT_TRUE(statement.Step());
  Cells cells;
  cells.Resize(4);
  for (std::size_t place = 0; place < 4; ++place) cells.SetLong(place, 9);
  const ColumnKind kinds[] = {ColumnKind::Plain, ColumnKind::Currency};
  CopyColumns(statement.Handle(), 1, kinds, cells, 1);
  EXPECT_EQ(cells.Get(0), Variant(Long{9}));
  EXPECT_EQ(cells.Get(1), Variant(Long{2}));
  EXPECT_EQ(cells.Get(2), Variant(Currency{3}));
  EXPECT_EQ(cells.Get(3), Variant(Long{9}));
}

TEST_F(SqliteValueTest, ValuesAreCopiedInOrderIntoTheirCellsOnly) {
  SqliteStatement statement(*connection_->Database(), "SELECT 2, 3");
  ASSERT_TRUE(statement.Step());
  sqlite3_value* const values[] = {sqlite3_column_value(statement.Handle(), 0),
                                   sqlite3_column_value(statement.Handle(), 1)};
  Cells cells;
  cells.Resize(4);
  for (std::size_t place = 0; place < 4; ++place) cells.SetLong(place, 9);
  const ColumnKind kinds[] = {ColumnKind::Currency, ColumnKind::Plain};
  CopyValues(values, kinds, cells, 1);
  EXPECT_EQ(cells.Get(0), Variant(Long{9}));
  EXPECT_EQ(cells.Get(1), Variant(Currency{2}));
  EXPECT_EQ(cells.Get(2), Variant(Long{3}));
  EXPECT_EQ(cells.Get(3), Variant(Long{9}));
}

}  // namespace
}  // namespace quenzel7::ado
