#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/automation/variant.h"

namespace quenzel7::ado {

/// The values of a recordset's rows, one after another, packed: a byte that tells the kind of a value and
/// eight that hold it. Texts and arrays are shared and lie apart, so that most rows are copied, and
/// forgotten, without touching anything else. A variant is made only of what is asked for.
class Cells {
 public:
  std::size_t Size() const { return size_; }
  void Clear();
  /// New cells are Null.
  void Resize(std::size_t size);
  void Erase(std::size_t first, std::size_t count);
  /// Takes the cells for rows of that width and puts these rows, numbered from 0, in their place.
  void Arrange(const std::vector<std::size_t>& rows, std::size_t width);

  /// The value in a cell: Null, Long, Double, Currency, String or an array of bytes.
  automation::Variant Get(std::size_t place) const {
    return KindAt(place) == Kind::Long ? automation::Variant(static_cast<Long>(WordAt(place)))
                                       : GetOther(place);
  }
  void SetNull(std::size_t place) { KindAt(place) = Kind::Null; }
  void SetLong(std::size_t place, Long value) { SetWord(place, Kind::Long, value); }
  /// Of the kinds that Get gives.
  void Set(std::size_t place, const automation::Variant& value);

 private:
  enum class Kind : std::uint8_t { Null, Long, Double, Currency, Shared };

  static constexpr std::size_t kGroup = 8;
  /// Cells that follow one another, with no room left between kinds and words.
  struct Group {
    std::array<Kind, kGroup> kinds;
    /// The number, the bits of a Double, or the place of a text or an array in shared_.
    std::array<std::int64_t, kGroup> words;
  };

  /// How many groups hold that many cells.
  static std::size_t GroupsOf(std::size_t size) { return (size + kGroup - 1) / kGroup; }

  Kind& KindAt(std::size_t place) { return groups_[place / kGroup].kinds[place % kGroup]; }
  Kind KindAt(std::size_t place) const { return groups_[place / kGroup].kinds[place % kGroup]; }
  std::int64_t& WordAt(std::size_t place) { return groups_[place / kGroup].words[place % kGroup]; }
  std::int64_t WordAt(std::size_t place) const { return groups_[place / kGroup].words[place % kGroup]; }
  void SetWord(std::size_t place, Kind kind, std::int64_t word) {
    KindAt(place) = kind;
    WordAt(place) = word;
  }
  automation::Variant GetOther(std::size_t place) const;

  std::size_t size_ = 0;
  std::vector<Group> groups_;
  std::vector<automation::Variant> shared_;
};

}  // namespace quenzel7::ado
