#include "platform/gdi/raster_copy.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "platform/gdi/raster_op.h"

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

class Copier {
 public:
  Copier(Context& target, const CopySource& source, const Extent& extent, std::uint8_t table)
      : target_(*target.bitmap),
        source_(source),
        extent_(extent),
        terms_(target, table),
        text_(SwapRedAndBlue(target.text)),
        background_(SwapRedAndBlue(target.background)) {}

  void Run() {
    // Where a bitmap is copied onto itself, rows must be read before they are written.
    const bool goesUp = extent_.y > extent_.fromY;
    for (std::int32_t i = 0; i < extent_.height; ++i) {
      const std::int32_t row = goesUp ? extent_.height - 1 - i : i;
      if (target_.IsMono()) {
        CombineBytes(extent_.y + row, FetchBytes(extent_.fromY + row));
      } else {
        CombineWords(extent_.y + row, FetchWords(extent_.fromY + row, extent_.y + row));
      }
    }
  }

 private:
  /// A row of the source as words for the target.
  const std::uint32_t* FetchWords(std::int32_t fromY, std::int32_t y) {
    const auto width = static_cast<std::size_t>(extent_.width);
    if (!source_.bitmap.IsMono()) {
      const std::uint32_t* const from = source_.bitmap.Words(fromY) + extent_.fromX;
      const bool isSameRow = &source_.bitmap == &target_ && fromY == y;
      if (!isSameRow) return from;
      wordRow.assign(from, from + width);
      return wordRow.data();
    }
    wordRow.resize(width + 7);
    for (std::size_t x = 0; x < width; x += 8) {
      const std::uint32_t bits =
          EightBits(source_.bitmap, fromY, extent_.fromX + static_cast<std::int64_t>(x));
      for (std::size_t i = 0; i < 8; ++i) wordRow[x + i] = (bits >> (7 - i) & 1) != 0 ? background_ : text_;
    }
    return wordRow.data();
  }

  /// A row of the source as bytes, placed as in the target: the first byte is that of the target's first
  /// pixel.
  const std::uint8_t* FetchBytes(std::int32_t fromY) {
    const std::int32_t first = extent_.x / 8, last = (extent_.x + extent_.width - 1) / 8;
    byteRow.resize(static_cast<std::size_t>(last - first) + 1);
    // The column of the source that comes to the first byte's highest bit; may lie outside.
    const std::int64_t start = std::int64_t{extent_.fromX} - extent_.x % 8;
    if (source_.bitmap.IsMono()) {
      for (std::size_t i = 0; i < byteRow.size(); ++i) {
        byteRow[i] = static_cast<std::uint8_t>(
            EightBits(source_.bitmap, fromY, start + 8 * static_cast<std::int64_t>(i)));
      }
      return byteRow.data();
    }
    const std::uint32_t* const row = source_.bitmap.Words(fromY);
    const std::uint32_t one = SwapRedAndBlue(source_.background);
    std::fill(byteRow.begin(), byteRow.end(), std::uint8_t{0});
    for (std::int32_t i = 0; i < extent_.width; ++i) {
      const std::int32_t bit = extent_.x % 8 + i;
      if (row[extent_.fromX + i] == one)
        byteRow[static_cast<std::size_t>(bit / 8)] |= static_cast<std::uint8_t>(0x80 >> bit % 8);
    }
    return byteRow.data();
  }

  void CombineWords(std::int32_t y, const std::uint32_t* from) {
    std::uint32_t* const to = target_.Words(y) + extent_.x;
    if (terms_.hatch == nullptr) {
      const RasterTerms terms = terms_.color;
      for (std::int32_t i = 0; i < extent_.width; ++i) to[i] = terms(from[i], to[i]);
      return;
    }
    const std::uint32_t hatch = terms_.HatchRow(y);
    for (std::int32_t i = 0; i < extent_.width; ++i) {
      const bool isInk = (hatch >> (7 - (extent_.x + i) % 8) & 1) != 0;
      to[i] = (isInk ? terms_.color : terms_.gap)(from[i], to[i]);
    }
  }

  void CombineBytes(std::int32_t y, const std::uint8_t* from) {
    std::uint8_t* const row = target_.Bytes(y);
    const std::uint32_t hatch = terms_.HatchRow(y);
    const std::int32_t end = extent_.x + extent_.width - 1, first = extent_.x / 8, last = end / 8;
    for (std::int32_t i = first; i <= last; ++i) {
      std::uint32_t inside = 0xFF;
      if (i == first) inside &= 0xFFu >> extent_.x % 8;
      if (i == last) inside &= 0xFFu << (7 - end % 8);
      const std::uint32_t s = from[i - first], d = row[i];
      const std::uint32_t drawn = (terms_.color(s, d) & hatch) | (terms_.gap(s, d) & ~hatch);
      row[i] = static_cast<std::uint8_t>((drawn & inside) | (d & ~inside));
    }
  }

  Bitmap& target_;
  const CopySource& source_;
  const Extent extent_;
  const PatternTerms terms_;
  const std::uint32_t text_, background_;
};

/// The plain copy of 32 bits, row by row or, where rows lie next to each other in both, at once.
void MoveWords(Bitmap& target, const Bitmap& source, const Extent& extent) {
  const auto rowWords = static_cast<std::size_t>(extent.width);
  const bool isWholeRows = extent.width == target.Width() && extent.width == source.Width();
  if (isWholeRows) {
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
  Copier(target, source, extent, table).Run();
}

}  // namespace quenzel7::gdi
