#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "platform/gdi/font.h"
#include "platform/gdi/selected.h"
#include "tests/platform/gdi/font_samples.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

using Text = std::vector<std::string>;
constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();

HFONT MakeFont(const LOGFONT& description) { return CreateFontIndirectA(&description); }
HFONT MakeUnifont() { return MakeFont(Described("Unifont", 16)); }

/// The letter A of Unifont in its cell of 8 by 16 pixels.
Text CellOfA(char ink, char gap) {
  Text rows(16, std::string(8, gap));
  for (std::size_t y = 0; y < kUnifontA.size(); ++y) {
    for (std::size_t x = 0; x < kUnifontA[y].size(); ++x) {
      if (kUnifontA[y][x] == '#') rows[4 + y][1 + x] = ink;
    }
  }
  return rows;
}

TEST(TextOutA, PaintsTextColorOnTheBackgroundColor) {
  const Surface surface = White(8, 16);
  const SelectedFont font(surface.Dc(), MakeUnifont());
  SetTextColor(surface.Dc(), kBlue);
  SetBkColor(surface.Dc(), kRed);
  EXPECT_EQ(TextOutA(surface.Dc(), 0, 0, "A", 1), 1);
  EXPECT_EQ(Rows(surface), CellOfA('b', 'r'));
}

TEST(TextOutA, PutsTheTopLeftOfTheCellWhereItIsTold) {
  const Surface surface = White(12, 19);
  const SelectedFont font(surface.Dc(), MakeUnifont());
  SetBkColor(surface.Dc(), kRed);
  EXPECT_EQ(TextOutA(surface.Dc(), 1, 3, "A", 1), 1);
  EXPECT_EQ(Rows(surface),
            (Text{"............", "............", "............", ".rrrrrrrr...", ".rrrrrrrr...",
                  ".rrrrrrrr...", ".rrrrrrrr...", ".rrr##rrr...", ".rr#rr#rr...", ".rr#rr#rr...",
                  ".r#rrrr#r...", ".r#rrrr#r...", ".r######r...", ".r#rrrr#r...", ".r#rrrr#r...",
                  ".r#rrrr#r...", ".r#rrrr#r...", ".rrrrrrrr...", ".rrrrrrrr..."}));
}

TEST(TextOutA, PaintsNoBackgroundIfItIsTransparent) {
  const Surface surface = White(8, 16);
  const SelectedFont font(surface.Dc(), MakeUnifont());
  SetBkColor(surface.Dc(), kRed);
  SetBkMode(surface.Dc(), TRANSPARENT);
  EXPECT_EQ(TextOutA(surface.Dc(), 0, 0, "A", 1), 1);
  EXPECT_EQ(Rows(surface), CellOfA('#', '.'));
}

TEST(TextOutA, TakesAsManyBytesAsItIsTold) {
  const Surface surface = White(40, 16);
  const SelectedFont font(surface.Dc(), MakeUnifont());
  SetBkColor(surface.Dc(), kRed);
  TextOutA(surface.Dc(), 0, 0, "   ", 2);
  EXPECT_EQ(Rows(surface)[0], std::string(16, 'r') + std::string(24, '.'));
  TextOutA(surface.Dc(), 0, 0, "   ", kMax);
  EXPECT_EQ(Rows(surface)[0], std::string(24, 'r') + std::string(16, '.'));
  SetBkColor(surface.Dc(), kBlue);
  EXPECT_EQ(TextOutA(surface.Dc(), 0, 0, "   ", 0), 1);
  EXPECT_EQ(Rows(surface)[0], std::string(24, 'r') + std::string(16, '.'));
}

TEST(TextOutA, FailsWithoutContextTextOrLength) {
  const Surface surface = White(8, 16);
  const HDC dc = surface.Dc();
  EXPECT_EQ(TextOutA(0, 0, 0, "A", 1), 0);
  EXPECT_EQ(TextOutA(GetStockObject(BLACK_PEN), 0, 0, "A", 1), 0);
  EXPECT_EQ(TextOutA(dc, 0, 0, "A", -1), 0);
  EXPECT_EQ(TextOutA(dc, 0, 0, "A", kMin), 0);
  EXPECT_EQ(TextOutA(dc, 0, 0, nullptr, 1), 0);
  EXPECT_EQ(TextOutA(dc, 0, 0, nullptr, -1), 0);
  EXPECT_EQ(TextOutA(dc, 0, 0, nullptr, 0), 1);
  EXPECT_EQ(TextOutA(0, 0, 0, nullptr, 0), 0);
  EXPECT_EQ(Rows(surface), Text(16, "........"));
}

