#include "platform/corvane1/project_string_library.h"

#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"

namespace quenzel7::corvane1 {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using automation::To;
using automation::Variant;

constexpr Long kNoFont = -1;

std::string LanguageQuery(Long language) {
  return "SELECT * FROM StringLanguages WHERE Language=" + std::to_string(language);
}

std::string StringCondition(Long number, Long language) {
  return "LibraryStrings WHERE Number=" + std::to_string(number) +
         " AND Language=" + std::to_string(language);
}

void RequireLanguage(Long language, Long last) {
  if (language >= 1 && language <= last) return;
  throw AutomationError(ErrorNumber::InvalidProcedureCall, "language " + std::to_string(language) +
                                                               " of the string library: a number from 1 to " +
                                                               std::to_string(last) + " is expected");
}

}  // namespace

void ProjectStringLibrary::Open(const ado::ConnectionRef& project, Long) {
  if (!project) throw AutomationError(ErrorNumber::ObjectNotSet, "the string library needs an open project");
  // Whether it is the same connection is told without taking part in its ownership.
  if (!project.owner_before(project_) && !project_.owner_before(project)) return;
  project_ = project;
  language_ = 1;
}

ado::ConnectionRef ProjectStringLibrary::Project() const {
  ado::ConnectionRef project = project_.lock();
  if (!project) throw AutomationError(ErrorNumber::ObjectNotSet, "the string library is not open");
  return project;
}

Long ProjectStringLibrary::GetCount() {
  return To<Long>(Project()->Execute("SELECT COUNT(*) AS Languages FROM StringLanguages")->Get("Languages"));
}

LibraryString ProjectStringLibrary::GetString(Long number) {
  const ado::ConnectionRef project = Project();
  const auto row = ado::OpenRecordset(*project,
                                      "SELECT * FROM " + StringCondition(number, language_) +
                                          " AND Language IN (SELECT Language FROM StringLanguages)",
                                      ado::adOpenStatic, ado::adLockReadOnly);
  const Variant text = row->Eof() ? Variant() : row->Get("Text");
  if (text.IsEmpty() || text.IsNull() || text == Variant("")) return {kEmptyLibraryString, kNoFont};
  const Variant font = row->Get("FontNumber");
  return {To<std::string>(text), font.IsNull() ? kNoFont : To<Long>(font)};
}

void ProjectStringLibrary::SetLanguage(Long language, const std::string& name) {
  RequireLanguage(language, GetCount() + 1);
  const auto row =
      ado::OpenRecordset(*Project(), LanguageQuery(language), ado::adOpenStatic, ado::adLockOptimistic);
  if (row->Eof()) {
    row->AddNew();
    row->Put("Language", language);
  }
  row->Put("Name", name);
  row->Update();
}

std::string ProjectStringLibrary::LanguageName(Long language) {
  RequireLanguage(language, GetCount());
  return To<std::string>(
      ado::OpenRecordset(*Project(), LanguageQuery(language), ado::adOpenStatic, ado::adLockReadOnly)
          ->Get("Name"));
}

void ProjectStringLibrary::SetString(Long number, Long language, const LibraryString& string) {
  RequireLanguage(language, GetCount());
  const ado::ConnectionRef project = Project();
  if (string.text.empty()) {
    project->Execute("DELETE * FROM " + StringCondition(number, language));
    return;
  }
  const auto row = ado::OpenRecordset(*project, "SELECT * FROM " + StringCondition(number, language),
                                      ado::adOpenStatic, ado::adLockOptimistic);
  if (row->Eof()) {
    row->AddNew();
    row->Put("Number", number);
    row->Put("Language", language);
  }
  row->Put("Text", string.text);
  row->Put("FontNumber", string.fontNumber);
  row->Update();
}

}  // namespace quenzel7::corvane1
