#include "platform/corvane1/change_tracker.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/automation/convert.h"
#include "tests/platform/corvane1/temporary_project.h"
#include "tests/support/empty_connection.h"
#include "tests/support/raises.h"
#include "tests/support/recording_connection.h"

namespace quenzel7::corvane1 {
namespace {

using automation::Variant;
using Numbers = std::vector<Long>;

TEST(ChangeTracker, BeginsWithoutChanges) {
  EXPECT_EQ(CollectedChanges().ChangedElements(), Numbers{});
  EXPECT_EQ(CollectedChanges().ChangedPages(), Numbers{});
}

TEST(ChangeTracker, KeepsElementsInTheOrderOfTheirFirstChange) {
  CollectedChanges changes;
  for (const Long element : {7, 3, 7, -1, 3, 5}) changes.NotifyElementChanged(element);
  EXPECT_EQ(changes.ChangedElements(), (Numbers{7, 3, -1, 5}));
}

TEST(ChangeTracker, KeepsPagesInTheOrderOfTheirFirstChange) {
  CollectedChanges changes;
  for (const Long page : {2, 1, 2}) changes.NotifyPageChanged(page);
  EXPECT_EQ(changes.ChangedPages(), (Numbers{2, 1}));
}

TEST(ChangeTracker, ElementsAndPagesOfOneNumberAreDifferentThings) {
  CollectedChanges changes;
  changes.NotifyElementChanged(5);
  EXPECT_EQ(changes.ChangedPages(), Numbers{});
  changes.NotifyPageChanged(5);
  EXPECT_EQ(changes.ChangedElements(), Numbers{5});
  EXPECT_EQ(changes.ChangedPages(), Numbers{5});
}

TEST(ChangeTracker, ClearForgetsAllChanges) {
  CollectedChanges changes;
  changes.NotifyElementChanged(5);
  changes.NotifyPageChanged(6);
  changes.Clear();
  EXPECT_EQ(changes.ChangedElements(), Numbers{});
  EXPECT_EQ(changes.ChangedPages(), Numbers{});
  changes.NotifyElementChanged(5);
  EXPECT_EQ(changes.ChangedElements(), Numbers{5});
}

// What an element takes.

class ElementSizeTest : public ::testing::Test {
 protected:
  ElementSizeTest() { database_->Hold(project_.Open()); }

  /// The size of the element of ID 1 with these values in its row.
  Long SizeWith(const std::string& columns, const std::string& values) {
    database_->Held()->Execute("DELETE * FROM HMI_Elements");
    database_->Held()->Execute("INSERT INTO HMI_Elements (ID" + columns + ") VALUES (1" + values + ")");
    return changes_.ElementSize(1);
  }

  TemporaryProject project_;
  std::shared_ptr<HeldProjectDatabase> database_ = std::make_shared<HeldProjectDatabase>();
  CollectedChanges changes_{database_};
};

TEST_F(ElementSizeTest, WithoutARowIs0) {
  SizeWith("", "");
  EXPECT_EQ(changes_.ElementSize(2), 0);
  EXPECT_EQ(changes_.ElementSize(0), 0);
  EXPECT_EQ(changes_.ElementSize(-1), 0);
}

TEST_F(ElementSizeTest, CountsEveryNumberThatIsThere) {
  EXPECT_EQ(SizeWith("", ""), 4);
  EXPECT_EQ(SizeWith(",Xs,Ys", ",0,-70000"), 12);
  EXPECT_EQ(SizeWith(",Xs,Ys", ",NULL,5"), 8);
  EXPECT_EQ(SizeWith(",Xs", ",1.5"), 12);
  EXPECT_EQ(SizeWith(",StrStorageFont", ",1"), 8);
}

TEST_F(ElementSizeTest, CountsWholeNumbersThatNeedMoreThan32BitsWithEightBytes) {
  EXPECT_EQ(SizeWith(",Xs,Ys", ",2147483647,-2147483648"), 12);
  EXPECT_EQ(SizeWith(",Xs", ",2147483648"), 12);
  EXPECT_EQ(SizeWith(",Xs", ",-2147483649"), 12);
}

/// A database of a host's own whose one row has one value, in a column of texts and blocks.
class OneValueConnection final : public test::EmptyConnection {
 public:
  explicit OneValueConnection(Variant value) : value_(std::move(value)) {}
  ado::RecordsetRef CreateRecordset() override { return std::make_shared<OneValueRow>(value_); }

