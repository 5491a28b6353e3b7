/// Frames among the shapes and texts of a group: the layer of their own, full and at half strength.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "shapes/frame.h"
#include "shapes/group.h"
#include "shapes/rectangle.h"
#include "shapes/text.h"
#include "tests/support/element_double.h"
#include "tests/support/text_painting_fixture.h"

namespace quenzel7 {
namespace {

using test::Calls;
using test::GroupOf;

class FramesInAGroup : public test::TextPaintingTest<clsFrame> {
 protected:
  void SetUp() override {
    TextPaintingTest::SetUp();
    outer_ = Make(0, "");
    text_ = test::Placed<clsText>(10, 20, 100, 50);
    text_->Flat3D(4);
    rectangle_ = test::Placed<clsRectangle>(1, 2, 3, 4);
    inner_ = Make(2, "ab");
    innerRectangle_ = test::Placed<clsRectangle>(5, 6, 7, 8);
    group_ = GroupOf({outer_, text_, GroupOf({innerRectangle_, inner_}), rectangle_});
  }

  /// The calls of the same paintings one after the other.
  Calls CallsOfThese(std::initializer_list<ItfHmiElement*> elements) {
    return CallsOf([&](Long dc) {
      for (ItfHmiElement* element : elements) element->Draw(dc, false);
    });
  }

  std::shared_ptr<clsFrame> outer_, inner_;
  std::shared_ptr<clsText> text_;
  std::shared_ptr<clsRectangle> rectangle_, innerRectangle_;
  std::shared_ptr<clsGroup> group_;
};

TEST_F(FramesInAGroup, AreALayerThroughMemberGroups) {
  const Calls calls = CallsOf([&](Long dc) { group_->DrawFramesInGroup(dc, false); });
  EXPECT_EQ(calls, CallsOfThese({outer_.get(), inner_.get()}));
  EXPECT_FALSE(calls.empty());
}

TEST_F(FramesInAGroup, AreLeftOutOfTheLayerOfShapesAndTexts) {
  const Calls calls = CallsOf([&](Long dc) { group_->DrawNonVarsInGroup(dc, false); });
  EXPECT_EQ(calls, CallsOfThese({text_.get(), innerRectangle_.get(), rectangle_.get()}));
  EXPECT_FALSE(calls.empty());
}

TEST_F(FramesInAGroup, AreNoVariables) {
  EXPECT_EQ(CallsOf([&](Long dc) { group_->DrawVarsInGroup(dc, false); }), Calls{});
}

TEST_F(FramesInAGroup, AreBlendedOneByOneAtHalfStrength) {
  const Calls calls = CallsOf([&](Long dc) { group_->DrawTransparentFramesInGroup(dc); });
  EXPECT_EQ(calls, CallsOf([&](Long dc) {
              outer_->DrawTransparent(dc);
              inner_->DrawTransparent(dc);
            }));
  Calls blends;
  for (const std::string& call : calls) {
    if (call.rfind("AlphaBlend", 0) == 0) blends.push_back(call);
  }
  EXPECT_EQ(blends, (Calls{"AlphaBlend(dc:1, 10, 20, 100, 50, dc:2, 0, 0, 100, 50, {0, 0, 128, 0})",
                           "AlphaBlend(dc:1, 10, 20, 100, 50, dc:3, 0, 0, 100, 50, {0, 0, 128, 0})"}));
}

TEST_F(FramesInAGroup, ArePaintedWithAllTheOthersInTheOrderOfTheGroup) {
  EXPECT_EQ(CallsOfDrawing(*group_),
            CallsOfThese({outer_.get(), text_.get(), innerRectangle_.get(), inner_.get(), rectangle_.get()}));
}

TEST_F(FramesInAGroup, ThatFailMidwayLeaveNothingBehind) {
  ExpectToLeaveNothingBehind([&](Long dc) { group_->DrawFramesInGroup(dc, false); });
  ExpectToLeaveNothingBehind([&](Long dc) { group_->DrawTransparentFramesInGroup(dc); });
}

}  // namespace
}  // namespace quenzel7
