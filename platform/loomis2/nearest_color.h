#pragma once

#include <cstdint>

#include "platform/loomis2/panel_pixels.h"

namespace quenzel7::loomis2 {

/// A colour by how it looks: CIELAB (CIE, 1976; ISO/CIE 11664-4), in which the distance of two colours is
/// about the difference that is seen.
struct LabColor {
  float lightness, a, b;
};

/// The colour of an sRGB colour 0x00RRGGBB (IEC 61966-2-1), its white being D65.
LabColor LabOf(std::uint32_t color);

/// The square of the distance of two colours.
constexpr float DistanceSquared(const LabColor& one, const LabColor& other) {
  const float lightness = one.lightness - other.lightness, a = one.a - other.a, b = one.b - other.b;
  return lightness * lightness + a * a + b * b;
}

/// Finds the colour of a panel that looks nearest to a colour.
class NearestColor {
 public:
  /// 1 to 256 colours.
  explicit NearestColor(PanelColors colors);

  const PanelColors& Colors() const { return colors_; }
  /// The index of the colour at the least distance from a colour 0x00RRGGBB; of several the first.
  Byte Of(std::uint32_t color);

 private:
  PanelColors colors_;
  std::vector<LabColor> labs_;
};

}  // namespace quenzel7::loomis2
