#include "server/services/embedded_settings.h"

#include "server/services/embedded.h"
#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using automation::Method;
using View = EmbeddedSettings;

constexpr automation::Member kMembers[] = {
    AsValue(LastOptional(Method<View, &View::GetSetting>(
        "GetSetting", "The text under section and key, or the fall-back.", "section, key, fallback"))),
    Method<View, &View::SetSetting>("SetSetting", "Sets a text for all projects.", "section, key, text"),
    Method<View, &View::SetProjectSetting>("SetProjectSetting", "Keeps a text in the open project.",
                                           "section, key, text"),
    Method<View, &View::ReadFile>("ReadFile", "Reads settings for all projects from a file.", "path"),
};

std::shared_ptr<corvane1::LayeredSettings> Layered(const EmbeddedSettings& view) {
  return EmbeddedOf<corvane1::LayeredSettings>(view.Service(), "settings");
}

}  // namespace

const automation::ClassInfo& EmbeddedSettings::ClassOf() { return ServiceClass<View>(kMembers); }

std::string EmbeddedSettings::GetSetting(Long section, Long key, const std::string& fallback) {
  return Service()->GetSetting(section, key, fallback);
}

void EmbeddedSettings::SetSetting(Long section, Long key, const std::string& text) {
  Layered(*this)->Set(section, key, text);
}

void EmbeddedSettings::SetProjectSetting(Long section, Long key, const std::string& text) {
  Layered(*this)->SetInProject(section, key, text);
}

void EmbeddedSettings::ReadFile(const std::string& path) { Layered(*this)->ReadFile(path); }

}  // namespace quenzel7::server
