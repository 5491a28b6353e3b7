#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/ado/connection.h"
#include "platform/automation/convert.h"
#include "platform/corvane1/project_database.h"

namespace quenzel7::test {

/// What was asked of a connection, in order:
///   "execute SQL", "open SQL [cursor,lock,option]", "AddNew", "put Column=value", "get Column", "Update",
///   "Delete", "Close".
using CallLog = std::vector<std::string>;

inline std::string Shown(const automation::Variant& value) {
  if (value.IsEmpty()) return "Empty";
  if (value.IsNull()) return "Null";
  if (value.IsArray()) return "Array";
  // The kind tells the width in which a column is written.
  return automation::To<std::string>(value) + ":" + automation::KindName(value.Kind());
}

class RecordingRecordset final : public ado::Recordset {
 public:
  RecordingRecordset(ado::RecordsetRef inner, ado::ConnectionRef connection, std::shared_ptr<CallLog> log)
      : inner_(std::move(inner)), connection_(std::move(connection)), log_(std::move(log)) {}

  void Open(const std::string& source, ado::Connection&, ado::CursorType cursor, ado::LockType lock,
            ado::CommandOption options) override {
    log_->push_back("open " + source + " [" + std::to_string(cursor) + "," + std::to_string(lock) + "," +
                    std::to_string(options) + "]");
    inner_->Open(source, *connection_, cursor, lock, options);
  }
  void Close() override {
    log_->push_back("Close");
    inner_->Close();
  }
  void AddNew() override {
    log_->push_back("AddNew");
    inner_->AddNew();
  }
  void Update() override {
    log_->push_back("Update");
    inner_->Update();
  }
  void Delete() override {
    log_->push_back("Delete");
    inner_->Delete();
  }
  bool Eof() const override { return inner_->Eof(); }
  bool Bof() const override { return inner_->Bof(); }
  void MoveFirst() override { inner_->MoveFirst(); }
  void MoveNext() override { inner_->MoveNext(); }
  void Move(Long rows) override { inner_->Move(rows); }
  Long RecordCount() const override { return inner_->RecordCount(); }
  Long FieldCount() const override { return inner_->FieldCount(); }
  automation::Variant Get(std::string_view column) const override {
    log_->push_back("get " + std::string(column));
    return inner_->Get(column);
  }
  void Put(std::string_view column, const automation::Variant& value) override {
    log_->push_back("put " + std::string(column) + "=" + Shown(value));
    inner_->Put(column, value);
  }

 private:
  ado::RecordsetRef inner_;
  ado::ConnectionRef connection_;
  std::shared_ptr<CallLog> log_;
};

/// A connection that notes what is asked of it and passes it on to another.
class RecordingConnection final : public ado::Connection {
 public:
  explicit RecordingConnection(ado::ConnectionRef inner) : inner_(std::move(inner)) {}

  ado::RecordsetRef Execute(const std::string& statement) override {
    log_->push_back("execute " + statement);
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
  void Close() override { inner_->Close(); }

  /// Adds to the log what happened elsewhere.
  void Note(std::string call) { log_->push_back(std::move(call)); }
  /// Gives the log so far and begins a new one.
  CallLog Take() { return std::exchange(*log_, {}); }

 private:
  ado::ConnectionRef inner_;
  std::shared_ptr<CallLog> log_ = std::make_shared<CallLog>();
};

}  // namespace quenzel7::test
