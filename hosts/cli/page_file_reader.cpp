#include <algorithm>
#include <filesystem>
#include <limits>

#include "framework/tab_index.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/json_document.h"
#include "hosts/cli/page_file.h"
#include "hosts/cli/page_properties.h"
#include "hosts/cli/property_values.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/variable_settings.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"
#include "shapes/element_columns.h"
#include "shapes/group.h"

namespace quenzel7::cli {
namespace {

using automation::ClassInfo;
using automation::Mark;
using automation::Member;

constexpr Long kHighest = std::numeric_limits<Long>::max();

/// The list of a page's elements, and that of a group's.
constexpr std::string_view kElements = "elements";

/// The list of what a page's pictures are told apart by.
constexpr const char* kPictures = "pictures";

void RequireObject(const Json& value) {
  if (!value.is_object()) throw UserError("must be an object, " + Shown(value) + " was given");
}

/// Throws for a key that is there twice, whatever its case; `kindOf` tells what it is. Asked when all keys
/// are known to be good: so there are few before the first one that comes again.
template <class KindOf>
void RequireSingleKeys(const Json& object, const KindOf& kindOf) {
  std::vector<std::string_view> seen;
  for (const auto& [key, value] : object.items()) {
    for (const std::string_view other : seen) {
      if (automation::EqualFolded(key, other)) throw UserError(kindOf(key) + Quoted(key) + " is given twice");
    }
    seen.push_back(key);
  }
}

/// The members of an object that has a fixed set of them.
class Members {
 public:
  Members(const Json& object, const std::vector<std::string_view>& known) : object_(object) {
    RequireObject(object);
    for (const auto& [key, value] : object.items()) {
      const auto isKey = [&asked = key](std::string_view name) {
        return automation::EqualFolded(name, asked);
      };
      if (std::none_of(known.begin(), known.end(), isKey)) {
        throw UserError(Quoted(key) + " does not exist; nearest is " +
                        Quoted(automation::NearestName(key, known)));
      }
    }
    RequireSingleKeys(object, [](std::string_view) { return std::string(); });
  }

  const Json* Find(std::string_view name) const {
    for (const auto& [key, value] : object_.items()) {
      if (automation::EqualFolded(key, name)) return &value;
    }
    return nullptr;
  }
  const Json& Get(std::string_view name) const {
    const Json* value = Find(name);
    if (!value) throw UserError(Quoted(name) + " is missing");
    return *value;
  }

