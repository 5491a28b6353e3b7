#include "variables/var_text_element.h"

#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "tests/support/handler_fixture.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::Variant;

class VarTextElement : public test::HandlerTest {};

/// The properties in slot order, with type and default as KeyNumbers and CountingFonts have it.
const struct {
  const char *name, *type;
  Variant initial;
} kProperties[] = {
    {"Txt", "String", ""},
    {"ColorFore", "Long", Long{6021}},
    {"ColorBack", "Long", Long{6020}},
    {"FromOpType", "Long", Long{0}},
    {"FromOpAddress", "Long", Long{0}},
    {"ToOpType", "Long", Long{0}},
    {"ToOpAddress", "Long", Long{0}},
    {"StorageStringType", "Long", Long{0}},
    {"StorageStringID", "Long", Long{-1}},
    {"StorageText", "String", ""},
    {"StorageFont", "Long", Long{4}},
};

TEST_F(VarTextElement, BeginsWithItsDefaults) {
  TellKeyNumbers();
  clsVarTextElement text;
  for (const auto& property : kProperties) {
    EXPECT_EQ(GetByName(text, property.name), property.initial) << property.name;
  }
}

TEST_F(VarTextElement, TakesTheFallBackColorsWhereNothingIsSet) {
  const clsVarTextElement text;
  EXPECT_EQ(text.ColorFore(), 5);
  EXPECT_EQ(text.ColorBack(), 103);
}

TEST_F(VarTextElement, LooksUpItsColorsAndThenItsFontOnce) {
  const auto settings = std::make_shared<test::TracedSettings>();
  Platform::Current().settings = settings;
  services_.NoteInto([&](const std::string& call) { settings->asked.push_back(call); });
  const clsVarTextElement text;
  EXPECT_EQ(settings->asked, (test::CallLog{"6000/6021/5", "6000/6020/103", "default font"}));
}

TEST_F(VarTextElement, SlotsHoldEveryPropertyForReadingAndWriting) {
  std::vector<std::string> expected;
  for (const auto& property : kProperties) {
    expected.push_back("get " + std::string(property.name) + "() As " + property.type);
    expected.push_back("put " + std::string(property.name) + "(" + property.type + ")");
  }
  const automation::ClassInfo& info = clsVarTextElement::ClassOf();
  EXPECT_EQ(info.Default().Slots(), expected);
  EXPECT_EQ(info.Default().Name(), "_clsVarTextElement");
  EXPECT_EQ(info.interfaces.size(), 1u);
  EXPECT_EQ(&info.create()->Class(), &info);
}

TEST_F(VarTextElement, KeepsEachPropertyForItself) {
  clsVarTextElement text;
  Long number = 10;
  for (const auto& property : kProperties) {
    const Variant value = property.initial.IsText() ? Variant(property.name) : Variant(++number);
    automation::PutByName(text, property.name, value);
  }
  number = 10;
  for (const auto& property : kProperties) {
    const Variant value = property.initial.IsText() ? Variant(property.name) : Variant(++number);
    EXPECT_EQ(GetByName(text, property.name), value) << property.name;
  }
  EXPECT_EQ(text.From(), (OperandPair{13, 14}));
  EXPECT_EQ(text.To(), (OperandPair{15, 16}));
}

TEST(OperandPairs, AreEqualWhereTypeAndAddressAre) {
  EXPECT_EQ(OperandPair(), (OperandPair{0, 0}));
  EXPECT_EQ((OperandPair{1, 2}), (OperandPair{1, 2}));
  EXPECT_NE((OperandPair{1, 2}), (OperandPair{1, 3}));
  EXPECT_NE((OperandPair{1, 2}), (OperandPair{0, 2}));
}

}  // namespace
}  // namespace quenzel7
