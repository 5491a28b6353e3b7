#include <gtest/gtest.h>

#include <algorithm>

#include "framework/operands.h"
#include "framework/project.h"
#include "platform/automation/call_by_name.h"
#include "platform/gdi/recorder.h"
#include "platform/gdi/surface.h"
#include "shapes/rectangle.h"
#include "tests/support/project_fixture.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::InvokeByName;
using automation::PutByName;
using automation::Variant;
using test::CallLog;
using test::DescriptionOf;
using test::ErrorOf;

class SavedRectangle : public test::ProjectTest {
 protected:
  /// The next element gets the ID 5 and the GUID 9, so that no number is taken for another.
  void SetUp() override {
    ProjectTest::SetUp();
    for (int row = 0; row < 4; ++row) Connection().Execute("INSERT INTO HMI_Elements (DisplayID) VALUES (1)");
    Connection().Execute("DELETE FROM HMI_Elements");
    Connection().Execute("INSERT INTO Numbers (Name,Next) VALUES ('GUID',9)");
    TakeLog();
  }

  /// A rectangle in which every field that is kept has a value of its own.
  static std::shared_ptr<clsRectangle> Distinct() {
    auto r = std::make_shared<clsRectangle>();
    r->GroupID(11);
    r->Xs(12);
    r->Ys(13);
    r->Dx(14);
    r->Dy(15);
    r->ColorBack(16);
    r->ColorFore(17);
    r->ColorBackTouch(18);
    r->ColorForeTouch(19);
    r->ColorHatch(20);
    r->PenStyle(ePS_Dash_Dot);
    r->PenWidth(21);
    r->HatchStyle(eHS_Cross);
    r->FillStyle(eFS_Solid);
    r->TouchOprndAddr(22);
    r->VisibleOpAddr(23);
    r->OrderIndex(24);
    return r;
  }

  std::shared_ptr<clsRectangle> Loaded(Long id) {
    const auto row =
        ado::OpenRecordset(*ProjectConnection(), "SELECT * FROM HMI_Elements WHERE ID=" + std::to_string(id),
                           ado::adOpenStatic, ado::adLockReadOnly);
    auto r = std::make_shared<clsRectangle>();
    EXPECT_FALSE(r->LoadFromDB(*row));
    // The recordset is still open and on the same row.
    EXPECT_EQ(automation::To<Long>(row->Get("ID")), id);
    return r;
  }

  std::vector<std::string> Elements() { return Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID"}); }

  /// Whether the project has the memory bit.
  static bool IsDefined(Long address) {
    return !OperandDescription(kMemoryBit, address, kLocalNetwork).empty();
  }

  static void Define(Long address, const std::string& comment = "") {
    fennick1::Operand operand(Platform::Current().operands);
    operand.OperandType(kMemoryBit);
    operand.OperandAddress(address);
    operand.OperandComment(comment);
    operand.AddToProject();
  }
};

const CallLog kPutsOfDistinct = {
    "put Type=1:Long",
    "put Xs=12:Long",
    "put Ys=13:Long",
    "put Dx=14:Long",
    "put Dy=15:Long",
    "put DisplayID=7:Long",
    "put GroupID=11:Long",
    "put ColorBack=16:Long",
    "put ColorFore=17:Long",
    "put ColorBackTouch=18:Long",
    "put ColorForeTouch=19:Long",
    "put ColorHatch=20:Long",
    "put PenStyle=3:Long",
    "put PenWidth=21:Long",
    "put HatchStyle=4:Long",
    "put TouchOprndAddr=22:Long",
    "put VisibleOpAddr=23:Long",
    "put FontNumber=0:Integer",
    "put DescriptionFontNumber=0:Integer",
    "put Alignment=0:Integer",
    "put Flat3D=0:Integer",
    "put VarType=0:Integer",
    "put VarKeyPadEntry=0:Integer",
    "put VarOprndType=0:Integer",
    "put VarOprndAddr=0:Integer",
    "put GlobalVarID=0:Integer",
    "put DefaultDisplay=0:Integer",
    "put KeypadSuccessOpAddr=-1:Long",
    "put EnabledOpAddr=-1:Long",
    "put HighlightOpAddr=-1:Long",
    "put TabIndex=255:Byte",
};

CallLog Joined(const CallLog& a, const CallLog& b, const CallLog& c) {
  CallLog all = a;
  all.insert(all.end(), b.begin(), b.end());
  all.insert(all.end(), c.begin(), c.end());
  return all;
}

TEST_F(SavedRectangle, ANewRowIsMadeInThisOrder) {
  const auto r = Distinct();
  TakeLog();
  EXPECT_TRUE(r->SaveToDB());
  EXPECT_EQ(
      TakeLog(),
      Joined({"open SELECT * FROM HMI_ELEMENTS WHERE ID=-1 [3,3,1]", "AddNew", "put GUID=9:Long",
              "open SELECT MAX(OrderIndex) AS MaxOrderIndex FROM HMI_ELEMENTS WHERE DisplayID=7 [3,1,1]",
              "get MaxOrderIndex", "Close"},
             kPutsOfDistinct, {"put OrderIndex=1:Long", "Update", "get ID", "Close", "element 5", "page 7"}));
  EXPECT_EQ(r->ID(), 5);
  EXPECT_EQ(r->OrderIndex(), 1);
}

TEST_F(SavedRectangle, AnExistingRowIsRewrittenInThisOrderWithoutItsGuid) {
  const auto r = Distinct();
  r->SaveToDB();
  r->OrderIndex(30);
  TakeLog();
  EXPECT_TRUE(r->SaveToDB());
  EXPECT_EQ(TakeLog(), Joined({"open SELECT * FROM HMI_ELEMENTS WHERE ID=5 [3,3,1]"}, kPutsOfDistinct,
                              {"put OrderIndex=30:Long", "Update", "get ID", "Close", "element 5"}));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "GUID", "OrderIndex"}),
            std::vector<std::string>{"5 9 30"});
}

TEST_F(SavedRectangle, SavingKeepsWhatTheRowHolds) {
  Distinct()->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID",
                                                "GUID",
                                                "Type",
                                                "Xs",
                                                "Ys",
                                                "Dx",
                                                "Dy",
                                                "DisplayID",
                                                "GroupID",
                                                "ColorBack",
                                                "ColorFore",
                                                "ColorBackTouch",
                                                "ColorForeTouch",
                                                "ColorHatch",
                                                "PenStyle",
                                                "PenWidth",
                                                "HatchStyle",
                                                "TouchOprndAddr",
                                                "VisibleOpAddr",
                                                "FontNumber",
                                                "DescriptionFontNumber",
                                                "Alignment",
                                                "Flat3D",
                                                "VarType",
                                                "VarKeyPadEntry",
                                                "VarOprndType",
                                                "VarOprndAddr",
                                                "GlobalVarID",
                                                "DefaultDisplay",
                                                "KeypadSuccessOpAddr",
                                                "EnabledOpAddr",
                                                "HighlightOpAddr",
                                                "TabIndex",
                                                "OrderIndex"}),
            std::vector<std::string>{
                "5 9 1 12 13 14 15 7 11 16 17 18 19 20 3 21 4 22 23 0 0 0 0 0 0 0 0 0 0 -1 -1 -1 255 1"});
}

