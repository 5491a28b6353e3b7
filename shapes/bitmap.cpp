#include "shapes/bitmap.h"

#include <utility>

#include "framework/bitmap_size.h"
#include "framework/library_services.h"
#include "framework/library_state.h"
#include "framework/mono_bitmaps.h"
#include "framework/mono_bits.h"
#include "framework/picture_bytes.h"
#include "framework/project.h"
#include "framework/tab_index.h"
#include "images/busy_pointer.h"
#include "images/corrupted_image.h"
#include "images/image_links.h"
#include "images/image_queries.h"
#include "platform/automation/arithmetic.h"
#include "platform/gdi/selected.h"
#include "platform/platform.h"
#include "shapes/current_pen.h"
#include "shapes/element_report.h"
#include "shapes/element_setting.h"
#include "shapes/picture_painting.h"
#include "shapes/stretch.h"

namespace quenzel7 {

using automation::Add;
using automation::Subtract;

// clang-format off
struct clsBitmap::Columns : PositionColumns<clsBitmap> {
  using Bitmap = clsBitmap;

  static constexpr auto kColorBack = FieldColumn<Bitmap, &Bitmap::colorBack_>("ColorBack");
  static constexpr auto kColorBackTouch = FieldColumn<Bitmap, &Bitmap::colorBackTouch_>("ColorBackTouch");

  static constexpr auto kSave = MakeColumnTable(
      TypeColumn<Bitmap>(),
      kXs, kYs, kDx, kDy,
      DisplayColumn<Bitmap>(),
      kGroupId,
      kColorBack, kColorBackTouch,
      LongZeroColumn<Bitmap>("ColorFore"), LongZeroColumn<Bitmap>("ColorForeTouch"),
      LongZeroColumn<Bitmap>("ColorHatch"),
      LongZeroColumn<Bitmap>("PenStyle"), LongZeroColumn<Bitmap>("PenWidth"), LongZeroColumn<Bitmap>("HatchStyle"),
      kTouchOprndAddr, kVisibleOpAddr,
      ZeroColumn<Bitmap>("FontNumber"), ZeroColumn<Bitmap>("DescriptionFontNumber"),
      ZeroColumn<Bitmap>("Alignment"), ZeroColumn<Bitmap>("Flat3D"),
      ZeroColumn<Bitmap>("VarType"),
      // A bitmap has none of these, and says so where other elements write 0.
      ConstantColumn<Bitmap, Integer, kNone>("VarKeyPadEntry"),
      ConstantColumn<Bitmap, Integer, kNone>("VarOprndType"), ConstantColumn<Bitmap, Integer, kNone>("VarOprndAddr"),
      NoOperandColumn<Bitmap>("KeypadSuccessOpAddr"), NoOperandColumn<Bitmap>("EnabledOpAddr"),
      NoOperandColumn<Bitmap>("HighlightOpAddr"),
      ZeroColumn<Bitmap>("GlobalVarID"), ZeroColumn<Bitmap>("DefaultDisplay"),
      ConstantColumn<Bitmap, Byte, kNoTabIndex>("TabIndex"),
      kOrderIndex);

  /// Where a picture is not in the project, it is as large as its element.
  static constexpr Column<Bitmap> kImageDx = FieldColumn<Bitmap, &Bitmap::imageDx_>("Dx");
  static constexpr Column<Bitmap> kImageDy = FieldColumn<Bitmap, &Bitmap::imageDy_>("Dy");

