#include "platform/corvane1/panel_text_painter.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "platform/corvane1/panel_font_service.h"
#include "platform/gdi/font.h"
#include "platform/gdi/font_catalog.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"
#include "platform/gdi/selected.h"
#include "platform/gdi/surface.h"
#include "tests/platform/gdi/font_samples.h"
#include "tests/platform/gdi/picture.h"
#include "tests/support/raises.h"

namespace quenzel7::corvane1 {
namespace {

using Lines = std::vector<std::string>;

constexpr Long kUnifont = 0, kLarge = 7, kOption = 255;
constexpr Long kMost = std::numeric_limits<Long>::max();

/// A white surface with a blue pen on a red background.
class PaintedText : public ::testing::Test {
 protected:
  explicit PaintedText(int width = 24, int height = 34) : surface_(gdi::White(width, height)) {
    gdi::SetBkColor(Dc(), gdi::kRed);
  }
  gdi::HDC Dc() const { return surface_.Dc(); }

  gdi::Surface surface_;
  const gdi::SelectedPen pen_{surface_.Dc(), gdi::MakePen(gdi::PS_SOLID, 1, gdi::kBlue)};
  PanelTextPainter painter_;
};

/// The letter A of Unifont in a picture of one colour, its cell at (x, y) filled with `cell`.
Lines PictureOfA(int width, int height, std::size_t x, std::size_t y, char ink, char cell) {
  Lines rows(static_cast<std::size_t>(height), std::string(static_cast<std::size_t>(width), '.'));
  for (std::size_t row = 0; row < 16; ++row) rows[y + row].replace(x, 8, 8, cell);
  for (std::size_t row = 0; row < gdi::kUnifontA.size(); ++row) {
    for (std::size_t column = 0; column < gdi::kUnifontA[row].size(); ++column) {
      if (gdi::kUnifontA[row][column] == '#') rows[y + 4 + row][x + 1 + column] = ink;
    }
  }
  return rows;
}

/// The calls that paint lines.
Lines PaintedLines(const gdi::Recorder& recorder) {
  Lines painted;
  for (const std::string& call : recorder.Calls()) {
    if (call.rfind("TextOutA", 0) == 0) painted.push_back(call);
  }
  return painted;
}

TEST_F(PaintedText, IsThePensColourOnTheBackgroundColour) {
  painter_.DrawText(3, 5, "A", Dc(), kUnifont);
  EXPECT_EQ(gdi::Rows(surface_), PictureOfA(24, 34, 3, 5, 'b', 'r'));
}

TEST_F(PaintedText, OfTheLibraryLooksTheSame) {
  painter_.DrawStorageText(3, 5, "A", Dc(), kUnifont);
  EXPECT_EQ(gdi::Rows(surface_), PictureOfA(24, 34, 3, 5, 'b', 'r'));
}

TEST_F(PaintedText, TransparentHasNoBackground) {
  painter_.DrawTextTransparent(3, 5, "A", Dc(), kUnifont);
  EXPECT_EQ(gdi::Rows(surface_), PictureOfA(24, 34, 3, 5, 'b', '.'));
}

TEST_F(PaintedText, TransparentOfTheLibraryHasNoneWhateverTheOption) {
  for (const Long option : {0, 1, 255, -1}) {
    surface_.Clear(gdi::kWhite);
    painter_.DrawStorageTextTransparent(3, 5, "A", Dc(), kUnifont, option);
    EXPECT_EQ(gdi::Rows(surface_), PictureOfA(24, 34, 3, 5, 'b', '.')) << option;
  }
}

TEST_F(PaintedText, TakesTheColourOfAnExtendedPenToo) {
  const gdi::LOGBRUSH green{0, gdi::kGreen, 0};
  const gdi::SelectedPen wide(Dc(), gdi::ExtCreatePen(0x11206, 5, &green, 0, nullptr));
  painter_.DrawTextTransparent(0, 0, "A", Dc(), kUnifont);
  EXPECT_EQ(gdi::Rows(surface_), PictureOfA(24, 34, 0, 0, 'g', '.'));
}

TEST_F(PaintedText, OfSeveralLinesStandsOneBelowTheOther) {
  const std::string text = "A\r\n\r\nBC";
  const auto inOne = [&](const std::function<void()>& paint) {
    surface_.Clear(gdi::kWhite);
    paint();
    return gdi::Colors(surface_);
  };
  const auto opaque = inOne([&] {
    painter_.DrawText(2, -16, "A", Dc(), kUnifont);
    painter_.DrawText(2, 16, "BC", Dc(), kUnifont);
  });
  EXPECT_EQ(inOne([&] { painter_.DrawStorageText(2, -16, text, Dc(), kUnifont); }), opaque);
  EXPECT_EQ(inOne([&] { painter_.DrawText(2, -16, text, Dc(), kUnifont); }), opaque);
  const auto clear = inOne([&] {
    painter_.DrawTextTransparent(2, -16, "A", Dc(), kUnifont);
    painter_.DrawTextTransparent(2, 16, "BC", Dc(), kUnifont);
  });
  EXPECT_EQ(inOne([&] { painter_.DrawStorageTextTransparent(2, -16, text, Dc(), kUnifont, kOption); }),
            clear);
  EXPECT_EQ(inOne([&] { painter_.DrawTextTransparent(2, -16, text, Dc(), kUnifont); }), clear);
  EXPECT_NE(opaque, clear);
}

TEST_F(PaintedText, CallsTheGraphicsInterfaceInThisOrder) {
  gdi::Recorder recorder;
  painter_.DrawStorageText(3, 5, "A\r\n\xE2\x82\xAC", Dc(), 11);
  const std::string font = "CreateFontIndirectA({10, 0, 0, 0, 700, 0, 0, 0, 0, 0, 0, 0, 0, \"DejaVu Sans\"})";
  EXPECT_EQ(recorder.Calls(),
            (Lines{"GetCurrentObject(dc:1, 1)", "GetObjectA(pen:1, 28)", "SetTextColor(dc:1, 0xff0000)",
                   "SetBkMode(dc:1, 2)", font + " -> font:1", "SelectObject(dc:1, font:1)",
                   "TextOutA(dc:1, 3, 5, \"A\", 1)", "TextOutA(dc:1, 3, 15, \"\\x80\", 1)",
                   "SelectObject(dc:1, stock:13)", "DeleteObject(font:1)", "SetBkMode(dc:1, 2)",
                   "SetTextColor(dc:1, 0x000000)"}));
}

TEST_F(PaintedText, LeavesTheContextAsItWas) {
  gdi::SetTextColor(Dc(), 0x123456);
  for (const gdi::BackgroundMode mode : {gdi::TRANSPARENT, gdi::OPAQUE}) {
    gdi::SetBkMode(Dc(), mode);
    const std::size_t objects = gdi::LiveObjects();
    const auto font = gdi::GetCurrentObject(Dc(), gdi::OBJ_FONT);
    painter_.DrawText(0, 0, "A", Dc(), kUnifont);
    painter_.DrawTextTransparent(0, 0, "A", Dc(), kUnifont);
    painter_.DrawStorageText(0, 0, "A", Dc(), kUnifont);
    painter_.DrawStorageTextTransparent(0, 0, "A", Dc(), kUnifont, kOption);
    EXPECT_EQ(gdi::LiveObjects(), objects);
    EXPECT_EQ(gdi::GetBkMode(Dc()), mode);
    EXPECT_EQ(gdi::GetTextColor(Dc()), 0x123456u);
    EXPECT_EQ(gdi::GetBkColor(Dc()), gdi::kRed);
    EXPECT_EQ(gdi::GetCurrentObject(Dc(), gdi::OBJ_FONT), font);
    EXPECT_EQ(gdi::GetCurrentObject(Dc(), gdi::OBJ_PEN), pen_.Get());
  }
}

TEST_F(PaintedText, OnAWrongHandleIsNothing) {
  gdi::Recorder recorder;
  painter_.DrawText(0, 0, "A", 0, kUnifont);
  painter_.DrawText(0, 0, "A", 12345, kUnifont);
  EXPECT_EQ(recorder.Calls(), (Lines{"GetCurrentObject(null, 1)", "GetCurrentObject(invalid, 1)"}));
}

TEST_F(PaintedText, LinesBelowAllCoordinatesAreLeftOut) {
  gdi::Recorder recorder;
  painter_.DrawText(0, kMost - 16, "a\r\nb\r\nc", Dc(), kUnifont);
  EXPECT_EQ(PaintedLines(recorder),
            (Lines{"TextOutA(dc:1, 0, 2147483631, \"a\", 1)", "TextOutA(dc:1, 0, 2147483647, \"b\", 1)"}));
}

TEST_F(PaintedText, IsInTheCodePage) {
  Long number = 1253;
  PanelTextPainter painter(PanelFontList(), [&] { return AnsiCodePage(number); });
  const auto painted = [&](const char* text) {
    surface_.Clear(gdi::kWhite);
    painter.DrawText(0, 0, text, Dc(), kUnifont);
    return gdi::Rows(surface_);
  };
  // A Greek capital alpha looks like A there.
  EXPECT_EQ(painted("\xCE\x91"), PictureOfA(24, 34, 0, 0, 'b', 'r'));
  EXPECT_EQ(painted("\xD0\x90"), painted("?"));
  number = 1251;
  EXPECT_EQ(painted("\xD0\x90"), PictureOfA(24, 34, 0, 0, 'b', 'r'));
  EXPECT_EQ(painted("\xCE\x91"), painted("?"));
}

TEST_F(PaintedText, IsInTheOrderInWhichItIsSeenLineByLine) {
  PanelTextPainter painter(PanelFontList(), [] { return AnsiCodePage(1255); });
  gdi::Recorder recorder;
  painter.DrawText(3, 5, "\xD7\x90(\xD7\x91) 12\r\nbar \xD7\x90\xD7\x91\r\nbar", Dc(), kUnifont);
  EXPECT_EQ(PaintedLines(recorder),
            (Lines{"TextOutA(dc:1, 3, 5, \"12 (\\xe1)\\xe0\", 7)",
                   "TextOutA(dc:1, 3, 21, \"bar \\xe1\\xe0\", 6)", "TextOutA(dc:1, 3, 37, \"bar\", 3)"}));
}

TEST_F(PaintedText, PassesOnTheErrorsOfTheCodePageAndPaintsNothing) {
  PanelTextPainter painter(PanelFontList(), [] { return AnsiCodePage(1); });
  gdi::Recorder recorder;
  EXPECT_EQ(test::ErrorOf([&] { painter.DrawText(0, 0, "A", Dc(), kUnifont); }), 5);
  EXPECT_EQ(test::ErrorOf([&] { painter.GetTextSize("A", kUnifont); }), 5);
  EXPECT_EQ(recorder.Calls(), Lines{});
}

TEST_F(PaintedText, IsInTheFontsOfTheList) {
  PanelTextPainter painter(PanelFontList({{5, "A", "Unifont", 16, 400}}, 5, 5));
  painter.DrawText(0, 0, "A", Dc(), 99);
  EXPECT_EQ(gdi::Rows(surface_), PictureOfA(24, 34, 0, 0, 'b', 'r'));
  EXPECT_EQ(painter.GetTextSize("A", 99), (TextExtent{8, 16}));
}

TEST(GetTextSize, IsThatOfTheFontServiceForWhatCanBePainted) {
  PanelTextPainter painter;
  PanelFontService fonts;
  for (const PanelFont& font : PanelFonts()) {
    for (const char* text : {"", " ", "Speed 12.5", "\xC3\xA4\r\nWide line", "\r\n"}) {
      EXPECT_EQ(painter.GetTextSize(text, font.number), fonts.GetTextRect(text, font.number)) << text;
    }
  }
}

TEST(GetTextSize, CountsAQuestionMarkForWhatCannotBePainted) {
  PanelTextPainter painter;
  EXPECT_EQ(painter.GetTextSize("\xE4\xB8\xAD", kUnifont), (TextExtent{8, 16}));
  EXPECT_EQ(painter.GetTextSize("a\xE4\xB8\xAD", kLarge), painter.GetTextSize("a?", kLarge));
}

TEST(GetTextSize, IsTheBoxThatIsPaintedOnAnOpaqueBackground) {
  PanelTextPainter painter;
  const gdi::Surface surface = gdi::White(200, 60);
  const gdi::SelectedPen pen(surface.Dc(), gdi::MakePen(gdi::PS_SOLID, 1, gdi::kRed));
  gdi::SetBkColor(surface.Dc(), gdi::kRed);
  painter.DrawText(0, 0, "Wide\r\nWi", surface.Dc(), kLarge);
  const TextExtent size = painter.GetTextSize("Wide\r\nWi", kLarge);
  EXPECT_EQ(size.height, 48);
  EXPECT_EQ(surface.At(size.width - 1, 0), gdi::kRed);
  EXPECT_EQ(surface.At(size.width, 0), gdi::kWhite);
  EXPECT_EQ(surface.At(0, 47), gdi::kRed);
  EXPECT_EQ(surface.At(0, 48), gdi::kWhite);
}

/// Texts as the font library alone renders them: the pixels of its pictures in black and white, one advance
/// after another.
class FontFile {
 public:
  FontFile(const std::string& family, int size) {
    FT_Init_FreeType(&library_);
    for (const gdi::FaceInfo& face : gdi::FontCatalog::OfMachine().faces) {
      if (face.families.front() != family || face.weight != 400 || face.isSlanted || face.width != 100)
        continue;
      FT_New_Face(library_, face.file.c_str(), face.index, &face_);
      break;
    }
    if (face_ != nullptr) FT_Set_Pixel_Sizes(face_, 0, static_cast<FT_UInt>(size));
  }
  FontFile(const FontFile&) = delete;
  FontFile& operator=(const FontFile&) = delete;
  ~FontFile() {
    FT_Done_Face(face_);
    FT_Done_FreeType(library_);
  }

