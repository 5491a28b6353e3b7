#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/ado/connection.h"
#include "platform/automation/class_info.h"
#include "platform/automation/convert.h"
#include "platform/corvane1/project_file.h"
#include "platform/platform.h"
#include "tests/support/recording_connection.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::test {

/// Passes on what it is told and notes it with what is asked of the connection, as "element 5" and "page 7".
class RecordingTracker final : public corvane1::ChangeTracker {
 public:
  RecordingTracker(std::shared_ptr<corvane1::ChangeTracker> inner,
                   std::shared_ptr<RecordingConnection> recorder)
      : inner_(std::move(inner)), recorder_(std::move(recorder)) {}
  void NotifyElementChanged(Long elementId) override {
    recorder_->Note("element " + std::to_string(elementId));
    inner_->NotifyElementChanged(elementId);
  }
  void NotifyPageChanged(Long pageId) override {
    recorder_->Note("page " + std::to_string(pageId));
    inner_->NotifyPageChanged(pageId);
  }
  Long ElementSize(Long elementId) override {
    recorder_->Note("size " + std::to_string(elementId));
    return inner_->ElementSize(elementId);
  }

 private:
  std::shared_ptr<corvane1::ChangeTracker> inner_;
  std::shared_ptr<RecordingConnection> recorder_;
};

/// Passes on what it is told and notes it in the same log: "saved 5", "keypad 5 True", "global keypad 6
/// False", "deleted 5", "global gone clsVar", "global gone without an element", "project size 5".
class RecordingProject final : public corvane1::ProjectService {
 public:
  RecordingProject(std::shared_ptr<corvane1::ProjectService> inner,
                   std::shared_ptr<RecordingConnection> recorder)
      : inner_(std::move(inner)), recorder_(std::move(recorder)) {}
  void NotifyElementSaved(Long elementId) override {
    recorder_->Note("saved " + std::to_string(elementId));
    inner_->NotifyElementSaved(elementId);
  }
  void NotifyVarKeypad(Long elementId, bool keypadEntry) override {
    recorder_->Note("keypad " + std::to_string(elementId) + (keypadEntry ? " True" : " False"));
    inner_->NotifyVarKeypad(elementId, keypadEntry);
  }
  void NotifyGlobalVarKeypad(Long globalVarId, bool keypadEntry) override {
    recorder_->Note("global keypad " + std::to_string(globalVarId) + (keypadEntry ? " True" : " False"));
    inner_->NotifyGlobalVarKeypad(globalVarId, keypadEntry);
  }
  void NotifyElementDeleted(Integer elementId) override {
    recorder_->Note("deleted " + std::to_string(elementId));
    inner_->NotifyElementDeleted(elementId);
  }
  void NotifyGlobalElementDeleted(const automation::ObjectRef& element) override {
    recorder_->Note("global gone " + (element ? std::string(element->Class().name) : "without an element"));
    inner_->NotifyGlobalElementDeleted(element);
  }
  Long ElementSize(Long elementId) override {
    recorder_->Note("project size " + std::to_string(elementId));
    return inner_->ElementSize(elementId);
  }

 private:
  std::shared_ptr<corvane1::ProjectService> inner_;
  std::shared_ptr<RecordingConnection> recorder_;
};

/// The embedded services, fresh, over a new project file on disk with page 7 open. What elements ask of the
/// project's connection is noted.
class ProjectTest : public ::testing::Test {
 protected:
  static constexpr Long kPage = 7;

  void SetUp() override {
    Platform::Current() = Platform();
    OpenPage(kPage);
    OpenProjectFile();
  }

  void TearDown() override {
    CloseProject();
    Platform::Current() = Platform();
  }

  void OpenPage(Long page) {
    const auto values = std::make_shared<corvane1::HeldGlobalValues>();
    values->Set(corvane1::kOpenPageValue, page);
    Platform::Current().globalValues = values;
  }

  void OpenProjectFile() {
    connection_ = corvane1::OpenProject(Path(), corvane1::ProjectMode::Create);
    recorder_ = std::make_shared<RecordingConnection>(connection_);
    // Elements see the recorder; the services that stand on the project see the connection itself.
    Platform::Current().heldProject->Hold(connection_);
    const auto database = std::make_shared<corvane1::HeldProjectDatabase>();
    database->Hold(recorder_);
    Platform::Current().projectDatabase = database;
    changes_ = std::make_shared<corvane1::CollectedChanges>(Platform::Current().heldProject);
    Platform::Current().changeTracker = std::make_shared<RecordingTracker>(changes_, recorder_);
    events_ = std::dynamic_pointer_cast<corvane1::CollectedProjectEvents>(Platform().projectService);
    Platform::Current().projectService = std::make_shared<RecordingProject>(events_, recorder_);
  }

  void CloseProject() {
    Platform::Current().heldProject->Hold(nullptr);
    if (connection_) connection_->Close();
    connection_ = nullptr;
  }

  void Reopen() {
    CloseProject();
    OpenProjectFile();
  }

  std::string Path() const { return folder_.File("project.qz7"); }
  ado::Connection& Connection() { return *connection_; }
  CallLog TakeLog() { return recorder_->Take(); }
  RecordingConnection& Recorder() { return *recorder_; }
  corvane1::CollectedChanges& Changes() { return *changes_; }
  corvane1::CollectedProjectEvents& Events() { return *events_; }

  /// The rows of a query, a line each, columns parted by blanks.
  std::vector<std::string> Rows(const std::string& query, const std::vector<std::string>& columns) {
    std::vector<std::string> lines;
    const auto rows = ado::OpenRecordset(*connection_, query, ado::adOpenStatic, ado::adLockReadOnly);
    for (; !rows->Eof(); rows->MoveNext()) {
      std::string line;
      for (const std::string& column : columns) {
        const automation::Variant value = rows->Get(column);
        line += (line.empty() ? "" : " ") +
                (value.IsNull() ? std::string("Null") : automation::To<std::string>(value));
      }
      lines.push_back(line);
    }
    return lines;
  }
  /// A new element of the class from its row. Loading leaves the recordset open and on the same row.
  template <class Element>
  std::shared_ptr<Element> LoadedFrom(Long id) {
    const auto row = ado::OpenRecordset(*Platform::Current().projectDatabase->OpenConnection(),
                                        "SELECT * FROM HMI_Elements WHERE ID=" + std::to_string(id),
                                        ado::adOpenStatic, ado::adLockReadOnly);
    auto element = std::make_shared<Element>();
    EXPECT_FALSE(element->LoadFromDB(*row));
    EXPECT_EQ(automation::To<Long>(row->Get("ID")), id);
    return element;
  }

  /// All operand rows: element, type, address, network, purpose.
  std::vector<std::string> OperandRows() {
    return Rows("SELECT * FROM HMI_Operands ORDER BY OprndPurpose",
                {"ElementID", "OprndType", "OprndAddr", "OprndNetID", "OprndPurpose"});
  }

 private:
  TemporaryFolder folder_;
  ado::ConnectionRef connection_;
  std::shared_ptr<RecordingConnection> recorder_;
  std::shared_ptr<corvane1::CollectedChanges> changes_;
  std::shared_ptr<corvane1::CollectedProjectEvents> events_;
};

}  // namespace quenzel7::test
