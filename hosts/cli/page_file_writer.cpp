#include <map>
#include <utility>

#include "hosts/cli/element_tree.h"
#include "hosts/cli/json_document.h"
#include "hosts/cli/page_file.h"
#include "hosts/cli/page_properties.h"
#include "hosts/cli/property_values.h"
#include "hosts/cli/variable_settings.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"

namespace quenzel7::cli {
namespace {

using automation::ClassInfo;
using automation::Member;

/// What the elements of one class, and variables of one type, are compared with.
struct ClassToWrite {
  explicit ClassToWrite(ItfHmiElement& element)
      : properties(PageProperties(element.Class())),
        fresh(IsVariable(element) ? NewVariable(TypeOf(element)) : ElementClasses::Create(element.Class())) {}

  /// The type of a variable; 0 for other elements.
  static Long TypeOf(ItfHmiElement& element) {
    return IsVariable(element) ? automation::To<Long>(automation::GetByName(element, kTypeProperty)) : 0;
  }

  std::vector<const Member*> properties;
  ElementRef fresh;
};

enum class Extent { Differing, All };

/// Writes elements, and after the properties of a group its members.
class ElementWriter {
 public:
  explicit ElementWriter(Extent extent) : extent_(extent) {}

  Json List(const std::vector<ElementRef>& elements) {
    Json list = Json::array();
    for (const ElementRef& element : elements) list.push_back(Write(*element));
    return list;
  }

 private:
  Json Write(ItfHmiElement& element) {
    const ClassInfo& elementClass = element.Class();
    const ClassToWrite& known =
        classes_.try_emplace({&elementClass, ClassToWrite::TypeOf(element)}, element).first->second;
    Json json;
    json["class"] = elementClass.name;
    for (const Member* property : known.properties) {
      const automation::Variant value = property->get(element);
      if (extent_ == Extent::All || IsPositionProperty(property->name) || property->name == kTypeProperty ||
          value != property->get(*known.fresh)) {
        json[std::string(property->name)] = JsonFromValue(property->type, value);
      }
    }
    if (extent_ == Extent::Differing && PictureInterfaceOf(elementClass)) {
      if (Json picture = JsonFromPicture(element); !picture.is_null()) {
        json[std::string(kPictureKey)] = std::move(picture);
      }
    }
    if (IsVariable(element)) {
      for (const std::string_view key : kSettingsKeys) {
        Json settings = SettingsOf(element, key, extent_ == Extent::All ? nullptr : known.fresh.get());
        if (!settings.is_null()) json[std::string(key)] = std::move(settings);
      }
    }
    if (IsGroup(element)) json["elements"] = List(MembersOf(element));
    return json;
  }

  Extent extent_;
  std::map<std::pair<const ClassInfo*, Long>, ClassToWrite> classes_;
};

std::string PageText(const PageInfo& info, const std::vector<ElementRef>& elements, Extent extent,
                     const Json& pictures = Json::array()) {
  Json page;
  page["page"] = info.number;
  if (!info.name.empty()) page["name"] = info.name;
  page["panel"] = {{"type", info.panel.type}, {"width", info.panel.width}, {"height", info.panel.height}};
  page["elements"] = ElementWriter(extent).List(elements);
  if (!pictures.empty()) page["pictures"] = pictures;
  constexpr int kIndentation = 2;
  // A project that another program wrote may hold texts that are no UTF-8.
  return page.dump(kIndentation, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

std::string CanonicalPageText(const PageInfo& info, const std::vector<ElementRef>& elements) {
  return PageText(info, elements, Extent::Differing);
}

Json PictureTexts(const std::vector<ElementRef>& elements) {
  Json texts = Json::array();
  WalkElements(elements, [&texts](ItfHmiElement& element, const ElementPath&) {
    if (PictureInterfaceOf(element.Class())) texts.push_back(PictureText(element));
  });
  return texts;
}

std::string CompletePageText(const PageInfo& info, const std::vector<ElementRef>& elements,
                             const Json& pictures) {
  return PageText(info, elements, Extent::All, pictures);
}

}  // namespace quenzel7::cli
