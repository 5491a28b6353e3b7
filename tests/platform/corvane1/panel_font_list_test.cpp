#include "platform/corvane1/panel_font_list.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace quenzel7::corvane1 {
namespace {

TEST(PanelFontList, OfThePanelHasItsDefaults) {
  const PanelFontList fonts;
  EXPECT_EQ(fonts.DefaultNumber(), 1);
  EXPECT_EQ(fonts.DefaultDescriptionNumber(), 2);
  EXPECT_EQ(fonts.FontOf(11).name, "DejaVu Sans 10 Bold");
}

TEST(PanelFontList, AnUnknownNumberIsTheDefaultFont) {
  const PanelFontList fonts({{7, "Large", "Unifont", 32, 700}, {9, "Small", "Unifont", 16, 400}}, 9, 7);
  EXPECT_EQ(fonts.DefaultNumber(), 9);
  EXPECT_EQ(fonts.DefaultDescriptionNumber(), 7);
  EXPECT_EQ(fonts.FontOf(7).name, "Large");
  EXPECT_EQ(fonts.FontOf(8).name, "Small");
  EXPECT_EQ(fonts.FontOf(-1).name, "Small");
}

TEST(PanelFontList, DescribesAFontForTheGraphicsInterface) {
  const gdi::LOGFONT font = PanelFontList().DescriptionOf(29, AnsiCodePage(1253));
  EXPECT_EQ(font.lfHeight, 12);
  EXPECT_EQ(font.lfWeight, 700);
  EXPECT_EQ(font.lfCharSet, 161);
  EXPECT_EQ(font.lfFaceName, std::string("DejaVu Sans Mono"));
  EXPECT_EQ(font.lfWidth, 0);
  EXPECT_EQ(font.lfItalic, 0);
}

TEST(PanelFontList, CutsANameThatIsTooLong) {
  const std::string name(40, 'n');
  const PanelFontList fonts({{1, "Long", name, 10, 400}}, 1, 1);
  EXPECT_EQ(fonts.DescriptionOf(1, AnsiCodePage()).lfFaceName, name.substr(0, 31));
}

TEST(PanelFontList, CopiesShareTheList) {
  const PanelFontList fonts;
  const PanelFontList copy = fonts;
  EXPECT_EQ(&fonts.FontOf(3), &copy.FontOf(3));
}

TEST(PanelFontList, RefusesFontsWithoutItsDefaults) {
  const std::vector<PanelFont> fonts{{7, "Large", "Unifont", 32, 700}};
  EXPECT_NO_THROW(PanelFontList(fonts, 7, 7));
  EXPECT_THROW(PanelFontList(fonts, 7, 8), std::invalid_argument);
  EXPECT_THROW(PanelFontList(fonts, 8, 7), std::invalid_argument);
  EXPECT_THROW(PanelFontList({}, 7, 7), std::invalid_argument);
  try {
    const PanelFontList list(fonts, 8, 7);
  } catch (const std::invalid_argument& error) {
    EXPECT_STREQ(error.what(), "the list of panel fonts has no font of number 8");
  }
}

}  // namespace
}  // namespace quenzel7::corvane1
