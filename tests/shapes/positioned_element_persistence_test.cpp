#include <gtest/gtest.h>

#include <algorithm>

#include "platform/automation/call_by_name.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"
#include "tests/support/saved_shape.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::InvokeByName;
using automation::PutByName;
using automation::Variant;
using test::CallLog;
using test::DescriptionOf;
using test::ErrorOf;

template <class Shape>
using SavedElement = test::SavedShape<Shape>;
TYPED_TEST_SUITE(SavedElement, test::StrokedShapeTypes, test::ClassNameOfShape);

TYPED_TEST(SavedElement, NewRowsCountTheirKeysAndGuidsUp) {
  this->Distinct()->SaveToDB();
  this->Distinct()->SaveToDB();
  this->OpenPage(8);
  this->Distinct()->SaveToDB();
  EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID", "GUID", "DisplayID"}),
            (std::vector<std::string>{"5 9 7", "6 10 7", "7 11 8"}));
}

TYPED_TEST(SavedElement, SavesDescriptor1) {
  const auto r = this->Distinct();
  r->Move(100, 100);
  r->SaveLastLegalPosition();
  r->UpdateDisplayWithTransx();
  r->SaveToDB();
  EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", {"Xs", "Ys"}), std::vector<std::string>{"12 13"});
  r->UpdateInitialDescriptor();
  r->SaveToDB();
  EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", {"Xs", "Ys"}), std::vector<std::string>{"112 113"});
}

TYPED_TEST(SavedElement, SavingOnAnotherPageMovesTheRowThere) {
  const auto r = this->Distinct();
  r->SaveToDB();
  this->OpenPage(9);
  r->SaveToDB();
  EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", {"ID", "DisplayID"}), std::vector<std::string>{"5 9"});
}

TYPED_TEST(SavedElement, ANewRowTellsOfElementAndPageAnOldOneOfTheElement) {
  const auto r = this->Distinct();
  r->SaveToDB();
  EXPECT_EQ(this->Changes().ChangedElements(), std::vector<Long>{5});
  EXPECT_EQ(this->Changes().ChangedPages(), std::vector<Long>{7});
  this->Changes().Clear();
  r->SaveToDB();
  EXPECT_EQ(this->Changes().ChangedElements(), std::vector<Long>{5});
  EXPECT_TRUE(this->Changes().ChangedPages().empty());
}

TYPED_TEST(SavedElement, BothFacesOfSaveToDBSave) {
  const auto r = this->Distinct();
  EXPECT_EQ(InvokeByName(*r, "SaveToDB"), Variant(true));
  EXPECT_EQ(InvokeByName(*r, ItfHmiElement::InterfaceOf(), "SaveToDB"), Variant());
  static_cast<ItfHmiElement&>(*r).SaveToDB();
  EXPECT_EQ(this->Elements(), std::vector<std::string>{"5"});
}

TYPED_TEST(SavedElement, PropertyWritersDoNotSave) {
  const auto r = this->Distinct();
  r->SaveToDB();
  r->Xs(99);
  r->ColorFore(99);
  EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", {"Xs", "ColorFore"}), std::vector<std::string>{"12 17"});
}

TYPED_TEST(SavedElement, SavingARowThatIsGoneIsAnError) {
  const auto r = this->Distinct();
  r->ID(77);
  EXPECT_EQ(ErrorOf([&] { r->SaveToDB(); }), 3021);
  EXPECT_TRUE(this->Elements().empty());
  EXPECT_EQ(r->ID(), 77);
}

// --- Loading ---

TYPED_TEST(SavedElement, ComesBackFromAReopenedProjectButForItsFillStyle) {
  const auto saved = this->Distinct();
  saved->SaveToDB();
  this->Reopen();
  const auto r = this->Loaded(5);
  test::ExpectAlike(*r, *saved, {"FillStyle"});
  EXPECT_EQ(r->ID(), 5);
  EXPECT_EQ(r->GroupID(), 11);
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(test::DescriptorOf(*r, location), (Descriptor{12, 13, 14, 15})) << location;
  }
  EXPECT_EQ(r->ColorBack(), 16);
  EXPECT_EQ(r->ColorFore(), 17);
  EXPECT_EQ(r->ColorBackTouch(), 18);
  EXPECT_EQ(r->ColorForeTouch(), 19);
  EXPECT_EQ(r->PenStyle(), ePS_Dash_Dot);
  EXPECT_EQ(r->PenWidth(), 21);
  EXPECT_EQ(r->TouchOprndAddr(), 22);
  EXPECT_EQ(r->VisibleOpAddr(), 23);
  EXPECT_EQ(r->FillStyle(), eFS_Hollow);
}

TYPED_TEST(SavedElement, LoadingBuildsTheBagsAnew) {
  const auto saved = this->Distinct();
  saved->SaveToDB();
  const auto both = this->Loaded(5);
  ASSERT_NE(both->OperandBags(), nullptr);
  EXPECT_EQ(both->OperandBags()->Count(), 2);
  saved->TouchOprndAddr(-1);
  saved->VisibleOpAddr(-1);
  saved->SaveToDB();
  const auto none = this->Loaded(5);
  ASSERT_NE(none->OperandBags(), nullptr);
  EXPECT_EQ(none->OperandBags()->Count(), 0);
}

