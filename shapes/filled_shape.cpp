#include "shapes/filled_shape.h"

#include <optional>
#include <string>

#include "framework/project.h"
#include "framework/tab_index.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/call_by_name.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"
#include "platform/platform.h"
#include "shapes/pick_ups.h"

namespace quenzel7 {

using automation::Add;

// clang-format off
struct FilledShape::Columns {
  using Shape = FilledShape;

  static constexpr auto kGroupId = FieldColumn<Shape, &Shape::groupId_>("GroupID");
  static constexpr auto kXs = PositionColumn<Shape, &Descriptor::xs>("Xs");
  static constexpr auto kYs = PositionColumn<Shape, &Descriptor::ys>("Ys");
  static constexpr auto kDx = PositionColumn<Shape, &Descriptor::dx>("Dx");
  static constexpr auto kDy = PositionColumn<Shape, &Descriptor::dy>("Dy");
  static constexpr auto kColorBack = FieldColumn<Shape, &Shape::colorBack_>("ColorBack");
  static constexpr auto kColorFore = FieldColumn<Shape, &Shape::colorFore_>("ColorFore");
  static constexpr auto kColorBackTouch = FieldColumn<Shape, &Shape::colorBackTouch_>("ColorBackTouch");
  static constexpr auto kColorForeTouch = FieldColumn<Shape, &Shape::colorForeTouch_>("ColorForeTouch");
  static constexpr auto kColorHatch = FieldColumn<Shape, &Shape::colorHatch_>("ColorHatch");
  static constexpr auto kPenStyle = FieldColumn<Shape, &Shape::penStyle_>("PenStyle");
  static constexpr auto kPenWidth = FieldColumn<Shape, &Shape::penWidth_>("PenWidth");
  static constexpr auto kHatchStyle = FieldColumn<Shape, &Shape::hatchStyle_>("HatchStyle");
  static constexpr auto kTouchOprndAddr = FieldColumn<Shape, &Shape::touchOprndAddr_>("TouchOprndAddr");
  static constexpr auto kVisibleOpAddr = FieldColumn<Shape, &Shape::visibleOpAddr_>("VisibleOpAddr");
  static constexpr auto kOrderIndex = FieldColumn<Shape, &Shape::orderIndex_>("OrderIndex");

  static constexpr Column<Shape> kSave[] = {
      TypeColumn<Shape>(),
      kXs, kYs, kDx, kDy,
      DisplayColumn<Shape>(),
      kGroupId,
      kColorBack, kColorFore, kColorBackTouch, kColorForeTouch, kColorHatch,
      kPenStyle, kPenWidth, kHatchStyle,
      kTouchOprndAddr, kVisibleOpAddr,
      ZeroColumn<Shape>("FontNumber"), ZeroColumn<Shape>("DescriptionFontNumber"),
      ZeroColumn<Shape>("Alignment"), ZeroColumn<Shape>("Flat3D"),
      ZeroColumn<Shape>("VarType"), ZeroColumn<Shape>("VarKeyPadEntry"),
      ZeroColumn<Shape>("VarOprndType"), ZeroColumn<Shape>("VarOprndAddr"),
      ZeroColumn<Shape>("GlobalVarID"), ZeroColumn<Shape>("DefaultDisplay"),
      NoOperandColumn<Shape>("KeypadSuccessOpAddr"), NoOperandColumn<Shape>("EnabledOpAddr"),
      NoOperandColumn<Shape>("HighlightOpAddr"),
      ConstantColumn<Shape, Byte, kNoTabIndex>("TabIndex"),
      kOrderIndex,
  };

