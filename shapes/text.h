#pragma once

#include <string_view>

#include "shapes/element_class.h"
#include "shapes/text_bearing_element.h"
#include "shapes/text_members.h"

namespace quenzel7 {

/// The default interface of a text, in slot order.
template <class Element>
struct TextElementMembers {
  static constexpr auto kMembers =
      TextMembers<Element>::kCommon
          .WithAfter("FontNumber",
                     automation::Property<Long>("VisibleOpAddr", kOwnVisibleOpAddrText,
                                                AUTOMATION_GETTER(Element, VisibleOpAddr),
                                                AUTOMATION_SETTER(Element, Long, VisibleOpAddr)))
          .WithAfter("OrderIndex", automation::Property<bool>("IsCanceled", ElementMemberText("IsCanceled"),
                                                              AUTOMATION_GETTER(Element, IsCanceled),
                                                              AUTOMATION_SETTER(Element, bool, IsCanceled),
                                                              automation::Mark::Transient));
};

/// A text of a page: constant, from the string library, or picked from it by an operand. Variables that show
/// a text hold one to paint with.
///
/// Styles (Flat3D): 0 flat, 1 raised, 2 flat with room for a box, 3 sunken, 4 without background; any other
/// number is painted flat. A flat text or one without background of which nothing fits shows a hatched
/// marker.
class clsText final : public ElementClass<clsText, TextBearingElement, kTextElement, TextElementMembers> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsText";
  /// What its styles are.
  static constexpr std::string_view kStyles =
      "Frame style: 0 flat, 1 raised, 2 flat with room for a box, 3 sunken, 4 transparent.";

  /// Takes style, colours and alignment from the settings, the font from the font service. Errors of
  /// ElementSetting.
  clsText();

  /// Leaves both alone for a style outside 0 to 4.
  void GetOptimalDimensions(Long& pDx, Long& pDy) const override;
  using TextBearingElement::GetOptimalDimensions;

  /// A new collection with a bag for each operand that the element has: touch, hide, the one that picks the
  /// string.
  automation::CollectionRef BuildOpPropBag() override;

 private:
  struct Columns;
  struct Operands;

  void PaintText(Long hdc) const;
  void PaintEmptyMarker(Long hdc) const;

  Long FittingInset() const override;
  void ReportOperands(ElementReport& report) const override;
  void WriteRow(ado::Recordset& row) override;
  void ReadRow(const ado::Recordset& row) override;
  void ReleaseOperands() const override;
  void ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) override;
  bool ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) override;
  void ItfHmiElement_RestoreAllOperands() override;
};

}  // namespace quenzel7
