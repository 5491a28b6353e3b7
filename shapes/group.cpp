#include "shapes/group.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "framework/element_types.h"
#include "framework/library_services.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/member.h"

namespace quenzel7 {
namespace {

using automation::CollectionRef;
using automation::Mark;
using automation::Required;
using automation::Variant;

/// The element at a place of a collection of elements.
ElementRef ElementAt(const automation::Collection& elements, Long place) {
  return elements.ObjectAt<ItfHmiElement>(place);
}

bool IsGroup(const ItfHmiElement& element) { return element.ElementType() == kGroupElement; }

/// An element that tells that it is a group, as one.
clsGroup& AsGroup(ItfHmiElement& element) {
  auto* group = dynamic_cast<clsGroup*>(&element);
  if (!group) automation::detail::RaiseWrongClass(element);
  return *group;
}

/// The depth of an element that is a group, 0 of another.
Long DepthOf(ItfHmiElement& element) { return IsGroup(element) ? AsGroup(element).Depth() : 0; }

/// Whether one group is the other or holds it at any depth. What is no group is passed over, be it an element
/// or not.
bool IsOrHolds(const clsGroup& group, const clsGroup& sought) {
  std::vector<const clsGroup*> found{&group};
  for (std::size_t next = 0; next < found.size(); ++next) {
    if (found[next] == &sought) return true;
    const CollectionRef members = found[next]->ColGroup();
    for (Long place = 1; members && place <= members->Count(); ++place) {
      const auto* object = members->Item(place).If<automation::ObjectRef>();
      const auto* member = object ? dynamic_cast<const clsGroup*>(object->get()) : nullptr;
      if (member && std::find(found.begin(), found.end(), member) == found.end()) found.push_back(member);
    }
  }
  return false;
}

void DeleteRow(Long id) {
  ProjectConnection()->Execute("DELETE * FROM HMI_Elements WHERE ID=" + std::to_string(id));
}

/// A walk over the members of a group. Walks within walks come from groups within groups, and from hosts that
/// ask a group while they are told of a member; without end they come from a group that is its own member.
/// They are counted for the thread: a ring of many groups ends like a ring of one.
class Walk {
 public:
  Walk() {
    constexpr Long kMostWalks = 100;
    if (underWay_ == kMostWalks) {
      throw automation::AutomationError(automation::ErrorNumber::OutOfStackSpace,
                                        "groups are nested more than " + std::to_string(kMostWalks) +
                                            " deep: one of them is a member of itself");
    }
    ++underWay_;
  }
  Walk(const Walk&) = delete;
  Walk& operator=(const Walk&) = delete;
  ~Walk() { --underWay_; }

