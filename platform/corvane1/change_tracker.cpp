#include "platform/corvane1/change_tracker.h"

#include <string>
#include <utility>

#include "platform/automation/array.h"
#include "platform/corvane1/project_schema.h"

namespace quenzel7::corvane1 {
namespace {

using automation::Variant;
using automation::VariantKind;

std::size_t SizeOf(const Variant& value) {
  switch (value.Kind()) {
    case VariantKind::Empty:
    case VariantKind::Null:
      return 0;
    case VariantKind::String:
      return value.Text().size();
    case VariantKind::Array:
      return value.Elements().Size();
    case VariantKind::Byte:
      return sizeof(Byte);
    case VariantKind::Integer:
    case VariantKind::Boolean:
      return sizeof(Integer);
    case VariantKind::Long:
      return sizeof(Long);
    default:
      return sizeof(Double);
  }
}

}  // namespace

Long ElementRowSize(ado::Connection& project, Long elementId) {
  const auto row =
      ado::OpenRecordset(project, "SELECT * FROM HMI_Elements WHERE ID=" + std::to_string(elementId),
                         ado::adOpenStatic, ado::adLockReadOnly);
  Long size = 0;
  if (!row->Eof()) {
    for (const SchemaColumn& column : ProjectTables().front().columns) {
      size += static_cast<Long>(SizeOf(row->Get(column.name)));
    }
  }
  row->Close();
  return size;
}

CollectedChanges::CollectedChanges(std::shared_ptr<ProjectDatabase> projectDatabase)
    : projectDatabase_(projectDatabase ? std::move(projectDatabase)
                                       : std::make_shared<HeldProjectDatabase>()) {}

Long CollectedChanges::ElementSize(Long elementId) {
  return ElementRowSize(*projectDatabase_->OpenConnection(), elementId);
}

}  // namespace quenzel7::corvane1
