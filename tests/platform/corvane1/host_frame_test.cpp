#include "platform/corvane1/host_frame.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quenzel7::corvane1 {
namespace {

using Outputs = std::deque<OutputEntry>;
using Pointers = std::deque<Long>;
using Refreshes = std::deque<RefreshRequest>;

class HostFrameTest : public ::testing::Test {
 protected:
  std::ostringstream output_;
  CollectedHostFrame frame_{&output_};
};

TEST_F(HostFrameTest, KeepsTheLinesInOrder) {
  frame_.AddOutput("not found", kOutputWarning);
  frame_.AddOutput("done", 0);
  EXPECT_EQ(frame_.Outputs(), (Outputs{{"not found", 2}, {"done", 0}}));
}

TEST_F(HostFrameTest, PrintsEachLineAndTellsAWarning) {
  for (const Long kind : {1, 2, 3}) frame_.AddOutput("kind\n" + std::to_string(kind), kind);
  EXPECT_EQ(output_.str(), "kind 1\nwarning: kind 2\nkind 3\n");
  EXPECT_EQ(frame_.Outputs().front().text, "kind\n1");
}

TEST_F(HostFrameTest, PrintsOnStandardErrorUnlessTold) {
  testing::internal::CaptureStderr();
  CollectedHostFrame().AddOutput("a", kOutputWarning);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "warning: a\n");
}

TEST_F(HostFrameTest, RemembersWhatElseItWasTold) {
  frame_.SetPointer(kBusyPointer);
  frame_.SetPointer(kArrowPointer);
  frame_.SetPointer(kDefaultPointer);
  frame_.InterruptWork();
  frame_.InterruptWork();
  frame_.Refresh(-1, 12);
  frame_.Refresh(3, 4);
  EXPECT_EQ(frame_.Pointers(), (Pointers{11, 1, 0}));
  EXPECT_EQ(frame_.Interruptions(), 2);
  EXPECT_EQ(frame_.Refreshes(), (Refreshes{{-1, 12}, {3, 4}}));
  EXPECT_EQ(output_.str(), "");
}

TEST_F(HostFrameTest, KeepsTheLatestOnly) {
  for (Long number = 0; number <= 1000; ++number) {
    frame_.SetPointer(number);
    frame_.Refresh(number, 0);
    frame_.AddOutput(std::to_string(number), 0);
  }
  EXPECT_EQ(frame_.Pointers().size(), 1000u);
  EXPECT_EQ(frame_.Pointers().front(), 1);
  EXPECT_EQ(frame_.Refreshes().size(), 1000u);
  EXPECT_EQ(frame_.Refreshes().front(), (RefreshRequest{1, 0}));
  EXPECT_EQ(frame_.Outputs().size(), 1000u);
  EXPECT_EQ(frame_.Outputs().front().text, "1");
}

TEST_F(HostFrameTest, ForgetsAllOfItAtOnce) {
  EXPECT_EQ(frame_.Interruptions(), 0);
  frame_.SetPointer(1);
  frame_.AddOutput("a", 2);
  frame_.InterruptWork();
  frame_.Refresh(1, 2);
  frame_.Clear();
  EXPECT_EQ(frame_.Pointers(), Pointers{});
  EXPECT_EQ(frame_.Outputs(), Outputs{});
  EXPECT_EQ(frame_.Interruptions(), 0);
  EXPECT_EQ(frame_.Refreshes(), Refreshes{});
}

TEST(HostFrameEntries, AreEmptyToBeginWith) {
  EXPECT_EQ(OutputEntry(), (OutputEntry{"", 0}));
  EXPECT_EQ(RefreshRequest(), (RefreshRequest{0, 0}));
}

TEST(HostFrameEntries, DifferInEachOfTheirParts) {
  EXPECT_NE((OutputEntry{"a", 1}), (OutputEntry{"b", 1}));
  EXPECT_NE((OutputEntry{"a", 1}), (OutputEntry{"a", 2}));
  EXPECT_NE((RefreshRequest{1, 2}), (RefreshRequest{2, 2}));
  EXPECT_NE((RefreshRequest{1, 2}), (RefreshRequest{1, 3}));
}

}  // namespace
}  // namespace quenzel7::corvane1
