#pragma once

#include "variables/key_table.h"
#include "variables/var_text_element.h"

namespace quenzel7 {

/// The settings of a text of a list; numbers of entries follow the names.
struct clsVarTextElement::Keys {
  using Text = clsVarTextElement;

  static constexpr auto kTxt = FieldKey<Text, &Text::txt_>("Txt_");
  static constexpr auto kColorFore = FieldKey<Text, &Text::colorFore_>("ColorFore_");
  static constexpr auto kColorBack = FieldKey<Text, &Text::colorBack_>("ColorBack_");
  static constexpr auto kFromOpType = OperandTypeKey<Text, &Text::from_>("FromOpType_");
  static constexpr auto kFromOpAddress = OperandAddressKey<Text, &Text::from_>("FromOpAddress_");
  static constexpr auto kToOpType = OperandTypeKey<Text, &Text::to_>("ToOpType_");
  static constexpr auto kToOpAddress = OperandAddressKey<Text, &Text::to_>("ToOpAddress_");
  static constexpr auto kStorageStringType = FieldKey<Text, &Text::storageStringType_>("StorageStringType_");
  static constexpr auto kStorageStringId = FieldKey<Text, &Text::storageStringId_>("StorageStringID_");
  static constexpr auto kStorageFont = FieldKey<Text, &Text::storageFont_>("StorageFont_");

  /// Those of a text that a handler refers to beside its lists, `Part` giving it.
  template <class Handler, auto Part>
  static constexpr auto kReference = MakeNamedTable(
      PartKey<Handler, Part, kTxt>("Txt_Storage"), PartKey<Handler, Part, kColorFore>("ColorFore_Storage"),
      PartKey<Handler, Part, kColorBack>("ColorBack_Storage"),
      PartKey<Handler, Part, kStorageStringId>("StorageStringID"),
      PartKey<Handler, Part, kStorageStringType>("StorageStringType"),
      PartKey<Handler, Part, kStorageFont>("StorageFont"));
};

}  // namespace quenzel7
