#include "hosts/cli/project_session.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "hosts/cli/text_file.h"
#include "platform/automation/automation_error.h"
#include "platform/platform.h"
#include "tests/hosts/cli/messages.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli {
namespace {

using quenzel7::test::TemporaryFolder;

TEST(ProjectSession, TheServicesWorkWithTheProjectWhileItLives) {
  const TemporaryFolder folder;
  const auto valuesBefore = Platform::Current().globalValues;
  ado::ConnectionRef held;
  {
    ProjectSession session(folder.File("p.qz7"), corvane1::ProjectMode::Create);
    held = Platform::Current().heldProject->Held();
    EXPECT_EQ(held.get(), &session.Connection());
    session.OpenPage(12);
    EXPECT_EQ(Platform::Current().globalValues->Value(25), 12);
  }
  EXPECT_EQ(Platform::Current().heldProject->Held(), nullptr);
  EXPECT_EQ(Platform::Current().globalValues, valuesBefore);
  EXPECT_THROW(held->Execute("SELECT * FROM Settings"), automation::AutomationError);
}

TEST(ProjectSession, TheProjectThatWasHeldBeforeComesBack) {
  const TemporaryFolder folder;
  ProjectSession outer(folder.File("a.qz7"), corvane1::ProjectMode::Create);
  { ProjectSession inner(folder.File("b.qz7"), corvane1::ProjectMode::Create); }
  EXPECT_EQ(Platform::Current().heldProject->Held().get(), &outer.Connection());
}

TEST(ProjectSession, ErrorsNameTheProject) {
  const TemporaryFolder folder;
  const ProjectSession session(folder.File("a.qz7"), corvane1::ProjectMode::Create, "a.qz7");
  EXPECT_EQ(session.Place(), "project a.qz7");
  using automation::AutomationError;
  EXPECT_EQ(test::MessageOf([&] {
              session.Do([] { throw AutomationError(automation::ErrorNumber::Database, "disk is full"); });
            }),
            "project a.qz7: disk is full");
  EXPECT_EQ(test::MessageOf([&] { session.Do([] { throw UserError("page file x: wrong"); }); }),
            "page file x: wrong");
  EXPECT_EQ(session.Do([] { return 5; }), 5);
}

TEST(ProjectSession, ARemovedProjectLeavesNothing) {
  const TemporaryFolder folder;
  for (const char* ending : {"", "-wal", "-shm", "-journal", ".txt"}) {
    WriteTextFile(folder.File(std::string("p.qz7") + ending), "x", "file");
  }
  EXPECT_FALSE(RemoveProject(folder.File("p.qz7")));
  EXPECT_FALSE(RemoveProject(folder.File("p.qz7")));
  std::vector<std::string> left;
  for (const auto& entry : std::filesystem::directory_iterator(folder.File("")))
    left.push_back(entry.path().filename());
  EXPECT_EQ(left, std::vector<std::string>{"p.qz7.txt"});
}

TEST(ProjectSession, WhatCannotBeRemovedIsTold) {
  const TemporaryFolder folder;
  std::filesystem::create_directories(folder.File("p.qz7/x"));
  EXPECT_EQ(RemoveProject(folder.File("p.qz7")), std::errc::directory_not_empty);
}

TEST(ProjectSession, AFileThatIsNoProjectIsRefusedUnderItsName) {
  const TemporaryFolder folder;
  WriteTextFile(folder.File("notes.txt"), "These are notes.", "file");
  EXPECT_EQ(test::MessageOf(
                [&] { ProjectSession(folder.File("notes.txt"), corvane1::ProjectMode::Open, "other.txt"); }),
            "project file \"other.txt\": is not a project: it does not begin as a database file does");
  EXPECT_EQ(Platform::Current().heldProject->Held(), nullptr);
}

}  // namespace
}  // namespace quenzel7::cli
