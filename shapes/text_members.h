#pragma once

#include "framework/element_member_texts.h"
#include "framework/named_table.h"
#include "platform/automation/collection.h"
#include "platform/automation/member.h"

namespace quenzel7 {

#define QUENZEL7_TEXT_PROPERTY(Type, Name, Documentation, ...)                       \
  automation::Property<Type>(#Name, Documentation, AUTOMATION_GETTER(Element, Name), \
                             AUTOMATION_SETTER(Element, Type, Name) __VA_OPT__(, ) __VA_ARGS__)
#define QUENZEL7_CONTRACT_PROPERTY(Type, Name, ...) \
  QUENZEL7_TEXT_PROPERTY(Type, Name, ElementMemberText(#Name) __VA_OPT__(, ) __VA_ARGS__)

/// What the default interfaces of the elements that bear a text have in common, in slot order.
template <class Element>
struct TextMembers {
  static constexpr auto kCommon = MakeNamedTable(
      QUENZEL7_CONTRACT_PROPERTY(Long, ID, automation::Mark::Identity),
      QUENZEL7_CONTRACT_PROPERTY(Long, GroupID, automation::Mark::Identity),
      QUENZEL7_CONTRACT_PROPERTY(Long, Xs), QUENZEL7_CONTRACT_PROPERTY(Long, Ys),
      QUENZEL7_CONTRACT_PROPERTY(Long, Dx), QUENZEL7_CONTRACT_PROPERTY(Long, Dy),
      QUENZEL7_CONTRACT_PROPERTY(Long, ColorBack), QUENZEL7_CONTRACT_PROPERTY(Long, ColorFore),
      QUENZEL7_CONTRACT_PROPERTY(Long, ColorBackTouch), QUENZEL7_CONTRACT_PROPERTY(Long, ColorForeTouch),
      QUENZEL7_CONTRACT_PROPERTY(Long, TouchOprndAddr),
      QUENZEL7_TEXT_PROPERTY(std::string, Txt, "The text as it was written, its lines parted by CR and LF."),
      automation::Property<std::string>(
          "ActualText",
          "What is painted: as much of the text as fits. Written, it is shown as it stands; reading fits the "
          "text anew.",
          [](automation::Object& object) {
            return automation::From(static_cast<Element&>(object).ActualText());
          },
          AUTOMATION_SETTER(Element, std::string, ActualText), automation::Mark::Transient),
      QUENZEL7_CONTRACT_PROPERTY(Long, FontNumber),
      automation::WithGetter(automation::PutRefProperty<automation::CollectionRef>(
                                 "ColOpPropBag",
                                 "Operand bags of the element; writing shares the collection, or builds them "
                                 "anew when an operand "
                                 "picks the string.",
                                 AUTOMATION_SETTER(Element, automation::CollectionRef, ColOpPropBag)),
                             AUTOMATION_GETTER(Element, ColOpPropBag)),
      QUENZEL7_CONTRACT_PROPERTY(Integer, Alignment), QUENZEL7_TEXT_PROPERTY(Long, Flat3D, Element::kStyles),
      QUENZEL7_TEXT_PROPERTY(
          Long, StorageStringType,
          "0 for a string of the library, otherwise the type of the operand that picks it."),
      QUENZEL7_TEXT_PROPERTY(Long, StorageStringID,
                             "Number of a string in the library, or address of the operand that picks it; -1 "
                             "for a constant text."),
      QUENZEL7_CONTRACT_PROPERTY(Long, TabIndex),
      QUENZEL7_CONTRACT_PROPERTY(Long, OrderIndex, automation::Mark::Identity),
      automation::Method<Element,
                         static_cast<void (Element::*)(Long&, Long&) const>(&Element::GetOptimalDimensions)>(
          "GetOptimalDimensions", "Gives the size in panel pixels at which nothing of the text is cut.",
          "pDx, pDy"),
      automation::Method<Element, &Element::SaveToDB>("SaveToDB", "Writes the element's row; always True."),
      automation::Method<Element, &ItfHmiElement::CreateStaticElementPrinterReport>(
          "ItfHmiElement_CreateStaticElementPrinterReport",
          ElementMemberText("CreateStaticElementPrinterReport"), "pVSPrinter"));
};

#undef QUENZEL7_CONTRACT_PROPERTY
#undef QUENZEL7_TEXT_PROPERTY

}  // namespace quenzel7
