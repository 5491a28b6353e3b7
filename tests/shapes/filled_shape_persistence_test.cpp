/// What the rows of the filled shapes differ in, and what happens when the database fails on the way.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/raises.h"
#include "tests/support/saved_shape.h"

namespace quenzel7 {
namespace {

using automation::Variant;
using test::CallLog;
using test::DescriptionOf;
using test::ErrorOf;
using test::Joined;
using test::kNewRow;
using test::kOldRow;

using SavedRectangle = test::SavedShape<clsRectangle>;
using SavedEllipse = test::SavedShape<clsEllipse>;
using SavedRoundRect = test::SavedShape<clsRoundRect>;

// --- Rectangle ---

const CallLog kPutsOfRectangle = test::PutsOfDistinct("1");

TEST_F(SavedRectangle, ANewRowIsMadeInThisOrder) {
  const auto r = Distinct();
  TakeLog();
  EXPECT_TRUE(r->SaveToDB());
  EXPECT_EQ(TakeLog(),
            Joined({kNewRow,
                    kPutsOfRectangle,
                    {"put OrderIndex=1:Long", "Update", "get ID", "Close", "element 5", "page 7"}}));
  EXPECT_EQ(r->ID(), 5);
  EXPECT_EQ(r->OrderIndex(), 1);
}

TEST_F(SavedRectangle, AnExistingRowIsRewrittenInThisOrderWithoutItsGuid) {
  const auto r = Distinct();
  r->SaveToDB();
  r->OrderIndex(30);
  TakeLog();
  EXPECT_TRUE(r->SaveToDB());
  EXPECT_EQ(TakeLog(), Joined({kOldRow,
                               kPutsOfRectangle,
                               {"put OrderIndex=30:Long", "Update", "get ID", "Close", "element 5"}}));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "GUID", "OrderIndex"}),
            std::vector<std::string>{"5 9 30"});
}

TEST_F(SavedRectangle, NewOnesLieOnTopOfTheirPage) {
  Distinct()->SaveToDB();
  Distinct()->SaveToDB();
  OpenPage(8);
  Distinct()->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID", "OrderIndex"}),
            (std::vector<std::string>{"5 1", "6 2", "7 1"}));
}

// --- Ellipse ---

const CallLog kPutsOfEllipse = test::PutsOfDistinct("6");

TEST_F(SavedEllipse, ANewRowIsMadeInThisOrder) {
  const auto e = Distinct();
  TakeLog();
  EXPECT_TRUE(e->SaveToDB());
  EXPECT_EQ(TakeLog(), Joined({kNewRow,
                               {"put OrderIndex=1:Long"},
                               kPutsOfEllipse,
                               {"Update", "get OrderIndex", "get ID", "Close", "element 5", "page 7"}}));
  EXPECT_EQ(e->ID(), 5);
  EXPECT_EQ(e->OrderIndex(), 1);
}

TEST_F(SavedEllipse, AnExistingRowIsRewrittenInThisOrderWithoutItsGuidAndOrder) {
  const auto e = Distinct();
  e->SaveToDB();
  TakeLog();
  EXPECT_TRUE(e->SaveToDB());
  EXPECT_EQ(TakeLog(),
            Joined({kOldRow, kPutsOfEllipse, {"Update", "get OrderIndex", "get ID", "Close", "element 5"}}));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "GUID", "OrderIndex"}),
            std::vector<std::string>{"5 9 1"});
}

TEST_F(SavedEllipse, NewOnesLieOnTopOfTheirPage) {
  Connection().Execute("INSERT INTO HMI_Elements (ID,DisplayID,OrderIndex) VALUES (5,7,40)");
  const auto first = Distinct();
  const auto second = Distinct();
  first->SaveToDB();
  second->SaveToDB();
  OpenPage(8);
  const auto other = Distinct();
  other->SaveToDB();
  EXPECT_EQ(first->OrderIndex(), 41);
  EXPECT_EQ(second->OrderIndex(), 42);
  EXPECT_EQ(other->OrderIndex(), 1);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID", "OrderIndex"}),
            (std::vector<std::string>{"5 40", "6 41", "7 42", "8 1"}));
}