  static constexpr auto kLoad = MakeColumnTable(
      kId, kGroupId,
      kXs, kYs, kDx, kDy,
      kImageDx, kImageDy,
      kTouchOprndAddr, kVisibleOpAddr);
  static constexpr auto kLoadLast = MakeColumnTable(kColorBack, kColorBackTouch, kOrderIndex);
};
// clang-format on

clsBitmap::clsBitmap()
    : transparencyLevel_(ElementSetting(ElementDefault::BitmapTransparency, "0")),
      colorService_(Platform::Current().colorService) {
  operandBags_ = std::make_shared<automation::Collection>();
}

// --- Properties ---

void clsBitmap::ItfHmiElement_Xs(Long pValue) {
  PositionedElement::ItfHmiElement_Xs(pValue);
  boundLeft_ = pValue;
}

void clsBitmap::ItfHmiElement_Ys(Long pValue) {
  PositionedElement::ItfHmiElement_Ys(pValue);
  boundTop_ = pValue;
}

void clsBitmap::ItfHmiElement_Dx(Long pValue) {
  PositionedElement::ItfHmiElement_Dx(pValue);
  boundRight_ = Add(Initial().xs, pValue);
}

void clsBitmap::ItfHmiElement_Dy(Long pValue) {
  PositionedElement::ItfHmiElement_Dy(pValue);
  boundBottom_ = Add(Initial().ys, pValue);
}

void clsBitmap::ItfHmiElement_hBmp(Long pValue) { TakeBitmap(bitmap_, pValue); }

Long clsBitmap::ItfHmiElement_ColorBackTouch() const {
  // Required: reading gives 0 and moves the colour behind the picture. Only saving sees the field.
  colorBack_ = colorBackTouch_;
  return 0;
}

void clsBitmap::ItfHmiElement_TransparencyLevel(Long pValue) {
  transparencyLevel_ = pValue;
  SetElementTransparency(pValue, id_);
}

void clsBitmap::ImageCRC(Long pValue) {
  imageCrc_ = pValue;
  if (pValue == kPaintedImage) return;
  DropOldBitmap();
  GetImageRecord(pValue, data_, imageDx_, imageDy_);
  bits_ = GetImageBitsByCRC(pValue);
}

void clsBitmap::ItfHmiElement_GetOptimalDimensions(Long& pXs, Long& pYs, Long& pDx, Long& pDy) const {
  pXs = Initial().xs;
  pYs = Initial().ys;
  pDx = dxOrg_;
  pDy = dyOrg_;
}

// --- The picture ---

void clsBitmap::ItfImage_SetImageProps(const ImageProps& props) {
  imageDx_ = props.imgWidth;
  imageDy_ = props.imgHeight;
  ItfHmiElement::Dx(props.imgWidth);
  ItfHmiElement::Dy(props.imgHeight);
  imageCrc_ = props.imgCRC;
  data_ = props.data8bpp;
  libCrc_ = props.srcImgCRC;
  dxOrg_ = props.dxORG;
  dyOrg_ = props.dyORG;
  dataOrg_ = props.data8bppORG;
  imageIndexInVar_ = props.imgIndexInVar;
  transparencyLevel_ = props.transparencyLevel;
  imagePath_ = props.imagePath;
  if (props.bits) bits_ = *props.bits;
  DropOldBitmap();
}

void clsBitmap::ItfImage_SetImageData8bpp(PixelBytes pRHS) {
  data_ = std::move(pRHS);
  DropOldBitmap();
}

void clsBitmap::DropOldBitmap() {
  // Whoever paints a bitmap gives it before or after the CRC that says so.
  if (imageCrc_ != kPaintedImage) bitmap_.Reset(0);
}

ImageProps clsBitmap::OwnImageProps() const {
  return {libCrc_,  dxOrg_, dyOrg_,           dataOrg_,           imageCrc_,  imageDx_,
          imageDy_, data_,  imageIndexInVar_, transparencyLevel_, imagePath_, &bits_};
}

std::shared_ptr<clsBitmap> clsBitmap::ReplicaForDraw() const {
  auto copy = std::make_shared<clsBitmap>();
  copy->ItfImage_SetImageProps(OwnImageProps());
  return copy;
}

void clsBitmap::CopyTo(clsBitmap& copy) const {
  copy.ItfImage_SetImageProps(OwnImageProps());
  copy.CopyIdentityAndPosition(*this);
  copy.ColorBack(colorBack_);
  copy.ColorBackTouch(colorBackTouch_);
  copy.StretchImage(stretchImage_);
  copy.CopyOperands(*this);
}

bool clsBitmap::ResizeImage(Long, Long, Long, Long, Long) {
  ShowLibraryBox("The function ResizeImage is obsolate. use ResizeImageEx instead");
  return false;
}

bool clsBitmap::ResizeImageEx(Long, Long, Long pNewDx, Long pNewDy) {
  const Long mode = CurrentImageLibrary()->GetConversionMode(imagePath_);
  const bool hasSize = imageDx_ == pNewDx && imageDy_ == pNewDy;
  const bool isToDo = imageCrc_ != kNoImage && imageCrc_ != kPaintedImage && !hasSize;
  if (isToDo) {
    const BusyPointer busy;
    RemakePicture(mode, pNewDx, pNewDy);
  }
  if (id_ != kNone) NotifyElementChanged(id_);
  return isToDo;
}

void clsBitmap::RemakePicture(Long mode, Long dx, Long dy) {
  constexpr Long kNoFile = 6;
  Long status = kNoFile;
  gdi::OwnedBitmap bitmap;
  if (!imagePath_.empty()) {
    bitmap.Reset(CurrentImageLibrary()->LoadResizedImage(imagePath_, libCrc_, dx, dy, status));
  }
  const bool isRead = status == loomis2::kImageDone;
  const bool isFileMissing = status == loomis2::kImageFileNotFound;
  const bool isFileUnreadable = status == loomis2::kImageFileNotRead;
  if (!isRead && !isFileMissing && !isFileUnreadable && status != kNoFile) return;
  if (!isRead) bitmap.Reset(StretchedBitmapOfPixels(dataOrg_, dxOrg_, dyOrg_, dx, dy, bits_));
  NewPicture made;
  if (loomis2::IsConverted(ConvertToPixels(bitmap.Get(), mode, dx, dy, bits_, made.data, made.crc))) {
    bitmap_.Reset(0);
    bitmap_.Reset(isRead ? BitmapOfPixels(made.data, dx, dy, bits_) : bitmap.Release());
    TakePicture(std::move(made), dx, dy);
  }
  constexpr Long kFileNotFoundMessage = 377, kFileNotReadMessage = 378;
  if (isFileMissing) AskForAnotherFile(kFileNotFoundMessage, dx, dy);
  if (isFileUnreadable) AskForAnotherFile(kFileNotReadMessage, dx, dy);
}

void clsBitmap::TakePicture(NewPicture picture, Long dx, Long dy) {
  data_ = std::move(picture.data);
  imageCrc_ = picture.crc;
  imageDx_ = dx;
  imageDy_ = dy;
}

void clsBitmap::AskForAnotherFile(Long message, Long dx, Long dy) {
  automation::Variant name(GetFileName(imagePath_));
  if (ShowLibraryMessage(message, name) != corvane1::kAnswerYes) return;
  const Long dxBefore = imageDx_, dyBefore = imageDy_;
  imageDx_ = dx;
  imageDy_ = dy;
  loomis2::LibraryPicture picture{imagePath_, libCrc_,  dxOrg_,   dyOrg_, dataOrg_,
                                  imageCrc_,  imageDx_, imageDy_, data_,  bits_};
  if (CurrentImageLibrary()->SelectImageFile(picture, dx, dy) != loomis2::kImageDone) {
    // Pixels that could not be made anew either would be taken for damaged ones at the new size.
    if (IsImageDataValid(data_, dxBefore, dyBefore, bits_)) {
      imageDx_ = dxBefore;
      imageDy_ = dyBefore;
    }
    return;
  }
  bitmap_.Reset(0);
  imagePath_ = std::move(picture.path);
  libCrc_ = picture.libCrc;
  dxOrg_ = picture.dxOrg;
  dyOrg_ = picture.dyOrg;
  dataOrg_ = std::move(picture.dataOrg);
  imageCrc_ = picture.crc;
  imageDx_ = picture.dx;
  imageDy_ = picture.dy;
  data_ = std::move(picture.data);
  bits_ = picture.bits;
}

template <class Change>
void clsBitmap::ChangeMonoBits(Change change) {
  Long w = dxOrg_, h = dyOrg_;
  if (w < 1 || h < 1 || bitmap_.Get() == 0) return;
  const Long size = WordAlignedSize(w, h);
  PixelBytes bits = NewPictureBytes(static_cast<std::size_t>(size), w, h);
  gdi::GetBitmapBits(bitmap_.Get(), size, bits.data());
  WordAlignedToPacked(bits, w, h);
  change(bits, w, h);
  const PixelBytes aligned = PackedToWordAligned(w, h, bits);
  bitmap_.Reset(0);
  bitmap_.Reset(gdi::CreateBitmap(w, h, 1, 1, aligned.data()));
}

void clsBitmap::ItfHmiElement_InvertColors() {
  ChangeMonoBits([](PixelBytes& bits, Long&, Long&) { InvertBytes(bits); });
}

void clsBitmap::ItfHmiElement_Rotate() {
  ChangeMonoBits([](PixelBytes& bits, Long& w, Long& h) {
    bits = RotateMonoBits(bits, w, h);
    std::swap(w, h);
  });
}

// --- Dragging ---

void clsBitmap::TakeBounds(const Descriptor& place) {
  boundLeft_ = place.xs;
  boundTop_ = place.ys;
  boundRight_ = Add(place.xs, place.dx);
  boundBottom_ = Add(place.ys, place.dy);
}

void clsBitmap::ItfHmiElement_UpdateDisplayWithLastLegal() {
  PositionedElement::ItfHmiElement_UpdateDisplayWithLastLegal();
  TakeBounds(Displayed());
}

void clsBitmap::ItfHmiElement_Move(Long pDx, Long pDy) {
  PositionedElement::ItfHmiElement_Move(pDx, pDy);
  TakeBounds(position_.At(kTransformed));
}

void clsBitmap::ItfHmiElement_Stretch(Long pDx, Long pDy, Long pDirection) {
  PositionedElement::ItfHmiElement_Stretch(pDx, pDy, pDirection);
  const Descriptor& proposed = position_.At(kTransformed);
  ResizeImageEx(proposed.dx, proposed.dy, Subtract(boundRight_, boundLeft_),
                Subtract(boundBottom_, boundTop_));
}

automation::Variant clsBitmap::ItfHmiElement_UpdateBoundingRectangle(Long pDx, Long pDy, Long pDirection) {
  TakeBounds(Stretched(Initial(), pDx, pDy, pDirection).descriptor);
  return automation::FromLongs({boundLeft_, boundTop_, boundRight_, boundBottom_});
}

void clsBitmap::ItfHmiElement_GetSizeFromBoundingRect() {
  const Long width = Subtract(boundRight_, boundLeft_), height = Subtract(boundBottom_, boundTop_);
  Xs(boundLeft_);
  Ys(boundTop_);
  Dx(width);
  Dy(height);
}

// --- Painting ---

bool clsBitmap::RenewBitmap() {
  if (imageCrc_ == kPaintedImage) return true;
  bitmap_.Reset(0);
  if (imageCrc_ == kNoImage) {
    if (imageDx_ < 1 || imageDy_ < 1) return false;
    bitmap_.Reset(NewWhiteMonoBitmap(imageDx_, imageDy_));
  } else if (!data_.empty()) {
    const auto& [x, y, dx, dy] = Displayed();
    bitmap_.Reset(BitmapOfPixels(data_, dx, dy, bits_));
    // A host that refuses a stretch shows the element at its old size, with a picture of the new one.
    if (bitmap_.Get() == 0) bitmap_.Reset(BitmapOfPixels(data_, imageDx_, imageDy_, bits_));
  }
  if (bitmap_.Get() != 0) return true;
  ReportCorruptedImage(imagePath_, id_);
  return false;
}

void clsBitmap::ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) {
  const Descriptor& displayed = Displayed();
  const bool hasSizeAtRest = displayed.dx == Initial().dx && displayed.dy == Initial().dy;
  // While the element is stretched the picture stays at rest, and only the rectangle moves.
  const auto [x, y, dx, dy] = hasSizeAtRest && !pDrawBoundingRect ? displayed : Initial();
  if (!RenewBitmap()) return;
  const BitmapSize size = BitmapSizeOf(bitmap_.Get());
  if (transparencyLevel_ == 0 || imageCrc_ == kPaintedImage) {
    PaintOpaquePicture(pHdc, x, y, bitmap_.Get(), size);
  } else {
    if (colorBack_ >= 0) {
      const gdi::RECT place{x, y, Add(x, displayed.dx), Add(y, displayed.dy)};
      FillInPanelColor(pHdc, place, colorBack_, *colorService_);
    }
    if (imageCrc_ != kNoImage) {
      PaintTransparentPicture(pHdc, x, y, bitmap_.Get(), data_, bits_, *colorService_);
    }
  }
  if (pDrawBoundingRect) {
    const gdi::RECT bounds{boundLeft_, boundTop_, boundRight_, boundBottom_};
    gdi::DrawFocusRect(pHdc, &bounds);
  }
}

