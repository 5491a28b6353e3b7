#include "framework/mono_bits.h"

#include <cstring>
#include <limits>
#include <string>

#include "framework/picture_bytes.h"
#include "platform/automation/automation_error.h"

namespace quenzel7 {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

void RequireMeasures(Long w, Long h) {
  if (w >= 0 && h >= 0) return;
  throw AutomationError(ErrorNumber::InvalidProcedureCall,
                        PictureName(w, h) + "; neither measure may be negative");
}

std::size_t PackedStride(Long w) { return static_cast<std::size_t>(w) / 8 + (w % 8 != 0 ? 1 : 0); }

std::size_t WordAlignedStride(Long w) {
  const std::size_t packed = PackedStride(w);
  return packed + packed % 2;
}

/// The bytes of h rows of w pixels, as an array of the run-time can have them.
std::size_t SizeOf(std::size_t stride, Long w, Long h) {
  const std::size_t size = stride * static_cast<std::size_t>(h);
  if (size > static_cast<std::size_t>(std::numeric_limits<Long>::max())) {
    throw AutomationError(ErrorNumber::Overflow,
                          PictureName(w, h) + " takes " + std::to_string(size) + " bytes, beyond 2147483647");
  }
  return size;
}

void RequireRows(const std::vector<Byte>& bytes, std::size_t stride, Long w, Long h) {
  const std::size_t needed = stride * static_cast<std::size_t>(h);
  if (bytes.size() >= needed) return;
  throw AutomationError(ErrorNumber::SubscriptOutOfRange,
                        PictureName(w, h) + " takes " + std::to_string(needed) + " bytes, the array has " +
                            std::to_string(bytes.size()));
}

/// Copies rows of w pixels from one layout to another, also within one array to the shorter rows.
void CopyRows(const Byte* from, std::size_t fromStride, Byte* to, std::size_t toStride, Long w, Long h) {
  if (w == 0) return;
  const std::size_t size = PackedStride(w);
  for (Long row = 0; row < h; ++row, from += fromStride, to += toStride) std::memmove(to, from, size);
}

}  // namespace

Long WordAlignedSize(Long w, Long h) {
  RequireMeasures(w, h);
  return static_cast<Long>(SizeOf(WordAlignedStride(w), w, h));
}

void WordAlignedToPacked(std::vector<Byte>& bytes, Long w, Long h) {
  RequireMeasures(w, h);
  RequireRows(bytes, WordAlignedStride(w), w, h);
  CopyRows(bytes.data(), WordAlignedStride(w), bytes.data(), PackedStride(w), w, h);
  bytes.resize(PackedStride(w) * static_cast<std::size_t>(h));
}

std::vector<Byte> PackedToWordAligned(Long w, Long h, const std::vector<Byte>& packed) {
  const auto size = static_cast<std::size_t>(WordAlignedSize(w, h));
  RequireRows(packed, PackedStride(w), w, h);
  std::vector<Byte> aligned = NewPictureBytes(size, w, h);
  CopyRows(packed.data(), PackedStride(w), aligned.data(), WordAlignedStride(w), w, h);
  return aligned;
}

std::vector<Byte> RotateMonoBits(const std::vector<Byte>& packed, Long w, Long h) {
  RequireMeasures(w, h);
  const std::size_t from = PackedStride(w), to = PackedStride(h), size = SizeOf(to, h, w);
  RequireRows(packed, from, w, h);
  std::vector<Byte> turned = NewPictureBytes(size, h, w);
  if (turned.empty()) return turned;
  for (Long r = 0; r < h; ++r) {
    const Byte* const row = packed.data() + static_cast<std::size_t>(r) * from;
    // A row becomes a column: the same bit of one byte in every new row.
    const Long column = h - 1 - r;
    const int shift = 7 - column % 8;
    auto byte = static_cast<std::size_t>(column / 8);
    for (Long c = 0; c < w; ++c, byte += to) {
      turned[byte] = static_cast<Byte>(turned[byte] | (row[c / 8] >> (7 - c % 8) & 1) << shift);
    }
  }
  return turned;
}

void InvertBytes(std::vector<Byte>& bytes) {
  for (Byte& byte : bytes) byte = static_cast<Byte>(~byte);
}

}  // namespace quenzel7
