#include "platform/gdi/stroke.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "platform/gdi/raster_op.h"
#include "platform/gdi/rounded_box.h"

namespace quenzel7::gdi {
namespace {

using Text = std::vector<std::string>;
constexpr std::uint32_t kFlat = PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_BEVEL;

Text RowsOf(const Bitmap& bitmap) {
  Text rows;
  for (int y = 0; y < bitmap.Height(); ++y) {
    std::string row;
    for (int x = 0; x < bitmap.Width(); ++x) row += bitmap.At(x, y) != 0 ? '#' : '.';
    rows.push_back(row);
  }
  return rows;
}

Text Stroked(const std::vector<POINT>& points, int penWidth, std::uint32_t style, bool isClosed = false,
             int width = 12, int height = 9) {
  Bitmap bitmap(width, height, 32);
  SpanPainter painter(bitmap, Ink::Solid(1));
  StrokeLines(points, isClosed, Pen{style, penWidth, 1, true}, painter);
  return RowsOf(bitmap);
}

/// The same with pixels inverted instead of painted: one that is painted twice is as it was.
Text Inverted(const std::vector<POINT>& points, int penWidth, std::uint32_t style, bool isClosed) {
  Bitmap bitmap(12, 9, 32);
  SpanPainter painter(bitmap, Ink::Solid(0), RasterTable(DSTINVERT));
  StrokeLines(points, isClosed, Pen{style, penWidth, 1, true}, painter);
  return RowsOf(bitmap);
}

const Text kNothing(9, "............");

TEST(StrokeLines, PaintsEachPixelOnce) {
  for (const std::uint32_t cap : {PS_ENDCAP_FLAT, PS_ENDCAP_SQUARE, PS_ENDCAP_ROUND}) {
    for (const bool isClosed : {false, true}) {
      for (const std::vector<POINT>& points :
           {std::vector<POINT>{{2, 2}, {9, 6}}, {{2, 2}, {9, 6}, {3, 6}}, {{2, 2}, {9, 6}, {3, 6}, {9, 2}}}) {
        const std::uint32_t style = PS_GEOMETRIC | cap | PS_JOIN_BEVEL;
        EXPECT_EQ(Inverted(points, 3, style, isClosed), Stroked(points, 3, style, isClosed))
            << cap << " " << isClosed << " " << points.size();
      }
    }
  }
}

TEST(StrokeLines, AlongARowIsExactlyAsWideAsThePen) {
  for (int width = 1; width <= 8; ++width) {
    const Text rows = Stroked({{3, 4}, {9, 4}}, width, kFlat);
    for (int y = 0; y < 9; ++y) {
      const bool isLine = y >= 4 - width / 2 && y <= 4 - width / 2 + width - 1;
      EXPECT_EQ(rows[static_cast<std::size_t>(y)], isLine ? "...######..." : "............") << width;
    }
    EXPECT_EQ(Stroked({{9, 4}, {3, 4}}, width, kFlat), rows) << width;
  }
}

TEST(StrokeLines, AlongAColumnIsExactlyAsWideAsThePen) {
  for (int width = 1; width <= 8; ++width) {
    const Text rows = Stroked({{6, 7}, {6, 2}}, width, kFlat);
    for (int y = 0; y < 9; ++y) {
      std::string expected(12, '.');
      for (int x = 6 - width / 2; x <= 6 - width / 2 + width - 1; ++x) {
        if (y >= 2 && y < 7) expected[static_cast<std::size_t>(x)] = '#';
      }
      EXPECT_EQ(rows[static_cast<std::size_t>(y)], expected) << width;
    }
  }
}

TEST(StrokeLines, RoundEndsAreDiscsAroundTheEndPoints) {
  EXPECT_EQ(Stroked({{3, 4}, {8, 4}}, 5, PS_GEOMETRIC),
            (Text{"............", "............", "..########..", ".##########.", ".##########.",
                  ".##########.", "..########..", "............", "............"}));
  EXPECT_EQ(Stroked({{5, 4}, {5, 4}}, 4, PS_GEOMETRIC),
            (Text{"............", "............", "....##......", "...####.....", "...####.....",
                  "....##......", "............", "............", "............"}));
}

TEST(StrokeLines, SquareEndsReachHalfTheWidthFurther) {
  const std::uint32_t square = PS_GEOMETRIC | PS_ENDCAP_SQUARE;
  EXPECT_EQ(Stroked({{4, 4}, {8, 4}}, 2, square),
            (Text{"............", "............", "............", "...######...", "...######...",
                  "............", "............", "............", "............"}));
  EXPECT_EQ(Stroked({{5, 4}, {5, 4}}, 2, square),
            (Text{"............", "............", "............", "....##......", "....##......",
                  "............", "............", "............", "............"}));
}

TEST(StrokeLines, SquareEndsReachNoFurtherAtCorners) {
  const std::uint32_t square = PS_GEOMETRIC | PS_ENDCAP_SQUARE | PS_JOIN_BEVEL;
  EXPECT_EQ(Stroked({{3, 7}, {3, 3}, {8, 3}}, 4, square),
            (Text{"............", "...#######..", "..########..", ".#########..", ".#########..",
                  ".####.......", ".####.......", ".####.......", ".####......."}));
  const std::vector<POINT> closed = {{3, 3}, {8, 3}, {8, 6}};
  EXPECT_EQ(Stroked(closed, 4, square, true), Stroked(closed, 4, kFlat, true));
}

TEST(StrokeLines, OfNoLengthWithFlatEndsIsNothing) {
  EXPECT_EQ(Stroked({{5, 4}, {5, 4}}, 4, kFlat), kNothing);
  EXPECT_EQ(Stroked({{5, 4}}, 4, kFlat), kNothing);
  EXPECT_EQ(Stroked({}, 4, PS_GEOMETRIC), kNothing);
}

TEST(StrokeLines, BevelledCornerIsCut) {
  EXPECT_EQ(Stroked({{1, 3}, {8, 3}, {8, 9}}, 4, kFlat),
            (Text{"............", ".#######....", ".########...", ".#########..", ".#########..",
                  "......####..", "......####..", "......####..", "......####.."}));
}

TEST(StrokeLines, MitredCornerIsSharp) {
  const std::uint32_t mitred = PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER;
  EXPECT_EQ(Stroked({{1, 3}, {8, 3}, {8, 9}}, 4, mitred),
            (Text{"............", ".#########..", ".#########..", ".#########..", ".#########..",
                  "......####..", "......####..", "......####..", "......####.."}));
  EXPECT_EQ(Stroked({{1, 6}, {8, 6}, {8, 0}}, 4, mitred)[7], ".#########..");
}

TEST(StrokeLines, RoundCornerIsADisc) {
  const std::uint32_t round = PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_ROUND;
  EXPECT_EQ(Stroked({{1, 3}, {8, 3}, {8, 9}}, 4, round),
            (Text{"............", ".########...", ".#########..", ".#########..", ".#########..",
                  "......####..", "......####..", "......####..", "......####.."}));
}

TEST(StrokeLines, VerySharpMitresAreBevelled) {
  const std::uint32_t mitred = PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER;
  // The miter is as many times longer than half the width as 1 / sin(half the angle): 10 at 2 * asin(0.1).
  const auto tip = [&](int rise) {
    const Text rows = Stroked({{0, 50}, {100, 50}, {0, 50 - rise}}, 8, mitred, false, 160, 60);
    std::size_t last = 0;
    for (const std::string& row : rows) {
      const std::size_t found = row.rfind('#');
      if (found != std::string::npos) last = std::max(last, found);
    }
    return last;
  };
  // Angles: atan(20/100) has sine of its half 0.0985, atan(21/100) 0.103.
  EXPECT_LT(tip(20), 105u);
  EXPECT_GT(tip(21), 130u);
}

TEST(StrokeLines, ClosedJoinsTheLastPointToTheFirst) {
  const std::uint32_t mitred = PS_GEOMETRIC | PS_ENDCAP_FLAT | PS_JOIN_MITER;
  const Text frame{"............", ".##########.", ".##########.", ".##......##.", ".##......##.",
                   ".##......##.", ".##########.", ".##########.", "............"};
  EXPECT_EQ(Stroked({{2, 2}, {10, 2}, {10, 7}, {2, 7}}, 2, mitred, true), frame);
  EXPECT_EQ(Stroked({{2, 2}, {10, 2}, {10, 7}, {2, 7}, {2, 2}, {2, 2}}, 2, mitred, true), frame);
}

TEST(StrokeLines, RepeatedPointsChangeNothing) {
  EXPECT_EQ(Stroked({{1, 3}, {1, 3}, {8, 3}, {8, 3}, {8, 9}, {8, 9}}, 4, kFlat),
            Stroked({{1, 3}, {8, 3}, {8, 9}}, 4, kFlat));
}

TEST(StrokeLines, TurningBackHasNoCorner) {
  for (const std::uint32_t join : {PS_JOIN_BEVEL, PS_JOIN_MITER}) {
    EXPECT_EQ(Stroked({{2, 4}, {9, 4}, {5, 4}}, 4, PS_GEOMETRIC | PS_ENDCAP_FLAT | join),
              Stroked({{2, 4}, {9, 4}}, 4, kFlat));
  }
}

// A slanted line holds the pixels that are nearer to it than half the width and between its ends.
TEST(StrokeLines, SlantedHasItsCornersMidwayBetweenTheNearestPixelAndTheNextOneOut) {
  const auto halfRounded = [](double v) {
    return std::copysign((std::floor(std::abs(v) + 0.5) + std::ceil(std::abs(v))) / 2, v);
  };
  std::mt19937 random(31);
  for (int i = 0; i < 300; ++i) {
    const auto any = [&] { return static_cast<int>(random() % 40); };
    const POINT from{any(), any()}, to{any(), any()};
    const int width = 2 + static_cast<int>(random() % 9);
    if (from.x == to.x || from.y == to.y) continue;
    const Text rows = Stroked({from, to}, width, kFlat, false, 40, 40);
    const double dx = to.x - from.x, dy = to.y - from.y, length = std::hypot(dx, dy);
    const double ox = halfRounded(-dy / length * width / 2), oy = halfRounded(dx / length * width / 2);
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 40; ++x) {
        // The place as a share of the way along, and of the way across: inside from 0 to 1 and from -1 to 1.
        const double area = dx * oy - dy * ox;
        const double along = ((x - from.x) * oy - (y - from.y) * ox) / area;
        const double across = (dx * (y - from.y) - dy * (x - from.x)) / area;
        const double outside = std::max({std::abs(across) - 1, -along, along - 1});
        // On the edge the side decides.
        if (std::abs(outside) < 0.01) continue;
        ASSERT_EQ(rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)], outside < 0 ? '#' : '.')
            << i;
      }
    }
  }
}

