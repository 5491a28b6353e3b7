#include <map>

#include "hosts/cli/json_document.h"
#include "hosts/cli/page_file.h"
#include "hosts/cli/page_properties.h"
#include "hosts/cli/property_values.h"
#include "platform/automation/call_by_name.h"

namespace quenzel7::cli {
namespace {

using automation::ClassInfo;
using automation::Member;

/// What the elements of one class are compared with.
struct ClassToWrite {
  explicit ClassToWrite(const ClassInfo& elementClass)
      : properties(PageProperties(elementClass)), fresh(ElementClasses::Create(elementClass)) {}

  std::vector<const Member*> properties;
  ElementRef fresh;
};

enum class Extent { Differing, All };

std::string PageText(const PageInfo& info, const std::vector<ElementRef>& elements, Extent extent) {
  Json page;
  page["page"] = info.number;
  if (!info.name.empty()) page["name"] = info.name;
  page["panel"] = {{"type", info.panel.type}, {"width", info.panel.width}, {"height", info.panel.height}};
  Json& list = page["elements"] = Json::array();
  std::map<const ClassInfo*, ClassToWrite> classes;
  for (const ElementRef& element : elements) {
    const ClassInfo& elementClass = element->Class();
    const ClassToWrite& known = classes.try_emplace(&elementClass, elementClass).first->second;
    Json json;
    json["class"] = elementClass.name;
    for (const Member* property : known.properties) {
      const automation::Variant value = automation::GetByName(*element, property->name);
      if (extent == Extent::All || IsPositionProperty(*property) ||
          value != automation::GetByName(*known.fresh, property->name)) {
        json[std::string(property->name)] = JsonFromValue(property->type, value);
      }
    }
    list.push_back(std::move(json));
  }
  constexpr int kIndentation = 2;
  // A project that another program wrote may hold texts that are no UTF-8.
  return page.dump(kIndentation, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

std::string CanonicalPageText(const PageInfo& info, const std::vector<ElementRef>& elements) {
  return PageText(info, elements, Extent::Differing);
}

std::string CompletePageText(const PageInfo& info, const std::vector<ElementRef>& elements) {
  return PageText(info, elements, Extent::All);
}

}  // namespace quenzel7::cli
