#include "server/services/project_strings.h"

#include "platform/platform.h"
#include "server/services/embedded.h"
#include "server/services/rows.h"
#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using automation::Method;
using automation::Property;
using View = ProjectStrings;

constexpr automation::Member kMembers[] = {
    Property<Long>("LanguageCount", "The number of languages.", AUTOMATION_GETTER(View, LanguageCount),
                   nullptr),
    Property<Long>("Language", "The current language, counted from 1.", AUTOMATION_GETTER(View, Language),
                   AUTOMATION_SETTER(View, Long, Language)),
    Method<View, &View::LanguageName>("LanguageName", "The name of a language.", "language"),
    Method<View, &View::SetLanguage>("SetLanguage", "Names a language; the number after the last adds one.",
                                     "language, name"),
    AsValue(Method<View, &View::Text>("Text", "The text of a number in the current language.", "number")),
    Method<View, &View::FontNumber>("FontNumber", "The font of that text; -1 for none of its own.", "number"),
    LastOptional(
        Method<View, &View::SetText>("SetText", "Keeps a text for a language; an empty one takes it away.",
                                     "number, language, text, fontNumber"),
        corvane1::kNoLibraryFont),
    Property<automation::Variant>("Texts",
                                  "All texts, each an array of number, language, text and font number.",
                                  AUTOMATION_GETTER(View, Texts), nullptr),
};

/// What elements give too when they open the library.
constexpr Long kNoOption = -1;

}  // namespace

const automation::ClassInfo& ProjectStrings::ClassOf() { return ServiceClass<View>(kMembers); }

corvane1::StringLibrary& ProjectStrings::Opened() const {
  Service()->Open(Platform::Current().projectDatabase->OpenConnection(), kNoOption);
  return *Service();
}

std::shared_ptr<corvane1::ProjectStringLibrary> ProjectStrings::OpenedInProject() const {
  auto library = EmbeddedOf<corvane1::ProjectStringLibrary>(Service(), "string library");
  Opened();
  return library;
}

Long ProjectStrings::LanguageCount() const { return Opened().GetCount(); }

Long ProjectStrings::Language() const { return Opened().Language(); }

void ProjectStrings::Language(Long language) { Opened().Language(language); }

std::string ProjectStrings::LanguageName(Long language) { return OpenedInProject()->LanguageName(language); }

void ProjectStrings::SetLanguage(Long language, const std::string& name) {
  OpenedInProject()->SetLanguage(language, name);
}

std::string ProjectStrings::Text(Long number) { return Opened().GetString(number).text; }

Long ProjectStrings::FontNumber(Long number) { return Opened().GetString(number).fontNumber; }

void ProjectStrings::SetText(Long number, Long language, const std::string& text, Long fontNumber) {
  OpenedInProject()->SetString(number, language, {text, fontNumber});
}

automation::Variant ProjectStrings::Texts() const {
  return Rows(OpenedInProject()->AllStrings(), [](const corvane1::NumberedString& entry) {
    return Fields{entry.number, entry.language, entry.string.text, entry.string.fontNumber};
  });
}

}  // namespace quenzel7::server
