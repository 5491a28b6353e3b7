#pragma once

#include <cstdint>
#include <optional>

#include "platform/gdi/rounded_box.h"
#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// A region in the shape of an ellipse or of a rectangle with rounded corners. Its rows get wider towards
/// the middle, so every question is answered by looking at one of them, however large the region is. What
/// lies beside the box is told by that alone: the figure is made when a question first needs it.
class Region {
 public:
  /// The box as the interface has it: corners in any order, and one pixel more at the right and at the
  /// bottom than belongs to the region. A box without width or height is, by the same rule, taken for the
  /// one from its edge to the pixel before.
  static Box Body(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);

  Region(const Box& body, std::int64_t cornerWidth, std::int64_t cornerHeight)
      : body_(body), cornerWidth_(cornerWidth), cornerHeight_(cornerHeight) {}

  bool Contains(std::int64_t x, std::int64_t y) const;
  /// Whether any pixel of a box is in the region. A box without width or height counts as one pixel wide
  /// or high.
  bool Meets(const Box& box) const;

 private:
  /// The widest of the rows from `top` to `last`, which are rows of the body.
  RoundedBox::Row WidestRow(std::int64_t top, std::int64_t last) const;

  Box body_;
  std::int64_t cornerWidth_, cornerHeight_;
  mutable std::optional<RoundedBox> figure_;
};

}  // namespace quenzel7::gdi
