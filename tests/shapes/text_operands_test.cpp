/// The operands of texts and frames: which writers build the bags anew, what is in them, how they come back
/// and go.
#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "tests/support/raises.h"
#include "tests/support/text_fixture.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::PutByName;
using automation::Variant;
using test::CallLog;
using test::ErrorOf;
using test::OperandsIn;

template <class Element>
class TextOperands : public test::SavedTextBearing<Element> {
 protected:
  using Bags = automation::CollectionRef;

  /// A touchable element of that row, with an operand of that type for its string.
  static std::shared_ptr<Element> Of(Long id, Long type) {
    auto element = std::make_shared<Element>();
    element->TouchOprndAddr(22);
    element->StorageStringType(type);
    element->StorageStringID(25);
    element->ID(id);
    return element;
  }

  /// What the project is told of operands, with its rows.
  void NoteOperands() {
    Platform::Current().operands =
        std::make_shared<test::NotingStore>(Platform::Current().operands, this->Recorder());
    this->TakeLog();
  }

  /// Which operands leave the project, in order, with an element that is saved and deleted.
  CallLog ReleasedBy(Element& element) {
    element.SaveToDB();
    const auto store = Platform::Current().operands;
    NoteOperands();
    element.DeleteFromDB();
    Platform::Current().operands = store;
    CallLog removals = this->TakeLog();
    std::erase_if(removals, [](const std::string& call) { return !call.starts_with("remove"); });
    return removals;
  }

  static std::string Insert(const std::string& values) {
    return "execute INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) "
           "VALUES " +
           values;
  }
};
TYPED_TEST_SUITE(TextOperands, test::TextBearingTypes, test::ClassNameOfShape);
using OperandsOfText = TextOperands<clsText>;

// --- Writers ---

TYPED_TEST(TextOperands, TheStringsTypeBuildsTheBagsAnewWhenItIsNot0AndThereIsARow) {
  const struct {
    Long id, type;
    bool isBuilt;
  } kCases[] = {{-1, 24, false}, {5, 0, false}, {5, 24, true}, {0, 24, true},
                {-2, 24, true},  {5, -1, true}, {5, 1, true},  {-1, 0, false}};
  for (const auto& [id, type, isBuilt] : kCases) {
    const auto element = this->Of(id, 0);
    const auto before = element->ColOpPropBag();
    element->StorageStringType(type);
    EXPECT_EQ(element->StorageStringType(), type);
    EXPECT_EQ(element->ColOpPropBag() != before, isBuilt) << id << ' ' << type;
    if (isBuilt) {
      EXPECT_EQ(OperandsIn(element->ColOpPropBag()), (CallLog{"1 22", std::to_string(type) + " 25"}));
    }
  }
}

TYPED_TEST(TextOperands, TheStringsNumberBuildsTheBagsAnewWhenItIsAnAddressAndThereIsARow) {
  const struct {
    Long id, type, address;
    bool isBuilt;
  } kCases[] = {{-1, 24, 30, false}, {5, 0, 30, false}, {5, 24, 30, true},
                {5, 24, -1, true},   {0, 24, 30, true}, {-2, 24, 30, true}};
  for (const auto& [id, type, address, isBuilt] : kCases) {
    const auto element = this->Of(id, type);
    const auto before = element->ColOpPropBag();
    element->StorageStringID(address);
    EXPECT_EQ(element->StorageStringID(), address);
    EXPECT_EQ(element->ColOpPropBag() != before, isBuilt) << id << ' ' << type;
    if (isBuilt) {
      EXPECT_EQ(OperandsIn(element->ColOpPropBag()), (CallLog{"1 22", "24 " + std::to_string(address)}));
    }
  }
}

TYPED_TEST(TextOperands, BagsThatAreHandedOverAreSharedOrBuiltAnew) {
  const struct {
    Long id, type;
    bool isBuilt;
  } kCases[] = {{-1, 24, false}, {5, 0, false}, {5, 24, true}, {-2, 24, true}, {-1, 0, false}};
  for (const auto& [id, type, isBuilt] : kCases) {
    const auto element = this->Of(id, type);
    const auto before = element->ColOpPropBag();
    const auto given = std::make_shared<automation::Collection>();
    PutByName(*element, "ColOpPropBag", given);
    EXPECT_EQ(element->ColOpPropBag() == given, !isBuilt) << id << ' ' << type;
    EXPECT_EQ(GetByName(*element, "ColOpPropBag"), Variant(element->ColOpPropBag()));
    if (isBuilt) {
      EXPECT_NE(element->ColOpPropBag(), before);
      EXPECT_EQ(OperandsIn(element->ColOpPropBag()), (CallLog{"1 22", "24 25"}));
    }
    element->ColOpPropBag(nullptr);
    EXPECT_EQ(element->ColOpPropBag() == nullptr, !isBuilt);
  }
}

