#include "platform/ado/row_for.h"

#include <gtest/gtest.h>

#include "tests/platform/ado/database_test.h"
#include "tests/support/recording_connection.h"

namespace quenzel7::ado {
namespace {

using automation::Variant;
using test::CallLog;

class RowForTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    Run("CREATE TABLE Kept(Section INTEGER, Name TEXT, Value INTEGER)");
  }
  /// Puts a value into the row of these keys.
  void Keep(Long section, const std::string& name, Long value) {
    const auto row = RowFor(*connection_, "Kept", {{"Section", section}, {"Name", name}});
    row->Put("Value", value);
    row->Update();
  }
  Lines Kept() { return Rows("SELECT * FROM Kept ORDER BY Value", {"Section", "Name", "Value"}); }
};

TEST_F(RowForTest, IsNewWithItsKeysWhereThereIsNone) {
  const auto row = RowFor(*connection_, "Kept", {{"Section", Long{6}}, {"Name", "a"}});
  EXPECT_EQ(row->Get("Section"), Variant(Long{6}));
  EXPECT_EQ(row->Get("Name"), Variant("a"));
  EXPECT_TRUE(row->Get("Value").IsNull());
  EXPECT_EQ(Kept(), Lines{});
  row->Update();
  EXPECT_EQ(Kept(), Lines{"6|a|Null"});
}

TEST_F(RowForTest, IsTheOneThatIsThere) {
  Keep(1, "a", 5);
  EXPECT_EQ(RowFor(*connection_, "Kept", {{"Section", Long{1}}, {"Name", "a"}})->Get("Value"),
            Variant(Long{5}));
  Keep(1, "a", 6);
  EXPECT_EQ(Kept(), Lines{"1|a|6"});
}

TEST_F(RowForTest, HasAllOfItsKeys) {
  Keep(1, "a", 5);
  Keep(1, "b", 6);
  Keep(-2, "a", 7);
  Keep(-2, "a", 8);
  EXPECT_EQ(Kept(), (Lines{"1|a|5", "1|b|6", "-2|a|8"}));
}

TEST_F(RowForTest, MayHaveAnyTextInItsKeys) {
  Keep(1, "it's ''; --", 5);
  Keep(1, "it's ''; --", 6);
  Keep(1, "", 7);
  EXPECT_EQ(Kept(), (Lines{"1|it's ''; --|6", "1||7"}));
}

TEST_F(RowForTest, IsAskedForByOneStatementAndOpenedForWriting) {
  test::RecordingConnection recorder(connection_);
  RowFor(recorder, "Kept", {{"Section", Long{1}}, {"Name", "it's"}});
  EXPECT_EQ(recorder.Take(), (CallLog{"open SELECT * FROM Kept WHERE Section=1 AND Name='it''s' [3,3,1]",
                                      "AddNew", "put Section=1:Long", "put Name=it's:String"}));
  Keep(1, "it's", 5);
  RowFor(recorder, "Kept", {{"Section", Long{1}}});
  EXPECT_EQ(recorder.Take(), CallLog{"open SELECT * FROM Kept WHERE Section=1 [3,3,1]"});
}

TEST_F(RowForTest, RaisesTheErrorsOfTheDatabase) {
  EXPECT_EQ(test::ErrorOf([&] { RowFor(*connection_, "Nowhere", {{"Section", Long{1}}}); }), kDatabaseError);
}

}  // namespace
}  // namespace quenzel7::ado
