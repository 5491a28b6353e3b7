#include "platform/gdi/span_painter.h"

namespace quenzel7::gdi {
namespace {

using HatchRows = std::array<std::uint8_t, 8>;

/// By hatch number. Row v of the surface modulo 8, leftmost column in the highest bit.
constexpr std::array<HatchRows, 6> kHatches = [] {
  std::array<HatchRows, 6> hatches{};
  for (int v = 0; v < 8; ++v) {
    const std::uint8_t horizontal = v == 3 ? 0xFF : 0;
    const std::uint8_t vertical = 0x80 >> 4;
    const auto forward = static_cast<std::uint8_t>(0x80 >> v);
    const auto backward = static_cast<std::uint8_t>(0x80 >> (7 - v));
    const auto row = static_cast<std::size_t>(v);
    hatches[HS_HORIZONTAL][row] = horizontal;
    hatches[HS_VERTICAL][row] = vertical;
    hatches[HS_FDIAGONAL][row] = forward;
    hatches[HS_BDIAGONAL][row] = backward;
    hatches[HS_CROSS][row] = horizontal | vertical;
    hatches[HS_DIAGCROSS][row] = forward | backward;
  }
  return hatches;
}();

constexpr std::uint32_t kColorBits = 0x00FFFFFF;
/// The truth table of the operation that changes nothing.
constexpr std::uint8_t kLeaveTarget = 0xAA;

}  // namespace

RasterTerms TermsFor(const Bitmap& target, std::optional<COLORREF> pattern, std::uint8_t table) {
  if (!pattern) return TermsFor(target, COLORREF{0}, kLeaveTarget);
  if (target.IsMono()) return RasterTerms(table, IsNearerWhite(*pattern) ? 0xFF : 0).Masked(0xFF);
  return RasterTerms(table, SwapRedAndBlue(*pattern)).Masked(kColorBits);
}

Ink InkOf(const Brush& brush, std::optional<COLORREF> gap) {
  if (brush.style != BS_HATCHED) return Ink::Solid(brush.color);
  return {brush.color, gap, &kHatches[brush.hatch]};
}

SpanPainter::SpanPainter(Bitmap& target, const Ink& ink, std::uint8_t table)
    : target_(target),
      hatch_(ink.hatch),
      color_(TermsFor(target, ink.color, table)),
      gap_(TermsFor(target, ink.gap, table)),
      isPlain_(!target.IsMono() && hatch_ == nullptr && color_.target == 0),
      isPlainHatch_(!target.IsMono() && hatch_ != nullptr && (color_.target | gap_.target) == 0) {
  if (isPlainHatch_) PrepareHatch();
}

void SpanPainter::PrepareHatch() {
  for (std::size_t v = 0; v < 8; ++v) {
    for (std::size_t u = 0; u < hatchRows_[v].size(); ++u) {
      const bool isInk = ((*hatch_)[v] >> (7 - u % 8) & 1) != 0;
      hatchRows_[v][u] = (isInk ? color_ : gap_).constant;
    }
  }
}

void SpanPainter::Fill(const Box& box) {
  const Box clipped = box.ClippedTo(target_);
  if (clipped.IsEmpty()) return;
  const auto top = static_cast<std::int32_t>(clipped.top), bottom = static_cast<std::int32_t>(clipped.bottom);
  if (isPlain_) {
    StoreBox(target_.Words(top) + clipped.left, clipped.Width(), clipped.Height(), target_.Width(),
             color_.constant);
    return;
  }
  const auto left = static_cast<std::int32_t>(clipped.left), right = static_cast<std::int32_t>(clipped.right);
  for (std::int32_t y = top; y < bottom; ++y) CombineSpan(y, left, right);
}

void SpanPainter::CombineSpan(std::int32_t y, std::int32_t left, std::int32_t right) {
  if (target_.IsMono()) {
    CombineBits(y, left, right);
  } else {
    CombineWords(y, left, right);
  }
}

void SpanPainter::CombineWords(std::int32_t y, std::int32_t left, std::int32_t right) {
  std::uint32_t* const row = target_.Words(y);
  if (hatch_ == nullptr) {
    for (std::int32_t x = left; x < right; ++x) row[x] = color_(0, row[x]);
    return;
  }
  if (isPlainHatch_) {
    StoreEight(row + left, right - left, hatchRows_[static_cast<std::size_t>(y % 8)].data() + left % 8);
    return;
  }
  // The pattern of this row, turned so that it begins at `left`.
  std::array<std::uint32_t, 8> constant, target;
  const std::uint8_t bits = (*hatch_)[static_cast<std::size_t>(y % 8)];
  for (std::int32_t i = 0; i < 8; ++i) {
    const RasterTerms& terms = (bits >> (7 - (left + i) % 8) & 1) != 0 ? color_ : gap_;
    constant[static_cast<std::size_t>(i)] = terms.constant;
    target[static_cast<std::size_t>(i)] = terms.target;
  }
  std::uint32_t* out = row + left;
  std::int32_t count = right - left;
  for (; count >= 8; count -= 8, out += 8) {
    for (std::size_t i = 0; i < 8; ++i) out[i] = constant[i] ^ (out[i] & target[i]);
  }
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
    out[i] = constant[i] ^ (out[i] & target[i]);
}

void SpanPainter::CombineBits(std::int32_t y, std::int32_t left, std::int32_t right) {
  const std::uint32_t bits = hatch_ == nullptr ? 0xFFu : (*hatch_)[static_cast<std::size_t>(y % 8)];
  const std::uint32_t constant = (color_.constant & bits) | (gap_.constant & ~bits);
  const std::uint32_t target = (color_.target & bits) | (gap_.target & ~bits);
  std::uint8_t* const row = target_.Bytes(y);
  const std::int32_t first = left / 8, last = (right - 1) / 8;
  for (std::int32_t i = first; i <= last; ++i) {
    std::uint32_t inside = 0xFF;
    if (i == first) inside &= 0xFFu >> left % 8;
    if (i == last) inside &= 0xFFu << (7 - (right - 1) % 8);
    const std::uint32_t drawn = constant ^ (row[i] & target);
    row[i] = static_cast<std::uint8_t>((drawn & inside) | (row[i] & ~inside));
  }
}

void SpanPainter::CombinePixel(std::int32_t x, std::int32_t y, const RasterTerms& terms) {
  if (target_.IsMono()) {
    std::uint8_t& byte = target_.Bytes(y)[x / 8];
    const std::uint32_t bit = 0x80u >> x % 8;
    byte = static_cast<std::uint8_t>((terms(0, byte) & bit) | (byte & ~bit));
  } else {
    std::uint32_t& word = target_.Words(y)[x];
    word = terms(0, word);
  }
}

}  // namespace quenzel7::gdi
