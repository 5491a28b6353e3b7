#include "hosts/cli/text_file.h"

#include "hosts/cli/user_error.h"
#include "platform/files/whole_file.h"

namespace quenzel7::cli {

std::string ReadTextFile(const std::string& path, const std::string& place) {
  return InItsWords([&] { return files::ReadWholeFile(path, place); });
}

void WriteTextFile(const std::string& path, const std::string& text, const std::string& place) {
  InItsWords([&] { files::WriteWholeFile(path, text, place); });
}

}  // namespace quenzel7::cli
