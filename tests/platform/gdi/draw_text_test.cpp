#include <gtest/gtest.h>

#include <limits>
#include <optional>

#include "platform/gdi/font.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/selected.h"
#include "tests/platform/gdi/altered_font.h"
#include "tests/platform/gdi/font_samples.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();

LOGFONT Blocks() {
  LOGFONT font = Described("Unifont", 16);
  font.lfCharSet = 255;
  return font;
}

/// A white page on which byte 0xDB is a black block of 8 by 16 pixels.
class Page {
 public:
  Page() : surface_(White(100, 80)), font_(surface_.Dc(), CreateFontIndirectA(&description_)) {}

  HDC Dc() const { return surface_.Dc(); }

  int Draw(const char* text, RECT rect, std::uint32_t format, int count = -1) {
    return DrawTextA(Dc(), text, count, &rect, format);
  }

  /// The rectangle around all black pixels.
  RECT Black() const {
    RECT box{1000, 1000, 0, 0};
    for (int y = 0; y < 80; ++y) {
      for (int x = 0; x < 100; ++x) {
        if (surface_.At(x, y) != kBlack) continue;
        box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
               std::max(box.bottom, y + 1)};
      }
    }
    return box;
  }
  bool IsBlank() const { return Black().left == 1000; }

 private:
  const LOGFONT description_ = Blocks();
  Surface surface_;
  SelectedFont font_;
};

void ExpectBox(const RECT& box, int left, int top, int right, int bottom) {
  EXPECT_EQ(box.left, left);
  EXPECT_EQ(box.top, top);
  EXPECT_EQ(box.right, right);
  EXPECT_EQ(box.bottom, bottom);
}

/// Where two blocks come to be in the rectangle (10, 5) to (61, 44), and what the call gives.
void ExpectPlace(std::uint32_t format, int left, int top, int height) {
  Page page;
  EXPECT_EQ(page.Draw("\xDB\xDB", {10, 5, 61, 44}, format), height) << format;
  ExpectBox(page.Black(), left, top, left + 16, top + 16);
}

TEST(DrawTextA, AlignsALineInItsRectangle) {
  ExpectPlace(DT_LEFT, 10, 5, 16);
  ExpectPlace(DT_CENTER, 27, 5, 16);
  ExpectPlace(DT_RIGHT, 45, 5, 16);
  ExpectPlace(DT_CENTER | DT_RIGHT, 27, 5, 16);
  ExpectPlace(DT_SINGLELINE, 10, 5, 16);
  ExpectPlace(DT_SINGLELINE | DT_VCENTER, 10, 16, 27);
  ExpectPlace(DT_SINGLELINE | DT_BOTTOM, 10, 28, 39);
  ExpectPlace(DT_SINGLELINE | DT_BOTTOM | DT_VCENTER, 10, 16, 27);
  ExpectPlace(DT_SINGLELINE | DT_BOTTOM | DT_RIGHT, 45, 28, 39);
}

TEST(DrawTextA, AlignsVerticallyOnlyASingleLine) {
  ExpectPlace(DT_VCENTER, 10, 5, 16);
  ExpectPlace(DT_BOTTOM, 10, 5, 16);
}

TEST(DrawTextA, CentresWhatIsLargerThanItsRectangleOverBothEdges) {
  // Of an odd number of pixels the greater half hangs over at the right and at the bottom.
  for (const int more : {0, 1}) {
    Page wide;
    EXPECT_EQ(wide.Draw("\xDB\xDB\xDB", {30, 5, 40 + more, 44}, DT_NOCLIP | DT_CENTER), 16);
    ExpectBox(wide.Black(), 23 + more, 5, 47 + more, 21);
    Page high;
    EXPECT_EQ(high.Draw("\xDB", {10, 20, 60, 30 + more}, DT_SINGLELINE | DT_VCENTER | DT_NOCLIP), 13 + more);
    ExpectBox(high.Black(), 10, 17 + more, 18, 33 + more);
  }
}