TEST_F(SavedEllipse, SavedTwiceKeepsItsOrder) {
  const auto below = Distinct();
  below->SaveToDB();
  Distinct()->SaveToDB();
  below->SaveToDB();
  EXPECT_EQ(below->OrderIndex(), 1);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"OrderIndex"}),
            (std::vector<std::string>{"1", "2"}));
}

TEST_F(SavedEllipse, TheOrderThatAHostSetsIsReplacedByTheRows) {
  const auto e = Distinct();
  e->SaveToDB();
  e->OrderIndex(30);
  EXPECT_EQ(e->OrderIndex(), 30);
  e->SaveToDB();
  EXPECT_EQ(e->OrderIndex(), 1);
  Connection().Execute("UPDATE HMI_Elements SET OrderIndex=40");
  e->SaveToDB();
  EXPECT_EQ(e->OrderIndex(), 40);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"OrderIndex"}), std::vector<std::string>{"40"});
}

TEST_F(SavedEllipse, ASavedReplicaLeavesTheOrderOfTheRow) {
  const auto e = Distinct();
  e->SaveToDB();
  const auto copy = e->Replica();
  copy->OrderIndex(30);
  copy->SaveToDB();
  EXPECT_EQ(copy->OrderIndex(), 1);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "OrderIndex"}), std::vector<std::string>{"5 1"});
}

TEST_F(SavedEllipse, ARowWithoutAnOrderIsAnErrorAfterItIsWritten) {
  const auto e = Distinct();
  e->SaveToDB();
  Connection().Execute("UPDATE HMI_Elements SET OrderIndex=NULL");
  Changes().Clear();
  e->Xs(500);
  EXPECT_RAISES(94, "column 'OrderIndex' of HMI_Elements: invalid use of Null: a number was expected",
                e->SaveToDB());
  EXPECT_EQ(e->OrderIndex(), 1);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"Xs", "OrderIndex"}), std::vector<std::string>{"500 Null"});
  EXPECT_TRUE(Changes().ChangedElements().empty());
}

TEST_F(SavedEllipse, ARowWithAnOrderThatIsNoLongIsAnErrorAfterItIsWritten) {
  const auto e = Distinct();
  e->SaveToDB();
  struct Case {
    const char* order;
    Long error;
  };
  Long place = 500;
  for (const Case& c : {Case{"3000000000", 6}, {"2147483648", 6}, {"'top'", 13}}) {
    Connection().Execute(std::string("UPDATE HMI_Elements SET OrderIndex=") + c.order);
    Changes().Clear();
    e->Xs(++place);
    EXPECT_EQ(ErrorOf([&] { e->SaveToDB(); }), c.error) << c.order;
    EXPECT_EQ(e->OrderIndex(), 1) << c.order;
    EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"Xs"}), std::vector<std::string>{std::to_string(place)});
    EXPECT_TRUE(Changes().ChangedElements().empty()) << c.order;
  }
}

TEST_F(SavedEllipse, ADeletionUndoneTakesANewOrder) {
  const auto below = Distinct();
  below->SaveToDB();
  Distinct()->SaveToDB();
  below->DeleteFromDB();
  EXPECT_EQ(below->OrderIndex(), 1);
  below->ID(-1);
  below->SaveToDB();
  EXPECT_EQ(below->ID(), 7);
  EXPECT_EQ(below->OrderIndex(), 3);
}

// --- Round rectangle ---

const CallLog kPutsOfRoundRect = test::PutsOfDistinct("7", {{"DescriptionFontNumber", ""}});

TEST_F(SavedRoundRect, ANewRowIsMadeInThisOrder) {
  const auto r = Distinct();
  TakeLog();
  EXPECT_TRUE(r->SaveToDB());
  EXPECT_EQ(TakeLog(),
            Joined({kNewRow,
                    {"put OrderIndex=1:Long"},
                    kPutsOfRoundRect,
                    {"put OrderIndex=24:Long", "Update", "get ID", "Close", "element 5", "page 7"}}));
  EXPECT_EQ(r->ID(), 5);
  EXPECT_EQ(r->OrderIndex(), 24);
}

