#pragma once

#include <array>
#include <cstdint>

namespace quenzel7::loomis2 {

/// A colour by how it looks: CIELAB (CIE, 1976; ISO/CIE 11664-4), in which the distance of two colours is
/// about the difference that is seen.
struct LabColor {
  float lightness, a, b;
};

/// The square of the distance of two colours.
constexpr float DistanceSquared(const LabColor& one, const LabColor& other) {
  const float lightness = one.lightness - other.lightness, a = one.a - other.a, b = one.b - other.b;
  return lightness * lightness + a * a + b * b;
}

/// The colour of an sRGB colour 0x00RRGGBB (IEC 61966-2-1), its white being D65; to about a 500th, as cube
/// roots are read from a table.
LabColor LabOf(std::uint32_t color);

/// By how much colours of a cell are nearer to one colour than to another: what the square of the distance
/// to the other has more. It is `atMiddle`, changes by `steps` from the middle of each channel's light to its
/// upper bound, as much the other way to its lower one and evenly in between, and is known but for `loose`.
struct Preference {
  /// The value at a place in the cell, from -1 to 1 in each channel.
  float At(float red, float green, float blue) const {
    return atMiddle + red * steps[0] + green * steps[1] + blue * steps[2];
  }
  /// The least that it can be in the cell.
  float Least() const;

  float atMiddle;
  std::array<float, 3> steps;
  float loose;
};

/// All colours whose channels are each between two bounds.
class LabCell {
 public:
  /// The channels of `low` are the lower bounds, those of `high` the upper ones, both in.
  LabCell(std::uint32_t low, std::uint32_t high);

  /// How far its colours are nearer to `one` than to `other`.
  Preference Of(const LabColor& one, const LabColor& other) const;
  /// In the middle of each channel's light.
  const LabColor& Middle() const { return middle_; }
  /// The place of a stored number of a channel (0 red, 1 green, 2 blue) between the bounds, from -1 to 1.
  float PlaceOf(std::size_t channel, std::uint32_t value) const;

 private:
  std::array<float, 3> middleLights_, halfLights_;
  LabColor middle_;
  /// How far a colour moves by half of each channel's range; and how far off that it may be in all.
  std::array<LabColor, 3> steps_;
  LabColor slack_;
};

}  // namespace quenzel7::loomis2
