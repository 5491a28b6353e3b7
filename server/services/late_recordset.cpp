#include "server/services/late_recordset.h"

#include "platform/ado/connection.h"

namespace quenzel7::server {

using automation::ObjectRef;
using automation::Variant;

LateRecordset::LateRecordset(ObjectRef host) {
  if (host) host_.emplace(std::move(host));
}

const ObjectRef& LateRecordset::HostObject() const {
  static const ObjectRef kNone;
  return host_ ? host_->Ref() : kNone;
}

const LateObject& LateRecordset::Host() const {
  if (!host_) {
    throw automation::AutomationError(automation::ErrorNumber::ObjectIsClosed,
                                      "the recordset is closed: the statement gave no rows");
  }
  return *host_;
}

LateObject LateRecordset::FieldOf(std::string_view column) const {
  return LateObject(Host().Call<ObjectRef>("Fields", {column}));
}

void LateRecordset::Open(const std::string& source, ado::Connection& connection, ado::CursorType cursor,
                         ado::LockType lock, ado::CommandOption options) {
  Host().Call("Open", {source, HostObjectOf(connection.weak_from_this().lock()), Long{cursor}, Long{lock},
                       Long{options}});
}

void LateRecordset::Close() {
  if (host_) host_->Call("Close");
}

Variant LateRecordset::Get(std::string_view column) const { return FieldOf(column).Get("Value"); }

void LateRecordset::Put(std::string_view column, const Variant& value) {
  FieldOf(column).Put("Value", value);
}

ado::RecordsetRef RecordsetOf(const ObjectRef& object) {
  if (!object) return nullptr;
  if (auto recordset = std::dynamic_pointer_cast<ado::Recordset>(object)) return recordset;
  return std::make_shared<LateRecordset>(object);
}

}  // namespace quenzel7::server
