#pragma once

#include <span>

#include "shapes/stroked_shape.h"

namespace quenzel7 {

/// What the rectangle, the ellipse and the round rectangle share: a border and a hollow, hatched or solid
/// body.
///
/// The fill style has no column in the project: saving leaves it out, and a loaded shape is hollow until the
/// host sets it. Only a replica takes it along.
class FilledShape : public StrokedShape {
 public:
  ~FilledShape() override = default;

 protected:
  FilledShape(const Stroke& stroke, Long colorHatch) : StrokedShape(stroke), colorHatch_(colorHatch) {}

  /// Paints the figure that fills the box with the selected pen and brush.
  virtual void PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const = 0;

  /// The panel colours of a solid body and of the lines of a hatched one.
  virtual Long SolidBodyColor() const { return colorBack_; }
  virtual Long HatchLineColor() const { return colorHatch_; }

  /// Paints the handles by which the shape at descriptor 4 is stretched; `offset`, `scale` and sizes as
  /// DrawPickUps.
  void DrawPickUps(Long hdc, Long offsetX, Long offsetY, Single scaleX, Single scaleY, Long width, Long maxX,
                   Long maxY) const;

  /// The column tables of a filled shape.
  template <class Shape>
  struct FilledColumns;

  /// The columns that the class writes.
  virtual std::span<const Column<FilledShape>> SaveColumns() const;

  void Paint(Long hdc) const override;
  void WriteRow(ado::Recordset& row) override;
  void ReadRow(const ado::Recordset& row) override;

  Long ItfHmiElement_ColorHatch() const override { return colorHatch_; }
  void ItfHmiElement_ColorHatch(Long pValue) override { colorHatch_ = pValue; }
  enFillStyle ItfHmiElement_FillStyle() const override { return fillStyle_; }
  void ItfHmiElement_FillStyle(enFillStyle pValue) override { fillStyle_ = pValue; }
  enHatchStyle ItfHmiElement_HatchStyle() const override { return hatchStyle_; }
  void ItfHmiElement_HatchStyle(enHatchStyle pValue) override { hatchStyle_ = pValue; }

 private:
  /// The brush of the body. A hatch sets the context's background colour, which stays as set.
  Long CreateBodyBrush(Long hdc) const;

  Long colorHatch_;
  enHatchStyle hatchStyle_ = eHS_None;
  enFillStyle fillStyle_ = eFS_Hollow;
};

template <class Shape>
struct FilledShape::FilledColumns {
  static constexpr auto kColorHatch = FieldColumn<Shape, &Shape::colorHatch_>("ColorHatch");
  static constexpr auto kHatchStyle = FieldColumn<Shape, &Shape::hatchStyle_>("HatchStyle");

  static constexpr auto kSave = Columns<Shape>::kSave.With(kColorHatch).With(kHatchStyle);
  static constexpr auto kLoad =
      Columns<Shape>::kLoad.WithAfter("ColorForeTouch", kColorHatch).WithAfter("PenWidth", kHatchStyle);
};

}  // namespace quenzel7
