#include "platform/loomis2/color_reduction.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quenzel7::loomis2 {
namespace {

/// All of them 0, padding too.
std::vector<Byte> RoomFor(const Picture& picture) {
  const auto rowBytes = static_cast<std::size_t>(picture.width) + static_cast<std::size_t>(picture.width % 2);
  return std::vector<Byte>(rowBytes * static_cast<std::size_t>(picture.height));
}

/// Red, green and blue side by side in one number, so that one addition does for all three. A channel may be
/// negative: it then takes one from its neighbour, which it gives back when sums become positive.
using Channels = std::int64_t;
constexpr int kChannelBits = 20;

constexpr Channels ChannelsOf(std::int64_t red, std::int64_t green, std::int64_t blue) {
  constexpr std::int64_t kUnit = std::int64_t{1} << kChannelBits;
  return (red * kUnit + green) * kUnit + blue;
}

constexpr Channels ChannelsOf(std::uint32_t color) {
  return ChannelsOf(color >> 16 & 0xFF, color >> 8 & 0xFF, color & 0xFF);
}

/// A picture's channel of 0 to 255 is off by no more than 256, one way or the other.
constexpr std::int64_t kMostOff = 256;

/// The channel of 0 to 255 that is nearest to a number, from -kMostOff on.
constexpr auto kNearestChannels = [] {
  std::array<Byte, 1024> nearest{};
  for (std::size_t i = 0; i < nearest.size(); ++i)
    nearest[i] = static_cast<Byte>(std::clamp<std::int64_t>(static_cast<std::int64_t>(i) - kMostOff, 0, 255));
  return nearest;
}();

/// The colour that is nearest to sixteenths of channels, halves upwards.
std::uint32_t ColorOfSixteenths(Channels sixteenths) {
  constexpr std::int64_t kHalf = 8, kLift = 16 * kMostOff + kHalf;
  const auto lifted = static_cast<std::uint64_t>(sixteenths + ChannelsOf(kLift, kLift, kLift));
  const auto channel = [&](int place) {
    return std::uint32_t{kNearestChannels[lifted >> (place * kChannelBits + 4) & 0x3FF]};
  };
  return channel(2) << 16 | channel(1) << 8 | channel(0);
}

/// One row on its way from left to right, each pixel reduced and what it loses handed on.
class RowWalk {
 public:
  /// `left` is what the row above left to each pixel, with one more before the first. What this row leaves
  /// takes its place, up to the pixel before the last one visited.
  RowWalk(const std::uint32_t* row, std::ptrdiff_t width, const Channels* colors, Channels* left, Byte* out)
      : row_(row), width_(width), colors_(colors), left_(left), out_(out) {}

  /// Reduces pixel x, those before it having been visited; nothing before the first, and behind the last one
  /// comes the end.
  void Visit(std::ptrdiff_t x, NearestColor& nearest) {
    if (x >= 0 && x < width_) Reduce(x, nearest);
    if (x == width_) left_[x] = below_;
  }
  /// Whether no pixel lost anything; then none was handed anything either.
  bool IsExact() const { return isExact_; }

 private:
  void Reduce(std::ptrdiff_t x, NearestColor& nearest) {
    const std::uint32_t wanted = ColorOfSixteenths(16 * ChannelsOf(row_[x]) + left_[x + 1] + ahead_);
    const Byte index = nearest.Of(wanted);
    const Channels lost = ChannelsOf(wanted) - colors_[index];
    ahead_ = 7 * lost;
    left_[x] = below_ + 3 * lost;
    below_ = belowNext_ + 5 * lost;
    belowNext_ = lost;
    out_[x] = index;
    isExact_ = isExact_ && lost == 0;
  }

  const std::uint32_t* row_;
  std::ptrdiff_t width_;
  const Channels* colors_;
  Channels* left_;
  Byte* out_;
  /// For the next pixel of this row; and for the pixels below this one and below the next, so far.
  Channels ahead_ = 0, below_ = 0, belowNext_ = 0;
  bool isExact_ = true;
};

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
  // Each pixel waits for the one before it: some rows at a time leave the processor less idle. A row walks
  // two pixels behind the one above it, which has then left all that it leaves to the pixel whose turn it is.
  constexpr Long kRowsAtATime = 4;
  constexpr std::ptrdiff_t kBehind = 2;
  PanelPixels result{RoomFor(picture), true};
  const std::ptrdiff_t width = picture.width, rowBytes = width + width % 2;
  std::vector<Channels> left(static_cast<std::size_t>(width) + 1);
  std::vector<Channels> colors;
  for (const std::uint32_t color : nearest.Colors()) colors.push_back(ChannelsOf(color));
  std::vector<RowWalk> rows;
  for (Long top = 0; top < picture.height; top += kRowsAtATime) {
    const std::ptrdiff_t count = std::min(kRowsAtATime, picture.height - top);
    rows.clear();
    for (std::ptrdiff_t y = top; y < top + count; ++y)
      rows.emplace_back(picture.pixels.data() + y * width, width, colors.data(), left.data(),
                        result.bytes.data() + y * rowBytes);
    for (std::ptrdiff_t x = 0; x <= width + kBehind * (count - 1); ++x) {
      for (std::ptrdiff_t i = 0; i < count; ++i)
        rows[static_cast<std::size_t>(i)].Visit(x - kBehind * i, nearest);
    }
    for (const RowWalk& row : rows) result.isExact = result.isExact && row.IsExact();
  }
  return result;
}

}  // namespace quenzel7::loomis2
