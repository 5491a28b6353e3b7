#include "variables/key_table.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/handler_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::NullValue;
using automation::PropertyBag;
using automation::Variant;
using test::CallLog;
using test::ErrorOf;

struct Valve {
  Long bore = 0;
  std::string maker;
};

struct Pump {
  Long speed = 1;
  bool isOn = false;
  OperandPair level{3, 4};
  Valve valve{5, "north"};
  std::vector<std::shared_ptr<Valve>> valves;
  Long copies = 0;
};

constexpr auto kBore = FieldKey<Valve, &Valve::bore>("Bore_");
constexpr auto kMaker = FieldKey<Valve, &Valve::maker>("Maker_").Guarded();
constexpr auto kValveKeys = MakeNamedTable(kBore, kMaker);

constexpr auto kSpeed = FieldKey<Pump, &Pump::speed>("Speed");
constexpr auto kIsOn = FieldKey<Pump, &Pump::isOn>("IsOn");
constexpr auto kLevelType = OperandTypeKey<Pump, &Pump::level>("LevelType");
constexpr auto kLevelAddress = OperandAddressKey<Pump, &Pump::level>("LevelAddress");
constexpr auto kValves = EntriesKey<Pump, &Pump::valves, kValveKeys>("Valves");

struct ValvePart {
  Valve& operator()(Pump& pump) const { return pump.valve; }
  const Valve& operator()(const Pump& pump) const { return pump.valve; }
};
constexpr auto kValveBore = PartKey<Pump, ValvePart{}, kBore>("ValveBore");

constexpr auto kAll = MakeNamedTable(kSpeed, kIsOn, kLevelType, kLevelAddress, kValveBore, kValves);

std::shared_ptr<Valve> NewValve(Long bore, const std::string& maker) {
  return std::make_shared<Valve>(Valve{bore, maker});
}

using Keys = std::span<const Key<Pump>>;

/// What is written of a pump, "Name=value:Kind".
CallLog WrittenOf(const Pump& pump, Keys keys, KeyUse use = kStored,
                  ChangeKeyForm form = ChangeKeyForm::BinaryData) {
  PropertyBag bag;
  WriteKeys<Pump>(pump, keys, {bag, use, form});
  return test::Lines(test::SettingsIn(bag.Contents()));
}

void Read(Pump& pump, Keys keys, const test::SettingList& settings, ReadRegime regime = ReadRegime::Raise) {
  PropertyBag bag;
  for (const auto& [name, value] : settings) bag.WriteProperty(name, value);
  ReadKeys<Pump>(pump, keys, {bag, regime});
}

class Keying : public test::HandlerTest {};

TEST_F(Keying, WritesEachSettingInItsKindAndOrder) {
  Pump pump;
  pump.valves = {NewValve(7, "a"), NewValve(8, "b")};
  EXPECT_EQ(WrittenOf(pump, kAll), (CallLog{"Speed=1:Long", "IsOn=False:Boolean", "LevelType=3:Long",
                                            "LevelAddress=4:Long", "ValveBore=5:Long", "Bore_1=7:Long",
                                            "Maker_1=a:String", "Bore_2=8:Long", "Maker_2=b:String"}));
}

TEST_F(Keying, WritesOnlyWhatIsForThatUse) {
  const auto keys = MakeNamedTable(kSpeed.For(kStored), kIsOn.For(kInChangeKey), kLevelType.For(kReplicated),
                                   kLevelAddress.For(kStored | kInChangeKey));
  const Pump pump;
  EXPECT_EQ(WrittenOf(pump, keys, kStored), (CallLog{"Speed=1:Long", "LevelAddress=4:Long"}));
  EXPECT_EQ(WrittenOf(pump, keys, kInChangeKey), (CallLog{"IsOn=False:Boolean", "LevelAddress=4:Long"}));
  EXPECT_EQ(WrittenOf(pump, keys, kReplicated), CallLog{"LevelType=3:Long"});
  EXPECT_EQ(kSpeed.use, kStored | kInChangeKey | kReplicated);
}

