/// The operands of a button: which writers build its bags anew, what is in them, how they come back and go.
#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "tests/support/button_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::PutByName;
using automation::Variant;
using test::CallLog;
using test::ErrorOf;
using test::OperandsIn;

class OperandsOfButton : public test::SavedButton {
 protected:
  /// The four that a button has, without their being looked at by it.
  static std::shared_ptr<clsButton> Of(Long touch, Long enabled, Long hide, Long highlight, Long type = 0) {
    auto button = std::make_shared<clsButton>();
    button->TouchOprndAddr(touch);
    button->EnabledOpAddr(enabled);
    button->VisibleOpAddr(hide);
    button->HighlightOpAddr(highlight);
    button->StorageStringType(type);
    button->StorageStringID(25);
    return button;
  }

  void NoteOperands() {
    Platform::Current().operands =
        std::make_shared<test::NotingStore>(Platform::Current().operands, Recorder());
    TakeLog();
  }

  /// Which operands leave the project, in order, with a button that is saved and deleted.
  CallLog ReleasedBy(clsButton& button) {
    button.SaveToDB();
    const auto store = Platform::Current().operands;
    NoteOperands();
    static_cast<ItfHmiElement&>(button).DeleteFromDB();
    Platform::Current().operands = store;
    CallLog removals = TakeLog();
    std::erase_if(removals, [](const std::string& call) { return !call.starts_with("remove"); });
    return removals;
  }

  static std::string Insert(const std::string& values) {
    return "execute INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) "
           "VALUES " +
           values;
  }
};

// --- Bags ---

TEST_F(OperandsOfButton, HaveNoBagsUntilTheseAreBuilt) {
  clsButton button;
  EXPECT_EQ(button.ColOpPropBag()->Count(), 0);
  EXPECT_EQ(OperandsIn(button.BuildOpPropBag()), (CallLog{"1 -1", "1 -1", "1 -1", "1 -1"}));
  EXPECT_EQ(button.ColOpPropBag()->Count(), 0);
}

TEST_F(OperandsOfButton, HaveABagEachInThisOrderAndOneForTheStringsIfAnOperandPicksIt) {
  const auto button = Of(22, 28, 23, 29);
  EXPECT_EQ(OperandsIn(button->BuildOpPropBag()), (CallLog{"1 22", "1 28", "1 23", "1 29"}));
  for (const Long type : {24, 1, -1}) {
    button->StorageStringType(type);
    EXPECT_EQ(OperandsIn(button->BuildOpPropBag()),
              (CallLog{"1 22", "1 28", "1 23", "1 29", std::to_string(type) + " 25"}));
  }
  EXPECT_EQ(OperandsIn(Of(-2, -1, 0, -2)->BuildOpPropBag()), (CallLog{"1 -2", "1 -1", "1 0", "1 -2"}));
}

TEST_F(OperandsOfButton, AnAddressBuildsTheBagsAnewWhenThereIsOneAndARow) {
  const struct {
    Long id, address;
    bool isBuilt;
  } kCases[] = {{-1, 30, false}, {5, -1, false}, {5, 30, true}, {5, -2, true}, {-2, 30, true}, {5, 0, true}};
  const char* const names[] = {"EnabledOpAddr", "VisibleOpAddr", "HighlightOpAddr"};
  for (const char* name : names) {
    for (const bool ofContract : {false, true}) {
      for (const auto& [id, address, isBuilt] : kCases) {
        clsButton button;
        button.ID(id);
        const auto before = button.ColOpPropBag();
        if (ofContract) {
          PutByName(button, ItfHmiElement::InterfaceOf(), name, address);
        } else {
          PutByName(button, name, address);
        }
        EXPECT_EQ(automation::GetByName(button, name), Variant(address));
        EXPECT_EQ(button.ColOpPropBag() != before, isBuilt) << name << id << ' ' << address;
        if (!isBuilt) continue;
        CallLog bags = {"1 -1", "1 -1", "1 -1", "1 -1"};
        const std::string own = name;
        bags[own == names[0] ? 1 : own == names[1] ? 2 : 3] = "1 " + std::to_string(address);
        EXPECT_EQ(OperandsIn(button.ColOpPropBag()), bags);
      }
    }
  }
}

