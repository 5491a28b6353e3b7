#include "platform/corvane1/panel_fonts.h"

#include <algorithm>

namespace quenzel7::corvane1 {

const std::vector<PanelFont>& PanelFonts() {
  static const std::vector<PanelFont> fonts{
      // clang-format off
      {0, "Unifont 16", "Unifont", 16, 400},
      {1, "DejaVu Sans 16", "DejaVu Sans", 16, 400},
      {2, "DejaVu Sans 14", "DejaVu Sans", 14, 400},
      {3, "DejaVu Sans 8", "DejaVu Sans", 8, 400},
      {4, "DejaVu Sans 10", "DejaVu Sans", 10, 400},
      {5, "DejaVu Sans 12", "DejaVu Sans", 12, 400},
      {6, "DejaVu Sans 20", "DejaVu Sans", 20, 400},
      {7, "DejaVu Sans 24", "DejaVu Sans", 24, 400},
      {8, "DejaVu Sans 32", "DejaVu Sans", 32, 400},
      {9, "DejaVu Sans 40", "DejaVu Sans", 40, 400},
      {10, "DejaVu Sans 48", "DejaVu Sans", 48, 400},
      {11, "DejaVu Sans 10 Bold", "DejaVu Sans", 10, 700},
      {12, "DejaVu Sans 12 Bold", "DejaVu Sans", 12, 700},
      {13, "DejaVu Sans 14 Bold", "DejaVu Sans", 14, 700},
      {14, "DejaVu Sans 16 Bold", "DejaVu Sans", 16, 700},
      {15, "DejaVu Sans 20 Bold", "DejaVu Sans", 20, 700},
      {16, "DejaVu Sans 24 Bold", "DejaVu Sans", 24, 700},
      {17, "DejaVu Sans 32 Bold", "DejaVu Sans", 32, 700},
      {18, "DejaVu Sans 40 Bold", "DejaVu Sans", 40, 700},
      {19, "DejaVu Sans 48 Bold", "DejaVu Sans", 48, 700},
      {20, "DejaVu Sans Mono 10", "DejaVu Sans Mono", 10, 400},
      {21, "DejaVu Sans Mono 12", "DejaVu Sans Mono", 12, 400},
      {22, "DejaVu Sans Mono 14", "DejaVu Sans Mono", 14, 400},
      {23, "DejaVu Sans Mono 16", "DejaVu Sans Mono", 16, 400},
      {24, "DejaVu Sans Mono 20", "DejaVu Sans Mono", 20, 400},
      {25, "DejaVu Sans Mono 24", "DejaVu Sans Mono", 24, 400},
      {26, "DejaVu Sans Mono 32", "DejaVu Sans Mono", 32, 400},
      {27, "DejaVu Sans Mono 40", "DejaVu Sans Mono", 40, 400},
      {28, "DejaVu Sans Mono 48", "DejaVu Sans Mono", 48, 400},
      {29, "DejaVu Sans Mono 12 Bold", "DejaVu Sans Mono", 12, 700},
      {30, "DejaVu Sans Mono 14 Bold", "DejaVu Sans Mono", 14, 700},
      {31, "DejaVu Sans Mono 16 Bold", "DejaVu Sans Mono", 16, 700},
      {32, "DejaVu Sans Mono 20 Bold", "DejaVu Sans Mono", 20, 700},
      {33, "DejaVu Sans Mono 24 Bold", "DejaVu Sans Mono", 24, 700},
      {34, "DejaVu Sans Mono 32 Bold", "DejaVu Sans Mono", 32, 700},
      {35, "DejaVu Sans Mono 40 Bold", "DejaVu Sans Mono", 40, 700},
      {36, "DejaVu Sans Mono 48 Bold", "DejaVu Sans Mono", 48, 700},
      {37, "Unifont 16 Bold", "Unifont", 16, 700},
      {38, "Unifont 32", "Unifont", 32, 400},
      {39, "Unifont 48", "Unifont", 48, 400},
      {kStringVariableFont, "String variables", "Unifont", 16, 400},
      // clang-format on
  };
  return fonts;
}

bool IsPanelFont(Long number) {
  const std::vector<PanelFont>& fonts = PanelFonts();
  return std::any_of(fonts.begin(), fonts.end(),
                     [number](const PanelFont& font) { return font.number == number; });
}

}  // namespace quenzel7::corvane1
