/// The operands of a variable: which writers build its bags anew, what is in them, how they come back and go.
#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "tests/support/raises.h"
#include "tests/support/text_fixture.h"
#include "tests/support/variable_fixture.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::InvokeByName;
using automation::PutByName;
using automation::Variant;
using test::CallLog;
using test::ErrorOf;
using test::OperandsIn;
using test::TypeOf;

class OperandsOfVariable : public test::VariableTest {
 protected:
  /// A variable with all its operands, whose bags are not built yet: the touch at 22, the link 3 at 44, the
  /// others at 28 to 31.
  std::shared_ptr<clsVar> Full() {
    auto variable = Of(8);
    variable->ID(-1);
    variable->SetTouchWithoutLoadingPropertyBag(22);
    variable->OperandType(3);
    variable->OperandAddress(44);
    variable->EnabledOpAddr(28);
    variable->VisibleOpAddr(29);
    variable->HighlightOpAddr(30);
    variable->KeypadSuccessOpAddr(31);
    variable->ID(5);
    TakeLog();
    return variable;
  }

  /// A variable in row 5 without operands.
  std::shared_ptr<clsVar> Bare() { return Of(8); }

  void NoteOperands() {
    Platform::Current().operands =
        std::make_shared<test::NotingStore>(Platform::Current().operands, Recorder());
    TakeLog();
  }

  static std::string Insert(const std::string& values) {
    return "execute INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) "
           "VALUES " +
           values;
  }

  static std::string Delete(const std::string& address, Long purpose) {
    return "execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND OprndAddr=" + address +
           " AND OprndNetID =0 AND OprndPurpose=" + std::to_string(purpose);
  }
};

const CallLog kNoOperands = {"1 -1", "0 0", "1 -1", "1 -1", "1 -1", "1 -1"};

// --- Bags ---

TEST_F(OperandsOfVariable, AreBuiltTouchThenLinkThenTheBitsThenThoseOfTheHandler) {
  const auto variable = Full();
  const auto before = variable->GetColOpPropertyBag();
  const auto bags = variable->BuildOpPropBag();
  EXPECT_EQ(OperandsIn(bags), (CallLog{"1 22", "3 44", "1 28", "1 29", "1 30", "1 31"}));
  EXPECT_EQ(variable->GetColOpPropertyBag(), bags);
  EXPECT_NE(bags, before);
  EXPECT_EQ(TakeLog(), CallLog{"handler.BuildOpPropBag()"});
  EXPECT_NE(variable->BuildOpPropBag(), bags);
  EXPECT_EQ(OperandsIn(Bare()->BuildOpPropBag()), kNoOperands);
}

TEST_F(OperandsOfVariable, KeepTheOldBagsWhenTheHandlerFails) {
  const auto variable = Full();
  const auto before = variable->GetColOpPropertyBag();
  handler_->during = [](const std::string& asked) {
    if (asked != "BuildOpPropBag") return;
    throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no");
  };
  EXPECT_EQ(ErrorOf([&] { variable->BuildOpPropBag(); }), 5);
  EXPECT_EQ(variable->GetColOpPropertyBag(), before);
}

TEST_F(OperandsOfVariable, HaveNoKeys) {
  const auto bags = Full()->BuildOpPropBag();
  EXPECT_EQ(bags->Count(), 6);
  for (const char* key : {"1", "Touch", "22"}) EXPECT_EQ(ErrorOf([&] { bags->Item(std::string(key)); }), 5);
}

TEST_F(OperandsOfVariable, AnAddressBuildsTheBagsAnewWhenThereIsOneAndARow) {
  const struct {
    Long id, address;
    bool isBuilt;
  } kCases[] = {{-1, 30, false}, {5, -1, false}, {5, 30, true}, {5, -2, true}, {-2, 30, true}, {5, 0, true}};
  const struct {
    const char* name;
    std::size_t place;
  } kNames[] = {{"TouchOprndAddr", 0},
                {"EnabledOpAddr", 2},
                {"VisibleOpAddr", 3},
                {"HighlightOpAddr", 4},
                {"KeypadSuccessOpAddr", 5}};
  for (const auto& [name, place] : kNames) {
    for (const bool ofContract : {false, true}) {
      for (const auto& [id, address, isBuilt] : kCases) {
        const auto variable = Bare();
        variable->ID(id);
        const auto before = variable->GetColOpPropertyBag();
        if (ofContract) {
          PutByName(*variable, ItfHmiElement::InterfaceOf(), name, address);
        } else {
          PutByName(*variable, name, address);
        }
        EXPECT_EQ(GetByName(*variable, name), Variant(address));
        EXPECT_EQ(variable->GetColOpPropertyBag() != before, isBuilt) << name << id << ' ' << address;
        if (!isBuilt) continue;
        CallLog bags = kNoOperands;
        bags[place] = "1 " + std::to_string(address);
        EXPECT_EQ(OperandsIn(variable->GetColOpPropertyBag()), bags) << name;
      }
    }
  }
}

