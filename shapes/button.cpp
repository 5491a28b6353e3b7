#include "shapes/button.h"

#include <memory>

#include "framework/project.h"
#include "framework/transform_state.h"
#include "images/corrupted_image.h"
#include "images/image_links.h"
#include "images/image_queries.h"
#include "platform/automation/arithmetic.h"
#include "platform/gdi/gdi.h"
#include "shapes/picture_painting.h"

namespace quenzel7 {

using automation::Add;
using automation::Subtract;

// clang-format off
struct clsButton::Columns : TextColumns<clsButton> {
  using Button = clsButton;

  static constexpr auto kEnabledOpAddr = FieldColumn<Button, &Button::enabledOpAddr_>("EnabledOpAddr");
  static constexpr auto kHighlightOpAddr = FieldColumn<Button, &Button::highlightOpAddr_>("HighlightOpAddr");
  static constexpr auto kOperands = MakeColumnTable(
      kTouchOprndAddr, kEnabledOpAddr, kVisibleOpAddr, kHighlightOpAddr);

  static constexpr auto kSave =
      kHead
          .Then(kOperands)
          .Then(kStyle)
          .Then(MakeColumnTable(NoOperandColumn<Button>("KeypadSuccessOpAddr")));

  static constexpr auto kLoad =
      MakeColumnTable(
          kId, kGroupId,
          kXs, kYs, kDx, kDy,
          kColorBack, kColorFore, kColorBackTouch, kColorForeTouch,
          kText, kFontNumber, kAlignment)
          .Then(kOperands)
          .Then(MakeColumnTable(
              kFlat3D,
              kTabIndex, kOrderIndex,
              kStorageStringType, kStorageStringId));
};

struct clsButton::Operands : TextOperands<clsButton> {
  static constexpr ElementOperand<clsButton> kEnabled = {
      eOP_EnabledOperand, &clsButton::enabledOpAddr_, nullptr, Always<clsButton>,
      [](const clsButton& button) { return button.enabledOpAddr_ != kNone; }};
  static constexpr ElementOperand<clsButton> kHideWithBag = {
      eOP_VisibleOperand, &clsButton::visibleOpAddr_, nullptr, Always<clsButton>,
      [](const clsButton& button) { return button.HasHideOperand(); }};
  static constexpr ElementOperand<clsButton> kHighlight = {
      eOP_HighlightOperand, &clsButton::highlightOpAddr_, nullptr, Always<clsButton>,
      [](const clsButton& button) { return button.highlightOpAddr_ != kNone; }};

