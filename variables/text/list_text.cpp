#include "variables/text/list_text.h"

#include "variables/variable_report.h"

namespace quenzel7 {

// clang-format off
struct clsVarListText::KeyList : ListKeys<clsVarListText> {
  static constexpr auto kTable =
      kDrawing
          .Then(kStorage)
          .Then(MakeNamedTable(
              kCount,
              EntriesKey<clsVarListText, &clsVarListText::texts_, kEntry>("ListTexts")));
  static constexpr auto kRead = kTable.Moved("ListCount", "DrawingText_ColorBack");
};
// clang-format on

clsVarListText::clsVarListText()
    : HandlerClass(ElementDefault::ListTextColorBack, ElementDefault::ListTextColorFore, 1) {}

const HandlerKeys& clsVarListText::Keys() const {
  static const KeysOf<clsVarListText> keys(KeyList::kTable, KeyList::kRead, {});
  return keys;
}

void clsVarListText::WriteReport(VariableReport& report) const {
  static constexpr ReportColumn kColumns[] = {{"Index", "10%"}, {"Text", "90%"}};
  std::vector<std::vector<std::string>> rows;
  for (const TextElementRef& text : texts_) rows.push_back({std::to_string(rows.size() + 1), text->Txt()});
  report.Common(kTableReportLines);
  report.Table(kColumns, rows);
}

}  // namespace quenzel7