TEST_F(SavedRectangle, SavesDescriptor1) {
  const auto r = Distinct();
  r->Move(100, 100);
  r->SaveLastLegalPosition();
  r->UpdateDisplayWithTransx();
  r->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"Xs", "Ys"}), std::vector<std::string>{"12 13"});
  r->UpdateInitialDescriptor();
  r->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"Xs", "Ys"}), std::vector<std::string>{"112 113"});
}

TEST_F(SavedRectangle, OrderIndicesAndGuidsCountUp) {
  Distinct()->SaveToDB();
  Distinct()->SaveToDB();
  OpenPage(8);
  Distinct()->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID", "GUID", "DisplayID", "OrderIndex"}),
            (std::vector<std::string>{"5 9 7 1", "6 10 7 2", "7 11 8 1"}));
}

TEST_F(SavedRectangle, SavingOnAnotherPageMovesTheRowThere) {
  const auto r = Distinct();
  r->SaveToDB();
  OpenPage(9);
  r->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "DisplayID"}), std::vector<std::string>{"5 9"});
}

TEST_F(SavedRectangle, ANewRowTellsOfElementAndPageAnOldOneOfTheElement) {
  const auto r = Distinct();
  r->SaveToDB();
  EXPECT_EQ(Changes().ChangedElements(), std::vector<Long>{5});
  EXPECT_EQ(Changes().ChangedPages(), std::vector<Long>{7});
  Changes().Clear();
  r->SaveToDB();
  EXPECT_EQ(Changes().ChangedElements(), std::vector<Long>{5});
  EXPECT_TRUE(Changes().ChangedPages().empty());
}

TEST_F(SavedRectangle, BothFacesOfSaveToDBSave) {
  const auto r = Distinct();
  EXPECT_EQ(InvokeByName(*r, "SaveToDB"), Variant(true));
  EXPECT_EQ(InvokeByName(*r, ItfHmiElement::InterfaceOf(), "SaveToDB"), Variant());
  static_cast<ItfHmiElement&>(*r).SaveToDB();
  EXPECT_EQ(Elements(), std::vector<std::string>{"5"});
}

TEST_F(SavedRectangle, PropertyWritersDoNotSave) {
  const auto r = Distinct();
  r->SaveToDB();
  r->Xs(99);
  r->ColorFore(99);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"Xs", "ColorFore"}), std::vector<std::string>{"12 17"});
}

TEST_F(SavedRectangle, SavingARowThatIsGoneIsAnError) {
  const auto r = Distinct();
  r->ID(77);
  EXPECT_EQ(ErrorOf([&] { r->SaveToDB(); }), 3021);
  EXPECT_TRUE(Elements().empty());
  EXPECT_EQ(r->ID(), 77);
}

// --- Loading ---

