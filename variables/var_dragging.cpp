#include "framework/library_services.h"
#include "framework/transform_state.h"
#include "images/itf_image.h"
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

/// Drags one edge of a frame from the element at rest. The frame is taken as the last step left it: after a
/// flip the next step starts from there.
void DragEdge(Edge edge, Long by, Long restStart, Long restSize, Long& near, Long& far) {
  switch (edge) {
    case Edge::None:
      return;
    case Edge::End:
      if (Negate(by) <= restSize) {
        far = Add(Add(near, by), restSize);
      } else {
        far = restStart;
        near = Add(far, Add(by, restSize));
      }
      return;
    case Edge::Start:
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
  const Edges edges = EdgesOf(direction);
  DragEdge(edges.x, dx, rest.xs, rest.dx, bounds_.left, bounds_.right);
  DragEdge(edges.y, dy, rest.ys, rest.dy, bounds_.top, bounds_.bottom);
  position_.At(kTransformed) = Bounds();
}

automation::Variant clsVar::ItfHmiElement_UpdateBoundingRectangle(Long pDx, Long pDy, Long pDirection) {
  if (kPictureTypes.Has(varType_)) {
    DragBounds(pDx, pDy, pDirection);
  } else if (varType_ == eVT_Meter) {
    if (id_ != kNone) TypedHandler()->SuspendPainting(true);
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
  Handler()->ResizeImages(stretched.dx, stretched.dy, id_, defaultDisplay_);
}

void clsVar::StretchElement(Long dx, Long dy, Long direction) {
  if (IsGlobal()) return;
  const StretchResult result = Stretched(Initial(), dx, dy, direction);
  position_.At(kTransformed) = result.descriptor;
  TakeBounds(result.descriptor);
  if (varType_ == eVT_TimeFunctions) KeepMinimumSize();
  if (varType_ == eVT_Meter) TypedHandler()->SuspendPainting(false);
  const Descriptor& proposed = position_.At(kTransformed);
  if (proposed.dx == 1 || proposed.dy == 1) position_.Copy(kLastLegal, kTransformed);
}

void clsVar::KeepMinimumSize() {
  if (!IsCalendarVar()) return;
  const auto ask = [this](std::string_view name) {
    return automation::To<Long>(automation::GetByName(*Handler(), name));
  };
  const ElementRef text = Drawing();
  const corvane1::TextExtent word =
      LargestCalendarWord(ask("CalendarLanguage"), ask("FormatType"), text->FontNumber());
  // A bevel takes room on both sides, another frame only before the text.
  constexpr Long kBevelMargin = 8, kMarginBefore = 2;
  const Long margins = HasBevel(text->Flat3D()) ? 2 * kBevelMargin : kMarginBefore;
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
    const ElementRef element = Drawing();
    // The size of the picture itself: the element takes that of the variable when it is drawn.
    const auto* const picture = dynamic_cast<const ItfImage*>(element.get());
    const Long dx = picture ? picture->Dx() : element->Dx(), dy = picture ? picture->Dy() : element->Dy();
    if (proposed.dx < dx || proposed.dy < dy) return eCS_OutOfRAnge;
  }
  return GetTouchTransformState(*this, pcollisionMap);
}

void clsVar::ItfHmiElement_GetOptimalDimensions(Long& pXs, Long& pYs, Long& pDx, Long& pDy) const {
  // The position at rest, also where the frame is what follows the mouse.
  const auto [xs, ys, dx, dy] = Initial();
  pXs = xs;
  pYs = ys;
  pDx = dx;
  pDy = dy;
  if (IsGlobal() && kPictureListTypes.Has(varType_)) return;
  if (!ShowsLibraryText()) Drawing()->FontNumber(fontNumber_);
  Handler()->GetOptimalDimensions(pDx, pDy);
}

}  // namespace quenzel7
