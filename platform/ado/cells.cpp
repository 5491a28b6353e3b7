#include "platform/ado/cells.h"

namespace quenzel7::ado {

using automation::Variant;

void Cells::Clear() {
  cells_.clear();
  shared_.clear();
}

void Cells::Erase(std::size_t first, std::size_t count) {
  const auto begin = cells_.begin() + static_cast<std::ptrdiff_t>(first);
  cells_.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
}

Variant Cells::GetOther(const Cell& cell) const {
  switch (cell.kind) {
    case Kind::Null:
      return automation::NullValue{};
    case Kind::Long:
      return static_cast<Long>(cell.whole);
    case Kind::Double:
      return cell.real;
    case Kind::Currency:
      return Currency{cell.whole};
    case Kind::Shared:
      break;
  }
  return shared_[cell.shared];
}

void Cells::Set(std::size_t place, const Variant& value) {
  Cell& cell = cells_[place];
  if (const Long* number = value.If<Long>()) {
    cell.kind = Kind::Long;
    cell.whole = *number;
  } else if (value.IsNull()) {
    cell.kind = Kind::Null;
  } else if (const Double* real = value.If<Double>()) {
    cell.kind = Kind::Double;
    cell.real = *real;
  } else if (const Currency* currency = value.If<Currency>()) {
    cell.kind = Kind::Currency;
    cell.whole = currency->tenThousandths;
  } else if (cell.kind == Kind::Shared) {
    shared_[cell.shared] = value;
  } else {
    cell.kind = Kind::Shared;
    cell.shared = shared_.size();
    shared_.push_back(value);
  }
}

}  // namespace quenzel7::ado
