#include <map>
#include <utility>

#include "hosts/cli/commands.h"
#include "hosts/cli/counted.h"
#include "hosts/cli/csv_document.h"
#include "hosts/cli/distinct_output.h"
#include "hosts/cli/library_texts.h"
#include "hosts/cli/project_session.h"
#include "hosts/cli/text_file.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/whole_number.h"
#include "platform/corvane1/project_string_library.h"

namespace quenzel7::cli {
namespace {

using corvane1::LibraryString;
using corvane1::NumberedString;
using corvane1::ProjectStringLibrary;

constexpr Long kNoFont = -1;

enum Column : std::size_t { kNumber, kLanguage, kText, kFont, kColumns };

const std::vector<std::string>& Header() {
  static const std::vector<std::string> header{"number", "language", "text", "font"};
  return header;
}

Long NumberFrom(Long least, const std::string& name, const std::string& text) {
  const auto number = WholeNumberFromText(text);
  if (!number || *number < least) {
    throw UserError(name + " " + Quoted(text) + ": a number from " + std::to_string(least) + " is expected");
  }
  return *number;
}

/// Brings the records of a file into a library, one after the other.
class StringsImport {
 public:
  explicit StringsImport(ProjectStringLibrary& library) : library_(library) {}

  void Take(const CsvRecord& record) {
    if (record.fields.size() != kColumns) {
      throw UserError(std::to_string(kColumns) + " fields are expected, not " +
                      std::to_string(record.fields.size()));
    }
    const Long language = NumberFrom(1, "language", record.fields[kLanguage]);
    if (record.fields[kNumber].empty()) {
      TakeLanguage(record, language);
    } else {
      TakeText(record, language);
    }
  }

  std::size_t Languages() const { return languages_.size(); }
  std::size_t Texts() const { return texts_.size(); }

 private:
  void TakeLanguage(const CsvRecord& record, Long language) {
    if (!record.fields[kFont].empty()) throw UserError("the name of a language has no font");
    const auto [first, isNew] = languages_.try_emplace(language, record.line);
    if (!isNew) RaiseTwice("language " + std::to_string(language), first->second);
    library_.SetLanguage(language, record.fields[kText]);
  }

  void TakeText(const CsvRecord& record, Long language) {
    const Long number = NumberFrom(0, "number", record.fields[kNumber]);
    const std::string& font = record.fields[kFont];
    const Long fontNumber = font.empty() ? kNoFont : NumberFrom(0, "font", font);
    const auto [first, isNew] = texts_.try_emplace({number, language}, record.line);
    if (!isNew) {
      RaiseTwice("text " + std::to_string(number) + " in language " + std::to_string(language),
                 first->second);
    }
    library_.SetString(number, language, {record.fields[kText], fontNumber});
  }

  [[noreturn]] static void RaiseTwice(const std::string& what, std::size_t line) {
    throw UserError(what + " stands in line " + std::to_string(line) + " already");
  }

  ProjectStringLibrary& library_;
  /// Where they stood.
  std::map<Long, std::size_t> languages_;
  std::map<std::pair<Long, Long>, std::size_t> texts_;
};

}  // namespace

int ImportStringsCommand(const std::string& projectPath, const std::string& filePath,
                         const Console& console) {
  const std::string place = "strings file " + filePath;
  const std::vector<CsvRecord> records = ReadCsv(ReadTextFile(filePath, place), place);
  if (records.empty() || records.front().fields != Header())
    throw UserError(LineOf(place, 1) + ": the headings number,language,text,font are expected");
  ProjectSession project(projectPath, corvane1::ProjectMode::Open);
  project.Do([&] {
    ProjectStringLibrary library = OpenedLibrary();
    StringsImport import(library);
    ado::Transaction transaction(project.Connection());
    for (std::size_t index = 1; index < records.size(); ++index) {
      AtPlace(LineOf(place, records[index].line), [&] { import.Take(records[index]); });
    }
    transaction.Commit();
    console.out << Counted(import.Texts(), "text") << " and " << Counted(import.Languages(), "language")
                << " imported into " << projectPath << '\n';
  });
  return 0;
}

int ExportStringsCommand(const std::string& projectPath, const std::string& filePath) {
  const std::string place = "strings file " + filePath;
  RequireDistinctOutput(place, filePath, {projectPath});
  ProjectSession project(projectPath, corvane1::ProjectMode::ReadOnly);
  std::string text = CsvLine(Header());
  project.Do([&] {
    ProjectStringLibrary library = OpenedLibrary();
    const Long count = library.GetCount();
    for (Long language = 1; language <= count; ++language) {
      text += CsvLine({"", std::to_string(language), library.LanguageName(language), ""});
    }
    for (const NumberedString& entry : library.AllStrings()) {
      const Long font = entry.string.fontNumber;
      text += CsvLine({std::to_string(entry.number), std::to_string(entry.language), entry.string.text,
                       font == kNoFont ? "" : std::to_string(font)});
    }
  });
  WriteTextFile(filePath, text, place);
  return 0;
}

}  // namespace quenzel7::cli
