#include "platform/gdi/polygon.h"

#include <gtest/gtest.h>

#include <random>
#include <span>
#include <string>

namespace quenzel7::gdi {
namespace {

constexpr std::int64_t kUnit = FinePoint::kUnit;

Polygon Whole(std::initializer_list<POINT> points) {
  Polygon polygon;
  for (const POINT& point : points) polygon.push_back(FinePoint::At(point));
  return polygon;
}

std::vector<std::string> Filled(const std::vector<Polygon>& polygons, int width = 8, int height = 6) {
  Bitmap bitmap(width, height, 32);
  SpanPainter painter(bitmap, Ink::Solid(1));
  FillPolygons(polygons, painter);
  std::vector<std::string> rows;
  for (int y = 0; y < height; ++y) {
    std::string row;
    for (int x = 0; x < width; ++x) row += bitmap.At(x, y) != 0 ? '#' : '.';
    rows.push_back(row);
  }
  return rows;
}

using Text = std::vector<std::string>;

TEST(FillPolygons, TakesLeftAndTopEdgesInRightAndBottomOut) {
  const Text expected{"........", "..###...", "..###...", "........", "........", "........"};
  EXPECT_EQ(Filled({Whole({{2, 1}, {5, 1}, {5, 3}, {2, 3}})}), expected);
  EXPECT_EQ(Filled({Whole({{2, 3}, {5, 3}, {5, 1}, {2, 1}})}), expected);
}

TEST(FillPolygons, SlantedEdgesAreRoundedUp) {
  EXPECT_EQ(Filled({Whole({{1, 0}, {7, 0}, {1, 3}})}),
            (Text{".######.", ".####...", ".##.....", "........", "........", "........"}));
  EXPECT_EQ(Filled({Whole({{0, 0}, {7, 4}, {0, 4}})}),
            (Text{"........", "##......", "####....", "######..", "........", "........"}));
}

TEST(FillPolygons, LeavesOutWhatAnEvenNumberGoesAround) {
  EXPECT_EQ(Filled({Whole({{0, 0}, {7, 0}, {7, 5}, {0, 5}}), Whole({{2, 1}, {5, 1}, {5, 4}, {2, 4}})}),
            (Text{"#######.", "##...##.", "##...##.", "##...##.", "#######.", "........"}));
}

TEST(FillPolygons, SamplesFractionsAtWholeCoordinates) {
  const auto box = [](std::int64_t left, std::int64_t right) {
    return Polygon{{left, 0}, {right, 0}, {right, kUnit}, {left, kUnit}};
  };
  EXPECT_EQ(Filled({box(kUnit, 3 * kUnit)})[0], ".##.....");
  EXPECT_EQ(Filled({box(kUnit + 1, 3 * kUnit + 1)})[0], "..##....");
  EXPECT_EQ(Filled({box(kUnit - 1, 3 * kUnit - 1)})[0], ".##.....");
  EXPECT_EQ(Filled({Polygon{{0, 1}, {kUnit, 1}, {kUnit, 2 * kUnit + 1}, {0, 2 * kUnit + 1}}}, 2, 4),
            (Text{"..", "#.", "#.", ".."}));
}

TEST(FillPolygons, OfFewerThanThreePointsFillsNothing) {
  EXPECT_EQ(Filled({Polygon{}, Whole({{1, 1}}), Whole({{1, 1}, {5, 4}})}), Text(6, "........"));
}

TEST(FillPolygons, ClippingMovesNothing) {
  std::mt19937 random(23);
  const auto any = [&] { return static_cast<int>(random() % 60); };
  for (int i = 0; i < 300; ++i) {
    std::vector<POINT> points(3 + random() % 5);
    for (POINT& point : points) point = {any(), any()};
    const auto moved = [&](int dx, int dy) {
      Polygon polygon;
      for (const POINT& point : points) polygon.push_back(FinePoint::At(POINT{point.x - dx, point.y - dy}));
      return polygon;
    };
    const Text whole = Filled({moved(0, 0)}, 60, 60);
    const int dx = any() % 40, dy = any() % 40;
    const Text part = Filled({moved(dx, dy)}, 20, 20);
    for (std::size_t y = 0; y < 20; ++y) {
      ASSERT_EQ(part[y], whole[y + static_cast<std::size_t>(dy)].substr(static_cast<std::size_t>(dx), 20))
          << i;
    }
  }
}

// By the crossings of the row to the left of a pixel, counted in whole numbers.
TEST(FillPolygons, HoldsThePixelsWithAnOddNumberOfCrossingsToTheLeft) {
  std::mt19937 random(29);
  for (int i = 0; i < 400; ++i) {
    std::vector<POINT> points(3 + random() % 6);
    Polygon polygon;
    for (POINT& point : points) {
      point = {static_cast<int>(random() % 14) - 3, static_cast<int>(random() % 14) - 3};
      polygon.push_back(FinePoint::At(point));
    }
    const Text rows = Filled({polygon}, 9, 9);
    for (int y = 0; y < 9; ++y) {
      for (int x = 0; x < 9; ++x) {
        int count = 0;
        for (std::size_t k = 0; k < points.size(); ++k) {
          POINT a = points[k], b = points[(k + 1) % points.size()];
          if (a.y > b.y) std::swap(a, b);
          const bool isInRow = a.y <= y && y < b.y;
          if (isInRow && a.x * (b.y - a.y) + (y - a.y) * (b.x - a.x) <= x * (b.y - a.y)) ++count;
        }
        ASSERT_EQ(rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)], count % 2 != 0 ? '#' : '.')
            << i;
      }
    }
  }
}

