#pragma once

#include <string>
#include <string_view>

#include "variables/handler_members.h"
#include "variables/text_handler.h"

namespace quenzel7 {

/// The default interface of a string, in slot order.
template <class Handler>
struct DisplayStringMembers;

/// Shows a text that the controller keeps in a row of registers: a sample of it.
class clsVarDisplayString final
    : public HandlerClass<clsVarDisplayString, SampleTextHandler, DisplayStringMembers> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsVarDisplayString";

  /// Takes the colours from the settings, the font from the font service. Errors of ElementSetting.
  clsVarDisplayString();

  /// The operand of the first register.
  Long StartVectorOpType() const { return startVector_.type; }
  void StartVectorOpType(Long pValue) { startVector_.type = pValue; }
  Long StartVectorOpAddress() const { return startVector_.address; }
  void StartVectorOpAddress(Long pValue) { startVector_.address = pValue; }
  /// Number of characters.
  Long VectorLength() const { return vectorLength_; }
  void VectorLength(Long pValue) { vectorLength_ = pValue; }
  /// The sample. Writing leaves the text element alone until it is brought up to date.
  const std::string& StringPattern() const { return stringPattern_; }
  void StringPattern(std::string pValue) { stringPattern_ = std::move(pValue); }
  /// The panel's keyboard for an entry.
  enLanguagesKeyboards KeyboardsLanguage() const { return keyboardsLanguage_; }
  void KeyboardsLanguage(enLanguagesKeyboards pValue) { keyboardsLanguage_ = pValue; }

  /// Gives the text element the sample and the font.
  void ReSyncDrawingElementParams(Long pDefaultDisplay, Long pFontNum) override;
  void WriteReport(VariableReport& report) const override;

 private:
  struct KeyList;

  const HandlerKeys& Keys() const override;
  /// Required: the bag of the start stands twice in the collection. Only the first is ever read.
  std::vector<ExtraOperand> ExtraOperands() override { return {{Own(startVector_), 2}}; }

  OperandPair startVector_;
  Long vectorLength_ = 15;
  std::string stringPattern_ = "Text_To_Display";
  enLanguagesKeyboards keyboardsLanguage_ = eLK_English;
};

template <class Handler>
struct DisplayStringMembers {
#define QUENZEL7_STRING_PROPERTY(Type, Name, Documentation)                          \
  automation::Property<Type>(#Name, Documentation, AUTOMATION_GETTER(Handler, Name), \
                             AUTOMATION_SETTER(Handler, Type, Name))
  using Common = HandlerMembers<Handler>;

  static constexpr auto kMembers = MakeNamedTable(
      Common::DrawingElement(),
      QUENZEL7_STRING_PROPERTY(Long, StartVectorOpType, "Type of the operand of the first register; 0 none."),
      QUENZEL7_STRING_PROPERTY(Long, StartVectorOpAddress, "Address of that operand."),
      QUENZEL7_STRING_PROPERTY(Long, VectorLength, "Number of characters."),
      QUENZEL7_STRING_PROPERTY(std::string, StringPattern, "The sample that is shown in the editor."),
      Common::FontNumber(), Common::ColorFore(),
      QUENZEL7_STRING_PROPERTY(enLanguagesKeyboards, KeyboardsLanguage, "The panel's keyboard for an entry."),
      Common::ColOpPropBag(), Common::SetBinaryData(), Common::GetBinaryData(), Common::ValidateFontNumber(),
      Common::ReSync());
#undef QUENZEL7_STRING_PROPERTY
};

}  // namespace quenzel7
