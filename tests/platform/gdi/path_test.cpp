#include "platform/gdi/path.h"

#include <gtest/gtest.h>

#include <array>

namespace quenzel7::gdi {
namespace {

std::vector<std::pair<int, int>> Points(const Path::Figure& figure) {
  std::vector<std::pair<int, int>> points;
  for (const POINT& point : figure.points) points.emplace_back(point.x, point.y);
  return points;
}

using Pairs = std::vector<std::pair<int, int>>;

TEST(Path, IsBegunEndedAndTakenOnce) {
  Path path;
  EXPECT_FALSE(path.IsRecording());
  EXPECT_FALSE(path.End());
  EXPECT_FALSE(path.Take());
  path.Begin();
  EXPECT_TRUE(path.IsRecording());
  EXPECT_FALSE(path.Take());
  EXPECT_TRUE(path.End());
  EXPECT_FALSE(path.IsRecording());
  EXPECT_FALSE(path.End());
  EXPECT_TRUE(path.Take());
  EXPECT_FALSE(path.Take());
}

TEST(Path, LinesGoOnUntilTheNextMove) {
  Path path;
  path.Begin();
  path.AddLines({1, 1}, std::array<POINT, 1>{{{2, 2}}});
  path.AddLines({99, 99}, std::array<POINT, 2>{{{3, 3}, {4, 4}}});
  path.Move();
  path.AddLines({5, 5}, std::array<POINT, 1>{{{6, 6}}});
  path.End();
  const auto figures = path.Take();
  ASSERT_EQ(figures->size(), 2u);
  EXPECT_EQ(Points((*figures)[0]), (Pairs{{1, 1}, {2, 2}, {3, 3}, {4, 4}}));
  EXPECT_EQ(Points((*figures)[1]), (Pairs{{5, 5}, {6, 6}}));
  EXPECT_FALSE((*figures)[0].isClosed);
}

TEST(Path, FiguresStandByThemselves) {
  Path path;
  path.Begin();
  path.AddLines({1, 1}, std::array<POINT, 1>{{{2, 2}}});
  path.AddFigure(std::array<POINT, 2>{{{7, 7}, {8, 8}}}, true);
  path.AddLines({2, 2}, std::array<POINT, 1>{{{3, 3}}});
  path.End();
  const auto figures = path.Take();
  ASSERT_EQ(figures->size(), 3u);
  EXPECT_EQ(Points((*figures)[0]), (Pairs{{1, 1}, {2, 2}}));
  EXPECT_EQ(Points((*figures)[1]), (Pairs{{7, 7}, {8, 8}}));
  EXPECT_TRUE((*figures)[1].isClosed);
  EXPECT_EQ(Points((*figures)[2]), (Pairs{{2, 2}, {3, 3}}));
}

TEST(Path, BeginForgetsWhatWasThere) {
  Path path;
  path.Begin();
  path.AddLines({1, 1}, std::array<POINT, 1>{{{2, 2}}});
  path.Begin();
  path.AddLines({3, 3}, std::array<POINT, 1>{{{4, 4}}});
  path.End();
  const auto figures = path.Take();
  ASSERT_EQ(figures->size(), 1u);
  EXPECT_EQ(Points((*figures)[0]), (Pairs{{3, 3}, {4, 4}}));
}

}  // namespace
}  // namespace quenzel7::gdi
