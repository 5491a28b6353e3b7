#include "variables/text/list_text.h"

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

}  // namespace quenzel7
