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

TEST(ServiceClasses, NameTheirParametersSo) {
  std::vector<std::string> named;
  for (const automation::ClassInfo* const info : ServiceClasses()) {
    for (const automation::Member& member : info->Default().Members()) {
      if (member.parameters.empty()) continue;
      std::string names;
      for (const std::string_view name : member.ParameterNames()) names += " " + std::string(name);
      named.push_back(std::string(info->name) + '.' + std::string(member.name) + names);
    }
  }
  EXPECT_EQ(named, (std::vector<std::string>{
                       "HostServices.Describe name",
                       "EmbeddedMessageBoxes.Show text buttons caption",
                       "EmbeddedMessages.ShowMessage number argument",
                       "EmbeddedErrorLog.Report source number description module text1 text2 value",
                       "EmbeddedProjectDatabase.Open path mode",
                       "EmbeddedSettings.GetSetting section key fallback",
                       "EmbeddedSettings.SetSetting section key text",
                       "EmbeddedSettings.SetProjectSetting section key text",
                       "EmbeddedSettings.ReadFile path",
                       "PanelColors.Color number",
                       "PanelColors.ShadeColor level number",
                       "PanelColors.FaceColor number",
                       "PanelColors.ClosestGradientColor number",
                       "PanelFonts.CharHeight font",
                       "PanelFonts.CharWidths font",
                       "PanelFonts.TextSize text font width height",
                       "PanelFonts.FontName font",
                       "ProjectStrings.LanguageName language",
                       "ProjectStrings.SetLanguage language name",
                       "ProjectStrings.Text number",
                       "ProjectStrings.FontNumber number",
                       "ProjectStrings.SetText number language text fontNumber",
                       "PanelList.SelectPanel panelType",
                       "PanelList.Model panelType",
                   }));
}

}  // namespace
}  // namespace quenzel7::server
