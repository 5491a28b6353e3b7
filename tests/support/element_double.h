#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>

#include "framework/element_contract.h"
#include "framework/element_types.h"
#include "platform/automation/collection.h"
#include "platform/automation/member.h"
#include "shapes/group.h"
#include "tests/support/note_taker.h"

/// Elements that note what they are told, for tests of what holds elements.
namespace quenzel7::test {

/// An element of the host's own that notes all that it is asked through the element contract, in order, and
/// answers as the stubs do.
class NotingElement : public ItfHmiElement, public NoteTaker {
 public:
  using NoteTaker::NoteTaker;

 protected:
#define QUENZEL7_NOTED_BASE ItfHmiElement
#define QUENZEL7_IMPLEMENTED(name) ItfHmiElement_##name
#define QUENZEL7_MEMBERS "framework/element_members.inc"
#include "tests/support/note_contract.inc"
};

/// A noting element that claims to be of a class and answers what it is given to answer. It has the members
/// of the default interface that a group calls, GlobalVarID and DrawTransparent, when its class has them.
class ElementDouble final : public NotingElement {
 public:
  ElementDouble(std::string name, Long type, Notes notes)
      : NotingElement(std::move(name), std::move(notes)), type_(type) {}

  // Answers.
  bool isTouchable = false;
  bool isHitByPoint = false;
  bool isHitByRect = false;
  enCollisionStatus state = eCS_Legall;
  Long globalVarId = 0;
  bool hasReplica = true;
  Long id = -1;
  Long groupId = -1;
  /// Runs on the variant that a method takes by reference.
  std::function<void(automation::Variant&)> change;

  Long GlobalVarID() const {
    Note("GlobalVarID", "?");
    return globalVarId;
  }
  void DrawTransparent(Long pHdc) { NoteCall("DrawTransparent")(pHdc); }

  const automation::ClassInfo& Class() const override {
    static const automation::Member variable[] = {automation::Property<Long>(
        "GlobalVarID", "", AUTOMATION_GETTER(ElementDouble, GlobalVarID), nullptr)};
    static const automation::Member frame[] = {
        automation::Method<ElementDouble, &ElementDouble::DrawTransparent>("DrawTransparent", "")};
    static const automation::Interface own[] = {{"_Variable", variable}, {"_Frame", frame}, {"_Other", {}}};
    static const automation::Interface* const interfaces[][2] = {
        {&own[0], &InterfaceOf()}, {&own[1], &InterfaceOf()}, {&own[2], &InterfaceOf()}};
    static const automation::ClassInfo infos[] = {
        {"Variable", interfaces[0]}, {"Frame", interfaces[1]}, {"Other", interfaces[2]}};
    return infos[type_ == kVariableElement ? 0 : type_ == kFrameElement ? 1 : 2];
  }

 private:
  // Asked everywhere, so not noted.
  Long ItfHmiElement_ElementType() const override { return type_; }

  bool ItfHmiElement_IsTouchable() const override {
    NotingElement::ItfHmiElement_IsTouchable();
    return isTouchable;
  }
  Long ItfHmiElement_ID() const override { return id; }
  void ItfHmiElement_ID(Long pValue) override {
    NotingElement::ItfHmiElement_ID(pValue);
    id = pValue;
  }
  Long ItfHmiElement_GroupID() const override { return groupId; }
  void ItfHmiElement_GroupID(Long pValue) override {
    NotingElement::ItfHmiElement_GroupID(pValue);
    groupId = pValue;
  }
  bool ItfHmiElement_HitTestByPoint(Long pX, Long Py) const override {
    NotingElement::ItfHmiElement_HitTestByPoint(pX, Py);
    return isHitByPoint;
  }
  bool ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx, Long pRectDy) const override {
    NotingElement::ItfHmiElement_HitTestByRect(pRectXs, pRectYs, pRectDx, pRectDy);
    return isHitByRect;
  }
  enCollisionStatus ItfHmiElement_GetTransformState(automation::Variant& pcollisionMap) override {
    NotingElement::ItfHmiElement_GetTransformState(pcollisionMap);
    if (change) change(pcollisionMap);
    return state;
  }
  void ItfHmiElement_SetNewFontNumberByLookUpTBL(automation::Variant& pFontNumberLookUpTBL) override {
    NotingElement::ItfHmiElement_SetNewFontNumberByLookUpTBL(pFontNumberLookUpTBL);
    if (change) change(pFontNumberLookUpTBL);
  }
  /// An element of the same class under the name with a dash.
  std::shared_ptr<ItfHmiElement> ItfHmiElement_Replica() override {
    NotingElement::ItfHmiElement_Replica();
    if (!hasReplica) return nullptr;
    auto copy = std::make_shared<ElementDouble>(Name() + '\'', type_, Log());
    copy->id = id;
    copy->groupId = groupId;
    return copy;
  }

  Long type_;
};

/// Elements in a collection, without keys, as hosts hand them over.
inline automation::CollectionRef CollectionOf(std::initializer_list<ElementRef> elements) {
  auto collection = std::make_shared<automation::Collection>();
  for (const ElementRef& element : elements) collection->Add(element);
  return collection;
}

/// Puts an element into a group as a host that loads it does, under its key.
inline void Enter(clsGroup& group, const ElementRef& element) {
  group.ColGroup()->Add(element, clsGroup::KeyOf(*element));
}

/// A group of these members.
inline std::shared_ptr<clsGroup> GroupOf(std::initializer_list<ElementRef> members) {
  auto group = std::make_shared<clsGroup>();
  for (const ElementRef& member : members) Enter(*group, member);
  return group;
}

/// An empty group that tells this depth.
inline std::shared_ptr<clsGroup> OfDepth(Long depth) {
  auto group = std::make_shared<clsGroup>();
  group->Depth(depth);
  return group;
}

/// The member at a place, counted from 1, as a T; none when it is of another class.
template <class T = ItfHmiElement>
std::shared_ptr<T> MemberAt(const clsGroup& group, Long place) {
  return std::dynamic_pointer_cast<T>(group.ColGroup()->Item(place).Object());
}

}  // namespace quenzel7::test
