#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quenzel7::ado {

/// Finds the columns of a query by name without regard to the case of ASCII letters, in constant time.
///
/// Who reads rows asks for the same columns in the same order again and again, so the index remembers which
/// column was found after which and looks there first.
class ColumnIndex {
 public:
  static constexpr int kNone = -1;

  /// Of columns with the same name only the first is found.
  explicit ColumnIndex(std::vector<std::string> names);

  /// The column's place from 0, or kNone.
  int Find(std::string_view name) const;
  const std::vector<std::string>& Names() const { return names_; }

 private:
  int Search(std::string_view name) const;

  std::vector<std::string> names_;
  /// Open addressing over a folded hash; an entry is a column's place plus 1, 0 is free.
  std::vector<std::uint16_t> table_;
  std::size_t mask_;
  /// For each column the one that was found after it last time; of the column before the first one, the last
  /// entry.
  mutable std::vector<std::uint16_t> successors_;
  mutable std::size_t lastFound_;
};

}  // namespace quenzel7::ado
