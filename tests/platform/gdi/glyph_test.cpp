#include "platform/gdi/glyph.h"

#include <gtest/gtest.h>

#include "tests/platform/gdi/font_samples.h"

namespace quenzel7::gdi {
namespace {

using Rows = std::vector<std::string>;

Glyph Drawn(int left, int top, int advance, const Rows& rows) {
  Glyph glyph =
      Glyph::Blank(left, top, static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), advance);
  for (int y = 0; y < glyph.height; ++y) {
    for (int x = 0; x < glyph.width; ++x) {
      if (rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] == '#') glyph.Set(x, y);
    }
  }
  return glyph;
}

TEST(Glyph, KeepsRowsInWholeBytesWithTheLeftmostPixelHighest) {
  for (const auto& [width, stride] : {std::pair(1, 1), std::pair(8, 1), std::pair(9, 2), std::pair(17, 3)}) {
    EXPECT_EQ(Glyph::Blank(0, 0, width, 2, 0).stride, stride) << width;
    EXPECT_EQ(Glyph::Blank(0, 0, width, 2, 0).bits.size(), static_cast<std::size_t>(2 * stride)) << width;
  }
  Glyph glyph = Glyph::Blank(1, 2, 9, 2, 3);
  glyph.Set(0, 0);
  glyph.Set(7, 0);
  glyph.Set(8, 1);
  EXPECT_EQ(glyph.bits, (std::vector<std::uint8_t>{0x81, 0, 0, 0x80}));
  EXPECT_EQ(glyph.Row(1)[1], 0x80);
  EXPECT_TRUE(glyph.At(8, 1));
  EXPECT_FALSE(glyph.At(8, 0));
  EXPECT_EQ(glyph.left, 1);
  EXPECT_EQ(glyph.top, 2);
  EXPECT_EQ(glyph.advance, 3);
}

TEST(Emboldened, PaintsTwiceOnePixelApart) {
  const Glyph bold = Emboldened(Drawn(-1, 5, 9, {"#..#...#", "........", ".##....."}));
  EXPECT_EQ(RowsOf(bold), (Rows{"##.##..##", ".........", ".###....."}));
  EXPECT_EQ(bold.left, -1);
  EXPECT_EQ(bold.top, 5);
  EXPECT_EQ(bold.advance, 10);
}

TEST(Glyph, IsForgottenIfItHasMeasuresButNoBits) {
  Glyph glyph = Glyph::Blank(0, 0, 1, 1, 1);
  EXPECT_FALSE(glyph.IsForgotten());
  glyph.bits.clear();
  EXPECT_TRUE(glyph.IsForgotten());
  EXPECT_FALSE(Glyph::Blank(0, 0, 0, 0, 9).IsForgotten());
}

TEST(Emboldened, CarriesPixelsIntoTheNextByte) {
  EXPECT_EQ(RowsOf(Emboldened(Drawn(0, 1, 8, {"......##"}))), Rows{"......###"});
  EXPECT_EQ(RowsOf(Emboldened(Drawn(0, 1, 9, {".......##"}))), Rows{".......###"});
}

TEST(Slanted, MovesRowsByWholeBytesAndMore) {
  const Rows column(40, "#.......#");
  const Rows rows = RowsOf(Slanted(Drawn(0, 40, 9, column)));
  ASSERT_EQ(rows.size(), 40u);
  for (std::size_t y = 0; y < 40; ++y) {
    const std::size_t lean = (39 - y) / 4;
    EXPECT_EQ(rows[y], std::string(lean, '.') + "#.......#" + std::string(9 - lean, '.')) << y;
  }
}

TEST(Emboldened, BlanksGrowToo) {
  const Glyph bold = Emboldened(Glyph::Blank(0, 0, 0, 0, 4));
  EXPECT_EQ(bold.advance, 5);
  EXPECT_EQ(bold.width, 0);
  EXPECT_EQ(bold.height, 0);
  EXPECT_TRUE(bold.bits.empty());
}

TEST(Emboldened, MarksThatTakeNoRoomStillTakeNone) {
  EXPECT_EQ(Emboldened(Drawn(0, 1, 0, {"#"})).advance, 0);
  EXPECT_EQ(Emboldened(Drawn(0, 1, 1, {"#"})).advance, 2);
}

TEST(Slanted, LeansByOnePixelInFourRows) {
  // The baseline is below the ninth row; two rows hang below it.
  const Glyph slanted = Slanted(Drawn(3, 9, 7, Rows(11, "#")));
  EXPECT_EQ(RowsOf(slanted),
            (Rows{"...#", "..#.", "..#.", "..#.", "..#.", ".#..", ".#..", ".#..", ".#..", "#...", "#..."}));
  EXPECT_EQ(slanted.left, 2);
  EXPECT_EQ(slanted.top, 9);
  EXPECT_EQ(slanted.advance, 7);
}

TEST(Slanted, BelowTheBaselineTheFifthRowLeansByTwo) {
  EXPECT_EQ(Slanted(Drawn(0, 0, 1, Rows(4, "#"))).left, -1);
  EXPECT_EQ(Slanted(Drawn(0, 0, 1, Rows(5, "#"))).left, -2);
  EXPECT_EQ(Slanted(Drawn(0, 0, 1, Rows(4, "#"))).width, 1);
}

TEST(Slanted, TakesNothingFromTheNextRow) {
  EXPECT_EQ(RowsOf(Slanted(Drawn(0, 5, 9, {".......#", "#.......", "#.......", "#.......", "#......."}))),
            (Rows{"........#", "#........", "#........", "#........", "#........"}));
}

TEST(Slanted, LeavesBlanksAlone) {
  const Glyph slanted = Slanted(Glyph::Blank(0, 0, 0, 0, 4));
  EXPECT_EQ(slanted.advance, 4);
  EXPECT_TRUE(slanted.bits.empty());
}

TEST(BoxGlyph, IsAnOutlineWithAPixelFreeAroundIt) {
  const Glyph box = BoxGlyph(6, 5);
  EXPECT_EQ(RowsOf(box), (Rows{"####", "#..#", "#..#", "####"}));
  EXPECT_EQ(box.left, 1);
  EXPECT_EQ(box.top, 4);
  EXPECT_EQ(box.advance, 6);
}

TEST(BoxGlyph, WithoutRoomIsBlank) {
  EXPECT_EQ(RowsOf(BoxGlyph(3, 2)), Rows{"#"});
  EXPECT_TRUE(BoxGlyph(2, 2).bits.empty());
  EXPECT_TRUE(BoxGlyph(3, 1).bits.empty());
  EXPECT_EQ(BoxGlyph(2, 9).advance, 2);
}

}  // namespace
}  // namespace quenzel7::gdi
