#include "platform/gdi/pen_painter.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace quenzel7::gdi {
namespace {

class Canvas {
 public:
  Canvas(int width, int height, const Pen& pen) {
    context_.bitmap = &bitmap_;
    bitmap_ = Bitmap(width, height, 32);
    context_.pen = pen;
    context_.background = '-';
  }

  Context& Get() { return context_; }
  std::string Row(int y) const {
    std::string row;
    for (int x = 0; x < bitmap_.Width(); ++x)
      row += bitmap_.At(x, y) == 0 ? '.' : static_cast<char>(bitmap_.At(x, y));
    return row;
  }

 private:
  Bitmap bitmap_{1, 1, 32};
  Context context_;
};

TEST(PenPainter, DashesGoOnFromLineToLineAlsoOutside) {
  Canvas canvas(12, 2, Pen{PS_DOT, 1, '#', false});
  PenPainter painter(canvas.Get());
  const std::array<POINT, 3> points{{{-4, 0}, {4, 0}, {4, 2}}};
  painter.Lines(points);
  EXPECT_EQ(canvas.Row(0), "--###.......");
  EXPECT_EQ(canvas.Row(1), "....-.......");
}

TEST(PenPainter, SolidPensHaveNoGaps) {
  Canvas canvas(12, 2, Pen{PS_INSIDEFRAME, 1, '#', false});
  PenPainter painter(canvas.Get());
  painter.Lines(std::array<POINT, 2>{{{1, 0}, {11, 0}}});
  painter.Lines(std::array<POINT, 2>{{{0, 0}, {0, 2}}});
  EXPECT_EQ(canvas.Row(0), "###########.");
  EXPECT_EQ(canvas.Row(1), "#...........");
}

TEST(PenPainter, OutlineGoesBackToItsStart) {
  Canvas canvas(5, 4, Pen{PS_DOT, 1, '#', false});
  PenPainter painter(canvas.Get());
  painter.Outline(std::array<POINT, 4>{{{0, 0}, {4, 0}, {4, 3}, {0, 3}}});
  EXPECT_EQ(canvas.Row(0), "###--");
  EXPECT_EQ(canvas.Row(1), "#...-");
  EXPECT_EQ(canvas.Row(2), "#...#");
  EXPECT_EQ(canvas.Row(3), "---##");
}

TEST(PenPainter, OutlineOfOnePlaceIsOnePixel) {
  Canvas canvas(3, 1, Pen{PS_DOT, 1, '#', false});
  PenPainter painter(canvas.Get());
  painter.Outline(std::array<POINT, 2>{{{1, 0}, {1, 0}}});
  painter.Outline({});
  EXPECT_EQ(canvas.Row(0), ".#.");
}

TEST(PenPainter, WidePensStroke) {
  Canvas canvas(7, 4, Pen{PS_SOLID | PS_ENDCAP_FLAT | PS_JOIN_BEVEL, 2, '#', true});
  PenPainter painter(canvas.Get());
  painter.Lines(std::array<POINT, 2>{{{1, 1}, {5, 1}}});
  EXPECT_EQ(canvas.Row(0), ".####..");
  EXPECT_EQ(canvas.Row(1), ".####..");
  EXPECT_EQ(canvas.Row(2), ".......");
  painter.Outline(std::array<POINT, 2>{{{1, 3}, {5, 3}}});
  EXPECT_EQ(canvas.Row(3), ".####..");
}

TEST(PenPainter, ThinBorderHasTheDashesOfThePen) {
  Canvas solid(5, 3, Pen{PS_SOLID, 1, '#', false}), dotted(5, 3, Pen{PS_DOT, 1, '#', false});
  PenPainter(solid.Get()).ThinBorder(RoundedBox({0, 0, 5, 3}, 0, 0));
  EXPECT_EQ(solid.Row(0), "#####");
  EXPECT_EQ(solid.Row(1), "#...#");
  PenPainter(dotted.Get()).ThinBorder(RoundedBox({0, 0, 5, 3}, 0, 0));
  EXPECT_EQ(dotted.Row(0), "--###");
}

TEST(PenPainter, PainterHasThePensColor) {
  Canvas canvas(3, 1, Pen{PS_SOLID, 1, '#', false});
  PenPainter painter(canvas.Get());
  painter.Painter().Span(0, 1, 2);
  EXPECT_EQ(canvas.Row(0), ".#.");
}

TEST(BrushFiller, NullBrushHasNoPainter) {
  Canvas canvas(3, 1, Pen{});
  canvas.Get().brush = Brush{BS_NULL, 0, 0};
  BrushFiller none(canvas.Get());
  EXPECT_EQ(none.Painter(), nullptr);
  none({0, 0, 3, 1});
  EXPECT_EQ(canvas.Row(0), "...");
  canvas.Get().brush = Brush{BS_SOLID, 'x', 0};
  BrushFiller solid(canvas.Get());
  ASSERT_NE(solid.Painter(), nullptr);
  solid({1, 0, 3, 1});
  EXPECT_EQ(canvas.Row(0), ".xx");
}

}  // namespace
}  // namespace quenzel7::gdi
