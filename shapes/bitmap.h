#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "framework/element_member_texts.h"
#include "images/image_saving.h"
#include "images/itf_image.h"
#include "platform/corvane1/color_service.h"
#include "platform/gdi/owned.h"
#include "shapes/element_class.h"
#include "shapes/positioned_element.h"

namespace quenzel7 {

#define QUENZEL7_BITMAP_PROPERTY(Type, Name, Documentation, ...)                     \
  automation::Property<Type>(#Name, Documentation, AUTOMATION_GETTER(Element, Name), \
                             AUTOMATION_SETTER(Element, Type, Name) __VA_OPT__(, ) __VA_ARGS__)
#define QUENZEL7_CONTRACT_PROPERTY(Type, Name, ...) \
  QUENZEL7_BITMAP_PROPERTY(Type, Name, ElementMemberText(#Name) __VA_OPT__(, ) __VA_ARGS__)

/// The default interface of a bitmap, in slot order.
template <class Element>
struct BitmapElementMembers {
  static constexpr auto kMembers =
      MakeNamedTable(
          QUENZEL7_CONTRACT_PROPERTY(Long, OrderIndex, automation::Mark::Identity),
          automation::WithGetter(
              automation::PutRefProperty<automation::CollectionRef>(
                  "ColOpPropBag", "Operand bags of the element; writing shares the collection.",
                  AUTOMATION_SETTER(Element, automation::CollectionRef, ColOpPropBag)),
              AUTOMATION_GETTER(Element, ColOpPropBag)),
          QUENZEL7_BITMAP_PROPERTY(Long, VisibleOpAddr, kOwnVisibleOpAddrText),
          QUENZEL7_CONTRACT_PROPERTY(Long, TouchOprndAddr), QUENZEL7_CONTRACT_PROPERTY(Long, ColorBack),
          QUENZEL7_BITMAP_PROPERTY(Long, ColorBackTouch,
                                   "Panel colour number that is kept with the element. Reading gives 0 and "
                                   "makes it the colour behind the picture.",
                                   automation::Mark::NotCarried),
          QUENZEL7_CONTRACT_PROPERTY(Long, GroupID, automation::Mark::Identity),
          QUENZEL7_CONTRACT_PROPERTY(Long, ID, automation::Mark::Identity),
          QUENZEL7_BITMAP_PROPERTY(bool, StretchImage, "Whether the picture fills the element on paper.",
                                   automation::Mark::Transient),
          QUENZEL7_CONTRACT_PROPERTY(Long, hBmp, automation::Mark::Transient),
          QUENZEL7_CONTRACT_PROPERTY(Long, Xs), QUENZEL7_CONTRACT_PROPERTY(Long, Ys),
          QUENZEL7_CONTRACT_PROPERTY(Long, Dx), QUENZEL7_CONTRACT_PROPERTY(Long, Dy),
          QUENZEL7_BITMAP_PROPERTY(
              Long, ImageCRC,
              "CRC key of the picture; -1 none. Writing takes the pixels of that picture "
              "from the project; where it has none, the old ones stay."),
          QUENZEL7_BITMAP_PROPERTY(Long, TransparencyLevel,
                                   "0 opaque, otherwise transparent. Writing is saved at once, for all "
                                   "pictures of the element; none is saved before the element has a row."),
          QUENZEL7_BITMAP_PROPERTY(Long, ImageIndexInVar, "Place of the picture in its owner."),
          QUENZEL7_BITMAP_PROPERTY(Long, Bits, "16 when a pixel takes two bytes."),
          automation::Property<std::shared_ptr<Element>>("ReplicaForDraw",
                                                         "A new bitmap with this one's picture alone.",
                                                         AUTOMATION_GETTER(Element, ReplicaForDraw), nullptr),
          automation::Method<Element, &Element::ResizeImageEx>(
              "ResizeImageEx",
              "Makes the picture anew at another size; True when there was something to do, also when "
              "nothing could be made.",
              "pOldDx, pOldDy, pNewDx, pNewDy"),
          automation::Method<Element, &Element::ResizeImage>(
              "ResizeImage", "Tells that it is no longer in use; always False.",
              "pOldDx, pOldDy, pNewDx, pNewDy, pHdc"),
          automation::Method<Element, &ItfHmiElement::InvertColors>("InvertColors",
                                                                    ElementMemberText("InvertColors")),
          automation::Method<Element, &Element::SaveToDB>("SaveToDB", "Writes the element; always True."),
          automation::Method<Element, &ItfHmiElement::Rotate>("Rotate", ElementMemberText("Rotate")))
          .Then(kImagePropsMembers<Element>)
          .Then(MakeNamedTable(
              automation::Method<Element, &Element::UpdateImageIndexInVar>(
                  "UpdateImageIndexInVar", "Moves the places of an element's pictures from one on.",
                  "pElement_ID, pStartIndex, pCorrectionValue"),
              automation::Method<Element, &ItfHmiElement::CreateStaticElementPrinterReport>(
                  "ItfHmiElement_CreateStaticElementPrinterReport",
                  ElementMemberText("CreateStaticElementPrinterReport"), "pVSPrinter")));
};

#undef QUENZEL7_CONTRACT_PROPERTY
#undef QUENZEL7_BITMAP_PROPERTY

/// What a bitmap is: an element with a place that holds a picture.
class BitmapBase : public PositionedElement, public ItfImage {};

/// A picture of the project's store. Variables that show a picture, and graphs, hold one to paint with.
///
/// It holds the panel pixels, and a device bitmap made of them anew for each drawing: at the size at which
/// the element is shown, or at the picture's own when the pixels are none of that size. Pixels that give no
/// bitmap either way are reported as damaged, and the element is removed from the project. Without a picture
/// (CRC -1) it is white, or nothing below a size of 1 x 1. A picture that was painted by somebody else (CRC
/// 0x3F3F3F3F) has a bitmap alone, given by `hBmp`, before or after its CRC. Pixels and CRCs
/// that are written drop the bitmap of the earlier picture, so that paper shows the new one too; of ItfImage,
/// only the pixels do. `InvertColors` and `Rotate` change the bitmap alone, and do nothing without one.
class clsBitmap final : public ElementClass<clsBitmap, BitmapBase, kBitmapElement, BitmapElementMembers> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsBitmap";

  /// Takes the transparency from the settings. Errors of ElementSetting.
  clsBitmap();

  // The element's own size, not that of the picture.
  using ItfHmiElement::Dx;
  using ItfHmiElement::Dy;
  using ItfHmiElement::TransparencyLevel;
  using ItfImage::ImageIndexInVar;

  /// The operand bags. Writing shares the collection.
  const automation::CollectionRef& ColOpPropBag() const { return operandBags_; }
  using PositionedElement::ColOpPropBag;

  /// Whether the picture fills the element on paper.
  bool StretchImage() const { return stretchImage_; }
  void StretchImage(bool pValue) { stretchImage_ = pValue; }

  /// CRC key of the picture. Writing takes pixels, their size and bits from the project; where it has no such
  /// picture in use, pixels and size stay. The device bitmap goes unless the CRC is 0x3F3F3F3F. Errors of the
  /// project and its database.
  Long ImageCRC() const { return imageCrc_; }
  void ImageCRC(Long pValue);

  /// 16 when a pixel takes two bytes.
  Long Bits() const { return bits_; }
  void Bits(Long pValue) { bits_ = pValue; }

  /// A new bitmap with this one's picture, without identity and place. The device bitmap is not copied: that
  /// of a painted picture is given to the copy by whoever paints it.
  std::shared_ptr<clsBitmap> ReplicaForDraw() const;

  /// Makes the picture anew at another size, in panel pixels: from its file, or from its original pixels when
  /// the file cannot be read; then the user is asked for another file. True when there was something to do,
  /// also when nothing could be made. The old size does not count. Tells the host of the change in either
  /// case if the element has a row. Error 91 without an image library.
  bool ResizeImageEx(Long pOldDx, Long pOldDy, Long pNewDx, Long pNewDy);
  /// No longer in use: shows a box that says so. Always false.
  bool ResizeImage(Long pOldDx, Long pOldDy, Long pNewDx, Long pNewDy, Long pHdc);

  /// Moves the places of an element's pictures, from one on, by a number. Errors of the project and its
  /// database.
  void UpdateImageIndexInVar(Long pElement_ID, Long pStartIndex, Long pCorrectionValue);

 private:
  struct Columns;
  friend ElementClass;

  /// What a picture is replaced by when it was made at another size.
  struct NewPicture {
    Long crc = kNoImage;
    PixelBytes data = {};
  };

  /// Makes the bitmap anew for a drawing; false when there is nothing to paint.
  bool RenewBitmap();
  /// Forgets the bitmap of a picture that was replaced, unless somebody else paints it.
  void DropOldBitmap();
  void RemakePicture(Long mode, Long dx, Long dy);
  void AskForAnotherFile(Long message, Long dx, Long dy);
  void TakePicture(NewPicture picture, Long dx, Long dy);
  ImageProps OwnImageProps() const;
  /// A view of the element's fields; saving may repair the pixels through it.
  ImageToSave OwnImageToSave();
  /// Replaces the bitmap by what becomes of it as a picture of one bit a pixel at its original size.
  template <class Change>
  void ChangeMonoBits(Change change);
  void TakeBounds(const Descriptor& place);
  void CopyTo(clsBitmap& copy) const;

  void GiveOrder(ado::Recordset& newRow) override;
  void WriteRow(ado::Recordset& row) override;
  void ReadRow(const ado::Recordset& row) override;
  void SaveParts() override;

  bool ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) override;
  void ItfHmiElement_UpdateDisplayWithLastLegal() override;
  void ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) override;
  void ItfHmiElement_Stretch(Long pDx, Long pDy, Long pDirection) override;
  void ItfHmiElement_Move(Long pDx, Long pDy) override;
  void ItfHmiElement_DeleteFromDB() override;
  void ItfHmiElement_Xs(Long pValue) override;
  void ItfHmiElement_Ys(Long pValue) override;
  void ItfHmiElement_Dx(Long pValue) override;
  void ItfHmiElement_Dy(Long pValue) override;
  using PositionedElement::ItfHmiElement_Dx;
  using PositionedElement::ItfHmiElement_Dy;
  using PositionedElement::ItfHmiElement_Xs;
  using PositionedElement::ItfHmiElement_Ys;
  void ItfHmiElement_GetOptimalDimensions(Long& pXs, Long& pYs, Long& pDx, Long& pDy) const override;
  Long ItfHmiElement_ColorBack() const override { return colorBack_; }
  void ItfHmiElement_ColorBack(Long pValue) override { colorBack_ = pValue; }
  Long ItfHmiElement_ColorBackTouch() const override;
  void ItfHmiElement_ColorBackTouch(Long pValue) override { colorBackTouch_ = pValue; }
  void ItfHmiElement_InvertColors() override;
  void ItfHmiElement_Rotate() override;
  Long ItfHmiElement_hBmp() const override { return bitmap_.Get(); }
  void ItfHmiElement_hBmp(Long pValue) override;
  Long ItfHmiElement_hBmpCRC() const override { return imageCrc_; }
  void ItfHmiElement_hBmpCRC(Long pValue) override { ImageCRC(pValue); }
  /// Makes the bitmap when there is none, but neither of no picture nor of one painted by somebody else.
  void ItfHmiElement_DrawToPrinter(Long pHdc, const std::string& pVarAlias) override;
  automation::Variant ItfHmiElement_UpdateBoundingRectangle(Long pDx, Long pDy, Long pDirection) override;
  void ItfHmiElement_GetSizeFromBoundingRect() override;
  Long ItfHmiElement_TransparencyLevel() const override { return transparencyLevel_; }
  void ItfHmiElement_TransparencyLevel(Long pValue) override;
  void ItfHmiElement_CreateStaticElementPrinterReport(automation::Object& pVSPrinter) override;
  void ItfHmiElement_SetImageSystem(Long eOption) override;

