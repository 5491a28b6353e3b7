#include "platform/loomis2/new_picture.h"

#include <new>
#include <string>

#include "platform/loomis2/color_table.h"
#include "platform/loomis2/invalid_picture.h"

namespace quenzel7::loomis2 {
namespace {

std::string NameOf(std::int64_t width, std::int64_t height) {
  return "a picture of " + std::to_string(width) + " x " + std::to_string(height) + " pixels";
}

}  // namespace

void CheckPictureSize(std::int64_t width, std::int64_t height) {
  if (width < 1 || height < 1) {
    RefusePicture(NameOf(width, height) + " cannot be: expected at least 1 x 1");
  }
  if (width > kLongestSide || height > kLongestSide) {
    RefusePicture(NameOf(width, height) + " is too large: expected at most " + std::to_string(kLongestSide) +
                  " a side");
  }
  if (width * height > kMostPixels) {
    RefusePicture(NameOf(width, height) + " is too large: expected at most " + std::to_string(kMostPixels));
  }
}

void CheckCodedPictureSize(std::int64_t width, std::int64_t height, std::size_t bytes, std::int64_t most) {
  CheckPictureSize(width, height);
  if (width * height > static_cast<std::int64_t>(bytes) * most) {
    RefusePicture(NameOf(width, height) + " is too large for " + std::to_string(bytes) +
                  " bytes: expected at most " + std::to_string(most) + " pixels a byte");
  }
}

Picture WhitePicture(std::int64_t width, std::int64_t height) {
  try {
    return {static_cast<Long>(width), static_cast<Long>(height),
            std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), kWhite)};
  } catch (const std::bad_alloc&) {
    throw automation::AutomationError(automation::ErrorNumber::OutOfMemory,
                                      "no room for " + NameOf(width, height));
  }
}

}  // namespace quenzel7::loomis2