void clsBitmap::ItfHmiElement_DrawToPrinter(Long pHdc, const std::string&) {
  // Hosts print pages that they never showed.
  const bool hasPixels = imageCrc_ != kNoImage && imageCrc_ != kPaintedImage && !data_.empty();
  if (bitmap_.Get() == 0 && hasPixels) bitmap_.Reset(BitmapOfPixels(data_, imageDx_, imageDy_, bits_));
  const BitmapSize size = BitmapSizeOf(bitmap_.Get());
  const gdi::OwnedContext source(pHdc), copy(pHdc);
  const gdi::Selection picture(source.Get(), bitmap_.Get());
  const gdi::SelectedBitmap printed(copy.Get(), gdi::CreateCompatibleBitmap(pHdc, size.w, size.h));
  // A picture of one bit takes these two colours; the first is no panel colour here.
  gdi::SetBkColor(copy.Get(), static_cast<gdi::COLORREF>(colorBack_));
  gdi::SetTextColor(copy.Get(), CurrentPen(pHdc).lopnColor);
  gdi::BitBlt(copy.Get(), 0, 0, size.w, size.h, source.Get(), 0, 0, gdi::SRCCOPY);
  const auto [x, y, dx, dy] = Displayed();
  if (!stretchImage_) {
    gdi::BitBlt(pHdc, x, y, size.w, size.h, copy.Get(), 0, 0, gdi::SRCCOPY);
    return;
  }
  const std::int32_t modeBefore = gdi::SetStretchBltMode(pHdc, LibraryState::Current().StretchMode);
  gdi::StretchBlt(pHdc, x, y, dx, dy, copy.Get(), 0, 0, size.w, size.h, gdi::SRCCOPY);
  gdi::SetStretchBltMode(pHdc, modeBefore);
}

