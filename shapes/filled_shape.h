#pragma once

#include <memory>
#include <string>

#include "platform/automation/member.h"
#include "platform/corvane1/color_service.h"
#include "shapes/positioned_element.h"

namespace quenzel7 {

/// What the rectangle, the ellipse and the round rectangle share: a border and a hollow, hatched or solid
/// body.
///
/// The fill style has no column in the project: saving leaves it out, and a loaded shape is hollow until the
/// host sets it. Only a replica takes it along.
class FilledShape : public PositionedElement {
 public:
  ~FilledShape() override = default;

 protected:
  /// What differs between the classes when a shape is made.
  struct Defaults {
    Long colorFore;
    Long colorForeTouch;
    Long colorHatch;
    Long penWidth;
  };

  explicit FilledShape(const Defaults& defaults);

  /// Paints the figure that fills the box with the selected pen and brush.
  virtual void PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const = 0;

  /// Copies all that a replica takes over, through the writers of the default interface and in their order.
  void CopyTo(FilledShape& copy) const;

  /// Paints the handles by which the shape at descriptor 4 is stretched; `offset`, `scale` and sizes as
  /// DrawPickUps.
  void DrawPickUps(Long hdc, Long offsetX, Long offsetY, Single scaleX, Single scaleY, Long width, Long maxX,
                   Long maxY) const;

  void WriteRow(ado::Recordset& row) const override;
  void ReadRow(const ado::Recordset& row) override;

  void ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) override;
  void ItfHmiElement_DrawToPrinter(Long pHdc, const std::string& pVarAlias) override;
  void ItfHmiElement_CreateStaticElementPrinterReport(automation::Object& pVSPrinter) override;
  Long ItfHmiElement_ColorBack() const override { return colorBack_; }
  void ItfHmiElement_ColorBack(Long pValue) override { colorBack_ = pValue; }
  Long ItfHmiElement_ColorFore() const override { return colorFore_; }
  void ItfHmiElement_ColorFore(Long pValue) override { colorFore_ = pValue; }
  Long ItfHmiElement_ColorHatch() const override { return colorHatch_; }
  void ItfHmiElement_ColorHatch(Long pValue) override { colorHatch_ = pValue; }
  Long ItfHmiElement_ColorBackTouch() const override { return colorBackTouch_; }
  void ItfHmiElement_ColorBackTouch(Long pValue) override { colorBackTouch_ = pValue; }
  Long ItfHmiElement_ColorForeTouch() const override { return colorForeTouch_; }
  void ItfHmiElement_ColorForeTouch(Long pValue) override { colorForeTouch_ = pValue; }
  Long ItfHmiElement_PenWidth() const override { return penWidth_; }
  void ItfHmiElement_PenWidth(Long pValue) override { penWidth_ = pValue; }
  enPenStyle ItfHmiElement_PenStyle() const override { return penStyle_; }
  void ItfHmiElement_PenStyle(enPenStyle pValue) override { penStyle_ = pValue; }
  enFillStyle ItfHmiElement_FillStyle() const override { return fillStyle_; }
  void ItfHmiElement_FillStyle(enFillStyle pValue) override { fillStyle_ = pValue; }
  enHatchStyle ItfHmiElement_HatchStyle() const override { return hatchStyle_; }
  void ItfHmiElement_HatchStyle(enHatchStyle pValue) override { hatchStyle_ = pValue; }

 private:
  struct Columns;

  /// The one routine behind Draw and DrawToPrinter.
  void DrawShape(Long hdc) const;
  /// The brush of the body. A hatch sets the context's background colour, which stays as set.
  Long CreateBodyBrush(Long hdc) const;

  Long colorBack_ = -1;
  Long colorFore_;
  Long colorBackTouch_ = -1;
  Long colorForeTouch_;
  Long colorHatch_;
  enPenStyle penStyle_ = ePS_Solid;
  Long penWidth_;
  enHatchStyle hatchStyle_ = eHS_None;
  enFillStyle fillStyle_ = eFS_Hollow;
  std::shared_ptr<corvane1::ColorService> colorService_;
};

#define QUENZEL7_SHAPE_PROPERTY(Type, Name, ...)                        \
  automation::Property<Type>(#Name, {}, AUTOMATION_GETTER(Shape, Name), \
                             AUTOMATION_SETTER(Shape, Type, Name) __VA_OPT__(, ) __VA_ARGS__)

/// The default interface of a filled shape, in slot order.
template <class Shape>
struct FilledShapeMembers {
  static constexpr automation::Member kMembers[] = {
      automation::PutRefProperty<automation::CollectionRef>(
          "ColOpPropBag", "Operand bags of the element, taken by reference.",
          AUTOMATION_SETTER(Shape, automation::CollectionRef, ColOpPropBag)),
      QUENZEL7_SHAPE_PROPERTY(Long, VisibleOpAddr),
      QUENZEL7_SHAPE_PROPERTY(Long, TouchOprndAddr),
      QUENZEL7_SHAPE_PROPERTY(enHatchStyle, HatchStyle),
      QUENZEL7_SHAPE_PROPERTY(Long, PenWidth),
      QUENZEL7_SHAPE_PROPERTY(enPenStyle, PenStyle),
      QUENZEL7_SHAPE_PROPERTY(enFillStyle, FillStyle, automation::Mark::NotStored),
      QUENZEL7_SHAPE_PROPERTY(Long, ColorHatch),
      QUENZEL7_SHAPE_PROPERTY(Long, ColorFore),
      QUENZEL7_SHAPE_PROPERTY(Long, ColorBack),
      QUENZEL7_SHAPE_PROPERTY(Long, GroupID, automation::Mark::Identity),
      QUENZEL7_SHAPE_PROPERTY(Long, ID, automation::Mark::Identity),
      QUENZEL7_SHAPE_PROPERTY(Long, Xs),
      QUENZEL7_SHAPE_PROPERTY(Long, Ys),
      QUENZEL7_SHAPE_PROPERTY(Long, Dx),
      QUENZEL7_SHAPE_PROPERTY(Long, Dy),
      automation::Method<Shape, &Shape::SaveToDB>("SaveToDB", "Writes the element's row; always True."),
      automation::Method<Shape, &ItfHmiElement::CreateStaticElementPrinterReport>(
          "ItfHmiElement_CreateStaticElementPrinterReport",
          "Writes the element's lines into a printed report."),
      QUENZEL7_SHAPE_PROPERTY(Long, ColorForeTouch),
      QUENZEL7_SHAPE_PROPERTY(Long, ColorBackTouch),
      QUENZEL7_SHAPE_PROPERTY(Long, OrderIndex, automation::Mark::Identity),
  };
};

#undef QUENZEL7_SHAPE_PROPERTY

}  // namespace quenzel7
