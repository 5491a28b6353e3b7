#include "server/services/call_recorder.h"

#include "platform/gdi/gdi.h"
#include "tests/server/services/services_fixture.h"

namespace quenzel7::server {
namespace {

using CallRecorderTest = ServicesTest;

TEST_F(CallRecorderTest, HasTheseMembers) {
  EXPECT_EQ(CallRecorder::ClassOf().name, "CallRecorder");
  EXPECT_EQ(SlotsOf(CallRecorder::ClassOf()),
            "call Start()\n"
            "call Stop()\n"
            "get Recording() As Boolean\n"
            "get Calls() As String()\n"
            "call Take() As String()\n");
}

TEST_F(CallRecorderTest, NotesCallsFromStartToStop) {
  gdi::GetStockObject(0);
  EXPECT_EQ(Told("Recorder", "Recording"), "False");
  EXPECT_EQ(Told("Recorder", "Calls"), "()");
  Called("Recorder", "Start");
  EXPECT_EQ(Told("Recorder", "Recording"), "True");
  gdi::GetStockObject(1);
  gdi::GetStockObject(2);
  EXPECT_EQ(Told("Recorder", "Calls"), "(GetStockObject(1), GetStockObject(2))");
  Called("Recorder", "Stop");
  EXPECT_EQ(Told("Recorder", "Recording"), "False");
  gdi::GetStockObject(3);
  EXPECT_EQ(Told("Recorder", "Calls"), "(GetStockObject(1), GetStockObject(2))");
  Called("Recorder", "Stop");
  EXPECT_EQ(Told("Recorder", "Calls"), "(GetStockObject(1), GetStockObject(2))");
}

TEST_F(CallRecorderTest, TakingForgetsTheCalls) {
  Called("Recorder", "Start");
  gdi::GetStockObject(1);
  EXPECT_EQ(Called("Recorder", "Take"), "(GetStockObject(1))");
  EXPECT_EQ(Told("Recorder", "Calls"), "()");
  gdi::GetStockObject(2);
  Called("Recorder", "Stop");
  EXPECT_EQ(Called("Recorder", "Take"), "(GetStockObject(2))");
  EXPECT_EQ(Told("Recorder", "Calls"), "()");
}

TEST_F(CallRecorderTest, StartingAgainGoesOnAndStartingAnewForgets) {
  Called("Recorder", "Start");
  gdi::GetStockObject(1);
  Called("Recorder", "Start");
  gdi::GetStockObject(2);
  EXPECT_EQ(Told("Recorder", "Calls"), "(GetStockObject(1), GetStockObject(2))");
  Called("Recorder", "Stop");
  Called("Recorder", "Start");
  EXPECT_EQ(Told("Recorder", "Calls"), "()");
  Called("Recorder", "Stop");
  EXPECT_EQ(Told("Recorder", "Calls"), "()");
}

TEST_F(CallRecorderTest, IsTheSameObjectAlways) {
  const automation::ObjectRef recorder = Service("Recorder");
  Renew();
  EXPECT_EQ(Service("Recorder"), recorder);
}

}  // namespace
}  // namespace quenzel7::server
