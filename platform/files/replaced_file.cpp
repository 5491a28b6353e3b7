#include "platform/files/replaced_file.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/files/file_error.h"

namespace quenzel7::files {
namespace {

namespace fs = std::filesystem;

}  // namespace

ReplacedFile::ReplacedFile(const std::string& path, std::string place)
    : place_(std::move(place)), target_(path) {
  std::error_code error;
  const fs::file_status status = fs::status(target_, error);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    stream_ = std::fopen(target_.c_str(), "wb");
  } else {
    // A link stays, the file that it leads to is replaced.
    if (fs::exists(status)) target_ = fs::canonical(target_, error);
    if (fs::exists(status) && access(target_.c_str(), W_OK) != 0) Raise(errno);
    temporary_ = target_;
    temporary_ += ".new" + std::to_string(getpid());
    stream_ = std::fopen(temporary_.c_str(), "wbx");
  }
  if (!stream_) {
    const int reason = errno;
    temporary_.clear();
    Raise(reason);
  }
}

ReplacedFile::~ReplacedFile() {
  if (stream_) std::fclose(stream_);
  std::error_code ignored;
  if (!temporary_.empty()) fs::remove(temporary_, ignored);
}

void ReplacedFile::Write(std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), stream_) != bytes.size()) Raise(errno);
}

void ReplacedFile::Commit() {
  if (std::fclose(std::exchange(stream_, nullptr)) != 0) Raise(errno);
  if (temporary_.empty()) return;
  std::error_code error;
  fs::rename(temporary_, target_, error);
  if (error) Raise(error.value());
  temporary_.clear();
}

void ReplacedFile::Raise(int errorNumber) const {
  RaiseFileError(place_ + " cannot be written", errorNumber);
}

}  // namespace quenzel7::files
