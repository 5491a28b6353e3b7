#include <gtest/gtest.h>

#include <array>

#include "platform/gdi/selected.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

using Text = std::vector<std::string>;

/// A white surface whose black pen and red brush draw what is asked, as a path.
template <typename Draw>
Text Painted(int width, int height, BOOL (*paint)(HDC), Draw&& draw) {
  const Surface surface = White(width, height);
  const SelectedBrush brush(surface.Dc(), CreateSolidBrush(kRed));
  EXPECT_EQ(BeginPath(surface.Dc()), 1);
  draw(surface.Dc());
  EXPECT_EQ(Rows(surface),
            Text(static_cast<std::size_t>(height), std::string(static_cast<std::size_t>(width), '.')));
  EXPECT_EQ(EndPath(surface.Dc()), 1);
  EXPECT_EQ(paint(surface.Dc()), 1);
  return Rows(surface);
}

void Angle(HDC dc) {
  MoveToEx(dc, 1, 1, nullptr);
  LineTo(dc, 5, 1);
  LineTo(dc, 5, 4);
}

TEST(StrokePath, PaintsLinesAndLeavesOpenFiguresOpen) {
  EXPECT_EQ(Painted(7, 6, StrokePath, Angle),
            (Text{".......", ".#####.", ".....#.", ".....#.", ".......", "......."}));
}

TEST(StrokeAndFillPath, ClosesAndFillsThenPaintsTheLines) {
  EXPECT_EQ(Painted(7, 6, StrokeAndFillPath, Angle),
            (Text{".......", ".#####.", "..##r#.", "....##.", ".....#.", "......."}));
}

TEST(StrokeAndFillPath, LeavesOutWhatAnEvenNumberOfFiguresGoesAround) {
  EXPECT_EQ(Painted(9, 9, StrokeAndFillPath,
                    [](HDC dc) {
                      Rectangle(dc, 0, 0, 9, 9);
                      Rectangle(dc, 3, 3, 6, 6);
                    }),
            (Text{"#########", "#rrrrrrr#", "#rrrrrrr#", "#rr###rr#", "#rr#.#rr#", "#rr###rr#", "#rrrrrrr#",
                  "#rrrrrrr#", "#########"}));
}

TEST(StrokeAndFillPath, WithoutPenOnlyFills) {
  const Surface surface = White(6, 5);
  SelectObject(surface.Dc(), GetStockObject(NULL_PEN));
  SelectObject(surface.Dc(), GetStockObject(BLACK_BRUSH));
  BeginPath(surface.Dc());
  Rectangle(surface.Dc(), 1, 1, 6, 5);
  EndPath(surface.Dc());
  EXPECT_EQ(StrokeAndFillPath(surface.Dc()), 1);
  // The outline runs through the pixels (1, 1) and (5, 4); its right and bottom edges are out.
  EXPECT_EQ(Rows(surface), (Text{"......", ".####.", ".####.", ".####.", "......"}));
}

TEST(StrokeAndFillPath, WithoutBrushOnlyPaintsTheLines) {
  const Surface surface = White(5, 4);
  SelectObject(surface.Dc(), GetStockObject(NULL_BRUSH));
  BeginPath(surface.Dc());
  Rectangle(surface.Dc(), 0, 0, 5, 4);
  EndPath(surface.Dc());
  StrokeAndFillPath(surface.Dc());
  EXPECT_EQ(Rows(surface), (Text{"#####", "#...#", "#...#", "#####"}));
}

TEST(StrokeAndFillPath, OfFiguresIsAsTheFiguresThemselves) {
  const auto draw = [](HDC dc) {
    Ellipse(dc, 1, 1, 20, 16);
    RoundRect(dc, 22, 1, 39, 16, 7, 9);
    Rectangle(dc, 41, 1, 49, 16);
  };
  const Surface direct = White(50, 18);
  const SelectedBrush brush(direct.Dc(), CreateSolidBrush(kRed));
  draw(direct.Dc());
  EXPECT_EQ(Painted(50, 18, StrokeAndFillPath, draw), Rows(direct));
}

