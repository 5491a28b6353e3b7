#include "platform/gdi/rounded_box.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "platform/gdi/line_walk.h"

namespace quenzel7::gdi {
namespace {

class Canvas {
 public:
  Canvas(int width, int height) : bitmap_(width, height, 32) {}

  SpanPainter Painter(char letter) { return SpanPainter(bitmap_, Ink::Solid(static_cast<COLORREF>(letter))); }
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (int y = 0; y < bitmap_.Height(); ++y) {
      std::string row;
      for (int x = 0; x < bitmap_.Width(); ++x)
        row += bitmap_.At(x, y) == 0 ? '.' : static_cast<char>(bitmap_.At(x, y));
      rows.push_back(row);
    }
    return rows;
  }
  const Bitmap& Target() const { return bitmap_; }

 private:
  Bitmap bitmap_;
};

std::vector<std::string> Drawn(const Box& box, int cornerWidth, int cornerHeight, int width = 10,
                               int height = 7) {
  Canvas canvas(width, height);
  const RoundedBox figure(box, cornerWidth, cornerHeight);
  SpanPainter border = canvas.Painter('#'), inside = canvas.Painter('o');
  figure.PaintBorder(border);
  figure.FillInside(inside);
  return canvas.Rows();
}

TEST(RoundedBox, WithoutRoundingIsARectangleWithABorder) {
  const std::vector<std::string> expected{"..........", ".######...", ".#oooo#...", ".#oooo#...",
                                          ".######...", "..........", ".........."};
  EXPECT_EQ(Drawn({1, 1, 7, 5}, 0, 0), expected);
  EXPECT_EQ(Drawn({1, 1, 7, 5}, 1, 9), expected);
  EXPECT_EQ(Drawn({1, 1, 7, 5}, 9, 1), expected);
}

TEST(RoundedBox, CornersAreQuartersOfAnEllipse) {
  EXPECT_EQ(Drawn({0, 0, 10, 7}, 4, 4),
            (std::vector<std::string>{".########.", "#oooooooo#", "#oooooooo#", "#oooooooo#", "#oooooooo#",
                                      "#oooooooo#", ".########."}));
}

TEST(RoundedBox, CornersAsLargeAsTheBoxMakeAnEllipse) {
  const std::vector<std::string> ellipse{"..#####...", ".#ooooo#..", "#ooooooo#.", "#ooooooo#.",
                                         "#ooooooo#.", ".#ooooo#..", "..#####..."};
  EXPECT_EQ(Drawn({0, 0, 9, 7}, 9, 7), ellipse);
  EXPECT_EQ(Drawn({0, 0, 9, 7}, 90, 70), ellipse);
}

TEST(RoundedBox, OneOrTwoRowsAreAllBorder) {
  EXPECT_EQ(Drawn({1, 1, 5, 2}, 0, 0, 6, 3), (std::vector<std::string>{"......", ".####.", "......"}));
  EXPECT_EQ(Drawn({1, 0, 5, 2}, 0, 0, 6, 3), (std::vector<std::string>{".####.", ".####.", "......"}));
  EXPECT_EQ(Drawn({1, 0, 2, 3}, 0, 0, 6, 3), (std::vector<std::string>{".#....", ".#....", ".#...."}));
  EXPECT_EQ(Drawn({1, 0, 3, 3}, 0, 0, 6, 3), (std::vector<std::string>{".##...", ".##...", ".##..."}));
}

TEST(RoundedBox, EmptyBoxDrawsNothing) {
  const std::vector<std::string> nothing(3, "......");
  EXPECT_EQ(Drawn({1, 1, 1, 3}, 0, 0, 6, 3), nothing);
  EXPECT_EQ(Drawn({1, 1, 4, 1}, 5, 5, 6, 3), nothing);
  EXPECT_EQ(Drawn({4, 2, 1, 1}, 5, 5, 6, 3), nothing);
}

TEST(RoundedBox, ClippingMovesNothing) {
  Canvas whole(60, 60);
  const RoundedBox figure({10, 12, 50, 47}, 21, 14);
  SpanPainter border = whole.Painter('#'), inside = whole.Painter('o');
  figure.PaintBorder(border);
  figure.FillInside(inside);
  for (int dx = 0; dx <= 40; dx += 8) {
    for (int dy = 0; dy <= 40; dy += 8) {
      std::vector<std::string> expected;
      for (int y = 0; y < 20; ++y) {
        expected.push_back(
            whole.Rows()[static_cast<std::size_t>(y + dy)].substr(static_cast<std::size_t>(dx), 20));
      }
      EXPECT_EQ(Drawn({10 - dx, 12 - dy, 50 - dx, 47 - dy}, 21, 14, 20, 20), expected) << dx << " " << dy;
    }
  }
}

TEST(RoundedBox, WholeIsBorderAndInside) {
  for (const int corner : {0, 3, 6, 9, 30}) {
    Canvas parts(20, 20), whole(20, 20);
    const RoundedBox figure({2, 3, 18, 16}, corner, corner);
    SpanPainter painter = parts.Painter('#');
    figure.PaintBorder(painter);
    figure.FillInside(painter);
    SpanPainter all = whole.Painter('#');
    figure.FillWhole(all);
    EXPECT_EQ(parts.Rows(), whole.Rows()) << corner;
  }
}

TEST(RoundedBox, FillAroundLeavesTheHole) {
  Canvas canvas(7, 6);
  SpanPainter painter = canvas.Painter('#');
  RoundedBox({0, 0, 7, 6}, 3, 3).FillAround(RoundedBox({2, 2, 5, 4}, 0, 0), painter);
  EXPECT_EQ(canvas.Rows(),
            (std::vector<std::string>{".#####.", "#######", "##...##", "##...##", "#######", ".#####."}));
}

TEST(RoundedBox, FillAroundAnEmptyHoleFillsAll) {
  Canvas canvas(5, 3);
  SpanPainter painter = canvas.Painter('#');
  RoundedBox({1, 0, 4, 3}, 0, 0).FillAround(RoundedBox({3, 3, 2, 1}, 0, 0), painter);
  EXPECT_EQ(canvas.Rows(), (std::vector<std::string>{".###.", ".###.", ".###."}));
  Canvas flat(5, 3);
  SpanPainter flatPainter = flat.Painter('#');
  RoundedBox({1, 0, 4, 3}, 0, 0).FillAround(RoundedBox({2, 1, 2, 2}, 0, 0), flatPainter);
  EXPECT_EQ(flat.Rows(), (std::vector<std::string>{".###.", ".###.", ".###."}));
}

std::vector<std::string> Walked(const Box& box, int corner, int width, int height) {
  Canvas canvas(width, height);
  std::vector<std::string> rows = canvas.Rows();
  RoundedBox(box, corner, corner).WalkBorder(canvas.Target(), [&](int x, int y, std::uint64_t step) {
    rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = static_cast<char>('A' + step);
  });
  return rows;
}

TEST(RoundedBox, WalkBeginsAtTheLowerEndOfTheTopRightCurveAndGoesAgainstTheClock) {
  EXPECT_EQ(Walked({0, 0, 6, 5}, 4, 6, 5),
            (std::vector<std::string>{".EDCB.", "F....A", "G....N", "H....M", ".IJKL."}));
}

TEST(RoundedBox, WalkMeetsEveryBorderPixelOnce) {
  for (int width = 1; width <= 17; ++width) {
    for (int height = 1; height <= 17; ++height) {
      for (const int corner : {0, 2, 3, 6, 7, 40}) {
        Canvas canvas(20, 20);
        const RoundedBox figure({1, 1, 1 + width, 1 + height}, corner, corner);
        SpanPainter painter = canvas.Painter('#');
        figure.PaintBorder(painter);
        std::set<std::uint64_t> steps;
        std::vector<std::string> rows(20, std::string(20, '.'));
        figure.WalkBorder(canvas.Target(), [&](int x, int y, std::uint64_t step) {
          EXPECT_TRUE(steps.insert(step).second);
          rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = '#';
        });
        EXPECT_EQ(rows, canvas.Rows()) << width << "x" << height << " corner " << corner;
        ASSERT_FALSE(steps.empty());
        EXPECT_EQ(*steps.rbegin(), steps.size() - 1);
      }
    }
  }
}

std::vector<POINT> BorderPoints(const RoundedBox& figure) {
  std::vector<POINT> points;
  figure.AddBorderPoints(points);
  return points;
}

TEST(RoundedBox, LinesThroughTheBorderPointsPaintTheBorder) {
  for (int width = 1; width <= 17; ++width) {
    for (int height = 1; height <= 17; ++height) {
      for (const int corner : {0, 3, 6, 40}) {
        Canvas canvas(20, 20);
        const RoundedBox figure({1, 1, 1 + width, 1 + height}, corner, corner);
        SpanPainter painter = canvas.Painter('#');
        figure.PaintBorder(painter);
        std::vector<POINT> points = BorderPoints(figure);
        std::vector<std::string> rows(20, std::string(20, '.'));
        ASSERT_FALSE(points.empty());
        points.push_back(points[0]);
        for (std::size_t i = 1; i < points.size(); ++i) {
          rows[static_cast<std::size_t>(points[i].y)][static_cast<std::size_t>(points[i].x)] = '#';
          WalkLine(points[i - 1], points[i], 20, 20, [&](int x, int y, std::uint64_t) {
            rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = '#';
          });
        }
        EXPECT_EQ(rows, canvas.Rows()) << width << "x" << height << " corner " << corner;
      }
    }
  }
}

TEST(RoundedBox, BorderPointsBeginAtTheLowerEndOfTheTopRightCurve) {
  const std::vector<POINT> points = BorderPoints(RoundedBox({10, 20, 40, 50}, 8, 6));
  EXPECT_EQ(points[0].x, 39);
  EXPECT_EQ(points[0].y, 22);
  EXPECT_EQ(points.back().x, 39);
  EXPECT_EQ(points.back().y, 47);
  const std::vector<POINT> square = BorderPoints(RoundedBox({10, 20, 40, 50}, 0, 0));
  ASSERT_EQ(square.size(), 4u);
  EXPECT_EQ(square[0].x, 39);
  EXPECT_EQ(square[0].y, 20);
  EXPECT_EQ(square[1].x, 10);
  EXPECT_EQ(square[2].y, 49);
  EXPECT_EQ(square[3].x, 39);
  EXPECT_TRUE(BorderPoints(RoundedBox({10, 20, 10, 50}, 8, 6)).empty());
}

TEST(RoundedBox, AddsItsBorderPointsToThoseThatAreThere) {
  std::vector<POINT> points{{1, 2}};
  RoundedBox({10, 20, 40, 50}, 0, 0).AddBorderPoints(points);
  ASSERT_EQ(points.size(), 5u);
  EXPECT_EQ(points[0].y, 2);
  EXPECT_EQ(points[1].x, 39);
}

TEST(RoundedBox, LargeOnesHaveChordsNearTheCurve) {
  const std::int64_t size = 40001;
  const RoundedBox figure({0, 0, size, size}, size, size);
  EXPECT_TRUE(figure.IsLarge());
  EXPECT_FALSE(RoundedBox({0, 0, 16384, 16384}, 5, 5).IsLarge());
  EXPECT_TRUE(RoundedBox({0, 0, 5, 16385}, 5, 5).IsLarge());
  const std::vector<POINT> points = BorderPoints(figure);
  EXPECT_LT(points.size(), 2000u);
  const double radius = (size - 1) / 2.0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const POINT& a = points[i];
    const POINT& b = points[(i + 1) % points.size()];
    EXPECT_NEAR(std::hypot(a.x - radius, a.y - radius), radius, 1.5);
    EXPECT_NEAR(std::hypot((a.x + b.x) / 2.0 - radius, (a.y + b.y) / 2.0 - radius), radius, 2);
  }
}

