#include "shapes/stroked_shape.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/automation/call_by_name.h"
#include "tests/support/report_double.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using test::Placed;

using Lines = std::vector<std::string>;

template <class Shape>
using StrokedShapes = test::ShapeTest<Shape>;
TYPED_TEST_SUITE(StrokedShapes, test::StrokedShapeTypes, test::ClassNameOfShape);

Lines ReportOf(ItfHmiElement& shape) {
  test::ReportDouble report;
  shape.CreateStaticElementPrinterReport(report);
  return report.Lines();
}

TYPED_TEST(StrokedShapes, ReportTheirPlaceAtRestAndTheirPen) {
  const auto shape = Placed<TypeParam>(1, -2, 30, 40);
  shape->PenWidth(3);
  // Each of the other descriptors is another one.
  shape->Move(5, 5);
  shape->SaveLastLegalPosition();
  shape->Move(7, 7);
  shape->UpdateDisplayWithTransx();
  shape->Move(9, 9);
  EXPECT_EQ(ReportOf(*shape), (Lines{"Coordinates (Left,Top,Width,Height): (1,-2,30,40)", "Pen Width: 3"}));
}

TYPED_TEST(StrokedShapes, ReportSignedSizes) {
  EXPECT_EQ(ReportOf(*Placed<TypeParam>(10, 20, -30, -40)),
            (Lines{"Coordinates (Left,Top,Width,Height): (10,20,-30,-40)", "Pen Width: 1"}));
}

TYPED_TEST(StrokedShapes, ReportTheHideOperand) {
  const auto shape = Placed<TypeParam>(1, 2, 30, 40);
  shape->VisibleOpAddr(17);
  const auto report = std::make_shared<test::ReportDouble>();
  automation::InvokeByName(*shape, "ItfHmiElement_CreateStaticElementPrinterReport", {report});
  EXPECT_EQ(report->Lines(), (Lines{"Coordinates (Left,Top,Width,Height): (1,2,30,40)", "Pen Width: 1",
                                    "Hide Operand: MB 17"}));
}

}  // namespace
}  // namespace quenzel7