 private:
  static thread_local Long underWay_;
};

thread_local Long Walk::underWay_ = 0;

#define QUENZEL7_GROUP_PROPERTY(Type, Name, Documentation, ...)                       \
  automation::Property<Type>(#Name, Documentation, AUTOMATION_GETTER(clsGroup, Name), \
                             AUTOMATION_SETTER(clsGroup, Type, Name) __VA_OPT__(, ) __VA_ARGS__)
#define QUENZEL7_GROUP_METHOD(Name, Documentation, ...) \
  automation::Method<clsGroup, &clsGroup::Name>(#Name, Documentation __VA_OPT__(, ) __VA_ARGS__)

constexpr automation::Member kMembers[] = {
    QUENZEL7_GROUP_PROPERTY(Long, ID, "Key of the group's row; -1 until the row exists.", Mark::Identity),
    automation::WriterFirst(QUENZEL7_GROUP_PROPERTY(
        Long, GroupID, "ID of the group that owns this one; -1 when it stands alone.", Mark::Identity)),
    automation::WriterFirst(QUENZEL7_GROUP_PROPERTY(
        Long, Depth, "Nesting height: 1 for a group of plain elements.", Mark::Identity)),
    automation::WriterFirst(automation::WithGetter(
        automation::PutRefProperty<CollectionRef>("ColGroup",
                                                  "The members, each under the decimal text of its address.",
                                                  AUTOMATION_SETTER(clsGroup, CollectionRef, ColGroup)),
        AUTOMATION_GETTER(clsGroup, ColGroup))),
    QUENZEL7_GROUP_PROPERTY(std::vector<Byte>, Props, "ID, GroupID and Depth as 12 bytes, low byte first.",
                            Mark::Identity),
    QUENZEL7_GROUP_METHOD(IsContainsGlobalVars,
                          "Whether a variable among the members shows a global variable."),
    QUENZEL7_GROUP_METHOD(AddObjectsToGroup,
                          "Takes all elements of a collection in and saves them; none when one is touchable.",
                          "p_ColObjects"),
    QUENZEL7_GROUP_METHOD(IsMaxDepth, "Whether a new group of these elements would be nested too deep.",
                          "p_ColObjects"),
    QUENZEL7_GROUP_METHOD(DrawFramesInGroup, "Paints the frames in the group.", "pHdc, pDrawBoundingRect"),
    QUENZEL7_GROUP_METHOD(DrawTransparentFramesInGroup,
                          "Paints the frames in the group at half strength over what is there.", "pHdc"),
    QUENZEL7_GROUP_METHOD(LoadFromDB, "Takes ID and GroupID from a row; the members are the host's to load.",
                          "pRsElement"),
    QUENZEL7_GROUP_METHOD(SetElementsID, "Gives all members, at any depth, this ID.", "pID"),
    QUENZEL7_GROUP_METHOD(SaveToDB, "Writes the rows of the group and its members; always True."),
    automation::Method<clsGroup, &ItfHmiElement::CreateStaticElementPrinterReport>(
        "ItfHmiElement_CreateStaticElementPrinterReport",
        "Nothing: a group has no lines in a printed report.", "pVSPrinter"),
};

#undef QUENZEL7_GROUP_PROPERTY
#undef QUENZEL7_GROUP_METHOD

}  // namespace

// clang-format off
struct clsGroup::Columns {
  using Group = clsGroup;

  static constexpr auto kGroupId = FieldColumn<Group, &Group::groupId_>("GroupID");

  static constexpr auto kSave = MakeColumnTable(
      TypeColumn<Group>(),
      DisplayColumn<Group>(),
      kGroupId,
      ZeroColumn<Group>("ColorBack"), ZeroColumn<Group>("ColorFore"), ZeroColumn<Group>("ColorHatch"),
      ZeroColumn<Group>("PenStyle"), ZeroColumn<Group>("PenWidth"), ZeroColumn<Group>("HatchStyle"),
      NoOperandColumn<Group>("TouchOprndAddr"), NoOperandColumn<Group>("KeypadSuccessOpAddr"),
      NoOperandColumn<Group>("EnabledOpAddr"), NoOperandColumn<Group>("HighlightOpAddr"),
      NoOperandColumn<Group>("VisibleOpAddr"),
      ZeroColumn<Group>("FontNumber"), ZeroColumn<Group>("Alignment"), ZeroColumn<Group>("Flat3D"),
      ZeroColumn<Group>("VarType"), ZeroColumn<Group>("VarKeyPadEntry"),
      ZeroColumn<Group>("VarOprndType"), ZeroColumn<Group>("VarOprndAddr"),
      ZeroColumn<Group>("GlobalVarID"), ZeroColumn<Group>("DefaultDisplay"));

