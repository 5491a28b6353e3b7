/// The row of a frame, its operands and what is done with both.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/raises.h"
#include "tests/support/text_fixture.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::ErrorOf;
using test::Joined;
using test::kNewRow;
using test::kOldRow;
using test::OperandsIn;

/// The columns up to the place in the tab order of a frame with everything.
CallLog PutsWith(const std::string& touchAddress) {
  return Joined({test::PutsOfHead("12"),
                 {"put TouchOprndAddr=" + touchAddress + ":Long"},
                 test::kPutsOfStyle,
                 {"put KeypadSuccessOpAddr=-1:Long", "put EnabledOpAddr=-1:Long",
                  "put HighlightOpAddr=-1:Long", "put VisibleOpAddr=-1:Long"}});
}
CallLog PutsLast(const std::string& tabIndex) {
  return {"put TabIndex=" + tabIndex + ":Byte", "put VarOprndType=24:Long", "put VarOprndAddr=25:Long"};
}
const CallLog kEnd = {"Update", "get ID", "get OrderIndex", "Close", "element 5"};
const CallLog kTabOrder = {
    "open SELECT DISTINCT TabIndex FROM HMI_Elements WHERE (TabIndex<>255) AND (DisplayID=7) ORDER BY "
    "TabIndex [3,1,1]",
    "Close"};

using SavedFrame = test::SavedTextBearing<clsFrame>;
using Operands = std::vector<std::string>;

// --- Saving ---

TEST_F(SavedFrame, ANewRowIsMadeInThisOrder) {
  const auto frame = Distinct();
  TakeLog();
  EXPECT_TRUE(frame->SaveToDB());
  EXPECT_EQ(TakeLog(),
            Joined({kNewRow, {"put OrderIndex=1:Long"}, PutsWith("22"), PutsLast("26"), kEnd, {"page 7"}}));
  EXPECT_EQ(frame->ID(), 5);
  EXPECT_EQ(frame->OrderIndex(), 1);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "GUID", "OrderIndex", "VisibleOpAddr"}),
            Operands{"5 9 1 -1"});
}

TEST_F(SavedFrame, AnExistingRowIsRewrittenInThisOrderWithoutItsGuidAndOrder) {
  const auto frame = Distinct();
  frame->SaveToDB();
  frame->OrderIndex(30);
  TakeLog();
  EXPECT_TRUE(frame->SaveToDB());
  EXPECT_EQ(TakeLog(), Joined({kOldRow, PutsWith("22"), PutsLast("26"), kEnd}));
  EXPECT_EQ(frame->OrderIndex(), 1);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "GUID", "OrderIndex"}), Operands{"5 9 1"});
}

TEST_F(SavedFrame, WithoutATouchItHasNoPlaceInTheTabOrder) {
  const auto frame = Distinct();
  frame->SaveToDB();
  frame->TouchOprndAddr(-1);
  TakeLog();
  frame->SaveToDB();
  EXPECT_EQ(TakeLog(),
            Joined({kOldRow, PutsWith("-1"), {"put VarKeyPadEntry=0:Integer"}, PutsLast("255"), kEnd}));
  EXPECT_EQ(frame->TabIndex(), 255);
}

TEST_F(SavedFrame, ATouchWithoutAPlaceInTheTabOrderGetsTheNextOne) {
  const auto frame = Distinct();
  frame->SaveToDB();
  Connection().Execute("DELETE FROM HMI_Elements WHERE ID<>5");
  Connection().Execute("UPDATE HMI_Elements SET TabIndex=255");
  frame->TabIndex(255);
  TakeLog();
  frame->SaveToDB();
  EXPECT_EQ(TakeLog(), Joined({kOldRow, PutsWith("22"), kTabOrder, PutsLast("0"), kEnd}));
  EXPECT_EQ(frame->TabIndex(), 0);
}

TEST_F(SavedFrame, ATouchOfAKeypadLosesItsPlaceAndGetsAnother) {
  const auto frame = Distinct();
  frame->SaveToDB();
  Connection().Execute("UPDATE HMI_Elements SET TabIndex=255");
  frame->TouchOprndAddr(-2);
  TakeLog();
  frame->SaveToDB();
  EXPECT_EQ(
      TakeLog(),
      Joined({kOldRow, PutsWith("-2"), {"put VarKeyPadEntry=0:Integer"}, kTabOrder, PutsLast("0"), kEnd}));
}

TEST_F(SavedFrame, NewOnesLieOnTopOfTheirPageAndSavedTwiceKeepTheirOrder) {
  const auto below = Distinct(), above = Distinct();
  below->SaveToDB();
  above->SaveToDB();
  EXPECT_EQ(above->OrderIndex(), 2);
  below->SaveToDB();
  EXPECT_EQ(below->OrderIndex(), 1);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID", "OrderIndex"}), (Operands{"5 1", "6 2"}));
}

