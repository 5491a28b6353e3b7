#include "framework/element_types.h"

#include <gtest/gtest.h>

#include <vector>

namespace quenzel7 {
namespace {

TEST(ElementTypes, HaveTheNumbersThatStandInProjects) {
  const std::vector<Long> inOrder = {kRectangleElement, kLineElement,    kBitmapElement,    kTextElement,
                                     kVariableElement,  kEllipseElement, kRoundRectElement, kGroupElement,
                                     kButtonElement,    kFrameElement};
  EXPECT_EQ(inOrder, (std::vector<Long>{1, 2, 3, 4, 5, 6, 7, 8, 11, 12}));
}

}  // namespace
}  // namespace quenzel7
