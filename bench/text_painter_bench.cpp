#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "bench/canvas.h"
#include "bench/numbers.h"
#include "bench/ratios.h"
#include "platform/corvane1/panel_fonts.h"
#include "platform/gdi/bitmap.h"
#include "platform/gdi/font.h"
#include "platform/gdi/font_catalog.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"
#include "platform/gdi/surface.h"
#include "platform/platform.h"
#include "shapes/text.h"

namespace quenzel7::bench {
namespace {

constexpr int kTexts = 1000, kShortest = 10, kLongest = 30, kFonts = 6;
/// Room for the longest text in the widest letters of the largest font, so that the plain loop needs no
/// clipping.
constexpr int kMostWidth = 500, kMostHeight = 16, kMargin = 2;
constexpr Long kCentred = 4;
constexpr gdi::COLORREF kInk = 0x204060, kCell = 0xE0F0FF;

/// A short text of a panel, in one of its first fonts.
struct ShortText {
  Long left, top;
  std::string text;
  Long font;
};

std::vector<ShortText> ShortTexts() {
  constexpr std::string_view kWords =
      "Pump 3 on/off, Oven 87 % of 230 C, Flow 12.5 l/min, Valve V-108 [open], START when \"Ready\"!";
  Numbers numbers;
  std::vector<ShortText> texts;
  for (int i = 0; i < kTexts; ++i) {
    const int length = numbers.Between(kShortest, kLongest);
    const int from = numbers.Between(0, static_cast<int>(kWords.size()) - length);
    const int left = numbers.Between(kMargin, kPageWidth - kMostWidth - kMargin);
    const int top = numbers.Between(kMargin, kPageHeight - kMostHeight - kMargin);
    texts.push_back(
        {left, top,
         std::string(kWords.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(length))),
         numbers.Between(0, kFonts - 1)});
  }
  return texts;
}

/// The pictures of a font's letters as the font library alone makes them, kept.
class PlainFont {
 public:
  PlainFont(FT_Library library, Long number) {
    const corvane1::PanelFont& panelFont = corvane1::PanelFonts()[static_cast<std::size_t>(number)];
    gdi::LOGFONT look{};
    look.lfHeight = panelFont.height;
    look.lfWeight = panelFont.weight;
    panelFont.family.copy(look.lfFaceName, sizeof look.lfFaceName - 1);
    const auto font = gdi::FontFor(look);
    height = font->Height();
    FT_Face face = nullptr;
    for (const gdi::FaceInfo* info : gdi::FontCatalog::OfMachine().Ranked(look)) {
      if (FT_New_Face(library, info->file.c_str(), info->index, &face) == 0) break;
    }
    if (face == nullptr) return;
    FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(height - font->InternalLeading()));
    for (std::size_t letter = ' '; letter < letters.size(); ++letter) Keep(face, letter, font->Ascent());
    FT_Done_Face(face);
  }

  struct Letter {
    int left = 0, top = 0, width = 0, height = 0, advance = 0;
    std::vector<std::uint8_t> pixels;  ///< a byte each, 1 where there is ink
  };

  std::array<Letter, 128> letters;
  int height = 0;

 private:
  void Keep(FT_Face face, std::size_t code, int ascent) {
    FT_Load_Char(face, code, FT_LOAD_RENDER | FT_LOAD_TARGET_MONO | FT_LOAD_NO_BITMAP);
    const FT_GlyphSlot slot = face->glyph;
    Letter& letter = letters[code];
    letter.left = slot->bitmap_left;
    letter.top = ascent - slot->bitmap_top;
    letter.width = static_cast<int>(slot->bitmap.width);
    letter.height = static_cast<int>(slot->bitmap.rows);
    letter.advance = static_cast<int>((slot->advance.x + 32) >> 6);
    for (int y = 0; y < letter.height; ++y) {
      const unsigned char* row = slot->bitmap.buffer + y * slot->bitmap.pitch;
      for (int x = 0; x < letter.width; ++x) letter.pixels.push_back(row[x / 8] >> (7 - x % 8) & 1);
    }
  }
};

/// Writes texts with nothing but kept pictures: no measures, no handles, no clipping, no code page. A branch
/// a pixel beats mixing whole rows here, since rows of letters are short.
class PlainLoop {
 public:
  PlainLoop() {
    FT_Init_FreeType(&library_);
    for (Long number = 0; number < kFonts; ++number) fonts_.emplace_back(library_, number);
  }
  ~PlainLoop() { FT_Done_FreeType(library_); }
  PlainLoop(const PlainLoop&) = delete;
  PlainLoop& operator=(const PlainLoop&) = delete;

  void Write(const std::vector<ShortText>& texts) {
    for (const ShortText& text : texts) WriteOne(text);
  }
  const std::vector<std::uint32_t>& Pixels() const { return pixels_; }

 private:
  std::uint32_t* At(int x, int y) { return pixels_.data() + y * kPageWidth + x; }

