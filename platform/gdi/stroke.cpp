#include "platform/gdi/stroke.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "platform/gdi/coverage.h"
#include "platform/gdi/ellipse.h"
#include "platform/gdi/scratch.h"

namespace quenzel7::gdi {
namespace {

constexpr double kMiterLimit = 10;
/// How far a disc of pixels may be from the true circle around its centre, and more.
constexpr double kDiscSlack = 2;

/// Kept so that drawing does not allocate each time.
thread_local Coverage covered;

struct Vector {
  double x, y;

  Vector operator+(Vector other) const { return {x + other.x, y + other.y}; }
  Vector operator*(double factor) const { return {x * factor, y * factor}; }
};

double Product(Vector a, Vector b) { return a.x * b.x + a.y * b.y; }
double Cross(Vector a, Vector b) { return a.x * b.y - a.y * b.x; }
/// A quarter turn with the clock, as y goes down.
Vector Turned(Vector a) { return {-a.y, a.x}; }

Vector At(POINT point) { return {static_cast<double>(point.x), static_cast<double>(point.y)}; }

Vector Direction(POINT from, POINT to) {
  const Vector step = At(to) + At(from) * -1;
  return step * (1 / std::hypot(step.x, step.y));
}

/// Midway between rounding to the nearest whole number and rounding away from 0.
double HalfRounded(double value) {
  return std::copysign((std::round(std::abs(value)) + std::ceil(std::abs(value))) / 2, value);
}

bool AreEqual(POINT a, POINT b) { return a.x == b.x && a.y == b.y; }

class Stroker {
 public:
  Stroker(const Pen& pen, Coverage& coverage, SpanPainter& painter)
      : pen_(pen),
        coverage_(coverage),
        painter_(painter),
        half_(pen.width / 2.0),
        disc_(pen.width, pen.width) {}

  void Run(std::span<const POINT> points, bool isClosed) {
    const std::size_t count = points.size();
    if (count == 1) {
      Dot(points[0]);
      return;
    }
    const std::size_t segments = isClosed ? count : count - 1;
    isAlone_ = segments == 1 && EndCap() != PS_ENDCAP_ROUND;
    for (std::size_t i = 0; i < segments && !coverage_.IsFull(); ++i) {
      const POINT from = points[i], to = points[(i + 1) % count];
      const bool isFirst = !isClosed && i == 0, isLast = !isClosed && i + 1 == segments;
      Segment(from, to, isFirst, isLast);
      if (!isLast) Join(from, to, points[(i + 2) % count]);
    }
    if (!isClosed && EndCap() == PS_ENDCAP_ROUND) {
      Disc(points.front());
      Disc(points.back());
    }
  }

 private:
  std::uint32_t EndCap() const { return pen_.style & PS_ENDCAP_MASK; }
  std::uint32_t JoinStyle() const { return pen_.style & PS_JOIN_MASK; }

  /// From the middle of a line to its edge, on the side to which a turn with the clock leads.
  ///
  /// The interface puts the corners of a slanted stroke on whole pixels: on one side rounded away from the
  /// line, on the other to the nearest. Taking the mean on both sides keeps the stroke symmetric and as wide.
  Vector Across(Vector along) const {
    const Vector across = Turned(along) * half_;
    const bool isSlanted = along.x != 0 && along.y != 0;
    return isSlanted ? Vector{HalfRounded(across.x), HalfRounded(across.y)} : across;
  }

  void Fill(std::initializer_list<Vector> corners) {
    polygon_->clear();
    for (const Vector& corner : corners) polygon_->push_back(FinePoint::At(corner.x, corner.y));
    if (IsConvexOutside(*polygon_, coverage_.Width(), coverage_.Height())) return;
    const std::span<const Polygon> polygon(&*polygon_, 1);
    isAlone_ ? FillPolygons(polygon, painter_) : CoverPolygons(polygon, coverage_);
  }

