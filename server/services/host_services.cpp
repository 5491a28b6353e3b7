#include "server/services/host_services.h"

#include "platform/platform.h"
#include "server/services/embedded.h"
#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using automation::LastOptional;
using automation::Method;
using automation::ObjectRef;
using automation::Property;

/// Reads a property whose view is made when it is asked for first.
#define SERVICES_GETTER(Name)                                                       \
  [](::quenzel7::automation::Object& object) -> ::quenzel7::automation::Variant {   \
    return ::quenzel7::automation::From(static_cast<HostServices&>(object).Name()); \
  }

template <class View>
constexpr automation::Member ViewProperty(std::string_view name, std::string_view documentation,
                                          automation::Variant (*get)(automation::Object&)) {
  return Property<View>(name, documentation, get, nullptr);
}

constexpr automation::Member kMembers[] = {
    ObjectProperty("MessageBoxes", "The message boxes in use, embedded or the host's own.",
                   SERVICES_GETTER(MessageBoxes), AUTOMATION_SETTER(HostServices, ObjectRef, MessageBoxes)),
    ObjectProperty("Messages", "The numbered messages in use, embedded or the host's own.",
                   SERVICES_GETTER(Messages), AUTOMATION_SETTER(HostServices, ObjectRef, Messages)),
    ObjectProperty("ErrorLog", "The error log in use, embedded or the host's own.", SERVICES_GETTER(ErrorLog),
                   AUTOMATION_SETTER(HostServices, ObjectRef, ErrorLog)),
    ObjectProperty("ProjectDatabase", "The project database in use, embedded or the host's own.",
                   SERVICES_GETTER(ProjectDatabase),
                   AUTOMATION_SETTER(HostServices, ObjectRef, ProjectDatabase)),
    ViewProperty<EmbeddedChanges>("Changes", "What the project was told of changes.",
                                  SERVICES_GETTER(Changes)),
    ViewProperty<EmbeddedFrame>("Frame", "What the window was told.", SERVICES_GETTER(Frame)),
    ViewProperty<EmbeddedSettings>("Settings", "The defaults of new elements.", SERVICES_GETTER(Settings)),
    ViewProperty<PanelColors>("Colors", "The colours of the panel.", SERVICES_GETTER(Colors)),
    ViewProperty<PanelFonts>("Fonts", "The fonts of the panel.", SERVICES_GETTER(Fonts)),
    ViewProperty<ProjectStrings>("Strings", "The string library of the project.", SERVICES_GETTER(Strings)),
    ViewProperty<PanelList>("Panels", "The panel models.", SERVICES_GETTER(Panels)),
    ViewProperty<CallRecorder>("Recorder", "Notes the calls of the graphics interface.",
                               SERVICES_GETTER(Recorder)),
    Property<Long>("Page", "The number of the page that is open.", SERVICES_GETTER(Page),
                   AUTOMATION_SETTER(HostServices, Long, Page)),
    Property<std::string>("ChosenFile", "The picture file that is chosen next; empty for none.",
                          SERVICES_GETTER(ChosenFile),
                          AUTOMATION_SETTER(HostServices, std::string, ChosenFile)),
    Method<HostServices, &HostServices::NewCollection>("NewCollection", "A new collection."),
    Method<HostServices, &HostServices::NewPropertyBag>("NewPropertyBag", "A new property bag."),
    Method<HostServices, &HostServices::NewOperand>("NewOperand", "A new operand."),
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

std::shared_ptr<loomis2::PreparedFileChooser> Chooser() {
  return EmbeddedOf<loomis2::PreparedFileChooser>(Platform::Current().fileChooser, "file chooser");
}

}  // namespace

HostServices::HostServices(Describer describe)
    : describe_(describe),
      messageBoxes_(&Platform::messageBoxes, "message boxes", &Made<corvane1::CollectedMessageBoxes>),
      messages_(&Platform::messageService, "messages", &Made<corvane1::CollectedMessages>),
      errorLog_(&Platform::errorLog, "error log", &Made<corvane1::CollectedErrors>),
      projectDatabase_(&Platform::projectDatabase, "project database", &HeldProject) {}

const automation::ClassInfo& HostServices::ClassOf() { return ServiceClass<HostServices>(kMembers); }

void HostServices::ProjectDatabase(const ObjectRef& object) {
  projectDatabase_.Object(object);
  const Platform& platform = Platform::Current();
  const bool isHeld = platform.projectDatabase == platform.heldProject;
  platform.heldProject->Follow(isHeld ? nullptr : platform.projectDatabase);
}

std::shared_ptr<EmbeddedChanges> HostServices::Changes() {
  const Platform& platform = Platform::Current();
  return changes_.Of(EmbeddedChanges::Services{
      EmbeddedOf<corvane1::CollectedChanges>(platform.changeTracker, "change tracker"),
      EmbeddedOf<corvane1::CollectedProjectEvents>(platform.projectService, "project service")});
}

std::shared_ptr<EmbeddedFrame> HostServices::Frame() {
  return frame_.Of(EmbeddedOf<corvane1::CollectedHostFrame>(Platform::Current().hostFrame, "window"));
}

std::shared_ptr<EmbeddedSettings> HostServices::Settings() {
  return settings_.Of(Platform::Current().settings);
}

std::shared_ptr<PanelColors> HostServices::Colors() { return colors_.Of(Platform::Current().colorService); }

std::shared_ptr<PanelFonts> HostServices::Fonts() { return fonts_.Of(Platform::Current().fontService); }

std::shared_ptr<ProjectStrings> HostServices::Strings() {
  return strings_.Of(Platform::Current().stringLibrary);
}

std::shared_ptr<PanelList> HostServices::Panels() { return panels_.Of(Platform::Current().panelService); }

Long HostServices::Page() { return Platform::Current().globalValues->Value(corvane1::kOpenPageValue); }

void HostServices::Page(Long page) {
  EmbeddedOf<corvane1::HeldGlobalValues>(Platform::Current().globalValues, "global values")
      ->Set(corvane1::kOpenPageValue, page);
}

std::string HostServices::ChosenFile() { return Chooser()->Next(); }

void HostServices::ChosenFile(const std::string& path) {
  const auto chooser = Chooser();
  chooser->Clear();
  if (!path.empty()) chooser->Prepare(path);
}

automation::CollectionRef HostServices::NewCollection() const {
  return std::make_shared<automation::Collection>();
}

automation::PropertyBagRef HostServices::NewPropertyBag() const {
  return std::make_shared<automation::PropertyBag>();
}

std::shared_ptr<fennick1::Operand> HostServices::NewOperand() const {
  return std::make_shared<fennick1::Operand>(Platform::Current().operands);
}

void HostServices::Reset() {
  Platform::Current() = Platform();
  messageBoxes_.Forget();
  messages_.Forget();
  errorLog_.Forget();
  projectDatabase_.Forget();
  changes_.Forget();
  frame_.Forget();
  settings_.Forget();
  colors_.Forget();
  fonts_.Forget();
  strings_.Forget();
  panels_.Forget();
}

}  // namespace quenzel7::server
