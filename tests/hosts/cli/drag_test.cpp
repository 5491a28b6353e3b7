#include "hosts/cli/drag.h"

#include <gtest/gtest.h>

#include "hosts/cli/element_picture.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/project_session.h"
#include "platform/automation/array.h"
#include "platform/platform.h"
#include "shapes/bitmap.h"
#include "shapes/group.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::cli {
namespace {

class DragTest : public ::testing::Test {
 protected:
  DragTest() : map_(FreeMap(100, 80)) {
    Platform::Current() = Platform();
    rectangle_.Xs(10);
    rectangle_.Ys(20);
    rectangle_.Dx(30);
    rectangle_.Dy(10);
  }
  DragResult Perform(enPickUpDirection handle, std::vector<Drag::Step> steps) {
    return PerformDrag(rectangle_, {handle, std::move(steps)}, map_);
  }
  Descriptor At(Long location) {
    Descriptor place;
    static_cast<ItfHmiElement&>(rectangle_).GetBoundingRect(place.xs, place.ys, place.dx, place.dy, location);
    return place;
  }

  clsRectangle rectangle_;
  automation::Variant map_;
};

TEST_F(DragTest, TheMapIsFreeAndEndsJustBeyondTheLastPixels) {
  const automation::Array& cells = map_.Elements();
  EXPECT_EQ(cells.Dimensions(), 2);
  EXPECT_EQ(cells.LowerBound(1), 0);
  EXPECT_EQ(cells.UpperBound(1), 100);
  EXPECT_EQ(cells.LowerBound(2), 0);
  EXPECT_EQ(cells.UpperBound(2), 80);
  EXPECT_EQ(cells.At(100, 80), automation::Variant(Byte{0}));
}

TEST_F(DragTest, AMoveEndsWhereItsLastLegalStepWas) {
  const DragResult result = Perform(ePD_None, {{5, 5}, {20, 6}});
  EXPECT_EQ(result.status, eCS_Legall);
  EXPECT_EQ(result.before, (Descriptor{10, 20, 30, 10}));
  EXPECT_EQ(result.after, (Descriptor{30, 26, 30, 10}));
  EXPECT_EQ(At(4), result.after);
}

TEST_F(DragTest, AStepOutOfRangeLeavesTheElementAtItsLastLegalPlace) {
  const DragResult result = Perform(ePD_None, {{5, 5}, {61, 0}});
  EXPECT_EQ(result.status, eCS_OutOfRAnge);
  EXPECT_EQ(result.after, (Descriptor{15, 25, 30, 10}));
  EXPECT_EQ(At(4), result.after);
}

TEST_F(DragTest, AnElementReachesTheLastPixelsOfThePage) {
  EXPECT_EQ(Perform(ePD_None, {{60, 50}}).after, (Descriptor{70, 70, 30, 10}));
  EXPECT_EQ(Perform(ePD_None, {{1, 0}, {0, 1}}).status, eCS_OutOfRAnge);
  EXPECT_EQ(At(1), (Descriptor{70, 70, 30, 10}));
}

TEST_F(DragTest, AStretchMovesTheEdgeOfItsHandle) {
  EXPECT_EQ(Perform(ePD_Right, {{7, 3}}).after, (Descriptor{10, 20, 37, 10}));
}

TEST_F(DragTest, AStretchPastTheOtherEdgeFlips) {
  EXPECT_EQ(Perform(ePD_Right, {{-38, 0}}).after, (Descriptor{2, 20, 8, 10}));
}

TEST_F(DragTest, ADragWithoutLegalStepsChangesNothing) {
  const DragResult result = Perform(ePD_Right, {{-30, 0}});
  EXPECT_EQ(result.status, eCS_Overlap);
  EXPECT_EQ(result.after, result.before);
}

class GroupDragTest : public ::testing::Test {
 protected:
  GroupDragTest() : map_(FreeMap(100, 80)) {
    Place(*rectangle_, 10, 20, 30, 10);
    Place(*line_, 50, 35, -8, -20);
    AddMember(*inner_, line_);
    AddMember(*group_, rectangle_);
    AddMember(*group_, inner_);
  }
  static void Place(ItfHmiElement& element, Long xs, Long ys, Long dx, Long dy) {
    element.Xs(xs);
    element.Ys(ys);
    element.Dx(dx);
    element.Dy(dy);
  }

