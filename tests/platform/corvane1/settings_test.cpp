#include "platform/corvane1/settings.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

#include "tests/platform/corvane1/temporary_project.h"
#include "tests/support/raises.h"
#include "tests/support/recording_connection.h"

namespace quenzel7::corvane1 {
namespace {

constexpr Long kLeast = std::numeric_limits<Long>::min();
constexpr Long kMost = std::numeric_limits<Long>::max();

class SettingsTest : public testing::Test {
 protected:
  /// What a file with that text makes of the settings: error, or none.
  test::Raised Read(const std::string& text) {
    project_.Write("settings.txt", text);
    return test::RaisedBy([&] { settings_.ReadFile(path_); });
  }
  /// The refusal of a line of the file.
  test::Raised Refused(int line, const std::string& found, const std::string& expected) const {
    return {380, "settings file " + path_ + ", line " + std::to_string(line) + ": \"" + found + "\" found, " +
                     expected + " expected"};
  }
  std::string Setting(Long section, Long key) { return settings_.GetSetting(section, key, "fall-back"); }

  TemporaryProject project_;
  std::shared_ptr<HeldProjectDatabase> database_ = std::make_shared<HeldProjectDatabase>();
  LayeredSettings settings_{database_};
  const std::string path_ = project_.Folder() + "/settings.txt";
};

TEST_F(SettingsTest, WithoutASettingItIsTheFallBack) {
  EXPECT_EQ(settings_.GetSetting(6000, 6051, "0"), "0");
  EXPECT_EQ(settings_.GetSetting(6000, 6051, ""), "");
}

TEST_F(SettingsTest, GivesWhatWasSetUnderSectionAndKey) {
  settings_.Set(6000, 6051, "7");
  EXPECT_EQ(Setting(6000, 6051), "7");
  EXPECT_EQ(Setting(6000, 6050), "fall-back");
  EXPECT_EQ(Setting(6001, 6051), "fall-back");
  settings_.Set(6000, 6051, "8");
  EXPECT_EQ(Setting(6000, 6051), "8");
}

TEST_F(SettingsTest, AnEmptyTextIsASetting) {
  settings_.Set(1, 2, "");
  EXPECT_EQ(Setting(1, 2), "");
}

TEST_F(SettingsTest, SectionsAndKeysAreTheirWhole32Bits) {
  settings_.Set(1, 2, "a");
  settings_.Set(2, 1, "b");
  settings_.Set(-1, 2, "c");
  settings_.Set(1, -2, "d");
  settings_.Set(0, -2, "e");
  settings_.Set(kLeast, kMost, "f");
  EXPECT_EQ(Setting(1, 2), "a");
  EXPECT_EQ(Setting(2, 1), "b");
  EXPECT_EQ(Setting(-1, 2), "c");
  EXPECT_EQ(Setting(1, -2), "d");
  EXPECT_EQ(Setting(0, -2), "e");
  EXPECT_EQ(Setting(kLeast, kMost), "f");
  EXPECT_EQ(Setting(-1, -2), "fall-back");
  EXPECT_EQ(Setting(0, 2), "fall-back");
}

TEST_F(SettingsTest, AreThoseOfTheProjectThatItsDatabaseFollows) {
  const auto other = std::make_shared<HeldProjectDatabase>();
  database_->Follow(other);
  EXPECT_EQ(Setting(1, 2), "fall-back");
  other->Hold(project_.Open());
  settings_.SetInProject(1, 2, "followed");
  EXPECT_EQ(Setting(1, 2), "followed");
  other->Hold(project_.Open("other.qz7"));
  EXPECT_EQ(Setting(1, 2), "fall-back");
}

TEST_F(SettingsTest, TheProjectGoesBeforeWhatHoldsForAll) {
  settings_.Set(1, 2, "all");
  settings_.Set(1, 3, "all");
  database_->Hold(project_.Open());
  settings_.SetInProject(1, 2, "project");
  EXPECT_EQ(Setting(1, 2), "project");
  EXPECT_EQ(Setting(1, 3), "all");
  EXPECT_EQ(Setting(1, 4), "fall-back");
}

TEST_F(SettingsTest, AProjectSettingStaysInTheProjectWhenItIsOpenedAgain) {
  database_->Hold(project_.Open());
  settings_.SetInProject(1, 2, "first");
  settings_.SetInProject(1, 2, "second");
  settings_.SetInProject(1, 3, "third");
  settings_.SetInProject(-1, -2, "fourth");
  database_->Hold(nullptr);
  database_->Hold(project_.Open());
  LayeredSettings again(database_);
  EXPECT_EQ(again.GetSetting(1, 2, ""), "second");
  EXPECT_EQ(again.GetSetting(1, 3, ""), "third");
  EXPECT_EQ(again.GetSetting(-1, -2, ""), "fourth");
  const auto rows = ado::OpenRecordset(*database_->Held(), "SELECT * FROM Settings", ado::adOpenStatic,
                                       ado::adLockReadOnly);
  EXPECT_EQ(rows->RecordCount(), 3);
}

TEST_F(SettingsTest, AProjectSettingIsSeenAtOnce) {
  database_->Hold(project_.Open());
  EXPECT_EQ(Setting(1, 2), "fall-back");
  settings_.SetInProject(1, 2, "new");
  EXPECT_EQ(Setting(1, 2), "new");
}

TEST_F(SettingsTest, WithTheProjectItsSettingsGo) {
  settings_.Set(1, 2, "all");
  database_->Hold(project_.Open());
  settings_.SetInProject(1, 2, "project");
  EXPECT_EQ(Setting(1, 2), "project");
  database_->Hold(nullptr);
  EXPECT_EQ(Setting(1, 2), "all");
}

TEST_F(SettingsTest, WithTheProjectItsSettingsGoEvenWhileItsConnectionLives) {
  const ado::ConnectionRef connection = project_.Open();
  database_->Hold(connection);
  settings_.SetInProject(1, 2, "project");
  EXPECT_EQ(Setting(1, 2), "project");
  database_->Hold(nullptr);
  EXPECT_EQ(Setting(1, 2), "fall-back");
  database_->Hold(connection);
  EXPECT_EQ(Setting(1, 2), "project");
}

TEST_F(SettingsTest, AnotherProjectHasItsOwnSettings) {
  database_->Hold(project_.Open("first.qz7"));
  settings_.SetInProject(1, 2, "first");
  EXPECT_EQ(Setting(1, 2), "first");
  database_->Hold(project_.Open("second.qz7"));
  EXPECT_EQ(Setting(1, 2), "fall-back");
  settings_.SetInProject(1, 2, "second");
  EXPECT_EQ(Setting(1, 2), "second");
}

TEST_F(SettingsTest, TheProjectIsReadOnceOnly) {
  const ado::SqliteConnectionRef connection = project_.Open();
  std::vector<std::string> statements;
  connection->SetStatementObserver([&](std::string_view text) { statements.emplace_back(text); });
  database_->Hold(connection);
  for (Long key = 0; key < 5; ++key) Setting(1, key);
  EXPECT_EQ(statements, std::vector<std::string>{"SELECT * FROM Settings"});
  connection->SetStatementObserver({});
}

TEST_F(SettingsTest, AReadThatFailedIsMadeAgain) {
  database_->Hold(project_.Open());
  database_->Held()->Execute("INSERT INTO Settings (Section, Key, Value) VALUES (1, 2, 'good')");
  database_->Held()->Execute("INSERT INTO Settings (Section, Key, Value) VALUES (1, 3, NULL)");
  const std::string refusal = "setting 1/3 of the project: invalid use of Null: a text was expected";
  EXPECT_RAISES(94, refusal, Setting(1, 2));
  EXPECT_RAISES(94, refusal, Setting(1, 4));
  database_->Held()->Execute("DELETE FROM Settings WHERE Key=3");
  EXPECT_EQ(Setting(1, 2), "good");
}

TEST_F(SettingsTest, ARowThatIsNoSettingIsNamed) {
  const struct {
    const char* values;
    Long number;
    const char* place;
    const char* cause;
  } rows[] = {
      {"(NULL, 3, 'a')", 94, "Null/3", "invalid use of Null: a number was expected"},
      {"(4, NULL, 'a')", 94, "4/Null", "invalid use of Null: a number was expected"},
      {"('left', 3, 'a')", 13, "left/3", "type mismatch: \"left\" is not a number"},
      {"(5, 'right', 'a')", 13, "5/right", "type mismatch: \"right\" is not a number"},
      {"(2147483648, 3, 'a')", 6, "2147483648/3", "overflow: 2147483648.000000 does not fit 32 bits"},
      {"(5, -2147483649, 'a')", 6, "5/-2147483649", "overflow: -2147483649.000000 does not fit 32 bits"},
      {"(X'01', 3, 'a')", 13, "Array/3", "type mismatch: Array where a number was expected"},
      {"(5, 6, X'01')", 13, "5/6", "type mismatch: Array where a text was expected"}};
  const ado::SqliteConnectionRef connection = project_.Open();
  database_->Hold(connection);
  for (const auto& row : rows) {
    connection->Execute("DELETE FROM Settings");
    connection->Execute(std::string("INSERT INTO Settings (Section, Key, Value) VALUES ") + row.values);
    EXPECT_RAISES(row.number, std::string("setting ") + row.place + " of the project: " + row.cause,
                  Setting(1, 2));
  }
}

TEST_F(SettingsTest, ADatabaseThatFailsIsPassedOn) {
  const ado::ConnectionRef connection = project_.Open();
  database_->Hold(connection);
  connection->Execute("DROP TABLE Settings");
  EXPECT_EQ(test::ErrorOf([&] { Setting(1, 2); }), -2147467259);
  connection->Close();
  EXPECT_EQ(test::ErrorOf([&] { Setting(1, 2); }), 3704);
}

TEST_F(SettingsTest, ReadsWithoutLockingAndWritesInPlaceAndCloses) {
  const auto recorder = std::make_shared<test::RecordingConnection>(project_.Open());
  database_->Hold(recorder);
  settings_.SetInProject(1, 2, "a");
  const test::CallLog written = {"open SELECT * FROM Settings WHERE Section=1 AND Key=2 [3,3,1]",
                                 "AddNew",
                                 "put Section=1:Long",
                                 "put Key=2:Long",
                                 "put Value=a:String",
                                 "Update",
                                 "Close"};
  EXPECT_EQ(recorder->Take(), written);
  Setting(1, 2);
  const test::CallLog read = {"open SELECT * FROM Settings [3,1,1]", "get Section", "get Key", "get Value",
                              "Close"};
  EXPECT_EQ(recorder->Take(), read);
}

TEST_F(SettingsTest, NoProjectSettingWithoutAProject) {
  EXPECT_RAISES(91, "no project is open", settings_.SetInProject(1, 2, "text"));
  EXPECT_EQ(Setting(1, 2), "fall-back");
}

TEST_F(SettingsTest, ReadsLinesBelowSections) {
  EXPECT_EQ(Read("[6000]\n6051 = 7\n6050=2\n[6001]\n6051=8\n"), test::Raised{});
  EXPECT_EQ(Setting(6000, 6051), "7");
  EXPECT_EQ(Setting(6000, 6050), "2");
  EXPECT_EQ(Setting(6001, 6051), "8");
}

TEST_F(SettingsTest, BlanksAndLineEndsOfOtherSystemsMeanNothing) {
  EXPECT_EQ(Read(" \t[ 6000 ] \r\n\t 6051\t =  a text  with blanks \t\r\n\r\n   \n-5=last"), test::Raised{});
  EXPECT_EQ(Setting(6000, 6051), "a text  with blanks");
  EXPECT_EQ(Setting(6000, -5), "last");
}

TEST_F(SettingsTest, RemarksAndEmptyLinesMeanNothing) {
  EXPECT_EQ(Read("# 1\n; 2\n\n[1]\n  # 2 = no\n;2=no\n3 = yes # all of it\n"), test::Raised{});
  EXPECT_EQ(Setting(1, 2), "fall-back");
  EXPECT_EQ(Setting(1, 3), "yes # all of it");
}

TEST_F(SettingsTest, TheTextGoesFromTheFirstEqualsSign) {
  EXPECT_EQ(Read("[1]\n2=a=b\n3=\n4=[x]\n"), test::Raised{});
  EXPECT_EQ(Setting(1, 2), "a=b");
  EXPECT_EQ(Setting(1, 3), "");
  EXPECT_EQ(Setting(1, 4), "[x]");
}

TEST_F(SettingsTest, TheLastLineForAKeyHolds) {
  settings_.Set(1, 2, "before");
  EXPECT_EQ(Read("[1]\n2=a\n2=b\n"), test::Raised{});
  EXPECT_EQ(Setting(1, 2), "b");
}

TEST_F(SettingsTest, AnotherFileAddsToTheFirst) {
  Read("[1]\n2=a\n3=b\n");
  Read("[1]\n3=c\n");
  EXPECT_EQ(Setting(1, 2), "a");
  EXPECT_EQ(Setting(1, 3), "c");
}

TEST_F(SettingsTest, KeysAndSectionsReachTheLimitsOf32Bits) {
  EXPECT_EQ(Read("[-2147483648]\n2147483647=a\n"), test::Raised{});
  EXPECT_EQ(Setting(kLeast, kMost), "a");
  EXPECT_EQ(Read("[1]\n2147483648=a\n"), Refused(2, "2147483648=a", "key number = text"));
  EXPECT_EQ(Read("[-2147483649]\n"), Refused(1, "[-2147483649]", "[section number]"));
}

TEST_F(SettingsTest, RefusesALineThatIsNoSection) {
  for (const char* line : {"[", "[]", "[1", "[x]", "[1 2]", "[1]x", "[1.5]", "[]]"}) {
    EXPECT_EQ(Read(std::string("# first\n") + line + "\n"), Refused(2, line, "[section number]")) << line;
  }
}

TEST_F(SettingsTest, RefusesALineThatIsNoSetting) {
  for (const char* line : {"6051", "6051 7", "=7", "x=7", "60 51=7", "1.5=7", "text"}) {
    EXPECT_EQ(Read(std::string("[1]\n\n ") + line + " \n"), Refused(3, line, "key number = text")) << line;
  }
}

TEST_F(SettingsTest, RefusesASettingBeforeTheFirstSection) {
  EXPECT_EQ(Read("\n2=a\n[1]\n"), Refused(2, "2=a", "a line [section number] first"));
}

TEST_F(SettingsTest, ARefusedFileLeavesTheSettingsAsTheyWere) {
  settings_.Set(1, 2, "before");
  EXPECT_EQ(Read("[1]\n2=after\n3=after\nbad\n"), Refused(4, "bad", "key number = text"));
  EXPECT_EQ(Setting(1, 2), "before");
  EXPECT_EQ(Setting(1, 3), "fall-back");
}

TEST_F(SettingsTest, AnEmptyFileIsAFile) { EXPECT_EQ(Read(""), test::Raised{}); }

TEST_F(SettingsTest, RaisesWhenTheFileCannotBeRead) {
  const std::string path = project_.Folder() + "/none.txt";
  EXPECT_RAISES(76, "settings file " + path + " cannot be read", settings_.ReadFile(path));
}

TEST_F(SettingsTest, AFolderIsNoFile) {
  EXPECT_RAISES(76, "settings file " + project_.Folder() + " cannot be read",
                settings_.ReadFile(project_.Folder()));
}

TEST(LayeredSettingsPlaces, TellSectionsThatDifferInTheHighestBitApart) {
  LayeredSettings settings(std::make_shared<HeldProjectDatabase>());
  settings.Set(-2147483647 - 1, 1, "a");
  EXPECT_EQ(settings.GetSetting(0, 1, "f"), "f");
  EXPECT_EQ(settings.GetSetting(-2147483647 - 1, 1, "f"), "a");
}

}  // namespace
}  // namespace quenzel7::corvane1
