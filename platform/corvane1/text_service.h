#pragma once

#include <string>

#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

/// The side that a text is read from.
enum ReadingOrder : Long {
  kRightToLeft = 1,
  kLeftToRight = 2,
};

/// Knows how texts are read.
class TextService {
 public:
  virtual ~TextService() = default;

  /// The reading order of a text in UTF-8: `kLeftToRight`, or any other value, `kRightToLeft` above all, for
  /// one that is read from the right.
  virtual Long TextOrder(const std::string& text) = 0;
};

/// The embedded default: the order of the first letter that has one, by rules P2 and P3 of the Unicode
/// Bidirectional Algorithm (Unicode Standard Annex 9), which pass over what is isolated from its
/// surroundings. A text without such a letter is read from the left. The whole text counts as one paragraph;
/// bytes that are no UTF-8 count as `TakeCharacter` takes them.
class FirstLetterTextService final : public TextService {
 public:
  Long TextOrder(const std::string& text) override;
};

}  // namespace quenzel7::corvane1
