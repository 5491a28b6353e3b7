#pragma once

#include <string_view>

#include "variables/handler_members.h"
#include "variables/picture_handler.h"

namespace quenzel7 {

/// The default interface of a bar, in slot order.
template <class Handler>
struct BargraphMembers;

/// Shows a value as a bar that grows with it between the values of two operands; in the editor the bar is
/// half full.
class clsVarBargraph final : public HandlerClass<clsVarBargraph, PictureHandler, BargraphMembers> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsVarBargraph";

  /// Paints the bar in a frame style of the variable, 0 flat, 1 raised, 3 sunken, any other number in a plain
  /// frame, and gives the picture to the element. Sizes in panel pixels, colours as panel colour numbers.
  /// Errors of the colour service, 6 when an edge does not fit 32 bits; the element has its old picture then.
  /// 91 after ReleaseResources.
  void NewDrawForBarGraphForAlsoFlatAndFixedSingle(Long pHdc, Long pWidth, Long pHeight, Long pColorBack,
                                                   Long& pFlat3D);
  /// The same, always sunken.
  void Draw(Long pHdc, Long pWidth, Long pHeight, Long pColorBack);

  /// The operands at the low and the high end of the scale.
  Long MinOpAddress() const { return min_.address; }
  void MinOpAddress(Long pValue) { min_.address = pValue; }
  Long MinOpType() const { return min_.type; }
  void MinOpType(Long pValue) { min_.type = pValue; }
  Long MaxOpAddress() const { return max_.address; }
  void MaxOpAddress(Long pValue) { max_.address = pValue; }
  Long MaxOpType() const { return max_.type; }
  void MaxOpType(Long pValue) { max_.type = pValue; }
  /// Kept and copied; what frame is painted, the style of the variable says.
  bool Frame() const { return frame_; }
  void Frame(bool pValue) { frame_ = pValue; }
  /// The direction in which the bar grows.
  enBarGraphDrawType BargraphType() const { return bargraphType_; }
  void BargraphType(enBarGraphDrawType pValue) { bargraphType_ = pValue; }
  /// Panel colour number of the bar. Error 6 on reading one that does not fit 16 bits.
  Integer ColorFore() const;
  void ColorFore(Integer pValue) { colorFore_ = pValue; }

  void PaintPicture(const PictureRequest& request) override;
  /// Error 6 for a number that does not fit 16 bits.
  void TakeColorFore(Long color) override;
  void WriteReport(VariableReport& report) const override;

 private:
  struct KeyList;
  struct Painter;

  void Paint(const Painter& painter, Long hdc, Long width, Long height, Long colorBack);

  const HandlerKeys& Keys() const override;
  std::vector<ExtraOperand> ExtraOperands() override { return {{Own(min_)}, {Own(max_)}}; }

  enBarGraphDrawType bargraphType_ = eBD_LeftToRight;
  OperandPair min_;
  OperandPair max_;
  bool frame_ = true;
  Long colorFore_ = 3;
};

template <class Handler>
struct BargraphMembers {
#define QUENZEL7_BAR_PROPERTY(Type, Name, Documentation)                             \
  automation::Property<Type>(#Name, Documentation, AUTOMATION_GETTER(Handler, Name), \
                             AUTOMATION_SETTER(Handler, Type, Name))
  using Common = HandlerMembers<Handler>;

  static constexpr auto kMembers = MakeNamedTable(
      automation::Method<Handler, &Handler::NewDrawForBarGraphForAlsoFlatAndFixedSingle>(
          "NewDrawForBarGraphForAlsoFlatAndFixedSingle", "Paints the bar in a frame style of the variable.",
          "pHdc, pWidth, pHeight, pColorBack, pFlat3D"),
      automation::Method<Handler, &Handler::Draw>("Draw", "Paints the bar sunken.",
                                                  "pHdc, pWidth, pHeight, pColorBack"),
      Common::ColOpPropBagByReference(), Common::DrawingElement(),
      QUENZEL7_BAR_PROPERTY(Long, MinOpAddress, "Address of the operand at the low end of the scale."),
      QUENZEL7_BAR_PROPERTY(Long, MinOpType, "Its type; 0 none."),
      QUENZEL7_BAR_PROPERTY(Long, MaxOpAddress, "Address of the operand at the high end of the scale."),
      QUENZEL7_BAR_PROPERTY(Long, MaxOpType, "Its type; 0 none."),
      QUENZEL7_BAR_PROPERTY(bool, Frame, "Kept with the bar; the variable's style says what is painted."),
      QUENZEL7_BAR_PROPERTY(enBarGraphDrawType, BargraphType, "The direction in which the bar grows."),
      QUENZEL7_BAR_PROPERTY(Integer, ColorFore, "Panel colour number of the bar."), Common::SetBinaryData(),
      Common::GetBinaryData(),
      automation::Method<Handler, &ItfVarBinaryHandler::ValidateFontNumber>(
          "ValidateFontNumber", "Does nothing: a bar has no font.", "pFontNumCollection"));
#undef QUENZEL7_BAR_PROPERTY
};

}  // namespace quenzel7
