#include "platform/gdi/text_painter.h"

#include <gtest/gtest.h>

#include "tests/platform/gdi/font_samples.h"

namespace quenzel7::gdi {
namespace {

using Rows = std::vector<std::string>;

/// A context with a white bitmap and Unifont at 16 pixels.
struct Page {
  Page(int width, int height, int bitsPerPixel = 32) : bitmap(width, height, bitsPerPixel) {
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) bitmap.Set(x, y, 0xFFFFFF);
    }
    context.bitmap = &bitmap;
    context.font = Described("Unifont", 16);
  }

  /// Black '#', white '.', the background's red 'r'.
  Rows Text() const {
    Rows rows;
    for (int y = 0; y < bitmap.Height(); ++y) {
      std::string row;
      for (int x = 0; x < bitmap.Width(); ++x) {
        const COLORREF color = bitmap.At(x, y);
        row += color == 0 ? '#' : color == 0xFFFFFF ? '.' : color == 0x0000FF ? 'r' : '?';
      }
      rows.push_back(row);
    }
    return rows;
  }

  Bitmap bitmap;
  Context context;
};

constexpr Box kAll{-1000, -1000, 1000, 1000};

TEST(TextPainter, PaintsGlyphsFromTheTopLeftOfTheirCell) {
  for (const int bitsPerPixel : {1, 32}) {
    Page page(10, 17, bitsPerPixel);
    page.context.backgroundMode = TRANSPARENT;
    TextPainter(page.context, kAll).Paint(1, 1, "A");
    EXPECT_EQ(page.Text(),
              (Rows{"..........", "..........", "..........", "..........", "..........", "....##....",
                    "...#..#...", "...#..#...", "..#....#..", "..#....#..", "..######..", "..#....#..",
                    "..#....#..", "..#....#..", "..#....#..", "..........", ".........."}))
        << bitsPerPixel;
  }
}

TEST(TextPainter, OpaquePaintsTheCellsFirst) {
  Page page(11, 17);
  page.context.background = 0x0000FF;
  TextPainter(page.context, kAll).Paint(2, 0, "-");
  for (int y = 0; y < 17; ++y) {
    const std::string row = y == 16 ? "..........." : y == 9 ? "..rr####rr." : "..rrrrrrrr.";
    // The dash of this face lies in one row.
    if (page.Text()[static_cast<std::size_t>(y)] != row) {
      EXPECT_EQ(page.Text()[static_cast<std::size_t>(y)], row) << y;
    }
  }
}

TEST(TextPainter, TakesTheNearerOfBlackAndWhiteOnOneBit) {
  Page page(8, 16, 1);
  page.context.background = 0x202020;
  page.context.text = 0xE0E0E0;
  TextPainter(page.context, kAll).Paint(0, 0, "A");
  EXPECT_EQ(page.Text()[4], "###..###");
  EXPECT_EQ(page.Text()[5], "##.##.##");
  EXPECT_EQ(page.Text()[15], "########");
}

TEST(TextPainter, ClipsToTheBitmapAndTheClipOnEverySide) {
  Page whole(40, 40);
  whole.context.background = 0x0000FF;
  TextPainter(whole.context, kAll).Paint(8, 8, "AWg");
  const Rows all = whole.Text();
  // Moved about, each part of it shows what is left of it.
  for (const int dx : {-20, -12, -8, -3, 0, 5, 9, 15, 31}) {
    for (const int dy : {-24, -13, -8, 0, 7, 20, 31}) {
      Page moved(40, 40);
      moved.context.background = 0x0000FF;
      TextPainter(moved.context, kAll).Paint(8 + dx, 8 + dy, "AWg");
      const Rows rows = moved.Text();
      for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 40; ++x) {
          const int fromX = x - dx, fromY = y - dy;
          const bool isThere = fromX >= 0 && fromX < 40 && fromY >= 0 && fromY < 40;
          const char expected =
              isThere ? all[static_cast<std::size_t>(fromY)][static_cast<std::size_t>(fromX)] : '.';
          ASSERT_EQ(rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)], expected)
              << dx << "," << dy << ": " << x << "," << y;
        }
      }
    }
  }
  const Box clip{11, 12, 26, 20};
  for (const int bitsPerPixel : {1, 32}) {
    Page clipped(40, 40, bitsPerPixel), full(40, 40, bitsPerPixel);
    clipped.context.background = full.context.background = 0;
    clipped.context.text = full.context.text = 0xFFFFFF;
    TextPainter(clipped.context, clip).Paint(8, 8, "AWg");
    TextPainter(full.context, kAll).Paint(8, 8, "AWg");
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 40; ++x) {
        const bool isInside = x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
        ASSERT_EQ(clipped.bitmap.At(x, y), isInside ? full.bitmap.At(x, y) : 0xFFFFFFu) << x << "," << y;
      }
    }
  }
}

