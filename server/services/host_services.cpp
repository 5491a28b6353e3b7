#include "server/services/host_services.h"

#include "platform/platform.h"
#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using automation::LastOptional;
using automation::Method;
using automation::ObjectRef;

/// Reads a property whose view is made when it is asked for first.
#define SERVICES_GETTER(Name)                                                       \
  [](::quenzel7::automation::Object& object) -> ::quenzel7::automation::Variant {   \
    return ::quenzel7::automation::From(static_cast<HostServices&>(object).Name()); \
  }

constexpr automation::Member kMembers[] = {
    ObjectProperty("MessageBoxes", "The message boxes in use, embedded or the host's own.",
                   SERVICES_GETTER(MessageBoxes), AUTOMATION_SETTER(HostServices, ObjectRef, MessageBoxes)),
    ObjectProperty("ProjectDatabase", "The project database in use, embedded or the host's own.",
                   SERVICES_GETTER(ProjectDatabase),
                   AUTOMATION_SETTER(HostServices, ObjectRef, ProjectDatabase)),
    LastOptional(Method<HostServices, &HostServices::Describe>(
        "Describe", "Type information as JSON: of a class, an interface, an enumeration, or of all.",
        "name")),
    Method<HostServices, &HostServices::Reset>("Reset", "All services of the thread are embedded ones, new."),
};

#undef SERVICES_GETTER

template <class Embedded>
std::shared_ptr<Embedded> Made() {
  return std::make_shared<Embedded>();
}

std::shared_ptr<corvane1::HeldProjectDatabase> HeldProject() { return Platform::Current().heldProject; }

}  // namespace

HostServices::HostServices(Describer describe)
    : describe_(describe),
      messageBoxes_(&Platform::messageBoxes, "message boxes", &Made<corvane1::CollectedMessageBoxes>),
      projectDatabase_(&Platform::projectDatabase, "project database", &HeldProject) {}

const automation::ClassInfo& HostServices::ClassOf() { return ServiceClass<HostServices>(kMembers); }

void HostServices::ProjectDatabase(const ObjectRef& object) {
  projectDatabase_.Object(object);
  const Platform& platform = Platform::Current();
  const bool isHeld = platform.projectDatabase == platform.heldProject;
  platform.heldProject->Follow(isHeld ? nullptr : platform.projectDatabase);
}

void HostServices::Reset() {
  Platform::Current() = Platform();
  messageBoxes_.Forget();
  projectDatabase_.Forget();
}

}  // namespace quenzel7::server
