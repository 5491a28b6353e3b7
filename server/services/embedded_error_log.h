#pragma once

#include <string>

#include "platform/automation/class_info.h"
#include "platform/corvane1/error_log.h"
#include "server/services/collected_view.h"

namespace quenzel7::server {

/// The embedded error log: what was reported.
class EmbeddedErrorLog final : public CollectedView<corvane1::CollectedErrors> {
 public:
  static constexpr std::string_view kClassName = "EmbeddedErrorLog";

  using CollectedView::CollectedView;
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// Takes down an error as the library does.
  void Report(const std::string& source, Long number, const std::string& description,
              const std::string& module, const std::string& text1, const std::string& text2, Long value);
  /// The latest reports in order, each (source, number, description, module, text1, text2, value).
  automation::Variant Reports() const;
};

}  // namespace quenzel7::server
