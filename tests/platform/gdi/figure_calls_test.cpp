#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <random>

#include "platform/gdi/selected.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();
using Text = std::vector<std::string>;

/// A figure in black with a red inside.
struct Style {
  std::uint32_t pen = PS_SOLID;
  int width = 1;
  int brush = -1;  ///< a stock brush, or red
};

Text Drawn(int width, int height, const Style& style, const std::function<void(HDC)>& draw) {
  const Surface surface = White(width, height);
  SetBkColor(surface.Dc(), kBlue);
  const SelectedPen pen(surface.Dc(), MakePen(style.pen, style.width, kBlack));
  const SelectedBrush brush(surface.Dc(), CreateSolidBrush(kRed));
  if (style.brush >= 0) SelectObject(surface.Dc(), GetStockObject(style.brush));
  draw(surface.Dc());
  return Rows(surface);
}

TEST(Rectangle, LeavesRightAndBottomEdgeOut) {
  for (const int width : {0, 1}) {
    EXPECT_EQ(Drawn(7, 5, {PS_SOLID, width}, [](HDC dc) { EXPECT_EQ(Rectangle(dc, 1, 1, 6, 4), 1); }),
              (Text{".......", ".#####.", ".#rrr#.", ".#####.", "......."}));
  }
}

TEST(Rectangle, TakesTheCornersInAnyOrder) {
  const Text expected{".......", ".#####.", ".#rrr#.", ".#####.", "......."};
  EXPECT_EQ(Drawn(7, 5, {}, [](HDC dc) { Rectangle(dc, 6, 4, 1, 1); }), expected);
  EXPECT_EQ(Drawn(7, 5, {}, [](HDC dc) { Rectangle(dc, 6, 1, 1, 4); }), expected);
}

TEST(Rectangle, NullBrushLeavesTheInside) {
  EXPECT_EQ(Drawn(5, 3, {PS_SOLID, 1, NULL_BRUSH}, [](HDC dc) { Rectangle(dc, 0, 0, 5, 3); }),
            (Text{"#####", "#...#", "#####"}));
}

TEST(Rectangle, WithoutPenIsOnePixelSmallerAtRightAndBottom) {
  EXPECT_EQ(Drawn(6, 5, {PS_NULL, 9}, [](HDC dc) { Rectangle(dc, 1, 1, 5, 4); }),
            (Text{"......", ".rrr..", ".rrr..", "......", "......"}));
  EXPECT_EQ(Drawn(3, 3, {PS_NULL, 1}, [](HDC dc) { Rectangle(dc, 1, 1, 2, 3); }), Text(3, "..."));
}

TEST(Rectangle, OfNoWidthOrHeightIsNothingAndSucceeds) {
  EXPECT_EQ(Drawn(3, 3, {}, [](HDC dc) { EXPECT_EQ(Rectangle(dc, 1, 0, 1, 3), 1); }), Text(3, "..."));
  EXPECT_EQ(Drawn(3, 3, {PS_SOLID, 3}, [](HDC dc) { EXPECT_EQ(Rectangle(dc, 0, 1, 3, 1), 1); }),
            Text(3, "..."));
}

TEST(Rectangle, SmallOnesAreAllBorder) {
  EXPECT_EQ(Drawn(4, 3, {}, [](HDC dc) { Rectangle(dc, 1, 1, 2, 2); }), (Text{"....", ".#..", "...."}));
  EXPECT_EQ(Drawn(4, 3, {}, [](HDC dc) { Rectangle(dc, 1, 0, 3, 3); }), Text(3, ".##."));
}

TEST(Rectangle, DashesBeginAtTheTopRightCornerAndGoAgainstTheClock) {
  for (const int width : {0, 1}) {
    EXPECT_EQ(Drawn(9, 8, {PS_DOT, width, NULL_BRUSH}, [](HDC dc) { Rectangle(dc, 0, 0, 9, 8); }),
              (Text{"###bbb###", "b.......b", "b.......b", "b.......b", "#.......#", "#.......#", "#.......#",
                    "bbb###bbb"}));
  }
}

TEST(Rectangle, DashesOfAThinOneAreOverpaintedOnTheWayBack) {
  EXPECT_EQ(Drawn(1, 5, {PS_DOT, 1}, [](HDC dc) { Rectangle(dc, 0, 0, 1, 5); }),
            (Text{"#", "#", "#", "b", "b"}));
  EXPECT_EQ(Drawn(2, 2, {PS_DOT, 1}, [](HDC dc) { Rectangle(dc, 0, 0, 1, 1); }), (Text{"#.", ".."}));
}

