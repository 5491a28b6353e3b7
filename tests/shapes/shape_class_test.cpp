#include "shapes/shape_class.h"

#include <gtest/gtest.h>

#include "framework/element_contract.h"
#include "platform/automation/call_by_name.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

template <class Shape>
using EachShapeClass = test::ShapeTest<Shape>;
TYPED_TEST_SUITE(EachShapeClass, test::StrokedShapeTypes, test::ClassNameOfShape);

TYPED_TEST(EachShapeClass, TellTheSameOfEveryObject) {
  EXPECT_EQ(&TypeParam().Class(), &TypeParam::ClassOf());
  EXPECT_EQ(TypeParam::ClassOf().name, TypeParam::kClassName);
  EXPECT_NE(dynamic_cast<const TypeParam*>(TypeParam::ClassOf().create().get()), nullptr);
}

TYPED_TEST(EachShapeClass, DocumentTheirMembersAsTheContractDoes) {
  const automation::Interface& own = TypeParam::ClassOf().Default();
  const automation::Interface& contract = ItfHmiElement::InterfaceOf();
  EXPECT_EQ(own.Find("PenWidth")->documentation, "Width of the border in panel pixels.");
  for (const automation::Member& member : own.Members()) {
    EXPECT_FALSE(member.documentation.empty()) << member.name;
    const automation::Member* const same = contract.Find(member.name);
    if (!same || member.name == "SaveToDB" || member.name == "VisibleOpAddr") continue;
    EXPECT_EQ(member.documentation, same->documentation) << member.name;
  }
}

/// The two faces of the hide operand do not do the same.
TYPED_TEST(EachShapeClass, DocumentTheHideOperandOnTheirOwn) {
  EXPECT_EQ(
      TypeParam::ClassOf().Default().Find("VisibleOpAddr")->documentation,
      "Address of the memory bit that hides the element; -1 none. Writing leaves the operand's row alone.");
}

TYPED_TEST(EachShapeClass, MakeReplicasOfTheirOwnClass) {
  const auto shape = test::Placed<TypeParam>(1, 2, 3, 4);
  const auto copy = std::dynamic_pointer_cast<TypeParam>(shape->Replica());
  ASSERT_NE(copy, nullptr);
  EXPECT_NE(copy, shape);
  EXPECT_EQ(test::DescriptorOf(*copy, 1), (Descriptor{1, 2, 3, 4}));
}

}  // namespace
}  // namespace quenzel7
