#include "platform/gdi/font_face.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <cstring>

namespace quenzel7::gdi {
namespace {

constexpr FT_Int32 kBlackAndWhite = FT_LOAD_RENDER | FT_LOAD_TARGET_MONO | FT_LOAD_NO_BITMAP;

/// The fields of the classification in ten numbers that a face may carry, and what they say.
constexpr int kFamilyKind = 0, kSerifStyle = 1;
constexpr int kLatinText = 2, kFirstSerif = 2, kFirstSansSerif = 11, kLastSansSerif = 15;

/// 26.6 fixed point to whole pixels, to the nearest.
int Pixels(FT_Pos value) { return static_cast<int>((value + 32) >> 6); }

FontFace::Measures MeasuresOf(FT_Face face) {
  FontFace::Measures measures;
  measures.unitsPerEm = std::max<int>(face->units_per_EM, 1);
  measures.ascent = face->ascender;
  measures.descent = -face->descender;
  const int lineHeight = face->height;
  const auto* table = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
  if (table != nullptr && table->usWinAscent + table->usWinDescent > 0) {
    measures.ascent = table->usWinAscent;
    measures.descent = table->usWinDescent;
  }
  if (measures.ascent + measures.descent <= 0) {
    measures.ascent = measures.unitsPerEm;
    measures.descent = 0;
  }
  // What of the recommended distance of lines the cell does not cover already.
  measures.lineGap = std::max(0, lineHeight - measures.ascent - measures.descent);
  measures.widest = face->max_advance_width;
  const FT_UInt x = FT_Get_Char_Index(face, 'x');
  if (x != 0 && FT_Load_Glyph(face, x, FT_LOAD_NO_SCALE) == 0) {
    measures.letterX = static_cast<int>(face->glyph->metrics.horiAdvance);
  }
  if (measures.letterX <= 0) measures.letterX = std::max(1, measures.unitsPerEm / 2);
  return measures;
}

std::uint8_t FamilyOf(FT_Face face) {
  if (FT_IS_FIXED_WIDTH(face)) return FF_MODERN;
  const auto* table = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
  if (table == nullptr || table->panose[kFamilyKind] != kLatinText) return FF_DONTCARE;
  const int serifs = table->panose[kSerifStyle];
  if (serifs >= kFirstSerif && serifs < kFirstSansSerif) return FF_ROMAN;
  return serifs >= kFirstSansSerif && serifs <= kLastSansSerif ? FF_SWISS : FF_DONTCARE;
}

struct FaceCloser {
  void operator()(FT_Face face) const { FT_Done_Face(face); }
};

using OwnedFace = std::unique_ptr<FT_FaceRec, FaceCloser>;

/// Null if the file is no font with outlines that can be read.
OwnedFace Read(FT_Library library, const FaceInfo& info) {
  FT_Face face = nullptr;
  if (library == nullptr || FT_New_Face(library, info.file.c_str(), info.index, &face) != 0) return nullptr;
  OwnedFace read(face);
  return FT_IS_SCALABLE(face) ? std::move(read) : nullptr;
}

}  // namespace

FontFace::FontFace(FT_FaceRec_* face)
    : face_(face),
      measures_(MeasuresOf(face)),
      isFixedPitch_(FT_IS_FIXED_WIDTH(face)),
      family_(FamilyOf(face)) {}

FontFace::~FontFace() { FT_Done_Face(face_); }

bool FontFace::Has(char32_t character) const { return FT_Get_Char_Index(face_, character) != 0; }

Glyph FontFace::Rasterize(char32_t character, int sizeX, int sizeY) {
  if (sizeX != sizeX_ || sizeY != sizeY_) {
    FT_Set_Pixel_Sizes(face_, static_cast<FT_UInt>(sizeX), static_cast<FT_UInt>(sizeY));
    sizeX_ = sizeX;
    sizeY_ = sizeY;
  }
  if (FT_Load_Glyph(face_, FT_Get_Char_Index(face_, character), kBlackAndWhite) != 0) return {};
  const FT_GlyphSlot slot = face_->glyph;
  const FT_Bitmap& bitmap = slot->bitmap;
  const int width = static_cast<int>(bitmap.width), height = static_cast<int>(bitmap.rows);
  const int advance = std::max(0, Pixels(slot->advance.x));
  if (bitmap.pixel_mode != FT_PIXEL_MODE_MONO || width == 0 || height == 0) {
    return Glyph::Blank(0, 0, 0, 0, advance);
  }
  Glyph glyph = Glyph::Blank(slot->bitmap_left, slot->bitmap_top, width, height, advance);
  for (int y = 0; y < height; ++y) {
    const auto bytes = static_cast<std::size_t>(glyph.stride);
    std::memcpy(glyph.bits.data() + static_cast<std::size_t>(y) * bytes,
                bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch, bytes);
  }
  return glyph;
}

FaceLibrary::FaceLibrary() {
  if (FT_Init_FreeType(&library_) != 0) library_ = nullptr;
}

FaceLibrary::~FaceLibrary() {
  faces_.clear();
  if (library_ != nullptr) FT_Done_FreeType(library_);
}

FontFace* FaceLibrary::Open(const FaceInfo& info) {
  const auto key = std::make_pair(info.file, info.index);
  const auto known = faces_.find(key);
  if (known != faces_.end()) return known->second.get();
  // Made before it is entered: without memory for it nothing may say that the file cannot be read.
  std::unique_ptr<FontFace> made;
  OwnedFace face = Read(library_, info);
  if (face != nullptr) {
    made = std::make_unique<FontFace>(face.get());
    face.release();
  }
  return faces_.emplace(key, std::move(made)).first->second.get();
}

}  // namespace quenzel7::gdi
