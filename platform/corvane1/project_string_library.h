#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/corvane1/string_library.h"

namespace quenzel7::corvane1 {

/// A text and where in the library it stands.
struct NumberedString {
  Long number = 0, language = 0;
  LibraryString string;

  friend bool operator==(const NumberedString&, const NumberedString&) = default;
};

/// The embedded default: languages and texts in the project's tables StringLanguages and LibraryStrings. The
/// current language belongs to this object and is 1 for every project that is opened; opening the project
/// that is open already keeps it. The library does not keep the project's connection alive.
///
/// Errors of everything but `Language`: 91 before the first Open and after the project has gone, and those of
/// the database, such as 3251 for a language in a project of an older version that is opened read-only.
class ProjectStringLibrary final : public StringLibrary {
 public:
  /// Error 91 when there is no project; the option means nothing here.
  void Open(const ado::ConnectionRef& project, Long option) override;
  Long GetCount() override;
  Long Language() override { return language_; }
  /// Takes every number; one that is no language has no text.
  void Language(Long language) override { language_ = language; }
  /// A text that is missing, Null or empty is `kEmptyLibraryString` in font -1.
  LibraryString GetString(Long number) override;

  /// Names a language of the open project. The number after the last language adds one. Error 5 for any other
  /// number that is no language.
  void SetLanguage(Long language, const std::string& name);
  /// The name of a language; error 5 when there is no such language.
  std::string LanguageName(Long language);
  /// Keeps a text for a language of the open project; an empty one takes the text away. Error 5 when there is
  /// no such language.
  void SetString(Long number, Long language, const LibraryString& string);
  /// All texts of the library's languages, by number and then by language, without the empty ones.
  std::vector<NumberedString> AllStrings();

 private:
  ado::ConnectionRef Project() const;

  std::weak_ptr<ado::Connection> project_;
  Long language_ = 1;
};

}  // namespace quenzel7::corvane1
