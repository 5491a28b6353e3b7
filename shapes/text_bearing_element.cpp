#include "shapes/text_bearing_element.h"

#include <string_view>
#include <utility>

#include "framework/language_strings.h"
#include "framework/report_lines.h"
#include "framework/tab_index.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/automation_error.h"
#include "platform/corvane1/text_lines.h"
#include "platform/platform.h"
#include "shapes/text_fitting.h"

namespace quenzel7 {
namespace {

using automation::Add;
using automation::Subtract;

constexpr std::uint32_t kBlack = 0x000000;
constexpr Long kBevelInset = 7;

corvane1::FontService& Fonts() { return *Platform::Current().fontService; }

/// Takes a copy of the text: a host that is asked meanwhile, or shown a message box, may set it anew.
FittedText Fitted(std::string text, const gdi::RECT& room, Long fontNumber) {
  const Long lineHeight = Fonts().GetCharHeight(fontNumber);
  return FitTextToRect(text, room, lineHeight, Fonts().GetCharWidths(fontNumber));
}

/// A painter of the host's making. Error 429 when there is none to be had.
std::shared_ptr<corvane1::TextPainter> NewTextPainter() {
  const auto& make = Platform::Current().newTextPainter;
  auto painter = make ? make() : nullptr;
  if (!painter) {
    throw automation::AutomationError(automation::ErrorNumber::ClassNotCreatable,
                                      "the host makes no text painter");
  }
  return painter;
}

}  // namespace

TextBearingElement::TextBearingElement(const Manner& manner, std::string text)
    : ColoredElement(manner.colors),
      text_(std::move(text)),
      fontNumber_(Fonts().GetDefaultFontNumber()),
      alignment_(manner.alignment),
      flat3D_(manner.flat3D),
      textPainter_(NewTextPainter()) {
  operandBags_ = std::make_shared<automation::Collection>();
}

std::string TextBearingElement::ActualText() {
  FitActualText();
  return actualText_;
}

void TextBearingElement::Flat3D(Long pValue) {
  flat3D_ = pValue;
  FitActualText();
}

void TextBearingElement::StorageStringType(Long pValue) {
  storageStringType_ = pValue;
  RenewBagsOfStorageOperand();
}

void TextBearingElement::StorageStringID(Long pValue) {
  storageStringId_ = pValue;
  RenewBagsOfStorageOperand();
}

void TextBearingElement::ColOpPropBag(automation::CollectionRef pValue) {
  operandBags_ = std::move(pValue);
  RenewBagsOfStorageOperand();
}

void TextBearingElement::RenewBagsOfStorageOperand() {
  if (id_ != kNone && HasStorageOperand()) operandBags_ = BuildOpPropBag();
}

void TextBearingElement::ItfHmiElement_Dx(Long pValue) {
  ColoredElement::ItfHmiElement_Dx(pValue);
  FitActualText();
}

void TextBearingElement::ItfHmiElement_Dy(Long pValue) {
  ColoredElement::ItfHmiElement_Dy(pValue);
  FitActualText();
}

void TextBearingElement::ItfHmiElement_Txt(std::string pValue) {
  text_ = std::move(pValue);
  FitActualText();
}

void TextBearingElement::ItfHmiElement_FontNumber(Long pValue) {
  fontNumber_ = pValue;
  FitActualText();
}

Integer TextBearingElement::ItfHmiElement_Flat3D() const { return automation::ToInteger(flat3D_); }

// --- Fitting ---

Long TextBearingElement::FittingInset() const { return HasBevel(flat3D_) ? kBevelInset : 0; }

void TextBearingElement::FitActualText() {
  const auto [xs, ys, dx, dy] = Displayed();
  const Long inset = FittingInset();
  // Only the far edges keep the inset: a text begins where the place does.
  const gdi::RECT room{xs, ys, Subtract(Add(xs, dx), inset), Subtract(Add(ys, dy), inset)};
  if (Add(room.right, room.bottom) == 0) return;
  actualText_ = Fitted(text_, room, fontNumber_).text;
}

void TextBearingElement::ChooseLibraryText() {
  if (HasStorageOperand() || storageStringId_ == kNone) return;
  Long font = kNone;
  text_ = WidestLanguageString(storageStringId_, font);
  if (font != kNone) fontNumber_ = font;
}

corvane1::TextExtent TextBearingElement::FullSizeOfText() const {
  const auto [xs, ys, dx, dy] = Displayed();
  return Fitted(text_, {xs, ys, Add(xs, dx), Add(ys, dy)}, fontNumber_).full;
}

corvane1::TextExtent TextBearingElement::FullSize() const {
  if (ShowsLibraryText() && !HasStorageOperand()) return RoomForAllLanguages(storageStringId_, fontNumber_);
  return FullSizeOfText();
}

void TextBearingElement::ItfHmiElement_GetOptimalDimensions(Long& pXs, Long& pYs, Long& pDx,
                                                            Long& pDy) const {
  pXs = Initial().xs;
  pYs = Initial().ys;
  GetOptimalDimensions(pDx, pDy);
}

// --- Painting ---

corvane1::TextPosition TextBearingElement::PositionOf(const std::string& text, Long frameFlag) const {
  const auto [xs, ys, dx, dy] = Displayed();
  return Fonts().GetTextPosition(text, fontNumber_, xs, ys, dx, dy, alignment_, frameFlag);
}

TextBearingElement::TextColors TextBearingElement::OwnTextColors(Long hdc) const {
  return TextColors(
      hdc, [this] { return Rgb(colorFore_); }, [this] { return Rgb(colorBack_); });
}

void TextBearingElement::PaintLines(Long hdc, Long frameFlag, PaintOperation paint) const {
  // Services of the host may set the text anew meanwhile.
  const std::string whole = actualText_;
  Long y = PositionOf(whole, frameFlag).y;
  corvane1::ForEachLine(whole, [&](std::string_view part) {
    const std::string line(part);
    paint(*textPainter_, PositionOf(line, frameFlag).x, y, line, hdc, fontNumber_);
    y = Add(y, Fonts().GetCharHeight(fontNumber_));
  });
}

void TextBearingElement::PaintBlockOrLines(Long hdc, Long frameFlag, PaintOperation block,
                                           PaintOperation line) const {
  if (!ShowsLibraryText()) return PaintLines(hdc, frameFlag, line);
  const std::string whole = actualText_;
  const corvane1::TextPosition place = PositionOf(whole, frameFlag);
  block(*textPainter_, place.x, place.y, whole, hdc, fontNumber_);
}

void TextBearingElement::ItfHmiElement_DrawToPrinter(Long pHdc, const std::string&) {
  {
    const gdi::SelectedBrush brush(pHdc, gdi::CreateSolidBrush(kWhite));
    const auto [xs, ys, dx, dy] = Displayed();
    gdi::Rectangle(pHdc, xs, ys, Add(xs, dx), Add(ys, dy));
  }
  if (!HasText()) return;
  const TextColors colors(
      pHdc, [] { return kBlack; }, [] { return kWhite; });
  // On paper a string of the library is a text like others.
  PaintBlockOrLines(pHdc, flat3D_, PaintConstant, PaintConstant);
}

// --- Report ---

void TextBearingElement::ItfHmiElement_CreateStaticElementPrinterReport(automation::Object& pVSPrinter) {
  ElementReport report(pVSPrinter);
  report.Coordinates(Initial());
  const std::size_t end = text_.find(corvane1::kLineBreak);
  report.Line("Text: " + text_.substr(0, end) + (end == std::string::npos ? "" : " ..."));
  report.Line(FontReportLine(fontNumber_));
  report.Line(AlignmentReportLine(alignment_));
  report.Line(Flat3DReportLine(flat3D_));
  ReportOperands(report);
}

void TextBearingElement::ReportLibraryString(ElementReport& report) const {
  if (storageStringId_ == kNone) return;
  if (HasStorageOperand()) {
    report.Line("Operand for String Library ID: " +
                OperandDescription(storageStringType_, storageStringId_, kLocalNetwork));
  } else {
    report.Line("String ID in Library: " + std::to_string(storageStringId_));
  }
}

// --- Rows ---

bool TextBearingElement::ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) {
  const bool result = ColoredElement::ItfHmiElement_LoadFromDB(pRsElement);
  FitActualText();
  return result;
}

