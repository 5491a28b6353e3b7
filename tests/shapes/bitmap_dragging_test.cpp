/// Bitmaps that are dragged: their selection rectangle, and the size that their picture takes.
#include <gtest/gtest.h>

#include "platform/automation/array.h"
#include "shapes/bitmap.h"
#include "tests/support/logging_services.h"
#include "tests/support/picture_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::DescriptorOf;
using test::ErrorOf;
using Longs = std::vector<Long>;

/// A bitmap at (10, 20), 30 wide and 40 high, with a row.
class DraggedBitmap : public test::PictureTest<clsBitmap> {
 protected:
  void SetUp() override {
    PictureTest::SetUp();
    library_ = std::make_shared<test::LoggingImageLibrary>(Recorder());
    LibraryState::Current().ImageLibrary = library_;
    bitmap_ = WithPicture();
    bitmap_->Dx(30);
    bitmap_->Dy(40);
    bitmap_->ID(6);
    TakeLog();
  }
  void TearDown() override {
    bitmap_ = nullptr;
    PictureTest::TearDown();
  }

  Longs Bounds(Long dx, Long dy, Long direction) {
    const automation::Variant bounds = bitmap_->UpdateBoundingRectangle(dx, dy, direction);
    Longs edges;
    for (Long place = 0; place <= bounds.Elements().UpperBound(1); ++place) {
      edges.push_back(automation::To<Long>(bounds.Elements().At(place)));
    }
    return edges;
  }
  /// The size of the selection rectangle, which a stretch makes the picture as large as.
  std::string StretchedTo(Long dx, Long dy, Long direction) {
    TakeLog();
    bitmap_->Stretch(dx, dy, direction);
    const CallLog log = TakeLog();
    return log.size() < 2 ? "" : log.at(1);
  }
  /// The selection rectangle, which becomes the place of the element.
  Descriptor PlaceFromBounds() {
    bitmap_->GetSizeFromBoundingRect();
    for (Long location = 2; location <= 4; ++location) {
      EXPECT_EQ(DescriptorOf(*bitmap_, location), DescriptorOf(*bitmap_, 1)) << location;
    }
    return DescriptorOf(*bitmap_, 1);
  }

  std::shared_ptr<test::LoggingImageLibrary> library_;
  std::shared_ptr<clsBitmap> bitmap_;
};

TEST_F(DraggedBitmap, MovesItsBoundsToWhereItIsProposed) {
  bitmap_->Move(3, -4);
  EXPECT_EQ(DescriptorOf(*bitmap_, 3), (Descriptor{13, 16, 30, 40}));
  EXPECT_EQ(DescriptorOf(*bitmap_, 1), (Descriptor{10, 20, 30, 40}));
  EXPECT_EQ(PlaceFromBounds(), (Descriptor{13, 16, 30, 40}));
}

TEST_F(DraggedBitmap, MovesItsBoundsByItsSizeAtRest) {
  bitmap_->Stretch(5, 6, ePD_DownRight);
  bitmap_->UpdateBoundingRectangle(100, 100, ePD_DownRight);
  bitmap_->Move(0, 0);
  EXPECT_EQ(PlaceFromBounds(), (Descriptor{10, 20, 30, 40}));
}

TEST_F(DraggedBitmap, PutsItsBoundsWhereItIsShownLegally) {
  bitmap_->Stretch(5, 6, ePD_DownRight);
  bitmap_->SaveLastLegalPosition();
  bitmap_->Stretch(50, 60, ePD_DownRight);
  bitmap_->UpdateDisplayWithTransx();
  bitmap_->UpdateBoundingRectangle(100, 100, ePD_DownRight);
  bitmap_->UpdateDisplayWithLastLegal();
  EXPECT_EQ(DescriptorOf(*bitmap_, 4), (Descriptor{10, 20, 35, 46}));
  EXPECT_EQ(DescriptorOf(*bitmap_, 1), (Descriptor{10, 20, 30, 40}));
  EXPECT_EQ(PlaceFromBounds(), (Descriptor{10, 20, 35, 46}));
}