TEST(TextOutA, FarAwayPaintsNothing) {
  const Surface surface = White(8, 16);
  for (const int at : {kMin, -1000000, 1000000, kMax}) {
    EXPECT_EQ(TextOutA(surface.Dc(), at, 0, "AAA", 3), 1);
    EXPECT_EQ(TextOutA(surface.Dc(), 0, at, "AAA", 3), 1);
  }
  EXPECT_EQ(Rows(surface), Text(16, "........"));
}

TEST(TextOutA, InAPathIsNeitherPaintedNorKept) {
  const Surface surface = White(8, 16);
  const HDC dc = surface.Dc();
  BeginPath(dc);
  EXPECT_EQ(TextOutA(dc, 0, 0, "A", 1), 1);
  EXPECT_EQ(TextOutA(dc, 0, 0, "A", -1), 0);
  EndPath(dc);
  EXPECT_EQ(StrokeAndFillPath(dc), 1);
  EXPECT_EQ(Rows(surface), Text(16, "........"));
}

TEST(TextOutA, LeavesThePenPositionAlone) {
  const Surface surface = White(8, 16);
  MoveToEx(surface.Dc(), 3, 4, nullptr);
  TextOutA(surface.Dc(), 0, 0, "A", 1);
  POINT position{};
  MoveToEx(surface.Dc(), 0, 0, &position);
  EXPECT_EQ(position.x, 3);
  EXPECT_EQ(position.y, 4);
}

TEST(TextOutA, FollowsTheFontThatIsSelected) {
  const Surface surface = White(20, 20);
  SetBkColor(surface.Dc(), kRed);
  const auto box = [&] {
    surface.Pixels()[0] = 0;
    PatBlt(surface.Dc(), 0, 0, 20, 20, WHITENESS);
    TextOutA(surface.Dc(), 0, 0, " ", 1);
    int width = 0, height = 0;
    while (width < 20 && surface.At(width, 0) == kRed) ++width;
    while (height < 20 && surface.At(0, height) == kRed) ++height;
    return std::pair(width, height);
  };
  {
    const SelectedFont font(surface.Dc(), MakeUnifont());
    EXPECT_EQ(box(), std::pair(8, 16));
    const SelectedFont small(surface.Dc(), MakeFont(Described("Unifont", 8)));
    EXPECT_EQ(box(), std::pair(4, 8));
  }
  EXPECT_EQ(box().second, 16);
  EXPECT_NE(box().first, 8);
}

TEST(TextOutA, BytesAreInTheCodePageOfTheFont) {
  LOGFONT oem = Described("Unifont", 16);
  oem.lfCharSet = 255;
  const Surface surface = White(8, 16);
  const SelectedFont font(surface.Dc(), MakeFont(oem));
  TextOutA(surface.Dc(), 0, 0, "\xDB", 1);
  EXPECT_EQ(Rows(surface), Text(16, "########"));
}

TEST(TextOutA, LeavesNoObjectsBehind) {
  const Surface surface = White(8, 16);
  const std::size_t before = LiveObjects();
  {
    const SelectedFont font(surface.Dc(), MakeUnifont());
    TextOutA(surface.Dc(), 0, 0, "A", 1);
  }
  EXPECT_EQ(LiveObjects(), before);
}

TEST(GetTextExtentPoint32A, MeasuresAdvancesAndHeight) {
  const Surface surface(1, 1);
  const SelectedFont font(surface.Dc(), MakeUnifont());
  SIZE size{-1, -1};
  EXPECT_EQ(GetTextExtentPoint32A(surface.Dc(), "Hello", 4, &size), 1);
  EXPECT_EQ(size.cx, 32);
  EXPECT_EQ(size.cy, 16);
  EXPECT_EQ(GetTextExtentPoint32A(surface.Dc(), "Hello", kMax, &size), 1);
  EXPECT_EQ(size.cx, 40);
  EXPECT_EQ(GetTextExtentPoint32A(surface.Dc(), nullptr, 0, &size), 1);
  EXPECT_EQ(size.cx, 0);
  EXPECT_EQ(size.cy, 16);
}

TEST(GetTextExtentPoint32A, FailsWithoutWhatItNeeds) {
  const Surface surface(1, 1);
  SIZE size{7, 8};
  EXPECT_EQ(GetTextExtentPoint32A(0, "A", 1, &size), 0);
  EXPECT_EQ(GetTextExtentPoint32A(surface.Dc(), "A", -1, &size), 0);
  EXPECT_EQ(GetTextExtentPoint32A(surface.Dc(), nullptr, 1, &size), 0);
  EXPECT_EQ(GetTextExtentPoint32A(surface.Dc(), "A", 1, nullptr), 0);
  EXPECT_EQ(size.cx, 7);
  EXPECT_EQ(size.cy, 8);
}

