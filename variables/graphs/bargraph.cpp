#include "variables/graphs/bargraph.h"

#include "framework/mono_bitmaps.h"
#include "framework/mono_bytes.h"
#include "platform/automation/arithmetic.h"
#include "platform/gdi/selected.h"
#include "platform/platform.h"
#include "shapes/frame_styles.h"

namespace quenzel7 {
namespace {

using automation::Add;
using automation::RoundHalfEven;
using automation::Subtract;

}  // namespace

/// How a frame style is painted behind the bar, and how far the bar keeps from it.
struct clsVarBargraph::Painter {
  void (*background)(corvane1::ColorService& colors, Long width, Long height, Long color, gdi::HDC dc);
  Long margin;
  /// How far the far edges reach beyond what the margin leaves: pages are composed with bars that are not in
  /// the middle of their frames.
  Long beyond;

  /// The half of the scale that is full; nothing for a bar that grows in no direction.
  gdi::RECT FillOf(enBarGraphDrawType type, Long width, Long height) const;

  static const Painter kRaisedFrame, kSunkenFrame, kFlatFrame, kPlainFrame;
};

gdi::RECT clsVarBargraph::Painter::FillOf(enBarGraphDrawType type, Long width, Long height) const {
  // Along the way that the bar grows: a bar from the near end, and one from the far end.
  const auto toMiddle = [](Long size) { return RoundHalfEven(size / 2.0 + 1); };
  const auto middle = [](Long size) { return RoundHalfEven(size / 2.0); };
  const auto toEnd = [this, &middle](Long size) {
    return RoundHalfEven(middle(size) + size / 2.0 - margin + beyond);
  };
  // Across that way it fills what the margin leaves.
  const auto farEdge = [this](Long size) { return Add(Subtract(size, margin), beyond); };
  switch (type) {
    case eBD_LeftToRight:
      return {margin, margin, toMiddle(width), farEdge(height)};
    case eBD_RightToLeft:
      return {middle(width), margin, toEnd(width), farEdge(height)};
    case eBD_TopToBottom:
      return {margin, margin, farEdge(width), toMiddle(height)};
    case eBD_BottomToTop:
      return {margin, middle(height), farEdge(width), toEnd(height)};
    default:
      return {};
  }
}

const clsVarBargraph::Painter clsVarBargraph::Painter::kRaisedFrame = {
    [](corvane1::ColorService& colors, Long width, Long height, Long color, gdi::HDC dc) {
      colors.DrawPressed3DRect(0, 0, width, height, color, 0, dc);
    },
    4, 1};
const clsVarBargraph::Painter clsVarBargraph::Painter::kSunkenFrame = {
    [](corvane1::ColorService& colors, Long width, Long height, Long color, gdi::HDC dc) {
      colors.DrawPressed3DRect(0, 0, width, height, color, 1, dc);
    },
    4, 1};
const clsVarBargraph::Painter clsVarBargraph::Painter::kFlatFrame = {
    [](corvane1::ColorService& colors, Long width, Long height, Long color, gdi::HDC dc) {
      colors.DrawFlatRect(0, 0, width, height, color, dc);
    },
    0, 1};
const clsVarBargraph::Painter clsVarBargraph::Painter::kPlainFrame = {
    [](corvane1::ColorService& colors, Long width, Long height, Long color, gdi::HDC dc) {
      const gdi::LOGBRUSH solid{gdi::BS_SOLID, colors.GetColor(color), 0};
      const gdi::SelectedBrush brush(dc, gdi::CreateBrushIndirect(&solid));
      gdi::Rectangle(dc, 0, 0, width, height);
    },
    1, 0};

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

}  // namespace quenzel7
