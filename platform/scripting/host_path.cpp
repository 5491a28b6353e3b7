#include "platform/scripting/host_path.h"

#include <locale.h>

#include <cwchar>
#include <cwctype>
#include <filesystem>
#include <system_error>

#include "platform/automation/automation_error.h"

namespace quenzel7::scripting {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

namespace fs = std::filesystem;

bool HasDriveLetter(std::string_view path) {
  if (path.find(':') != 1) return false;
  const char letter = path[0];
  return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
}

/// Goes on from where the names lead.
void Follow(std::string_view path, std::string_view separators, std::vector<std::string>& names) {
  while (!path.empty()) {
    const std::string_view name = path.substr(0, path.find_first_of(separators));
    path.remove_prefix(name.size() < path.size() ? name.size() + 1 : name.size());
    if (name == "..") {
      if (!names.empty()) names.pop_back();
    } else if (!name.empty() && name != ".") {
      names.emplace_back(name);
    }
  }
}

/// Has the thread read bytes as UTF-8; where the system has no locale for that, as it did before.
class Utf8Locale {
 public:
  Utf8Locale() : before_(uselocale(Utf8())) {}
  ~Utf8Locale() { uselocale(before_); }
  Utf8Locale(const Utf8Locale&) = delete;
  Utf8Locale& operator=(const Utf8Locale&) = delete;

 private:
  static locale_t Utf8() {
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return utf8;
  }

  locale_t before_;
};

/// The characters in lower case. A byte that belongs to none counts by itself.
std::wstring Folded(std::string_view name) {
  constexpr wchar_t kLooseBytes = 0xDC00;
  const Utf8Locale locale;
  std::wstring folded;
  while (!name.empty()) {
    std::mbstate_t state{};
    wchar_t character = 0;
    std::size_t size = std::mbrtowc(&character, name.data(), name.size(), &state);
    if (size == 0 || size > name.size()) {
      character = static_cast<wchar_t>(kLooseBytes + static_cast<unsigned char>(name.front()));
      size = 1;
    }
    folded += static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(character)));
    name.remove_prefix(size);
  }
  return folded;
}

bool IsThere(const std::string& folder, const std::string& name) {
  // A name ends for the system at a zero: what is before it is another file.
  if (name.find('\0') != std::string::npos) return false;
  std::error_code ignored;
  return fs::exists(folder + "/" + name, ignored);
}

}  // namespace

std::vector<std::string> PathNames(const std::string& path) {
  constexpr std::string_view kSeparators = "\\/";
  if (HasDriveLetter(path)) {
    throw AutomationError(ErrorNumber::PathNotFound, "there is no drive \"" + path.substr(0, 2) + "\" here");
  }
  std::vector<std::string> names;
  if (path.find_first_of(kSeparators) != 0) {
    std::error_code error;
    const fs::path current = fs::current_path(error);
    if (error) throw AutomationError(ErrorNumber::PathNotFound, "the current folder is not there");
    Follow(current.native(), "/", names);
  }
  Follow(path, kSeparators, names);
  return names;
}

std::string HostPath(const std::vector<std::string>& names) {
  if (names.empty()) return "/";
  std::string path;
  for (const std::string& name : names) (path += '/') += name;
  return path;
}

bool IsSameName(std::string_view a, std::string_view b) { return Folded(a) == Folded(b); }

std::optional<std::string> NameInFolder(const std::string& folder, const std::string& name) {
  if (IsThere(folder, name)) return name;
  std::optional<std::string> first;
  std::error_code error;
  const fs::directory_iterator end;
  for (fs::directory_iterator entry(folder, error); !error && entry != end; entry.increment(error)) {
    const std::string found = entry->path().filename().string();
    if (first && *first <= found) continue;
    if (IsSameName(found, name) && IsThere(folder, found)) first = found;
  }
  return first;
}

}  // namespace quenzel7::scripting
