#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/automation/member.h"
#include "variables/handler_members.h"
#include "variables/text_handler.h"
#include "variables/var_text_element.h"

namespace quenzel7 {

/// The settings of a number beside its operands: type, name, default, documentation.
#define QUENZEL7_NUMERIC_PROPERTIES(PROPERTY)                                                              \
  PROPERTY(Long, ArrowsIncrementValue, 0, "Step of the panel's arrow keys.")                               \
  PROPERTY(std::string, Postfix, {}, "Text beside the number.")                                            \
  PROPERTY(bool, IsUnsignedFormat, false, "Whether the sample has no sign.")                               \
  PROPERTY(std::string, Format, "99999", "Pattern of the digits: a 9 for each, a point where one stands.") \
  PROPERTY(enBaseFormat, BaseFormat, eBF_Decimal, "Base in which the number is shown.")                    \
  PROPERTY(bool, IsPassword, false, "Whether the number is shown as a password.")                          \
  PROPERTY(enLeadingType, LeadingType, eLT_Mone, "What fills digits that are not used.")                   \
  PROPERTY(enKeyboardType, KeyboardType, enKeyboardType{}, "Keyboard of the entry; 0 none.")               \
  PROPERTY(bool, StartWithClearFields, false, "Whether an entry begins with an empty field.")              \
  PROPERTY(bool, UseEntryLimits, false, "Whether the operands of the entry limits are in use.")            \
  PROPERTY(bool, DoLinearization, false, "Whether the operands of the linearization are in use.")

/// Its operands: published name of type and address, name of the field, documentation.
#define QUENZEL7_NUMERIC_OPERANDS(OPERAND)                                                              \
  OPERAND(EntryLimitMinOpType, EntryLimitMinOpAddress, entryLimitMin_, "the smallest entry")            \
  OPERAND(EntryLimitMaxOpType, EntryLimitMaxOpAddress, entryLimitMax_, "the largest entry")             \
  OPERAND(LinearMIminOpType, LinearMIminOpAddress, linearMIMin_, "the low end of the raw range")        \
  OPERAND(LinearMIMaxOpType, LinearMImaxOpAddress, linearMIMax_, "the high end of the raw range")       \
  OPERAND(LinearDminOpType, LinearDminOpAddress, linearDMin_, "the low end of the range that is shown") \
  OPERAND(LinearDmaxOpType, LinearDmaxOpAddress, linearDMax_, "the high end of the range that is shown")

/// The default interface of a number, in slot order.
template <class Handler>
struct NumericMembers;

/// Shows a number: a sample of it in the format that the user chose, with a text beside it. Also the handler
/// of passwords.
class clsVarNumeric final : public HandlerClass<clsVarNumeric, SampleTextHandler, NumericMembers> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsVarNumeric";

