/// What the row of a line differs in from those of the other shapes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/raises.h"
#include "tests/support/saved_shape.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::Joined;
using test::kNewRow;
using test::kOldRow;

using SavedLine = test::SavedShape<clsLine>;

const CallLog kPuts =
    test::PutsOfDistinct("2", {{"Dx", "-14:Long"}, {"ColorHatch", "0:Integer"}, {"HatchStyle", "0:Integer"}});

std::shared_ptr<clsLine> Leftward(std::shared_ptr<clsLine> line) {
  line->Dx(-14);
  return line;
}

TEST_F(SavedLine, ANewRowIsMadeInThisOrder) {
  const auto line = Leftward(Distinct());
  TakeLog();
  EXPECT_TRUE(line->SaveToDB());
  EXPECT_EQ(
      TakeLog(),
      Joined(
          {kNewRow, kPuts, {"put OrderIndex=1:Long", "Update", "get ID", "Close", "element 5", "page 7"}}));
  EXPECT_EQ(line->ID(), 5);
  EXPECT_EQ(line->OrderIndex(), 1);
}

TEST_F(SavedLine, AnExistingRowIsRewrittenInThisOrderWithoutItsGuid) {
  const auto line = Leftward(Distinct());
  line->SaveToDB();
  line->OrderIndex(30);
  TakeLog();
  EXPECT_TRUE(line->SaveToDB());
  EXPECT_EQ(TakeLog(),
            Joined({kOldRow, kPuts, {"put OrderIndex=30:Long", "Update", "get ID", "Close", "element 5"}}));
  EXPECT_EQ(Rows("SELECT * FROM HMI_Elements", {"GUID", "Type", "OrderIndex"}),
            std::vector<std::string>{"9 2 30"});
}

TEST_F(SavedLine, ItsSignedVectorComesBack) {
  Leftward(Distinct())->SaveToDB();
  Reopen();
  const auto line = Loaded(5);
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(test::DescriptorOf(*line, location), (Descriptor{12, 13, -14, 15})) << location;
  }
}

TEST_F(SavedLine, SavesItsVectorAtRest) {
  const auto line = Distinct();
  line->Stretch(100, 200, ePD_LineHead);
  line->SaveLastLegalPosition();
  line->UpdateDisplayWithTransx();
  line->SaveToDB();
  const auto row = [this] { return Rows("SELECT * FROM HMI_Elements", {"Xs", "Ys", "Dx", "Dy"}); };
  EXPECT_EQ(row(), std::vector<std::string>{"12 13 14 15"});
  line->UpdateInitialDescriptor();
  line->SaveToDB();
  EXPECT_EQ(row(), std::vector<std::string>{"112 213 -86 -185"});
}

TEST_F(SavedLine, LoadsItsColumnsInThisOrder) {
  Distinct()->SaveToDB();
  TakeLog();
  Loaded(5);
  EXPECT_EQ(TakeLog(), (CallLog{"open SELECT * FROM HMI_Elements WHERE ID=5 [3,1,1]", "get ID", "get GroupID",
                                "get Xs", "get Ys", "get Dx", "get Dy", "get ColorBack", "get ColorFore",
                                "get ColorBackTouch", "get ColorForeTouch", "get PenStyle", "get PenWidth",
                                "get TouchOprndAddr", "get VisibleOpAddr", "get OrderIndex",
                                // The fixture's look at the row afterwards.
                                "get ID"}));
}

TEST_F(SavedLine, AHatchInItsRowIsNotRead) {
  Distinct()->SaveToDB();
  Connection().Execute("UPDATE HMI_Elements SET ColorHatch=NULL, HatchStyle='none'");
  EXPECT_EQ(test::ErrorOf([&] { Loaded(5); }), 0);
  EXPECT_EQ(Loaded(5)->HatchStyle(), 0);
  EXPECT_EQ(Loaded(5)->ColorHatch(), 0);
}

TEST_F(SavedLine, ANullInAnyColumnThatItReadsIsAnErrorThatNamesIt) {
  Distinct()->SaveToDB();
  for (const std::string column :
       {"GroupID", "Xs", "Ys", "Dx", "Dy", "ColorBack", "ColorFore", "ColorBackTouch", "ColorForeTouch",
        "PenStyle", "PenWidth", "TouchOprndAddr", "VisibleOpAddr", "OrderIndex"}) {
    Connection().Execute("UPDATE HMI_Elements SET " + column + "=NULL");
    EXPECT_RAISES(94, "column '" + column + "' of HMI_Elements: invalid use of Null: a number was expected",
                  Loaded(5));
    Connection().Execute("UPDATE HMI_Elements SET " + column + "=1");
  }
}

}  // namespace
}  // namespace quenzel7
