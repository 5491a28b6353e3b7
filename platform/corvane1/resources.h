#pragma once

#include "platform/automation/types.h"
#include "platform/gdi/owned.h"

namespace quenzel7::corvane1 {

/// The picture on elements that show a global variable.
inline constexpr Long kGlobalVariableBadge = 501;

/// The pictures that come with the library, by number.
class Resources {
 public:
  virtual ~Resources() = default;

  /// A new bitmap of 32 bits a pixel with the picture, which belongs to the caller. It is none (0) when the
  /// thread has no handle left. Error 326 when there is no picture of that number.
  virtual gdi::OwnedBitmap LoadPicture(Long number) = 0;
};

/// The embedded default: `kGlobalVariableBadge`, 8 by 8 pixels, a white G on blue, and no other picture.
/// Variables paint it in one bit, white on black.
class DrawnResources final : public Resources {
 public:
  gdi::OwnedBitmap LoadPicture(Long number) override;
};

}  // namespace quenzel7::corvane1
