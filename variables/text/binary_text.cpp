#include "variables/text/binary_text.h"

#include "variables/variable_report.h"

namespace quenzel7 {

// clang-format off
struct clsVarBinaryText::KeyList : ListKeys<clsVarBinaryText> {
  // Only here the string library stands behind the list.
  static constexpr auto kTable =
      kDrawing
          .Then(MakeNamedTable(
              kCount,
              EntriesKey<clsVarBinaryText, &clsVarBinaryText::texts_, kEntry>("ListTexts"),
              FieldKey<clsVarBinaryText, &clsVarBinaryText::switch_>("Switch")))
          .Then(kStorage);
};
// clang-format on

clsVarBinaryText::clsVarBinaryText()
    : HandlerClass(ElementDefault::BinaryTextColorBack, ElementDefault::BinaryTextColorFore, 2) {}

const HandlerKeys& clsVarBinaryText::Keys() const {
  static const KeysOf<clsVarBinaryText> keys(KeyList::kTable);
  return keys;
}

void clsVarBinaryText::WriteReport(VariableReport& report) const {
  static constexpr ReportColumn kColumns[] = {{"Text For 0", "50%"}, {"Text For 1", "50%"}};
  report.Common(kTableReportLines);
  report.Table(kColumns, {{ListTexts(1)->Txt(), ListTexts(2)->Txt()}});
}

}  // namespace quenzel7
