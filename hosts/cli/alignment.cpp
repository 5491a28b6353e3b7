#include "hosts/cli/alignment.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

namespace quenzel7::cli {
namespace {

using Numbers = std::span<const int>;

/// Builds the common subsequence from its beginning to its end.
class Alignment {
 public:
  Alignment(Numbers a, Numbers b) : a_(a), b_(b) {}

  std::vector<PlacePair> Find() {
    Between({0, 0}, {a_.size(), b_.size()}, &Alignment::ByRank);
    return std::move(pairs_);
  }

 private:
  using Rest = void (Alignment::*)(PlacePair, PlacePair);

  /// Aligns what lies from `from` to before `to`; `large` deals with what is too large for a table.
  void Between(PlacePair from, PlacePair to, Rest large) {
    while (from.first < to.first && from.second < to.second && a_[from.first] == b_[from.second]) {
      pairs_.emplace_back(from.first++, from.second++);
    }
    PlacePair end = to;
    while (from.first < end.first && from.second < end.second && a_[end.first - 1] == b_[end.second - 1]) {
      --end.first, --end.second;
    }
    const std::size_t rows = end.first - from.first;
    const std::size_t columns = end.second - from.second;
    if (rows > 0 && columns > 0) {
      if (rows <= kMostAlignedCells / columns) {
        ByTable(from, rows, columns);
      } else if (large) {
        (this->*large)(from, end);
      }
    }
    for (; end.first < to.first; ++end.first, ++end.second) pairs_.push_back(end);
  }

  /// The classic table of the lengths of common subsequences, from each pair of places to the end.
  void ByTable(PlacePair from, std::size_t rows, std::size_t columns) {
    const std::size_t width = columns + 1;
    std::vector<std::uint32_t> lengths((rows + 1) * width, 0);
    for (std::size_t row = rows; row-- > 0;) {
      for (std::size_t column = columns; column-- > 0;) {
        const std::size_t cell = row * width + column;
        lengths[cell] = a_[from.first + row] == b_[from.second + column]
                            ? lengths[cell + width + 1] + 1
                            : std::max(lengths[cell + width], lengths[cell + 1]);
      }
    }
    for (std::size_t row = 0, column = 0; row < rows && column < columns;) {
      const std::size_t cell = row * width + column;
      if (a_[from.first + row] == b_[from.second + column]) {
        pairs_.emplace_back(from.first + row++, from.second + column++);
      } else if (lengths[cell + width] >= lengths[cell + 1]) {
        ++row;
      } else {
        ++column;
      }
    }
  }

  void ByRank(PlacePair from, PlacePair to) {
    const auto ranked = PairByRank(a_.subspan(from.first, to.first - from.first),
                                   b_.subspan(from.second, to.second - from.second));
    std::vector<std::size_t> places;
    for (const PlacePair& pair : ranked) places.push_back(pair.second);
    PlacePair next = from;
    for (const std::size_t index : LongestRising(places)) {
      const PlacePair anchor{from.first + ranked[index].first, from.second + ranked[index].second};
      Between(next, anchor, nullptr);
      pairs_.push_back(anchor);
      next = {anchor.first + 1, anchor.second + 1};
    }
    Between(next, to, nullptr);
  }

  Numbers a_, b_;
  std::vector<PlacePair> pairs_;
};

}  // namespace

std::vector<PlacePair> Align(Numbers a, Numbers b) { return Alignment(a, b).Find(); }

std::vector<std::size_t> LongestRising(std::span<const std::size_t> numbers) {
  // The index of the smallest number that ends a rising subsequence of each length, and what stands before
  // each number in the one that it ends.
  std::vector<std::size_t> ends;
  std::vector<std::size_t> before(numbers.size());
  for (std::size_t index = 0; index < numbers.size(); ++index) {
    const auto place =
        std::lower_bound(ends.begin(), ends.end(), numbers[index],
                         [&numbers](std::size_t end, std::size_t number) { return numbers[end] < number; });
    if (place != ends.begin()) before[index] = place[-1];
    if (place == ends.end()) {
      ends.push_back(index);
    } else {
      *place = index;
    }
  }
  std::vector<std::size_t> rising(ends.size());
  if (rising.empty()) return rising;
  std::size_t index = ends.back();
  for (std::size_t place = rising.size(); place-- > 0; index = before[index]) rising[place] = index;
  return rising;
}

std::vector<PlacePair> PairByRank(Numbers a, Numbers b) {
  struct Occurrences {
    std::vector<std::size_t> places;
    std::size_t used = 0;
  };
  std::unordered_map<int, Occurrences> inB;
  for (std::size_t place = 0; place < b.size(); ++place) inB[b[place]].places.push_back(place);
  std::vector<PlacePair> pairs;
  for (std::size_t place = 0; place < a.size(); ++place) {
    const auto found = inB.find(a[place]);
    if (found == inB.end() || found->second.used == found->second.places.size()) continue;
    pairs.emplace_back(place, found->second.places[found->second.used++]);
  }
  return pairs;
}

}  // namespace quenzel7::cli
