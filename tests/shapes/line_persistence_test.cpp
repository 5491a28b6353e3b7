/// Lines and the project: their row, their operands, their deletion.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "framework/operands.h"
#include "framework/project.h"
#include "platform/automation/member.h"
#include "shapes/line.h"
#include "tests/support/placed_shape.h"
#include "tests/support/project_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::DescriptionOf;
using test::ErrorOf;

class SavedLine : public test::ProjectTest {
 protected:
  /// The next element gets the ID 6 and the GUID 8.
  void SetUp() override {
    ProjectTest::SetUp();
    Connection().Execute("INSERT INTO HMI_Elements (ID,DisplayID) VALUES (5,1)");
    Connection().Execute("INSERT INTO Numbers (Name,Next) VALUES ('GUID',8)");
    TakeLog();
  }

  /// A line in which every field that is kept has a value of its own.
  static std::shared_ptr<clsLine> Distinct() {
    auto line = test::Placed<clsLine>({12, 13, -14, 15});
    line->GroupID(11);
    line->ColorBack(16);
    line->ColorFore(17);
    line->ColorBackTouch(18);
    line->ColorForeTouch(19);
    line->PenStyle(ePS_Dash_Dot);
    line->PenWidth(21);
    line->TouchOprndAddr(22);
    line->VisibleOpAddr(23);
    line->OrderIndex(24);
    return line;
  }

  ado::RecordsetRef Row(ado::Connection& connection) {
    return ado::OpenRecordset(connection, "SELECT * FROM HMI_Elements WHERE ID=6", ado::adOpenStatic,
                              ado::adLockReadOnly);
  }

  std::shared_ptr<clsLine> Loaded() {
    auto line = std::make_shared<clsLine>();
    EXPECT_FALSE(line->LoadFromDB(*Row(Connection())));
    return line;
  }

  /// The operands of an element as it would describe them, by their bags.
  static std::vector<Long> AddressesInBags(const clsLine& line) {
    std::vector<Long> addresses;
    for (Long place = 1; place <= line.OperandBags()->Count(); ++place) {
      fennick1::Operand operand(Platform::Current().operands);
      operand.PropBag(line.OperandBags()->ObjectAt<automation::PropertyBag>(place));
      EXPECT_EQ(operand.OperandType(), 1);
      addresses.push_back(operand.OperandAddress());
    }
    return addresses;
  }
};

/// What saving writes between the order of the row and its last column.
const CallLog kPuts = {
    "put Type=2:Long",
    "put Xs=12:Long",
    "put Ys=13:Long",
    "put Dx=-14:Long",
    "put Dy=15:Long",
    "put DisplayID=7:Long",
    "put GroupID=11:Long",
    "put ColorBack=16:Long",
    "put ColorFore=17:Long",
    "put ColorBackTouch=18:Long",
    "put ColorForeTouch=19:Long",
    "put ColorHatch=0:Integer",
    "put PenStyle=3:Long",
    "put PenWidth=21:Long",
    "put HatchStyle=0:Integer",
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

/// A log that begins and ends with the given calls and has the columns between.
CallLog WithPuts(CallLog calls, const CallLog& after) {
  calls.insert(calls.end(), kPuts.begin(), kPuts.end());
  calls.insert(calls.end(), after.begin(), after.end());
  return calls;
}

TEST_F(SavedLine, ANewRowIsMadeInThisOrder) {
  const auto line = Distinct();
  TakeLog();
  EXPECT_TRUE(line->SaveToDB());
  EXPECT_EQ(
      TakeLog(),
      WithPuts({"open SELECT * FROM HMI_ELEMENTS WHERE ID=-1 [3,3,1]", "AddNew", "put GUID=8:Long",
                "open SELECT MAX(OrderIndex) AS MaxOrderIndex FROM HMI_ELEMENTS WHERE DisplayID=7 [3,1,1]",
                "get MaxOrderIndex", "Close"},
               {"put OrderIndex=1:Long", "Update", "get ID", "Close", "element 6", "page 7"}));
  EXPECT_EQ(line->ID(), 6);
  EXPECT_EQ(line->OrderIndex(), 1);
}

TEST_F(SavedLine, AnExistingRowIsRewrittenInThisOrderWithoutItsGuid) {
  const auto line = Distinct();
  line->SaveToDB();
  line->OrderIndex(30);
  TakeLog();
  EXPECT_TRUE(line->SaveToDB());
  EXPECT_EQ(TakeLog(), WithPuts({"open SELECT * FROM HMI_ELEMENTS WHERE ID=6 [3,3,1]"},
                                {"put OrderIndex=30:Long", "Update", "get ID", "Close", "element 6"}));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements WHERE ID=6", {"GUID", "Type", "OrderIndex"}),
            std::vector<std::string>{"8 2 30"});
}

