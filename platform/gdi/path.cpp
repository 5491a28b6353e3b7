#include "platform/gdi/path.h"

namespace quenzel7::gdi {

void Path::Begin() {
  state_ = State::kRecording;
  continues_ = false;
  points_.clear();
  extents_.clear();
}

bool Path::End() {
  if (!IsRecording()) return false;
  state_ = State::kEnded;
  return true;
}

std::optional<std::span<const Path::Figure>> Path::Take() {
  if (state_ != State::kEnded) return std::nullopt;
  state_ = State::kNone;
  figures_.clear();
  for (std::size_t i = 0; i < extents_.size(); ++i) {
    const std::size_t first = extents_[i].firstPoint;
    const std::size_t end = i + 1 < extents_.size() ? extents_[i + 1].firstPoint : points_.size();
    figures_.push_back({std::span(points_).subspan(first, end - first), extents_[i].isClosed});
  }
  return figures_;
}

void Path::AddLines(POINT from, std::span<const POINT> to) {
  if (!continues_) AddFigure(std::span(&from, 1), false);
  continues_ = true;
  points_.insert(points_.end(), to.begin(), to.end());
}

void Path::AddFigure(std::span<const POINT> points, bool isClosed) {
  extents_.push_back({points_.size(), isClosed});
  points_.insert(points_.end(), points.begin(), points.end());
  continues_ = false;
}

}  // namespace quenzel7::gdi
