#include "variables/text/numeric.h"

#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "tests/support/font_double.h"
#include "tests/support/handler_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::Variant;
using test::CallLog;
using test::ErrorOf;

/// A text service that gives what it is told and notes what it is asked.
class TracedOrder final : public corvane1::TextService {
 public:
  Long TextOrder(const std::string& text) override {
    asked.push_back(text);
    return order;
  }
  Long order = 2;
  std::vector<std::string> asked;
};

class Numeric : public test::HandlerTest {
 protected:
  void SetUp() override {
    HandlerTest::SetUp();
    TellKeyNumbers();
    Platform::Current().textService = order_;
    number_ = std::make_shared<clsVarNumeric>();
  }

  clsText& Shown() { return *number_->DrawingElement(); }

  std::shared_ptr<TracedOrder> order_ = std::make_shared<TracedOrder>();
  std::shared_ptr<clsVarNumeric> number_;
};

TEST_F(Numeric, BeginsWithItsDefaults) {
  const std::pair<const char*, Variant> defaults[] = {
      {"ArrowsIncrementValue", Long{0}}, {"Postfix", ""},
      {"IsUnsignedFormat", false},       {"Format", "99999"},
      {"BaseFormat", Long{0}},           {"IsPassword", false},
      {"LeadingType", Long{0}},          {"KeyboardType", Long{0}},
      {"FontNumber", Long{4}},           {"DescriptionFontNumber", Long{1}},
      {"ColorFore", Long{6067}},         {"StartWithClearFields", false},
      {"UseEntryLimits", false},         {"DoLinearization", false},
      {"EntryLimitMinOpType", Long{0}},  {"EntryLimitMinOpAddress", Long{0}},
      {"EntryLimitMaxOpType", Long{0}},  {"EntryLimitMaxOpAddress", Long{0}},
      {"LinearMIminOpType", Long{0}},    {"LinearMIminOpAddress", Long{0}},
      {"LinearMIMaxOpType", Long{0}},    {"LinearMImaxOpAddress", Long{0}},
      {"LinearDminOpType", Long{0}},     {"LinearDminOpAddress", Long{0}},
      {"LinearDmaxOpType", Long{0}},     {"LinearDmaxOpAddress", Long{0}},
      {"StorageText", Long{0}},          {"StorageLibNum", Long{0}},
  };
  for (const auto& [name, value] : defaults) EXPECT_EQ(GetByName(*number_, name), value) << name;
  ASSERT_TRUE(number_->ListText());
  EXPECT_EQ(number_->ListText()->StorageStringID(), -1);
  EXPECT_EQ(Shown().Txt(), "-99999");
  EXPECT_EQ(Shown().FontNumber(), 4);
  EXPECT_EQ(Shown().ColorFore(), 6021);
  EXPECT_EQ(Shown().ColorBack(), 6020);
}

