#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"
#include "platform/gdi/surface.h"
#include "tests/platform/automation/allocation_watch.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

struct Drawing {
  std::string name;
  std::function<void(HDC)> draw;
};

const std::array<POINT, 4> kCorners{{{5, 5}, {60, 20}, {30, 70}, {5, 40}}};

std::vector<Drawing> Drawings() {
  return {{"FillRect",
           [](HDC dc) {
             const RECT box{3, 4, 50, 60};
             FillRect(dc, &box, GetCurrentObject(dc, OBJ_BRUSH));
           }},
          {"Rectangle", [](HDC dc) { Rectangle(dc, 3, 4, 50, 60); }},
          {"Ellipse", [](HDC dc) { Ellipse(dc, 3, 4, 50, 60); }},
          {"RoundRect", [](HDC dc) { RoundRect(dc, 3, 4, 50, 60, 20, 16); }},
          {"LineTo",
           [](HDC dc) {
             MoveToEx(dc, 3, 4, nullptr);
             LineTo(dc, 50, 20);
           }},
          {"AngleArc", [](HDC dc) { AngleArc(dc, 40, 40, 30, 20, 200); }},
          {"AngleArc in chords", [](HDC dc) { AngleArc(dc, 40, 5040, 5000, 85, 10); }},
          {"Polyline", [](HDC dc) { Polyline(dc, kCorners.data(), 4); }},
          {"StrokeAndFillPath",
           [](HDC dc) {
             BeginPath(dc);
             MoveToEx(dc, 70, 70, nullptr);
             LineTo(dc, 10, 30);
             Polyline(dc, kCorners.data(), 4);
             EndPath(dc);
             StrokeAndFillPath(dc);
           }},
          {"PatBlt", [](HDC dc) { PatBlt(dc, 3, 4, 50, 60, PATINVERT); }},
          {"BitBlt", [](HDC dc) { BitBlt(dc, 3, 4, 50, 60, dc, 7, 8, SRCPAINT); }}};
}

void DrawWith(HDC dc, const LOGPEN& pen, const LOGBRUSH& brush, const Drawing& drawing) {
  const SelectedPen selectedPen(dc, CreatePenIndirect(&pen));
  const SelectedBrush selectedBrush(dc, CreateBrushIndirect(&brush));
  drawing.draw(dc);
}

// The first drawing may take memory that is kept; those after it take none.
TEST(Drawing, OfCommonShapesWithPensAndBrushesOfTheirOwnAllocatesNothing) {
  const Surface surface = White(80, 80);
  for (const Drawing& drawing : Drawings()) {
    for (const std::uint32_t style : {BS_SOLID, BS_NULL, BS_HATCHED}) {
      for (const LOGPEN& pen : {LOGPEN{PS_SOLID, {1, 0}, kRed}, LOGPEN{PS_SOLID, {5, 0}, kRed},
                                LOGPEN{PS_INSIDEFRAME, {4, 0}, kRed}, LOGPEN{PS_NULL, {1, 0}, kRed}}) {
        const LOGBRUSH brush{style, kBlue, HS_CROSS};
        DrawWith(surface.Dc(), pen, brush, drawing);
        const automation::AllocationWatch watch;
        DrawWith(surface.Dc(), pen, brush, drawing);
        EXPECT_EQ(watch.Count(), 0u) << drawing.name << " brush " << style << " pen " << pen.lopnStyle << " "
                                     << pen.lopnWidth.x;
      }
    }
  }
}

TEST(Drawing, OfDashedLinesAndRoundedBordersAllocatesNothing) {
  const Surface surface = White(80, 80);
  for (const Drawing& drawing : Drawings()) {
    const LOGPEN pen{PS_DASHDOT, {1, 0}, kRed};
    const LOGBRUSH brush{BS_SOLID, kBlue, 0};
    DrawWith(surface.Dc(), pen, brush, drawing);
    const automation::AllocationWatch watch;
    DrawWith(surface.Dc(), pen, brush, drawing);
    EXPECT_EQ(watch.Count(), 0u) << drawing.name;
  }
}

TEST(AllocationWatch, SeesWhatDrawingAllocates) {
  const automation::AllocationWatch watch;
  const HBITMAP bitmap = CreateBitmap(10, 10, 1, 32, nullptr);
  EXPECT_GE(watch.Count(), 1u);
  DeleteObject(bitmap);
}

}  // namespace
}  // namespace quenzel7::gdi