TEST_F(SavedRectangle, LoadsItsColumnsInThisOrder) {
  Distinct()->SaveToDB();
  TakeLog();
  Loaded(5);
  const CallLog expected = {"open SELECT * FROM HMI_Elements WHERE ID=5 [3,1,1]", "get ID", "get GroupID",
                            "get Xs", "get Ys", "get Dx", "get Dy", "get ColorBack", "get ColorFore",
                            "get ColorBackTouch", "get ColorForeTouch", "get ColorHatch", "get PenStyle",
                            "get PenWidth", "get HatchStyle", "get TouchOprndAddr", "get VisibleOpAddr",
                            "get OrderIndex",
                            // The fixture's look at the row afterwards.
                            "get ID"};
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(SavedRectangle, ComesBackFromAReopenedProjectButForItsFillStyle) {
  Distinct()->SaveToDB();
  Reopen();
  const auto r = Loaded(5);
  EXPECT_EQ(r->ID(), 5);
  EXPECT_EQ(r->GroupID(), 11);
  for (Long location = 1; location <= 4; ++location) {
    Descriptor d;
    r->GetBoundingRect(d.xs, d.ys, d.dx, d.dy, location);
    EXPECT_EQ(d, (Descriptor{12, 13, 14, 15})) << location;
  }
  EXPECT_EQ(r->ColorBack(), 16);
  EXPECT_EQ(r->ColorFore(), 17);
  EXPECT_EQ(r->ColorBackTouch(), 18);
  EXPECT_EQ(r->ColorForeTouch(), 19);
  EXPECT_EQ(r->ColorHatch(), 20);
  EXPECT_EQ(r->PenStyle(), ePS_Dash_Dot);
  EXPECT_EQ(r->PenWidth(), 21);
  EXPECT_EQ(r->HatchStyle(), eHS_Cross);
  EXPECT_EQ(r->TouchOprndAddr(), 22);
  EXPECT_EQ(r->VisibleOpAddr(), 23);
  EXPECT_EQ(r->OrderIndex(), 1);
  EXPECT_EQ(r->FillStyle(), eFS_Hollow);
}

TEST_F(SavedRectangle, LoadingReadsNoFillStyleAndKeepsTheOneThatTheHostSet) {
  Distinct()->SaveToDB();
  const auto row =
      ado::OpenRecordset(Connection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic, ado::adLockReadOnly);
  const auto r = std::make_shared<clsRectangle>();
  r->FillStyle(eFS_Solid);
  r->LoadFromDB(*row);
  EXPECT_EQ(r->FillStyle(), eFS_Solid);
}

TEST_F(SavedRectangle, LoadingBuildsTheBagsAnew) {
  const auto saved = Distinct();
  saved->SaveToDB();
  const auto both = Loaded(5);
  ASSERT_NE(both->OperandBags(), nullptr);
  EXPECT_EQ(both->OperandBags()->Count(), 2);
  saved->TouchOprndAddr(-1);
  saved->VisibleOpAddr(-1);
  saved->SaveToDB();
  const auto none = Loaded(5);
  ASSERT_NE(none->OperandBags(), nullptr);
  EXPECT_EQ(none->OperandBags()->Count(), 0);
}

TEST_F(SavedRectangle, ANullColumnIsAnErrorThatNamesIt) {
  Distinct()->SaveToDB();
  for (const char* column : {"GroupID", "Xs", "ColorHatch", "OrderIndex"}) {
    Connection().Execute(std::string("UPDATE HMI_Elements SET ") + column + "=NULL");
    EXPECT_EQ(ErrorOf([&] { Loaded(5); }), 94) << column;
    EXPECT_EQ(
        DescriptionOf([&] { Loaded(5); }),
        std::string("column '") + column + "' of HMI_Elements: invalid use of Null: a number was expected");
    Connection().Execute(std::string("UPDATE HMI_Elements SET ") + column + "=1");
  }
}

TEST_F(SavedRectangle, AMissingColumnIsAnError) {
  const auto row = ado::OpenRecordset(Connection(), "SELECT ID,GroupID FROM HMI_Elements WHERE ID=5",
                                      ado::adOpenStatic, ado::adLockReadOnly);
  Distinct()->SaveToDB();
  const auto narrow = ado::OpenRecordset(Connection(), "SELECT ID,GroupID FROM HMI_Elements WHERE ID=5",
                                         ado::adOpenStatic, ado::adLockReadOnly);
  EXPECT_EQ(ErrorOf([&] { clsRectangle().LoadFromDB(*narrow); }), 3265);
  EXPECT_NE(DescriptionOf([&] { clsRectangle().LoadFromDB(*narrow); }).find("column 'Xs' of HMI_Elements"),
            std::string::npos);
}

TEST_F(SavedRectangle, AValueThatIsNoNumberIsAnError) {
  Distinct()->SaveToDB();
  Connection().Execute("UPDATE HMI_Elements SET Xs='wide'");
  EXPECT_EQ(ErrorOf([&] { Loaded(5); }), 13);
}

TEST_F(SavedRectangle, LoadingWorksThroughCallByName) {
  Distinct()->SaveToDB();
  const auto row =
      ado::OpenRecordset(Connection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic, ado::adLockReadOnly);
  const auto r = std::make_shared<clsRectangle>();
  EXPECT_EQ(InvokeByName(*r, ItfHmiElement::InterfaceOf(), "LoadFromDB", {row}), Variant(false));
  EXPECT_EQ(GetByName(*r, "xs"), Variant(Long{12}));
}

// --- Operands ---

TEST_F(SavedRectangle, TheDefaultFaceOfVisibleOpAddrStoresOnly) {
  const auto r = Distinct();
  r->SaveToDB();
  TakeLog();
  r->VisibleOpAddr(-1);
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_EQ(r->VisibleOpAddr(), -1);
  PutByName(*r, "VisibleOpAddr", Long{5});
  PutByName(*r, "VisibleOpAddr", Long{-1});
  EXPECT_TRUE(TakeLog().empty());
}

TEST_F(SavedRectangle, TheElementFaceOfVisibleOpAddrRemovesTheRowWithTheOldAddressFirst) {
  const auto r = Distinct();
  r->SaveToDB();
  AddOperandRow(5, kMemoryBit, 23, eOP_VisibleOperand, kLocalNetwork);
  AddOperandRow(5, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  Define(23);
  TakeLog();
  ItfHmiElement& element = *r;
  element.VisibleOpAddr(-1);
  const std::string removal =
      "execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND OprndAddr=23 AND OprndNetID "
      "=0 AND "
      "OprndPurpose=5";
  EXPECT_EQ(TakeLog(), CallLog{removal});
  EXPECT_EQ(r->VisibleOpAddr(), -1);
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"5 1 22 0 2"});
  EXPECT_FALSE(IsDefined(23));

  // A second time the address that it has now.
  PutByName(*r, ItfHmiElement::InterfaceOf(), "visibleopaddr", Long{-1});
  EXPECT_EQ(TakeLog(),
            CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND OprndAddr=-1 "
                    "AND OprndNetID =0 AND OprndPurpose=5"});
}

TEST_F(SavedRectangle, WritingAnAddressRemovesAndAddsNoRow) {
  const auto r = Distinct();
  r->SaveToDB();
  TakeLog();
  ItfHmiElement& element = *r;
  element.VisibleOpAddr(40);
  element.TouchOprndAddr(41);
  element.TouchOprndAddr(-1);
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_EQ(r->VisibleOpAddr(), 40);
}

Long AddressInBag(const clsRectangle& r, Long place) {
  fennick1::Operand operand(Platform::Current().operands);
  operand.PropBag(r.OperandBags()->ObjectAt<automation::PropertyBag>(place));
  EXPECT_EQ(operand.OperandType(), 1);
  return operand.OperandAddress();
}

TEST_F(SavedRectangle, TheHideOperandRebuildsTheBagsOnlyOnASavedElement) {
  clsRectangle r;
  r.VisibleOpAddr(5);
  EXPECT_EQ(r.OperandBags(), nullptr);
  r.ID(3);
  r.VisibleOpAddr(-1);
  EXPECT_EQ(r.OperandBags(), nullptr);
  r.VisibleOpAddr(6);
  ASSERT_NE(r.OperandBags(), nullptr);
  EXPECT_EQ(r.OperandBags()->Count(), 1);
  EXPECT_EQ(AddressInBag(r, 1), 6);
  static_cast<ItfHmiElement&>(r).VisibleOpAddr(8);
  EXPECT_EQ(AddressInBag(r, 1), 8);
}

TEST_F(SavedRectangle, TheTouchOperandRebuildsTheBagsAlsoOnANewElement) {
  clsRectangle r;
  r.VisibleOpAddr(5);
  r.TouchOprndAddr(4);
  ASSERT_NE(r.OperandBags(), nullptr);
  EXPECT_EQ(r.OperandBags()->Count(), 2);
  EXPECT_EQ(AddressInBag(r, 1), 4);
  EXPECT_EQ(AddressInBag(r, 2), 5);
  const auto before = r.OperandBags();
  r.TouchOprndAddr(-1);
  EXPECT_EQ(r.OperandBags(), before);
}

TEST_F(SavedRectangle, IsTouchableFollowsTheAddress) {
  clsRectangle r;
  EXPECT_FALSE(r.IsTouchable());
  r.TouchOprndAddr(0);
  EXPECT_TRUE(r.IsTouchable());
  r.TouchOprndAddr(-2);
  EXPECT_TRUE(r.IsTouchable());
  r.TouchOprndAddr(-1);
  EXPECT_FALSE(r.IsTouchable());
  r.IsTouchable(true);
  EXPECT_FALSE(r.IsTouchable());
  EXPECT_TRUE(TakeLog().empty());
}

