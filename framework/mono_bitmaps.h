#pragma once

#include "platform/automation/types.h"
#include "platform/gdi/types.h"

/// One-bit bitmaps made anew. Each belongs to the caller, who deletes it. Handles are passed on as they come:
/// one that is no bitmap counts as a picture of 0 x 0, and of a bitmap that a context holds the interface
/// gives no more than one black pixel. A width or height of 0 gives what the interface makes of it: one black
/// pixel. The result is 0 when the interface has no bitmap left to give.
namespace quenzel7 {

/// A one-bit copy. Of a bitmap in colours white becomes white and every other colour black.
gdi::HBITMAP CopyMonoBitmap(gdi::HBITMAP bitmap);

/// A white bitmap of w x h pixels; a black one when the interface has no context left to paint it white in.
/// Errors: 5 for a negative measure, 6 for a picture beyond 2^31-1 bytes, 7 if there is no room for its
/// bytes.
gdi::HBITMAP NewWhiteMonoBitmap(Long w, Long h);

/// A copy of w x h pixels, reduced or enlarged by the library's stretch mode. Until a panel is chosen that
/// mode is 0, which the interface refuses, so that the mode of a new context stays (BLACKONWHITE: black
/// pixels survive). A copy stays white when the interface has no context left to read the bitmap in. Errors:
/// 5 for a negative measure, 6 for a picture beyond 2^31-1 bytes.
gdi::HBITMAP StretchMonoBitmap(gdi::HBITMAP bitmap, Long w, Long h);

}  // namespace quenzel7