  static constexpr ElementOperand<clsButton> kTable[] = {
      kTouchWithBag, kEnabled, kHideWithBag, kHighlight, kStorageString};
};
// clang-format on

clsButton::clsButton()
    : ElementClass(
          [] {
            using enum ElementDefault;
            const Long style = ElementSetting(ButtonStyle, "1");
            const bool isFlat = style == kFlat;
            const Long back = ElementSetting(isFlat ? FlatButtonColorBack : ButtonColorBack, "104");
            const Long backTouch =
                ElementSetting(isFlat ? FlatButtonColorBackTouch : ButtonColorBackTouch, "104");
            const Long fore = ElementSetting(ButtonColorFore, "5");
            const Long foreTouch = ElementSetting(ButtonColorForeTouch, std::to_string(fore));
            const auto alignment = ElementSetting<Integer>(ButtonAlignment, "4");
            return Manner{
                .flat3D = style,
                .colors = {.back = back, .fore = fore, .backTouch = backTouch, .foreTouch = foreTouch},
                .alignment = alignment};
          }(),
          "Button"),
      image_(std::make_shared<clsVarImageElement>()) {
  image_->TransparencyLevel(ElementSetting(ElementDefault::ButtonTransparency, "0"));
}

// --- Properties ---

void clsButton::hBmp(Long pValue) { TakeBitmap(bitmap_, pValue); }

void clsButton::Flat3D(Long pValue) {
  TextBearingElement::Flat3D(pValue);
  FitImageToButton();
}

void clsButton::PutAddress(Long clsButton::*address, Long value) {
  this->*address = value;
  if (value != kNone && id_ != kNone) operandBags_ = BuildOpPropBag();
}

void clsButton::EnabledOpAddr(Long pValue) { PutAddress(&clsButton::enabledOpAddr_, pValue); }

void clsButton::HighlightOpAddr(Long pValue) { PutAddress(&clsButton::highlightOpAddr_, pValue); }

void clsButton::RemoveAddress(Long address, Long value, enOperandPurpose purpose) const {
  if (value == kNone) RemoveOperandRow(id_, kMemoryBit, address, kLocalNetwork, purpose);
}

void clsButton::ItfHmiElement_EnabledOpAddr(Long pValue) {
  RemoveAddress(enabledOpAddr_, pValue, eOP_EnabledOperand);
  EnabledOpAddr(pValue);
}

void clsButton::ItfHmiElement_HighlightOpAddr(Long pValue) {
  RemoveAddress(highlightOpAddr_, pValue, eOP_HighlightOperand);
  HighlightOpAddr(pValue);
}

void clsButton::ItfHmiElement_hBmpCRC(Long pValue) {
  if (pValue == kNoImage && image_->CRC8bpp() != kNoImage) ReleaseElementImages(id_);
  image_->CRC8bpp(pValue);
}

Long clsButton::PictureInset() const { return flat3D_ == kRaised ? 2 * kFaceInset : 0; }

Long clsButton::ItfImage_Dx() const { return Subtract(Initial().dx, PictureInset()); }

Long clsButton::ItfImage_Dy() const { return Subtract(Initial().dy, PictureInset()); }

void clsButton::TakePicture(const ImageProps& props) {
  image_->CRC8bpp(props.imgCRC);
  image_->SetData8bpp(props.data8bpp);
  image_->SourceCRC(props.srcImgCRC);
  image_->DxORG(props.dxORG);
  image_->DyORG(props.dyORG);
  image_->SetData8bppORG(props.data8bppORG);
  image_->TransparencyLevel(props.transparencyLevel);
  image_->Path(props.imagePath);
  if (props.bits) image_->Bits(*props.bits);
}

void clsButton::CopyTo(clsButton& copy) const {
  const Long bits = image_->Bits();
  copy.TakePicture({image_->SourceCRC(), image_->DxORG(), image_->DyORG(), image_->GetData8bppORG(),
                    image_->CRC8bpp(), 0, 0, image_->GetData8bpp(), 0, image_->TransparencyLevel(),
                    image_->Path(), &bits});
  copy.enabledOpAddr_ = enabledOpAddr_;
  copy.highlightOpAddr_ = highlightOpAddr_;
  TextBearingElement::CopyTo(copy);
}

enCollisionStatus clsButton::ItfHmiElement_GetTransformState(automation::Variant& pcollisionMap) {
  return GetTouchTransformState(*this, pcollisionMap);
}

// --- Fitting ---

Long clsButton::FittingInset() const {
  // A pressed button keeps nothing clear, unlike a text of that style.
  return flat3D_ == kRaised ? TextBearingElement::FittingInset() : 0;
}

void clsButton::GetOptimalDimensions(Long& pDx, Long& pDy) const {
  constexpr Long kAllowance = 8;
  const corvane1::TextExtent size = FullSizeOfText();
  const Long width = Add(size.width, kAllowance), height = Add(size.height, kAllowance);
  pDx = width;
  pDy = height;
}

bool clsButton::ResizePicture(Long dx, Long dy) {
  return image_->Bits() == kTwoBytePixels ? image_->ResizeImage16(dx, dy) : image_->ResizeImage(dx, dy);
}

void clsButton::FitImageToButton() {
  const Long crc = image_->CRC8bpp();
  if (crc == kNoImage || crc == kPaintedImage) return;
  Long storedDx = 0, storedDy = 0;
  GetImageDimensions(crc, storedDx, storedDy);
  const Long inset = PictureInset();
  const Long dx = Subtract(Displayed().dx, inset), dy = Subtract(Displayed().dy, inset);
  if (storedDx != dx || storedDy != dy) ResizePicture(dx, dy);
}

// --- Painting ---

void clsButton::ItfHmiElement_Draw(Long pHdc, bool) {
  switch (flat3D_) {
    case kFlat:
      DrawFlatFrame(pHdc, Displayed(), Rgb(colorBack_));
      DrawButtonImage(pHdc);
      break;
    case kRaised:
      DrawRaisedFrame(pHdc, Displayed(), colorBack_, ColorsToPaint());
      DrawButtonImage(pHdc);
      break;
    case kBoxed:
      DrawPlainFrame(pHdc, Displayed(), Rgb(colorBack_));
      break;
    default:
      return;
  }
  if (HasText()) PaintText(pHdc);
}

void clsButton::PaintText(Long hdc) const {
  const TextColors colors = OwnTextColors(hdc);
  // What a painter of the library's strings is told of a text in one block.
  static constexpr Long kWhole = 1;
  if (flat3D_ == kBoxed) {
    PaintBlockOrLines(hdc, flat3D_, PaintStored, PaintConstant);
  } else {
    PaintBlockOrLines(hdc, flat3D_, PaintStoredTransparent<kWhole>, PaintConstantTransparent);
  }
}

bool clsButton::RenewBitmap(Long dx, Long dy) {
  const Long crc = image_->CRC8bpp();
  if (crc == kPaintedImage) return true;
  bitmap_.Reset(0);
  if (crc == kNoImage) return false;
  const PixelBytes& pixels = image_->GetData8bpp();
  if (!pixels.empty()) bitmap_.Reset(BitmapOfPixels(pixels, dx, dy, image_->Bits()));
  if (bitmap_.Get() == 0 && !pixels.empty()) {
    // A picture that could not be fitted to the button is not damaged: it has the size of its row.
    Long storedDx = 0, storedDy = 0;
    GetImageDimensions(crc, storedDx, storedDy);
    if (IsImageDataValid(pixels, storedDx, storedDy, image_->Bits())) {
      bitmap_.Reset(BitmapOfPixels(pixels, storedDx, storedDy, image_->Bits()));
    }
  }
  if (bitmap_.Get() != 0) return true;
  // Before the host is told, which may have the button drawn again at once.
  image_->CRC8bpp(kNoImage);
  ReportCorruptedImage(image_->Path(), id_);
  return false;
}

void clsButton::DrawButtonImage(Long hdc) {
  const Descriptor place = Displayed();
  const Long inset = PictureInset();
  const Long dx = Subtract(place.dx, inset), dy = Subtract(place.dy, inset);
  if (dx < 1 || dy < 1) return;
  const Long left = Add(place.xs, inset / 2), top = Add(place.ys, inset / 2);
  const gdi::RECT area{left, top, Add(left, dx), Add(top, dy)};
  FitImageToButton();
  if (!RenewBitmap(dx, dy)) return;
  if (image_->TransparencyLevel() == 0) {
    PaintOpaquePicture(hdc, area.left, area.top, bitmap_.Get(), BitmapSizeOf(bitmap_.Get()));
    return;
  }
  if (colorBack_ >= 0) FillInPanelColor(hdc, area, colorBack_, ColorsToPaint());
  PaintTransparentPicture(hdc, area.left, area.top, bitmap_.Get(), image_->GetData8bpp(), image_->Bits(),
                          ColorsToPaint());
}

void clsButton::ReportOperands(ElementReport& report) const {
  report.MemoryBit("Hide Operand: ", visibleOpAddr_);
  report.MemoryBit("Disable Mode Operand: ", enabledOpAddr_);
  report.MemoryBit("Marking View Operand: ", highlightOpAddr_);
  ReportLibraryString(report);
  // Half of all CRCs are below 0, and are told as no picture: hosts' reports are compared with each other.
  const Long crc = image_->CRC8bpp();
  report.Line("Image: " +
              (crc == kPaintedImage || crc < 0 ? std::string("Empty") : GetFileName(image_->Path())));
}

// --- Rows and operands ---

void clsButton::WriteRow(ado::Recordset& row) {
  WriteColumns<clsButton>(row, *this, Columns::kSave);
  TakeTabIndex(row);
  WriteColumns<clsButton>(row, *this, Columns::kSaveLast);
}

void clsButton::SaveParts() {
  if (image_->CRC8bpp() == kNoImage) return;
  const Long dx = ItfImage_Dx(), dy = ItfImage_Dy();
  if (image_->DxORG() != dx || image_->DyORG() != dy) ResizePicture(dx, dy);
  if (image_->Bits() == kTwoBytePixels) {
    image_->SaveToDBEx(id_, 0, dx, dy, kTwoBytePixels);
  } else {
    image_->SaveToDB(id_, 0, dx, dy);
  }
}

void clsButton::ReadRow(const ado::Recordset& row) {
  ReadColumns<clsButton>(row, *this, Columns::kLoad);
  ChooseLibraryText();
  operandBags_ = BuildOpPropBag();
  const Long crc = GetElementImageCRCs(id_).front();
  if (crc == kNoImage) return;
  image_->CRC8bpp(crc);
  image_->SetData8bpp(GetImageData8bppByCRC(crc));
  image_->SetData8bppORG(GetImageDataORGByCRC(crc));
  Long dxOrg = 0, dyOrg = 0;
  GetImageOriginalDimansions(crc, dxOrg, dyOrg);
  image_->DxORG(dxOrg);
  image_->DyORG(dyOrg);
  image_->SourceCRC(quenzel7::GetImageLibCRC(crc));
  image_->Path(GetImagePathFromDB(crc));
  image_->TransparencyLevel(GetElementImageTransparency(id_, 0));
  image_->Bits(GetImageBitsByCRC(crc));
}

bool clsButton::ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) {
  ReadRow(pRsElement);
  FitActualText();
  return false;
}

void clsButton::ItfHmiElement_DeleteFromDB() {
  DeleteDownload();
  DeleteRow();
  DeleteOperands();
  ReleaseElementImages(id_);
  NotifyPageChanged(CurrentDisplayID());
}

automation::CollectionRef clsButton::BuildOpPropBag() { return BagsOf<clsButton>(*this, Operands::kTable); }

void clsButton::ItfHmiElement_RestoreAllOperands() {
  RestoreFromBags<clsButton>(*this, operandBags_, Operands::kTable);
}

void clsButton::ReleaseOperands() const {
  ReleaseTouchOperand();
  // Both test 0, as that of the hide operand does.
  if (enabledOpAddr_ != 0) ReleaseOperand(kMemoryBit, enabledOpAddr_);
  ReleaseHideOperand();
  if (highlightOpAddr_ != 0) ReleaseOperand(kMemoryBit, highlightOpAddr_);
  ReleaseStorageOperand();
}

}  // namespace quenzel7
