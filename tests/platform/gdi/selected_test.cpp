#include "platform/gdi/selected.h"

#include <gtest/gtest.h>

#include "platform/gdi/recorder.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

TEST(Selected, SelectsAndAtTheEndRestoresAndDeletes) {
  const Surface surface(2, 2);
  const std::size_t before = LiveObjects();
  {
    const SelectedPen pen(surface.Dc(), MakePen(PS_DOT, 1, kRed));
    const SelectedBrush brush(surface.Dc(), CreateSolidBrush(kBlue));
    EXPECT_EQ(GetCurrentObject(surface.Dc(), OBJ_PEN), pen.Get());
    EXPECT_EQ(GetCurrentObject(surface.Dc(), OBJ_BRUSH), brush.Get());
    EXPECT_EQ(LiveObjects(), before + 2);
  }
  EXPECT_EQ(GetCurrentObject(surface.Dc(), OBJ_PEN), GetStockObject(BLACK_PEN));
  EXPECT_EQ(GetCurrentObject(surface.Dc(), OBJ_BRUSH), GetStockObject(WHITE_BRUSH));
  EXPECT_EQ(LiveObjects(), before);
}

TEST(Selected, PutsBackWhatWasSelectedAndThenDeletes) {
  const Surface surface(2, 2);
  Recorder recorder;
  { const SelectedBrush brush(surface.Dc(), CreateSolidBrush(kRed)); }
  EXPECT_EQ(recorder.Calls(),
            (std::vector<std::string>{"CreateSolidBrush(0x0000ff) -> brush:1", "SelectObject(dc:1, brush:1)",
                                      "SelectObject(dc:1, stock:0)", "DeleteObject(brush:1)"}));
}

TEST(Selected, NestsInTheOrderOfScopes) {
  const Surface surface(2, 2);
  const SelectedPen outer(surface.Dc(), MakePen(PS_SOLID, 1, kRed));
  { const SelectedPen inner(surface.Dc(), MakePen(PS_SOLID, 1, kBlue)); }
  EXPECT_EQ(GetCurrentObject(surface.Dc(), OBJ_PEN), outer.Get());
}

TEST(Selected, KeepsTheContextWhenNothingCouldBeMade) {
  const Surface surface(2, 2);
  const std::size_t before = LiveObjects();
  {
    const SelectedBrush brush(surface.Dc(), CreateHatchBrush(99, kRed));
    EXPECT_EQ(brush.Get(), 0);
    EXPECT_EQ(GetCurrentObject(surface.Dc(), OBJ_BRUSH), GetStockObject(WHITE_BRUSH));
  }
  EXPECT_EQ(GetCurrentObject(surface.Dc(), OBJ_BRUSH), GetStockObject(WHITE_BRUSH));
  EXPECT_EQ(LiveObjects(), before);
}

TEST(Selected, DeletesWhatAWrongContextDidNotTake) {
  const std::size_t before = LiveObjects();
  { const SelectedPen pen(0, MakePen(PS_SOLID, 1, kRed)); }
  EXPECT_EQ(LiveObjects(), before);
}

TEST(Selected, WorksForFonts) {
  const Surface surface(2, 2);
  const std::size_t before = LiveObjects();
  {
    const LOGFONT logFont{};
    const SelectedFont font(surface.Dc(), CreateFontIndirectA(&logFont));
    EXPECT_EQ(GetCurrentObject(surface.Dc(), OBJ_FONT), font.Get());
  }
  EXPECT_EQ(GetCurrentObject(surface.Dc(), OBJ_FONT), GetStockObject(SYSTEM_FONT));
  EXPECT_EQ(LiveObjects(), before);
}

TEST(Selected, WorksForBitmaps) {
  const std::size_t before = LiveObjects();
  const HDC dc = CreateCompatibleDC(0);
  {
    const SelectedBitmap bitmap(dc, CreateBitmap(3, 3, 1, 32, nullptr));
    EXPECT_EQ(GetCurrentObject(dc, OBJ_BITMAP), bitmap.Get());
  }
  DeleteDC(dc);
  EXPECT_EQ(LiveObjects(), before);
}

}  // namespace
}  // namespace quenzel7::gdi
