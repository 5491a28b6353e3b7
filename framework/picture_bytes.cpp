#include "framework/picture_bytes.h"

#include <new>

#include "platform/automation/automation_error.h"

namespace quenzel7 {

using automation::AutomationError;
using automation::ErrorNumber;

std::string PictureName(Long w, Long h) {
  return "a picture of " + std::to_string(w) + " x " + std::to_string(h) + " pixels";
}

std::vector<Byte> NewPictureBytes(std::size_t size, Long w, Long h) {
  try {
    return std::vector<Byte>(size);
  } catch (const std::bad_alloc&) {
    throw AutomationError(ErrorNumber::OutOfMemory,
                          "no room for the " + std::to_string(size) + " bytes of " + PictureName(w, h));
  }
}

}  // namespace quenzel7