TEST(Rectangle, WidePenInsideTheFrameRoundsTheOuterCorners) {
  EXPECT_EQ(Drawn(10, 9, {PS_INSIDEFRAME, 3}, [](HDC dc) { Rectangle(dc, 0, 0, 10, 9); }),
            (Text{".########.", "##########", "##########", "###rrrr###", "###rrrr###", "###rrrr###",
                  "##########", "##########", ".########."}));
}

TEST(Rectangle, CornersOfEachWidth) {
  const Text corners[] = {{},
                          {},
                          {"####"},
                          {".###"},
                          {".###"},
                          {".###", "####"},
                          {"..##", ".###"},
                          {"..##", ".###", "####"},
                          {"..##", ".###", "####"},
                          {"...#", ".###", ".###", "####"}};
  for (int width = 2; width <= 9; ++width) {
    const Text drawn = Drawn(30, 30, {PS_INSIDEFRAME, width}, [](HDC dc) { Rectangle(dc, 0, 0, 30, 30); });
    for (std::size_t y = 0; y < corners[width].size(); ++y) {
      EXPECT_EQ(drawn[y].substr(0, 4), corners[width][y]) << "width " << width << " row " << y;
    }
    const auto inside = static_cast<std::size_t>(width);
    EXPECT_EQ(drawn[inside][inside - 1], '#');
    EXPECT_EQ(drawn[inside][inside], 'r');
    EXPECT_EQ(drawn[29 - inside][29 - inside], 'r');
    EXPECT_EQ(drawn[30 - inside][30 - inside], '#');
  }
}

TEST(Rectangle, WidePenIsCentredOnTheEdge) {
  EXPECT_EQ(Drawn(10, 9, {PS_SOLID, 3}, [](HDC dc) { Rectangle(dc, 1, 1, 9, 8); }),
            (Text{".########.", "##########", "##########", "###rrrr###", "###rrrr###", "###rrrr###",
                  "##########", "##########", ".########."}));
  // An even width has one pixel more on the left and at the top.
  EXPECT_EQ(Drawn(8, 7, {PS_SOLID, 2}, [](HDC dc) { Rectangle(dc, 2, 2, 7, 6); }),
            (Text{"........", ".######.", ".######.", ".##rr##.", ".######.", ".######.", "........"}));
}

TEST(Rectangle, WideDashedPenIsSolid) {
  for (std::uint32_t style = PS_DASH; style <= PS_DASHDOTDOT; ++style) {
    EXPECT_EQ(Drawn(30, 30, {style, 2}, [](HDC dc) { Rectangle(dc, 2, 2, 28, 28); }),
              Drawn(30, 30, {PS_SOLID, 2}, [](HDC dc) { Rectangle(dc, 2, 2, 28, 28); }));
  }
}

TEST(Rectangle, WidePenInsideASmallFrameFillsIt) {
  EXPECT_EQ(Drawn(6, 4, {PS_INSIDEFRAME, 2}, [](HDC dc) { Rectangle(dc, 1, 0, 5, 4); }), Text(4, ".####."));
  EXPECT_EQ(Drawn(6, 4, {PS_INSIDEFRAME, 50}, [](HDC dc) { Rectangle(dc, 1, 1, 5, 3); }),
            (Text{"......", ".####.", ".####.", "......"}));
  EXPECT_EQ(Drawn(6, 5, {PS_INSIDEFRAME, 50}, [](HDC dc) { Rectangle(dc, 0, 1, 6, 4); }),
            (Text{"......", ".####.", "######", ".####.", "......"}));
}

TEST(Rectangle, WidePenInsideAFrameThatIsTallerThanWideFillsIt) {
  EXPECT_EQ(Drawn(4, 6, {PS_INSIDEFRAME, 50}, [](HDC dc) { Rectangle(dc, 1, 1, 3, 5); }),
            (Text{"....", ".##.", ".##.", ".##.", ".##.", "...."}));
  EXPECT_EQ(Drawn(5, 6, {PS_INSIDEFRAME, 50}, [](HDC dc) { Rectangle(dc, 1, 0, 4, 6); }),
            (Text{"..#..", ".###.", ".###.", ".###.", ".###.", "..#.."}));
}

