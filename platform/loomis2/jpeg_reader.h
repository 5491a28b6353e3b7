#pragma once

#include <span>

#include "platform/automation/types.h"
#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// The picture in a jpg file: grey, YCbCr, RGB, CMYK or YCCK, the last two inverted where an Adobe marker
/// stands. The orientation that a camera notes is ignored. Error 481 when the bytes cannot be read, when they
/// end early, and when pixels are damaged; what is wrong beside them is passed over. Error 481, too, for
/// arithmetic coding, for several scans of more than 16 Mi pixels, and for more than 100 scans or 1 Gi pixels
/// in all of them: these would take much time or room.
Picture ReadJpeg(std::span<const Byte> file);

}  // namespace quenzel7::loomis2
