#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "hosts/cli/commands.h"
#include "hosts/cli/project_session.h"
#include "hosts/cli/project_target.h"
#include "hosts/cli/table_column.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/whole_number.h"
#include "platform/corvane1/ansi_code_page.h"
#include "platform/corvane1/settings.h"
#include "platform/platform.h"
#include "shapes/element_setting.h"

namespace quenzel7::cli {
namespace {

constexpr const char* kSettings = "Settings";

/// A setting as it is to be; an empty text takes it away.
struct Setting {
  Long section = 0, key = 0;
  std::string text;

  std::string Place() const { return std::to_string(section) + "/" + std::to_string(key); }
};

Setting SettingFrom(const std::string& argument) {
  const std::string_view all = argument;
  const auto equals = all.find('='), slash = all.find('/');
  if (equals != std::string::npos && slash < equals) {
    const auto section = WholeNumberFromText(all.substr(0, slash));
    const auto key = WholeNumberFromText(all.substr(slash + 1, equals - slash - 1));
    if (section && key) return {*section, *key, argument.substr(equals + 1)};
  }
  throw UserError("setting " + Quoted(argument) +
                  ": SECTION/KEY=TEXT is expected, with whole numbers for section and key");
}

std::vector<Setting> SettingsFrom(const std::vector<std::string>& arguments) {
  std::vector<Setting> settings;
  std::set<std::pair<Long, Long>> places;
  for (const std::string& argument : arguments) {
    settings.push_back(SettingFrom(argument));
    const Setting& setting = settings.back();
    if (!places.emplace(setting.section, setting.key).second)
      throw UserError("setting " + setting.Place() + " is given twice");
  }
  return settings;
}

/// Whether something of the library asks for a setting.
bool IsRead(const Setting& setting) {
  if (setting.section == corvane1::kTextSection) return setting.key == corvane1::kCodePageKey;
  return setting.section == kElementDefaults &&
         std::any_of(std::begin(kElementDefaultKeys), std::end(kElementDefaultKeys),
                     [&](const auto& known) { return static_cast<Long>(known.key) == setting.key; });
}

void Make(ado::Connection& project, const Setting& setting) {
  if (setting.text.empty()) {
    project.Execute("DELETE * FROM Settings WHERE Section=" + std::to_string(setting.section) +
                    " AND Key=" + std::to_string(setting.key));
    return;
  }
  corvane1::LayeredSettings(Platform::Current().heldProject)
      .SetInProject(setting.section, setting.key, setting.text);
}

/// Asks for every setting that the library works with, also those that only elements of some style take: one
/// that is of no use there would make pages of the project fail. Errors of the library, which name the
/// setting.
void RequireUse() {
  for (const ElementDefaultKey& known : kElementDefaultKeys) known.require();
  corvane1::AnsiCodePageOf(*Platform::Current().settings);
}

/// The library takes numbers with a fraction, too, and rounds them: what it then works with is not what was
/// given.
void RequireWholeNumber(const Setting& setting) {
  if (setting.text.empty() || !IsRead(setting) || WholeNumberFromText(setting.text)) return;
  throw UserError("setting " + setting.Place() + ": a whole number is expected, " + Quoted(setting.text) +
                  " was given");
}

void Change(ProjectSession& project, const std::vector<Setting>& settings) {
  ado::Transaction transaction(project.Connection());
  for (const Setting& setting : settings) Make(project.Connection(), setting);
  RequireUse();
  for (const Setting& setting : settings) RequireWholeNumber(setting);
  transaction.Commit();
}

void Tell(ProjectSession& project, const Console& console) {
  const auto rows = ado::OpenRecordset(project.Connection(), "SELECT * FROM Settings ORDER BY Section, Key",
                                       ado::adOpenStatic, ado::adLockReadOnly);
  for (; !rows->Eof(); rows->MoveNext()) {
    const auto column = [&rows](const char* name) { return ReadColumn<std::string>(*rows, kSettings, name); };
    console.out << OneLine(column("Section") + "/" + column("Key") + "=" + column("Value")) << '\n';
  }
}

}  // namespace

int SettingsCommand(const std::string& projectPath, const std::vector<std::string>& arguments,
                    const Console& console) {
  const std::vector<Setting> changes = SettingsFrom(arguments);
  if (!changes.empty()) {
    ProjectTarget target(projectPath);
    {
      ProjectSession project(target.OpenPath(), target.Mode(), projectPath);
      project.Do([&] { Change(project, changes); });
    }
    target.Commit();
  }
  for (const Setting& setting : changes) {
    if (!IsRead(setting)) console.err << "note: nothing reads setting " << setting.Place() << '\n';
  }
  ProjectSession project(projectPath, corvane1::ProjectMode::ReadOnly);
  project.Do([&] { Tell(project, console); });
  return 0;
}

}  // namespace quenzel7::cli
