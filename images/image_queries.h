#pragma once

#include <string>
#include <vector>

#include "images/panel_pixels.h"

/// What the project tells of its pictures. Errors of the project and its database pass through; pixels that
/// cannot be decompressed are none, and a box tells the user.
namespace quenzel7 {

/// Pixels as the panel shows them, and those at the picture's own size; none when there is no such picture.
PixelBytes GetImageData8bppByCRC(Long pCRC);
PixelBytes GetImageDataORGByCRC(Long pCRC);
/// 16 for pixels of two bytes; 0 when there is no such picture, and in a project from before pictures told
/// it.
Long GetImageBitsByCRC(Long pCRC);
/// The picture's own size; both -1 when there is none in use.
void GetImageOriginalDimansions(Long pCRC, Long& pDx, Long& pDy);
/// The size on the panel; both stay when there is none in use.
void GetImageDimensions(Long pCRC, Long& pDx, Long& pDy);
/// Pixels and size on the panel; all stay when there is none in use.
void GetImageRecord(Long pCRC, PixelBytes& pData, Long& pDx, Long& pDy);
/// The CRC of the source; -1 when there is no such picture.
Long GetImageLibCRC(Long pImageCRC);
/// The file that it came from; empty when there is none.
std::string GetImagePathFromDB(Long pImageCRC);

/// The pictures of an element by their index, and one more at the end, which is -1.
std::vector<Long> GetElementImageCRCs(Long pElement_ID);
/// The pictures of an element, each once.
std::vector<Long> GetDistinctElementImageCRCs(Long pElement_ID);
/// The most pictures of a variable that are asked for at once: a count beyond is not a variable's.
inline constexpr Long kMostVarImages = 1 << 24;
/// The picture for each index of a variable from 0 on, -1 where it has none; empty for a number below 1.
/// Error 7 for more than `kMostVarImages`, before the project is asked, and when there is no room for so
/// many.
std::vector<Long> GetCRCsOfVarImages(Long pElement_ID, Long pNumOfImages);

}  // namespace quenzel7