  bool IsThere() const { return face_ != nullptr; }

  void Paint(gdi::Surface& surface, int x, int baseline, std::u32string_view text) const {
    for (const char32_t letter : text) {
      FT_Load_Char(face_, letter, FT_LOAD_RENDER | FT_LOAD_TARGET_MONO | FT_LOAD_NO_BITMAP);
      const FT_GlyphSlot glyph = face_->glyph;
      for (int row = 0; row < static_cast<int>(glyph->bitmap.rows); ++row) {
        const unsigned char* bits = glyph->bitmap.buffer + row * glyph->bitmap.pitch;
        for (int column = 0; column < static_cast<int>(glyph->bitmap.width); ++column) {
          if ((bits[column / 8] >> (7 - column % 8) & 1) == 0) continue;
          surface.Set(x + glyph->bitmap_left + column, baseline - glyph->bitmap_top + row, gdi::kBlue);
        }
      }
      x += static_cast<int>((glyph->advance.x + 32) >> 6);
    }
  }

 private:
  FT_Library library_ = nullptr;
  FT_Face face_ = nullptr;
};

TEST(PanelTextPainterPixels, AreThoseOfTheFontFilesInEveryScript) {
  struct Script {
    Long codePage;
    const char* text;
    std::u32string_view characters;
  };
  for (const Script& script :
       {Script{1252, "Speed \xC3\xA4\xC3\x9F\xE2\x82\xAC 12.5", U"Speed \u00E4\u00DF\u20AC 12.5"},
        Script{1253, "\xCE\xA0\xCE\xAF\xCE\xB5\xCF\x83\xCE\xB7", U"\u03A0\u03AF\u03B5\u03C3\u03B7"},
        Script{1251, "\xD0\x9D\xD0\xB0\xD1\x81\xD0\xBE\xD1\x81", U"\u041D\u0430\u0441\u043E\u0441"},
        Script{1255, "\xD7\x9C\xD7\x97\xD7\xA5", U"\u05E5\u05D7\u05DC"}}) {
    const AnsiCodePage codePage(script.codePage);
    PanelTextPainter painter(PanelFontList(), [&] { return codePage; });
    for (const Long number : {0, 1, 2, 3, 5, 6, 7, 10, 38}) {
      const auto font = gdi::FontFor(PanelFontList().DescriptionOf(number, codePage));
      gdi::Surface painted = gdi::White(500, 60), expected = gdi::White(500, 60);
      const gdi::SelectedPen pen(painted.Dc(), gdi::MakePen(gdi::PS_SOLID, 1, gdi::kBlue));
      painter.DrawTextTransparent(4, 3, script.text, painted.Dc(), number);
      const FontFile file(PanelFontList().FontOf(number).family, font->Height() - font->InternalLeading());
      ASSERT_TRUE(file.IsThere()) << number;
      file.Paint(expected, 4, 3 + font->Ascent(), script.characters);
      EXPECT_TRUE(gdi::Colors(painted) == gdi::Colors(expected)) << script.codePage << " font " << number;
      EXPECT_FALSE(gdi::Colors(painted) == gdi::Colors(gdi::White(500, 60)));
    }
  }
}

}  // namespace
}  // namespace quenzel7::corvane1
