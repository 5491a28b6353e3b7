#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "framework/mono_bytes.h"

namespace quenzel7::fuzz {

/// What makes a bitmap of stored bytes, and bytes of a bitmap.
struct MonoCoding {
  gdi::HBITMAP (*read)(const std::vector<Byte>& bytes);
  void (*write)(gdi::HBITMAP bitmap, std::vector<Byte>& bytes);
};

/// The one of the elements.
inline constexpr MonoCoding kMonoCoding = {
    &BytesToBitmap, [](gdi::HBITMAP bitmap, std::vector<Byte>& bytes) { BitmapToBytes(bitmap, bytes); }};

/// Reads bytes as a stored one-bit picture. Gives the promise that was not kept, empty if all were: bytes are
/// refused as too short, and with a reason, or are a bitmap of the size that their trailer tells, 1 x 1 for
/// none; what is stored of it is the picture again; and no object of the graphics interface is left.
std::string CheckMono(const MonoCoding& coding, std::span<const std::uint8_t> bytes);

}  // namespace quenzel7::fuzz
