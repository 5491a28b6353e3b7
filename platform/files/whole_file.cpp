#include "platform/files/whole_file.h"

#include <cerrno>
#include <cstdio>
#include <memory>

#include "platform/files/file_error.h"
#include "platform/files/replaced_file.h"

namespace quenzel7::files {

std::string ReadWholeFile(const std::string& path, const std::string& place) {
  const auto raise = [&place] { RaiseFileError(place + " cannot be read", errno); };
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
  if (!file) raise();
  std::string contents;
  char block[65536];
  while (const std::size_t count = std::fread(block, 1, sizeof block, file.get())) {
    contents.append(block, count);
  }
  // A folder opens, but reading it fails.
  if (std::ferror(file.get())) raise();
  return contents;
}

void WriteWholeFile(const std::string& path, const std::string& contents, const std::string& place) {
  ReplacedFile file(path, place);
  file.Write(contents);
  file.Commit();
}

}  // namespace quenzel7::files
