#include "framework/language_strings.h"

#include <cstdint>

#include "framework/project.h"
#include "platform/platform.h"

namespace quenzel7 {
namespace {

using corvane1::LibraryString;
using corvane1::StringLibrary;

LibraryString StringIn(StringLibrary& library, Long language, Long number) {
  library.Language(language);
  return library.GetString(number);
}

std::int64_t AreaOf(const LibraryString& string, corvane1::FontService& fonts) {
  const corvane1::TextExtent extent = fonts.GetTextRect(string.text, string.fontNumber);
  return std::int64_t{extent.width} * extent.height;
}

/// Leaves the library in whichever language it came to.
LibraryString WidestOf(StringLibrary& library, Long number) {
  const auto fonts = Platform::Current().fontService;
  const Long count = library.GetCount();
  std::int64_t bestArea = 0;
  Long bestLanguage = 0;
  for (Long language = 1; language <= count; ++language) {
    const LibraryString string = StringIn(library, language, number);
    if (string.text == corvane1::kEmptyLibraryString) continue;
    const std::int64_t area = AreaOf(string, *fonts);
    if (area <= bestArea) continue;
    bestArea = area;
    bestLanguage = language;
  }
  return StringIn(library, bestLanguage, number);
}

/// For a library that has already failed once: its first error is the one that counts.
void TryLanguage(StringLibrary& library, Long language) noexcept {
  try {
    library.Language(language);
  } catch (...) {
  }
}

}  // namespace

std::string WidestLanguageString(Long number, Long& fontNumber) {
  const auto library = Platform::Current().stringLibrary;
  library->Open(ProjectConnection(), -1);
  const Long remembered = library->Language();
  LibraryString widest;
  try {
    widest = WidestOf(*library, number);
  } catch (...) {
    TryLanguage(*library, remembered);
    throw;
  }
  fontNumber = widest.fontNumber;
  library->Language(remembered);
  return widest.text;
}

}  // namespace quenzel7
