#include "platform/corvane1/settings.h"

#include <charconv>
#include <fstream>
#include <optional>
#include <utility>

#include "platform/ado/row_for.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"

namespace quenzel7::corvane1 {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using automation::Variant;

std::string Trimmed(const std::string& text) {
  constexpr const char* kBlanks = " \t\r";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<Long> Number(const std::string& text) {
  Long number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return {};
  return number;
}

/// A part of a setting's place as messages show it; what has no text is shown by its kind.
std::string Shown(const Variant& number) {
  return number.IsNull() || number.IsArray() ? automation::KindName(number.Kind())
                                             : automation::To<std::string>(number);
}

[[noreturn]] void RaiseUnreadable(const std::string& path) {
  throw AutomationError(ErrorNumber::PathNotFound, "settings file " + path + " cannot be read");
}

}  // namespace

LayeredSettings::LayeredSettings(std::shared_ptr<HeldProjectDatabase> projectDatabase)
    : projectDatabase_(std::move(projectDatabase)) {}

std::uint64_t LayeredSettings::Place(Long section, Long key) {
  return std::uint64_t{static_cast<std::uint32_t>(section)} << 32 | static_cast<std::uint32_t>(key);
}

const LayeredSettings::Texts& LayeredSettings::ProjectTexts() {
  const ado::ConnectionRef connection = projectDatabase_->ConnectionIfOpen();
  if (ado::IsSameConnection(connection, readFrom_)) return project_;
  // Before the read, so that one that fails is made again.
  readFrom_.reset();
  project_.clear();
  if (connection) {
    const auto rows =
        ado::OpenRecordset(*connection, "SELECT * FROM Settings", ado::adOpenStatic, ado::adLockReadOnly);
    for (; !rows->Eof(); rows->MoveNext()) {
      const Variant section = rows->Get("Section");
      const Variant key = rows->Get("Key");
      const Variant value = rows->Get("Value");
      try {
        project_[Place(automation::To<Long>(section), automation::To<Long>(key))] =
            automation::To<std::string>(value);
      } catch (const AutomationError& error) {
        throw error.In("setting " + Shown(section) + "/" + Shown(key) + " of the project");
      }
    }
    rows->Close();
    readFrom_ = connection;
  }
  return project_;
}

std::string LayeredSettings::GetSetting(Long section, Long key, const std::string& fallback) {
  const std::uint64_t place = Place(section, key);
  for (const Texts* texts : {&ProjectTexts(), &std::as_const(common_)}) {
    const auto found = texts->find(place);
    if (found != texts->end()) return found->second;
  }
  return fallback;
}

void LayeredSettings::Set(Long section, Long key, const std::string& text) {
  common_[Place(section, key)] = text;
}

void LayeredSettings::SetInProject(Long section, Long key, const std::string& text) {
  const auto row =
      ado::RowFor(*projectDatabase_->OpenConnection(), "Settings", {{"Section", section}, {"Key", key}});
  row->Put("Value", text);
  row->Update();
  row->Close();
  readFrom_.reset();
}

void LayeredSettings::ReadFile(const std::string& path) {
  std::ifstream file(path);
  if (!file) RaiseUnreadable(path);
  Texts texts;
  std::optional<Long> section;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    line = Trimmed(line);
    if (line.empty() || line.front() == '#' || line.front() == ';') continue;
    const auto raise = [&](const char* expected) {
      throw AutomationError(ErrorNumber::InvalidPropertyValue, "settings file " + path + ", line " +
                                                                   std::to_string(number) + ": \"" + line +
                                                                   "\" found, " + expected + " expected");
    };
    if (line.front() == '[') {
      section = line.back() == ']' ? Number(Trimmed(line.substr(1, line.size() - 2))) : std::nullopt;
      if (!section) raise("[section number]");
      continue;
    }
    const auto equals = line.find('=');
    const auto key = Number(Trimmed(line.substr(0, equals)));
    if (equals == std::string::npos || !key) raise("key number = text");
    if (!section) raise("a line [section number] first");
    texts[Place(*section, *key)] = Trimmed(line.substr(equals + 1));
  }
  // A folder opens like a file and fails at the first read only.
  if (file.bad()) RaiseUnreadable(path);
  for (auto& [place, text] : texts) common_[place] = std::move(text);
}

}  // namespace quenzel7::corvane1
