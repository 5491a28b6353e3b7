#pragma once

#include <string>

#include "platform/ado/connection.h"
#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

/// The font of a string that leaves it to whoever shows it, and the number of no string.
inline constexpr Long kNoLibraryFont = -1;
inline constexpr Long kNoLibraryString = -1;

/// A text of the string library and the number of the font that it is shown in; -1 leaves the font to whoever
/// shows it.
struct LibraryString {
  std::string text;
  Long fontNumber = kNoLibraryFont;

  /// The number of its font, or the given one when it leaves the font to whoever shows it.
  Long FontOr(Long shownIn) const { return fontNumber != kNoLibraryFont ? fontNumber : shownIn; }

  friend bool operator==(const LibraryString&, const LibraryString&) = default;
};

/// What `StringLibrary::GetString` gives where a language has no text.
inline constexpr char kEmptyLibraryString[] = "EMPTY STRING";

/// The texts of a project in all its languages, by number.
class StringLibrary {
 public:
  virtual ~StringLibrary() = default;

  /// Binds the library to a project. `option` is -1 at every call of the elements.
  virtual void Open(const ado::ConnectionRef& project, Long option) = 0;

  /// The number of languages.
  virtual Long GetCount() = 0;
  /// The current language, counted from 1. 0 is no language: every text is then `kEmptyLibraryString`.
  virtual Long Language() = 0;
  /// Makes a language the current one, also a number that is no language.
  virtual void Language(Long language) = 0;
  /// The text of that number in the current language; `kEmptyLibraryString` where the language has none.
  virtual LibraryString GetString(Long number) = 0;
};

}  // namespace quenzel7::corvane1
