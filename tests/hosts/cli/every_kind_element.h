#pragma once

#include <string>

#include "framework/element_contract.h"
#include "platform/automation/member.h"

namespace quenzel7::cli::test {

/// An element with a property of every kind that page files hold, and of kinds and marks that they do not.
class EveryKindElement final : public ItfHmiElement {
 public:
  static constexpr std::string_view kClassName = "clsEveryKind";

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

#define PROPERTY(Type, Name)                                \
  Type Name() const { return value##Name; }                 \
  void Name(Type value) { value##Name = std::move(value); } \
  Type value##Name{};
  PROPERTY(std::string, Label)
  PROPERTY(Byte, Small)
  PROPERTY(Integer, Middle)
  PROPERTY(Single, Ratio)
  PROPERTY(Double, Fine)
  PROPERTY(bool, Shown)
  PROPERTY(enPenStyle, Style)
  PROPERTY(Currency, Price)
  PROPERTY(Long, OrderIndex)
  PROPERTY(Long, Dx)
  PROPERTY(Long, Xs)
  PROPERTY(enFillStyle, Body)
#undef PROPERTY
  Long Locked() const { return 5; }
  Long SlotOnly() const { return 0; }
  void SlotOnly(Long) {}

 protected:
  Long ItfHmiElement_ElementType() const override { return 250; }
};

#define PROPERTY(Type, Name, ...)                                                  \
  automation::Property<Type>(#Name, {}, AUTOMATION_GETTER(EveryKindElement, Name), \
                             AUTOMATION_SETTER(EveryKindElement, Type, Name) __VA_OPT__(, ) __VA_ARGS__)
inline const automation::ClassInfo& EveryKindElement::ClassOf() {
  static const automation::Member members[] = {
      PROPERTY(std::string, Label),
      PROPERTY(Byte, Small),
      PROPERTY(Integer, Middle),
      PROPERTY(Single, Ratio),
      PROPERTY(Double, Fine),
      PROPERTY(bool, Shown),
      PROPERTY(enPenStyle, Style),
      PROPERTY(Currency, Price),
      PROPERTY(Long, OrderIndex, automation::Mark::Identity),
      PROPERTY(Long, Dx),
      PROPERTY(Long, Xs),
      PROPERTY(enFillStyle, Body, automation::Mark::NotStored),
      PROPERTY(Long, SlotOnly, automation::Mark::NotCarried),
      automation::Property<Long>("Locked", {}, AUTOMATION_GETTER(EveryKindElement, Locked), nullptr),
      automation::Property<Long>("Blind", {}, nullptr,
                                 [](automation::Object&, const automation::Variant&) {}),
  };
  static const automation::Interface interface("_clsEveryKind", members);
  static const automation::Interface* const interfaces[] = {&interface, &InterfaceOf()};
  static const automation::ClassInfo info{
      kClassName, interfaces, []() -> automation::ObjectRef { return std::make_shared<EveryKindElement>(); }};
  return info;
}
#undef PROPERTY

}  // namespace quenzel7::cli::test
