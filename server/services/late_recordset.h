#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/ado/recordset.h"
#include "server/services/late_object.h"

namespace quenzel7::server {

/// A recordset of a host's own: an object with `Open(source, connection, cursor, lock, options)`, `Close`,
/// `AddNew`, `Update`, `Delete`, `MoveFirst`, `MoveNext`, `Move(rows)`, the properties `EOF`, `BOF`,
/// `RecordCount` and `FieldCount`, and `Fields(name)`, which gives an object whose `Value` is read and
/// written.
///
/// Errors as LateObject, 91 where `Fields` gives no object; 3704 for everything but `Close` when there is no
/// object at all, which is what a statement gives that the host had no rows for.
class LateRecordset final : public ado::Recordset, public HostBacked {
 public:
  /// Without an object it is closed for good.
  explicit LateRecordset(automation::ObjectRef host);

  const automation::ObjectRef& HostObject() const override;

  /// The host gets its own connection where the connection only stands for that; another connection of the
  /// library goes as it is.
  void Open(const std::string& source, ado::Connection& connection, ado::CursorType cursor,
            ado::LockType lock, ado::CommandOption options) override;
  void Close() override;
  void AddNew() override { Host().Call("AddNew"); }
  void Update() override { Host().Call("Update"); }
  void Delete() override { Host().Call("Delete"); }
  bool Eof() const override { return Host().Get<bool>("EOF"); }
  bool Bof() const override { return Host().Get<bool>("BOF"); }
  void MoveFirst() override { Host().Call("MoveFirst"); }
  void MoveNext() override { Host().Call("MoveNext"); }
  void Move(Long rows) override { Host().Call("Move", {rows}); }
  Long RecordCount() const override { return Host().Get<Long>("RecordCount"); }
  Long FieldCount() const override { return Host().Get<Long>("FieldCount"); }
  automation::Variant Get(std::string_view column) const override;
  void Put(std::string_view column, const automation::Variant& value) override;

 private:
  const LateObject& Host() const;
  LateObject FieldOf(std::string_view column) const;

  std::optional<LateObject> host_;
};

/// An object of a host as a recordset: one of the library as it is, any other by its members. None stays
/// none.
ado::RecordsetRef RecordsetOf(const automation::ObjectRef& object);

}  // namespace quenzel7::server
