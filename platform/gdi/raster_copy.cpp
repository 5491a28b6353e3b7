#include "platform/gdi/raster_copy.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "platform/gdi/byte_masks.h"
#include "platform/gdi/raster_op.h"
#include "platform/gdi/wide_work.h"

namespace quenzel7::gdi {
namespace {

/// Rows of source pixels in the target's form, kept so that copying does not allocate each time.
thread_local std::vector<std::uint32_t> wordRow;
thread_local std::vector<std::uint8_t> byteRow;

/// The part of a copy that is inside of both bitmaps, target and source.
struct Extent {
  std::int32_t x, y, fromX, fromY, width, height;
};

Extent Clip(const Bitmap& target, const Box& box, const CopySource& source) {
  const std::int64_t dx = source.x - box.left, dy = source.y - box.top;
  const Box visible = box.ClippedTo(target);
  const Box shifted{visible.left + dx, visible.top + dy, visible.right + dx, visible.bottom + dy};
  const Box from = shifted.ClippedTo(source.bitmap);
  if (from.IsEmpty()) return {};
  return {static_cast<std::int32_t>(from.left - dx), static_cast<std::int32_t>(from.top - dy),
          static_cast<std::int32_t>(from.left),      static_cast<std::int32_t>(from.top),
          static_cast<std::int32_t>(from.Width()),   static_cast<std::int32_t>(from.Height())};
}

/// Whether the pixels of a copy lie without a gap in both bitmaps, if those have 32 bits.
bool AreWholeRows(const Extent& extent, const Bitmap& target, const Bitmap& source) {
  return extent.width == target.Width() && extent.width == source.Width();
}

/// The raster operation with the brush worked in: one set of terms for its colour, one for its gaps.
struct PatternTerms {
  RasterTerms color, gap;
  const std::array<std::uint8_t, 8>* hatch;

  PatternTerms(const Context& target, std::uint8_t table)
      : PatternTerms(target, InkOf(target.brush, target.GapColor()), table) {}

  /// The hatch of a row, leftmost column in the highest bit; all ones without one.
  std::uint32_t HatchRow(std::int32_t y) const {
    return hatch != nullptr ? (*hatch)[static_cast<std::size_t>(y % 8)] : 0xFFu;
  }

 private:
  PatternTerms(const Context& target, const Ink& ink, std::uint8_t table)
      : color(TermsFor(*target.bitmap, ink.color, table)),
        gap(TermsFor(*target.bitmap, ink.gap, table)),
        hatch(NeedsPattern(table) ? ink.hatch : nullptr) {}
};

/// Eight pixels of a row of bits, from any column on; outside the row they are 0.
std::uint32_t EightBits(const Bitmap& bitmap, std::int32_t y, std::int64_t column) {
  const std::uint8_t* const row = bitmap.Bytes(y);
  const std::int64_t index = column >> 3;
  const auto byte = [&](std::int64_t i) -> std::uint32_t {
    return i >= 0 && i < bitmap.WidthBytes() ? row[i] : 0;
  };
  return ((byte(index) << 8 | byte(index + 1)) >> (8 - (column & 7))) & 0xFF;
}

/// What becomes of a word under a bit of the source: `constant ^ (word & target)`, with both of these changed
/// where the bit is 1.
struct BitTerms {
  std::uint32_t constant, target, constantChange, targetChange;

  BitTerms(const RasterTerms& terms, std::uint32_t zero, std::uint32_t one)
      : constant(terms.constant ^ (zero & terms.source)),
        target(terms.target ^ (zero & terms.both)),
        constantChange((zero ^ one) & terms.source),
        targetChange((zero ^ one) & terms.both) {}

