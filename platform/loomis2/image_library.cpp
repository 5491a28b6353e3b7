#include "platform/loomis2/image_library.h"

#include "platform/automation/array.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/member.h"

namespace quenzel7::loomis2 {
namespace {

using automation::Property;
using automation::Variant;

constexpr automation::Member kMembers[] = {
    Property<std::string>("Name", "The library's name.", AUTOMATION_GETTER(ImageLibrary, Name),
                          AUTOMATION_SETTER(ImageLibrary, std::string, Name)),
    Property<std::string>("Folder", "The folder of the picture files, with a separator at its end.",
                          AUTOMATION_GETTER(ImageLibrary, Folder),
                          AUTOMATION_SETTER(ImageLibrary, std::string, Folder)),
    Property<Variant>("Palette", "The panel's colours, an array of 32-bit integers.",
                      AUTOMATION_GETTER(ImageLibrary, Palette),
                      AUTOMATION_SETTER(ImageLibrary, Variant, Palette)),
};

}  // namespace

const automation::ClassInfo& ImageLibrary::ClassOf() {
  static const automation::Interface interface("_ImageLibrary", kMembers);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{kClassName, interfaces, nullptr};
  return info;
}

void HeldImageLibrary::Palette(const Variant& palette) {
  const bool isPalette = palette.IsArray() &&
                         palette.Elements().ElementKind() == automation::VariantKind::Long &&
                         palette.Elements().Dimensions() == 1;
  if (!isPalette) {
    throw automation::AutomationError(automation::ErrorNumber::TypeMismatch,
                                      "a palette is an array of 32-bit integers of one dimension");
  }
  palette_ = palette;
}

}  // namespace quenzel7::loomis2