  void Disc(POINT center) {
    if (IsDiscOutside(center)) return;
    if (IsInsideDisc(center)) return coverage_.All();
    const std::int64_t left = center.x - std::int64_t{pen_.width / 2},
                       top = center.y - std::int64_t{pen_.width / 2};
    const std::int64_t first = std::max<std::int64_t>(top, 0);
    const std::int64_t end = std::min<std::int64_t>(top + pen_.width, coverage_.Height());
    for (std::int64_t y = first; y < end; ++y) {
      if (coverage_.IsFull(y)) continue;
      const std::int64_t inset = disc_.At(y - top).first;
      coverage_.Span(y, left + inset, left + pen_.width - inset);
    }
  }

  /// Whether a disc surely covers nothing of the surface: its nearest point is too far away.
  bool IsDiscOutside(POINT center) const {
    const double x = center.x - std::clamp<double>(center.x, 0, coverage_.Width()),
                 y = center.y - std::clamp<double>(center.y, 0, coverage_.Height());
    return std::hypot(x, y) > half_ + kDiscSlack;
  }
  /// Whether it surely covers all of it: so does its farthest point.
  bool IsInsideDisc(POINT center) const {
    const double x = std::max(std::abs(double{0} + center.x),
                              std::abs(double{0} + center.x - coverage_.Width())),
                 y = std::max(std::abs(double{0} + center.y),
                              std::abs(double{0} + center.y - coverage_.Height()));
    return std::hypot(x, y) < half_ - kDiscSlack;
  }

  /// A line of no length: what its ends alone paint.
  void Dot(POINT point) {
    if (EndCap() == PS_ENDCAP_ROUND) Disc(point);
    if (EndCap() == PS_ENDCAP_SQUARE) {
      const Vector p = At(point);
      Fill({p + Vector{-half_, -half_}, p + Vector{half_, -half_}, p + Vector{half_, half_},
            p + Vector{-half_, half_}});
    }
  }

  void Segment(POINT from, POINT to, bool isFirst, bool isLast) {
    const Vector along = Direction(from, to), across = Across(along);
    const double reach = EndCap() == PS_ENDCAP_SQUARE ? half_ : 0;
    const Vector start = At(from) + along * (isFirst ? -reach : 0),
                 end = At(to) + along * (isLast ? reach : 0);
    Fill({start + across, end + across, end + across * -1, start + across * -1});
  }

  void Join(POINT from, POINT corner, POINT to) {
    if (JoinStyle() == PS_JOIN_ROUND) {
      Disc(corner);
      return;
    }
    const Vector before = Direction(from, corner), after = Direction(corner, to);
    const double turn = Cross(before, after);
    if (turn == 0) return;
    // The gap opens on the outer side of the turn.
    const double side = turn > 0 ? -1 : 1;
    const Vector p = At(corner), a = Across(before) * side, b = Across(after) * side;
    // The miter is 1 / sin(half the angle between the lines) times as long as half the width.
    const double cosine = Product(before, after);
    const bool isMitred = JoinStyle() == PS_JOIN_MITER && kMiterLimit * kMiterLimit * (1 + cosine) >= 2;
    if (isMitred) {
      Fill({p, p + a, p + (a + b) * (1 / (1 + cosine)), p + b});
    } else {
      Fill({p, p + a, p + b});
    }
  }

  const Pen& pen_;
  Coverage& coverage_;
  SpanPainter& painter_;
  /// Whether there is one part only, which is painted at once: there is nothing that it could lie on.
  bool isAlone_ = false;
  const double half_;
  const EllipseQuarter disc_;
  Scratch<FinePoint> polygon_;
};

}  // namespace

void StrokeLines(std::span<const POINT> points, bool isClosed, const Pen& pen, SpanPainter& painter) {
  Scratch<POINT> distinct;
  for (const POINT& point : points) {
    if (distinct->empty() || !AreEqual(distinct->back(), point)) distinct->push_back(point);
  }
  while (isClosed && distinct->size() > 1 && AreEqual(distinct->front(), distinct->back()))
    distinct->pop_back();
  if (distinct->empty()) return;
  covered.Begin(painter.Target().Width(), painter.Target().Height());
  Stroker(pen, covered, painter).Run(*distinct, isClosed);
  covered.Paint(painter);
}

}  // namespace quenzel7::gdi
