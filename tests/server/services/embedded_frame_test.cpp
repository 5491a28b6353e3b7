#include "server/services/embedded_frame.h"

#include "tests/server/services/services_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using automation::PutByName;

using EmbeddedFrameTest = ServicesTest;

TEST_F(EmbeddedFrameTest, HasTheseMembers) {
  EXPECT_EQ(EmbeddedFrame::ClassOf().name, "EmbeddedFrame");
  EXPECT_EQ(SlotsOf(EmbeddedFrame::ClassOf()),
            "get Outputs() As Variant\n"
            "get Pointers() As Long()\n"
            "get Interruptions() As Long\n"
            "get Refreshes() As Variant\n"
            "call Clear()\n"
            "get Printed() As Boolean\n"
            "put Printed(Boolean)\n");
}

TEST_F(EmbeddedFrameTest, TellsWhatTheWindowWasTold) {
  corvane1::HostFrame& frame = *Platform::Current().hostFrame;
  frame.SetPointer(11);
  frame.SetPointer(0);
  frame.AddOutput("careful", 2);
  frame.AddOutput("done", 1);
  frame.InterruptWork();
  frame.InterruptWork();
  frame.InterruptWork();
  frame.Refresh(-1, 12);
  frame.Refresh(4, 13);
  EXPECT_EQ(Told("Frame", "Pointers"), "(11, 0)");
  EXPECT_EQ(Told("Frame", "Outputs"), "((careful, 2), (done, 1))");
  EXPECT_EQ(Told("Frame", "Interruptions"), "3");
  EXPECT_EQ(Told("Frame", "Refreshes"), "((-1, 12), (4, 13))");
  Called("Frame", "Clear");
  EXPECT_EQ(Told("Frame", "Pointers"), "()");
  EXPECT_EQ(Told("Frame", "Outputs"), "()");
  EXPECT_EQ(Told("Frame", "Interruptions"), "0");
  EXPECT_EQ(Told("Frame", "Refreshes"), "()");
}

TEST_F(EmbeddedFrameTest, PrintsLinesOnStandardErrorWhenToldSo) {
  EXPECT_EQ(Told("Frame", "Printed"), "False");
  PutByName(*Service("Frame"), "Printed", true);
  testing::internal::CaptureStderr();
  Platform::Current().hostFrame->AddOutput("careful", 2);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "warning: careful\n");
  EXPECT_EQ(Told("Frame", "Printed"), "True");
}

TEST_F(EmbeddedFrameTest, NeedsTheEmbeddedService) {
  class OwnFrame final : public corvane1::HostFrame {
    void SetPointer(Long) override {}
    void AddOutput(const std::string&, Long) override {}
    void InterruptWork() override {}
    void Refresh(Long, Long) override {}
  };
  Platform::Current().hostFrame = std::make_shared<OwnFrame>();
  EXPECT_RAISES(91, "window: the embedded service is not in use", Service("Frame"));
}

}  // namespace
}  // namespace quenzel7::server
