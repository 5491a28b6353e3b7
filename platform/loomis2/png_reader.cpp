#include "platform/loomis2/png_reader.h"

#include <png.h>

#include <algorithm>
#include <bit>
#include <string>

#include "platform/loomis2/alpha.h"
#include "platform/loomis2/invalid_picture.h"
#include "platform/loomis2/new_picture.h"

namespace quenzel7::loomis2 {
namespace {

/// A picture of the library, which goes with the object.
struct PngImage : png_image {
  PngImage() : png_image{} { version = PNG_IMAGE_VERSION; }
  PngImage(const PngImage&) = delete;
  PngImage& operator=(const PngImage&) = delete;
  ~PngImage() { png_image_free(this); }
};

}  // namespace

Picture ReadPng(std::span<const Byte> file) {
  PngImage image;
  const auto require = [&image](int done) {
    if (done == 0) RefusePicture("the png picture cannot be read: " + std::string(image.message));
  };
  require(png_image_begin_read_from_memory(&image, file.data(), file.size()));
  CheckCodedPictureSize(image.width, image.height, file.size(), kMostPngPixelsPerByte);
  Picture picture = WhitePicture(image.width, image.height);
  image.format = std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;
  image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;
  require(png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr));
  std::transform(picture.pixels.begin(), picture.pixels.end(), picture.pixels.begin(), OverWhite);
  return picture;
}

}  // namespace quenzel7::loomis2
