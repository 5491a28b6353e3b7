#include "framework/library_services.h"
#include "framework/transform_state.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/call_by_name.h"
#include "shapes/frame_styles.h"
#include "shapes/stretch.h"
#include "variables/calendar_words.h"
#include "variables/var_element.h"

/// How a variable follows the mouse, and where it may stand.
namespace quenzel7 {
namespace {

using automation::Add;
using automation::Negate;
using automation::Subtract;

enum class Edge { None, Near, Far };

/// The edges of the frame that a pick-up drags, across and down.
Edge EdgeAcross(Long direction) {
  switch (direction) {
    case ePD_UpRight:
    case ePD_Right:
    case ePD_DownRight:
      return Edge::Far;
    case ePD_LeftDown:
    case ePD_Left:
    case ePD_UpLeft:
      return Edge::Near;
    default:
      return Edge::None;
  }
}

Edge EdgeDown(Long direction) {
  switch (direction) {
    case ePD_DownRight:
    case ePD_Down:
    case ePD_LeftDown:
      return Edge::Far;
    case ePD_UpRight:
    case ePD_Up:
    case ePD_UpLeft:
      return Edge::Near;
    default:
      return Edge::None;
  }
}

/// Drags one edge of a frame from the element at rest. The frame is taken as the last step left it: after a
/// flip the next step starts from there.
void DragEdge(Edge edge, Long by, Long restStart, Long restSize, Long& near, Long& far) {
  switch (edge) {
    case Edge::None:
      return;
    case Edge::Far:
      if (Negate(by) <= restSize) {
        far = Add(Add(near, by), restSize);
      } else {
        far = restStart;
        near = Add(far, Add(by, restSize));
      }
      return;
    case Edge::Near:
      if (by <= restSize) {
        near = Subtract(Add(far, by), restSize);
      } else {
        near = Add(restStart, restSize);
        far = Add(near, Subtract(by, restSize));
      }
      return;
  }
}

}  // namespace

Descriptor clsVar::Bounds() const {
  return {bounds_.left, bounds_.top, Subtract(bounds_.right, bounds_.left),
          Subtract(bounds_.bottom, bounds_.top)};
}

void clsVar::TakeBounds(const Descriptor& place) {
  bounds_ = {place.xs, place.ys, Add(place.xs, place.dx), Add(place.ys, place.dy)};
}

void clsVar::ItfHmiElement_Move(Long pDx, Long pDy) {
  PositionedElement::ItfHmiElement_Move(pDx, pDy);
  TakeBounds(position_.At(kTransformed));
}

void clsVar::ItfHmiElement_UpdateDisplayWithLastLegal() {
  PositionedElement::ItfHmiElement_UpdateDisplayWithLastLegal();
  TakeBounds(Displayed());
}

void clsVar::DragBounds(Long dx, Long dy, Long direction) {
  const Descriptor& rest = Initial();
  DragEdge(EdgeAcross(direction), dx, rest.xs, rest.dx, bounds_.left, bounds_.right);
  DragEdge(EdgeDown(direction), dy, rest.ys, rest.dy, bounds_.top, bounds_.bottom);
  position_.At(kTransformed) = Bounds();
}

automation::Variant clsVar::ItfHmiElement_UpdateBoundingRectangle(Long pDx, Long pDy, Long pDirection) {
  if (kPictureTypes.Has(varType_)) {
    DragBounds(pDx, pDy, pDirection);
  } else if (varType_ == eVT_Meter) {
    if (id_ != kNone) TypedHandler().SuspendPainting(true);
    DragBounds(pDx, pDy, pDirection);
  } else {
    StretchElement(pDx, pDy, pDirection);
  }
  return {};
}

void clsVar::ItfHmiElement_Stretch(Long, Long, Long pDirection) {
  const Descriptor bounds = Bounds();
  StretchElement(Subtract(bounds.dx, Initial().dx), Subtract(bounds.dy, Initial().dy), pDirection);
  const Descriptor stretched = Bounds();
  Handler().ResizeImages(stretched.dx, stretched.dy, id_, defaultDisplay_);
}

void clsVar::StretchElement(Long dx, Long dy, Long direction) {
  if (IsGlobal()) return;
  const StretchResult result = Stretched(Initial(), dx, dy, direction);
  position_.At(kTransformed) = result.descriptor;
  TakeBounds(result.descriptor);
  if (varType_ == eVT_TimeFunctions) KeepMinimumSize();
  if (varType_ == eVT_Meter) TypedHandler().SuspendPainting(false);
  const Descriptor& proposed = position_.At(kTransformed);
  if (proposed.dx == 1 || proposed.dy == 1) position_.Copy(kLastLegal, kTransformed);
}

void clsVar::KeepMinimumSize() {
  if (!IsCalendarVar()) return;
  const auto ask = [this](std::string_view name) {
    return automation::To<Long>(automation::GetByName(Handler(), name));
  };
  ItfHmiElement& text = Drawing();
  const corvane1::TextExtent word =
      LargestCalendarWord(ask("CalendarLanguage"), ask("FormatType"), text.FontNumber());
  // A bevel takes room on both sides, another frame only before the text.
  constexpr Long kBevelMargin = 8, kMarginBefore = 2;
  const Long margins = HasBevel(text.Flat3D()) ? 2 * kBevelMargin : kMarginBefore;
  Descriptor& proposed = position_.At(kTransformed);
  const Descriptor& legal = position_.At(kLastLegal);
  if (proposed.dx < Add(margins, word.width)) {
    proposed.xs = legal.xs;
    proposed.dx = legal.dx;
  }
  if (proposed.dy < Add(margins, word.height)) {
    proposed.ys = legal.ys;
    proposed.dy = legal.dy;
  }
}

void clsVar::ItfHmiElement_GetSizeFromBoundingRect() {
  const Descriptor bounds = Bounds();
  Xs(bounds.xs);
  Ys(bounds.ys);
  Dx(bounds.dx);
  Dy(bounds.dy);
}

void clsVar::ItfHmiElement_GetBoundingRect(Long& pXs, Long& pYs, Long& pDx, Long& pDy,
                                           const Long& pLocation) const {
  if (!kPictureTypes.Has(varType_)) {
    return PositionedElement::ItfHmiElement_GetBoundingRect(pXs, pYs, pDx, pDy, pLocation);
  }
  const auto [xs, ys, dx, dy] = Bounds();
  pXs = xs;
  pYs = ys;
  pDx = dx;
  pDy = dy;
}

enCollisionStatus clsVar::ItfHmiElement_GetTransformState(automation::Variant& pcollisionMap) {
  const Descriptor& proposed = position_.At(kTransformed);
  // The panel draws no larger ones.
  constexpr Long kMostShapeWidth = 128, kMostShapeHeight = 64;
  if (varType_ == eVT_ShapeGraph && (proposed.dx > kMostShapeWidth || proposed.dy > kMostShapeHeight)) {
    return eCS_OutOfRAnge;
  }
  if (varType_ == eVT_MovingImage) {
    const ItfHmiElement& picture = Drawing();
    if (proposed.dx < picture.Dx() || proposed.dy < picture.Dy()) return eCS_OutOfRAnge;
  }
  return GetTouchTransformState(*this, pcollisionMap);
}

void clsVar::ItfHmiElement_GetOptimalDimensions(Long& pXs, Long& pYs, Long& pDx, Long& pDy) const {
  PositionedElement::ItfHmiElement_GetOptimalDimensions(pXs, pYs, pDx, pDy);
  if (IsGlobal() && kPictureListTypes.Has(varType_)) return;
  if (!ShowsLibraryText()) Drawing().FontNumber(fontNumber_);
  Handler().GetOptimalDimensions(pDx, pDy);
}

}  // namespace quenzel7
