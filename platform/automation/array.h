#pragma once

#include <span>
#include <string>
#include <variant>
#include <vector>

#include "platform/automation/types.h"
#include "platform/automation/variant.h"

namespace quenzel7::automation {

/// The first and last index of one dimension; upper = lower - 1 is a dimension without cells.
struct Bounds {
  Long lower = 0;
  Long upper = -1;

  friend bool operator==(Bounds, Bounds) = default;
};

/// One cell of a Boolean array: -1 or 0.
struct BooleanCell {
  Integer value = 0;

  friend bool operator==(BooleanCell, BooleanCell) = default;
};

/// An array of one or two dimensions whose cells are all of one kind.
///
/// Cells lie in memory with the first index running fastest, as in the binary interface: in a map of pixels
/// addressed (x, y) a row of pixels is a run of neighbouring cells.
class Array {
 public:
  /// One dimension from 0 to size - 1; errors as the constructors.
  static Array OfSize(VariantKind element, Long size);
  /// Bytes, indices from 0.
  static Array OfBytes(std::span<const Byte> bytes);

  /// All cells 0, False, "" or Empty. Error 13 when arrays cannot hold that kind, error 9 when an upper bound
  /// lies more than one below its lower bound, error 7 when the array would take more than 2 GiB.
  Array(VariantKind element, Bounds first);
  Array(VariantKind element, Bounds first, Bounds second);

  VariantKind ElementKind() const;
  int Dimensions() const { return dimensions_; }
  /// Bounds of dimension 1 or 2; error 9 when the array has no such dimension.
  Long LowerBound(int dimension) const { return BoundsOf(dimension).lower; }
  Long UpperBound(int dimension) const { return BoundsOf(dimension).upper; }
  /// Number of cells in all.
  std::size_t Size() const;

  /// A cell; error 9 when the index lies outside or the array has another number of dimensions.
  Variant At(Long index) const;
  Variant At(Long first, Long second) const;
  /// Writes a cell, converted to the kind of the array's cells; errors as At and of the conversion. The array
  /// itself goes in as a copy.
  void Set(Long index, const Variant& value);
  void Set(Long first, Long second, const Variant& value);

  /// All cells in memory order, when they are of type T; error 13 otherwise.
  template <class T>
  std::span<const T> Cells() const {
    if (const auto* cells = std::get_if<std::vector<T>>(&cells_)) return *cells;
    RaiseWrongCells();
  }
  template <class T>
  std::span<T> Cells() {
    if (auto* cells = std::get_if<std::vector<T>>(&cells_)) return *cells;
    RaiseWrongCells();
  }

  friend bool operator==(const Array& a, const Array& b) = default;

 private:
  using Storage = std::variant<std::vector<Byte>, std::vector<Integer>, std::vector<Long>,
                               std::vector<Single>, std::vector<Double>, std::vector<Currency>,
                               std::vector<BooleanCell>, std::vector<std::string>, std::vector<Variant>>;

  Array(VariantKind element, int dimensions, Bounds first, Bounds second);
  const Bounds& BoundsOf(int dimension) const;
  std::size_t Offset(Long index) const;
  std::size_t Offset(Long first, Long second) const;
  [[noreturn]] void RaiseWrongCells() const;
  Variant Get(std::size_t offset) const;
  void Put(std::size_t offset, const Variant& value);

  int dimensions_;
  Bounds bounds_[2];
  Storage cells_;
};

}  // namespace quenzel7::automation
