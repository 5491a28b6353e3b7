#include "tests/support/png_files.h"

#include <png.h>

namespace quenzel7::test {

Pixels ReadPngFile(const std::string& path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) return {};
  image.format = PNG_FORMAT_RGB;
  std::vector<png_byte> bytes(PNG_IMAGE_SIZE(image));
  if (!png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr)) return {};
  Pixels pixels{static_cast<std::int32_t>(image.width), static_cast<std::int32_t>(image.height), {}};
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    pixels.words.push_back(std::uint32_t{bytes[at]} << 16 | std::uint32_t{bytes[at + 1]} << 8 |
                           bytes[at + 2]);
  }
  return pixels;
}

bool WritePngFile(const std::string& path, const Pixels& pixels) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(pixels.width);
  image.height = static_cast<png_uint_32>(pixels.height);
  image.format = PNG_FORMAT_RGB;
  std::vector<png_byte> bytes;
  for (const std::uint32_t word : pixels.words) {
    for (const int shift : {16, 8, 0}) bytes.push_back(static_cast<png_byte>(word >> shift));
  }
  return png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr) != 0;
}

}  // namespace quenzel7::test
