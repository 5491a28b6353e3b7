#pragma once

#include <string>

#include "platform/ado/connection.h"
#include "server/services/late_object.h"

namespace quenzel7::server {

/// A connection of a host's own: an object with `Execute(statement)`, which gives a recordset, or Nothing for
/// a statement without rows, `CreateRecordset`, `BeginTrans`, `CommitTrans`, `RollbackTrans`, `Close`, and a
/// property `FilePath` if the database is in a file. Recordsets are those of the library or objects as
/// LateRecordset wants them. Statements come in the Jet dialect of SQL. Errors as LateObject.
class LateConnection final : public ado::Connection, public HostBacked {
 public:
  explicit LateConnection(automation::ObjectRef host) : host_(std::move(host)) {}

  const automation::ObjectRef& HostObject() const override { return host_.Ref(); }

  /// A closed recordset where the host gives none.
  ado::RecordsetRef Execute(const std::string& statement) override;
  /// Error 91 where the host gives none.
  ado::RecordsetRef CreateRecordset() override;
  void BeginTrans() override { host_.Call("BeginTrans"); }
  void CommitTrans() override { host_.Call("CommitTrans"); }
  void RollbackTrans() override { host_.Call("RollbackTrans"); }
  void Close() override { host_.Call("Close"); }
  /// Empty when the host's object has no such property, or it is Empty or Null.
  std::string FilePath() const override { return host_.TextIfThere("FilePath").value_or(""); }

 private:
  const LateObject host_;
};

/// An object of a host as a connection: one of the library as it is, any other by its members. None stays
/// none.
ado::ConnectionRef ConnectionOf(const automation::ObjectRef& object);

}  // namespace quenzel7::server
