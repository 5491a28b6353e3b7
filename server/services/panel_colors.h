#pragma once

#include <vector>

#include "platform/automation/class_info.h"
#include "platform/corvane1/color_service.h"
#include "server/services/service_view.h"

namespace quenzel7::server {

/// The colours of the panel by number, each as 0x00BBGGRR.
class PanelColors final : public ServiceView<corvane1::ColorService> {
 public:
  static constexpr std::string_view kClassName = "PanelColors";

  using ServiceView::ServiceView;
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// The colour of a panel colour number.
  Long Color(Long number);
  /// The colour of one line of a raised 3D frame, see corvane1::ColorService::Get3DShadeColor.
  Long ShadeColor(Long level, Long number);
  /// The colour of the face of a 3D frame.
  Long FaceColor(Long number);
  /// The number of the nearest colour on which a bevel can be read.
  Long ClosestGradientColor(Long number);
  /// The colours of numbers 0 to 255, as InitImageLibrary of clsGrpElmntsSrv takes them. Error 13 when the
  /// service gives no array of Long.
  std::vector<Long> Palette() const;
};

}  // namespace quenzel7::server
