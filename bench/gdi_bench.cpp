#include <cstring>
#include <span>
#include <vector>

#include "bench/ratios.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/surface.h"

#ifdef QUENZEL7_HAVE_PIXMAN
#include <pixman.h>
#endif

namespace quenzel7::bench {
namespace {

constexpr int kWidth = 800, kHeight = 480;

template <class Work, class Peer>
double RatioOf(Work work, Peer peer) {
  constexpr int kTurns = 401, kWarmUps = 20;
  return TimeRatio(kTurns, kWarmUps, work, peer);
}

}  // namespace

std::vector<Ratio> GdiRatios() {
  const gdi::Surface surface(kWidth, kHeight);
  const gdi::RECT all{0, 0, kWidth, kHeight};
  const gdi::HBRUSH brush = gdi::CreateSolidBrush(gdi::RGB(30, 60, 90));
  const std::span<std::uint32_t> pixels = surface.Pixels();
  const auto fill = [&] { gdi::FillRect(surface.Dc(), &all, brush); };

  std::vector<Ratio> ratios;
  // Both write the same memory, so that its place decides nothing.
  ratios.push_back({"FillRect 800x480",
                    RatioOf(fill, [&] { std::memset(pixels.data(), 0x5A, pixels.size_bytes()); }), 1.25,
                    "memset"});
#ifdef QUENZEL7_HAVE_PIXMAN
  const auto pixmanFill = [&] { pixman_fill(pixels.data(), kWidth, 32, 0, 0, kWidth, kHeight, 0x1E3C5A); };
  ratios.push_back({"FillRect 800x480", RatioOf(fill, pixmanFill), 1.0, "pixman_fill"});
#endif
  gdi::DeleteObject(brush);

  const gdi::Surface source(kWidth, kHeight);
  const auto copy = [&] {
    gdi::BitBlt(surface.Dc(), 0, 0, kWidth, kHeight, source.Dc(), 0, 0, gdi::SRCCOPY);
  };
  const auto memoryCopy = [&] { std::memcpy(pixels.data(), source.Pixels().data(), pixels.size_bytes()); };
  ratios.push_back({"BitBlt SRCCOPY 800x480", RatioOf(copy, memoryCopy), 1.25, "memcpy"});
  return ratios;
}

}  // namespace quenzel7::bench
