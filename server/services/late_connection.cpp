#include "server/services/late_connection.h"

#include "server/services/late_recordset.h"

namespace quenzel7::server {

using automation::ObjectRef;

ado::RecordsetRef LateConnection::Execute(const std::string& statement) {
  if (const ObjectRef rows = host_.Call<ObjectRef>("Execute", {statement})) return RecordsetOf(rows);
  return std::make_shared<LateRecordset>(nullptr);
}

ado::RecordsetRef LateConnection::CreateRecordset() {
  const ObjectRef made = host_.Call<ObjectRef>("CreateRecordset");
  static_cast<void>(automation::Required(made));
  return RecordsetOf(made);
}

ado::ConnectionRef ConnectionOf(const ObjectRef& object) {
  if (!object) return nullptr;
  if (auto connection = std::dynamic_pointer_cast<ado::Connection>(object)) return connection;
  return std::make_shared<LateConnection>(object);
}

}  // namespace quenzel7::server