TEST_F(Keying, ReadsOnlyWhatIsStored) {
  const auto keys = MakeNamedTable(kSpeed.For(kInChangeKey | kReplicated), kLevelType.For(kStored));
  Pump pump;
  Read(pump, keys, {{"LevelType", Long{33}}});
  EXPECT_EQ(pump.level.type, 33);
  EXPECT_EQ(pump.speed, 1);
}

TEST_F(Keying, CopiesOnlyWhatIsReplicatedInOrder) {
  Pump from, to;
  from.speed = 2;
  from.isOn = true;
  from.level = {13, 14};
  from.valve = {15, "south"};
  const auto counted = Key<Pump>{.name = "Counted", .copy = [](Pump& target, const Pump& source) {
                                   target.copies = 10 * target.speed + source.speed;
                                 }};
  const auto keys = MakeNamedTable(kSpeed, counted, kIsOn.For(kStored | kInChangeKey),
                                   kLevelAddress.For(kReplicated), kValveBore);
  CopyKeys<Pump>(to, from, keys);
  EXPECT_EQ(to.speed, 2);
  EXPECT_EQ(to.copies, 22);
  EXPECT_FALSE(to.isOn);
  EXPECT_EQ(to.level, (OperandPair{3, 14}));
  EXPECT_EQ(to.valve.bore, 15);
  EXPECT_EQ(to.valve.maker, "north");
}

TEST_F(Keying, CopiesEntriesOneByOne) {
  Pump from, to;
  from.valves = {NewValve(7, "a"), NewValve(8, "b")};
  to.valves = {NewValve(1, ""), NewValve(1, ""), NewValve(9, "c")};
  CopyKeys<Pump>(to, from, MakeNamedTable(kValves));
  EXPECT_EQ(WrittenOf(to, MakeNamedTable(kValves)),
            (CallLog{"Bore_1=7:Long", "Maker_1=a:String", "Bore_2=8:Long", "Maker_2=b:String",
                     "Bore_3=9:Long", "Maker_3=c:String"}));
  EXPECT_NE(to.valves.front(), from.valves.front());

  Pump shorter;
  shorter.valves = {NewValve(1, "")};
  CopyKeys<Pump>(shorter, from, MakeNamedTable(kValves));
  EXPECT_EQ(WrittenOf(shorter, MakeNamedTable(kValves)), (CallLog{"Bore_1=7:Long", "Maker_1=a:String"}));
}

const test::SettingList kOthers = {
    {"Speed", Long{21}},        {"IsOn", true},          {"LevelType", Long{23}},
    {"LevelAddress", Long{24}}, {"ValveBore", Long{25}}, {"Bore_1", Long{27}},
    {"Maker_1", "y"},           {"Bore_2", Long{28}},    {"Maker_2", "z"}};

Pump WithTwoValves() {
  Pump pump;
  pump.valves = {NewValve(7, "a"), NewValve(8, "b")};
  return pump;
}

TEST_F(Keying, ReadsEachSettingIntoItsPlace) {
  Pump pump = WithTwoValves();
  Read(pump, kAll, kOthers);
  EXPECT_EQ(WrittenOf(pump, kAll), test::Lines(kOthers));
}

TEST_F(Keying, LeavesWhatComesBehindAnErrorAlone) {
  Pump pump = WithTwoValves();
  test::SettingList settings = kOthers;
  std::erase_if(settings, [](const test::Setting& setting) { return setting.first == "Bore_2"; });
  EXPECT_RAISES(327, "the property bag has no value named \"Bore_2\"", Read(pump, kAll, settings));
  EXPECT_EQ(pump.valves[0]->bore, 27);
  EXPECT_EQ(pump.valves[1]->bore, 8);
  EXPECT_EQ(pump.valves[1]->maker, "b");
}