TYPED_TEST(SavedElement, ANullColumnIsAnErrorThatNamesIt) {
  this->Distinct()->SaveToDB();
  for (const char* column : {"GroupID", "Xs", "PenWidth", "OrderIndex"}) {
    this->Connection().Execute(std::string("UPDATE HMI_Elements SET ") + column + "=NULL");
    EXPECT_EQ(ErrorOf([&] { this->Loaded(5); }), 94) << column;
    EXPECT_EQ(
        DescriptionOf([&] { this->Loaded(5); }),
        std::string("column '") + column + "' of HMI_Elements: invalid use of Null: a number was expected");
    this->Connection().Execute(std::string("UPDATE HMI_Elements SET ") + column + "=1");
  }
}

TYPED_TEST(SavedElement, AMissingColumnIsAnError) {
  this->Distinct()->SaveToDB();
  const auto narrow = ado::OpenRecordset(this->Connection(), "SELECT ID,GroupID FROM HMI_Elements WHERE ID=5",
                                         ado::adOpenStatic, ado::adLockReadOnly);
  EXPECT_EQ(ErrorOf([&] { TypeParam().LoadFromDB(*narrow); }), 3265);
  EXPECT_NE(DescriptionOf([&] { TypeParam().LoadFromDB(*narrow); }).find("column 'Xs' of HMI_Elements"),
            std::string::npos);
}

TYPED_TEST(SavedElement, AValueThatIsNoNumberIsAnError) {
  this->Distinct()->SaveToDB();
  this->Connection().Execute("UPDATE HMI_Elements SET Xs='wide'");
  EXPECT_EQ(ErrorOf([&] { this->Loaded(5); }), 13);
}

TYPED_TEST(SavedElement, LoadingWorksThroughCallByName) {
  this->Distinct()->SaveToDB();
  const auto row = ado::OpenRecordset(this->Connection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic,
                                      ado::adLockReadOnly);
  const auto r = std::make_shared<TypeParam>();
  EXPECT_EQ(InvokeByName(*r, ItfHmiElement::InterfaceOf(), "LoadFromDB", {row}), Variant(false));
  EXPECT_EQ(GetByName(*r, "xs"), Variant(Long{12}));
}

// --- Operands ---

TYPED_TEST(SavedElement, TheDefaultFaceOfVisibleOpAddrStoresOnly) {
  const auto r = this->Distinct();
  r->SaveToDB();
  this->TakeLog();
  r->VisibleOpAddr(-1);
  EXPECT_TRUE(this->TakeLog().empty());
  EXPECT_EQ(r->VisibleOpAddr(), -1);
  PutByName(*r, "VisibleOpAddr", Long{5});
  PutByName(*r, "VisibleOpAddr", Long{-1});
  EXPECT_TRUE(this->TakeLog().empty());
}

TYPED_TEST(SavedElement, TheElementFaceOfVisibleOpAddrRemovesTheRowWithTheOldAddressFirst) {
  const auto r = this->Distinct();
  r->SaveToDB();
  AddOperandRow(5, kMemoryBit, 23, eOP_VisibleOperand, kLocalNetwork);
  AddOperandRow(5, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  this->Define(23);
  this->TakeLog();
  ItfHmiElement& element = *r;
  element.VisibleOpAddr(-1);
  const std::string removal =
      "execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND OprndAddr=23 AND OprndNetID "
      "=0 AND "
      "OprndPurpose=5";
  EXPECT_EQ(this->TakeLog(), CallLog{removal});
  EXPECT_EQ(r->VisibleOpAddr(), -1);
  EXPECT_EQ(this->OperandRows(), std::vector<std::string>{"5 1 22 0 2"});
  EXPECT_FALSE(this->IsDefined(23));

  // A second time the address that it has now.
  PutByName(*r, ItfHmiElement::InterfaceOf(), "visibleopaddr", Long{-1});
  EXPECT_EQ(this->TakeLog(),
            CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND OprndAddr=-1 "
                    "AND OprndNetID =0 AND OprndPurpose=5"});
}

TYPED_TEST(SavedElement, WritingAnAddressRemovesAndAddsNoRow) {
  const auto r = this->Distinct();
  r->SaveToDB();
  this->TakeLog();
  ItfHmiElement& element = *r;
  element.VisibleOpAddr(40);
  element.TouchOprndAddr(41);
  element.TouchOprndAddr(-1);
  EXPECT_TRUE(this->TakeLog().empty());
  EXPECT_EQ(r->VisibleOpAddr(), 40);
}

TYPED_TEST(SavedElement, TheHideOperandRebuildsTheBagsOnlyOnASavedElement) {
  TypeParam r;
  r.VisibleOpAddr(5);
  EXPECT_EQ(r.OperandBags(), nullptr);
  r.ID(3);
  r.VisibleOpAddr(-1);
  EXPECT_EQ(r.OperandBags(), nullptr);
  r.VisibleOpAddr(6);
  ASSERT_NE(r.OperandBags(), nullptr);
  EXPECT_EQ(r.OperandBags()->Count(), 1);
  EXPECT_EQ(this->AddressInBag(r, 1), 6);
  static_cast<ItfHmiElement&>(r).VisibleOpAddr(8);
  EXPECT_EQ(this->AddressInBag(r, 1), 8);
}

TYPED_TEST(SavedElement, TheTouchOperandRebuildsTheBagsAlsoOnANewElement) {
  TypeParam r;
  r.VisibleOpAddr(5);
  r.TouchOprndAddr(4);
  ASSERT_NE(r.OperandBags(), nullptr);
  EXPECT_EQ(r.OperandBags()->Count(), 2);
  EXPECT_EQ(this->AddressInBag(r, 1), 4);
  EXPECT_EQ(this->AddressInBag(r, 2), 5);
  const auto before = r.OperandBags();
  r.TouchOprndAddr(-1);
  EXPECT_EQ(r.OperandBags(), before);
}

