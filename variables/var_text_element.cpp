#include "variables/var_text_element.h"

#include "framework/creatable_class.h"
#include "framework/library_services.h"
#include "platform/automation/member.h"
#include "shapes/element_setting.h"

namespace quenzel7 {
namespace {

#define QUENZEL7_TEXT_ELEMENT_PROPERTY(Type, Name, Documentation)                              \
  automation::Property<Type>(#Name, Documentation, AUTOMATION_GETTER(clsVarTextElement, Name), \
                             AUTOMATION_SETTER(clsVarTextElement, Type, Name))

constexpr automation::Member kMembers[] = {
    QUENZEL7_TEXT_ELEMENT_PROPERTY(std::string, Txt, "The text, its lines parted by CR and LF."),
    QUENZEL7_TEXT_ELEMENT_PROPERTY(Long, ColorFore, "Panel colour number of the text."),
    QUENZEL7_TEXT_ELEMENT_PROPERTY(Long, ColorBack, "Panel colour number behind the text."),
    QUENZEL7_TEXT_ELEMENT_PROPERTY(Long, FromOpType, "Type of the operand at which a range begins."),
    QUENZEL7_TEXT_ELEMENT_PROPERTY(Long, FromOpAddress, "Address of the operand at which it begins."),
    QUENZEL7_TEXT_ELEMENT_PROPERTY(Long, ToOpType, "Type of the operand at which a range ends."),
    QUENZEL7_TEXT_ELEMENT_PROPERTY(Long, ToOpAddress, "Address of the operand at which it ends."),
    QUENZEL7_TEXT_ELEMENT_PROPERTY(Long, StorageStringType,
                                   "0 when StorageStringID is the number of a string."),
    QUENZEL7_TEXT_ELEMENT_PROPERTY(Long, StorageStringID, "Number of a string in the library; -1 none."),
    QUENZEL7_TEXT_ELEMENT_PROPERTY(std::string, StorageText, "The string as it was when it was chosen."),
    QUENZEL7_TEXT_ELEMENT_PROPERTY(Long, StorageFont, "Number of the font of the string."),
};

#undef QUENZEL7_TEXT_ELEMENT_PROPERTY

}  // namespace

clsVarTextElement::clsVarTextElement()
    : colorFore_(ElementSetting(ElementDefault::TextColorFore, "5")),
      colorBack_(ElementSetting(ElementDefault::TextColorBack, "103")),
      storageFont_(GetDefaultFontNumber()) {}

const automation::ClassInfo& clsVarTextElement::ClassOf() {
  return CreatableClass<clsVarTextElement>(kMembers);
}

}  // namespace quenzel7
