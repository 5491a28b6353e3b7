#include "platform/corvane1/text_service.h"

#include <fribidi.h>

#include <string_view>

#include "platform/corvane1/utf8.h"

namespace quenzel7::corvane1 {

Long FirstLetterTextService::TextOrder(const std::string& text) {
  std::string_view rest = text;
  std::size_t isolates = 0;
  while (!rest.empty()) {
    const FriBidiCharType type = fribidi_get_bidi_type(TakeCharacter(rest));
    if (type == FRIBIDI_TYPE_PDI) {
      // One that ends no isolate means nothing.
      if (isolates > 0) --isolates;
    } else if (FRIBIDI_IS_ISOLATE(type)) {
      ++isolates;
    } else if (isolates == 0 && FRIBIDI_IS_LETTER(type)) {
      return FRIBIDI_IS_RTL(type) ? kRightToLeft : kLeftToRight;
    }
  }
  return kLeftToRight;
}

}  // namespace quenzel7::corvane1
