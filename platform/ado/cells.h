#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/automation/variant.h"

namespace quenzel7::ado {

/// The values of a recordset's rows, one after another. Numbers lie in the cells themselves, so that most
/// rows are copied, and forgotten, without touching anything else.
class Cells {
 public:
  std::size_t Size() const { return cells_.size(); }
  void Clear();
  /// New cells are Null.
  void Resize(std::size_t size) { cells_.resize(size); }
  void Reserve(std::size_t size) { cells_.reserve(size); }
  void Erase(std::size_t first, std::size_t count);

  /// The value in a cell: Null, Long, Double, Currency, String or an array of bytes.
  automation::Variant Get(std::size_t place) const {
    const Cell& cell = cells_[place];
    return cell.kind == Kind::Long ? automation::Variant(static_cast<Long>(cell.whole)) : GetOther(cell);
  }
  void SetNull(std::size_t place) { cells_[place].kind = Kind::Null; }
  void SetLong(std::size_t place, Long value) {
    cells_[place].kind = Kind::Long;
    cells_[place].whole = value;
  }
  /// Of the kinds that Get gives.
  void Set(std::size_t place, const automation::Variant& value);

 private:
  enum class Kind : std::uint8_t { Null, Long, Double, Currency, Shared };
  struct Cell {
    Kind kind = Kind::Null;
    union {
      std::int64_t whole = 0;
      double real;
      /// The place of a text or an array in shared_.
      std::size_t shared;
    };
  };

  automation::Variant GetOther(const Cell& cell) const;

  std::vector<Cell> cells_;
  std::vector<automation::Variant> shared_;
};

}  // namespace quenzel7::ado