// Edges between fractions of pixels, several polygons at once, many rows long.
TEST(FillPolygons, FollowSlantedEdgesExactlyOverManyRows) {
  constexpr int kWidth = 12, kHeight = 70;
  std::mt19937 random(31);
  const auto any = [&](int size) { return static_cast<std::int64_t>(random() % (2 * size * kUnit)) - kUnit; };
  for (int i = 0; i < 100; ++i) {
    std::vector<Polygon> polygons(1 + random() % 3);
    for (Polygon& polygon : polygons) {
      for (std::size_t k = 3 + random() % 4; k > 0; --k) polygon.push_back({any(kWidth), any(kHeight)});
    }
    const Text rows = Filled(polygons, kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        int count = 0;
        for (const Polygon& polygon : polygons) {
          for (std::size_t k = 0; k < polygon.size(); ++k) {
            FinePoint a = polygon[k], b = polygon[(k + 1) % polygon.size()];
            if (a.y > b.y) std::swap(a, b);
            const bool isInRow = a.y <= y * kUnit && y * kUnit < b.y;
            if (isInRow && (y * kUnit - a.y) * (b.x - a.x) <= (x * kUnit - a.x) * (b.y - a.y)) ++count;
          }
        }
        ASSERT_EQ(rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)], count % 2 != 0 ? '#' : '.')
            << i << ": " << x << ", " << y;
      }
    }
  }
}

TEST(PolygonFiller, WithoutEdgesPaintsNothing) {
  Bitmap bitmap(2, 2, 32);
  SpanPainter painter(bitmap, Ink::Solid(1));
  PolygonFiller(2).Paint(painter);
  EXPECT_EQ(bitmap.At(0, 0), 0u);
}

TEST(FillPolygons, ReachOverTheWholePlane) {
  constexpr int kMin = -2147483647 - 1, kMax = 2147483647;
  EXPECT_EQ(Filled({Whole({{kMin, kMin}, {kMax, kMin}, {kMax, kMax}, {kMin, kMax}})}, 3, 2),
            (Text{"###", "###"}));
  // Below the falling diagonal.
  EXPECT_EQ(Filled({Whole({{kMin, kMin}, {kMax, kMax}, {kMin, kMax}})}, 3, 3), (Text{"...", "#..", "##."}));
}

TEST(CoverPolygons, CoversWhatFillPolygonsFills) {
  const Polygon triangle = Whole({{-3, 1}, {11, 2}, {4, 9}});
  Bitmap bitmap(8, 6, 32);
  SpanPainter painter(bitmap, Ink::Solid(1));
  Coverage coverage;
  coverage.Begin(8, 6);
  CoverPolygons(std::span(&triangle, 1), coverage);
  coverage.Paint(painter);
  const Text filled = Filled({triangle});
  for (int y = 0; y < 6; ++y) {
    for (int x = 0; x < 8; ++x) {
      EXPECT_EQ(bitmap.At(x, y) != 0,
                filled[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] == '#');
    }
  }
}

