#include "framework/columns.h"

#include <gtest/gtest.h>

#include "tests/support/project_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

struct Tank {
  Long level = 1;
  Integer flag = 2;
};

constexpr Column<Tank> kColumns[] = {
    FieldColumn<Tank, &Tank::flag>("Xs"),
    FieldColumn<Tank, &Tank::level>("Ys"),
};

using Columns = test::ProjectTest;

TEST_F(Columns, AreWrittenInTheOrderOfTheTableInTheWidthOfTheirFields) {
  const auto row =
      ado::OpenRecordset(*Platform::Current().projectDatabase->OpenConnection(),
                         "SELECT * FROM HMI_Elements WHERE ID=-1", ado::adOpenStatic, ado::adLockOptimistic);
  row->AddNew();
  TakeLog();
  static constexpr Column<Tank> columns[] = {kColumns[0], kColumns[1],
                                             ConstantColumn<Tank, Byte, 9>("TabIndex")};
  WriteColumns<Tank>(*row, Tank{}, columns);
  EXPECT_EQ(TakeLog(), (test::CallLog{"put Xs=2:Integer", "put Ys=1:Long", "put TabIndex=9:Byte"}));
}

TEST_F(Columns, AreReadInTheOrderOfTheTable) {
  Connection().Execute("INSERT INTO HMI_Elements (Xs,Ys) VALUES (70,71)");
  const auto row = ado::OpenRecordset(*Platform::Current().projectDatabase->OpenConnection(),
                                      "SELECT * FROM HMI_Elements", ado::adOpenStatic, ado::adLockReadOnly);
  TakeLog();
  Tank tank;
  ReadColumns<Tank>(*row, tank, kColumns);
  EXPECT_EQ(TakeLog(), (test::CallLog{"get Xs", "get Ys"}));
  EXPECT_EQ(tank.flag, 70);
  EXPECT_EQ(tank.level, 71);
}

TEST_F(Columns, AnErrorNamesTheColumnAndKeepsItsNumber) {
  Connection().Execute("INSERT INTO HMI_Elements (Xs,Ys) VALUES (70000,71)");
  const auto row =
      ado::OpenRecordset(Connection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic, ado::adLockReadOnly);
  Tank tank;
  EXPECT_EQ(test::ErrorOf([&] { ReadColumns<Tank>(*row, tank, kColumns); }), 6);
  EXPECT_EQ(test::DescriptionOf([&] { ReadColumns<Tank>(*row, tank, kColumns); }),
            "column 'Xs' of HMI_Elements: overflow: 70000 does not fit 16 bits");
  // What came after the failing column was not read.
  EXPECT_EQ(tank.level, 1);
}

}  // namespace
}  // namespace quenzel7
