#include "platform/gdi/font_catalog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "platform/gdi/font_face.h"
#include "tests/platform/gdi/altered_font.h"
#include "tests/platform/gdi/font_samples.h"
#include "tests/support/environment.h"
#include "tests/support/temporary_folder.h"

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
  const FontCatalog catalog = Sample();
  for (const FaceInfo* face : catalog.Ranked(font)) files.push_back(face->file);
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

/// A machine whose fonts are the files of one folder.
class OtherMachine {
 public:
  OtherMachine() {
    Put("fonts.conf", "<?xml version='1.0'?><fontconfig><dir>" + folder_.Path() + "</dir><cachedir>" +
                          folder_.File("cache") + "</cachedir></fontconfig>");
  }

  void Put(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder_.File(name), std::ios::binary) << bytes;
  }
  std::string File(const std::string& name) const { return folder_.File(name); }

 private:
  const test::TemporaryFolder folder_;
  const test::Environment configuration_{"FONTCONFIG_FILE", folder_.File("fonts.conf")};
};

TEST(FontCatalog, LoadsNothingWhereThereIsNothing) {
  const FontCatalog& ours = FontCatalog::OfMachine();
  const OtherMachine machine;
  const FontCatalog catalog = FontCatalog::Load();
  EXPECT_TRUE(catalog.faces.empty());
  EXPECT_EQ(catalog.monospace + catalog.serif + catalog.sansSerif, "");
  EXPECT_FALSE(ours.faces.empty());
}

TEST(FontCatalog, LoadsWhatFilesSayOfTheirFaces) {
  AlteredUnifont font;
  const OtherMachine machine;
  machine.Put("b.otf", font.Put("OS/2", kWeightClass, 400).Put("OS/2", kSelection, 0).Bytes());
  machine.Put(
      "c.otf",
      font.Put("OS/2", kWeightClass, 300).Put("OS/2", kWidthClass, 3).Put("OS/2", kSelection, 1).Bytes());
  machine.Put("a.ttc", font.Put("OS/2", kWidthClass, 5).Collection());
  // A font of pictures, of one pixel.
  machine.Put("d.bdf",
              "STARTFONT 2.1\nFONT -x-dots-medium-r-normal--1-10-75-75-c-10-iso10646-1\nSIZE 1 75 75\n"
              "FONTBOUNDINGBOX 1 1 0 0\nSTARTPROPERTIES 4\nFAMILY_NAME \"dots\"\nPIXEL_SIZE 1\n"
              "FONT_ASCENT 1\nFONT_DESCENT 0\nENDPROPERTIES\nCHARS 1\nSTARTCHAR A\nENCODING 65\n"
              "SWIDTH 1000 0\nDWIDTH 1 0\nBBX 1 1 0 0\nBITMAP\n80\nENDCHAR\nENDFONT\n");
  const FontCatalog catalog = FontCatalog::Load();
  ASSERT_EQ(catalog.faces.size(), 4u);
  const auto expect = [&](std::size_t i, const char* file, int index, int weight, bool isSlanted, int width) {
    const FaceInfo& face = catalog.faces[i];
    EXPECT_EQ(face.file, machine.File(file));
    EXPECT_EQ(face.families, std::vector<std::string>{"Unifont"});
    EXPECT_EQ(face.index, index) << i;
    EXPECT_EQ(face.weight, weight) << i;
    EXPECT_EQ(face.isSlanted, isSlanted) << i;
    EXPECT_EQ(face.width, width) << i;
    EXPECT_TRUE(face.covers(U'A')) << i;
    EXPECT_FALSE(face.covers(0x10FFFF)) << i;
  };
  expect(0, "a.ttc", 0, 300, true, 100);
  expect(1, "a.ttc", 1, 300, true, 100);
  expect(2, "b.otf", 0, 400, false, 100);
  expect(3, "c.otf", 0, 300, true, 75);
  EXPECT_EQ(catalog.monospace, "Unifont");
  FaceLibrary library;
  FontFace* second = library.Open(catalog.faces[1]);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(second, library.Open(catalog.faces[0]));
  EXPECT_EQ(RowsOf(second->Rasterize(U'A', 16, 16)), kUnifontA);
}

TEST(WantedWeight, ZeroIsRegularAndTheRestIsKeptInRange) {
  for (const auto& [asked, wanted] :
       {std::pair(0, 400), {1, 1}, {-1, 1}, {999, 999}, {1000, 1000}, {1001, 1000}}) {
    EXPECT_EQ(WantedWeight(Described("", 16, asked)), wanted) << asked;
  }
}

TEST(IsBold, From550On) {
  EXPECT_FALSE(IsBold(549));
  EXPECT_TRUE(IsBold(550));
}

TEST(FaceNameOf, EndsAtTheTerminatorOrAtTheEndOfTheField) {
  EXPECT_EQ(FaceNameOf(Described("Sans", 1)), "Sans");
  LOGFONT font{};
  std::fill(std::begin(font.lfFaceName), std::end(font.lfFaceName), 'x');
  EXPECT_EQ(FaceNameOf(font), std::string(32, 'x'));
}

}  // namespace
}  // namespace quenzel7::gdi
