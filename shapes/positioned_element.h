#pragma once

#include <memory>
#include <string>

#include "framework/columns.h"
#include "framework/element_contract.h"
#include "framework/position.h"
#include "platform/automation/collection.h"
#include "shapes/element_columns.h"
#include "shapes/operand_table.h"

namespace quenzel7 {

/// What every element with a place of its own shares: the four position descriptors with the drag sequence,
/// pick-ups, hit tests of its box, the touch and hide operands, and its row in the project.
///
/// A class adds its type number, what it paints, and the tables of the columns that it writes and reads.
class PositionedElement : public ItfHmiElement {
 public:
  /// The hide operand's address through the default interface: writing only stores it, and builds the operand
  /// bags anew when there is an operand and the element has a row.
  Long VisibleOpAddr() const { return visibleOpAddr_; }
  void VisibleOpAddr(Long pValue);

  /// Takes a collection of operand bags in place of the element's own; it is shared, not copied.
  void ColOpPropBag(automation::CollectionRef pValue) { operandBags_ = std::move(pValue); }
  /// The element's operand bags; none until they are built.
  const automation::CollectionRef& OperandBags() const { return operandBags_; }

  /// Writes the element's row, creating it when IsNew, and tells the host of the change. Always true.
  virtual bool SaveToDB();

  /// A new collection with a bag for each operand that the element has: touch, then hide, unless its class
  /// tells otherwise.
  virtual automation::CollectionRef BuildOpPropBag();

 protected:
  PositionedElement() = default;
  ~PositionedElement() override;

  /// Writes the columns that the class keeps up to date, those of an old row and of a new one alike. "ID" is
  /// the database's, and "GUID" is given once.
  virtual void WriteRow(ado::Recordset& row) = 0;
  /// Takes all columns that the class reads from the row.
  virtual void ReadRow(const ado::Recordset& row) = 0;

  /// Whether saving creates the row: the ID is -1, unless the class tells otherwise.
  virtual bool IsNew() const { return id_ == kNone; }
  /// Gives a new row its place in the drawing order of the page; here in the field, which is then written
  /// with the other columns.
  virtual void GiveOrder(ado::Recordset& newRow);
  /// GiveOrder of a class that gives the place to the row alone, whatever the field says.
  static void GiveOrderToRow(ado::Recordset& newRow);
  /// Takes from a row just written what only the database knows: its key. Errors of ReadColumns; the row is
  /// written by then.
  virtual void ReadBack(const ado::Recordset& row);
  /// Saves what the element keeps outside its row, once the row stands; nothing, unless the class tells
  /// otherwise. Its key is known by then, and the host is told of the change afterwards.
  virtual void SaveParts() {}
  /// Forgets what the panel has of the element.
  void DeleteDownload() const;
  void DeleteRow() const;
  /// Removes the rows of all operands, and takes those that the element has out of the project.
  void DeleteOperands() const;
  /// Takes the operands of the deleted element out of the project.
  virtual void ReleaseOperands() const;
  void ReleaseTouchOperand() const;
  void ReleaseHideOperand() const;

  /// Copies what every element has from another one through the writers of the default interface, in two
  /// parts, since the fields of the class come between them.
  void CopyIdentityAndPosition(const PositionedElement& source);
  void CopyOperands(const PositionedElement& source);

  bool HasTouchOperand() const { return touchOprndAddr_ != kNone; }
  bool HasHideOperand() const { return visibleOpAddr_ != kNone; }
  const Descriptor& Initial() const { return position_.At(kInitial); }
  const Descriptor& Displayed() const { return position_.At(kDisplayed); }

