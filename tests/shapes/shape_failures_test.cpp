/// Databases that fail under an element: a file that is read-only, a lock that another holds, a disk that
/// becomes full at each write in turn. Every time an error with the engine's message, nothing left open, and
/// a project that opens again.
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/ado/sqlite_connection.h"
#include "platform/automation/automation_error.h"
#include "platform/corvane1/project_file.h"
#include "platform/platform.h"
#include "shapes/button.h"
#include "shapes/text.h"
#include "tests/platform/ado/failing_vfs.h"
#include "tests/support/shape_fixture.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7 {
namespace {

using automation::AutomationError;
using corvane1::ProjectMode;

template <class Shape>
class FailingProject : public ::testing::Test {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    const auto project = Open(ProjectMode::Create);
    kept_ = MakeShape();
    kept_->SaveToDB();
    kept_->RestoreAllOperands();
    Close(project);
  }
  void TearDown() override { Platform::Current() = Platform(); }

  ado::ConnectionRef Open(ProjectMode mode, const ado::OpenOptions& options = {}) {
    auto project = corvane1::OpenProject(Path(), mode, options);
    Platform::Current().heldProject->Hold(project);
    return project;
  }
  static void Close(const ado::ConnectionRef& project) {
    Platform::Current().heldProject->Hold(nullptr);
    project->Close();
  }

  static std::shared_ptr<Shape> MakeShape() {
    auto shape = std::make_shared<Shape>();
    shape->Dx(10);
    shape->Dy(10);
    shape->TouchOprndAddr(4);
    shape->VisibleOpAddr(5);
    if (Platform::Current().heldProject->Held()) shape->ColOpPropBag(shape->BuildOpPropBag());
    return shape;
  }

  /// The message of the database error that the action raises; empty when it raises none.
  template <class Action>
  static std::string DatabaseErrorOf(Action action) {
    try {
      action();
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.Code(), automation::ErrorNumber::Database) << error.Description();
      return error.Description();
    }
    return {};
  }

  static Long Count(ado::Connection& project, const std::string& table) {
    return automation::To<Long>(project.Execute("SELECT COUNT(*) AS N FROM " + table)->Get("N"));
  }

  /// Elements and operand rows of the project as it is on disk, which opens and is whole.
  std::string State() {
    const auto project = corvane1::OpenProject(Path(), ProjectMode::ReadOnly);
    const std::string state = std::to_string(Count(*project, "HMI_Elements")) + " elements, " +
                              std::to_string(Count(*project, "HMI_Operands")) + " rows";
    project->Close();
    return state;
  }

  std::string Path() const { return folder_.File("project.qz7"); }

  const test::TemporaryFolder folder_;
  std::shared_ptr<Shape> kept_;
};
using ShapeTypes = ::testing::Types<clsRectangle, clsEllipse, clsRoundRect, clsLine, clsText, clsButton>;
TYPED_TEST_SUITE(FailingProject, ShapeTypes, test::ClassNameOfShape);

TYPED_TEST(FailingProject, AReadOnlyProjectLoadsAndRefusesEveryChange) {
  const auto project = this->Open(ProjectMode::ReadOnly);
  const auto row = project->Execute("SELECT * FROM HMI_Elements");
  TypeParam loaded;
  loaded.LoadFromDB(*row);
  EXPECT_EQ(loaded.ID(), 1);
  row->Close();
  const std::string readOnly = "attempt to write a readonly database";
  EXPECT_NE(this->DatabaseErrorOf([&] { loaded.SaveToDB(); }).find(readOnly), std::string::npos);
  EXPECT_NE(this->DatabaseErrorOf([&] { TypeParam().SaveToDB(); }).find(readOnly), std::string::npos);
  EXPECT_NE(this->DatabaseErrorOf([&] { loaded.DeleteFromDB(); }).find(readOnly), std::string::npos);
  EXPECT_NE(this->DatabaseErrorOf([&] { loaded.RestoreAllOperands(); }).find(readOnly), std::string::npos);
  EXPECT_NE(this->DatabaseErrorOf([&] { loaded.IsTouchable(false); }).find(readOnly), std::string::npos);
  EXPECT_NE(
      this->DatabaseErrorOf([&] { static_cast<ItfHmiElement&>(loaded).VisibleOpAddr(-1); }).find(readOnly),
      std::string::npos);
  // The row goes first, so a failure leaves the field.
  EXPECT_TRUE(loaded.IsTouchable());
  EXPECT_EQ(loaded.VisibleOpAddr(), 5);
  this->Close(project);
  EXPECT_EQ(this->State(), "1 elements, 2 rows");
}