  static constexpr auto kLoad = MakeColumnTable(FieldColumn<Group, &Group::id_>("ID"), kGroupId);
};
// clang-format on

const automation::ClassInfo& clsGroup::ClassOf() {
  static const std::string interfaceName = "_" + std::string(kClassName);
  static const automation::Interface interface(interfaceName, kMembers);
  static const automation::Interface* const interfaces[] = {&interface, &InterfaceOf()};
  static const automation::ClassInfo info{
      kClassName, interfaces, []() -> automation::ObjectRef { return std::make_shared<clsGroup>(); }};
  return info;
}

std::string clsGroup::KeyOf(const ItfHmiElement& element) {
  return std::to_string(reinterpret_cast<std::uintptr_t>(&element));
}

std::vector<Byte> clsGroup::Props() const {
  std::vector<Byte> bytes;
  for (const Long number : {id_, groupId_, depth_}) {
    for (int shift = 0; shift < 32; shift += 8) {
      bytes.push_back(static_cast<Byte>(static_cast<std::uint32_t>(number) >> shift));
    }
  }
  return bytes;
}

void clsGroup::Props(const std::vector<Byte>& pValue) {
  if (pValue.size() < kPropsSize) {
    throw automation::AutomationError(automation::ErrorNumber::SubscriptOutOfRange,
                                      "Props takes " + std::to_string(kPropsSize) + " bytes, " +
                                          std::to_string(pValue.size()) + " were given");
  }
  auto byte = pValue.begin();
  for (Long* const number : {&id_, &groupId_, &depth_}) {
    std::uint32_t value = 0;
    for (int shift = 0; shift < 32; shift += 8) value |= std::uint32_t{*byte++} << shift;
    *number = static_cast<Long>(value);
  }
}

template <class Test>
bool clsGroup::AnyMember(const Test& test) const {
  const Walk walk;
  // Held, since a member may make the host replace the collection.
  const CollectionRef members = members_;
  for (Long place = 1; place <= Required(members).Count(); ++place) {
    if (test(*ElementAt(*members, place))) return true;
  }
  return false;
}

template <class Visit>
void clsGroup::EachMember(const Visit& visit) const {
  AnyMember([&visit](ItfHmiElement& member) {
    visit(member);
    return false;
  });
}

void clsGroup::CallOnMembers(std::string_view name, automation::Arguments arguments) const {
  if (arguments.size() > 2) return;
  EachMember([name, arguments](ItfHmiElement& member) {
    automation::CallByName(member, InterfaceOf(), name, automation::CallKind::Method, arguments);
  });
}

bool clsGroup::IsContainsGlobalVars() const {
  return AnyMember([](ItfHmiElement& member) {
    return member.ElementType() == kVariableElement &&
           automation::To<Long>(automation::GetByName(member, "GlobalVarID")) > 0;
  });
}

void clsGroup::RequireNoCycle(const automation::Collection& objects) const {
  for (Long place = 1; place <= objects.Count(); ++place) {
    const ElementRef element = ElementAt(objects, place);
    const auto* group = dynamic_cast<const clsGroup*>(element.get());
    if (!group || !IsOrHolds(*group, *this)) continue;
    throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall,
                                      "group " + std::to_string(id_) + " cannot become a member of itself");
  }
}

void clsGroup::AddObjectsToGroup(CollectionRef& p_ColObjects) {
  // Held, since an element that is saved may make the host let go of it.
  const CollectionRef held = p_ColObjects;
  automation::Collection& objects = Required(held);
  for (Long place = 1; place <= objects.Count(); ++place) {
    if (!ElementAt(objects, place)->IsTouchable()) continue;
    constexpr Long kNoTouchableMembers = 6;
    ShowLibraryMessage(kNoTouchableMembers);
    DeleteRow(id_);
    return;
  }
  RequireNoCycle(objects);
  const Long count = objects.Count();
  Long deepest = 0;
  for (Long taken = 0; taken < count; ++taken) {
    const ElementRef element = ElementAt(objects, 1);
    deepest = std::max(deepest, DepthOf(*element));
    Required(members_).Add(element, KeyOf(*element));
    element->GroupID(id_);
    element->SaveToDB();
    objects.Remove(1);
  }
  depth_ = automation::Add(depth_, deepest);
}

bool clsGroup::IsMaxDepth(CollectionRef& p_ColObjects) const {
  const automation::Collection& objects = Required(p_ColObjects);
  Long deepest = 0;
  for (Long place = 1; place <= objects.Count(); ++place) {
    deepest = std::max(deepest, DepthOf(*ElementAt(objects, place)));
  }
  return deepest >= kMaxDepth;
}

void clsGroup::DrawFramesInGroup(Long pHdc, bool pDrawBoundingRect) {
  EachMember([=](ItfHmiElement& member) {
    if (member.ElementType() == kFrameElement) member.Draw(pHdc, pDrawBoundingRect);
    if (IsGroup(member)) AsGroup(member).DrawFramesInGroup(pHdc, pDrawBoundingRect);
  });
}

void clsGroup::DrawTransparentFramesInGroup(Long pHdc) {
  EachMember([=](ItfHmiElement& member) {
    if (member.ElementType() == kFrameElement) automation::InvokeByName(member, "DrawTransparent", {pHdc});
    if (IsGroup(member)) AsGroup(member).DrawTransparentFramesInGroup(pHdc);
  });
}

void clsGroup::ItfHmiElement_DrawNonVarsInGroup(Long pHdc, bool pDrawBoundingRect) {
  EachMember([=](ItfHmiElement& member) {
    switch (member.ElementType()) {
      case kVariableElement:
      case kFrameElement:
        return;
      case kGroupElement:
        return member.DrawNonVarsInGroup(pHdc, pDrawBoundingRect);
      default:
        return member.Draw(pHdc, pDrawBoundingRect);
    }
  });
}

void clsGroup::ItfHmiElement_DrawVarsInGroup(Long pHdc, bool pDrawBoundingRect) {
  EachMember([=](ItfHmiElement& member) {
    if (member.ElementType() == kVariableElement) member.Draw(pHdc, pDrawBoundingRect);
    if (IsGroup(member)) member.DrawVarsInGroup(pHdc, pDrawBoundingRect);
  });
}

void clsGroup::SetElementsID(Long pID) {
  EachMember([=](ItfHmiElement& member) {
    member.ID(pID);
    if (IsGroup(member)) AsGroup(member).SetElementsID(pID);
  });
}

void clsGroup::ItfHmiElement_Move(Long pDx, Long pDy) {
  Variant arguments[] = {pDx, pDy};
  CallOnMembers("Move", arguments);
}

void clsGroup::ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) {
  Variant arguments[] = {pHdc, pDrawBoundingRect};
  CallOnMembers("Draw", arguments);
}

