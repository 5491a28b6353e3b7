#pragma once

#include <string>
#include <vector>

#include "platform/automation/types.h"
#include "platform/gdi/types.h"
#include "platform/loomis2/image_library.h"

/// Pixels as the panel takes them: palette indices of one byte, each row padded to an even number of bytes;
/// or pixels of two bytes without padding, when `bits` is 16. Sizes are in pixels.
namespace quenzel7 {

/// The CRC of an element that has no picture.
inline constexpr Long kNoImage = -1;
/// The CRC of an element that has a bitmap, painted by itself, but no data in the project: nothing is looked
/// up or made anew for it.
inline constexpr Long kPaintedImage = 0x3F3F3F3F;
/// What `bits` is for pixels of two bytes; any other number means one byte.
inline constexpr Long kTwoBytePixels = 16;

using PixelBytes = std::vector<Byte>;

/// The thread's image library, which is never none; error 91 before the host has set one up.
loomis2::ImageLibraryRef CurrentImageLibrary();

/// Whether the pixels have the length of a picture of that size; no pixels are those of a size below 0.
bool IsImageDataValid(const PixelBytes& data, Long dx, Long dy, Long bits);

/// A new bitmap of the pixels, which belongs to the caller; 0 when they are not those of a picture of that
/// size. Error 91 without an image library.
gdi::HBITMAP BitmapOfPixels(const PixelBytes& data, Long dx, Long dy, Long bits);

/// A new bitmap of a picture at another size, made from the pixels of its own; it belongs to the caller. 0
/// when they give no bitmap. Errors as above.
gdi::HBITMAP StretchedBitmapOfPixels(const PixelBytes& dataOrg, Long dxOrg, Long dyOrg, Long dx, Long dy,
                                     Long bits);

/// Turns a bitmap of that size into pixels in the colours of the panel and tells their CRC; gives the status
/// of the image library. The conversion mode counts for pixels of one byte only. Error 91 as above.
Long ConvertToPixels(gdi::HBITMAP bitmap, Long conversionMode, Long dx, Long dy, Long bits, PixelBytes& data,
                     Long& crc);

/// Makes a picture's pixels anew from those of its own size: `pData` and `pCRC` receive the result. False,
/// and both stay, when it cannot be made. Error 91 as above.
bool RebuildImageData(const PixelBytes& pDataORG, Long pDxORG, Long pDyORG, Long pDx, Long pDy,
                      PixelBytes& pData, Long& pCRC, Long bits);

/// The name of the file that a picture came from: of the path, or of what stands behind the first ";" in it,
/// the part behind the last separator.
std::string GetFileName(const std::string& path);

}  // namespace quenzel7