TEST(TextPainter, UnderlinesAndStrikesOutTheWholeWidth) {
  Page page(18, 16);
  page.context.font.lfUnderline = 1;
  page.context.font.lfStrikeOut = 1;
  TextPainter(page.context, kAll).Paint(1, 0, "  ");
  for (std::size_t y = 0; y < 16; ++y) {
    EXPECT_EQ(page.Text()[y], y == 15 || y == 9 ? ".################." : "..................") << y;
  }
}

TEST(TextPainter, UnderlinesOrStrikesOutByItself) {
  const auto painted = [](std::uint8_t underline, std::uint8_t strikeOut) {
    Page page(18, 16);
    page.context.font.lfUnderline = underline;
    page.context.font.lfStrikeOut = strikeOut;
    TextPainter(page.context, kAll).Paint(1, 0, "  ");
    return page.Text();
  };
  const auto lineIn = [](std::size_t row) {
    Rows rows(16, "..................");
    rows[row] = ".################.";
    return rows;
  };
  EXPECT_EQ(painted(1, 0), lineIn(15));
  EXPECT_EQ(painted(0, 1), lineIn(9));
  EXPECT_EQ(painted(0, 0), Rows(16, ".................."));
}

TEST(TextPainter, UnderlinesAStretch) {
  Page page(6, 16);
  TextPainter(page.context, {0, 0, 5, 16}).Underline(2, 0, 100);
  EXPECT_EQ(page.Text()[15], "..###.");
  EXPECT_EQ(page.Text()[14], "......");
}

TEST(TextPainter, WideGlyphsAreWholeAtTheRightEdge) {
  // Two bytes a row: the second one would reach beyond the edge.
  Page page(17, 16);
  page.context.font.lfCharSet = 204;
  page.context.font.lfWidth = 16;
  TextPainter(page.context, kAll).Paint(1, 0, "A");
  Page roomy(40, 16);
  roomy.context.font = page.context.font;
  TextPainter(roomy.context, kAll).Paint(1, 0, "A");
  for (std::size_t y = 0; y < 16; ++y) EXPECT_EQ(page.Text()[y], roomy.Text()[y].substr(0, 17));
  EXPECT_EQ(page.Text()[9], "...############..");
}

TEST(TextPainter, MakesNoPictureAnewThatDoesNotShow) {
  Page page(20, 20);
  page.context.font = Described("DejaVu Sans", 1024);
  std::string all;
  for (int byte = 33; byte < 256; ++byte) all += static_cast<char>(byte);
  Font& font = FontOf(page.context);
  WidthOf(font, all);
  const std::size_t made = font.Rasterizations();
  TextPainter(page.context, kAll).Paint(20, 0, all);
  TextPainter(page.context, kAll).Paint(0, 20, all);
  EXPECT_EQ(font.Rasterizations(), made);
  ASSERT_TRUE(font.MeasuresOfByte('A').IsForgotten());
  TextPainter(page.context, kAll).Paint(-300, -500, "A");
  EXPECT_EQ(font.Rasterizations(), made + 1);
}

TEST(WidthOf, IsTheSumOfTheAdvances) {
  const auto font = FontFor(Described("DejaVu Sans", 16));
  EXPECT_EQ(WidthOf(*font, ""), 0);
  EXPECT_EQ(WidthOf(*font, "il"), font->Advance(U'i') + font->Advance(U'l'));
  EXPECT_LT(font->Advance(U'i'), font->Advance(U'W'));
}

TEST(FontOf, IsRealizedOnceForEachSelection) {
  Page page(1, 1);
  EXPECT_EQ(page.context.realizedFont, nullptr);
  Font* font = &FontOf(page.context);
  EXPECT_EQ(&FontOf(page.context), font);
  EXPECT_EQ(font, FontFor(Described("Unifont", 16)).get());
  EXPECT_EQ(page.context.realizedFont.get(), font);
}

}  // namespace
}  // namespace quenzel7::gdi
