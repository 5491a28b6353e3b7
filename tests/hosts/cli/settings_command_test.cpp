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
    notes_ = err.str();
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
  /// What the last run told on standard error.
  std::string notes_;
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
  EXPECT_EQ(Run({}), "7000/1=1251\n");
}

TEST_F(SettingsCommandTest, EveryDefaultOfNewElementsHasToBeANumber) {
  // Some of them are those of one style only.
  for (const char* key : {"6018", "6019", "6020", "6021", "6022", "6039", "6040", "6042", "6043", "6045",
                          "6046", "6049", "6050", "6051", "6052", "6053", "6057", "6058", "6059"}) {
    const std::string setting = std::string("6000/") + key;
    EXPECT_EQ(RefusalOf({setting + "=x"}),
              "project " + project_ + ": setting " + setting + ": type mismatch: \"x\" is not a number");
    EXPECT_EQ(Run({setting + "=7"}), setting + "=7\n");
    EXPECT_EQ(notes_, "");
    Run({setting + "="});
    EXPECT_EQ(notes_, "");
  }
}

TEST_F(SettingsCommandTest, AnAlignmentHasToFit16Bits) {
  for (const std::string setting : {"6000/6039", "6000/6040"}) {
    EXPECT_EQ(RefusalOf({setting + "=32768"}),
              "project " + project_ + ": setting " + setting + ": overflow: 32768 does not fit 16 bits");
    EXPECT_EQ(Run({setting + "=32767"}), setting + "=32767\n");
    Run({setting + "="});
  }
  EXPECT_EQ(Run({"6000/6042=32768"}), "6000/6042=32768\n");
}

TEST_F(SettingsCommandTest, ANumberThatWouldBeRoundedIsRefused) {
  Run({"6000/6050=3"});
  for (const std::string setting : {"7000/1=1251.5", "7000/1= 1251", "6000/6050=2.0", "6000/6040=1e0"}) {
    const std::string place = setting.substr(0, setting.find('='));
    EXPECT_EQ(RefusalOf({"6000/6051=1", setting}), "setting " + place + ": a whole number is expected, \"" +
                                                       setting.substr(place.size() + 1) + "\" was given");
  }
  EXPECT_EQ(Run({}), "6000/6050=3\n");
  EXPECT_EQ(Run({"7000/2=1.5", "6000/6050="}), "7000/2=1.5\n");
}

TEST_F(SettingsCommandTest, ThePlaceThatIsGivenTwiceIsRefused) {
  EXPECT_EQ(RefusalOf({"7000/1=1251", "6000/1=1251", "7000/2=1251", "07000/1=1252"}),
            "setting 7000/1 is given twice");
  EXPECT_EQ(RefusalOf({"7000/1=", "7000/1="}), "setting 7000/1 is given twice");
  EXPECT_FALSE(std::filesystem::exists(project_));
}

TEST_F(SettingsCommandTest, APlaceThatNothingReadsIsTold) {
  EXPECT_EQ(Run({"7000/2=x", "7000/1=1251", "6000/6015=y", "6000/1=z", "7000/6018=1", "6001/6018=1"}),
            "6000/1=z\n6000/6015=y\n6001/6018=1\n7000/1=1251\n7000/2=x\n7000/6018=1\n");
  EXPECT_EQ(notes_,
            "note: nothing reads setting 7000/2\nnote: nothing reads setting 6000/6015\n"
            "note: nothing reads setting 6000/1\nnote: nothing reads setting 7000/6018\n"
            "note: nothing reads setting 6001/6018\n");
  Run({"7000/2="});
  EXPECT_EQ(notes_, "note: nothing reads setting 7000/2\n");
  Run({});
  EXPECT_EQ(notes_, "");
}

TEST_F(SettingsCommandTest, WhatIsRefusedIsNotToldAsUnread) {
  EXPECT_NE(RefusalOf({"7000/2=x", "7000/1=1"}), "");
  EXPECT_EQ(notes_, "");
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
