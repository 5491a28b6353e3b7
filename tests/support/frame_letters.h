#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "framework/element_contract.h"
#include "platform/corvane1/color_service.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/surface.h"
#include "platform/platform.h"

namespace quenzel7::test {

/// Colours that a picture of a frame tells apart: the panel colours, the lines of a bevel and the face.
class LetterColors final : public corvane1::ColorService {
 public:
  static constexpr std::uint32_t kColor = 0x100, kLine = 0x200, kFace = 0x300, kGround = 0xABCDEF;

  std::uint32_t GetColor(Long colorNumber) override {
    return kColor + static_cast<std::uint32_t>(colorNumber);
  }
  std::uint32_t Get3DShadeColor(Long level, Long) override {
    return kLine + static_cast<std::uint32_t>(level);
  }
  std::uint32_t Get3DFaceColor(Long) override { return kFace; }

  /// '1' to '8' for the lines of a bevel, 'f' for a face, 'A' to 'Z' for the panel colours from 0 on, '.' for
  /// the ground, 'w' for white, '?' for any other colour.
  static char LetterOf(std::uint32_t color) {
    if (color == kGround) return '.';
    if (color == 0xFFFFFF) return 'w';
    if (color == kFace) return 'f';
    if (color > kLine && color <= kLine + 8) return static_cast<char>('0' + (color - kLine));
    if (color >= kColor && color < kColor + 26) return static_cast<char>('A' + (color - kColor));
    return '?';
  }
};

/// What an element paints on a surface of that size, a letter a pixel.
inline std::vector<std::string> LettersOf(ItfHmiElement& element, std::int32_t width, std::int32_t height) {
  gdi::Surface surface(width, height);
  surface.Clear(LetterColors::kGround);
  element.Draw(surface.Dc(), false);
  std::vector<std::string> rows;
  for (std::int32_t y = 0; y < height; ++y) {
    rows.emplace_back();
    for (std::int32_t x = 0; x < width; ++x) rows.back() += LetterColors::LetterOf(surface.At(x, y));
  }
  return rows;
}

/// The embedded services, but for colours that are letters.
template <class Element>
class LetterTest : public ::testing::Test {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    Platform::Current().colorService = std::make_shared<LetterColors>();
  }
  void TearDown() override { Platform::Current() = Platform(); }

  /// In the colours 6 ('G') on 7 ('H').
  static std::shared_ptr<Element> Make(Long style, Long width, Long height, const std::string& text = "") {
    auto element = std::make_shared<Element>();
    element->ColorFore(6);
    element->ColorBack(7);
    element->Xs(1);
    element->Ys(1);
    element->Dx(width);
    element->Dy(height);
    element->FontNumber(0);
    element->Alignment(0);
    element->Flat3D(style);
    element->Txt(text);
    return element;
  }
};

}  // namespace quenzel7::test