 private:
  class OneValueRow final : public test::EmptyRecordset {
   public:
    explicit OneValueRow(Variant value) : value_(std::move(value)) {}
    bool Eof() const override { return false; }
    Variant Get(std::string_view column) const override {
      return column == "Binary" ? value_ : Variant(automation::NullValue{});
    }

   private:
    Variant value_;
  };

  Variant value_;
};

TEST(ElementRowSize, CountsWhatAHostsDatabaseGivesInItsWidth) {
  const struct {
    Variant value;
    Long size;
  } cases[] = {{Byte{200}, 1}, {Integer{-1}, 2},
               {true, 2},      {false, 2},
               {Long{1}, 4},   {Single{1}, 8},
               {Double{1}, 8}, {Currency{1}, 8},
               {Variant(), 0}, {automation::NullValue{}, 0},
               {"abc", 3},     {automation::FromBytes({1, 2, 3, 4, 5}), 5}};
  for (const auto& counted : cases) {
    OneValueConnection project(counted.value);
    EXPECT_EQ(ElementRowSize(project, 1), counted.size) << automation::KindName(counted.value.Kind());
  }
}

TEST_F(ElementSizeTest, ReadsTheRowWithoutLockingAndCloses) {
  SizeWith("", "");
  test::RecordingConnection recorder(database_->Held());
  EXPECT_EQ(ElementRowSize(recorder, 1), 4);
  test::CallLog calls = recorder.Take();
  ASSERT_GE(calls.size(), 3u);
  EXPECT_EQ(calls.front(), "open SELECT * FROM HMI_Elements WHERE ID=1 [3,1,1]");
  EXPECT_EQ(calls[1], "get ID");
  EXPECT_EQ(calls.back(), "Close");
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "Close"), 1);
  EXPECT_EQ(ElementRowSize(recorder, -2), 0);
  EXPECT_EQ(recorder.Take(), (test::CallLog{"open SELECT * FROM HMI_Elements WHERE ID=-2 [3,1,1]", "Close"}));
}

TEST_F(ElementSizeTest, CountsTextsAndBlocksByTheirBytes) {
  EXPECT_EQ(SizeWith(",Text", ",''"), 4);
  EXPECT_EQ(SizeWith(",Text", ",'abc'"), 7);
  EXPECT_EQ(SizeWith(",Text", ",'\xC3\xA4'"), 6);
  const auto row = ado::OpenRecordset(*database_->Held(), "SELECT * FROM HMI_Elements", ado::adOpenStatic,
                                      ado::adLockOptimistic);
  row->Put("Binary", automation::FromBytes({1, 2, 3, 4, 5}));
  row->Update();
  EXPECT_EQ(changes_.ElementSize(1), 11);
}

TEST_F(ElementSizeTest, IsThatOfTheElementAskedFor) {
  SizeWith(",Text", ",'abc'");
  database_->Held()->Execute("INSERT INTO HMI_Elements (ID) VALUES (2)");
  EXPECT_EQ(changes_.ElementSize(1), 7);
  EXPECT_EQ(changes_.ElementSize(2), 4);
}

TEST_F(ElementSizeTest, NeedsAProject) {
  EXPECT_RAISES(91, "no project is open", CollectedChanges().ElementSize(1));
  database_->Hold(nullptr);
  EXPECT_RAISES(91, "no project is open", changes_.ElementSize(1));
}

TEST_F(ElementSizeTest, IsStillToldWhenTheChangesWereForgotten) {
  SizeWith("", "");
  changes_.NotifyElementChanged(1);
  changes_.Clear();
  EXPECT_EQ(changes_.ElementSize(1), 4);
}

}  // namespace
}  // namespace quenzel7::corvane1
