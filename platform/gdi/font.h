#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "platform/gdi/code_page.h"
#include "platform/gdi/font_face.h"
#include "platform/gdi/glyph.h"
#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// A font at one size, made to fit a description as closely as the faces at hand allow. Making one never
/// fails. Belongs to one thread.
///
/// - A positive height is that of the cell (ascent and descent), a negative one that of the characters (the
///   em), 0 is a cell of 16 pixels. Sizes above `kLargestSize` count as that.
/// - A width that is not 0 is the average width of the characters, its sign does not count: the pictures are
///   scaled to the side.
/// - A missing face is replaced by one of the same kind, see `FontCatalog::Ranked`. A weight of 550 or more
///   and a slant that no face of the family has are made by painting twice, one pixel apart, and by leaning.
/// - A character that the face lacks is taken from Unifont, else from any face that has it, else it is the
///   face's box for missing characters. Control characters are always taken from the face itself.
/// - Without any font on the machine every character but the space is an empty box half the em wide.
/// - Escapement, orientation, precisions and quality are not applied: lines run to the right, pixels are
///   black or white.
class Font {
 public:
  /// The largest em that pictures are made for, and the largest cell that can be asked for, in pixels.
  static constexpr int kLargestSize = 1024;
  /// Bytes of pictures beyond which a font forgets those it has and makes them anew as they are needed, so
  /// that a large font and a text of many characters do not fill the memory.
  static constexpr std::size_t kMostGlyphBytes = 4 << 20;

  Font(const LOGFONT& description, const FontCatalog& catalog, std::shared_ptr<FaceLibrary> library);
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;

  /// In pixels: the cell, and its parts above and below the baseline.
  int Height() const { return height_; }
  int Ascent() const { return ascent_; }
  int Descent() const { return height_ - ascent_; }
  /// By how much the cell is higher than the em.
  int InternalLeading() const { return height_ - sizeY_; }
  /// The recommended distance between the cells of two lines.
  int ExternalLeading() const { return externalLeading_; }
  /// The width of the letter x.
  int AverageWidth() { return Advance(U'x'); }
  int MaxWidth() const { return maxWidth_; }
  /// 400, or 700 for a bold font.
  int Weight() const { return isBold_ ? 700 : 400; }
  bool IsFixedPitch() const { return face_ == nullptr || face_->IsFixedPitch(); }
  /// FF_ROMAN, FF_SWISS, FF_MODERN or FF_DONTCARE.
  std::uint8_t Family() const { return face_ != nullptr ? face_->Family() : std::uint8_t{FF_DONTCARE}; }
  /// The family of the face that was found; empty without any font.
  const std::string& FaceName() const { return faceName_; }

  /// Lines across the text, in rows from the top of the cell: `count` rows from `first` on.
  struct Line {
    int first, count;
  };
  /// Below the baseline, one thickness away from it where the cell has room.
  Line Underline() const;
  /// Through the middle of small letters.
  Line StrikeOut() const;

  /// How far the next character is to the right, in pixels.
  int Advance(char32_t character) { return GlyphOf(character).advance; }

  /// The picture of a character. It is made once and kept; the reference is good until this font is asked
  /// for another character.
  const Glyph& GlyphOf(char32_t character) {
    if (character < quick_.size() && quick_[character] != nullptr) return *quick_[character];
    return FindGlyph(character);
  }
  /// The picture of a byte of a text in the description's character set.
  const Glyph& GlyphOfByte(unsigned char byte) {
    return byBytes_[byte] != nullptr ? *byBytes_[byte] : FindGlyphOfByte(byte);
  }
  /// The measures of the picture of a byte, whose bits may be missing: they are kept for good, so that a text
  /// is measured without a picture being made again.
  const Glyph& MeasuresOfByte(unsigned char byte) {
    return measures_[byte] != nullptr ? *measures_[byte] : FindGlyphOfByte(byte);
  }
  /// How far the next character is to the right of each byte, in pixels.
  const std::array<std::int32_t, 256>& AdvancesOfBytes();
  /// The character that a byte of a text stands for.
  char32_t CharacterOf(unsigned char byte) const { return codePage_[byte]; }

  /// How many pictures have been made since the font was.
  std::size_t Rasterizations() const { return rasterizations_; }

 private:
  const Glyph& FindGlyph(char32_t character);
  const Glyph& FindGlyphOfByte(unsigned char byte);
  Glyph MakeGlyph(char32_t character);
  void ForgetPictures();
  void Measure(const LOGFONT& description);
  int LineThickness() const;

  const FontCatalog& catalog_;
  std::shared_ptr<FaceLibrary> library_;
  const CodePage& codePage_;
  FontFace* face_ = nullptr;
  std::string faceName_;
  int sizeX_ = 0, sizeY_ = 0;
  int height_ = 0, ascent_ = 0, externalLeading_ = 0, maxWidth_ = 0;
  bool isBold_ = false, isEmboldened_ = false, isLeaning_ = false;

  std::unordered_map<char32_t, Glyph> glyphs_;
  std::array<const Glyph*, 256> quick_{};                  ///< those of `glyphs_` below 256
  std::array<const Glyph*, 256> byBytes_{};                ///< those of `glyphs_` that bytes stand for
  std::array<const Glyph*, 256> measures_{};               ///< as `byBytes_`, with forgotten pictures too
  std::optional<std::array<std::int32_t, 256>> advances_;  ///< nothing until somebody asks for all of them
  std::size_t glyphBytes_ = 0;
  std::size_t rasterizations_ = 0;
};

/// The font for a description, of the calling thread and the fonts of this machine. The fonts used last are
/// kept, so that making the same one for every picture costs a look-up.
std::shared_ptr<Font> FontFor(const LOGFONT& description);

}  // namespace quenzel7::gdi
