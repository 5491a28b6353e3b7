#include "framework/named_table.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace quenzel7 {
namespace {

struct Pipe {
  std::string_view name;
  int width = 0;
};

constexpr Pipe kFirst{"First", 1}, kMiddle{"Middle", 2}, kLast{"Last", 3}, kOther{"Other", 4};
constexpr auto kThree = MakeNamedTable(kFirst, kMiddle, kLast);

using Entries = std::vector<std::string>;

/// The entries of a table in order, "name=width".
Entries Shown(std::span<const Pipe> table) {
  Entries entries;
  for (const Pipe& pipe : table) entries.push_back(std::string(pipe.name) + "=" + std::to_string(pipe.width));
  return entries;
}

TEST(NamedTable, HoldsItsEntriesInTheOrderGiven) {
  EXPECT_EQ(Shown(kThree), (Entries{"First=1", "Middle=2", "Last=3"}));
  EXPECT_EQ(Shown(MakeNamedTable(kOther)), Entries{"Other=4"});
}

TEST(NamedTable, WithoutLeavesOutThatEntryAndKeepsTheOthersInOrder) {
  EXPECT_EQ(Shown(kThree.Without("First")), (Entries{"Middle=2", "Last=3"}));
  EXPECT_EQ(Shown(kThree.Without("Middle")), (Entries{"First=1", "Last=3"}));
  EXPECT_EQ(Shown(kThree.Without("Last")), (Entries{"First=1", "Middle=2"}));
}

TEST(NamedTable, WithPutsAnEntryInThePlaceOfTheOneOfItsName) {
  EXPECT_EQ(Shown(kThree.With({"First", 9})), (Entries{"First=9", "Middle=2", "Last=3"}));
  EXPECT_EQ(Shown(kThree.With({"Middle", 9})), (Entries{"First=1", "Middle=9", "Last=3"}));
  EXPECT_EQ(Shown(kThree.With({"Last", 9})), (Entries{"First=1", "Middle=2", "Last=9"}));
}

TEST(NamedTable, WithAfterInsertsAnEntryRightAfterTheOneNamed) {
  EXPECT_EQ(Shown(kThree.WithAfter("First", kOther)), (Entries{"First=1", "Other=4", "Middle=2", "Last=3"}));
  EXPECT_EQ(Shown(kThree.WithAfter("Middle", kOther)), (Entries{"First=1", "Middle=2", "Other=4", "Last=3"}));
  EXPECT_EQ(Shown(kThree.WithAfter("Last", kOther)), (Entries{"First=1", "Middle=2", "Last=3", "Other=4"}));
}

TEST(NamedTable, MovedPutsAnEntryRightAfterTheOneNamed) {
  EXPECT_EQ(Shown(kThree.Moved("First", "Middle")), (Entries{"Middle=2", "First=1", "Last=3"}));
  EXPECT_EQ(Shown(kThree.Moved("First", "Last")), (Entries{"Middle=2", "Last=3", "First=1"}));
  EXPECT_EQ(Shown(kThree.Moved("Last", "First")), (Entries{"First=1", "Last=3", "Middle=2"}));
  EXPECT_EQ(Shown(kThree.Moved("Middle", "First")), Shown(kThree));
}

TEST(NamedTable, LeavesTheTableThatItIsMadeFrom) {
  auto table = kThree;
  static_cast<void>(table.Moved("First", "Last"));
  static_cast<void>(table.With({"First", 9}));
  static_cast<void>(table.Without("First"));
  static_cast<void>(table.WithAfter("First", kOther));
  EXPECT_EQ(Shown(table), (Entries{"First=1", "Middle=2", "Last=3"}));
}

TEST(NamedTable, ThenPutsAnotherTableBehindIt) {
  EXPECT_EQ(Shown(kThree.Then(MakeNamedTable(kOther, kFirst))),
            (Entries{"First=1", "Middle=2", "Last=3", "Other=4", "First=1"}));
}

TEST(NamedTable, AnEntryThatIsNotThereIsRefused) {
  // In a constant table this does not compile.
  EXPECT_THROW(kThree.Without("None"), std::out_of_range);
  EXPECT_THROW(kThree.With(kOther), std::out_of_range);
  EXPECT_THROW(kThree.WithAfter("None", kOther), std::out_of_range);
  EXPECT_THROW(MakeNamedTable(kOther).With(kFirst), std::out_of_range);
  EXPECT_THROW(kThree.Moved("None", "First"), std::out_of_range);
  EXPECT_THROW(kThree.Moved("First", "None"), std::out_of_range);
  // Nothing stands behind itself.
  EXPECT_THROW(kThree.Moved("First", "First"), std::out_of_range);
}

TEST(NamedTable, ItsEntriesAreFoundByTheirExactNames) {
  EXPECT_THROW(kThree.Without("first"), std::out_of_range);
  EXPECT_THROW(kThree.Without("Firs"), std::out_of_range);
  EXPECT_THROW(kThree.Without("First "), std::out_of_range);
}

TEST(NamedTable, OfSeveralEntriesOfOneNameTheFirstIsMeant) {
  constexpr auto twice = MakeNamedTable(kFirst, kMiddle, Pipe{"First", 7});
  EXPECT_EQ(Shown(twice.Without("First")), (Entries{"Middle=2", "First=7"}));
}

TEST(NamedTable, IsWorkedOutWhenCompiled) {
  static_assert(kThree.Without("Middle").entries.size() == 2);
  static_assert(kThree.Without("Middle").entries[1].width == 3);
  static_assert(kThree.With({"Last", 9}).entries[2].width == 9);
  static_assert(kThree.WithAfter("First", kOther).entries[1].width == 4);
  static_assert(kThree.Moved("First", "Last").entries[2].width == 1);
}

}  // namespace
}  // namespace quenzel7
