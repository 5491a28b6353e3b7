#include "platform/corvane1/font_service.h"

#include <algorithm>
#include <cstdint>

#include "platform/automation/arithmetic.h"

namespace quenzel7::corvane1 {
namespace {

constexpr Long kRaisedFrame = 1, kSunkenFrame = 3;
constexpr Long kAlignments = 9, kSteps = 3;

/// Where a length stands in a room, which is no larger than 32 bits hold: at its beginning (0), in its middle
/// (1) or at its end (2).
Long Aligned(Long start, std::int64_t room, Long length, Long step) {
  const std::int64_t free = std::max<std::int64_t>(room - length, 0);
  return automation::Add(start, static_cast<Long>(free * step / (kSteps - 1)));
}

}  // namespace

TextPosition FontService::GetTextPosition(const std::string& text, Long fontNumber, Long x, Long y,
                                          Long width, Long height, Long alignment, Long frameFlag) {
  const TextExtent extent = GetTextRect(text, fontNumber);
  const bool isFramed = frameFlag == kRaisedFrame || frameFlag == kSunkenFrame;
  const Long margin = isFramed ? kFrameMargin : 0;
  const Long known = alignment >= 0 && alignment < kAlignments ? alignment : 0;
  const auto place = [&](Long start, Long room, Long length, Long step) {
    return Aligned(automation::Add(start, margin), std::int64_t{room} - 2 * margin, length, step);
  };
  return {place(x, width, extent.width, known % kSteps), place(y, height, extent.height, known / kSteps)};
}

Long FontService::GetGUIDigit(Long fontNumber) {
  const std::array<Long, 256> widths = GetCharWidths(fontNumber);
  const auto widthOf = [&widths](Long digit) { return widths[static_cast<std::size_t>('0' + digit)]; };
  Long widest = 0;
  for (Long digit = 1; digit <= 9; ++digit) {
    if (widthOf(digit) >= widthOf(widest)) widest = digit;
  }
  return widest;
}

}  // namespace quenzel7::corvane1
