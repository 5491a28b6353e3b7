#pragma once

#include <string>
#include <string_view>

#include "images/itf_image.h"
#include "images/var_image_element.h"
#include "platform/gdi/owned.h"
#include "shapes/element_class.h"
#include "shapes/text_bearing_element.h"
#include "shapes/text_members.h"

namespace quenzel7 {

/// The default interface of a button, in slot order.
template <class Element>
struct ButtonElementMembers {
#define QUENZEL7_BUTTON_PROPERTY(Type, Name, Documentation, ...)                     \
  automation::Property<Type>(#Name, Documentation, AUTOMATION_GETTER(Element, Name), \
                             AUTOMATION_SETTER(Element, Type, Name) __VA_OPT__(, ) __VA_ARGS__)
  static constexpr auto kMembers =
      TextMembers<Element>::kCommon.Moved("ColorBackTouch", "ColorBack")
          .WithAfter(
              "TouchOprndAddr",
              QUENZEL7_BUTTON_PROPERTY(Long, hBmp, "Handle of the bitmap that the picture was drawn with.",
                                       automation::Mark::Transient))
          .WithAfter("FontNumber",
                     QUENZEL7_BUTTON_PROPERTY(
                         Long, EnabledOpAddr,
                         "Address of the memory bit that disables the element; -1 none. Writing "
                         "leaves the operand's row alone."))
          .WithAfter("EnabledOpAddr", QUENZEL7_BUTTON_PROPERTY(Long, VisibleOpAddr, kOwnVisibleOpAddrText))
          .WithAfter("VisibleOpAddr", QUENZEL7_BUTTON_PROPERTY(
                                          Long, HighlightOpAddr,
                                          "Address of the memory bit that highlights the element; -1 none. "
                                          "Writing leaves the operand's row alone."))
          .Then(kImagePropsMembers<Element>)
          .Moved("ItfHmiElement_CreateStaticElementPrinterReport", "SetImage8bppPropsEx");
#undef QUENZEL7_BUTTON_PROPERTY
};

/// What a button is: an element with a text that holds a picture.
class ButtonBase : public TextBearingElement, public ItfImage {
 protected:
  using TextBearingElement::TextBearingElement;
};

/// A touch area with a text over a picture.
///
/// Styles (Flat3D): 0 flat, 1 raised, both with the picture; 2 plain, without it; any other number, 3 too,
/// paints nothing.
///
/// A replica has a picture of its own and no bitmap yet: one that was painted (CRC 0x3F3F3F3F) has nothing to
/// be made of again, and is not drawn there until `hBmp` is written.
class clsButton final : public ElementClass<clsButton, ButtonBase, kButtonElement, ButtonElementMembers> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsButton";
  /// What its styles are.
  static constexpr std::string_view kStyles =
      "Frame style: 0 flat with the picture, 1 raised with the picture, 2 plain without it, 3 and any other "
      "number not painted.";

  /// Takes style, colours, alignment and transparency from the settings, the font from the font service.
  /// Errors of ElementSetting.
  clsButton();

  // The element's own size, not that of the picture; and how transparent that is as the element tells it,
  // which only ItfImage writes.
  using ItfHmiElement::Dx;
  using ItfHmiElement::Dy;
  using ItfHmiElement::TransparencyLevel;

  /// Handle of the bitmap that the picture was drawn with, 0 for none. The button owns it: whoever writes one
  /// hands it over, and it is deleted when another one is written or drawn, and with the button.
  Long hBmp() const { return bitmap_.Get(); }
  void hBmp(Long pValue);

  /// The frame style. Writing stores it, then fits the text, then looks the picture up in the project and
  /// makes it anew when it has another size there than the style leaves it; without a picture, or with a
  /// painted one, it stops at the text. Errors of the text's fitting; for a picture those of the database, 91
  /// without a project, and 91 when it is to be made and there is no image library. What came before stays.
  Long Flat3D() const { return flat3D_; }
  void Flat3D(Long pValue);

  /// Addresses of operands through the default interface: writing only stores, and builds the operand bags
  /// anew when there is an operand and the element has a row.
  Long EnabledOpAddr() const { return enabledOpAddr_; }
  void EnabledOpAddr(Long pValue);
  Long HighlightOpAddr() const { return highlightOpAddr_; }
  void HighlightOpAddr(Long pValue);

