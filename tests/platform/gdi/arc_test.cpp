#include "platform/gdi/arc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace quenzel7::gdi {
namespace {

constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();

std::pair<int, int> Pair(POINT point) { return {point.x, point.y}; }

TEST(PointOnCircle, CountsFromTheRightAgainstTheClock) {
  EXPECT_EQ(Pair(PointOnCircle({10, 20}, 5, 0)), std::pair(15, 20));
  EXPECT_EQ(Pair(PointOnCircle({10, 20}, 5, 90)), std::pair(10, 15));
  EXPECT_EQ(Pair(PointOnCircle({10, 20}, 5, 180)), std::pair(5, 20));
  EXPECT_EQ(Pair(PointOnCircle({10, 20}, 5, -90)), std::pair(10, 25));
  EXPECT_EQ(Pair(PointOnCircle({10, 20}, 5, 450)), std::pair(10, 15));
  EXPECT_EQ(Pair(PointOnCircle({30, 30}, 20, -55)), std::pair(41, 46));
}

TEST(PointOnCircle, IsHeldInside32Bits) {
  EXPECT_EQ(Pair(PointOnCircle({kMax, kMax}, 0xFFFFFFFF, 0)), std::pair(kMax, kMax));
  EXPECT_EQ(Pair(PointOnCircle({kMin, kMin}, 0xFFFFFFFF, 90)), std::pair(kMin, kMin));
}

std::vector<POINT> ArcPoints(POINT center, std::uint32_t radius, double start, double sweep) {
  std::vector<POINT> points;
  AddArcPoints(center, radius, start, sweep, points);
  return points;
}

TEST(ArcPoints, AreAddedToThoseThatAreThere) {
  for (const std::uint32_t radius : {0u, 3u, 5000u}) {
    std::vector<POINT> points{{70, 80}};
    AddArcPoints({0, 0}, radius, 0, 90, points);
    EXPECT_EQ(Pair(points.front()), std::pair(70, 80));
    EXPECT_EQ(points.size(), ArcPoints({0, 0}, radius, 0, 90).size() + 1) << radius;
  }
}

TEST(ArcPoints, LieOnTheTrueCircleToThePixel) {
  for (const std::uint32_t radius : {1u, 2u, 5u, 26u, 100u, 4096u, 4097u, 100000u}) {
    for (const POINT& point : ArcPoints({7, -9}, radius, 10, 350)) {
      EXPECT_NEAR(std::hypot(point.x - 7, point.y + 9), radius, 0.75) << radius;
    }
  }
}

TEST(ArcPoints, ChordsOfLargeCirclesStayNearTheArc) {
  for (const std::uint32_t radius : {4097u, 100000u}) {
    const auto points = ArcPoints({0, 0}, radius, 10, 350);
    for (std::size_t i = 1; i < points.size(); ++i) {
      const double x = (points[i - 1].x + points[i].x) / 2.0, y = (points[i - 1].y + points[i].y) / 2.0;
      ASSERT_NEAR(std::hypot(x, y), radius, 1.25) << radius;
    }
  }
}

TEST(ArcPoints, EachIsBesideTheNext) {
  for (std::uint32_t radius = 1; radius < 60; ++radius) {
    for (const double sweep : {-400.0, -90.0, -10.0, 10.0, 33.3, 270.0}) {
      const auto points = ArcPoints({0, 0}, radius, 77, sweep);
      for (std::size_t i = 1; i < points.size(); ++i) {
        EXPECT_LE(std::abs(points[i].x - points[i - 1].x), 1) << radius << " " << sweep;
        EXPECT_LE(std::abs(points[i].y - points[i - 1].y), 1) << radius << " " << sweep;
      }
    }
  }
}

TEST(ArcPoints, BeginAndEndWhereTheArcDoes) {
  for (const double sweep : {-300.0, -45.0, 45.0, 300.0, 360.0}) {
    const auto points = ArcPoints({50, 60}, 30, 20, sweep);
    EXPECT_EQ(Pair(points.front()), Pair(PointOnCircle({50, 60}, 30, 20)));
    EXPECT_EQ(Pair(points.back()), Pair(PointOnCircle({50, 60}, 30, 20 + sweep)));
  }
}

TEST(ArcPoints, GoTheWayOfTheSweep) {
  const auto against = ArcPoints({0, 0}, 20, 0, 90), with = ArcPoints({0, 0}, 20, 0, -90);
  EXPECT_TRUE(std::all_of(against.begin(), against.end(), [](POINT p) { return p.x >= 0 && p.y <= 0; }));
  EXPECT_TRUE(std::all_of(with.begin(), with.end(), [](POINT p) { return p.x >= 0 && p.y >= 0; }));
  EXPECT_EQ(against.size(), with.size());
}

TEST(ArcPoints, AreAsManyAsTheSweepIsLong) {
  const auto count = [](double sweep) { return ArcPoints({0, 0}, 20, 0, sweep).size(); };
  const std::size_t turn = count(360);
  EXPECT_EQ(count(0), 3u);
  EXPECT_NEAR(static_cast<double>(count(180)), static_cast<double>(turn) / 2, 3);
  EXPECT_NEAR(static_cast<double>(count(-90)), static_cast<double>(turn) / 4, 3);
  EXPECT_NEAR(static_cast<double>(count(359.9)), static_cast<double>(turn), 2);
  EXPECT_NEAR(static_cast<double>(count(0.1)), 3, 1);
  EXPECT_NEAR(static_cast<double>(count(720)), 2.0 * static_cast<double>(turn), 4);
}

TEST(ArcPoints, OfManyTurnsAreThoseOfTwo) {
  EXPECT_EQ(ArcPoints({0, 0}, 20, 0, 1e9).size(), ArcPoints({0, 0}, 20, 0, 720).size());
  EXPECT_EQ(ArcPoints({0, 0}, 20, 0, -1e9).size(), ArcPoints({0, 0}, 20, 0, -720).size());
}

TEST(ArcPoints, OfAFullTurnAreSymmetric) {
  std::set<std::pair<int, int>> pixels;
  for (const POINT& point : ArcPoints({0, 0}, 13, 0, 360)) pixels.insert(Pair(point));
  for (const auto& [x, y] : pixels) {
    EXPECT_TRUE(pixels.count({-x, y})) << x << " " << y;
    EXPECT_TRUE(pixels.count({x, -y})) << x << " " << y;
    EXPECT_TRUE(pixels.count({y, x})) << x << " " << y;
  }
}

TEST(ArcPoints, WithoutRadiusAreTheCentre) {
  for (const POINT& point : ArcPoints({5, 6}, 0, 0, 90)) EXPECT_EQ(Pair(point), std::pair(5, 6));
}

TEST(ArcPoints, OfHugeCirclesAreFew) {
  const auto points = ArcPoints({0, 0}, 0xFFFFFFFF, 0, 360);
  EXPECT_LT(points.size(), 400000u);
}

}  // namespace
}  // namespace quenzel7::gdi