TYPED_TEST(SavedElement, IsTouchableFollowsTheAddress) {
  TypeParam r;
  EXPECT_FALSE(r.IsTouchable());
  r.TouchOprndAddr(0);
  EXPECT_TRUE(r.IsTouchable());
  r.TouchOprndAddr(-2);
  EXPECT_TRUE(r.IsTouchable());
  r.TouchOprndAddr(-1);
  EXPECT_FALSE(r.IsTouchable());
  r.IsTouchable(true);
  EXPECT_FALSE(r.IsTouchable());
  EXPECT_TRUE(this->TakeLog().empty());
}

TYPED_TEST(SavedElement, IsTouchableWrittenFalseRemovesTheTouchRowAndTheOperand) {
  const auto r = this->Distinct();
  r->SaveToDB();
  AddOperandRow(5, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  AddOperandRow(5, kMemoryBit, 23, eOP_VisibleOperand, kLocalNetwork);
  this->Define(22);
  const auto bags = r->OperandBags();
  this->TakeLog();
  r->IsTouchable(false);
  EXPECT_EQ(this->TakeLog(),
            CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND OprndAddr=22 "
                    "AND OprndNetID =0 AND OprndPurpose=2"});
  EXPECT_EQ(r->TouchOprndAddr(), -1);
  EXPECT_EQ(this->OperandRows(), std::vector<std::string>{"5 1 23 0 5"});
  EXPECT_FALSE(this->IsDefined(22));
  EXPECT_EQ(r->OperandBags(), bags);
}

TYPED_TEST(SavedElement, ToolTipBeginsWithTheTouchOperand) {
  const auto r = this->Distinct();
  EXPECT_EQ(r->GetToolTipText(), "(Touch - MB 22) Pos: 12, 13 ; Size: 14, 15");
}

TYPED_TEST(SavedElement, RestoringWritesTouchAndThenHideRow) {
  const auto r = this->Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(23);
  this->TakeLog();
  r->RestoreAllOperands();
  EXPECT_EQ(
      this->TakeLog(),
      (CallLog{"execute INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) "
               "VALUES (5,1,22,0,2)",
               "execute INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) "
               "VALUES (5,1,23,0,5)"}));
  EXPECT_TRUE(this->IsDefined(22));
  EXPECT_TRUE(this->IsDefined(23));
}

TYPED_TEST(SavedElement, RestoringWithOnlyAHideOperandTakesBag1) {
  TypeParam r;
  r.ID(3);
  r.VisibleOpAddr(9);
  ASSERT_EQ(r.OperandBags()->Count(), 1);
  r.RestoreAllOperands();
  EXPECT_EQ(this->OperandRows(), std::vector<std::string>{"3 1 9 0 5"});
}

TYPED_TEST(SavedElement, RestoringWithoutOperandsDoesNothing) {
  TypeParam r;
  r.RestoreAllOperands();
  EXPECT_TRUE(this->TakeLog().empty());
}

TYPED_TEST(SavedElement, RestoringWithoutBagsIsAnError) {
  TypeParam r;
  r.VisibleOpAddr(9);
  EXPECT_EQ(ErrorOf([&] { r.RestoreAllOperands(); }), 91);
  r.ColOpPropBag(std::make_shared<automation::Collection>());
  EXPECT_EQ(ErrorOf([&] { r.RestoreAllOperands(); }), 9);
  EXPECT_TRUE(this->OperandRows().empty());
}

TYPED_TEST(SavedElement, RestoringLeavesTheBagsAsTheyAre) {
  const auto r = this->Distinct();
  r->ID(5);
  r->VisibleOpAddr(23);
  const auto bags = r->OperandBags();
  r->RestoreAllOperands();
  EXPECT_EQ(r->OperandBags(), bags);
  EXPECT_EQ(bags->Count(), 2);
}

// --- Deletion and its undo ---

