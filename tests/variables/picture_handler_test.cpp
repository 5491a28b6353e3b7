#include "variables/picture_handler.h"

#include <gtest/gtest.h>

#include "framework/bitmap_size.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"
#include "platform/gdi/surface.h"
#include "tests/support/raises.h"
#include "tests/support/shape_fixture.h"
#include "variables/graphs/bargraph.h"

namespace quenzel7 {
namespace {

using test::ErrorOf;
using Calls = std::vector<std::string>;
using PictureHandlers = test::ShapeTest<clsVarBargraph>;
using PictureCanvases = test::ShapeTest<PictureCanvas>;

TEST_F(PictureHandlers, HaveABitmapElementOfTheirOwnWithoutAPicture) {
  clsVarBargraph one;
  const clsVarBargraph other;
  ASSERT_NE(one.DrawingElement(), nullptr);
  EXPECT_NE(one.DrawingElement(), other.DrawingElement());
  EXPECT_EQ(one.DrawingElement()->hBmp(), 0);
  EXPECT_EQ(one.DrawingElement()->ImageCRC(), -1);
  EXPECT_EQ(static_cast<ItfVarBinaryHandler&>(one).DrawingElement(), one.DrawingElement());
}

TEST_F(PictureHandlers, ReleaseTheElementAndTheBags) {
  clsVarBargraph handler;
  const std::weak_ptr<clsBitmap> element = handler.DrawingElement();
  handler.ReleaseResources();
  EXPECT_TRUE(element.expired());
  EXPECT_EQ(handler.DrawingElement(), nullptr);
  EXPECT_EQ(static_cast<ItfVarBinaryHandler&>(handler).DrawingElement(), nullptr);
  EXPECT_EQ(handler.ColOpPropBag(), nullptr);
  EXPECT_EQ(ErrorOf([&] { handler.GetBinaryDataForCRC(); }), 91);
}

TEST_F(PictureCanvases, AreABitmapInAContextThatFitsTheGivenOne) {
  const gdi::Surface paper(4, 4);
  const std::size_t before = gdi::LiveObjects();
  gdi::Recorder recorder;
  {
    const PictureCanvas canvas(paper.Dc(), 9, 5);
    EXPECT_EQ(recorder.NameOf(canvas.Dc()), "dc:2");
    EXPECT_EQ(gdi::LiveObjects(), before + 2);
  }
  EXPECT_EQ(recorder.Take(),
            (Calls{"CreateCompatibleDC(dc:1) -> dc:2", "CreateCompatibleBitmap(dc:1, 9, 5) -> bitmap:1",
                   "SelectObject(dc:2, bitmap:1)", "DeleteDC(dc:2)", "DeleteObject(bitmap:1)"}));
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(PictureCanvases, GiveTheirPictureToAnElementAsAPaintedOne) {
  const gdi::Surface paper(4, 4);
  const std::size_t before = gdi::LiveObjects();
  {
    clsBitmap element;
    {
      PictureCanvas canvas(paper.Dc(), 9, 5);
      canvas.ShowIn(element);
    }
    EXPECT_EQ(element.ImageCRC(), 0x3F3F3F3F);
    EXPECT_EQ(gdi::LiveObjects(), before + 1);
    const BitmapSize size = BitmapSizeOf(element.hBmp());
    EXPECT_EQ(size.w, 9);
    EXPECT_EQ(size.h, 5);
    EXPECT_EQ(size.bits, 32);
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
}

}  // namespace
}  // namespace quenzel7
