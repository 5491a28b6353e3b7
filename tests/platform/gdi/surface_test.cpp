#include "platform/gdi/surface.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "platform/gdi/selected.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

TEST(Surface, OwnsAContextAndABitmap) {
  const std::size_t before = LiveObjects();
  {
    const Surface surface(3, 2);
    EXPECT_EQ(LiveObjects(), before + 2);
    EXPECT_EQ(GetCurrentObject(surface.Dc(), OBJ_BITMAP), surface.BitmapHandle());
    EXPECT_EQ(surface.Width(), 3);
    EXPECT_EQ(surface.Height(), 2);
    EXPECT_EQ(surface.BitsPerPixel(), 32);
  }
  EXPECT_EQ(LiveObjects(), before);
}

TEST(Surface, PixelsAreWordsOfRedGreenBlueRowByRow) {
  Surface surface(3, 2);
  surface.Set(1, 1, 0x0000FF);
  ASSERT_EQ(surface.Pixels().size(), 6u);
  EXPECT_EQ(surface.Stride(), 3);
  EXPECT_EQ(surface.Pixels()[4], 0xFF0000u);
  surface.Pixels()[0] = 0x112233;
  EXPECT_EQ(surface.At(0, 0), 0x332211u);
  EXPECT_EQ(GetPixel(surface.Dc(), 0, 0), 0x332211u);
}

TEST(Surface, OfOneBitHasNoWords) {
  Surface surface(3, 2, 1);
  EXPECT_TRUE(surface.Pixels().empty());
  EXPECT_EQ(surface.BitsPerPixel(), 1);
  surface.Set(0, 0, 0x000001);
  EXPECT_EQ(surface.At(0, 0), 0xFFFFFFu);
  EXPECT_EQ(surface.At(1, 0), 0u);
}

TEST(Surface, OutsideIsInvalidAndCannotBeSet) {
  Surface surface(2, 2);
  surface.Set(2, 0, kRed);
  surface.Set(0, -1, kRed);
  EXPECT_EQ(surface.At(2, 0), CLR_INVALID);
  EXPECT_EQ(surface.At(0, -1), CLR_INVALID);
  EXPECT_EQ(Colors(surface), std::vector<COLORREF>(4, 0));
}

TEST(Surface, ClearSetsAllPixels) {
  Surface surface(2, 2);
  surface.Clear(kBlue);
  EXPECT_EQ(Colors(surface), std::vector<COLORREF>(4, kBlue));
}

TEST(Surface, SeesItsOwnBitmapWhateverIsSelected) {
  Surface surface = White(2, 2);
  const SelectedBitmap other(surface.Dc(), CreateBitmap(2, 2, 1, 32, nullptr));
  PatBlt(surface.Dc(), 0, 0, 2, 2, BLACKNESS);
  EXPECT_EQ(Colors(surface), std::vector<COLORREF>(4, kWhite));
}

TEST(Surface, CanBeMoved) {
  const std::size_t before = LiveObjects();
  {
    Surface first = White(2, 2);
    const HDC dc = first.Dc();
    Surface second(std::move(first));
    EXPECT_EQ(second.Dc(), dc);
    EXPECT_EQ(second.At(1, 1), kWhite);
    Surface third(5, 6, 1);
    third = std::move(second);
    EXPECT_EQ(third.Dc(), dc);
    EXPECT_EQ(third.Width(), 2);
    EXPECT_EQ(third.Height(), 2);
    EXPECT_EQ(third.BitsPerPixel(), 32);
    EXPECT_EQ(LiveObjects(), before + 2);
  }
  EXPECT_EQ(LiveObjects(), before);
}

TEST(Surface, RefusesMeasuresAndDepthsThatCannotBe) {
  const std::size_t before = LiveObjects();
  EXPECT_THROW(Surface(0, 5), std::invalid_argument);
  EXPECT_THROW(Surface(5, 0), std::invalid_argument);
  EXPECT_THROW(Surface(-1, 5), std::invalid_argument);
  EXPECT_THROW(Surface(5, 5, 8), std::invalid_argument);
  EXPECT_THROW(Surface(std::numeric_limits<int>::max(), 2), std::invalid_argument);
  try {
    Surface(5, 4, 24);
    FAIL();
  } catch (const std::invalid_argument& error) {
    EXPECT_STREQ(error.what(),
                 "no surface of 5 x 4 at 24 bits a pixel; measures must be positive, bits 1 or 32");
  }
  EXPECT_EQ(LiveObjects(), before);
}

}  // namespace
}  // namespace quenzel7::gdi