TYPED_TEST(SavedElement, DeletingRunsTheseStatements) {
  const auto r = this->Distinct();
  r->SaveToDB();
  this->Connection().Execute("INSERT INTO DownloadDLUs (GUID) VALUES (9)");
  this->Connection().Execute("INSERT INTO DownloadDLUs (GUID) VALUES (5)");
  AddOperandRow(5, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  AddOperandRow(2, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  this->Define(22);
  this->Define(23);
  this->Define(24);
  this->Changes().Clear();
  this->TakeLog();
  r->DeleteFromDB();
  EXPECT_EQ(this->TakeLog(), (CallLog{"execute SELECT * FROM HMI_Elements WHERE ID=5", "get Guid", "Close",
                                      "execute DELETE FROM DownloadDLUs WHERE GUID = 9",
                                      "execute DELETE * FROM HMI_Elements WHERE ID=5",
                                      "execute DELETE * FROM HMI_Operands WHERE ElementID=5", "page 7"}));
  EXPECT_TRUE(this->Elements().empty());
  EXPECT_EQ(this->Rows("SELECT * FROM DownloadDLUs", {"GUID"}), std::vector<std::string>{"5"});
  EXPECT_EQ(this->OperandRows(), std::vector<std::string>{"2 1 22 0 2"});
  EXPECT_FALSE(this->IsDefined(22));
  EXPECT_FALSE(this->IsDefined(23));
  EXPECT_TRUE(this->IsDefined(24));
  EXPECT_EQ(this->Changes().ChangedPages(), std::vector<Long>{7});
  EXPECT_TRUE(this->Changes().ChangedElements().empty());
}

TYPED_TEST(SavedElement, DeletingLeavesTheObjectAsItWas) {
  const auto r = this->Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(23);
  r->DeleteFromDB();
  EXPECT_EQ(r->ID(), 5);
  EXPECT_EQ(r->Xs(), 12);
  EXPECT_EQ(r->TouchOprndAddr(), 22);
  EXPECT_EQ(r->VisibleOpAddr(), 23);
  EXPECT_EQ(r->OperandBags()->Count(), 2);
}

TYPED_TEST(SavedElement, DeletingReleasesTheHideAddressMinus1ButNot0) {
  const auto defineAround = [] {
    for (const Long address : {-1, 0, 22}) TestFixture::Define(address);
  };
  TypeParam none;
  none.SaveToDB();
  defineAround();
  none.DeleteFromDB();
  EXPECT_FALSE(this->IsDefined(-1));
  EXPECT_TRUE(this->IsDefined(0));
  EXPECT_TRUE(this->IsDefined(22));

  TypeParam zero;
  zero.VisibleOpAddr(0);
  zero.SaveToDB();
  defineAround();
  zero.DeleteFromDB();
  EXPECT_TRUE(this->IsDefined(-1));
  EXPECT_TRUE(this->IsDefined(0));

  TypeParam touched;
  touched.TouchOprndAddr(22);
  touched.VisibleOpAddr(0);
  touched.SaveToDB();
  touched.DeleteFromDB();
  EXPECT_FALSE(this->IsDefined(22));
}

TYPED_TEST(SavedElement, DeletingWhatHasNoRowIsAnError) {
  TypeParam r;
  EXPECT_EQ(ErrorOf([&] { r.DeleteFromDB(); }), 3021);
}

TYPED_TEST(SavedElement, ADeletionIsUndoneWithANewRow) {
  const auto r = this->Distinct();
  r->SaveToDB();
  this->Define(22, "pump");
  this->Define(23, "valve");
  r->VisibleOpAddr(23);
  AddOperandRow(5, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  AddOperandRow(5, kMemoryBit, 23, eOP_VisibleOperand, kLocalNetwork);
  r->DeleteFromDB();
  EXPECT_FALSE(this->IsDefined(22));

  r->ID(-1);
  r->SaveToDB();
  r->RestoreAllOperands();
  EXPECT_EQ(r->ID(), 6);
  EXPECT_EQ(this->Elements(), std::vector<std::string>{"6"});
  EXPECT_EQ(this->OperandRows(), (std::vector<std::string>{"6 1 22 0 2", "6 1 23 0 5"}));
  EXPECT_TRUE(this->IsDefined(22));
  EXPECT_TRUE(this->IsDefined(23));
}

TYPED_TEST(SavedElement, ADeletionIsUndoneThroughCallByNameAlike) {
  const auto r = this->Distinct();
  const automation::Interface& element = ItfHmiElement::InterfaceOf();
  InvokeByName(*r, element, "savetodb");
  PutByName(*r, "VisibleOpAddr", Long{23});
  InvokeByName(*r, element, "deletefromdb");
  PutByName(*r, element, "id", Long{-1});
  InvokeByName(*r, element, "SAVETODB");
  InvokeByName(*r, element, "restorealloperands");
  EXPECT_EQ(GetByName(*r, element, "ID"), Variant(Long{6}));
  EXPECT_EQ(this->OperandRows(), (std::vector<std::string>{"6 1 22 0 2", "6 1 23 0 5"}));
}

// --- Replica ---

TYPED_TEST(SavedElement, AReplicaHasTheSameValuesInAllDescriptors) {
  const auto r = this->Distinct();
  r->SaveToDB();
  r->Move(50, 50);
  r->UpdateDisplayWithTransx();
  r->IsCanceled(true);
  const auto copy = std::dynamic_pointer_cast<TypeParam>(r->Replica());
  ASSERT_NE(copy, nullptr);
  ASSERT_NE(copy, r);
  test::ExpectAlike(*copy, *r);
  for (Long location = 1; location <= 4; ++location) {
    Descriptor d;
    copy->GetBoundingRect(d.xs, d.ys, d.dx, d.dy, location);
    EXPECT_EQ(d, (Descriptor{12, 13, 14, 15})) << location;
  }
  EXPECT_EQ(copy->FillStyle(), TestFixture::kHasBody ? eFS_Solid : eFS_Hollow);
  EXPECT_FALSE(copy->IsCanceled());
}

TYPED_TEST(SavedElement, AReplicaSharesTheBags) {
  const auto r = this->Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(23);
  const auto copy = std::dynamic_pointer_cast<TypeParam>(r->Replica());
  EXPECT_NE(r->OperandBags(), nullptr);
  EXPECT_EQ(copy->OperandBags(), r->OperandBags());
}

TYPED_TEST(SavedElement, AReplicaOfAnElementWithoutBagsHasNone) {
  TypeParam r;
  r.VisibleOpAddr(23);
  ASSERT_EQ(r.OperandBags(), nullptr);
  EXPECT_EQ(std::dynamic_pointer_cast<TypeParam>(r.Replica())->OperandBags(), nullptr);
}

TYPED_TEST(SavedElement, SavingAReplicaRewritesTheRowOfItsSource) {
  const auto r = this->Distinct();
  r->SaveToDB();
  const auto copy = r->Replica();
  copy->Xs(500);
  copy->SaveToDB();
  EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", {"ID", "Xs"}), std::vector<std::string>{"5 500"});
}

TYPED_TEST(SavedElement, AReplicaMadeByNameIsAnElement) {
  const auto r = this->Distinct();
  const Variant copy = InvokeByName(*r, ItfHmiElement::InterfaceOf(), "Replica");
  EXPECT_EQ(GetByName(*copy.Object(), "PenWidth"), Variant(Long{21}));
}

TYPED_TEST(SavedElement, BagsGoInByReferenceThroughCallByName) {
  TypeParam r;
  const auto bags = std::make_shared<automation::Collection>();
  PutByName(r, "ColOpPropBag", bags);
  EXPECT_EQ(r.OperandBags(), bags);
  EXPECT_EQ(ErrorOf([&] { GetByName(r, "ColOpPropBag"); }), 394);
  EXPECT_EQ(ErrorOf([&] { PutByName(r, "ColOpPropBag", Long{1}); }), 13);
}

TYPED_TEST(SavedElement, TellsThePageThatIsOpenAtTheTime) {
  this->OpenPage(8);
  const auto r = this->Distinct();
  r->SaveToDB();
  CallLog log = this->TakeLog();
  EXPECT_EQ(CallLog(log.end() - 3, log.end()), (CallLog{"Close", "element 5", "page 8"}));
  this->OpenPage(9);
  r->DeleteFromDB();
  log = this->TakeLog();
  EXPECT_EQ(log.back(), "page 9");
}

TYPED_TEST(SavedElement, TheCancelMarkIsTheHostsAndStaysInMemory) {
  const automation::Interface& element = ItfHmiElement::InterfaceOf();
  const auto r = this->Distinct();
  r->IsCanceled(true);
  EXPECT_TRUE(r->IsCanceled());
  EXPECT_EQ(GetByName(*r, element, "IsCanceled"), Variant(true));
  r->SaveToDB();
  EXPECT_TRUE(r->IsCanceled());
  EXPECT_FALSE(this->Loaded(5)->IsCanceled());
  EXPECT_FALSE(r->Replica()->IsCanceled());
  EXPECT_TRUE(r->IsCanceled());
  PutByName(*r, element, "IsCanceled", Long{0});
  EXPECT_FALSE(r->IsCanceled());
  PutByName(*r, element, "IsCanceled", Long{-1});
  EXPECT_TRUE(r->IsCanceled());
}

TYPED_TEST(SavedElement, AReplicaIsMadeThroughTheDefaultInterfaceWhichRemovesNoRow) {
  const auto r = this->Distinct();
  r->VisibleOpAddr(-1);
  r->SaveToDB();
  AddOperandRow(5, kMemoryBit, -1, eOP_VisibleOperand, kLocalNetwork);
  this->TakeLog();
  r->Replica();
  EXPECT_TRUE(this->TakeLog().empty());
  EXPECT_EQ(this->OperandRows(), std::vector<std::string>{"5 1 -1 0 5"});
}

TYPED_TEST(SavedElement, IsTouchableWrittenFalseTwiceRemovesTwice) {
  const auto r = this->Distinct();
  r->SaveToDB();
  r->IsTouchable(false);
  this->TakeLog();
  r->IsTouchable(false);
  EXPECT_EQ(this->TakeLog(),
            CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND "
                    "OprndAddr=-1 AND OprndNetID =0 AND OprndPurpose=2"});
}

TYPED_TEST(SavedElement, OnlyMinus1MeansNone) {
  TypeParam unsaved;
  unsaved.ID(-2);
  EXPECT_EQ(ErrorOf([&] { unsaved.SaveToDB(); }), 3021);
  EXPECT_TRUE(this->Elements().empty());

  TypeParam r;
  r.ID(-2);
  this->TakeLog();
  static_cast<ItfHmiElement&>(r).VisibleOpAddr(-2);
  EXPECT_TRUE(this->TakeLog().empty());
  // An ID of -2 is a row's, an address of -2 an operand's.
  ASSERT_NE(r.OperandBags(), nullptr);
  EXPECT_EQ(this->AddressInBag(r, 1), -2);
  test::ReportDouble report;
  r.CreateStaticElementPrinterReport(report);
  EXPECT_EQ(report.Lines().back(), "Hide Operand: MB -2");
}

TYPED_TEST(SavedElement, RestoringAValueTakesOverItsNewTypeAndAddress) {
  const auto r = this->Distinct();
  r->SaveToDB();
  const auto bags = std::make_shared<automation::Collection>();
  bags->Add(NewOperandBag(34, 3, 0));
  bags->Add(NewOperandBag(35, 3, 0));
  r->ColOpPropBag(bags);
  r->RestoreAllOperands();
  EXPECT_EQ(r->TouchOprndAddr(), 0);
  EXPECT_EQ(r->VisibleOpAddr(), 0);
  EXPECT_EQ(this->OperandRows(), (std::vector<std::string>{"5 37 0 0 2", "5 38 0 0 5"}));
}

TYPED_TEST(SavedElement, DeletingReleasesTheOperandsAfterTheRowsTouchFirst) {
  const auto r = this->Distinct();
  r->SaveToDB();
  Platform::Current().operands =
      std::make_shared<test::NotingStore>(Platform::Current().operands, this->Recorder());
  this->TakeLog();
  r->DeleteFromDB();
  const CallLog log = this->TakeLog();
  EXPECT_EQ(CallLog(log.end() - 4, log.end()),
            (CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5", "remove operand 22",
                     "remove operand 23", "page 7"}));
}

TYPED_TEST(SavedElement, BothFacesReadTheHideOperand) {
  const auto r = this->Distinct();
  EXPECT_EQ(r->VisibleOpAddr(), 23);
  EXPECT_EQ(static_cast<const ItfHmiElement&>(*r).VisibleOpAddr(), 23);
  EXPECT_EQ(GetByName(*r, ItfHmiElement::InterfaceOf(), "VisibleOpAddr"), Variant(Long{23}));
}

TYPED_TEST(SavedElement, RestoringADefinedOperandLeavesItAndStillAddsTheRow) {
  const auto r = this->Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(-1);
  this->Define(22, "old");
  Platform::Current().operands =
      std::make_shared<test::NotingStore>(Platform::Current().operands, this->Recorder());
  this->TakeLog();
  r->RestoreAllOperands();
  EXPECT_EQ(this->TakeLog(),
            CallLog{"execute INSERT INTO HMI_Operands "
                    "(ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) VALUES (5,1,22,0,2)"});
}

TYPED_TEST(SavedElement, WritersThatOnlyStoreLeaveTheOperandsInTheProject) {
  const auto r = this->Distinct();
  r->SaveToDB();
  this->Define(22);
  this->Define(23);
  r->Replica();
  r->TouchOprndAddr(40);
  r->TouchOprndAddr(-1);
  r->VisibleOpAddr(41);
  r->VisibleOpAddr(-1);
  EXPECT_TRUE(this->IsDefined(22));
  EXPECT_TRUE(this->IsDefined(23));
}

TYPED_TEST(SavedElement, AnUnsavedElementDropsItsOperandsToo) {
  TypeParam r;
  r.TouchOprndAddr(22);
  r.VisibleOpAddr(23);
  this->Define(22);
  this->Define(23);
  this->TakeLog();
  r.IsTouchable(false);
  static_cast<ItfHmiElement&>(r).VisibleOpAddr(-1);
  EXPECT_EQ(this->TakeLog(),
            (CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=-1 AND OprndType=1 AND "
                     "OprndAddr=22 AND OprndNetID =0 AND OprndPurpose=2",
                     "execute DELETE * FROM HMI_Operands WHERE ElementID=-1 AND OprndType=1 AND "
                     "OprndAddr=23 AND OprndNetID =0 AND OprndPurpose=5"}));
  EXPECT_FALSE(this->IsDefined(22));
  EXPECT_FALSE(this->IsDefined(23));
}