void TextBearingElement::TakeTabIndex(ado::Recordset& row) {
  if (touchOprndAddr_ < 0) {
    tabIndex_ = kNoTabIndex;
    row.Put("VarKeyPadEntry", Integer{0});
  }
  // Also where the line above has just taken it away: a touch that drives no operand has its place, too.
  if (HasTouchOperand() && tabIndex_ == kNoTabIndex) tabIndex_ = NextTabIndex(CurrentDisplayID());
}

void TextBearingElement::ReleaseStorageOperand() const {
  if (HasStorageOperand()) ReleaseOperand(storageStringType_, storageStringId_);
}

void TextBearingElement::CopyTo(TextBearingElement& copy) const {
  copy.CopyIdentityAndPosition(*this);
  copy.CopyColors(*this);
  copy.Txt(text_);
  copy.FontNumber(fontNumber_);
  copy.Alignment(alignment_);
  copy.Flat3D(flat3D_);
  copy.CopyOperands(*this);
  // Where an operand picks the string and there is a row, each of these builds the copy bags of its own.
  copy.StorageStringType(storageStringType_);
  copy.StorageStringID(storageStringId_);
  copy.TabIndex(tabIndex_);
  // What is painted now, be it written at run time: reading the property would replace it on both.
  copy.actualText_ = actualText_;
}

}  // namespace quenzel7
