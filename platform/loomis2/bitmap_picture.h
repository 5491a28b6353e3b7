#pragma once

#include <optional>

#include "platform/gdi/types.h"
#include "platform/loomis2/picture.h"

namespace quenzel7::loomis2 {

/// The pixels of a bitmap of 32 bits or one, whose bits are black and white; nothing when it is none.
std::optional<Picture> PictureOf(gdi::HBITMAP bitmap);

/// A new bitmap of 32 bits with those pixels, which the caller deletes; 0 when there is no room for it.
gdi::HBITMAP BitmapOf(const Picture& picture);

}  // namespace quenzel7::loomis2