  /// `mask` is all ones where the bit is 1. Both are a word or several in a register.
  template <typename Words>
  [[gnu::always_inline]] void Combine(Words& word, const Words& mask) const {
    word = (word & ((mask & targetChange) ^ target)) ^ (mask & constantChange) ^ constant;
  }
};

/// Eight words. The compiler keeps them in as few registers as the machine allows.
using Eight = std::uint32_t __attribute__((vector_size(8 * sizeof(std::uint32_t))));

/// Combines words with a row of bits, from any column on.
[[gnu::always_inline]] inline void CombineWithBits(std::uint32_t* out, std::int32_t count,
                                                   const std::uint8_t* row, std::int32_t column,
                                                   const BitTerms& terms) {
  const std::int32_t shift = column % 8, rest = count % 8;
  const std::uint8_t* bits = row + column / 8;
  const auto eightBits = [&](std::int32_t next) {
    return (std::uint32_t{bits[0]} << 8 | bits[next]) >> (8 - shift) & 0xFF;
  };
  const std::uint32_t* const end = out + (count - rest);
  // The byte behind belongs to the row wherever some of the eight are in it.
  for (const std::int32_t next = shift > 0 ? 1 : 0; out != end; out += 8, ++bits) {
    Eight words, mask;
    std::memcpy(&mask, kByteMasks[eightBits(next)].data(), sizeof mask);
    std::memcpy(&words, out, sizeof words);
    terms.Combine(words, mask);
    std::memcpy(out, &words, sizeof words);
  }
  if (rest == 0) return;
  const std::uint32_t byte = eightBits(shift + rest > 8 ? 1 : 0);
  if (count < 8) {
    for (std::int32_t i = 0; i < rest; ++i)
      terms.Combine(out[i], kByteMasks[byte][static_cast<std::size_t>(i)]);
    return;
  }
  // The last eight lie partly on those before, which stay as they are.
  Eight before, words, mask, isLeft;
  std::memcpy(&isLeft, kByteMasks[(1u << rest) - 1].data(), sizeof isLeft);
  std::memcpy(&before, out + rest - 8, sizeof before);
  std::memcpy(&mask, kByteMasks[byte >> (8 - rest)].data(), sizeof mask);
  words = before;
  terms.Combine(words, mask);
  words = before ^ ((before ^ words) & isLeft);
  std::memcpy(out + rest - 8, &words, sizeof words);
}

/// Which of 32 words are the key, the first in the highest bit.
[[gnu::always_inline]] inline std::uint32_t KeyBits(const std::uint32_t* from, std::uint32_t key) {
  std::uint32_t bits = 0;
  for (std::uint32_t i = 0; i < 32; ++i) bits |= from[i] == key ? 0x80000000u >> i : 0;
  return bits;
}

/// The bits of up to 32 words as bytes, as many as are begun.
[[gnu::always_inline]] inline void StoreBits(std::uint8_t* out, std::uint32_t bits, std::int32_t count) {
  for (std::int32_t i = 0; i < count; i += 8) *out++ = static_cast<std::uint8_t>(bits >> (24 - i));
}

/// Stores the bytes that have bit 1 where words are the key, and 0 behind the last.
[[gnu::always_inline]] inline void FindKey(std::uint8_t* __restrict out, const std::uint32_t* from,
                                           std::int32_t count, std::uint32_t key) {
  std::int32_t done = 0;
  for (; done + 32 <= count; done += 32) StoreBits(out + done / 8, KeyBits(from + done, key), 32);
  const std::int32_t rest = count - done;
  if (rest == 0) return;
  std::uint32_t bits = 0;
  if (done > 0) {
    // The last 32 begin among those that are done.
    bits = KeyBits(from + count - 32, key) << (32 - rest);
  } else {
    for (std::int32_t i = 0; i < rest; ++i) bits |= from[i] == key ? 0x80000000u >> i : 0;
  }
  StoreBits(out + done / 8, bits, rest);
}

class Copier {
 public:
  Copier(Context& target, const CopySource& source, const Extent& extent, std::uint8_t table)
      : target_(*target.bitmap),
        source_(source),
        extent_(extent),
        terms_(target, table),
        text_(SwapRedAndBlue(target.text)),
        background_(SwapRedAndBlue(target.background)),
        isOnItself_(&source.bitmap == target.bitmap),
        isCopy_(table == RasterTable(SRCCOPY)) {
    const bool isAnyPlace = terms_.hatch == nullptr && !isOnItself_;
    const bool areWords = !target_.IsMono() && !source.bitmap.IsMono();
    if (isAnyPlace && areWords && AreWholeRows(extent, target_, source.bitmap)) {
      extent_.width *= extent_.height;
      extent_.height = 1;
    }
  }

