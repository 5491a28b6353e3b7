#include "platform/fennick1/operand.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"
#include "tests/platform/fennick1/operand_project.h"
#include "tests/support/raises.h"

namespace quenzel7::fennick1 {
namespace {

using automation::GetByName;
using automation::InvokeByName;
using automation::PropertyBag;
using automation::PropertyBagRef;
using automation::PutByName;
using automation::To;
using automation::Variant;

class OperandTest : public ::testing::Test {
 protected:
  std::shared_ptr<Operand> Make(Long type, Long address, Long network = 0) {
    auto operand = std::make_shared<Operand>(project_.Store());
    operand->OperandType(type);
    operand->OperandAddress(address);
    operand->OperandNetID(network);
    return operand;
  }
  void Keep(Long type, Long address, const std::string& comment, std::int64_t value, Long network = 0) {
    project_.Store()->Add({type, address, network}, {comment, Currency{value}});
  }
  OperandContent Kept(Long type, Long address, Long network = 0) {
    return project_.Store()->Load({type, address, network}).value_or(OperandContent{"not there", {}});
  }
  /// "name=value" of everything in a bag, in order.
  static std::vector<std::string> Shown(const PropertyBagRef& bag) {
    std::vector<std::string> lines;
    for (const std::string& name : bag->Names()) {
      const Variant& value = bag->ReadProperty(name);
      lines.push_back(name + "=" + To<std::string>(value) + ":" + automation::KindName(value.Kind()));
    }
    return lines;
  }
  using Lines = std::vector<std::string>;