TEST_F(OperandsOfVariable, ATouchThatIsOnlyStoredLeavesTheBags) {
  const auto variable = Bare();
  const auto before = variable->GetColOpPropertyBag();
  variable->SetTouchWithoutLoadingPropertyBag(22);
  EXPECT_EQ(variable->TouchOprndAddr(), 22);
  EXPECT_EQ(variable->GetColOpPropertyBag(), before);
  EXPECT_EQ(TakeLog(), CallLog{});
}

TEST_F(OperandsOfVariable, ALinkLeavesTheBags) {
  const auto variable = Bare();
  const auto before = variable->GetColOpPropertyBag();
  variable->OperandType(3);
  variable->OperandAddress(44);
  EXPECT_EQ(variable->GetColOpPropertyBag(), before);
}

TEST_F(OperandsOfVariable, AnAddressIsStoredBeforeTheBagsAreBuilt) {
  const auto variable = Bare();
  CloseProject();
  EXPECT_EQ(ErrorOf([&] { variable->EnabledOpAddr(30); }), 91);
  EXPECT_EQ(variable->EnabledOpAddr(), 30);
  EXPECT_EQ(ErrorOf([&] { variable->TouchOprndAddr(31); }), 91);
  EXPECT_EQ(variable->TouchOprndAddr(), 31);
  // Its own bags come before those of the handler.
  EXPECT_EQ(TakeLog(), CallLog{});
}

// --- Rows that go ---

TEST_F(OperandsOfVariable, OnlyTheHideOperandOfTheContractTakesItsRowAlong) {
  const struct {
    const char* name;
    bool removes;
  } kNames[] = {{"EnabledOpAddr", false},
                {"VisibleOpAddr", true},
                {"HighlightOpAddr", false},
                {"KeypadSuccessOpAddr", false},
                {"TouchOprndAddr", false}};
  NoteOperands();
  for (const auto& [name, removes] : kNames) {
    const auto variable = Full();
    const Long address = automation::To<Long>(GetByName(*variable, name));
    Define(address);
    TakeLog();
    PutByName(*variable, name, Long{-1});
    EXPECT_EQ(TakeLog(), CallLog{}) << name;
    PutByName(*variable, name, address);
    TakeLog();
    PutByName(*variable, ItfHmiElement::InterfaceOf(), name, Long{-1});
    EXPECT_EQ(TakeLog(),
              removes ? (CallLog{Delete("29", eOP_VisibleOperand), "remove operand 29"}) : CallLog{})
        << name;
    EXPECT_EQ(GetByName(*variable, name), Variant(Long{-1}));
  }
}

TEST_F(OperandsOfVariable, IsTouchableWrittenFalseRemovesTheTouchRow) {
  NoteOperands();
  const auto variable = Full();
  Define(22);
  TakeLog();
  ItfHmiElement& element = *variable;
  element.IsTouchable(true);
  EXPECT_EQ(TakeLog(), CallLog{});
  EXPECT_EQ(variable->TouchOprndAddr(), 22);
  element.IsTouchable(false);
  EXPECT_EQ(TakeLog(), (CallLog{Delete("22", eOP_TouchOperand), "remove operand 22"}));
  EXPECT_EQ(variable->TouchOprndAddr(), -1);
  element.IsTouchable(true);
  EXPECT_EQ(variable->TouchOprndAddr(), -1);
}

// --- Coming back ---

