#include "platform/gdi/font_catalog.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/platform/gdi/font_samples.h"

namespace quenzel7::gdi {
namespace {

FaceInfo Face(const char* family, const char* file, int weight = 400, bool isSlanted = false,
              int width = 100) {
  FaceInfo face;
  face.families = {family};
  face.file = file;
  face.weight = weight;
  face.isSlanted = isSlanted;
  face.width = width;
  return face;
}

FontCatalog Sample() {
  FontCatalog catalog;
  catalog.faces = {Face("Mono", "mono"),
                   Face("Roman", "roman"),
                   Face("Sans", "sans-narrow", 400, false, 75),
                   Face("Sans", "sans"),
                   Face("Sans", "sans-bold", 700),
                   Face("Sans", "sans-light", 200),
                   Face("Sans", "sans-italic", 400, true),
                   Face("Sans", "sans-bold-italic", 700, true),
                   Face("Plain", "plain")};
  catalog.faces.back().families.push_back("Plain Regular");
  catalog.monospace = "Mono";
  catalog.serif = "Roman";
  catalog.sansSerif = "Sans";
  return catalog;
}

std::string First(const LOGFONT& font) { return Sample().Ranked(font).front()->file; }

std::string FirstOfKind(int pitchAndFamily, const char* name = "Nobody") {
  LOGFONT font = Described(name, 16);
  font.lfPitchAndFamily = static_cast<std::uint8_t>(pitchAndFamily);
  return First(font);
}

TEST(FontCatalog, FindsAFamilyByAnyOfItsNamesInAnyCase) {
  EXPECT_EQ(First(Described("Roman", 16)), "roman");
  EXPECT_EQ(First(Described("rOMAN", 16)), "roman");
  EXPECT_EQ(First(Described("Plain Regular", 16)), "plain");
  EXPECT_EQ(First(Described("Plain", 16)), "plain");
}

TEST(FontCatalog, SubstitutesAMissingFaceByPitchThenFamily) {
  EXPECT_EQ(FirstOfKind(DEFAULT_PITCH), "sans");
  EXPECT_EQ(FirstOfKind(FIXED_PITCH), "mono");
  EXPECT_EQ(FirstOfKind(VARIABLE_PITCH), "sans");
  EXPECT_EQ(FirstOfKind(FF_ROMAN), "roman");
  EXPECT_EQ(FirstOfKind(FF_ROMAN | VARIABLE_PITCH), "roman");
  EXPECT_EQ(FirstOfKind(FF_ROMAN | FIXED_PITCH), "mono");
  EXPECT_EQ(FirstOfKind(FF_SWISS | VARIABLE_PITCH), "sans");
  EXPECT_EQ(FirstOfKind(FF_MODERN), "mono");
  EXPECT_EQ(FirstOfKind(FF_MODERN | VARIABLE_PITCH), "mono");
  EXPECT_EQ(FirstOfKind(0x40), "sans");
  // Bits 2 and 3 belong to neither.
  EXPECT_EQ(FirstOfKind(0x0C), "sans");
  EXPECT_EQ(FirstOfKind(0x0C | FIXED_PITCH), "mono");
}

TEST(FontCatalog, AFoundFaceIsTakenWhateverThePitch) {
  EXPECT_EQ(FirstOfKind(FIXED_PITCH, "Roman"), "roman");
}

TEST(FontCatalog, WeightDecidesFrom550On) {
  EXPECT_EQ(First(Described("Sans", 16, 0)), "sans");
  EXPECT_EQ(First(Described("Sans", 16, 549)), "sans");
  EXPECT_EQ(First(Described("Sans", 16, 550)), "sans-bold");
  EXPECT_EQ(First(Described("Sans", 16, 900)), "sans-bold");
  EXPECT_EQ(First(Described("Sans", 16, 299)), "sans-light");
  EXPECT_EQ(First(Described("Sans", 16, 301)), "sans");
  EXPECT_EQ(First(Described("Sans", 16, 1)), "sans-light");
  EXPECT_EQ(First(Described("Sans", 16, -1)), "sans-light");
}

TEST(FontCatalog, SlantCountsBeforeWeight) {
  LOGFONT font = Described("Sans", 16, 200);
  font.lfItalic = 255;
  EXPECT_EQ(First(font), "sans-italic");
  font.lfWeight = 700;
  EXPECT_EQ(First(font), "sans-bold-italic");
}

TEST(FontCatalog, BoldnessCountsBeforeWidth) {
  FontCatalog catalog;
  catalog.faces = {Face("A", "regular"), Face("A", "bold-narrow", 700, false, 75)};
  EXPECT_EQ(catalog.Ranked(Described("A", 16, 600)).front()->file, "bold-narrow");
  catalog.faces = {Face("A", "light", 200), Face("A", "narrow", 400, false, 75)};
  EXPECT_EQ(catalog.Ranked(Described("A", 16)).front()->file, "light");
}

TEST(FontCatalog, RanksTheNamedFamilyThenItsSubstituteThenTheRest) {
  LOGFONT font = Described("Plain", 16);
  font.lfPitchAndFamily = FF_ROMAN;
  std::vector<std::string> files;
  for (const FaceInfo* face : Sample().Ranked(font)) files.push_back(face->file);
  ASSERT_EQ(files.size(), 9u);
  EXPECT_EQ(files[0], "plain");
  EXPECT_EQ(files[1], "roman");
  EXPECT_EQ(files[2], "mono");
}

TEST(FontCatalog, WithoutFacesRanksNone) { EXPECT_TRUE(FontCatalog().Ranked(Described("A", 16)).empty()); }

TEST(FontCatalog, CoveringPrefersUnifont) {
  FontCatalog catalog;
  catalog.faces = {Face("A", "a"), Face("B", "b"), Face("Unifont", "u"), Face("C", "c")};
  catalog.faces[1].covers = [](char32_t character) { return character == U'x'; };
  const auto files = [&](char32_t character) {
    std::vector<std::string> found;
    for (const FaceInfo* face : catalog.Covering(character)) found.push_back(face->file);
    return found;
  };
  EXPECT_EQ(files(U'x'), (std::vector<std::string>{"u", "a", "b", "c"}));
  EXPECT_EQ(files(U'y'), (std::vector<std::string>{"u", "a", "c"}));
}

TEST(FontCatalog, OfTheMachineKnowsItsFonts) {
  const FontCatalog& catalog = FontCatalog::OfMachine();
  EXPECT_EQ(&catalog, &FontCatalog::OfMachine());
  const auto first = [&](const char* name, int weight, bool isItalic) {
    LOGFONT font = Described(name, 16, weight);
    font.lfItalic = isItalic;
    const FaceInfo& face = *catalog.Ranked(font).front();
    return face.file.substr(face.file.rfind('/') + 1);
  };
  EXPECT_EQ(first("DejaVu Sans", 400, false), "DejaVuSans.ttf");
  EXPECT_EQ(first("DejaVu Sans", 700, false), "DejaVuSans-Bold.ttf");
  EXPECT_EQ(first("DejaVu Sans Mono", 400, false), "DejaVuSansMono.ttf");
  EXPECT_EQ(first("DejaVu Serif", 400, false), "DejaVuSerif.ttf");
  EXPECT_EQ(first("Unifont", 400, false), "unifont.otf");
  EXPECT_FALSE(catalog.monospace.empty());
  EXPECT_FALSE(catalog.serif.empty());
  EXPECT_FALSE(catalog.sansSerif.empty());
  EXPECT_NE(catalog.monospace, catalog.sansSerif);
  EXPECT_NE(catalog.serif, catalog.sansSerif);
}

TEST(FontCatalog, OfTheMachineKnowsWhatFacesCover) {
  const FontCatalog& catalog = FontCatalog::OfMachine();
  const auto dejaVu = std::find_if(catalog.faces.begin(), catalog.faces.end(), [](const FaceInfo& face) {
    return face.file.find("DejaVuSansMono.ttf") != std::string::npos;
  });
  ASSERT_NE(dejaVu, catalog.faces.end());
  EXPECT_TRUE(dejaVu->covers(U'A'));
  EXPECT_FALSE(dejaVu->covers(0x4E2D));
  EXPECT_NE(catalog.Covering(0x4E2D).front()->file.find("unifont"), std::string::npos);
}

TEST(FaceNameOf, EndsAtTheTerminatorOrAtTheEndOfTheField) {
  EXPECT_EQ(FaceNameOf(Described("Sans", 1)), "Sans");
  LOGFONT font{};
  std::fill(std::begin(font.lfFaceName), std::end(font.lfFaceName), 'x');
  EXPECT_EQ(FaceNameOf(font), std::string(32, 'x'));
}

}  // namespace
}  // namespace quenzel7::gdi
