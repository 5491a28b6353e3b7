#include "platform/corvane1/project_database.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "platform/automation/automation_error.h"
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

/// A database that opens and closes by itself; without a connection it raises.
class OtherDatabase final : public ProjectDatabase {
 public:
  ado::ConnectionRef connection;
  automation::ErrorNumber raised = automation::ErrorNumber::ObjectNotSet;
  /// Runs before it answers.
  std::function<void()> during;

  ado::ConnectionRef OpenConnection() override {
    if (during) during();
    if (!connection) throw automation::AutomationError(raised, "nothing here");
    return connection;
  }
  std::string Path() override {
    if (during) during();
    return path;
  }

  std::string path = "/elsewhere";
};

TEST(ProjectDatabase, FollowsAnotherOneUntilItIsTold) {
  const TemporaryProject project;
  HeldProjectDatabase database;
  database.Hold(project.Open());
  const auto other = std::make_shared<OtherDatabase>();
  database.Follow(other);
  for (int round = 0; round < 2; ++round) {
    other->connection = std::make_shared<test::EmptyConnection>();
    EXPECT_EQ(database.OpenConnection(), other->connection);
    EXPECT_EQ(database.ConnectionIfOpen(), other->connection);
  }
  EXPECT_EQ(database.Path(), "/elsewhere");
  database.Follow(nullptr);
  EXPECT_EQ(database.OpenConnection(), database.Held());
  EXPECT_EQ(database.Path(), project.Folder());
}

TEST(ProjectDatabase, KeepsWhatItHoldsWhileItFollows) {
  HeldProjectDatabase database;
  database.Follow(std::make_shared<OtherDatabase>());
  const auto held = std::make_shared<test::EmptyConnection>();
  database.Hold(held);
  EXPECT_EQ(database.Held(), held);
  EXPECT_RAISES(91, "nothing here", database.OpenConnection());
  database.Follow(nullptr);
  EXPECT_EQ(database.OpenConnection(), held);
}

TEST(ProjectDatabase, GivesTheConnectionIfAProjectIsOpen) {
  HeldProjectDatabase database;
  EXPECT_EQ(database.ConnectionIfOpen(), nullptr);
  const auto held = std::make_shared<test::EmptyConnection>();
  database.Hold(held);
  EXPECT_EQ(database.ConnectionIfOpen(), held);
  const auto other = std::make_shared<OtherDatabase>();
  database.Follow(other);
  EXPECT_EQ(database.ConnectionIfOpen(), nullptr);
  other->raised = automation::ErrorNumber::Database;
  EXPECT_RAISES(-2147467259, "nothing here", database.ConnectionIfOpen());
}

TEST(ProjectDatabase, AFollowedOneLivesWhileItIsAsked) {
  HeldProjectDatabase database;
  std::weak_ptr<OtherDatabase> watched;
  bool lived = false;
  const auto follow = [&] {
    const auto other = std::make_shared<OtherDatabase>();
    other->connection = std::make_shared<test::EmptyConnection>();
    other->during = [&] {
      database.Follow(nullptr);
      lived = !watched.expired();
    };
    watched = other;
    database.Follow(other);
  };
  follow();
  EXPECT_NE(database.OpenConnection(), nullptr);
  EXPECT_TRUE(lived);
  EXPECT_TRUE(watched.expired());
  lived = false;
  follow();
  EXPECT_EQ(database.Path(), "/elsewhere");
  EXPECT_TRUE(lived);
}

}  // namespace
}  // namespace quenzel7::corvane1
