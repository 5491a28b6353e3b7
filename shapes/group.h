#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "framework/element_contract.h"
#include "platform/automation/collection.h"
#include "shapes/element_columns.h"

namespace quenzel7 {

/// Binds elements, groups among them, so that they move and are saved as one. It has no picture and no
/// position of its own: it passes the host's calls on to its members in their order, by name, as late-bound
/// hosts call them. What it does not pass on does nothing and reads 0, the font number and the touch order
/// included.
///
/// Members are elements of a collection that the host can read and replace; without one every operation on
/// the members raises error 91, with another object than an element in it error 13, and so does an element
/// that tells type 8 without being a clsGroup where the group needs more of it than the contract. Groups
/// nested more than 100 deep, which is how a group looks that a host has made a member of itself, raise
/// error 28.
///
/// Members are saved twice by each group that holds them: what is nested n deep is saved 2^n times. A host
/// that asks IsMaxDepth before it makes a group stays far from where that is felt.
class clsGroup : public ItfHmiElement {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsGroup";
  /// A group of this nesting height cannot become a member of a new group.
  static constexpr Long kMaxDepth = 3;
  /// Bytes of Props.
  static constexpr std::size_t kPropsSize = 12;

  clsGroup() = default;

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// The nesting height: 1 for a group of plain elements. It has no column; who loads a group sets it.
  Long Depth() const { return depth_; }
  void Depth(Long pValue) { depth_ = pValue; }

  /// The members, each under KeyOf, so that an object is a member only once.
  const automation::CollectionRef& ColGroup() const { return members_; }
  void ColGroup(automation::CollectionRef pValue) { members_ = std::move(pValue); }
  /// The key of an element among the members: the decimal text of the object's address.
  static std::string KeyOf(const ItfHmiElement& element);

  /// ID, GroupID and Depth as 12 bytes, 32 bits each, low byte first. Writing takes the first 12 bytes; error
  /// 9 when there are fewer.
  std::vector<Byte> Props() const;
  void Props(const std::vector<Byte>& pValue);

  /// Whether a variable among the members, not those of member groups, shows a global variable.
  bool IsContainsGlobalVars() const;

  /// Takes all elements of a collection in: each becomes a member, gets the group's ID as its GroupID, is
  /// saved, and leaves the collection. The depth grows by that of the deepest group among them.
  ///
  /// With a touchable element among them none is taken: message 6 is shown, and the group's own row is
  /// deleted.
  ///
  /// Errors before any is taken: 91 without a collection and for an item that is nothing, 13 for one that is
  /// no element, 5 for the group itself and for a group that holds it. Errors after which what was taken
  /// stays: 457 for an element that is a member already, 13 for one that tells type 8 and is no clsGroup, 91
  /// when the group has no collection of members, those of saving, and 6 when the depth does not fit 32 bits.
  void AddObjectsToGroup(automation::CollectionRef& p_ColObjects);

  /// Whether a new group of these elements would be nested too deep: one of them is a group of kMaxDepth or
  /// deeper.
  bool IsMaxDepth(automation::CollectionRef& p_ColObjects) const;

  /// Paints the frames among the members and those of member groups.
  void DrawFramesInGroup(Long pHdc, bool pDrawBoundingRect);
  /// The same at half strength over what is there, by `DrawTransparent` of each frame. Error 438 for a frame
  /// that has no such method.
  void DrawTransparentFramesInGroup(Long pHdc);

  /// Gives all members, and those of member groups, this ID; the group keeps its own.
  void SetElementsID(Long pID);

  /// Saves the members, writes the group's row, creating it when ID is -1, and saves the members again.
  /// Always true. Errors of the members; what was saved before stays saved.
  bool SaveToDB();

 protected:
  /// Calls a method of the element contract on all members; with more than two arguments it does nothing.
  void CallOnMembers(std::string_view name, automation::Arguments arguments = {}) const;

 private:
  struct Columns;

  /// Calls `visit` with each member, in order.
  template <class Visit>
  void EachMember(const Visit& visit) const;
  /// Whether `test` holds for a member; the first one ends the search.
  template <class Test>
  bool AnyMember(const Test& test) const;
  /// Error 5 when one of the elements is this group or a group that holds it.
  void RequireNoCycle(const automation::Collection& objects) const;

  // What is passed on to the members.
  void ItfHmiElement_Move(Long pDx, Long pDy) override;
  void ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) override;
  void ItfHmiElement_DrawToPrinter(Long pHdc, const std::string& pVarAlias) override;
  void ItfHmiElement_SaveInitialPosition() override { CallOnMembers("SaveInitialPosition"); }
  void ItfHmiElement_SaveLastLegalPosition() override { CallOnMembers("SaveLastLegalPosition"); }
  void ItfHmiElement_UpdateDisplayWithTransx() override { CallOnMembers("UpdateDisplayWithTransx"); }
  void ItfHmiElement_UpdateDisplayWithLastLegal() override { CallOnMembers("UpdateDisplayWithLastLegal"); }
  void ItfHmiElement_UpdateInitialDescriptor() override { CallOnMembers("UpdateInitialDescriptor"); }
  void ItfHmiElement_RestoreAllOperands() override { CallOnMembers("RestoreAllOperands"); }
  void ItfHmiElement_InvertColors() override { CallOnMembers("InvertColors"); }
  void ItfHmiElement_Rotate() override { CallOnMembers("Rotate"); }
  void ItfHmiElement_SetNewFontNumberByLookUpTBL(automation::Variant& pFontNumberLookUpTBL) override;

  void ItfHmiElement_DrawNonVarsInGroup(Long pHdc, bool pDrawBoundingRect) override;
  void ItfHmiElement_DrawVarsInGroup(Long pHdc, bool pDrawBoundingRect) override;
  bool ItfHmiElement_HitTestByPoint(Long pX, Long Py) const override;
  bool ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx, Long pRectDy) const override;
  enCollisionStatus ItfHmiElement_GetTransformState(automation::Variant& pcollisionMap) override;

  bool ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) override;
  void ItfHmiElement_SaveToDB() override { SaveToDB(); }
  void ItfHmiElement_DeleteFromDB() override;
  std::shared_ptr<ItfHmiElement> ItfHmiElement_Replica() override;

  Long ItfHmiElement_ElementType() const override;
  Long ItfHmiElement_ID() const override { return id_; }
  void ItfHmiElement_ID(Long pValue) override { id_ = pValue; }
  Long ItfHmiElement_GroupID() const override { return groupId_; }
  void ItfHmiElement_GroupID(Long pValue) override { groupId_ = pValue; }
  // Unlike shapes, which read 1 and 255.
  Long ItfHmiElement_FontNumber() const override { return 0; }
  Long ItfHmiElement_TabIndex() const override { return 0; }

  Long id_ = kNone;
  Long groupId_ = kNone;
  Long depth_ = 1;
  automation::CollectionRef members_ = std::make_shared<automation::Collection>();
};

}  // namespace quenzel7
