#include <sys/resource.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <optional>
#include <thread>
#include <vector>

#include "bench/ratios.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"
#include "platform/gdi/surface.h"

namespace quenzel7::bench {
namespace {

/// Pages of shapes: about a thousandth of a second.
void DrawPages() {
  constexpr int kPages = 4, kWidth = 320, kHeight = 240;
  const gdi::Surface surface(kWidth, kHeight), picture(64, 64);
  const gdi::LOGPEN logPen{gdi::PS_SOLID, {3, 0}, gdi::RGB(200, 30, 30)};
  const gdi::SelectedPen pen(surface.Dc(), gdi::CreatePenIndirect(&logPen));
  const gdi::SelectedBrush brush(surface.Dc(), gdi::CreateHatchBrush(gdi::HS_CROSS, gdi::RGB(0, 90, 0)));
  for (int page = 0; page < kPages; ++page) {
    gdi::PatBlt(surface.Dc(), 0, 0, kWidth, kHeight, gdi::PATCOPY);
    for (int i = 0; i < 40; ++i) {
      const int x = i * 7, y = i * 5;
      gdi::Rectangle(surface.Dc(), x, y, x + 60, y + 40);
      gdi::Ellipse(surface.Dc(), y, x / 2, y + 80, x / 2 + 50);
      gdi::MoveToEx(surface.Dc(), x, 0, nullptr);
      gdi::LineTo(surface.Dc(), kWidth - x, kHeight);
      gdi::BitBlt(surface.Dc(), x, y, 64, 64, picture.Dc(), 0, 0, gdi::SRCINVERT);
    }
  }
}

using Clock = std::chrono::steady_clock;

/// How often the system has taken the core away from this thread.
long Interruptions() {
  rusage usage{};
  getrusage(RUSAGE_THREAD, &usage);
  return usage.ru_nivcsw;
}

/// Seconds from the first start to the last end on threads that start together; nothing if one of them was
/// interrupted, as what else the machine does is not to be measured.
std::optional<double> SecondsOnThreads(int count) {
  std::atomic<int> waiting = count;
  std::atomic<bool> wasInterrupted = false;
  std::vector<Clock::time_point> starts(static_cast<std::size_t>(count)), ends = starts;
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < starts.size(); ++i) {
    threads.emplace_back([&, i] {
      // Waiting without sleeping: who sees 0 runs at the same time as the others.
      for (--waiting; waiting > 0;) {
      }
      const long before = Interruptions();
      starts[i] = Clock::now();
      DrawPages();
      ends[i] = Clock::now();
      if (Interruptions() != before) wasInterrupted = true;
    });
  }
  for (std::thread& thread : threads) thread.join();
  if (wasInterrupted) return std::nullopt;
  const auto first = *std::min_element(starts.begin(), starts.end());
  const auto last = *std::max_element(ends.begin(), ends.end());
  return std::chrono::duration<double>(last - first).count();
}

}  // namespace

std::vector<Ratio> ThreadRatios() {
  if (std::thread::hardware_concurrency() < 2) return {};
  constexpr std::size_t kEnough = 100;
  constexpr int kMostTurns = 4000;
  std::vector<double> one, two;
  for (int turn = 0; turn < kMostTurns && std::min(one.size(), two.size()) < kEnough; ++turn) {
    if (const auto seconds = SecondsOnThreads(1)) one.push_back(*seconds);
    if (const auto seconds = SecondsOnThreads(2)) two.push_back(*seconds);
  }
  if (one.empty() || two.empty()) return {};
  // The shortest, as a machine that is itself a guest stands still at times without telling.
  const double ratio = *std::min_element(two.begin(), two.end()) / *std::min_element(one.begin(), one.end());
  return {{"Pages of shapes on two threads, each as many", ratio, 1.2, "one thread"}};
}

}  // namespace quenzel7::bench
