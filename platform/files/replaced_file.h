#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace quenzel7::files {

/// A file that is written under a temporary name beside its place and takes its place when it is complete.
/// Left without Commit, or after an error, what was at the place is there unchanged and nothing else is left.
///
/// What is no ordinary file, a pipe or a device, is written directly.
class ReplacedFile {
 public:
  /// Raises "PLACE cannot be written: ..." with the system's words, errors of RaiseFileError; so do all
  /// members.
  ReplacedFile(const std::string& path, std::string place);
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;
  ~ReplacedFile();

  /// Where to write.
  std::FILE* Stream() { return stream_; }
  /// Writes bytes behind those that are there.
  void Write(std::string_view bytes);
  /// Puts the file in its place.
  void Commit();
  /// Raises for a system error number.
  [[noreturn]] void Raise(int errorNumber) const;

 private:
  std::string place_;
  std::filesystem::path target_;
  /// Where it is written; empty for what is written directly.
  std::filesystem::path temporary_;
  std::FILE* stream_ = nullptr;
};

}  // namespace quenzel7::files
