#include "hosts/cli/text_file.h"

#include <cerrno>
#include <cstdio>
#include <memory>

#include "hosts/cli/replaced_file.h"
#include "hosts/cli/user_error.h"

namespace quenzel7::cli {

std::string ReadTextFile(const std::string& path, const std::string& place) {
  const auto raise = [&place] { throw UserError(place + " cannot be read: " + SystemMessage(errno)); };
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
  if (!file) raise();
  std::string text;
  char block[65536];
  while (const std::size_t count = std::fread(block, 1, sizeof block, file.get())) text.append(block, count);
  // A folder opens, but reading it fails.
  if (std::ferror(file.get())) raise();
  return text;
}

void WriteTextFile(const std::string& path, const std::string& text, const std::string& place) {
  ReplacedFile file(path, place);
  if (std::fwrite(text.data(), 1, text.size(), file.Stream()) != text.size()) file.Raise(errno);
  file.Commit();
}

}  // namespace quenzel7::cli
