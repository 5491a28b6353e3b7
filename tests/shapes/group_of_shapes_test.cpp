/// Groups of real shapes, in groups: painted, hit, judged and dragged as one.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/automation/array.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"
#include "platform/gdi/surface.h"
#include "platform/platform.h"
#include "shapes/ellipse.h"
#include "shapes/group.h"
#include "shapes/line.h"
#include "shapes/rectangle.h"
#include "tests/platform/gdi/picture.h"
#include "tests/support/element_double.h"
#include "tests/support/placed_shape.h"

namespace quenzel7 {
namespace {

using automation::Array;
using automation::Bounds;
using automation::Variant;
using automation::VariantKind;
using test::GroupOf;

/// Colours by number: 1 black, 2 red, 3 green, 4 blue, others white.
class FewColors final : public corvane1::ColorService {
 public:
  std::uint32_t GetColor(Long colorNumber) override {
    switch (colorNumber) {
      case 1:
        return gdi::kBlack;
      case 2:
        return gdi::kRed;
      case 3:
        return gdi::kGreen;
      case 4:
        return gdi::kBlue;
      default:
        return gdi::kWhite;
    }
  }
};

class GroupOfShapes : public ::testing::Test {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    Platform::Current().colorService = std::make_shared<FewColors>();
    rectangle_ = Placed<clsRectangle>(1, 1, 5, 3, 1);
    line_ = Placed<clsLine>(2, 2, 3, 0, 2);
    ellipse_ = Placed<clsEllipse>(7, 0, 5, 5, 3);
    inner_ = GroupOf({line_});
    middle_ = GroupOf({inner_, ellipse_});
    group_ = GroupOf({rectangle_, middle_});
  }

  void TearDown() override { Platform::Current() = Platform(); }

  template <class Shape>
  static std::shared_ptr<Shape> Placed(Long xs, Long ys, Long dx, Long dy, Long color) {
    auto shape = test::Placed<Shape>(xs, ys, dx, dy);
    shape->ColorFore(color);
    return shape;
  }

  static std::vector<std::string> PictureOf(ItfHmiElement& element) {
    const gdi::Surface surface = gdi::White(16, 8);
    const std::size_t before = gdi::LiveObjects();
    element.Draw(surface.Dc(), false);
    EXPECT_EQ(gdi::LiveObjects(), before);
    return gdi::Rows(surface);
  }

  /// One step of a drag as hosts make it; whether the place was legal.
  bool DragTo(Long dx, Long dy) {
    group_->Move(dx, dy);
    const bool legal = group_->GetTransformState(map_) == eCS_Legall;
    if (legal) {
      group_->SaveLastLegalPosition();
      group_->UpdateDisplayWithTransx();
    } else {
      group_->UpdateDisplayWithLastLegal();
    }
    return legal;
  }

  /// The corners of the three shapes at one descriptor.
  std::vector<Long> Corners(Long location) const {
    std::vector<Long> corners;
    for (const ElementRef& shape : std::initializer_list<ElementRef>{rectangle_, line_, ellipse_}) {
      Long xs = 0, ys = 0, dx = 0, dy = 0;
      shape->GetBoundingRect(xs, ys, dx, dy, location);
      corners.push_back(xs);
      corners.push_back(ys);
    }
    return corners;
  }