  [[gnu::always_inline]] void operator()() {
    if (target_.IsMono() && IsKeyCopy()) {
      const std::uint32_t one = SwapRedAndBlue(source_.background);
      for (std::int32_t row = 0; row < extent_.height; ++row) {
        FindKey(target_.Bytes(extent_.y + row) + extent_.x / 8,
                source_.bitmap.Words(extent_.fromY + row) + extent_.fromX, extent_.width, one);
      }
    } else if (target_.IsMono()) {
      for (std::int32_t i = 0; i < extent_.height; ++i) {
        const std::int32_t row = RowInOrder(i);
        CombineBytes(extent_.y + row, FetchBytes(extent_.fromY + row));
      }
    } else if (source_.bitmap.IsMono() && terms_.hatch == nullptr) {
      const BitTerms terms(terms_.color, text_, background_);
      for (std::int32_t row = 0; row < extent_.height; ++row) {
        CombineWithBits(target_.Words(extent_.y + row) + extent_.x, extent_.width,
                        source_.bitmap.Bytes(extent_.fromY + row), extent_.fromX, terms);
      }
    } else {
      for (std::int32_t i = 0; i < extent_.height; ++i) {
        const std::int32_t row = RowInOrder(i);
        CombineWords(extent_.y + row, FetchWords(extent_.fromY + row, extent_.y + row));
      }
    }
  }

 private:
  /// Whether whole bytes become the bits of words, so that nothing in them is to be kept: the padding is 0
  /// too.
  bool IsKeyCopy() const {
    const bool endsWithByte = extent_.width % 8 == 0 || extent_.x + extent_.width == target_.Width();
    return isCopy_ && !source_.bitmap.IsMono() && extent_.x % 8 == 0 && endsWithByte;
  }

  /// Where a bitmap is copied onto itself, rows must be read before they are written.
  [[gnu::always_inline]] std::int32_t RowInOrder(std::int32_t i) const {
    return extent_.y > extent_.fromY ? extent_.height - 1 - i : i;
  }

  /// A row of the source as words for the target.
  [[gnu::always_inline]] const std::uint32_t* FetchWords(std::int32_t fromY, std::int32_t y) {
    const auto width = static_cast<std::size_t>(extent_.width);
    if (!source_.bitmap.IsMono()) {
      const std::uint32_t* const from = source_.bitmap.Words(fromY) + extent_.fromX;
      const bool isSameRow = isOnItself_ && fromY == y;
      if (!isSameRow) return from;
      wordRow.assign(from, from + width);
      return wordRow.data();
    }
    wordRow.resize(width);
    CombineWithBits(wordRow.data(), extent_.width, source_.bitmap.Bytes(fromY), extent_.fromX,
                    BitTerms(RasterTerms(RasterTable(SRCCOPY), 0), text_, background_));
    return wordRow.data();
  }

  /// A row of the source as bytes, placed as in the target: the first byte is that of the target's first
  /// pixel.
  [[gnu::always_inline]] const std::uint8_t* FetchBytes(std::int32_t fromY) {
    const std::int32_t first = extent_.x / 8, last = (extent_.x + extent_.width - 1) / 8;
    const std::int32_t past = extent_.x % 8;
    // The column of the source that comes to the first byte's highest bit; may lie outside.
    const std::int64_t start = std::int64_t{extent_.fromX} - past;
    const bool isPlaced = source_.bitmap.IsMono() && !isOnItself_ && start >= 0 && start % 8 == 0;
    if (isPlaced) return source_.bitmap.Bytes(fromY) + start / 8;
    byteRow.assign(static_cast<std::size_t>(last - first) + 1, 0);
    if (source_.bitmap.IsMono()) {
      for (std::size_t i = 0; i < byteRow.size(); ++i) {
        byteRow[i] = static_cast<std::uint8_t>(
            EightBits(source_.bitmap, fromY, start + 8 * static_cast<std::int64_t>(i)));
      }
      return byteRow.data();
    }
    const std::uint32_t* const row = source_.bitmap.Words(fromY) + extent_.fromX;
    const std::uint32_t one = SwapRedAndBlue(source_.background);
    const std::int32_t head = past > 0 ? std::min(8 - past, extent_.width) : 0;
    for (std::int32_t i = 0; i < head; ++i) {
      if (row[i] == one) byteRow[0] |= static_cast<std::uint8_t>(0x80 >> (past + i));
    }
    FindKey(byteRow.data() + (head > 0 ? 1 : 0), row + head, extent_.width - head, one);
    return byteRow.data();
  }