TEST_F(OperandsOfVariable, ComeBackInTheOrderOfTheirBagsThenThoseOfTheHandler) {
  const auto variable = Full();
  for (const Long address : {22, 28, 29, 30, 31}) Define(address);
  Define(44, "", 3);
  variable->BuildOpPropBag();
  for (const Long address : {22, 28, 29, 30, 31, 44}) {
    Platform::Current().operands->Remove({address == 44 ? 3 : 1, address, 0});
  }
  NoteOperands();
  variable->RestoreAllOperands();
  EXPECT_EQ(TakeLog(),
            (CallLog{"add operand 22", Insert("(5,1,22,0,2)"), "add operand 44", "handler.LinkOperandType=3",
                     "handler.LinkOperandAddress=44", Insert("(5,3,44,0,1)"), "add operand 28",
                     Insert("(5,1,28,0,4)"), "add operand 29", Insert("(5,1,29,0,5)"), "add operand 30",
                     Insert("(5,1,30,0,6)"), "add operand 31", Insert("(5,1,31,0,7)"),
                     "handler.RestoreAllOperands(5)"}));
}

TEST_F(OperandsOfVariable, ThatAreThereStayAndGetTheirRows) {
  const auto variable = Full();
  for (const Long address : {22, 28, 29, 30, 31}) Define(address);
  Define(44, "", 3);
  variable->BuildOpPropBag();
  NoteOperands();
  variable->RestoreAllOperands();
  const CallLog log = TakeLog();
  EXPECT_EQ(std::count_if(log.begin(), log.end(), [](const auto& call) { return call.starts_with("add"); }),
            0);
  EXPECT_EQ(OperandRows(),
            (CallLog{"5 3 44 0 1", "5 1 22 0 2", "5 1 28 0 4", "5 1 29 0 5", "5 1 30 0 6", "5 1 31 0 7"}));
}

TEST_F(OperandsOfVariable, ComeBackFromTheirOwnBagsWhicheverAreThere) {
  const struct {
    const char* name;
    Long address;
    std::string row;
  } kBits[] = {{"TouchOprndAddr", 22, "5 1 22 0 2"},
               {"EnabledOpAddr", 28, "5 1 28 0 4"},
               {"VisibleOpAddr", 29, "5 1 29 0 5"},
               {"HighlightOpAddr", 30, "5 1 30 0 6"},
               {"KeypadSuccessOpAddr", 31, "5 1 31 0 7"}};
  for (const auto& [gone, goneAddress, row] : kBits) {
    const auto variable = Full();
    variable->BuildOpPropBag();
    PutByName(*variable, gone, Long{-1});
    ASSERT_FALSE(IsDefined(44, 3));
    variable->RestoreAllOperands();
    CallLog expected = {"5 3 44 0 1"};
    for (const auto& bit : kBits) {
      if (bit.row != row) expected.push_back(bit.row);
      EXPECT_EQ(IsDefined(bit.address), bit.row != row) << gone << ' ' << bit.name;
    }
    EXPECT_TRUE(IsDefined(44, 3)) << gone;
    EXPECT_EQ(OperandRows(), expected) << gone;
    EXPECT_EQ(GetByName(*variable, gone), Variant(Long{-1}));
    Connection().Execute("DELETE FROM HMI_Operands");
    Connection().Execute("DELETE FROM Operands");
  }
}

TEST_F(OperandsOfVariable, ABitHasTheRowOfABitWhateverItsBagHolds) {
  const auto variable = Bare();
  variable->EnabledOpAddr(28);
  const auto bags = std::make_shared<automation::Collection>();
  for (Long place = 1; place <= 6; ++place) {
    bags->Add(NewOperandBag(place == 3 ? 34 : 1, place == 3 ? 7 : -1, kLocalNetwork));
  }
  variable->ColOpPropBag(bags);
  Define(0, "", 37);
  variable->RestoreAllOperands();
  // The value has come back at a free address.
  EXPECT_TRUE(IsDefined(1, 37));
  EXPECT_EQ(variable->EnabledOpAddr(), 1);
  EXPECT_EQ(OperandRows(), CallLog{"5 1 1 0 4"});
}

TEST_F(OperandsOfVariable, ComeBackAndGoByName) {
  const auto variable = Full();
  variable->BuildOpPropBag();
  InvokeByName(*variable, "RestoreAllOperands");
  EXPECT_EQ(OperandRows().size(), 6u);
  EXPECT_TRUE(IsDefined(22));
  EXPECT_EQ(TakeLog().back(), "handler.RestoreAllOperands(5)");
  Connection().Execute("INSERT INTO HMI_Elements (ID,GUID) VALUES (5,9)");
  InvokeByName(*variable, "DeleteFromDB");
  EXPECT_EQ(Elements(), CallLog{});
  EXPECT_EQ(OperandRows(), CallLog{});
  EXPECT_FALSE(IsDefined(22));
}