TEST_F(SavedLine, SavesItsVectorAtRest) {
  const auto line = Distinct();
  line->Stretch(100, 200, ePD_LineHead);
  line->SaveLastLegalPosition();
  line->UpdateDisplayWithTransx();
  line->SaveToDB();
  const auto row = [this] { return Rows("SELECT * FROM HMI_Elements WHERE ID=6", {"Xs", "Ys", "Dx", "Dy"}); };
  EXPECT_EQ(row(), std::vector<std::string>{"12 13 -14 15"});
  line->UpdateInitialDescriptor();
  line->SaveToDB();
  EXPECT_EQ(row(), std::vector<std::string>{"112 213 -114 -185"});
}

TEST_F(SavedLine, LoadsItsColumnsInThisOrder) {
  Distinct()->SaveToDB();
  const auto row = Row(*ProjectConnection());
  TakeLog();
  clsLine line;
  EXPECT_FALSE(line.LoadFromDB(*row));
  EXPECT_EQ(TakeLog(),
            (CallLog{"get ID", "get GroupID", "get Xs", "get Ys", "get Dx", "get Dy", "get ColorBack",
                     "get ColorFore", "get ColorBackTouch", "get ColorForeTouch", "get PenStyle",
                     "get PenWidth", "get TouchOprndAddr", "get VisibleOpAddr", "get OrderIndex"}));
  // The recordset is still open and on the same row.
  EXPECT_EQ(automation::To<Long>(row->Get("ID")), 6);
}

TEST_F(SavedLine, ComesBackFromAReopenedProject) {
  const auto saved = Distinct();
  saved->SaveToDB();
  Reopen();
  const auto line = Loaded();
  for (const automation::Member& member : clsLine::ClassOf().Default().Members()) {
    if (!member.get) continue;
    EXPECT_EQ(member.get(*line), member.get(*saved)) << member.name;
  }
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(test::PlaceOf(*line, location), (Descriptor{12, 13, -14, 15})) << location;
  }
  EXPECT_EQ(line->ID(), 6);
  EXPECT_EQ(AddressesInBags(*line), (std::vector<Long>{22, 23}));
}

TEST_F(SavedLine, AHatchInItsRowIsNotRead) {
  Distinct()->SaveToDB();
  Connection().Execute("UPDATE HMI_Elements SET ColorHatch=NULL, HatchStyle='none'");
  EXPECT_EQ(ErrorOf([&] { Loaded(); }), 0);
  EXPECT_EQ(Loaded()->HatchStyle(), 0);
  EXPECT_EQ(Loaded()->ColorHatch(), 0);
}

TEST_F(SavedLine, ANullInAnyColumnThatItReadsIsAnErrorThatNamesIt) {
  Distinct()->SaveToDB();
  for (const std::string column :
       {"GroupID", "Xs", "Ys", "Dx", "Dy", "ColorBack", "ColorFore", "ColorBackTouch", "ColorForeTouch",
        "PenStyle", "PenWidth", "TouchOprndAddr", "VisibleOpAddr", "OrderIndex"}) {
    Connection().Execute("UPDATE HMI_Elements SET " + column + "=NULL WHERE ID=6");
    EXPECT_EQ(ErrorOf([&] { Loaded(); }), 94) << column;
    EXPECT_EQ(DescriptionOf([&] { Loaded(); }).find("column '" + column + "' of HMI_Elements"), 0u) << column;
    Connection().Execute("UPDATE HMI_Elements SET " + column + "=1 WHERE ID=6");
  }
}

