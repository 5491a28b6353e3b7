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
#include "platform/gdi/selected.h"
#include "platform/gdi/surface.h"
#include "platform/platform.h"
#include "shapes/frame.h"
#include "shapes/text.h"
#include "tests/platform/gdi/picture.h"
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
 public:
  template <class Element>
  static std::shared_ptr<Element> Make(const Descriptor& place, Long style, const std::string& text) {
    auto element = test::Placed<Element>(place);
    element->Flat3D(style);
    element->Txt(text);
    return element;
  }

 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    const auto settings = std::dynamic_pointer_cast<corvane1::LayeredSettings>(Platform::Current().settings);
    ASSERT_NE(settings, nullptr);
    settings->Set(corvane1::kTextSection, corvane1::kCodePageKey, GetParam().codePage);
  }
  void TearDown() override { Platform::Current() = Platform(); }
};
INSTANTIATE_TEST_SUITE_P(InAllScripts, Pictures, ::testing::ValuesIn(kScripts),
                         [](const auto& instance) { return std::string(instance.param.name); });

/// A sheet of elements in columns and rows.
class Sheet {
 public:
  Sheet(Long columns, Long rows) : surface_(columns * kColumn + kGap, rows * kRow + kGap) {
    surface_.Clear(kGround);
  }

  static Descriptor Place(Long column, Long row) {
    return {column * kColumn + kGap, row * kRow + kGap, kColumn - kGap, kRow - kGap};
  }
  Long Dc() const { return surface_.Dc(); }
  void ExpectGolden(const std::string& name) const {
    test::ExpectGolden(
        {surface_.Width(), surface_.Height(), {surface_.Pixels().begin(), surface_.Pixels().end()}}, name);
  }

 private:
  static constexpr Long kColumn = 166, kRow = 64, kGap = 6;

  gdi::Surface surface_;
};

TEST_P(Pictures, OfAllAlignmentsAndStylesAreTheGoldenOnes) {
  const Sheet sheet(kTextStyles, kAlignments + 1);
  for (Long style = 0; style < kTextStyles; ++style) {
    for (Integer alignment = 0; alignment < kAlignments; ++alignment) {
      const auto text = Make<clsText>(Sheet::Place(style, alignment), style, GetParam().text);
      text->Alignment(alignment);
      EXPECT_EQ(text->ActualText(), GetParam().text) << style << ", " << alignment;
      text->Draw(sheet.Dc(), false);
    }
  }
  for (Long style = 0; style < kFrameStyles; ++style) {
    const auto frame = Make<clsFrame>(Sheet::Place(style, kAlignments), style, GetParam().caption);
    EXPECT_EQ(frame->ActualText(), GetParam().caption) << style;
    frame->Draw(sheet.Dc(), false);
  }
  const auto blended = Make<clsFrame>(Sheet::Place(kFrameStyles, kAlignments), 1, GetParam().caption);
  blended->DrawTransparent(sheet.Dc());
  sheet.ExpectGolden(std::string("text_") + GetParam().name);
}

TEST_P(Pictures, OfFramesAroundLinesAndStringsOfTheLibraryAreTheGoldenOnes) {
  const Sheet sheet(2 * kFrameStyles, kAlignments);
  for (Long column = 0; column < 2 * kFrameStyles; ++column) {
    for (Integer alignment = 0; alignment < kAlignments; ++alignment) {
      const Long style = column % kFrameStyles;
      const auto frame = Make<clsFrame>(Sheet::Place(column, alignment), style, GetParam().text);
      frame->Alignment(alignment);
      // A string of the library on the right, which is one block.
      if (column >= kFrameStyles) frame->StorageStringID(5);
      EXPECT_EQ(frame->ActualText(), GetParam().text) << style << ", " << alignment;
      frame->Draw(sheet.Dc(), false);
    }
  }
  sheet.ExpectGolden(std::string("frame_") + GetParam().name);
}

/// Where a text leaves ink: the pixels in which an element with it differs from one without.
struct Ink {
  Long pixels = 0;
  Long left = 10000, top = 10000, right = -1, bottom = -1;
};

Ink InkOf(TextBearingElement& element) {
  gdi::Surface with(420, 140), without(420, 140);
  with.Clear(kGround);
  without.Clear(kGround);
  const auto draw = [&element](const gdi::Surface& surface) {
    // A text on the border of a plain frame covers it, which would pass for ink in any other colour.
    const std::uint32_t body = Platform::Current().colorService->GetColor(element.ColorBack());
    const gdi::SelectedPen pen(surface.Dc(), gdi::MakePen(gdi::PS_SOLID, 1, body));
    static_cast<ItfHmiElement&>(element).Draw(surface.Dc(), false);
  };
  draw(with);
  // Empty lines leave no ink, where an empty text may have its marker.
  const std::string shown = element.ActualText();
  element.ActualText("\r\n");
  draw(without);
  element.ActualText(shown);
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

/// At the size that an element asks for, its ink is all that there is of it where there is room in plenty; on
/// `bare`, a style without a bevel. It stays within the place and off the bevel of raised and sunken ones.
template <class Element>
void ExpectAllInkAtOptimalSize(const std::string& shown, Long bare, Long styles) {
  for (const Long font : {0, 1, 3, 5, 8, 12, 23, 37}) {
    const auto make = [&](const Descriptor& place, Long style) {
      auto element = Pictures::Make<Element>(place, style, shown);
      element->FontNumber(font);
      return element;
    };
    const Ink whole = InkOf(*make({20, 20, 400, 120}, bare));
    ASSERT_GT(whole.pixels, 50);
    for (Long style = 0; style < styles; ++style) {
      for (Integer alignment = 0; alignment < kAlignments; ++alignment) {
        const auto element = make({20, 20, 1, 1}, style);
        element->Alignment(alignment);
        Long width = 0, height = 0;
        element->GetOptimalDimensions(width, height);
        ASSERT_LE(width, 400);
        ASSERT_LE(height, 120);
        element->Dx(width);
        element->Dy(height);
        ASSERT_EQ(element->ActualText(), shown);
        const Ink ink = InkOf(*element);
        const Long margin = HasBevel(style) ? 4 : 0;
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

TEST_P(Pictures, AtItsOptimalSizeATextLosesNoInkAndLeavesNoneOutsideOrOnABevel) {
  ExpectAllInkAtOptimalSize<clsText>(GetParam().text, 4, kTextStyles);
}

TEST_P(Pictures, AtItsOptimalSizeAFrameLosesNoInkAndLeavesNoneOutsideOrOnABevel) {
  ExpectAllInkAtOptimalSize<clsFrame>(GetParam().text, 0, kFrameStyles);
}

}  // namespace
}  // namespace quenzel7
