#include "platform/automation/array.h"

#include <algorithm>
#include <cstdint>

#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"

namespace quenzel7::automation {
namespace {

constexpr std::int64_t kMostBytes = std::int64_t{1} << 31;

std::int64_t Extent(Bounds bounds) {
  const std::int64_t extent = std::int64_t{bounds.upper} - bounds.lower + 1;
  if (extent < 0) {
    throw AutomationError(ErrorNumber::SubscriptOutOfRange, "array bounds " + std::to_string(bounds.lower) +
                                                                " to " + std::to_string(bounds.upper) +
                                                                " leave no place for a cell");
  }
  return extent;
}

template <class T>
std::vector<T> MakeCells(std::int64_t count) {
  if (count > kMostBytes / static_cast<std::int64_t>(sizeof(T))) {
    throw AutomationError(ErrorNumber::OutOfMemory,
                          "an array of " + std::to_string(count) + " cells takes more than 2 GiB");
  }
  return std::vector<T>(static_cast<std::size_t>(count));
}

[[noreturn]] void RaiseSubscript(const std::string& indices) {
  throw AutomationError(ErrorNumber::SubscriptOutOfRange, "array index (" + indices + ") is out of range");
}

}  // namespace

Array Array::OfSize(VariantKind element, Long size) {
  // The smallest sizes have no size - 1; all below 0 are equally wrong.
  return Array(element, Bounds{0, std::max(size, -1) - 1});
}

Array Array::OfBytes(std::span<const Byte> bytes) {
  Array array = OfSize(VariantKind::Byte, static_cast<Long>(bytes.size()));
  std::copy(bytes.begin(), bytes.end(), array.Cells<Byte>().begin());
  return array;
}

Array::Array(VariantKind element, Bounds first) : Array(element, 1, first, Bounds{0, 0}) {}

Array::Array(VariantKind element, Bounds first, Bounds second) : Array(element, 2, first, second) {}

Array::Array(VariantKind element, int dimensions, Bounds first, Bounds second)
    : dimensions_(dimensions), bounds_{first, second} {
  std::int64_t count;
  if (__builtin_mul_overflow(Extent(first), Extent(second), &count)) count = INT64_MAX;
  switch (element) {
    case VariantKind::Byte:
      cells_ = MakeCells<Byte>(count);
      return;
    case VariantKind::Integer:
      cells_ = MakeCells<Integer>(count);
      return;
    case VariantKind::Long:
      cells_ = MakeCells<Long>(count);
      return;
    case VariantKind::Single:
      cells_ = MakeCells<Single>(count);
      return;
    case VariantKind::Double:
      cells_ = MakeCells<Double>(count);
      return;
    case VariantKind::Currency:
      cells_ = MakeCells<Currency>(count);
      return;
    case VariantKind::Boolean:
      cells_ = MakeCells<BooleanCell>(count);
      return;
    case VariantKind::String:
      cells_ = MakeCells<std::string>(count);
      return;
    case VariantKind::Variant:
      cells_ = MakeCells<Variant>(count);
      return;
    default:
      break;
  }
  throw AutomationError(ErrorNumber::TypeMismatch,
                        std::string("an array cannot hold cells of ") + KindName(element));
}

VariantKind Array::ElementKind() const {
  // In the order of the alternatives of Storage.
  static constexpr VariantKind kKinds[] = {VariantKind::Byte,    VariantKind::Integer, VariantKind::Long,
                                           VariantKind::Single,  VariantKind::Double,  VariantKind::Currency,
                                           VariantKind::Boolean, VariantKind::String,  VariantKind::Variant};
  static_assert(std::size(kKinds) == std::variant_size_v<Storage>);
  return kKinds[cells_.index()];
}

std::size_t Array::Size() const {
  return std::visit([](const auto& cells) { return cells.size(); }, cells_);
}

const Bounds& Array::BoundsOf(int dimension) const {
  if (dimension < 1 || dimension > dimensions_) {
    throw AutomationError(ErrorNumber::SubscriptOutOfRange, "the array has " + std::to_string(dimensions_) +
                                                                " dimensions, dimension " +
                                                                std::to_string(dimension) + " was asked for");
  }
  return bounds_[dimension - 1];
}

std::size_t Array::Offset(Long index) const {
  if (dimensions_ != 1 || index < bounds_[0].lower || index > bounds_[0].upper) {
    RaiseSubscript(std::to_string(index));
  }
  return static_cast<std::size_t>(std::int64_t{index} - bounds_[0].lower);
}

std::size_t Array::Offset(Long first, Long second) const {
  if (dimensions_ != 2 || first < bounds_[0].lower || first > bounds_[0].upper || second < bounds_[1].lower ||
      second > bounds_[1].upper) {
    RaiseSubscript(std::to_string(first) + ", " + std::to_string(second));
  }
  return static_cast<std::size_t>((std::int64_t{second} - bounds_[1].lower) * Extent(bounds_[0]) +
                                  (std::int64_t{first} - bounds_[0].lower));
}

void Array::RaiseWrongCells() const {
  throw AutomationError(ErrorNumber::TypeMismatch,
                        std::string("the cells of the array are of ") + KindName(ElementKind()));
}

Variant Array::Get(std::size_t offset) const {
  return std::visit(
      [offset](const auto& cells) -> Variant {
        const auto& cell = cells[offset];
        if constexpr (std::is_same_v<std::decay_t<decltype(cell)>, BooleanCell>) {
          return cell.value != 0;
        } else {
          return cell;
        }
      },
      cells_);
}

void Array::Put(std::size_t offset, const Variant& value) {
  std::visit(
      [this, offset, &value](auto& cells) {
        using Cell = typename std::decay_t<decltype(cells)>::value_type;
        if constexpr (std::is_same_v<Cell, BooleanCell>) {
          cells[offset] = BooleanCell{static_cast<Integer>(To<bool>(value) ? -1 : 0)};
        } else if constexpr (std::is_same_v<Cell, Variant>) {
          // Shared with itself the array would never be freed.
          const bool isThis = value.IsArray() && &value.Elements() == this;
          cells[offset] = isThis ? Variant(*this) : value;
        } else {
          cells[offset] = To<Cell>(value);
        }
      },
      cells_);
}

Variant Array::At(Long index) const { return Get(Offset(index)); }
Variant Array::At(Long first, Long second) const { return Get(Offset(first, second)); }
void Array::Set(Long index, const Variant& value) { Put(Offset(index), value); }
void Array::Set(Long first, Long second, const Variant& value) { Put(Offset(first, second), value); }

}  // namespace quenzel7::automation