TEST_F(SavedRoundRect, AnExistingRowIsRewrittenInThisOrderWithoutItsGuid) {
  const auto r = Distinct();
  r->SaveToDB();
  r->OrderIndex(30);
  TakeLog();
  EXPECT_TRUE(r->SaveToDB());
  EXPECT_EQ(TakeLog(), Joined({kOldRow,
                               kPutsOfRoundRect,
                               {"put OrderIndex=30:Long", "Update", "get ID", "Close", "element 5"}}));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID", "GUID", "OrderIndex"}),
            std::vector<std::string>{"5 9 30"});
}

TEST_F(SavedRoundRect, ANewOneLiesWhereItsFieldSays) {
  Connection().Execute("INSERT INTO HMI_Elements (ID,DisplayID,OrderIndex) VALUES (5,7,40)");
  clsRoundRect untold;
  untold.SaveToDB();
  EXPECT_EQ(untold.OrderIndex(), 0);
  clsRoundRect told;
  told.OrderIndex(17);
  told.SaveToDB();
  EXPECT_EQ(told.OrderIndex(), 17);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID", "OrderIndex"}),
            (std::vector<std::string>{"5 40", "6 0", "7 17"}));
}

TEST_F(SavedRoundRect, TheFontOfADescriptionStaysAsTheRowHasIt) {
  const auto r = Distinct();
  r->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"FontNumber", "DescriptionFontNumber"}),
            std::vector<std::string>{"0 Null"});
  Connection().Execute("UPDATE HMI_Elements SET FontNumber=8, DescriptionFontNumber=8");
  r->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"FontNumber", "DescriptionFontNumber"}),
            std::vector<std::string>{"0 8"});
}

// --- What a row holds, and how it is read ---

/// What the classes differ in when Distinct has been saved as a new element.
struct RowOfNew {
  const char* values;
  /// The field after saving.
  Long orderIndex;
  /// The call, when a new element is saved, that has to succeed for the field to change; none if it stays.
  const char* orderKnownAfter;
};
template <class Shape>
constexpr RowOfNew kRowOfNew{};
template <>
constexpr RowOfNew kRowOfNew<clsRectangle>{
    "5 9 1 12 13 14 15 7 11 16 17 18 19 20 3 21 4 22 23 0 0 0 0 0 0 0 0 0 0 -1 -1 -1 255 1", 1, "Close"};
template <>
constexpr RowOfNew kRowOfNew<clsEllipse>{
    "5 9 6 12 13 14 15 7 11 16 17 18 19 20 3 21 4 22 23 0 0 0 0 0 0 0 0 0 0 -1 -1 -1 255 1", 1,
    "get OrderIndex"};
template <>
constexpr RowOfNew kRowOfNew<clsRoundRect>{
    "5 9 7 12 13 14 15 7 11 16 17 18 19 20 3 21 4 22 23 0 Null 0 0 0 0 0 0 0 0 -1 -1 -1 255 24", 24, "none"};

template <class Shape>
using SavedFilledShape = test::SavedShape<Shape>;
TYPED_TEST_SUITE(SavedFilledShape, test::FilledShapeTypes, test::ClassNameOfShape);

TYPED_TEST(SavedFilledShape, SavingKeepsWhatTheRowHolds) {
  this->Distinct()->SaveToDB();
  const std::vector<std::string> columns = {"ID",
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
                                            "OrderIndex"};
  EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", columns),
            std::vector<std::string>{kRowOfNew<TypeParam>.values});
}

TYPED_TEST(SavedFilledShape, LoadsItsColumnsInThisOrder) {
  this->Distinct()->SaveToDB();
  this->TakeLog();
  this->Loaded(5);
  const CallLog expected = {"open SELECT * FROM HMI_Elements WHERE ID=5 [3,1,1]", "get ID", "get GroupID",
                            "get Xs", "get Ys", "get Dx", "get Dy", "get ColorBack", "get ColorFore",
                            "get ColorBackTouch", "get ColorForeTouch", "get ColorHatch", "get PenStyle",
                            "get PenWidth", "get HatchStyle", "get TouchOprndAddr", "get VisibleOpAddr",
                            "get OrderIndex",
                            // The fixture's look at the row afterwards.
                            "get ID"};
  EXPECT_EQ(this->TakeLog(), expected);
}

