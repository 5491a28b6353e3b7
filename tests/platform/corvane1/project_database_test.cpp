#include "platform/corvane1/project_database.h"

#include <gtest/gtest.h>

#include "tests/platform/corvane1/temporary_project.h"
#include "tests/support/raises.h"

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

}  // namespace
}  // namespace quenzel7::corvane1