TEST(StrokeLines, SlantedIsTheSameFromEitherEnd) {
  EXPECT_EQ(Stroked({{2, 2}, {9, 6}}, 3, kFlat), Stroked({{9, 6}, {2, 2}}, 3, kFlat));
}

// Wherever the disc lies and however large it is: beside the surface, across it, or around all of it.
TEST(StrokeLines, RoundEndsOfAnySizeAreTheDiscOfTheirBox) {
  std::mt19937 random(5);
  for (int i = 0; i < 4000; ++i) {
    const int width = 2 + static_cast<int>(random() % (i % 4 == 0 ? 40000 : i % 4 == 1 ? 600 : 20));
    // Most of the outline near the surface, so that each of the three happens.
    const double angle = static_cast<double>(random() % 628) / 100;
    const double distance = width / 2.0 + static_cast<double>(random() % 60) - 30;
    const POINT center{6 + static_cast<int>(distance * std::cos(angle)),
                       4 + static_cast<int>(distance * std::sin(angle))};
    Bitmap bitmap(12, 9, 32);
    SpanPainter painter(bitmap, Ink::Solid(1));
    const std::int64_t left = center.x - width / 2, top = center.y - width / 2;
    RoundedBox({left, top, left + width, top + width}, width, width).FillWhole(painter);
    const Text rows = Stroked({center}, width, PS_GEOMETRIC);
    for (int y = 0; y < 9; ++y) {
      for (int x = 0; x < 12; ++x) {
        ASSERT_EQ(rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)],
                  bitmap.At(x, y) != 0 ? '#' : '.')
            << width << " at " << center.x << ", " << center.y;
      }
    }
  }
}

