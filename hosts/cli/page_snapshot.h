#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/cli/page_store.h"

namespace quenzel7::cli {

/// Stands for no element.
inline constexpr std::size_t kNoElement = static_cast<std::size_t>(-1);

/// An element of a page as it is compared with others.
struct ElementSnapshot {
  const automation::ClassInfo* elementClass;
  /// The names of PageProperties of the class, of a variable's kSettingsKeys and of the picture, and their
  /// values, as a page file writes them; of the picture what tells it from others.
  std::vector<std::string_view> properties;
  std::vector<std::string> values;
  /// ID and GUID of the row; nothing for an element that has none.
  std::optional<std::string> identity;
  /// The group that the element is in, by its index, or kNoElement, and its place there, from 1.
  std::size_t group = kNoElement;
  std::size_t place = 0;
  /// How many elements stand in it, at any depth: they follow it in the page's list.
  std::size_t inside = 0;
  /// How the picture is told, with its file, by which pictures are not told apart.
  std::string picture = {};

  bool IsGroup() const;
};

/// A page as it is compared with others: its elements with the members of each group right after it, in
/// drawing order.
struct PageSnapshot {
  PageInfo info;
  std::vector<ElementSnapshot> elements;

  /// "element 7 (clsGroup), element 2 (clsLine)": places from 1, the group's first.
  std::string NameOf(std::size_t index) const;
};

/// Takes a page down. `guids` has the GUID column of rows by their ID; empty for a page without rows.
PageSnapshot TakeSnapshot(const LoadedPage& page, const std::map<Long, std::string>& guids);

}  // namespace quenzel7::cli