TYPED_TEST(TextOperands, ATouchBuildsTheBagsAnewAlsoWithoutARow) {
  TypeParam element;
  const auto before = element.ColOpPropBag();
  element.TouchOprndAddr(-1);
  EXPECT_EQ(element.ColOpPropBag(), before);
  element.TouchOprndAddr(0);
  EXPECT_EQ(OperandsIn(element.ColOpPropBag()), CallLog{"1 0"});
  element.TouchOprndAddr(-2);
  EXPECT_EQ(OperandsIn(element.ColOpPropBag()), CallLog{"1 -2"});
  const auto touched = element.ColOpPropBag();
  element.TouchOprndAddr(-1);
  EXPECT_EQ(element.ColOpPropBag(), touched);
  PutByName(element, ItfHmiElement::InterfaceOf(), "TouchOprndAddr", Long{8});
  EXPECT_EQ(OperandsIn(element.ColOpPropBag()), CallLog{"1 8"});
}

TYPED_TEST(TextOperands, OtherWritersLeaveTheBags) {
  const auto element = this->Of(5, 24);
  const auto before = element->ColOpPropBag();
  for (const char* name : {"ID", "GroupID", "Xs", "Dx", "Txt", "ActualText", "FontNumber", "Alignment",
                           "Flat3D", "TabIndex", "OrderIndex", "ColorBack"}) {
    PutByName(*element, name, "3");
    EXPECT_EQ(element->ColOpPropBag(), before) << name;
  }
}

TYPED_TEST(TextOperands, ValuesAreStoredBeforeTheBagsAreBuilt) {
  const auto element = this->Of(5, 0);
  this->CloseProject();
  EXPECT_EQ(ErrorOf([&] { element->StorageStringType(24); }), 91);
  EXPECT_EQ(element->StorageStringType(), 24);
  EXPECT_EQ(ErrorOf([&] { element->StorageStringID(30); }), 91);
  EXPECT_EQ(element->StorageStringID(), 30);
  const auto given = std::make_shared<automation::Collection>();
  EXPECT_EQ(ErrorOf([&] { element->ColOpPropBag(given); }), 91);
  EXPECT_EQ(element->ColOpPropBag(), given);
}

TYPED_TEST(TextOperands, WritersAddAndRemoveNoRows) {
  const auto element = this->Of(5, 24);
  this->Define(22);
  this->NoteOperands();
  element->StorageStringType(0);
  element->StorageStringType(7);
  element->StorageStringID(-1);
  element->TouchOprndAddr(-1);
  EXPECT_TRUE(this->TakeLog().empty());
  EXPECT_TRUE(this->IsDefined(22));
}

TYPED_TEST(TextOperands, IsTouchableFollowsTheAddress) {
  TypeParam element;
  for (const Long address : {0, -2, 22}) {
    element.TouchOprndAddr(address);
    EXPECT_TRUE(element.IsTouchable()) << address;
  }
  EXPECT_EQ(element.GetToolTipText(), "(Touch - MB 22) Pos: 0, 0 ; Size: 0, 0");
  element.TouchOprndAddr(-1);
  EXPECT_FALSE(element.IsTouchable());
  element.IsTouchable(true);
  EXPECT_EQ(element.TouchOprndAddr(), -1);
  EXPECT_TRUE(this->TakeLog().empty());
}

TYPED_TEST(TextOperands, IsTouchableWrittenFalseRemovesTheTouchRowAndThenTheAddress) {
  const auto element = this->Of(5, 24);
  AddOperandRow(5, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  AddOperandRow(5, 24, 25, eOP_StorageStringIdOperand, kLocalNetwork);
  this->Define(22);
  const auto bags = element->ColOpPropBag();
  this->NoteOperands();
  element->IsTouchable(false);
  EXPECT_EQ(this->TakeLog(),
            (CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND OprndAddr=22 "
                     "AND OprndNetID =0 AND OprndPurpose=2",
                     "remove operand 22"}));
  EXPECT_EQ(element->TouchOprndAddr(), -1);
  EXPECT_EQ(this->OperandRows(), std::vector<std::string>{"5 24 25 0 8"});
  EXPECT_EQ(element->ColOpPropBag(), bags);
  this->Recorder().FailAt(1);
  element->TouchOprndAddr(22);
  EXPECT_EQ(ErrorOf([&] { element->IsTouchable(false); }),
            static_cast<Long>(automation::ErrorNumber::Database));
  EXPECT_EQ(element->TouchOprndAddr(), 22);
}