  [[gnu::always_inline]] void CombineWords(std::int32_t y, const std::uint32_t* __restrict from) {
    std::uint32_t* const __restrict to = target_.Words(y) + extent_.x;
    const std::int32_t width = extent_.width;
    if (terms_.hatch == nullptr) {
      const RasterTerms terms = terms_.color;
      for (std::int32_t i = 0; i < width; ++i) to[i] = terms(from[i], to[i]);
      return;
    }
    const std::uint32_t hatch = terms_.HatchRow(y);
    for (std::int32_t i = 0; i < width; ++i) {
      const bool isInk = (hatch >> (7 - (extent_.x + i) % 8) & 1) != 0;
      to[i] = (isInk ? terms_.color : terms_.gap)(from[i], to[i]);
    }
  }

  [[gnu::always_inline]] void CombineBytes(std::int32_t y, const std::uint8_t* __restrict from) {
    const std::int32_t end = extent_.x + extent_.width - 1, last = end / 8 - extent_.x / 8;
    std::uint8_t* const __restrict row = target_.Bytes(y) + extent_.x / 8;
    const std::uint32_t hatch = terms_.HatchRow(y);
    const RasterTerms terms = terms_.color.Masked(hatch).And(terms_.gap.Masked(~hatch));
    // Outside of the two ends pixels stay.
    const auto ends = [&](std::int32_t i, std::uint32_t inside) {
      const std::uint32_t s = from[i], d = row[i];
      row[i] = static_cast<std::uint8_t>((terms(s, d) & inside) | (d & ~inside));
    };
    const std::uint32_t left = 0xFFu >> extent_.x % 8, right = 0xFFu << (7 - end % 8);
    if (last == 0) {
      ends(0, left & right);
      return;
    }
    ends(0, left);
    const RasterTerms fourTimes = terms.FourTimes();
    std::int32_t i = 1;
    for (; i + 4 <= last; i += 4) {
      std::uint32_t s, d;
      std::memcpy(&s, from + i, sizeof s);
      std::memcpy(&d, row + i, sizeof d);
      d = fourTimes(s, d);
      std::memcpy(row + i, &d, sizeof d);
    }
    for (; i < last; ++i) row[i] = static_cast<std::uint8_t>(terms(from[i], row[i]));
    ends(last, right);
  }

  Bitmap& target_;
  const CopySource& source_;
  Extent extent_;
  const PatternTerms terms_;
  const std::uint32_t text_, background_;
  const bool isOnItself_, isCopy_;
};

/// The plain copy of 32 bits, row by row or, where rows lie next to each other in both, at once.
void MoveWords(Bitmap& target, const Bitmap& source, const Extent& extent) {
  const auto rowWords = static_cast<std::size_t>(extent.width);
  if (AreWholeRows(extent, target, source)) {
    std::memmove(target.Words(extent.y), source.Words(extent.fromY),
                 rowWords * static_cast<std::size_t>(extent.height) * sizeof(std::uint32_t));
    return;
  }
  const bool goesUp = extent.y > extent.fromY;
  for (std::int32_t i = 0; i < extent.height; ++i) {
    const std::int32_t row = goesUp ? extent.height - 1 - i : i;
    std::memmove(target.Words(extent.y + row) + extent.x, source.Words(extent.fromY + row) + extent.fromX,
                 rowWords * sizeof(std::uint32_t));
  }
}

}  // namespace

void CopyPixels(Context& target, const Box& box, const CopySource& source, std::uint8_t table) {
  const Extent extent = Clip(*target.bitmap, box, source);
  const bool isWithoutPattern = NeedsPattern(table) && target.brush.style == BS_NULL;
  if (extent.width <= 0 || extent.height <= 0 || isWithoutPattern) return;
  if (table == RasterTable(SRCCOPY) && !target.bitmap->IsMono() && !source.bitmap.IsMono()) {
    MoveWords(*target.bitmap, source.bitmap, extent);
    return;
  }
  DoOnWidestRegisters(Copier(target, source, extent, table));
}

}  // namespace quenzel7::gdi