TEST_F(DraggedBitmap, ShowingWhatIsProposedLeavesTheBounds) {
  bitmap_->UpdateBoundingRectangle(7, 8, ePD_DownRight);
  bitmap_->Stretch(5, 6, ePD_DownRight);
  bitmap_->UpdateDisplayWithTransx();
  bitmap_->SaveLastLegalPosition();
  bitmap_->UpdateInitialDescriptor();
  EXPECT_EQ(PlaceFromBounds(), (Descriptor{10, 20, 37, 48}));
}

TEST_F(DraggedBitmap, MovesTheEdgesOfItsBoundsInAllEightDirections) {
  const struct {
    Long direction;
    Longs bounds;
  } kCases[] = {
      {ePD_UpRight, {10, 23, 42, 60}}, {ePD_Right, {10, 20, 42, 60}},    {ePD_DownRight, {10, 20, 42, 63}},
      {ePD_Down, {10, 20, 40, 63}},    {ePD_LeftDown, {12, 20, 40, 63}}, {ePD_Left, {12, 20, 40, 60}},
      {ePD_UpLeft, {12, 23, 40, 60}},  {ePD_Up, {10, 23, 40, 60}},       {ePD_None, {10, 20, 40, 60}},
      {9, {10, 20, 40, 60}},
  };
  for (const auto& [direction, bounds] : kCases) {
    // From the place at rest each time.
    EXPECT_EQ(Bounds(2, 3, direction), bounds) << direction;
    for (Long location = 1; location <= 4; ++location) {
      EXPECT_EQ(DescriptorOf(*bitmap_, location), (Descriptor{10, 20, 30, 40})) << direction;
    }
  }
  EXPECT_EQ(TakeLog(), CallLog{});
}

TEST_F(DraggedBitmap, FlipsItsBoundsWhereAnEdgeCrossesTheOther) {
  const struct {
    Long dx, dy, direction;
    Longs bounds;
  } kCases[] = {
      {-32, 43, ePD_UpRight, {8, 60, 10, 63}},    {-32, 0, ePD_Right, {8, 20, 10, 60}},
      {-32, -43, ePD_DownRight, {8, 17, 10, 20}}, {0, -43, ePD_Down, {10, 17, 40, 20}},
      {32, -43, ePD_LeftDown, {40, 17, 42, 20}},  {32, 0, ePD_Left, {40, 20, 42, 60}},
      {32, 43, ePD_UpLeft, {40, 60, 42, 63}},     {0, 43, ePD_Up, {10, 60, 40, 63}},
      {-30, 0, ePD_Right, {10, 20, 10, 60}},      {0, 40, ePD_Up, {10, 60, 40, 60}},
      {-29, 0, ePD_Right, {10, 20, 11, 60}},
  };
  for (const auto& [dx, dy, direction, bounds] : kCases) {
    EXPECT_EQ(Bounds(dx, dy, direction), bounds) << dx << ' ' << dy << ' ' << direction;
  }
}

TEST_F(DraggedBitmap, GivesItsBoundsAsLongs) {
  const automation::Variant bounds = bitmap_->UpdateBoundingRectangle(2, 3, ePD_DownRight);
  ASSERT_TRUE(bounds.IsArray());
  EXPECT_EQ(bounds.Elements().Dimensions(), 1);
  EXPECT_EQ(bounds.Elements().LowerBound(1), 0);
  EXPECT_EQ(bounds.Elements().UpperBound(1), 3);
  EXPECT_EQ(bounds.Elements().At(2), automation::Variant(Long{42}));
}