TEST_F(SavedRectangle, IsTouchableWrittenFalseRemovesTheTouchRowAndTheOperand) {
  const auto r = Distinct();
  r->SaveToDB();
  AddOperandRow(5, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  AddOperandRow(5, kMemoryBit, 23, eOP_VisibleOperand, kLocalNetwork);
  Define(22);
  const auto bags = r->OperandBags();
  TakeLog();
  r->IsTouchable(false);
  EXPECT_EQ(TakeLog(),
            CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND OprndAddr=22 "
                    "AND OprndNetID =0 AND OprndPurpose=2"});
  EXPECT_EQ(r->TouchOprndAddr(), -1);
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"5 1 23 0 5"});
  EXPECT_FALSE(IsDefined(22));
  EXPECT_EQ(r->OperandBags(), bags);
}

TEST_F(SavedRectangle, ToolTipBeginsWithTheTouchOperand) {
  const auto r = Distinct();
  EXPECT_EQ(r->GetToolTipText(), "(Touch - MB 22) Pos: 12, 13 ; Size: 14, 15");
}

TEST_F(SavedRectangle, RestoringWritesTouchAndThenHideRow) {
  const auto r = Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(23);
  TakeLog();
  r->RestoreAllOperands();
  EXPECT_EQ(
      TakeLog(),
      (CallLog{"execute INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) "
               "VALUES (5,1,22,0,2)",
               "execute INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) "
               "VALUES (5,1,23,0,5)"}));
  EXPECT_TRUE(IsDefined(22));
  EXPECT_TRUE(IsDefined(23));
}

TEST_F(SavedRectangle, RestoringWithOnlyAHideOperandTakesBag1) {
  clsRectangle r;
  r.ID(3);
  r.VisibleOpAddr(9);
  ASSERT_EQ(r.OperandBags()->Count(), 1);
  r.RestoreAllOperands();
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"3 1 9 0 5"});
}

TEST_F(SavedRectangle, RestoringWithoutOperandsDoesNothing) {
  clsRectangle r;
  r.RestoreAllOperands();
  EXPECT_TRUE(TakeLog().empty());
}

TEST_F(SavedRectangle, RestoringWithoutBagsIsAnError) {
  clsRectangle r;
  r.VisibleOpAddr(9);
  EXPECT_EQ(ErrorOf([&] { r.RestoreAllOperands(); }), 91);
  r.ColOpPropBag(std::make_shared<automation::Collection>());
  EXPECT_EQ(ErrorOf([&] { r.RestoreAllOperands(); }), 9);
  EXPECT_TRUE(OperandRows().empty());
}

TEST_F(SavedRectangle, RestoringLeavesTheBagsAsTheyAre) {
  const auto r = Distinct();
  r->ID(5);
  r->VisibleOpAddr(23);
  const auto bags = r->OperandBags();
  r->RestoreAllOperands();
  EXPECT_EQ(r->OperandBags(), bags);
  EXPECT_EQ(bags->Count(), 2);
}

// --- Deletion and its undo ---

TEST_F(SavedRectangle, DeletingRunsTheseStatements) {
  const auto r = Distinct();
  r->SaveToDB();
  Connection().Execute("INSERT INTO DownloadDLUs (GUID) VALUES (9)");
  Connection().Execute("INSERT INTO DownloadDLUs (GUID) VALUES (5)");
  AddOperandRow(5, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  AddOperandRow(2, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  Define(22);
  Define(23);
  Define(24);
  Changes().Clear();
  TakeLog();
  r->DeleteFromDB();
  EXPECT_EQ(TakeLog(), (CallLog{"execute SELECT * FROM HMI_Elements WHERE ID=5", "get Guid", "Close",
                                "execute DELETE FROM DownloadDLUs WHERE GUID = 9",
                                "execute DELETE * FROM HMI_Elements WHERE ID=5",
                                "execute DELETE * FROM HMI_Operands WHERE ElementID=5", "page 7"}));
  EXPECT_TRUE(Elements().empty());
  EXPECT_EQ(Rows("SELECT * FROM DownloadDLUs", {"GUID"}), std::vector<std::string>{"5"});
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"2 1 22 0 2"});
  EXPECT_FALSE(IsDefined(22));
  EXPECT_FALSE(IsDefined(23));
  EXPECT_TRUE(IsDefined(24));
  EXPECT_EQ(Changes().ChangedPages(), std::vector<Long>{7});
  EXPECT_TRUE(Changes().ChangedElements().empty());
}

TEST_F(SavedRectangle, DeletingLeavesTheObjectAsItWas) {
  const auto r = Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(23);
  r->DeleteFromDB();
  EXPECT_EQ(r->ID(), 5);
  EXPECT_EQ(r->Xs(), 12);
  EXPECT_EQ(r->TouchOprndAddr(), 22);
  EXPECT_EQ(r->VisibleOpAddr(), 23);
  EXPECT_EQ(r->OperandBags()->Count(), 2);
}

TEST_F(SavedRectangle, DeletingReleasesTheHideAddressMinus1ButNot0) {
  const auto defineAround = [] {
    for (const Long address : {-1, 0, 22}) Define(address);
  };
  clsRectangle none;
  none.SaveToDB();
  defineAround();
  none.DeleteFromDB();
  EXPECT_FALSE(IsDefined(-1));
  EXPECT_TRUE(IsDefined(0));
  EXPECT_TRUE(IsDefined(22));

  clsRectangle zero;
  zero.VisibleOpAddr(0);
  zero.SaveToDB();
  defineAround();
  zero.DeleteFromDB();
  EXPECT_TRUE(IsDefined(-1));
  EXPECT_TRUE(IsDefined(0));

  clsRectangle touched;
  touched.TouchOprndAddr(22);
  touched.VisibleOpAddr(0);
  touched.SaveToDB();
  touched.DeleteFromDB();
  EXPECT_FALSE(IsDefined(22));
}

TEST_F(SavedRectangle, DeletingWhatHasNoRowIsAnError) {
  clsRectangle r;
  EXPECT_EQ(ErrorOf([&] { r.DeleteFromDB(); }), 3021);
}

