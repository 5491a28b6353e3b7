#include "server/services/embedded_messages.h"

#include "tests/server/services/services_fixture.h"

namespace quenzel7::server {
namespace {

using automation::PutByName;
using automation::Variant;

using EmbeddedMessagesTest = ServicesTest;

TEST_F(EmbeddedMessagesTest, HasTheseMembers) {
  EXPECT_EQ(EmbeddedMessages::ClassOf().name, "EmbeddedMessages");
  EXPECT_EQ(SlotsOf(EmbeddedMessages::ClassOf()),
            "call ShowMessage(Long, ByRef Variant) As Long\n"
            "get Shown() As Variant\n"
            "get Answer() As Long\n"
            "put Answer(Long)\n"
            "call Clear()\n"
            "get Printed() As Boolean\n"
            "put Printed(Boolean)\n");
}

TEST_F(EmbeddedMessagesTest, TellsTheMessagesThatWereShown) {
  EXPECT_EQ(Told("Messages", "Shown"), "()");
  Variant none, name = "a.bmp";
  Platform::Current().messageService->ShowMessage(6, none);
  Platform::Current().messageService->ShowMessage(77, name);
  EXPECT_EQ(Told("Messages", "Shown"),
            "((6, A group cannot hold an element that reacts to a touch.), (77, message 77: a.bmp))");
  Called("Messages", "Clear");
  EXPECT_EQ(Told("Messages", "Shown"), "()");
}

TEST_F(EmbeddedMessagesTest, AnswersAsItIsTold) {
  EXPECT_EQ(Told("Messages", "Answer"), "1");
  PutByName(*Service("Messages"), "Answer", Long{7});
  EXPECT_EQ(Told("Messages", "Answer"), "7");
  Variant none;
  EXPECT_EQ(Platform::Current().messageService->ShowMessage(6, none), 7);
}

TEST_F(EmbeddedMessagesTest, ShowsAMessageForAHost) {
  PutByName(*Service("Messages"), "Answer", Long{6});
  EXPECT_EQ(Called("Messages", "ShowMessage", {Long{78}, "insert"}), "6");
  EXPECT_EQ(Told("Messages", "Shown"), "((78, message 78: insert))");
}

TEST_F(EmbeddedMessagesTest, PrintsOnStandardErrorWhenToldSo) {
  EXPECT_EQ(Told("Messages", "Printed"), "False");
  PutByName(*Service("Messages"), "Printed", true);
  testing::internal::CaptureStderr();
  Called("Messages", "ShowMessage", {Long{78}, "insert"});
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "message 78: insert\n");
  EXPECT_EQ(Told("Messages", "Printed"), "True");
}

}  // namespace
}  // namespace quenzel7::server
