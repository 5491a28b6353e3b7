#include "framework/report_lines.h"

#include <iterator>

#include "platform/platform.h"

namespace quenzel7 {
namespace {

constexpr const char* kAlignments[] = {"Top Left",    "Top Center",    "Top Right",
                                       "Center Left", "Center Center", "Center Right",
                                       "Bottom Left", "Bottom Center", "Bottom Right"};

}  // namespace

std::string Flat3DReportLine(Long flat3D) {
  switch (flat3D) {
    case 0:
      return "Style: Flat";
    case 1:
      return "Style: 3D (Unpressed)";
    case 3:
      return "Style: 3D (Pressed)";
    default:
      return {};
  }
}

std::string AlignmentReportLine(Long alignment) {
  const bool isNamed = alignment >= 0 && alignment < static_cast<Long>(std::size(kAlignments));
  return std::string("Alignment: ") + (isNamed ? kAlignments[alignment] : "");
}

std::string FontReportLine(Long fontNumber) {
  return "Font: " + Platform::Current().fontService->GetFontName(fontNumber);
}

}  // namespace quenzel7
