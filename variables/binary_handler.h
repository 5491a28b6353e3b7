#pragma once

#include <memory>
#include <vector>

#include "framework/creatable_class.h"
#include "platform/automation/collection.h"
#include "variables/binary_handler_contract.h"
#include "variables/key_table.h"

namespace quenzel7 {

/// What a graph is told to paint its picture with.
struct PictureRequest {
  Long hdc;
  /// Size in panel pixels.
  Long dx, dy;
  /// Panel colour number behind the graph.
  Long colorBack;
  /// Frame style of the variable.
  Long flat3D;
  Long fontNumber;
  /// Whether the frame of a stretch is shown.
  bool drawBoundingRect;
};

class VariableReport;

/// What all handlers share: the link operand, the settings by a key table, and the life of the operands that
/// a handler has beside the link operand.
class BinaryHandler : public ItfVarBinaryHandler {
 public:
  /// All settings as the contents of a property bag. Errors of PropertyBag::Contents.
  std::vector<Byte> GetBinaryData() const { return Keys().Data(*this); }
  /// Takes all settings. Errors: 331 for bytes that are no property bag, nothing being taken then; 327 for a
  /// setting that is not there, unless the class passes over it; those of conversions. What was taken by then
  /// stays.
  void SetBinaryData(const std::vector<Byte>& RHS) { Keys().Take(*this, RHS); }

  /// Bags of the operands that the handler has beside the link operand. Writing shares the collection.
  const automation::CollectionRef& ColOpPropBag() const { return operandBags_; }
  void ColOpPropBag(automation::CollectionRef pValue) { operandBags_ = std::move(pValue); }

  // What a variable asks of its handler beside the contract; each does nothing where it means nothing.

  /// Paints the picture that the drawing element then shows.
  virtual void PaintPicture(const PictureRequest&) {}
  /// Tells a handler that paints whenever something changes to leave that for a while.
  virtual void SuspendPainting(bool) {}
  /// Takes the colour of what is painted, a panel colour number.
  virtual void TakeColorFore(Long) {}
  /// What StorageText says of texts that are all in the library.
  static constexpr Long kFromLibrary = -1;
  /// kFromLibrary when the texts are strings of the library, in the font that it tells; 0 otherwise.
  virtual Long StorageText() const { return 0; }
  /// Brings the drawing element up to date: the state that is shown (from 1) and the variable's font.
  virtual void ReSyncDrawingElementParams(Long, Long) {}
  /// Replaces the backgrounds by the colours nearest to them on which a bevel can be read.
  virtual void ConvertFlatColorToClosestGradientColor() {}
  /// Writes the lines of the type into the variable's report.
  virtual void WriteReport(VariableReport&) const {}

 protected:
  /// One of the operands beside the link operand.
  struct ExtraOperand {
    /// Holds the owner too: a host that is asked for an operand may release it meanwhile.
    std::shared_ptr<OperandPair> pair;
    /// How many bags it has.
    int bags = 1;
    bool isRestored = true;
  };

  BinaryHandler();

  /// A pair of the handler's own.
  std::shared_ptr<OperandPair> Own(OperandPair& pair) { return {weak_from_this().lock(), &pair}; }

  virtual const HandlerKeys& Keys() const = 0;
  virtual std::shared_ptr<BinaryHandler> NewOfClass() const = 0;
  /// Those operands in the order of their bags.
  virtual std::vector<ExtraOperand> ExtraOperands() { return {}; }
  /// Releases what a class has beside the bags.
  virtual void ReleaseOwned() = 0;

  void ItfVarBinaryHandler_DeleteAllOperands() override;
  void ItfVarBinaryHandler_RestoreAllOperands(Long pVarID) override;
  std::vector<Byte> ItfVarBinaryHandler_BinaryData() const override { return GetBinaryData(); }
  void ItfVarBinaryHandler_BinaryData(std::vector<Byte> pValue) override { SetBinaryData(pValue); }
  Long ItfVarBinaryHandler_LinkOperandType() const override { return link_.type; }
  void ItfVarBinaryHandler_LinkOperandType(Long pValue) override { link_.type = pValue; }
  Long ItfVarBinaryHandler_LinkOperandAddress() const override { return link_.address; }
  void ItfVarBinaryHandler_LinkOperandAddress(Long pValue) override { link_.address = pValue; }
  HandlerRef ItfVarBinaryHandler_Replica() override;
  std::vector<Byte> ItfVarBinaryHandler_GetBinaryDataForCRC() const override {
    return Keys().DataForChangeKey(*this);
  }
  void ItfVarBinaryHandler_ReplaceOperand(Long pOpType, Long pOpAddress, Long pNewOpType,
                                          Long pNewOpAddress) override;
  void ItfVarBinaryHandler_AddOperandsToHmiOperands(Long pVarID) override;
  void ItfVarBinaryHandler_BuildOpPropBag() override;
  void ItfVarBinaryHandler_ReleaseResources() override;

  OperandPair link_;
  automation::CollectionRef operandBags_;
};

/// What every class of handlers that hosts create tells about itself: its name, its interfaces, how another
/// one is made. `Base` is what it is and gets its behaviour from; `Members<Handler>::kMembers` is the default
/// interface in slot order.
template <class Handler, class Base, template <class> class Members>
class HandlerClass : public Base {
 public:
  /// What hosts see of the class: the default interface, then the handler contract.
  static const automation::ClassInfo& ClassOf() {
    return CreatableClass<Handler>(Members<Handler>::kMembers, ItfVarBinaryHandler::InterfaceOf());
  }
  /// ClassOf, of any object of the class.
  const automation::ClassInfo& Class() const override { return ClassOf(); }

 protected:
  using Base::Base;

 private:
  std::shared_ptr<BinaryHandler> NewOfClass() const override { return std::make_shared<Handler>(); }
};

}  // namespace quenzel7
