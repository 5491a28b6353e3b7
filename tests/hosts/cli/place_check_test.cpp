#include "hosts/cli/place_check.h"

#include <gtest/gtest.h>

#include "shapes/ellipse.h"
#include "shapes/group.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "tests/support/raises.h"

namespace quenzel7::cli {
namespace {

constexpr Panel kPanel{1, 320, 240};

template <class Shape>
std::string Checked(Long xs, Long ys, Long dx, Long dy, const std::optional<Panel>& panel = kPanel) {
  Shape shape;
  shape.Xs(xs);
  shape.Ys(ys);
  shape.Dx(dx);
  shape.Dy(dy);
  return PlaceCheck().Check(shape, panel);
}

std::string Off(const std::string& howMuch, const std::string& place, const std::string& size) {
  return "lies " + howMuch + " off the page, at " + place + " with size " + size +
         "; a place on 320 by 240 pixels was expected";
}

TEST(PlaceCheck, AnElementThatFillsThePageStandsOnIt) {
  EXPECT_EQ(Checked<clsRectangle>(0, 0, 320, 240), "");
  EXPECT_EQ(Checked<clsRectangle>(319, 239, 1, 1), "");
}

TEST(PlaceCheck, OnePixelBeyondEachEdgeIsPartlyOffThePage) {
  EXPECT_EQ(Checked<clsRectangle>(-1, 0, 320, 240), Off("partly", "(-1, 0)", "(320, 240)"));
  EXPECT_EQ(Checked<clsRectangle>(0, -1, 320, 240), Off("partly", "(0, -1)", "(320, 240)"));
  EXPECT_EQ(Checked<clsRectangle>(0, 0, 321, 240), Off("partly", "(0, 0)", "(321, 240)"));
  EXPECT_EQ(Checked<clsEllipse>(0, 0, 320, 241), Off("partly", "(0, 0)", "(320, 241)"));
}

TEST(PlaceCheck, WithoutAPixelOnThePageItIsWhollyOffIt) {
  EXPECT_EQ(Checked<clsRectangle>(-9, 10, 10, 10), Off("partly", "(-9, 10)", "(10, 10)"));
  EXPECT_EQ(Checked<clsRectangle>(-10, 10, 10, 10), Off("wholly", "(-10, 10)", "(10, 10)"));
  EXPECT_EQ(Checked<clsRectangle>(319, 10, 10, 10), Off("partly", "(319, 10)", "(10, 10)"));
  EXPECT_EQ(Checked<clsRectangle>(320, 10, 10, 10), Off("wholly", "(320, 10)", "(10, 10)"));
  EXPECT_EQ(Checked<clsRectangle>(10, -9, 10, 10), Off("partly", "(10, -9)", "(10, 10)"));
  EXPECT_EQ(Checked<clsRectangle>(10, -10, 10, 10), Off("wholly", "(10, -10)", "(10, 10)"));
  EXPECT_EQ(Checked<clsRectangle>(10, 239, 10, 10), Off("partly", "(10, 239)", "(10, 10)"));
  EXPECT_EQ(Checked<clsRectangle>(10, 240, 10, 10), Off("wholly", "(10, 240)", "(10, 10)"));
}

TEST(PlaceCheck, LinesAreJudgedByTheirVector) {
  EXPECT_EQ(Checked<clsLine>(319, 10, -320, 0), "");
  EXPECT_EQ(Checked<clsLine>(319, 10, -321, 0), Off("partly", "(319, 10)", "(-321, 0)"));
  EXPECT_EQ(Checked<clsLine>(10, 239, 0, -240), "");
  EXPECT_EQ(Checked<clsLine>(330, 10, -10, 0), Off("wholly", "(330, 10)", "(-10, 0)"));
  EXPECT_EQ(Checked<clsLine>(330, 10, -12, 0), Off("partly", "(330, 10)", "(-12, 0)"));
  EXPECT_EQ(Checked<clsLine>(330, 10, -11, 0), Off("wholly", "(330, 10)", "(-11, 0)"));
  EXPECT_EQ(Checked<clsLine>(-1, 10, 0, 10), Off("wholly", "(-1, 10)", "(0, 10)"));
  EXPECT_EQ(Checked<clsLine>(320, 10, 0, 10), Off("wholly", "(320, 10)", "(0, 10)"));
}

TEST(PlaceCheck, SizeZeroIsToldOfShapesInEachDirection) {
  const std::string expected = "; a width and a height other than 0 was expected";
  EXPECT_EQ(Checked<clsRectangle>(1, 2, 0, 5), "has size (0, 5)" + expected);
  EXPECT_EQ(Checked<clsEllipse>(1, 2, 5, 0), "has size (5, 0)" + expected);
}

TEST(PlaceCheck, ALineNeedsOnlyOneDirection) {
  EXPECT_EQ(Checked<clsLine>(1, 2, 0, 5), "");
  EXPECT_EQ(Checked<clsLine>(1, 2, 5, 0), "");
  EXPECT_EQ(Checked<clsLine>(1, 2, 0, 0), "has size (0, 0); another one than (0, 0) was expected");
}

TEST(PlaceCheck, OffThePageOutranksSizeZero) {
  EXPECT_EQ(Checked<clsRectangle>(400, 2, 0, 5), Off("wholly", "(400, 2)", "(0, 5)"));
}

TEST(PlaceCheck, ACornerThatFitsNoNumberIsOffThePage) {
  constexpr Long kHighest = 2147483647;
  EXPECT_EQ(Checked<clsRectangle>(kHighest, 0, 1, 1), Off("wholly", "(2147483647, 0)", "(1, 1)"));
  EXPECT_EQ(Checked<clsRectangle>(1, 0, kHighest, 1), Off("partly", "(1, 0)", "(2147483647, 1)"));
}

TEST(PlaceCheck, WithoutAPanelOnlyTheSizeIsJudged) {
  EXPECT_EQ(Checked<clsRectangle>(-5, 5000, 10, 10, std::nullopt), "");
  EXPECT_EQ(Checked<clsRectangle>(4096, 4095, 0, 1, std::nullopt),
            "has size (0, 1); a width and a height other than 0 was expected");
}

TEST(PlaceCheck, AGroupHasNoPlace) {
  clsGroup group;
  const auto member = std::make_shared<clsRectangle>();
  group.ColGroup()->Add(member, clsGroup::KeyOf(*member));
  EXPECT_EQ(PlaceCheck().Check(group, kPanel), "");
}

TEST(PlaceCheck, EachPanelIsJudgedByItsOwnSize) {
  clsRectangle shape;
  shape.Dx(10);
  shape.Dy(20);
  PlaceCheck places;
  EXPECT_EQ(places.Check(shape, Panel{1, 10, 20}), "");
  EXPECT_NE(places.Check(shape, Panel{1, 20, 10}), "");
  EXPECT_NE(places.Check(shape, Panel{1, 9, 20}), "");
  EXPECT_NE(places.Check(shape, Panel{1, 10, 19}), "");
}

/// An element that refuses to be judged.
class Unjudged final : public ItfHmiElement {
  const automation::ClassInfo& Class() const override { return clsRectangle::ClassOf(); }
  enCollisionStatus ItfHmiElement_GetTransformState(automation::Variant&) override {
    throw automation::AutomationError(automation::ErrorNumber::ObjectNotSet, "not today");
  }
};

TEST(PlaceCheck, OtherErrorsPass) {
  Unjudged element;
  EXPECT_EQ(quenzel7::test::ErrorOf([&] { PlaceCheck().Check(element, kPanel); }), 91);
}

}  // namespace
}  // namespace quenzel7::cli
