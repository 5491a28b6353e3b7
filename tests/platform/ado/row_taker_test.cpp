#include "platform/ado/row_taker.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

#include "platform/ado/sqlite_database.h"
#include "tests/platform/ado/database_test.h"

namespace quenzel7::ado {
namespace {

using automation::NullValue;
using automation::Variant;

class RowTakerTest : public DatabaseTest {
 protected:
  RowTakerTest() {
    sqlite3_open(":memory:", &database_);
    taker_.AddTo(database_);
  }
  ~RowTakerTest() override { sqlite3_close(database_); }

  /// The numbers that a query gives, or the message of its error.
  std::string Ask(const std::string& query) {
    std::string answer;
    char* message = nullptr;
    sqlite3_exec(
        database_, query.c_str(),
        [](void* answered, int, char** values, char**) {
          static_cast<std::string*>(answered)->append(values[0] ? values[0] : "Null").append(" ");
          return 0;
        },
        &answer, &message);
    if (message) answer += message;
    sqlite3_free(message);
    return answer;
  }

  RowTaker taker_;
  sqlite3* database_ = nullptr;
  Cells cells_;
};

constexpr const char* kNoRow = "no such row is being taken";

TEST_F(RowTakerTest, AppendsEachRowAndGivesItsNumber) {
  const ColumnKind kinds[] = {ColumnKind::Plain, ColumnKind::Currency};
  const RowTaker::Taking taking(taker_, kinds, cells_);
  EXPECT_EQ(Ask("SELECT quenzel7_take_row(A,B) FROM (SELECT 5 AS A, 20000 AS B UNION ALL SELECT 'x', NULL)"),
            "0 1 ");
  EXPECT_EQ(Ask("SELECT quenzel7_take_row(NULL,1)"), "2 ");
  const Variant values[] = {Long{5}, Currency{20000}, "x", NullValue{}, NullValue{}, Currency{1}};
  ASSERT_EQ(cells_.Size(), std::size(values));
  for (std::size_t place = 0; place < std::size(values); ++place) {
    EXPECT_EQ(cells_.Get(place), values[place]) << place;
  }
}

TEST_F(RowTakerTest, IsAnErrorWhileNoRowsAreTaken) {
  EXPECT_EQ(Ask("SELECT quenzel7_take_row(1)"), kNoRow);
  EXPECT_EQ(Ask("SELECT quenzel7_take_row()"), kNoRow);
  const ColumnKind kind = ColumnKind::Plain;
  { const RowTaker::Taking taking(taker_, {&kind, 1}, cells_); }
  EXPECT_EQ(Ask("SELECT quenzel7_take_row(1)"), kNoRow);
  EXPECT_EQ(cells_.Size(), 0u);
}

TEST_F(RowTakerTest, ARowOfAnotherWidthIsAnError) {
  const ColumnKind kinds[] = {ColumnKind::Plain, ColumnKind::Plain};
  const RowTaker::Taking taking(taker_, kinds, cells_);
  EXPECT_EQ(Ask("SELECT quenzel7_take_row(1)"), kNoRow);
  EXPECT_EQ(Ask("SELECT quenzel7_take_row(1,2,3)"), kNoRow);
  EXPECT_EQ(cells_.Size(), 0u);
  EXPECT_EQ(Ask("SELECT quenzel7_take_row(1,2)"), "0 ");
}

TEST_F(RowTakerTest, AValueThatCannotBeCopiedIsAnError) {
  const ColumnKind kind = ColumnKind::Currency;
  const RowTaker::Taking taking(taker_, {&kind, 1}, cells_);
  EXPECT_EQ(Ask("SELECT quenzel7_take_row(1e300)"), "the row cannot be taken");
}

TEST_F(RowTakerTest, ViewsAndTriggersCannotUseIt) {
  const ColumnKind kind = ColumnKind::Plain;
  const RowTaker::Taking taking(taker_, {&kind, 1}, cells_);
  EXPECT_EQ(Ask("CREATE VIEW V AS SELECT quenzel7_take_row(1)"), "");
  EXPECT_EQ(Ask("SELECT * FROM V"), "unsafe use of quenzel7_take_row()");
}

TEST_F(RowTakerTest, StatementsOfAConnectionFindNoRowToTake) {
  EXPECT_RAISES(kDatabaseError, "no such row is being taken; in: SELECT quenzel7_take_row(1)",
                Run("SELECT quenzel7_take_row(1)"));
  Run("INSERT INTO Links VALUES(1,2)");
  EXPECT_RAISES(kDatabaseError,
                "no such row is being taken; in: SELECT * FROM Links WHERE quenzel7_take_row(1)=0",
                Run("SELECT * FROM Links WHERE quenzel7_take_row(1)=0"));
}

TEST_F(RowTakerTest, RowsThatAStatementTakesBesidesItsOwnAreNotItsRows) {
  Run("INSERT INTO Links VALUES(1,2)");
  const auto recordset = Run("SELECT * FROM Links WHERE quenzel7_take_row(Place,Element)=0");
  EXPECT_EQ(recordset->Get("Element"), Variant(Long{1}));
  EXPECT_EQ(recordset->Get("Place"), Variant(Long{2}));
}

}  // namespace
}  // namespace quenzel7::ado