TEST(DrawTextA, GivesTheHeightOfAllLines) {
  Page page;
  EXPECT_EQ(page.Draw("\xDB\r\n\xDB\n\xDB", {10, 5, 90, 79}, 0), 48);
  ExpectBox(page.Black(), 10, 5, 18, 53);
  EXPECT_EQ(page.Draw("", {10, 5, 90, 79}, 0), 16);
  EXPECT_EQ(page.Draw(nullptr, {10, 5, 90, 79}, 0, 0), 16);
}

TEST(DrawTextA, AlignsEachLineByItself) {
  Page page;
  page.Draw("\xDB\xDB\xDB\n\xDB", {10, 0, 50, 40}, DT_RIGHT);
  ExpectBox(page.Black(), 26, 0, 50, 32);
  EXPECT_EQ(GetPixel(page.Dc(), 41, 16), kWhite);
  EXPECT_EQ(GetPixel(page.Dc(), 42, 16), kBlack);
}

TEST(DrawTextA, ClipsToTheRectangle) {
  Page page;
  EXPECT_EQ(page.Draw("\xDB\xDB\xDB\n\xDB", {10, 5, 27, 22}, 0), 32);
  ExpectBox(page.Black(), 10, 5, 27, 22);
  Page left;
  left.Draw("\xDB\xDB\xDB", {10, 5, 27, 22}, DT_RIGHT | DT_SINGLELINE | DT_BOTTOM);
  ExpectBox(left.Black(), 10, 6, 27, 22);
}

TEST(DrawTextA, LeavesTheClipOutIfToldSo) {
  Page page;
  page.Draw("\xDB\xDB\xDB\n\xDB", {10, 5, 27, 22}, DT_NOCLIP);
  ExpectBox(page.Black(), 10, 5, 34, 37);
}

TEST(DrawTextA, PaintsNothingInARectangleWithoutExtent) {
  Page page;
  EXPECT_EQ(page.Draw("\xDB", {10, 5, 10, 40}, 0), 16);
  EXPECT_EQ(page.Draw("\xDB", {40, 5, 10, 40}, 0), 16);
  EXPECT_EQ(page.Draw("\xDB", {10, 40, 40, 40}, 0), 16);
  EXPECT_TRUE(page.IsBlank());
}

TEST(DrawTextA, BreaksWordsAtTheWidthOfTheRectangle) {
  Page page;
  EXPECT_EQ(page.Draw("\xDB\xDB \xDB", {10, 0, 42, 80}, DT_WORDBREAK), 16);
  EXPECT_EQ(page.Draw("\xDB\xDB \xDB", {10, 0, 41, 80}, DT_WORDBREAK), 32);
  EXPECT_EQ(page.Draw("\xDB\xDB \xDB", {10, 0, 41, 80}, 0), 16);
  EXPECT_EQ(page.Draw("\xDB\xDB \xDB", {10, 0, 41, 80}, DT_WORDBREAK | DT_SINGLELINE), 16);
}

TEST(DrawTextA, CalculatesTheRectangleAndPaintsNothing) {
  Page page;
  const auto calculated = [&](const char* text, std::uint32_t format, int height) {
    RECT rect{10, 5, 42, 6};
    EXPECT_EQ(DrawTextA(page.Dc(), text, -1, &rect, DT_CALCRECT | format), height);
    EXPECT_EQ(rect.left, 10);
    EXPECT_EQ(rect.top, 5);
    return std::pair(rect.right, rect.bottom);
  };
  EXPECT_EQ(calculated("abc", 0, 16), std::pair(34, 21));
  EXPECT_EQ(calculated("abcdefgh", 0, 16), std::pair(74, 21));
  EXPECT_EQ(calculated("ab cde", DT_WORDBREAK, 32), std::pair(34, 37));
  EXPECT_EQ(calculated("abcdefgh i", DT_WORDBREAK, 32), std::pair(74, 37));
  EXPECT_EQ(calculated("", 0, 16), std::pair(10, 21));
  EXPECT_EQ(calculated("abc", DT_SINGLELINE | DT_VCENTER | DT_RIGHT, 16), std::pair(34, 21));
  EXPECT_EQ(calculated("abcdefgh", DT_END_ELLIPSIS, 16), std::pair(42, 21));
  EXPECT_TRUE(page.IsBlank());
}

