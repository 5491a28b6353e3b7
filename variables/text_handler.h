#pragma once

#include "shapes/text.h"
#include "variables/drawn_handler.h"

namespace quenzel7 {

/// What the handlers share that show a text: the text element that paints it.
class TextHandler : public DrawnHandler<clsText> {
 protected:
  /// What the text needs as it stands.
  void ItfVarBinaryHandler_GetOptimalDimensions(Long& pDx, Long& pDy) override {
    Drawing().GetOptimalDimensions(pDx, pDy);
  }
  bool ItfVarBinaryHandler_IsHmiFontInUse(Long pFontNum) const override {
    return Drawing().FontNumber() == pFontNum;
  }

  /// Settings of the text element.
  struct DrawingKeys;
};

struct TextHandler::DrawingKeys {
#define QUENZEL7_DRAWING_KEY(Type, Name)                                           \
  static constexpr Key<clsText> k##Name = {                                        \
      .name = #Name,                                                               \
      .get = [](const clsText& text) { return automation::Variant(text.Name()); }, \
      .put = [](clsText& text,                                                     \
                const automation::Variant& value) { text.Name(automation::To<Type>(value)); }};
  QUENZEL7_DRAWING_KEY(std::string, Txt)
  QUENZEL7_DRAWING_KEY(Long, FontNumber)
  QUENZEL7_DRAWING_KEY(Long, ColorFore)
  QUENZEL7_DRAWING_KEY(Long, ColorBack)
#undef QUENZEL7_DRAWING_KEY
};

/// What the handlers share that show a sample of their value in a font that they keep themselves.
class SampleTextHandler : public TextHandler {
 public:
  /// Number of the font; the drawing element's own can differ.
  Long FontNumber() const { return fontNumber_; }
  void FontNumber(Long pValue) { fontNumber_ = pValue; }
  /// Panel colour number of the text; the drawing element's own can differ.
  Long ColorFore() const { return colorFore_; }
  void ColorFore(Long pValue) { colorFore_ = pValue; }

 protected:
  explicit SampleTextHandler(Long colorFore);

  void ItfVarBinaryHandler_ValidateFontNumber(automation::CollectionRef& pFontNumCollection) override;
  void ItfVarBinaryHandler_UpdateOnFontDelete(Long pFontNum) override;

  Long fontNumber_;
  Long colorFore_;
};

}  // namespace quenzel7
