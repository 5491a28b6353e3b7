#include "variables/graphs/bargraph.h"

#include "framework/mono_bitmaps.h"
#include "framework/mono_bytes.h"
#include "platform/automation/arithmetic.h"
#include "platform/gdi/selected.h"
#include "platform/platform.h"
#include "shapes/frame_styles.h"
#include "variables/variable_report.h"

namespace quenzel7 {
namespace {

using automation::RoundHalfEven;
using automation::Subtract;

}  // namespace

/// How a frame style is painted behind the bar, and how far the bar keeps from it.
struct clsVarBargraph::Painter {
  void (*background)(corvane1::ColorService& colors, Long width, Long height, Long color, gdi::HDC dc);
  Long margin;
  /// The same at the far edges. Pages are composed with bars that are not in the middle of their frames.
  Long farMargin;

  /// The half of the scale that is full; nothing for a bar that grows in no direction.
  gdi::RECT FillOf(enBarGraphDrawType type, Long width, Long height) const;

  static const Painter kRaisedFrame, kSunkenFrame, kFlatFrame, kPlainFrame;
};

gdi::RECT clsVarBargraph::Painter::FillOf(enBarGraphDrawType type, Long width, Long height) const {
  // A bar from the near end ends a little beyond where one from the far end begins.
  const auto toMiddle = [](Long size) { return RoundHalfEven(size / 2.0 + 1); };
  const auto middle = [](Long size) { return RoundHalfEven(size / 2.0); };
  const auto end = [this](Long size) { return Subtract(size, farMargin); };
  switch (type) {
    case eBD_LeftToRight:
      return {margin, margin, toMiddle(width), end(height)};
    case eBD_RightToLeft:
      return {middle(width), margin, end(width), end(height)};
    case eBD_TopToBottom:
      return {margin, margin, end(width), toMiddle(height)};
    case eBD_BottomToTop:
      return {margin, middle(height), end(width), end(height)};
    default:
      return {};
  }
}

const clsVarBargraph::Painter clsVarBargraph::Painter::kRaisedFrame = {
    [](corvane1::ColorService& colors, Long width, Long height, Long color, gdi::HDC dc) {
      colors.DrawPressed3DRect(0, 0, width, height, color, 0, dc);
    },
    4, 3};
const clsVarBargraph::Painter clsVarBargraph::Painter::kSunkenFrame = {
    [](corvane1::ColorService& colors, Long width, Long height, Long color, gdi::HDC dc) {
      colors.DrawPressed3DRect(0, 0, width, height, color, 1, dc);
    },
    4, 3};
const clsVarBargraph::Painter clsVarBargraph::Painter::kFlatFrame = {
    [](corvane1::ColorService& colors, Long width, Long height, Long color, gdi::HDC dc) {
      colors.DrawFlatRect(0, 0, width, height, color, dc);
    },
    0, -1};
const clsVarBargraph::Painter clsVarBargraph::Painter::kPlainFrame = {
    [](corvane1::ColorService& colors, Long width, Long height, Long color, gdi::HDC dc) {
      const gdi::LOGBRUSH solid{gdi::BS_SOLID, colors.GetColor(color), 0};
      const gdi::SelectedBrush brush(dc, gdi::CreateBrushIndirect(&solid));
      gdi::Rectangle(dc, 0, 0, width, height);
    },
    1, 1};

// clang-format off
struct clsVarBargraph::KeyList {
  using Bar = clsVarBargraph;

  static constexpr Key<Bar> kPicture = {
      .name = "DrawingImage_hBmp",
      // Bars of colours that differ anywhere in the picture have different keys.
      .get = [](const Bar& bar) { return automation::From(WholeBitmapToBytes(bar.Drawing().hBmp())); },
      .use = kInChangeKey};
  static constexpr Key<Bar> kBitmap = {
      .name = "hBmp",
      .use = kReplicated,
      .copy = [](Bar& to, const Bar& from) {
        const Long bitmap = from.Drawing().hBmp();
        if (bitmap != 0) to.Drawing().hBmp(CopyMonoBitmap(bitmap));
      }};