TYPED_TEST(SavedElement, IsTouchableWrittenTrueChangesNothing) {
  const auto r = this->Distinct();
  const auto bags = r->OperandBags();
  this->TakeLog();
  r->IsTouchable(true);
  EXPECT_EQ(r->TouchOprndAddr(), 22);
  EXPECT_EQ(r->OperandBags(), bags);
  EXPECT_TRUE(this->TakeLog().empty());
}

TYPED_TEST(SavedElement, ADroppedRowGoesBeforeItsOperand) {
  const auto r = this->Distinct();
  r->SaveToDB();
  this->Define(22);
  Platform::Current().operands =
      std::make_shared<test::NotingStore>(Platform::Current().operands, this->Recorder());
  this->TakeLog();
  r->IsTouchable(false);
  EXPECT_EQ(this->TakeLog(),
            (CallLog{"execute DELETE * FROM HMI_Operands WHERE ElementID=5 AND OprndType=1 AND "
                     "OprndAddr=22 AND OprndNetID =0 AND OprndPurpose=2",
                     "remove operand 22"}));
}

TYPED_TEST(SavedElement, RestoringThatFailsHalfWayKeepsWhatWasWritten) {
  TypeParam r;
  r.TouchOprndAddr(4);
  r.VisibleOpAddr(5);
  ASSERT_EQ(r.OperandBags()->Count(), 1);
  EXPECT_EQ(ErrorOf([&] { r.RestoreAllOperands(); }), 9);
  EXPECT_EQ(this->OperandRows(), std::vector<std::string>{"-1 1 4 0 2"});
}

