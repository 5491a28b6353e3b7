#pragma once

#include <vector>

#include "platform/automation/class_info.h"
#include "platform/corvane1/host_frame.h"
#include "server/services/collected_view.h"

namespace quenzel7::server {

/// What the embedded stand-in for a host's window was told.
class EmbeddedFrame final : public CollectedView<corvane1::CollectedHostFrame> {
 public:
  static constexpr std::string_view kClassName = "EmbeddedFrame";

  using CollectedView::CollectedView;
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// The latest lines of the output list in order, each (text, kind); kind 2 is a warning.
  automation::Variant Outputs() const;
  /// The latest pointers that were asked for, in order: 0 default, 1 arrow, 11 busy.
  std::vector<Long> Pointers() const;
  /// How often work was interrupted.
  Long Interruptions() const { return Service()->Interruptions(); }
  /// What was to be shown anew lately, in order, each (which, what).
  automation::Variant Refreshes() const;
};

}  // namespace quenzel7::server
