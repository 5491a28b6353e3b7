#include "platform/loomis2/resized_picture.h"

#include <algorithm>
#include <array>

namespace quenzel7::loomis2 {
namespace {

constexpr std::size_t kChannels = 3;
/// Red, green and blue of each pixel of a row, times the weights.
using Sums = std::vector<std::uint32_t>;

/// What one pixel is made of in one direction: neighbouring pixels of the source, the first and the last of
/// them in part. The weights of all add up to Axis::total.
struct Share {
  std::size_t first, last;
  std::uint32_t firstWeight, innerWeight, lastWeight;

  std::uint32_t Weight(std::size_t at) const {
    return at == first ? firstWeight : at == last ? lastWeight : innerWeight;
  }
};

struct Axis {
  Axis(Long from, Long to);

  std::vector<Share> shares;
  std::uint32_t total;
};

/// In units of which a source pixel has `to` and a pixel of the result `from`.
Axis::Axis(Long from, Long to) : total(to < from ? static_cast<std::uint32_t>(from) : 1) {
  shares.reserve(static_cast<std::size_t>(to));
  for (std::int64_t i = 0; i < to; ++i) {
    if (to >= from) {
      const auto middle = static_cast<std::size_t>((2 * i + 1) * from / (std::int64_t{2} * to));
      shares.push_back({middle, middle, 1, 0, 0});
      continue;
    }
    const std::int64_t begin = i * from, end = begin + from;
    const std::int64_t first = begin / to, last = (end - 1) / to;
    shares.push_back({static_cast<std::size_t>(first), static_cast<std::size_t>(last),
                      static_cast<std::uint32_t>((first + 1) * to - begin), static_cast<std::uint32_t>(to),
                      static_cast<std::uint32_t>(end - last * to)});
  }
}

void SumRow(const std::uint32_t* row, const Axis& across, Sums& sums) {
  auto out = sums.begin();
  for (const Share& share : across.shares) {
    std::array<std::uint32_t, kChannels> sum{};
    for (std::size_t x = share.first; x <= share.last; ++x) {
      const std::uint32_t weight = share.Weight(x);
      sum[0] += weight * (row[x] >> 16 & 0xFF);
      sum[1] += weight * (row[x] >> 8 & 0xFF);
      sum[2] += weight * (row[x] & 0xFF);
    }
    out = std::copy(sum.begin(), sum.end(), out);
  }
}

}  // namespace

Picture Resized(const Picture& picture, Long dx, Long dy) {
  if (dx == picture.width && dy == picture.height) return picture;
  const Axis across(picture.width, dx), down(picture.height, dy);
  const auto width = static_cast<std::size_t>(picture.width);
  const std::uint64_t total = std::uint64_t{across.total} * down.total;

  Picture result{dx, dy, {}};
  result.pixels.reserve(static_cast<std::size_t>(dx) * static_cast<std::size_t>(dy));
  Sums row(static_cast<std::size_t>(dx) * kChannels);
  std::vector<std::uint64_t> sums(row.size());
  // Two rows of the result may share one of the source.
  std::size_t summed = static_cast<std::size_t>(picture.height);
  for (const Share& share : down.shares) {
    std::fill(sums.begin(), sums.end(), 0);
    for (std::size_t y = share.first; y <= share.last; ++y) {
      if (y != summed) SumRow(picture.pixels.data() + y * width, across, row);
      summed = y;
      const std::uint64_t weight = share.Weight(y);
      for (std::size_t i = 0; i < sums.size(); ++i) sums[i] += weight * row[i];
    }
    for (std::size_t i = 0; i < sums.size(); i += kChannels) {
      const auto mean = [&](std::size_t channel) {
        return static_cast<std::uint32_t>((sums[i + channel] + total / 2) / total);
      };
      result.pixels.push_back(mean(0) << 16 | mean(1) << 8 | mean(2));
    }
  }
  return result;
}

}  // namespace quenzel7::loomis2
