#pragma once

#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace quenzel7::cli {

/// Two places in two sequences that belong together, counted from 0.
using PlacePair = std::pair<std::size_t, std::size_t>;

/// Places of equal numbers in two sequences, rising in both: a common subsequence. It is a longest one when
/// what lies between the common beginning and the common end is at most kMostAlignedCells cells of a table.
/// For longer ones the first occurrence of a number in `a` is held against its first in `b`, the second
/// against the second and so on, the longest rising row of these is taken, and only what lies between them is
/// aligned in full.
///
/// Time O((n + m) sqrt(kMostAlignedCells)) at most, space O(n + m + kMostAlignedCells).
std::vector<PlacePair> Align(std::span<const int> a, std::span<const int> b);

inline constexpr std::size_t kMostAlignedCells = 1'000'000;

/// The indexes of a longest rising subsequence (patience sorting, Fredman 1975); time O(n log n).
std::vector<std::size_t> LongestRising(std::span<const std::size_t> numbers);

/// Holds the k-th occurrence of each number in one sequence against its k-th in the other, in the order of
/// `a`.
std::vector<PlacePair> PairByRank(std::span<const int> a, std::span<const int> b);

}  // namespace quenzel7::cli
