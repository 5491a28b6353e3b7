#include "variables/text/display_string.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/automation/call_by_name.h"
#include "tests/support/handler_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::Variant;
using test::CallLog;
using test::ErrorOf;

class DisplayString : public test::HandlerTest {
 protected:
  void SetUp() override {
    HandlerTest::SetUp();
    TellKeyNumbers();
    string_ = std::make_shared<clsVarDisplayString>();
  }

  clsText& Shown() { return *string_->DrawingElement(); }
  void Begin(Long type, Long address) {
    string_->StartVectorOpType(type);
    string_->StartVectorOpAddress(address);
  }

  std::shared_ptr<clsVarDisplayString> string_;
};

TEST_F(DisplayString, BeginsWithItsDefaults) {
  const std::pair<const char*, Variant> defaults[] = {
      {"StartVectorOpType", Long{0}},       {"StartVectorOpAddress", Long{0}}, {"VectorLength", Long{15}},
      {"StringPattern", "Text_To_Display"}, {"FontNumber", Long{4}},           {"ColorFore", Long{6071}},
      {"KeyboardsLanguage", Long{0}},
  };
  for (const auto& [name, value] : defaults) EXPECT_EQ(GetByName(*string_, name), value) << name;
  EXPECT_EQ(Shown().Txt(), "Text_To_Display");
  EXPECT_EQ(Shown().ColorBack(), 6070);
  EXPECT_EQ(Shown().ColorFore(), 6071);
  EXPECT_EQ(Shown().FontNumber(), 4);
}

TEST_F(DisplayString, TakesTheFallBackColorsWhereNothingIsSet) {
  const auto settings = std::make_shared<test::TracedSettings>();
  Platform::Current().settings = settings;
  const clsVarDisplayString fresh;
  for (const char* asked : {"6000/6070/103", "6000/6071/5"}) {
    EXPECT_EQ(std::count(settings->asked.begin(), settings->asked.end(), asked), 1) << asked;
  }
  EXPECT_EQ(fresh.DrawingElement()->ColorBack(), 103);
  EXPECT_EQ(fresh.DrawingElement()->ColorFore(), 5);
  EXPECT_EQ(fresh.ColorFore(), 5);
}

TEST_F(DisplayString, SlotsHoldEveryPropertyForReadingAndWriting) {
  EXPECT_EQ(clsVarDisplayString::ClassOf().Default().Slots(),
            (std::vector<std::string>{"get DrawingElement() As ItfHmiElement",
                                      "get StartVectorOpType() As Long",
                                      "put StartVectorOpType(Long)",
                                      "get StartVectorOpAddress() As Long",
                                      "put StartVectorOpAddress(Long)",
                                      "get VectorLength() As Long",
                                      "put VectorLength(Long)",
                                      "get StringPattern() As String",
                                      "put StringPattern(String)",
                                      "get FontNumber() As Long",
                                      "put FontNumber(Long)",
                                      "get ColorFore() As Long",
                                      "put ColorFore(Long)",
                                      "get KeyboardsLanguage() As enLanguagesKeyboards",
                                      "put KeyboardsLanguage(enLanguagesKeyboards)",
                                      "get ColOpPropBag() As Collection",
                                      "putref ColOpPropBag(Collection)",
                                      "call SetBinaryData(Byte())",
                                      "call GetBinaryData() As Byte()",
                                      "call ItfVarBinaryHandler_ValidateFontNumber(ByRef Collection)",
                                      "call ReSyncDrawingElementParams(Long, Long)"}));
}

TEST_F(DisplayString, ShowsThePatternOnceItIsBroughtUpToDate) {
  string_->StringPattern("abc");
  string_->FontNumber(2);
  string_->ColorFore(3);
  EXPECT_EQ(Shown().Txt(), "Text_To_Display");
  EXPECT_EQ(Shown().FontNumber(), 4);
  EXPECT_EQ(Shown().ColorFore(), 6071);
  automation::InvokeByName(*string_, "ReSyncDrawingElementParams", {Long{7}, Long{3}});
  EXPECT_EQ(Shown().Txt(), "abc");
  EXPECT_EQ(Shown().FontNumber(), 3);
  EXPECT_EQ(string_->FontNumber(), 2);
}

