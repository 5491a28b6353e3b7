#include "hosts/cli/variable_settings.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>
#include <map>

#include "hosts/cli/counted.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_classes.h"
#include "hosts/cli/library_texts.h"
#include "hosts/cli/page_properties.h"
#include "hosts/cli/property_values.h"
#include "hosts/cli/user_error.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"
#include "variables/text/text_list.h"
#include "variables/var_element.h"
#include "variables/var_types.h"

namespace quenzel7::cli {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using automation::Member;
using automation::Object;
using automation::ObjectRef;
using automation::To;
using automation::Variant;
using Properties = std::vector<const Member*>;

constexpr std::string_view kList = "ListTexts";
constexpr std::string_view kDrawing = "DrawingElement";
constexpr std::string_view kReSync = "ReSyncDrawingElementParams";
constexpr std::string_view kState = "DefaultDisplay";

/// What painting hands to elements as a number of 16 bits, though the variable's own property is wider.
constexpr std::string_view kPaintedShort[] = {"Alignment", "Flat3D"};

/// What loading gives the drawing element anew, and where that comes from.
struct Replaced {
  std::string_view name, source;
};
constexpr Replaced kReplaced[] = {{"Txt", "the other settings of the handler"},
                                  {"FontNumber", "FontNumber of the variable or the font of its string"},
                                  {"ColorBack", "ColorBack of the text that is shown"}};

/// What a variable's row has of the string that it refers to.
constexpr std::string_view kInRow[] = {"StorageStringType", "StorageStringID", "StorageFont"};

ObjectRef ReferenceOf(Object& object) {
  const Member* member = object.Class().Default().Find(kListTextKey);
  return member ? member->get(object).Object() : nullptr;
}

ObjectRef TextAt(Object& handler, Long place) {
  return automation::InvokeByName(handler, kList, {place}).Object();
}

bool HasList(const Object& handler) { return handler.Class().Default().Find(kList) != nullptr; }

ObjectRef FirstText(ItfVarBinaryHandler& handler) {
  if (!HasList(handler)) return nullptr;
  automation::InvokeByName(handler, "AppendText");
  return TextAt(handler, 1);
}

/// Another value than that of the property.
Variant AnotherValue(const Member& property, const Variant& value) {
  if (property.type.kind == automation::VariantKind::Boolean) return !To<bool>(value);
  if (property.type.kind == automation::VariantKind::String) return To<std::string>(value) + "1";
  const Long number = To<Long>(value);
  if (property.type.enumeration) {
    for (const automation::EnumMember& member : property.type.enumeration->members) {
      if (member.value != number) return member.value;
    }
  }
  return number == 1 ? Long{2} : Long{1};
}

/// Whether a property of a part of handlers is among their data: it is changed in one handler, and another
/// one takes that one's data.
bool IsKept(Long type, const Member& property, const std::function<ObjectRef(ItfVarBinaryHandler&)>& part) {
  const HandlerRef from = NewHandler(type), to = NewHandler(type);
  try {
    const ObjectRef changed = part(*from);
    const Variant value = AnotherValue(property, property.get(*changed));
    property.put(*changed, value);
    to->BinaryData(from->BinaryData());
    return property.get(*part(*to)) == property.get(*changed);
  } catch (const AutomationError&) {
    return false;
  }
}

/// The properties of handlers of a type, and of the objects that they hold, that their data keep.
struct KeptSettings {
  Properties own, drawing, text, reference;
};

const KeptSettings& KeptOf(Long type) {
  static std::map<Long, KeptSettings> known;
  const auto [found, isNew] = known.try_emplace(type);
  KeptSettings& kept = found->second;
  if (!isNew) return kept;
  const HandlerRef sample = NewHandler(type);
  const auto find = [type, &sample](Properties& properties,
                                    const std::function<ObjectRef(ItfVarBinaryHandler&)>& part) {
    const ObjectRef object = part(*sample);
    if (!object) return;
    for (const Member* property : PageProperties(object->Class())) {
      if (IsKept(type, *property, part)) properties.push_back(property);
    }
  };
  find(kept.own, [](ItfVarBinaryHandler& handler) { return handler.shared_from_this(); });
  find(kept.drawing, TextDrawingOf);
  find(kept.text, FirstText);
  find(kept.reference, [](ItfVarBinaryHandler& handler) { return ReferenceOf(handler); });
  return kept;
}

Properties KeptInRow() {
  Properties properties;
  for (const std::string_view name : kInRow) {
    properties.push_back(clsVarTextElement::ClassOf().Default().Find(name));
  }
  return properties;
}

Long NumberOf(ItfHmiElement& variable, std::string_view property) {
  return To<Long>(automation::GetByName(variable, property));
}

/// The row of a variable of which nothing has a font holds 0.
void TakeRowsFont(ItfHmiElement& variable) {
  const HandlerRef handler = HandlerOf(variable);
  if (!handler || TextDrawingOf(*handler) || kFontedGraphTypes.Has(NumberOf(variable, kTypeProperty))) return;
  automation::PutByName(variable, "FontNumber", Long{0});
}

// --- From page files ---

std::string Named(const std::string& path) { return "property " + Quoted(path); }

void RequireObject(const std::string& path, const Json& json) {
  if (!json.is_object()) throw UserError(Named(path) + " must be an object, " + Shown(json) + " was given");
}

/// What stands under a key that is no property itself: its name and what takes it.
struct Nested {
  std::string_view name;
  std::function<void(const std::string& path, const Json& json)> take;
};

/// Gives an object the properties of a page file's object.
void TakeObject(Object& object, const std::string& path, const Json& json, const Properties& properties,
                const std::vector<Nested>& nested = {}) {
  RequireObject(path, json);
  std::vector<std::string_view> seen;
  for (const auto& [key, value] : json.items()) {
    const auto isAsked = [&asked = key](std::string_view name) {
      return automation::EqualFolded(name, asked);
    };
    const auto property = std::find_if(properties.begin(), properties.end(),
                                       [&](const Member* known) { return isAsked(known->name); });
    const auto inner =
        std::find_if(nested.begin(), nested.end(), [&](const Nested& known) { return isAsked(known.name); });
    if (property == properties.end() && inner == nested.end()) {
      std::vector<std::string_view> names;
      for (const Member* known : properties) names.push_back(known->name);
      for (const Nested& known : nested) names.push_back(known.name);
      const Member* member = object.Class().Default().Find(key);
      const bool isProperty = member && !member->IsMethod();
      throw UserError(Named(path + "." + key) +
                      (isProperty
                           ? " cannot be set in a page file: the project does not keep it"
                           : " does not exist; nearest is " + Quoted(automation::NearestName(key, names))));
    }
    const std::string_view name = inner == nested.end() ? (*property)->name : inner->name;
    const std::string itsPath = path + "." + std::string(name);
    if (std::find(seen.begin(), seen.end(), name) != seen.end()) {
      throw UserError(Named(path + "." + key) + " is given twice");
    }
    seen.push_back(name);
    if (inner != nested.end()) {
      inner->take(itsPath, value);
      continue;
    }
    try {
      (*property)->put(object, ValueFromJson((*property)->type, value));
    } catch (const UserError& error) {
      throw UserError(Named(itsPath) + " " + error.what());
    } catch (const AutomationError& error) {
      throw UserError(Named(itsPath) + ": " + error.Description());
    }
  }
}

std::string TextsGiven(std::size_t texts) {
  return Counted(texts, "text") + (texts == 1 ? " was" : " were") + " given";
}

void TakeList(ItfVarBinaryHandler& handler, const std::string& path, const Json& json,
              const Properties& properties) {
  if (!json.is_array()) throw UserError(Named(path) + " must be an array, " + Shown(json) + " was given");
  if (json.size() > std::size_t{TextListHandler::kMostTexts}) {
    throw UserError(Named(path) + ": " + TextsGiven(json.size()) + ", " +
                    std::to_string(TextListHandler::kMostTexts) + " are the most");
  }
  automation::InvokeByName(handler, "Clear");
  Long place = 0;
  for (const Json& text : json) {
    automation::InvokeByName(handler, "AppendText");
    ++place;
    TakeObject(*TextAt(handler, place), path + "[" + std::to_string(place) + "]", text, properties);
  }
}

void TakeHandler(ItfVarBinaryHandler& handler, const Json& json, const KeptSettings& kept) {
  std::vector<Nested> nested;
  if (const ObjectRef reference = ReferenceOf(handler)) {
    nested.push_back({kListTextKey, [reference, &kept](const std::string& path, const Json& value) {
                        TakeObject(*reference, path, value, kept.reference);
                      }});
  }
  if (HasList(handler)) {
    nested.push_back({kList, [&handler, &kept](const std::string& path, const Json& value) {
                        TakeList(handler, path, value, kept.text);
                      }});
  }
  if (const ElementRef drawing = TextDrawingOf(handler)) {
    nested.push_back({kDrawing, [drawing, &kept](const std::string& path, const Json& value) {
                        TakeObject(*drawing, path, value, kept.drawing);
                      }});
  }
  TakeObject(handler, std::string(kHandlerKey), json, kept.own, nested);
}

const Json* Find(const Json& object, std::string_view name) {
  for (const auto& [key, value] : object.items()) {
    if (automation::EqualFolded(key, name)) return &value;
  }
  return nullptr;
}

void RequireTextsOfBit(ItfVarBinaryHandler& handler) {
  if (!IsListOfBit(handler)) return;
  const std::size_t texts = ListTextsOf(handler).size();
  if (texts == kTextsOfBit) return;
  throw UserError(Named(std::string(kHandlerKey) + "." + std::string(kList)) + ": " + TextsGiven(texts) +
                  ", two texts are expected");
}

void RequirePaintable(ItfHmiElement& variable) {
  for (const std::string_view name : kPaintedShort) {
    try {
      WholeNumberFromJson(NumberOf(variable, name), std::numeric_limits<Integer>::min(),
                          std::numeric_limits<Integer>::max());
    } catch (const UserError& error) {
      throw UserError(Named(std::string(name)) + " " + error.what());
    }
  }
}

/// Gives the drawing element what a page file says of it, and requires that loading leaves it so.
void TakeDrawing(ItfHmiElement& variable, const Json& given, const Properties& properties) {
  const ElementRef drawing = TextDrawingOf(*HandlerOf(variable));
  const std::string path = std::string(kHandlerKey) + "." + std::string(kDrawing);
  TakeObject(*drawing, path, given, properties);
  if (!kLibraryTextTypes.Has(NumberOf(variable, kTypeProperty))) return;
  std::vector<Variant> said;
  for (const Replaced& replaced : kReplaced) said.push_back(automation::GetByName(*drawing, replaced.name));
  BringUpToDate(variable);
  for (std::size_t at = 0; at < said.size(); ++at) {
    const auto& [name, source] = kReplaced[at];
    if (automation::GetByName(*drawing, name) == said[at]) continue;
    throw UserError(Named(path + "." + std::string(name)) +
                    " would be replaced when the variable is loaded: it comes from " + std::string(source));
  }
}

// --- To page files ---

/// The properties of an object that differ from another one's, or all.
Json ObjectToJson(Object& object, Object* fresh, const Properties& properties) {
  Json json = Json::object();
  for (const Member* property : properties) {
    const Variant value = property->get(object);
    if (fresh && value == property->get(*fresh)) continue;
    json[std::string(property->name)] = JsonFromValue(property->type, value);
  }
  return json;
}

Json ListToJson(ItfVarBinaryHandler& handler, Object* freshText, const Properties& properties) {
  Json list = Json::array();
  for (const ObjectRef& text : ListTextsOf(handler)) {
    list.push_back(ObjectToJson(*text, freshText, properties));
  }
  return list;
}

void PutUnlessEmpty(Json& json, std::string_view key, Json value) {
  if (!value.empty()) json[std::string(key)] = std::move(value);
}

/// The settings of a handler without what its drawing element shows.
Json HandlerToJson(ItfVarBinaryHandler& handler, ItfVarBinaryHandler* fresh, const KeptSettings& kept) {
  Json json = ObjectToJson(handler, fresh, kept.own);
  if (const ObjectRef reference = ReferenceOf(handler)) {
    const ObjectRef other = fresh ? ReferenceOf(*fresh) : nullptr;
    PutUnlessEmpty(json, kListTextKey, ObjectToJson(*reference, other.get(), kept.reference));
  }
  if (HasList(handler)) {
    if (!fresh || ListToJson(handler, nullptr, kept.text) != ListToJson(*fresh, nullptr, kept.text)) {
      const HandlerRef ofNewText = fresh ? fresh->Replica() : nullptr;
      if (ofNewText) automation::InvokeByName(*ofNewText, "Clear");
      const ObjectRef newText = ofNewText ? FirstText(*ofNewText) : nullptr;
      json[std::string(kList)] = ListToJson(handler, newText.get(), kept.text);
    }
  }
  return json;
}

/// What the drawing element shows that does not follow from the other settings, which `handler` tells.
Json DrawingToJson(ItfHmiElement& variable, const Json& handler, const KeptSettings& kept) {
  const ElementRef drawing = TextDrawingOf(*HandlerOf(variable));
  if (!drawing) return {};
  const ElementRef like = NewVariable(NumberOf(variable, kTypeProperty));
  for (const Member* property : PageProperties(variable.Class())) {
    property->put(*like, property->get(variable));
  }
  const HandlerRef other = HandlerOf(*like);
  TakeHandler(*other, handler, kept);
  try {
    BringUpToDate(*like);
  } catch (const UserError&) {
    // A variable that shows nothing that follows from its settings.
  }
  return ObjectToJson(*drawing, TextDrawingOf(*other).get(), kept.drawing);
}

}  // namespace