TYPED_TEST(SavedElement, BagsAreCountedByWhatIsPresent) {
  TypeParam r;
  r.VisibleOpAddr(5);
  r.TouchOprndAddr(4);
  ASSERT_EQ(r.OperandBags()->Count(), 2);
  // The bags stay as they were built, with the touch operand's first.
  r.TouchOprndAddr(-1);
  r.RestoreAllOperands();
  EXPECT_TRUE(this->IsDefined(4));
  EXPECT_FALSE(this->IsDefined(5));
  EXPECT_EQ(this->OperandRows(), std::vector<std::string>{"-1 1 5 0 5"});
}

TYPED_TEST(SavedElement, TouchAddressMinus2IsAnOperandLikeAnyOther) {
  TypeParam r;
  r.TouchOprndAddr(-2);
  EXPECT_EQ(this->AddressInBag(r, 1), -2);
  r.SaveToDB();
  r.RestoreAllOperands();
  EXPECT_EQ(this->OperandRows(), std::vector<std::string>{"5 1 -2 0 2"});
  EXPECT_TRUE(this->IsDefined(-2));
  r.DeleteFromDB();
  EXPECT_FALSE(this->IsDefined(-2));
}

TYPED_TEST(SavedElement, LoadsTheRowOnWhichTheRecordsetStands) {
  for (const Long xs : {31, 32, 33}) {
    const auto r = this->Distinct();
    r->Xs(xs);
    r->SaveToDB();
  }
  const auto rows = ado::OpenRecordset(this->Connection(), "SELECT * FROM HMI_Elements ORDER BY ID",
                                       ado::adOpenStatic, ado::adLockReadOnly);
  rows->MoveNext();
  TypeParam loaded;
  loaded.LoadFromDB(*rows);
  EXPECT_EQ(loaded.Xs(), 32);
  EXPECT_EQ(automation::To<Long>(rows->Get("Xs")), 32);
}

