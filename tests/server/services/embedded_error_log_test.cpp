#include "server/services/embedded_error_log.h"

#include "tests/server/services/services_fixture.h"

namespace quenzel7::server {
namespace {

using automation::PutByName;

using EmbeddedErrorLogTest = ServicesTest;

TEST_F(EmbeddedErrorLogTest, HasTheseMembers) {
  EXPECT_EQ(EmbeddedErrorLog::ClassOf().name, "EmbeddedErrorLog");
  EXPECT_EQ(SlotsOf(EmbeddedErrorLog::ClassOf()),
            "call Report(String, Long, String, String, String, String, Long)\n"
            "get Reports() As Variant\n"
            "call Clear()\n"
            "get Printed() As Boolean\n"
            "put Printed(Boolean)\n");
}

TEST_F(EmbeddedErrorLogTest, TellsWhatWasReported) {
  EXPECT_EQ(Told("ErrorLog", "Reports"), "()");
  Platform::Current().errorLog->Report({"source", 13, "description", "module", "first", "second", 9});
  Called("ErrorLog", "Report", {"from", Long{5}, "why", "where", "one", "two", Long{3}});
  EXPECT_EQ(Told("ErrorLog", "Reports"),
            "((source, 13, description, module, first, second, 9), (from, 5, why, where, one, two, 3))");
  Called("ErrorLog", "Clear");
  EXPECT_EQ(Told("ErrorLog", "Reports"), "()");
}

TEST_F(EmbeddedErrorLogTest, PrintsOnStandardErrorWhenToldSo) {
  EXPECT_EQ(Told("ErrorLog", "Printed"), "False");
  PutByName(*Service("ErrorLog"), "Printed", true);
  testing::internal::CaptureStderr();
  Platform::Current().errorLog->Report({"source", 13, "description", "module"});
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "module: source: error 13: description\n");
  EXPECT_EQ(Told("ErrorLog", "Printed"), "True");
}

}  // namespace
}  // namespace quenzel7::server
