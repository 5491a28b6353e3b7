#include "hosts/cli/element_tree.h"

#include <algorithm>

#include "framework/element_types.h"
#include "hosts/cli/element_calls.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/collection.h"
#include "platform/automation/convert.h"
#include "shapes/group.h"

namespace quenzel7::cli {
namespace {

using automation::CollectionRef;
using automation::To;

CollectionRef ColGroupOf(ItfHmiElement& group) {
  return To<CollectionRef>(automation::GetByName(group, "ColGroup"));
}

Long DepthOf(ItfHmiElement& group) { return To<Long>(automation::GetByName(group, "Depth")); }

void Walk(const std::vector<ElementRef>& elements, ElementPath& path,
          const std::function<void(ItfHmiElement&, const ElementPath&)>& visit) {
  path.push_back(0);
  for (const ElementRef& element : elements) {
    ++path.back();
    visit(*element, path);
    Walk(MembersOf(*element), path, visit);
  }
  path.pop_back();
}

}  // namespace

bool IsGroupClass(const automation::ClassInfo& elementClass) { return &elementClass == &clsGroup::ClassOf(); }

bool IsGroup(const ItfHmiElement& element) { return IsGroupClass(element.Class()); }

std::string NestsTooDeep() { return "groups nest at most " + std::to_string(clsGroup::kMaxDepth) + " deep"; }

std::vector<ElementRef> MembersOf(ItfHmiElement& element) {
  std::vector<ElementRef> members;
  if (!IsGroup(element)) return members;
  const CollectionRef held = ColGroupOf(element);
  for (Long place = 1; place <= held->Count(); ++place) {
    members.push_back(held->ObjectAt<ItfHmiElement>(place));
  }
  return members;
}

void AddMember(ItfHmiElement& group, const ElementRef& element) {
  automation::InvokeByName(*ColGroupOf(group), "Add", {element, clsGroup::KeyOf(*element)});
  if (IsGroup(*element)) {
    automation::PutByName(group, "Depth", std::max(DepthOf(group), 1 + DepthOf(*element)));
  }
}

bool IsVariableLayer(ItfHmiElement& element) {
  if (!IsGroup(element)) return To<Long>(Read(element, "ElementType")) == kVariableElement;
  const std::vector<ElementRef> members = MembersOf(element);
  return !members.empty() && std::all_of(members.begin(), members.end(),
                                         [](const ElementRef& member) { return IsVariableLayer(*member); });
}

void PutVariablesOnTop(std::vector<ElementRef>& elements) {
  std::stable_partition(elements.begin(), elements.end(),
                        [](const ElementRef& element) { return !IsVariableLayer(*element); });
}

void WalkElements(const std::vector<ElementRef>& elements,
                  const std::function<void(ItfHmiElement&, const ElementPath&)>& visit) {
  ElementPath path;
  Walk(elements, path, visit);
}

void WalkElement(ItfHmiElement& element, const std::function<void(ItfHmiElement&)>& visit) {
  visit(element);
  for (const ElementRef& member : MembersOf(element)) WalkElement(*member, visit);
}

std::size_t CountElements(const std::vector<ElementRef>& elements) {
  std::size_t count = 0;
  WalkElements(elements, [&count](ItfHmiElement&, const ElementPath&) { ++count; });
  return count;
}

}  // namespace quenzel7::cli
