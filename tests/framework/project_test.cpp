#include "framework/project.h"

#include <gtest/gtest.h>

#include "tests/support/empty_connection.h"
#include "tests/support/project_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using Project = test::ProjectTest;
using test::CallLog;
using test::ErrorOf;

TEST_F(Project, ConnectionIsThatOfTheProjectDatabase) {
  EXPECT_EQ(ProjectConnection(), Platform::Current().projectDatabase->OpenConnection());
}

TEST_F(Project, WithoutAnOpenProjectThereIsNoConnection) {
  Platform::Current().projectDatabase = std::make_shared<corvane1::HeldProjectDatabase>();
  EXPECT_EQ(ErrorOf([] { ProjectConnection(); }), 91);
  EXPECT_EQ(ErrorOf([] { NextOrderIndex(); }), 91);
}

TEST_F(Project, RowsForWritingAreStaticWithOptimisticLocking) {
  Connection().Execute("INSERT INTO HMI_Elements (DisplayID,Xs) VALUES (7,12)");
  const auto row = OpenRowsForWriting("SELECT * FROM HMI_Elements WHERE DisplayID=7");
  EXPECT_EQ(TakeLog(), CallLog{"open SELECT * FROM HMI_Elements WHERE DisplayID=7 [3,3,1]"});
  row->Put("Xs", Long{13});
  row->Update();
  row->Close();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"Xs"}), std::vector<std::string>{"13"});
}

TEST_F(Project, RowsForWritingFailAsTheDatabaseDoes) {
  EXPECT_EQ(ErrorOf([] { OpenRowsForWriting("SELECT * FROM Nowhere"); }),
            static_cast<Long>(automation::ErrorNumber::Database));
  Platform::Current().projectDatabase = std::make_shared<corvane1::HeldProjectDatabase>();
  EXPECT_EQ(ErrorOf([] { OpenRowsForWriting("SELECT * FROM HMI_Elements"); }), 91);
}

TEST_F(Project, TheOpenPageIsGlobalValue25) {
  const auto values = std::make_shared<corvane1::HeldGlobalValues>();
  values->Set(24, 1);
  values->Set(25, 42);
  values->Set(26, 3);
  Platform::Current().globalValues = values;
  EXPECT_EQ(CurrentDisplayID(), 42);
}

TEST_F(Project, UniqueNumbersComeFromTheGenerator) {
  class Fixed final : public corvane1::NumberGenerator {
    Long NewUniqueNumber() override { return 4711; }
  };
  Platform::Current().numberGenerator = std::make_shared<Fixed>();
  EXPECT_EQ(NewUniqueNumber(), 4711);
}

TEST_F(Project, NextOrderIndexOfAnEmptyPageIs1) {
  EXPECT_EQ(NextOrderIndex(), 1);
  const CallLog expected = {
      "open SELECT MAX(OrderIndex) AS MaxOrderIndex FROM HMI_ELEMENTS WHERE DisplayID=7 [3,1,1]",
      "get MaxOrderIndex", "Close"};
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(Project, NextOrderIndexIsOneAboveTheHighestOfTheOpenPage) {
  Connection().Execute("INSERT INTO HMI_Elements (DisplayID,OrderIndex) VALUES (7,4)");
  Connection().Execute("INSERT INTO HMI_Elements (DisplayID,OrderIndex) VALUES (7,9)");
  Connection().Execute("INSERT INTO HMI_Elements (DisplayID,OrderIndex) VALUES (8,30)");
  EXPECT_EQ(NextOrderIndex(), 10);
  OpenPage(9);
  EXPECT_EQ(NextOrderIndex(), 1);
}

TEST_F(Project, NextOrderIndexTakesOnlyNullForZero) {
  Connection().Execute("INSERT INTO HMI_Elements (DisplayID) VALUES (7)");
  EXPECT_EQ(NextOrderIndex(), 1);
  Connection().Execute("INSERT INTO HMI_Elements (DisplayID,OrderIndex) VALUES (7,-5)");
  EXPECT_EQ(NextOrderIndex(), -4);
  Connection().Execute("INSERT INTO HMI_Elements (DisplayID,OrderIndex) VALUES (7,2147483647)");
  EXPECT_EQ(ErrorOf([] { NextOrderIndex(); }), 6);
}

TEST_F(Project, NextOrderIndexAtTheEndOfTheFileIs1) {
  const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
  database->Hold(std::make_shared<test::EmptyConnection>());
  Platform::Current().projectDatabase = database;
  EXPECT_EQ(NextOrderIndex(), 1);
}

TEST_F(Project, ChangesGoToTheTracker) {
  NotifyElementChanged(3);
  NotifyPageChanged(7);
  EXPECT_EQ(Changes().ChangedElements(), std::vector<Long>{3});
  EXPECT_EQ(Changes().ChangedPages(), std::vector<Long>{7});
}

}  // namespace
}  // namespace quenzel7