TYPED_TEST(SavedElement, LoadingAsksForTheOperandsOnceAndRemovesNoRow) {
  const auto r = this->Distinct();
  r->SaveToDB();
  const auto store = std::make_shared<test::AskedStore>();
  Platform::Current().operands = store;
  this->Loaded(5);
  EXPECT_EQ(store->asked, (std::vector<Long>{22, 23}));
  this->Connection().Execute("UPDATE HMI_Elements SET VisibleOpAddr=-1");
  AddOperandRow(5, kMemoryBit, -1, eOP_VisibleOperand, kLocalNetwork);
  this->Loaded(5);
  EXPECT_EQ(this->OperandRows().size(), 1u);
}

TYPED_TEST(SavedElement, AColumnGuidThatIsNullStopsTheDeletion) {
  const auto r = this->Distinct();
  r->SaveToDB();
  AddOperandRow(5, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  this->Connection().Execute("UPDATE HMI_Elements SET GUID=NULL");
  this->Changes().Clear();
  EXPECT_EQ(ErrorOf([&] { r->DeleteFromDB(); }), 94);
  EXPECT_EQ(this->Elements(), std::vector<std::string>{"5"});
  EXPECT_EQ(this->OperandRows().size(), 1u);
  EXPECT_TRUE(this->Changes().ChangedPages().empty());
}

TYPED_TEST(SavedElement, DeletingWhatHasNoRowDoesNothingElse) {
  TypeParam r;
  this->Define(-1);
  this->TakeLog();
  EXPECT_EQ(ErrorOf([&] { r.DeleteFromDB(); }), 3021);
  EXPECT_EQ(this->TakeLog(), (CallLog{"execute SELECT * FROM HMI_Elements WHERE ID=-1", "get Guid"}));
  EXPECT_TRUE(this->IsDefined(-1));
  EXPECT_TRUE(this->Changes().ChangedPages().empty());
}

TYPED_TEST(SavedElement, ASaveWhoseNumberOrOrderFailsMakesNoRow) {
  class NoNumbers final : public corvane1::NumberGenerator {
    Long NewUniqueNumber() override {
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no numbers");
    }
  };
  const auto numbers = Platform::Current().numberGenerator;
  Platform::Current().numberGenerator = std::make_shared<NoNumbers>();
  const auto r = this->Distinct();
  EXPECT_EQ(ErrorOf([&] { r->SaveToDB(); }), 5);
  EXPECT_EQ(r->ID(), -1);
  EXPECT_TRUE(this->Elements().empty());
  EXPECT_TRUE(this->Changes().ChangedElements().empty());

  Platform::Current().numberGenerator = numbers;
  this->Connection().Execute("INSERT INTO HMI_Elements (DisplayID,OrderIndex) VALUES (7,2147483647)");
  EXPECT_EQ(ErrorOf([&] { r->SaveToDB(); }), 6);
  EXPECT_EQ(r->ID(), -1);
  EXPECT_EQ(r->OrderIndex(), 24);
  EXPECT_EQ(this->Elements().size(), 1u);
}

TYPED_TEST(SavedElement, ATrackerThatFailsLeavesTheSavedRow) {
  class Deaf final : public corvane1::ChangeTracker {
    void NotifyElementChanged(Long) override {
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "deaf");
    }
    void NotifyPageChanged(Long) override {}
    Long ElementSize(Long) override { return 0; }
  };
  Platform::Current().changeTracker = std::make_shared<Deaf>();
  const auto r = this->Distinct();
  EXPECT_EQ(ErrorOf([&] { r->SaveToDB(); }), 5);
  EXPECT_EQ(r->ID(), 5);
  EXPECT_EQ(this->Elements(), std::vector<std::string>{"5"});
}

TYPED_TEST(SavedElement, AReleaseThatFailsTellsOfNoChangedPage) {
  class Refusing final : public fennick1::OperandStore {
    std::optional<fennick1::OperandContent> Load(const fennick1::OperandKey&) override { return {}; }
    void Add(const fennick1::OperandKey&, const fennick1::OperandContent&) override {}
    void Remove(const fennick1::OperandKey&) override {
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no");
    }
    Long FreeAddress(Long, Long) override { return 0; }
  };
  const auto r = this->Distinct();
  r->SaveToDB();
  this->Changes().Clear();
  Platform::Current().operands = std::make_shared<Refusing>();
  EXPECT_EQ(ErrorOf([&] { r->DeleteFromDB(); }), 5);
  EXPECT_TRUE(this->Changes().ChangedPages().empty());
  EXPECT_TRUE(this->Elements().empty());
}

TYPED_TEST(SavedElement, EveryNumberIsKeptIn32Bits) {
  constexpr Long kMost = 2147483647;
  const auto r = this->Distinct();
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
  const auto loaded = this->Loaded(5);
  test::ExpectAlike(*loaded, *r);
  this->Connection().Execute("UPDATE HMI_Elements SET Xs=2147483648");
  EXPECT_EQ(ErrorOf([&] { this->Loaded(5); }), 6);
}