TEST_F(Numeric, SlotsStandInTheirPublishedOrder) {
  const std::pair<const char*, const char*> properties[] = {
      {"ArrowsIncrementValue", "Long"},
      {"Postfix", "String"},
      {"IsUnsignedFormat", "Boolean"},
      {"Format", "String"},
      {"BaseFormat", "enBaseFormat"},
      {"IsPassword", "Boolean"},
      {"LeadingType", "enLeadingType"},
      {"KeyboardType", "enKeyboardType"},
      {"FontNumber", "Long"},
      {"DescriptionFontNumber", "Long"},
      {"ColorFore", "Long"},
      {"StartWithClearFields", "Boolean"},
      {"UseEntryLimits", "Boolean"},
      {"DoLinearization", "Boolean"},
      {"EntryLimitMinOpType", "Long"},
      {"EntryLimitMinOpAddress", "Long"},
      {"EntryLimitMaxOpType", "Long"},
      {"EntryLimitMaxOpAddress", "Long"},
      {"LinearMIminOpType", "Long"},
      {"LinearMIminOpAddress", "Long"},
      {"LinearMIMaxOpType", "Long"},
      {"LinearMImaxOpAddress", "Long"},
      {"LinearDminOpType", "Long"},
      {"LinearDminOpAddress", "Long"},
      {"LinearDmaxOpType", "Long"},
      {"LinearDmaxOpAddress", "Long"},
      {"StorageText", "Long"},
      {"StorageLibNum", "Long"},
  };
  std::vector<std::string> expected = {"get ListText() As clsVarTextElement",
                                       "putref ListText(clsVarTextElement)",
                                       "get ColOpPropBag() As Collection", "putref ColOpPropBag(Collection)",
                                       "get DrawingElement() As ItfHmiElement"};
  for (const auto& [name, type] : properties) {
    expected.push_back("get " + std::string(name) + "() As " + type);
    expected.push_back("put " + std::string(name) + "(" + type + ")");
  }
  for (const char* method :
       {"call GetGUIDigit() As String", "call SetBinaryData(Byte())", "call GetBinaryData() As Byte()",
        "call ItfVarBinaryHandler_ValidateFontNumber(ByRef Collection)",
        "call ReSyncDrawingElementParams(Long, Long)"}) {
    expected.push_back(method);
  }
  EXPECT_EQ(clsVarNumeric::ClassOf().Default().Slots(), expected);
  EXPECT_EQ(clsVarNumeric::ClassOf().Default().Name(), "_clsVarNumeric");
}

TEST_F(Numeric, KeepsTheFontOfItsDescription) {
  automation::PutByName(*number_, "DescriptionFontNumber", Long{6});
  EXPECT_EQ(number_->DescriptionFontNumber(), 6);
  number_->DescriptionFontNumber(7);
  EXPECT_EQ(GetByName(*number_, "DescriptionFontNumber"), Variant(Long{7}));
}

// --- The sample ---

TEST_F(Numeric, SampleHasASignButForUnsignedFormatsAndTypes) {
  number_->Format("99.9");
  for (const Long type : {-1, 0, 1, 6, 8, 15, 17, 35, 37, 66, 68}) {
    number_->LinkOperandType(type);
    number_->IsUnsignedFormat(false);
    EXPECT_EQ(number_->MakeSampleText("bar"), "-99.9 bar") << type;
    number_->IsUnsignedFormat(true);
    EXPECT_EQ(number_->MakeSampleText("bar"), "99.9 bar") << type;
  }
  for (const Long type : {16, 36, 67}) {
    number_->LinkOperandType(type);
    for (const bool isUnsigned : {false, true}) {
      number_->IsUnsignedFormat(isUnsigned);
      EXPECT_EQ(number_->MakeSampleText("bar"), "99.9 bar") << type;
    }
  }
}

TEST_F(Numeric, SampleOfAFloatIsItsOwnWhateverTheFormat) {
  number_->LinkOperandType(7);
  for (const char* format : {"99999", "9", ""}) {
    number_->Format(format);
    for (const bool isUnsigned : {false, true}) {
      number_->IsUnsignedFormat(isUnsigned);
      EXPECT_EQ(number_->MakeSampleText("bar"), "-9.999999999  bar");
      EXPECT_EQ(number_->MakeSampleText(""), "-9.999999999");
    }
  }
  order_->order = 1;
  EXPECT_EQ(number_->MakeSampleText("bar"), "bar -9.999999999");
}

TEST_F(Numeric, SampleHasTheNumberFirstForTextsFromTheLeftOnly) {
  EXPECT_EQ(number_->MakeSampleText("bar"), "-99999 bar");
  for (const Long order : {-1, 0, 1, 3}) {
    order_->order = order;
    EXPECT_EQ(number_->MakeSampleText("bar"), "bar -99999") << order;
    EXPECT_EQ(number_->MakeSampleText(""), "-99999") << order;
  }
  EXPECT_EQ(order_->asked.back(), "");
  number_->MakeSampleText("asked");
  EXPECT_EQ(order_->asked.back(), "asked");
}