void clsBitmap::ItfHmiElement_CreateStaticElementPrinterReport(automation::Object& pVSPrinter) {
  ElementReport report(pVSPrinter);
  report.Coordinates(Initial());
  report.Line(std::string("Transparent: ") + (transparencyLevel_ == 0 ? "No" : "Yes"));
  report.MemoryBit("Hide Operand: ", visibleOpAddr_);
}

// --- Rows ---

void clsBitmap::GiveOrder(ado::Recordset& newRow) {
  PositionedElement::GiveOrder(newRow);
  // Links that were left behind under no element.
  ReleaseElementImages(id_);
}

void clsBitmap::WriteRow(ado::Recordset& row) { WriteColumns<clsBitmap>(row, *this, Columns::kSave); }

ImageToSave clsBitmap::OwnImageToSave() {
  return {imageCrc_, libCrc_, dxOrg_, dyOrg_, dataOrg_, imageDx_, imageDy_, data_, imagePath_, bits_};
}

void clsBitmap::SaveParts() {
  AddBitmapImageToProject(OwnImageToSave(), id_, imageIndexInVar_, transparencyLevel_);
}

void clsBitmap::ReadRow(const ado::Recordset& row) {
  ReadColumns<clsBitmap>(row, *this, Columns::kLoad);
  ImageCRC(GetElementImageCRCs(id_).front());
  data_ = GetImageData8bppByCRC(imageCrc_);
  dataOrg_ = GetImageDataORGByCRC(imageCrc_);
  GetImageOriginalDimansions(imageCrc_, dxOrg_, dyOrg_);
  libCrc_ = quenzel7::GetImageLibCRC(imageCrc_);
  imagePath_ = GetImagePathFromDB(imageCrc_);
  operandBags_ = BuildOpPropBag();
  transparencyLevel_ = GetElementImageTransparency(id_, 0);
  ReadColumns<clsBitmap>(row, *this, Columns::kLoadLast);
  bits_ = GetImageBitsByCRC(imageCrc_);
}