TEST_F(SavedRectangle, ADeletionIsUndoneWithANewRow) {
  const auto r = Distinct();
  r->SaveToDB();
  Define(22, "pump");
  Define(23, "valve");
  r->VisibleOpAddr(23);
  AddOperandRow(5, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  AddOperandRow(5, kMemoryBit, 23, eOP_VisibleOperand, kLocalNetwork);
  r->DeleteFromDB();
  EXPECT_FALSE(IsDefined(22));

  r->ID(-1);
  r->SaveToDB();
  r->RestoreAllOperands();
  EXPECT_EQ(r->ID(), 6);
  EXPECT_EQ(Elements(), std::vector<std::string>{"6"});
  EXPECT_EQ(OperandRows(), (std::vector<std::string>{"6 1 22 0 2", "6 1 23 0 5"}));
  EXPECT_TRUE(IsDefined(22));
  EXPECT_TRUE(IsDefined(23));
}

TEST_F(SavedRectangle, ADeletionIsUndoneThroughCallByNameAlike) {
  const auto r = Distinct();
  const automation::Interface& element = ItfHmiElement::InterfaceOf();
  InvokeByName(*r, element, "savetodb");
  PutByName(*r, "VisibleOpAddr", Long{23});
  InvokeByName(*r, element, "deletefromdb");
  PutByName(*r, element, "id", Long{-1});
  InvokeByName(*r, element, "SAVETODB");
  InvokeByName(*r, element, "restorealloperands");
  EXPECT_EQ(GetByName(*r, element, "ID"), Variant(Long{6}));
  EXPECT_EQ(OperandRows(), (std::vector<std::string>{"6 1 22 0 2", "6 1 23 0 5"}));
}

// --- Replica ---

TEST_F(SavedRectangle, AReplicaHasTheSameValuesInAllDescriptors) {
  const auto r = Distinct();
  r->SaveToDB();
  r->Move(50, 50);
  r->UpdateDisplayWithTransx();
  r->IsCanceled(true);
  const auto copy = std::dynamic_pointer_cast<clsRectangle>(r->Replica());
  ASSERT_NE(copy, nullptr);
  ASSERT_NE(copy, r);
  for (const automation::Member& member : clsRectangle::ClassOf().Default().Members()) {
    if (!member.get) continue;
    EXPECT_EQ(member.get(*copy), member.get(*r)) << member.name;
  }
  for (Long location = 1; location <= 4; ++location) {
    Descriptor d;
    copy->GetBoundingRect(d.xs, d.ys, d.dx, d.dy, location);
    EXPECT_EQ(d, (Descriptor{12, 13, 14, 15})) << location;
  }
  EXPECT_EQ(copy->FillStyle(), eFS_Solid);
  EXPECT_FALSE(copy->IsCanceled());
}

TEST_F(SavedRectangle, AReplicaSharesTheBags) {
  const auto r = Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(23);
  const auto copy = std::dynamic_pointer_cast<clsRectangle>(r->Replica());
  EXPECT_NE(r->OperandBags(), nullptr);
  EXPECT_EQ(copy->OperandBags(), r->OperandBags());
}

TEST_F(SavedRectangle, AReplicaOfAnElementWithoutBagsHasNone) {
  clsRectangle r;
  r.VisibleOpAddr(23);
  ASSERT_EQ(r.OperandBags(), nullptr);
  EXPECT_EQ(std::dynamic_pointer_cast<clsRectangle>(r.Replica())->OperandBags(), nullptr);
}

TEST_F(SavedRectangle, SavingAReplicaRewritesTheRowOfItsSource) {
  const auto r = Distinct();
  r->SaveToDB();
  const auto copy = r->Replica();
  copy->Xs(500);
  copy->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "Xs"}), std::vector<std::string>{"5 500"});
}

TEST_F(SavedRectangle, AReplicaMadeByNameIsAnElement) {
  const auto r = Distinct();
  const Variant copy = InvokeByName(*r, ItfHmiElement::InterfaceOf(), "Replica");
  EXPECT_EQ(GetByName(*copy.Object(), "PenWidth"), Variant(Long{21}));
}

TEST_F(SavedRectangle, BagsGoInByReferenceThroughCallByName) {
  clsRectangle r;
  const auto bags = std::make_shared<automation::Collection>();
  PutByName(r, "ColOpPropBag", bags);
  EXPECT_EQ(r.OperandBags(), bags);
  EXPECT_EQ(ErrorOf([&] { GetByName(r, "ColOpPropBag"); }), 394);
  EXPECT_EQ(ErrorOf([&] { PutByName(r, "ColOpPropBag", Long{1}); }), 13);
}

TEST_F(SavedRectangle, TellsThePageThatIsOpenAtTheTime) {
  OpenPage(8);
  const auto r = Distinct();
  r->SaveToDB();
  CallLog log = TakeLog();
  EXPECT_EQ(CallLog(log.end() - 3, log.end()), (CallLog{"Close", "element 5", "page 8"}));
  OpenPage(9);
  r->DeleteFromDB();
  log = TakeLog();
  EXPECT_EQ(log.back(), "page 9");
}

TEST_F(SavedRectangle, TheCancelMarkIsTheHostsAndStaysInMemory) {
  const automation::Interface& element = ItfHmiElement::InterfaceOf();
  const auto r = Distinct();
  r->IsCanceled(true);
  EXPECT_TRUE(r->IsCanceled());
  EXPECT_EQ(GetByName(*r, element, "IsCanceled"), Variant(true));
  r->SaveToDB();
  EXPECT_TRUE(r->IsCanceled());
  EXPECT_FALSE(Loaded(5)->IsCanceled());
  EXPECT_FALSE(r->Replica()->IsCanceled());
  EXPECT_TRUE(r->IsCanceled());
  PutByName(*r, element, "IsCanceled", Long{0});
  EXPECT_FALSE(r->IsCanceled());
  PutByName(*r, element, "IsCanceled", Long{-1});
  EXPECT_TRUE(r->IsCanceled());
}

TEST_F(SavedRectangle, AReplicaIsMadeThroughTheDefaultInterfaceWhichRemovesNoRow) {
  const auto r = Distinct();
  r->VisibleOpAddr(-1);
  r->SaveToDB();
  AddOperandRow(5, kMemoryBit, -1, eOP_VisibleOperand, kLocalNetwork);
  TakeLog();
  r->Replica();
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"5 1 -1 0 5"});
}

TEST_F(SavedRectangle, IsTouchableWrittenFalseTwiceRemovesTwice) {
  const auto r = Distinct();
  r->SaveToDB();
  r->IsTouchable(false);
  TakeLog();
  r->IsTouchable(false);
  EXPECT_EQ(TakeLog(), CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND "
                               "OprndAddr=-1 AND OprndNetID =0 AND OprndPurpose=2"});
}

TEST_F(SavedRectangle, OnlyMinus1MeansNone) {
  clsRectangle unsaved;
  unsaved.ID(-2);
  EXPECT_EQ(ErrorOf([&] { unsaved.SaveToDB(); }), 3021);
  EXPECT_TRUE(Elements().empty());

  clsRectangle r;
  r.ID(-2);
  TakeLog();
  static_cast<ItfHmiElement&>(r).VisibleOpAddr(-2);
  EXPECT_TRUE(TakeLog().empty());
  // An ID of -2 is a row's, an address of -2 an operand's.
  ASSERT_NE(r.OperandBags(), nullptr);
  EXPECT_EQ(AddressInBag(r, 1), -2);
  test::ReportDouble report;
  r.CreateStaticElementPrinterReport(report);
  EXPECT_EQ(report.Lines().back(), "Hide Operand: MB -2");
}

