#include "server/registration/registration.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "platform/automation/automation_error.h"
#include "platform/files/file_error.h"
#include "platform/files/replaced_file.h"
#include "platform/files/whole_file.h"
#include "server/registration/section_text.h"

namespace quenzel7::server {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

namespace fs = std::filesystem;

/// How the names of our sections begin.
constexpr std::string_view kOurs = "Quenzel7.";
constexpr mode_t kOnlyUsersFolder = 0700, kOnlyUsersFile = 0600;

std::string PlaceOf(const std::string& path) { return "registration file " + path; }

/// A folder that the environment names; nothing for one that depends on where a program happens to run.
fs::path FolderIn(const char* variable) {
  const char* const value = std::getenv(variable);
  if (value == nullptr || *value != '/') return {};
  return value;
}

void MakeFolders(const fs::path& folder, const std::string& place) {
  std::error_code ignored;
  if (fs::is_directory(folder, ignored)) return;
  MakeFolders(folder.parent_path(), place);
  if (mkdir(folder.c_str(), kOnlyUsersFolder) != 0 && errno != EEXIST) {
    files::RaiseFileError(place + " cannot be written: folder " + folder.string() + " cannot be made", errno);
  }
}

bool IsThere(const std::string& path) { return access(path.c_str(), F_OK) == 0 || errno != ENOENT; }

/// The sections of others in the file; empty when there is no file.
std::string SectionsOfOthers(const std::string& path) {
  if (!IsThere(path)) return {};
  return WithoutSections(files::ReadWholeFile(path, PlaceOf(path)), kOurs);
}

void WriteForUserOnly(const std::string& path, const std::string& text) {
  files::ReplacedFile file(path, PlaceOf(path));
  if (fchmod(fileno(file.Stream()), kOnlyUsersFile) != 0) file.Raise(errno);
  file.Write(text);
  file.Commit();
}

}  // namespace

std::string RegistrationFile() {
  fs::path data = FolderIn("XDG_DATA_HOME");
  if (data.empty()) {
    const fs::path home = FolderIn("HOME");
    if (home.empty()) return {};
    data = home / ".local" / "share";
  }
  return (data / "quenzel7" / "server.ini").string();
}

void Register(const std::string& libraryPath, std::span<const RegisteredClass> classes) {
  const std::string path = RegistrationFile();
  if (path.empty()) {
    throw AutomationError(
        ErrorNumber::PathNotFound,
        "registration file cannot be written: neither XDG_DATA_HOME nor HOME is the path of a "
        "folder");
  }
  if (libraryPath.empty() || libraryPath.find_first_of("\r\n") != std::string::npos) {
    throw AutomationError(ErrorNumber::InvalidProcedureCall,
                          PlaceOf(path) + " cannot tell of the library \"" + libraryPath +
                              "\": its path must be one line that is not empty");
  }
  MakeFolders(fs::path(path).parent_path(), PlaceOf(path));
  std::string text = SectionsOfOthers(path);
  for (const RegisteredClass& registered : classes) {
    if (!text.empty()) text += '\n';
    text += "[" + registered.programmaticName + "]\nCLSID = " + registered.clsid +
            "\nInprocServer32 = " + libraryPath + "\n";
  }
  WriteForUserOnly(path, text);
}

void Unregister() {
  const std::string path = RegistrationFile();
  if (!IsThere(path)) return;
  const std::string others = SectionsOfOthers(path);
  if (!others.empty()) {
    WriteForUserOnly(path, others);
  } else if (std::remove(path.c_str()) != 0) {
    files::RaiseFileError(PlaceOf(path) + " cannot be removed", errno);
  }
}

}  // namespace quenzel7::server