bool clsBitmap::ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) {
  ReadRow(pRsElement);
  return false;
}

void clsBitmap::ItfHmiElement_DeleteFromDB() {
  DeleteDownload();
  DeleteOperands();
  DeleteRow();
  bitmap_.Reset(0);
  ReleaseElementImages(id_);
  NotifyPageChanged(CurrentDisplayID());
}

void clsBitmap::UpdateImageIndexInVar(Long pElement_ID, Long pStartIndex, Long pCorrectionValue) {
  ProjectConnection()->Execute("UPDATE ElementsAndImages SET Image_Index=Image_Index+(" +
                               std::to_string(pCorrectionValue) +
                               ") WHERE Element_ID=" + std::to_string(pElement_ID) +
                               " AND Image_Index>=" + std::to_string(pStartIndex) + ";");
}

void clsBitmap::ItfHmiElement_SetImageSystem(Long eOption) {
  const ado::RecordsetRef rows = OpenImageRows(
      "SELECT * FROM ProjectImages WHERE RecordStatus IN (0,1) order by [index]", ado::adOpenKeyset);
  if (!rows->Eof()) {
    rows->MoveFirst();
    if (eOption > 1) rows->Move(Subtract(eOption, 1));
  }
  const bool isNew = rows->Eof();
  if (isNew) {
    rows->AddNew();
    rows->Put("Index", eOption);
  }
  const bool isSmall = eOption == 1;
  ResizeImageEx(Initial().dx, Initial().dy, isSmall ? 29 : 320, isSmall ? 21 : 240);
  WriteSystemImage(*rows, OwnImageToSave());
  try {
    rows->Update();
  } catch (const automation::AutomationError&) {
    // The number may be that of an element's picture, which can have any other.
    if (!isNew || !MoveImageRow(eOption)) throw;
    rows->Update();
  }
  rows->Close();
}

}  // namespace quenzel7
