#include "platform/fennick1/operand_store.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

#include "platform/ado/sqlite_connection.h"
#include "platform/automation/automation_error.h"
#include "tests/platform/fennick1/operand_project.h"
#include "tests/support/raises.h"
#include "tests/support/recording_connection.h"

namespace quenzel7::fennick1 {
namespace {

class ProjectOperandStoreTest : public ::testing::Test {
 protected:
  void Add(Long type, Long address, Long network = 0) { Store().Add({type, address, network}, {}); }
  OperandStore& Store() { return *project_.Store(); }

  OperandProject project_;
};

TEST_F(ProjectOperandStoreTest, HasNothingAtFirst) {
  EXPECT_EQ(Store().Load({1, 5, 0}), std::nullopt);
  EXPECT_FALSE(Store().IsDefined({1, 5, 0}));
}

TEST_F(ProjectOperandStoreTest, GivesWhatWasAdded) {
  const OperandContent content{"pump 'on' \"now\"\n\xC3\xA9", Currency{-125000}};
  Store().Add({1, 5, 2}, content);
  EXPECT_EQ(Store().Load({1, 5, 2}), content);
  EXPECT_TRUE(Store().IsDefined({1, 5, 2}));
  project_.Reopen();
  EXPECT_EQ(Store().Load({1, 5, 2}), content);
}

TEST_F(ProjectOperandStoreTest, ReadsWithoutLockingAndWritesInPlaceAndCloses) {
  using test::CallLog;
  const auto recorder = std::make_shared<test::RecordingConnection>(project_.HeldConnection());
  ProjectOperandStore store([&] { return recorder; });
  const auto row = [](const std::string& columns, const std::string& address) {
    return "open SELECT " + columns + " FROM Operands WHERE Type=1 AND Address=" + address + " AND NetID=2";
  };

  store.Add({1, 0, 2}, {"pump", Currency{20000}});
  EXPECT_EQ(recorder->Take(), (CallLog{row("*", "0") + " [3,3,1]", "AddNew", "put Type=1:Long",
                                       "put Address=0:Long", "put NetID=2:Long", "put Comment=pump:String",
                                       "put Value=2:Currency", "Update", "Close"}));

  const CallLog loaded = {row("Comment, Value", "0") + " [3,1,1]", "get Comment", "get Value", "Close"};
  store.Load({1, 0, 2});
  EXPECT_EQ(recorder->Take(), loaded);
  store.Load({1, 5, 2});
  EXPECT_EQ(recorder->Take(), (CallLog{row("Comment, Value", "5") + " [3,1,1]", "Close"}));

  EXPECT_EQ(store.FreeAddress(1, 2), 1);
  const CallLog searched = recorder->Take();
  ASSERT_EQ(searched.size(), 7u);
  EXPECT_EQ(CallLog(searched.begin(), searched.begin() + 4), loaded);
  EXPECT_EQ(searched[5], "get Found");
  EXPECT_EQ(searched[6], "Close");
}

TEST_F(ProjectOperandStoreTest, TypeAddressAndNetworkTellOperandsApart) {
  Add(1, 5, 2);
  EXPECT_FALSE(Store().IsDefined({2, 5, 2}));
  EXPECT_FALSE(Store().IsDefined({1, 6, 2}));
  EXPECT_FALSE(Store().IsDefined({1, 5, 0}));
  EXPECT_EQ(OperandKey(), (OperandKey{0, 0, 0}));
}

TEST_F(ProjectOperandStoreTest, AValueKeepsEveryBit) {
  for (const std::int64_t value :
       {std::numeric_limits<std::int64_t>::min(), std::int64_t{-1}, std::int64_t{0},
        std::int64_t{9007199254740993}, std::numeric_limits<std::int64_t>::max()}) {
    Store().Add({37, 1, 0}, {"", Currency{value}});
    project_.Reopen();
    EXPECT_EQ(Store().Load({37, 1, 0})->value, Currency{value});
  }
}

TEST_F(ProjectOperandStoreTest, AddingAgainReplacesCommentAndValue) {
  Store().Add({37, 1, 0}, {"old", Currency{1}});
  Store().Add({37, 1, 0}, {"", Currency{2}});
  EXPECT_EQ(Store().Load({37, 1, 0}), (OperandContent{"", Currency{2}}));
  EXPECT_EQ(project_.Rows(), "37 1 0; ");
}

TEST_F(ProjectOperandStoreTest, RemovesOnlyTheOperandMeant) {
  Add(1, 5);
  Add(1, 6);
  Add(2, 5);
  Add(1, 5, 1);
  Store().Remove({1, 5, 0});
  EXPECT_EQ(project_.Rows(), "1 5 1; 1 6 0; 2 5 0; ");
}

TEST_F(ProjectOperandStoreTest, RemovingWhatIsNotThereDoesNothing) {
  Add(1, 5);
  Store().Remove({1, -1, 0});
  EXPECT_EQ(project_.Rows(), "1 5 0; ");
}

TEST_F(ProjectOperandStoreTest, TheFreeAddressIsTheSmallestFromZero) {
  EXPECT_EQ(Store().FreeAddress(37, 0), 0);
  Add(37, 1);
  EXPECT_EQ(Store().FreeAddress(37, 0), 0);
  Add(37, 0);
  EXPECT_EQ(Store().FreeAddress(37, 0), 2);
  Add(37, 3);
  EXPECT_EQ(Store().FreeAddress(37, 0), 2);
  Add(37, 2);
  EXPECT_EQ(Store().FreeAddress(37, 0), 4);
  Store().Remove({37, 0, 0});
  EXPECT_EQ(Store().FreeAddress(37, 0), 0);
}

TEST_F(ProjectOperandStoreTest, AddressesOfOtherTypesAndNetworksAreFree) {
  Add(37, 0, 1);
  Add(38, 0);
  EXPECT_EQ(Store().FreeAddress(37, 0), 0);
  Add(37, 0);
  Add(37, 1, 1);
  Add(38, 1);
  EXPECT_EQ(Store().FreeAddress(37, 0), 1);
  EXPECT_EQ(Store().FreeAddress(37, 1), 2);
}

TEST_F(ProjectOperandStoreTest, NegativeAddressesDoNotCount) {
  Add(37, -1);
  EXPECT_EQ(Store().FreeAddress(37, 0), 0);
  Add(37, 0);
  EXPECT_EQ(Store().FreeAddress(37, 0), 1);
  Add(37, -5);
  EXPECT_EQ(Store().FreeAddress(37, 0), 1);
}

TEST_F(ProjectOperandStoreTest, AnAddressWithoutAFollowerIsFoundBesideTheHighestOne) {
  // The highest address has no follower that 32 bits could hold; it is passed over.
  project_.Connection().Execute("DROP TABLE Operands");
  project_.Connection().Execute("CREATE TABLE Taken(Type, Address, NetID, Comment, Value)");
  project_.Connection().Execute("INSERT INTO Taken VALUES(37,0,0,'',0)");
  project_.Connection().Execute("INSERT INTO Taken VALUES(37,2147483647,0,'',0)");
  project_.Connection().Execute("CREATE VIEW Operands AS SELECT * FROM Taken UNION ALL SELECT 37,1,-1,'',0");
  EXPECT_EQ(Store().FreeAddress(37, 0), 1);
  project_.Connection().Execute("UPDATE Taken SET Address=2147483647 WHERE Address=0");
  EXPECT_EQ(Store().FreeAddress(37, 0), 0);
}

TEST_F(ProjectOperandStoreTest, RaisesWhatTheConnectionRaises) {
  ProjectOperandStore store([]() -> ado::ConnectionRef {
    throw automation::AutomationError(automation::ErrorNumber::ObjectNotSet, "no project is open");
  });
  EXPECT_RAISES(91, "no project is open", store.Load({1, 5, 0}));
  EXPECT_RAISES(91, "no project is open", store.Add({1, 5, 0}, {}));
  EXPECT_RAISES(91, "no project is open", store.Remove({1, 5, 0}));
  EXPECT_RAISES(91, "no project is open", store.FreeAddress(1, 0));
}

}  // namespace
}  // namespace quenzel7::fennick1
