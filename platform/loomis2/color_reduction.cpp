#include "platform/loomis2/color_reduction.h"

#include <algorithm>
#include <array>

namespace quenzel7::loomis2 {
namespace {

/// All of them 0, padding too.
std::vector<Byte> RoomFor(const Picture& picture) {
  const auto rowBytes = static_cast<std::size_t>(picture.width) + static_cast<std::size_t>(picture.width % 2);
  return std::vector<Byte>(rowBytes * static_cast<std::size_t>(picture.height));
}

/// Red, green and blue in sixteenths.
using Error = std::array<std::int32_t, 3>;
constexpr int kShifts[] = {16, 8, 0};

}  // namespace

PanelPixels ReducedToNearest(const Picture& picture, NearestColor& nearest) {
  PanelPixels result{RoomFor(picture), true};
  const std::uint32_t* pixel = picture.pixels.data();
  auto out = result.bytes.begin();
  for (Long y = 0; y < picture.height; ++y) {
    for (Long x = 0; x < picture.width; ++x, ++pixel) {
      const Byte index = nearest.Of(*pixel);
      result.isExact = result.isExact && nearest.Colors()[index] == *pixel;
      *out++ = index;
    }
    out += picture.width % 2;
  }
  return result;
}

PanelPixels ReducedByDiffusion(const Picture& picture, NearestColor& nearest) {
  PanelPixels result{RoomFor(picture), true};
  const auto width = static_cast<std::size_t>(picture.width);
  const std::size_t rowBytes = width + width % 2;
  // One more on either side, for what goes beyond the edge.
  std::vector<Error> here(width + 2), below(width + 2);
  for (std::size_t y = 0; y < static_cast<std::size_t>(picture.height); ++y) {
    const bool isBack = y % 2 != 0;
    std::fill(below.begin(), below.end(), Error{});
    for (std::size_t i = 0; i < width; ++i) {
      const std::size_t x = isBack ? width - 1 - i : i, at = x + 1;
      const std::size_t next = isBack ? at - 1 : at + 1, last = isBack ? at + 1 : at - 1;
      const std::uint32_t color = picture.pixels[y * width + x];
      std::uint32_t wanted = 0;
      std::array<std::int32_t, 3> channels{};
      for (std::size_t c = 0; c < channels.size(); ++c) {
        const auto stored = static_cast<std::int32_t>(color >> kShifts[c] & 0xFF);
        channels[c] = std::clamp(stored + ((here[at][c] + 8) >> 4), 0, 255);
        wanted |= static_cast<std::uint32_t>(channels[c]) << kShifts[c];
      }
      const Byte index = nearest.Of(wanted);
      const std::uint32_t found = nearest.Colors()[index];
      for (std::size_t c = 0; c < channels.size(); ++c) {
        const std::int32_t lost = channels[c] - static_cast<std::int32_t>(found >> kShifts[c] & 0xFF);
        here[next][c] += lost * 7;
        below[last][c] += lost * 3;
        below[at][c] += lost * 5;
        below[next][c] += lost;
      }
      result.bytes[y * rowBytes + x] = index;
      result.isExact = result.isExact && found == color;
    }
    here.swap(below);
  }
  return result;
}

}  // namespace quenzel7::loomis2