TEST_F(OperandsOfVariable, ATouchThatOpensAKeypadHasABagAndNoRow) {
  const auto variable = Bare();
  variable->TouchOprndAddr(-2);
  variable->OperandType(3);
  variable->OperandAddress(44);
  EXPECT_EQ(OperandsIn(variable->BuildOpPropBag()),
            (CallLog{"1 -2", "3 44", "1 -1", "1 -1", "1 -1", "1 -1"}));
  variable->RestoreAllOperands();
  EXPECT_EQ(OperandRows(), CallLog{"5 3 44 0 1"});
  for (const Long address : {-3, 0}) {
    Connection().Execute("DELETE FROM HMI_Operands");
    variable->TouchOprndAddr(address);
    variable->RestoreAllOperands();
    EXPECT_EQ(OperandRows(), (CallLog{"5 3 44 0 1", "5 1 " + std::to_string(address) + " 0 2"}));
  }
}

TEST_F(OperandsOfVariable, ALinkOfNoTypeMakesNoRow) {
  const auto variable = Bare();
  variable->BuildOpPropBag();
  variable->RestoreAllOperands();
  EXPECT_EQ(OperandRows(), CallLog{});
}

TEST_F(OperandsOfVariable, ALinkThatHoldsAValueComesBackAtAFreeAddressInANewType) {
  const auto variable = Bare();
  variable->OperandType(34);
  variable->OperandAddress(0);
  Define(0, "pressure", 34);
  variable->BuildOpPropBag();
  Define(0, "", 37);
  variable->RestoreAllOperands();
  EXPECT_EQ(variable->OperandType(), 37);
  EXPECT_EQ(variable->OperandAddress(), 1);
  EXPECT_EQ(OperandRows(), CallLog{"5 37 1 0 1"});
}

TEST_F(OperandsOfVariable, WithoutTheirBagsDoNotComeBack) {
  const auto variable = Full();
  EXPECT_EQ(ErrorOf([&] { variable->RestoreAllOperands(); }), 9);
  variable->ColOpPropBag(nullptr);
  EXPECT_EQ(ErrorOf([&] { variable->RestoreAllOperands(); }), 91);
  EXPECT_EQ(OperandRows(), CallLog{});
}

// --- Going ---

TEST_F(OperandsOfVariable, GoRowsFirstThenOneByOneThenThoseOfTheHandler) {
  const auto variable = Full();
  for (const Long address : {22, 28, 29, 30, 31}) Define(address);
  Define(44, "", 3);
  NoteOperands();
  variable->DeleteAllOperands();
  EXPECT_EQ(TakeLog(), (CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5", "remove operand 22",
                                "remove operand 44", "remove operand 28", "remove operand 29",
                                "remove operand 30", "remove operand 31", "handler.DeleteAllOperands()"}));
  EXPECT_FALSE(IsDefined(22));
  EXPECT_FALSE(IsDefined(44, 3));
}

TEST_F(OperandsOfVariable, GoAlsoWhereTheAddressIsNoneButNotWhereItIs0) {
  const auto variable = Bare();
  NoteOperands();
  const std::string rows = "execute DELETE * FROM HMI_Operands WHERE ElementID=5",
                    last = "handler.DeleteAllOperands()";
  variable->DeleteAllOperands();
  EXPECT_EQ(TakeLog(), (CallLog{rows, "remove operand -1", "remove operand -1", "remove operand -1",
                                "remove operand -1", last}));
  void (clsVar::*const writers[])(Long) = {&clsVar::EnabledOpAddr, &clsVar::VisibleOpAddr,
                                           &clsVar::HighlightOpAddr, &clsVar::KeypadSuccessOpAddr};
  for (const auto write : writers) {
    const auto other = Bare();
    ((*other).*write)(0);
    TakeLog();
    other->DeleteAllOperands();
    EXPECT_EQ(TakeLog(),
              (CallLog{rows, "remove operand -1", "remove operand -1", "remove operand -1", last}));
  }
  // A link without a type, and touches at -2 and at 0.
  const auto third = Bare();
  third->OperandAddress(44);
  for (const Long touch : {-2, 0}) {
    third->SetTouchWithoutLoadingPropertyBag(touch);
    TakeLog();
    third->DeleteAllOperands();
    EXPECT_EQ(TakeLog(), (CallLog{rows, "remove operand " + std::to_string(touch), "remove operand -1",
                                  "remove operand -1", "remove operand -1", "remove operand -1", last}));
  }
}

}  // namespace
}  // namespace quenzel7
