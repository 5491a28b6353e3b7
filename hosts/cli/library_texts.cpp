#include "hosts/cli/library_texts.h"

#include "framework/language_strings.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/quiet_boxes.h"
#include "hosts/cli/table_column.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/variable_settings.h"
#include "platform/automation/call_by_name.h"
#include "platform/platform.h"
#include "shapes/element_columns.h"

namespace quenzel7::cli {
namespace {

Long NumberOf(ItfHmiElement& element, std::string_view property) {
  return automation::To<Long>(automation::GetByName(element, property));
}

void PutText(ItfHmiElement& element, const std::string& text) { automation::PutByName(element, "Txt", text); }

void PutFont(ItfHmiElement& element, Long font) { automation::PutByName(element, "FontNumber", font); }

}  // namespace

corvane1::ProjectStringLibrary OpenedLibrary() {
  corvane1::ProjectStringLibrary library;
  library.Open(Platform::Current().heldProject->OpenConnection(), -1);
  return library;
}

bool BearsText(const ItfHmiElement& element) {
  return element.Class().Default().Find("ActualText") != nullptr;
}

std::string CaptionOf(ItfHmiElement& element) {
  if (!BearsText(element) && !IsVariable(element)) return {};
  return Quoted(automation::To<std::string>(Read(element, "Txt")));
}

bool ShowsLibraryString(ItfHmiElement& element) {
  return BearsText(element) && NumberOf(element, "StorageStringType") == 0 &&
         NumberOf(element, "StorageStringID") != kNone;
}

void TakeRowsText(ItfHmiElement& element, const ado::Recordset& row) {
  if (!ShowsLibraryString(element)) return;
  // Loading has shown the boxes of this element.
  const QuietBoxes quiet;
  PutText(element, ReadColumn<std::string>(row, "HMI_Elements", "Text"));
  PutFont(element, ReadColumn<Long>(row, "HMI_Elements", "FontNumber"));
}

void TakeLibrarysText(ItfHmiElement& element) {
  if (!ShowsLibraryString(element)) return;
  Long font = kNone;
  const std::string text = WidestLanguageString(NumberOf(element, "StorageStringID"), font);
  PutText(element, text);
  if (font != kNone) PutFont(element, font);
}

}  // namespace quenzel7::cli
