#pragma once

#include <string_view>

#include "variables/text/text_list.h"

namespace quenzel7 {

/// The default interface of a text of a range, in slot order.
template <class Handler>
struct RangeTextMembers {
  static constexpr auto kMembers = TextListMembers<Handler>::kOpenList.WithAfter(
      "DrawingElement", HandlerMembers<Handler>::ColOpPropBag());
};

/// Shows the text that belongs to the range in which a value lies; operands tell where each range begins and
/// ends.
class clsVarRangeText final : public HandlerClass<clsVarRangeText, TextListHandler, RangeTextMembers> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsVarRangeText";

  /// Begins with one text. Errors of clsText and clsVarTextElement.
  clsVarRangeText();

  void WriteReport(VariableReport& report) const override;

 private:
  struct KeyList;

  const HandlerKeys& Keys() const override;
  std::vector<ExtraOperand> ExtraOperands() override;
};

}  // namespace quenzel7
