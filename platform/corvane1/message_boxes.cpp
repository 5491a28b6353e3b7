#include "platform/corvane1/message_boxes.h"

namespace quenzel7::corvane1 {

Long CollectedMessageBoxes::Show(const std::string& text, Long buttons, const std::string& caption) {
  return Ask(caption + ": " + text, {text, buttons, caption});
}

}  // namespace quenzel7::corvane1
