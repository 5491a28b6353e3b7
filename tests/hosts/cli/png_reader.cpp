#include "tests/hosts/cli/png_reader.h"

#include <png.h>

#include <vector>

namespace quenzel7::cli::test {

Picture ReadPng(const std::string& path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) return {};
  image.format = PNG_FORMAT_RGB;
  std::vector<png_byte> bytes(PNG_IMAGE_SIZE(image));
  if (!png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr)) return {};
  Picture picture{static_cast<std::int32_t>(image.width), static_cast<std::int32_t>(image.height), {}};
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    picture.pixels.push_back(std::uint32_t{bytes[at]} << 16 | std::uint32_t{bytes[at + 1]} << 8 |
                             bytes[at + 2]);
  }
  return picture;
}

}  // namespace quenzel7::cli::test
