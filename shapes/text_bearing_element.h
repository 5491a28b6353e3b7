#pragma once

#include <memory>
#include <string>

#include "framework/touch_style.h"
#include "platform/corvane1/font_service.h"
#include "platform/corvane1/text_painter.h"
#include "platform/gdi/selected.h"
#include "shapes/colored_element.h"
#include "shapes/current_pen.h"
#include "shapes/element_report.h"
#include "shapes/element_setting.h"
#include "shapes/frame_styles.h"

namespace quenzel7 {

/// What every element that bears a text shares: the text and what of it fits, its font, alignment and frame
/// style, the string of the library or the operand that picks one, and the place in the tab order.
///
/// The text is fitted whenever text, font, style or size is set, and when what fits is read; alignment and
/// place leave it alone.
class TextBearingElement : public ColoredElement {
 public:
  /// What is painted. Reading fits the text first, and so replaces what was written here, as when a variable
  /// shows a value. Errors of FitTextToRect and of the font service.
  std::string ActualText();
  void ActualText(std::string pValue) { actualText_ = std::move(pValue); }

  /// The frame style, as FrameStyle. Writing fits the text; errors as above.
  Long Flat3D() const { return flat3D_; }
  void Flat3D(Long pValue);

  /// 0: StorageStringID is the number of a string in the library; otherwise the type of the operand at that
  /// address. Writing builds the operand bags anew when there is such an operand and the element has a row.
  Long StorageStringType() const { return storageStringType_; }
  void StorageStringType(Long pValue);
  /// Number of a string or address of an operand; -1 for a constant text. Writing as above.
  Long StorageStringID() const { return storageStringId_; }
  void StorageStringID(Long pValue);

  /// The operand bags. Writing shares the collection, unless there is an operand that picks the string and
  /// the element has a row: then the bags are built anew instead.
  const automation::CollectionRef& ColOpPropBag() const { return operandBags_; }
  void ColOpPropBag(automation::CollectionRef pValue);

  /// The size in panel pixels at which nothing of the text is cut, in no language, with the frame around it.
  /// Errors of what measures, and of the string library.
  virtual void GetOptimalDimensions(Long& pDx, Long& pDy) const = 0;
  using ItfHmiElement::GetOptimalDimensions;

 protected:
  /// What differs between the classes when an element is made.
  struct Manner {
    Long flat3D;
    Colors colors;
    Integer alignment;
  };

  TextBearingElement(const Manner& manner, std::string text);
  ~TextBearingElement() override = default;

  /// How far a text keeps from the far edges when it is fitted.
  virtual Long FittingInset() const;
  /// Writes the report's lines that follow the style.
  virtual void ReportOperands(ElementReport& report) const = 0;

  /// Takes what fits of the text; leaves what was there when right and bottom edge of the room sum up to 0.
  void FitActualText();
  /// Takes text and font of the library's string in the language that needs the most room, when the element
  /// shows one.
  void ChooseLibraryText();
  /// The room that the whole text needs, without a frame.
  corvane1::TextExtent FullSizeOfText() const;
  /// The same in all languages.
  corvane1::TextExtent FullSize() const;

  /// Whether the string is picked at run time by an operand.
  bool HasStorageOperand() const { return storageStringType_ != 0; }
  /// Whether a string of the library is painted, or one that an operand picks.
  bool ShowsLibraryText() const { return storageStringId_ >= 0; }
  /// Whether there is more to paint than blanks.
  bool HasText() const { return actualText_.find_first_not_of(' ') != std::string::npos; }

  /// Pen and background colour of a context for the time of painting a text; both are put back.
  class TextColors;
  /// Those of the element itself.
  TextColors OwnTextColors(Long hdc) const;