TYPED_TEST(SavedFilledShape, LoadsItsHatchAndItsOrder) {
  this->Distinct()->SaveToDB();
  this->Reopen();
  const auto loaded = this->Loaded(5);
  EXPECT_EQ(loaded->ColorHatch(), 20);
  EXPECT_EQ(loaded->HatchStyle(), eHS_Cross);
  EXPECT_EQ(loaded->OrderIndex(), kRowOfNew<TypeParam>.orderIndex);
}

TYPED_TEST(SavedFilledShape, EveryColumnThatIsReadMayNotBeNull) {
  this->Distinct()->SaveToDB();
  for (const char* column : {"GroupID", "Xs", "Ys", "Dx", "Dy", "ColorBack", "ColorFore", "ColorBackTouch",
                             "ColorForeTouch", "ColorHatch", "PenStyle", "PenWidth", "HatchStyle",
                             "TouchOprndAddr", "VisibleOpAddr", "OrderIndex"}) {
    this->Connection().Execute(std::string("UPDATE HMI_Elements SET ") + column + "=NULL");
    EXPECT_EQ(ErrorOf([&] { this->Loaded(5); }), 94) << column;
    EXPECT_EQ(
        DescriptionOf([&] { this->Loaded(5); }),
        std::string("column '") + column + "' of HMI_Elements: invalid use of Null: a number was expected");
    this->Connection().Execute(std::string("UPDATE HMI_Elements SET ") + column + "=1");
  }
}

TYPED_TEST(SavedFilledShape, LoadingReadsNoFillStyleAndKeepsTheOneThatTheHostSet) {
  this->Distinct()->SaveToDB();
  const auto row = ado::OpenRecordset(this->Connection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic,
                                      ado::adLockReadOnly);
  TypeParam shape;
  shape.FillStyle(eFS_Solid);
  shape.LoadFromDB(*row);
  EXPECT_EQ(shape.FillStyle(), eFS_Solid);
}

TYPED_TEST(SavedFilledShape, ASolidOneComesBackHollowOrHatched) {
  const auto brushOf = [this] {
    const auto loaded = this->Loaded(5);
    EXPECT_EQ(loaded->ColorBack(), 16);
    for (const std::string& call : test::CallsOfDraw(*loaded)) {
      if (call.ends_with("-> brush:1")) return call.substr(0, call.find(','));
    }
    return std::string();
  };
  const auto shape = this->Distinct();
  shape->SaveToDB();
  EXPECT_EQ(brushOf(), "CreateHatchBrush(4");
  shape->HatchStyle(eHS_None);
  shape->SaveToDB();
  EXPECT_EQ(brushOf(), "CreateBrushIndirect({1");
}

// --- A database that fails at each step ---

TYPED_TEST(SavedFilledShape, ANewOneWhoseSavingFailsHasOnlyDoneWhatCameBefore) {
  this->TakeLog();
  const auto saved = this->Distinct();
  this->TakeLog();
  saved->SaveToDB();
  const CallLog calls = this->TakeLog();
  saved->DeleteFromDB();
  const auto stepOf = [&calls](const char* call) {
    return std::find(calls.begin(), calls.end(), call) - calls.begin();
  };
  for (int step = 0; step < static_cast<int>(calls.size()); ++step) {
    const auto shape = this->Distinct();
    const Long rowsBefore = static_cast<Long>(this->Elements().size());
    this->Changes().Clear();
    this->TakeLog();
    this->Recorder().FailAt(step + 1);
    const test::Raised raised = test::RaisedBy([&] { shape->SaveToDB(); });
    this->Recorder().FailAt(0);
    EXPECT_EQ(raised.number, static_cast<Long>(automation::ErrorNumber::Database)) << calls[step];
    EXPECT_EQ(this->TakeLog().size(), static_cast<std::size_t>(step) + 1) << calls[step];
    const bool written = step > stepOf("Update");
    EXPECT_EQ(static_cast<Long>(this->Elements().size()) - rowsBefore, written ? 1 : 0) << calls[step];
    EXPECT_EQ(shape->ID() != -1, step > stepOf("get ID")) << calls[step];
    const bool orderKnown = step > stepOf(kRowOfNew<TypeParam>.orderKnownAfter);
    EXPECT_EQ(shape->OrderIndex() != 24, orderKnown) << calls[step];
    EXPECT_EQ(this->Changes().ChangedElements().size(), step > stepOf("element 5") ? 1u : 0u) << calls[step];
    EXPECT_TRUE(this->Changes().ChangedPages().empty()) << calls[step];
  }
}

