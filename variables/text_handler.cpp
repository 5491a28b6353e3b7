#include "variables/text_handler.h"

#include <string>

#include "framework/library_services.h"
#include "platform/automation/arithmetic.h"

namespace quenzel7 {

using automation::Subtract;
using automation::To;

SampleTextHandler::SampleTextHandler(Long colorFore)
    : fontNumber_(GetDefaultFontNumber()), colorFore_(colorFore) {}

void SampleTextHandler::ItfVarBinaryHandler_ValidateFontNumber(
    automation::CollectionRef& pFontNumCollection) {
  if (!pFontNumCollection) automation::detail::RaiseObjectNotSet();
  const automation::Collection& fonts = *pFontNumCollection;
  try {
    fontNumber_ = To<Long>(fonts.Item(std::to_string(fontNumber_)));
    Drawing().FontNumber(fontNumber_);
  } catch (const automation::AutomationError&) {
    // Required: only the handler's own number falls back, the text on the page keeps its font.
    fontNumber_ = To<Long>(fonts.Item(1));
  }
}

void SampleTextHandler::ItfVarBinaryHandler_UpdateOnFontDelete(Long pFontNum) {
  // Each for itself: the two can differ.
  if (Drawing().FontNumber() > pFontNum) Drawing().FontNumber(Subtract(Drawing().FontNumber(), 1));
  if (fontNumber_ > pFontNum) fontNumber_ = Subtract(fontNumber_, 1);
}

}  // namespace quenzel7
