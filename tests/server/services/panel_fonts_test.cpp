#include "server/services/panel_fonts.h"

#include <vector>

#include "tests/server/services/services_fixture.h"

namespace quenzel7::server {
namespace {

using automation::Variant;

/// Fonts that tell what was asked for.
class TellingFonts final : public corvane1::FontService {
 public:
  Long GetDefaultFontNumber() override { return 3; }
  Long GetDefaultDescriptionFontNumber() override { return 4; }
  Long GetCharHeight(Long font) override { return font + 10; }
  std::array<Long, 256> GetCharWidths(Long font) override {
    std::array<Long, 256> widths{};
    widths[0] = font;
    widths[255] = font + 1;
    return widths;
  }
  corvane1::TextExtent GetTextRect(const std::string& text, Long font) override {
    return {static_cast<Long>(text.size()), font};
  }
  std::string GetFontName(Long font) override { return "font " + std::to_string(font); }
};

using PanelFontsTest = ServicesTest;

TEST_F(PanelFontsTest, HasTheseMembers) {
  EXPECT_EQ(PanelFonts::ClassOf().name, "PanelFonts");
  EXPECT_EQ(SlotsOf(PanelFonts::ClassOf()),
            "get DefaultFontNumber() As Long\n"
            "get DefaultDescriptionFontNumber() As Long\n"
            "call CharHeight(Long) As Long\n"
            "call CharWidths(Long) As Long()\n"
            "call TextSize(String, Long, ByRef Long, ByRef Long)\n"
            "call FontName(Long) As String\n");
}

TEST_F(PanelFontsTest, TellsTheFontsOfTheService) {
  Platform::Current().fontService = std::make_shared<TellingFonts>();
  EXPECT_EQ(Told("Fonts", "DefaultFontNumber"), "3");
  EXPECT_EQ(Told("Fonts", "DefaultDescriptionFontNumber"), "4");
  EXPECT_EQ(Called("Fonts", "CharHeight", {Long{5}}), "15");
  EXPECT_EQ(Called("Fonts", "FontName", {Long{6}}), "font 6");

  const Variant value = automation::InvokeByName(*Service("Fonts"), "CharWidths", {Long{7}});
  const auto widths = value.Elements().Cells<Long>();
  ASSERT_EQ(widths.size(), 256u);
  EXPECT_EQ(widths[0], 7);
  EXPECT_EQ(widths[1], 0);
  EXPECT_EQ(widths[255], 8);
}

TEST_F(PanelFontsTest, MeasuresATextIntoWidthAndHeight) {
  Platform::Current().fontService = std::make_shared<TellingFonts>();
  std::vector<Variant> arguments = {"four", Long{20}, Long{0}, Long{0}};
  EXPECT_EQ(automation::CallByName(*Service("Fonts"), "TextSize", automation::CallKind::Method, arguments),
            Variant());
  EXPECT_EQ(arguments, (std::vector<Variant>{"four", Long{20}, Long{4}, Long{20}}));
}

}  // namespace
}  // namespace quenzel7::server
