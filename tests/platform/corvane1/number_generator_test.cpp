#include "platform/corvane1/number_generator.h"

#include <gtest/gtest.h>

#include <memory>

#include "platform/automation/convert.h"
#include "tests/platform/corvane1/temporary_project.h"
#include "tests/support/raises.h"
#include "tests/support/recording_connection.h"

namespace quenzel7::corvane1 {
namespace {

class NumberGeneratorTest : public testing::Test {
 protected:
  NumberGeneratorTest() { database_->Hold(project_.Open()); }

  ado::RecordsetRef Numbers() {
    return ado::OpenRecordset(*database_->Held(), "SELECT * FROM Numbers", ado::adOpenStatic,
                              ado::adLockReadOnly);
  }
  void SetNext(Long next) {
    database_->Held()->Execute("UPDATE Numbers SET Next=" + std::to_string(next) + " WHERE Name='GUID'");
  }

  TemporaryProject project_;
  std::shared_ptr<HeldProjectDatabase> database_ = std::make_shared<HeldProjectDatabase>();
  ProjectNumberGenerator generator_{database_};
};

TEST_F(NumberGeneratorTest, CountsFromOne) {
  EXPECT_EQ(generator_.NewUniqueNumber(), 1);
  EXPECT_EQ(generator_.NewUniqueNumber(), 2);
  EXPECT_EQ(generator_.NewUniqueNumber(), 3);
}

TEST_F(NumberGeneratorTest, KeepsTheNextNumberInOneRowOfTheProject) {
  generator_.NewUniqueNumber();
  generator_.NewUniqueNumber();
  const auto rows = Numbers();
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(rows->Get("Name"), automation::Variant("GUID"));
  EXPECT_EQ(rows->Get("Next"), automation::Variant(Long{3}));
}

TEST_F(NumberGeneratorTest, GoesOnWhereItWasWhenTheProjectIsOpenedAgain) {
  generator_.NewUniqueNumber();
  generator_.NewUniqueNumber();
  database_->Hold(nullptr);
  database_->Hold(project_.Open());
  EXPECT_EQ(ProjectNumberGenerator(database_).NewUniqueNumber(), 3);
}

TEST_F(NumberGeneratorTest, EveryProjectCountsForItself) {
  generator_.NewUniqueNumber();
  database_->Hold(project_.Open("other.qz7"));
  EXPECT_EQ(generator_.NewUniqueNumber(), 1);
}

TEST_F(NumberGeneratorTest, LeavesOtherSequencesAlone) {
  database_->Held()->Execute("INSERT INTO Numbers (Name, Next) VALUES ('Other', 50)");
  EXPECT_EQ(generator_.NewUniqueNumber(), 1);
  EXPECT_EQ(generator_.NewUniqueNumber(), 2);
  const auto other = ado::OpenRecordset(*database_->Held(), "SELECT * FROM Numbers WHERE Name='Other'",
                                        ado::adOpenStatic, ado::adLockReadOnly);
  EXPECT_EQ(other->Get("Next"), automation::Variant(Long{50}));
}

TEST_F(NumberGeneratorTest, CountsFromOneInARowWithoutANumberToo) {
  database_->Held()->Execute("INSERT INTO Numbers (Name, Next) VALUES ('GUID', NULL)");
  EXPECT_EQ(generator_.NewUniqueNumber(), 1);
  EXPECT_EQ(generator_.NewUniqueNumber(), 2);
  EXPECT_EQ(Numbers()->RecordCount(), 1);
}

TEST_F(NumberGeneratorTest, ARolledBackTransactionTakesItsNumbersBack) {
  EXPECT_EQ(generator_.NewUniqueNumber(), 1);
  database_->Held()->BeginTrans();
  EXPECT_EQ(generator_.NewUniqueNumber(), 2);
  database_->Held()->RollbackTrans();
  EXPECT_EQ(generator_.NewUniqueNumber(), 2);
}

TEST_F(NumberGeneratorTest, RaisesOverflowWhenAllNumbersAreUsedUp) {
  generator_.NewUniqueNumber();
  SetNext(2147483646);
  EXPECT_EQ(generator_.NewUniqueNumber(), 2147483646);
  EXPECT_RAISES(6, "overflow: 2147483647 + 1 does not fit 32 bits", generator_.NewUniqueNumber());
  EXPECT_RAISES(6, "overflow: 2147483647 + 1 does not fit 32 bits", generator_.NewUniqueNumber());
  EXPECT_EQ(Numbers()->Get("Next"), automation::Variant(Long{2147483647}));
}

TEST_F(NumberGeneratorTest, WritesInPlaceAndCloses) {
  const auto recorder = std::make_shared<test::RecordingConnection>(database_->Held());
  database_->Hold(recorder);
  const std::string open = "open SELECT * FROM Numbers WHERE Name='GUID' [3,3,1]";
  generator_.NewUniqueNumber();
  EXPECT_EQ(recorder->Take(), (test::CallLog{open, "AddNew", "put Name=GUID:String", "get Next",
                                             "put Next=2:Long", "Update", "Close"}));
  generator_.NewUniqueNumber();
  EXPECT_EQ(recorder->Take(), (test::CallLog{open, "get Next", "put Next=3:Long", "Update", "Close"}));
}

TEST_F(NumberGeneratorTest, RaisesWhenNoProjectIsOpen) {
  database_->Hold(nullptr);
  EXPECT_RAISES(91, "no project is open", generator_.NewUniqueNumber());
}

}  // namespace
}  // namespace quenzel7::corvane1
