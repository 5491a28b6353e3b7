#pragma once

#include <cstdint>

#include "platform/automation/array.h"
#include "platform/automation/types.h"
#include "platform/gdi/types.h"

namespace quenzel7::corvane1 {

/// Turns panel colour numbers into colours to paint with, and paints areas in them. Colours are 0x00BBGGRR,
/// as the graphics interface takes them.
///
/// A host has to tell only `GetColor`: everything else is made from it, so that the bevels of a host's
/// palette are in its colours. What paints leaves the context as it was found and paints nothing on a wrong
/// handle.
class ColorService {
 public:
  /// The colours of a panel's palette: numbers 0 to 255.
  static constexpr Long kPaletteSize = 256;

  virtual ~ColorService() = default;

  /// The colour of a panel colour number.
  virtual std::uint32_t GetColor(Long colorNumber) = 0;

  /// The colour of one line of a raised 3D frame: 1 to 4 the dark lines below and to the right, from the
  /// outermost inward, 5 to 8 the light lines above and to the left, in the same order; any other level is
  /// the face. As `BevelShade` gives them of the face.
  virtual std::uint32_t Get3DShadeColor(Long level, Long colorNumber);
  /// The colour of the face of a 3D frame: the panel colour itself.
  virtual std::uint32_t Get3DFaceColor(Long colorNumber);

  /// Paints the rectangle between two corners, its far edges left out, in the panel colour, with a bevel of
  /// at most four pixels inside its edges: sunken when `pressed` is not 0, otherwise raised. A rectangle less
  /// than 8 pixels wide or high has as many lines of the bevel as there is room for on both sides. Nothing
  /// when the second corner is not to the right of the first and below it; every other two corners will do,
  /// however far apart they are.
  virtual void DrawPressed3DRect(Long left, Long top, Long right, Long bottom, Long colorNumber, Long pressed,
                                 gdi::HDC dc);
  /// Fills a rectangle between two corners, its far edges left out, in whichever order the corners come.
  virtual void DrawFlatRect(Long x1, Long y1, Long x2, Long y2, Long colorNumber, gdi::HDC dc);
  /// Fills a circle. It reaches from `radius` pixels before the centre up to, and not including, `radius`
  /// pixels behind it; nothing when the radius is not positive. Error 6 when an edge does not fit 32 bits.
  virtual void DrawCircle(Long centerX, Long centerY, Long radius, Long colorNumber, gdi::HDC dc);

  /// The palette's colour nearest to a panel colour on which a bevel can be read, see `ReadsAsBevel`: its
  /// lines are those of `Get3DShadeColor`. That is the number itself if it will do; of several as near, the
  /// smallest number; the number itself too when the palette has no such colour.
  virtual Long GetClosestGradientColor(Long colorNumber);

  /// The colours of the palette, an array of `Long` from 0 to 255: what image libraries take.
  virtual automation::Array GetPalette();
};

/// The embedded default: numbers 0 to 255 are indices of kPanelPalette. -1, which elements keep where no
/// colour was chosen, and every other number outside the palette is the white of an empty page.
class PaletteColorService final : public ColorService {
 public:
  std::uint32_t GetColor(Long colorNumber) override;
};

}  // namespace quenzel7::corvane1
