/// Texts and frames as they look, in four scripts: all alignments in all styles beside each other as golden
/// pictures, and where their ink lies.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/corvane1/ansi_code_page.h"
#include "platform/corvane1/settings.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/surface.h"
#include "platform/platform.h"
#include "shapes/frame.h"
#include "shapes/text.h"
#include "tests/support/golden.h"
#include "tests/support/placed_shape.h"

namespace quenzel7 {
namespace {

/// A script by two lines in it and the code page that has them.
struct Script {
  const char* name;
  const char* codePage;
  const char* text;
  const char* caption;

  friend void PrintTo(const Script& script, std::ostream* out) { *out << script.name; }
};

const Script kScripts[] = {
    {"latin", "1252", "Überdruck\r\nÖl à 5 °C, gefüllt", "Façade"},
    {"greek", "1253", "Πίεση αντλίας\r\nΛάδι ψυχρό 25", "Δεξαμενή"},
    {"cyrillic", "1251", "Давление насоса\r\nЩит № 3", "Котёл"},
    {"hebrew", "1255", "לחץ משאבה\r\nמיכל 12 מלא", "דוד קיטור"},
};

constexpr Long kAlignments = 9, kTextStyles = 5, kFrameStyles = 4;
constexpr std::uint32_t kGround = 0xD8C8B8;

class Pictures : public ::testing::TestWithParam<Script> {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    const auto settings = std::dynamic_pointer_cast<corvane1::LayeredSettings>(Platform::Current().settings);
    ASSERT_NE(settings, nullptr);
    settings->Set(corvane1::kTextSection, corvane1::kCodePageKey, GetParam().codePage);
  }
  void TearDown() override { Platform::Current() = Platform(); }

  template <class Element>
  static std::shared_ptr<Element> Make(const Descriptor& place, Long style, const std::string& text) {
    auto element = test::Placed<Element>(place);
    element->Flat3D(style);
    element->Txt(text);
    return element;
  }
};
INSTANTIATE_TEST_SUITE_P(InAllScripts, Pictures, ::testing::ValuesIn(kScripts),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_P(Pictures, OfAllAlignmentsAndStylesAreTheGoldenOnes) {
  constexpr Long kColumn = 166, kRow = 64, kGap = 6;
  gdi::Surface surface(kTextStyles * kColumn + kGap, (kAlignments + 1) * kRow + kGap);
  surface.Clear(kGround);
  const auto place = [&](Long column, Long row) {
    return Descriptor{column * kColumn + kGap, row * kRow + kGap, kColumn - kGap, kRow - kGap};
  };
  for (Long style = 0; style < kTextStyles; ++style) {
    for (Integer alignment = 0; alignment < kAlignments; ++alignment) {
      const auto text = Make<clsText>(place(style, alignment), style, GetParam().text);
      text->Alignment(alignment);
      EXPECT_EQ(text->ActualText(), GetParam().text) << style << ", " << alignment;
      text->Draw(surface.Dc(), false);
    }
  }
  for (Long style = 0; style < kFrameStyles; ++style) {
    const auto frame = Make<clsFrame>(place(style, kAlignments), style, GetParam().caption);
    EXPECT_EQ(frame->ActualText(), GetParam().caption) << style;
    frame->Draw(surface.Dc(), false);
  }
  const auto blended = Make<clsFrame>(place(kFrameStyles, kAlignments), 1, GetParam().caption);
  blended->DrawTransparent(surface.Dc());
  test::ExpectGolden({surface.Width(), surface.Height(), {surface.Pixels().begin(), surface.Pixels().end()}},
                     std::string("text_") + GetParam().name);
}

/// Where a text leaves ink: the pixels in which an element with it differs from one without.
struct Ink {
  Long pixels = 0;
  Long left = 10000, top = 10000, right = -1, bottom = -1;
};

Ink InkOf(clsText& text) {
  gdi::Surface with(420, 140), without(420, 140);
  with.Clear(kGround);
  without.Clear(kGround);
  text.Draw(with.Dc(), false);
  // Empty lines leave no ink, where an empty text has its marker.
  const std::string shown = text.ActualText();
  text.ActualText("\r\n");
  text.Draw(without.Dc(), false);
  text.ActualText(shown);
  Ink ink;
  const auto inked = with.Pixels(), bare = without.Pixels();
  for (std::size_t index = 0; index < inked.size(); ++index) {
    if (inked[index] == bare[index]) continue;
    const Long x = static_cast<Long>(index) % with.Stride(), y = static_cast<Long>(index) / with.Stride();
    ++ink.pixels;
    ink.left = std::min(ink.left, x);
    ink.top = std::min(ink.top, y);
    ink.right = std::max(ink.right, x + 1);
    ink.bottom = std::max(ink.bottom, y + 1);
  }
  return ink;
}

TEST_P(Pictures, AtItsOptimalSizeATextLosesNoInkAndLeavesNoneOutsideOrOnABevel) {
  for (const Long font : {0, 1, 3, 5, 8, 12, 23, 37}) {
    const auto roomy = Make<clsText>({20, 20, 400, 120}, 4, GetParam().text);
    roomy->FontNumber(font);
    const Ink whole = InkOf(*roomy);
    ASSERT_GT(whole.pixels, 50);
    for (Long style = 0; style < kTextStyles; ++style) {
      for (Integer alignment = 0; alignment < kAlignments; ++alignment) {
        const auto text = Make<clsText>({20, 20, 1, 1}, style, GetParam().text);
        text->FontNumber(font);
        text->Alignment(alignment);
        Long width = 0, height = 0;
        text->GetOptimalDimensions(width, height);
        ASSERT_LE(width, 400);
        ASSERT_LE(height, 120);
        text->Dx(width);
        text->Dy(height);
        ASSERT_EQ(text->ActualText(), GetParam().text);
        const Ink ink = InkOf(*text);
        const Long margin = style == 1 || style == 3 ? 4 : 0;
        const std::string which = "font " + std::to_string(font) + ", style " + std::to_string(style) +
                                  ", alignment " + std::to_string(alignment);
        EXPECT_EQ(ink.pixels, whole.pixels) << which;
        EXPECT_GE(ink.left, 20 + margin) << which;
        EXPECT_GE(ink.top, 20 + margin) << which;
        EXPECT_LE(ink.right, 20 + width - margin) << which;
        EXPECT_LE(ink.bottom, 20 + height - margin) << which;
      }
    }
  }
}

}  // namespace
}  // namespace quenzel7
