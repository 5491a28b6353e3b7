#include "server/services/service_classes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quenzel7::server {
namespace {

TEST(ServiceClasses, AreTheseInThisOrder) {
  std::vector<std::string> names;
  for (const automation::ClassInfo* const info : ServiceClasses()) names.emplace_back(info->name);
  EXPECT_EQ(names, (std::vector<std::string>{"HostServices", "EmbeddedMessageBoxes", "EmbeddedMessages",
                                             "EmbeddedErrorLog", "EmbeddedProjectDatabase", "EmbeddedChanges",
                                             "EmbeddedFrame", "EmbeddedSettings", "PanelColors", "PanelFonts",
                                             "ProjectStrings", "PanelList", "CallRecorder"}));
}

TEST(ServiceClasses, ArePublishedForTheirTypesOnly) {
  for (const automation::ClassInfo* const info : ServiceClasses()) {
    EXPECT_EQ(info->create, nullptr) << info->name;
    ASSERT_EQ(info->interfaces.size(), 1u) << info->name;
    EXPECT_EQ(info->Default().Name(), info->name);
  }
}

TEST(ServiceClasses, HaveATextAndNamedParametersInEachMember) {
  for (const automation::ClassInfo* const info : ServiceClasses()) {
    for (const automation::Member& member : info->Default().Members()) {
      EXPECT_NE(member.documentation, "") << info->name << '.' << member.name;
      EXPECT_EQ(member.ParameterNames().size(), member.parameters.size()) << info->name << '.' << member.name;
    }
  }
}

}  // namespace
}  // namespace quenzel7::server