TEST_F(OperandsOfButton, ATouchBuildsTheBagsAnewAlsoWithoutARow) {
  clsButton button;
  const auto before = button.ColOpPropBag();
  button.TouchOprndAddr(-1);
  EXPECT_EQ(button.ColOpPropBag(), before);
  for (const Long address : {0, -2, 8}) {
    button.TouchOprndAddr(address);
    EXPECT_EQ(OperandsIn(button.ColOpPropBag()),
              (CallLog{"1 " + std::to_string(address), "1 -1", "1 -1", "1 -1"}));
  }
  const auto touched = button.ColOpPropBag();
  button.TouchOprndAddr(-1);
  EXPECT_EQ(button.ColOpPropBag(), touched);
}

TEST_F(OperandsOfButton, TheOperandOfTheStringBuildsTheBagsAnewWhenThereIsOneAndARow) {
  const struct {
    Long id, type;
    bool isBuilt;
  } kCases[] = {{-1, 24, false}, {5, 0, false}, {5, 24, true}, {-2, 24, true}, {0, -1, true}};
  for (const auto& [id, type, isBuilt] : kCases) {
    const std::string first = std::to_string(type) + " ";
    const auto expect = [&, isBuilt = isBuilt](clsButton& button, const automation::CollectionRef& before,
                                               const std::string& last) {
      EXPECT_EQ(button.ColOpPropBag() != before, isBuilt) << last;
      if (!isBuilt) return;
      EXPECT_EQ(OperandsIn(button.ColOpPropBag()), (CallLog{"1 -1", "1 -1", "1 -1", "1 -1", last}));
    };
    clsButton button;
    button.ID(id);
    auto before = button.ColOpPropBag();
    button.StorageStringType(type);
    expect(button, before, first + "-1");
    before = button.ColOpPropBag();
    button.StorageStringID(25);
    expect(button, before, first + "25");
    before = std::make_shared<automation::Collection>();
    button.ColOpPropBag(before);
    expect(button, before, first + "25");
  }
}

TEST_F(OperandsOfButton, ValuesAreStoredBeforeTheBagsAreBuilt) {
  clsButton button;
  button.ID(5);
  CloseProject();
  EXPECT_EQ(ErrorOf([&] { button.EnabledOpAddr(30); }), 91);
  EXPECT_EQ(button.EnabledOpAddr(), 30);
  EXPECT_EQ(ErrorOf([&] { button.HighlightOpAddr(31); }), 91);
  EXPECT_EQ(button.HighlightOpAddr(), 31);
}

TEST_F(OperandsOfButton, OnlyTheContractRemovesTheRowOfAnOperandThatGoes) {
  const struct {
    const char* name;
    Long address, purpose;
  } kCases[] = {{"EnabledOpAddr", 28, eOP_EnabledOperand},
                {"VisibleOpAddr", 23, eOP_VisibleOperand},
                {"HighlightOpAddr", 29, eOP_HighlightOperand}};
  const auto store = Platform::Current().operands;
  for (const auto& [name, address, purpose] : kCases) {
    Platform::Current().operands = store;
    const auto button = Of(22, 28, 23, 29);
    button->ID(5);
    Define(address);
    NoteOperands();
    PutByName(*button, name, Long{-1});
    PutByName(*button, name, address);
    PutByName(*button, ItfHmiElement::InterfaceOf(), name, address);
    EXPECT_TRUE(TakeLog().empty());
    const std::string number = std::to_string(address);
    const CallLog removed = {
        "execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND OprndAddr=" + number +
            " AND OprndNetID =0 AND OprndPurpose=" + std::to_string(purpose),
        "remove operand " + number};
    Recorder().FailAt(1);
    EXPECT_NE(ErrorOf([&, name = name] { PutByName(*button, ItfHmiElement::InterfaceOf(), name, Long{-1}); }),
              0);
    EXPECT_EQ(automation::GetByName(*button, name), Variant(address));
    TakeLog();
    PutByName(*button, ItfHmiElement::InterfaceOf(), name, Long{-1});
    EXPECT_EQ(TakeLog(), removed);
    EXPECT_EQ(automation::GetByName(*button, name), Variant(Long{-1}));
    EXPECT_FALSE(IsDefined(address));
    // Once more, though there is none left: the row of the address -1.
    PutByName(*button, ItfHmiElement::InterfaceOf(), name, Long{-1});
    EXPECT_EQ(TakeLog(),
              CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND OprndAddr=-1 "
                      "AND OprndNetID =0 AND OprndPurpose=" +
                      std::to_string(purpose)});
  }
}

