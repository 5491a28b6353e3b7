#include "hosts/cli/text_check.h"

#include "hosts/cli/counted.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/library_texts.h"
#include "hosts/cli/quiet_boxes.h"
#include "hosts/cli/table_column.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/variable_settings.h"
#include "platform/automation/call_by_name.h"
#include "platform/corvane1/ansi_code_page.h"
#include "platform/corvane1/panel_fonts.h"
#include "platform/corvane1/text_lines.h"
#include "platform/corvane1/utf8.h"
#include "platform/gdi/surface.h"
#include "platform/platform.h"
#include "shapes/element_columns.h"
#include "shapes/frame_styles.h"
#include "shapes/text.h"

namespace quenzel7::cli {
namespace {

using automation::To;
using automation::Variant;
using Findings = std::vector<std::string>;

/// Bottom right.
constexpr Long kHighestAlignment = 8;

std::string TextOf(ItfHmiElement& element, std::string_view property) {
  return To<std::string>(automation::GetByName(element, property));
}

std::string Size(const Variant& dx, const Variant& dy) {
  return "(" + To<std::string>(dx) + ", " + To<std::string>(dy) + ")";
}

/// The size that the element asks for, at its own size. Some styles ask for none.
std::string ExpectedSize(ItfHmiElement& element, const Variant& dx, const Variant& dy) {
  Variant place[4] = {Long{0}, Long{0}, dx, dy};
  CallInPlace(element, "GetOptimalDimensions", place);
  const bool isLarger = To<Long>(place[2]) > To<Long>(dx) || To<Long>(place[3]) > To<Long>(dy);
  return isLarger ? Size(place[2], place[3]) : "a larger one";
}

/// The text without what stands in lines with a character outside the code page: what is shown when nothing
/// is cut.
std::string WithoutForeignLines(const std::string& text, const corvane1::AnsiCodePage& codePage) {
  std::string known;
  bool isFirst = true;
  corvane1::ForEachLine(text, [&](std::string_view line) {
    if (!isFirst) known += corvane1::kLineBreak;
    isFirst = false;
    for (std::string_view rest = line; !rest.empty();) {
      if (!codePage.CodeOf(corvane1::TakeCharacter(rest))) return;
    }
    known += line;
  });
  return known;
}

/// What is wrong with the text that `shown` has now; `element` is asked for the size that would do.
Findings Judgement(ItfHmiElement& element, ItfHmiElement& shown, const std::string& inLanguage) {
  const std::string text = TextOf(shown, "Txt");
  const QuietBoxes boxes;
  // Reading it fits the text, and shows a box for each line that cannot be measured.
  const std::string fitting = TextOf(shown, "ActualText");
  const std::size_t foreignLines = boxes.Count();
  const std::string itsText = "its text " + Quoted(text) + inLanguage;
  Findings findings;
  std::string expected = text;
  if (foreignLines > 0) {
    const corvane1::AnsiCodePage codePage = corvane1::AnsiCodePageOf(*Platform::Current().settings);
    findings.push_back("shows nothing of " + Counted(foreignLines, "line") + " of " + itsText +
                       "; characters of code page " + std::to_string(codePage.Number()) + " were expected");
    expected = WithoutForeignLines(text, codePage);
  }
  if (fitting == expected) return findings;
  const Variant dx = Read(element, "Dx"), dy = Read(element, "Dy");
  const bool isNothing = fitting.find_first_not_of(corvane1::kLineBreak) == std::string::npos;
  findings.push_back("shows " + (isNothing ? "nothing" : "only " + Quoted(fitting)) + " of " + itsText +
                     " at size " + Size(dx, dy) + "; " + ExpectedSize(element, dx, dy) + " was expected");
  return findings;
}

/// What messages say of the number of a string that no language has.
std::string NamesNoString() {
  return " names no text of the string library; the number of one that some language has was expected";
}

/// Has a replica of the element show the string of the library in each language that has it.
Findings CheckLibraryString(ItfHmiElement& element) {
  const Long number = To<Long>(automation::GetByName(element, "StorageStringID"));
  corvane1::ProjectStringLibrary library = OpenedLibrary();
  const Long languages = library.GetCount();
  bool isThere = false;
  Findings findings;
  for (Long language = 1; language <= languages; ++language) {
    library.Language(language);
    const corvane1::LibraryString string = library.GetString(number);
    if (string.text == corvane1::kEmptyLibraryString) continue;
    isThere = true;
    const auto replica = element.Replica();
    if (string.fontNumber != kNone) automation::PutByName(*replica, "FontNumber", string.fontNumber);
    automation::PutByName(*replica, "Txt", string.text);
    const Findings ofLanguage = Judgement(element, *replica, " in language " + std::to_string(language));
    findings.insert(findings.end(), ofLanguage.begin(), ofLanguage.end());
  }
  if (!isThere) {
    findings.push_back("StorageStringID " + std::to_string(number) + NamesNoString());
  }
  return findings;
}

/// Whether some language of the library has the string.
bool IsInLibrary(Long number) {
  corvane1::ProjectStringLibrary library = OpenedLibrary();
  const Long languages = library.GetCount();
  for (Long language = 1; language <= languages; ++language) {
    library.Language(language);
    if (library.GetString(number).text != corvane1::kEmptyLibraryString) return true;
  }
  return false;
}

/// What is wrong with the string of the library that `text`, a text of a handler, refers to.
Findings CheckReference(automation::Object& text, const std::string& path) {
  const Long number = To<Long>(automation::GetByName(text, "StorageStringID"));
  if (To<Long>(automation::GetByName(text, "StorageStringType")) != 0) return {};
  if (number == kNone || IsInLibrary(number)) return {};
  return {path + ".StorageStringID " + std::to_string(number) + NamesNoString()};
}

/// What is wrong with the text that a variable shows, and where it is one of a list, with all of them.
Findings CheckVariable(ItfHmiElement& variable) {
  const HandlerRef handler = HandlerOf(variable);
  const ElementRef drawing = TextDrawingOf(*handler);
  if (!drawing) return {};
  const std::vector<automation::ObjectRef> texts = ListTextsOf(*handler);
  const std::string ofHandler = std::string(kHandlerKey) + ".";
  const automation::Interface& settings = handler->Class().Default();
  const bool isOfLibrary =
      settings.Find("StorageText") && To<Long>(automation::GetByName(*handler, "StorageText")) != 0;
  Findings findings;
  const auto add = [&findings](const Findings& more) {
    findings.insert(findings.end(), more.begin(), more.end());
  };
  // Painting gives the text element the variable's place, style and font.
  gdi::Surface surface(1, 1);
  const auto judge = [&](const std::string& which) {
    Call(variable, "Draw", {surface.Dc(), false});
    add(Judgement(variable, *drawing, which));
  };
  if (texts.empty()) {
    if (isOfLibrary && settings.Find(kListTextKey)) {
      add(CheckReference(*automation::GetByName(*handler, kListTextKey).Object(),
                         ofHandler + std::string(kListTextKey)));
    }
    if (TextOf(*drawing, "Txt").empty()) {
      findings.push_back("shows an empty text; a sample of its value was expected");
    }
    judge({});
    return findings;
  }
  if (IsListOfBit(*handler) && texts.size() != kTextsOfBit) {
    findings.push_back(ofHandler + "ListTexts has " + Counted(texts.size(), "text") +
                       "; two texts were expected");
  }
  const Variant shown = automation::GetByName(variable, "DefaultDisplay");
  for (std::size_t place = 1; place <= texts.size(); ++place) {
    const std::string path = ofHandler + "ListTexts[" + std::to_string(place) + "]";
    if (isOfLibrary) add(CheckReference(*texts[place - 1], path));
    automation::PutByName(variable, "DefaultDisplay", static_cast<Long>(place));
    BringUpToDate(variable);
    judge(" (" + path + ")");
  }
  automation::PutByName(variable, "DefaultDisplay", shown);
  BringUpToDate(variable);
  return findings;
}

}  // namespace

Findings CheckText(ItfHmiElement& element) {
  const QuietBoxes quiet;
  if (IsVariable(element)) return CheckVariable(element);
  if (!BearsText(element)) return {};
  if (ShowsLibraryString(element)) return CheckLibraryString(element);
  return Judgement(element, element, {});
}

Findings CheckTextNumbers(ItfHmiElement& element, const ado::Recordset& row) {
  if (!BearsText(element) && !IsVariable(element)) return {};
  Findings findings;
  const auto require = [&](const std::string& property, Long highest) {
    const Long number = To<Long>(automation::GetByName(element, property));
    if (number >= 0 && number <= highest) return;
    findings.push_back(property + " is " + std::to_string(number) + "; a number from 0 to " +
                       std::to_string(highest) + " was expected");
  };
  const bool isText = element.Class().name == clsText::kClassName;
  require("Flat3D", isText ? kTransparent : kSunken);
  require("Alignment", kHighestAlignment);
  const Long font = ReadColumn<Long>(row, "HMI_Elements", "FontNumber");
  if (!corvane1::IsPanelFont(font)) {
    findings.push_back("FontNumber is " + std::to_string(font) +
                       ", which the panel does not have; the number of one of its fonts was expected");
  }
  return findings;
}

}  // namespace quenzel7::cli