// Of a slim ellipse the long half decides how many chords it takes.
TEST(RoundedBox, LargeSlimOnesHaveChordsNearTheCurveToo) {
  for (const bool isWide : {false, true}) {
    const std::int64_t width = isWide ? 40001 : 1001, height = isWide ? 1001 : 40001;
    const double a = static_cast<double>(width - 1) / 2, b = static_cast<double>(height - 1) / 2;
    // Below 1 inside of the ellipse and above outside, of a place that is moved away from both axes.
    const auto far = [&](double x, double y, double by) {
      return std::hypot(std::max(std::abs(x - a) + by, 0.0) / a, std::max(std::abs(y - b) + by, 0.0) / b);
    };
    std::vector<POINT> points;
    RoundedBox({0, 0, width, height}, width, height).AddBorderPoints(points);
    EXPECT_LT(points.size(), 2000u);
    for (std::size_t i = 0; i < points.size(); ++i) {
      const POINT from = points[i], to = points[(i + 1) % points.size()];
      for (const double part : {0.0, 0.25, 0.5, 0.75}) {
        const double x = from.x + (to.x - from.x) * part, y = from.y + (to.y - from.y) * part;
        EXPECT_LE(far(x, y, -2), 1) << x << " " << y;
        EXPECT_GE(far(x, y, 2), 1) << x << " " << y;
      }
    }
  }
}

TEST(RoundedBox, KnowsWhetherItsCornersAreSquare) {
  EXPECT_TRUE(RoundedBox({0, 0, 9, 9}, 1, 5).IsSquare());
  EXPECT_TRUE(RoundedBox({0, 0, 9, 9}, 5, 1).IsSquare());
  EXPECT_FALSE(RoundedBox({0, 0, 9, 9}, 2, 2).IsSquare());
}

TEST(RoundedBox, WalkCountsWhatIsOutside) {
  std::vector<std::uint64_t> steps;
  const Bitmap target(3, 1, 32);
  RoundedBox({-4, -2, 3, 3}, 0, 0).WalkBorder(target, [&](int, int, std::uint64_t step) {
    steps.push_back(step);
  });
  // 7 at the top, 3 down the left side, 7 at the bottom, then up the right side: (2, 0) is the second.
  EXPECT_EQ(steps, (std::vector<std::uint64_t>{18}));
}

}  // namespace
}  // namespace quenzel7::gdi
