#pragma once

#include <string>
#include <vector>

#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

/// A font that elements can be given, by its number.
struct PanelFont {
  Long number;
  std::string name;    ///< as reports show it
  std::string family;  ///< of the face
  Long height;         ///< of a line, in pixels
  Long weight;         ///< 400 regular, 700 bold
};

/// The number of the font in which some panel models show the description of string variables. It is stored
/// in projects, so it never changes.
constexpr Long kStringVariableFont = 246995310;

/// The numbers of the fonts that new elements, and descriptions of keypad entries, take.
constexpr Long kDefaultFont = 1;
constexpr Long kDefaultDescriptionFont = 2;

/// The fonts of the panel. Number 0 is the smallest one in which every character is crisp.
const std::vector<PanelFont>& PanelFonts();

/// Whether that is the number of one of them.
bool IsPanelFont(Long number);

}  // namespace quenzel7::corvane1
