#include "variables/var_element.h"

#include <string>

#include "framework/library_services.h"
#include "framework/touch_style.h"
#include "images/image_links.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/call_by_name.h"
#include "platform/platform.h"
#include "shapes/element_setting.h"
#include "shapes/frame_styles.h"
#include "variables/calendar_words.h"
#include "variables/variable_report.h"

namespace quenzel7 {

clsVar::clsVar()
    : colorBack_(ElementSetting(ElementDefault::TextColorBack, "103")),
      colorBackTouch_(colorBack_),
      fontNumber_(GetDefaultFontNumber()),
      descriptionFontNumber_(Platform::Current().fontService->GetDefaultDescriptionFontNumber()),
      listText_(std::make_shared<clsVarTextElement>()) {
  operandBags_ = std::make_shared<automation::Collection>();
}

clsVar::~clsVar() {
  for (HandlerRef& handler : handlers_) {
    const HandlerRef released = std::exchange(handler, nullptr);
    try {
      if (released) released->ReleaseResources();
    } catch (const std::exception&) {
      // A handler of the host's own that fails must not take the others with it, nor the host.
    }
  }
}

// --- Handlers ---

namespace {

bool IsInTable(Long type) { return type >= 1 && type <= kMostVarType; }

std::size_t PlaceInTable(Long type) { return static_cast<std::size_t>(type) - 1; }

}  // namespace

HandlerRef clsVar::BinaryHandlers(enVarType pVarType) {
  if (!IsInTable(pVarType)) return nullptr;
  HandlerRef& handler = handlers_[PlaceInTable(pVarType)];
  if (!handler) {
    HandlerRef made = NewHandler(pVarType);
    // A host that is asked for settings meanwhile may have put one there.
    if (!handler) handler = std::move(made);
  }
  return handler;
}

void clsVar::SetBinaryHandler(enVarType pVarType, HandlerRef pBinaryHandler) {
  if (!IsInTable(pVarType)) {
    throw automation::AutomationError(
        automation::ErrorNumber::SubscriptOutOfRange,
        "a handler of type " + std::to_string(pVarType) + " was given, there are types 1 to 30");
  }
  handlers_[PlaceInTable(pVarType)] = std::move(pBinaryHandler);
}

HandlerRef clsVar::Handler() const {
  if (!IsInTable(varType_) || !handlers_[PlaceInTable(varType_)]) {
    throw automation::AutomationError(
        automation::ErrorNumber::ObjectNotSet,
        "variable " + std::to_string(id_) + " of type " + std::to_string(varType_) + " has no handler");
  }
  return handlers_[PlaceInTable(varType_)];
}

std::shared_ptr<BinaryHandler> clsVar::TypedHandler() const {
  const HandlerRef handler = Handler();
  auto typed = std::dynamic_pointer_cast<BinaryHandler>(handler);
  if (!typed) automation::detail::RaiseWrongClass(*handler);
  return typed;
}

ElementRef clsVar::Drawing() const {
  ElementRef element = Handler()->DrawingElement();
  if (!element) automation::detail::RaiseObjectNotSet();
  return element;
}

bool clsVar::ShowsLibraryText() const {
  return kLibraryTextTypes.Has(varType_) && TypedHandler()->StorageText() == BinaryHandler::kFromLibrary;
}

void clsVar::VarType(enVarType pValue) {
  const Long panel = Platform::Current().panelService->CurrentPanelType();
  varType_ = pValue;
  BinaryHandlers(pValue);
  if (const auto setting = ColorBackSettingOf(pValue)) colorBack_ = ElementSetting(*setting, "103");
  if (kFlatTypes.Has(pValue)) flat3D_ = kFlat;
  // The font that these panels have for strings, whatever fonts the project has.
  constexpr Long kPanelsOfStringFont[] = {13, 14};
  constexpr Long kStringFont = 246995310;
  const bool hasStringFont = panel == kPanelsOfStringFont[0] || panel == kPanelsOfStringFont[1];
  if (hasStringFont && (pValue == eVT_DisplayString || pValue == eVT_PassString)) {
    descriptionFontNumber_ = kStringFont;
  }
}

bool clsVar::IsCalendarVar() const {
  if (varType_ != eVT_TimeFunctions) return false;
  const auto format = automation::To<Long>(automation::GetByName(*Handler(), "FormatType"));
  return format == eTFT_CW || format == eTFT_CD || format == eTFT_CM;
}

Long clsVar::GetDataCRC() const {
  automation::PropertyBag shell;
  shell.WriteProperty("GlobalVarID", globalVarId_);
  shell.WriteProperty("KeypadEntry", keypadEntry_);
  shell.WriteProperty("VarType", Long{varType_});
  std::vector<Byte> bytes = shell.Contents();
  const std::vector<Byte> settings = Handler()->GetBinaryDataForCRC();
  bytes.insert(bytes.end(), settings.begin(), settings.end());
  return CalcDataCRC(bytes);
}

// --- Properties ---

void clsVar::PutAddress(Long clsVar::*address, Long value) {
  this->*address = value;
  if (value != kNone && id_ != kNone) BuildOpPropBag();
}

void clsVar::ItfHmiElement_TouchOprndAddr(Long pValue) {
  touchOprndAddr_ = pValue;
  if (HasTouchOperand() && id_ != kNone) BuildOpPropBag();
}

void clsVar::Flat3D(Long pValue) {
  flat3D_ = pValue;
  if (HasBevel(pValue) && kStateColorTypes.Has(varType_)) {
    TypedHandler()->ConvertFlatColorToClosestGradientColor();
  }
}

Integer clsVar::ItfHmiElement_Alignment() const { return automation::ToInteger(alignment_); }

Integer clsVar::ItfHmiElement_Flat3D() const { return automation::ToInteger(flat3D_); }

void clsVar::ItfHmiElement_Xs(Long pValue) {
  PositionedElement::ItfHmiElement_Xs(pValue);
  bounds_.left = pValue;
}

void clsVar::ItfHmiElement_Ys(Long pValue) {
  PositionedElement::ItfHmiElement_Ys(pValue);
  bounds_.top = pValue;
}

void clsVar::ItfHmiElement_Dx(Long pValue) {
  PositionedElement::ItfHmiElement_Dx(pValue);
  bounds_.right = automation::Add(bounds_.left, pValue);
}

void clsVar::ItfHmiElement_Dy(Long pValue) {
  PositionedElement::ItfHmiElement_Dy(pValue);
  bounds_.bottom = automation::Add(bounds_.top, pValue);
}

void clsVar::ItfHmiElement_ColorBack(Long pValue) {
  if (kToldColorBackTypes.Has(varType_)) Drawing()->ColorBack(pValue);
  colorBack_ = pValue;
}

void clsVar::ItfHmiElement_ColorFore(Long pValue) {
  if (kColorlessTypes.Has(varType_)) return;
  if (kOwnColorForeTypes.Has(varType_)) {
    TypedHandler()->TakeColorFore(pValue);
  } else {
    Drawing()->ColorFore(pValue);
  }
}

void clsVar::ItfHmiElement_TransparencyLevel(Long pValue) {
  SetElementTransparency(pValue, id_);
  transparencyLevel_ = pValue;
}

void clsVar::ItfHmiElement_SetNewFontNumberByLookUpTBL(automation::Variant& pFontNumberLookUpTBL) {
  Handler()->SetNewFontNumberByLookUpTBL(pFontNumberLookUpTBL);
}

void clsVar::ItfHmiElement_InvertColors() {
  if (!IsGlobal() && kPictureListTypes.Has(varType_)) Handler()->InvertColors();
}

void clsVar::ItfHmiElement_Rotate() {
  if (!IsGlobal() && kPictureListTypes.Has(varType_)) Handler()->Rotate();
}

std::string clsVar::ItfHmiElement_GetToolTipText() const {
  std::string text = varName_ + " ( " + std::string(VarTypeName(varType_));
  if (!kUntoldOperandTypes.Has(varType_)) {
    text += " ; " + OperandDescription(OperandType(), OperandAddress(), kLocalNetwork);
  }
  text += " ) ";
  if (HasTouchOperand()) {
    text += keypadEntry_ ? " ; (Touch - Keypad Entry) ; "
                         : " ; (Touch - MB " + std::to_string(touchOprndAddr_) + ") ; ";
  }
  const auto [xs, ys, dx, dy] = Displayed();
  return text + " Pos: " + std::to_string(xs) + ", " + std::to_string(ys) + " ; Size: " + std::to_string(dx) +
         ", " + std::to_string(dy);
}

// --- Operands ---

/// The memory bits behind touch and link operand, in the order of their bags.
struct clsVar::Operands {
  struct MemoryBit {
    enOperandPurpose purpose;
    Long clsVar::*address;
  };
  static constexpr MemoryBit kTouch = {eOP_TouchOperand, &clsVar::touchOprndAddr_};
  static constexpr MemoryBit kBehindLink[] = {{eOP_EnabledOperand, &clsVar::enabledOpAddr_},
                                              {eOP_VisibleOperand, &clsVar::visibleOpAddr_},
                                              {eOP_HighlightOperand, &clsVar::highlightOpAddr_},
                                              {eOP_KeypadSuccessOperand, &clsVar::keypadSuccessOpAddr_}};
};

automation::CollectionRef clsVar::BuildOpPropBag() {
  auto bags = std::make_shared<automation::Collection>();
  bags->Add(NewOperandBag(kMemoryBit, touchOprndAddr_, kLocalNetwork));
  bags->Add(NewOperandBag(OperandType(), OperandAddress(), kLocalNetwork));
  for (const Operands::MemoryBit& bit : Operands::kBehindLink) {
    bags->Add(NewOperandBag(kMemoryBit, this->*bit.address, kLocalNetwork));
  }
  Handler()->BuildOpPropBag();
  operandBags_ = bags;
  return bags;
}

void clsVar::ItfHmiElement_RestoreAllOperands() {
  Long place = 0;
  const auto restoreAt = [this](Long bag, Long& type, Long& address) {
    if (!operandBags_) automation::detail::RaiseObjectNotSet();
    RestoreOperand(type, address, operandBags_->ObjectAt<automation::PropertyBag>(bag));
  };
  const auto restoreBit = [&](Long bag, const Operands::MemoryBit& bit) {
    // The row is that of a memory bit whatever a host has put into the bag.
    Long type = kMemoryBit;
    restoreAt(bag, type, this->*bit.address);
    AddOperandRow(id_, kMemoryBit, this->*bit.address, bit.purpose, kLocalNetwork);
  };

  ++place;
  // A touch that opens a keypad has nothing to bring back.
  if (HasTouchOperand() && touchOprndAddr_ != kKeypadTouch) restoreBit(place, Operands::kTouch);
  ++place;
  Long linkType = OperandType(), linkAddress = OperandAddress();
  restoreAt(place, linkType, linkAddress);
  OperandType(linkType);
  OperandAddress(linkAddress);
  AddOperandRow(id_, linkType, linkAddress, eOP_VarLinkOperand, kLocalNetwork);
  for (const Operands::MemoryBit& bit : Operands::kBehindLink) {
    ++place;
    if (this->*bit.address != kNone) restoreBit(place, bit);
  }
  Handler()->RestoreAllOperands(id_);
}

void clsVar::DeleteAllOperands() {
  RemoveAllOperandRows(id_);
  if (HasTouchOperand()) ReleaseOperand(kMemoryBit, touchOprndAddr_);
  if (OperandType() != 0) ReleaseOperand(OperandType(), OperandAddress());
  for (const Operands::MemoryBit& bit : Operands::kBehindLink) {
    // Tests 0 where every other test of these fields is against -1: hosts rely on the release of address -1.
    if (this->*bit.address != 0) ReleaseOperand(kMemoryBit, this->*bit.address);
  }
  Handler()->DeleteAllOperands();
}

// --- Report ---

void clsVar::CreatePrinterReportEX(automation::Object& pVSPrinter) {
  VariableReport report(pVSPrinter, *this);
  report.Coordinates(Initial());
  const HandlerRef handler = BinaryHandlers(varType_);
  if (const auto* typed = dynamic_cast<const BinaryHandler*>(handler.get())) typed->WriteReport(report);
}

}  // namespace quenzel7