TEST_F(Numeric, SampleHasNoBlanksAtItsEnds) {
  number_->Format(" 9 9 ");
  number_->IsUnsignedFormat(true);
  EXPECT_EQ(number_->MakeSampleText("  a  b  "), "9 9    a  b");
  order_->order = 1;
  EXPECT_EQ(number_->MakeSampleText("  a  b  "), "a  b    9 9");
  EXPECT_EQ(number_->MakeSampleText("\t"), "\t  9 9");
  number_->Format("9\t");
  EXPECT_EQ(number_->MakeSampleText(""), "9\t");
  number_->Format("  ");
  EXPECT_EQ(number_->MakeSampleText("  "), "");
  number_->Format("");
  EXPECT_EQ(number_->MakeSampleText(""), "");
  EXPECT_EQ(number_->MakeSampleText("x"), "x");
}

// --- ReSyncDrawingElementParams ---

TEST_F(Numeric, WritingSettingsLeavesTheShownTextAlone) {
  number_->Format("9");
  number_->Postfix("bar");
  number_->IsPassword(true);
  number_->FontNumber(2);
  number_->ColorFore(3);
  EXPECT_EQ(Shown().Txt(), "-99999");
  EXPECT_EQ(Shown().FontNumber(), 4);
  EXPECT_EQ(Shown().ColorFore(), 6021);
}

TEST_F(Numeric, ShowsTheSampleWithThePostfixInTheGivenFont) {
  number_->Format("9.9");
  number_->Postfix("bar");
  number_->FontNumber(2);
  automation::InvokeByName(*number_, "ReSyncDrawingElementParams", {Long{7}, Long{3}});
  EXPECT_EQ(Shown().Txt(), "-9.9 bar");
  EXPECT_EQ(Shown().FontNumber(), 3);
  EXPECT_EQ(number_->FontNumber(), 2);
  number_->Postfix("");
  number_->ReSyncDrawingElementParams(1, 3);
  EXPECT_EQ(Shown().Txt(), "-9.9");
}

TEST_F(Numeric, ShowsThePostfixOfAPasswordOrElseItsFormat) {
  number_->IsPassword(true);
  number_->Format("9.9");
  number_->ReSyncDrawingElementParams(1, 3);
  EXPECT_EQ(Shown().Txt(), "9.9");
  EXPECT_EQ(Shown().FontNumber(), 3);
  number_->Postfix(" enter ");
  number_->ReSyncDrawingElementParams(1, 2);
  EXPECT_EQ(Shown().Txt(), " enter ");
  EXPECT_EQ(Shown().FontNumber(), 2);
}

/// A number whose text is string 7: "ab" and "abcd", in fonts 1 and 3.
class NumericOfLibrary : public Numeric {
 protected:
  void SetUp() override {
    Numeric::SetUp();
    services_.strings->languages = 2;
    services_.strings->texts[{7, 1}] = {"ab", 1};
    services_.strings->texts[{7, 2}] = {"abcd", 3};
    number_->StorageText(-1);
    number_->ListText()->StorageStringID(7);
    number_->Postfix("bar");
  }
};

TEST_F(NumericOfLibrary, ShowsTheWidestOfAllLanguagesInItsFont) {
  services_.strings->current = 1;
  number_->ReSyncDrawingElementParams(1, 2);
  EXPECT_EQ(Shown().Txt(), "-99999 abcd");
  EXPECT_EQ(Shown().FontNumber(), 3);
  EXPECT_EQ(services_.strings->current, 1);
  EXPECT_EQ(order_->asked.back(), "abcd");
  order_->order = 1;
  number_->ReSyncDrawingElementParams(1, 2);
  EXPECT_EQ(Shown().Txt(), "abcd -99999");
}

TEST_F(NumericOfLibrary, ShowsTheStringBeforeItTakesItsFont) {
  CallLog asked = services_.AskedBy([this] { number_->ReSyncDrawingElementParams(1, 2); });
  ASSERT_GE(asked.size(), 4u);
  asked.erase(asked.begin(), asked.end() - 4);
  EXPECT_EQ(asked, (CallLog{"height of font 4", "widths of font 4", "height of font 3", "widths of font 3"}));
}

