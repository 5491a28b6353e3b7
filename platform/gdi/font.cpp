#include "platform/gdi/font.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>
#include <vector>

#include "platform/gdi/font_catalog.h"

namespace quenzel7::gdi {
namespace {

constexpr int kDefaultCell = 16;

/// Without a font: a cell of which a fifth is below the baseline.
constexpr FontFace::Measures kBoxMeasures{10, 8, 2, 0, 5, 5};

/// a * b / c to the nearest, for numbers that are not negative.
int Scaled(std::int64_t a, std::int64_t b, std::int64_t c) { return static_cast<int>((a * b + c / 2) / c); }

/// The amount of a size, at least 1 and at most the largest that is drawn.
int Size(std::int64_t value) {
  return static_cast<int>(std::clamp<std::int64_t>(std::abs(value), 1, Font::kLargestSize));
}

bool IsControl(char32_t character) { return character < 0x20 || (character >= 0x7F && character < 0xA0); }

}  // namespace

Font::Font(const LOGFONT& description, const FontCatalog& catalog, std::shared_ptr<FaceLibrary> library)
    : catalog_(catalog),
      library_(std::move(library)),
      codePage_(CodePageOf(description.lfCharSet)),
      isBold_(IsBold(WantedWeight(description))) {
  for (const FaceInfo* info : catalog.Ranked(description)) {
    face_ = library_->Open(*info);
    if (face_ == nullptr) continue;
    faceName_ = info->families.empty() ? std::string() : info->families.front();
    isEmboldened_ = isBold_ && !IsBold(info->weight);
    isLeaning_ = description.lfItalic != 0 && !info->isSlanted;
    break;
  }
  Measure(description);
}

void Font::Measure(const LOGFONT& description) {
  const FontFace::Measures& units = face_ != nullptr ? face_->InUnits() : kBoxMeasures;
  const int cell = units.ascent + units.descent;
  if (description.lfHeight < 0) {
    sizeY_ = Size(description.lfHeight);
    ascent_ = Scaled(units.ascent, sizeY_, units.unitsPerEm);
    height_ = ascent_ + Scaled(units.descent, sizeY_, units.unitsPerEm);
  } else {
    height_ = description.lfHeight == 0 ? kDefaultCell : Size(description.lfHeight);
    sizeY_ = Size(Scaled(height_, units.unitsPerEm, cell));
    ascent_ = Scaled(units.ascent, height_, cell);
  }
  sizeX_ = sizeY_;
  if (description.lfWidth != 0) {
    sizeX_ = Size(Scaled(Size(description.lfWidth), units.unitsPerEm, units.letterX));
  }
  externalLeading_ = Scaled(units.lineGap, sizeY_, units.unitsPerEm);
  maxWidth_ = Scaled(units.widest, sizeX_, units.unitsPerEm) + (isEmboldened_ ? 1 : 0);
}

int Font::LineThickness() const { return std::max(1, sizeY_ / 14); }

Font::Line Font::Underline() const {
  const int thickness = LineThickness();
  return {std::min(ascent_ + thickness, height_ - thickness), thickness};
}

Font::Line Font::StrikeOut() const {
  const int thickness = LineThickness();
  return {std::max(0, ascent_ - sizeY_ / 4 - (thickness + 1) / 2), thickness};
}

const Glyph& Font::FindGlyph(char32_t character) {
  auto found = glyphs_.find(character);
  if (found == glyphs_.end() || found->second.IsForgotten()) {
    Glyph glyph = MakeGlyph(character);
    if (glyphBytes_ + glyph.bits.size() > kMostGlyphBytes) ForgetPictures();
    glyphBytes_ += glyph.bits.size();
    found = glyphs_.insert_or_assign(character, std::move(glyph)).first;
  }
  if (character < quick_.size()) quick_[character] = &found->second;
  return found->second;
}

void Font::ForgetPictures() {
  quick_.fill(nullptr);
  byBytes_.fill(nullptr);
  for (auto& [character, glyph] : glyphs_) glyph.bits = std::vector<std::uint8_t>();
  glyphBytes_ = 0;
}

const Glyph& Font::FindGlyphOfByte(unsigned char byte) {
  const Glyph& glyph = GlyphOf(codePage_[byte]);
  byBytes_[byte] = measures_[byte] = &glyph;
  return glyph;
}

const std::array<std::int32_t, 256>& Font::AdvancesOfBytes() {
  if (!advances_) {
    std::array<std::int32_t, 256> advances{};
    for (std::size_t byte = 0; byte < advances.size(); ++byte) {
      advances[byte] = MeasuresOfByte(static_cast<unsigned char>(byte)).advance;
    }
    advances_ = advances;
  }
  return *advances_;
}

Glyph Font::MakeGlyph(char32_t character) {
  ++rasterizations_;
  FontFace* source = face_;
  if (!IsControl(character) && (face_ == nullptr || !face_->Has(character))) {
    for (const FaceInfo* info : catalog_.Covering(character)) {
      FontFace* other = library_->Open(*info);
      if (other == nullptr || !other->Has(character)) continue;
      source = other;
      break;
    }
  }
  if (source == nullptr) {
    const int advance = std::max(1, sizeX_ / 2);
    return character == U' ' ? Glyph::Blank(0, 0, 0, 0, advance) : BoxGlyph(advance, ascent_);
  }
  Glyph glyph = source->Rasterize(character, sizeX_, sizeY_);
  if (isLeaning_) glyph = Slanted(glyph);
  if (isEmboldened_) glyph = Emboldened(glyph);
  return glyph;
}

}  // namespace quenzel7::gdi
