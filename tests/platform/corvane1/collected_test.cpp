#include "platform/corvane1/collected.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quenzel7::corvane1 {
namespace {

/// A service that is told numbers.
class Numbers : public CollectedQuestions<int> {
 public:
  using CollectedQuestions::Ask;
  using CollectedQuestions::CollectedQuestions;
  using CollectedQuestions::Entries;
  using CollectedQuestions::Take;
};

using Entries = std::deque<int>;

TEST(CollectedEntries, ArePrintedAndKeptInOrder) {
  std::ostringstream output;
  Numbers numbers(&output);
  EXPECT_EQ(numbers.Entries(), Entries());
  numbers.Take("two", 2);
  numbers.Take("one", 1);
  EXPECT_EQ(numbers.Entries(), (Entries{2, 1}));
  EXPECT_EQ(output.str(), "two\none\n");
  numbers.Clear();
  EXPECT_EQ(numbers.Entries(), Entries());
}

TEST(CollectedEntries, ArePrintedOnOneLineEach) {
  std::ostringstream output;
  Numbers(&output).Take("a\r\nb\tc", 1);
  EXPECT_EQ(output.str(), "a b c\n");
}

/// Counts how often a stream is flushed.
class CountingBuffer : public std::stringbuf {
 public:
  int flushes = 0;

 private:
  int sync() override {
    ++flushes;
    return std::stringbuf::sync();
  }
};

TEST(CollectedEntries, AreSeenAtOnce) {
  CountingBuffer buffer;
  std::ostream output(&buffer);
  Numbers numbers(&output);
  numbers.Take("a", 1);
  EXPECT_EQ(buffer.flushes, 1);
  numbers.Take("b", 2);
  EXPECT_EQ(buffer.flushes, 2);
}

TEST(CollectedEntries, ArePrintedWhereItIsTold) {
  std::ostringstream output, other;
  Numbers numbers(&output);
  numbers.Output(&other);
  EXPECT_TRUE(numbers.IsPrinted());
  numbers.Take("a", 1);
  numbers.Output(nullptr);
  EXPECT_FALSE(numbers.IsPrinted());
  numbers.Take("b", 2);
  EXPECT_EQ(output.str(), "");
  EXPECT_EQ(other.str(), "a\n");
  EXPECT_EQ(numbers.Entries(), (Entries{1, 2}));
}

TEST(CollectedEntries, ArePrintedOnStandardErrorUnlessTold) {
  testing::internal::CaptureStderr();
  Numbers().Take("a", 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "a\n");
}

TEST(CollectedEntries, AreTheLatestOnly) {
  Numbers numbers(nullptr);
  for (int entry = 0; entry < 1001; ++entry) numbers.Take("", entry);
  EXPECT_EQ(numbers.Entries().size(), 1000u);
  EXPECT_EQ(numbers.Entries().front(), 1);
}

TEST(CollectedQuestions, AreTakenAndAnsweredAsTold) {
  std::ostringstream output;
  Numbers numbers(&output);
  EXPECT_EQ(numbers.Answer(), 1);
  EXPECT_EQ(numbers.Ask("a", 1), 1);
  numbers.Answer(kAnswerNo);
  EXPECT_EQ(numbers.Answer(), 7);
  EXPECT_EQ(numbers.Ask("b", 2), 7);
  numbers.Clear();
  EXPECT_EQ(numbers.Ask("c", 3), 7);
  EXPECT_EQ(numbers.Shown(), (Entries{3}));
  EXPECT_EQ(output.str(), "a\nb\nc\n");
}

TEST(Answers, HaveTheseNumbers) {
  EXPECT_EQ(kAnswerOk, 1);
  EXPECT_EQ(kAnswerYes, 6);
  EXPECT_EQ(kAnswerNo, 7);
}

}  // namespace
}  // namespace quenzel7::corvane1
