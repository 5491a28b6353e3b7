/// The settings of every class of handlers: what is written, read, passed over, copied, and what of it the
/// change key is made of.
#include <gtest/gtest.h>

#include <random>

#include "platform/automation/call_by_name.h"
#include "tests/support/expected_settings.h"
#include "tests/support/raises.h"
#include "variables/text_handler.h"

namespace quenzel7 {
namespace {

using automation::Variant;
using test::Bytes;
using test::ErrorOf;
using test::ExpectedHandler;
using test::ExpectedSetting;
using test::ExpectedSettings;
using test::Lines;
using test::SettingList;
using test::SettingsIn;

/// So many texts the lists have here that are loaded.
constexpr Long kTexts = 3;

Variant Initial(const ExpectedSetting& setting) { return setting.initial; }
Variant Other(const ExpectedSetting& setting) { return setting.other; }
Variant Earlier(const ExpectedSetting& setting) { return setting.Earlier(); }

template <class Value>
SettingList Valued(const ExpectedSettings& settings, Value value) {
  SettingList list;
  for (const ExpectedSetting& setting : settings) list.emplace_back(setting.name, value(setting));
  return list;
}

/// The list with another value for one setting.
SettingList With(SettingList list, const std::string& name, const Variant& value) {
  for (auto& [key, held] : list) {
    if (key == name) held = value;
  }
  return list;
}
SettingList Without(SettingList list, const std::string& name) {
  std::erase_if(list, [&name](const test::Setting& setting) { return setting.first == name; });
  return list;
}

class HandlerSettings : public test::HandlerTest, public ::testing::WithParamInterface<ExpectedHandler> {
 protected:
  void SetUp() override {
    HandlerTest::SetUp();
    TellKeyNumbers();
  }

  static std::shared_ptr<BinaryHandler> New() {
    return test::NewHandlerOf(test::HandlerClassNamed(GetParam().className));
  }
  static std::shared_ptr<BinaryHandler> Loaded(const SettingList& settings) {
    auto handler = New();
    handler->BinaryData(test::DataOf(settings));
    return handler;
  }
  static ExpectedSettings Expected() { return GetParam().settings(kTexts); }
  static SettingList Others() { return Valued(Expected(), Other); }
  static std::shared_ptr<BinaryHandler> Distinct() { return Loaded(Others()); }