  static constexpr Column<Shape> kLoad[] = {
      FieldColumn<Shape, &Shape::id_>("ID"), kGroupId,
      kXs, kYs, kDx, kDy,
      kColorBack, kColorFore, kColorBackTouch, kColorForeTouch, kColorHatch,
      kPenStyle, kPenWidth, kHatchStyle,
      kTouchOprndAddr, kVisibleOpAddr,
      kOrderIndex,
  };
};
// clang-format on

FilledShape::FilledShape(const Defaults& defaults)
    : colorFore_(defaults.colorFore),
      colorForeTouch_(defaults.colorForeTouch),
      colorHatch_(defaults.colorHatch),
      penWidth_(defaults.penWidth),
      colorService_(Platform::Current().colorService) {}

void FilledShape::WriteRow(ado::Recordset& row) const {
  WriteColumns<FilledShape>(row, *this, Columns::kSave);
}

void FilledShape::ReadRow(const ado::Recordset& row) { ReadColumns<FilledShape>(row, *this, Columns::kLoad); }

void FilledShape::CopyTo(FilledShape& copy) const {
  copy.CopyIdentityAndPosition(*this);
  copy.ColorBack(ColorBack());
  copy.ColorFore(ColorFore());
  copy.ColorBackTouch(ColorBackTouch());
  copy.ColorForeTouch(ColorForeTouch());
  copy.ColorHatch(ColorHatch());
  copy.FillStyle(FillStyle());
  copy.PenStyle(PenStyle());
  copy.PenWidth(PenWidth());
  copy.HatchStyle(HatchStyle());
  copy.CopyOperands(*this);
}

void FilledShape::ItfHmiElement_Draw(Long pHdc, bool) { DrawShape(pHdc); }

void FilledShape::ItfHmiElement_DrawToPrinter(Long pHdc, const std::string&) { DrawShape(pHdc); }

void FilledShape::DrawShape(Long hdc) const {
  gdi::LOGPEN border{};
  gdi::GetObjectA(gdi::GetCurrentObject(hdc, gdi::OBJ_PEN), sizeof border, &border);
  border.lopnColor = colorService_->GetColor(colorFore_);
  border.lopnWidth.x = penWidth_;
  // A thick border is solid and grows inward; only a one-pixel border has a line style.
  border.lopnStyle = penWidth_ == 1 ? static_cast<std::uint32_t>(penStyle_) : gdi::PS_INSIDEFRAME;
  std::optional<gdi::SelectedPen> pen(std::in_place, hdc, gdi::CreatePenIndirect(&border));

  const Descriptor& box = Displayed();
  const Long x2 = Add(box.xs, box.dx);
  const Long y2 = Add(box.ys, box.dy);
  const gdi::SelectedBrush brush(hdc, CreateBodyBrush(hdc));
  PaintFigure(hdc, box.xs, box.ys, x2, y2);
  // The pen goes back before the brush.
  pen.reset();
}

Long FilledShape::CreateBodyBrush(Long hdc) const {
  if (fillStyle_ != eFS_Hollow) {
    const gdi::LOGBRUSH solid{gdi::BS_SOLID, colorService_->GetColor(colorBack_), 0};
    return gdi::CreateBrushIndirect(&solid);
  }
  if (hatchStyle_ != eHS_None) {
    gdi::SetBkColor(hdc, colorService_->GetColor(colorBack_));
    return gdi::CreateHatchBrush(hatchStyle_, colorService_->GetColor(colorHatch_));
  }
  constexpr gdi::LOGBRUSH kHollow{gdi::BS_NULL, 0, 0};
  return gdi::CreateBrushIndirect(&kHollow);
}

void FilledShape::DrawPickUps(Long hdc, Long offsetX, Long offsetY, Single scaleX, Single scaleY, Long width,
                              Long maxX, Long maxY) const {
  quenzel7::DrawPickUps(hdc, Displayed(), PageView{offsetX, offsetY, scaleX, scaleY}, width, maxX, maxY);
}

void FilledShape::ItfHmiElement_CreateStaticElementPrinterReport(automation::Object& pVSPrinter) {
  const auto paragraph = [&pVSPrinter](const std::string& line) {
    automation::PutByName(pVSPrinter, "Paragraph", line);
  };
  const auto [xs, ys, dx, dy] = Initial();
  paragraph("Coordinates (Left,Top,Width,Height): (" + std::to_string(xs) + "," + std::to_string(ys) + "," +
            std::to_string(dx) + "," + std::to_string(dy) + ")");
  paragraph("Pen Width: " + std::to_string(penWidth_));
  if (HasHideOperand()) paragraph("Hide Operand: MB " + std::to_string(visibleOpAddr_));
}

}  // namespace quenzel7
