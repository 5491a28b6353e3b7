#pragma once

#include <string_view>

#include "variables/text/text_list.h"

namespace quenzel7 {

/// The default interface of a text of a list, in slot order.
template <class Handler>
struct ListTextMembers {
  static constexpr auto kMembers = TextListMembers<Handler>::kOpenList;
};

/// Shows the text that belongs to a value, one for each value.
class clsVarListText final : public HandlerClass<clsVarListText, TextListHandler, ListTextMembers> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsVarListText";

  /// Begins with one text. Errors of clsText and clsVarTextElement.
  clsVarListText();

  void WriteReport(VariableReport& report) const override;

 private:
  struct KeyList;

  const HandlerKeys& Keys() const override;
};

}  // namespace quenzel7