TYPED_TEST(SavedElement, EveryBuildOfTheBagsGivesACollectionOfItsOwn) {
  const auto r = this->Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(23);
  const auto copy = std::dynamic_pointer_cast<TypeParam>(r->Replica());
  copy->TouchOprndAddr(40);
  EXPECT_NE(copy->OperandBags(), r->OperandBags());
  EXPECT_EQ(r->OperandBags()->Count(), 2);
  EXPECT_EQ(this->AddressInBag(*r, 1), 22);
  EXPECT_EQ(this->AddressInBag(*copy, 1), 40);
  EXPECT_NE(r->BuildOpPropBag(), r->BuildOpPropBag());
}

TYPED_TEST(SavedElement, ReleasingAReplicaLeavesTheBagsThatItsSourceShares) {
  const auto r = this->Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(23);
  r->Replica().reset();
  EXPECT_EQ(r->OperandBags()->Count(), 2);
}

TYPED_TEST(SavedElement, TheBagsGoWithTheirLastOwner) {
  auto r = this->Distinct();
  const std::weak_ptr<automation::Collection> bags = r->OperandBags();
  EXPECT_FALSE(bags.expired());
  r.reset();
  EXPECT_TRUE(bags.expired());
}

TYPED_TEST(SavedElement, ATouchAddressIsStoredBeforeItsBagIsBuilt) {
  TypeParam r;
  this->CloseProject();
  EXPECT_EQ(ErrorOf([&] { r.TouchOprndAddr(5); }), 91);
  EXPECT_EQ(r.TouchOprndAddr(), 5);
  r.ID(3);
  EXPECT_EQ(ErrorOf([&] { r.VisibleOpAddr(6); }), 91);
  EXPECT_EQ(r.VisibleOpAddr(), 6);
}

TYPED_TEST(SavedElement, DeletingReleasesEveryHideAddressBut0) {
  TypeParam r;
  r.VisibleOpAddr(-2);
  r.SaveToDB();
  this->Define(-2);
  r.DeleteFromDB();
  EXPECT_FALSE(this->IsDefined(-2));
}

TYPED_TEST(SavedElement, AReplicaIsGivenItsTouchOperandBeforeItsHideOperand) {
  const auto r = this->Distinct();
  r->SaveToDB();
  const auto store = std::make_shared<test::AskedStore>();
  Platform::Current().operands = store;
  r->Replica();
  // The touch writer looks for 22 alone, the hide writer for 22 and 23.
  EXPECT_EQ(store->asked, (std::vector<Long>{22, 23}));
  store->asked.clear();
  r->TouchOprndAddr(-1);
  r->Replica();
  EXPECT_EQ(store->asked, std::vector<Long>{23});
}

TYPED_TEST(SavedElement, RestoringEntersEachOperandBeforeItsRow) {
  const auto r = this->Distinct();
  r->SaveToDB();
  r->VisibleOpAddr(23);
  Platform::Current().operands =
      std::make_shared<test::NotingStore>(Platform::Current().operands, this->Recorder());
  this->TakeLog();
  r->RestoreAllOperands();
  const std::string insert =
      "execute INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) VALUES ";
  EXPECT_EQ(this->TakeLog(),
            (CallLog{"add operand 22", insert + "(5,1,22,0,2)", "add operand 23", insert + "(5,1,23,0,5)"}));
}

TYPED_TEST(SavedElement, ReleasingAnElementWritesNothing) {
  {
    const auto r = this->Distinct();
    r->SaveToDB();
    r->Xs(400);
    this->TakeLog();
  }
  EXPECT_TRUE(this->TakeLog().empty());
  EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", {"Xs"}), std::vector<std::string>{"12"});
}

TYPED_TEST(SavedElement, MakingAnElementTouchesNoDatabaseOnceTheProjectsSettingsAreKnown) {
  // The settings look at the project through the log as well.
  Platform::Current().heldProject->Hold(ProjectConnection());
  { const TypeParam first; }
  EXPECT_EQ(this->TakeLog(), (CallLog{"open SELECT * FROM Settings [3,1,1]", "Close"}));
  { const TypeParam second; }
  EXPECT_TRUE(this->TakeLog().empty());
}

TYPED_TEST(SavedElement, ADatabaseOfTheHostsOwnIsUsedForEverythingWhenItIsHeld) {
  // The recorder is a connection of its own class, as a host's is.
  const ado::ConnectionRef host = ProjectConnection();
  Platform::Current() = Platform();
  this->OpenPage(TestFixture::kPage);
  Platform::Current().heldProject->Hold(host);
  this->TakeLog();
  this->Define(22);
  TypeParam r;
  r.Xs(12);
  r.TouchOprndAddr(22);
  r.SaveToDB();
  EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", {"ID", "GUID", "DisplayID", "Xs"}),
            std::vector<std::string>{"5 9 7 12"});
  EXPECT_EQ(this->Rows("SELECT * FROM Operands", {"Type", "Address"}), std::vector<std::string>{"1 22"});
  EXPECT_GT(Platform::Current().changeTracker->ElementSize(5), 0);
  const CallLog log = this->TakeLog();
  for (const char* call :
       {"open SELECT * FROM Settings [3,1,1]", "open SELECT * FROM Numbers WHERE Name='GUID' [3,3,1]",
        "put GUID=9:Long", "open SELECT * FROM Operands WHERE Type=1 AND Address=22 AND NetID=0 [3,3,1]",
        "open SELECT * FROM HMI_Elements WHERE ID=5 [3,1,1]"}) {
    EXPECT_EQ(std::count(log.begin(), log.end(), call), 1) << call;
  }
}

}  // namespace
}  // namespace quenzel7
