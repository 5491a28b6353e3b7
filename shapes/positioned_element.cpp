#include "shapes/positioned_element.h"

#include <utility>

#include "framework/geometry.h"
#include "framework/operands.h"
#include "framework/project.h"
#include "framework/transform_state.h"
#include "framework/values.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/convert.h"
#include "shapes/pick_ups.h"
#include "shapes/stretch.h"

namespace quenzel7 {

using automation::Add;
using automation::Subtract;

struct PositionedElement::Operands : PresentOperands<PositionedElement> {
  static constexpr ElementOperand<PositionedElement> kTable[] = {kTouch, kHide};
};

PositionedElement::~PositionedElement() = default;

void PositionedElement::VisibleOpAddr(Long pValue) {
  visibleOpAddr_ = pValue;
  if (HasHideOperand() && id_ != kNone) operandBags_ = BuildOpPropBag();
}

void PositionedElement::ItfHmiElement_VisibleOpAddr(Long pValue) {
  if (pValue == kNone) RemoveOperandRow(id_, kMemoryBit, visibleOpAddr_, kLocalNetwork, eOP_VisibleOperand);
  VisibleOpAddr(pValue);
}

void PositionedElement::ItfHmiElement_TouchOprndAddr(Long pValue) {
  touchOprndAddr_ = pValue;
  if (HasTouchOperand()) operandBags_ = BuildOpPropBag();
}

void PositionedElement::ItfHmiElement_IsTouchable(bool pValue) {
  if (pValue) return;
  RemoveOperandRow(id_, kMemoryBit, touchOprndAddr_, kLocalNetwork, eOP_TouchOperand);
  touchOprndAddr_ = kNone;
}

automation::CollectionRef PositionedElement::BuildOpPropBag() {
  return BagsOf<PositionedElement>(*this, Operands::kTable);
}

void PositionedElement::ItfHmiElement_RestoreAllOperands() {
  RestoreFromBags<PositionedElement>(*this, operandBags_, Operands::kTable);
}

bool PositionedElement::ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) {
  ReadRow(pRsElement);
  operandBags_ = BuildOpPropBag();
  return false;
}

bool PositionedElement::SaveToDB() {
  const auto row = OpenRowsForWriting("SELECT * FROM HMI_ELEMENTS WHERE ID=" + std::to_string(id_));
  const bool isNew = IsNew();
  if (isNew) {
    row->AddNew();
    row->Put("GUID", NewUniqueNumber());
    GiveOrder(*row);
  }
  WriteRow(*row);
  row->Update();
  ReadBack(*row);
  row->Close();
  SaveParts();
  NotifyElementChanged(id_);
  if (isNew) NotifyPageChanged(CurrentDisplayID());
  return true;
}

void PositionedElement::GiveOrder(ado::Recordset&) { orderIndex_ = NextOrderIndex(); }

void PositionedElement::GiveOrderToRow(ado::Recordset& newRow) { newRow.Put("OrderIndex", NextOrderIndex()); }

void PositionedElement::ReadBack(const ado::Recordset& row) {
  static constexpr auto kColumns = MakeColumnTable(PositionColumns<PositionedElement>::kId);
  ReadColumns<PositionedElement>(row, *this, kColumns);
}

void PositionedElement::ItfHmiElement_DeleteFromDB() {
  DeleteDownload();
  DeleteRow();
  DeleteOperands();
  NotifyPageChanged(CurrentDisplayID());
}

void PositionedElement::DeleteDownload() const {
  const ado::ConnectionRef connection = ProjectConnection();
  const auto row = connection->Execute("SELECT * FROM HMI_Elements WHERE ID=" + std::to_string(id_));
  const Long guid = automation::To<Long>(row->Get("Guid"));
  row->Close();
  connection->Execute("DELETE FROM DownloadDLUs WHERE GUID = " + std::to_string(guid));
}

void PositionedElement::DeleteRow() const {
  ProjectConnection()->Execute("DELETE * FROM HMI_Elements WHERE ID=" + std::to_string(id_));
}

void PositionedElement::DeleteOperands() const {
  RemoveAllOperandRows(id_);
  ReleaseOperands();
}

void PositionedElement::ReleaseOperands() const {
  ReleaseTouchOperand();
  ReleaseHideOperand();
}

