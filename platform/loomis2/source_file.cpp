#include "platform/loomis2/source_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <new>
#include <system_error>

#include "platform/automation/automation_error.h"

namespace quenzel7::loomis2 {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;

/// The path as the system writes it.
std::string WithSlashes(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

bool IsThere(const std::string& path) {
  // A name ends for the system at a zero: what is before it is another file.
  if (path.find('\0') != std::string::npos) return false;
  std::error_code ignored;
  return std::filesystem::exists(path, ignored);
}

class OpenFile {
 public:
  // Opening a pipe would wait for somebody to write into it.
  explicit OpenFile(const std::string& path) : file_(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
  ~OpenFile() {
    if (file_ >= 0) close(file_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int Get() const { return file_; }

 private:
  int file_;
};

[[noreturn]] void RaiseUnreadable(const std::error_code& why) {
  throw AutomationError(ErrorNumber::InvalidPicture, "the file cannot be read: " + why.message());
}

[[noreturn]] void RaiseUnreadable() { RaiseUnreadable({errno, std::generic_category()}); }

std::vector<Byte> NewBytes(std::size_t count) {
  try {
    return std::vector<Byte>(count);
  } catch (const std::bad_alloc&) {
    throw AutomationError(ErrorNumber::OutOfMemory,
                          "no room for the " + std::to_string(count) + " bytes of the file");
  }
}

}  // namespace

std::string FoundFile(const std::string& folder, const std::string& imagePath) {
  const std::size_t semicolon = imagePath.find(';');
  const std::string path =
      WithSlashes(semicolon == std::string::npos ? imagePath : imagePath.substr(semicolon + 1));
  if (path.empty()) return {};
  const std::string inFolder = std::filesystem::path(WithSlashes(folder)) / path;
  for (const std::string& place : {inFolder, path}) {
    if (IsThere(place)) return place;
  }
  return {};
}

std::vector<Byte> FileBytes(const std::string& path) {
  const OpenFile file(path);
  struct stat form {};
  if (file.Get() < 0 || fstat(file.Get(), &form) != 0) RaiseUnreadable();
  if (!S_ISREG(form.st_mode)) throw AutomationError(ErrorNumber::InvalidPicture, "it is no ordinary file");
  if (form.st_size > kMostFileBytes) {
    throw AutomationError(ErrorNumber::InvalidPicture,
                          "the file has " + std::to_string(form.st_size) + " bytes, more than are read");
  }
  std::vector<Byte> bytes = NewBytes(static_cast<std::size_t>(form.st_size));
  std::size_t count = 0;
  while (count < bytes.size()) {
    const ssize_t got = read(file.Get(), bytes.data() + count, bytes.size() - count);
    if (got < 0) RaiseUnreadable();
    if (got == 0) break;
    count += static_cast<std::size_t>(got);
  }
  bytes.resize(count);
  return bytes;
}

}  // namespace quenzel7::loomis2