TEST_F(NumericOfLibrary, ShowsTheStringAloneForAPassword) {
  number_->IsPassword(true);
  number_->ReSyncDrawingElementParams(1, 2);
  EXPECT_EQ(Shown().Txt(), "abcd");
  EXPECT_EQ(Shown().FontNumber(), 3);
}

TEST_F(NumericOfLibrary, TakesTheGivenFontWhereTheStringHasNone) {
  services_.strings->languages = 0;
  // No language has a text: the one of no language counts.
  for (const Long font : {-2, -1, 0}) {
    services_.strings->texts[{7, 0}] = {"none", font};
    number_->ReSyncDrawingElementParams(1, 2);
    EXPECT_EQ(Shown().Txt(), "-99999 none");
    EXPECT_EQ(Shown().FontNumber(), font == -1 ? 2 : font);
  }
}

TEST_F(NumericOfLibrary, TakesTheStringForEveryStorageTextButZero) {
  for (const Long storage : {-2, -1, 1, 2}) {
    number_->StorageText(storage);
    Shown().Txt("before");
    number_->ReSyncDrawingElementParams(1, 2);
    EXPECT_EQ(Shown().Txt(), "-99999 abcd") << storage;
  }
  number_->StorageText(0);
  number_->ReSyncDrawingElementParams(1, 2);
  EXPECT_EQ(Shown().Txt(), "-99999 bar");
  EXPECT_EQ(Shown().FontNumber(), 2);
}

TEST_F(NumericOfLibrary, StaysAsItIsWithoutAString) {
  const auto expectUntouched = [this] {
    Shown().Txt("before");
    number_->ReSyncDrawingElementParams(1, 2);
    EXPECT_EQ(Shown().Txt(), "before");
    EXPECT_EQ(Shown().FontNumber(), 4);
  };
  number_->ListText()->StorageStringID(-1);
  expectUntouched();
  for (const Long id : {-2, 0}) {
    number_->ListText()->StorageStringID(id);
    number_->ListText()->StorageStringType(1);
    expectUntouched();
    number_->ListText()->StorageStringType(-1);
    expectUntouched();
    number_->ListText()->StorageStringType(0);
    services_.strings->texts[{id, 1}] = {"it", 0};
    number_->ReSyncDrawingElementParams(1, 2);
    EXPECT_EQ(Shown().Txt(), "-99999 it");
    EXPECT_EQ(Shown().FontNumber(), 0);
    number_->ReSyncDrawingElementParams(1, 2);
    Shown().FontNumber(4);
  }
}

TEST_F(NumericOfLibrary, KeepsWhatItShowsWhenTheLibraryFails) {
  services_.NoteInto([](const std::string& call) {
    if (call == "string 7") throw automation::AutomationError(automation::ErrorNumber::Database, "gone");
  });
  EXPECT_RAISES(-2147467259, "gone", number_->ReSyncDrawingElementParams(1, 2));
  EXPECT_EQ(Shown().Txt(), "-99999");
  EXPECT_EQ(Shown().FontNumber(), 4);
}

// --- GetGUIDigit ---

/// Gives for each font a number of its own.
class DigitFonts final : public test::FontDouble {
 public:
  DigitFonts() : FontDouble(std::make_shared<std::vector<std::string>>()) {}
  Long GetGUIDigit(Long fontNumber) override { return 10 + fontNumber; }
};

TEST_F(Numeric, DigitIsThatOfTheFontOrOfTheBase) {
  Platform::Current().fontService = std::make_shared<DigitFonts>();
  number_->FontNumber(2);
  Shown().FontNumber(3);
  const std::pair<Long, const char*> digits[] = {{-1, ""}, {0, "12"}, {1, "D"}, {2, "0"}, {3, ""}};
  for (const auto& [base, digit] : digits) {
    number_->BaseFormat(static_cast<enBaseFormat>(base));
    EXPECT_EQ(automation::InvokeByName(*number_, "GetGUIDigit"), Variant(digit)) << base;
  }
}

// --- The string of the library ---

