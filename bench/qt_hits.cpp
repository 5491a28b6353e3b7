#include "bench/qt_hits.h"

#include <QPainterPath>
#include <QPointF>
#include <QRect>
#include <algorithm>
#include <cmath>

namespace quenzel7::bench {
namespace {

bool IsNearLine(const Figure& line, QPoint point) {
  const QPoint head(line.left, line.top), tail(line.right, line.bottom);
  if (!QRect(head, tail).normalized().contains(point)) return false;
  const QPointF along = tail - head, off = point - head;
  const double length = std::hypot(along.x(), along.y());
  return std::abs(along.x() * off.y() - along.y() * off.x()) < (line.penWidth / 2.0 + 1.5) * length;
}

bool IsHit(const Figure& figure, QPoint point) {
  if (figure.IsLine()) return IsNearLine(figure, point);
  const QRect box(figure.left, figure.top, figure.right - figure.left, figure.bottom - figure.top);
  const QPointF middle(point.x() + 0.5, point.y() + 0.5);
  QPainterPath path;
  switch (figure.kind) {
    case Figure::Kind::kEllipse:
      path.addEllipse(box);
      return path.contains(middle);
    case Figure::Kind::kRoundRect:
      path.addRoundedRect(box, figure.CornerWidth() / 2.0, figure.CornerHeight() / 2.0);
      return path.contains(middle);
    default:
      return box.contains(point);
  }
}

}  // namespace

int CountQtHits(std::span<const HitGroup> groups, gdi::POINT point) {
  const QPoint asked(point.x, point.y);
  return static_cast<int>(std::count_if(groups.begin(), groups.end(), [&](HitGroup figures) {
    return std::any_of(figures.begin(), figures.end(),
                       [&](const Figure& figure) { return IsHit(figure, asked); });
  }));
}

}  // namespace quenzel7::bench
