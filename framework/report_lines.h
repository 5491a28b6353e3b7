#pragma once

#include <string>

#include "platform/automation/types.h"

/// Lines of the printed report that several elements share.
namespace quenzel7 {

/// "Style: Flat" for 0, "Style: 3D (Unpressed)" for 1, "Style: 3D (Pressed)" for 3, else empty.
std::string Flat3DReportLine(Long flat3D);

/// "Alignment: " and the name of the alignment, 0 "Top Left" to 8 "Bottom Right" row by row; other values
/// have no name.
std::string AlignmentReportLine(Long alignment);

/// "Font: " and the font's name.
std::string FontReportLine(Long fontNumber);

}  // namespace quenzel7