TEST_F(SavedRectangle, RestoringAValueTakesOverItsNewTypeAndAddress) {
  const auto r = Distinct();
  r->SaveToDB();
  const auto bags = std::make_shared<automation::Collection>();
  bags->Add(NewOperandBag(34, 3, 0));
  bags->Add(NewOperandBag(35, 3, 0));
  r->ColOpPropBag(bags);
  r->RestoreAllOperands();
  EXPECT_EQ(r->TouchOprndAddr(), 0);
  EXPECT_EQ(r->VisibleOpAddr(), 0);
  EXPECT_EQ(OperandRows(), (std::vector<std::string>{"5 37 0 0 2", "5 38 0 0 5"}));
}

/// The fixture's operands, noted in the log of the connection.
class NotingStore final : public fennick1::OperandStore {
 public:
  NotingStore(std::shared_ptr<fennick1::OperandStore> inner, test::RecordingConnection& recorder)
      : inner_(std::move(inner)), recorder_(recorder) {}
  std::optional<fennick1::OperandContent> Load(const fennick1::OperandKey& key) override {
    return inner_->Load(key);
  }
  void Add(const fennick1::OperandKey& key, const fennick1::OperandContent& content) override {
    recorder_.Note("add operand " + std::to_string(key.address));
    inner_->Add(key, content);
  }
  void Remove(const fennick1::OperandKey& key) override {
    recorder_.Note("remove operand " + std::to_string(key.address));
    inner_->Remove(key);
  }
  Long FreeAddress(Long type, Long network) override { return inner_->FreeAddress(type, network); }

 private:
  std::shared_ptr<fennick1::OperandStore> inner_;
  test::RecordingConnection& recorder_;
};

TEST_F(SavedRectangle, DeletingReleasesTheOperandsAfterTheRowsTouchFirst) {
  const auto r = Distinct();
  r->SaveToDB();
  Platform::Current().operands = std::make_shared<NotingStore>(Platform::Current().operands, Recorder());
  TakeLog();
  r->DeleteFromDB();
  const CallLog log = TakeLog();
  EXPECT_EQ(CallLog(log.end() - 4, log.end()),
            (CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5", "remove operand 22",
                     "remove operand 23", "page 7"}));
}

/// Notes which operands are looked for.
class AskedStore final : public fennick1::OperandStore {
 public:
  std::optional<fennick1::OperandContent> Load(const fennick1::OperandKey& key) override {
    if (asked.empty() || asked.back() != key.address) asked.push_back(key.address);
    return {};
  }
  void Add(const fennick1::OperandKey&, const fennick1::OperandContent&) override {}
  void Remove(const fennick1::OperandKey&) override {}
  Long FreeAddress(Long, Long) override { return 0; }

  /// Addresses in order, repeats of the same one left out.
  std::vector<Long> asked;
};

TEST_F(SavedRectangle, BothFacesReadTheHideOperand) {
  const auto r = Distinct();
  EXPECT_EQ(r->VisibleOpAddr(), 23);
  EXPECT_EQ(static_cast<const ItfHmiElement&>(*r).VisibleOpAddr(), 23);
  EXPECT_EQ(GetByName(*r, ItfHmiElement::InterfaceOf(), "VisibleOpAddr"), Variant(Long{23}));
}

TEST_F(SavedRectangle, RestoringADefinedOperandLeavesItAndStillAddsTheRow) {
  const auto r = Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(-1);
  Define(22, "old");
  Platform::Current().operands = std::make_shared<NotingStore>(Platform::Current().operands, Recorder());
  TakeLog();
  r->RestoreAllOperands();
  EXPECT_EQ(TakeLog(),
            CallLog{"execute INSERT INTO HMI_Operands "
                    "(ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) VALUES (5,1,22,0,2)"});
}

TEST_F(SavedRectangle, WritersThatOnlyStoreLeaveTheOperandsInTheProject) {
  const auto r = Distinct();
  r->SaveToDB();
  Define(22);
  Define(23);
  r->Replica();
  r->TouchOprndAddr(40);
  r->TouchOprndAddr(-1);
  r->VisibleOpAddr(41);
  r->VisibleOpAddr(-1);
  EXPECT_TRUE(IsDefined(22));
  EXPECT_TRUE(IsDefined(23));
}

TEST_F(SavedRectangle, AnUnsavedElementDropsItsOperandsToo) {
  clsRectangle r;
  r.TouchOprndAddr(22);
  r.VisibleOpAddr(23);
  Define(22);
  Define(23);
  TakeLog();
  r.IsTouchable(false);
  static_cast<ItfHmiElement&>(r).VisibleOpAddr(-1);
  EXPECT_EQ(TakeLog(), (CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=-1 AND OprndType=1 AND "
                                "OprndAddr=22 AND OprndNetID =0 AND OprndPurpose=2",
                                "execute DELETE * FROM HMI_Operands WHERE ElementID=-1 AND OprndType=1 AND "
                                "OprndAddr=23 AND OprndNetID =0 AND OprndPurpose=5"}));
  EXPECT_FALSE(IsDefined(22));
  EXPECT_FALSE(IsDefined(23));
}

TEST_F(SavedRectangle, IsTouchableWrittenTrueChangesNothing) {
  const auto r = Distinct();
  const auto bags = r->OperandBags();
  TakeLog();
  r->IsTouchable(true);
  EXPECT_EQ(r->TouchOprndAddr(), 22);
  EXPECT_EQ(r->OperandBags(), bags);
  EXPECT_TRUE(TakeLog().empty());
}

TEST_F(SavedRectangle, ADroppedRowGoesBeforeItsOperand) {
  const auto r = Distinct();
  r->SaveToDB();
  Define(22);
  Platform::Current().operands = std::make_shared<NotingStore>(Platform::Current().operands, Recorder());
  TakeLog();
  r->IsTouchable(false);
  EXPECT_EQ(TakeLog(), (CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND "
                                "OprndAddr=22 AND OprndNetID =0 AND OprndPurpose=2",
                                "remove operand 22"}));
}

TEST_F(SavedRectangle, RestoringThatFailsHalfWayKeepsWhatWasWritten) {
  clsRectangle r;
  r.TouchOprndAddr(4);
  r.VisibleOpAddr(5);
  ASSERT_EQ(r.OperandBags()->Count(), 1);
  EXPECT_EQ(ErrorOf([&] { r.RestoreAllOperands(); }), 9);
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"-1 1 4 0 2"});
}

