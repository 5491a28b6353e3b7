#include "platform/gdi/broad_border.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace quenzel7::gdi {
namespace {

using Text = std::vector<std::string>;

Text Empty(int width, int height) {
  return Text(static_cast<std::size_t>(height), std::string(static_cast<std::size_t>(width), '.'));
}

Text RowsOf(const Bitmap& bitmap) {
  Text rows = Empty(bitmap.Width(), bitmap.Height());
  for (int y = 0; y < bitmap.Height(); ++y) {
    for (int x = 0; x < bitmap.Width(); ++x) {
      const COLORREF color = bitmap.At(x, y);
      if (color != 0)
        rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = static_cast<char>(color);
    }
  }
  return rows;
}

Text Painted(const RoundedBox& middle, int penWidth, int width, int height) {
  Bitmap bitmap(width, height, 32);
  SpanPainter border(bitmap, Ink::Solid('#')), hole(bitmap, Ink::Solid('o'));
  BroadBorder(middle, penWidth).Paint(border, &hole);
  return RowsOf(bitmap);
}

// The disc of the pen around every pixel of the border.
Text Moved(const RoundedBox& middle, int penWidth, int width, int height) {
  Bitmap line(width, height, 32), swept(width, height, 32);
  SpanPainter linePainter(line, Ink::Solid('#')), painter(swept, Ink::Solid('#'));
  middle.PaintBorder(linePainter);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      if (line.At(x, y) == 0) continue;
      const int left = x - penWidth / 2, top = y - penWidth / 2;
      RoundedBox({left, top, left + penWidth, top + penWidth}, penWidth, penWidth).FillWhole(painter);
    }
  }
  return RowsOf(swept);
}

TEST(BroadBorder, IsTheDiscMovedAroundTheFigure) {
  for (int penWidth = 2; penWidth <= 9; ++penWidth) {
    for (const int corner : {0, 7, 16, 99}) {
      for (const auto& [boxWidth, boxHeight] :
           {std::pair{30, 22}, {13, 31}, {40, 9}, {5, 5}, {1, 12}, {2, 2}}) {
        const RoundedBox middle({8, 8, 8 + boxWidth, 8 + boxHeight}, corner, corner);
        Text painted = Painted(middle, penWidth, 60, 50);
        for (std::string& row : painted) std::replace(row.begin(), row.end(), 'o', '.');
        const Text moved = Moved(middle, penWidth, 60, 50);
        int different = 0;
        for (std::size_t y = 0; y < 50; ++y) {
          for (std::size_t x = 0; x < 60; ++x) {
            if (moved[y][x] == painted[y][x]) continue;
            ++different;
            EXPECT_EQ(painted[y][x], '#') << "a pixel that the disc covers is missing";
          }
        }
        // Rows have no second hole, so a dent between disc and disc may be filled.
        EXPECT_LE(different, 4) << penWidth << " around " << boxWidth << "x" << boxHeight << " corner "
                                << corner;
      }
    }
  }
}

TEST(BroadBorder, AroundARectangleIsRoundOutsideAndSquareInside) {
  EXPECT_EQ(Painted(RoundedBox({1, 1, 9, 7}, 0, 0), 3, 10, 8),
            (Text{".########.", "##########", "##########", "###oooo###", "###oooo###", "##########",
                  "##########", ".########."}));
}

TEST(BroadBorder, HoleLiesBetween) {
  const RoundedBox middle({6, 6, 40, 30}, 20, 14);
  const BroadBorder border(middle, 5);
  EXPECT_EQ(border.Bounds().left, 4);
  EXPECT_EQ(border.Bounds().top, 4);
  EXPECT_EQ(border.Bounds().right, 42);
  EXPECT_EQ(border.Bounds().bottom, 32);
  const RoundedBox::Row row = border.At(18);
  EXPECT_EQ(row.left, 4);
  EXPECT_EQ(row.innerLeft, 9);
  EXPECT_EQ(row.innerRight, 37);
  EXPECT_EQ(row.right, 42);
  for (int y = 4; y < 9; ++y) EXPECT_EQ(border.At(y).innerLeft, border.At(y).right) << y;
  EXPECT_LT(border.At(9).innerLeft, border.At(9).innerRight);
}

TEST(BroadBorder, WithoutHolePainterLeavesTheInside) {
  Bitmap bitmap(10, 8, 32);
  SpanPainter border(bitmap, Ink::Solid('#'));
  BroadBorder(RoundedBox({1, 1, 9, 7}, 0, 0), 3).Paint(border, nullptr);
  EXPECT_EQ(RowsOf(bitmap)[3], "###....###");
}

TEST(BroadBorder, OutsideTheSurfaceIsNothing) {
  EXPECT_EQ(Painted(RoundedBox({100, 100, 120, 120}, 9, 9), 5, 6, 3), Empty(6, 3));
}

TEST(BroadBorder, EdgesAreEachOthersOpposite) {
  for (std::int64_t width = 1; width <= 6; ++width) {
    const Box box{10, 20, 40, 60};
    const Box back = MiddleOf(OuterEdge(box, width), width);
    EXPECT_EQ(back.left, box.left);
    EXPECT_EQ(back.top, box.top);
    EXPECT_EQ(back.right, box.right);
    EXPECT_EQ(back.bottom, box.bottom);
    EXPECT_EQ(OuterEdge(box, width).left, 10 - width / 2);
    EXPECT_EQ(OuterEdge(box, width).right, 40 + (width - 1) / 2);
    EXPECT_EQ(OuterEdge(box, width).top, 20 - width / 2);
    EXPECT_EQ(OuterEdge(box, width).bottom, 60 + (width - 1) / 2);
  }
}

}  // namespace
}  // namespace quenzel7::gdi
