#include "platform/corvane1/project_database.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/platform/corvane1/temporary_project.h"
#include "tests/support/empty_connection.h"
#include "tests/support/raises.h"
#include "tests/support/working_folder.h"

namespace quenzel7::corvane1 {
namespace {

TEST(ProjectDatabase, RaisesWhenNoProjectIsOpen) {
  HeldProjectDatabase database;
  EXPECT_EQ(database.Held(), nullptr);
  EXPECT_RAISES(91, "no project is open", database.OpenConnection());
}

TEST(ProjectDatabase, GivesTheConnectionThatItWasGivenLast) {
  const TemporaryProject project;
  const ado::ConnectionRef first = project.Open("first.qz7");
  const ado::ConnectionRef second = project.Open("second.qz7");
  HeldProjectDatabase database;
  database.Hold(first);
  EXPECT_EQ(database.OpenConnection(), first);
  EXPECT_EQ(database.Held(), first);
  database.Hold(second);
  EXPECT_EQ(database.OpenConnection(), second);
  EXPECT_EQ(database.Held(), second);
}

TEST(ProjectDatabase, RaisesAgainWhenTheProjectWasClosed) {
  const TemporaryProject project;
  HeldProjectDatabase database;
  database.Hold(project.Open());
  database.Hold(nullptr);
  EXPECT_EQ(database.Held(), nullptr);
  EXPECT_RAISES(91, "no project is open", database.OpenConnection());
}

TEST(ProjectDatabase, LetsGoOfAConnectionThatItHoldsNoLonger) {
  const TemporaryProject project;
  HeldProjectDatabase database;
  database.Hold(project.Open());
  const std::weak_ptr<ado::Connection> watched = database.Held();
  EXPECT_FALSE(watched.expired());
  database.Hold(nullptr);
  EXPECT_TRUE(watched.expired());
}

TEST(ProjectDatabase, TellsTheFolderOfTheProject) {
  const TemporaryProject project;
  HeldProjectDatabase database;
  database.Hold(project.Open());
  EXPECT_EQ(database.Path(), project.Folder());
  const test::TemporaryFolder other;
  database.Hold(OpenProject(other.File("plant.qz7"), ProjectMode::Create));
  EXPECT_EQ(database.Path(), other.Path());
  database.Held()->Close();
  EXPECT_EQ(database.Path(), other.Path());
}

TEST(ProjectDatabase, TellsTheFolderOfAProjectThatWasOpenedFromTheCurrentOne) {
  const test::TemporaryFolder folder;
  std::filesystem::create_directory(folder.File("plant"));
  HeldProjectDatabase database;
  {
    const test::WorkingFolder there(folder.File("plant"));
    database.Hold(OpenProject("plant.qz7", ProjectMode::Create));
    EXPECT_EQ(database.Path(), folder.File("plant"));
    database.Hold(OpenProject("../plant/./plant.qz7", ProjectMode::Open));
    EXPECT_EQ(database.Path(), folder.File("plant"));
    database.Hold(OpenProject("../top.qz7", ProjectMode::Create));
  }
  EXPECT_EQ(database.Path(), folder.Path());
}

TEST(ProjectDatabase, HasNoFolderWithoutAFile) {
  HeldProjectDatabase database;
  database.Hold(std::make_shared<test::EmptyConnection>());
  EXPECT_EQ(database.Path(), "");
  EXPECT_RAISES(91, "no project is open", HeldProjectDatabase().Path());
}

}  // namespace
}  // namespace quenzel7::corvane1
