#pragma once

#include "platform/automation/class_info.h"
#include "platform/automation/variant.h"
#include "platform/corvane1/panel_service.h"
#include "server/services/service_view.h"

namespace quenzel7::server {

/// The panel models by their type numbers. A model is the array (type, width, height, bits a pixel, colours,
/// back colour, ink colour); the last two are panel colour numbers.
class PanelList final : public ServiceView<corvane1::PanelService> {
 public:
  static constexpr std::string_view kClassName = "PanelList";

  using ServiceView::ServiceView;
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// The type that was selected last; 0 before the first.
  Long CurrentPanelType() const { return Service()->CurrentPanelType(); }
  /// Makes a type the current one and gives its (back colour, ink colour). Elements are told by
  /// ChangeHMIPanel of clsGrpElmntsSrv, which does this too.
  automation::Variant SelectPanel(Long panelType);
  /// The model of that type; error 5 when there is none.
  automation::Variant Model(Long panelType);
  /// All models that the embedded service knows, by type. Error 91 when it is not in use.
  automation::Variant Models() const;
};

}  // namespace quenzel7::server
