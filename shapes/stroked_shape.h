#pragma once

#include <memory>
#include <string>

#include "framework/tab_index.h"
#include "platform/corvane1/color_service.h"
#include "platform/gdi/gdi.h"
#include "shapes/element_columns.h"
#include "shapes/element_setting.h"
#include "shapes/positioned_element.h"

namespace quenzel7 {

/// What the filled shapes and the line share: a pen, four panel colours, their columns and their report.
class StrokedShape : public PositionedElement {
 public:
  ~StrokedShape() override = default;

 protected:
  /// What differs between the classes when a shape is made.
  struct Stroke {
    Long colorFore;
    Long colorForeTouch;
    Long penWidth;
  };

  explicit StrokedShape(const Stroke& stroke);

  /// Colour and width from the settings, asked in this order; the touch colour follows the border's. Errors
  /// of ElementSetting.
  static Stroke StrokeFromSettings(ElementDefault color, ElementDefault width);

  /// Paints the shape at descriptor 4; the one routine behind Draw and DrawToPrinter.
  virtual void Paint(Long hdc) const = 0;

  /// Copies all that a replica takes over, through the writers of the default interface and in their order.
  /// What the class does not carry reads 0 and goes nowhere.
  void CopyTo(StrokedShape& copy) const;

  /// The pen that is selected in the context.
  static gdi::LOGPEN CurrentPen(Long hdc);
  /// A panel colour as the graphics interface takes it.
  std::uint32_t Rgb(Long panelColor) const { return colorService_->GetColor(panelColor); }

  void ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) override;
  void ItfHmiElement_DrawToPrinter(Long pHdc, const std::string& pVarAlias) override;
  void ItfHmiElement_CreateStaticElementPrinterReport(automation::Object& pVSPrinter) override;
  Long ItfHmiElement_ColorBack() const override { return colorBack_; }
  void ItfHmiElement_ColorBack(Long pValue) override { colorBack_ = pValue; }
  Long ItfHmiElement_ColorFore() const override { return colorFore_; }
  void ItfHmiElement_ColorFore(Long pValue) override { colorFore_ = pValue; }
  Long ItfHmiElement_ColorBackTouch() const override { return colorBackTouch_; }
  void ItfHmiElement_ColorBackTouch(Long pValue) override { colorBackTouch_ = pValue; }
  Long ItfHmiElement_ColorForeTouch() const override { return colorForeTouch_; }
  void ItfHmiElement_ColorForeTouch(Long pValue) override { colorForeTouch_ = pValue; }
  Long ItfHmiElement_PenWidth() const override { return penWidth_; }
  void ItfHmiElement_PenWidth(Long pValue) override { penWidth_ = pValue; }
  enPenStyle ItfHmiElement_PenStyle() const override { return penStyle_; }
  void ItfHmiElement_PenStyle(enPenStyle pValue) override { penStyle_ = pValue; }

  /// The column tables of a shape without a body; a class that has more, or less, makes its own from them.
  template <class Shape>
  struct Columns;

  Long colorBack_ = kNone;
  Long colorFore_;
  Long colorBackTouch_ = kNone;
  Long colorForeTouch_;
  enPenStyle penStyle_ = ePS_Solid;
  Long penWidth_;

 private:
  std::shared_ptr<corvane1::ColorService> colorService_;
};

// clang-format off
template <class Shape>
struct StrokedShape::Columns {
  static constexpr auto kGroupId = FieldColumn<Shape, &Shape::groupId_>("GroupID");
  static constexpr auto kXs = PositionColumn<Shape, &Descriptor::xs>("Xs");
  static constexpr auto kYs = PositionColumn<Shape, &Descriptor::ys>("Ys");
  static constexpr auto kDx = PositionColumn<Shape, &Descriptor::dx>("Dx");
  static constexpr auto kDy = PositionColumn<Shape, &Descriptor::dy>("Dy");
  static constexpr auto kColorBack = FieldColumn<Shape, &Shape::colorBack_>("ColorBack");
  static constexpr auto kColorFore = FieldColumn<Shape, &Shape::colorFore_>("ColorFore");
  static constexpr auto kColorBackTouch = FieldColumn<Shape, &Shape::colorBackTouch_>("ColorBackTouch");
  static constexpr auto kColorForeTouch = FieldColumn<Shape, &Shape::colorForeTouch_>("ColorForeTouch");
  static constexpr auto kPenStyle = FieldColumn<Shape, &Shape::penStyle_>("PenStyle");
  static constexpr auto kPenWidth = FieldColumn<Shape, &Shape::penWidth_>("PenWidth");
  static constexpr auto kTouchOprndAddr = FieldColumn<Shape, &Shape::touchOprndAddr_>("TouchOprndAddr");
  static constexpr auto kVisibleOpAddr = FieldColumn<Shape, &Shape::visibleOpAddr_>("VisibleOpAddr");
  static constexpr auto kOrderIndex = FieldColumn<Shape, &Shape::orderIndex_>("OrderIndex");

  static constexpr auto kSave = MakeColumnTable(
      TypeColumn<Shape>(),
      kXs, kYs, kDx, kDy,
      DisplayColumn<Shape>(),
      kGroupId,
      kColorBack, kColorFore, kColorBackTouch, kColorForeTouch, ZeroColumn<Shape>("ColorHatch"),
      kPenStyle, kPenWidth, ZeroColumn<Shape>("HatchStyle"),
      kTouchOprndAddr, kVisibleOpAddr,
      ZeroColumn<Shape>("FontNumber"), ZeroColumn<Shape>("DescriptionFontNumber"),
      ZeroColumn<Shape>("Alignment"), ZeroColumn<Shape>("Flat3D"),
      ZeroColumn<Shape>("VarType"), ZeroColumn<Shape>("VarKeyPadEntry"),
      ZeroColumn<Shape>("VarOprndType"), ZeroColumn<Shape>("VarOprndAddr"),
      ZeroColumn<Shape>("GlobalVarID"), ZeroColumn<Shape>("DefaultDisplay"),
      NoOperandColumn<Shape>("KeypadSuccessOpAddr"), NoOperandColumn<Shape>("EnabledOpAddr"),
      NoOperandColumn<Shape>("HighlightOpAddr"),
      ConstantColumn<Shape, Byte, kNoTabIndex>("TabIndex"),
      kOrderIndex);

  static constexpr auto kLoad = MakeColumnTable(
      FieldColumn<Shape, &Shape::id_>("ID"), kGroupId,
      kXs, kYs, kDx, kDy,
      kColorBack, kColorFore, kColorBackTouch, kColorForeTouch,
      kPenStyle, kPenWidth,
      kTouchOprndAddr, kVisibleOpAddr,
      kOrderIndex);
};
// clang-format on

}  // namespace quenzel7