TEST_F(DraggedBitmap, TakesItsPlaceFromItsBounds) {
  bitmap_->UpdateBoundingRectangle(32, 43, ePD_UpLeft);
  EXPECT_EQ(PlaceFromBounds(), (Descriptor{40, 60, 2, 3}));
  // The bounds stay where they are.
  EXPECT_EQ(PlaceFromBounds(), (Descriptor{40, 60, 2, 3}));
  bitmap_->UpdateBoundingRectangle(0, 0, ePD_None);
  EXPECT_EQ(PlaceFromBounds(), (Descriptor{40, 60, 2, 3}));
}

TEST_F(DraggedBitmap, AStretchMakesThePictureAsLargeAsTheBounds) {
  bitmap_->UpdateBoundingRectangle(7, 9, ePD_DownRight);
  TakeLog();
  bitmap_->Stretch(5, 6, ePD_DownRight);
  EXPECT_EQ(TakeLog(), (CallLog{"mode pumps\\one.bmp", "load pumps\\one.bmp 402 37x49",
                                "to8 by 7 37x49 as 37x49", "from8 [8 9] as 37x49", "element 6"}));
  EXPECT_EQ(DescriptorOf(*bitmap_, 3), (Descriptor{10, 20, 35, 46}));
  EXPECT_EQ(static_cast<ItfImage&>(*bitmap_).Dx(), 37);
  EXPECT_EQ(static_cast<ItfImage&>(*bitmap_).Dy(), 49);
  EXPECT_EQ(bitmap_->Dx(), 30);
  EXPECT_EQ(Frame().Pointers(), (std::deque<Long>{11, 0}));
}

TEST_F(DraggedBitmap, TheSizeOfTheBoundsIsFromEdgeToEdge) {
  bitmap_->UpdateBoundingRectangle(32, 43, ePD_UpLeft);
  EXPECT_EQ(StretchedTo(0, 0, ePD_Right), "load pumps\\one.bmp 402 2x3");
}

TEST_F(DraggedBitmap, AStretchToASizeOf1FallsBackAndHasThePictureMadeAllTheSame) {
  bitmap_->Stretch(5, 6, ePD_DownRight);
  bitmap_->SaveLastLegalPosition();
  bitmap_->UpdateBoundingRectangle(7, 9, ePD_DownRight);
  for (const Long dx : {-29, -31}) {
    library_->loadStatus = 5;
    EXPECT_EQ(StretchedTo(dx, 0, ePD_Right), "load pumps\\one.bmp 402 37x49");
    EXPECT_EQ(DescriptorOf(*bitmap_, 3), (Descriptor{10, 20, 35, 46}));
  }
  StretchedTo(0, -39, ePD_Down);
  EXPECT_EQ(DescriptorOf(*bitmap_, 3), (Descriptor{10, 20, 35, 46}));
  StretchedTo(-28, 0, ePD_Right);
  EXPECT_EQ(DescriptorOf(*bitmap_, 3), (Descriptor{10, 20, 2, 40}));
}

TEST_F(DraggedBitmap, IsToldOfAfterAStretchToTheSizeOfItsPicture) {
  bitmap_->UpdateBoundingRectangle(-27, -38, ePD_DownRight);
  TakeLog();
  bitmap_->Stretch(1, 1, ePD_DownRight);
  EXPECT_EQ(TakeLog(), (CallLog{"mode pumps\\one.bmp", "element 6"}));
}

TEST_F(DraggedBitmap, BeyondThePanelOverflows) {
  EXPECT_EQ(ErrorOf([&] { bitmap_->Move(2147483647 - 30, 0); }), 6);
  EXPECT_EQ(ErrorOf([&] { bitmap_->Move(0, 2147483647 - 40); }), 6);
  EXPECT_EQ(ErrorOf([&] { bitmap_->Move(2147483647 - 40, 2147483647 - 60); }), 0);
  EXPECT_EQ(ErrorOf([&] { bitmap_->UpdateBoundingRectangle(2147483647, 0, ePD_Right); }), 6);
}

}  // namespace
}  // namespace quenzel7
