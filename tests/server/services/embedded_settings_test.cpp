#include "server/services/embedded_settings.h"

#include <fstream>

#include "platform/corvane1/project_file.h"
#include "tests/server/services/services_fixture.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::server {
namespace {

using EmbeddedSettingsTest = ServicesTest;

TEST_F(EmbeddedSettingsTest, HasTheseMembers) {
  EXPECT_EQ(EmbeddedSettings::ClassOf().name, "EmbeddedSettings");
  EXPECT_EQ(SlotsOf(EmbeddedSettings::ClassOf()),
            "call GetSetting(Long, Long, [String]) As String\n"
            "call SetSetting(Long, Long, String)\n"
            "call SetProjectSetting(Long, Long, String)\n"
            "call ReadFile(String)\n");
  EXPECT_EQ(EmbeddedSettings::ClassOf().Default().Find("GetSetting")->role, automation::Role::Value);
}

TEST_F(EmbeddedSettingsTest, GivesWhatWasSetForAllProjects) {
  EXPECT_EQ(Called("Settings", "GetSetting", {Long{1}, Long{2}, "fall-back"}), "fall-back");
  EXPECT_EQ(Called("Settings", "GetSetting", {Long{1}, Long{2}}), "");
  Called("Settings", "SetSetting", {Long{1}, Long{2}, "text"});
  EXPECT_EQ(Called("Settings", "GetSetting", {Long{1}, Long{2}, "fall-back"}), "text");
  EXPECT_EQ(Called("Settings", "GetSetting", {Long{2}, Long{1}, "fall-back"}), "fall-back");
  EXPECT_EQ(Platform::Current().settings->GetSetting(1, 2, ""), "text");
}

TEST_F(EmbeddedSettingsTest, KeepsWhatIsSetForTheProject) {
  EXPECT_RAISES(91, "no project is open",
                Called("Settings", "SetProjectSetting", {Long{1}, Long{2}, "text"}));
  const test::TemporaryFolder folder;
  Platform::Current().heldProject->Hold(
      corvane1::OpenProject(folder.File("plant.qz7"), corvane1::ProjectMode::Create));
  Called("Settings", "SetProjectSetting", {Long{1}, Long{2}, "text"});
  EXPECT_EQ(Called("Settings", "GetSetting", {Long{1}, Long{2}, ""}), "text");
  EXPECT_EQ(Called("Settings", "GetSetting", {Long{2}, Long{1}, ""}), "");
  Platform::Current().heldProject->Hold(nullptr);
  EXPECT_EQ(Called("Settings", "GetSetting", {Long{1}, Long{2}, ""}), "");
}

TEST_F(EmbeddedSettingsTest, ReadsAFile) {
  const test::TemporaryFolder folder;
  EXPECT_RAISES(76, "settings file " + folder.File("none") + " cannot be read",
                Called("Settings", "ReadFile", {folder.File("none")}));
  std::ofstream(folder.File("settings.txt")) << "[1]\n2 = text\n";
  Called("Settings", "ReadFile", {folder.File("settings.txt")});
  EXPECT_EQ(Called("Settings", "GetSetting", {Long{1}, Long{2}, ""}), "text");
}

TEST_F(EmbeddedSettingsTest, OfAHostsOwnSettingsOnlyReadingIsThere) {
  class OwnSettings final : public corvane1::Settings {
    std::string GetSetting(Long section, Long key, const std::string& fallback) override {
      return std::to_string(section) + "/" + std::to_string(key) + "/" + fallback;
    }
  };
  Platform::Current().settings = std::make_shared<OwnSettings>();
  EXPECT_EQ(Called("Settings", "GetSetting", {Long{1}, Long{2}, "fall-back"}), "1/2/fall-back");
  constexpr const char* kText = "settings: the embedded service is not in use";
  EXPECT_RAISES(91, kText, Called("Settings", "SetSetting", {Long{1}, Long{2}, "text"}));
  EXPECT_RAISES(91, kText, Called("Settings", "SetProjectSetting", {Long{1}, Long{2}, "text"}));
  EXPECT_RAISES(91, kText, Called("Settings", "ReadFile", {"settings.txt"}));
}

}  // namespace
}  // namespace quenzel7::server