TEST_F(SavedFrame, TheOrderInTheRowIsReadBackAfterEverySave) {
  const auto frame = Distinct();
  frame->SaveToDB();
  Connection().Execute("UPDATE HMI_Elements SET OrderIndex=40");
  frame->SaveToDB();
  EXPECT_EQ(frame->OrderIndex(), 40);
}

// --- Loading ---

TEST_F(SavedFrame, IsReadInThisOrder) {
  Distinct()->SaveToDB();
  TakeLog();
  const auto frame = Loaded(5);
  EXPECT_EQ(TakeLog(), (CallLog{"open SELECT * FROM HMI_Elements WHERE ID=5 [3,1,1]",
                                "get ID",
                                "get GroupID",
                                "get Xs",
                                "get Ys",
                                "get Dx",
                                "get Dy",
                                "get ColorBack",
                                "get ColorFore",
                                "get ColorBackTouch",
                                "get ColorForeTouch",
                                "get Text",
                                "get FontNumber",
                                "get Alignment",
                                "get TouchOprndAddr",
                                "get Flat3D",
                                "get VarOprndType",
                                "get VarOprndAddr",
                                "get TabIndex",
                                "get OrderIndex",
                                "get ID"}));
  EXPECT_EQ(frame->ID(), 5);
  EXPECT_EQ(frame->GroupID(), 11);
  EXPECT_EQ(frame->Xs(), 12);
  EXPECT_EQ(frame->Ys(), 13);
  EXPECT_EQ(frame->Dx(), 140);
  EXPECT_EQ(frame->Dy(), 150);
  EXPECT_EQ(frame->ColorBack(), 16);
  EXPECT_EQ(frame->ColorFore(), 17);
  EXPECT_EQ(frame->ColorBackTouch(), 18);
  EXPECT_EQ(frame->ColorForeTouch(), 19);
  EXPECT_EQ(frame->Txt(), "one\r\ntwo");
  EXPECT_EQ(frame->FontNumber(), 5);
  EXPECT_EQ(frame->Alignment(), 6);
  EXPECT_EQ(frame->TouchOprndAddr(), 22);
  EXPECT_EQ(frame->Flat3D(), 2);
  EXPECT_EQ(frame->StorageStringType(), 24);
  EXPECT_EQ(frame->StorageStringID(), 25);
  EXPECT_EQ(frame->TabIndex(), 26);
  EXPECT_EQ(frame->OrderIndex(), 1);
}

// --- Operands ---

TEST_F(SavedFrame, ItsBagsAreThatOfTheTouchAlwaysAndThatOfTheStringWhenItIsPicked) {
  clsFrame frame;
  EXPECT_EQ(OperandsIn(frame.BuildOpPropBag()), Operands{"1 -1"});
  frame.StorageStringID(25);
  EXPECT_EQ(OperandsIn(frame.BuildOpPropBag()), Operands{"1 -1"});
  frame.StorageStringType(24);
  EXPECT_EQ(OperandsIn(frame.BuildOpPropBag()), (Operands{"1 -1", "24 25"}));
  frame.TouchOprndAddr(22);
  EXPECT_EQ(OperandsIn(frame.BuildOpPropBag()), (Operands{"1 22", "24 25"}));
  EXPECT_EQ(OperandsIn(frame.ColOpPropBag()), (Operands{"1 22", "24 25"}));
  frame.StorageStringType(0);
  EXPECT_EQ(OperandsIn(frame.BuildOpPropBag()), Operands{"1 22"});
}

TEST_F(SavedFrame, LoadingBuildsTheBagsAnew) {
  const auto frame = Distinct();
  frame->SaveToDB();
  EXPECT_EQ(OperandsIn(Loaded(5)->ColOpPropBag()), (Operands{"1 22", "24 25"}));
  frame->TouchOprndAddr(-1);
  frame->StorageStringType(0);
  frame->StorageStringID(-1);
  frame->SaveToDB();
  EXPECT_EQ(OperandsIn(Loaded(5)->ColOpPropBag()), Operands{"1 -1"});
}

TEST_F(SavedFrame, RestoringWritesTheRowsOfTouchAndString) {
  const auto frame = Distinct();
  frame->SaveToDB();
  frame->ColOpPropBag(nullptr);
  TakeLog();
  frame->RestoreAllOperands();
  EXPECT_EQ(OperandRows(), (Operands{"5 1 22 0 2", "5 24 25 0 8"}));
  EXPECT_TRUE(IsDefined(22));
  EXPECT_TRUE(IsDefined(25, 24));
}

