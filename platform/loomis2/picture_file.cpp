#include "platform/loomis2/picture_file.h"

#include "platform/automation/automation_error.h"

namespace quenzel7::loomis2 {
namespace {

constexpr std::size_t kHeaderBytes = 54;
constexpr std::int64_t kMostPixels = 1 << 26;

std::int64_t Number(std::span<const Byte> file, std::size_t at, int bytes) {
  std::uint32_t number = 0;
  for (int i = 0; i < bytes; ++i) number |= std::uint32_t{file[at + static_cast<std::size_t>(i)]} << 8 * i;
  return static_cast<std::int32_t>(number);
}

[[noreturn]] void Raise(const char* what) {
  throw automation::AutomationError(automation::ErrorNumber::InvalidPicture, what);
}

}  // namespace

Picture DecodePicture(std::span<const Byte> file) {
  if (file.size() < kHeaderBytes || file[0] != 'B' || file[1] != 'M') Raise("the file is no picture");
  const std::int64_t begin = Number(file, 10, 4), width = Number(file, 18, 4), height = Number(file, 22, 4);
  if (Number(file, 28, 2) != 24 || Number(file, 30, 4) != 0) Raise("the form of the bitmap is not known");
  if (begin < 0 || width <= 0 || height <= 0 || width > kMostPixels / height) Raise("the bitmap has no size");
  const std::int64_t rowBytes = (width * 3 + 3) / 4 * 4;
  if (begin + rowBytes * height > static_cast<std::int64_t>(file.size())) Raise("the bitmap is cut off");
  Picture picture{static_cast<Long>(width), static_cast<Long>(height), {}};
  picture.pixels.reserve(static_cast<std::size_t>(width * height));
  for (std::int64_t y = height - 1; y >= 0; --y) {
    for (std::int64_t x = 0; x < width; ++x) {
      const Byte* pixel = &file[static_cast<std::size_t>(begin + y * rowBytes + x * 3)];
      picture.pixels.push_back(std::uint32_t{pixel[2]} << 16 | pixel[1] << 8 | pixel[0]);
    }
  }
  return picture;
}

}  // namespace quenzel7::loomis2
