#pragma once

#include <vector>

#include "hosts/cli/page_snapshot.h"

namespace quenzel7::cli {

/// Which elements of two pages are the same ones: for each element of one the index of its partner on the
/// other, or kNoElement.
struct ElementMatching {
  std::vector<std::size_t> ofA;
  std::vector<std::size_t> ofB;
};

/// Finds the partners, in these steps, each for what the steps before it left over:
/// 1. List by list, that of the page first, then those of groups that have become partners: elements that
///    are equal with all that is in them, in the same order (Align).
/// 2. Groups: those that are equal, wherever they are; then those with the most in common, in the same list
///    first. In common are elements that are equal, that are equal but for where they stand, that stand in
///    the same place, that have the same ID and GUID.
/// 3. Elements with the same class, ID and GUID, unless these are known not to mean anything: less than half
///    of the equal elements of step 1 have them in common.
/// 4. Equal elements, in the same group first, then anywhere.
/// 5. Elements of one class, those that differ in the fewest properties first, in at most half of them; in
///    the same group first, then anywhere.
///
/// Steps 2 and 5 look at every pair when there are at most kMostComparedPairs. Of more, elements that are
/// equal but for where they stand are partners, then those that stand in the same place, then the k-th that
/// is left with the k-th. So 10,000 elements of which each has changed are no matter of all pairs.
ElementMatching MatchElements(const PageSnapshot& a, const PageSnapshot& b);

inline constexpr std::size_t kMostComparedPairs = 250'000;

}  // namespace quenzel7::cli