TEST_F(SavedRectangle, BagsAreCountedByWhatIsPresent) {
  clsRectangle r;
  r.VisibleOpAddr(5);
  r.TouchOprndAddr(4);
  ASSERT_EQ(r.OperandBags()->Count(), 2);
  // The bags stay as they were built, with the touch operand's first.
  r.TouchOprndAddr(-1);
  r.RestoreAllOperands();
  EXPECT_TRUE(IsDefined(4));
  EXPECT_FALSE(IsDefined(5));
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"-1 1 5 0 5"});
}

TEST_F(SavedRectangle, TouchAddressMinus2IsAnOperandLikeAnyOther) {
  clsRectangle r;
  r.TouchOprndAddr(-2);
  EXPECT_EQ(AddressInBag(r, 1), -2);
  r.SaveToDB();
  r.RestoreAllOperands();
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"5 1 -2 0 2"});
  EXPECT_TRUE(IsDefined(-2));
  r.DeleteFromDB();
  EXPECT_FALSE(IsDefined(-2));
}

TEST_F(SavedRectangle, LoadsTheRowOnWhichTheRecordsetStands) {
  for (const Long xs : {31, 32, 33}) {
    const auto r = Distinct();
    r->Xs(xs);
    r->SaveToDB();
  }
  const auto rows = ado::OpenRecordset(Connection(), "SELECT * FROM HMI_Elements ORDER BY ID",
                                       ado::adOpenStatic, ado::adLockReadOnly);
  rows->MoveNext();
  clsRectangle loaded;
  loaded.LoadFromDB(*rows);
  EXPECT_EQ(loaded.Xs(), 32);
  EXPECT_EQ(automation::To<Long>(rows->Get("Xs")), 32);
}

TEST_F(SavedRectangle, LoadingAsksForTheOperandsOnceAndRemovesNoRow) {
  const auto r = Distinct();
  r->SaveToDB();
  const auto store = std::make_shared<AskedStore>();
  Platform::Current().operands = store;
  Loaded(5);
  EXPECT_EQ(store->asked, (std::vector<Long>{22, 23}));
  Connection().Execute("UPDATE HMI_Elements SET VisibleOpAddr=-1");
  AddOperandRow(5, kMemoryBit, -1, eOP_VisibleOperand, kLocalNetwork);
  Loaded(5);
  EXPECT_EQ(OperandRows().size(), 1u);
}

TEST_F(SavedRectangle, AColumnGuidThatIsNullStopsTheDeletion) {
  const auto r = Distinct();
  r->SaveToDB();
  AddOperandRow(5, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  Connection().Execute("UPDATE HMI_Elements SET GUID=NULL");
  Changes().Clear();
  EXPECT_EQ(ErrorOf([&] { r->DeleteFromDB(); }), 94);
  EXPECT_EQ(Elements(), std::vector<std::string>{"5"});
  EXPECT_EQ(OperandRows().size(), 1u);
  EXPECT_TRUE(Changes().ChangedPages().empty());
}

TEST_F(SavedRectangle, DeletingWhatHasNoRowDoesNothingElse) {
  clsRectangle r;
  Define(-1);
  TakeLog();
  EXPECT_EQ(ErrorOf([&] { r.DeleteFromDB(); }), 3021);
  EXPECT_EQ(TakeLog(), (CallLog{"execute SELECT * FROM HMI_Elements WHERE ID=-1", "get Guid"}));
  EXPECT_TRUE(IsDefined(-1));
  EXPECT_TRUE(Changes().ChangedPages().empty());
}

TEST_F(SavedRectangle, ASaveWhoseNumberOrOrderFailsMakesNoRow) {
  class NoNumbers final : public corvane1::NumberGenerator {
    Long NewUniqueNumber() override {
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no numbers");
    }
  };
  const auto numbers = Platform::Current().numberGenerator;
  Platform::Current().numberGenerator = std::make_shared<NoNumbers>();
  const auto r = Distinct();
  EXPECT_EQ(ErrorOf([&] { r->SaveToDB(); }), 5);
  EXPECT_EQ(r->ID(), -1);
  EXPECT_TRUE(Elements().empty());
  EXPECT_TRUE(Changes().ChangedElements().empty());

  Platform::Current().numberGenerator = numbers;
  Connection().Execute("INSERT INTO HMI_Elements (DisplayID,OrderIndex) VALUES (7,2147483647)");
  EXPECT_EQ(ErrorOf([&] { r->SaveToDB(); }), 6);
  EXPECT_EQ(r->ID(), -1);
  EXPECT_EQ(r->OrderIndex(), 24);
  EXPECT_EQ(Elements().size(), 1u);
}

TEST_F(SavedRectangle, ATrackerThatFailsLeavesTheSavedRow) {
  class Deaf final : public corvane1::ChangeTracker {
    void NotifyElementChanged(Long) override {
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "deaf");
    }
    void NotifyPageChanged(Long) override {}
    Long ElementSize(Long) override { return 0; }
  };
  Platform::Current().changeTracker = std::make_shared<Deaf>();
  const auto r = Distinct();
  EXPECT_EQ(ErrorOf([&] { r->SaveToDB(); }), 5);
  EXPECT_EQ(r->ID(), 5);
  EXPECT_EQ(Elements(), std::vector<std::string>{"5"});
}

TEST_F(SavedRectangle, ASolidRectangleComesBackHollowOrHatched) {
  const auto brushOf = [this] {
    const gdi::Surface surface(40, 40);
    gdi::Recorder recorder;
    const auto loaded = Loaded(5);
    loaded->Draw(surface.Dc(), false);
    EXPECT_EQ(loaded->ColorBack(), 16);
    for (const std::string& call : recorder.Calls()) {
      if (call.ends_with("-> brush:1")) return call.substr(0, call.find('('));
    }
    return std::string();
  };
  const auto r = Distinct();
  r->SaveToDB();
  EXPECT_EQ(brushOf(), "CreateHatchBrush");
  r->HatchStyle(eHS_None);
  r->SaveToDB();
  EXPECT_EQ(brushOf(), "CreateBrushIndirect");
}

TEST_F(SavedRectangle, AReleaseThatFailsTellsOfNoChangedPage) {
  class Refusing final : public fennick1::OperandStore {
    std::optional<fennick1::OperandContent> Load(const fennick1::OperandKey&) override { return {}; }
    void Add(const fennick1::OperandKey&, const fennick1::OperandContent&) override {}
    void Remove(const fennick1::OperandKey&) override {
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no");
    }
    Long FreeAddress(Long, Long) override { return 0; }
  };
  const auto r = Distinct();
  r->SaveToDB();
  Changes().Clear();
  Platform::Current().operands = std::make_shared<Refusing>();
  EXPECT_EQ(ErrorOf([&] { r->DeleteFromDB(); }), 5);
  EXPECT_TRUE(Changes().ChangedPages().empty());
  EXPECT_TRUE(Elements().empty());
}