TYPED_TEST(TextOperands, RestoringWritesTheRowOfTheStringsOperandAfterTheTouch) {
  const auto element = this->Of(-1, 24);
  element->ID(5);
  element->ColOpPropBag(nullptr);
  this->NoteOperands();
  element->RestoreAllOperands();
  EXPECT_EQ(this->TakeLog(), (CallLog{"add operand 22", this->Insert("(5,1,22,0,2)"), "add operand 25",
                                      this->Insert("(5,24,25,0,8)")}));
}

TYPED_TEST(TextOperands, RestoringAValueTakesOverItsNewTypeAndAddress) {
  const struct { Long kept, restored; } kTypes[] = {{34, 37}, {35, 38}, {37, 37}, {38, 38}, {15, 15}};
  for (const auto& [kept, restored] : kTypes) {
    this->Define(0, "", restored);
    const auto element = this->Of(5, kept);
    element->StorageStringID(25);
    ASSERT_EQ(OperandsIn(element->ColOpPropBag()), (CallLog{"1 22", std::to_string(kept) + " 25"}));
    element->RestoreAllOperands();
    EXPECT_EQ(element->StorageStringType(), restored) << kept;
    EXPECT_EQ(element->StorageStringID(), 1) << kept;
    const std::string type = std::to_string(restored);
    EXPECT_EQ(this->OperandRows(), (std::vector<std::string>{"5 1 22 0 2", "5 " + type + " 1 0 8"}));
    // The bags are those that it was restored from.
    EXPECT_EQ(OperandsIn(element->ColOpPropBag()), (CallLog{"1 22", std::to_string(kept) + " 25"}));
    this->Connection().Execute("DELETE FROM HMI_Operands");
    this->Connection().Execute("DELETE FROM Operands");
  }
}

TYPED_TEST(TextOperands, RestoringWithoutBagsOrWithTooFewIsAnErrorAfterWhatCameBefore) {
  const auto element = this->Of(-1, 24);
  element->ColOpPropBag(nullptr);
  EXPECT_EQ(ErrorOf([&] { element->RestoreAllOperands(); }), 91);
  EXPECT_TRUE(this->OperandRows().empty());
  const auto bags = std::make_shared<automation::Collection>();
  element->ColOpPropBag(bags);
  EXPECT_EQ(ErrorOf([&] { element->RestoreAllOperands(); }), 9);
  EXPECT_TRUE(this->OperandRows().empty());
  bags->Add(NewOperandBag(1, 22, 0));
  EXPECT_EQ(ErrorOf([&] { element->RestoreAllOperands(); }), 9);
  EXPECT_EQ(this->OperandRows(), std::vector<std::string>{"-1 1 22 0 2"});
  bags->Add(NewOperandBag(24, 25, 0));
  element->RestoreAllOperands();
  EXPECT_EQ(this->OperandRows().size(), 3u);
}

// --- The bags of a text ---

TEST_F(OperandsOfText, HaveABagForWhatIsThereInThisOrder) {
  const struct {
    Long touch, hide, type;
    CallLog expected;
  } kCases[] = {
      {-1, -1, 0, {}},
      {22, -1, 0, {"1 22"}},
      {-1, 23, 0, {"1 23"}},
      {-1, -1, 24, {"24 25"}},
      {22, 23, 0, {"1 22", "1 23"}},
      {22, -1, 24, {"1 22", "24 25"}},
      {-1, 23, 24, {"1 23", "24 25"}},
      {22, 23, 24, {"1 22", "1 23", "24 25"}},
      {0, 0, -1, {"1 0", "1 0", "-1 25"}},
      {-2, -2, 1, {"1 -2", "1 -2", "1 25"}},
  };
  for (const auto& [touch, hide, type, expected] : kCases) {
    clsText text;
    text.TouchOprndAddr(touch);
    text.VisibleOpAddr(hide);
    text.StorageStringType(type);
    text.StorageStringID(25);
    EXPECT_EQ(OperandsIn(text.BuildOpPropBag()), expected) << touch << ' ' << hide << ' ' << type;
    EXPECT_NE(text.BuildOpPropBag(), text.BuildOpPropBag());
    // And come back in the same order, with the purposes 2, 5 and 8.
    text.ID(5);
    text.ColOpPropBag(text.BuildOpPropBag());
    this->Connection().Execute("DELETE FROM HMI_Operands");
    text.RestoreAllOperands();
    std::vector<std::string> rows;
    if (touch != -1) rows.push_back("5 1 " + std::to_string(touch) + " 0 2");
    if (hide != -1) rows.push_back("5 1 " + std::to_string(hide) + " 0 5");
    if (type != 0) rows.push_back("5 " + std::to_string(type) + " 25 0 8");
    EXPECT_EQ(this->OperandRows(), rows) << touch << ' ' << hide << ' ' << type;
  }
}

