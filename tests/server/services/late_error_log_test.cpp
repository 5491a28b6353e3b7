#include "server/services/late_error_log.h"

#include "tests/server/services/late_double.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using automation::Variant;

TEST(LateErrorLog, ErrorsAreTakenDownByTheHost) {
  const auto host = NewHostObject();
  host->Giving("call Report", Variant());
  LateErrorLog log(host);
  log.Report({"source", 13, "description", "module", "first", "second", 9});
  EXPECT_EQ(host->calls,
            (std::vector<std::string>{"call Report String:source Long:13 String:description String:module "
                                      "String:first String:second Long:9"}));
  EXPECT_EQ(log.HostObject(), host);
}

TEST(LateErrorLog, ErrorsOfTheHostPassUp) {
  EXPECT_RAISES(438, "the host's object has no Report", LateErrorLog(NewHostObject()).Report({}));
}

}  // namespace
}  // namespace quenzel7::server
