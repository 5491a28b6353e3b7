#include "hosts/cli/row_loader.h"

#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_picture.h"
#include "hosts/cli/library_texts.h"
#include "hosts/cli/table_column.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/variable_settings.h"

namespace quenzel7::cli {

std::string RowPlace(std::optional<Long> page, const std::string& id,
                     const automation::ClassInfo* elementClass) {
  return (page ? "page " + std::to_string(*page) : "no page") + ", row " + id +
         (elementClass ? " (" + std::string(elementClass->name) + ")" : "");
}

const automation::ClassInfo* RowLoader::ClassOf(Long elementType) {
  if (const auto found = byType_.find(elementType); found != byType_.end()) return found->second;
  const automation::ClassInfo* const elementClass = classes_.OfType(elementType);
  byType_.emplace(elementType, elementClass);
  return elementClass;
}

std::string RowLoader::PlaceOf(std::optional<Long> page, const ado::Recordset& row) {
  const automation::ClassInfo* elementClass = nullptr;
  try {
    elementClass = ClassOf(automation::To<Long>(row.Get("Type")));
  } catch (const automation::AutomationError&) {
    // A row whose type cannot be told has no class that could be.
  }
  return RowPlace(page, automation::To<std::string>(row.Get("ID")), elementClass);
}

ElementRef RowLoader::Load(const ado::RecordsetRef& rows) {
  const Long type = ReadColumn<Long>(*rows, "HMI_Elements", "Type");
  const automation::ClassInfo* elementClass = ClassOf(type);
  if (!elementClass) throw UserError("there is no class of element type " + std::to_string(type));
  ElementRef element = ElementClasses::Create(*elementClass);
  try {
    Call(*element, "LoadFromDB", {rows});
  } catch (const automation::AutomationError&) {
    // What the row tells of a type or a state that is not there says more than what it raised.
    if (IsVariable(*element)) RequireTypeAndState(*element);
    throw;
  }
  // The row that elements without a picture share tells no size of theirs.
  if (IsWithoutPicture(*element)) TakeNoPicture(*element);
  properties_.Apply(*element);
  if (texts_ == TextsFrom::Rows) TakeRowsText(*element, *rows);
  return element;
}

}  // namespace quenzel7::cli