bool IsVariableClass(const automation::ClassInfo& elementClass) {
  return &elementClass == &clsVar::ClassOf();
}

bool IsVariable(const ItfHmiElement& element) { return IsVariableClass(element.Class()); }

std::string_view SettingsKey(std::string_view key) {
  for (const std::string_view known : kSettingsKeys) {
    if (automation::EqualFolded(known, key)) return known;
  }
  return {};
}

HandlerRef HandlerOf(ItfHmiElement& variable) {
  return To<HandlerRef>(
      automation::InvokeByName(variable, "BinaryHandlers", {automation::GetByName(variable, kTypeProperty)}));
}

void RequireHandler(ItfHmiElement& variable) {
  if (HandlerOf(variable)) return;
  const automation::TypeInfo type = automation::TypeOf<enVarType>();
  std::string known;
  for (const automation::EnumMember& member : type.enumeration->members) {
    if (NewHandler(member.value)) known += (known.empty() ? "" : ", ") + std::string(member.name);
  }
  const Json given = JsonFromValue(type, NumberOf(variable, kTypeProperty));
  throw UserError(Named(std::string(kTypeProperty)) + " must be a type that there is a handler for (" +
                  known + "), it is " + Shown(given));
}

void RequireTypeAndState(ItfHmiElement& variable) {
  RequireHandler(variable);
  const HandlerRef handler = HandlerOf(variable);
  if (!HasList(*handler)) return;
  const Long state = NumberOf(variable, kState);
  const auto texts = static_cast<Long>(ListTextsOf(*handler).size());
  if (state >= 1 && state <= texts) return;
  if (texts == 0) {
    throw UserError(Named(std::string(kHandlerKey) + "." + std::string(kList)) +
                    " must have a text at least, it has none");
  }
  throw UserError(Named(std::string(kState)) + " must be the number of a text of the list, 1 to " +
                  std::to_string(texts) + ", it is " + std::to_string(state));
}

