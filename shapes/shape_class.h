#pragma once

#include <type_traits>

#include "framework/element_member_texts.h"
#include "platform/automation/member.h"
#include "shapes/element_class.h"
#include "shapes/filled_shape.h"

namespace quenzel7 {

#define QUENZEL7_SHAPE_PROPERTY(Type, Name, ...)                                              \
  automation::Property<Type>(#Name, ElementMemberText(#Name), AUTOMATION_GETTER(Shape, Name), \
                             AUTOMATION_SETTER(Shape, Type, Name) __VA_OPT__(, ) __VA_ARGS__)

/// The default interface of a shape, in slot order. A line has the slots of a body, too; it does not carry
/// them.
template <class Shape>
struct ShapeMembers {
  static constexpr bool kHasBody = std::is_base_of_v<FilledShape, Shape>;
  static constexpr automation::Mark kBody = kHasBody ? automation::Mark::None : automation::Mark::NotCarried;
  static constexpr automation::Mark kFill =
      kHasBody ? automation::Mark::NotStored : automation::Mark::NotCarried;

  static constexpr automation::Member kMembers[] = {
      automation::PutRefProperty<automation::CollectionRef>(
          "ColOpPropBag", "Operand bags of the element, taken by reference.",
          AUTOMATION_SETTER(Shape, automation::CollectionRef, ColOpPropBag)),
      automation::Property<Long>("VisibleOpAddr", kOwnVisibleOpAddrText,
                                 AUTOMATION_GETTER(Shape, VisibleOpAddr),
                                 AUTOMATION_SETTER(Shape, Long, VisibleOpAddr)),
      QUENZEL7_SHAPE_PROPERTY(Long, TouchOprndAddr),
      QUENZEL7_SHAPE_PROPERTY(enHatchStyle, HatchStyle, kBody),
      QUENZEL7_SHAPE_PROPERTY(Long, PenWidth),
      QUENZEL7_SHAPE_PROPERTY(enPenStyle, PenStyle),
      QUENZEL7_SHAPE_PROPERTY(enFillStyle, FillStyle, kFill),
      QUENZEL7_SHAPE_PROPERTY(Long, ColorHatch, kBody),
      QUENZEL7_SHAPE_PROPERTY(Long, ColorFore),
      QUENZEL7_SHAPE_PROPERTY(Long, ColorBack),
      QUENZEL7_SHAPE_PROPERTY(Long, GroupID, automation::Mark::Identity),
      QUENZEL7_SHAPE_PROPERTY(Long, ID, automation::Mark::Identity),
      QUENZEL7_SHAPE_PROPERTY(Long, Xs),
      QUENZEL7_SHAPE_PROPERTY(Long, Ys),
      QUENZEL7_SHAPE_PROPERTY(Long, Dx),
      QUENZEL7_SHAPE_PROPERTY(Long, Dy),
      automation::Method<Shape, &Shape::SaveToDB>("SaveToDB", "Writes the element's row; always True."),
      automation::Method<Shape, &ItfHmiElement::CreateStaticElementPrinterReport>(
          "ItfHmiElement_CreateStaticElementPrinterReport",
          ElementMemberText("CreateStaticElementPrinterReport"), "pVSPrinter"),
      QUENZEL7_SHAPE_PROPERTY(Long, ColorForeTouch),
      QUENZEL7_SHAPE_PROPERTY(Long, ColorBackTouch),
      QUENZEL7_SHAPE_PROPERTY(Long, OrderIndex, automation::Mark::Identity),
  };
};

#undef QUENZEL7_SHAPE_PROPERTY

/// The classes of shapes that hosts create.
template <class Shape, class Base, ElementTypeNumber Type>
using ShapeClass = ElementClass<Shape, Base, Type, ShapeMembers>;

}  // namespace quenzel7
