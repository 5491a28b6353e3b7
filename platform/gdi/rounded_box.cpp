#include "platform/gdi/rounded_box.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/gdi/scratch.h"

namespace quenzel7::gdi {

RoundedBox::RoundedBox(const Box& box, std::int64_t cornerWidth, std::int64_t cornerHeight)
    : box_(box),
      cornerWidth_(std::min(cornerWidth, box.Width())),
      cornerHeight_(std::min(cornerHeight, box.Height())),
      corner_(cornerWidth_, cornerHeight_),
      curveRows_(0) {
  const bool isSquare = cornerWidth <= 1 || cornerHeight <= 1;
  if (!isSquare && !box.IsEmpty()) curveRows_ = (cornerHeight_ + 1) / 2;
}

RoundedBox::Rows RoundedBox::StraightRows() const {
  // The first and the last row are border altogether.
  const std::int64_t others = std::max<std::int64_t>(curveRows_, 1);
  return {box_.top + others, box_.bottom - others};
}

void RoundedBox::Paint(SpanPainter* border, SpanPainter* inside) const {
  const Box visible = box_.ClippedTo((border != nullptr ? border : inside)->Target());
  PaintRows(
      visible, StraightRows(), [&](std::int64_t y) { return At(y); }, border, inside);
}

void RoundedBox::AddCurvePoints(std::vector<POINT>& points) const {
  if (curveRows_ == 0) {
    points.push_back({0, 0});
    return;
  }
  if (!IsLarge()) {
    for (std::int64_t row = curveRows_ - 1; row >= 0; --row) {
      const auto [first, last] = corner_.At(row);
      for (std::int64_t x = first; x <= last; ++x) {
        points.push_back({static_cast<std::int32_t>(x), static_cast<std::int32_t>(row)});
      }
    }
    return;
  }
  // The rise of a chord of angle s on radius r is about r s^2 / 8.
  const double a = static_cast<double>(cornerWidth_ - 1) / 2, b = static_cast<double>(cornerHeight_ - 1) / 2;
  const double quarter = std::numbers::pi / 2;
  const int chords = static_cast<int>(std::ceil(quarter / std::sqrt(2 / std::max(a, b))));
  for (int i = 0; i <= chords; ++i) {
    const double angle = quarter * i / chords;
    points.push_back({static_cast<std::int32_t>(a - a * std::cos(angle)),
                      static_cast<std::int32_t>(b - b * std::sin(angle))});
  }
}

void RoundedBox::AddBorderPoints(std::vector<POINT>& points) const {
  if (box_.IsEmpty()) return;
  Scratch<POINT> curve;
  AddCurvePoints(*curve);
  const auto add = [&](POINT offset, bool isRight, bool isBottom) {
    const std::int64_t x = isRight ? box_.right - 1 - offset.x : box_.left + offset.x;
    const std::int64_t y = isBottom ? box_.bottom - 1 - offset.y : box_.top + offset.y;
    points.push_back({static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)});
  };
  for (auto i = curve->begin(); i != curve->end(); ++i) add(*i, true, false);
  for (auto i = curve->rbegin(); i != curve->rend(); ++i) add(*i, false, false);
  for (auto i = curve->begin(); i != curve->end(); ++i) add(*i, false, true);
  for (auto i = curve->rbegin(); i != curve->rend(); ++i) add(*i, true, true);
}

void RoundedBox::FillWhole(SpanPainter& painter) const {
  const auto wholeAt = [&](std::int64_t y) {
    const Row row = At(y);
    return Row{row.left, row.right, row.right, row.right};
  };
  PaintRows(box_.ClippedTo(painter.Target()), StraightRows(), wholeAt, &painter, nullptr);
}

void RoundedBox::FillAround(const RoundedBox& hole, SpanPainter& painter) const {
  const Box visible = box_.ClippedTo(painter.Target());
  for (std::int64_t y = visible.top; y < visible.bottom; ++y) {
    const Row outer = At(y);
    const bool isAtHole = y >= hole.box_.top && y < hole.box_.bottom && !hole.box_.IsEmpty();
    const Row inner = isAtHole ? hole.At(y) : Row{outer.right, 0, 0, outer.right};
    painter.Span(y, outer.left, inner.left);
    painter.Span(y, inner.right, outer.right);
  }
}

}  // namespace quenzel7::gdi