 private:
  const Json& object_;
};

/// What `read` makes of a value, its errors telling the value's name.
template <class Read>
decltype(auto) Named(const std::string& name, const Read& read) {
  try {
    return read();
  } catch (const UserError& error) {
    throw UserError(name + " " + error.what());
  }
}

Long NumberMember(const Members& members, std::string_view name, Long lowest, Long highest) {
  const Json& value = members.Get(name);
  return Named(Quoted(name), [&] { return WholeNumberFromJson(value, lowest, highest); });
}

Panel ReadPanel(const Json& json) {
  const Members members(json, {"type", "width", "height"});
  Panel panel;
  panel.type = NumberMember(members, "type", 0, kHighest);
  panel.width = NumberMember(members, "width", 1, kLargestPanel);
  panel.height = NumberMember(members, "height", 1, kLargestPanel);
  return panel;
}

bool IsElementsKey(std::string_view key) { return automation::EqualFolded(key, kElements); }

bool IsClassKey(std::string_view key) { return automation::EqualFolded(key, "class"); }

bool IsPictureKey(std::string_view key) { return automation::EqualFolded(key, kPictureKey); }

bool HoldsPicture(const ClassInfo& elementClass) { return PictureInterfaceOf(elementClass) != nullptr; }

/// Whether the key tells settings of an element of the class that stand in an object of their own.
bool IsSettingsKey(std::string_view key, const ClassInfo& elementClass) {
  return IsVariableClass(elementClass) && !SettingsKey(key).empty();
}

/// Whether the key is one of those that every object of its kind has, and no property.
bool IsFixedKey(std::string_view key) { return IsClassKey(key) || IsElementsKey(key); }

const ClassInfo& ReadClass(const Json& element, const ElementClasses& classes) {
  for (const auto& [key, value] : element.items()) {
    if (!IsClassKey(key)) continue;
    const std::string& name = Named(Quoted("class"), [&value = value] { return TextFromJson(value); });
    return classes.Named(name);
  }
  throw UserError("\"class\" is missing");
}

const Member& FindProperty(const ClassInfo& elementClass, const std::vector<const Member*>& properties,
                           const std::string& name) {
  const auto isNamed = [&name](const Member* property) {
    return automation::EqualFolded(property->name, name);
  };
  if (const auto found = std::find_if(properties.begin(), properties.end(), isNamed);
      found != properties.end()) {
    return **found;
  }
  const Member* member = elementClass.Default().Find(name);
  const std::string named = "property " + Quoted(name);
  if (!member) {
    if (IsGroupClass(elementClass)) {
      throw UserError(named + " does not exist: a " + std::string(clsGroup::kClassName) +
                      " has no properties, only " + Quoted(kElements));
    }
    std::vector<std::string_view> names;
    for (const Member* property : properties) names.push_back(property->name);
    if (HoldsPicture(elementClass)) names.push_back(kPictureKey);
    if (IsVariableClass(elementClass)) {
      names.insert(names.end(), std::begin(kSettingsKeys), std::end(kSettingsKeys));
    }
    throw UserError(named + " does not exist; nearest is " + Quoted(automation::NearestName(name, names)));
  }
  if (member->IsMethod()) throw UserError(Quoted(name) + " is a method, not a property");
  if (member->mark == Mark::Identity) {
    throw UserError(named + " cannot be set: it is given by the project and the element's place in the file");
  }
  if (IsOfPicture(elementClass, *member)) {
    throw UserError(named + " cannot be set: it follows from " + Quoted(kPictureKey));
  }
  throw UserError(named + " cannot be set in a page file");
}

std::vector<PropertyValue> ReadValues(const Json& element, const ClassInfo& elementClass) {
  const std::vector<const Member*> properties = PageProperties(elementClass);
  std::vector<PropertyValue> values;
  for (const auto& [key, value] : element.items()) {
    if (IsClassKey(key)) continue;
    if (IsElementsKey(key)) {
      if (IsGroupClass(elementClass)) continue;
      throw UserError(Quoted(kElements) + " can be given for a " + std::string(clsGroup::kClassName) +
                      " only");
    }
    if (IsPictureKey(key) && HoldsPicture(elementClass)) continue;
    if (IsSettingsKey(key, elementClass)) continue;
    const Member& property = FindProperty(elementClass, properties, key);
    values.push_back({&property, Named("property " + Quoted(property.name), [&property, &value = value] {
                        // The property is wider than the column of its row.
                        if (property.name == "TabIndex") WholeNumberFromJson(value, 0, kNoTabIndex);
                        return ValueFromJson(property.type, value);
                      })});
  }
  const auto place = [&properties](const PropertyValue& value) {
    return std::find(properties.begin(), properties.end(), value.property);
  };
  std::sort(values.begin(), values.end(),
            [&place](const PropertyValue& a, const PropertyValue& b) { return place(a) < place(b); });
  return values;
}

std::optional<FiledPicture> ReadPicture(const Json& element, const ClassInfo& elementClass) {
  if (!HoldsPicture(elementClass)) return {};
  for (const auto& [key, value] : element.items()) {
    if (IsPictureKey(key)) {
      return Named("property " + Quoted(kPictureKey), [&value = value] { return PictureFromJson(value); });
    }
  }
  return {};
}

Json ReadSettings(const Json& element, const ClassInfo& elementClass) {
  Json settings = Json::object();
  for (const auto& [key, value] : element.items()) {
    if (IsSettingsKey(key, elementClass)) settings[key] = value;
  }
  return settings;
}

/// A group that got a touchable member would refuse it, and be deleted for it, when all are saved already.
void RequireNoTouch(const std::vector<PropertyValue>& values) {
  for (const PropertyValue& value : values) {
    if (value.property->name != "TouchOprndAddr") continue;
    const Long address = automation::To<Long>(value.value);
    if (address == kNone) continue;
    throw UserError("property " + Quoted(value.property->name) + " must be " + std::to_string(kNone) +
                    " in a group, which holds no touchable element; " + std::to_string(address) +
                    " was given");
  }
}

const Json& RequireArray(const Json& value) {
  if (!value.is_array()) throw UserError("must be an array, " + Shown(value) + " was given");
  return value;
}

/// The list of a group's members, or nullptr when it has none.
const Json* MemberList(const Json& group) {
  for (const auto& [key, value] : group.items()) {
    if (IsElementsKey(key)) {
      return &Named(Quoted(kElements), [&value = value]() -> const Json& { return RequireArray(value); });
    }
  }
  return nullptr;
}

/// Reads lists of elements. `depth` is the number of groups around them; it ends the descent into a text that
/// nests without end.
class ElementReader {
 public:
  explicit ElementReader(const ElementClasses& classes) : classes_(classes) {}

