#include <charconv>

#include "hosts/cli/commands.h"
#include "hosts/cli/element_classes.h"
#include "hosts/cli/project_session.h"
#include "hosts/cli/project_target.h"
#include "hosts/cli/table_column.h"
#include "hosts/cli/user_error.h"
#include "platform/corvane1/ansi_code_page.h"
#include "platform/corvane1/settings.h"
#include "platform/platform.h"

namespace quenzel7::cli {
namespace {

constexpr const char* kSettings = "Settings";

/// A setting as it is to be; an empty text takes it away.
struct Setting {
  Long section = 0, key = 0;
  std::string text;
};

bool IsNumber(std::string_view text, Long& number) {
  const char* end = text.data() + text.size();
  const auto [read, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && read == end;
}

Setting SettingFrom(const std::string& argument) {
  const std::string_view all = argument;
  const auto equals = all.find('='), slash = all.find('/');
  Setting setting;
  if (equals == std::string::npos || !IsNumber(all.substr(0, slash), setting.section) ||
      !IsNumber(all.substr(slash + 1, equals - slash - 1), setting.key)) {
    throw UserError("setting " + Quoted(argument) +
                    ": SECTION/KEY=TEXT is expected, with whole numbers for section and key");
  }
  setting.text = all.substr(equals + 1);
  return setting;
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

/// Asks for every setting that the library works with: one that is of no use there would make every page of
/// the project fail. Errors of the library, which name the setting.
void RequireUse() {
  for (const automation::ClassInfo* elementClass : ElementClasses::All().Classes()) {
    ElementClasses::Create(*elementClass);
  }
  corvane1::AnsiCodePageOf(*Platform::Current().settings);
}

void Change(ProjectSession& project, const std::vector<Setting>& settings) {
  ado::Transaction transaction(project.Connection());
  for (const Setting& setting : settings) Make(project.Connection(), setting);
  RequireUse();
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
  std::vector<Setting> changes;
  for (const std::string& argument : arguments) changes.push_back(SettingFrom(argument));
  if (!changes.empty()) {
    ProjectTarget target(projectPath);
    {
      ProjectSession project(target.OpenPath(), target.Mode(), projectPath);
      project.Do([&] { Change(project, changes); });
    }
    target.Commit();
  }
  ProjectSession project(projectPath, corvane1::ProjectMode::ReadOnly);
  project.Do([&] { Tell(project, console); });
  return 0;
}

}  // namespace quenzel7::cli