TEST_F(Numeric, KeepsTheStringThatItRefersTo) {
  const auto text = std::make_shared<clsVarTextElement>();
  text->Txt("mine");
  automation::PutByName(*number_, "ListText", text);
  EXPECT_EQ(GetByName(*number_, "ListText"), Variant(text));
  EXPECT_EQ(test::ValueIn(number_->GetBinaryData(), "Txt_Storage"), Variant("mine"));
  number_->SetBinaryData(test::DataOf({{"Txt_Storage", "taken"}}));
  EXPECT_EQ(text->Txt(), "taken");
}

TEST_F(Numeric, ReplicaHasAStringOfItsOwnAndNewValuesOfWhatIsNotCopied) {
  number_->DescriptionFontNumber(3);
  number_->ListText()->Txt("mine");
  number_->ListText()->StorageText("as chosen");
  number_->ListText()->FromOpType(5);
  Shown().ColorBack(12);
  const auto copy = std::dynamic_pointer_cast<clsVarNumeric>(number_->Replica());
  EXPECT_NE(copy->ListText(), number_->ListText());
  EXPECT_EQ(copy->ListText()->Txt(), "mine");
  EXPECT_EQ(copy->ListText()->StorageText(), "");
  EXPECT_EQ(copy->ListText()->FromOpType(), 0);
  EXPECT_EQ(copy->DescriptionFontNumber(), 1);
  EXPECT_EQ(copy->DrawingElement()->ColorBack(), 6020);
}

TEST_F(Numeric, ReleasedHasNothingToShow) {
  number_->ReleaseResources();
  EXPECT_FALSE(number_->ListText());
  EXPECT_FALSE(number_->DrawingElement());
  EXPECT_FALSE(number_->ColOpPropBag());
  EXPECT_EQ(ErrorOf([this] { number_->ReSyncDrawingElementParams(1, 2); }), 91);
  number_->StorageText(-1);
  EXPECT_EQ(ErrorOf([this] { number_->ReSyncDrawingElementParams(1, 2); }), 91);
  EXPECT_EQ(ErrorOf([this] { number_->GetBinaryData(); }), 91);
}

TEST_F(Numeric, HasNoDataWithoutAString) {
  number_->ListText(nullptr);
  EXPECT_EQ(ErrorOf([this] { number_->GetBinaryData(); }), 91);
}

// --- Operands ---

/// A number with six operands: entry limits 101/1 and 102/2, raw range 103/3 and 104/4, shown range 105/5 and
/// 106/6.
class NumericOperands : public Numeric {
 protected:
  void SetUp() override {
    Numeric::SetUp();
    NoteOperands();
    number_->LinkOperandType(101);
    number_->LinkOperandAddress(1);
    for (std::size_t pair = 0; pair < std::size(kPairs); ++pair) {
      Put(kPairs[pair].first, static_cast<Long>(101 + pair));
      Put(kPairs[pair].second, static_cast<Long>(1 + pair));
    }
    TakeLog();
  }

  static constexpr std::pair<const char*, const char*> kPairs[] = {
      {"EntryLimitMinOpType", "EntryLimitMinOpAddress"}, {"EntryLimitMaxOpType", "EntryLimitMaxOpAddress"},
      {"LinearMIminOpType", "LinearMIminOpAddress"},     {"LinearMIMaxOpType", "LinearMImaxOpAddress"},
      {"LinearDminOpType", "LinearDminOpAddress"},       {"LinearDmaxOpType", "LinearDmaxOpAddress"}};

  void Put(const char* name, Long value) { automation::PutByName(*number_, name, value); }
  /// The pairs in the order of the key table, each as "type address".
  std::vector<std::string> Pairs() {
    std::vector<std::string> pairs;
    for (const auto& [type, address] : kPairs) {
      pairs.push_back(automation::To<std::string>(GetByName(*number_, type)) + " " +
                      automation::To<std::string>(GetByName(*number_, address)));
    }
    return pairs;
  }
  void Use(bool entryLimits, bool linearization) {
    number_->UseEntryLimits(entryLimits);
    number_->DoLinearization(linearization);
  }
  std::vector<std::string> Bags() { return test::OperandsIn(number_->ColOpPropBag()); }
};