TEST(Figures, WithAWidePenInsideAFrameOfOnePixelAreALine) {
  const Text row{"........", ".######.", "........"}, column{"...", ".#.", ".#.", ".#.", ".#.", "..."};
  EXPECT_EQ(Drawn(8, 3, {PS_INSIDEFRAME, 5}, [](HDC dc) { Rectangle(dc, 1, 1, 7, 2); }), row);
  EXPECT_EQ(Drawn(3, 6, {PS_INSIDEFRAME, 5}, [](HDC dc) { Rectangle(dc, 1, 1, 2, 5); }), column);
  EXPECT_EQ(Drawn(8, 3, {PS_INSIDEFRAME, 5}, [](HDC dc) { RoundRect(dc, 1, 1, 7, 2, 4, 4); }), row);
  EXPECT_EQ(Drawn(3, 6, {PS_INSIDEFRAME, 5}, [](HDC dc) { RoundRect(dc, 1, 1, 2, 5, 4, 4); }), column);
}

TEST(Rectangle, OnOneBit) {
  const Surface surface = White(5, 4, 1);
  EXPECT_EQ(Rectangle(surface.Dc(), 1, 0, 5, 4), 1);
  EXPECT_EQ(Rows(surface), (Text{".####", ".#..#", ".#..#", ".####"}));
}

// The same figure on a surface that holds all of it, and moved so that only a part of it is inside.
TEST(Figures, ClippingMovesNothing) {
  std::mt19937 random(11);
  const auto between = [&](int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
  };
  for (int i = 0; i < 600; ++i) {
    const std::uint32_t penStyle = random() % 7;
    const int penWidth = between(0, 6), kind = between(0, 2), corner = between(0, 30);
    const RECT box{between(10, 70), between(10, 70), between(10, 70), between(10, 70)};
    const int dx = between(0, 8) * 8, dy = between(0, 8) * 8;
    const auto draw = [&](HDC dc, int x, int y) {
      const int left = box.left - x, top = box.top - y, right = box.right - x, bottom = box.bottom - y;
      if (kind == 0) Rectangle(dc, left, top, right, bottom);
      if (kind == 1) Ellipse(dc, left, top, right, bottom);
      if (kind == 2) RoundRect(dc, left, top, right, bottom, corner, corner / 2);
    };
    const Text whole = Drawn(90, 90, {penStyle, penWidth}, [&](HDC dc) { draw(dc, 0, 0); });
    const Text part = Drawn(24, 24, {penStyle, penWidth}, [&](HDC dc) { draw(dc, dx, dy); });
    for (std::size_t y = 0; y < 24; ++y) {
      const std::size_t row = y + static_cast<std::size_t>(dy);
      if (row >= 90) continue;
      const std::string expected = whole[row].substr(static_cast<std::size_t>(dx), 24);
      ASSERT_EQ(part[y].substr(0, expected.size()), expected) << "figure " << i << " row " << y;
    }
  }
}

// The definition of a rectangle with a thin solid pen, pixel by pixel.
TEST(Rectangle, EveryPixelIsBorderInsideOrUntouched) {
  std::mt19937 random(5);
  for (int i = 0; i < 500; ++i) {
    const auto any = [&] { return static_cast<int>(random() % 40) - 10; };
    const int left = any(), top = any(), right = any(), bottom = any();
    const Text drawn = Drawn(20, 18, {}, [&](HDC dc) { Rectangle(dc, left, top, right, bottom); });
    const int l = std::min(left, right), r = std::max(left, right), t = std::min(top, bottom),
              b = std::max(top, bottom);
    for (int y = 0; y < 18; ++y) {
      for (int x = 0; x < 20; ++x) {
        const bool isBody = x >= l && x < r && y >= t && y < b;
        const bool isInside = x > l && x < r - 1 && y > t && y < b - 1;
        const char expected = isInside ? 'r' : isBody ? '#' : '.';
        ASSERT_EQ(drawn[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)], expected) << i;
      }
    }
  }
}

TEST(Figures, CanBeAsLargeAsThePlane) {
  for (const std::uint32_t style : {PS_SOLID, PS_DOT, PS_NULL, PS_INSIDEFRAME}) {
    for (const int width : {1, 5, kMax}) {
      const Text drawn = Drawn(4, 3, {style, width}, [](HDC dc) { Rectangle(dc, kMin, kMin, kMax, kMax); });
      const bool isAllPen = width == kMax && style == PS_INSIDEFRAME;
      EXPECT_EQ(drawn, Text(3, isAllPen ? "####" : "rrrr")) << style << " " << width;
    }
  }
  EXPECT_EQ(Drawn(4, 3, {}, [](HDC dc) { Ellipse(dc, kMin, kMin, kMax, kMax); }), Text(3, "rrrr"));
  EXPECT_EQ(Drawn(4, 3, {}, [](HDC dc) { RoundRect(dc, kMin, kMin, kMax, kMax, 9, 9); }), Text(3, "rrrr"));
  EXPECT_EQ(Drawn(4, 3, {}, [](HDC dc) { Rectangle(dc, 1, 1, kMax, kMax); }), (Text{"....", ".###", ".#rr"}));
  EXPECT_EQ(Drawn(4, 3, {}, [](HDC dc) { Rectangle(dc, kMin, kMin, 3, 2); }), (Text{"rr#.", "###.", "...."}));
}

