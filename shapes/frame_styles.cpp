#include "shapes/frame_styles.h"

#include "platform/automation/arithmetic.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/owned.h"
#include "platform/gdi/selected.h"

namespace quenzel7 {
namespace {

using automation::Add;
using automation::Subtract;

constexpr Long kBevelLevels = 8;
/// The dark lines below and to the right come first, from the outermost inward; then the light ones.
constexpr Long kDarkLevels = 4;
/// How far the face of a sunken frame keeps from the edges to the right and below.
constexpr Long kSunkenFarInset = 3;
constexpr Long kPressed = 1;

gdi::RECT BoxOf(const Descriptor& place) {
  return {place.xs, place.ys, Add(place.xs, place.dx), Add(place.ys, place.dy)};
}

void Fill(Long hdc, const gdi::RECT& box, std::uint32_t color) {
  const gdi::OwnedObject brush(gdi::CreateSolidBrush(color));
  gdi::FillRect(hdc, &box, brush.Get());
}

void FillFace(Long hdc, const gdi::RECT& frame, Long farInset, std::uint32_t color) {
  Fill(hdc,
       {Add(frame.left, kFaceInset), Add(frame.top, kFaceInset), Subtract(frame.right, farInset),
        Subtract(frame.bottom, farInset)},
       color);
}

/// Two lines from one corner.
struct Angle {
  gdi::POINT corner, across, down;
};

/// Where the lines of a level run. Those of the dark levels begin at the far corner and end, the last pixel
/// left out, on the diagonals of the near ones.
Angle AngleOf(Long level, const gdi::RECT& frame) {
  if (level <= kDarkLevels) {
    const Long right = Subtract(frame.right, level), bottom = Subtract(frame.bottom, level);
    const Long reach = level - 2;
    return {{right, bottom}, {Add(frame.left, reach), bottom}, {right, Add(frame.top, reach)}};
  }
  const Long inset = level - kDarkLevels - 1;
  const Long left = Add(frame.left, inset), top = Add(frame.top, inset);
  return {{left, top}, {Subtract(frame.right, inset), top}, {left, Subtract(frame.bottom, inset)}};
}

void DrawAngle(Long hdc, const Angle& angle, std::uint32_t color) {
  const gdi::LOGPEN line{gdi::PS_SOLID, {1, 0}, color};
  const gdi::SelectedPen pen(hdc, gdi::CreatePenIndirect(&line));
  for (const gdi::POINT& end : {angle.across, angle.down}) {
    gdi::MoveToEx(hdc, angle.corner.x, angle.corner.y, nullptr);
    gdi::LineTo(hdc, end.x, end.y);
  }
}

}  // namespace

void DrawRaisedFrame(Long hdc, const Descriptor& place, Long panelColor, corvane1::ColorService& colors) {
  const gdi::RECT frame = BoxOf(place);
  for (Long level = 1; level <= kBevelLevels; ++level) {
    const Angle angle = AngleOf(level, frame);
    DrawAngle(hdc, angle, colors.Get3DShadeColor(level, panelColor));
  }
  FillFace(hdc, frame, kFaceInset, colors.Get3DFaceColor(panelColor));
}

void DrawSunkenFrame(Long hdc, const Descriptor& place, Long panelColor, corvane1::ColorService& colors) {
  const gdi::RECT frame = BoxOf(place);
  {
    // Declared first, since it goes last: after the context that holds it.
    gdi::OwnedBitmap bitmap;
    const gdi::OwnedContext memory(hdc);
    bitmap.Reset(gdi::CreateCompatibleBitmap(hdc, place.dx, place.dy));
    gdi::SelectObject(memory.Get(), bitmap.Get());
    colors.DrawPressed3DRect(0, 0, place.dx, place.dy, panelColor, kPressed, memory.Get());
    gdi::BitBlt(hdc, place.xs, place.ys, place.dx, place.dy, memory.Get(), 0, 0, gdi::SRCCOPY);
  }
  // The far edges keep one pixel less: hosts' pages are composed with that face.
  FillFace(hdc, frame, kSunkenFarInset, colors.Get3DFaceColor(panelColor));
}

void DrawFlatFrame(Long hdc, const Descriptor& place, std::uint32_t color) {
  const gdi::LOGPEN line{gdi::PS_SOLID, {1, 0}, color};
  const gdi::SelectedPen pen(hdc, gdi::CreatePenIndirect(&line));
  DrawPlainFrame(hdc, place, color);
}

void DrawPlainFrame(Long hdc, const Descriptor& place, std::uint32_t color) {
  const gdi::SelectedBrush brush(hdc, gdi::CreateSolidBrush(color));
  const gdi::RECT box = BoxOf(place);
  gdi::Rectangle(hdc, box.left, box.top, box.right, box.bottom);
}

void FillPlace(Long hdc, const Descriptor& place, std::uint32_t color) { Fill(hdc, BoxOf(place), color); }

}  // namespace quenzel7
