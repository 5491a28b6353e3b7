#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/ado/connection.h"

namespace quenzel7::test {

/// A recordset of the host's own that has no row, and counts what is asked of its columns all the same.
class EmptyRecordset : public ado::Recordset {
 public:
  void Open(const std::string&, ado::Connection&, ado::CursorType, ado::LockType,
            ado::CommandOption) override {}
  void Close() override {}
  void AddNew() override {}
  void Update() override {}
  void Delete() override {}
  bool Eof() const override { return true; }
  bool Bof() const override { return true; }
  void MoveFirst() override {}
  void MoveNext() override {}
  void Move(Long) override {}
  Long RecordCount() const override { return 0; }
  Long FieldCount() const override { return 0; }
  automation::Variant Get(std::string_view) const override {
    ++asked_;
    return Long{40};
  }
  void Put(std::string_view, const automation::Variant&) override { ++asked_; }

  /// How many columns were read or written.
  int Asked() const { return asked_; }

 private:
  mutable int asked_ = 0;
};

/// A database of the host's own whose every recordset is empty.
class EmptyConnection : public ado::Connection {
 public:
  ado::RecordsetRef Execute(const std::string&) override { return std::make_shared<EmptyRecordset>(); }
  ado::RecordsetRef CreateRecordset() override { return std::make_shared<EmptyRecordset>(); }
  void BeginTrans() override {}
  void CommitTrans() override {}
  void RollbackTrans() override {}
  void Close() override {}
};

}  // namespace quenzel7::test