  static constexpr auto kTable = MakeNamedTable(
      kPicture,
      FieldKey<Bar, &Bar::bargraphType_>("BargraphType"),
      FieldKey<Bar, &Bar::frame_>("Frame"),
      OperandTypeKey<Bar, &Bar::min_>("MinOpType"), OperandAddressKey<Bar, &Bar::min_>("MinOpAddress"),
      OperandTypeKey<Bar, &Bar::max_>("MaxOpType"), OperandAddressKey<Bar, &Bar::max_>("MaxOpAddress"),
      kBitmap,
      // The colour lies in the picture.
      FieldKey<Bar, &Bar::colorFore_>("ColorFore").For(kStored | kReplicated));
};
// clang-format on

const HandlerKeys& clsVarBargraph::Keys() const {
  static const KeysOf<clsVarBargraph> keys(KeyList::kTable, {ReadRegime::Raise, ChangeKeyForm::Longs});
  return keys;
}

Integer clsVarBargraph::ColorFore() const { return automation::ToInteger(colorFore_); }

void clsVarBargraph::TakeColorFore(Long color) { ColorFore(automation::ToInteger(color)); }

void clsVarBargraph::NewDrawForBarGraphForAlsoFlatAndFixedSingle(Long pHdc, Long pWidth, Long pHeight,
                                                                 Long pColorBack, Long& pFlat3D) {
  const Painter& painter = [&pFlat3D]() -> const Painter& {
    switch (pFlat3D) {
      case kFlat:
        return Painter::kFlatFrame;
      case kRaised:
        return Painter::kRaisedFrame;
      case kSunken:
        return Painter::kSunkenFrame;
      default:
        return Painter::kPlainFrame;
    }
  }();
  Paint(painter, pHdc, pWidth, pHeight, pColorBack);
}

void clsVarBargraph::Draw(Long pHdc, Long pWidth, Long pHeight, Long pColorBack) {
  Paint(Painter::kSunkenFrame, pHdc, pWidth, pHeight, pColorBack);
}

void clsVarBargraph::PaintPicture(const PictureRequest& request) {
  Long style = request.flat3D;
  NewDrawForBarGraphForAlsoFlatAndFixedSingle(request.hdc, request.dx, request.dy, request.colorBack, style);
}

void clsVarBargraph::Paint(const Painter& painter, Long hdc, Long width, Long height, Long colorBack) {
  const auto colors = Platform::Current().colorService;
  gdi::OwnedObject brush;
  PictureCanvas canvas(hdc, width, height);
  painter.background(*colors, width, height, colorBack, canvas.Dc());
  const gdi::RECT fill = painter.FillOf(bargraphType_, width, height);
  brush.Reset(gdi::CreateSolidBrush(colors->GetColor(colorFore_)));
  gdi::SelectObject(canvas.Dc(), brush.Get());
  gdi::FillRect(canvas.Dc(), &fill, brush.Get());
  canvas.ShowIn(Drawing());
}

// --- Report ---

namespace {

std::string DirectionName(enBarGraphDrawType type) {
  switch (type) {
    case eBD_BottomToTop:
      return "Up";
    case eBD_TopToBottom:
      return "Down";
    case eBD_LeftToRight:
      return "Right";
    case eBD_RightToLeft:
      return "Left";
    default:
      return {};
  }
}

}  // namespace

void clsVarBargraph::WriteReport(VariableReport& report) const {
  report.Common({ReportLine::Link, ReportLine::Hide, ReportLine::Style, ReportLine::Features});
  report.Feature("Direction: ", DirectionName(bargraphType_));
  report.Feature("Min Value: ", min_);
  report.Feature("Max Value: ", max_);
}

}  // namespace quenzel7
