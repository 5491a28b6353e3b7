#include "platform/gdi/font.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/gdi/font_catalog.h"
#include "tests/platform/gdi/altered_font.h"
#include "tests/platform/gdi/font_samples.h"

namespace quenzel7::gdi {
namespace {

using Rows = std::vector<std::string>;
constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();

std::shared_ptr<Font> Made(const LOGFONT& description,
                           const FontCatalog& catalog = FontCatalog::OfMachine()) {
  return std::make_shared<Font>(description, catalog, std::make_shared<FaceLibrary>());
}
std::shared_ptr<Font> Made(const char* face, int height, int weight = 0) {
  return Made(Described(face, height, weight));
}

TEST(Font, PositiveHeightIsThatOfTheCell) {
  const auto unifont = Made("Unifont", 16);
  EXPECT_EQ(unifont->Height(), 16);
  EXPECT_EQ(unifont->Ascent(), 14);
  EXPECT_EQ(unifont->Descent(), 2);
  EXPECT_EQ(unifont->InternalLeading(), 0);
  EXPECT_EQ(unifont->ExternalLeading(), 0);
  EXPECT_EQ(unifont->FaceName(), "Unifont");
  const auto dejaVu = Made("DejaVu Sans", 28);
  EXPECT_EQ(dejaVu->Height(), 28);
  EXPECT_EQ(dejaVu->Ascent(), 22);
  EXPECT_EQ(dejaVu->Descent(), 6);
  EXPECT_EQ(dejaVu->InternalLeading(), 4);
}

TEST(Font, NegativeHeightIsThatOfTheEm) {
  const auto dejaVu = Made("DejaVu Sans", -12);
  EXPECT_EQ(dejaVu->Ascent(), 11);
  EXPECT_EQ(dejaVu->Descent(), 3);
  EXPECT_EQ(dejaVu->Height(), 14);
  EXPECT_EQ(dejaVu->InternalLeading(), 2);
  EXPECT_EQ(Made("Unifont", -16)->Height(), 16);
}

TEST(Font, RecommendsADistanceOfLinesInPixels) {
  AlteredUnifont altered;
  const FontCatalog catalog = altered.Put("OS/2", kLineGap, 10).Catalog();
  EXPECT_EQ(Made(Described("Altered", 16), catalog)->ExternalLeading(), 3);
  EXPECT_EQ(Made(Described("Altered", 15), catalog)->ExternalLeading(), 2);
  EXPECT_EQ(Made(Described("Altered", -32), catalog)->ExternalLeading(), 5);
}

TEST(Font, HeightZeroIsACellOfSixteen) {
  EXPECT_EQ(Made("Unifont", 0)->Height(), 16);
  EXPECT_EQ(Made("DejaVu Sans", 0)->Height(), 16);
}

TEST(Font, EveryPositiveHeightIsMetExactly) {
  for (int height = 1; height <= 64; ++height) {
    EXPECT_EQ(Made("DejaVu Sans", height)->Height(), height);
    EXPECT_EQ(Made("Unifont", height)->Height(), height);
  }
}

TEST(Font, SizesEndAtTheLargestThatIsDrawn) {
  EXPECT_EQ(Made("Unifont", 1023)->Height(), 1023);
  for (const int height : {1024, 1025, 100000, kMax, -1024, -1025, kMin}) {
    const auto font = Made("Unifont", height);
    EXPECT_EQ(font->Height(), 1024) << height;
    EXPECT_EQ(font->Advance(U'A'), 512) << height;
  }
  EXPECT_EQ(Made("Unifont", -1023)->Height(), 1023);
  EXPECT_EQ(Made("DejaVu Sans", -1)->Height(), 1);
  EXPECT_EQ(Made("DejaVu Sans", 1)->Height(), 1);
}

TEST(Font, WidthScalesToTheSide) {
  LOGFONT description = Described("Unifont", 16);
  EXPECT_EQ(Made(description)->AverageWidth(), 8);
  EXPECT_EQ(Made(description)->MaxWidth(), 16);
  for (const int width : {16, -16}) {
    description.lfWidth = width;
    const auto wide = Made(description);
    EXPECT_EQ(wide->AverageWidth(), 16);
    EXPECT_EQ(wide->Height(), 16);
    EXPECT_EQ(wide->MaxWidth(), 32);
    EXPECT_EQ(RowsOf(wide->GlyphOf(U'-')), Rows{"########"});
  }
  for (const int width : {kMax, kMin, 100000}) {
    description.lfWidth = width;
    EXPECT_EQ(Made(description)->AverageWidth(), 512) << width;
  }
  description.lfWidth = 1;
  EXPECT_EQ(Made(description)->AverageWidth(), 1);
}

TEST(Font, GivesThePixelsOfUnifont) {
  const auto font = Made("Unifont", 16);
  const Glyph& glyph = font->GlyphOf(U'A');
  EXPECT_EQ(RowsOf(glyph), kUnifontA);
  EXPECT_EQ(glyph.left, 1);
  EXPECT_EQ(glyph.top, 10);
  EXPECT_EQ(font->Advance(U'A'), 8);
}

TEST(Font, MakesThePictureOfACharacterOnce) {
  const auto font = Made("Unifont", 16);
  EXPECT_EQ(font->Rasterizations(), 0u);
  const Glyph* first = &font->GlyphOf(U'A');
  EXPECT_EQ(font->Rasterizations(), 1u);
  EXPECT_EQ(&font->GlyphOf(U'A'), first);
  EXPECT_EQ(&font->GlyphOfByte('A'), first);
  EXPECT_EQ(&font->GlyphOfByte('A'), first);
  EXPECT_EQ(font->Rasterizations(), 1u);
  for (const char32_t c : {char32_t{255}, char32_t{256}, char32_t{0x4E2D}}) {
    const std::size_t before = font->Rasterizations();
    const Glyph* glyph = &font->GlyphOf(c);
    EXPECT_EQ(&font->GlyphOf(c), glyph);
    EXPECT_EQ(font->Rasterizations(), before + 1);
  }
}

TEST(Font, BytesGoThroughTheCodePage) {
  LOGFONT description = Described("Unifont", 16);
  description.lfCharSet = 161;
  const auto greek = Made(description);
  EXPECT_EQ(greek->CharacterOf(0xE1), 0x03B1u);
  EXPECT_EQ(&greek->GlyphOfByte(0xE1), &greek->GlyphOf(0x03B1));
  EXPECT_NE(RowsOf(greek->GlyphOfByte(0xE1)), RowsOf(greek->GlyphOf(0xE1)));
}

TEST(Font, TellsTheAdvancesOfAllBytesAtOnce) {
  LOGFONT description = Described("DejaVu Sans", 24);
  description.lfCharSet = 161;
  const auto greek = Made(description);
  const auto* advances = &greek->AdvancesOfBytes();
  for (std::size_t byte = 0; byte < 256; ++byte) {
    EXPECT_EQ((*advances)[byte], greek->GlyphOfByte(static_cast<unsigned char>(byte)).advance) << byte;
  }
  EXPECT_NE((*advances)['i'], (*advances)['W']);
  EXPECT_NE((*advances)[0xE1], greek->Advance(0xE1));
  EXPECT_EQ(&greek->AdvancesOfBytes(), advances);
}

TEST(Font, ForgetsPicturesRatherThanFillTheMemory) {
  const auto font = Made("DejaVu Sans", 1024);
  std::size_t bytes = 0;
  char32_t next = 33;
  EXPECT_EQ(Font::kMostGlyphBytes, 4194304u);
  // All that fits is kept: asking again makes no picture anew.
  for (; bytes + font->GlyphOf(next).bits.size() <= Font::kMostGlyphBytes; ++next) {
    bytes += font->GlyphOf(next).bits.size();
  }
  const std::size_t made = next - 33 + 1;
  ASSERT_LT(next, 255u);
  EXPECT_EQ(font->Rasterizations(), made);
  // The one that did not fit took the place of all.
  font->GlyphOf(next);
  EXPECT_EQ(font->Rasterizations(), made);
  font->GlyphOf(33);
  EXPECT_EQ(font->Rasterizations(), made + 1);
  font->GlyphOf(next);
  EXPECT_EQ(font->Rasterizations(), made + 1);
}

TEST(Font, ForgetsWhatBytesStandForToo) {
  const auto font = Made("DejaVu Sans", 1024);
  for (unsigned byte = 33; byte < 255; ++byte) font->GlyphOfByte(static_cast<unsigned char>(byte));
  const std::size_t made = font->Rasterizations();
  const auto before = RowsOf(font->GlyphOfByte(33));
  EXPECT_EQ(font->Rasterizations(), made + 1);
  EXPECT_EQ(RowsOf(font->GlyphOf(33)), before);
  EXPECT_EQ(font->Rasterizations(), made + 1);
}

TEST(Font, TheFirstCharacterBeyondTheBytesIsNoByte) {
  const auto font = Made("Unifont", 16);
  const auto zero = RowsOf(font->GlyphOfByte(0));
  EXPECT_NE(RowsOf(font->GlyphOf(256)), zero);
  EXPECT_EQ(font->Rasterizations(), 2u);
}

TEST(Font, KeepsTheMeasuresOfForgottenPictures) {
  const auto font = Made("DejaVu Sans", 1024);
  const Glyph first = font->GlyphOfByte('A');
  const Glyph* measures = &font->MeasuresOfByte('A');
  EXPECT_FALSE(measures->IsForgotten());
  for (unsigned byte = 0; byte < 256; ++byte) font->MeasuresOfByte(static_cast<unsigned char>(byte));
  const std::size_t made = font->Rasterizations();
  EXPECT_EQ(&font->MeasuresOfByte('A'), measures);
  EXPECT_EQ(font->Rasterizations(), made);
  EXPECT_TRUE(measures->IsForgotten());
  EXPECT_EQ(measures->bits.capacity(), 0u);
  EXPECT_EQ(measures->left, first.left);
  EXPECT_EQ(measures->top, first.top);
  EXPECT_EQ(measures->width, first.width);
  EXPECT_EQ(measures->height, first.height);
  EXPECT_EQ(measures->advance, first.advance);
  EXPECT_EQ(font->GlyphOfByte('A').bits, first.bits);
  EXPECT_EQ(font->Rasterizations(), made + 1);
  EXPECT_FALSE(measures->IsForgotten());
}

TEST(Font, TakesTheBoldFaceOfAFamilyThatHasOne) {
  const auto bold = Made("DejaVu Sans", 16, 700), regular = Made("DejaVu Sans", 16);
  EXPECT_NE(RowsOf(bold->GlyphOf(U'A')), RowsOf(regular->GlyphOf(U'A')));
  EXPECT_NE(RowsOf(bold->GlyphOf(U'A')), RowsOf(Emboldened(regular->GlyphOf(U'A'))));
  EXPECT_EQ(bold->Weight(), 700);
  EXPECT_EQ(regular->Weight(), 400);
}

TEST(Font, EmboldensAFamilyWithoutABoldFaceFrom550On) {
  const auto regular = Made("Unifont", 16, 549), bold = Made("Unifont", 16, 550);
  EXPECT_EQ(regular->Weight(), 400);
  EXPECT_EQ(regular->Advance(U'A'), 8);
  EXPECT_EQ(bold->Weight(), 700);
  EXPECT_EQ(bold->Advance(U'A'), 9);
  EXPECT_EQ(bold->MaxWidth(), 17);
  EXPECT_EQ(RowsOf(bold->GlyphOf(U'A')), RowsOf(Emboldened(regular->GlyphOf(U'A'))));
}

TEST(Font, LeansAFamilyWithoutASlantedFace) {
  LOGFONT description = Described("Unifont", 16);
  description.lfItalic = 1;
  EXPECT_EQ(RowsOf(Made(description)->GlyphOf(U'A')), RowsOf(Slanted(Made("Unifont", 16)->GlyphOf(U'A'))));
  EXPECT_EQ(Made(description)->Advance(U'A'), 8);
}

TEST(Font, TakesACharacterThatTheFaceLacksFromAnother) {
  const auto mono = Made("DejaVu Sans Mono", 16), unifont = Made("Unifont", -14);
  ASSERT_EQ(mono->InternalLeading(), 2);
  EXPECT_EQ(RowsOf(mono->GlyphOf(0x4E2D)), RowsOf(unifont->GlyphOf(0x4E2D)));
  EXPECT_EQ(mono->Advance(0x4E2D), 14);
}

TEST(Font, CharactersThatNoFaceHasAndControlsAreTheFacesOwnBox) {
  const auto font = Made("DejaVu Sans", 16);
  const Rows box = RowsOf(font->GlyphOf(0x10FFFF));
  EXPECT_FALSE(box.empty());
  for (const unsigned c : {0x01u, 0x1Fu, 0x7Fu, 0x80u, 0x9Fu}) EXPECT_EQ(RowsOf(font->GlyphOf(c)), box) << c;
  for (const unsigned c : {0x21u, 0x7Eu, 0xA1u}) EXPECT_NE(RowsOf(font->GlyphOf(c)), box) << c;
}

TEST(Font, WithoutAnyFontIsBoxes) {
  const FontCatalog none;
  const auto font = Made(Described("DejaVu Sans", 10), none);
  EXPECT_EQ(font->Height(), 10);
  EXPECT_EQ(font->Ascent(), 8);
  EXPECT_EQ(font->Descent(), 2);
  EXPECT_EQ(font->FaceName(), "");
  EXPECT_EQ(font->AverageWidth(), 5);
  EXPECT_EQ(font->MaxWidth(), 5);
  EXPECT_TRUE(font->IsFixedPitch());
  EXPECT_EQ(font->Family(), FF_DONTCARE);
  EXPECT_EQ(RowsOf(font->GlyphOf(U'A')), (Rows{"###", "#.#", "#.#", "#.#", "#.#", "#.#", "###"}));
  EXPECT_TRUE(font->GlyphOf(U' ').bits.empty());
  EXPECT_EQ(font->Advance(U' '), 5);
  EXPECT_EQ(Made(Described("", 1), none)->Advance(U'A'), 1);
  EXPECT_EQ(Made(Described("", kMin), none)->Height(), 1024);
}

TEST(Font, PassesOverFilesThatCannotBeRead) {
  FontCatalog catalog;
  FaceInfo broken;
  broken.families = {"Unifont"};
  broken.file = "/nowhere/none.otf";
  catalog.faces = {broken, *FontCatalog::OfMachine().Ranked(Described("DejaVu Sans", 16)).front()};
  const auto font = Made(Described("Unifont", 16), catalog);
  EXPECT_EQ(font->FaceName(), "DejaVu Sans");
  EXPECT_FALSE(font->GlyphOf(U'A').bits.empty());
  EXPECT_EQ(RowsOf(font->GlyphOf(0x4E2D)), RowsOf(font->GlyphOf(0x10FFFF)));
}

TEST(Font, TellsPitchAndFamilyOfTheFace) {
  EXPECT_TRUE(Made("DejaVu Sans Mono", 16)->IsFixedPitch());
  EXPECT_EQ(Made("DejaVu Sans Mono", 16)->Family(), FF_MODERN);
  EXPECT_FALSE(Made("DejaVu Sans", 16)->IsFixedPitch());
  EXPECT_EQ(Made("DejaVu Sans", 16)->Family(), FF_SWISS);
}

TEST(Font, UnderlineIsAThicknessBelowTheBaselineInsideTheCell) {
  const auto line = [](int height) {
    const auto font = Made("DejaVu Sans", height);
    return std::pair(font->Underline().first - font->Ascent(), font->Underline().count);
  };
  EXPECT_EQ(line(-12), std::pair(1, 1));
  EXPECT_EQ(line(-27), std::pair(1, 1));
  EXPECT_EQ(line(-28), std::pair(2, 2));
  EXPECT_EQ(line(-42), std::pair(3, 3));
  EXPECT_EQ(Made("Unifont", 16)->Underline().first, 15);
  // Without room the line moves up.
  EXPECT_EQ(Made("DejaVu Sans", 3)->Underline().first, 2);
  EXPECT_EQ(Made("DejaVu Sans", 1)->Underline().first, 0);
  EXPECT_EQ(Made("DejaVu Sans", 1)->Underline().count, 1);
}

TEST(Font, StrikeOutGoesThroughTheMiddleOfSmallLetters) {
  EXPECT_EQ(Made("Unifont", 16)->StrikeOut().first, 9);
  EXPECT_EQ(Made("Unifont", 16)->StrikeOut().count, 1);
  EXPECT_EQ(Made("Unifont", 32)->StrikeOut().first, 19);
  EXPECT_EQ(Made("Unifont", 32)->StrikeOut().count, 2);
  EXPECT_EQ(Made("DejaVu Sans", 1)->StrikeOut().first, 0);
}

}  // namespace
}  // namespace quenzel7::gdi