  const ElementRef rectangle_ = std::make_shared<clsRectangle>();
  const ElementRef line_ = std::make_shared<clsLine>();
  const std::shared_ptr<clsGroup> inner_ = std::make_shared<clsGroup>();
  const std::shared_ptr<clsGroup> group_ = std::make_shared<clsGroup>();
  automation::Variant map_;
};

TEST_F(GroupDragTest, AllMembersMoveAsOne) {
  const DragResult result = PerformDrag(*group_, {ePD_None, {{1, 1}, {5, -3}}}, map_);
  EXPECT_EQ(result.status, eCS_Legall);
  EXPECT_EQ(result.before, (Descriptor{10, 15, 40, 20}));
  EXPECT_EQ(result.after, (Descriptor{15, 12, 40, 20}));
  EXPECT_EQ(rectangle_->Xs(), 15);
  EXPECT_EQ(line_->Xs(), 55);
  EXPECT_EQ(line_->Ys(), 32);
}

TEST_F(GroupDragTest, OneMemberOutOfRangeHoldsAllAtTheirLastLegalPlaces) {
  const DragResult result = PerformDrag(*group_, {ePD_None, {{40, 0}, {60, 0}}}, map_);
  EXPECT_EQ(result.status, eCS_OutOfRAnge);
  EXPECT_EQ(result.after, (Descriptor{50, 15, 40, 20}));
  EXPECT_EQ(rectangle_->Xs(), 50);
  EXPECT_EQ(line_->Xs(), 90);
}

TEST_F(GroupDragTest, TheBoxIsThatAroundAllMembersInAnyOrder) {
  const auto reversed = std::make_shared<clsGroup>();
  AddMember(*reversed, line_);
  AddMember(*reversed, rectangle_);
  EXPECT_EQ(PerformDrag(*reversed, {}, map_).before, (Descriptor{10, 15, 40, 20}));
  EXPECT_EQ(PerformDrag(*inner_, {}, map_).before, (Descriptor{42, 15, 8, 20}));
}

TEST_F(GroupDragTest, AGroupWithoutMembersHasNoPlace) {
  clsGroup empty;
  const DragResult result = PerformDrag(empty, {ePD_None, {{5, 5}}}, map_);
  EXPECT_EQ(result.status, eCS_Legall);
  EXPECT_EQ(result.before, Descriptor{});
  EXPECT_EQ(result.after, Descriptor{});
}

/// A bitmap of 4 by 2 pixels at (10, 20) whose picture can be made anew.
class BitmapDragTest : public DragTest {
 protected:
  BitmapDragTest() {
    bitmap_.Xs(10);
    bitmap_.Ys(20);
    bitmap_.Dx(4);
    bitmap_.Dy(2);
    FiledPicture picture;
    picture.hasPixels = true;
    picture.width = picture.height = 2;
    picture.pixels = {0, 8, 9, 96};
    TakePicture(bitmap_, picture, {});
  }
  DragResult Stretch(enPickUpDirection handle, std::vector<Drag::Step> steps) {
    return PerformDrag(bitmap_, {handle, std::move(steps)}, map_);
  }

  quenzel7::test::TemporaryFolder folder_;
  ProjectSession project_{folder_.File("p.qz7"), corvane1::ProjectMode::Create};
  clsBitmap bitmap_;
};

TEST_F(BitmapDragTest, TheLastStepMakesThePictureInItsNewSize) {
  const DragResult result = Stretch(ePD_DownRight, {{9, 9}, {4, 0}, {0, 2}});
  EXPECT_EQ(result.status, eCS_Legall);
  EXPECT_EQ(result.after, (Descriptor{10, 20, 4, 4}));
  EXPECT_EQ(PanelPixelsOf(bitmap_), (PixelBytes{0, 0, 8, 8, 0, 0, 8, 8, 9, 9, 96, 96, 9, 9, 96, 96}));
}

TEST_F(BitmapDragTest, ALastStepThatIsNotLegalLeavesPlaceAndPicture) {
  const PixelBytes before = PanelPixelsOf(bitmap_);
  const DragResult result = Stretch(ePD_Right, {{4, 0}, {500, 0}});
  EXPECT_EQ(result.status, eCS_OutOfRAnge);
  EXPECT_EQ(result.after, (Descriptor{10, 20, 4, 2}));
  EXPECT_EQ(PanelPixelsOf(bitmap_), before);
  EXPECT_EQ(before, (PixelBytes{0, 0, 8, 8, 9, 9, 96, 96}));
}

TEST_F(BitmapDragTest, AMoveIsJudgedAtEachStepAndKeepsThePicture) {
  const DragResult result = Stretch(ePD_None, {{5, 5}, {500, 0}});
  EXPECT_EQ(result.status, eCS_OutOfRAnge);
  EXPECT_EQ(result.after, (Descriptor{15, 25, 4, 2}));
  EXPECT_EQ(PanelPixelsOf(bitmap_).size(), 8u);
}

}  // namespace
}  // namespace quenzel7::cli
