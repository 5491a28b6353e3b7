#include "framework/language_strings.h"

#include <algorithm>
#include <cstdint>
#include <utility>

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

/// Visits the texts of a string with their languages, in the order of these; languages without a text are
/// passed over. Leaves the library in whichever language it came to.
template <class Visit>
void ForEachLanguage(StringLibrary& library, Long number, Visit&& visit) {
  const Long count = library.GetCount();
  for (Long language = 1; language <= count; ++language) {
    const LibraryString string = StringIn(library, language, number);
    if (string.text != corvane1::kEmptyLibraryString) visit(language, string);
  }
}

LibraryString WidestOf(StringLibrary& library, Long number) {
  const auto fonts = Platform::Current().fontService;
  std::int64_t bestArea = 0;
  Long bestLanguage = 0;
  ForEachLanguage(library, number, [&](Long language, const LibraryString& string) {
    const corvane1::TextExtent extent = fonts->GetTextRect(string.text, string.fontNumber);
    const std::int64_t area = std::int64_t{extent.width} * extent.height;
    if (area <= bestArea) return;
    bestArea = area;
    bestLanguage = language;
  });
  return StringIn(library, bestLanguage, number);
}

corvane1::TextExtent RoomOf(StringLibrary& library, Long number, Long fontNumber) {
  const auto fonts = Platform::Current().fontService;
  corvane1::TextExtent room = fonts->GetTextRect("EMPTY", 0);
  bool isFirst = true;
  ForEachLanguage(library, number, [&](Long, const LibraryString& string) {
    const corvane1::TextExtent extent = fonts->GetTextRect(string.text, string.FontOr(fontNumber));
    // The word stands for what is not there: a text smaller than it needs no more than its own room.
    room = isFirst ? extent
                   : corvane1::TextExtent{std::max(room.width, extent.width),
                                          std::max(room.height, extent.height)};
    isFirst = false;
  });
  return room;
}

/// For a library that has already failed once: its first error is the one that counts.
void TryLanguage(StringLibrary& library, Long language) noexcept {
  try {
    library.Language(language);
  } catch (...) {
  }
}

/// What `look` finds in the library of the open project, whose current language is then put back.
template <class Look>
auto FoundInLibrary(Look&& look) {
  const auto library = Platform::Current().stringLibrary;
  library->Open(ProjectConnection(), -1);
  const Long remembered = library->Language();
  decltype(look(*library)) found;
  try {
    found = look(*library);
  } catch (...) {
    TryLanguage(*library, remembered);
    throw;
  }
  library->Language(remembered);
  return found;
}

}  // namespace

std::string WidestLanguageString(Long number, Long& fontNumber) {
  return FoundInLibrary([&](StringLibrary& library) {
    LibraryString widest = WidestOf(library, number);
    fontNumber = widest.fontNumber;
    return std::move(widest.text);
  });
}

corvane1::TextExtent RoomForAllLanguages(Long number, Long fontNumber) {
  return FoundInLibrary([&](StringLibrary& library) { return RoomOf(library, number, fontNumber); });
}

void ForEachLanguageString(const std::vector<Long>& numbers, const std::function<void()>& opened,
                           const std::function<void(const LibraryString&)>& visit) {
  FoundInLibrary([&](StringLibrary& library) {
    opened();
    for (const Long number : numbers) {
      ForEachLanguage(library, number, [&](Long, const LibraryString& string) { visit(string); });
    }
    return true;
  });
}

}  // namespace quenzel7
