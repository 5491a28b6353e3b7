#include <cstdio>

#include "bench/ratios.h"

int main() {
  using namespace quenzel7::bench;
  std::printf("%-58s %10s %10s   %s\n", "work", "measured", "budget", "against");
  bool met = true;
  for (const auto& measure : {GdiRatios, ShapeRatios, AdoRatios, ElementRatios, ThreadRatios}) {
    for (const Ratio& line : measure()) {
      const bool good = line.ratio <= line.limit;
      met = met && good;
      std::printf("%-58s %10.2f %10.2f   %s%s\n", line.work.c_str(), line.ratio, line.limit,
                  line.peer.c_str(), good ? "" : "   OVER BUDGET");
    }
  }
  std::puts(met ? "All budgets are met" : "Some budgets are not met");
  return met ? 0 : 1;
}