ElementRef NewVariable(Long type) {
  ElementRef variable = ElementClasses::Create(clsVar::ClassOf());
  automation::PutByName(*variable, kTypeProperty, type);
  TakeRowsFont(*variable);
  return variable;
}

ElementRef TextDrawingOf(ItfVarBinaryHandler& handler) {
  ElementRef drawing = handler.DrawingElement();
  return drawing && BearsText(*drawing) ? drawing : nullptr;
}

bool IsListOfBit(const ItfVarBinaryHandler& handler) {
  return HasList(handler) && !handler.Class().Default().Find("InsertBefore");
}

std::vector<ObjectRef> ListTextsOf(ItfVarBinaryHandler& handler) {
  std::vector<ObjectRef> texts;
  if (!HasList(handler)) return texts;
  try {
    for (Long place = 1;; ++place) texts.push_back(TextAt(handler, place));
  } catch (const AutomationError& error) {
    // Not all lists tell how long they are.
    if (error.Code() != ErrorNumber::SubscriptOutOfRange) throw;
  }
  return texts;
}

void TakeSettings(ItfHmiElement& variable, const Json& settings) {
  RequirePaintable(variable);
  const HandlerRef handler = HandlerOf(variable);
  const KeptSettings& kept = KeptOf(NumberOf(variable, kTypeProperty));
  if (const Json* reference = Find(settings, kListTextKey)) {
    TakeObject(*ReferenceOf(variable), std::string(kListTextKey), *reference, KeptInRow());
  }
  TakeRowsFont(variable);
  const Json* given = Find(settings, kHandlerKey);
  if (given) TakeHandler(*handler, *given, kept);
  RequireTextsOfBit(*handler);
  BringUpToDate(variable);
  if (!given) return;
  // What is said of it stands above what follows from the other settings.
  if (const Json* drawing = Find(*given, kDrawing)) TakeDrawing(variable, *drawing, kept.drawing);
}

