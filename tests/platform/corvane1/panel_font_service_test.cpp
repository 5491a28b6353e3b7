#include "platform/corvane1/panel_font_service.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/gdi/font.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"
#include "platform/gdi/surface.h"
#include "tests/support/raises.h"

namespace quenzel7::corvane1 {
namespace {

using Extent = TextExtent;

TEST(PanelFontService, NamesItsDefaults) {
  PanelFontService fonts;
  EXPECT_EQ(fonts.GetDefaultFontNumber(), 1);
  EXPECT_EQ(fonts.GetDefaultDescriptionFontNumber(), 2);
  EXPECT_EQ(fonts.GetFontName(0), "Unifont 16");
  EXPECT_EQ(fonts.GetFontName(2), "DejaVu Sans 14");
  EXPECT_EQ(fonts.GetFontName(246995310), "String variables");
}

TEST(PanelFontService, EveryFontHasTheHeightOfItsList) {
  PanelFontService fonts;
  for (const PanelFont& font : PanelFonts())
    EXPECT_EQ(fonts.GetCharHeight(font.number), font.height) << font.name;
}

TEST(PanelFontService, AnUnknownNumberIsTheDefaultFont) {
  PanelFontService fonts;
  for (const Long number :
       {-1, 40, 246995309, 246995311, std::numeric_limits<Long>::min(), std::numeric_limits<Long>::max()}) {
    EXPECT_EQ(fonts.GetFontName(number), "DejaVu Sans 16") << number;
    EXPECT_EQ(fonts.GetCharHeight(number), 16) << number;
    EXPECT_EQ(fonts.GetCharWidths(number), fonts.GetCharWidths(1)) << number;
    EXPECT_EQ(fonts.GetTextRect("Width", number), fonts.GetTextRect("Width", 1)) << number;
  }
}

TEST(PanelFontService, MeasuresCharactersByTheirAnsiCode) {
  PanelFontService fonts;
  const auto widths = fonts.GetCharWidths(0);
  for (std::size_t code = 32; code < 127; ++code) EXPECT_EQ(widths[code], 8) << code;
  const auto sans = fonts.GetCharWidths(1);
  EXPECT_LT(sans['i'], sans['W']);
  // Code 128 is the euro sign there, and 133 the dots.
  EXPECT_EQ(sans[128], fonts.GetTextRect("\xE2\x82\xAC", 1).width);
  EXPECT_EQ(sans[133], fonts.GetTextRect("\xE2\x80\xA6", 1).width);
  EXPECT_EQ(sans[255], fonts.GetTextRect("\xC3\xBF", 1).width);
}

TEST(PanelFontService, MeasuresWhatTheGraphicsInterfacePaints) {
  PanelFontService fonts;
  const gdi::Surface surface(1, 1);
  for (const PanelFont& font : PanelFonts()) {
    gdi::LOGFONT description{};
    description.lfHeight = font.height;
    description.lfWeight = font.weight;
    font.family.copy(description.lfFaceName, 31);
    const gdi::SelectedFont selected(surface.Dc(), gdi::CreateFontIndirectA(&description));
    gdi::SIZE size{};
    gdi::GetTextExtentPoint32A(surface.Dc(), "Speed 12.5", 10, &size);
    EXPECT_EQ(fonts.GetTextRect("Speed 12.5", font.number), (Extent{size.cx, size.cy})) << font.name;
  }
}

TEST(PanelFontService, MeasuringInEveryFontMakesNoneAnew) {
  PanelFontService fonts;
  gdi::LOGFONT description{};
  description.lfHeight = 16;
  description.lfWeight = 400;
  std::string("DejaVu Sans").copy(description.lfFaceName, 31);
  const auto first = gdi::FontFor(description);
  for (const PanelFont& font : PanelFonts()) fonts.GetTextRect("abc", font.number);
  const std::size_t made = first->Rasterizations();
  for (const PanelFont& font : PanelFonts()) {
    if (font.number != 1) fonts.GetTextRect("abc", font.number);
  }
  EXPECT_EQ(gdi::FontFor(description), first);
  fonts.GetTextRect("abc", 1);
  EXPECT_EQ(first->Rasterizations(), made);
}

TEST(PanelFontService, TakesLinesApartAtTheirBreaks) {
  PanelFontService fonts;
  EXPECT_EQ(fonts.GetTextRect("abc", 0), (Extent{24, 16}));
  EXPECT_EQ(fonts.GetTextRect("a\r\nabc\r\nab", 0), (Extent{24, 48}));
  EXPECT_EQ(fonts.GetTextRect("abc\r\n", 0), (Extent{24, 32}));
  EXPECT_EQ(fonts.GetTextRect("\r\n", 0), (Extent{0, 32}));
  EXPECT_EQ(fonts.GetTextRect(" ", 0), (Extent{8, 16}));
}

TEST(PanelFontService, OneHalfOfALineBreakIsACharacter) {
  PanelFontService fonts;
  EXPECT_EQ(fonts.GetTextRect("a\nb", 0).height, 16);
  EXPECT_EQ(fonts.GetTextRect("a\rb", 0).height, 16);
  EXPECT_EQ(fonts.GetTextRect("a\n\rb", 0).height, 16);
}

TEST(PanelFontService, AnEmptyTextTakesNoRectangle) {
  PanelFontService fonts;
  EXPECT_EQ(fonts.GetTextRect("", 0), (Extent{0, 0}));
}

TEST(PanelFontService, ReadsUtf8) {
  PanelFontService fonts;
  EXPECT_EQ(fonts.GetTextRect("\xC3\xA4", 0), (Extent{8, 16}));
  EXPECT_EQ(fonts.GetTextRect("\xE4\xB8\xAD", 0), (Extent{16, 16}));
  EXPECT_EQ(fonts.GetTextRect("\xE4\xB8", 0), fonts.GetTextRect("\xEF\xBF\xBD", 0));
}

TEST(PanelFontService, ATextBeyondAllNumbersIsAsLargeAsTheLargest) {
  // Lines of 993 pixels come to exactly one below the largest number.
  PanelFontService fonts(
      PanelFontList({{1, "Lines", "Unifont", 993, 400}, {2, "Words", "Unifont", 1024, 400}}, 1, 1));
  constexpr std::size_t kLines = 2162622;
  std::string breaks;
  for (std::size_t line = 1; line < kLines; ++line) breaks += "\r\n";
  EXPECT_EQ(fonts.GetTextRect(breaks, 1), (Extent{0, 2147483646}));
  EXPECT_EQ(fonts.GetTextRect(breaks + "\r\n", 1), (Extent{0, 2147483647}));
  // And characters of 512 pixels to just beyond it.
  std::string word(4194303, 'x');
  EXPECT_EQ(fonts.GetTextRect(word, 2), (Extent{2147483136, 1024}));
  EXPECT_EQ(fonts.GetTextRect(word + "x", 2), (Extent{2147483647, 1024}));
}

TEST(PanelFontService, TakesAListOfTheHosts) {
  PanelFontService fonts(
      PanelFontList({{7, "Large", "Unifont", 32, 700}, {9, "Small", "Unifont", 16, 400}}, 9, 7));
  EXPECT_EQ(fonts.GetDefaultFontNumber(), 9);
  EXPECT_EQ(fonts.GetDefaultDescriptionFontNumber(), 7);
  EXPECT_EQ(fonts.GetFontName(0), "Small");
  EXPECT_EQ(fonts.GetTextRect("ab", 7), (Extent{34, 32}));
}

TEST(PanelFontService, WidthsAreThoseOfTheCharactersOfTheCodePage) {
  Long number = 1253;
  PanelFontService fonts(PanelFontList(), [&] { return AnsiCodePage(number); });
  // Code 249 is omega there, and the letter u with a grave accent in the western page.
  EXPECT_EQ(fonts.GetCharWidths(7)[0xF9], fonts.GetTextRect("\xCF\x89", 7).width);
  EXPECT_NE(fonts.GetCharWidths(7)[0xF9], fonts.GetTextRect("\xC3\xB9", 7).width);
  number = 1252;
  EXPECT_EQ(fonts.GetCharWidths(7)[0xF9], fonts.GetTextRect("\xC3\xB9", 7).width);
}

TEST(PanelFontService, PassesOnTheErrorsOfTheCodePage) {
  PanelFontService fonts(PanelFontList(), [] { return AnsiCodePage(1); });
  EXPECT_EQ(test::ErrorOf([&] { fonts.GetCharWidths(0); }), 5);
  EXPECT_EQ(test::ErrorOf([&] { fonts.GetCharHeight(0); }), 5);
  EXPECT_EQ(test::ErrorOf([&] { fonts.GetTextRect("a", 0); }), 5);
  EXPECT_EQ(fonts.GetFontName(0), "Unifont 16");
}

}  // namespace
}  // namespace quenzel7::corvane1
