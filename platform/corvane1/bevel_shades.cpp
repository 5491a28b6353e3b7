#include "platform/corvane1/bevel_shades.h"

#include <array>

namespace quenzel7::corvane1 {
namespace {

/// How far a line goes toward black or white, in hundredths, from the outermost inward.
constexpr std::array<Long, kBevelLines> kHundredths{60, 45, 30, 15};

constexpr Long kBrightest = 255;
constexpr Long kLeastContrast = 12;

constexpr std::array<int, 3> kShifts{0, 8, 16};

Long Channel(std::uint32_t color, int shift) { return static_cast<Long>(color >> shift & 0xFF); }

Long Darkened(Long channel, Long hundredths) { return (channel * (100 - hundredths) + 50) / 100; }

/// As bright as people see it, by the weights of ITU-R BT.601.
Long Brightness(std::uint32_t color) {
  return (299 * Channel(color, 0) + 587 * Channel(color, 8) + 114 * Channel(color, 16)) / 1000;
}

}  // namespace

std::uint32_t BevelShade(std::uint32_t face, Long level) {
  if (level < 1 || level > 2 * kBevelLines) return face;
  const bool isLight = level > kBevelLines;
  const Long hundredths = kHundredths[static_cast<std::size_t>((level - 1) % kBevelLines)];
  std::uint32_t shade = 0;
  for (const int shift : kShifts) {
    const Long channel = Channel(face, shift);
    const Long toned =
        isLight ? kBrightest - Darkened(kBrightest - channel, hundredths) : Darkened(channel, hundredths);
    shade |= static_cast<std::uint32_t>(toned) << shift;
  }
  return shade;
}

bool ReadsAsBevel(std::uint32_t face, std::uint32_t darkest, std::uint32_t lightest) {
  const Long brightness = Brightness(face);
  return brightness - Brightness(darkest) >= kLeastContrast &&
         Brightness(lightest) - brightness >= kLeastContrast;
}

Long ColorDistance(std::uint32_t a, std::uint32_t b) {
  Long sum = 0;
  for (const int shift : kShifts) {
    const Long difference = Channel(a, shift) - Channel(b, shift);
    sum += difference * difference;
  }
  return sum;
}

}  // namespace quenzel7::corvane1
