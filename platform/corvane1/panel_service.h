#pragma once

#include <span>

#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

/// The two values that the library asks of a panel, panel colour numbers both.
struct PanelValues {
  /// What an area is cleared with.
  Long backColor = 0;
  /// What is drawn on it when nothing else was chosen.
  Long inkColor = 0;

  friend bool operator==(const PanelValues&, const PanelValues&) = default;
};

/// What distinguishes a panel model.
struct PanelModel {
  Long type = 0;
  /// In pixels.
  Long width = 0;
  Long height = 0;
  Long bitsPerPixel = 0;
  PanelValues values;

  /// How many colours the panel can show.
  Long Colors() const { return Long{1} << bitsPerPixel; }

  friend bool operator==(const PanelModel&, const PanelModel&) = default;
};

/// Knows the panel models by their type numbers, and which of them the project is for.
class PanelService {
 public:
  virtual ~PanelService() = default;

  /// Makes the panel of that type the current one and gives its values.
  virtual PanelValues SelectPanel(Long panelType) = 0;
  /// The type that was selected last; 0 before the first.
  virtual Long CurrentPanelType() = 0;
  /// The model of that type.
  virtual PanelModel Model(Long panelType) = 0;
};

/// The models that the embedded default knows, by type.
std::span<const PanelModel> PanelModels();

/// The embedded default: the models of `PanelModels`. Error 5, naming the types that there are, for any other
/// type; the current panel stays then.
class ListedPanels final : public PanelService {
 public:
  PanelValues SelectPanel(Long panelType) override;
  Long CurrentPanelType() override { return current_; }
  PanelModel Model(Long panelType) override;

 private:
  Long current_ = 0;
};

}  // namespace quenzel7::corvane1
