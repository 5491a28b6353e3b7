#include "fuzz/picture_bytes.h"

#include <algorithm>

#include "platform/automation/automation_error.h"

namespace quenzel7::fuzz {

std::string ReadAsPicture(PictureDecoder decode, std::span<const std::uint8_t> bytes) {
  try {
    const loomis2::Picture picture = decode(bytes);
    if (picture.width < 1 || picture.height < 1) return "a picture has at least one pixel";
    const auto count = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    if (picture.pixels.size() != count) return "a picture has as many pixels as its measures say";
    const bool isColor = std::all_of(picture.pixels.begin(), picture.pixels.end(),
                                     [](std::uint32_t pixel) { return pixel <= 0xFFFFFF; });
    return isColor ? "" : "a pixel has three colours and no more";
  } catch (const automation::AutomationError& error) {
    if (error.Code() != automation::ErrorNumber::InvalidPicture) return "a picture is refused by its number";
    return error.Description().empty() ? "an error says what is wrong" : "";
  }
}

}  // namespace quenzel7::fuzz
