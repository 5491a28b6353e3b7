/// What variables write into a printed report: each line, when it is there and when not, and each cell of the
/// tables.
#include "variables/variable_report.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation/call_by_name.h"
#include "platform/automation/collection.h"
#include "platform/fennick1/operand.h"
#include "platform/platform.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"
#include "tests/support/text_fixture.h"
#include "variables/graphs/bargraph.h"
#include "variables/text/binary_text.h"
#include "variables/text/display_string.h"
#include "variables/text/list_text.h"
#include "variables/text/numeric.h"
#include "variables/text/range_text.h"
#include "variables/var_element.h"

namespace quenzel7 {
namespace {

using test::ErrorOf;
using Lines = std::vector<std::string>;

/// Joins parts of a report.
Lines operator+(Lines first, const Lines& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

const Lines kPlace = {"Coordinates (Left,Top,Width,Height): (12,13,14,15)"};
const Lines kNoLink = {"Linked Operand: "};
const Lines kHeading = {"Features:"};

class ReportOfVariable : public ::testing::Test {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    Platform::Current().fontService = std::make_shared<test::CountingFonts>();
    project_ = corvane1::OpenProject(folder_.File("project.qz7"), corvane1::ProjectMode::Create);
    Platform::Current().heldProject->Hold(project_);
  }
  void TearDown() override {
    Platform::Current().heldProject->Hold(nullptr);
    project_->Close();
    Platform::Current() = Platform();
  }

  /// A variable of the type at (12, 13), 14 x 15, with fonts, alignment and style of its own.
  static std::shared_ptr<clsVar> Of(enVarType type) {
    auto variable = std::make_shared<clsVar>();
    variable->VarType(type);
    variable->Xs(12);
    variable->Ys(13);
    variable->Dx(14);
    variable->Dy(15);
    variable->FontNumber(2);
    variable->DescriptionFontNumber(3);
    variable->Alignment(5);
    variable->Flat3D(0);
    return variable;
  }

  template <class Handler>
  static Handler& HandlerOf(clsVar& variable) {
    return dynamic_cast<Handler&>(*variable.BinaryHandlers(variable.VarType()));
  }

  static Lines ReportOf(clsVar& variable) {
    test::ReportDouble printer;
    variable.CreatePrinterReportEX(printer);
    return printer.Lines();
  }

  /// Enters an operand in the project and gives its name.
  static std::string Define(Long type, Long address) {
    fennick1::Operand operand(Platform::Current().operands);
    operand.OperandType(type);
    operand.OperandAddress(address);
    operand.AddToProject();
    return operand.OperandText();
  }

 private:
  test::TemporaryFolder folder_;
  ado::ConnectionRef project_;
};

/// The lines of a text with everything that has nothing but what it has to have.
const Lines kBareText = kPlace + kNoLink + Lines{"Font: no. 2", "Alignment: Center Right", "Style: Flat"};

// --- The frame ---

TEST_F(ReportOfVariable, AVariableWithoutAWriterPrintsItsCoordinatesOnly) {
  for (const auto type : {eVT_None, eVT_BinaryImage, eVT_Float, eVT_LinearGague, eVT_DataTable, eVT_LED,
                          eVT_Thermometer, eVT_SDTrendViewer, eVT_SDBrowser, eVT_NumericRange}) {
    const auto variable = Of(type);
    variable->VisibleOpAddr(4);
    variable->KeypadEntry(true);
    EXPECT_EQ(ReportOf(*variable), kPlace) << type;
  }
}

TEST_F(ReportOfVariable, TellsThePlaceAtRestWhileTheVariableIsDragged) {
  const auto variable = Of(eVT_Float);
  variable->ItfHmiElement::Move(5, 6);
  variable->ItfHmiElement::UpdateDisplayWithTransx();
  EXPECT_EQ(ReportOf(*variable), kPlace);
}

TEST_F(ReportOfVariable, AHandlerOfTheHostsOwnHasNoWriter) {
  class HostsHandler final : public ItfVarBinaryHandler {
   public:
    const automation::ClassInfo& Class() const override { return clsVarNumeric::ClassOf(); }
  };
  const auto variable = Of(eVT_Numeric);
  variable->SetBinaryHandler(eVT_Numeric, std::make_shared<HostsHandler>());
  EXPECT_EQ(ReportOf(*variable), kPlace);
}

TEST_F(ReportOfVariable, TheOtherReportsOfAVariableWriteNothing) {
  test::ReportDouble printer;
  const auto variable = Of(eVT_Numeric);
  variable->ItfHmiElement::CreateStaticElementPrinterReport(printer);
  EXPECT_TRUE(printer.Lines().empty());
  EXPECT_TRUE(variable->CreatePrinterReport().IsEmpty());
  EXPECT_TRUE(automation::InvokeByName(*variable, "CreatePrinterReport").IsEmpty());
}

TEST_F(ReportOfVariable, HostsReachItByName) {
  const auto printer = std::make_shared<test::ReportDouble>();
  const auto variable = Of(eVT_Float);
  automation::InvokeByName(*variable, "CreatePrinterReportEX", {automation::Variant(printer)});
  EXPECT_EQ(printer->Lines(), kPlace);
}

// --- Common lines ---

TEST_F(ReportOfVariable, ATextWithEverythingHasTheseLines) {
  const auto variable = Of(eVT_Password);
  HandlerOf<clsVarNumeric>(*variable).Format("999");
  const std::string link = Define(1, 71);
  EXPECT_EQ(link, "MB 71");
  variable->OperandType(1);
  variable->OperandAddress(71);
  variable->VisibleOpAddr(4);
  variable->EnabledOpAddr(5);
  variable->HighlightOpAddr(6);
  variable->KeypadSuccessOpAddr(7);
  variable->KeypadEntry(true);
  EXPECT_EQ(ReportOf(*variable),
            (kPlace + Lines{"Linked Operand: MB 71", "Hide Operand: MB 4", "Disable View Operand: MB 5",
                            "Marking View Operand: MB 6", "Legal entry Operand: MB 7",
                            "Description Font: no. 3", "Font: no. 2", "Alignment: Center Right",
                            "Style: Flat", "Features:", "         Format: 999"}));
}

TEST_F(ReportOfVariable, ALinkWithoutANameHasItsLineAllTheSame) {
  const auto variable = Of(eVT_Password);
  const Lines bare = kBareText + kHeading + Lines{"         Format: 99999"};
  EXPECT_EQ(ReportOf(*variable), bare);
  // An address without a type is none, and what the project does not have has no name.
  variable->OperandAddress(71);
  EXPECT_EQ(ReportOf(*variable), bare);
  variable->OperandType(1);
  EXPECT_EQ(ReportOf(*variable), bare);
  Define(1, 72);
  EXPECT_EQ(ReportOf(*variable), bare);
  Define(1, 71);
  EXPECT_EQ(ReportOf(*variable)[1], "Linked Operand: MB 71");
}

TEST_F(ReportOfVariable, AMemoryBitIsToldUnlessItsAddressIsMinus1) {
  const struct {
    const char* label;
    void (*put)(clsVar&, Long);
  } kBits[] = {
      {"Hide Operand: MB ", [](clsVar& variable, Long address) { variable.VisibleOpAddr(address); }},
      {"Disable View Operand: MB ", [](clsVar& variable, Long address) { variable.EnabledOpAddr(address); }},
      {"Marking View Operand: MB ",
       [](clsVar& variable, Long address) { variable.HighlightOpAddr(address); }},
      {"Legal entry Operand: MB ",
       [](clsVar& variable, Long address) { variable.KeypadSuccessOpAddr(address); }},
  };
  for (const auto& [label, put] : kBits) {
    for (const Long address : {-2, -1, 0, 1}) {
      const auto variable = Of(eVT_Password);
      put(*variable, address);
      const Lines report = ReportOf(*variable);
      ASSERT_EQ(report.size(), address == -1 ? 7u : 8u) << label << address;
      if (address != -1) {
        EXPECT_EQ(report[2], label + std::to_string(address));
      }
      EXPECT_EQ(report[report.size() - 5], "Font: no. 2");
    }
  }
}

TEST_F(ReportOfVariable, NamesEachStyle) {
  const std::pair<Long, const char*> kStyles[] = {{0, "Style: Flat"},         {1, "Style: 3D (Unpressed)"},
                                                  {2, "Style: 3D (Pressed)"}, {3, "Style: 3D (Pressed)"},
                                                  {4, "Style: 3D (Pressed)"}, {-1, "Style: 3D (Pressed)"}};
  for (const auto& [style, line] : kStyles) {
    const auto variable = Of(eVT_BarGraph);
    variable->Flat3D(style);
    EXPECT_EQ(ReportOf(*variable)[2], line) << style;
  }
}

TEST_F(ReportOfVariable, NamesEachAlignment) {
  const char* const kNames[] = {"Top Left",    "Top Center",    "Top Right",
                                "Center Left", "Center Center", "Center Right",
                                "Bottom Left", "Bottom Center", "Bottom Right"};
  for (Long alignment = 0; alignment <= 8; ++alignment) {
    const auto variable = Of(eVT_Numeric);
    variable->Alignment(alignment);
    EXPECT_EQ(ReportOf(*variable)[3], std::string("Alignment: ") + kNames[alignment]);
  }
  const auto variable = Of(eVT_Numeric);
  variable->Alignment(9);
  EXPECT_EQ(ReportOf(*variable)[3], "Alignment: ");
}

// --- Numbers ---

TEST_F(ReportOfVariable, ANumberHasTheseLines) {
  const auto variable = Of(eVT_Numeric);
  EXPECT_EQ(ReportOf(*variable),
            (kBareText + kHeading +
             Lines{"         Format: 99999", "         Postfix: ", "         Arrows Increment Value: 0"}));
  variable->KeypadEntry(true);
  auto& number = HandlerOf<clsVarNumeric>(*variable);
  number.Format("99.9");
  number.Postfix("bar");
  number.LeadingType(eLT_Zeroes);
  number.StartWithClearFields(true);
  number.ArrowsIncrementValue(-5);
  number.UseEntryLimits(true);
  number.DoLinearization(true);
  number.LinearMIminOpType(1);
  number.LinearMIminOpAddress(81);
  number.LinearMIMaxOpType(1);
  number.LinearMImaxOpAddress(82);
  number.LinearDminOpType(1);
  number.LinearDminOpAddress(83);
  number.LinearDmaxOpType(1);
  number.LinearDmaxOpAddress(84);
  number.EntryLimitMinOpType(1);
  number.EntryLimitMinOpAddress(85);
  number.EntryLimitMaxOpType(1);
  number.EntryLimitMaxOpAddress(86);
  for (Long address = 81; address <= 86; ++address) Define(1, address);
  EXPECT_EQ(ReportOf(*variable),
            (kPlace + kNoLink +
             Lines{"Description Font: no. 3", "Font: no. 2", "Alignment: Center Right", "Style: Flat",
                   "Features:", "         Linear X Min: MB 81", "         Linear X Max: MB 82",
                   "         Linear Y Min: MB 83", "         Linear Y Max: MB 84",
                   "         Entry Min Value: MB 85", "         Entry Max Value: MB 86",
                   "         Format: 99.9", "         Leading Type: Zeroes", "         Postfix: bar",
                   "         Linearization: Yes", "         Key Pad Entry: Yes",
                   "         Start With Clear Field: Yes", "         Arrows Increment Value: -5"}));
}

TEST_F(ReportOfVariable, EachSettingOfANumberBringsItsOwnLines) {
  const Lines before = kBareText + kHeading;
  const std::string format = "         Format: 99999",
                    postfix = "         Postfix: ", step = "         Arrows Increment Value: 0";
  const auto expect = [](const std::function<void(clsVarNumeric&)>& change, const Lines& lines) {
    const auto variable = Of(eVT_Numeric);
    change(HandlerOf<clsVarNumeric>(*variable));
    EXPECT_EQ(ReportOf(*variable), lines);
  };
  expect([](clsVarNumeric& number) { number.DoLinearization(true); },
         before + Lines{"         Linear X Min: ", "         Linear X Max: ", "         Linear Y Min: ",
                        "         Linear Y Max: ", format, postfix, "         Linearization: Yes", step});
  expect([](clsVarNumeric& number) { number.UseEntryLimits(true); },
         before + Lines{"         Entry Min Value: ", "         Entry Max Value: ", format, postfix, step});
  expect([](clsVarNumeric& number) { number.StartWithClearFields(true); },
         before + Lines{format, postfix, "         Start With Clear Field: Yes", step});
  expect([](clsVarNumeric& number) { number.LeadingType(eLT_Spaces); },
         before + Lines{format, "         Leading Type: Spaces", postfix, step});
  for (const Long none : {-2, 0, 1, 3}) {
    expect([none](clsVarNumeric& number) { number.LeadingType(static_cast<enLeadingType>(none)); },
           before + Lines{format, postfix, step});
  }
}

TEST_F(ReportOfVariable, OfAPasswordOnlyTheFormatIsTold) {
  const auto variable = Of(eVT_Password);
  auto& password = HandlerOf<clsVarNumeric>(*variable);
  password.Format("9999");
  password.Postfix("bar");
  password.DoLinearization(true);
  password.UseEntryLimits(true);
  EXPECT_EQ(ReportOf(*variable), (kBareText + kHeading + Lines{"         Format: 9999"}));
  // The type of the variable says so, not the setting of the number.
  const auto number = Of(eVT_Numeric);
  HandlerOf<clsVarNumeric>(*number).IsPassword(true);
  EXPECT_EQ(ReportOf(*number).size(), kBareText.size() + 4);
}

// --- Strings ---

TEST_F(ReportOfVariable, AStringHasTheseLines) {
  const auto variable = Of(eVT_DisplayString);
  // What a string does not tell.
  variable->EnabledOpAddr(5);
  variable->HighlightOpAddr(6);
  variable->KeypadSuccessOpAddr(7);
  variable->KeypadEntry(true);
  EXPECT_EQ(ReportOf(*variable),
            (kPlace + Lines{"Linked Operand: ", "Features:", "         Start Vector: ",
                            "         Vector Length: 15", "         String Pattern: Text_To_Display"}));
  variable->VisibleOpAddr(4);
  auto& string = HandlerOf<clsVarDisplayString>(*variable);
  string.StartVectorOpType(1);
  string.StartVectorOpAddress(91);
  string.VectorLength(20);
  string.StringPattern("abc");
  Define(1, 91);
  EXPECT_EQ(
      ReportOf(*variable),
      (kPlace + Lines{"Linked Operand: ", "Hide Operand: MB 4", "Features:", "         Start Vector: MB 91",
                      "         Vector Length: 20", "         String Pattern: abc"}));
}

// --- Bars ---

TEST_F(ReportOfVariable, ABarHasTheseLines) {
  const auto variable = Of(eVT_BarGraph);
  variable->EnabledOpAddr(5);
  variable->HighlightOpAddr(6);
  variable->KeypadSuccessOpAddr(7);
  variable->KeypadEntry(true);
  EXPECT_EQ(ReportOf(*variable),
            (kPlace + Lines{"Linked Operand: ", "Style: Flat", "Features:", "         Direction: Right",
                            "         Min Value: ", "         Max Value: "}));
  variable->VisibleOpAddr(4);
  auto& bar = HandlerOf<clsVarBargraph>(*variable);
  bar.MinOpType(1);
  bar.MinOpAddress(91);
  bar.MaxOpType(1);
  bar.MaxOpAddress(92);
  Define(1, 91);
  Define(1, 92);
  EXPECT_EQ(ReportOf(*variable), (kPlace + Lines{"Linked Operand: ", "Hide Operand: MB 4", "Style: Flat",
                                                 "Features:", "         Direction: Right",
                                                 "         Min Value: MB 91", "         Max Value: MB 92"}));
}

TEST_F(ReportOfVariable, NamesTheDirectionOfABar) {
  const std::pair<Long, const char*> kDirections[] = {{-1, ""},     {0, ""},     {1, "Up"}, {2, "Down"},
                                                      {3, "Right"}, {4, "Left"}, {5, ""}};
  for (const auto& [direction, name] : kDirections) {
    const auto variable = Of(eVT_BarGraph);
    HandlerOf<clsVarBargraph>(*variable).BargraphType(static_cast<enBarGraphDrawType>(direction));
    EXPECT_EQ(ReportOf(*variable)[4], std::string("         Direction: ") + name) << direction;
  }
}

// --- Tables ---

TEST_F(ReportOfVariable, ATextOfABitHasATableOfItsTwoTexts) {
  const auto variable = Of(eVT_BinaryText);
  variable->VisibleOpAddr(4);
  variable->EnabledOpAddr(5);
  variable->KeypadEntry(true);
  auto& texts = HandlerOf<clsVarBinaryText>(*variable);
  texts.ListTexts(1)->Txt("off");
  texts.ListTexts(2)->Txt("on");
  EXPECT_EQ(
      ReportOf(*variable),
      (kPlace + Lines{"Linked Operand: ", "Hide Operand: MB 4", "Style: Flat", "StartTable",
                      "TableCell 1 0,0-0,0 2:Long", "TableCell 2 0,0-0,0 2:Long",
                      "TableCell 13 1,1-2,1 50%:String", "TableCell 18 1,1-1,1 Text For 0:String",
                      "TableCell 13 1,2-2,2 50%:String", "TableCell 18 1,2-1,2 Text For 1:String",
                      "TableCell 18 2,1-2,1 off:String", "TableCell 18 2,2-2,2 on:String", "EndTable"}));
}

TEST_F(ReportOfVariable, ATextOfAListHasATableOfNumberedTexts) {
  const auto variable = Of(eVT_ListText);
  auto& list = HandlerOf<clsVarListText>(*variable);
  list.AppendText();
  list.ListTexts(1)->Txt("one\r\ntwo");
  list.ListTexts(2)->Txt("three");
  EXPECT_EQ(ReportOf(*variable),
            (kPlace + Lines{"Linked Operand: ", "Style: Flat", "StartTable", "TableCell 1 0,0-0,0 3:Long",
                            "TableCell 2 0,0-0,0 2:Long", "TableCell 13 1,1-3,1 10%:String",
                            "TableCell 18 1,1-1,1 Index:String", "TableCell 13 1,2-3,2 90%:String",
                            "TableCell 18 1,2-1,2 Text:String", "TableCell 18 2,1-2,1 1:String",
                            "TableCell 18 2,2-2,2 one\r\ntwo:String", "TableCell 18 3,1-3,1 2:String",
                            "TableCell 18 3,2-3,2 three:String", "EndTable"}));
}

TEST_F(ReportOfVariable, ATextOfARangeHasATableOfBoundsAndTexts) {
  const auto variable = Of(eVT_RangeTexts);
  variable->Flat3D(1);
  variable->HighlightOpAddr(6);
  auto& ranges = HandlerOf<clsVarRangeText>(*variable);
  ranges.ListTexts(1)->Txt("low");
  ranges.ListTexts(1)->FromOpType(1);
  ranges.ListTexts(1)->FromOpAddress(91);
  ranges.ListTexts(1)->ToOpType(1);
  ranges.ListTexts(1)->ToOpAddress(92);
  Define(1, 91);
  Define(1, 92);
  ranges.AppendText();
  ranges.ListTexts(2)->Txt("high");
  EXPECT_EQ(ReportOf(*variable),
            (kPlace + Lines{"Linked Operand: ", "Style: 3D (Unpressed)", "StartTable",
                            "TableCell 1 0,0-0,0 3:Long", "TableCell 2 0,0-0,0 3:Long",
                            "TableCell 13 1,1-3,1 33%:String", "TableCell 18 1,1-1,1 From:String",
                            "TableCell 13 1,2-3,2 33%:String", "TableCell 18 1,2-1,2 To:String",
                            "TableCell 13 1,3-3,3 34%:String", "TableCell 18 1,3-1,3 Text:String",
                            "TableCell 18 2,1-2,1 MB 91:String", "TableCell 18 2,2-2,2 MB 92:String",
                            "TableCell 18 2,3-2,3 low:String", "TableCell 18 3,1-3,1 :String",
                            "TableCell 18 3,2-3,2 :String", "TableCell 18 3,3-3,3 high:String", "EndTable"}));
}

TEST_F(ReportOfVariable, AnEmptyListHasATableOfHeadersAlone) {
  const auto variable = Of(eVT_ListText);
  HandlerOf<clsVarListText>(*variable).Clear();
  EXPECT_EQ(ReportOf(*variable),
            (kPlace + Lines{"Linked Operand: ", "Style: Flat", "StartTable", "TableCell 1 0,0-0,0 1:Long",
                            "TableCell 2 0,0-0,0 2:Long", "TableCell 13 1,1-1,1 10%:String",
                            "TableCell 18 1,1-1,1 Index:String", "TableCell 13 1,2-1,2 90%:String",
                            "TableCell 18 1,2-1,2 Text:String", "EndTable"}));
}

TEST_F(ReportOfVariable, ATextOfABitThatLostATextIsAnErrorBeforeTheTable) {
  const auto variable = Of(eVT_BinaryText);
  HandlerOf<clsVarBinaryText>(*variable).Clear();
  HandlerOf<clsVarBinaryText>(*variable).AppendText();
  test::ReportDouble printer;
  EXPECT_EQ(ErrorOf([&] { variable->CreatePrinterReportEX(printer); }), 9);
  EXPECT_EQ(printer.Lines(), (kPlace + Lines{"Linked Operand: ", "Style: Flat"}));
}

// --- Failures ---

TEST_F(ReportOfVariable, AnErrorOfThePrintingControlLeavesTheLinesBefore) {
  for (const auto type :
       {eVT_BinaryText, eVT_ListText, eVT_Numeric, eVT_BarGraph, eVT_RangeTexts, eVT_DisplayString}) {
    const auto variable = Of(type);
    const Lines whole = ReportOf(*variable);
    for (std::size_t lines = 0; lines < whole.size(); ++lines) {
      test::ReportDouble printer;
      printer.FailAfter(lines);
      const test::Raised raised = test::RaisedBy([&] { variable->CreatePrinterReportEX(printer); });
      EXPECT_EQ(raised.number, static_cast<Long>(automation::ErrorNumber::Database));
      EXPECT_EQ(raised.description, "no paper for " + whole[lines]);
      EXPECT_EQ(printer.Lines(), Lines(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(lines)));
    }
  }
}

TEST_F(ReportOfVariable, APrintingControlThatKnowsNoTablesIsAnError) {
  class LinesOnly final : public automation::Object {
   public:
    const automation::ClassInfo& Class() const override {
      static const automation::Member members[] = {automation::Property<std::string>(
          "Paragraph", "Appends a line.", nullptr, AUTOMATION_SETTER(LinesOnly, std::string, Append))};
      static const automation::Interface interface("LinesOnly", members);
      static const automation::Interface* const interfaces[] = {&interface};
      static const automation::ClassInfo info{"LinesOnly", interfaces, nullptr};
      return info;
    }
    void Append(const std::string& line) { lines.push_back(line); }
    Lines lines;
  };
  LinesOnly printer;
  EXPECT_EQ(ErrorOf([&] { Of(eVT_ListText)->CreatePrinterReportEX(printer); }), 438);
  EXPECT_EQ(printer.lines, (kPlace + Lines{"Linked Operand: ", "Style: Flat"}));
  EXPECT_EQ(ErrorOf([&] { Of(eVT_BarGraph)->CreatePrinterReportEX(printer); }), 0);
}

}  // namespace
}  // namespace quenzel7
