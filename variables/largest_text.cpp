#include "variables/largest_text.h"

#include <algorithm>

namespace quenzel7 {

LargestText::LargestText(Long fontNumber) : font_(fontNumber) { scratch_.FontNumber(font_); }

LargestText::LargestText(const clsText& like) : LargestText(like.FontNumber()) {
  scratch_.ItfHmiElement::Flat3D(like.ItfHmiElement::Flat3D());
}

void LargestText::Measure(const std::string& text) {
  scratch_.Txt(text);
  Long dx = 0, dy = 0;
  scratch_.GetOptimalDimensions(dx, dy);
  size_ = {std::max(size_.width, dx), std::max(size_.height, dy)};
}

void LargestText::Measure(const corvane1::LibraryString& string) {
  scratch_.FontNumber(string.FontOr(font_));
  Measure(string.text);
}

}  // namespace quenzel7