TEST(StrokePath, TakesPolylinesAsFiguresOfTheirOwn) {
  EXPECT_EQ(Painted(8, 4, StrokePath,
                    [](HDC dc) {
                      const std::array<POINT, 2> points{{{1, 2}, {4, 2}}};
                      MoveToEx(dc, 1, 0, nullptr);
                      LineTo(dc, 3, 0);
                      EXPECT_EQ(Polyline(dc, points.data(), 2), 1);
                      LineTo(dc, 5, 0);
                    }),
            (Text{".####...", "........", ".###....", "........"}));
}

TEST(StrokePath, TakesArcsWithTheLineToTheirStart) {
  const auto draw = [](HDC dc) {
    MoveToEx(dc, 10, 10, nullptr);
    AngleArc(dc, 10, 10, 7, 0, 90);
    LineTo(dc, 10, 10);
  };
  const Surface direct = White(20, 20);
  draw(direct.Dc());
  EXPECT_EQ(Painted(20, 20, StrokePath, draw), Rows(direct));
}

TEST(StrokePath, StrokesWithWidePens) {
  const Surface surface = White(9, 5);
  const LOGBRUSH solid{BS_SOLID, kBlue, 0};
  const SelectedPen pen(surface.Dc(), ExtCreatePen(0x11206, 2, &solid, 0, nullptr));
  BeginPath(surface.Dc());
  MoveToEx(surface.Dc(), 1, 2, nullptr);
  LineTo(surface.Dc(), 7, 2);
  EndPath(surface.Dc());
  StrokePath(surface.Dc());
  EXPECT_EQ(Rows(surface), (Text{".........", ".bbbbbb..", ".bbbbbb..", ".........", "........."}));
}

TEST(Paths, KeepThePenPositionGoing) {
  const Surface surface = White(9, 9);
  BeginPath(surface.Dc());
  MoveToEx(surface.Dc(), 1, 2, nullptr);
  LineTo(surface.Dc(), 5, 6);
  EndPath(surface.Dc());
  StrokeAndFillPath(surface.Dc());
  POINT position{};
  MoveToEx(surface.Dc(), 0, 0, &position);
  EXPECT_EQ(position.x, 5);
  EXPECT_EQ(position.y, 6);
}

TEST(Paths, AreGoneOncePainted) {
  const Surface surface(5, 5);
  EXPECT_EQ(EndPath(surface.Dc()), 0);
  EXPECT_EQ(StrokePath(surface.Dc()), 0);
  EXPECT_EQ(StrokeAndFillPath(surface.Dc()), 0);
  BeginPath(surface.Dc());
  EXPECT_EQ(StrokePath(surface.Dc()), 0);
  EXPECT_EQ(StrokeAndFillPath(surface.Dc()), 0);
  EXPECT_EQ(EndPath(surface.Dc()), 1);
  EXPECT_EQ(EndPath(surface.Dc()), 0);
  EXPECT_EQ(StrokePath(surface.Dc()), 1);
  EXPECT_EQ(StrokePath(surface.Dc()), 0);
}

TEST(Paths, FailWithoutContext) {
  EXPECT_EQ(BeginPath(0), 0);
  EXPECT_EQ(EndPath(77), 0);
  EXPECT_EQ(StrokePath(0), 0);
  EXPECT_EQ(StrokeAndFillPath(GetStockObject(BLACK_PEN)), 0);
}

TEST(Paths, DrawAgainAfterTheEnd) {
  const Surface surface = White(4, 1);
  BeginPath(surface.Dc());
  EndPath(surface.Dc());
  MoveToEx(surface.Dc(), 0, 0, nullptr);
  LineTo(surface.Dc(), 2, 0);
  EXPECT_EQ(Rows(surface), (Text{"##.."}));
}

}  // namespace
}  // namespace quenzel7::gdi
