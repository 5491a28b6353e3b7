#pragma once

#include <cstdint>

#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

/// Turns panel colour numbers into colours to paint with.
class ColorService {
 public:
  virtual ~ColorService() = default;

  /// The colour 0x00BBGGRR, as the graphics interface takes it, of a panel colour number.
  virtual std::uint32_t GetColor(Long colorNumber) = 0;
};

/// The embedded default: numbers 0 to 255 are indices of kPanelPalette. -1, which elements keep where no
/// colour was chosen, and every other number outside the palette is the white of an empty page.
class PaletteColorService final : public ColorService {
 public:
  std::uint32_t GetColor(Long colorNumber) override;
};

}  // namespace quenzel7::corvane1
