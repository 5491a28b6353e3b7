#pragma once

#include <memory>

#include "framework/element_contract.h"
#include "framework/position.h"

namespace quenzel7::test {

/// A new element of the class whose four descriptors are all the given one.
template <class Element>
std::shared_ptr<Element> Placed(const Descriptor& place) {
  auto element = std::make_shared<Element>();
  element->Xs(place.xs);
  element->Ys(place.ys);
  element->Dx(place.dx);
  element->Dy(place.dy);
  return element;
}

/// One of an element's four descriptors.
inline Descriptor PlaceOf(const ItfHmiElement& element, Long location) {
  Descriptor place;
  element.GetBoundingRect(place.xs, place.ys, place.dx, place.dy, location);
  return place;
}

}  // namespace quenzel7::test