// --- Operands ---

TEST_F(SavedLine, ToolTipBeginsWithTheTouchOperand) {
  EXPECT_EQ(Distinct()->GetToolTipText(), "(Touch - MB 22) Pos: 12, 13 ; Size: -14, 15");
}

TEST_F(SavedLine, HasABagForEachOperandThatIsPresentTouchFirst) {
  clsLine line;
  line.VisibleOpAddr(23);
  EXPECT_EQ(line.OperandBags(), nullptr);
  line.TouchOprndAddr(22);
  EXPECT_EQ(AddressesInBags(line), (std::vector<Long>{22, 23}));
  line.ID(6);
  line.TouchOprndAddr(-1);
  line.VisibleOpAddr(24);
  EXPECT_EQ(AddressesInBags(line), std::vector<Long>{24});
}

TEST_F(SavedLine, DroppedOperandsRemoveTheirRows) {
  const auto line = Distinct();
  line->SaveToDB();
  AddOperandRow(6, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  AddOperandRow(6, kMemoryBit, 23, eOP_VisibleOperand, kLocalNetwork);
  line->IsTouchable(false);
  EXPECT_EQ(line->TouchOprndAddr(), -1);
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"6 1 23 0 5"});
  // The default interface stores only.
  line->VisibleOpAddr(-1);
  EXPECT_EQ(OperandRows(), std::vector<std::string>{"6 1 23 0 5"});
  line->VisibleOpAddr(23);
  static_cast<ItfHmiElement&>(*line).VisibleOpAddr(-1);
  EXPECT_TRUE(OperandRows().empty());
  EXPECT_EQ(line->VisibleOpAddr(), -1);
}

TEST_F(SavedLine, AReplicaSharesTheBagsAndSavesTheSameRow) {
  const auto line = Distinct();
  line->SaveToDB();
  line->VisibleOpAddr(23);
  const auto copy = std::dynamic_pointer_cast<clsLine>(line->Replica());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->OperandBags(), line->OperandBags());
  copy->Dx(-500);
  copy->SaveToDB();
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements ORDER BY ID", {"ID", "Dx"}),
            (std::vector<std::string>{"5 Null", "6 -500"}));
}

// --- Deletion ---

TEST_F(SavedLine, DeletingRunsTheseStatements) {
  const auto line = Distinct();
  line->SaveToDB();
  Connection().Execute("INSERT INTO DownloadDLUs (GUID) VALUES (8)");
  AddOperandRow(6, kMemoryBit, 22, eOP_TouchOperand, kLocalNetwork);
  TakeLog();
  line->DeleteFromDB();
  EXPECT_EQ(TakeLog(), (CallLog{"execute SELECT * FROM HMI_Elements WHERE ID=6", "get Guid", "Close",
                                "execute DELETE FROM DownloadDLUs WHERE GUID = 8",
                                "execute DELETE * FROM HMI_Elements WHERE ID=6",
                                "execute DELETE * FROM HMI_Operands WHERE ElementID=6", "page 7"}));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"ID"}), std::vector<std::string>{"5"});
  EXPECT_TRUE(OperandRows().empty());
  EXPECT_TRUE(Rows("SELECT * FROM DownloadDLUs", {"GUID"}).empty());
  EXPECT_EQ(line->ID(), 6);
}

TEST_F(SavedLine, ADeletionIsUndoneWithANewRow) {
  const auto line = Distinct();
  line->SaveToDB();
  line->VisibleOpAddr(23);
  line->DeleteFromDB();
  line->ID(-1);
  line->SaveToDB();
  line->RestoreAllOperands();
  EXPECT_EQ(line->ID(), 7);
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements WHERE ID=7", {"Type", "Xs", "Ys", "Dx", "Dy"}),
            std::vector<std::string>{"2 12 13 -14 15"});
  EXPECT_EQ(OperandRows(), (std::vector<std::string>{"7 1 22 0 2", "7 1 23 0 5"}));
}

}  // namespace
}  // namespace quenzel7
