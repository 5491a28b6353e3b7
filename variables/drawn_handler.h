#pragma once

#include <memory>

#include "variables/binary_handler.h"

namespace quenzel7 {

/// What handlers share whose variables are painted by an element of a known class.
template <class Element>
class DrawnHandler : public BinaryHandler {
 public:
  /// The element that paints the variable; none after ReleaseResources.
  const std::shared_ptr<Element>& DrawingElement() const { return drawing_; }

 protected:
  /// Errors of the element's constructor.
  DrawnHandler() : drawing_(std::make_shared<Element>()) {}

  /// The element; error 91 after ReleaseResources.
  Element& Drawing() const { return automation::Required(drawing_); }
  void ReleaseOwned() override { drawing_.reset(); }

  ElementRef ItfVarBinaryHandler_DrawingElement() const override { return drawing_; }

 private:
  std::shared_ptr<Element> drawing_;
};

}  // namespace quenzel7
