#pragma once

#include <memory>
#include <string>

#include "platform/automation/class_info.h"
#include "platform/automation/variant.h"
#include "platform/corvane1/project_string_library.h"
#include "server/services/service_view.h"

namespace quenzel7::server {

/// The string library, opened on the project of the thread's project database at each call. Errors, whatever
/// is asked: 91 when no project is open, and those of the database. All that says so is error 91 too where
/// the embedded library is not in use.
class ProjectStrings final : public ServiceView<corvane1::StringLibrary> {
 public:
  static constexpr std::string_view kClassName = "ProjectStrings";

  using ServiceView::ServiceView;
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// The number of languages.
  Long LanguageCount() const;
  /// The current language, counted from 1; 1 for every project that is opened. Any number can be written.
  Long Language() const;
  void Language(Long language);
  /// The name of a language; error 5 when there is no such one. Embedded.
  std::string LanguageName(Long language);
  /// Names a language; the number after the last adds one, error 5 for any other. Embedded.
  void SetLanguage(Long language, const std::string& name);
  /// The text of that number in the current language; "EMPTY STRING" where it has none.
  std::string Text(Long number);
  /// The number of its font; -1 leaves the font to whoever shows it.
  Long FontNumber(Long number);
  /// Keeps a text for a language; an empty one takes it away. Error 5 when there is no such language.
  /// Embedded.
  void SetText(Long number, Long language, const std::string& text, Long fontNumber);
  /// All texts, by number and then by language, each (number, language, text, font number). Embedded.
  automation::Variant Texts() const;

 private:
  corvane1::StringLibrary& Opened() const;
  std::shared_ptr<corvane1::ProjectStringLibrary> OpenedInProject() const;
};

}  // namespace quenzel7::server
