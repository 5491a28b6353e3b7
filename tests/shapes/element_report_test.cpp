#include "shapes/element_report.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/automation/collection.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"

namespace quenzel7 {
namespace {

using Lines = std::vector<std::string>;

constexpr Long kLeast = std::numeric_limits<Long>::min(), kMost = std::numeric_limits<Long>::max();

TEST(ElementReport, WritesEachLineAsAParagraphInOrder) {
  test::ReportDouble printer;
  ElementReport report(printer);
  report.Line("Text: one");
  report.Line("");
  report.Line("Font: two");
  EXPECT_EQ(printer.Lines(), (Lines{"Text: one", "", "Font: two"}));
}

TEST(ElementReport, TellsCoordinatesFromLeftToHeight) {
  test::ReportDouble printer;
  ElementReport report(printer);
  report.Coordinates({1, 2, 30, 40});
  report.Coordinates({-1, kLeast, 0, kMost});
  EXPECT_EQ(printer.Lines(), (Lines{"Coordinates (Left,Top,Width,Height): (1,2,30,40)",
                                    "Coordinates (Left,Top,Width,Height): (-1,-2147483648,0,2147483647)"}));
}

TEST(ElementReport, TellsAMemoryBitUnlessThereIsNone) {
  test::ReportDouble printer;
  ElementReport report(printer);
  report.MemoryBit("Hide Operand: ", 17);
  report.MemoryBit("Hide Operand: ", 0);
  report.MemoryBit("Hide Operand: ", -1);
  report.MemoryBit("Touch: ", -2);
  EXPECT_EQ(printer.Lines(), (Lines{"Hide Operand: MB 17", "Hide Operand: MB 0", "Touch: MB -2"}));
}

TEST(ElementReport, AnErrorOfThePrintingControlLeavesTheLinesBefore) {
  test::ReportDouble printer;
  printer.FailAfter(1);
  ElementReport report(printer);
  report.Line("first");
  const Long error = static_cast<Long>(automation::ErrorNumber::Database);
  EXPECT_EQ(test::ErrorOf([&] { report.Line("second"); }), error);
  EXPECT_EQ(test::ErrorOf([&] { report.Coordinates({}); }), error);
  EXPECT_EQ(test::ErrorOf([&] { report.MemoryBit("Touch: ", 5); }), error);
  EXPECT_EQ(test::ErrorOf([&] { report.MemoryBit("Touch: ", -1); }), 0);
  EXPECT_EQ(printer.Lines(), Lines{"first"});
}

TEST(ElementReport, APrintingControlWithoutParagraphsIsAnError) {
  automation::Collection printer;
  EXPECT_EQ(test::ErrorOf([&] { ElementReport(printer).Line("first"); }), 438);
}

}  // namespace
}  // namespace quenzel7
