#include "framework/mono_bytes.h"

#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "framework/bitmap_size.h"
#include "framework/mono_bitmaps.h"
#include "framework/mono_bits.h"
#include "framework/picture_bytes.h"
#include "platform/automation/automation_error.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/owned.h"

namespace quenzel7 {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

constexpr Long kOwnSize = -1;
constexpr std::size_t kTrailerSize = 5;

void PutWord(Byte* at, Long value) {
  at[0] = static_cast<Byte>(value);
  at[1] = static_cast<Byte>(value >> 8);
}

Long WordAt(const Byte* at) { return at[0] | at[1] << 8; }

/// That many bytes of rows, so few that with the trailer an array of the run-time can have them.
Long Checked(std::int64_t size, Long w, Long h) {
  constexpr auto kMost = std::numeric_limits<Long>::max() - static_cast<Long>(kTrailerSize);
  if (size > kMost) {
    throw AutomationError(ErrorNumber::Overflow, PictureName(w, h) + " takes " + std::to_string(size) +
                                                     " bytes before its trailer, beyond " +
                                                     std::to_string(kMost));
  }
  return static_cast<Long>(size);
}

/// Room for the rows and the trailer, which is written.
std::vector<Byte> NewBytes(Long size, Long w, Long h) {
  std::vector<Byte> bytes = NewPictureBytes(static_cast<std::size_t>(size) + kTrailerSize, w, h);
  Byte* const trailer = bytes.data() + size;
  PutWord(trailer, w);
  PutWord(trailer + 2, h);
  return bytes;
}

}  // namespace

void BitmapToBytes(gdi::HBITMAP bitmap, std::vector<Byte>& bytes, Long w, Long h) {
  const bool keepsSize = w == kOwnSize || h == kOwnSize;
  const BitmapSize measures = keepsSize ? BitmapSizeOf(bitmap) : BitmapSize{w, h};
  const Long size = Checked(WordAlignedSize(measures.w, measures.h), measures.w, measures.h);
  std::vector<Byte> stored = NewBytes(size, measures.w, measures.h);
  const gdi::OwnedBitmap resized(keepsSize ? 0 : StretchMonoBitmap(bitmap, w, h));
  gdi::GetBitmapBits(keepsSize ? bitmap : resized.Get(), size, stored.data());
  bytes = std::move(stored);
}

std::vector<Byte> WholeBitmapToBytes(gdi::HBITMAP bitmap) {
  const auto [w, h, bits] = BitmapSizeOf(bitmap);
  constexpr std::int64_t kBytesOfColor = 4;
  const std::int64_t rows = bits == 1 ? WordAlignedSize(w, h) : kBytesOfColor * w * h;
  const Long size = Checked(rows, w, h);
  std::vector<Byte> bytes = NewBytes(size, w, h);
  gdi::GetBitmapBits(bitmap, size, bytes.data());
  return bytes;
}

gdi::HBITMAP BytesToBitmap(const std::vector<Byte>& bytes) {
  if (bytes.size() < kTrailerSize) {
    throw AutomationError(
        ErrorNumber::SubscriptOutOfRange,
        "a picture ends in a trailer of 5 bytes, the array has " + std::to_string(bytes.size()));
  }
  const std::size_t room = bytes.size() - kTrailerSize;
  const Byte* const trailer = bytes.data() + room;
  const Long w = WordAt(trailer), h = WordAt(trailer + 2);
  const Long needed = WordAlignedSize(w, h);
  if (room < static_cast<std::size_t>(needed)) {
    throw AutomationError(ErrorNumber::SubscriptOutOfRange,
                          PictureName(w, h) + " takes " + std::to_string(needed) +
                              " bytes before its trailer, the array has " + std::to_string(room));
  }
  return gdi::CreateBitmap(w, h, 1, 1, bytes.data());
}

}  // namespace quenzel7
