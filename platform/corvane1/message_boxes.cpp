#include "platform/corvane1/message_boxes.h"

#include <iostream>

#include "platform/corvane1/one_line.h"

namespace quenzel7::corvane1 {

CollectedMessageBoxes::CollectedMessageBoxes() : CollectedMessageBoxes(&std::cerr) {}

Long CollectedMessageBoxes::Show(const std::string& text, Long buttons, const std::string& caption) {
  if (output_) *output_ << OneLine(caption + ": " + text) << std::endl;
  shown_.Add({text, buttons, caption});
  return answer_;
}

}  // namespace quenzel7::corvane1
