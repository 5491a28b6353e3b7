#pragma once

#include <string>

#include "framework/tab_index.h"
#include "shapes/colored_element.h"
#include "shapes/element_setting.h"

namespace quenzel7 {

/// What the filled shapes and the line share: a pen, four panel colours, their columns and their report.
class StrokedShape : public ColoredElement {
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

  void ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) override;
  void ItfHmiElement_DrawToPrinter(Long pHdc, const std::string& pVarAlias) override;
  void ItfHmiElement_CreateStaticElementPrinterReport(automation::Object& pVSPrinter) override;
  Long ItfHmiElement_PenWidth() const override { return penWidth_; }
  void ItfHmiElement_PenWidth(Long pValue) override { penWidth_ = pValue; }
  enPenStyle ItfHmiElement_PenStyle() const override { return penStyle_; }
  void ItfHmiElement_PenStyle(enPenStyle pValue) override { penStyle_ = pValue; }

  /// The column tables of a shape without a body; a class that has more, or less, makes its own from them.
  template <class Shape>
  struct Columns;

  enPenStyle penStyle_ = ePS_Solid;
  Long penWidth_;
};

// clang-format off
template <class Shape>
struct StrokedShape::Columns : ColorColumns<Shape> {
  using Common = ColorColumns<Shape>;

  static constexpr auto kPenStyle = FieldColumn<Shape, &Shape::penStyle_>("PenStyle");
  static constexpr auto kPenWidth = FieldColumn<Shape, &Shape::penWidth_>("PenWidth");

  static constexpr auto kSave = MakeColumnTable(
      TypeColumn<Shape>(),
      Common::kXs, Common::kYs, Common::kDx, Common::kDy,
      DisplayColumn<Shape>(),
      Common::kGroupId,
      Common::kColorBack, Common::kColorFore, Common::kColorBackTouch, Common::kColorForeTouch,
      ZeroColumn<Shape>("ColorHatch"),
      kPenStyle, kPenWidth, ZeroColumn<Shape>("HatchStyle"),
      Common::kTouchOprndAddr, Common::kVisibleOpAddr,
      ZeroColumn<Shape>("FontNumber"), ZeroColumn<Shape>("DescriptionFontNumber"),
      ZeroColumn<Shape>("Alignment"), ZeroColumn<Shape>("Flat3D"),
      ZeroColumn<Shape>("VarType"), ZeroColumn<Shape>("VarKeyPadEntry"),
      ZeroColumn<Shape>("VarOprndType"), ZeroColumn<Shape>("VarOprndAddr"),
      ZeroColumn<Shape>("GlobalVarID"), ZeroColumn<Shape>("DefaultDisplay"),
      NoOperandColumn<Shape>("KeypadSuccessOpAddr"), NoOperandColumn<Shape>("EnabledOpAddr"),
      NoOperandColumn<Shape>("HighlightOpAddr"),
      ConstantColumn<Shape, Byte, kNoTabIndex>("TabIndex"),
      Common::kOrderIndex);

  static constexpr auto kLoad = MakeColumnTable(
      Common::kId, Common::kGroupId,
      Common::kXs, Common::kYs, Common::kDx, Common::kDy,
      Common::kColorBack, Common::kColorFore, Common::kColorBackTouch, Common::kColorForeTouch,
      kPenStyle, kPenWidth,
      Common::kTouchOprndAddr, Common::kVisibleOpAddr,
      Common::kOrderIndex);
};
// clang-format on

}  // namespace quenzel7
