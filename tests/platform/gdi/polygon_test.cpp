#include "platform/gdi/polygon.h"

#include <gtest/gtest.h>

#include <random>
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

TEST(FillPolygons, ReachOverTheWholePlane) {
  constexpr int kMin = -2147483647 - 1, kMax = 2147483647;
  EXPECT_EQ(Filled({Whole({{kMin, kMin}, {kMax, kMin}, {kMax, kMax}, {kMin, kMax}})}, 3, 2),
            (Text{"###", "###"}));
  // Below the falling diagonal.
  EXPECT_EQ(Filled({Whole({{kMin, kMin}, {kMax, kMax}, {kMin, kMax}})}, 3, 3), (Text{"...", "#..", "##."}));
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