  /// What a handler with earlier values has after data of the others in which one setting cannot be taken.
  SettingList LeftBy(const ExpectedSetting& failing, bool goesOn) const {
    ExpectedSettings read = GetParam().Read(kTexts);
    SettingList left = Valued(Expected(), Other);
    bool isPast = false;
    for (const ExpectedSetting& setting : read) {
      const bool isFailing = setting.name == failing.name;
      if (isFailing || (isPast && !goesOn)) left = With(left, setting.name, setting.Earlier());
      isPast |= isFailing;
    }
    return left;
  }
};

TEST_P(HandlerSettings, OfANewHandlerAreAllWrittenInOrder) {
  EXPECT_EQ(Lines(SettingsIn(New()->BinaryData())),
            Lines(Valued(GetParam().settings(GetParam().texts), Initial)));
}

TEST_P(HandlerSettings, OfOtherValuesComeBackInOrderAndKind) {
  const auto handler = New();
  handler->LinkOperandType(5);
  handler->LinkOperandAddress(6);
  handler->BinaryData(test::DataOf(Others()));
  EXPECT_EQ(Lines(SettingsIn(handler->BinaryData())), Lines(Others()));
  EXPECT_EQ(handler->LinkOperandType(), 5);
  EXPECT_EQ(handler->LinkOperandAddress(), 6);
  EXPECT_TRUE(TakeLog().empty());
}

TEST_P(HandlerSettings, AreTakenInWhicheverOrderDataHaveThemAndWhateverElseThereIs) {
  SettingList shuffled = Others();
  std::reverse(shuffled.begin(), shuffled.end());
  shuffled.emplace_back("NotASetting", Long{1});
  EXPECT_EQ(Lines(SettingsIn(Loaded(shuffled)->BinaryData())), Lines(Others()));
}

TEST_P(HandlerSettings, AreTakenFromOtherKindsThatFit) {
  SettingList texts, wanted;
  for (const auto& [name, value] : Others()) {
    const Long* number = value.If<Long>();
    texts.emplace_back(name, number ? Variant(" " + std::to_string(*number)) : value);
    if (const bool* flag = value.If<bool>()) texts.back().second = Long{*flag ? 7 : 0};
  }
  EXPECT_EQ(Lines(SettingsIn(Loaded(texts)->BinaryData())), Lines(Others()));
}

TEST_P(HandlerSettings, ThatAreNotThere) {
  for (const ExpectedSetting& missing : Expected()) {
    SCOPED_TRACE(missing.name);
    const auto handler = Loaded(Valued(Expected(), Earlier));
    const Bytes data = test::DataOf(Without(Others(), missing.name));
    const test::Raised raised = test::RaisedBy([&] { handler->BinaryData(data); });
    SettingList left;
    if (missing.IsGuarded()) {
      left = With(Others(), missing.name, Long{0});
    } else {
      left = LeftBy(missing, GetParam().isSkipping);
    }
    const bool isError = !missing.IsGuarded() && !GetParam().isSkipping;
    EXPECT_EQ(raised,
              isError ? (test::Raised{327, "the property bag has no value named \"" + missing.name + "\""})
                      : test::Raised());
    EXPECT_EQ(Lines(SettingsIn(handler->BinaryData())), Lines(left));
  }
}

TEST_P(HandlerSettings, OfAKindThatDoesNotFit) {
  for (const ExpectedSetting& wrong : Expected()) {
    std::vector<std::pair<Variant, Long>> values = {{automation::NullValue(), 94},
                                                    {automation::FromBytes({1}), 13}};
    if (!wrong.other.IsText()) values.emplace_back("x", 13);
    if (wrong.other.If<Long>()) values.emplace_back(Double{2147483648.0}, 6);
    for (const auto& [value, number] : values) {
      SCOPED_TRACE(wrong.name + " " + test::Shown(value));
      const auto handler = Loaded(Valued(Expected(), Earlier));
      const Bytes data = test::DataOf(With(Others(), wrong.name, value));
      const test::Raised raised = test::RaisedBy([&] { handler->BinaryData(data); });
      const bool isSkipping = GetParam().isSkipping;
      EXPECT_EQ(raised.number, isSkipping ? 0 : number);
      EXPECT_EQ(raised.description.find("setting '" + wrong.name + "': "), isSkipping ? std::string::npos : 0)
          << raised.description;
      EXPECT_EQ(Lines(SettingsIn(handler->BinaryData())), Lines(LeftBy(wrong, isSkipping)));
    }
  }
}

TEST_P(HandlerSettings, StayWhereTheBytesAreNoBagOrAreDamaged) {
  const auto handler = Loaded(Valued(Expected(), Earlier));
  const Bytes before = handler->BinaryData(), data = test::DataOf(Others());
  const auto expectRefused = [&](const Bytes& damaged, std::size_t place) {
    ASSERT_EQ(ErrorOf([&] { handler->BinaryData(damaged); }), 331) << place;
    ASSERT_EQ(handler->BinaryData(), before) << place;
  };
  for (std::size_t size = 0; size < data.size(); ++size) {
    expectRefused({data.begin(), data.begin() + static_cast<std::ptrdiff_t>(size)}, size);
  }
  for (std::size_t place = 0; place < data.size(); ++place) {
    Bytes flipped = data;
    flipped[place] = static_cast<Byte>(flipped[place] ^ 1 << place % 8);
    expectRefused(flipped, place);
  }
  std::mt19937 random(GetParam().texts);
  for (std::size_t size = 1; size < 200; ++size) {
    Bytes any(size);
    for (Byte& byte : any) byte = static_cast<Byte>(random());
    expectRefused(any, size);
  }
}

TEST_P(HandlerSettings, HaveTheNamesAndValuesOfTheProperties) {
  const auto handler = Distinct();
  const automation::Interface& members = handler->Class().Default();
  for (const ExpectedSetting& setting : Expected()) {
    const automation::Member* member = members.Find(setting.name);
    if (!member || !member->put) continue;
    SCOPED_TRACE(setting.name);
    EXPECT_EQ(automation::To<std::string>(automation::GetByName(*handler, setting.name)),
              automation::To<std::string>(setting.other));
    automation::PutByName(*handler, setting.name, setting.Earlier());
    EXPECT_EQ(automation::To<std::string>(automation::GetByName(*handler, setting.name)),
              automation::To<std::string>(setting.Earlier()));
    EXPECT_EQ(Lines(SettingsIn(handler->BinaryData())),
              Lines(With(Others(), setting.name, setting.Earlier())));
    automation::PutByName(*handler, setting.name, setting.other);
  }
}

TEST_P(HandlerSettings, ReachTheDrawingElementAtOnce) {
  const auto handler = Distinct();
  for (const auto& [name, value] : Others()) {
    if (name.rfind("DrawingText_", 0) != 0) continue;
    EXPECT_EQ(automation::GetByName(*handler->ItfVarBinaryHandler::DrawingElement(), name.substr(12)), value)
        << name;
  }
}

TEST_P(HandlerSettings, AreAllInAReplica) {
  const auto original = Distinct();
  original->LinkOperandType(5);
  original->LinkOperandAddress(6);
  original->BuildOpPropBag();
  const HandlerRef copy = original->Replica();
  EXPECT_EQ(&copy->Class(), &original->Class());
  EXPECT_EQ(Lines(SettingsIn(copy->BinaryData())), Lines(Others()));
  EXPECT_EQ(copy->LinkOperandType(), 0);
  EXPECT_EQ(copy->LinkOperandAddress(), 0);
  EXPECT_EQ(std::dynamic_pointer_cast<BinaryHandler>(copy)->ColOpPropBag(), original->ColOpPropBag());
  EXPECT_NE(copy->DrawingElement(), original->ItfVarBinaryHandler::DrawingElement());
}

TEST_P(HandlerSettings, OfAReplicaAreItsOwn) {
  const auto original = Distinct();
  const HandlerRef copy = original->Replica();
  const SettingList earlier = Valued(Expected(), Earlier);
  copy->BinaryData(test::DataOf(earlier));
  EXPECT_EQ(Lines(SettingsIn(original->BinaryData())), Lines(Others()));
  EXPECT_EQ(Lines(SettingsIn(copy->BinaryData())), Lines(earlier));
  const HandlerRef second = original->Replica();
  original->BinaryData(test::DataOf(earlier));
  EXPECT_EQ(Lines(SettingsIn(second->BinaryData())), Lines(Others()));
}

/// A number in 32 bits or as a fixed-point number, as the change key of the class has it.
Variant InKey(const ExpectedHandler& handler, std::int64_t tenThousandths) {
  if (handler.changeKey == ExpectedHandler::kCurrencies) return Currency{tenThousandths};
  return static_cast<Long>(tenThousandths / 10000);
}

/// What the change key is made of, for a handler that was never painted.
SettingList ExpectedKey(const ExpectedHandler& handler, const SettingList& settings) {
  SettingList key;
  if (std::string_view(handler.className) == "clsVarBargraph") {
    key.emplace_back("DrawingImage_hBmp", automation::FromBytes({0, 0, 0, 0, 0}));
  }
  auto setting = settings.begin();
  for (const ExpectedSetting& expected : handler.settings(kTexts)) {
    Variant value = setting++->second;
    if (expected.trait == ExpectedSetting::kNotInKey) continue;
    if (expected.IsAddress()) value = InKey(handler, automation::To<Long>(value) * std::int64_t{10000});
    key.emplace_back(expected.name, value);
  }
  return key;
}

TEST_P(HandlerSettings, InTheChangeKey) {
  const auto handler = Distinct();
  const Bytes key = handler->GetBinaryDataForCRC();
  EXPECT_TRUE(GetParam().changeKey != ExpectedHandler::kBinaryData || key == handler->BinaryData());
  EXPECT_EQ(Lines(SettingsIn(key)), Lines(ExpectedKey(GetParam(), Others())));
  EXPECT_EQ(SettingsIn(key), ExpectedKey(GetParam(), Others()));
}

TEST_P(HandlerSettings, ChangeTheKeyEachButThoseThatAreLeftOut) {
  const Bytes key = Distinct()->GetBinaryDataForCRC();
  for (const ExpectedSetting& setting : Expected()) {
    const bool isCount = setting.trait == ExpectedSetting::kCount;
    const auto changed = Loaded(With(Others(), setting.name, isCount ? Variant(Long{2}) : setting.Earlier()));
    EXPECT_EQ(changed->GetBinaryDataForCRC() == key, setting.trait == ExpectedSetting::kNotInKey)
        << setting.name;
  }
}

TEST_P(HandlerSettings, OfOperandsThatHoldAValueAreThatValueInTheChangeKeyUnlessItIsTheData) {
  int addresses = 0;
  std::string typeName;
  for (const ExpectedSetting& setting : Expected()) {
    const std::string type = std::exchange(typeName, setting.name);
    if (!setting.IsAddress()) continue;
    ++addresses;
    for (const Long number : {14, 15, 16, 33, 34, 35, 36, 37, 38, 39}) {
      SCOPED_TRACE(type + " " + std::to_string(number));
      const bool isValue = GetParam().changeKey != ExpectedHandler::kBinaryData &&
                           (number == 15 || number == 34 || number == 35 || number == 37 || number == 38);
      const SettingList settings = With(Others(), type, number);
      const auto handler = Loaded(settings);
      const auto expectValue = [&](std::int64_t tenThousandths) {
        SettingList key = ExpectedKey(GetParam(), settings);
        if (isValue) key = With(key, setting.name, InKey(GetParam(), tenThousandths));
        EXPECT_EQ(SettingsIn(handler->GetBinaryDataForCRC()), key);
      };
      expectValue(0);
      Define(number, automation::To<Long>(setting.other), 654321);
      expectValue(654321);
      Define(number, automation::To<Long>(setting.other), -70000);
      expectValue(-70000);
      EXPECT_EQ(SettingsIn(handler->BinaryData()), settings);
    }
  }
  EXPECT_EQ(addresses, GetParam().operands);
}

TEST_P(HandlerSettings, OfValuesBeyond32BitsHaveAChangeKeyOnlyAsFixedPointNumbers) {
  if (GetParam().changeKey == ExpectedHandler::kBinaryData) return;
  const ExpectedSettings expected = Expected();
  const auto address = std::find_if(expected.begin(), expected.end(),
                                    [](const ExpectedSetting& setting) { return setting.IsAddress(); });
  const auto handler = Loaded(With(Others(), std::prev(address)->name, Long{15}));
  Define(15, automation::To<Long>(address->other), 21474836480000);
  const bool isCurrency = GetParam().changeKey == ExpectedHandler::kCurrencies;
  EXPECT_EQ(ErrorOf([&] { handler->GetBinaryDataForCRC(); }), isCurrency ? 0 : 6);
}

INSTANTIATE_TEST_SUITE_P(Of, HandlerSettings, ::testing::ValuesIn(test::ExpectedHandlers()),
                         [](const auto& expected) { return std::string(expected.param.className); });

class AllHandlerSettings : public test::HandlerTest {};

TEST_F(AllHandlerSettings, AreExpectedOfEveryClassThatThereIs) {
  std::vector<std::string> known, found;
  for (const ExpectedHandler& handler : test::ExpectedHandlers()) known.emplace_back(handler.className);
  for (const automation::ClassInfo* info : test::HandlerClasses()) found.emplace_back(info->name);
  EXPECT_EQ(found, known);
}

TEST_F(AllHandlerSettings, TakeTheFallBackColorsWhereNothingIsSet) {
  const auto expectAll = [](const SettingList& settings, std::string_view part, Long fallback) {
    for (const auto& [name, value] : settings) {
      EXPECT_TRUE(name.find(part) == std::string::npos || value == Variant(fallback)) << name;
    }
  };
  for (const automation::ClassInfo* info : test::HandlerClasses()) {
    if (info->name == "clsVarBargraph") continue;
    const SettingList settings = SettingsIn(test::NewHandlerOf(*info)->BinaryData());
    expectAll(settings, "ColorFore", 5);
    expectAll(settings, "ColorBack", 103);
  }
}

}  // namespace
}  // namespace quenzel7