  Long ItfImage_Image8bppCRC() const override { return imageCrc_; }
  void ItfImage_Image8bppCRC(Long pValue) override { imageCrc_ = pValue; }
  Long ItfImage_ImageLibCRC() const override { return libCrc_; }
  void ItfImage_ImageLibCRC(Long pValue) override { libCrc_ = pValue; }
  Long ItfImage_ImageIndexInVar() const override { return imageIndexInVar_; }
  void ItfImage_ImageIndexInVar(Long pValue) override { imageIndexInVar_ = pValue; }
  PixelBytes ItfImage_GetImageData8bpp() const override { return data_; }
  void ItfImage_SetImageData8bpp(PixelBytes pRHS) override;
  Long ItfImage_TransparencyLevel() const override { return transparencyLevel_; }
  void ItfImage_TransparencyLevel(Long pValue) override { transparencyLevel_ = pValue; }
  std::string ItfImage_ImagePath() const override { return imagePath_; }
  void ItfImage_ImagePath(std::string pValue) override { imagePath_ = std::move(pValue); }
  Long ItfImage_Dx() const override { return imageDx_; }
  void ItfImage_Dx(Long pValue) override { imageDx_ = pValue; }
  Long ItfImage_Dy() const override { return imageDy_; }
  void ItfImage_Dy(Long pValue) override { imageDy_ = pValue; }
  void ItfImage_SetImageProps(const ImageProps& props) override;

  /// Panel colour behind a transparent picture; -1 none. Reading the other colour writes it.
  mutable Long colorBack_ = kNone;
  Long colorBackTouch_ = kNone;
  gdi::OwnedBitmap bitmap_;
  Long imageCrc_ = kNoImage;
  Long libCrc_ = kNoImage;
  std::string imagePath_;
  Long imageIndexInVar_ = 0;
  PixelBytes data_;
  PixelBytes dataOrg_;
  Long imageDx_ = 0, imageDy_ = 0;
  Long dxOrg_ = 0, dyOrg_ = 0;
  /// The selection rectangle, which is also the size that a stretch is heading for.
  Long boundLeft_ = 0, boundTop_ = 0, boundRight_ = 0, boundBottom_ = 0;
  Long transparencyLevel_;
  Long bits_ = 0;
  bool stretchImage_ = true;
  std::shared_ptr<corvane1::ColorService> colorService_;
};

}  // namespace quenzel7
