#include "hosts/cli/text_check.h"

#include "hosts/cli/counted.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/library_texts.h"
#include "hosts/cli/quiet_boxes.h"
#include "hosts/cli/user_error.h"
#include "platform/corvane1/ansi_code_page.h"
#include "platform/corvane1/string_library.h"
#include "platform/platform.h"

namespace quenzel7::cli {
namespace {

using automation::To;
using automation::Variant;

std::string TextOf(ItfHmiElement& element, std::string_view property) {
  return To<std::string>(automation::GetByName(element, property));
}

std::string Size(const Variant& dx, const Variant& dy) {
  return "(" + To<std::string>(dx) + ", " + To<std::string>(dy) + ")";
}

std::string NeededSize(ItfHmiElement& element) {
  Variant place[4] = {Long{0}, Long{0}, Read(element, "Dx"), Read(element, "Dy")};
  CallInPlace(element, "GetOptimalDimensions", place);
  return Size(place[2], place[3]);
}

}  // namespace

std::string CheckText(ItfHmiElement& element) {
  if (!BearsText(element)) return {};
  const std::string text = TextOf(element, "Txt");
  if (ShowsLibraryString(element) && text == corvane1::kEmptyLibraryString) {
    return "StorageStringID " + TextOf(element, "StorageStringID") +
           " names no text of the string library; the number of one that some language has was expected";
  }
  const QuietBoxes boxes;
  // Reading it fits the text, and shows a box for each line that cannot be measured.
  const std::string shown = TextOf(element, "ActualText");
  if (boxes.Count() > 0) {
    return "shows nothing of " + Counted(boxes.Count(), "line") + " of its text " + Quoted(text) +
           "; characters of code page " +
           std::to_string(corvane1::AnsiCodePageOf(*Platform::Current().settings).Number()) +
           " were expected";
  }
  if (shown == text) return {};
  return "shows only " + Quoted(shown) + " of its text " + Quoted(text) + " at size " +
         Size(Read(element, "Dx"), Read(element, "Dy")) + "; " + NeededSize(element) + " was expected";
}

}  // namespace quenzel7::cli
