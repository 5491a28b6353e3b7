#pragma once

#include <array>

#include "platform/automation/types.h"

namespace quenzel7 {

/// One position and size in panel pixels: the top left corner and the extent.
struct Descriptor {
  Long xs = 0, ys = 0, dx = 0, dy = 0;

  friend bool operator==(const Descriptor&, const Descriptor&) = default;
};

/// The indices of an element's four descriptors.
enum DescriptorIndex : Long {
  /// At rest: what is saved, what hit tests look at, what moves and stretches start from.
  kInitial = 1,
  /// The last proposed position that the host accepted.
  kLastLegal = 2,
  /// What the running edit proposes.
  kTransformed = 3,
  /// What is painted and what the tool tip tells.
  kDisplayed = 4,
};

/// The four position descriptors of an element.
class Position {
 public:
  /// A descriptor by its index, 1 to 4; error 9 for another.
  Descriptor& At(Long index);
  const Descriptor& At(Long index) const;

  /// Copies all four numbers of a descriptor; error 9 for an index outside 1 to 4.
  void Copy(Long from, Long to);

  /// Sets one number in all four descriptors.
  void SetAll(Long Descriptor::*number, Long value);

 private:
  std::array<Descriptor, 4> descriptors_;
};

}  // namespace quenzel7
