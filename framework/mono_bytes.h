#pragma once

#include <vector>

#include "platform/automation/types.h"
#include "platform/gdi/types.h"

/// The byte form in which elements store one-bit pictures: the rows, word aligned, then a trailer of five
/// bytes: width and height in 16 bits each, low byte first, and a byte 0. The trailer is found from the end.
namespace quenzel7 {

/// Puts the byte form of a bitmap into `bytes`, resized to w x h by `StretchMonoBitmap`. If w or h is -1 the
/// bitmap keeps its size and is read itself, whatever the other is. Of measures beyond 65535 the trailer
/// keeps the low 16 bits.
///
/// A handle that is no bitmap gives a picture of 0 x 0. A bitmap in colours that is not resized gives the
/// first bytes of its own rows, which are no one-bit picture; resizing makes one of it.
///
/// If no resized copy can be made the rows are all 0.
///
/// Errors, `bytes` staying as they are: 5 for a measure below -1, 6 for rows beyond 2147483642 bytes, the
/// most that an array of 2^31-1 bytes has besides the trailer, 7 if there is no room for the array.
void BitmapToBytes(gdi::HBITMAP bitmap, std::vector<Byte>& bytes, Long w = -1, Long h = -1);

/// The same with all rows of a bitmap in colours, as they lie in memory: what tells any two pictures apart.
/// Error 6 for rows beyond 2147483642 bytes, 7 if there is no room for the array.
std::vector<Byte> WholeBitmapToBytes(gdi::HBITMAP bitmap);

/// A one-bit bitmap of a byte form; it belongs to the caller. Bytes between the rows and the trailer are
/// passed over; a picture without width or height becomes one black pixel. Error 9 for an array too short for
/// a trailer or for the rows that its trailer tells.
gdi::HBITMAP BytesToBitmap(const std::vector<Byte>& bytes);

}  // namespace quenzel7
