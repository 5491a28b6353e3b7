#pragma once

#include <string>

#include "platform/automation/class_info.h"
#include "platform/corvane1/settings.h"
#include "server/services/service_view.h"

namespace quenzel7::server {

/// The defaults of new elements. All but GetSetting is error 91 where the embedded service is not in use.
class EmbeddedSettings final : public ServiceView<corvane1::Settings> {
 public:
  static constexpr std::string_view kClassName = "EmbeddedSettings";

  using ServiceView::ServiceView;
  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// The text under section and key, or the fall-back; as corvane1::Settings.
  std::string GetSetting(Long section, Long key, const std::string& fallback);
  /// Sets a text for all projects.
  void SetSetting(Long section, Long key, const std::string& text);
  /// Keeps a text in the open project. Error 91 when no project is open, and those of the database.
  void SetProjectSetting(Long section, Long key, const std::string& text);
  /// Reads settings for all projects from a file; form and errors as corvane1::LayeredSettings.
  void ReadFile(const std::string& path);
};

}  // namespace quenzel7::server
