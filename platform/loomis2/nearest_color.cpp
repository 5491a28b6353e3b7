#include "platform/loomis2/nearest_color.h"

#include <array>
#include <cmath>

namespace quenzel7::loomis2 {
namespace {

/// The light of each stored number, from 0 to 1.
std::array<float, 256> Lights() {
  std::array<float, 256> lights{};
  for (std::size_t i = 0; i < lights.size(); ++i) {
    const double value = static_cast<double>(i) / 255;
    lights[i] = static_cast<float>(value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4));
  }
  return lights;
}

/// The cube root, with a straight line for what is nearly black.
float Root(float value) {
  constexpr float kBreak = 6.0f / 29;
  if (value > kBreak * kBreak * kBreak) return std::cbrt(value);
  return value / (3 * kBreak * kBreak) + 4.0f / 29;
}

}  // namespace

LabColor LabOf(std::uint32_t color) {
  static const std::array<float, 256> kLights = Lights();
  const float red = kLights[color >> 16 & 0xFF], green = kLights[color >> 8 & 0xFF],
              blue = kLights[color & 0xFF];
  const float x = Root((0.4124564f * red + 0.3575761f * green + 0.1804375f * blue) / 0.95047f);
  const float y = Root(0.2126729f * red + 0.7151522f * green + 0.0721750f * blue);
  const float z = Root((0.0193339f * red + 0.1191920f * green + 0.9503041f * blue) / 1.08883f);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

NearestColor::NearestColor(PanelColors colors) : colors_(std::move(colors)) {
  for (const std::uint32_t color : colors_) labs_.push_back(LabOf(color));
}

Byte NearestColor::Of(std::uint32_t color) {
  const LabColor lab = LabOf(color);
  std::size_t nearest = 0;
  for (std::size_t i = 1; i < labs_.size(); ++i) {
    if (DistanceSquared(lab, labs_[i]) < DistanceSquared(lab, labs_[nearest])) nearest = i;
  }
  return static_cast<Byte>(nearest);
}

}  // namespace quenzel7::loomis2
