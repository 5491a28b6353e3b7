#include "shapes/operand_table.h"

#include <gtest/gtest.h>

#include "platform/fennick1/operand.h"
#include "tests/support/project_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::CollectionRef;
using automation::PropertyBag;
using test::ErrorOf;

using Lines = std::vector<std::string>;

/// An element with a memory bit that may be absent, one that is kept but not brought back, and an operand
/// with a type of its own.
struct Valve {
  Long bit = 5, kept = 6, type = 34, address = 7;
  bool hasBit = true, hasTyped = true, restoresKept = false;

  Long ID() const { return 70; }
};

constexpr ElementOperand<Valve> kOperands[] = {
    {eOP_TouchOperand, &Valve::bit, nullptr, [](const Valve& valve) { return valve.hasBit; },
     [](const Valve& valve) { return valve.hasBit; }},
    {eOP_VisibleOperand, &Valve::kept, nullptr, Always<Valve>,
     [](const Valve& valve) { return valve.restoresKept; }},
    {eOP_StorageStringIdOperand, &Valve::address, &Valve::type,
     [](const Valve& valve) { return valve.hasTyped; }, [](const Valve& valve) { return valve.hasTyped; }},
};

class OperandTable : public test::ProjectTest {
 protected:
  static CollectionRef BagsOfValve(const Valve& valve) { return BagsOf<Valve>(valve, kOperands); }
  static void Restore(Valve& valve, const CollectionRef& bags) {
    RestoreFromBags<Valve>(valve, bags, kOperands);
  }

  /// What is in the bags, "type/address/network".
  static Lines Shown(const automation::Collection& bags) {
    Lines lines;
    for (Long place = 1; place <= bags.Count(); ++place) {
      const auto bag = bags.ObjectAt<PropertyBag>(place);
      std::string line;
      for (const char* const name : {"Type", "Address", "NetID"}) {
        line += (line.empty() ? "" : "/") + automation::To<std::string>(bag->ReadProperty(name));
      }
      lines.push_back(line);
    }
    return lines;
  }

  static bool IsDefined(Long type, Long address) {
    return !OperandDescription(type, address, kLocalNetwork).empty();
  }
};

TEST_F(OperandTable, HasABagForEachOperandInItsOrder) {
  EXPECT_EQ(Shown(*BagsOfValve({})), (Lines{"1/5/0", "1/6/0", "34/7/0"}));
}

TEST_F(OperandTable, HasNoBagForAnOperandThatIsNotThere) {
  EXPECT_EQ(Shown(*BagsOfValve({.hasBit = false})), (Lines{"1/6/0", "34/7/0"}));
  EXPECT_EQ(Shown(*BagsOfValve({.hasTyped = false})), (Lines{"1/5/0", "1/6/0"}));
  EXPECT_EQ(Shown(*BagsOfValve({.hasBit = false, .hasTyped = false})), Lines{"1/6/0"});
  EXPECT_EQ(BagsOf<Valve>({}, {})->Count(), 0);
}

TEST_F(OperandTable, EveryCollectionOfBagsIsANewOne) {
  const Valve valve;
  const CollectionRef first = BagsOfValve(valve);
  EXPECT_NE(BagsOfValve(valve), first);
  EXPECT_EQ(first->Count(), 3);
}

TEST_F(OperandTable, AlwaysIsThereWhateverTheElement) {
  EXPECT_TRUE(Always(Valve{}));
  EXPECT_TRUE(Always(Valve{.hasBit = false, .hasTyped = false}));
}

TEST_F(OperandTable, BringsBackOperandsAndRowsInItsOrder) {
  Valve valve{.type = 2};
  const CollectionRef bags = BagsOfValve(valve);
  TakeLog();
  Restore(valve, bags);
  const std::string insert =
      "execute INSERT INTO HMI_Operands (ElementID,OprndType,OprndAddr,OprndNetID,OprndPurpose) VALUES ";
  EXPECT_EQ(TakeLog(), (test::CallLog{insert + "(70,1,5,0,2)", insert + "(70,2,7,0,8)"}));
  EXPECT_TRUE(IsDefined(1, 5));
  EXPECT_TRUE(IsDefined(2, 7));
}

