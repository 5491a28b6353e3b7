#pragma once

#include <vector>

#include "platform/automation/types.h"

/// Byte work on one-bit pictures. A picture of w x h pixels is its rows from the top down, the leftmost pixel
/// in the highest bit of a row's first byte. Two layouts are in use:
/// - packed: a row takes (w+7)/8 whole bytes;
/// - word aligned: a row takes that many, rounded up to an even number, as in `GetBitmapBits` and
///   `CreateBitmap`.
///
/// Errors: 5 for a negative measure, 9 for an array shorter than the rows that its measures need, 6 for
/// a result beyond 2^31-1 bytes, 7 for a new array that there is no room for. Bytes after the rows of a
/// longer array are passed over.
namespace quenzel7 {

/// Bytes of a word-aligned picture.
Long WordAlignedSize(Long w, Long h);

/// Takes the padding out of a word-aligned picture, in place; what stood after its rows is cut off.
void WordAlignedToPacked(std::vector<Byte>& bytes, Long w, Long h);

/// A packed picture in word-aligned layout. The padding bytes are 0.
std::vector<Byte> PackedToWordAligned(Long w, Long h, const std::vector<Byte>& packed);

/// A packed picture turned a quarter clockwise, a packed picture of h x w pixels: the pixel at column c of
/// row r goes to column h-1-r of row c. Bits beyond the width become 0.
std::vector<Byte> RotateMonoBits(const std::vector<Byte>& packed, Long w, Long h);

/// Complements every byte, the padding and whatever else the array holds included.
void InvertBytes(std::vector<Byte>& bytes);

}  // namespace quenzel7
