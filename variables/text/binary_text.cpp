#include "variables/text/binary_text.h"

namespace quenzel7 {

// clang-format off
struct clsVarBinaryText::KeyList : ListKeys<clsVarBinaryText> {
  // Only here the string library stands behind the list.
  static constexpr auto kTable =
      kDrawing
          .Then(MakeNamedTable(
              kCount,
              EntriesKey<clsVarBinaryText, &clsVarBinaryText::texts_, kEntry>("ListTexts"),
              FieldKey<clsVarBinaryText, &clsVarBinaryText::switch_>("Switch")))
          .Then(kStorage);
};
// clang-format on

clsVarBinaryText::clsVarBinaryText()
    : HandlerClass(ElementDefault::BinaryTextColorBack, ElementDefault::BinaryTextColorFore, 2) {}

const HandlerKeys& clsVarBinaryText::Keys() const {
  static const KeysOf<clsVarBinaryText> keys(KeyList::kTable);
  return keys;
}

}  // namespace quenzel7
