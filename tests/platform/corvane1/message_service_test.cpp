#include "platform/corvane1/message_service.h"

#include <gtest/gtest.h>

#include <sstream>

#include "platform/automation/array.h"
#include "platform/automation/collection.h"

namespace quenzel7::corvane1 {
namespace {

using automation::NullValue;
using automation::Variant;
using Shown = std::deque<ShownMessage>;

TEST(MessageTexts, AreThese) {
  const ShownMessage expected[] = {
      {6, "A group cannot hold an element that reacts to a touch."},
      {377, "The picture file a.bmp was not found. Choose another one?"},
      {378, "The picture file a.bmp cannot be read. Choose another one?"},
      {383, "A picture could not be fitted to its new size, since the file that it came from was not found."},
      {536, "The project has no number left for another element."},
  };
  for (const ShownMessage& message : expected) EXPECT_EQ(MessageText(message.number, "a.bmp"), message.text);
}

TEST(MessageTexts, AnUnknownNumberIsShownWithItsInsert) {
  EXPECT_EQ(MessageText(77, "a.bmp"), "message 77: a.bmp");
  EXPECT_EQ(MessageText(77, Variant()), "message 77");
  EXPECT_EQ(MessageText(-1, ""), "message -1");
}

TEST(MessageTexts, EveryKindOfArgumentCanBeInserted) {
  const std::pair<Variant, std::string> cases[] = {
      {Variant(), "message 1"},
      {NullValue{}, "message 1"},
      {Long{-5}, "message 1: -5"},
      {Double{1.5}, "message 1: 1.5"},
      {true, "message 1: True"},
      {automation::Array::OfSize(automation::VariantKind::Long, 2), "message 1: Array"},
      {std::make_shared<automation::Collection>(), "message 1: Object"},
      {std::shared_ptr<automation::Collection>(), "message 1: Object"},
  };
  for (const auto& [argument, text] : cases) EXPECT_EQ(MessageText(1, argument), text);
}

TEST(MessageTexts, AnInsertIsNotLookedAtForInserts) {
  EXPECT_EQ(MessageText(377, "%1%1"), "The picture file %1%1 was not found. Choose another one?");
}

class MessageServiceTest : public ::testing::Test {
 protected:
  Long Show(Long number, Variant argument = {}) { return messages_.ShowMessage(number, argument); }

  std::ostringstream output_;
  CollectedMessages messages_{&output_};
};

TEST_F(MessageServiceTest, KeepsWhatWasShownInOrder) {
  Show(378, "b.bmp");
  Show(77, Long{3});
  EXPECT_EQ(messages_.Shown(), (Shown{{378, "The picture file b.bmp cannot be read. Choose another one?"},
                                      {77, "message 77: 3"}}));
  messages_.Clear();
  EXPECT_EQ(messages_.Shown(), Shown{});
}

TEST_F(MessageServiceTest, PrintsALineForEachMessage) {
  Show(77, "two\r\nlines");
  Show(78);
  EXPECT_EQ(output_.str(), "message 77: two lines\nmessage 78\n");
  EXPECT_EQ(messages_.Shown().front().text, "message 77: two\r\nlines");
}

TEST_F(MessageServiceTest, PrintsWhereItIsTold) {
  std::ostringstream other;
  messages_.Output(&other);
  Show(77);
  messages_.Output(nullptr);
  Show(78);
  EXPECT_EQ(other.str(), "message 77\n");
  EXPECT_EQ(output_.str(), "");
  EXPECT_EQ(messages_.Shown().size(), 2u);
}

TEST_F(MessageServiceTest, PrintsOnStandardErrorUnlessTold) {
  testing::internal::CaptureStderr();
  Variant argument;
  CollectedMessages().ShowMessage(77, argument);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "message 77\n");
}

TEST_F(MessageServiceTest, AnswersOkUntilItIsToldAnotherAnswer) {
  EXPECT_EQ(Show(6), 1);
  messages_.Answer(kAnswerYes);
  EXPECT_EQ(Show(377, "a.bmp"), 6);
  messages_.Answer(kAnswerNo);
  EXPECT_EQ(Show(377, "a.bmp"), 7);
  messages_.Answer(kAnswerOk);
  EXPECT_EQ(Show(77), 1);
}

TEST_F(MessageServiceTest, LeavesTheArgumentAlone) {
  Variant argument("a.bmp");
  messages_.ShowMessage(377, argument);
  EXPECT_EQ(argument, Variant("a.bmp"));
}

TEST_F(MessageServiceTest, KeepsTheLatestOnly) {
  for (Long number = 1000; number < 2001; ++number) Show(number);
  EXPECT_EQ(messages_.Shown().size(), 1000u);
  EXPECT_EQ(messages_.Shown().front().number, 1001);
}

}  // namespace
}  // namespace quenzel7::corvane1