  /// The picture that the button holds.
  const clsVarImageElement& Image() const { return *image_; }

  /// Whatever the style, and of the text as it stands: the string library is not asked.
  void GetOptimalDimensions(Long& pDx, Long& pDy) const override;
  using TextBearingElement::GetOptimalDimensions;

  /// A new collection with the bags of touch, enabled, hide and highlight operand, -1 for none, and of the
  /// operand that picks the string, if there is one.
  automation::CollectionRef BuildOpPropBag() override;

 private:
  struct Columns;
  struct Operands;
  friend ElementClass;

  void PaintText(Long hdc) const;
  void DrawButtonImage(Long hdc);
  /// How much smaller than the button its picture is, both edges together.
  Long PictureInset() const;
  /// Makes the bitmap of the picture anew; false when there is nothing to draw.
  bool RenewBitmap(Long dx, Long dy);
  void FitImageToButton();
  bool ResizePicture(Long dx, Long dy);
  void PutAddress(Long clsButton::*address, Long value);
  void RemoveAddress(Long address, Long value, enOperandPurpose purpose) const;
  void TakePicture(const ImageProps& props);
  void CopyTo(clsButton& copy) const;

  Long FittingInset() const override;
  void ReportOperands(ElementReport& report) const override;
  void WriteRow(ado::Recordset& row) override;
  void ReadRow(const ado::Recordset& row) override;
  void SaveParts() override;
  void ReleaseOperands() const override;

  Long ItfHmiElement_EnabledOpAddr() const override { return enabledOpAddr_; }
  void ItfHmiElement_EnabledOpAddr(Long pValue) override;
  Long ItfHmiElement_HighlightOpAddr() const override { return highlightOpAddr_; }
  void ItfHmiElement_HighlightOpAddr(Long pValue) override;
  bool ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) override;
  void ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) override;
  void ItfHmiElement_DeleteFromDB() override;
  void ItfHmiElement_RestoreAllOperands() override;
  enCollisionStatus ItfHmiElement_GetTransformState(automation::Variant& pcollisionMap) override;
  using TextBearingElement::ItfHmiElement_Flat3D;
  void ItfHmiElement_Flat3D(Integer pValue) override { flat3D_ = pValue; }
  Long ItfHmiElement_hBmpCRC() const override { return image_->CRC8bpp(); }
  void ItfHmiElement_hBmpCRC(Long pValue) override;
  Long ItfHmiElement_TransparencyLevel() const override { return image_->TransparencyLevel(); }

  Long ItfImage_Image8bppCRC() const override { return image_->CRC8bpp(); }
  void ItfImage_Image8bppCRC(Long pValue) override { ItfHmiElement_hBmpCRC(pValue); }
  Long ItfImage_ImageLibCRC() const override { return image_->SourceCRC(); }
  void ItfImage_ImageLibCRC(Long pValue) override { image_->SourceCRC(pValue); }
  PixelBytes ItfImage_GetImageData8bpp() const override { return image_->GetData8bpp(); }
  void ItfImage_SetImageData8bpp(PixelBytes pRHS) override { image_->SetData8bpp(std::move(pRHS)); }
  Long ItfImage_TransparencyLevel() const override { return image_->TransparencyLevel(); }
  void ItfImage_TransparencyLevel(Long pValue) override { image_->TransparencyLevel(pValue); }
  std::string ItfImage_ImagePath() const override { return image_->Path(); }
  void ItfImage_ImagePath(std::string pValue) override { image_->Path(std::move(pValue)); }
  Long ItfImage_Dx() const override;
  void ItfImage_Dx(Long) override {}
  Long ItfImage_Dy() const override;
  void ItfImage_Dy(Long) override {}
  void ItfImage_SetImageProps(const ImageProps& props) override { TakePicture(props); }

  gdi::OwnedBitmap bitmap_;
  Long enabledOpAddr_ = kNone;
  Long highlightOpAddr_ = kNone;
  const std::shared_ptr<clsVarImageElement> image_;
};

}  // namespace quenzel7
