#include "framework/tab_index.h"

#include <gtest/gtest.h>

#include "tests/support/empty_connection.h"
#include "tests/support/project_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::CallLog;

class TabIndex : public test::ProjectTest {
 protected:
  void Use(Long page, const std::vector<std::string>& numbers) {
    for (const std::string& number : numbers) {
      Connection().Execute("INSERT INTO HMI_Elements (DisplayID,TabIndex) VALUES (" + std::to_string(page) +
                           "," + number + ")");
    }
  }
};

TEST_F(TabIndex, OfAnEmptyPageIs0) { EXPECT_EQ(NextTabIndex(7), 0); }

TEST_F(TabIndex, IsTheFirstGap) {
  Use(7, {"0", "1", "3"});
  EXPECT_EQ(NextTabIndex(7), 2);
}

TEST_F(TabIndex, WithoutAGapIsTheNumberOfUsedOnes) {
  Use(7, {"0", "1", "2"});
  EXPECT_EQ(NextTabIndex(7), 3);
}

TEST_F(TabIndex, Is0WhenTheFirstIsFree) {
  Use(7, {"1", "2"});
  EXPECT_EQ(NextTabIndex(7), 0);
}

TEST_F(TabIndex, Is0WhenTheLowestIsBelow0EvenIf0IsUsed) {
  Use(7, {"-1", "0", "1"});
  EXPECT_EQ(NextTabIndex(7), 0);
}

TEST_F(TabIndex, ANumberUsedTwiceCountsOnce) {
  Use(7, {"1", "0", "1", "0", "2"});
  EXPECT_EQ(NextTabIndex(7), 3);
}

TEST_F(TabIndex, LeavesOut255AndNull) {
  Use(7, {"255", "255"});
  EXPECT_EQ(NextTabIndex(7), 0);
  Use(7, {"0", "NULL"});
  EXPECT_EQ(NextTabIndex(7), 1);
}

TEST_F(TabIndex, Counts254And256) {
  for (Long number = 0; number < 254; ++number) Use(7, {std::to_string(number)});
  EXPECT_EQ(NextTabIndex(7), 254);
  Use(7, {"254", "255", "256"});
  EXPECT_EQ(NextTabIndex(7), 255);
}

TEST_F(TabIndex, EveryPageHasItsOwn) {
  Use(7, {"0", "1"});
  Use(8, {"0", "1", "2"});
  OpenPage(8);
  EXPECT_EQ(NextTabIndex(7), 2);
  EXPECT_EQ(NextTabIndex(8), 3);
  EXPECT_EQ(NextTabIndex(-1), 0);
}

TEST_F(TabIndex, ReadsToTheFirstGapAndCloses) {
  Use(7, {"0", "2", "3"});
  TakeLog();
  NextTabIndex(7);
  const CallLog expected = {
      "open SELECT DISTINCT TabIndex FROM HMI_Elements WHERE (TabIndex<>255) AND (DisplayID=7) ORDER BY "
      "TabIndex [3,1,1]",
      "get TabIndex", "get TabIndex", "Close"};
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(TabIndex, NeedsAProject) {
  Platform::Current().projectDatabase = std::make_shared<corvane1::HeldProjectDatabase>();
  EXPECT_RAISES(91, "no project is open", NextTabIndex(7));
}

TEST_F(TabIndex, AsksNothingOfARowThatIsNotThere) {
  const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
  database->Hold(std::make_shared<test::EmptyConnection>());
  Platform::Current().projectDatabase = database;
  EXPECT_EQ(NextTabIndex(7), 0);
}

}  // namespace
}  // namespace quenzel7
