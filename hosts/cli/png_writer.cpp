#include "hosts/cli/png_writer.h"

#include "hosts/cli/user_error.h"

namespace quenzel7::cli {

void WritePng(const std::string& path, const Picture& picture, int scale) {
  InItsWords([&] { png::SavePng(path, {picture.width, picture.height, picture.pixels}, scale); });
}

}  // namespace quenzel7::cli
