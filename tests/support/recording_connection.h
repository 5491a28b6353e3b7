#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/ado/connection.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"
#include "platform/corvane1/project_database.h"

namespace quenzel7::test {

/// What was asked of a connection, in order:
///   "execute SQL", "open SQL [cursor,lock,option]", "AddNew", "put Column=value", "get Column", "Update",
///   "Delete", "Close", "MoveFirst", "Move rows". Going on row by row is not noted.
using CallLog = std::vector<std::string>;

inline std::string Shown(const automation::Variant& value) {
  if (value.IsEmpty()) return "Empty";
  if (value.IsNull()) return "Null";
  if (value.IsArray()) return "Array";
  // The kind tells the width in which a column is written.
  return automation::To<std::string>(value) + ":" + automation::KindName(value.Kind());
}

/// The log, and whether noting a call raises a database error instead of making it.
class CallNotes {
 public:
  void Add(std::string call) {
    log_.push_back(std::move(call));
    if (failIn_ > 0 && --failIn_ == 0) {
      throw automation::AutomationError(automation::ErrorNumber::Database, "failed at " + log_.back());
    }
  }
  CallLog Take() { return std::exchange(log_, {}); }
  void FailAt(int call) { failIn_ = call; }

 private:
  CallLog log_;
  int failIn_ = 0;
};

class RecordingRecordset final : public ado::Recordset {
 public:
  RecordingRecordset(ado::RecordsetRef inner, ado::ConnectionRef connection, std::shared_ptr<CallNotes> log)
      : inner_(std::move(inner)), connection_(std::move(connection)), log_(std::move(log)) {}

  void Open(const std::string& source, ado::Connection&, ado::CursorType cursor, ado::LockType lock,
            ado::CommandOption options) override {
    log_->Add("open " + source + " [" + std::to_string(cursor) + "," + std::to_string(lock) + "," +
              std::to_string(options) + "]");
    inner_->Open(source, *connection_, cursor, lock, options);
  }
  void Close() override {
    log_->Add("Close");
    inner_->Close();
  }
  void AddNew() override {
    log_->Add("AddNew");
    inner_->AddNew();
  }
  void Update() override {
    log_->Add("Update");
    inner_->Update();
  }
  void Delete() override {
    log_->Add("Delete");
    inner_->Delete();
  }
  bool Eof() const override { return inner_->Eof(); }
  bool Bof() const override { return inner_->Bof(); }
  void MoveFirst() override {
    log_->Add("MoveFirst");
    inner_->MoveFirst();
  }
  void MoveNext() override { inner_->MoveNext(); }
  void Move(Long rows) override {
    log_->Add("Move " + std::to_string(rows));
    inner_->Move(rows);
  }
  Long RecordCount() const override { return inner_->RecordCount(); }
  Long FieldCount() const override { return inner_->FieldCount(); }
  automation::Variant Get(std::string_view column) const override {
    log_->Add("get " + std::string(column));
    return inner_->Get(column);
  }
  void Put(std::string_view column, const automation::Variant& value) override {
    log_->Add("put " + std::string(column) + "=" + Shown(value));
    inner_->Put(column, value);
  }

 private:
  ado::RecordsetRef inner_;
  ado::ConnectionRef connection_;
  std::shared_ptr<CallNotes> log_;
};

/// A connection that notes what is asked of it and passes it on to another.
class RecordingConnection final : public ado::Connection {
 public:
  explicit RecordingConnection(ado::ConnectionRef inner) : inner_(std::move(inner)) {}

  ado::RecordsetRef Execute(const std::string& statement) override {
    log_->Add("execute " + statement);
    return std::make_shared<RecordingRecordset>(inner_->Execute(statement), inner_, log_);
  }
  ado::RecordsetRef CreateRecordset() override {
    return std::make_shared<RecordingRecordset>(inner_->CreateRecordset(), inner_, log_);
  }
  void BeginTrans() override {
    Note("BeginTrans");
    inner_->BeginTrans();
  }
  void CommitTrans() override {
    Note("CommitTrans");
    inner_->CommitTrans();
  }
  void RollbackTrans() override {
    Note("RollbackTrans");
    inner_->RollbackTrans();
  }
  std::string FilePath() const override { return inner_->FilePath(); }
  void Close() override { inner_->Close(); }

  /// Adds to the log what happened elsewhere.
  void Note(std::string call) { log_->Add(std::move(call)); }
  /// Gives the log so far and begins a new one.
  CallLog Take() { return log_->Take(); }
  /// Lets the call of that number from now on, 1 for the next one, fail with a database error that names it;
  /// 0 for none.
  void FailAt(int call) { log_->FailAt(call); }

 private:
  ado::ConnectionRef inner_;
  std::shared_ptr<CallNotes> log_ = std::make_shared<CallNotes>();
};

}  // namespace quenzel7::test
