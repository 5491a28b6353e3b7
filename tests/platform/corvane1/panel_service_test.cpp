#include "platform/corvane1/panel_service.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "tests/support/raises.h"

namespace quenzel7::corvane1 {
namespace {

constexpr PanelValues kBlackOnWhite = {8, 9};
constexpr PanelValues kWhiteOnBlack = {9, 8};

TEST(PanelModels, AreThese) {
  const PanelModel expected[] = {
      {1, 128, 64, 1, kBlackOnWhite},    {2, 128, 64, 1, kWhiteOnBlack},
      {3, 480, 272, 16, kBlackOnWhite},  {4, 192, 64, 1, kBlackOnWhite},
      {5, 240, 128, 1, kBlackOnWhite},   {6, 320, 240, 1, kBlackOnWhite},
      {7, 320, 240, 8, kBlackOnWhite},   {8, 480, 272, 8, kBlackOnWhite},
      {9, 640, 480, 8, kBlackOnWhite},   {10, 800, 480, 8, kBlackOnWhite},
      {11, 320, 240, 16, kBlackOnWhite}, {12, 640, 480, 16, kBlackOnWhite},
      {13, 800, 480, 16, kBlackOnWhite}, {14, 1024, 600, 16, kBlackOnWhite},
  };
  const std::vector<PanelModel> found(PanelModels().begin(), PanelModels().end());
  EXPECT_EQ(found, std::vector<PanelModel>(std::begin(expected), std::end(expected)));
}

TEST(PanelModels, HaveAsManyColorsAsTheirBitsTell) {
  const std::vector<std::pair<Long, Long>> expected = {{2, 2}, {7, 256}, {3, 65536}};
  for (const auto& [type, colors] : expected) EXPECT_EQ(ListedPanels().Model(type).Colors(), colors) << type;
}

TEST(PanelModels, HaveColorsThatCanBeCounted) {
  const auto colorsOf = [](Long bits) { return PanelModel{1, 128, 64, bits, kBlackOnWhite}.Colors(); };
  EXPECT_EQ(colorsOf(0), 1);
  EXPECT_EQ(colorsOf(30), 1073741824);
  for (const Long bits : {31, 32, -1}) {
    EXPECT_RAISES(6,
                  "the colours of " + std::to_string(bits) +
                      " bits a pixel cannot be counted: 0 to 30 bits are expected",
                  colorsOf(bits));
  }
}

TEST(PanelModels, StandInTheDocumentation) {
  std::ifstream file(QUENZEL7_SOURCE_DIR "/docs/host-services.md");
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  std::string table = "| type | pixels | bits a pixel | empty panel | drawn on it |\n|---|---|---|---|---|\n";
  for (const PanelModel& model : PanelModels()) {
    table += "| " + std::to_string(model.type) + " | " + std::to_string(model.width) + " x " +
             std::to_string(model.height) + " | " + std::to_string(model.bitsPerPixel) + " | " +
             std::to_string(model.values.backColor) + " | " + std::to_string(model.values.inkColor) + " |\n";
  }
  EXPECT_NE(text.find(table + "\n"), std::string::npos) << table;
}

TEST(ListedPanels, BeginWithNone) { EXPECT_EQ(ListedPanels().CurrentPanelType(), 0); }

TEST(ListedPanels, SelectingMakesAPanelTheCurrentOneAndGivesItsValues) {
  ListedPanels panels;
  EXPECT_EQ(panels.SelectPanel(2), kWhiteOnBlack);
  EXPECT_EQ(panels.CurrentPanelType(), 2);
  EXPECT_EQ(panels.SelectPanel(14), kBlackOnWhite);
  EXPECT_EQ(panels.CurrentPanelType(), 14);
}

TEST(ListedPanels, LookingAtAModelSelectsNothing) {
  ListedPanels panels;
  panels.SelectPanel(1);
  EXPECT_EQ(panels.Model(14), (PanelModel{14, 1024, 600, 16, kBlackOnWhite}));
  EXPECT_EQ(panels.CurrentPanelType(), 1);
}

TEST(ListedPanels, ATypeWithoutAModelIsSelectedAsAPanelInBlackOnWhite) {
  ListedPanels panels;
  for (const Long type : {0, 15, 99, -1}) {
    panels.SelectPanel(2);
    EXPECT_EQ(panels.SelectPanel(type), kBlackOnWhite);
    EXPECT_EQ(panels.CurrentPanelType(), type);
  }
}

TEST(ListedPanels, ATypeWithoutAModelHasNone) {
  ListedPanels panels;
  panels.SelectPanel(3);
  for (const Long type : {-1, 0, 15, 99}) {
    const std::string refusal = "panel type " + std::to_string(type) +
                                " is not known; there are 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14";
    EXPECT_RAISES(5, refusal, panels.Model(type));
    EXPECT_EQ(panels.CurrentPanelType(), 3);
  }
}

}  // namespace
}  // namespace quenzel7::corvane1
