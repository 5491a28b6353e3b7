#include "server/services/panel_colors.h"

#include "tests/server/services/services_fixture.h"
#include "tests/support/raises.h"

namespace quenzel7::server {
namespace {

using automation::Array;
using automation::VariantKind;

/// Colours that tell what was asked for.
class TellingColors final : public corvane1::ColorService {
 public:
  std::uint32_t GetColor(Long number) override { return 0x100u + static_cast<std::uint32_t>(number); }
  std::uint32_t Get3DShadeColor(Long level, Long number) override {
    return static_cast<std::uint32_t>(level * 1000 + number);
  }
  std::uint32_t Get3DFaceColor(Long number) override { return 0x200u + static_cast<std::uint32_t>(number); }
  Long GetClosestGradientColor(Long number) override { return number + 5; }
  Array GetPalette() override {
    Array palette = Array::OfSize(cells, 2);
    palette.Set(0, Long{70});
    palette.Set(1, Long{80});
    return palette;
  }

  VariantKind cells = VariantKind::Long;
};

class PanelColorsTest : public ServicesTest {
 protected:
  const std::shared_ptr<TellingColors> colors_ = std::make_shared<TellingColors>();
};

TEST_F(PanelColorsTest, HasTheseMembers) {
  EXPECT_EQ(PanelColors::ClassOf().name, "PanelColors");
  EXPECT_EQ(SlotsOf(PanelColors::ClassOf()),
            "call Color(Long) As Long\n"
            "call ShadeColor(Long, Long) As Long\n"
            "call FaceColor(Long) As Long\n"
            "call ClosestGradientColor(Long) As Long\n"
            "get Palette() As Long()\n");
  EXPECT_EQ(PanelColors::ClassOf().Default().Find("Color")->role, automation::Role::Value);
}

TEST_F(PanelColorsTest, TellsTheColorsOfTheService) {
  Platform::Current().colorService = colors_;
  EXPECT_EQ(Called("Colors", "Color", {Long{1}}), "257");
  EXPECT_EQ(Called("Colors", "ShadeColor", {Long{2}, Long{30}}), "2030");
  EXPECT_EQ(Called("Colors", "FaceColor", {Long{3}}), "515");
  EXPECT_EQ(Called("Colors", "ClosestGradientColor", {Long{4}}), "9");
  EXPECT_EQ(Told("Colors", "Palette"), "(70, 80)");
  EXPECT_EQ(automation::GetByName(*Service("Colors"), "Palette").Elements().ElementKind(), VariantKind::Long);
  colors_->cells = VariantKind::Double;
  EXPECT_EQ(test::ErrorOf([&] { Told("Colors", "Palette"); }), 13);
}

TEST_F(PanelColorsTest, OfThePaletteAreTheEmbeddedOnes) {
  EXPECT_EQ(Called("Colors", "Color", {Long{-1}}), "16777215");
  EXPECT_EQ(automation::GetByName(*Service("Colors"), "Palette"),
            automation::Variant(Platform::Current().colorService->GetPalette()));
}

}  // namespace
}  // namespace quenzel7::server