TEST_F(Keying, GoesOnBehindWhatItSkips) {
  Pump pump = WithTwoValves();
  Read(pump, kAll, {{"IsOn", "x"}, {"LevelAddress", Long{24}}, {"Bore_1", NullValue()}, {"Bore_2", Long{28}}},
       ReadRegime::Skip);
  EXPECT_EQ(WrittenOf(pump, kAll), (CallLog{"Speed=1:Long", "IsOn=False:Boolean", "LevelType=3:Long",
                                            "LevelAddress=24:Long", "ValveBore=5:Long", "Bore_1=7:Long",
                                            "Maker_1=:String", "Bore_2=28:Long", "Maker_2=:String"}));
}

TEST_F(Keying, GuardsOnlyAgainstWhatIsNotThere) {
  const auto keys = MakeNamedTable(kSpeed.Guarded(), kIsOn.Guarded());
  Pump pump;
  pump.isOn = true;
  Read(pump, keys, {});
  EXPECT_EQ(pump.speed, 0);
  EXPECT_FALSE(pump.isOn);
  EXPECT_RAISES(94, "setting 'Speed': invalid use of Null: a number was expected",
                Read(pump, keys, {{"Speed", NullValue()}}));
  EXPECT_EQ(ErrorOf([&] { Read(pump, keys, {{"Speed", "x"}}); }), 13);
}

TEST_F(Keying, NamesTheSettingThatDoesNotFit) {
  Pump pump = WithTwoValves();
  test::SettingList settings = kOthers;
  settings[7].second = "x";
  EXPECT_EQ(test::DescriptionOf([&] { Read(pump, kAll, settings); }).rfind("setting 'Bore_2': ", 0), 0u);
}

TEST_F(Keying, TakesTheValueOfOperandsForTheChangeKeyAlone) {
  Pump pump;
  pump.level = {15, 4};
  Define(15, 4, 90000);
  const auto keys = MakeNamedTable(kLevelType, kLevelAddress);
  EXPECT_EQ(WrittenOf(pump, keys, kInChangeKey, ChangeKeyForm::Longs),
            (CallLog{"LevelType=15:Long", "LevelAddress=9:Long"}));
  EXPECT_EQ(WrittenOf(pump, keys, kInChangeKey, ChangeKeyForm::Currencies),
            (CallLog{"LevelType=15:Long", "LevelAddress=9:Currency"}));
  EXPECT_EQ(WrittenOf(pump, keys, kStored, ChangeKeyForm::Longs),
            (CallLog{"LevelType=15:Long", "LevelAddress=4:Long"}));
}

TEST_F(Keying, RoundsValuesOfOperandsTo32BitsHalvesToEven) {
  const std::pair<std::int64_t, Long> values[] = {{24999, 2}, {25000, 2},   {25001, 3},
                                                  {35000, 4}, {-15000, -2}, {21474836470000, 2147483647}};
  for (const auto& [tenThousandths, rounded] : values) {
    Define(35, 1, tenThousandths);
    EXPECT_EQ(OperandForChangeKey({35, 1}, ChangeKeyForm::Longs), Variant(rounded)) << tenThousandths;
    EXPECT_EQ(OperandForChangeKey({35, 1}, ChangeKeyForm::Currencies), Variant(Currency{tenThousandths}));
  }
  Define(35, 1, 21474836480000);
  EXPECT_EQ(ErrorOf([] { OperandForChangeKey({35, 1}, ChangeKeyForm::Longs); }), 6);
}

TEST_F(Keying, TakesAddressesInTheirFormWholeRange) {
  for (const Long address : {std::numeric_limits<Long>::min(), -1, 0, 1, std::numeric_limits<Long>::max()}) {
    EXPECT_EQ(OperandForChangeKey({1, address}, ChangeKeyForm::Longs), Variant(address));
    EXPECT_EQ(OperandForChangeKey({1, address}, ChangeKeyForm::Currencies),
              Variant(Currency{address * std::int64_t{10000}}));
  }
}

}  // namespace
}  // namespace quenzel7