TEST(DrawTextA, UnderlinesBehindAPrefix) {
  Page page;
  page.Draw(" & ", {10, 5, 90, 40}, 0);
  ExpectBox(page.Black(), 18, 20, 26, 21);
  Page off;
  SetTextColor(off.Dc(), kBlack);
  RECT rect{0, 0, 0, 0};
  DrawTextA(off.Dc(), "&&", -1, &rect, DT_CALCRECT | DT_NOPREFIX);
  EXPECT_EQ(rect.right, 16);
  DrawTextA(off.Dc(), "&&", -1, &rect, DT_CALCRECT);
  EXPECT_EQ(rect.right, 8);
}

TEST(DrawTextA, UnderlinesInTheLineAndWhereTheLineBegins) {
  Page second;
  second.Draw(" \n& ", {10, 5, 90, 60}, 0);
  ExpectBox(second.Black(), 10, 36, 18, 37);
  Page right;
  right.Draw("&  ", {10, 5, 61, 44}, DT_RIGHT);
  ExpectBox(right.Black(), 45, 20, 53, 21);
}

TEST(DrawTextA, ExpandsTabsToEightAverageWidthsOrAsManyAsTold) {
  const auto width = [](const char* text, std::uint32_t format) {
    Page page;
    RECT rect{0, 0, 0, 0};
    DrawTextA(page.Dc(), text, -1, &rect, DT_CALCRECT | format);
    return rect.right;
  };
  EXPECT_EQ(width("a\tb", DT_EXPANDTABS), 72);
  EXPECT_EQ(width("abcdefgh\tb", DT_EXPANDTABS), 136);
  Page page;
  // The number of characters takes the place of the flags from bit 8 on, DT_CALCRECT among them.
  EXPECT_EQ(page.Draw("a\t\xDB", {0, 0, 100, 20}, DT_EXPANDTABS | DT_TABSTOP | 0x0400), 16);
  EXPECT_EQ(GetPixel(page.Dc(), 31, 15), kWhite);
  EXPECT_EQ(GetPixel(page.Dc(), 32, 15), kBlack);
  Page zero;
  zero.Draw("\t\xDB", {0, 0, 100, 20}, DT_EXPANDTABS | DT_TABSTOP);
  ExpectBox(zero.Black(), 64, 0, 72, 16);
  Page most;
  most.Draw("\xDB\t\xDB", {0, 0, 100, 20}, DT_EXPANDTABS | DT_TABSTOP | 0xFF00);
  ExpectBox(most.Black(), 0, 0, 8, 16);
}

TEST(DrawTextA, PrefixesStillCountBesideATabStop) {
  Page page;
  page.Draw("& ", {10, 5, 90, 40}, DT_TABSTOP | 0x0800);
  ExpectBox(page.Black(), 10, 20, 18, 21);
}

TEST(DrawTextA, EndsWhatDoesNotFitInThreeDots) {
  Page page;
  SetBkColor(page.Dc(), kRed);
  page.Draw("    \n     ", {0, 0, 39, 40}, DT_WORD_ELLIPSIS);
  // One space and three dots: 32 pixels wide.
  EXPECT_EQ(GetPixel(page.Dc(), 31, 0), kRed);
  EXPECT_EQ(GetPixel(page.Dc(), 31, 16), kRed);
  EXPECT_EQ(GetPixel(page.Dc(), 32, 16), kWhite);
  Page end;
  SetBkColor(end.Dc(), kRed);
  end.Draw("     \n     ", {0, 0, 39, 40}, DT_END_ELLIPSIS);
  EXPECT_EQ(GetPixel(end.Dc(), 38, 0), kRed);
  EXPECT_EQ(GetPixel(end.Dc(), 31, 16), kRed);
  EXPECT_EQ(GetPixel(end.Dc(), 32, 16), kWhite);
}