TEST_F(OperandTable, PassesOverABagThatIsNotBroughtBack) {
  Valve valve{.type = 2};
  Restore(valve, BagsOfValve(valve));
  EXPECT_FALSE(IsDefined(1, 6));
  EXPECT_EQ(OperandRows(), (Lines{"70 1 5 0 2", "70 2 7 0 8"}));
  valve.restoresKept = true;
  Restore(valve, BagsOfValve(valve));
  EXPECT_TRUE(IsDefined(1, 6));
}

TEST_F(OperandTable, CountsNoBagOfAnOperandThatIsNotThere) {
  Valve valve{.type = 2, .hasBit = false, .restoresKept = true};
  Restore(valve, BagsOfValve(valve));
  EXPECT_EQ(OperandRows(), (Lines{"70 1 6 0 5", "70 2 7 0 8"}));
  EXPECT_FALSE(IsDefined(1, 5));
}

TEST_F(OperandTable, TakesTheBagsAsTheyAreAndNotTheAddressesThatTheElementHasNow) {
  Valve valve{.hasTyped = false};
  const CollectionRef bags = BagsOfValve(valve);
  valve.bit = 15;
  Restore(valve, bags);
  // A place in memory leaves the element's address alone; the row tells that one.
  EXPECT_TRUE(IsDefined(1, 5));
  EXPECT_FALSE(IsDefined(1, 15));
  EXPECT_EQ(valve.bit, 15);
  EXPECT_EQ(OperandRows(), Lines{"70 1 15 0 2"});
}

TEST_F(OperandTable, WhatHoldsAValueGetsAnotherTypeAndAddressInElementAndRow) {
  fennick1::Operand taken(Platform::Current().operands);
  taken.OperandType(37);
  taken.OperandAddress(0);
  taken.AddToProject();
  Valve valve;
  Restore(valve, BagsOfValve(valve));
  EXPECT_EQ(valve.type, 37);
  EXPECT_EQ(valve.address, 1);
  EXPECT_TRUE(IsDefined(37, 1));
  EXPECT_EQ(OperandRows(), (Lines{"70 1 5 0 2", "70 37 1 0 8"}));
}

TEST_F(OperandTable, WithoutACollectionNothingCanBeBroughtBack) {
  Valve valve;
  EXPECT_EQ(ErrorOf([&] { Restore(valve, nullptr); }), 91);
  EXPECT_TRUE(OperandRows().empty());
  // It is not missed while there is nothing to bring back.
  valve.hasBit = valve.hasTyped = false;
  EXPECT_EQ(ErrorOf([&] { Restore(valve, nullptr); }), 0);
  EXPECT_TRUE(OperandRows().empty());
}

TEST_F(OperandTable, WithTooFewBagsWhatWasBroughtBackBeforeStays) {
  Valve valve;
  const CollectionRef bags = BagsOfValve(valve);
  bags->Remove(3);
  EXPECT_EQ(ErrorOf([&] { Restore(valve, bags); }), 9);
  EXPECT_TRUE(IsDefined(1, 5));
  EXPECT_EQ(OperandRows(), Lines{"70 1 5 0 2"});
  EXPECT_EQ(valve.type, 34);
  EXPECT_EQ(valve.address, 7);
}

TEST_F(OperandTable, AWrongThingAmongTheBagsIsAnError) {
  Valve valve;
  const auto bags = std::make_shared<automation::Collection>();
  bags->Add(Long{5});
  EXPECT_EQ(ErrorOf([&] { Restore(valve, bags); }), 13);
  EXPECT_TRUE(OperandRows().empty());
}

}  // namespace
}  // namespace quenzel7
