#include "shapes/frame.h"

#include "platform/automation/arithmetic.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"

namespace quenzel7 {

using automation::Add;

// clang-format off
struct clsFrame::Columns : TextColumns<clsFrame> {
  using Frame = clsFrame;

  static constexpr auto kSave =
      kHead
          .Then(MakeColumnTable(kTouchOprndAddr))
          .Then(kStyle)
          .Then(MakeColumnTable(
              NoOperandColumn<Frame>("KeypadSuccessOpAddr"), NoOperandColumn<Frame>("EnabledOpAddr"),
              NoOperandColumn<Frame>("HighlightOpAddr"), NoOperandColumn<Frame>("VisibleOpAddr")));
  /// The order is given with a new row and never written again.
  static constexpr auto kSaveLast = TextColumns<clsFrame>::kSaveLast.Without("OrderIndex");

  static constexpr auto kReadBack = MakeColumnTable(kId, kOrderIndex);

  static constexpr auto kLoad = MakeColumnTable(
      kId, kGroupId,
      kXs, kYs, kDx, kDy,
      kColorBack, kColorFore, kColorBackTouch, kColorForeTouch,
      kText, kFontNumber, kAlignment,
      kTouchOprndAddr,
      kFlat3D,
      kStorageStringType, kStorageStringId);
  static constexpr auto kLoadLast = MakeColumnTable(kTabIndex, kOrderIndex);
};
// clang-format on

struct clsFrame::Operands : TextOperands<clsFrame> {
  static constexpr ElementOperand<clsFrame> kTable[] = {kTouchWithBag, kStorageString};
};

clsFrame::clsFrame()
    : ElementClass(
          [] {
            using enum ElementDefault;
            const Long style = ElementSetting(FrameStyle, "1");
            const Long back = ElementSetting(style != kFlat ? FrameColorBack : FlatFrameColorBack, "103");
            const Long fore = ElementSetting(FrameColorFore, "5");
            const auto alignment = ElementSetting<Integer>(FrameAlignment, "1");
            return Manner{.flat3D = style,
                          .colors = {.back = back, .fore = fore, .backTouch = back, .foreTouch = fore},
                          .alignment = alignment};
          }(),
          "Frame") {}

void clsFrame::GetOptimalDimensions(Long& pDx, Long& pDy) const {
  constexpr Long kAllowance = 8;
  const corvane1::TextExtent size = FullSize();
  const Long width = Add(size.width, kAllowance), height = Add(size.height, kAllowance);
  pDx = width;
  pDy = height;
}

// --- Painting ---

void clsFrame::ItfHmiElement_Draw(Long pHdc, bool) {
  switch (flat3D_) {
    case kFlat:
      DrawFlatFrame(pHdc, Displayed(), Rgb(colorBack_));
      break;
    case kBoxed:
      DrawPlainFrame(pHdc, Displayed(), Rgb(colorBack_));
      break;
    case kRaised:
      DrawRaisedFrame(pHdc, Displayed(), colorBack_, ColorsToPaint());
      break;
    case kSunken:
      DrawSunkenFrame(pHdc, Displayed(), colorBack_, ColorsToPaint());
      break;
    default:
      return;
  }
  if (HasText()) PaintCaption(pHdc);
}

void clsFrame::PaintCaption(Long hdc) const {
  const TextColors colors = OwnTextColors(hdc);
  PaintBlockOrLines(hdc, flat3D_, PaintStored, PaintConstant);
}

void clsFrame::DrawTransparent(Long pHdc) {
  const Descriptor place = Displayed();
  const gdi::OwnedContext memory(pHdc);
  const gdi::SelectedBitmap bitmap(memory.Get(), gdi::CreateCompatibleBitmap(pHdc, place.dx, place.dy));
  /// Shows the frame at the corner of the picture for as long as it lives.
  struct AtCorner {
    explicit AtCorner(Descriptor& displayed) : displayed_(displayed), xs_(displayed.xs), ys_(displayed.ys) {
      displayed_.xs = displayed_.ys = 0;
    }
    ~AtCorner() {
      displayed_.xs = xs_;
      displayed_.ys = ys_;
    }
    AtCorner(const AtCorner&) = delete;
    AtCorner& operator=(const AtCorner&) = delete;

    Descriptor& displayed_;
    Long xs_, ys_;
  };
  {
    const AtCorner atCorner(position_.At(kDisplayed));
    Draw(memory.Get(), false);
  }
  constexpr gdi::BLENDFUNCTION kHalf{
      .BlendOp = gdi::AC_SRC_OVER, .BlendFlags = 0, .SourceConstantAlpha = 128, .AlphaFormat = 0};
  gdi::AlphaBlend(pHdc, place.xs, place.ys, place.dx, place.dy, memory.Get(), 0, 0, place.dx, place.dy,
                  kHalf);
}

void clsFrame::ReportOperands(ElementReport& report) const { ReportLibraryString(report); }

// --- Rows and operands ---

void clsFrame::GiveOrder(ado::Recordset& newRow) { GiveOrderToRow(newRow); }

void clsFrame::WriteRow(ado::Recordset& row) {
  WriteColumns<clsFrame>(row, *this, Columns::kSave);
  TakeTabIndex(row);
  WriteColumns<clsFrame>(row, *this, Columns::kSaveLast);
}

void clsFrame::ReadBack(const ado::Recordset& row) { ReadColumns<clsFrame>(row, *this, Columns::kReadBack); }

void clsFrame::ReadRow(const ado::Recordset& row) {
  ReadColumns<clsFrame>(row, *this, Columns::kLoad);
  ChooseLibraryText();
  ReadColumns<clsFrame>(row, *this, Columns::kLoadLast);
}

automation::CollectionRef clsFrame::BuildOpPropBag() { return BagsOf<clsFrame>(*this, Operands::kTable); }

void clsFrame::ItfHmiElement_RestoreAllOperands() {
  RestoreFromBags<clsFrame>(*this, operandBags_, Operands::kTable);
}

void clsFrame::ReleaseOperands() const {
  ReleaseTouchOperand();
  ReleaseStorageOperand();
}

}  // namespace quenzel7
