#include "variables/text/list_text.h"

#include "variables/text_element_keys.h"

namespace quenzel7 {

// clang-format off
struct clsVarListText::KeyList : ListKeys<clsVarListText> {
  using Texts = clsVarTextElement::Keys;

  static constexpr auto kEntry = MakeNamedTable(
      Texts::kTxt, Texts::kColorFore, Texts::kColorBack,
      Texts::kStorageStringId.Guarded(), Texts::kStorageStringType.Guarded());

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
