#include "platform/png/png_file.h"

#include <cerrno>
#include <new>
#include <string_view>

#include "platform/files/replaced_file.h"

namespace quenzel7::png {

void SavePng(const std::string& path, const PixelView& picture, int scale) {
  files::ReplacedFile file(path, PicturePlace(path));
  try {
    EncodePng(picture, scale, [&file](std::span<const Byte> bytes) {
      file.Write({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    });
  } catch (const std::bad_alloc&) {
    file.Raise(ENOMEM);
  }
  file.Commit();
}

}  // namespace quenzel7::png
