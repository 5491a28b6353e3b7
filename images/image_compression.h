#pragma once

#include "images/panel_pixels.h"

/// The form in which pixels lie in the project. Only the two columns of pixels are kept so.
namespace quenzel7 {

/// The bytes as a block for the project. When that fails a box tells the user, and the block is empty. Error
/// 429 when the host makes no compressor.
PixelBytes CompressData(const PixelBytes& pData);

/// The bytes of a block of the project. When that fails a box tells the user, and there are none. Error as
/// above.
PixelBytes UnCompressData(const PixelBytes& pData);

}  // namespace quenzel7
