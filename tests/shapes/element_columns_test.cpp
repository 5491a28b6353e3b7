#include "shapes/element_columns.h"

#include <gtest/gtest.h>

#include "tests/support/project_fixture.h"

namespace quenzel7 {
namespace {

using automation::Variant;

struct Widget {
  Long ElementType() const { return 70000; }
};

using ElementColumns = test::ProjectTest;

TEST_F(ElementColumns, TypeIsTheNumberOfTheClass) {
  constexpr auto column = TypeColumn<Widget>();
  EXPECT_EQ(column.name, "Type");
  EXPECT_EQ(column.value(Widget{}), Variant(Long{70000}));
  EXPECT_EQ(column.assign, nullptr);
}

TEST_F(ElementColumns, DisplayIsThePageThatIsOpenAtTheTime) {
  constexpr auto column = DisplayColumn<Widget>();
  EXPECT_EQ(column.name, "DisplayID");
  EXPECT_EQ(column.value(Widget{}), Variant(Long{7}));
  OpenPage(80000);
  EXPECT_EQ(column.value(Widget{}), Variant(Long{80000}));
  EXPECT_EQ(column.assign, nullptr);
}

TEST_F(ElementColumns, WhatAnElementHasNotIs0In16BitsOrNoOperandIn32) {
  constexpr auto zero = ZeroColumn<Widget>("Flat3D");
  EXPECT_EQ(zero.name, "Flat3D");
  EXPECT_EQ(zero.value(Widget{}), Variant(Integer{0}));
  EXPECT_EQ(zero.assign, nullptr);
  constexpr auto none = NoOperandColumn<Widget>("EnabledOpAddr");
  EXPECT_EQ(none.name, "EnabledOpAddr");
  EXPECT_EQ(none.value(Widget{}), Variant(Long{-1}));
  EXPECT_EQ(none.assign, nullptr);
  EXPECT_EQ(kNone, -1);
}

}  // namespace
}  // namespace quenzel7
