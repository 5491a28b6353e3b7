#pragma once

#include "framework/named_table.h"
#include "platform/automation/member.h"
#include "variables/binary_handler.h"
#include "variables/var_text_element.h"

namespace quenzel7 {

/// Entries that the default interfaces of several handlers have; a handler has those of its members.
template <class Handler>
struct HandlerMembers {
  static constexpr automation::Member DrawingElement() {
    return automation::Property<ElementRef>(
        "DrawingElement", "The element that paints the variable.",
        [](automation::Object& object) {
          return automation::Variant(static_cast<const Handler&>(object).DrawingElement());
        },
        nullptr);
  }
  static constexpr automation::Member ColOpPropBagByReference() {
    return automation::PutRefProperty<automation::CollectionRef>(
        "ColOpPropBag", "Bags of the operands beside the link operand; writing shares the collection.",
        AUTOMATION_SETTER(Handler, automation::CollectionRef, ColOpPropBag));
  }
  static constexpr automation::Member ColOpPropBag() {
    return automation::WithGetter(ColOpPropBagByReference(), AUTOMATION_GETTER(Handler, ColOpPropBag));
  }
  static constexpr automation::Member ListText() {
    return automation::WithGetter(
        automation::PutRefProperty<TextElementRef>("ListText", "The string of the library that is shown.",
                                                   AUTOMATION_SETTER(Handler, TextElementRef, ListText)),
        AUTOMATION_GETTER(Handler, ListText));
  }

#define QUENZEL7_HANDLER_PROPERTY(Type, Name, Documentation)                                  \
  static constexpr automation::Member Name() {                                                \
    return automation::Property<Type>(#Name, Documentation, AUTOMATION_GETTER(Handler, Name), \
                                      AUTOMATION_SETTER(Handler, Type, Name));                \
  }
  QUENZEL7_HANDLER_PROPERTY(Long, FontNumber, "Number of the panel font.")
  QUENZEL7_HANDLER_PROPERTY(Long, DescriptionFontNumber, "Number of the font of an entry's description.")
  QUENZEL7_HANDLER_PROPERTY(Long, ColorFore, "Panel colour number of the text.")
  QUENZEL7_HANDLER_PROPERTY(Long, StorageText, "-1 when texts come from the string library, otherwise 0.")
  QUENZEL7_HANDLER_PROPERTY(Long, StorageLibNum, "Number of the string library.")
#undef QUENZEL7_HANDLER_PROPERTY

  static constexpr automation::Member SetBinaryData() {
    return automation::Method<Handler, &BinaryHandler::SetBinaryData>(
        "SetBinaryData", "Takes all settings from the contents of a property bag.", "RHS");
  }
  static constexpr automation::Member GetBinaryData() {
    return automation::Method<Handler, &BinaryHandler::GetBinaryData>(
        "GetBinaryData", "All settings as the contents of a property bag.");
  }
  static constexpr automation::Member ValidateFontNumber() {
    return automation::Method<Handler, &ItfVarBinaryHandler::ValidateFontNumber>(
        "ItfVarBinaryHandler_ValidateFontNumber",
        "Replaces the font's number by the item of which it is the key, or by the first item.",
        "pFontNumCollection");
  }
  static constexpr automation::Member ReSync() {
    return automation::Method<Handler, &BinaryHandler::ReSyncDrawingElementParams>(
        "ReSyncDrawingElementParams", "Brings the drawing element up to date: the state shown, and its font.",
        "pDefaultDisplay, pFontNum");
  }
};

}  // namespace quenzel7
