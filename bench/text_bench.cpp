#include <algorithm>

#include "bench/canvas.h"
#include "bench/numbers.h"
#include "bench/ratios.h"

namespace quenzel7::bench {
namespace {

constexpr int kLines = 100, kShortest = 20, kLongest = 60;

/// Dark on light, so that ink can be told from paper where boxes lie on one another.
constexpr std::uint32_t kDark = 0x7F7F7F, kLight = 0x808080;

/// What panels say: words, numbers and units.
std::string Words(Numbers& numbers) {
  constexpr std::string_view kText =
      "Conveyor 3: 1250 rpm, motor current 4.7 A; Oven (left) 87 % of 230 C - wait for \"Ready\" then press "
      "START! "
      "Flow 12,5 l/min = 0.75 m3/h? Valve V-108 [open] & pump P/2 #6 @ 50 Hz, quality index: J/K/Q/X/Z";
  const int length = numbers.Between(kShortest, kLongest);
  const int from = numbers.Between(0, static_cast<int>(kText.size()) - length);
  return std::string(kText.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(length)));
}

std::vector<TextLine> Lines() {
  Numbers numbers;
  std::vector<TextLine> lines;
  for (int i = 0; i < kLines; ++i) {
    const int left = numbers.Between(0, kPageWidth / 2),
              top = numbers.Between(0, kPageHeight - 2 * kTextSize);
    const std::uint32_t ink = numbers.Color() & kDark, paper = numbers.Color() | kLight;
    lines.push_back({left, top, Words(numbers), ink, paper});
  }
  return lines;
}

bool IsInk(std::uint32_t pixel) { return (pixel & kLight) == 0; }

/// How many times as much ink the one picture has that has more. Libraries differ in the pixels of a letter,
/// as each fits outlines to pixels in its own way, and Qt sets them a little wider.
double InkRatio(std::span<const std::uint32_t> one, std::span<const std::uint32_t> other) {
  const auto a = static_cast<double>(std::count_if(one.begin(), one.end(), IsInk));
  const auto b = static_cast<double>(std::count_if(other.begin(), other.end(), IsInk));
  return std::max(a, b) / std::max(std::min(a, b), 1.0);
}

}  // namespace

std::vector<Ratio> TextRatios() {
  constexpr int kTurns = 41, kWarmUps = 3;
  constexpr double kMostInk = 1.15;
  const std::vector<TextLine> lines = Lines();
  std::vector<Ratio> ratios;
  for (const Peer& peer : Peers()) {
    if (!peer.make) continue;
    const auto ours = MakeGdiCanvas(kPageWidth, kPageHeight), theirs = peer.make(kPageWidth, kPageHeight);
    const double ratio = TimeRatio(
        kTurns, kWarmUps, [&] { ours->Write(lines); }, [&] { theirs->Write(lines); });
    ratios.push_back({"text lines", ratio, 1.0, peer.name});
    ratios.push_back({"ink of the text lines, the more by the less",
                      InkRatio(ours->Pixels(), theirs->Pixels()), kMostInk, "times, " + peer.name});
  }
  return ratios;
}

}  // namespace quenzel7::bench