TEST(Ellipse, JustFillsItsBox) {
  EXPECT_EQ(Drawn(9, 8, {}, [](HDC dc) { EXPECT_EQ(Ellipse(dc, 1, 1, 8, 7), 1); }),
            (Text{".........", "...###...", "..#rrr#..", ".#rrrrr#.", ".#rrrrr#.", "..#rrr#..", "...###...",
                  "........."}));
}

TEST(Ellipse, TakesTheCornersInAnyOrderAndNothingOfNoMeasure) {
  EXPECT_EQ(Drawn(9, 8, {}, [](HDC dc) { Ellipse(dc, 8, 7, 1, 1); }),
            Drawn(9, 8, {}, [](HDC dc) { Ellipse(dc, 1, 1, 8, 7); }));
  EXPECT_EQ(Drawn(3, 3, {}, [](HDC dc) { EXPECT_EQ(Ellipse(dc, 1, 0, 1, 3), 1); }), Text(3, "..."));
}

// The interface leaves the extent of a curved figure without a pen open; as a rectangle it is one pixel
// smaller at the right and the bottom.
TEST(Ellipse, WithoutPenIsThatOfABoxOnePixelSmaller) {
  EXPECT_EQ(Drawn(7, 6, {PS_NULL, 1}, [](HDC dc) { Ellipse(dc, 0, 0, 7, 6); }),
            (Text{".rrrr..", "rrrrrr.", "rrrrrr.", "rrrrrr.", ".rrrr..", "......."}));
}

TEST(Ellipse, DashesBeginInTheMiddleOfTheRightSide) {
  EXPECT_EQ(Drawn(7, 7, {PS_DOT, 1, NULL_BRUSH}, [](HDC dc) { Ellipse(dc, 0, 0, 7, 7); }),
            (Text{"..bbb..", ".#...#.", "#.....#", "#.....#", "b.....b", ".b...#.", "..b##.."}));
}

TEST(RoundRect, CornerSizesOfOneAreSquareAndLargerThanTheBoxMakeAnEllipse) {
  const auto rounded = [](int width, int height) {
    return Drawn(12, 9, {}, [&](HDC dc) { EXPECT_EQ(RoundRect(dc, 1, 1, 11, 8, width, height), 1); });
  };
  const Text square = Drawn(12, 9, {}, [](HDC dc) { Rectangle(dc, 1, 1, 11, 8); });
  const Text ellipse = Drawn(12, 9, {}, [](HDC dc) { Ellipse(dc, 1, 1, 11, 8); });
  EXPECT_EQ(rounded(0, 5), square);
  EXPECT_EQ(rounded(1, 5), square);
  EXPECT_EQ(rounded(5, 0), square);
  EXPECT_EQ(rounded(5, 1), square);
  EXPECT_EQ(rounded(10, 7), ellipse);
  EXPECT_EQ(rounded(100, 70), ellipse);
  EXPECT_EQ(rounded(-4, -4), rounded(4, 4));
  EXPECT_EQ(rounded(kMin, kMin), ellipse);
  EXPECT_EQ(rounded(4, 4),
            (Text{"............", "..########..", ".#rrrrrrrr#.", ".#rrrrrrrr#.", ".#rrrrrrrr#.",
                  ".#rrrrrrrr#.", ".#rrrrrrrr#.", "..########..", "............"}));
}

// A line inside the frame keeps its width all around and just fills the box.
TEST(Figures, WithAPenInsideTheFrameFillTheirBox) {
  for (int width = 2; width <= 9; ++width) {
    for (const int kind : {0, 1, 2}) {
      const Text drawn = Drawn(44, 34, {PS_INSIDEFRAME, width}, [&](HDC dc) {
        if (kind == 0) Rectangle(dc, 2, 3, 41, 32);
        if (kind == 1) Ellipse(dc, 2, 3, 41, 32);
        if (kind == 2) RoundRect(dc, 2, 3, 41, 32, 12, 10);
      });
      const auto inside = static_cast<std::size_t>(width);
      EXPECT_EQ(drawn[2], std::string(44, '.')) << width << " " << kind;
      EXPECT_NE(drawn[3].find('#'), std::string::npos);
      EXPECT_NE(drawn[31].find('#'), std::string::npos);
      EXPECT_EQ(drawn[32], std::string(44, '.'));
      EXPECT_EQ(drawn[17].substr(0, 2 + inside + 1), ".." + std::string(inside, '#') + "r");
      EXPECT_EQ(drawn[17].substr(40 - inside), "r" + std::string(inside, '#') + "...");
      EXPECT_EQ(drawn[2 + inside][21], '#');
      EXPECT_EQ(drawn[3 + inside][21], 'r');
      EXPECT_EQ(drawn[31 - inside][21], 'r');
      EXPECT_EQ(drawn[32 - inside][21], '#');
    }
  }
}