TEST(IsConvexOutside, TellsWhatLiesBeside) {
  // A box from the first to the second point, against 8 x 6 pixels.
  const auto isOutside = [](std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom) {
    return IsConvexOutside({{left, top}, {right, top}, {right, bottom}, {left, bottom}}, 8, 6);
  };
  EXPECT_TRUE(isOutside(-9 * kUnit, 0, 0, 6 * kUnit));
  EXPECT_FALSE(isOutside(-9 * kUnit, 0, 1, 6 * kUnit));
  EXPECT_TRUE(isOutside(0, -9 * kUnit, 8 * kUnit, 0));
  EXPECT_FALSE(isOutside(0, -9 * kUnit, 8 * kUnit, 1));
  EXPECT_TRUE(isOutside(7 * kUnit + 1, 0, 20 * kUnit, 6 * kUnit));
  EXPECT_FALSE(isOutside(7 * kUnit, 0, 20 * kUnit, 6 * kUnit));
  EXPECT_TRUE(isOutside(0, 5 * kUnit + 1, 8 * kUnit, 20 * kUnit));
  EXPECT_FALSE(isOutside(0, 5 * kUnit, 8 * kUnit, 20 * kUnit));
}

TEST(IsConvexOutside, GoesByTheHeightOfATallSurface) {
  EXPECT_FALSE(IsConvexOutside(Whole({{0, 7}, {6, 7}, {6, 20}, {0, 20}}), 6, 8));
  EXPECT_TRUE(IsConvexOutside(Whole({{0, 8}, {6, 8}, {6, 20}, {0, 20}}), 6, 8));
}

TEST(IsConvexOutside, SeesAnEdgeBetween) {
  // Past a corner of the surface, though not beside it; in both directions around.
  EXPECT_TRUE(IsConvexOutside(Whole({{-6, 4}, {4, -6}, {-9, -9}}), 8, 6));
  EXPECT_TRUE(IsConvexOutside(Whole({{-9, -9}, {4, -6}, {-6, 4}}), 8, 6));
  EXPECT_TRUE(IsConvexOutside(Whole({{3, 14}, {14, 3}, {20, 20}}), 8, 6));
  EXPECT_FALSE(IsConvexOutside(Whole({{-6, 7}, {7, -6}, {-9, -9}}), 8, 6));
  EXPECT_FALSE(IsConvexOutside(Whole({{-1, 1}, {1, -1}, {-9, -9}}), 8, 6));
  EXPECT_FALSE(IsConvexOutside(Whole({{-50, -50}, {90, -50}, {0, 90}}), 8, 6));
}

TEST(IsConvexOutside, NeverSaysSoOfWhatHasAPixel) {
  std::mt19937 random(11);
  int outside = 0;
  for (int i = 0; i < 3000; ++i) {
    const auto any = [&] { return static_cast<std::int64_t>(random() % (40 * kUnit)) - 16 * kUnit; };
    const Polygon triangle{{any(), any()}, {any(), any()}, {any(), any()}};
    if (!IsConvexOutside(triangle, 8, 6)) continue;
    ++outside;
    ASSERT_EQ(Filled({triangle}), Text(6, "........")) << i;
  }
  EXPECT_GT(outside, 500);
}

TEST(IsConvexOutside, ReachesOverTheWholePlane) {
  constexpr int kMin = -2147483647 - 1, kMax = 2147483647;
  EXPECT_TRUE(IsConvexOutside(Whole({{kMin, 0}, {0, kMin}, {kMin, kMin}}), 8, 6));
  EXPECT_FALSE(IsConvexOutside(Whole({{kMin, kMin}, {kMax, kMin}, {kMax, kMax}, {kMin, kMax}}), 8, 6));
}

TEST(FinePoint, IsIn256thsRounded) {
  EXPECT_EQ(FinePoint::At(POINT{-3, 4}).x, -768);
  EXPECT_EQ(FinePoint::At(POINT{-3, 4}).y, 1024);
  EXPECT_EQ(FinePoint::At(0.5, -0.25).x, 128);
  EXPECT_EQ(FinePoint::At(0.5, -0.25).y, -64);
  EXPECT_EQ(FinePoint::At(1.0 / 512, 0).x, 1);
}

}  // namespace
}  // namespace quenzel7::gdi