void clsGroup::ItfHmiElement_DrawToPrinter(Long pHdc, const std::string& pVarAlias) {
  Variant arguments[] = {pHdc, pVarAlias};
  CallOnMembers("DrawToPrinter", arguments);
}

void clsGroup::ItfHmiElement_SetNewFontNumberByLookUpTBL(Variant& pFontNumberLookUpTBL) {
  CallOnMembers("SetNewFontNumberByLookUpTBL", {&pFontNumberLookUpTBL, 1});
}

bool clsGroup::ItfHmiElement_HitTestByPoint(Long pX, Long Py) const {
  return AnyMember([=](const ItfHmiElement& member) { return member.HitTestByPoint(pX, Py); });
}

bool clsGroup::ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx, Long pRectDy) const {
  return AnyMember(
      [=](const ItfHmiElement& member) { return member.HitTestByRect(pRectXs, pRectYs, pRectDx, pRectDy); });
}

enCollisionStatus clsGroup::ItfHmiElement_GetTransformState(Variant& pcollisionMap) {
  // Out of range outranks an overlap, whichever member comes first.
  for (const enCollisionStatus status : {eCS_OutOfRAnge, eCS_Overlap}) {
    const bool isGiven = AnyMember([&pcollisionMap, status](ItfHmiElement& member) {
      return member.GetTransformState(pcollisionMap) == status;
    });
    if (isGiven) return status;
  }
  return eCS_Legall;
}

bool clsGroup::ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) {
  ReadColumns<clsGroup>(pRsElement, *this, Columns::kLoad);
  return false;
}

bool clsGroup::SaveToDB() {
  const auto saveMembers = [this] { EachMember([](ItfHmiElement& member) { member.SaveToDB(); }); };
  const auto row = OpenRowsForWriting("SELECT * FROM HMI_Elements WHERE ID=" + std::to_string(id_));
  saveMembers();
  if (id_ == kNone) row->AddNew();
  WriteColumns<clsGroup>(*row, *this, Columns::kSave);
  row->Update();
  id_ = automation::To<Long>(row->Get("ID"));
  // Once more: hosts count on the members being saved and told of last.
  saveMembers();
  row->Close();
  return true;
}

void clsGroup::ItfHmiElement_DeleteFromDB() {
  DeleteRow(id_);
  CallOnMembers("DeleteFromDb");
}

std::shared_ptr<ItfHmiElement> clsGroup::ItfHmiElement_Replica() {
  auto copy = std::make_shared<clsGroup>();
  copy->Props(Props());
  EachMember([&copy](ItfHmiElement& member) {
    const ElementRef memberCopy = member.Replica();
    copy->members_->Add(memberCopy, KeyOf(Required(memberCopy)));
  });
  return copy;
}

Long clsGroup::ItfHmiElement_ElementType() const { return kGroupElement; }

}  // namespace quenzel7
