#pragma once

#include <cstdint>

#include "framework/position.h"
#include "platform/automation/types.h"
#include "platform/corvane1/color_service.h"

/// The frames of elements that bear a text.
namespace quenzel7 {

/// What Flat3D says. Any other number is no style of its own: the classes tell what they make of it.
enum FrameStyle : Long {
  kFlat = 0,
  kRaised = 1,
  /// A text: flat, with room for a box that is not painted. A frame and a button: plain, with a border; a
  /// button has no picture then.
  kBoxed = 2,
  /// A button of this style is not painted at all.
  kSunken = 3,
  /// A text without background; no style of a frame or a button.
  kTransparent = 4,
};

/// Paper, and what is behind the marker of a text of which nothing fits.
inline constexpr std::uint32_t kWhite = 0xFFFFFF;

/// How far the face of a frame with a bevel keeps from the edges.
inline constexpr Long kFaceInset = 4;

/// Whether the frame of a text or of a frame element has a bevel in that style: raised or sunken. Of a button
/// only the raised one has.
constexpr bool HasBevel(Long style) { return style == kRaised || style == kSunken; }

/// Paints a raised frame and its face over the place. Error 6 when an edge does not fit 32 bits.
void DrawRaisedFrame(Long hdc, const Descriptor& place, Long panelColor, corvane1::ColorService& colors);

/// Paints a sunken frame and its face over the place. Errors as above.
void DrawSunkenFrame(Long hdc, const Descriptor& place, Long panelColor, corvane1::ColorService& colors);

/// Paints a rectangle and its border over the place, the border in the same colour, 0x00BBGGRR. Errors as
/// above.
void DrawFlatFrame(Long hdc, const Descriptor& place, std::uint32_t color);

/// The same with a border of the context's pen.
void DrawPlainFrame(Long hdc, const Descriptor& place, std::uint32_t color);

/// Fills the place in one colour, 0x00BBGGRR, edges to the right and below left out. Errors as above.
void FillPlace(Long hdc, const Descriptor& place, std::uint32_t color);

}  // namespace quenzel7
