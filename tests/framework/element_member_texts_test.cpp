#include "framework/element_member_texts.h"

#include <gtest/gtest.h>

#include "framework/element_contract.h"

namespace quenzel7 {
namespace {

static_assert(ElementMemberText("EnabledOpAddr") ==
              "Address of the memory bit that enables the element; -1 none.");

TEST(ElementMemberTexts, AreThoseOfTheContractForEveryMember) {
  for (const automation::Member& member : ItfHmiElement::InterfaceOf().Members()) {
    EXPECT_EQ(ElementMemberText(member.name), member.documentation) << member.name;
    EXPECT_FALSE(member.documentation.empty()) << member.name;
  }
}

TEST(ElementMemberTexts, AreNotThereForAnotherName) {
  EXPECT_THROW(ElementMemberText("xs"), std::out_of_range);
  EXPECT_THROW(ElementMemberText(""), std::out_of_range);
}

}  // namespace
}  // namespace quenzel7
