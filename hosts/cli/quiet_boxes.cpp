#include "hosts/cli/quiet_boxes.h"

#include <utility>

#include "platform/platform.h"

namespace quenzel7::cli {

QuietBoxes::QuietBoxes()
    : boxes_(std::make_shared<corvane1::CollectedMessageBoxes>(nullptr)),
      before_(std::exchange(Platform::Current().messageBoxes, boxes_)) {}

QuietBoxes::~QuietBoxes() { Platform::Current().messageBoxes = before_; }

}  // namespace quenzel7::cli