TEST_F(OperandsOfText, ComeBackFromTheBagsOfThoseThatAreThere) {
  clsText text;
  text.VisibleOpAddr(23);
  text.StorageStringType(24);
  text.StorageStringID(25);
  const auto bags = std::make_shared<automation::Collection>();
  bags->Add(NewOperandBag(34, 3, 0));
  bags->Add(NewOperandBag(35, 3, 0));
  text.ColOpPropBag(bags);
  text.RestoreAllOperands();
  // The hide operand from bag 1, that of the string from bag 2.
  EXPECT_EQ(this->OperandRows(), (std::vector<std::string>{"-1 37 0 0 5", "-1 38 0 0 8"}));
  EXPECT_EQ(text.VisibleOpAddr(), 0);
  EXPECT_EQ(text.StorageStringType(), 38);
  EXPECT_EQ(text.StorageStringID(), 0);
}

TEST_F(OperandsOfText, TheHideOperandBuildsTheBagsAnewWhenThereIsOneAndARow) {
  const struct {
    Long id, address;
    bool isBuilt;
  } kCases[] = {{-1, 23, false}, {5, -1, false}, {5, 23, true}, {5, -2, true}, {-2, 23, true}, {5, 0, true}};
  for (const bool ofContract : {false, true}) {
    for (const auto& [id, address, isBuilt] : kCases) {
      const auto text = this->Of(id, 0);
      const auto before = text->ColOpPropBag();
      if (ofContract) {
        static_cast<ItfHmiElement&>(*text).VisibleOpAddr(address);
      } else {
        text->VisibleOpAddr(address);
      }
      EXPECT_EQ(text->VisibleOpAddr(), address);
      EXPECT_EQ(static_cast<ItfHmiElement&>(*text).VisibleOpAddr(), address);
      EXPECT_EQ(text->ColOpPropBag() != before, isBuilt) << id << ' ' << address;
      if (isBuilt) {
        EXPECT_EQ(OperandsIn(text->ColOpPropBag()), (CallLog{"1 22", "1 " + std::to_string(address)}));
      }
    }
  }
}

TEST_F(OperandsOfText, OnlyTheContractRemovesTheRowOfAHideOperandThatGoes) {
  const auto text = this->Of(5, 0);
  text->VisibleOpAddr(23);
  this->Define(23);
  this->NoteOperands();
  PutByName(*text, "VisibleOpAddr", Long{-1});
  text->VisibleOpAddr(23);
  PutByName(*text, ItfHmiElement::InterfaceOf(), "VisibleOpAddr", Long{23});
  EXPECT_TRUE(this->TakeLog().empty());
  PutByName(*text, ItfHmiElement::InterfaceOf(), "VisibleOpAddr", Long{-1});
  EXPECT_EQ(this->TakeLog(),
            (CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND OprndAddr=23 "
                     "AND OprndNetID =0 AND OprndPurpose=5",
                     "remove operand 23"}));
  EXPECT_EQ(text->VisibleOpAddr(), -1);
}

// --- Deletion ---

