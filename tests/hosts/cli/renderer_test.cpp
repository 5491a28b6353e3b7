#include "hosts/cli/renderer.h"

#include <gtest/gtest.h>

#include "hosts/cli/demo_files.h"
#include "hosts/cli/element_tree.h"
#include "platform/gdi/gdi.h"
#include "shapes/group.h"
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

/// An element of any type that tells of each drawing.
class LayerElement final : public ItfHmiElement {
 public:
  LayerElement(Long type, std::string name, std::vector<std::string>& drawn)
      : type_(type), name_(std::move(name)), drawn_(drawn) {}

  const automation::ClassInfo& Class() const override {
    static const automation::Interface interface("_clsLayer", {});
    static const automation::Interface* const interfaces[] = {&interface, &InterfaceOf()};
    static const automation::ClassInfo info{"clsLayer", interfaces, nullptr};
    return info;
  }

 protected:
  Long ItfHmiElement_ElementType() const override { return type_; }
  void ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) override {
    EXPECT_NE(gdi::GetCurrentObject(pHdc, gdi::OBJ_PEN), 0);
    drawn_.push_back(name_ + (pDrawBoundingRect ? " with its bounds" : ""));
  }

 private:
  Long type_;
  std::string name_;
  std::vector<std::string>& drawn_;
};

class RendererLayers : public RendererTest {
 protected:
  /// An element for every type, the variable (5) and the frame (12) among them, each named after where it is.
  std::vector<ElementRef> OneOfEachType(const std::string& where) {
    std::vector<ElementRef> elements;
    for (const Long type : {5, 1, 12, 4, 11}) {
      elements.push_back(std::make_shared<LayerElement>(type, where + std::to_string(type), drawn_));
    }
    return elements;
  }
  static ElementRef Group(const std::vector<ElementRef>& members) {
    const auto group = std::make_shared<clsGroup>();
    for (const ElementRef& member : members) AddMember(*group, member);
    return group;
  }

  std::vector<std::string> drawn_;
};

TEST_F(RendererLayers, FramesLieBelowAllAndVariablesAboveAll) {
  RenderPage({{1, "", {1, 3, 2}}, OneOfEachType("")}, NoTerminal());
  EXPECT_EQ(drawn_, (std::vector<std::string>{"12", "1", "4", "11", "5"}));
}

TEST_F(RendererLayers, GroupsPaintTheirShareOfEachLayerAtTheirPlace) {
  std::vector<ElementRef> members = OneOfEachType("in ");
  members.insert(members.begin(), Group(OneOfEachType("deep ")));
  std::vector<ElementRef> elements = OneOfEachType("top ");
  elements.insert(elements.begin() + 2, Group(members));
  RenderPage({{1, "", {1, 3, 2}}, elements}, NoTerminal());
  EXPECT_EQ(drawn_, (std::vector<std::string>{"deep 12", "in 12", "top 12",                //
                                              "top 1", "deep 1", "deep 4", "deep 11",      //
                                              "in 1", "in 4", "in 11", "top 4", "top 11",  //
                                              "top 5", "deep 5", "in 5"}));
}

TEST_F(RendererTest, AGroupPaintsItsMembersOnTheirPlacesInThePage) {
  Import(R"({"page": 1, "panel": {"type": 1, "width": 5, "height": 1}, "elements": [
    {"class": "clsGroup", "elements": [
      {"class": "clsRectangle", "Dx": 3, "Dy": 1, "FillStyle": 1, "ColorBack": 0, "ColorFore": 0},
      {"class": "clsGroup", "elements": [
        {"class": "clsRectangle", "Xs": 1, "Dx": 2, "Dy": 1, "FillStyle": 1, "ColorBack": 9, "ColorFore": 9}]}]},
    {"class": "clsRectangle", "Xs": 2, "Dx": 2, "Dy": 1, "FillStyle": 1, "ColorBack": 0, "ColorFore": 0}]})");
  constexpr std::uint32_t W = 0xFFFFFF, R = 0xE00000, B = 0x000000;
  EXPECT_EQ(RenderPage(Load(), NoTerminal()).pixels, (std::vector<std::uint32_t>{R, B, R, R, W}));
}

TEST_F(RendererTest, AFrameInAGroupLiesBelowWhatIsLowerOnThePage) {
  Import(R"({"page": 1, "panel": {"type": 1, "width": 5, "height": 1}, "elements": [
    {"class": "clsRectangle", "Xs": 1, "Dx": 1, "Dy": 1, "FillStyle": 1, "ColorBack": 0, "ColorFore": 0},
    {"class": "clsGroup", "elements": [
      {"class": "clsFrame", "Dx": 4, "Dy": 1, "Flat3D": 0, "Txt": "", "ColorBack": 9},
      {"class": "clsText", "Xs": 2, "Dx": 1, "Dy": 1, "Flat3D": 0, "Txt": " ", "ColorBack": 9}]}]})");
  constexpr std::uint32_t W = 0xFFFFFF, R = 0xE00000, B = 0x000000;
  // The text, which is blank, shows the red edge of its marker.
  EXPECT_EQ(RenderPage(Load(), NoTerminal()).pixels, (std::vector<std::uint32_t>{B, R, R, B, W}));
}

TEST_F(RendererTest, LeavesNoGraphicsObjects) {
  ImportDemo();
  const std::size_t before = gdi::LiveObjects();
  RenderPage(Load(), NoTerminal());
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(RendererTest, TheDemoPageIsTheGoldenOne) {
  ImportDemo(corvane1::ProjectMode::ReadOnly);
  test::ExpectGolden(RenderPage(Load(), NoTerminal()), "boiler");
}

TEST_F(RendererTest, ShowsProgressOnATerminal) {
  Import(PageText(1, {ElementText(1, 1, 1, 1)}));
  std::ostringstream out, err;
  RenderPage(Load(), {out, err, true});
  EXPECT_NE(err.str().find("painting [########                 ]  33 %"), std::string::npos);
  EXPECT_NE(err.str().find("painting [#########################] 100 %"), std::string::npos);
}

}  // namespace
}  // namespace quenzel7::cli