TEST_F(OperandsOfButton, IsTouchableWrittenFalseRemovesTheTouchRow) {
  const auto button = Of(22, 28, 23, 29);
  button->ID(5);
  NoteOperands();
  static_cast<ItfHmiElement&>(*button).IsTouchable(false);
  EXPECT_EQ(TakeLog(),
            (CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND OprndAddr=22 "
                     "AND OprndNetID =0 AND OprndPurpose=2"}));
  EXPECT_EQ(button->TouchOprndAddr(), -1);
}

// --- Restoring ---

TEST_F(OperandsOfButton, ComeBackInThisOrderForTheirPurposes) {
  const auto button = Of(22, 28, 23, 29, 24);
  button->ColOpPropBag(button->BuildOpPropBag());
  button->ID(5);
  NoteOperands();
  button->RestoreAllOperands();
  EXPECT_EQ(TakeLog(),
            (CallLog{"add operand 22", Insert("(5,1,22,0,2)"), "add operand 28", Insert("(5,1,28,0,4)"),
                     "add operand 23", Insert("(5,1,23,0,5)"), "add operand 29", Insert("(5,1,29,0,6)"),
                     "add operand 25", Insert("(5,24,25,0,8)")}));
}

TEST_F(OperandsOfButton, ComeBackOnlyForAddressesInUseEachFromItsOwnBag) {
  const Long kAll[] = {22, 28, 23, 29};
  for (int used = 0; used < 32; ++used) {
    const auto at = [&](int place) { return (used & 1 << place) != 0 ? kAll[place] : Long{-1}; };
    const auto button = Of(at(0), at(1), at(2), at(3), (used & 16) != 0 ? 24 : 0);
    button->ColOpPropBag(button->BuildOpPropBag());
    button->ID(5);
    button->RestoreAllOperands();
    CallLog rows;
    if (used & 1) rows.push_back("5 1 22 0 2");
    if (used & 2) rows.push_back("5 1 28 0 4");
    if (used & 4) rows.push_back("5 1 23 0 5");
    if (used & 8) rows.push_back("5 1 29 0 6");
    if (used & 16) rows.push_back("5 24 25 0 8");
    EXPECT_EQ(OperandRows(), rows) << used;
    for (int place = 0; place < 4; ++place) {
      EXPECT_EQ(IsDefined(kAll[place]), (used & 1 << place) != 0) << used << ' ' << place;
    }
    Connection().Execute("DELETE FROM HMI_Operands");
    Connection().Execute("DELETE FROM Operands");
  }
}

TEST_F(OperandsOfButton, ATouchThatOpensAKeypadHasABagAndNothingToBringBack) {
  const auto button = Of(-2, 28, -1, -1);
  button->ColOpPropBag(button->BuildOpPropBag());
  button->ID(5);
  button->RestoreAllOperands();
  EXPECT_EQ(OperandRows(), CallLog{"5 1 28 0 4"});
  const auto other = Of(-3, -2, -2, -2);
  other->ColOpPropBag(other->BuildOpPropBag());
  other->ID(6);
  Connection().Execute("DELETE FROM HMI_Operands");
  other->RestoreAllOperands();
  EXPECT_EQ(OperandRows(), (CallLog{"6 1 -3 0 2", "6 1 -2 0 4", "6 1 -2 0 5", "6 1 -2 0 6"}));
}

