#include "platform/loomis2/nearest_color.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace quenzel7::loomis2 {
namespace {

/// The bits of a colour behind the highest ones of each channel.
template <int kBits>
constexpr std::uint32_t kRest = (0xFFu >> kBits) * 0x010101;

/// The cell that a colour lies in.
template <int kBits>
LabCell CellAround(std::uint32_t color) {
  return LabCell(color & ~kRest<kBits>, color | kRest<kBits>);
}

}  // namespace

NearestColor::NearestColor(PanelColors colors)
    : colors_(std::move(colors)),
      lists_(colors_.size()),
      answers_(std::size_t{1} << 3 * kFineBits, kUnknown) {
  for (const std::uint32_t color : colors_) labs_.push_back(LabOf(color));
  std::iota(lists_.begin(), lists_.end(), Byte{0});
  for (std::size_t i = 0; i < cells_.size(); ++i)
    cells_[i].resize(std::size_t{1} << 3 * (kCoarseBits + static_cast<int>(i)));
  for (std::size_t i = 0; i < colors_.size(); ++i)
    given_.insert(given_.end(), kCellColors, static_cast<Byte>(i));
}

NearestColor::Candidates NearestColor::CandidatesIn(const LabCell& cell, Candidates around) {
  const LabColor central = labs_[NearestAmong(around, cell.Middle())];
  const Candidates result{static_cast<std::uint32_t>(lists_.size()), 0};
  for (std::uint32_t i = around.begin; i < around.begin + around.count; ++i) {
    const Byte index = lists_[i];
    if (cell.Of(central, labs_[index]).Least() <= 0) lists_.push_back(index);
  }
  return {result.begin, static_cast<std::uint32_t>(lists_.size()) - result.begin};
}

template <int kBits>
NearestColor::Candidates NearestColor::CandidatesAt(std::uint32_t color) {
  if constexpr (kBits < kCoarseBits) {
    return {0, static_cast<std::uint32_t>(colors_.size())};
  } else {
    Candidates& known = cells_[kBits - kCoarseBits][NumberOf(color) >> 3 * (8 - kBits)];
    if (known.count == 0) {
      known = CandidatesAt<kBits - 1>(color);
      if (known.count > 1) known = CandidatesIn(CellAround<kBits>(color), known);
    }
    return known;
  }
}

std::uint32_t NearestColor::AnswersFor(std::uint32_t color) {
  Candidates candidates = CandidatesAt<kFineBits - 1>(color);
  if (candidates.count == 1) return lists_[candidates.begin] * kCellColors;
  const LabCell cell = CellAround<kFineBits>(color);
  const std::size_t kept = lists_.size();
  candidates = CandidatesIn(cell, candidates);
  const std::uint32_t answers =
      candidates.count == 1 ? lists_[candidates.begin] * kCellColors : GiveAnswers(color, cell, candidates);
  // Nobody asks for the candidates of the smallest cells again.
  lists_.resize(kept);
  return answers;
}

std::uint32_t NearestColor::GiveAnswers(std::uint32_t color, const LabCell& cell, Candidates candidates) {
  constexpr std::uint32_t kSide = 1u << (8 - kFineBits);
  // How far each colour of the cell is off the lowest one, blue changing fastest; and its number.
  static constexpr auto kOffsets = [] {
    std::array<std::uint32_t, kCellColors> offsets{};
    for (std::uint32_t i = 0; i < kCellColors; ++i)
      offsets[i] = i / (kSide * kSide) << 16 | i / kSide % kSide << 8 | i % kSide;
    return offsets;
  }();
  static constexpr auto kNumbers = [] {
    std::array<std::uint32_t, kCellColors> numbers{};
    for (std::uint32_t i = 0; i < kCellColors; ++i) numbers[i] = NumberOf(kOffsets[i]);
    return numbers;
  }();
  const std::uint32_t lowest = color & ~kRest<kFineBits>;
  std::array<std::array<float, kSide>, 3> places;
  for (std::size_t channel = 0; channel < 3; ++channel) {
    for (std::uint32_t i = 0; i < kSide; ++i)
      places[channel][i] = cell.PlaceOf(channel, (lowest >> (16 - 8 * channel) & 0xFF) + i);
  }
  // By how much each colour of the cell is nearer to the first candidate than to the one that it is nearest
  // to, and to the second nearest; and how far these numbers may be off.
  std::array<float, kCellColors> nearest{}, second;
  std::array<std::int32_t, kCellColors> index;
  const Byte* const list = lists_.data() + candidates.begin;
  second.fill(std::numeric_limits<float>::infinity());
  index.fill(list[0]);
  float loose = 0;
  for (std::uint32_t i = 1; i < candidates.count; ++i) {
    const Preference preference = cell.Of(labs_[list[0]], labs_[list[i]]);
    loose = std::max(loose, preference.loose);
    std::array<float, kCellColors> values;
    std::size_t at = 0;
    for (const float red : places[0]) {
      for (const float green : places[1]) {
        const float value = preference.At(red, green, 0);
        for (const float blue : places[2]) values[at++] = value + blue * preference.steps[2];
      }
    }
    for (at = 0; at < kCellColors; ++at) {
      const float value = values[at], least = nearest[at];
      second[at] = std::min(second[at], std::max(value, least));
      index[at] = value < least ? list[i] : index[at];
      nearest[at] = std::min(value, least);
    }
  }
  // One of these numbers is that of the first candidate, and certain, when there are two.
  const float limit = candidates.count == 2 ? loose : 2 * loose;
  const auto answers = static_cast<std::uint32_t>(given_.size());
  given_.resize(given_.size() + kCellColors);
  for (std::uint32_t i = 0; i < kCellColors; ++i) {
    given_[answers + kNumbers[i]] = second[i] - nearest[i] > limit
                                        ? static_cast<Byte>(index[i])
                                        : NearestAmong(candidates, LabOf(lowest | kOffsets[i]));
  }
  return answers;
}

Byte NearestColor::NearestAmong(Candidates candidates, const LabColor& lab) const {
  const Byte* const begin = lists_.data() + candidates.begin;
  Byte nearest = *begin;
  float least = DistanceSquared(lab, labs_[nearest]);
  for (const Byte* at = begin + 1; at != begin + candidates.count; ++at) {
    const float distance = DistanceSquared(lab, labs_[*at]);
    if (distance < least) {
      least = distance;
      nearest = *at;
    }
  }
  return nearest;
}

}  // namespace quenzel7::loomis2
