#include "server/services/late_messages.h"

#include "tests/server/services/late_double.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using automation::Arguments;
using automation::Variant;

TEST(LateMessages, AreShownByTheHost) {
  const auto host = NewHostObject();
  host->Giving("call ShowMessage", Long{6});
  LateMessages messages(host);
  Variant argument = "a.bmp";
  EXPECT_EQ(messages.ShowMessage(377, argument), 6);
  EXPECT_EQ(host->calls, (std::vector<std::string>{"call ShowMessage Long:377 String:a.bmp"}));
  EXPECT_EQ(argument, Variant("a.bmp"));
  EXPECT_EQ(messages.HostObject(), host);
}

TEST(LateMessages, TheHostMayChangeTheArgument) {
  const auto host = NewHostObject();
  host->members["call ShowMessage"] = [](Arguments arguments) {
    arguments[0] = Long{1};
    arguments[1] = "changed";
    return Variant(Long{1});
  };
  Variant argument = "a.bmp";
  LateMessages(host).ShowMessage(377, argument);
  EXPECT_EQ(argument, Variant("changed"));
}

TEST(LateMessages, AFailedCallLeavesTheArgumentAlone) {
  const auto host = NewHostObject();
  host->members["call ShowMessage"] = [](Arguments arguments) {
    arguments[1] = "changed";
    return Variant("no number");
  };
  Variant argument = "a.bmp";
  EXPECT_EQ(test::ErrorOf([&] { LateMessages(host).ShowMessage(377, argument); }), 13);
  EXPECT_EQ(argument, Variant("a.bmp"));
  host->members.clear();
  EXPECT_RAISES(438, "the host's object has no ShowMessage", LateMessages(host).ShowMessage(377, argument));
}

}  // namespace
}  // namespace quenzel7::server