TYPED_TEST(FailingProject, ALockedProjectRefusesChangesUntilTheLockGoes) {
  const auto other = corvane1::OpenProject(this->Path(), ProjectMode::Open);
  const auto project = this->Open(ProjectMode::Open, {.busyTimeout = 0});
  other->BeginTrans();
  other->Execute("INSERT INTO DownloadDLUs (GUID) VALUES (1)");
  EXPECT_NE(this->DatabaseErrorOf([&] { this->kept_->SaveToDB(); }).find("database is locked"),
            std::string::npos);
  EXPECT_NE(this->DatabaseErrorOf([&] { this->kept_->DeleteFromDB(); }).find("database is locked"),
            std::string::npos);
  other->RollbackTrans();
  this->kept_->SaveToDB();
  other->Close();
  this->Close(project);
  EXPECT_EQ(this->State(), "1 elements, 2 rows");
}

TYPED_TEST(FailingProject, AChangeTrackerHearsNothingOfASaveThatFailed) {
  const auto changes = std::make_shared<corvane1::CollectedChanges>();
  Platform::Current().changeTracker = changes;
  const auto project = this->Open(ProjectMode::ReadOnly);
  this->DatabaseErrorOf([&] { this->kept_->SaveToDB(); });
  this->DatabaseErrorOf([&] { this->kept_->DeleteFromDB(); });
  EXPECT_TRUE(changes->ChangedElements().empty());
  EXPECT_TRUE(changes->ChangedPages().empty());
  this->Close(project);
}

TYPED_TEST(FailingProject, WhatWasDoneBeforeAFailureStays) {
  const auto changes = std::make_shared<corvane1::CollectedChanges>();
  Platform::Current().changeTracker = changes;
  const auto project = this->Open(ProjectMode::Open);
  // The third statement that changes something in a deletion fails, the rows of the operands.
  project->Execute(
      "CREATE TRIGGER Refuse BEFORE DELETE ON HMI_Operands BEGIN SELECT RAISE(ABORT, 'the rows stay'); END");
  EXPECT_NE(this->DatabaseErrorOf([&] { this->kept_->DeleteFromDB(); }).find("the rows stay"),
            std::string::npos);
  EXPECT_TRUE(changes->ChangedPages().empty());
  project->Execute("DROP TRIGGER Refuse");
  this->Close(project);
  EXPECT_EQ(this->State(), "0 elements, 2 rows");
}

/// Saving, restoring and deleting with no transaction around: what was written before the failing write
/// stays.
TYPED_TEST(FailingProject, ADiskThatFillsUpAtEachWriteInTurnLeavesAWholeProject) {
  ado::FailingVfs disk;
  bool failedOnce = false;
  for (int write = 1; write < 2000; ++write) {
    const test::TemporaryFolder folder;
    const std::string path = folder.File("copy.qz7");
    std::filesystem::copy_file(this->Path(), path);
    bool failed = false;
    {
      const auto project = corvane1::OpenProject(path, ProjectMode::Open, {.fileSystem = disk.Name()});
      Platform::Current().heldProject->Hold(project);
      disk.FailAt(write);
      const auto added = this->MakeShape();
      const std::string message = this->DatabaseErrorOf([&] {
        added->SaveToDB();
        added->RestoreAllOperands();
        this->kept_->DeleteFromDB();
        // The writes of closing the file belong to the loop too.
        project->Execute("PRAGMA wal_checkpoint(TRUNCATE)");
      });
      failed = disk.Failures() > 0;
      if (!message.empty()) {
        EXPECT_NE(message.find("full"), std::string::npos) << message;
        failedOnce = true;
      }
      disk.Heal();
      // The object can still be used: what failed is made good.
      if (added->ID() == -1) {
        EXPECT_EQ(this->DatabaseErrorOf([&] { added->SaveToDB(); }), "");
      }
      Platform::Current().heldProject->Hold(nullptr);
      project->Close();
    }
    EXPECT_EQ(disk.OpenFiles(), 0);
    const auto again = corvane1::OpenProject(path, ProjectMode::Open);
    const Long elements = this->Count(*again, "HMI_Elements");
    EXPECT_GE(elements, 1);
    EXPECT_LE(elements, 2);
    again->Close();
    if (!failed) {
      EXPECT_TRUE(failedOnce);
      return;
    }
  }
  FAIL() << "some write failed every time";
}

}  // namespace
}  // namespace quenzel7