TEST_F(NumericOperands, HaveBagsInTheirOrderWhetherInUseOrNot) {
  number_->BuildOpPropBag();
  EXPECT_EQ(Bags(), (std::vector<std::string>{"101 1", "102 2", "105 5", "106 6", "103 3", "104 4"}));
  Use(true, true);
  number_->BuildOpPropBag();
  EXPECT_EQ(Bags(), (std::vector<std::string>{"101 1", "102 2", "105 5", "106 6", "103 3", "104 4"}));
  EXPECT_TRUE(TakeLog().empty());
}

TEST_F(NumericOperands, OfType0HaveNone) {
  for (const auto& [type, address] : kPairs) {
    const Variant before = GetByName(*number_, type);
    Put(type, 0);
    number_->BuildOpPropBag();
    std::vector<std::string> expected = {"101 1", "102 2", "105 5", "106 6", "103 3", "104 4"};
    std::erase(expected, automation::To<std::string>(before) + " " +
                             automation::To<std::string>(GetByName(*number_, address)));
    EXPECT_EQ(expected.size(), 5u);
    EXPECT_EQ(Bags(), expected) << type;
    automation::PutByName(*number_, type, before);
  }
}

TEST_F(NumericOperands, ComeBackInTheOrderOfTheirBags) {
  Use(true, true);
  number_->BuildOpPropBag();
  number_->RestoreAllOperands(9);
  EXPECT_EQ(TakeLog(), (CallLog{"add operand 1", RowOf(9, 101, 1), "add operand 2", RowOf(9, 102, 2),
                                "add operand 5", RowOf(9, 105, 5), "add operand 6", RowOf(9, 106, 6),
                                "add operand 3", RowOf(9, 103, 3), "add operand 4", RowOf(9, 104, 4)}));
  EXPECT_EQ(Pairs(), (std::vector<std::string>{"101 1", "102 2", "103 3", "104 4", "105 5", "106 6"}));
}

TEST_F(NumericOperands, ThatAreNotInUseDoNotComeBack) {
  number_->BuildOpPropBag();
  number_->RestoreAllOperands(9);
  EXPECT_TRUE(TakeLog().empty());
  Use(true, false);
  number_->RestoreAllOperands(9);
  EXPECT_EQ(TakeLog(), (CallLog{"add operand 1", RowOf(9, 101, 1), "add operand 2", RowOf(9, 102, 2)}));
  Put("EntryLimitMinOpType", 0);
  number_->BuildOpPropBag();
  number_->RestoreAllOperands(9);
  EXPECT_EQ(TakeLog(), CallLog{RowOf(9, 102, 2)});
}

TEST_F(NumericOperands, OfTheLinearizationTakeTheBagsOfEntryLimitsThatAreNotInUse) {
  // A value comes back under another address, by which it is known here.
  Put("EntryLimitMinOpType", 34);
  Put("EntryLimitMinOpAddress", 70);
  Define(34, 70, 10000);
  Define(37, 0, 50000);
  Use(false, true);
  number_->BuildOpPropBag();
  TakeLog();
  number_->RestoreAllOperands(9);
  // Bag 1 is that of the first limit, bag 2 that of the second and so on: each field but the first keeps its
  // own place, for which there is a row, while the operand of the bag comes back.
  EXPECT_EQ(TakeLog(), (CallLog{"add operand 1", RowOf(9, 37, 1), "add operand 2", RowOf(9, 106, 6),
                                "add operand 5", RowOf(9, 103, 3), "add operand 6", RowOf(9, 104, 4)}));
  EXPECT_EQ(Pairs(), (std::vector<std::string>{"34 70", "102 2", "103 3", "104 4", "37 1", "106 6"}));
  EXPECT_EQ(OperandValueOf(37, 1, 0), Currency{10000});
}

