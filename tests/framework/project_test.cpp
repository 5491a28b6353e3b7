#include "framework/project.h"

#include <gtest/gtest.h>

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

/// A database of the host's own whose every recordset is empty.
class EmptyConnection final : public ado::Connection {
 public:
  class Rows final : public ado::Recordset {
   public:
    void Open(const std::string&, ado::Connection&, ado::CursorType, ado::LockType,
              ado::CommandOption) override {}
    void Close() override {}
    void AddNew() override {}
    void Update() override {}
    void Delete() override {}
    bool Eof() const override { return true; }
    bool Bof() const override { return true; }
    void MoveFirst() override {}
    void MoveNext() override {}
    void Move(Long) override {}
    Long RecordCount() const override { return 0; }
    Long FieldCount() const override { return 0; }
    automation::Variant Get(std::string_view) const override { return Long{40}; }
    void Put(std::string_view, const automation::Variant&) override {}
  };
  ado::RecordsetRef Execute(const std::string&) override { return std::make_shared<Rows>(); }
  ado::RecordsetRef CreateRecordset() override { return std::make_shared<Rows>(); }
  void BeginTrans() override {}
  void CommitTrans() override {}
  void RollbackTrans() override {}
  void Close() override {}
};

TEST_F(Project, NextOrderIndexAtTheEndOfTheFileIs1) {
  const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
  database->Hold(std::make_shared<EmptyConnection>());
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
