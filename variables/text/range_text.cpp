#include "variables/text/range_text.h"

#include "variables/variable_report.h"

namespace quenzel7 {

// clang-format off
struct clsVarRangeText::KeyList : ListKeys<clsVarRangeText> {
  static constexpr auto kBoundedEntry = MakeNamedTable(
      Texts::kTxt, Texts::kColorFore, Texts::kColorBack,
      Texts::kFromOpType, Texts::kFromOpAddress, Texts::kToOpType, Texts::kToOpAddress,
      Texts::kStorageStringId.Guarded(), Texts::kStorageStringType.Guarded());

  static constexpr auto kTable =
      kDrawing
          .Then(kStorage)
          .Then(MakeNamedTable(
              kCount,
              EntriesKey<clsVarRangeText, &clsVarRangeText::texts_, kBoundedEntry>("ListTexts")));
};
// clang-format on

clsVarRangeText::clsVarRangeText()
    : HandlerClass(ElementDefault::RangeTextColorBack, ElementDefault::RangeTextColorFore, 1) {}

const HandlerKeys& clsVarRangeText::Keys() const {
  static const KeysOf<clsVarRangeText> keys(KeyList::kTable, {ReadRegime::Raise, ChangeKeyForm::Longs});
  return keys;
}

std::vector<BinaryHandler::ExtraOperand> clsVarRangeText::ExtraOperands() {
  std::vector<ExtraOperand> operands;
  for (const TextElementRef& text : texts_) {
    operands.push_back({{text, &text->From()}});
    operands.push_back({{text, &text->To()}});
  }
  return operands;
}

void clsVarRangeText::WriteReport(VariableReport& report) const {
  static constexpr ReportColumn kColumns[] = {{"From", "33%"}, {"To", "33%"}, {"Text", "34%"}};
  std::vector<std::vector<std::string>> rows;
  for (const TextElementRef& text : texts_) {
    rows.push_back({OperandReportText(text->From()), OperandReportText(text->To()), text->Txt()});
  }
  report.Common(kTableReportLines);
  report.Table(kColumns, rows);
}

}  // namespace quenzel7
