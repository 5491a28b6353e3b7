#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "platform/gdi/font_catalog.h"
#include "platform/gdi/glyph.h"

struct FT_LibraryRec_;
struct FT_FaceRec_;

namespace quenzel7::gdi {

/// A face of a font file, ready to give pictures of its characters at any size. Belongs to one thread.
class FontFace {
 public:
  /// How the face is laid out, in units of `unitsPerEm`.
  struct Measures {
    int unitsPerEm = 1;
    int ascent = 0, descent = 0;  ///< of the cell, both positive
    int lineGap = 0;              ///< recommended between the cells of two lines
    int widest = 0;               ///< the largest advance
    int letterX = 0;              ///< the advance of the letter x
  };

  explicit FontFace(FT_FaceRec_* face);
  ~FontFace();
  FontFace(const FontFace&) = delete;
  FontFace& operator=(const FontFace&) = delete;

  const Measures& InUnits() const { return measures_; }
  bool IsFixedPitch() const { return isFixedPitch_; }
  /// FF_ROMAN, FF_SWISS or FF_MODERN by the face's own classification, FF_DONTCARE if it has none.
  std::uint8_t Family() const { return family_; }

  /// Whether the face has a picture for a character.
  bool Has(char32_t character) const;

  /// The picture of a character at a size of so many pixels per em to the side and down; of the box for
  /// missing characters if it has none.
  Glyph Rasterize(char32_t character, int sizeX, int sizeY);

 private:
  FT_FaceRec_* face_;
  Measures measures_;
  bool isFixedPitch_ = false;
  std::uint8_t family_ = 0;
  int sizeX_ = 0, sizeY_ = 0;
};

/// The faces that one thread has opened; each file is opened once.
class FaceLibrary {
 public:
  FaceLibrary();
  ~FaceLibrary();
  FaceLibrary(const FaceLibrary&) = delete;
  FaceLibrary& operator=(const FaceLibrary&) = delete;

  /// Null if the file is no font with outlines that can be read.
  FontFace* Open(const FaceInfo& info);

 private:
  FT_LibraryRec_* library_ = nullptr;
  std::map<std::pair<std::string, int>, std::unique_ptr<FontFace>> faces_;
};

}  // namespace quenzel7::gdi
