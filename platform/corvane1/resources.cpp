#include "platform/corvane1/resources.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/automation/automation_error.h"

namespace quenzel7::corvane1 {
namespace {

constexpr std::size_t kBadgeSide = 8;

/// A letter a pixel, see `BadgeColor`.
constexpr std::array<std::string_view, kBadgeSide> kBadge = {
    "bbbbbbbb",  //
    "bbwwwwbb",  //
    "bwbbbbwb",  //
    "bwbbbbbb",  //
    "bwbbwwwb",  //
    "bwbbbbwb",  //
    "bbwwwwbb",  //
    "bbbbbbbb",
};

/// As bitmaps keep it, 0x00RRGGBB. The blue is about as far from white as from black.
constexpr std::uint32_t BadgeColor(char letter) { return letter == 'w' ? 0xFFFFFF : 0x1E6FD9; }

constexpr auto kBadgePixels = [] {
  std::array<std::uint32_t, kBadgeSide * kBadgeSide> pixels{};
  std::size_t pixel = 0;
  for (const std::string_view row : kBadge) {
    for (const char letter : row) pixels[pixel++] = BadgeColor(letter);
  }
  return pixels;
}();

}  // namespace

gdi::OwnedBitmap DrawnResources::LoadPicture(Long number) {
  if (number != kGlobalVariableBadge) {
    throw automation::AutomationError(automation::ErrorNumber::ResourceNotFound,
                                      "there is no picture " + std::to_string(number) + "; the only one is " +
                                          std::to_string(kGlobalVariableBadge));
  }
  return gdi::OwnedBitmap(gdi::CreateBitmap(kBadgeSide, kBadgeSide, 1, 32, kBadgePixels.data()));
}

}  // namespace quenzel7::corvane1