TEST(Figures, WithAVeryWidePenAreStillFilled) {
  for (const int kind : {0, 1, 2}) {
    const auto draw = [&](int top) {
      return Drawn(1, 3, {PS_SOLID, 600}, [&](HDC dc) {
        if (kind == 0) Rectangle(dc, -1000, top, 1001, 3000);
        if (kind == 1) Ellipse(dc, -1000, top, 1001, 3000);
        if (kind == 2) RoundRect(dc, -1000, top, 1001, 3000, 40, 40);
      });
    };
    // The line reaches from 300 above to 299 below its middle, row -300.
    EXPECT_EQ(draw(-300), (Text{"r", "r", "r"})) << kind;
    EXPECT_EQ(draw(-298), (Text{"#", "#", "r"})) << kind;
    EXPECT_EQ(draw(301), (Text{".", "#", "#"})) << kind;
  }
}

TEST(Rectangle, WithAnExtendedPenHasTheCornersOfItsJoin) {
  const auto corner = [](std::uint32_t join) {
    const Surface surface = White(14, 12);
    const LOGBRUSH solid{BS_SOLID, kBlack, 0};
    const SelectedPen pen(surface.Dc(),
                          ExtCreatePen(PS_GEOMETRIC | PS_INSIDEFRAME | join, 4, &solid, 0, nullptr));
    const SelectedBrush brush(surface.Dc(), CreateSolidBrush(kRed));
    Rectangle(surface.Dc(), 1, 1, 13, 11);
    const Text rows = Rows(surface);
    EXPECT_EQ(rows[5], ".####rrrr####.");
    EXPECT_EQ(rows[4].substr(2, 10), "##########");
    return Text{rows[1].substr(0, 5), rows[2].substr(0, 5), rows[3].substr(0, 5)};
  };
  EXPECT_EQ(corner(PS_JOIN_MITER), (Text{".####", ".####", ".####"}));
  EXPECT_EQ(corner(PS_JOIN_ROUND), (Text{"..###", ".####", ".####"}));
  EXPECT_EQ(corner(PS_JOIN_BEVEL), (Text{"...##", "..###", ".####"}));
}

TEST(Figures, WithWidePensAreSymmetric) {
  for (int width = 3; width <= 9; width += 2) {
    for (const int size : {20, 25}) {
      const Text drawn =
          Drawn(40, 40, {PS_SOLID, width}, [&](HDC dc) { Ellipse(dc, 8, 8, 8 + size, 8 + size); });
      const int middle2 = 2 * 8 + size - 1;
      for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 40; ++x) {
          const int mx = middle2 - x;
          if (mx < 0 || mx >= 40) continue;
          ASSERT_EQ(drawn[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)],
                    drawn[static_cast<std::size_t>(y)][static_cast<std::size_t>(mx)]);
          ASSERT_EQ(drawn[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)],
                    drawn[static_cast<std::size_t>(x)][static_cast<std::size_t>(y)]);
        }
      }
    }
  }
}

TEST(Figures, FailWithoutContext) {
  EXPECT_EQ(Rectangle(0, 0, 0, 1, 1), 0);
  EXPECT_EQ(Ellipse(77, 0, 0, 1, 1), 0);
  EXPECT_EQ(RoundRect(GetStockObject(BLACK_PEN), 0, 0, 1, 1, 1, 1), 0);
}

TEST(Figures, LeaveThePenPositionAlone) {
  const Surface surface = White(9, 9);
  MoveToEx(surface.Dc(), 3, 4, nullptr);
  Rectangle(surface.Dc(), 0, 0, 5, 5);
  Ellipse(surface.Dc(), 0, 0, 5, 5);
  RoundRect(surface.Dc(), 0, 0, 5, 5, 2, 2);
  POINT position{};
  MoveToEx(surface.Dc(), 0, 0, &position);
  EXPECT_EQ(position.x, 3);
  EXPECT_EQ(position.y, 4);
}

}  // namespace
}  // namespace quenzel7::gdi