TEST(DrawTextA, LinesCanBeFartherApartThanTheyAreHigh) {
  Page page;
  EXPECT_EQ(page.Draw("\xDB\n\xDB", {0, 0, 90, 90}, DT_EXTERNALLEADING), 32);
  AlteredUnifont altered;
  const FontCatalog catalog = altered.Put("OS/2", kLineGap, 10).Catalog();
  Context& context = *Handles().Find<Context>(page.Dc());
  context.realizedFont = std::make_shared<Font>(context.font, catalog, std::make_shared<FaceLibrary>());
  EXPECT_EQ(page.Draw("a\nb", {0, 0, 90, 80}, DT_EXTERNALLEADING), 38);
  EXPECT_EQ(page.Draw("a\nb", {0, 0, 90, 80}, 0), 32);
  TEXTMETRICA metrics{};
  GetTextMetricsA(page.Dc(), &metrics);
  EXPECT_EQ(metrics.tmExternalLeading, 3);
  PatBlt(page.Dc(), 0, 0, 100, 80, WHITENESS);
  page.Draw("\n\xDB", {0, 0, 90, 80}, DT_EXTERNALLEADING);
  ExpectBox(page.Black(), 0, 19, 8, 35);
  context.realizedFont = nullptr;
}

TEST(DrawTextA, TakesAsManyBytesAsItIsToldOrAll) {
  Page page;
  page.Draw("\xDB\xDB\xDB", {0, 0, 90, 40}, 0, 2);
  ExpectBox(page.Black(), 0, 0, 16, 16);
  page.Draw("\xDB\xDB\xDB", {0, 0, 90, 40}, 0, kMax);
  ExpectBox(page.Black(), 0, 0, 24, 16);
}

TEST(DrawTextA, FailsWithoutContextTextOrRectangle) {
  Page page;
  RECT rect{0, 0, 10, 10};
  EXPECT_EQ(DrawTextA(0, "a", 1, &rect, 0), 0);
  EXPECT_EQ(DrawTextA(page.Dc(), "a", 1, nullptr, 0), 0);
  EXPECT_EQ(DrawTextA(page.Dc(), nullptr, 1, &rect, 0), 0);
  EXPECT_EQ(DrawTextA(page.Dc(), nullptr, -1, &rect, 0), 0);
  EXPECT_EQ(DrawTextA(page.Dc(), "a", -2, &rect, DT_CALCRECT), 0);
  EXPECT_EQ(DrawTextA(page.Dc(), "a", kMin, &rect, DT_CALCRECT), 0);
  EXPECT_EQ(rect.bottom, 10);
}

TEST(DrawTextA, SurvivesRectanglesAtTheEndsOfTheWorld) {
  Page page;
  for (const RECT& rect : {RECT{kMin, kMin, kMax, kMax}, RECT{kMax, kMax, kMin, kMin},
                           RECT{kMin, kMin, kMin, kMin}, RECT{kMax, kMax, kMax, kMax}}) {
    for (const std::uint32_t format : {0u, 0x25u, 0x2Au, 0x50u, 0x100u, 0x8000u}) {
      page.Draw("\xDB \xDB", rect, format);
      RECT changed = rect;
      DrawTextA(page.Dc(), "a b", -1, &changed, format | DT_CALCRECT);
    }
  }
  RECT far{kMax - 3, kMax - 3, 0, 0};
  EXPECT_EQ(DrawTextA(page.Dc(), "abc", -1, &far, DT_CALCRECT), 16);
  EXPECT_EQ(far.right, kMax);
  EXPECT_EQ(far.bottom, kMax);
  EXPECT_EQ(page.Draw("a", {0, kMin, 0, kMax}, DT_SINGLELINE | DT_BOTTOM), kMax);
}

TEST(DrawTextA, InAPathIsNeitherPaintedNorKept) {
  Page page;
  BeginPath(page.Dc());
  EXPECT_EQ(page.Draw("\xDB", {0, 0, 50, 50}, 0), 16);
  EndPath(page.Dc());
  EXPECT_EQ(StrokePath(page.Dc()), 1);
  EXPECT_TRUE(page.IsBlank());
}

}  // namespace
}  // namespace quenzel7::gdi
