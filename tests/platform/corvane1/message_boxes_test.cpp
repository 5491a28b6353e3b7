#include "platform/corvane1/message_boxes.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quenzel7::corvane1 {
namespace {

using Shown = std::deque<ShownBox>;

constexpr Long kYesNoButtons = 4;

class MessageBoxTest : public ::testing::Test {
 protected:
  std::ostringstream output_;
  CollectedMessageBoxes boxes_{&output_};
};

TEST_F(MessageBoxTest, KeepsWhatWasShownInOrder) {
  boxes_.Show("no room", kOkButton, "Text");
  boxes_.Show("go on?", kYesNoButtons, "Frame");
  EXPECT_EQ(boxes_.Shown(), (Shown{{"no room", 0, "Text"}, {"go on?", 4, "Frame"}}));
  boxes_.Clear();
  EXPECT_EQ(boxes_.Shown(), Shown{});
}

TEST_F(MessageBoxTest, PrintsALineForEachBox) {
  boxes_.Show("two\r\nlines", kOkButton, "Text");
  boxes_.Show("", kOkButton, "");
  EXPECT_EQ(output_.str(), "Text: two lines\n: \n");
  EXPECT_EQ(boxes_.Shown().front().text, "two\r\nlines");
}

TEST_F(MessageBoxTest, PrintsWhereItIsTold) {
  std::ostringstream other;
  boxes_.Output(&other);
  boxes_.Show("a", kOkButton, "Text");
  boxes_.Output(nullptr);
  boxes_.Show("b", kOkButton, "Text");
  EXPECT_EQ(other.str(), "Text: a\n");
  EXPECT_EQ(output_.str(), "");
  EXPECT_EQ(boxes_.Shown().size(), 2u);
}

TEST_F(MessageBoxTest, PrintsOnStandardErrorUnlessTold) {
  testing::internal::CaptureStderr();
  CollectedMessageBoxes().Show("a", kOkButton, "Text");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Text: a\n");
}

TEST_F(MessageBoxTest, AnswersOkUntilItIsToldAnotherAnswer) {
  EXPECT_EQ(boxes_.Show("a", kYesNoButtons, "Text"), 1);
  boxes_.Answer(kAnswerYes);
  EXPECT_EQ(boxes_.Show("a", kYesNoButtons, "Text"), 6);
  boxes_.Answer(kAnswerOk);
  EXPECT_EQ(boxes_.Show("a", kYesNoButtons, "Text"), 1);
}

TEST(ShownBoxes, DifferInEachOfTheirParts) {
  const ShownBox box{"a", kYesNoButtons, "Text"};
  EXPECT_EQ(box, (ShownBox{"a", 4, "Text"}));
  EXPECT_NE(box, (ShownBox{"b", 4, "Text"}));
  EXPECT_NE(box, (ShownBox{"a", 0, "Text"}));
  EXPECT_NE(box, (ShownBox{"a", 4, "Frame"}));
  EXPECT_EQ(ShownBox().buttons, 0);
}

}  // namespace
}  // namespace quenzel7::corvane1
