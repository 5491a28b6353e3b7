#include <gtest/gtest.h>

#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

std::vector<std::string> Map(HRGN region, int width, int height) {
  std::vector<std::string> rows;
  for (int y = 0; y < height; ++y) {
    std::string row;
    for (int x = 0; x < width; ++x) row += PtInRegion(region, x, y) != 0 ? '#' : '.';
    rows.push_back(row);
  }
  return rows;
}

TEST(CreateEllipticRgn, IsTheFilledEllipseOfABoxOnePixelLess) {
  const HRGN region = CreateEllipticRgn(0, 0, 7, 6);
  EXPECT_EQ(Map(region, 7, 6),
            (std::vector<std::string>{".####..", "######.", "######.", "######.", ".####..", "......."}));
  EXPECT_EQ(DeleteObject(region), 1);
}

TEST(CreateEllipticRgn, CoversWhatEllipseDraws) {
  for (int size = 2; size < 30; ++size) {
    const HRGN region = CreateEllipticRgn(1, 1, size + 2, 2 * size + 2);
    const Surface surface = White(40, 70);
    SelectObject(surface.Dc(), GetStockObject(BLACK_BRUSH));
    Ellipse(surface.Dc(), 1, 1, size + 1, 2 * size + 1);
    EXPECT_EQ(Map(region, 40, 70), Rows(surface)) << size;
    DeleteObject(region);
  }
}

TEST(CreateRoundRectRgn, CoversWhatRoundRectDraws) {
  for (int corner = -7; corner < 30; ++corner) {
    const HRGN region = CreateRoundRectRgn(2, 1, 25, 20, corner, corner / 2);
    const Surface surface = White(30, 30);
    SelectObject(surface.Dc(), GetStockObject(BLACK_BRUSH));
    RoundRect(surface.Dc(), 2, 1, 24, 19, corner, corner / 2);
    EXPECT_EQ(Map(region, 30, 30), Rows(surface)) << corner;
    DeleteObject(region);
  }
}

TEST(RectInRegion, LeavesRightAndBottomEdgeOut) {
  const HRGN region = CreateRoundRectRgn(5, 5, 11, 11, 0, 0);
  const auto meets = [&](RECT rect) { return RectInRegion(region, &rect); };
  EXPECT_EQ(meets({0, 0, 5, 20}), 0);
  EXPECT_EQ(meets({0, 0, 6, 20}), 1);
  EXPECT_EQ(meets({10, 0, 20, 20}), 0);
  EXPECT_EQ(meets({9, 0, 20, 20}), 1);
  EXPECT_EQ(meets({0, 0, 20, 5}), 0);
  EXPECT_EQ(meets({0, 0, 20, 6}), 1);
  EXPECT_EQ(meets({0, 10, 20, 20}), 0);
  EXPECT_EQ(meets({0, 9, 20, 20}), 1);
  EXPECT_EQ(meets({20, 20, 0, 0}), 1);
  EXPECT_EQ(meets({7, 7, 7, 7}), 1);
  EXPECT_EQ(meets({10, 7, 10, 7}), 0);
  DeleteObject(region);
}

TEST(Regions, AreObjectsLikeOthers) {
  const std::size_t before = LiveObjects();
  const HRGN region = CreateEllipticRgn(0, 0, 5, 5);
  EXPECT_EQ(LiveObjects(), before + 1);
  const Surface surface(2, 2);
  EXPECT_EQ(SelectObject(surface.Dc(), region), 0);
  EXPECT_EQ(GetObjectA(region, 0, nullptr), 0);
  EXPECT_EQ(DeleteObject(region), 1);
  EXPECT_EQ(PtInRegion(region, 2, 2), 0);
}

TEST(Regions, WrongHandlesContainNothing) {
  const RECT all{0, 0, 9, 9};
  EXPECT_EQ(PtInRegion(0, 0, 0), 0);
  EXPECT_EQ(PtInRegion(GetStockObject(BLACK_PEN), 0, 0), 0);
  EXPECT_EQ(RectInRegion(0, &all), 0);
  const HRGN region = CreateEllipticRgn(0, 0, 5, 5);
  EXPECT_EQ(RectInRegion(region, nullptr), 0);
  DeleteObject(region);
}

}  // namespace
}  // namespace quenzel7::gdi
