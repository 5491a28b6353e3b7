#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// What a context draws between BeginPath and EndPath: figures of lines, kept until they are stroked or
/// filled.
class Path {
 public:
  struct Figure {
    std::vector<POINT> points;
    bool isClosed = false;
  };

  bool IsRecording() const { return state_ == State::kRecording; }

  /// Begins anew and forgets what was kept.
  void Begin();
  /// False if nothing was being recorded.
  bool End();
  /// Gives the figures and forgets them; nothing unless a path was begun and ended.
  std::optional<std::vector<Figure>> Take();

  /// The next line begins a figure.
  void Move() { continues_ = false; }
  /// Goes on from where the last line ended, or begins a figure at `from`.
  void AddLines(POINT from, std::span<const POINT> to);
  /// A figure by itself; a line after it begins another.
  void AddFigure(std::vector<POINT> points, bool isClosed);

 private:
  enum class State { kNone, kRecording, kEnded };

  State state_ = State::kNone;
  bool continues_ = false;
  std::vector<Figure> figures_;
};

}  // namespace quenzel7::gdi
