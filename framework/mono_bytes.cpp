#include "framework/mono_bytes.h"

#include <string>

#include "framework/bitmap_size.h"
#include "framework/mono_bitmaps.h"
#include "framework/mono_bits.h"
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

}  // namespace

void BitmapToBytes(gdi::HBITMAP bitmap, std::vector<Byte>& bytes, Long w, Long h) {
  const bool keepsSize = w == kOwnSize || h == kOwnSize;
  const BitmapSize measures = keepsSize ? BitmapSizeOf(bitmap) : BitmapSize{w, h, 1};
  const Long size = WordAlignedSize(measures.w, measures.h);
  const gdi::OwnedBitmap resized(keepsSize ? 0 : StretchMonoBitmap(bitmap, w, h));
  bytes.assign(static_cast<std::size_t>(size) + kTrailerSize, 0);
  gdi::GetBitmapBits(keepsSize ? bitmap : resized.Get(), size, bytes.data());
  Byte* const trailer = bytes.data() + size;
  PutWord(trailer, measures.w);
  PutWord(trailer + 2, measures.h);
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
                          "a picture of " + std::to_string(w) + " x " + std::to_string(h) + " pixels takes " +
                              std::to_string(needed) + " bytes before its trailer, the array has " +
                              std::to_string(room));
  }
  return gdi::CreateBitmap(w, h, 1, 1, bytes.data());
}

}  // namespace quenzel7
