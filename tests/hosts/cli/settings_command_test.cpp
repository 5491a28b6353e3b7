#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "hosts/cli/commands.h"
#include "platform/corvane1/project_file.h"
#include "platform/platform.h"
#include "tests/hosts/cli/messages.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli {
namespace {

using Arguments = std::vector<std::string>;

class SettingsCommandTest : public ::testing::Test {
 protected:
  void SetUp() override { Platform::Current() = Platform(); }
  void TearDown() override { Platform::Current() = Platform(); }

  std::string Run(const Arguments& arguments) {
    std::ostringstream out, err;
    EXPECT_EQ(SettingsCommand(project_, arguments, {out, err}), 0);
    EXPECT_EQ(err.str(), "");
    return out.str();
  }
  std::string RefusalOf(const Arguments& arguments) {
    return test::MessageOf([&] { Run(arguments); });
  }
  void Execute(const std::string& statement) {
    corvane1::OpenProject(project_, corvane1::ProjectMode::Open)->Execute(statement);
  }

  quenzel7::test::TemporaryFolder folder_;
  std::string project_ = folder_.File("p.qz7");
};

TEST_F(SettingsCommandTest, MakesSettingsInANewProjectAndTellsThemInOrder) {
  EXPECT_EQ(Run({"7000/1=1251", "6000/6050=3", "6000/6022=0"}), "6000/6022=0\n6000/6050=3\n7000/1=1251\n");
  EXPECT_EQ(Run({}), "6000/6022=0\n6000/6050=3\n7000/1=1251\n");
}

TEST_F(SettingsCommandTest, ReplacesAndTakesAway) {
  Run({"7000/1=1251", "7000/2=x"});
  EXPECT_EQ(Run({"7000/1=1253", "7000/2="}), "7000/1=1253\n");
  EXPECT_EQ(Run({"7000/1=", "7000/9="}), "");
}

TEST_F(SettingsCommandTest, ATextMayBeAnything) {
  EXPECT_EQ(Run({"1/2=a=b/c", "-3/-4= \n"}), "-3/-4= \\n\n1/2=a=b/c\n");
}

TEST_F(SettingsCommandTest, WhatIsNoSettingIsRefused) {
  for (const char* text : {"", "7000/1", "7000=1", "=", "/=", "7000/=1", "/1=1", "7000/x=1", "70 /1=1",
                           "7000/1 =1", "2147483648/1=1", "7000/2147483648=1", "1=7000/1"}) {
    EXPECT_EQ(RefusalOf({"7000/1=1251", text}),
              "setting \"" + std::string(text) +
                  "\": SECTION/KEY=TEXT is expected, with whole numbers for section and key");
  }
  EXPECT_FALSE(std::filesystem::exists(project_));
}

TEST_F(SettingsCommandTest, WhatTheLibraryCannotWorkWithIsRefusedAndNothingChanges) {
  Run({"7000/1=1251"});
  EXPECT_EQ(RefusalOf({"6000/6022=1", "7000/1=1"}).substr(0, project_.size() + 26),
            "project " + project_ + ": setting 7000/1: ");
  EXPECT_EQ(RefusalOf({"6000/6050=thick"}),
            "project " + project_ + ": setting 6000/6050: type mismatch: \"thick\" is not a number");
  // The classes of texts have settings of their own.
  EXPECT_EQ(RefusalOf({"6000/6042=x"}),
            "project " + project_ + ": setting 6000/6042: type mismatch: \"x\" is not a number");
  EXPECT_EQ(Run({}), "7000/1=1251\n");
}

TEST_F(SettingsCommandTest, ANewProjectIsNotThereWhenASettingIsRefused) {
  EXPECT_NE(RefusalOf({"7000/1=1"}), "");
  EXPECT_TRUE(std::filesystem::is_empty(folder_.File("")));
}

TEST_F(SettingsCommandTest, TellingNeedsAProject) {
  EXPECT_EQ(RefusalOf({}), "project file \"" + project_ + "\": there is no such file");
}

TEST_F(SettingsCommandTest, ARowThatIsNoSettingIsTold) {
  Run({"7000/1=1251"});
  Execute("UPDATE Settings SET Value=Null");
  EXPECT_EQ(RefusalOf({}).substr(0, project_.size() + 45),
            "project " + project_ + ": column 'Value' of Settings: invalid");
}

}  // namespace
}  // namespace quenzel7::cli
