#include "platform/scripting/host_files.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/automation/automation_error.h"
#include "platform/scripting/host_path.h"
#include "platform/scripting/line_stream.h"

namespace quenzel7::scripting {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

namespace fs = std::filesystem;

/// How far names lead on the disk.
struct Way {
  /// The names of all that is there, as the disk has them.
  std::vector<std::string> found;
  /// How many names had a folder to be looked for in.
  std::size_t lookedFor = 0;
};

Way WayOf(const std::vector<std::string>& names) {
  Way way;
  for (const std::string& name : names) {
    const std::string folder = HostPath(way.found);
    std::error_code ignored;
    if (!fs::is_directory(folder, ignored)) break;
    ++way.lookedFor;
    const auto found = NameInFolder(folder, name);
    if (!found) break;
    way.found.push_back(*found);
  }
  return way;
}

TextStreamRef OpenOnDisk(const std::string& path, const std::string& name) {
  const auto raise = [](const std::string& why) {
    throw AutomationError(ErrorNumber::PermissionDenied, why);
  };
  std::error_code ignored;
  // Opening a pipe would wait for somebody to write into it.
  if (!fs::is_regular_file(path, ignored)) raise("\"" + path + "\" is no ordinary file");
  auto file = std::make_unique<std::ifstream>(path, std::ios::binary);
  if (!*file) raise("\"" + path + "\" cannot be opened: " + std::strerror(errno));
  return std::make_shared<LineStream>(std::move(file), name);
}

}  // namespace

const BuiltInFile* HostFiles::FindBuiltIn(const std::vector<std::string>& names) const {
  if (names.size() < 2) return nullptr;
  const std::string &folder = names.end()[-2], &name = names.back();
  for (const BuiltInFile& file : builtIn_) {
    if (IsSameName(file.folder, folder) && IsSameName(file.name, name)) return &file;
  }
  return nullptr;
}

TextStreamRef HostFiles::OpenTextFile(const std::string& path) {
  const std::string name = "text file \"" + path + "\"";
  try {
    const std::vector<std::string> names = PathNames(path);
    const Way way = WayOf(names);
    if (way.found.size() == names.size()) return OpenOnDisk(HostPath(way.found), name);
    if (const BuiltInFile* file = FindBuiltIn(names)) {
      return std::make_shared<LineStream>(std::make_unique<std::istringstream>(std::string(file->contents)),
                                          name);
    }
    const std::string about = "\"" + HostPath(names) + "\" was looked for, but ";
    if (way.lookedFor < names.size()) {
      const std::vector<std::string> folder(names.begin(),
                                            names.begin() + static_cast<std::ptrdiff_t>(way.lookedFor));
      throw AutomationError(ErrorNumber::PathNotFound,
                            about + "there is no folder \"" + HostPath(folder) + "\"");
    }
    throw AutomationError(ErrorNumber::FileNotFound, about + "there is no such file");
  } catch (const AutomationError& error) {
    throw error.In(name);
  }
}

}  // namespace quenzel7::scripting
