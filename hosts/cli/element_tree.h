#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "framework/element_contract.h"

/// Elements and the members of groups among them, as this host handles them by call by name.
namespace quenzel7::cli {

/// Whether the elements of the class hold others.
bool IsGroupClass(const automation::ClassInfo& elementClass);

/// Whether the element holds others.
bool IsGroup(const ItfHmiElement& element);

/// What the user is told of a group that stands deeper than groups may nest (clsGroup::kMaxDepth).
std::string NestsTooDeep();

/// The members of a group in their order; none for another element.
std::vector<ElementRef> MembersOf(ItfHmiElement& element);

/// Appends an element to the members of a group that is built in memory, and makes the group as deep as that
/// takes. Error 457 for a member that the group has already.
void AddMember(ItfHmiElement& group, const ElementRef& element);

/// Where an element stands: its place on the page, then among the members of each group down to it, all
/// counted from 1.
using ElementPath = std::vector<std::size_t>;

/// Puts the variables, and the groups that hold nothing else, behind the others, and keeps the order among
/// both: they are painted above all others and have no place among these.
void PutVariablesOnTop(std::vector<ElementRef>& elements);

/// Whether the element is a variable, or a group of nothing else.
bool IsVariableLayer(ItfHmiElement& element);

/// Visits the elements, and after each group its members, in their order.
void WalkElements(const std::vector<ElementRef>& elements,
                  const std::function<void(ItfHmiElement& element, const ElementPath& path)>& visit);

/// Visits an element and, when it is a group, all that is in it, in their order.
void WalkElement(ItfHmiElement& element, const std::function<void(ItfHmiElement& element)>& visit);

/// The number of all elements, the members of groups among them.
std::size_t CountElements(const std::vector<ElementRef>& elements);

}  // namespace quenzel7::cli
