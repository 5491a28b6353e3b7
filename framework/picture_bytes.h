#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/automation/types.h"

namespace quenzel7 {

/// "a picture of W x H pixels": how errors name a picture.
std::string PictureName(Long w, Long h);

/// `size` bytes 0 for a picture of w x h pixels. Error 7 if there is no room for them.
std::vector<Byte> NewPictureBytes(std::size_t size, Long w, Long h);

}  // namespace quenzel7
