#pragma once

#include <string_view>

#include "variables/text/text_list.h"

namespace quenzel7 {

/// The default interface of a text that a bit chooses, in slot order.
template <class Handler>
struct BinaryTextMembers {
  static constexpr auto kMembers = TextListMembers<Handler>::kTexts.WithAfter(
      "StorageLibNum", automation::Property<bool>(
                           "Switch", "Whether a touch switches the bit that chooses the text.",
                           AUTOMATION_GETTER(Handler, Switch), AUTOMATION_SETTER(Handler, bool, Switch)));
};

/// Shows one of two texts, for a bit that is off and for one that is on.
class clsVarBinaryText final : public HandlerClass<clsVarBinaryText, TextListHandler, BinaryTextMembers> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsVarBinaryText";

  /// Begins with two texts. Errors of clsText and clsVarTextElement.
  clsVarBinaryText();

  /// Whether a touch switches the bit that chooses the text.
  bool Switch() const { return switch_; }
  void Switch(bool pValue) { switch_ = pValue; }

  void WriteReport(VariableReport& report) const override;

 private:
  struct KeyList;

  const HandlerKeys& Keys() const override;

  bool switch_ = false;
};

}  // namespace quenzel7