TEST_F(SavedRectangle, EveryNumberIsKeptIn32Bits) {
  constexpr Long kMost = 2147483647;
  const auto r = Distinct();
  r->GroupID(-kMost);
  r->Xs(40000);
  r->Ys(-40000);
  r->Dx(kMost);
  r->Dy(70000);
  r->ColorBack(kMost);
  r->ColorFore(-kMost);
  r->ColorBackTouch(70001);
  r->ColorForeTouch(70002);
  r->ColorHatch(70003);
  r->PenWidth(70004);
  r->PenStyle(static_cast<enPenStyle>(70005));
  r->HatchStyle(static_cast<enHatchStyle>(70006));
  r->TouchOprndAddr(kMost);
  r->VisibleOpAddr(70007);
  r->SaveToDB();
  r->OrderIndex(kMost - 1);
  r->SaveToDB();
  r->FillStyle(eFS_Hollow);
  const auto loaded = Loaded(5);
  for (const automation::Member& member : clsRectangle::ClassOf().Default().Members()) {
    if (!member.get) continue;
    EXPECT_EQ(member.get(*loaded), member.get(*r)) << member.name;
  }
  Connection().Execute("UPDATE HMI_Elements SET Xs=2147483648");
  EXPECT_EQ(ErrorOf([&] { Loaded(5); }), 6);
}

TEST_F(SavedRectangle, EveryBuildOfTheBagsGivesACollectionOfItsOwn) {
  const auto r = Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(23);
  const auto copy = std::dynamic_pointer_cast<clsRectangle>(r->Replica());
  copy->TouchOprndAddr(40);
  EXPECT_NE(copy->OperandBags(), r->OperandBags());
  EXPECT_EQ(r->OperandBags()->Count(), 2);
  EXPECT_EQ(AddressInBag(*r, 1), 22);
  EXPECT_EQ(AddressInBag(*copy, 1), 40);
  EXPECT_NE(r->BuildOpPropBag(), r->BuildOpPropBag());
}

TEST_F(SavedRectangle, ReleasingAReplicaLeavesTheBagsThatItsSourceShares) {
  const auto r = Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(23);
  r->Replica().reset();
  EXPECT_EQ(r->OperandBags()->Count(), 2);
}

TEST_F(SavedRectangle, TheBagsGoWithTheirLastOwner) {
  auto r = Distinct();
  const std::weak_ptr<automation::Collection> bags = r->OperandBags();
  EXPECT_FALSE(bags.expired());
  r.reset();
  EXPECT_TRUE(bags.expired());
}

TEST_F(SavedRectangle, ATouchAddressIsStoredBeforeItsBagIsBuilt) {
  clsRectangle r;
  CloseProject();
  EXPECT_EQ(ErrorOf([&] { r.TouchOprndAddr(5); }), 91);
  EXPECT_EQ(r.TouchOprndAddr(), 5);
  r.ID(3);
  EXPECT_EQ(ErrorOf([&] { r.VisibleOpAddr(6); }), 91);
  EXPECT_EQ(r.VisibleOpAddr(), 6);
}

TEST_F(SavedRectangle, DeletingReleasesEveryHideAddressBut0) {
  clsRectangle r;
  r.VisibleOpAddr(-2);
  r.SaveToDB();
  Define(-2);
  r.DeleteFromDB();
  EXPECT_FALSE(IsDefined(-2));
}

TEST_F(SavedRectangle, AReplicaIsGivenItsTouchOperandBeforeItsHideOperand) {
  const auto r = Distinct();
  r->SaveToDB();
  const auto store = std::make_shared<AskedStore>();
  Platform::Current().operands = store;
  r->Replica();
  // The touch writer looks for 22 alone, the hide writer for 22 and 23.
  EXPECT_EQ(store->asked, (std::vector<Long>{22, 23}));
  store->asked.clear();
  r->TouchOprndAddr(-1);
  r->Replica();
  EXPECT_EQ(store->asked, std::vector<Long>{23});
}

TEST_F(SavedRectangle, RestoringEntersEachOperandBeforeItsRow) {
  const auto r = Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(23);
  Platform::Current().operands = std::make_shared<NotingStore>(Platform::Current().operands, Recorder());
  TakeLog();
  r->RestoreAllOperands();
  const std::string insert =
      "execute INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) VALUES ";
  EXPECT_EQ(TakeLog(),
            (CallLog{"add operand 22", insert + "(5,1,22,0,2)", "add operand 23", insert + "(5,1,23,0,5)"}));
}

TEST_F(SavedRectangle, ReleasingAnElementWritesNothing) {
  {
    const auto r = Distinct();
    r->SaveToDB();
    r->Xs(400);
    TakeLog();
  }
  EXPECT_TRUE(TakeLog().empty());
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"Xs"}), std::vector<std::string>{"12"});
}

TEST_F(SavedRectangle, MakingAnElementTouchesNoDatabaseOnceTheProjectsSettingsAreKnown) {
  // The settings look at the project through the log as well.
  Platform::Current().heldProject->Hold(ProjectConnection());
  { const clsRectangle first; }
  EXPECT_EQ(TakeLog(), (CallLog{"open SELECT * FROM Settings [3,1,1]", "Close"}));
  { const clsRectangle second; }
  EXPECT_TRUE(TakeLog().empty());
}

TEST_F(SavedRectangle, ADatabaseOfTheHostsOwnIsUsedForEverythingWhenItIsHeld) {
  // The recorder is a connection of its own class, as a host's is.
  const ado::ConnectionRef host = ProjectConnection();
  Platform::Current() = Platform();
  OpenPage(kPage);
  Platform::Current().heldProject->Hold(host);
  TakeLog();
  Define(22);
  clsRectangle r;
  r.Xs(12);
  r.TouchOprndAddr(22);
  r.SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "GUID", "DisplayID", "Xs"}),
            std::vector<std::string>{"5 9 7 12"});
  EXPECT_EQ(Rows("SELECT * FROM Operands", {"Type", "Address"}), std::vector<std::string>{"1 22"});
  EXPECT_GT(Platform::Current().changeTracker->ElementSize(5), 0);
  const CallLog log = TakeLog();
  for (const char* call :
       {"open SELECT * FROM Settings [3,1,1]", "open SELECT * FROM Numbers WHERE Name='GUID' [3,3,1]",
        "put GUID=9:Long", "open SELECT * FROM Operands WHERE Type=1 AND Address=22 AND NetID=0 [3,3,1]",
        "open SELECT * FROM HMI_Elements WHERE ID=5 [3,1,1]"}) {
    EXPECT_EQ(std::count(log.begin(), log.end(), call), 1) << call;
  }
}

}  // namespace
}  // namespace quenzel7
