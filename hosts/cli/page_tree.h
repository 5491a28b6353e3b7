#pragma once

#include <optional>
#include <vector>

#include "framework/element_contract.h"

namespace quenzel7::cli {

/// An element that was loaded from a row of a page, and its place in the drawing order: its OrderIndex, and
/// for a group the place that was kept for it in case that it has no members.
struct PageRow {
  ElementRef element;
  std::optional<Long> place;
};

/// Groups are loaded at most this deep into one another, so that no project exhausts the stack.
inline constexpr int kDeepestLoadedGroup = 32;

/// Puts members into their groups, by their GroupID, and gives the elements that are in none. Elements and
/// members come in drawing order, the lowest first; a group stands where its lowest member stands, or,
/// without members, just below the element of its place, or on top when it has none.
///
/// An element whose GroupID names no group among the rows stands alone; so do groups that are in themselves,
/// and groups deeper than kDeepestLoadedGroup.
std::vector<ElementRef> TreeOf(const std::vector<PageRow>& rows);

}  // namespace quenzel7::cli
