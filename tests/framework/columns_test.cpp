#include "framework/columns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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

using test::CallLog;

class Columns : public test::ProjectTest {
 protected:
  /// A row that is being made; only what is asked of it from now on is noted.
  ado::RecordsetRef NewRow() {
    auto row = ado::OpenRecordset(*Platform::Current().projectDatabase->OpenConnection(),
                                  "SELECT * FROM HMI_Elements WHERE ID=-1", ado::adOpenStatic,
                                  ado::adLockOptimistic);
    row->AddNew();
    TakeLog();
    return row;
  }
};

TEST_F(Columns, AreWrittenInTheOrderOfTheTableInTheWidthOfTheirFields) {
  const auto row = NewRow();
  static constexpr Column<Tank> columns[] = {kColumns[0], kColumns[1],
                                             ConstantColumn<Tank, Byte, 9>("TabIndex")};
  WriteColumns<Tank>(*row, Tank{}, columns);
  EXPECT_EQ(TakeLog(), (CallLog{"put Xs=2:Integer", "put Ys=1:Long", "put TabIndex=9:Byte"}));
}

TEST_F(Columns, AreReadInTheOrderOfTheTable) {
  Connection().Execute("INSERT INTO HMI_Elements (Xs,Ys) VALUES (70,71)");
  const auto row = ado::OpenRecordset(*Platform::Current().projectDatabase->OpenConnection(),
                                      "SELECT * FROM HMI_Elements", ado::adOpenStatic, ado::adLockReadOnly);
  TakeLog();
  Tank tank;
  ReadColumns<Tank>(*row, tank, kColumns);
  EXPECT_EQ(TakeLog(), (CallLog{"get Xs", "get Ys"}));
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

TEST_F(Columns, AValueThatCannotBeWrittenIsAnErrorThatNamesTheColumn) {
  static constexpr Column<Tank> kNarrow = {
      "TabIndex", [](const Tank& tank) { return automation::Variant(automation::To<Byte>(tank.level)); }};
  static constexpr Column<Tank> columns[] = {kColumns[0], kNarrow, kColumns[1]};
  const auto row = NewRow();
  EXPECT_RAISES(6, "column 'TabIndex' of HMI_Elements: overflow: 256 does not fit a byte",
                WriteColumns<Tank>(*row, Tank{.level = 256}, columns));
  // What comes before it is written, the rest is not.
  EXPECT_EQ(TakeLog(), CallLog{"put Xs=2:Integer"});
  WriteColumns<Tank>(*row, Tank{.level = 255}, columns);
  EXPECT_EQ(TakeLog(), (CallLog{"put Xs=2:Integer", "put TabIndex=255:Byte", "put Ys=255:Long"}));
}

TEST_F(Columns, AnErrorOfTheDatabaseEndsWriting) {
  const auto row = NewRow();
  Recorder().FailAt(1);
  const test::Raised raised = test::RaisedBy([&] { WriteColumns<Tank>(*row, Tank{}, kColumns); });
  EXPECT_EQ(raised.number, static_cast<Long>(automation::ErrorNumber::Database));
  EXPECT_EQ(raised.description, "failed at put Xs=2:Integer");
  EXPECT_EQ(TakeLog(), CallLog{"put Xs=2:Integer"});
}

TEST_F(Columns, AColumnThatTheRowLacksIsAnErrorThatNamesIt) {
  Connection().Execute("INSERT INTO HMI_Elements (Xs,Ys) VALUES (70,71)");
  const auto row =
      ado::OpenRecordset(Connection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic, ado::adLockReadOnly);
  static constexpr Column<Tank> columns[] = {FieldColumn<Tank, &Tank::level>("Depth")};
  Tank tank;
  const test::Raised raised = test::RaisedBy([&] { ReadColumns<Tank>(*row, tank, columns); });
  EXPECT_EQ(raised.number, 3265);
  EXPECT_EQ(raised.description.find("column 'Depth' of HMI_Elements: "), 0u) << raised;
}

TEST_F(Columns, NullIsAnErrorThatNamesTheColumn) {
  Connection().Execute("INSERT INTO HMI_Elements (Xs,Ys) VALUES (70,Null)");
  const auto row =
      ado::OpenRecordset(Connection(), "SELECT * FROM HMI_Elements", ado::adOpenStatic, ado::adLockReadOnly);
  Tank tank;
  const test::Raised raised = test::RaisedBy([&] { ReadColumns<Tank>(*row, tank, kColumns); });
  EXPECT_EQ(raised.number, 94);
  EXPECT_EQ(raised.description.find("column 'Ys' of HMI_Elements: "), 0u) << raised;
  // What comes before it was read.
  EXPECT_EQ(tank.flag, 70);
  EXPECT_EQ(tank.level, 1);
}

TEST(ColumnTable, HoldsItsColumnsInTheOrderGiven) {
  constexpr auto table = MakeColumnTable(kColumns[1], ConstantColumn<Tank, Byte, 9>("TabIndex"), kColumns[0]);
  std::vector<std::string> shown;
  for (const Column<Tank>& column : std::span<const Column<Tank>>(table)) {
    shown.push_back(std::string(column.name) + "=" + test::Shown(column.value(Tank{})));
  }
  EXPECT_EQ(shown, (std::vector<std::string>{"Ys=1:Long", "TabIndex=9:Byte", "Xs=2:Integer"}));
}

TEST(ColumnTable, AConstantIsOnlyWritten) {
  constexpr auto constant = ConstantColumn<Tank, Byte, 9>("TabIndex");
  EXPECT_EQ(constant.name, "TabIndex");
  EXPECT_EQ(constant.assign, nullptr);
}

}  // namespace
}  // namespace quenzel7
