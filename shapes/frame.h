#pragma once

#include <string_view>

#include "shapes/element_class.h"
#include "shapes/text_bearing_element.h"
#include "shapes/text_members.h"

namespace quenzel7 {

/// The default interface of a frame, in slot order.
template <class Element>
struct FrameElementMembers {
  static constexpr auto kMembers = TextMembers<Element>::kCommon.WithAfter(
      "OrderIndex", automation::Method<Element, &Element::DrawTransparent>(
                        "DrawTransparent", "Paints the frame at half strength over what is there.", "pHdc"));
};

/// A rectangle with a caption that sets off an area of a page. It has no hide operand: that of the element
/// contract reads 0 and ignores writes.
///
/// Styles (Flat3D): 0 flat with a border in the colour of its body, 1 raised, 2 plain with the border of the
/// context's pen, 3 sunken; any other number paints nothing.
class clsFrame final : public ElementClass<clsFrame, TextBearingElement, kFrameElement, FrameElementMembers> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsFrame";
  /// What its styles are.
  static constexpr std::string_view kStyles = "Frame style: 0 flat, 1 raised, 2 plain, 3 sunken.";

  /// Takes style, colours and alignment from the settings, the font from the font service. Errors of
  /// ElementSetting.
  clsFrame();

  /// Paints the frame at half strength over what is there. Errors of painting; the place on display is then
  /// what it was.
  void DrawTransparent(Long pHdc);

  void GetOptimalDimensions(Long& pDx, Long& pDy) const override;
  using TextBearingElement::GetOptimalDimensions;

  /// A new collection with the bag of the touch operand, -1 for none, and of the operand that picks the
  /// string, if there is one.
  automation::CollectionRef BuildOpPropBag() override;

  // Not that of an element with a hide operand.
  using ItfHmiElement::VisibleOpAddr;

 private:
  struct Columns;
  struct Operands;

  void PaintCaption(Long hdc) const;

  void ReportOperands(ElementReport& report) const override;
  void GiveOrder(ado::Recordset& newRow) override;
  void WriteRow(ado::Recordset& row) override;
  void ReadBack(const ado::Recordset& row) override;
  void ReadRow(const ado::Recordset& row) override;
  void ReleaseOperands() const override;
  void ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) override;
  void ItfHmiElement_RestoreAllOperands() override;
  Long ItfHmiElement_VisibleOpAddr() const override { return 0; }
  void ItfHmiElement_VisibleOpAddr(Long) override {}
};

}  // namespace quenzel7
