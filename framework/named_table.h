#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace quenzel7 {

/// Entries with names, in their order. A class whose list differs from another one's by entries makes it from
/// that one, so that only the difference is told; an entry that is not there does not compile.
template <class Entry, std::size_t N>
struct NamedTable {
  std::array<Entry, N> entries;

  constexpr operator std::span<const Entry>() const { return entries; }

  /// The table without an entry.
  constexpr NamedTable<Entry, N - 1> Without(std::string_view name) const {
    NamedTable<Entry, N - 1> table{};
    const auto next = std::copy_n(entries.begin(), PlaceOf(name), table.entries.begin());
    std::copy(entries.begin() + PlaceOf(name) + 1, entries.end(), next);
    return table;
  }

  /// The table with an entry in the place of the one of its name.
  constexpr NamedTable With(const Entry& entry) const {
    NamedTable table = *this;
    table.entries[PlaceOf(entry.name)] = entry;
    return table;
  }

  /// The table with one more entry, right after the one of that name.
  constexpr NamedTable<Entry, N + 1> WithAfter(std::string_view name, const Entry& entry) const {
    NamedTable<Entry, N + 1> table{};
    auto next = std::copy_n(entries.begin(), PlaceOf(name) + 1, table.entries.begin());
    *next++ = entry;
    std::copy(entries.begin() + PlaceOf(name) + 1, entries.end(), next);
    return table;
  }

  /// The table with an entry in another place, right after the one of that name.
  constexpr NamedTable Moved(std::string_view name, std::string_view after) const {
    return Without(name).WithAfter(after, entries[PlaceOf(name)]);
  }

  /// The table followed by another.
  template <std::size_t M>
  constexpr NamedTable<Entry, N + M> Then(const NamedTable<Entry, M>& others) const {
    NamedTable<Entry, N + M> table{};
    const auto next = std::copy(entries.begin(), entries.end(), table.entries.begin());
    std::copy(others.entries.begin(), others.entries.end(), next);
    return table;
  }

 private:
  constexpr std::size_t PlaceOf(std::string_view name) const {
    std::size_t place = 0;
    while (entries.at(place).name != name) ++place;
    return place;
  }
};

/// A table of the given entries.
template <class Entry, class... Entries>
constexpr NamedTable<Entry, 1 + sizeof...(Entries)> MakeNamedTable(const Entry& first,
                                                                   const Entries&... others) {
  return {{{first, others...}}};
}

}  // namespace quenzel7
