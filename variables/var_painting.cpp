#include "framework/library_services.h"
#include "framework/library_state.h"
#include "framework/mono_bitmaps.h"
#include "platform/automation/arithmetic.h"
#include "platform/corvane1/ansi_code_page.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"
#include "platform/platform.h"
#include "variables/var_element.h"

/// How a variable is painted, on a page and on paper.
namespace quenzel7 {
namespace {

using automation::Add;
using automation::Subtract;

constexpr Long kBadgeSize = 8;

}  // namespace

void clsVar::ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) {
  if (id_ == 0) return;
  const Descriptor shown = Displayed();
  if (kGraphTypes.Has(varType_)) {
    TypedHandler()->PaintPicture(
        {pHdc, shown.dx, shown.dy, colorBack_, flat3D_, fontNumber_, pDrawBoundingRect});
  }
  const ElementRef drawing = Drawing();
  ItfHmiElement& element = *drawing;
  const bool isPicture = (element.ElementType() == kBitmapElement || kPlacedAsPictureTypes.Has(varType_)) &&
                         !kPlacedAsGraphTypes.Has(varType_);
  element.ID(id_);
  const Long ownColorBack = element.ColorBack(), ownFont = element.FontNumber();
  element.ColorBack(colorBack_);
  element.Flat3D(ItfHmiElement_Flat3D());
  element.Alignment(ItfHmiElement_Alignment());
  element.FontNumber(fontNumber_);
  if (ShowsLibraryText()) element.FontNumber(ownFont);
  if (kStateColorTypes.Has(varType_)) element.ColorBack(ownColorBack);
  Descriptor place = shown;
  if (isPicture) {
    // A picture is never made larger or smaller while it is dragged: that is done once, at the end.
    const Descriptor& rest = Initial();
    const bool hasSizeAtRest = rest.dx == shown.dx && rest.dy == shown.dy;
    if (!hasSizeAtRest || pDrawBoundingRect) place = rest;
    element.TransparencyLevel(transparencyLevel_);
  }
  element.Xs(place.xs);
  element.Ys(place.ys);
  element.Dx(place.dx);
  element.Dy(place.dy);
  element.Draw(pHdc, false);
  if (pDrawBoundingRect) gdi::DrawFocusRect(pHdc, &bounds_);
  if (IsGlobal()) PaintBadge(pHdc);
  TellFailedResize();
}

void clsVar::PaintBadge(Long hdc) const {
  const auto [xs, ys, dx, dy] = Displayed();
  // Declared first, since it goes last: after the context that holds it.
  gdi::OwnedBitmap badge;
  const gdi::OwnedContext memory(0);
  {
    const gdi::OwnedBitmap picture =
        Platform::Current().resources->LoadPicture(corvane1::kGlobalVariableBadge);
    badge.Reset(CopyMonoBitmap(picture.Get()));
  }
  gdi::SelectObject(memory.Get(), badge.Get());
  gdi::BitBlt(hdc, xs, Subtract(Add(ys, dy), kBadgeSize), kBadgeSize, kBadgeSize, memory.Get(), 0, 0,
              gdi::SRCCOPY);
}

void clsVar::TellFailedResize() const {
  constexpr Long kResizeFailedMessage = 383;
  bool& hasFailed = LibraryState::Current().ImageResizeFailed;
  // Before the message, while which the host may have the page drawn again.
  if (std::exchange(hasFailed, false)) ShowLibraryMessage(kResizeFailedMessage);
}

void clsVar::ItfHmiElement_DrawToPrinter(Long pHdc, const std::string& pVarAlias) {
  const auto [xs, ys, dx, dy] = Displayed();
  gdi::Rectangle(pHdc, xs, ys, Add(xs, dx), Add(ys, dy));
  gdi::LOGFONT small{};
  small.lfHeight = -9;
  small.lfWeight = 400;
  small.lfOutPrecision = 1;
  small.lfClipPrecision = 2;
  small.lfQuality = 1;
  small.lfPitchAndFamily = 34;
  constexpr std::string_view kFace = "Small Fonts";
  kFace.copy(small.lfFaceName, sizeof small.lfFaceName - 1);
  const gdi::SelectedFont font(pHdc, gdi::CreateFontIndirectA(&small));
  // The middle of the box, less half of a character.
  constexpr Long kHalfCharacter = 4;
  const Long x = Subtract(Add(xs, automation::IntDiv(dx, 2)), kHalfCharacter);
  const Long y = Subtract(Add(ys, automation::IntDiv(dy, 2)), kHalfCharacter);
  const std::string alias = corvane1::AnsiCodePageOf(*Platform::Current().settings).Encoded(pVarAlias);
  gdi::TextOutA(pHdc, x, y, alias.data(), static_cast<Long>(alias.size()));
}

}  // namespace quenzel7