TEST_F(DisplayString, ReplicaHasTheBackgroundToo) {
  Shown().ColorBack(12);
  const HandlerRef copy = string_->Replica();
  EXPECT_EQ(copy->DrawingElement()->ColorBack(), 12);
  EXPECT_EQ(ErrorOf([this] { test::ValueIn(string_->GetBinaryData(), "DrawingText_ColorBack"); }), 327);
}

TEST_F(DisplayString, HasTheBagOfItsStartTwice) {
  string_->BuildOpPropBag();
  EXPECT_EQ(test::OperandsIn(string_->ColOpPropBag()), (std::vector<std::string>{"0 0", "0 0"}));
  Begin(5, 6);
  string_->BuildOpPropBag();
  EXPECT_EQ(test::OperandsIn(string_->ColOpPropBag()), (std::vector<std::string>{"5 6", "5 6"}));
}

TEST_F(DisplayString, TakesItsStartBackFromTheFirstBag) {
  Begin(5, 6);
  string_->BuildOpPropBag();
  NoteOperands();
  TakeLog();
  string_->RestoreAllOperands(9);
  EXPECT_EQ(TakeLog(), (CallLog{"add operand 6", RowOf(9, 5, 6)}));

  Define(34, 70, 10000);
  Define(37, 0, 50000);
  Begin(34, 70);
  string_->BuildOpPropBag();
  TakeLog();
  string_->RestoreAllOperands(9);
  EXPECT_EQ(TakeLog(), (CallLog{"add operand 1", RowOf(9, 37, 1)}));
  EXPECT_EQ(string_->StartVectorOpType(), 37);
  EXPECT_EQ(string_->StartVectorOpAddress(), 1);
}

TEST_F(DisplayString, WithoutAStartReadsItsBagAndHasNoRow) {
  string_->BuildOpPropBag();
  TakeLog();
  string_->RestoreAllOperands(9);
  string_->AddOperandsToHmiOperands(9);
  EXPECT_TRUE(TakeLog().empty());
  string_->ColOpPropBag(std::make_shared<automation::Collection>());
  EXPECT_EQ(ErrorOf([this] { string_->RestoreAllOperands(9); }), 9);
  string_->ColOpPropBag(nullptr);
  EXPECT_EQ(ErrorOf([this] { string_->RestoreAllOperands(9); }), 91);
}

TEST_F(DisplayString, HasOneRowAndOneOperandToRelease) {
  NoteOperands();
  string_->DeleteAllOperands();
  EXPECT_TRUE(TakeLog().empty());
  Begin(5, 6);
  string_->AddOperandsToHmiOperands(9);
  EXPECT_EQ(TakeLog(), CallLog{RowOf(9, 5, 6)});
  string_->DeleteAllOperands();
  EXPECT_EQ(TakeLog(), CallLog{"remove operand 6"});
}

TEST_F(DisplayString, ReplacesItsStartWhereTypeAndAddressMatch) {
  Begin(5, 6);
  string_->LinkOperandType(5);
  string_->LinkOperandAddress(6);
  string_->ReplaceOperand(5, 7, 8, 9);
  string_->ReplaceOperand(4, 6, 8, 9);
  EXPECT_EQ(string_->StartVectorOpType(), 5);
  EXPECT_EQ(string_->StartVectorOpAddress(), 6);
  string_->ReplaceOperand(5, 6, 8, 9);
  EXPECT_EQ(string_->StartVectorOpType(), 8);
  EXPECT_EQ(string_->StartVectorOpAddress(), 9);
  EXPECT_EQ(string_->LinkOperandType(), 5);
  EXPECT_EQ(string_->LinkOperandAddress(), 6);
}

}  // namespace
}  // namespace quenzel7