TEST_F(OperandsOfText, GoWithTheElementTouchStringAndHideInThisOrder) {
  const auto text = this->Distinct();
  text->SaveToDB();
  text->VisibleOpAddr(23);
  AddOperandRow(5, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  AddOperandRow(5, 24, 25, eOP_StorageStringIdOperand, kLocalNetwork);
  this->NoteOperands();
  text->DeleteFromDB();
  EXPECT_EQ(this->TakeLog(),
            (CallLog{"execute SELECT * FROM HMI_Elements WHERE ID=5", "get Guid", "Close",
                     "execute DELETE FROM DownloadDLUs WHERE GUID = 9",
                     "execute DELETE * FROM HMI_Elements WHERE ID=5",
                     "execute DELETE * FROM HMI_Operands WHERE ElementID=5", "remove operand 22",
                     "remove operand 25", "remove operand 23", "page 7"}));
  EXPECT_TRUE(this->OperandRows().empty());
  EXPECT_TRUE(this->Elements().empty());
  EXPECT_EQ(OperandsIn(text->ColOpPropBag()), (CallLog{"1 22", "1 23", "24 25"}));
}

TYPED_TEST(TextOperands, OfTouchAndStringGoOnlyWhenTheyAreThere) {
  const struct {
    Long touch, type;
    CallLog released;
  } kCases[] = {
      {-1, 0, {}},
      {0, 0, {"remove operand 0"}},
      {-2, 0, {"remove operand -2"}},
      {-1, 24, {"remove operand 25"}},
      {-1, 1, {"remove operand 25"}},
      {-1, -1, {"remove operand 25"}},
      {22, -1, {"remove operand 22", "remove operand 25"}},
      {-2, 24, {"remove operand -2", "remove operand 25"}},
  };
  for (const auto& [touch, type, released] : kCases) {
    TypeParam element;
    element.TouchOprndAddr(touch);
    // Otherwise that of address -1 would go, too, where there is one.
    element.VisibleOpAddr(0);
    element.StorageStringType(type);
    element.StorageStringID(25);
    EXPECT_EQ(this->ReleasedBy(element), released) << touch << ' ' << type;
  }
}

TEST_F(OperandsOfText, TheHideOperandGoesUnlessItIs0) {
  for (const Long address : {-2, -1, 0, 1}) {
    clsText text;
    text.VisibleOpAddr(address);
    EXPECT_EQ(ReleasedBy(text),
              address == 0 ? CallLog{} : CallLog{"remove operand " + std::to_string(address)});
  }
}

TYPED_TEST(TextOperands, TheOperandOfTheStringIsReleasedInItsOwnType) {
  TypeParam element;
  element.StorageStringType(24);
  element.StorageStringID(25);
  element.SaveToDB();
  this->Define(25);
  this->Define(25, "", 24);
  element.DeleteFromDB();
  EXPECT_FALSE(this->IsDefined(25, 24));
  EXPECT_TRUE(this->IsDefined(25));
}

TEST_F(OperandsOfText, ADeletionThatFailsHasOnlyDoneWhatCameBefore) {
  const auto store = Platform::Current().operands;
  const auto make = [&] {
    Platform::Current().operands = store;
    const auto text = this->Distinct();
    text->SaveToDB();
    AddOperandRow(text->ID(), 24, 25, eOP_StorageStringIdOperand, kLocalNetwork);
    this->Define(22);
    this->Define(23);
    this->Define(25, "", 24);
    this->Changes().Clear();
    this->NoteOperands();
    return text;
  };
  make()->DeleteFromDB();
  const CallLog calls = this->TakeLog();
  ASSERT_EQ(calls.size(), 10u);
  for (int step = 0; step < static_cast<int>(calls.size()); ++step) {
    const auto text = make();
    this->Recorder().FailAt(step + 1);
    EXPECT_EQ(ErrorOf([&] { text->DeleteFromDB(); }), static_cast<Long>(automation::ErrorNumber::Database));
    this->Recorder().FailAt(0);
    Platform::Current().operands = store;
    EXPECT_EQ(this->Elements().empty(), step > 4) << step;
    EXPECT_EQ(this->OperandRows().empty(), step > 5) << step;
    EXPECT_EQ(this->IsDefined(22), step <= 6) << step;
    EXPECT_EQ(this->IsDefined(25, 24), step <= 7) << step;
    EXPECT_EQ(this->IsDefined(23), step <= 8) << step;
    EXPECT_TRUE(this->Changes().ChangedPages().empty()) << step;
    this->Connection().Execute("DELETE FROM HMI_Elements");
    this->Connection().Execute("DELETE FROM HMI_Operands");
  }
}

TEST_F(OperandsOfText, ADeletionIsUndoneWithANewRow) {
  const auto text = this->Distinct();
  text->SaveToDB();
  text->VisibleOpAddr(23);
  text->DeleteFromDB();
  text->ID(-1);
  text->SaveToDB();
  text->RestoreAllOperands();
  EXPECT_EQ(text->ID(), 6);
  EXPECT_EQ(this->OperandRows(), (std::vector<std::string>{"6 1 22 0 2", "6 1 23 0 5", "6 24 25 0 8"}));
}

}  // namespace
}  // namespace quenzel7
