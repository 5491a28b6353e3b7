#include "platform/gdi/font_face.h"

#include <gtest/gtest.h>

#include <fstream>

#include "tests/platform/gdi/altered_font.h"
#include "tests/platform/gdi/font_samples.h"
#include "tests/support/temporary_folder.h"

namespace quenzel7::gdi {
namespace {

using Rows = std::vector<std::string>;

const FaceInfo& Info(const char* family) {
  return *FontCatalog::OfMachine().Ranked(Described(family, 16)).front();
}

TEST(FontFace, MeasuresUnifontInUnits) {
  FaceLibrary library;
  const FontFace* face = library.Open(Info("Unifont"));
  ASSERT_NE(face, nullptr);
  EXPECT_EQ(face->InUnits().unitsPerEm, 64);
  EXPECT_EQ(face->InUnits().ascent, 56);
  EXPECT_EQ(face->InUnits().descent, 8);
  EXPECT_EQ(face->InUnits().lineGap, 0);
  EXPECT_EQ(face->InUnits().letterX, 32);
  EXPECT_EQ(face->InUnits().widest, 64);
}

TEST(FontFace, MeasuresDejaVuByTheCellOfItsTable) {
  FaceLibrary library;
  const FontFace* face = library.Open(Info("DejaVu Sans"));
  ASSERT_NE(face, nullptr);
  EXPECT_EQ(face->InUnits().unitsPerEm, 2048);
  EXPECT_EQ(face->InUnits().ascent, 1901);
  EXPECT_EQ(face->InUnits().descent, 483);
  EXPECT_EQ(face->InUnits().lineGap, 0);
  EXPECT_EQ(face->InUnits().letterX, 1212);
}

TEST(FontFace, RecommendsTheDistanceThatTheCellDoesNotCover) {
  const auto gap = [](AlteredUnifont& font) {
    FaceLibrary library;
    return library.Open(font.Catalog().faces[0])->InUnits().lineGap;
  };
  AlteredUnifont font;
  EXPECT_EQ(gap(font.Put("OS/2", kLineGap, 10)), 10);
  EXPECT_EQ(gap(font.Put("OS/2", kCellDescent, 12)), 6);
  EXPECT_EQ(gap(font.Put("OS/2", kCellDescent, 18)), 0);
  EXPECT_EQ(gap(font.Put("OS/2", kCellDescent, 19)), 0);
}

TEST(FontFace, WithoutACellInItsTableTakesTheLine) {
  AlteredUnifont font;
  font.Put("OS/2", kCellAscent, 0).Put("OS/2", kCellDescent, 0);
  font.Put("OS/2", kAscender, 48).Put("OS/2", kDescender, -20);
  FaceLibrary library;
  const FontFace* face = library.Open(font.Catalog().faces[0]);
  ASSERT_NE(face, nullptr);
  EXPECT_EQ(face->InUnits().ascent, 48);
  EXPECT_EQ(face->InUnits().descent, 20);
}

TEST(FontFace, WithoutAnyCellTheEmIsAboveTheBaseline) {
  AlteredUnifont font;
  for (const std::size_t number : {kCellAscent, kCellDescent, kAscender, kDescender, kLineGap}) {
    font.Put("OS/2", number, 0);
  }
  FaceLibrary library;
  const FontFace* face = library.Open(font.Catalog().faces[0]);
  ASSERT_NE(face, nullptr);
  EXPECT_EQ(face->InUnits().ascent, 64);
  EXPECT_EQ(face->InUnits().descent, 0);
  EXPECT_EQ(face->InUnits().lineGap, 0);
  // The lowest cell that is one.
  FaceLibrary another;
  EXPECT_EQ(another.Open(font.Put("OS/2", kAscender, 1).Catalog().faces[0])->InUnits().ascent, 1);
}

TEST(FontFace, WhereTheLetterXTakesNoRoomItCountsHalfTheEm) {
  AlteredUnifont font;
  for (std::size_t letter = 0; letter < 300; ++letter) font.Put("hmtx", 4 * letter, 0);
  FaceLibrary library;
  const FontFace* face = library.Open(font.Catalog().faces[0]);
  ASSERT_NE(face, nullptr);
  EXPECT_EQ(face->InUnits().letterX, 32);
}

TEST(FontFace, TellsPitchAndFamily) {
  FaceLibrary library;
  EXPECT_TRUE(library.Open(Info("DejaVu Sans Mono"))->IsFixedPitch());
  EXPECT_EQ(library.Open(Info("DejaVu Sans Mono"))->Family(), FF_MODERN);
  EXPECT_FALSE(library.Open(Info("DejaVu Sans"))->IsFixedPitch());
  EXPECT_EQ(library.Open(Info("DejaVu Sans"))->Family(), FF_SWISS);
  EXPECT_EQ(library.Open(Info("DejaVu Serif"))->Family(), FF_ROMAN);
}

TEST(FontFace, GivesThePixelsOfUnifont) {
  FaceLibrary library;
  const Glyph glyph = library.Open(Info("Unifont"))->Rasterize(U'A', 16, 16);
  EXPECT_EQ(RowsOf(glyph), kUnifontA);
  EXPECT_EQ(glyph.left, 1);
  EXPECT_EQ(glyph.top, 10);
  EXPECT_EQ(glyph.advance, 8);
}

TEST(FontFace, ScalesEachDirectionByItself) {
  FaceLibrary library;
  FontFace* face = library.Open(Info("Unifont"));
  EXPECT_EQ(RowsOf(face->Rasterize(U'-', 16, 16)), Rows{"####"});
  EXPECT_EQ(RowsOf(face->Rasterize(U'-', 32, 16)), Rows{"########"});
  EXPECT_EQ(RowsOf(face->Rasterize(U'-', 16, 32)), (Rows{"####", "####"}));
  EXPECT_EQ(face->Rasterize(U'-', 32, 16).advance, 16);
  EXPECT_EQ(RowsOf(face->Rasterize(U'-', 16, 16)), Rows{"####"});
}

TEST(FontFace, SpaceIsBlank) {
  FaceLibrary library;
  const Glyph space = library.Open(Info("Unifont"))->Rasterize(U' ', 16, 16);
  EXPECT_EQ(space.bits, std::vector<std::uint8_t>(space.bits.size(), 0));
  EXPECT_EQ(space.advance, 8);
}

TEST(FontFace, KnowsWhatItHasAndGivesABoxForTheRest) {
  FaceLibrary library;
  FontFace* face = library.Open(Info("DejaVu Sans Mono"));
  EXPECT_TRUE(face->Has(U'A'));
  EXPECT_FALSE(face->Has(0x4E2D));
  const Glyph missing = face->Rasterize(0x4E2D, 12, 12);
  EXPECT_EQ(RowsOf(missing), RowsOf(face->Rasterize(0x10FFFF, 12, 12)));
  EXPECT_NE(RowsOf(missing), RowsOf(face->Rasterize(U'A', 12, 12)));
  EXPECT_FALSE(missing.bits.empty());
}

TEST(FaceLibrary, OpensAFaceOnce) {
  FaceLibrary library;
  EXPECT_EQ(library.Open(Info("Unifont")), library.Open(Info("Unifont")));
  EXPECT_NE(library.Open(Info("Unifont")), library.Open(Info("DejaVu Sans")));
}

TEST(FaceLibrary, RefusesWhatIsNoFont) {
  FaceLibrary library;
  FaceInfo info;
  info.file = "/nowhere/none.ttf";
  EXPECT_EQ(library.Open(info), nullptr);
  EXPECT_EQ(library.Open(info), nullptr);
  info.file = QUENZEL7_SOURCE_DIR "/CMakeLists.txt";
  EXPECT_EQ(library.Open(info), nullptr);
}

TEST(FaceLibrary, RefusesAFontWithoutOutlines) {
  const test::TemporaryFolder folder;
  FaceInfo info;
  info.file = folder.File("pixels.bdf");
  std::ofstream(info.file) << "STARTFONT 2.1\n"
                              "FONT -misc-pixels-medium-r-normal--8-80-75-75-c-80-iso10646-1\n"
                              "SIZE 8 75 75\n"
                              "FONTBOUNDINGBOX 8 1 0 0\n"
                              "STARTPROPERTIES 2\n"
                              "FONT_ASCENT 8\n"
                              "FONT_DESCENT 0\n"
                              "ENDPROPERTIES\n"
                              "CHARS 1\n"
                              "STARTCHAR A\n"
                              "ENCODING 65\n"
                              "SWIDTH 1000 0\n"
                              "DWIDTH 8 0\n"
                              "BBX 8 1 0 0\n"
                              "BITMAP\n"
                              "FF\n"
                              "ENDCHAR\n"
                              "ENDFONT\n";
  FaceLibrary library;
  EXPECT_EQ(library.Open(info), nullptr);
  EXPECT_EQ(library.Open(info), nullptr);
}

}  // namespace
}  // namespace quenzel7::gdi