TEST(GetTextMetricsA, DescribesTheRealizedFont) {
  const Surface surface(1, 1);
  LOGFONT description = Described("DejaVu Sans", 28, 600);
  description.lfItalic = 2;
  description.lfUnderline = 3;
  description.lfStrikeOut = 4;
  description.lfCharSet = 161;
  const SelectedFont font(surface.Dc(), MakeFont(description));
  TEXTMETRICA found{};
  EXPECT_EQ(GetTextMetricsA(surface.Dc(), &found), 1);
  EXPECT_EQ(found.tmHeight, 28);
  EXPECT_EQ(found.tmAscent, 22);
  EXPECT_EQ(found.tmDescent, 6);
  EXPECT_EQ(found.tmInternalLeading, 4);
  EXPECT_EQ(found.tmExternalLeading, 0);
  std::int32_t x = 0;
  EXPECT_EQ(GetCharWidth32A(surface.Dc(), 'x', 'x', &x), 1);
  EXPECT_EQ(found.tmAveCharWidth, x);
  EXPECT_GT(found.tmMaxCharWidth, 28);
  EXPECT_EQ(found.tmWeight, 700);
  EXPECT_EQ(found.tmOverhang, 0);
  EXPECT_EQ(found.tmDigitizedAspectX, 96);
  EXPECT_EQ(found.tmDigitizedAspectY, 96);
  EXPECT_EQ(found.tmFirstChar, 32);
  EXPECT_EQ(found.tmLastChar, 255);
  EXPECT_EQ(found.tmDefaultChar, '?');
  EXPECT_EQ(found.tmBreakChar, 32);
  EXPECT_EQ(found.tmItalic, 1);
  EXPECT_EQ(found.tmUnderlined, 1);
  EXPECT_EQ(found.tmStruckOut, 1);
  EXPECT_EQ(found.tmPitchAndFamily, FF_SWISS | TMPF_FIXED_PITCH | TMPF_VECTOR | TMPF_TRUETYPE);
  EXPECT_EQ(found.tmCharSet, 161);
}

TEST(GetTextMetricsA, TellsLeaningUnderlinedAndStruckOutApart) {
  const auto flags = [](std::uint8_t italic, std::uint8_t underline, std::uint8_t strikeOut) {
    const Surface surface(1, 1);
    LOGFONT description = Described("Unifont", 16);
    description.lfItalic = italic;
    description.lfUnderline = underline;
    description.lfStrikeOut = strikeOut;
    const SelectedFont font(surface.Dc(), MakeFont(description));
    TEXTMETRICA found{};
    EXPECT_EQ(GetTextMetricsA(surface.Dc(), &found), 1);
    return std::array<int, 3>{found.tmItalic, found.tmUnderlined, found.tmStruckOut};
  };
  EXPECT_EQ(flags(1, 0, 0), (std::array<int, 3>{1, 0, 0}));
  EXPECT_EQ(flags(0, 1, 0), (std::array<int, 3>{0, 1, 0}));
  EXPECT_EQ(flags(0, 0, 1), (std::array<int, 3>{0, 0, 1}));
}

TEST(GetTextMetricsA, TellsAFixedPitchByTheBitThatIsNotSet) {
  const Surface surface(1, 1);
  LOGFONT description = Described("DejaVu Sans Mono", 16);
  description.lfCharSet = 1;
  const SelectedFont font(surface.Dc(), MakeFont(description));
  TEXTMETRICA found{};
  GetTextMetricsA(surface.Dc(), &found);
  EXPECT_EQ(found.tmPitchAndFamily, FF_MODERN | TMPF_VECTOR | TMPF_TRUETYPE);
  EXPECT_EQ(found.tmCharSet, 0);
  EXPECT_EQ(found.tmWeight, 400);
  EXPECT_EQ(found.tmItalic + found.tmUnderlined + found.tmStruckOut, 0);
  EXPECT_EQ(GetTextMetricsA(surface.Dc(), nullptr), 0);
  EXPECT_EQ(GetTextMetricsA(0, &found), 0);
}

TEST(GetCharWidth32A, GivesTheAdvancesOfARange) {
  const Surface surface(1, 1);
  const SelectedFont font(surface.Dc(), MakeUnifont());
  std::array<std::int32_t, 4> widths{-1, -1, -1, -1};
  EXPECT_EQ(GetCharWidth32A(surface.Dc(), 'A', 'C', widths.data()), 1);
  EXPECT_EQ(widths, (std::array<std::int32_t, 4>{8, 8, 8, -1}));
  EXPECT_EQ(GetCharWidth32A(surface.Dc(), 255, 255, widths.data()), 1);
}

