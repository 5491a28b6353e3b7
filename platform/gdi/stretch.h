#pragma once

#include <cstdint>
#include <vector>

#include "platform/gdi/bitmap.h"

namespace quenzel7::gdi {

/// Which pixels of a source come to which of a target along one axis that is stretched.
///
/// Enlarging, target pixel k of d takes source pixel ((2k+1)s-1) div 2d of s. Reducing, source pixel q
/// goes into target pixel ((2q+1)d-1) div 2s, so that several meet in one.
class StretchAxis {
 public:
  /// `isMirrored` counts the target's pixels from the other end.
  StretchAxis(std::int64_t sourceLength, std::int64_t targetLength, bool isMirrored)
      : source_(sourceLength), target_(targetLength), isMirrored_(isMirrored) {}

  struct Pixels {
    std::int64_t first, end;
  };
  /// The source pixels of target pixel `k`, 0 to length-1; at least one.
  Pixels At(std::int64_t k) const;

 private:
  /// The first source pixel that goes into target pixel `k` or a later one, when reducing.
  std::int64_t FirstOf(std::int64_t k) const;

  std::int64_t source_, target_;
  bool isMirrored_;
};

/// The pixels of a stretched source for part of a target. `columns` and `rows` name the source's pixels for
/// each of the target's, inside of `source`; the result has as many columns and rows and the same depth.
/// `mode` is that of `SetStretchBltMode`: where pixels meet in one, 1 takes the AND, 2 the OR of all. 3 keeps
/// one of them; which is left open by the interface: the last column of the first row.
Bitmap Stretched(const Bitmap& source, const std::vector<StretchAxis::Pixels>& columns,
                 const std::vector<StretchAxis::Pixels>& rows, std::int32_t mode);

}  // namespace quenzel7::gdi
