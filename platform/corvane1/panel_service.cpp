#include "platform/corvane1/panel_service.h"

#include <algorithm>
#include <string>

#include "platform/automation/automation_error.h"

namespace quenzel7::corvane1 {
namespace {

constexpr Long kWhite = 8;
constexpr Long kBlack = 9;
constexpr PanelValues kBlackOnWhite = {kWhite, kBlack};
constexpr PanelValues kWhiteOnBlack = {kBlack, kWhite};

/// Type, width, height, bits a pixel, colours of the empty panel and of what is drawn on it.
constexpr PanelModel kModels[] = {
    {1, 128, 64, 1, kBlackOnWhite},    {2, 128, 64, 1, kWhiteOnBlack},     {3, 480, 272, 16, kBlackOnWhite},
    {4, 192, 64, 1, kBlackOnWhite},    {5, 240, 128, 1, kBlackOnWhite},    {6, 320, 240, 1, kBlackOnWhite},
    {7, 320, 240, 8, kBlackOnWhite},   {8, 480, 272, 8, kBlackOnWhite},    {9, 640, 480, 8, kBlackOnWhite},
    {10, 800, 480, 8, kBlackOnWhite},  {11, 320, 240, 16, kBlackOnWhite},  {12, 640, 480, 16, kBlackOnWhite},
    {13, 800, 480, 16, kBlackOnWhite}, {14, 1024, 600, 16, kBlackOnWhite},
};

/// The model of that type, or none.
const PanelModel* Find(Long panelType) {
  const auto* found = std::find_if(std::begin(kModels), std::end(kModels),
                                   [panelType](const PanelModel& model) { return model.type == panelType; });
  return found == std::end(kModels) ? nullptr : found;
}

[[noreturn]] void RaiseUnknown(Long panelType) {
  std::string text = "panel type " + std::to_string(panelType) + " is not known; there are";
  for (const PanelModel& model : kModels) {
    text += (&model == kModels ? " " : ", ") + std::to_string(model.type);
  }
  throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, text);
}

}  // namespace

Long PanelModel::Colors() const {
  constexpr Long kMostBits = 30;
  if (bitsPerPixel < 0 || bitsPerPixel > kMostBits) {
    throw automation::AutomationError(automation::ErrorNumber::Overflow,
                                      "the colours of " + std::to_string(bitsPerPixel) +
                                          " bits a pixel cannot be counted: 0 to " +
                                          std::to_string(kMostBits) + " bits are expected");
  }
  return Long{1} << bitsPerPixel;
}

std::span<const PanelModel> PanelModels() { return kModels; }

PanelModel ListedPanels::Model(Long panelType) {
  const PanelModel* model = Find(panelType);
  if (!model) RaiseUnknown(panelType);
  return *model;
}

PanelValues ListedPanels::SelectPanel(Long panelType) {
  current_ = panelType;
  const PanelModel* model = Find(panelType);
  return model ? model->values : kBlackOnWhite;
}

}  // namespace quenzel7::corvane1
