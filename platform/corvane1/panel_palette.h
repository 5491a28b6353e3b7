#pragma once

#include <array>
#include <cstdint>

namespace quenzel7::corvane1 {

/// The colours of the panel by palette index, each as 0xRRGGBB.
///
/// 0 to 15 are signal and text colours: 0 red, 1 green and 3 yellow light the LEDs, 5 is the dark default of
/// texts, 6 a magenta of its own, 7 the dark default of scales. 16 to 95 are ten hues in eight steps from
/// dark to light. 96 is the strong colour of liquids and hatches, 97 to 111 are greys with the default faces
/// 103 and 104. 112 to 255 are a cube of six reds, six greens and four blues, blue running fastest.
extern const std::array<std::uint32_t, 256> kPanelPalette;

}  // namespace quenzel7::corvane1
