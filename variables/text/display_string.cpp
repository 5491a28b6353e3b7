#include "variables/text/display_string.h"

#include "shapes/element_setting.h"
#include "variables/variable_report.h"

namespace quenzel7 {

// clang-format off
struct clsVarDisplayString::KeyList {
  using String = clsVarDisplayString;

  static constexpr auto kTable = MakeNamedTable(
      PartKey<String, &String::Drawing, DrawingKeys::kTxt>("DrawingText_txt"),
      PartKey<String, &String::Drawing, DrawingKeys::kFontNumber>("DrawingText_FontNumber"),
      PartKey<String, &String::Drawing, DrawingKeys::kColorFore>("DrawingText_ColorFore"),
      // A replica takes it over, though data do not keep it.
      PartKey<String, &String::Drawing, DrawingKeys::kColorBack>("DrawingText_ColorBack").For(kReplicated),
      OperandTypeKey<String, &String::startVector_>("StartVectorOpType"),
      OperandAddressKey<String, &String::startVector_>("StartVectorOpAddress"),
      FieldKey<String, &String::stringPattern_>("StringPattern"),
      FieldKey<String, &String::vectorLength_>("VectorLength"),
      FieldKey<String, &String::keyboardsLanguage_>("KeyboardsLanguage"),
      FieldKey<String, &String::fontNumber_>("FontNumber"),
      FieldKey<String, &String::colorFore_>("ColorFore"));
};
// clang-format on

clsVarDisplayString::clsVarDisplayString()
    : HandlerClass(ElementSetting(ElementDefault::StringColorFore, "5")) {
  Drawing().Txt(stringPattern_);
  Drawing().ColorBack(ElementSetting(ElementDefault::StringColorBack, "103"));
  Drawing().ColorFore(colorFore_);
}

const HandlerKeys& clsVarDisplayString::Keys() const {
  static const KeysOf<clsVarDisplayString> keys(KeyList::kTable);
  return keys;
}

void clsVarDisplayString::ReSyncDrawingElementParams(Long, Long pFontNum) {
  Drawing().Txt(stringPattern_);
  Drawing().FontNumber(pFontNum);
}

void clsVarDisplayString::WriteReport(VariableReport& report) const {
  report.Common({ReportLine::Link, ReportLine::Hide, ReportLine::Features});
  report.Feature("Start Vector: ", startVector_);
  report.Feature("Vector Length: ", vectorLength_);
  report.Feature("String Pattern: ", stringPattern_);
}

}  // namespace quenzel7
