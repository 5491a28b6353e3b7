#include "shapes/text.h"

#include <optional>
#include <string>

#include "platform/automation/arithmetic.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"

namespace quenzel7 {

using automation::Add;

// clang-format off
struct clsText::Columns : TextColumns<clsText> {
  using Text = clsText;

  static constexpr auto kSave =
      kHead
          .Then(MakeColumnTable(
              kTouchOprndAddr, kVisibleOpAddr,
              NoOperandColumn<Text>("EnabledOpAddr"), NoOperandColumn<Text>("HighlightOpAddr"),
              NoOperandColumn<Text>("KeypadSuccessOpAddr")))
          .Then(kStyle);

  static constexpr auto kLoad = MakeColumnTable(
      kId, kGroupId,
      kXs, kYs, kDx, kDy,
      kColorBack, kColorFore, kColorBackTouch, kColorForeTouch,
      kText, kFontNumber, kAlignment, kFlat3D,
      kTouchOprndAddr, kVisibleOpAddr,
      kStorageStringType);
  static constexpr auto kLoadString = MakeColumnTable(kStorageStringId);
  static constexpr auto kLoadLast = MakeColumnTable(kTabIndex, kOrderIndex);
};

struct clsText::Operands : TextOperands<clsText> {
  static constexpr ElementOperand<clsText> kTable[] = {kTouch, kHide, kStorageString};
};
// clang-format on

namespace {

/// The panel colours of the marker that shows where a text is of which nothing fits.
constexpr Long kMarkerHatchColor = 2, kMarkerLineColor = 0;

/// The frame flag of the font service for a text clear of a bevel, and for one that has all the room.
constexpr Long kClearOfBevel = 1, kNoBevel = 0;

/// What a painter of the library's strings is told of a text that is painted line by line.
constexpr Long kLineByLine = 255;

/// How much larger than its text an element of that style is; none for a number that is no style.
std::optional<Long> FrameAllowance(Long style) {
  switch (style) {
    case kFlat:
    case kTransparent:
      return 0;
    case kRaised:
    case kSunken:
      return 8;
    case kBoxed:
      return 2;
    default:
      return {};
  }
}

}  // namespace

clsText::clsText()
    : ElementClass(
          [] {
            using enum ElementDefault;
            const Long style = ElementSetting(TextStyle, "3");
            const bool isFlat = style == kFlat || style == kTransparent;
            const Long back = ElementSetting(isFlat ? FlatTextColorBack : TextColorBack, "103");
            const Long fore = ElementSetting(TextColorFore, "5");
            const Long backTouch =
                ElementSetting(isFlat ? FlatTextColorBackTouch : TextColorBackTouch, "103");
            const Long foreTouch = ElementSetting(TextColorForeTouch, std::to_string(fore));
            const auto alignment = ElementSetting<Integer>(TextAlignment, "4");
            return Manner{
                .flat3D = style,
                .colors = {.back = back, .fore = fore, .backTouch = backTouch, .foreTouch = foreTouch},
                .alignment = alignment};
          }(),
          "Text") {}

Long clsText::FittingInset() const {
  constexpr Long kBoxInset = 2;
  return flat3D_ == kBoxed ? kBoxInset : TextBearingElement::FittingInset();
}

void clsText::GetOptimalDimensions(Long& pDx, Long& pDy) const {
  const corvane1::TextExtent size = FullSize();
  const std::optional<Long> allowance = FrameAllowance(flat3D_);
  if (!allowance) return;
  const Long width = Add(size.width, *allowance), height = Add(size.height, *allowance);
  pDx = width;
  pDy = height;
}

// --- Painting ---

void clsText::ItfHmiElement_Draw(Long pHdc, bool) {
  switch (flat3D_) {
    case kRaised:
      DrawRaisedFrame(pHdc, Displayed(), colorBack_, ColorsToPaint());
      break;
    case kSunken:
      DrawSunkenFrame(pHdc, Displayed(), colorBack_, ColorsToPaint());
      break;
    case kTransparent:
      break;
    default:
      FillPlace(pHdc, Displayed(), Rgb(colorBack_));
  }
  if (HasText()) {
    PaintText(pHdc);
  } else if (!HasBevel(flat3D_)) {
    PaintEmptyMarker(pHdc);
  }
}

void clsText::PaintText(Long hdc) const {
  const TextColors colors = OwnTextColors(hdc);
  const bool isTransparent = flat3D_ == kTransparent;
  const PaintOperation paint = ShowsLibraryText()
                                   ? (isTransparent ? PaintStoredTransparent<kLineByLine> : PaintStored)
                                   : (isTransparent ? PaintConstantTransparent : PaintConstant);
  PaintLines(hdc, HasBevel(flat3D_) ? kClearOfBevel : kNoBevel, paint);
}

void clsText::PaintEmptyMarker(Long hdc) const {
  // Stays as set: hosts paint on with it.
  gdi::SetBkColor(hdc, kWhite);
  const gdi::SelectedBrush brush(hdc, gdi::CreateHatchBrush(eHS_Downward_Diagonal, Rgb(kMarkerHatchColor)));
  const gdi::LOGPEN line{gdi::PS_SOLID, {1, 0}, Rgb(kMarkerLineColor)};
  const gdi::SelectedPen pen(hdc, gdi::CreatePenIndirect(&line));
  const auto [xs, ys, dx, dy] = Displayed();
  gdi::Rectangle(hdc, xs, ys, Add(xs, dx), Add(ys, dy));
}

void clsText::ReportOperands(ElementReport& report) const {
  report.MemoryBit("Hide Operand: ", visibleOpAddr_);
}

// --- Rows and operands ---

void clsText::WriteRow(ado::Recordset& row) {
  WriteColumns<clsText>(row, *this, Columns::kSave);
  TakeTabIndex(row);
  WriteColumns<clsText>(row, *this, Columns::kSaveLast);
}

void clsText::ReadRow(const ado::Recordset& row) {
  ReadColumns<clsText>(row, *this, Columns::kLoad);
  operandBags_ = BuildOpPropBag();
  ReadColumns<clsText>(row, *this, Columns::kLoadString);
  // Once more, so that the operand that picks the string has a bag of its own address.
  RenewBagsOfStorageOperand();
  ChooseLibraryText();
  ReadColumns<clsText>(row, *this, Columns::kLoadLast);
}

bool clsText::ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) {
  ReadRow(pRsElement);
  FitActualText();
  return false;
}

automation::CollectionRef clsText::BuildOpPropBag() { return BagsOf<clsText>(*this, Operands::kTable); }

void clsText::ItfHmiElement_RestoreAllOperands() {
  RestoreFromBags<clsText>(*this, operandBags_, Operands::kTable);
}

void clsText::ReleaseOperands() const {
  ReleaseTouchOperand();
  ReleaseStorageOperand();
  ReleaseHideOperand();
}

}  // namespace quenzel7