  void WriteOne(const ShortText& text) {
    const PlainFont& font = fonts_[static_cast<std::size_t>(text.font)];
    const auto letterOf = [&](char c) -> const PlainFont::Letter& {
      return font.letters[static_cast<std::size_t>(c)];
    };
    int width = 0;
    for (const char c : text.text) width += letterOf(c).advance;
    for (int y = 0; y < font.height; ++y) {
      std::fill_n(At(text.left, text.top + y), width, gdi::SwapRedAndBlue(kCell));
    }
    int x = text.left;
    for (const char c : text.text) {
      const PlainFont::Letter& letter = letterOf(c);
      const std::uint8_t* pixel = letter.pixels.data();
      for (int row = 0; row < letter.height; ++row) {
        std::uint32_t* out = At(x + letter.left, text.top + letter.top + row);
        for (int column = 0; column < letter.width; ++column) {
          if (*pixel++ != 0) out[column] = gdi::SwapRedAndBlue(kInk);
        }
      }
      x += letter.advance;
    }
  }

  FT_Library library_ = nullptr;
  std::vector<PlainFont> fonts_;
  std::vector<std::uint32_t> pixels_ =
      std::vector<std::uint32_t>(static_cast<std::size_t>(kPageWidth * kPageHeight), kPaper);
};

/// Writes texts as elements do, which measure each before they paint it: for its room and for its place.
class ServiceLoop {
 public:
  ServiceLoop() {
    surface_.Clear(kPaper);
    gdi::SetBkColor(surface_.Dc(), kCell);
  }

  void Write(const std::vector<ShortText>& texts) {
    corvane1::FontService& fonts = *Platform::Current().fontService;
    for (const ShortText& text : texts) {
      const Long height = fonts.GetCharHeight(text.font);
      const auto widths = fonts.GetCharWidths(text.font);
      Long width = 0;
      for (const char c : text.text) width += widths[static_cast<unsigned char>(c)];
      const auto placed = [&](Long x, Long y) {
        return fonts.GetTextPosition(text.text, text.font, x, y, width, height, kCentred, 0);
      };
      const corvane1::TextPosition whole = placed(text.left, text.top), line = placed(whole.x, whole.y);
      painter_->DrawText(line.x, line.y, text.text, surface_.Dc(), text.font);
    }
  }
  std::span<const std::uint32_t> Pixels() { return surface_.Pixels(); }

 private:
  gdi::Surface surface_{kPageWidth, kPageHeight};
  static constexpr gdi::LOGPEN kPen{gdi::PS_SOLID, {1, 0}, kInk};
  const gdi::SelectedPen pen_{surface_.Dc(), gdi::CreatePenIndirect(&kPen)};
  const std::shared_ptr<corvane1::TextPainter> painter_ = Platform::Current().newTextPainter();
};

/// Texts of a page, each one in a place of its own size.
class ElementLoop {
 public:
  explicit ElementLoop(const std::vector<ShortText>& texts) {
    const auto colors = std::make_shared<PlainColors>();
    const auto before = std::exchange(Platform::Current().colorService, colors);
    surface_.Clear(kPaper);
    for (const ShortText& text : texts) {
      auto element = std::make_unique<clsText>();
      const corvane1::TextExtent size = Platform::Current().fontService->GetTextRect(text.text, text.font);
      element->Flat3D(kFlat);
      element->Alignment(0);
      element->Xs(text.left);
      element->Ys(text.top);
      element->Dx(size.width);
      element->Dy(size.height);
      element->FontNumber(text.font);
      element->ColorFore(kInk);
      element->ColorBack(kCell);
      elements_.push_back(std::move(element));
    }
    Platform::Current().colorService = before;
  }

  /// Sets the texts, which fits them, and draws them.
  void Write(const std::vector<ShortText>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      elements_[i]->Txt(texts[i].text);
      elements_[i]->Draw(surface_.Dc(), false);
    }
  }
  std::span<const std::uint32_t> Pixels() { return surface_.Pixels(); }

 private:
  /// Numbers that are the colours themselves.
  struct PlainColors final : corvane1::ColorService {
    std::uint32_t GetColor(Long colorNumber) override { return static_cast<std::uint32_t>(colorNumber); }
  };

  gdi::Surface surface_{kPageWidth, kPageHeight};
  std::vector<std::unique_ptr<clsText>> elements_;
};

}  // namespace

std::vector<Ratio> TextPainterRatios() {
  constexpr int kTurns = 41, kWarmUps = 3;
  constexpr double kBudget = 2.0;
  const std::vector<ShortText> texts = ShortTexts();
  ServiceLoop services;
  ElementLoop elements(texts);
  PlainLoop plain;
  std::vector<Ratio> ratios;
  const auto measure = [&](const std::string& work, auto& ours) {
    const double ratio = TimeRatio(
        kTurns, kWarmUps, [&] { ours.Write(texts); }, [&] { plain.Write(texts); });
    const bool isSame =
        std::equal(ours.Pixels().begin(), ours.Pixels().end(), plain.Pixels().begin(), plain.Pixels().end());
    ratios.push_back({work, ratio, kBudget, "kept FreeType pictures, only painted"});
    ratios.push_back({"pictures of them that differ", isSame ? 0.0 : 1.0, 0.0, "of 1"});
  };
  measure("1,000 short texts, measured and painted by the services", services);
  measure("1,000 text elements, fitted and drawn", elements);
  return ratios;
}

}  // namespace quenzel7::bench
