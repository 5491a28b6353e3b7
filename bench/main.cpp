#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include "bench/canvas.h"
#include "bench/ratios.h"

namespace {

using namespace quenzel7::bench;

struct Subject {
  const char* name;
  std::vector<Ratio> (*measure)();
};

constexpr Subject kSubjects[] = {{"gdi", GdiRatios},
                                 {"shapes", ShapeRatios},
                                 {"text", TextRatios},
                                 {"text-painter", TextPainterRatios},
                                 {"pictures", PictureRatios},
                                 {"bitmaps", BitmapRatios},
                                 {"reduction", ReductionRatios},
                                 {"ado", AdoRatios},
                                 {"elements", ElementRatios},
                                 {"page", PageRatios},
                                 {"variables", VariableRatios},
                                 {"server", ServerRatios},
                                 {"threads", ThreadRatios}};

/// Prints a line of the table; false if it is over its budget.
bool Print(const Ratio& line) {
  const bool isGood = line.ratio <= line.limit;
  const std::string peer = line.peer + (isGood ? "" : "   OVER BUDGET");
  if (std::isinf(line.limit)) {
    std::printf("%-58s %10.2f %10s   %s\n", line.work.c_str(), line.ratio, "-", peer.c_str());
  } else {
    std::printf("%-58s %10.2f %10.2f   %s\n", line.work.c_str(), line.ratio, line.limit, peer.c_str());
  }
  return isGood;
}

/// Keeps memory that was given back, also in large pieces: whether the system has to hand it out anew must
/// not depend on which subjects were measured before.
void KeepMemory() {
  constexpr int kLargestKept = 32 << 20;
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  mallopt(M_MMAP_THRESHOLD, kLargestKept);
}

}  // namespace

/// Measures the subjects that are named, or all of them.
int main(int count, char** names) {
  KeepMemory();
  for (const Peer& peer : Peers()) {
    if (!peer.make) std::printf("%s is not there: nothing is measured against it\n", peer.name.c_str());
  }
  const std::vector<std::string> wanted(names + 1, names + count);
  std::printf("%-58s %10s %10s   %s\n", "work", "measured", "budget", "against");
  bool isMet = true;
  for (const Subject& subject : kSubjects) {
    const bool isWanted =
        wanted.empty() || std::find(wanted.begin(), wanted.end(), subject.name) != wanted.end();
    if (!isWanted) continue;
    for (const Ratio& line : subject.measure()) isMet = Print(line) && isMet;
  }
  std::puts(isMet ? "All budgets are met" : "Some budgets are not met");
  return isMet ? 0 : 1;
}
