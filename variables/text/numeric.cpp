#include "variables/text/numeric.h"

#include "framework/language_strings.h"
#include "platform/platform.h"
#include "shapes/element_setting.h"
#include "variables/text_element_keys.h"
#include "variables/var_element.h"
#include "variables/variable_report.h"

namespace quenzel7 {
namespace {

/// The text without blanks at both ends.
std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

// clang-format off
struct clsVarNumeric::KeyList {
  using Number = clsVarNumeric;
  using Drawing = DrawingKeys;

#define QUENZEL7_NUMERIC_KEY(Type, Name, Default, Documentation) \
  static constexpr auto k##Name = FieldKey<Number, &Number::Name##_>(#Name);
  QUENZEL7_NUMERIC_PROPERTIES(QUENZEL7_NUMERIC_KEY)
#undef QUENZEL7_NUMERIC_KEY
#define QUENZEL7_NUMERIC_KEY(Type, Address, field, Documentation) \
  OperandTypeKey<Number, &Number::field>(#Type), OperandAddressKey<Number, &Number::field>(#Address),

  static constexpr auto kTable =
      MakeNamedTable(
          PartKey<Number, &Number::Drawing, Drawing::kTxt>("DrawingText_txt"),
          PartKey<Number, &Number::Drawing, Drawing::kFontNumber>("DrawingText_FontNumber"),
          PartKey<Number, &Number::Drawing, Drawing::kColorFore>("DrawingText_ColorFore"),
          kLeadingType,
          FieldKey<Number, &Number::fontNumber_>("FontNumber"), FieldKey<Number, &Number::colorFore_>("ColorFore"),
          kFormat, kBaseFormat, kPostfix,
          kStartWithClearFields, kUseEntryLimits, kDoLinearization, kIsPassword, kIsUnsignedFormat,
          kArrowsIncrementValue,
          QUENZEL7_NUMERIC_OPERANDS(QUENZEL7_NUMERIC_KEY)
          kKeyboardType.For(kStored | kReplicated))
          .Then(clsVarTextElement::Keys::kReference<Number, &Number::Reference>)
          .Then(MakeNamedTable(
              FieldKey<Number, &Number::storageText_>("StorageText"),
              FieldKey<Number, &Number::storageLibNum_>("StorageLibNum")));
#undef QUENZEL7_NUMERIC_KEY
};
// clang-format on

clsVarNumeric::clsVarNumeric()
    : HandlerClass(ElementSetting(ElementDefault::NumericColorFore, "5")),
      descriptionFontNumber_(Platform::Current().fontService->GetDefaultDescriptionFontNumber()),
      listText_(std::make_shared<clsVarTextElement>()) {
  Drawing().Txt(MakeSampleText(Postfix_));
}

const HandlerKeys& clsVarNumeric::Keys() const {
  static const KeysOf<clsVarNumeric> keys(KeyList::kTable, {ReadRegime::Skip, ChangeKeyForm::Currencies});
  return keys;
}

clsVarTextElement& clsVarNumeric::Reference() const { return automation::Required(listText_); }

void clsVarNumeric::ReleaseOwned() {
  TextHandler::ReleaseOwned();
  listText_.reset();
}

std::vector<BinaryHandler::ExtraOperand> clsVarNumeric::ExtraOperands() {
  std::vector<ExtraOperand> operands;
  const auto add = [this, &operands](OperandPair& pair, bool isInUse) {
    // Where the operands are not in use their bags are built all the same and those behind them are read in
    // their place: hosts rely on it.
    const bool isThere = pair.type != 0;
    operands.push_back({Own(pair), isThere ? 1 : 0, isThere && isInUse});
  };
  for (OperandPair* pair : {&entryLimitMin_, &entryLimitMax_}) add(*pair, UseEntryLimits_);
  for (OperandPair* pair : {&linearDMin_, &linearDMax_, &linearMIMin_, &linearMIMax_}) {
    add(*pair, DoLinearization_);
  }
  return operands;
}

std::string clsVarNumeric::GetGUIDigit() const {
  switch (BaseFormat_) {
    case eBF_Decimal:
      return std::to_string(Platform::Current().fontService->GetGUIDigit(fontNumber_));
    case eBF_Hex:
      return "D";
    case eBF_Binary:
      return "0";
    default:
      return {};
  }
}

std::string clsVarNumeric::MakeSampleText(const std::string& pPostfix) const {
  // The link operands whose numbers have a format of their own, and those that have no sign.
  constexpr Long kFloat = 7;
  const auto isUnsigned = [](Long type) { return type == 16 || type == 36 || type == 67; };
  const std::string sign = IsUnsignedFormat_ || isUnsigned(link_.type) ? "" : "-";
  const std::string number = link_.type == kFloat ? "-9.999999999 " : sign + Format_;
  const bool isNumberFirst = Platform::Current().textService->TextOrder(pPostfix) == corvane1::kLeftToRight;
  return Trimmed(isNumberFirst ? number + " " + pPostfix : pPostfix + " " + number);
}

void clsVarNumeric::ShowText(const std::string& text) {
  Drawing().Txt(IsPassword_ ? text : MakeSampleText(text));
}

void clsVarNumeric::ReSyncDrawingElementParams(Long, Long pFontNum) {
  if (storageText_ != 0) {
    const clsVarTextElement& reference = Reference();
    if (reference.StorageStringID() == corvane1::kNoLibraryString || reference.StorageStringType() != 0) {
      return;
    }
    corvane1::LibraryString string;
    string.text = WidestLanguageString(reference.StorageStringID(), string.fontNumber);
    ShowText(string.text);
    Drawing().FontNumber(string.FontOr(pFontNum));
    return;
  }
  ShowText(IsPassword_ && Postfix_.empty() ? Format_ : Postfix_);
  Drawing().FontNumber(pFontNum);
}

// --- Report ---

void clsVarNumeric::WriteReport(VariableReport& report) const {
  report.Common(kAllReportLines);
  if (report.Variable().VarType() == eVT_Password) {
    report.Feature("Format: ", Format_);
  } else {
    WriteNumberReport(report);
  }
}

void clsVarNumeric::WriteNumberReport(VariableReport& report) const {
  if (DoLinearization_) {
    // The raw value lies along X, what is shown of it along Y.
    report.Feature("Linear X Min: ", linearMIMin_);
    report.Feature("Linear X Max: ", linearMIMax_);
    report.Feature("Linear Y Min: ", linearDMin_);
    report.Feature("Linear Y Max: ", linearDMax_);
  }
  if (UseEntryLimits_) {
    report.Feature("Entry Min Value: ", entryLimitMin_);
    report.Feature("Entry Max Value: ", entryLimitMax_);
  }
  report.Feature("Format: ", Format_);
  // Where nothing fills the digits, nothing is told of it.
  if (LeadingType_ == eLT_Zeroes) report.Feature("Leading Type: ", "Zeroes");
  if (LeadingType_ == eLT_Spaces) report.Feature("Leading Type: ", "Spaces");
  report.Feature("Postfix: ", Postfix_);
  report.FeatureIf(DoLinearization_, "Linearization: ");
  report.FeatureIf(report.Variable().KeypadEntry(), "Key Pad Entry: ");
  report.FeatureIf(StartWithClearFields_, "Start With Clear Field: ");
  report.Feature("Arrows Increment Value: ", ArrowsIncrementValue_);
}

}  // namespace quenzel7
