#include "platform/gdi/path.h"

#include <utility>

namespace quenzel7::gdi {

void Path::Begin() {
  state_ = State::kRecording;
  continues_ = false;
  figures_.clear();
}

bool Path::End() {
  if (!IsRecording()) return false;
  state_ = State::kEnded;
  return true;
}

std::optional<std::vector<Path::Figure>> Path::Take() {
  if (state_ != State::kEnded) return std::nullopt;
  state_ = State::kNone;
  return std::exchange(figures_, {});
}

void Path::AddLines(POINT from, std::span<const POINT> to) {
  if (!continues_) figures_.push_back({{from}, false});
  continues_ = true;
  std::vector<POINT>& points = figures_.back().points;
  points.insert(points.end(), to.begin(), to.end());
}

void Path::AddFigure(std::vector<POINT> points, bool isClosed) {
  figures_.push_back({std::move(points), isClosed});
  continues_ = false;
}

}  // namespace quenzel7::gdi