TYPED_TEST(SavedFilledShape, AnOldOneWhoseSavingFailsKeepsItsRowUntilTheUpdate) {
  const auto shape = this->Distinct();
  shape->SaveToDB();
  this->TakeLog();
  shape->SaveToDB();
  const CallLog calls = this->TakeLog();
  const auto update = std::find(calls.begin(), calls.end(), "Update") - calls.begin();
  for (int step = 0; step < static_cast<int>(calls.size()); ++step) {
    this->Connection().Execute("UPDATE HMI_Elements SET Xs=1");
    this->Changes().Clear();
    this->Recorder().FailAt(step + 1);
    EXPECT_EQ(ErrorOf([&] { shape->SaveToDB(); }), static_cast<Long>(automation::ErrorNumber::Database));
    this->Recorder().FailAt(0);
    EXPECT_EQ(this->Rows("SELECT * FROM HMI_Elements", {"ID", "Xs"}),
              std::vector<std::string>{step > update ? "5 12" : "5 1"})
        << calls[step];
    EXPECT_TRUE(this->Changes().ChangedElements().empty()) << calls[step];
    EXPECT_EQ(shape->ID(), 5);
    EXPECT_EQ(shape->OrderIndex(), kRowOfNew<TypeParam>.orderIndex);
  }
}

TYPED_TEST(SavedFilledShape, LoadingThatFailsNamesTheColumnAndBuildsNoBags) {
  this->Distinct()->SaveToDB();
  const auto row = ado::OpenRecordset(*ProjectConnection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic,
                                      ado::adLockReadOnly);
  this->TakeLog();
  TypeParam().LoadFromDB(*row);
  const CallLog calls = this->TakeLog();
  ASSERT_EQ(calls.size(), 17u);
  for (int step = 0; step < 17; ++step) {
    TypeParam shape;
    this->Recorder().FailAt(step + 1);
    EXPECT_EQ(DescriptionOf([&] { shape.LoadFromDB(*row); }),
              "column '" + calls[step].substr(4) + "' of HMI_Elements: failed at " + calls[step]);
    this->Recorder().FailAt(0);
    EXPECT_EQ(shape.OperandBags(), nullptr);
  }
}

TYPED_TEST(SavedFilledShape, ADeletionThatFailsHasOnlyDoneWhatCameBefore) {
  const CallLog calls = {
      "execute SELECT",          "get Guid", "Close", "execute DELETE DLU", "execute DELETE row",
      "execute DELETE operands", "page"};
  for (int step = 0; step < static_cast<int>(calls.size()); ++step) {
    const auto shape = this->Distinct();
    shape->SaveToDB();
    AddOperandRow(shape->ID(), kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
    this->Define(22);
    this->Changes().Clear();
    this->Recorder().FailAt(step + 1);
    EXPECT_EQ(ErrorOf([&] { shape->DeleteFromDB(); }), static_cast<Long>(automation::ErrorNumber::Database));
    this->Recorder().FailAt(0);
    EXPECT_EQ(this->Elements().empty(), step > 4) << calls[step];
    EXPECT_EQ(this->OperandRows().empty(), step > 5) << calls[step];
    EXPECT_EQ(this->IsDefined(22), step <= 5) << calls[step];
    EXPECT_TRUE(this->Changes().ChangedPages().empty()) << calls[step];
    this->Connection().Execute("DELETE FROM HMI_Elements");
    this->Connection().Execute("DELETE FROM HMI_Operands");
  }
}

}  // namespace
}  // namespace quenzel7
