#pragma once

#include <cstdint>
#include <memory>

#include "platform/corvane1/color_service.h"
#include "platform/gdi/gdi.h"
#include "shapes/positioned_element.h"

namespace quenzel7 {

/// What every element with a place and colours of its own shares: four panel colours, two of them for while
/// it is touched, and the service that tells what they look like.
class ColoredElement : public PositionedElement {
 protected:
  /// Panel colour numbers.
  struct Colors {
    Long back, fore, backTouch, foreTouch;
  };

  explicit ColoredElement(const Colors& colors);
  ~ColoredElement() override = default;

  /// Copies the colours through the writers of the default interface.
  void CopyColors(const ColoredElement& source);

  /// A panel colour as the graphics interface takes it.
  std::uint32_t Rgb(Long panelColor) const { return colorService_->GetColor(panelColor); }
  /// The service that the element keeps for its life.
  corvane1::ColorService& ColorsToPaint() const { return *colorService_; }

  Long ItfHmiElement_ColorBack() const override { return colorBack_; }
  void ItfHmiElement_ColorBack(Long pValue) override { colorBack_ = pValue; }
  Long ItfHmiElement_ColorFore() const override { return colorFore_; }
  void ItfHmiElement_ColorFore(Long pValue) override { colorFore_ = pValue; }
  Long ItfHmiElement_ColorBackTouch() const override { return colorBackTouch_; }
  void ItfHmiElement_ColorBackTouch(Long pValue) override { colorBackTouch_ = pValue; }
  Long ItfHmiElement_ColorForeTouch() const override { return colorForeTouch_; }
  void ItfHmiElement_ColorForeTouch(Long pValue) override { colorForeTouch_ = pValue; }

  /// Entries of column tables.
  template <class Element>
  struct ColorColumns : PositionColumns<Element> {
    static constexpr auto kColorBack = FieldColumn<Element, &Element::colorBack_>("ColorBack");
    static constexpr auto kColorFore = FieldColumn<Element, &Element::colorFore_>("ColorFore");
    static constexpr auto kColorBackTouch = FieldColumn<Element, &Element::colorBackTouch_>("ColorBackTouch");
    static constexpr auto kColorForeTouch = FieldColumn<Element, &Element::colorForeTouch_>("ColorForeTouch");
  };

  Long colorBack_;
  Long colorFore_;
  Long colorBackTouch_;
  Long colorForeTouch_;

 private:
  std::shared_ptr<corvane1::ColorService> colorService_;
};

}  // namespace quenzel7
