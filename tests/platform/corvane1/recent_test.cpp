#include "platform/corvane1/recent.h"

#include <gtest/gtest.h>

#include <string>

namespace quenzel7::corvane1 {
namespace {

TEST(RecentEntries, ComeInOrder) {
  Recent<std::string> recent;
  EXPECT_TRUE(recent.Entries().empty());
  recent.Add("a");
  recent.Add("b");
  recent.Add("a");
  EXPECT_EQ(recent.Entries(), (std::deque<std::string>{"a", "b", "a"}));
  recent.Clear();
  EXPECT_TRUE(recent.Entries().empty());
}

TEST(RecentEntries, TheOldestGiveWay) {
  EXPECT_EQ(kMostRecent, 1000u);
  Recent<int> recent;
  for (int entry = 1; entry <= 1000; ++entry) recent.Add(entry);
  EXPECT_EQ(recent.Entries().size(), 1000u);
  EXPECT_EQ(recent.Entries().front(), 1);
  recent.Add(1001);
  EXPECT_EQ(recent.Entries().size(), 1000u);
  EXPECT_EQ(recent.Entries().front(), 2);
  EXPECT_EQ(recent.Entries().back(), 1001);
}

}  // namespace
}  // namespace quenzel7::corvane1
