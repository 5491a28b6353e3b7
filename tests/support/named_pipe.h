#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

namespace quenzel7::test {

/// A pipe with a name, which goes with its folder, and whoever reads from it.
class NamedPipe {
 public:
  explicit NamedPipe(const std::string& path) {
    mkfifo(path.c_str(), 0600);
    reader_ = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  }
  NamedPipe(const NamedPipe&) = delete;
  NamedPipe& operator=(const NamedPipe&) = delete;
  ~NamedPipe() { close(reader_); }

  /// What was written into it so far, up to 64 bytes.
  std::string Written() const {
    char bytes[64];
    const ssize_t count = read(reader_, bytes, sizeof bytes);
    return count > 0 ? std::string(bytes, static_cast<std::size_t>(count)) : std::string();
  }

 private:
  int reader_;
};

}  // namespace quenzel7::test