TEST(GetCharWidth32A, GivesEachByteItsOwnAdvance) {
  const Surface surface(1, 1);
  const SelectedFont font(surface.Dc(), MakeFont(Described("DejaVu Sans", 16)));
  std::array<std::int32_t, 7> widths{};
  EXPECT_EQ(GetCharWidth32A(surface.Dc(), 'h', 'n', widths.data()), 1);
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const char letter = static_cast<char>('h' + i);
    SIZE size{};
    GetTextExtentPoint32A(surface.Dc(), &letter, 1, &size);
    EXPECT_EQ(widths[i], size.cx) << letter;
  }
  EXPECT_NE(widths['i' - 'h'], widths['m' - 'h']);
}

TEST(GetCharWidth32A, BytesAreInTheCodePageOfTheFont) {
  const auto widthOf = [](std::uint8_t charSet, std::uint32_t byte) {
    const Surface surface(1, 1);
    LOGFONT description = Described("DejaVu Sans", 16);
    description.lfCharSet = charSet;
    const SelectedFont font(surface.Dc(), MakeFont(description));
    std::int32_t width = 0;
    EXPECT_EQ(GetCharWidth32A(surface.Dc(), byte, byte, &width), 1);
    return width;
  };
  // The Greek iota, as narrow as an i, and the e with an acute accent.
  const auto font = FontFor(Described("DejaVu Sans", 16));
  EXPECT_EQ(widthOf(161, 0xE9), font->Advance(0x03B9));
  EXPECT_EQ(widthOf(0, 0xE9), font->Advance(0x00E9));
  EXPECT_NE(font->Advance(0x03B9), font->Advance(0x00E9));
}

TEST(GetCharWidth32A, FailsOutsideOfTheBytes) {
  const Surface surface(1, 1);
  std::array<std::int32_t, 4> widths{7, 7, 7, 7};
  EXPECT_EQ(GetCharWidth32A(surface.Dc(), 66, 65, widths.data()), 0);
  EXPECT_EQ(GetCharWidth32A(surface.Dc(), 255, 256, widths.data()), 0);
  EXPECT_EQ(GetCharWidth32A(surface.Dc(), 0, 0xFFFFFFFF, widths.data()), 0);
  EXPECT_EQ(GetCharWidth32A(surface.Dc(), 65, 65, nullptr), 0);
  EXPECT_EQ(GetCharWidth32A(0, 65, 65, widths.data()), 0);
  EXPECT_EQ(widths[0], 7);
}

TEST(BackgroundMode, TransparentLeavesTheGapsOfDashes) {
  const Surface surface = White(7, 1);
  SetBkColor(surface.Dc(), kRed);
  const SelectedPen pen(surface.Dc(), MakePen(PS_DOT, 1, kBlue));
  LineTo(surface.Dc(), 7, 0);
  EXPECT_EQ(Rows(surface), Text{"bbbrrrb"});
  PatBlt(surface.Dc(), 0, 0, 7, 1, WHITENESS);
  SetBkMode(surface.Dc(), TRANSPARENT);
  MoveToEx(surface.Dc(), 0, 0, nullptr);
  LineTo(surface.Dc(), 7, 0);
  EXPECT_EQ(Rows(surface), Text{"bbb...b"});
}

TEST(BackgroundMode, TransparentLeavesTheGapsOfHatches) {
  const Surface surface = White(8, 1), source(8, 1);
  const HDC dc = surface.Dc();
  SetBkColor(dc, kRed);
  SetBkMode(dc, TRANSPARENT);
  const SelectedBrush brush(dc, CreateHatchBrush(HS_VERTICAL, kBlue));
  const RECT all{0, 0, 8, 1};
  FillRect(dc, &all, brush.Get());
  EXPECT_EQ(Rows(surface), Text{"....b..."});
  PatBlt(dc, 0, 0, 8, 1, WHITENESS);
  PatBlt(dc, 0, 0, 4, 1, PATINVERT);
  PatBlt(dc, 4, 0, 4, 1, PATCOPY);
  EXPECT_EQ(Rows(surface), Text{"....b..."});
  // Pattern, source and target together: the gaps keep what was there.
  PatBlt(dc, 0, 0, 8, 1, WHITENESS);
  BitBlt(dc, 0, 0, 8, 1, source.Dc(), 0, 0, 0x00FB0A09);
  EXPECT_EQ(surface.At(0, 0), kWhite);
  EXPECT_EQ(surface.At(3, 0), kWhite);
}

}  // namespace
}  // namespace quenzel7::gdi
