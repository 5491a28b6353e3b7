#pragma once

#include <string>

#include "platform/corvane1/string_library.h"
#include "platform/corvane1/text_extent.h"
#include "shapes/text.h"

namespace quenzel7 {

/// The greatest width and the greatest height that texts need, each for itself, in panel pixels.
class LargestText {
 public:
  /// Texts are measured in that font, in the frame of new texts. Errors of clsText.
  explicit LargestText(Long fontNumber);
  /// In the font and the frame of another text.
  explicit LargestText(const clsText& like);

  /// Errors of clsText.
  void Measure(const std::string& text);
  /// A string of the library, in its own font if it has one.
  void Measure(const corvane1::LibraryString& string);

  /// 0 x 0 when nothing was measured, or in a frame that has no size of its own.
  const corvane1::TextExtent& Size() const { return size_; }

 private:
  Long font_;
  clsText scratch_;
  corvane1::TextExtent size_;
};

}  // namespace quenzel7