  OperandProject project_;
};

TEST_F(OperandTest, ANewOneIsNoOperandYet) {
  const Operand operand(project_.Store());
  EXPECT_EQ(operand.OperandType(), 0);
  EXPECT_EQ(operand.OperandAddress(), 0);
  EXPECT_EQ(operand.OperandNetID(), 0);
  EXPECT_EQ(operand.OperandComment(), "");
  EXPECT_EQ(operand.OperandValue(), Currency{});
  EXPECT_FALSE(operand.IsDefined());
}

TEST_F(OperandTest, KeepsWhatIsWritten) {
  Operand operand(project_.Store());
  operand.OperandType(37);
  operand.OperandAddress(-2);
  operand.OperandNetID(4);
  operand.OperandComment("comment");
  operand.OperandValue(Currency{5});
  EXPECT_EQ(operand.OperandType(), 37);
  EXPECT_EQ(operand.OperandAddress(), -2);
  EXPECT_EQ(operand.OperandNetID(), 4);
  EXPECT_EQ(operand.OperandComment(), "comment");
  EXPECT_EQ(operand.OperandValue(), Currency{5});
  EXPECT_EQ(project_.Rows(), "");
}

TEST_F(OperandTest, IsDefinedWhenTheProjectHasIt) {
  Keep(1, 5, "", 0);
  EXPECT_TRUE(Make(1, 5)->IsDefined());
  EXPECT_FALSE(Make(1, 6)->IsDefined());
  EXPECT_FALSE(Make(2, 5)->IsDefined());
  EXPECT_FALSE(Make(1, 5, 1)->IsDefined());
}

TEST_F(OperandTest, CommentAndValueAreTheProjectsUntilTheyAreWritten) {
  Keep(37, 5, "kept", 70000);
  const auto operand = Make(37, 5);
  EXPECT_EQ(operand->OperandComment(), "kept");
  EXPECT_EQ(operand->OperandValue(), Currency{70000});
  operand->OperandComment("");
  EXPECT_EQ(operand->OperandComment(), "");
  EXPECT_EQ(operand->OperandValue(), Currency{70000});
  operand->OperandValue(Currency{1});
  EXPECT_EQ(operand->OperandValue(), Currency{1});
  EXPECT_EQ(Kept(37, 5), (OperandContent{"kept", Currency{70000}}));
}

TEST_F(OperandTest, WhatWasFoundCountsUntilAnotherIsNamedOrThisOneComesOrGoes) {
  Keep(37, 5, "kept", 70000);
  Keep(37, 6, "other", 1);
  const auto operand = Make(37, 5);
  EXPECT_TRUE(operand->IsDefined());
  Keep(37, 5, "changed", 2);
  EXPECT_EQ(operand->OperandComment(), "kept");
  operand->OperandAddress(6);
  EXPECT_EQ(operand->OperandComment(), "other");
  operand->OperandAddress(5);
  EXPECT_EQ(operand->OperandComment(), "kept");
  EXPECT_TRUE(operand->IsDefined());
  EXPECT_EQ(operand->OperandComment(), "changed");
  operand->RemoveFromProject();
  EXPECT_EQ(operand->OperandComment(), "");
  EXPECT_FALSE(operand->IsDefined());
  operand->OperandValue(Currency{9});
  operand->AddToProject();
  Keep(37, 5, "new", 3);
  EXPECT_EQ(operand->OperandComment(), "new");
}

TEST_F(OperandTest, AnotherAddressShowsAnotherOperand) {
  Keep(37, 5, "five", 5);
  Keep(37, 6, "six", 6);
  const auto operand = Make(37, 5);
  EXPECT_EQ(operand->OperandComment(), "five");
  operand->OperandAddress(6);
  EXPECT_EQ(operand->OperandComment(), "six");
  EXPECT_EQ(operand->OperandValue(), Currency{6});
  operand->OperandAddress(7);
  EXPECT_EQ(operand->OperandComment(), "");
  EXPECT_EQ(operand->OperandValue(), Currency{});
}

TEST_F(OperandTest, TheBagHoldsTheWholeOperand) {
  Keep(37, 5, "kept", 125000, 2);
  EXPECT_EQ(Shown(Make(37, 5, 2)->PropBag()), (Lines{"Type=37:Long", "Address=5:Long", "NetID=2:Long",
                                                     "Comment=kept:String", "Value=12.5:Currency"}));
  EXPECT_EQ(Shown(Make(1, -1)->PropBag()),
            (Lines{"Type=1:Long", "Address=-1:Long", "NetID=0:Long", "Comment=:String", "Value=0:Currency"}));
}

TEST_F(OperandTest, TheBagHoldsWhatWasWrittenHere) {
  Keep(37, 5, "kept", 1);
  const auto operand = Make(37, 5);
  operand->OperandComment("own");
  EXPECT_EQ(To<std::string>(operand->PropBag()->ReadProperty("Comment")), "own");
  EXPECT_EQ(operand->PropBag()->ReadProperty("Value"), Variant(Currency{1}));
}

TEST_F(OperandTest, ABagMakesTheSameOperandAgain) {
  Keep(37, 5, "kept", std::numeric_limits<std::int64_t>::max(), 2);
  const PropertyBagRef bag = Make(37, 5, 2)->PropBag();
  project_.Store()->Remove({37, 5, 2});
  const auto stored = std::make_shared<PropertyBag>();
  stored->Contents(bag->Contents());
  Operand operand(project_.Store());
  operand.PropBag(stored);
  EXPECT_FALSE(operand.IsDefined());
  operand.AddToProject();
  EXPECT_EQ(project_.Rows(), "37 5 2; ");
  EXPECT_EQ(Kept(37, 5, 2), (OperandContent{"kept", Currency{std::numeric_limits<std::int64_t>::max()}}));
}

TEST_F(OperandTest, ABagReplacesWhatWasWrittenBefore) {
  const auto operand = Make(1, 1, 1);
  operand->OperandComment("old");
  operand->OperandValue(Currency{1});
  operand->PropBag(Make(37, 5)->PropBag());
  EXPECT_EQ(Shown(operand->PropBag()),
            (Lines{"Type=37:Long", "Address=5:Long", "NetID=0:Long", "Comment=:String", "Value=0:Currency"}));
}

TEST_F(OperandTest, TheContentOfABagStaysWhateverTheProjectHas) {
  const PropertyBagRef bag = Make(37, 5)->PropBag();
  Keep(37, 5, "later", 9);
  Operand operand(project_.Store());
  operand.PropBag(bag);
  EXPECT_EQ(operand.OperandComment(), "");
  EXPECT_EQ(operand.OperandValue(), Currency{});
}

TEST_F(OperandTest, ABagThatLacksANameIsRefusedWhole) {
  for (const char* lacking : {"Type", "Address", "NetID", "Comment", "Value"}) {
    const PropertyBagRef whole = Make(37, 5, 2)->PropBag();
    const auto bag = std::make_shared<PropertyBag>();
    for (const std::string& name : whole->Names()) {
      if (name != lacking) bag->WriteProperty(name, whole->ReadProperty(name));
    }
    const auto operand = Make(1, 7, 3);
    operand->OperandComment("own");
    operand->OperandValue(Currency{4});
    EXPECT_EQ(test::RaisedBy([&] { operand->PropBag(bag); }).number, 327) << lacking;
    EXPECT_EQ(Shown(operand->PropBag()), (Lines{"Type=1:Long", "Address=7:Long", "NetID=3:Long",
                                                "Comment=own:String", "Value=0.0004:Currency"}));
  }
}

TEST_F(OperandTest, NoBagIsAnError) {
  EXPECT_RAISES(91, "there is no property bag", Make(1, 5)->PropBag(nullptr));
}

TEST_F(OperandTest, ReportsShowItByName) {
  EXPECT_EQ(Make(1, 5)->OperandText(), "MB 5");
  EXPECT_EQ(Make(1, 5, 2)->OperandText(), "MB 5, network 2");
  Keep(37, 5, "", 125000);
  EXPECT_EQ(Make(37, 5)->OperandText(), "12.5");
}

TEST_F(OperandTest, AddToProjectEntersIt) {
  const auto operand = Make(37, 5, 2);
  operand->OperandComment("comment");
  operand->OperandValue(Currency{7});
  operand->AddToProject();
  EXPECT_TRUE(operand->IsDefined());
  EXPECT_EQ(Kept(37, 5, 2), (OperandContent{"comment", Currency{7}}));
}

TEST_F(OperandTest, AddToProjectReplacesWhatWasWrittenAndNoMore) {
  Keep(37, 5, "kept", 1);
  const auto operand = Make(37, 5);
  operand->OperandValue(Currency{2});
  operand->AddToProject();
  EXPECT_EQ(Kept(37, 5), (OperandContent{"kept", Currency{2}}));
  EXPECT_EQ(project_.Rows(), "37 5 0; ");
}

TEST_F(OperandTest, RemoveFromProjectTakesItOut) {
  Keep(1, 5, "", 0);
  Keep(1, 6, "", 0);
  const auto operand = Make(1, 5);
  operand->RemoveFromProject();
  EXPECT_FALSE(operand->IsDefined());
  operand->RemoveFromProject();
  EXPECT_EQ(project_.Rows(), "1 6 0; ");
}

TEST_F(OperandTest, GivesTheNextFreeAddressOfItsTypeAndNetwork) {
  Keep(37, 0, "", 0);
  Keep(37, 1, "", 0);
  EXPECT_EQ(Make(37, 9)->GetFreeAddress(), 2);
  EXPECT_EQ(Make(37, 9, 1)->GetFreeAddress(), 0);
  EXPECT_EQ(Make(38, 9)->GetFreeAddress(), 0);
}

TEST_F(OperandTest, PublishesItsMembersInOrder) {
  const Operand operand(project_.Store());
  EXPECT_EQ(operand.Class().name, "Operand");
  EXPECT_EQ(operand.Class().create, nullptr);
  EXPECT_EQ(operand.Class().Default().Name(), "Operand");
  EXPECT_EQ(
      operand.Class().Default().Slots(),
      (Lines{"get OperandType() As Long", "put OperandType(Long)", "get OperandAddress() As Long",
             "put OperandAddress(Long)", "put OperandNetID(Long)", "put OperandComment(String)",
             "get OperandValue() As Currency", "put OperandValue(Currency)", "get IsDefined() As Boolean",
             "get PropBag() As PropertyBag", "putref PropBag(PropertyBag)", "get OperandText() As String",
             "call AddToProject()", "call RemoveFromProject()", "call GetFreeAddress() As Long"}));
}

TEST_F(OperandTest, WorksByName) {
  const auto operand = std::make_shared<Operand>(project_.Store());
  PutByName(*operand, "OperandType", Long{37});
  PutByName(*operand, "OperandNetID", Long{2});
  PutByName(*operand, "OperandComment", "comment");
  PutByName(*operand, "OperandValue", Long{7});
  PutByName(*operand, "OperandAddress", InvokeByName(*operand, "GetFreeAddress"));
  InvokeByName(*operand, "AddToProject");
  EXPECT_EQ(GetByName(*operand, "OperandType"), Variant(Long{37}));
  EXPECT_EQ(GetByName(*operand, "OperandAddress"), Variant(Long{0}));
  EXPECT_EQ(GetByName(*operand, "OperandValue"), Variant(Currency{70000}));
  EXPECT_EQ(GetByName(*operand, "IsDefined"), Variant(true));
  EXPECT_EQ(GetByName(*operand, "OperandText"), Variant("7, network 2"));
  const auto other = std::make_shared<Operand>(project_.Store());
  PutByName(*other, "PropBag", GetByName(*operand, "PropBag"));
  EXPECT_EQ(other->OperandComment(), "comment");
  InvokeByName(*other, "RemoveFromProject");
  EXPECT_EQ(project_.Rows(), "");
}

}  // namespace
}  // namespace quenzel7::fennick1
