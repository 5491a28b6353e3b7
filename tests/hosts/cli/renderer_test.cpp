#include "hosts/cli/renderer.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "hosts/cli/demo_page.h"
#include "hosts/cli/png_writer.h"
#include "platform/gdi/gdi.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/png_reader.h"

namespace quenzel7::cli {
namespace {

using RendererTest = test::CliProjectTest;

/// Compares with a picture under tests/golden, exactly. With QUENZEL7_RENEW_GOLDENS=1 in the environment the
/// picture there is written anew. On a difference a picture of it is left in the working folder: what differs
/// in red over the expected one in grey.
void ExpectGolden(const Picture& picture, const std::string& name) {
  const std::string path = QUENZEL7_TEST_DATA "/golden/" + name + ".png";
  const char* renew = std::getenv("QUENZEL7_RENEW_GOLDENS");
  if (renew && std::string(renew) == "1") WritePng(path, picture);
  const Picture expected = test::ReadPng(path);
  const std::size_t differing = DifferingPixels(picture, expected);
  if (differing == 0) return;
  Picture shown = picture;
  for (std::size_t index = 0; index < shown.pixels.size(); ++index) {
    const std::uint32_t pixel = picture.pixels[index];
    const bool same = index < expected.pixels.size() && expected.pixels[index] == pixel;
    const std::uint32_t grey = 0xC0 + ((pixel >> 8 & 0xFF) >> 2);
    shown.pixels[index] = same ? grey * 0x010101u : 0xFF0000u;
  }
  WritePng(name + "_difference.png", shown);
  ADD_FAILURE() << differing << " pixels differ from " << path << "; see " << name << "_difference.png";
}

TEST_F(RendererTest, PaintsElementsInOrderOnAWhitePageOfThePanelsSize) {
  Import(R"({"page": 1, "panel": {"type": 1, "width": 5, "height": 3}, "elements": [
    {"class": "clsRectangle", "Xs": 1, "Dx": 3, "Dy": 2, "FillStyle": 1, "ColorBack": 0, "ColorFore": 0},
    {"class": "clsRectangle", "Xs": 2, "Dx": 2, "Dy": 1, "FillStyle": 1, "ColorBack": 9, "ColorFore": 9}]})");
  const Picture picture = RenderPage(Load(), NoTerminal());
  EXPECT_EQ(picture.width, 5);
  EXPECT_EQ(picture.height, 3);
  constexpr std::uint32_t W = 0xFFFFFF, R = 0xE00000, B = 0x000000;
  EXPECT_EQ(picture.pixels, (std::vector<std::uint32_t>{W, R, B, B, W,  //
                                                        W, R, R, R, W,  //
                                                        W, W, W, W, W}));
}

TEST_F(RendererTest, LeavesNoGraphicsObjects) {
  Import(std::string(DemoPage()));
  const std::size_t before = gdi::LiveObjects();
  RenderPage(Load(), NoTerminal());
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(RendererTest, TheDemoPageIsTheGoldenOne) {
  Import(std::string(DemoPage()));
  Open(corvane1::ProjectMode::ReadOnly);
  ExpectGolden(RenderPage(Load(), NoTerminal()), "boiler");
}

TEST_F(RendererTest, ShowsProgressOnATerminal) {
  Import(PageText(1, {ElementText(1, 1, 1, 1)}));
  std::ostringstream out, err;
  RenderPage(Load(), {out, err, true});
  EXPECT_NE(err.str().find("painting [#########################] 100 %"), std::string::npos);
}

}  // namespace
}  // namespace quenzel7::cli