TEST_F(OperandsOfButton, TakeTheAddressOfARestoredValue) {
  const auto button = Of(22, 28, 23, 29);
  const auto bags = std::make_shared<automation::Collection>();
  for (const Long address : {40, 41, 42, 43}) bags->Add(NewOperandBag(15, address, 0));
  button->ColOpPropBag(bags);
  button->ID(5);
  button->RestoreAllOperands();
  EXPECT_EQ(button->TouchOprndAddr(), 0);
  EXPECT_EQ(button->EnabledOpAddr(), 1);
  EXPECT_EQ(button->VisibleOpAddr(), 2);
  EXPECT_EQ(button->HighlightOpAddr(), 3);
  EXPECT_EQ(OperandRows(), (CallLog{"5 1 0 0 2", "5 1 1 0 4", "5 1 2 0 5", "5 1 3 0 6"}));
}

TEST_F(OperandsOfButton, RestoringWithoutBagsOrWithTooFewIsAnErrorAfterWhatCameBefore) {
  const auto button = Of(22, 28, 23, 29, 24);
  button->ColOpPropBag(nullptr);
  EXPECT_EQ(ErrorOf([&] { button->RestoreAllOperands(); }), 91);
  EXPECT_TRUE(OperandRows().empty());
  const auto bags = std::make_shared<automation::Collection>();
  for (std::size_t count = 0; count <= 5; ++count) {
    button->ColOpPropBag(bags);
    EXPECT_EQ(ErrorOf([&] { button->RestoreAllOperands(); }), count < 5 ? 9 : 0) << count;
    EXPECT_EQ(OperandRows().size(), count);
    Connection().Execute("DELETE FROM HMI_Operands");
    const Long next[] = {22, 28, 23, 29, 25, 0};
    bags->Add(NewOperandBag(count == 4 ? 24 : 1, next[count], 0));
  }
  // Without an address in use nothing is looked at.
  const auto without = Of(-1, -1, -1, -1);
  without->ColOpPropBag(nullptr);
  without->RestoreAllOperands();
  EXPECT_TRUE(OperandRows().empty());
}

// --- Deletion ---

TEST_F(OperandsOfButton, GoInThisOrder) {
  EXPECT_EQ(ReleasedBy(*Of(22, 28, 23, 29, 24)),
            (CallLog{"remove operand 22", "remove operand 28", "remove operand 23", "remove operand 29",
                     "remove operand 25"}));
}

TEST_F(OperandsOfButton, ThoseOfModesGoUnlessTheyAre0AndTheOthersWhenTheyAreThere) {
  const auto removed = [](std::initializer_list<Long> addresses) {
    CallLog calls;
    for (const Long address : addresses) calls.push_back("remove operand " + std::to_string(address));
    return calls;
  };
  EXPECT_EQ(ReleasedBy(*Of(-1, 0, 0, 0)), CallLog{});
  EXPECT_EQ(ReleasedBy(*Of(0, 0, 0, 0)), removed({0}));
  EXPECT_EQ(ReleasedBy(*Of(-2, 0, 0, 0)), removed({-2}));
  EXPECT_EQ(ReleasedBy(*Of(-1, -1, 0, 0)), removed({-1}));
  EXPECT_EQ(ReleasedBy(*Of(-1, 0, -1, 0)), removed({-1}));
  EXPECT_EQ(ReleasedBy(*Of(-1, 0, 0, -1)), removed({-1}));
  EXPECT_EQ(ReleasedBy(*Of(-1, 1, 2, 3)), removed({1, 2, 3}));
  EXPECT_EQ(ReleasedBy(*Of(-1, 0, 0, 0, 24)), removed({25}));
  EXPECT_EQ(ReleasedBy(*Of(-1, 0, 0, 0, -1)), removed({25}));
}

}  // namespace
}  // namespace quenzel7
