#pragma once

#include <time.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

namespace quenzel7::bench {

/// For what is told without a budget.
constexpr double kNoLimit = std::numeric_limits<double>::infinity();

/// One line of the table: what was measured, against what, and the budget.
struct Ratio {
  std::string work;
  /// The measured value, or the work's time over the peer's.
  double ratio;
  /// The most that the budget allows.
  double limit;
  std::string peer;
};

inline double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                   values.end());
  return values[values.size() / 2];
}

/// The processor time that the action takes, in seconds. Both sides wait for the same disk, and other
/// programs disturb this less than time on the wall.
template <class Action>
double ProcessorSeconds(Action action) {
  const auto now = [] {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
  };
  const double start = now();
  action();
  return now() - start;
}

/// The median processor time of `work` over that of `peer`, run turn by turn so that both see the same
/// caches and clock; the first turns warm up and do not count.
template <class Work, class Peer>
double TimeRatio(int turns, int warmUps, Work work, Peer peer) {
  std::vector<double> workSeconds, peerSeconds;
  for (int turn = 0; turn < turns + warmUps; ++turn) {
    const double workTime = ProcessorSeconds(work), peerTime = ProcessorSeconds(peer);
    if (turn < warmUps) continue;
    workSeconds.push_back(workTime);
    peerSeconds.push_back(peerTime);
  }
  return Median(workSeconds) / Median(peerSeconds);
}

/// Filling and copying against memset, memcpy and, where it is there, pixman.
std::vector<Ratio> GdiRatios();
/// Shapes against other drawing libraries, and whether these draw the same.
std::vector<Ratio> ShapeRatios();
/// Lines of text against other drawing libraries, and whether these write as much ink.
std::vector<Ratio> TextRatios();
/// Short texts, measured and painted by the services that elements use and by the elements themselves,
/// against a plain loop over the font library's pictures, and whether all give the same pixels.
std::vector<Ratio> TextPainterRatios();
/// Pictures with a colour left out against other drawing libraries, and whether these paint the same.
std::vector<Ratio> PictureRatios();
/// Pictures of a project: drawing one against plain copies, keeping many against prepared statements.
std::vector<Ratio> BitmapRatios();
/// Reducing a photograph to the colours of a panel against ImageMagick, its time and how far the colours are
/// off. Empty, and says so, where ImageMagick is not there.
std::vector<Ratio> ReductionRatios();
/// Recordsets against prepared statements.
std::vector<Ratio> AdoRatios();
/// Elements: saving and loading, calls by name, memory.
std::vector<Ratio> ElementRatios();
/// A page of elements: drawing, hits, saving, loading.
std::vector<Ratio> PageRatios();
/// Variables of all types: where they may stand, drawing, saving, loading.
std::vector<Ratio> VariableRatios();
/// Properties of an element through the binary interface against calls by name.
std::vector<Ratio> ServerRatios();
/// Drawing on two threads against one. Empty where the machine has no second core.
std::vector<Ratio> ThreadRatios();

}  // namespace quenzel7::bench
