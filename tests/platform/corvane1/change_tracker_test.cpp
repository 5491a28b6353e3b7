#include "platform/corvane1/change_tracker.h"

#include <gtest/gtest.h>

namespace quenzel7::corvane1 {
namespace {

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

}  // namespace
}  // namespace quenzel7::corvane1