void PositionedElement::ReleaseTouchOperand() const {
  if (HasTouchOperand()) ReleaseOperand(kMemoryBit, touchOprndAddr_);
}

void PositionedElement::ReleaseHideOperand() const {
  // Tests 0 where every other test of this field is against -1: an element without a hide operand releases
  // address -1. Hosts rely on it.
  if (visibleOpAddr_ != 0) ReleaseOperand(kMemoryBit, visibleOpAddr_);
}

void PositionedElement::CopyIdentityAndPosition(const PositionedElement& source) {
  ID(source.ID());
  GroupID(source.GroupID());
  Xs(source.Xs());
  Ys(source.Ys());
  Dx(source.Dx());
  Dy(source.Dy());
}

void PositionedElement::CopyOperands(const PositionedElement& source) {
  TouchOprndAddr(source.TouchOprndAddr());
  VisibleOpAddr(source.VisibleOpAddr());
  // Shared with the source, in place of what the two writers built.
  ColOpPropBag(source.operandBags_);
  OrderIndex(source.OrderIndex());
}

void PositionedElement::ItfHmiElement_GetBoundingRect(Long& pXs, Long& pYs, Long& pDx, Long& pDy,
                                                      const Long& pLocation) const {
  const Descriptor& descriptor = position_.At(pLocation);
  pXs = descriptor.xs;
  pYs = descriptor.ys;
  pDx = descriptor.dx;
  pDy = descriptor.dy;
}

void PositionedElement::ItfHmiElement_GetOptimalDimensions(Long& pXs, Long& pYs, Long& pDx, Long& pDy) const {
  ItfHmiElement_GetBoundingRect(pXs, pYs, pDx, pDy, kInitial);
}

void PositionedElement::ItfHmiElement_SaveInitialPosition() {
  position_.Copy(kInitial, kLastLegal);
  position_.Copy(kInitial, kDisplayed);
}

void PositionedElement::ItfHmiElement_Move(Long pDx, Long pDy) {
  Descriptor& proposed = position_.At(kTransformed);
  proposed.xs = Add(Initial().xs, pDx);
  proposed.ys = Add(Initial().ys, pDy);
  proposed.dx = Initial().dx;
  proposed.dy = Initial().dy;
}

void PositionedElement::ItfHmiElement_Stretch(Long pDx, Long pDy, Long pDirection) {
  const StretchResult result = Stretched(Initial(), pDx, pDy, pDirection);
  position_.At(kTransformed) = result.descriptor;
  // A result one pixel wide or high is thrown away. Size 0 passes: the transform state tells of it.
  if (result.moved && (result.descriptor.dx == 1 || result.descriptor.dy == 1)) {
    position_.Copy(kLastLegal, kTransformed);
  }
}

automation::Variant PositionedElement::ItfHmiElement_UpdateBoundingRectangle(Long pDx, Long pDy,
                                                                             Long pDirection) {
  Stretch(pDx, pDy, pDirection);
  return {};
}

enPickUpDirection PositionedElement::ItfHmiElement_GetPupDirection(Long pX, Long Py, Long pWidth) const {
  return PickUpAt(Initial(), pX, Py, pWidth);
}

bool PositionedElement::ItfHmiElement_HitTestByPoint(Long pX, Long Py) const {
  const auto [xs, ys, dx, dy] = Initial();
  return xs <= pX && pX <= Subtract(Add(xs, dx), 1) && ys <= Py && Py <= Subtract(Add(ys, dy), 1);
}

bool PositionedElement::ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx,
                                                    Long pRectDy) const {
  const auto [xs, ys, dx, dy] = Initial();
  return RectsMeet(pRectXs, pRectYs, pRectDx, pRectDy, xs, ys, Subtract(dx, 1), Subtract(dy, 1));
}

enCollisionStatus PositionedElement::ItfHmiElement_GetTransformState(automation::Variant& pcollisionMap) {
  return GetElementTransformState(*this, pcollisionMap);
}

std::string PositionedElement::ItfHmiElement_GetToolTipText() const {
  const auto [xs, ys, dx, dy] = Displayed();
  const std::string touch = HasTouchOperand() ? "(Touch - MB " + std::to_string(touchOprndAddr_) + ") " : "";
  return touch + "Pos: " + std::to_string(xs) + ", " + std::to_string(ys) + " ; Size: " + std::to_string(dx) +
         ", " + std::to_string(dy);
}

}  // namespace quenzel7
