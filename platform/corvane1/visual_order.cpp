#include "platform/corvane1/visual_order.h"

#include <fribidi.h>

#include <new>
#include <vector>

#include "platform/corvane1/utf8.h"

namespace quenzel7::corvane1 {
namespace {

/// All characters below run to the right, or with their neighbours.
constexpr char32_t kFirstRightToLeft = 0x590;

/// Whether a line with this character may have to be put in order: letters, digits and marks of direction of
/// the scripts that run to the left.
bool IsRightToLeft(char32_t character) {
  if (character < kFirstRightToLeft) return false;
  return (fribidi_get_bidi_type(character) & (FRIBIDI_MASK_RTL | FRIBIDI_MASK_ARABIC)) != 0;
}

bool HasRightToLeft(std::string_view line) {
  while (!line.empty()) {
    if (IsRightToLeft(TakeCharacter(line))) return true;
  }
  return false;
}

}  // namespace

std::optional<std::u32string> VisualOrder(std::string_view line) {
  if (!HasRightToLeft(line)) return {};
  std::vector<FriBidiChar> characters;
  while (!line.empty()) characters.push_back(TakeCharacter(line));
  const auto count = static_cast<FriBidiStrIndex>(characters.size());
  std::vector<FriBidiCharType> types(characters.size());
  std::vector<FriBidiBracketType> brackets(characters.size());
  std::vector<FriBidiLevel> levels(characters.size());
  fribidi_get_bidi_types(characters.data(), count, types.data());
  fribidi_get_bracket_types(characters.data(), count, types.data(), brackets.data());
  FriBidiParType base = FRIBIDI_PAR_ON;
  const bool isDone =
      fribidi_get_par_embedding_levels_ex(types.data(), brackets.data(), count, &base, levels.data()) != 0;
  // It fails for want of memory only.
  if (!isDone) throw std::bad_alloc();
  fribidi_shape_mirroring(levels.data(), count, characters.data());
  const FriBidiLevel highest = fribidi_reorder_line(FRIBIDI_FLAG_REORDER_NSM, types.data(), count, 0, base,
                                                    levels.data(), characters.data(), nullptr);
  if (highest == 0) throw std::bad_alloc();
  return std::u32string(characters.begin(), characters.end());
}

}  // namespace quenzel7::corvane1