  /// How a line, or all lines at once, are painted.
  using PaintOperation = void (*)(corvane1::TextPainter&, Long x, Long y, const std::string& text, Long hdc,
                                  Long font);
  /// The painter's operations for a constant text, on its background and without one.
  static void PaintConstant(corvane1::TextPainter& painter, Long x, Long y, const std::string& text, Long hdc,
                            Long font) {
    painter.DrawText(x, y, text, hdc, font);
  }
  static void PaintConstantTransparent(corvane1::TextPainter& painter, Long x, Long y,
                                       const std::string& text, Long hdc, Long font) {
    painter.DrawTextTransparent(x, y, text, hdc, font);
  }
  /// Those for a string of the library; `option` is what the painter is told beside it.
  static void PaintStored(corvane1::TextPainter& painter, Long x, Long y, const std::string& text, Long hdc,
                          Long font) {
    painter.DrawStorageText(x, y, text, hdc, font);
  }
  template <Long option>
  static void PaintStoredTransparent(corvane1::TextPainter& painter, Long x, Long y, const std::string& text,
                                     Long hdc, Long font) {
    painter.DrawStorageTextTransparent(x, y, text, hdc, font, option);
  }
  /// Paints each line at its own place across, the block of all lines at its place down. `frameFlag` as for
  /// FontService::GetTextPosition.
  void PaintLines(Long hdc, Long frameFlag, PaintOperation paint) const;
  /// Paints a string of the library in one call, another text line by line.
  void PaintBlockOrLines(Long hdc, Long frameFlag, PaintOperation block, PaintOperation line) const;

  /// Gives the element its place in the tab order, or takes it away.
  void TakeTabIndex(ado::Recordset& row);

  void ReleaseStorageOperand() const;
  /// Builds the bags anew when an operand picks the string and the element has a row.
  void RenewBagsOfStorageOperand();
  void ReportLibraryString(ElementReport& report) const;

  /// Copies all that a replica takes over.
  void CopyTo(TextBearingElement& copy) const;

  bool IsNew() const override { return id_ < 0; }
  bool ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) override;
  void ItfHmiElement_DrawToPrinter(Long pHdc, const std::string& pVarAlias) override;
  void ItfHmiElement_CreateStaticElementPrinterReport(automation::Object& pVSPrinter) override;
  void ItfHmiElement_GetOptimalDimensions(Long& pXs, Long& pYs, Long& pDx, Long& pDy) const override;
  using PositionedElement::ItfHmiElement_Dx;
  using PositionedElement::ItfHmiElement_Dy;
  void ItfHmiElement_Dx(Long pValue) override;
  void ItfHmiElement_Dy(Long pValue) override;
  std::string ItfHmiElement_Txt() const override { return text_; }
  void ItfHmiElement_Txt(std::string pValue) override;
  Long ItfHmiElement_FontNumber() const override { return fontNumber_; }
  void ItfHmiElement_FontNumber(Long pValue) override;
  Integer ItfHmiElement_Alignment() const override { return alignment_; }
  void ItfHmiElement_Alignment(Integer pValue) override { alignment_ = pValue; }
  Integer ItfHmiElement_Flat3D() const override;
  void ItfHmiElement_Flat3D(Integer pValue) override { Flat3D(pValue); }
  Long ItfHmiElement_TabIndex() const override { return tabIndex_; }
  void ItfHmiElement_TabIndex(Long pValue) override { tabIndex_ = pValue; }

  /// Entries of column tables.
  template <class Element>
  struct TextColumns;
  /// Entries of operand tables.
  template <class Element>
  struct TextOperands;

  std::string text_;
  std::string actualText_;
  Long fontNumber_;
  Integer alignment_;
  Long flat3D_;
  Long storageStringType_ = 0;
  Long storageStringId_ = kNone;
  Long tabIndex_ = kNoTabIndex;

 private:
  corvane1::TextPosition PositionOf(const std::string& text, Long frameFlag) const;

  std::shared_ptr<corvane1::TextPainter> textPainter_;
};

class TextBearingElement::TextColors {
 public:
  /// Each colour, 0x00BBGGRR, is asked for when it is needed. All else of the pen is that of the context's.
  template <class Text, class Background>
  TextColors(Long hdc, const Text& text, const Background& background)
      : hdc_(hdc),
        pen_(hdc, CreatePenLikeCurrent(hdc, text)),
        backgroundBefore_(gdi::SetBkColor(hdc, background())) {}
  ~TextColors() { gdi::SetBkColor(hdc_, backgroundBefore_); }
  TextColors(const TextColors&) = delete;
  TextColors& operator=(const TextColors&) = delete;

