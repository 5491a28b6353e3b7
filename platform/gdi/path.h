#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// What a context draws between BeginPath and EndPath: figures of lines, kept until they are stroked or
/// filled. Its memory stays for the next path.
class Path {
 public:
  struct Figure {
    std::span<const POINT> points;
    bool isClosed = false;
  };

  bool IsRecording() const { return state_ == State::kRecording; }

  /// Begins anew and forgets what was kept.
  void Begin();
  /// False if nothing was being recorded.
  bool End();
  /// Gives the figures and forgets them; nothing unless a path was begun and ended. They are valid until
  /// the next path begins.
  std::optional<std::span<const Figure>> Take();

  /// The next line begins a figure.
  void Move() { continues_ = false; }
  /// Goes on from where the last line ended, or begins a figure at `from`.
  void AddLines(POINT from, std::span<const POINT> to);
  /// A figure by itself; a line after it begins another.
  void AddFigure(std::span<const POINT> points, bool isClosed);

 private:
  enum class State { kNone, kRecording, kEnded };

  /// The points of a figure begin where those of the one before end.
  struct Extent {
    std::size_t firstPoint;
    bool isClosed;
  };

  State state_ = State::kNone;
  bool continues_ = false;
  std::vector<POINT> points_;
  std::vector<Extent> extents_;
  std::vector<Figure> figures_;
};

}  // namespace quenzel7::gdi
