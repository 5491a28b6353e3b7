#include "framework/columns.h"

#include <gtest/gtest.h>

#include <stdexcept>
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

// --- Tables made of tables ---

constexpr auto kFirst = FieldColumn<Tank, &Tank::level>("First");
constexpr auto kMiddle = FieldColumn<Tank, &Tank::level>("Middle");
constexpr auto kLast = FieldColumn<Tank, &Tank::level>("Last");
constexpr auto kThree = MakeColumnTable(kFirst, kMiddle, kLast);
constexpr auto kOther = FieldColumn<Tank, &Tank::flag>("Other");

/// The columns of a table in order, each with the value that it writes.
template <std::size_t N>
std::vector<std::string> Shown(const ColumnTable<Tank, N>& table) {
  std::vector<std::string> columns;
  for (const Column<Tank>& column : std::span<const Column<Tank>>(table)) {
    columns.push_back(std::string(column.name) + "=" + test::Shown(column.value(Tank{})));
  }
  return columns;
}

using Names = std::vector<std::string>;

TEST(ColumnTable, HoldsItsColumnsInTheOrderGiven) {
  EXPECT_EQ(Shown(kThree), (Names{"First=1:Long", "Middle=1:Long", "Last=1:Long"}));
  EXPECT_EQ(Shown(MakeColumnTable(kOther)), (Names{"Other=2:Integer"}));
}

TEST(ColumnTable, WithoutLeavesOutThatColumnAndKeepsTheOthersInOrder) {
  EXPECT_EQ(Shown(kThree.Without("First")), (Names{"Middle=1:Long", "Last=1:Long"}));
  EXPECT_EQ(Shown(kThree.Without("Middle")), (Names{"First=1:Long", "Last=1:Long"}));
  EXPECT_EQ(Shown(kThree.Without("Last")), (Names{"First=1:Long", "Middle=1:Long"}));
}

TEST(ColumnTable, WithPutsAColumnInThePlaceOfTheOneOfItsName) {
  EXPECT_EQ(Shown(kThree.With(ConstantColumn<Tank, Byte, 9>("First"))),
            (Names{"First=9:Byte", "Middle=1:Long", "Last=1:Long"}));
  EXPECT_EQ(Shown(kThree.With(ConstantColumn<Tank, Byte, 9>("Middle"))),
            (Names{"First=1:Long", "Middle=9:Byte", "Last=1:Long"}));
  EXPECT_EQ(Shown(kThree.With(ConstantColumn<Tank, Byte, 9>("Last"))),
            (Names{"First=1:Long", "Middle=1:Long", "Last=9:Byte"}));
}

TEST(ColumnTable, WithAfterInsertsAColumnRightAfterTheOneNamed) {
  EXPECT_EQ(Shown(kThree.WithAfter("First", kOther)),
            (Names{"First=1:Long", "Other=2:Integer", "Middle=1:Long", "Last=1:Long"}));
  EXPECT_EQ(Shown(kThree.WithAfter("Middle", kOther)),
            (Names{"First=1:Long", "Middle=1:Long", "Other=2:Integer", "Last=1:Long"}));
  EXPECT_EQ(Shown(kThree.WithAfter("Last", kOther)),
            (Names{"First=1:Long", "Middle=1:Long", "Last=1:Long", "Other=2:Integer"}));
}

TEST(ColumnTable, LeavesTheTableThatItIsMadeFrom) {
  auto table = kThree;
  static_cast<void>(table.With(ConstantColumn<Tank, Byte, 9>("First")));
  EXPECT_EQ(Shown(table), Shown(kThree));
}

TEST(ColumnTable, AColumnThatIsNotThereIsRefused) {
  // In a constant table this does not compile.
  EXPECT_THROW(kThree.Without("None"), std::out_of_range);
  EXPECT_THROW(kThree.With(kOther), std::out_of_range);
  EXPECT_THROW(kThree.WithAfter("None", kOther), std::out_of_range);
  EXPECT_THROW(MakeColumnTable(kOther).With(kFirst), std::out_of_range);
}

TEST(ColumnTable, ItsColumnsAreFoundByTheirExactNames) {
  EXPECT_THROW(kThree.Without("first"), std::out_of_range);
  EXPECT_THROW(kThree.Without("Firs"), std::out_of_range);
}

}  // namespace
}  // namespace quenzel7