 private:
  template <class Color>
  static gdi::HGDIOBJ CreatePenLikeCurrent(Long hdc, const Color& color) {
    gdi::LOGPEN pen = CurrentPen(hdc);
    pen.lopnColor = color();
    return gdi::CreatePenIndirect(&pen);
  }

  Long hdc_;
  gdi::SelectedPen pen_;
  std::uint32_t backgroundBefore_;
};

// clang-format off
template <class Element>
struct TextBearingElement::TextColumns : ColorColumns<Element> {
  using Common = ColorColumns<Element>;

  static constexpr auto kText = FieldColumn<Element, &Element::text_>("Text");
  /// Numbers of fonts, styles and operands need all 32 bits of their fields; only a constant is written short.
  static constexpr auto kFontNumber = FieldColumn<Element, &Element::fontNumber_>("FontNumber");
  static constexpr auto kAlignment = FieldColumn<Element, &Element::alignment_>("Alignment");
  static constexpr auto kFlat3D = FieldColumn<Element, &Element::flat3D_>("Flat3D");
  static constexpr auto kStorageStringType = FieldColumn<Element, &Element::storageStringType_>("VarOprndType");
  static constexpr auto kStorageStringId = FieldColumn<Element, &Element::storageStringId_>("VarOprndAddr");
  /// The field is wider than the column, whose 8 bits hold 0 to 255.
  static constexpr Column<Element> kTabIndex = {
      "TabIndex",
      [](const Element& element) { return automation::Variant(automation::To<Byte>(element.tabIndex_)); },
      [](Element& element, const automation::Variant& value) { element.tabIndex_ = automation::To<Long>(value); }};

  /// The columns with which saving begins, and those of the style and of what only variables have.
  static constexpr auto kHead = MakeColumnTable(
      TypeColumn<Element>(),
      Common::kXs, Common::kYs, Common::kDx, Common::kDy,
      DisplayColumn<Element>(),
      Common::kGroupId,
      kText,
      Common::kColorBack, Common::kColorFore, Common::kColorBackTouch, Common::kColorForeTouch,
      LongZeroColumn<Element>("ColorHatch"),
      LongZeroColumn<Element>("PenStyle"), LongZeroColumn<Element>("PenWidth"), LongZeroColumn<Element>("HatchStyle"));
  static constexpr auto kStyle = MakeColumnTable(
      kFontNumber, ZeroColumn<Element>("DescriptionFontNumber"),
      kAlignment, kFlat3D,
      ZeroColumn<Element>("VarType"), ZeroColumn<Element>("VarKeyPadEntry"),
      ZeroColumn<Element>("VarOprndType"), ZeroColumn<Element>("VarOprndAddr"),
      ZeroColumn<Element>("GlobalVarID"), ZeroColumn<Element>("DefaultDisplay"));
  /// Written once the place in the tab order is known.
  static constexpr auto kSaveLast = MakeColumnTable(
      kTabIndex,
      kStorageStringType, kStorageStringId,
      Common::kOrderIndex);
};
// clang-format on

template <class Element>
struct TextBearingElement::TextOperands : PresentOperands<Element> {
  /// The touch operand of a class that always has a bag for it. A touch that opens a keypad has nothing to
  /// bring back.
  static constexpr ElementOperand<Element> kTouchWithBag = {
      eOP_TouchOperand, &Element::touchOprndAddr_, nullptr, Always<Element>, [](const Element& element) {
        return element.HasTouchOperand() && element.touchOprndAddr_ != kKeypadTouch;
      }};
  /// The operand that picks the string.
  static constexpr ElementOperand<Element> kStorageString = {
      eOP_StorageStringIdOperand, &Element::storageStringId_, &Element::storageStringType_,
      [](const Element& element) { return element.HasStorageOperand(); },
      [](const Element& element) { return element.HasStorageOperand(); }};
};

}  // namespace quenzel7