  Long ItfHmiElement_VisibleOpAddr() const override { return visibleOpAddr_; }
  void ItfHmiElement_VisibleOpAddr(Long pValue) override;
  bool ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) override;
  void ItfHmiElement_GetBoundingRect(Long& pXs, Long& pYs, Long& pDx, Long& pDy,
                                     const Long& pLocation) const override;
  bool ItfHmiElement_IsTouchable() const override { return HasTouchOperand(); }
  void ItfHmiElement_IsTouchable(bool pValue) override;
  void ItfHmiElement_SaveInitialPosition() override;
  void ItfHmiElement_SaveLastLegalPosition() override { position_.Copy(kTransformed, kLastLegal); }
  void ItfHmiElement_UpdateDisplayWithTransx() override { position_.Copy(kTransformed, kDisplayed); }
  void ItfHmiElement_UpdateDisplayWithLastLegal() override { position_.Copy(kLastLegal, kDisplayed); }
  void ItfHmiElement_UpdateInitialDescriptor() override { position_.Copy(kLastLegal, kInitial); }
  void ItfHmiElement_SaveToDB() override { SaveToDB(); }
  void ItfHmiElement_Stretch(Long pDx, Long pDy, Long pDirection) override;
  enPickUpDirection ItfHmiElement_GetPupDirection(Long pX, Long Py, Long pWidth) const override;
  bool ItfHmiElement_HitTestByPoint(Long pX, Long Py) const override;
  std::string ItfHmiElement_GetToolTipText() const override;
  bool ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx, Long pRectDy) const override;
  void ItfHmiElement_Move(Long pDx, Long pDy) override;
  bool ItfHmiElement_IsCanceled() const override { return isCanceled_; }
  void ItfHmiElement_IsCanceled(bool pValue) override { isCanceled_ = pValue; }
  void ItfHmiElement_DeleteFromDB() override;
  Long ItfHmiElement_Xs() const override { return Initial().xs; }
  void ItfHmiElement_Xs(Long pValue) override { position_.SetAll(&Descriptor::xs, pValue); }
  Long ItfHmiElement_Ys() const override { return Initial().ys; }
  void ItfHmiElement_Ys(Long pValue) override { position_.SetAll(&Descriptor::ys, pValue); }
  Long ItfHmiElement_Dx() const override { return Initial().dx; }
  void ItfHmiElement_Dx(Long pValue) override { position_.SetAll(&Descriptor::dx, pValue); }
  Long ItfHmiElement_Dy() const override { return Initial().dy; }
  void ItfHmiElement_Dy(Long pValue) override { position_.SetAll(&Descriptor::dy, pValue); }
  void ItfHmiElement_GetOptimalDimensions(Long& pXs, Long& pYs, Long& pDx, Long& pDy) const override;
  Long ItfHmiElement_ID() const override { return id_; }
  void ItfHmiElement_ID(Long pValue) override { id_ = pValue; }
  void ItfHmiElement_RestoreAllOperands() override;
  Long ItfHmiElement_TouchOprndAddr() const override { return touchOprndAddr_; }
  void ItfHmiElement_TouchOprndAddr(Long pValue) override;
  Long ItfHmiElement_GroupID() const override { return groupId_; }
  void ItfHmiElement_GroupID(Long pValue) override { groupId_ = pValue; }
  enCollisionStatus ItfHmiElement_GetTransformState(automation::Variant& pcollisionMap) override;
  automation::Variant ItfHmiElement_UpdateBoundingRectangle(Long pDx, Long pDy, Long pDirection) override;
  Long ItfHmiElement_OrderIndex() const override { return orderIndex_; }
  void ItfHmiElement_OrderIndex(Long pValue) override { orderIndex_ = pValue; }

  /// An entry of column tables: one number of descriptor 1. Loading goes through the property's writer.
  template <class Element, Long Descriptor::*Number, void (ItfHmiElement::*Write)(Long)>
  static constexpr Column<Element> PositionColumn(std::string_view name) {
    return {name, [](const Element& element) { return automation::Variant(element.Initial().*Number); },
            [](Element& element, const automation::Variant& value) {
              (element.*Write)(automation::To<Long>(value));
            }};
  }

  // clang-format off
  /// Entries of column tables.
  template <class Element>
  struct PositionColumns {
    static constexpr auto kId = FieldColumn<Element, &Element::id_>("ID");
    static constexpr auto kGroupId = FieldColumn<Element, &Element::groupId_>("GroupID");
    static constexpr auto kXs = PositionColumn<Element, &Descriptor::xs, &ItfHmiElement::Xs>("Xs");
    static constexpr auto kYs = PositionColumn<Element, &Descriptor::ys, &ItfHmiElement::Ys>("Ys");
    static constexpr auto kDx = PositionColumn<Element, &Descriptor::dx, &ItfHmiElement::Dx>("Dx");
    static constexpr auto kDy = PositionColumn<Element, &Descriptor::dy, &ItfHmiElement::Dy>("Dy");
    static constexpr auto kTouchOprndAddr = FieldColumn<Element, &Element::touchOprndAddr_>("TouchOprndAddr");
    static constexpr auto kVisibleOpAddr = FieldColumn<Element, &Element::visibleOpAddr_>("VisibleOpAddr");
    static constexpr auto kOrderIndex = FieldColumn<Element, &Element::orderIndex_>("OrderIndex");
  };
  // clang-format on

  /// Entries of operand tables: each one there when the element has the operand.
  template <class Element>
  struct PresentOperands {
    static constexpr ElementOperand<Element> kTouch = {
        eOP_TouchOperand, &Element::touchOprndAddr_, nullptr,
        [](const Element& element) { return element.HasTouchOperand(); },
        [](const Element& element) { return element.HasTouchOperand(); }};
    static constexpr ElementOperand<Element> kHide = {
        eOP_VisibleOperand, &Element::visibleOpAddr_, nullptr,
        [](const Element& element) { return element.HasHideOperand(); },
        [](const Element& element) { return element.HasHideOperand(); }};
  };

  Long id_ = kNone;
  Long groupId_ = kNone;
  Position position_;
  Long touchOprndAddr_ = kNone;
  Long visibleOpAddr_ = kNone;
  automation::CollectionRef operandBags_;
  Long orderIndex_ = 0;
  bool isCanceled_ = false;

 private:
  struct Operands;
};

}  // namespace quenzel7
