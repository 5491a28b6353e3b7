#include "server/adapted_argument.h"

#include "platform/ado/connection.h"
#include "platform/ado/recordset.h"
#include "platform/automation/array.h"
#include "server/foreign_object.h"
#include "server/services/late_connection.h"
#include "server/services/late_recordset.h"

namespace quenzel7::server {
namespace {

using automation::ObjectRef;
using automation::Variant;

/// What stands for an object of the host where one of a class is wanted.
struct Adapter {
  std::string_view className;
  Variant (*adapt)(const ObjectRef& object);
};

constexpr Adapter kAdapters[] = {
    {ado::Connection::kClassName, [](const ObjectRef& object) { return Variant(ConnectionOf(object)); }},
    {ado::Recordset::kClassName, [](const ObjectRef& object) { return Variant(RecordsetOf(object)); }},
};

}  // namespace

Variant AdaptedArgument(const automation::Parameter& parameter, const Variant& argument) {
  const automation::TypeInfo& type = parameter.type;
  if (parameter.byReference && type.kind == automation::VariantKind::Array && argument.IsEmpty()) {
    return automation::Array::OfSize(type.cells, 0);
  }
  if (!argument.IsObject() || !argument.Object() || !ForeignObject::Of(*argument.Object())) return argument;
  for (const Adapter& adapter : kAdapters) {
    if (adapter.className == type.name) return adapter.adapt(argument.Object());
  }
  return argument;
}

}  // namespace quenzel7::server
