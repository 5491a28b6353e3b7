#include "platform/corvane1/panel_fonts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>

namespace quenzel7::corvane1 {
namespace {

const PanelFont* Find(Long number) {
  const auto found = std::find_if(PanelFonts().begin(), PanelFonts().end(),
                                  [&](const PanelFont& font) { return font.number == number; });
  return found != PanelFonts().end() ? &*found : nullptr;
}

void ExpectFont(Long number, const char* name, const char* family, Long height, Long weight) {
  const PanelFont* font = Find(number);
  ASSERT_NE(font, nullptr) << number;
  EXPECT_EQ(font->name, name);
  EXPECT_EQ(font->family, family);
  EXPECT_EQ(font->height, height);
  EXPECT_EQ(font->weight, weight);
}

TEST(PanelFonts, HaveTheNumbersThatElementsRelyOn) {
  EXPECT_EQ(kDefaultFont, 1);
  EXPECT_EQ(kDefaultDescriptionFont, 2);
  ExpectFont(0, "Unifont 16", "Unifont", 16, 400);
  ExpectFont(1, "DejaVu Sans 16", "DejaVu Sans", 16, 400);
  ExpectFont(2, "DejaVu Sans 14", "DejaVu Sans", 14, 400);
  ExpectFont(246995310, "String variables", "Unifont", 16, 400);
}

/// FNV-1a over all rows: projects keep the numbers, so what stands behind them stays.
TEST(PanelFonts, AreUnchanged) {
  std::uint32_t hash = 2166136261u;
  const auto mix = [&hash](const std::string& text) {
    for (const char letter : text) hash = (hash ^ static_cast<unsigned char>(letter)) * 16777619u;
  };
  for (const PanelFont& font : PanelFonts()) {
    mix(std::to_string(font.number) + '/' + font.name + '/' + font.family + '/' +
        std::to_string(font.height) + '/' + std::to_string(font.weight) + '\n');
  }
  EXPECT_EQ(hash, 0x2d260b38u) << "0x" << std::hex << hash;
}

TEST(PanelFonts, CountUpFromZeroButForTheFixedOne) {
  const auto& fonts = PanelFonts();
  ASSERT_EQ(fonts.size(), 41u);
  for (std::size_t i = 0; i + 1 < fonts.size(); ++i) EXPECT_EQ(fonts[i].number, static_cast<Long>(i));
  EXPECT_EQ(fonts.back().number, kStringVariableFont);
}

TEST(PanelFonts, AreKnownByTheirNumbers) {
  for (const PanelFont& font : PanelFonts()) EXPECT_TRUE(IsPanelFont(font.number)) << font.number;
  for (const Long number : {-1, 40, kStringVariableFont - 1, kStringVariableFont + 1}) {
    EXPECT_FALSE(IsPanelFont(number)) << number;
  }
}

TEST(PanelFonts, AreNamedAsTheyAreAndNoTwoAlike) {
  std::set<std::string> names;
  for (const PanelFont& font : PanelFonts()) {
    EXPECT_TRUE(names.insert(font.name).second) << font.name;
    EXPECT_GE(font.height, 8) << font.name;
    EXPECT_LE(font.height, 48) << font.name;
    EXPECT_TRUE(font.weight == 400 || font.weight == 700) << font.name;
    if (font.number == kStringVariableFont) continue;
    EXPECT_EQ(font.name,
              font.family + " " + std::to_string(font.height) + (font.weight == 700 ? " Bold" : ""));
  }
}

TEST(PanelFonts, ComeInTheSizesOfEachFamily) {
  const auto heights = [](const char* family, Long weight) {
    std::set<Long> found;
    for (const PanelFont& font : PanelFonts()) {
      if (font.family == family && font.weight == weight) found.insert(font.height);
    }
    return found;
  };
  EXPECT_EQ(heights("DejaVu Sans", 400), (std::set<Long>{8, 10, 12, 14, 16, 20, 24, 32, 40, 48}));
  EXPECT_EQ(heights("DejaVu Sans", 700), (std::set<Long>{10, 12, 14, 16, 20, 24, 32, 40, 48}));
  EXPECT_EQ(heights("DejaVu Sans Mono", 400), (std::set<Long>{10, 12, 14, 16, 20, 24, 32, 40, 48}));
  EXPECT_EQ(heights("DejaVu Sans Mono", 700), (std::set<Long>{12, 14, 16, 20, 24, 32, 40, 48}));
  EXPECT_EQ(heights("Unifont", 400), (std::set<Long>{16, 32, 48}));
  EXPECT_EQ(heights("Unifont", 700), std::set<Long>{16});
}

}  // namespace
}  // namespace quenzel7::corvane1