TEST(StrokeLines, GoOnWhereTheSurfaceIsNotYetFull) {
  // The first line covers the upper rows, the last the rest, and what comes after changes nothing.
  EXPECT_EQ(Stroked({{-9, 2}, {20, 2}, {20, 8}, {-9, 8}, {-9, 30}, {30, 30}}, 8, kFlat),
            Text(9, "############"));
  EXPECT_EQ(Stroked({{-9, 2}, {20, 2}, {20, 8}, {-9, 8}}, 4, kFlat)[4], "............");
}

// Lines and discs beyond a square in the corner of a surface that is three times as long as it is wide.
TEST(StrokeLines, ReachAllOfALongSurface) {
  const auto along = [](int from, int to) {
    return std::string(static_cast<std::size_t>(from), '.') +
           std::string(static_cast<std::size_t>(to - from), '#') +
           std::string(static_cast<std::size_t>(24 - to), '.');
  };
  const auto column = [](const Text& rows, std::size_t x) {
    std::string all;
    for (const std::string& row : rows) all += row[x];
    return all;
  };
  EXPECT_EQ(Stroked({{15, 4}, {20, 4}}, 3, kFlat, false, 24, 8)[4], along(15, 20));
  EXPECT_EQ(column(Stroked({{4, 15}, {4, 20}}, 3, kFlat, false, 8, 24), 4), along(15, 20));
  // Discs too far from the square to meet it.
  EXPECT_EQ(Stroked({{20, 4}, {20, 4}}, 5, PS_GEOMETRIC, false, 24, 8)[4], along(18, 23));
  EXPECT_EQ(column(Stroked({{4, 20}, {4, 20}}, 5, PS_GEOMETRIC, false, 8, 24), 4), along(18, 23));
  // Discs that hold the square, and not the surface.
  EXPECT_EQ(Stroked({{4, 4}, {4, 4}}, 21, PS_GEOMETRIC, false, 24, 8)[4], along(0, 15));
  EXPECT_EQ(column(Stroked({{4, 4}, {4, 4}}, 21, PS_GEOMETRIC, false, 8, 24), 4), along(0, 15));
}

TEST(StrokeLines, ReachOverTheWholePlane) {
  constexpr int kMin = -2147483647 - 1, kMax = 2147483647;
  const Text rows = Stroked({{kMin, 4}, {kMax, 4}}, 3, PS_GEOMETRIC);
  EXPECT_EQ(rows[2], "............");
  EXPECT_EQ(rows[3], "############");
  EXPECT_EQ(rows[5], "############");
  EXPECT_EQ(rows[6], "............");
  EXPECT_EQ(Stroked({{5, 4}, {6, 4}}, kMax, PS_GEOMETRIC), Text(9, "############"));
  EXPECT_EQ(Stroked({{kMin, kMin}, {kMax, kMax}}, kMax, PS_GEOMETRIC), Text(9, "############"));
}

}  // namespace
}  // namespace quenzel7::gdi
