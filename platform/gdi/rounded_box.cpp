#include "platform/gdi/rounded_box.h"

#include <algorithm>
#include <cmath>
#include <numbers>

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

RoundedBox::Row RoundedBox::At(std::int64_t y) const {
  const std::int64_t row = std::min(y - box_.top, box_.bottom - 1 - y);
  EllipseQuarter::Row curve{0, 0};
  if (row < curveRows_) curve = corner_.At(row);
  const std::int64_t left = box_.left + curve.first, right = box_.right - curve.first;
  const std::int64_t innerLeft = box_.left + curve.last + 1, innerRight = box_.right - curve.last - 1;
  if (row == 0 || innerLeft > innerRight) return {left, right, right, right};
  return {left, innerLeft, innerRight, right};
}

template <typename PaintRow, typename PaintBetween>
void RoundedBox::ForEachPart(const Bitmap& target, PaintRow&& paintRow, PaintBetween&& paintBetween) const {
  const Box visible = box_.ClippedTo(target);
  if (visible.IsEmpty()) return;
  const std::int64_t curveEnd = std::min(box_.top + curveRows_, box_.bottom);
  const std::int64_t curveStart = std::max(box_.bottom - curveRows_, curveEnd);
  for (std::int64_t y = visible.top; y < std::min(visible.bottom, curveEnd); ++y) paintRow(y, At(y));
  for (std::int64_t y = std::max(visible.top, curveStart); y < visible.bottom; ++y) paintRow(y, At(y));
  paintBetween(Box{box_.left, curveEnd, box_.right, curveStart});
}

void RoundedBox::FillInside(SpanPainter& painter) const {
  ForEachPart(
      painter.Target(),
      [&](std::int64_t y, const Row& row) { painter.Span(y, row.innerLeft, row.innerRight); },
      [&](const Box& between) {
        const Box inside = box_.Inset(1);
        painter.Fill({inside.left, std::max(between.top, inside.top), inside.right,
                      std::min(between.bottom, inside.bottom)});
      });
}

void RoundedBox::PaintBorder(SpanPainter& painter) const {
  ForEachPart(
      painter.Target(),
      [&](std::int64_t y, const Row& row) {
        painter.Span(y, row.left, row.innerLeft);
        painter.Span(y, row.innerRight, row.right);
      },
      [&](const Box& between) {
        Box sides = between;
        if (between.top == box_.top && !between.IsEmpty()) {
          painter.Span(sides.top, between.left, between.right);
          ++sides.top;
        }
        if (between.bottom == box_.bottom && !sides.IsEmpty()) {
          --sides.bottom;
          painter.Span(sides.bottom, between.left, between.right);
        }
        painter.Fill({sides.left, sides.top, sides.left + 1, sides.bottom});
        painter.Fill({std::max(sides.left + 1, sides.right - 1), sides.top, sides.right, sides.bottom});
      });
}

std::vector<POINT> RoundedBox::CurvePoints() const {
  std::vector<POINT> points;
  if (curveRows_ == 0) return {{0, 0}};
  if (!IsLarge()) {
    for (std::int64_t row = curveRows_ - 1; row >= 0; --row) {
      const auto [first, last] = corner_.At(row);
      for (std::int64_t x = first; x <= last; ++x) {
        points.push_back({static_cast<std::int32_t>(x), static_cast<std::int32_t>(row)});
      }
    }
    return points;
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
  return points;
}

std::vector<POINT> RoundedBox::BorderPoints() const {
  std::vector<POINT> points;
  if (box_.IsEmpty()) return points;
  const std::vector<POINT> curve = CurvePoints();
  const auto add = [&](POINT offset, bool isRight, bool isBottom) {
    const std::int64_t x = isRight ? box_.right - 1 - offset.x : box_.left + offset.x;
    const std::int64_t y = isBottom ? box_.bottom - 1 - offset.y : box_.top + offset.y;
    points.push_back({static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)});
  };
  for (auto i = curve.begin(); i != curve.end(); ++i) add(*i, true, false);
  for (auto i = curve.rbegin(); i != curve.rend(); ++i) add(*i, false, false);
  for (auto i = curve.begin(); i != curve.end(); ++i) add(*i, false, true);
  for (auto i = curve.rbegin(); i != curve.rend(); ++i) add(*i, true, true);
  return points;
}

void RoundedBox::FillWhole(SpanPainter& painter) const {
  ForEachPart(
      painter.Target(), [&](std::int64_t y, const Row& row) { painter.Span(y, row.left, row.right); },
      [&](const Box& between) { painter.Fill(between); });
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
