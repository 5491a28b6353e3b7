#include "hosts/cli/page_snapshot.h"

#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_picture.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/json_document.h"
#include "hosts/cli/page_properties.h"
#include "hosts/cli/property_values.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/variable_settings.h"
#include "platform/automation/call_by_name.h"

namespace quenzel7::cli {
namespace {

class Snapshot {
 public:
  Snapshot(PageSnapshot& page, const std::map<Long, std::string>& guids) : page_(page), guids_(guids) {}

  void Add(const std::vector<ElementRef>& elements, std::size_t group) {
    std::size_t place = 0;
    for (const ElementRef& element : elements) {
      const std::size_t index = page_.elements.size();
      page_.elements.push_back(Take(*element));
      page_.elements[index].group = group;
      page_.elements[index].place = ++place;
      Add(MembersOf(*element), index);
      page_.elements[index].inside = page_.elements.size() - index - 1;
    }
  }

 private:
  ElementSnapshot Take(ItfHmiElement& element) {
    ElementSnapshot taken{&element.Class(), {}, {}, {}};
    const auto take = [&taken](std::string_view name, const Json& value) {
      taken.properties.push_back(name);
      // A project that another program wrote may hold texts that are no UTF-8.
      taken.values.push_back(value.dump(-1, ' ', false, Json::error_handler_t::replace));
    };
    for (const automation::Member* property : PageProperties(element.Class())) {
      take(property->name, JsonFromValue(property->type, property->get(element)));
    }
    if (IsVariable(element)) {
      for (const std::string_view key : kSettingsKeys) take(key, SettingsOf(element, key, nullptr));
    }
    if (PictureInterfaceOf(element.Class())) {
      taken.properties.push_back(kPictureKey);
      taken.values.push_back(PictureKeyText(element));
      taken.picture = OneLine(PictureText(element));
    }
    const Long id = IdOf(element);
    if (const auto guid = guids_.find(id); guid != guids_.end()) {
      taken.identity = std::to_string(id) + " " + guid->second;
    }
    return taken;
  }

  PageSnapshot& page_;
  const std::map<Long, std::string>& guids_;
};

}  // namespace

bool ElementSnapshot::IsGroup() const { return IsGroupClass(*elementClass); }

std::string PageSnapshot::NameOf(std::size_t index) const {
  const ElementSnapshot& element = elements[index];
  return (element.group == kNoElement ? "" : NameOf(element.group) + ", ") + "element " +
         std::to_string(element.place) + " (" + std::string(element.elementClass->name) + ")";
}

PageSnapshot TakeSnapshot(const LoadedPage& page, const std::map<Long, std::string>& guids) {
  PageSnapshot snapshot{page.info, {}};
  Snapshot(snapshot, guids).Add(page.elements, kNoElement);
  return snapshot;
}

}  // namespace quenzel7::cli
