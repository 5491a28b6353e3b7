#include "server/services/embedded_message_boxes.h"

#include "tests/server/services/services_fixture.h"

namespace quenzel7::server {
namespace {

using automation::GetByName;
using automation::InvokeByName;
using automation::PutByName;

using EmbeddedMessageBoxesTest = ServicesTest;

TEST_F(EmbeddedMessageBoxesTest, HasTheseMembers) {
  EXPECT_EQ(EmbeddedMessageBoxes::ClassOf().name, "EmbeddedMessageBoxes");
  EXPECT_EQ(SlotsOf(EmbeddedMessageBoxes::ClassOf()),
            "call Show(String, Long, String) As Long\n"
            "get Shown() As Variant\n"
            "get Answer() As Long\n"
            "put Answer(Long)\n"
            "call Clear()\n"
            "get Printed() As Boolean\n"
            "put Printed(Boolean)\n");
}

TEST_F(EmbeddedMessageBoxesTest, TellsTheBoxesThatWereShown) {
  EXPECT_EQ(Told("MessageBoxes", "Shown"), "()");
  Platform::Current().messageBoxes->Show("Save?", 4, "Editor");
  Platform::Current().messageBoxes->Show("Saved.", 0, "Note");
  EXPECT_EQ(Told("MessageBoxes", "Shown"), "((Save?, 4, Editor), (Saved., 0, Note))");
  Called("MessageBoxes", "Clear");
  EXPECT_EQ(Told("MessageBoxes", "Shown"), "()");
}

TEST_F(EmbeddedMessageBoxesTest, AnswersAsItIsTold) {
  EXPECT_EQ(Told("MessageBoxes", "Answer"), "1");
  PutByName(*Service("MessageBoxes"), "Answer", Long{6});
  EXPECT_EQ(Told("MessageBoxes", "Answer"), "6");
  EXPECT_EQ(Platform::Current().messageBoxes->Show("", 4, ""), 6);
}

TEST_F(EmbeddedMessageBoxesTest, ShowsABoxForAHost) {
  PutByName(*Service("MessageBoxes"), "Answer", Long{7});
  EXPECT_EQ(Called("MessageBoxes", "Show", {"text", Long{3}, "caption"}), "7");
  EXPECT_EQ(Told("MessageBoxes", "Shown"), "((text, 3, caption))");
}

TEST_F(EmbeddedMessageBoxesTest, PrintsOnStandardErrorWhenToldSo) {
  EXPECT_EQ(Told("MessageBoxes", "Printed"), "False");
  testing::internal::CaptureStderr();
  Platform::Current().messageBoxes->Show("a", 0, "A");
  PutByName(*Service("MessageBoxes"), "Printed", true);
  EXPECT_EQ(Told("MessageBoxes", "Printed"), "True");
  Platform::Current().messageBoxes->Show("b", 0, "B");
  PutByName(*Service("MessageBoxes"), "Printed", false);
  EXPECT_EQ(Told("MessageBoxes", "Printed"), "False");
  Platform::Current().messageBoxes->Show("c", 0, "C");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "B: b\n");
}

}  // namespace
}  // namespace quenzel7::server