  std::vector<PageElement> ReadList(const Json& list, const std::string& place, Long depth) const {
    std::vector<PageElement> elements;
    elements.reserve(list.size());
    for (const Json& element : list) elements.push_back(Read(element, place, elements.size() + 1, depth));
    return elements;
  }

 private:
  PageElement Read(const Json& json, const std::string& place, std::size_t index, Long depth) const {
    const ClassInfo& elementClass =
        AtPlace(place + ", element " + std::to_string(index), [&]() -> const ClassInfo& {
          RequireObject(json);
          return ReadClass(json, classes_);
        });
    const std::string elementPlace = ElementPlace(place, index, elementClass.name);
    const Json* members = nullptr;
    PageElement element = AtPlace(elementPlace, [&] {
      PageElement read{&elementClass, ReadValues(json, elementClass)};
      read.picture = ReadPicture(json, elementClass);
      read.settings = ReadSettings(json, elementClass);
      RequireSingleKeys(json,
                        [](std::string_view key) { return std::string(IsFixedKey(key) ? "" : "property "); });
      if (depth > 0) RequireNoTouch(read.values);
      if (IsGroupClass(elementClass)) {
        if (depth == clsGroup::kMaxDepth) throw UserError(NestsTooDeep());
        members = MemberList(json);
      }
      return read;
    });
    if (members) element.elements = ReadList(*members, elementPlace, depth + 1);
    return element;
  }

  const ElementClasses& classes_;
};

}  // namespace

std::size_t CountElements(const std::vector<PageElement>& elements) {
  std::size_t count = elements.size();
  for (const PageElement& element : elements) count += CountElements(element.elements);
  return count;
}

std::string ElementPlace(const std::string& place, std::size_t index, std::string_view className) {
  return place + ", element " + std::to_string(index) + " (" + std::string(className) + ")";
}

std::string FolderOf(const std::string& path) { return std::filesystem::path(path).parent_path().string(); }

namespace {

PageFile ReadPage(const Json& json, const std::string& place, const ElementClasses& classes) {
  PageFile page;
  const Json* elements = nullptr;
  AtPlace(place, [&] {
    const Members members(json, {"page", "name", "panel", kElements});
    page.info.number = NumberMember(members, "page", 0, kHighest);
    if (const Json* name = members.Find("name")) {
      page.info.name = Named(Quoted("name"), [name] { return TextFromJson(*name); });
    }
    const Json& panel = members.Get("panel");
    page.info.panel = AtPlace("\"panel\"", [&panel] { return ReadPanel(panel); });
    elements = &members.Get(kElements);
    Named(Quoted(kElements), [elements] { RequireArray(*elements); });
  });
  page.elements = ElementReader(classes).ReadList(*elements, place, 0);
  return page;
}

}  // namespace

PageFile ReadPageFile(std::string_view text, const std::string& place, const ElementClasses& classes) {
  return ReadPage(ParseJson(text, place), place, classes);
}

CompletePage ReadCompletePage(std::string_view text, const std::string& place) {
  Json json = ParseJson(text, place);
  Json pictures = Json::array();
  if (json.is_object() && json.contains(kPictures)) {
    pictures = json[kPictures];
    json.erase(kPictures);
  }
  return {ReadPage(json, place, ElementClasses::All()), pictures};
}

namespace {

bool GivesType(const PageElement& element) {
  return std::any_of(element.values.begin(), element.values.end(),
                     [](const PropertyValue& value) { return value.property->name == kTypeProperty; });
}

}  // namespace

ElementRef MakeElement(const PageElement& element, const std::string& folder) {
  ElementRef made = ElementClasses::Create(*element.elementClass);
  const bool isVariable = IsVariable(*made);
  // The handler of its type is there from when the type is set, so one that is left out is set, too.
  if (isVariable && !GivesType(element)) {
    automation::PutByName(*made, kTypeProperty, automation::GetByName(*made, kTypeProperty));
  }
  for (const PropertyValue& value : element.values) {
    AtPlace("property " + Quoted(value.property->name), [&] { value.property->put(*made, value.value); });
    if (value.property->name == kTypeProperty) RequireHandler(*made);
  }
  if (isVariable) TakeSettings(*made, element.settings);
  if (element.picture) {
    AtPlace("property " + Quoted(kPictureKey), [&] { TakePicture(*made, *element.picture, folder); });
  } else if (HoldsPicture(*element.elementClass)) {
    TakeNoPicture(*made);
  }
  std::vector<ElementRef> members;
  for (const PageElement& member : element.elements) members.push_back(MakeElement(member, folder));
  PutVariablesOnTop(members);
  for (const ElementRef& member : members) AddMember(*made, member);
  return made;
}

}  // namespace quenzel7::cli
