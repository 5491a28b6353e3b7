#include "shapes/shape_classes.h"

#include <gtest/gtest.h>

#include <set>

#include "framework/element_contract.h"
#include "platform/automation/call_by_name.h"
#include "shapes/bitmap.h"
#include "shapes/button.h"
#include "shapes/ellipse.h"
#include "shapes/frame.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "shapes/round_rect.h"
#include "shapes/text.h"
#include "tests/support/project_fixture.h"

namespace quenzel7 {
namespace {

using automation::ClassInfo;
using automation::Interface;
using automation::Mark;
using automation::Member;
using automation::Variant;
using automation::VariantKind;

/// A value of a property's type that differs from the given one.
Variant Other(const Member& member, const Variant& value) {
  switch (member.type.kind) {
    case VariantKind::Boolean:
      return !*value.If<bool>();
    case VariantKind::Integer:
      return static_cast<Integer>(*value.If<Integer>() + 1);
    case VariantKind::Long:
      return *value.If<Long>() + 1;
    case VariantKind::String:
      return value.Text() + "x";
    case VariantKind::Array: {
      auto bytes = automation::To<std::vector<Byte>>(value);
      for (Byte& byte : bytes) byte = static_cast<Byte>(byte + 1);
      return automation::FromBytes(bytes);
    }
    default:
      return {};
  }
}

/// In a project, which operands and pictures are looked for in.
using EveryShapeClass = test::ProjectTest;

TEST_F(EveryShapeClass, HasANameOfItsOwnAndCanBeCreatedUnderIt) {
  std::set<std::string_view> names;
  for (const ClassInfo* info : ShapeClasses()) {
    EXPECT_TRUE(names.insert(info->name).second) << info->name;
    ASSERT_NE(info->create, nullptr) << info->name;
    EXPECT_EQ(&info->create()->Class(), info) << info->name;
  }
}

TEST_F(EveryShapeClass, HasAnElementTypeOfItsOwn) {
  std::set<Long> types;
  for (const ClassInfo* info : ShapeClasses()) {
    const Variant type = automation::GetByName(*info->create(), ItfHmiElement::InterfaceOf(), "ElementType");
    EXPECT_TRUE(types.insert(*type.If<Long>()).second) << info->name;
  }
}

TEST_F(EveryShapeClass, ImplementsTheElementContractBesideItsDefaultInterface) {
  for (const ClassInfo* info : ShapeClasses()) {
    EXPECT_EQ(info->FindInterface("ItfHmiElement"), &ItfHmiElement::InterfaceOf()) << info->name;
    EXPECT_NE(&info->Default(), &ItfHmiElement::InterfaceOf()) << info->name;
  }
}

TEST_F(EveryShapeClass, FindsEveryMemberByItsNameInAnyCase) {
  for (const ClassInfo* info : ShapeClasses()) {
    for (const Interface* interface : info->interfaces) {
      for (const Member& member : interface->Members()) {
        std::string upper(member.name);
        for (char& letter : upper)
          letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
        EXPECT_EQ(interface->Find(upper), &member) << interface->Name() << '.' << member.name;
      }
    }
  }
}

TEST_F(EveryShapeClass, GivesBackWhatWasWrittenThroughItsDefaultInterface) {
  for (const ClassInfo* info : ShapeClasses()) {
    const auto object = info->create();
    for (const Member& member : info->Default().Members()) {
      if (!member.get || !member.put) continue;
      // Reading fits the text anew.
      if (member.name == "ActualText") continue;
      const Variant before = member.get(*object);
      EXPECT_EQ(before.Kind(), member.type.kind) << info->name << '.' << member.name;
      const Variant other = Other(member, before);
      member.put(*object, other);
      const Variant expected = member.mark == Mark::NotCarried ? Variant(Long{0}) : other;
      EXPECT_EQ(member.get(*object), expected) << info->name << '.' << member.name;
      member.put(*object, before);
      EXPECT_EQ(member.get(*object), before) << info->name << '.' << member.name;
    }
  }
}

/// The members that a class has the slots of and does not carry.
std::vector<std::string_view> NotCarriedBy(const ClassInfo& info) {
  std::vector<std::string_view> names;
  for (const Member& member : info.Default().Members()) {
    if (member.mark == Mark::NotCarried) names.push_back(member.name);
  }
  return names;
}

TEST_F(EveryShapeClass, TellsWhichSlotsItDoesNotCarry) {
  using Names = std::vector<std::string_view>;
  EXPECT_EQ(NotCarriedBy(clsRectangle::ClassOf()), Names{});
  EXPECT_EQ(NotCarriedBy(clsEllipse::ClassOf()), Names{});
  EXPECT_EQ(NotCarriedBy(clsRoundRect::ClassOf()), Names{});
  EXPECT_EQ(NotCarriedBy(clsLine::ClassOf()), (Names{"HatchStyle", "FillStyle", "ColorHatch"}));
  EXPECT_EQ(NotCarriedBy(clsBitmap::ClassOf()), Names{"ColorBackTouch"});
  EXPECT_EQ(NotCarriedBy(clsButton::ClassOf()), Names{});
}

TEST_F(EveryShapeClass, ReadsAndTakesNothingWhereItDoesNotCarryASlotThroughEitherInterface) {
  clsLine line;
  for (const char* name : {"HatchStyle", "FillStyle", "ColorHatch"}) {
    EXPECT_EQ(automation::GetByName(line, name), Variant(Long{0})) << name;
    automation::PutByName(line, name, Long{1});
    automation::PutByName(line, ItfHmiElement::InterfaceOf(), name, Long{1});
    EXPECT_EQ(automation::GetByName(line, name), Variant(Long{0})) << name;
    EXPECT_EQ(automation::GetByName(line, ItfHmiElement::InterfaceOf(), name), Variant(Long{0})) << name;
  }
}

TEST_F(EveryShapeClass, MarksWhatSaysWhoTheElementIsAndWhatTheProjectDoesNotKeep) {
  for (const ClassInfo* info :
       {&clsRectangle::ClassOf(), &clsEllipse::ClassOf(), &clsRoundRect::ClassOf(), &clsLine::ClassOf(),
        &clsText::ClassOf(), &clsBitmap::ClassOf(), &clsButton::ClassOf(), &clsFrame::ClassOf()}) {
    for (const Member& member : info->Default().Members()) {
      if (member.mark == Mark::NotCarried) continue;
      const bool identity = member.name == "ID" || member.name == "GroupID" || member.name == "OrderIndex";
      const bool transient = member.name == "ActualText" || member.name == "IsCanceled" ||
                             member.name == "hBmp" || member.name == "StretchImage";
      const auto expected = identity                     ? Mark::Identity
                            : transient                  ? Mark::Transient
                            : member.name == "FillStyle" ? Mark::NotStored
                                                         : Mark::None;
      EXPECT_EQ(member.mark, expected) << info->name << '.' << member.name;
    }
  }
}

TEST_F(EveryShapeClass, AreListedInTheOrderInWhichHostsOfferThem) {
  std::vector<std::string_view> names;
  for (const ClassInfo* info : ShapeClasses()) names.push_back(info->name);
  EXPECT_EQ(names,
            (std::vector<std::string_view>{"clsRectangle", "clsEllipse", "clsRoundRect", "clsLine", "clsText",
                                           "clsBitmap", "clsButton", "clsFrame", "clsGroup"}));
}

TEST_F(EveryShapeClass, NamesItsDefaultInterfaceAfterTheClass) {
  for (const ClassInfo* info : ShapeClasses()) {
    EXPECT_EQ(info->Default().Name(), "_" + std::string(info->name));
  }
}

TEST_F(EveryShapeClass, DocumentsEveryMember) {
  for (const ClassInfo* info : ShapeClasses()) {
    for (const Interface* interface : info->interfaces) {
      for (const Member& member : interface->Members()) {
        EXPECT_FALSE(member.documentation.empty()) << interface->Name() << '.' << member.name;
      }
    }
  }
}

/// FNV-1a over all slots of all interfaces: a published member that moves, changes its type or goes by
/// accident shows here.
TEST_F(EveryShapeClass, ThePublishedSurfaceIsUnchanged) {
  std::uint32_t hash = 2166136261u;
  const auto mix = [&hash](std::string_view text) {
    for (const char letter : text) hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619u;
  };
  for (const ClassInfo* info : ShapeClasses()) {
    mix(info->name);
    for (const Interface* interface : info->interfaces) {
      mix(interface->Name());
      for (const std::string& slot : interface->Slots()) mix(slot);
    }
  }
  EXPECT_EQ(hash, 0x6f229a00u) << "0x" << std::hex << hash;
}

}  // namespace
}  // namespace quenzel7
