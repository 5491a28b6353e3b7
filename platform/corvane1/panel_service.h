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
  /// The number under which hosts and projects know the model.
  Long type = 0;
  /// In pixels, from the left to the right.
  Long width = 0;
  /// In pixels, from the top to the bottom.
  Long height = 0;
  /// How many bits the colour of a pixel takes.
  Long bitsPerPixel = 0;
  /// What the library asks of the model.
  PanelValues values;

  /// How many colours the panel can show. Error 6 when a pixel takes fewer than 0 bits or more than 30, which
  /// is as many as a count of 32 bits can tell.
  Long Colors() const;

  friend bool operator==(const PanelModel&, const PanelModel&) = default;
};

/// Knows the panel models by their type numbers, and which of them the project is for.
class PanelService {
 public:
  virtual ~PanelService() = default;

  /// Makes the panel of that type the current one and gives its values. A service may refuse a type by an
  /// automation error.
  virtual PanelValues SelectPanel(Long panelType) = 0;
  /// The type that was selected last; 0 before the first.
  virtual Long CurrentPanelType() = 0;
  /// The model of that type; error 5 when there is none.
  virtual PanelModel Model(Long panelType) = 0;
};

/// The models that the embedded default knows, by type.
std::span<const PanelModel> PanelModels();

/// The embedded default: the models of `PanelModels`.
class ListedPanels final : public PanelService {
 public:
  /// Takes every type: one without a model has the values of an ordinary panel, black on white.
  PanelValues SelectPanel(Long panelType) override;
  Long CurrentPanelType() override { return current_; }
  /// Error 5, naming the types that there are, for any other.
  PanelModel Model(Long panelType) override;

 private:
  Long current_ = 0;
};

}  // namespace quenzel7::corvane1
