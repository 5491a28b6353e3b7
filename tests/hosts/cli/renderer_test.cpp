#include "hosts/cli/renderer.h"

#include <gtest/gtest.h>

#include "hosts/cli/demo_page.h"
#include "platform/gdi/gdi.h"
#include "tests/hosts/cli/cli_project.h"
#include "tests/hosts/cli/golden.h"

namespace quenzel7::cli {
namespace {

using RendererTest = test::CliProjectTest;

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
  test::ExpectGolden(RenderPage(Load(), NoTerminal()), "boiler");
}

TEST_F(RendererTest, ShowsProgressOnATerminal) {
  Import(PageText(1, {ElementText(1, 1, 1, 1)}));
  std::ostringstream out, err;
  RenderPage(Load(), {out, err, true});
  EXPECT_NE(err.str().find("painting [#########################] 100 %"), std::string::npos);
}

}  // namespace
}  // namespace quenzel7::cli