  /// Takes the colour from the settings, the fonts from the font service. Errors of ElementSetting and as
  /// MakeSampleText.
  clsVarNumeric();

#define QUENZEL7_NUMERIC_ACCESSORS(Type, Name, Default, Documentation) \
  const Type& Name() const { return Name##_; }                         \
  void Name(Type pValue) { Name##_ = std::move(pValue); }
  QUENZEL7_NUMERIC_PROPERTIES(QUENZEL7_NUMERIC_ACCESSORS)
#undef QUENZEL7_NUMERIC_ACCESSORS

#define QUENZEL7_NUMERIC_ACCESSORS(Type, Address, field, Documentation) \
  Long Type() const { return field.type; }                              \
  void Type(Long pValue) { field.type = pValue; }                       \
  Long Address() const { return field.address; }                        \
  void Address(Long pValue) { field.address = pValue; }
  QUENZEL7_NUMERIC_OPERANDS(QUENZEL7_NUMERIC_ACCESSORS)
#undef QUENZEL7_NUMERIC_ACCESSORS

  /// Number of the font of an entry's description. Not among the binary data: the variable has it in its row.
  Long DescriptionFontNumber() const { return descriptionFontNumber_; }
  void DescriptionFontNumber(Long pValue) { descriptionFontNumber_ = pValue; }

  /// The string of the library that stands beside the number; none after ReleaseResources.
  const TextElementRef& ListText() const { return listText_; }
  void ListText(TextElementRef pValue) { listText_ = std::move(pValue); }
  /// 0 when the text beside the number is Postfix, otherwise it is that string; -1 keeps the library's font
  /// when the variable is drawn.
  Long StorageText() const override { return storageText_; }
  void StorageText(Long pValue) { storageText_ = pValue; }
  /// Number of the string library.
  Long StorageLibNum() const { return storageLibNum_; }
  void StorageLibNum(Long pValue) { storageLibNum_ = pValue; }

  /// The character that stands for a digit in the editor: the font's digit, "D" for hexadecimal, "0" for
  /// binary numbers; empty for any other base. Errors of the font service.
  std::string GetGUIDigit() const;

  /// The sample of the number with a text beside it, on the side that the reading order of that text wants:
  /// in the format, with a sign unless IsUnsignedFormat or the link operand (types 16, 36 and 67) has none;
  /// in one of its own for floating numbers (type 7). Errors of the text service.
  std::string MakeSampleText(const std::string& pPostfix) const;

  /// Gives the text element the sample, of a password the text alone or the format where there is none, and
  /// the font that the string of the library has or the given one. Leaves both where a string of the library
  /// is to be shown and there is none. Errors of the string library, the text service and the text's fitting.
  void ReSyncDrawingElementParams(Long pDefaultDisplay, Long pFontNum) override;
  /// Of a password only the format is told.
  void WriteReport(VariableReport& report) const override;

 private:
  struct KeyList;

  clsVarTextElement& Reference() const;
  void ShowText(const std::string& text);
  void WriteNumberReport(VariableReport& report) const;

  const HandlerKeys& Keys() const override;
  std::vector<ExtraOperand> ExtraOperands() override;
  void ReleaseOwned() override;

#define QUENZEL7_NUMERIC_FIELD(Type, Name, Default, Documentation) Type Name##_ = Default;
  QUENZEL7_NUMERIC_PROPERTIES(QUENZEL7_NUMERIC_FIELD)
#undef QUENZEL7_NUMERIC_FIELD
#define QUENZEL7_NUMERIC_FIELD(Type, Address, field, Documentation) OperandPair field;
  QUENZEL7_NUMERIC_OPERANDS(QUENZEL7_NUMERIC_FIELD)
#undef QUENZEL7_NUMERIC_FIELD
  Long descriptionFontNumber_;
  TextElementRef listText_;
  Long storageText_ = 0;
  Long storageLibNum_ = 0;
};

template <class Handler>
struct NumericMembers {
#define QUENZEL7_NUMERIC_MEMBER(Type, Name, Default, Documentation) \
  static constexpr auto k##Name = automation::Property<Type>(       \
      #Name, Documentation, AUTOMATION_GETTER(Handler, Name), AUTOMATION_SETTER(Handler, Type, Name));
  QUENZEL7_NUMERIC_PROPERTIES(QUENZEL7_NUMERIC_MEMBER)
#undef QUENZEL7_NUMERIC_MEMBER
#define QUENZEL7_NUMERIC_MEMBER(Type, Address, field, Documentation)                                        \
  static constexpr auto k##Type =                                                                           \
      automation::Property<Long>(#Type, "Type of the operand of " Documentation "; 0 none.",                \
                                 AUTOMATION_GETTER(Handler, Type), AUTOMATION_SETTER(Handler, Long, Type)); \
  static constexpr auto k##Address =                                                                        \
      automation::Property<Long>(#Address, "Address of that operand.", AUTOMATION_GETTER(Handler, Address), \
                                 AUTOMATION_SETTER(Handler, Long, Address));
  QUENZEL7_NUMERIC_OPERANDS(QUENZEL7_NUMERIC_MEMBER)
#undef QUENZEL7_NUMERIC_MEMBER

  using Common = HandlerMembers<Handler>;

  static constexpr auto kMembers = MakeNamedTable(
      Common::ListText(), Common::ColOpPropBag(), Common::DrawingElement(), kArrowsIncrementValue, kPostfix,
      kIsUnsignedFormat, kFormat, kBaseFormat, kIsPassword, kLeadingType, kKeyboardType, Common::FontNumber(),
      Common::DescriptionFontNumber(), Common::ColorFore(), kStartWithClearFields, kUseEntryLimits,
      kDoLinearization, kEntryLimitMinOpType, kEntryLimitMinOpAddress, kEntryLimitMaxOpType,
      kEntryLimitMaxOpAddress, kLinearMIminOpType, kLinearMIminOpAddress, kLinearMIMaxOpType,
      kLinearMImaxOpAddress, kLinearDminOpType, kLinearDminOpAddress, kLinearDmaxOpType, kLinearDmaxOpAddress,
      Common::StorageText(), Common::StorageLibNum(),
      automation::Method<Handler, &Handler::GetGUIDigit>("GetGUIDigit",
                                                         "The character that stands for a digit."),
      Common::SetBinaryData(), Common::GetBinaryData(), Common::ValidateFontNumber(), Common::ReSync());
};

}  // namespace quenzel7