TEST_F(SavedFrame, OnlyATouchThatDrivesAnOperandIsRestored) {
  struct Case {
    Long touch;
    Operands rows;
  };
  for (const Case& c : {Case{-1, {"5 24 25 0 8"}},
                        {-2, {"5 24 25 0 8"}},
                        {-3, {"5 1 -3 0 2", "5 24 25 0 8"}},
                        {0, {"5 1 0 0 2", "5 24 25 0 8"}}}) {
    const auto frame = Distinct();
    frame->ID(5);
    frame->TouchOprndAddr(c.touch);
    frame->ColOpPropBag(frame->BuildOpPropBag());
    frame->RestoreAllOperands();
    EXPECT_EQ(OperandRows(), c.rows) << c.touch;
    Connection().Execute("DELETE FROM HMI_Operands");
  }
}

TEST_F(SavedFrame, RestoringAnOperandThatHoldsAValueTakesItsNewAddress) {
  const auto frame = Distinct();
  frame->ID(5);
  frame->StorageStringType(34);
  frame->StorageStringID(25);
  frame->RestoreAllOperands();
  EXPECT_EQ(frame->StorageStringType(), 37);
  EXPECT_EQ(OperandRows()[1], "5 37 " + std::to_string(frame->StorageStringID()) + " 0 8");
}

TEST_F(SavedFrame, RestoringWithoutBagsIsAnErrorOnlyWhereThereIsSomethingToRestore) {
  clsFrame frame;
  frame.ColOpPropBag(nullptr);
  frame.RestoreAllOperands();
  frame.TouchOprndAddr(-2);
  frame.ColOpPropBag(nullptr);
  frame.RestoreAllOperands();
  frame.TouchOprndAddr(22);
  frame.ColOpPropBag(nullptr);
  EXPECT_EQ(ErrorOf([&] { frame.RestoreAllOperands(); }), 91);
  EXPECT_EQ(OperandRows(), Operands{});
  // One bag too few: the touch comes back all the same.
  frame.ColOpPropBag(frame.BuildOpPropBag());
  frame.StorageStringType(24);
  EXPECT_EQ(ErrorOf([&] { frame.RestoreAllOperands(); }), 9);
  EXPECT_EQ(OperandRows(), Operands{"-1 1 22 0 2"});
}

TEST_F(SavedFrame, DeletingRunsTheseStatementsAndReleasesTouchAndString) {
  const auto frame = Distinct();
  frame->SaveToDB();
  frame->ColOpPropBag(nullptr);
  frame->RestoreAllOperands();
  for (const Long address : {-1, 0, 22, 23}) Define(address);
  Define(25, "", 24);
  Define(26, "", 24);
  TakeLog();
  frame->DeleteFromDB();
  EXPECT_EQ(TakeLog(), (CallLog{"execute SELECT * FROM HMI_Elements WHERE ID=5", "get Guid", "Close",
                                "execute DELETE FROM DownloadDLUs WHERE GUID = 9",
                                "execute DELETE * FROM HMI_Elements WHERE ID=5",
                                "execute DELETE * FROM HMI_Operands WHERE ElementID=5", "page 7"}));
  EXPECT_EQ(Elements(), Operands{});
  EXPECT_EQ(OperandRows(), Operands{});
  EXPECT_FALSE(IsDefined(22));
  EXPECT_FALSE(IsDefined(25, 24));
  // There is no hide operand, not even the one of address -1.
  EXPECT_TRUE(IsDefined(-1));
  EXPECT_TRUE(IsDefined(0));
  EXPECT_TRUE(IsDefined(23));
  EXPECT_TRUE(IsDefined(26, 24));
}

TEST_F(SavedFrame, DeletingOneWithoutOperandsReleasesNone) {
  const auto frame = Distinct();
  frame->TouchOprndAddr(-1);
  frame->StorageStringType(0);
  frame->SaveToDB();
  for (const Long address : {-1, 0, 25}) Define(address);
  Define(25, "", 24);
  frame->DeleteFromDB();
  for (const Long address : {-1, 0, 25}) EXPECT_TRUE(IsDefined(address)) << address;
  EXPECT_TRUE(IsDefined(25, 24));
}

TEST_F(SavedFrame, ATouchIsReleasedBeforeTheString) {
  const auto frame = Distinct();
  frame->SaveToDB();
  Define(22);
  Define(25, "", 24);
  Platform::Current().operands =
      std::make_shared<test::NotingStore>(Platform::Current().operands, Recorder());
  TakeLog();
  frame->DeleteFromDB();
  const CallLog log = TakeLog();
  EXPECT_EQ(CallLog(log.end() - 3, log.end()), (CallLog{"remove operand 22", "remove operand 25", "page 7"}));
}

}  // namespace
}  // namespace quenzel7