  std::shared_ptr<clsRectangle> rectangle_;
  std::shared_ptr<clsLine> line_;
  std::shared_ptr<clsEllipse> ellipse_;
  std::shared_ptr<clsGroup> inner_, middle_, group_;
  /// A page of 15 by 7 pixels.
  Variant map_ = Array(VariantKind::Byte, Bounds{0, 15}, Bounds{0, 7});
};

TEST_F(GroupOfShapes, PaintsAllItsShapesThroughMemberGroups) {
  const std::vector<std::string> expected = {
      "........ggg.....",  //
      ".#####.g...g....",  //
      ".#rrr#.g...g....",  //
      ".#####.g...g....",  //
      "........ggg.....",  //
      "................",  //
      "................",  //
      "................",
  };
  EXPECT_EQ(PictureOf(*group_), expected);
}

TEST_F(GroupOfShapes, AreDraggedAsOne) {
  group_->SaveInitialPosition();
  EXPECT_TRUE(DragTo(2, 1));
  EXPECT_EQ(Corners(4), (std::vector<Long>{3, 2, 4, 3, 9, 1}));
  // The ellipse alone leaves the page; all stay at the last legal place.
  EXPECT_FALSE(DragTo(4, 1));
  EXPECT_EQ(Corners(3), (std::vector<Long>{5, 2, 6, 3, 11, 1}));
  EXPECT_EQ(Corners(4), (std::vector<Long>{3, 2, 4, 3, 9, 1}));
  // Back again, to the limits of the page.
  EXPECT_TRUE(DragTo(3, 2));
  group_->UpdateInitialDescriptor();
  for (const Long location : {1, 2, 3, 4}) {
    EXPECT_EQ(Corners(location), (std::vector<Long>{4, 3, 5, 4, 10, 2})) << location;
  }
  const std::vector<std::string> expected = {
      "................",  //
      "................",  //
      "...........ggg..",  //
      "....#####.g...g.",  //
      "....#rrr#.g...g.",  //
      "....#####.g...g.",  //
      "...........ggg..",  //
      "................",
  };
  EXPECT_EQ(PictureOf(*group_), expected);
}

TEST_F(GroupOfShapes, AShapeWithoutWidthOverlapsUnlessAnotherIsOutOfRange) {
  ellipse_->Dx(0);
  group_->Move(0, 0);
  EXPECT_EQ(group_->GetTransformState(map_), eCS_Overlap);
  group_->Move(-2, 0);
  EXPECT_EQ(group_->GetTransformState(map_), eCS_OutOfRAnge);
}

TEST_F(GroupOfShapes, AreHitWhereOneOfThemIs) {
  const auto hit = [&](Long x, Long y) {
    return rectangle_->HitTestByPoint(x, y) || line_->HitTestByPoint(x, y) || ellipse_->HitTestByPoint(x, y);
  };
  int hits = 0;
  for (Long y = -2; y < 10; ++y) {
    for (Long x = -2; x < 16; ++x) {
      EXPECT_EQ(group_->HitTestByPoint(x, y), hit(x, y)) << x << ", " << y;
      hits += hit(x, y);
    }
  }
  EXPECT_GT(hits, 20);
  EXPECT_TRUE(group_->HitTestByRect(8, 1, 2, 2));
  EXPECT_FALSE(group_->HitTestByRect(0, 6, 15, 1));
}

TEST_F(GroupOfShapes, AReplicaIsPaintedAndMovedOnItsOwn) {
  const auto before = PictureOf(*group_);
  const auto copy = group_->Replica();
  EXPECT_EQ(PictureOf(*copy), before);
  copy->Move(1, 1);
  copy->UpdateDisplayWithTransx();
  EXPECT_NE(PictureOf(*copy), before);
  EXPECT_EQ(PictureOf(*group_), before);
}

TEST_F(GroupOfShapes, LeavesTheContextAsItWas) {
  const gdi::Surface surface = gdi::White(16, 8);
  const auto pen = gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_PEN);
  const auto brush = gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_BRUSH);
  group_->Draw(surface.Dc(), false);
  group_->DrawToPrinter(surface.Dc(), "alias");
  group_->DrawNonVarsInGroup(surface.Dc(), false);
  EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_PEN), pen);
  EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_BRUSH), brush);
}

TEST_F(GroupOfShapes, OnPaperAndInTheLayerOfShapesLookAsOnThePage) {
  const auto expected = PictureOf(*group_);
  const gdi::Surface printed = gdi::White(16, 8), layered = gdi::White(16, 8), empty = gdi::White(16, 8);
  group_->DrawToPrinter(printed.Dc(), "alias");
  EXPECT_EQ(gdi::Rows(printed), expected);
  group_->DrawNonVarsInGroup(layered.Dc(), false);
  EXPECT_EQ(gdi::Rows(layered), expected);
  gdi::Recorder recorder;
  group_->DrawFramesInGroup(empty.Dc(), false);
  group_->DrawTransparentFramesInGroup(empty.Dc());
  group_->DrawVarsInGroup(empty.Dc(), false);
  EXPECT_TRUE(recorder.Calls().empty());
}

}  // namespace
}  // namespace quenzel7
