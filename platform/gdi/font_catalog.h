#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// A font file's face with outlines.
struct FaceInfo {
  std::vector<std::string> families;  ///< all names of its family, UTF-8
  std::string file;
  int index = 0;     ///< of the face in the file
  int weight = 400;  ///< 100 to 900, 400 is regular, 700 bold
  bool isSlanted = false;
  int width = 100;  ///< in hundredths of the family's regular width
  std::function<bool(char32_t)> covers = [](char32_t) { return true; };  ///< whether it has a character
};

/// The faces to choose from.
struct FontCatalog {
  std::vector<FaceInfo> faces;
  /// The families that stand in for faces that are missing.
  std::string monospace, serif, sansSerif;

  /// The faces that the machine's font configuration leads to now: those with outlines that do not vary, in
  /// the order of their files. Slow; for one thread at a time. What it gives out may be read by all.
  static FontCatalog Load();

  /// The faces of this machine, loaded once when first asked for.
  static const FontCatalog& OfMachine();

  /// All faces, the most suitable first: those of the family that the description names, then those of the
  /// family that stands in for it, then the rest. Within each, slant counts before boldness, that before
  /// width, and that before the distance in weight.
  std::vector<const FaceInfo*> Ranked(const LOGFONT& description) const;

  /// The faces that have a character, those of the family Unifont first.
  std::vector<const FaceInfo*> Covering(char32_t character) const;
};

/// Whether a weight asks for a bold face: 550 and above.
bool IsBold(int weight);

/// The weight that a description asks for; 0 leaves it to us and is regular.
int WantedWeight(const LOGFONT& description);

/// The face name of a description, up to its terminator.
std::string FaceNameOf(const LOGFONT& description);

}  // namespace quenzel7::gdi