void BringUpToDate(ItfHmiElement& variable) {
  const HandlerRef handler = HandlerOf(variable);
  if (!handler->Class().Default().Find(kReSync)) return;
  try {
    automation::InvokeByName(
        *handler, kReSync,
        {automation::GetByName(variable, kState), automation::GetByName(variable, "FontNumber")});
  } catch (const AutomationError&) {
    RequireTypeAndState(variable);
    throw;
  }
}

Json SettingsOf(ItfHmiElement& variable, std::string_view key, ItfHmiElement* fresh) {
  Json json;
  if (key == kListTextKey) {
    const ObjectRef other = fresh ? ReferenceOf(*fresh) : nullptr;
    json = ObjectToJson(*ReferenceOf(variable), other.get(), KeptInRow());
  } else if (const HandlerRef handler = HandlerOf(variable)) {
    const HandlerRef other = fresh ? HandlerOf(*fresh) : nullptr;
    const KeptSettings& kept = KeptOf(NumberOf(variable, kTypeProperty));
    const Json all = HandlerToJson(*handler, nullptr, kept);
    json = other ? HandlerToJson(*handler, other.get(), kept) : all;
    PutUnlessEmpty(json, kDrawing, DrawingToJson(variable, all, kept));
  }
  return json.empty() ? Json() : json;
}

std::vector<Setting> SettingsByPath(std::string_view key, const Json& settings) {
  std::vector<Setting> byPath;
  const std::function<void(const std::string&, const Json&)> walk = [&](const std::string& path,
                                                                        const Json& json) {
    if (json.is_object()) {
      for (const auto& [name, value] : json.items()) walk(path + "." + name, value);
    } else if (json.is_array()) {
      for (std::size_t at = 0; at < json.size(); ++at) {
        walk(path + "[" + std::to_string(at + 1) + "]", json[at]);
      }
    } else if (!json.is_null()) {
      byPath.push_back({path, json.dump(-1, ' ', false, Json::error_handler_t::replace)});
    }
  };
  walk(std::string(key), settings);
  return byPath;
}

}  // namespace quenzel7::cli
