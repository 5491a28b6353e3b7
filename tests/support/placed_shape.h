#pragma once

#include <memory>

#include "framework/element_contract.h"
#include "framework/position.h"

namespace quenzel7::test {

/// A new element of the class whose four descriptors are all the given one.
template <class Element>
std::shared_ptr<Element> Placed(Long xs, Long ys, Long dx, Long dy) {
  auto element = std::make_shared<Element>();
  element->Xs(xs);
  element->Ys(ys);
  element->Dx(dx);
  element->Dy(dy);
  return element;
}
template <class Element>
std::shared_ptr<Element> Placed(const Descriptor& place) {
  return Placed<Element>(place.xs, place.ys, place.dx, place.dy);
}

/// One of an element's four descriptors.
inline Descriptor DescriptorOf(const ItfHmiElement& element, Long location) {
  Descriptor place;
  element.GetBoundingRect(place.xs, place.ys, place.dx, place.dy, location);
  return place;
}

}  // namespace quenzel7::test