TEST_F(NumericOperands, ThatHoldAValueComeBackAtAFreeAddress) {
  const std::pair<Long, Long> types[] = {{15, 15}, {34, 37}, {35, 38}, {37, 37}, {38, 38}};
  for (const auto& [kept, restored] : types) {
    SCOPED_TRACE(kept);
    Put("EntryLimitMinOpType", kept);
    Put("EntryLimitMinOpAddress", 70);
    Use(true, false);
    Define(kept, 70, 30000 + kept);
    const Long free = Platform::Current().operands->FreeAddress(restored, 0);
    number_->BuildOpPropBag();
    number_->RestoreAllOperands(9);
    EXPECT_EQ(Pairs().front(), std::to_string(restored) + " " + std::to_string(free));
    EXPECT_EQ(OperandValueOf(restored, free, 0), Currency{30000 + kept});
  }
}

TEST_F(NumericOperands, WithoutABagAreErrors) {
  Use(true, true);
  EXPECT_EQ(ErrorOf([this] { number_->RestoreAllOperands(9); }), 9);
  number_->ColOpPropBag(nullptr);
  EXPECT_EQ(ErrorOf([this] { number_->RestoreAllOperands(9); }), 91);
  Use(false, false);
  EXPECT_EQ(ErrorOf([this] { number_->RestoreAllOperands(9); }), 0);
}

TEST_F(NumericOperands, AllGetRowsAsTheyStand) {
  number_->AddOperandsToHmiOperands(9);
  EXPECT_EQ(TakeLog(), (CallLog{RowOf(9, 101, 1), RowOf(9, 102, 2), RowOf(9, 105, 5), RowOf(9, 106, 6),
                                RowOf(9, 103, 3), RowOf(9, 104, 4)}));
  EXPECT_EQ(Pairs(), (std::vector<std::string>{"101 1", "102 2", "103 3", "104 4", "105 5", "106 6"}));
  Put("LinearDminOpType", 0);
  Put("LinearMImaxOpAddress", 44);
  number_->AddOperandsToHmiOperands(8);
  EXPECT_EQ(TakeLog(), (CallLog{RowOf(8, 101, 1), RowOf(8, 102, 2), RowOf(8, 106, 6), RowOf(8, 103, 3),
                                RowOf(8, 104, 44)}));
}

TEST_F(NumericOperands, LeaveTheProjectInTheirOrder) {
  number_->DeleteAllOperands();
  EXPECT_EQ(TakeLog(), (CallLog{"remove operand 1", "remove operand 2", "remove operand 5",
                                "remove operand 6", "remove operand 3", "remove operand 4"}));
  Put("EntryLimitMaxOpType", 0);
  Put("LinearMIminOpType", 0);
  number_->DeleteAllOperands();
  EXPECT_EQ(TakeLog(),
            (CallLog{"remove operand 1", "remove operand 5", "remove operand 6", "remove operand 4"}));
}

TEST_F(NumericOperands, AreReplacedWhereTypeAndAddressMatch) {
  const std::vector<std::string> before = Pairs();
  for (std::size_t pair = 0; pair < std::size(kPairs); ++pair) {
    const auto type = static_cast<Long>(101 + pair), address = static_cast<Long>(1 + pair);
    number_->ReplaceOperand(type, address + 10, 77, 78);
    number_->ReplaceOperand(type + 10, address, 77, 78);
    EXPECT_EQ(Pairs(), before);
    number_->ReplaceOperand(type, address, 77, 78);
    std::vector<std::string> after = before;
    after[pair] = "77 78";
    EXPECT_EQ(Pairs(), after);
    number_->ReplaceOperand(77, 78, type, address);
  }
  for (const auto& [type, address] : kPairs) {
    Put(type, 5);
    Put(address, 6);
  }
  number_->ReplaceOperand(5, 6, 7, 8);
  EXPECT_EQ(Pairs(), std::vector<std::string>(6, "7 8"));
  EXPECT_EQ(number_->LinkOperandType(), 101);
  EXPECT_EQ(number_->LinkOperandAddress(), 1);
  EXPECT_TRUE(TakeLog().empty());
}

}  // namespace
}  // namespace quenzel7
