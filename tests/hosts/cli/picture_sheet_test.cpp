#include "hosts/cli/picture_sheet.h"

#include <gtest/gtest.h>

#include "platform/gdi/gdi.h"
#include "tests/hosts/cli/golden.h"

namespace quenzel7::cli {
namespace {

/// A section whose samples fill their areas with one colour each.
SheetSection Plain(const std::string& title, const std::vector<gdi::COLORREF>& colors) {
  SheetSection section{title, {}};
  for (const gdi::COLORREF color : colors) {
    section.samples.push_back({"n", [color](gdi::HDC dc, const gdi::RECT& area) {
                                 const gdi::HBRUSH brush = gdi::CreateSolidBrush(color);
                                 const gdi::RECT more{-5, -5, area.right + 5, area.bottom + 5};
                                 gdi::FillRect(dc, &more, brush);
                                 gdi::DeleteObject(brush);
                               }});
  }
  return section;
}

std::uint32_t At(const Picture& picture, int x, int y) {
  return picture.pixels[static_cast<std::size_t>(y * picture.width + x)];
}

TEST(PictureSheet, PutsSamplesInRowsOfEightEachInItsOwnArea) {
  const std::vector<gdi::COLORREF> colors(9, 0x0000FF);
  const Picture sheet = PaintSheet({Plain("a", colors), Plain("b", {0xFF0000})}, SheetNames::kNone);
  EXPECT_EQ(sheet.width, 816);
  EXPECT_EQ(sheet.height, 16 + 22 + 2 * 66 + 22 + 66);
  std::size_t red = 0, blue = 0, white = 0;
  for (const std::uint32_t pixel : sheet.pixels) {
    red += pixel == 0xFF0000;
    blue += pixel == 0x0000FF;
    white += pixel == 0xFFFFFF;
  }
  EXPECT_EQ(red, 9u * 92 * 46);
  EXPECT_EQ(blue, 1u * 92 * 46);
  EXPECT_EQ(white + red + blue, sheet.pixels.size());
  EXPECT_EQ(At(sheet, 7, 30), 0xFFFFFFu);
  EXPECT_EQ(At(sheet, 8, 29), 0xFFFFFFu);
  EXPECT_EQ(At(sheet, 8, 30), 0xFF0000u);
  EXPECT_EQ(At(sheet, 708, 30), 0xFF0000u);
  EXPECT_EQ(At(sheet, 8, 96), 0xFF0000u);
  EXPECT_EQ(At(sheet, 108, 96), 0xFFFFFFu);
  EXPECT_EQ(At(sheet, 8, 8 + 22 + 2 * 66 + 22), 0x0000FFu);
}

TEST(PictureSheet, NamesStandAboveSectionsAndBelowSamples) {
  const std::vector<SheetSection> sections{Plain("Title", {0x0000FF})};
  const Picture bare = PaintSheet(sections, SheetNames::kNone);
  const Picture named = PaintSheet(sections, SheetNames::kShown);
  ASSERT_EQ(named.height, bare.height);
  int above = 0, inside = 0, below = 0;
  for (int y = 0; y < named.height; ++y) {
    for (int x = 0; x < named.width; ++x) {
      if (At(named, x, y) == At(bare, x, y)) continue;
      ++(y < 30 ? above : y < 76 ? inside : below);
    }
  }
  EXPECT_GT(above, 20);
  EXPECT_EQ(inside, 0);
  EXPECT_GT(below, 3);
}

TEST(PictureSheet, EverySampleDrawsAndLeavesNothingBehind) {
  for (const auto& sections : {DrawingSections(), TextSections()}) {
    for (const SheetSection& section : sections) {
      for (const SheetSample& sample : section.samples) {
        const std::size_t before = gdi::LiveObjects();
        const Picture drawn = PaintSheet({{section.title, {sample}}}, SheetNames::kNone);
        EXPECT_EQ(gdi::LiveObjects(), before) << sample.name;
        const Picture empty =
            PaintSheet({{section.title, {{"", [](gdi::HDC, const gdi::RECT&) {}}}}}, SheetNames::kNone);
        const bool isInvisible = sample.name.starts_with("null");
        EXPECT_EQ(DifferingPixels(drawn, empty) == 0, isInvisible) << section.title << ": " << sample.name;
      }
    }
  }
}

TEST(PictureSheet, TheDrawingsAreTheGoldenOnes) {
  test::ExpectGolden(PaintSheet(DrawingSections(), SheetNames::kNone), "picture_sheet");
}

}  // namespace
}  // namespace quenzel7::cli
