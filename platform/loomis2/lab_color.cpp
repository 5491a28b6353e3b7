#include "platform/loomis2/lab_color.h"

#include <cmath>

namespace quenzel7::loomis2 {
namespace {

/// X, Y and Z of a colour, each in parts of that of white.
using Stimulus = std::array<float, 3>;

/// What red, green and blue light of the strength 1 give.
constexpr Stimulus kPrimaries[] = {{0.4124564f / 0.95047f, 0.2126729f, 0.0193339f / 1.08883f},
                                   {0.3575761f / 0.95047f, 0.7151522f, 0.1191920f / 1.08883f},
                                   {0.1804375f / 0.95047f, 0.0721750f, 0.9503041f / 1.08883f}};
constexpr float kLightnessScale = 116, kAScale = 500, kBScale = 200;

/// The cube root of CIELAB: from black on a straight line, until both have the same slope.
double Root(double value) {
  constexpr double kBreak = 6.0 / 29;
  if (value > kBreak * kBreak * kBreak) return std::cbrt(value);
  return value / (3 * kBreak * kBreak) + 4.0 / 29;
}

/// Root from 0 to 1 by straight pieces, whose slopes fall from each to the next.
class RootTable {
 public:
  RootTable() {
    for (std::size_t i = 0; i < kPieces; ++i) {
      const double begin = Root(static_cast<double>(i) / kPieces);
      const double end = Root(static_cast<double>(i + 1) / kPieces);
      pieces_[i] = {static_cast<float>(begin), static_cast<float>(end - begin)};
    }
    // Where rounding puts white.
    pieces_[kPieces] = {1, pieces_[kPieces - 1].rise};
  }
  float At(float value) const {
    const float place = value * kPieces;
    const auto piece = static_cast<std::int32_t>(place);
    return pieces_[piece].begin + pieces_[piece].rise * (place - static_cast<float>(piece));
  }
  float SlopeAt(float value) const {
    return pieces_[static_cast<std::int32_t>(value * kPieces)].rise * kPieces;
  }

 private:
  static constexpr int kPieces = 4096;
  struct Piece {
    float begin, rise;
  };
  Piece pieces_[kPieces + 1];
};

struct Tables {
  Tables() {
    for (std::size_t value = 0; value < lights.size(); ++value) {
      const double part = static_cast<double>(value) / 255;
      const double light = part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
      lights[value] = static_cast<float>(light);
    }
  }

  /// The light of each stored number, from 0 to 1.
  std::array<float, 256> lights{};
  RootTable root;
};

const Tables& Table() {
  static const Tables tables;
  return tables;
}

using Lights = std::array<float, 3>;

Lights LightsOf(std::uint32_t color) {
  const auto& lights = Table().lights;
  return {lights[color >> 16 & 0xFF], lights[color >> 8 & 0xFF], lights[color & 0xFF]};
}

Stimulus StimulusOf(const Lights& lights) {
  Stimulus sum{};
  for (std::size_t c = 0; c < 3; ++c) {
    for (std::size_t i = 0; i < 3; ++i) sum[i] += kPrimaries[c][i] * lights[c];
  }
  return sum;
}

LabColor LabOfStimulus(const Stimulus& stimulus) {
  const RootTable& root = Table().root;
  const float x = root.At(stimulus[0]), y = root.At(stimulus[1]), z = root.At(stimulus[2]);
  return {kLightnessScale * y - 16, kAScale * (x - y), kBScale * (y - z)};
}

float Dot(const LabColor& one, const LabColor& other) {
  return one.lightness * other.lightness + one.a * other.a + one.b * other.b;
}

}  // namespace

LabColor LabOf(std::uint32_t color) { return LabOfStimulus(StimulusOf(LightsOf(color))); }

LabCell::LabCell(std::uint32_t low, std::uint32_t high) {
  const Lights least = LightsOf(low), most = LightsOf(high);
  const Stimulus darkest = StimulusOf(least), lightest = StimulusOf(most);
  // The slopes of the roots lie between those in the darkest and in the lightest colour: around `slope` by
  // no more than `spread`.
  Stimulus center, slope, spread;
  for (std::size_t i = 0; i < 3; ++i) {
    const float steep = Table().root.SlopeAt(darkest[i]), flat = Table().root.SlopeAt(lightest[i]);
    center[i] = (darkest[i] + lightest[i]) / 2;
    slope[i] = (steep + flat) / 2;
    spread[i] = (steep - flat) / 2;
  }
  middle_ = LabOfStimulus(center);
  // More than rounding can move a colour.
  constexpr float kMargin = 0.002f;
  slack_ = {kMargin, kMargin, kMargin};
  for (std::size_t c = 0; c < 3; ++c) {
    const float half = (most[c] - least[c]) / 2;
    middleLights_[c] = least[c] + half;
    halfLights_[c] = half;
    const auto step = [&](std::size_t i) { return half * kPrimaries[c][i] * slope[i]; };
    const auto loose = [&](std::size_t i) { return half * kPrimaries[c][i] * spread[i]; };
    steps_[c] = {kLightnessScale * step(1), kAScale * (step(0) - step(1)), kBScale * (step(1) - step(2))};
    slack_.lightness += kLightnessScale * loose(1);
    slack_.a += kAScale * (loose(0) + loose(1));
    slack_.b += kBScale * (loose(1) + loose(2));
  }
}

Preference LabCell::Of(const LabColor& one, const LabColor& other) const {
  // The difference of the squares changes evenly with the colour.
  const LabColor way{2 * (one.lightness - other.lightness), 2 * (one.a - other.a), 2 * (one.b - other.b)};
  const LabColor length{std::abs(way.lightness), std::abs(way.a), std::abs(way.b)};
  const float toOne = DistanceSquared(middle_, one), toOther = DistanceSquared(middle_, other);
  constexpr float kRounding = 1e-6f;
  return {toOther - toOne,
          {Dot(steps_[0], way), Dot(steps_[1], way), Dot(steps_[2], way)},
          Dot(slack_, length) + kRounding * (toOne + toOther)};
}

float LabCell::PlaceOf(std::size_t channel, std::uint32_t value) const {
  return (Table().lights[value] - middleLights_[channel]) / halfLights_[channel];
}

float Preference::Least() const {
  return atMiddle - std::abs(steps[0]) - std::abs(steps[1]) - std::abs(steps[2]) - loose;
}

}  // namespace quenzel7::loomis2
