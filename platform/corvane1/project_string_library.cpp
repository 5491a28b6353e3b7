#include "platform/corvane1/project_string_library.h"

#include <optional>

#include "platform/ado/row_for.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"

namespace quenzel7::corvane1 {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using automation::To;
using automation::Variant;

std::string StringCondition(Long number, Long language) {
  return "LibraryStrings WHERE Number=" + std::to_string(number) +
         " AND Language=" + std::to_string(language);
}

constexpr const char* kOfLanguages = "Language IN (SELECT Language FROM StringLanguages)";

/// The text and font of a row; nothing when its text is Null or empty.
std::optional<LibraryString> StringOf(ado::Recordset& row) {
  const Variant text = row.Get("Text");
  if (text.IsNull() || text == Variant("")) return {};
  LibraryString string = {To<std::string>(text)};
  const Variant font = row.Get("FontNumber");
  if (!font.IsNull()) string.fontNumber = To<Long>(font);
  return string;
}

void RequireLanguage(Long language, Long last) {
  if (language >= 1 && language <= last) return;
  throw AutomationError(
      ErrorNumber::InvalidProcedureCall,
      "language " + std::to_string(language) + " of the string library: " +
          (last < 1 ? "it has no language" : "a number from 1 to " + std::to_string(last) + " is expected"));
}

}  // namespace

void ProjectStringLibrary::Open(const ado::ConnectionRef& project, Long) {
  if (!project) throw AutomationError(ErrorNumber::ObjectNotSet, "the string library needs an open project");
  if (ado::IsSameConnection(project, project_)) return;
  project_ = project;
  language_ = 1;
}

ado::ConnectionRef ProjectStringLibrary::Project() const {
  ado::ConnectionRef project = project_.lock();
  if (!project) throw AutomationError(ErrorNumber::ObjectNotSet, "the string library is not open");
  return project;
}

Long ProjectStringLibrary::GetCount() {
  const auto row = Project()->Execute("SELECT COUNT(*) AS Languages FROM StringLanguages");
  const Long count = To<Long>(row->Get("Languages"));
  row->Close();
  return count;
}

LibraryString ProjectStringLibrary::GetString(Long number) {
  const ado::ConnectionRef project = Project();
  const auto row = ado::OpenRecordset(
      *project, "SELECT * FROM " + StringCondition(number, language_) + " AND " + kOfLanguages,
      ado::adOpenStatic, ado::adLockReadOnly);
  const auto string = row->Eof() ? std::nullopt : StringOf(*row);
  row->Close();
  return string.value_or(LibraryString{kEmptyLibraryString});
}

std::vector<NumberedString> ProjectStringLibrary::AllStrings() {
  const ado::ConnectionRef project = Project();
  const auto rows = ado::OpenRecordset(
      *project,
      std::string("SELECT * FROM LibraryStrings WHERE ") + kOfLanguages + " ORDER BY Number, Language",
      ado::adOpenStatic, ado::adLockReadOnly);
  std::vector<NumberedString> strings;
  for (; !rows->Eof(); rows->MoveNext()) {
    const auto string = StringOf(*rows);
    if (string) strings.push_back({To<Long>(rows->Get("Number")), To<Long>(rows->Get("Language")), *string});
  }
  rows->Close();
  return strings;
}

void ProjectStringLibrary::SetLanguage(Long language, const std::string& name) {
  RequireLanguage(language, GetCount() + 1);
  const auto row = ado::RowFor(*Project(), "StringLanguages", {{"Language", language}});
  row->Put("Name", name);
  row->Update();
  row->Close();
}

std::string ProjectStringLibrary::LanguageName(Long language) {
  RequireLanguage(language, GetCount());
  const std::string query = "SELECT Name FROM StringLanguages WHERE Language=" + std::to_string(language);
  const auto row = ado::OpenRecordset(*Project(), query, ado::adOpenStatic, ado::adLockReadOnly);
  if (row->Eof()) {
    throw AutomationError(ErrorNumber::InvalidProcedureCall,
                          "language " + std::to_string(language) +
                              " of the string library is missing: their numbers have a gap");
  }
  const std::string name = To<std::string>(row->Get("Name"));
  row->Close();
  return name;
}

void ProjectStringLibrary::SetString(Long number, Long language, const LibraryString& string) {
  RequireLanguage(language, GetCount());
  const ado::ConnectionRef project = Project();
  if (string.text.empty()) {
    project->Execute("DELETE * FROM " + StringCondition(number, language));
    return;
  }
  const auto row = ado::RowFor(*project, "LibraryStrings", {{"Number", number}, {"Language", language}});
  row->Put("Text", string.text);
  row->Put("FontNumber", string.fontNumber);
  row->Update();
  row->Close();
}

}  // namespace quenzel7::corvane1
