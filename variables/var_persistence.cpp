#include <string>

#include "framework/library_services.h"
#include "framework/project.h"
#include "framework/tab_index.h"
#include "framework/touch_style.h"
#include "images/image_links.h"
#include "images/image_queries.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/automation_error.h"
#include "platform/platform.h"
#include "shapes/element_columns.h"
#include "variables/var_element.h"

/// A variable's row in the project.
namespace quenzel7 {

using automation::To;
using automation::Variant;

// clang-format off
struct clsVar::ColumnForms {
  using Var = clsVar;

  /// 0 where nothing of the variable has a font.
  template <auto Field>
  static constexpr Column<Var> FontColumn(std::string_view name) {
    return {name, [](const Var& var) { return var.HasFont() ? Variant(var.*Field) : Variant(Integer{0}); }};
  }
  /// A number of the variable's string in the library.
  template <Long (clsVarTextElement::*Get)() const, void (clsVarTextElement::*Put)(Long)>
  static constexpr Column<Var> ListTextColumn(std::string_view name) {
    return {name,
            [](const Var& var) { return Variant((var.Reference().*Get)()); },
            [](Var& var, const Variant& value) { (var.Reference().*Put)(To<Long>(value)); }};
  }
};

struct clsVar::Columns : PositionColumns<clsVar>, ColumnForms {

  static constexpr auto kEnabledOpAddr = FieldColumn<Var, &Var::enabledOpAddr_>("EnabledOpAddr");
  static constexpr auto kHighlightOpAddr = FieldColumn<Var, &Var::highlightOpAddr_>("HighlightOpAddr");
  static constexpr auto kKeypadSuccessOpAddr = FieldColumn<Var, &Var::keypadSuccessOpAddr_>("KeypadSuccessOpAddr");
  static constexpr auto kOperands = MakeColumnTable(
      kTouchOprndAddr, kEnabledOpAddr, kVisibleOpAddr, kHighlightOpAddr, kKeypadSuccessOpAddr);

  static constexpr Column<Var> kDisplayId = {
      "DisplayID", [](const Var& var) { return Variant(var.PageToWrite()); }};
  static constexpr Column<Var> kVarType = {
      "VarType",
      [](const Var& var) { return Variant(Long{var.varType_}); },
      [](Var& var, const Variant& value) { var.VarType(To<enVarType>(value)); }};
  static constexpr auto kKeypadEntry = FieldColumn<Var, &Var::keypadEntry_>("VarKeyPadEntry");
  /// The field is wider than the column, whose 8 bits hold 0 to 255.
  static constexpr Column<Var> kTabIndex = {
      "TabIndex",
      [](const Var& var) { return Variant(To<Byte>(var.tabIndex_)); },
      [](Var& var, const Variant& value) { var.tabIndex_ = To<Long>(value); }};
  static constexpr Column<Var> kOperandType = {
      "VarOprndType",
      [](const Var& var) { return Variant(var.OperandType()); },
      [](Var& var, const Variant& value) { var.OperandType(To<Long>(value)); }};
  static constexpr Column<Var> kOperandAddress = {
      "VarOprndAddr",
      [](const Var& var) { return Variant(var.OperandAddress()); },
      [](Var& var, const Variant& value) { var.OperandAddress(To<Long>(value)); }};
  static constexpr auto kText = FieldColumn<Var, &Var::varName_>("Text");
  static constexpr auto kColorBack = FieldColumn<Var, &Var::colorBack_>("ColorBack");
  static constexpr auto kColorBackTouch = FieldColumn<Var, &Var::colorBackTouch_>("ColorBackTouch");
  static constexpr auto kGlobalVarId = FieldColumn<Var, &Var::globalVarId_>("GlobalVarID");
  static constexpr Column<Var> kBinary = {
      "Binary",
      [](const Var& var) { return automation::From(var.Handler()->BinaryData()); },
      [](Var& var, const Variant& value) { var.Handler()->BinaryData(To<std::vector<Byte>>(value)); }};
  static constexpr auto kDefaultDisplay = FieldColumn<Var, &Var::defaultDisplay_>("DefaultDisplay");
  static constexpr auto kFontNumber = FieldColumn<Var, &Var::fontNumber_>("FontNumber");
  static constexpr auto kDescriptionFontNumber = FieldColumn<Var, &Var::descriptionFontNumber_>("DescriptionFontNumber");
  static constexpr auto kHatchStyle = FieldColumn<Var, &Var::hatchStyle_>("HatchStyle");
  static constexpr auto kAlignment = FieldColumn<Var, &Var::alignment_>("Alignment");
  static constexpr auto kFlat3D = FieldColumn<Var, &Var::flat3D_>("Flat3D");
  static constexpr auto kStorageText = FieldColumn<Var, &Var::storageText_>("StorageText");
  static constexpr auto kStorageLibNum = FieldColumn<Var, &Var::storageLibNum_>("StorageLibNum");

#define QUENZEL7_LIST_TEXT_COLUMN(name, Name) ListTextColumn<&clsVarTextElement::Name, &clsVarTextElement::Name>(name)
  static constexpr auto kStorage = MakeColumnTable(
      kStorageText, kStorageLibNum,
      QUENZEL7_LIST_TEXT_COLUMN("StrStorageOprndType", StorageStringType),
      QUENZEL7_LIST_TEXT_COLUMN("StrStorageOprndAddr", StorageStringID),
      QUENZEL7_LIST_TEXT_COLUMN("StrStorageFont", StorageFont));
#undef QUENZEL7_LIST_TEXT_COLUMN

  /// The host is told of a keypad after these.
  static constexpr auto kSaveFirst =
      MakeColumnTable(
          TypeColumn<Var>(),
          kXs, kYs, kDx, kDy,
          kDisplayId,
          kGroupId)
          .Then(kOperands)
          .Then(MakeColumnTable(kVarType));
  /// The tab number is looked for after this.
  static constexpr auto kSaveKeypad = MakeColumnTable(kKeypadEntry);
  static constexpr auto kSaveLast =
      MakeColumnTable(
          kTabIndex,
          kOperandType, kOperandAddress,
          kText,
          kColorBack, kColorBackTouch,
          kGlobalVarId,
          kBinary,
          kDefaultDisplay,
          FontColumn<&Var::fontNumber_>("FontNumber"),
          FontColumn<&Var::descriptionFontNumber_>("DescriptionFontNumber"),
          // A keypad has its font also where the variable has none.
          kDescriptionFontNumber,
          kColorBack, kColorBackTouch,
          ZeroColumn<Var>("ColorFore"), ZeroColumn<Var>("ColorForeTouch"), ZeroColumn<Var>("ColorHatch"),
          ZeroColumn<Var>("PenStyle"), ZeroColumn<Var>("PenWidth"),
          kHatchStyle,
          kAlignment, kFlat3D)
          .Then(kStorage);

  static constexpr auto kLoadFirst =
      MakeColumnTable(
          kId, kGroupId,
          kXs, kYs, kDx, kDy)
          .Then(kOperands)
          .Then(MakeColumnTable(
              kVarType,
              kKeypadEntry,
              kOperandType, kOperandAddress,
              kText, kGlobalVarId,
              kBinary,
              kDefaultDisplay));
  static constexpr auto kLoadLast = MakeColumnTable(
      kColorBack, kColorBackTouch, kAlignment, kFlat3D,
      kTabIndex, kFontNumber, kDescriptionFontNumber);
};
// clang-format on

// --- Loading ---

bool clsVar::LoadFromDB(ado::Recordset& pRsElement) {
  ReadRow(pRsElement);
  return true;
}

void clsVar::ReadRow(const ado::Recordset& row) {
  ReadColumns<clsVar>(row, *this, Columns::kLoadFirst);
  if (kPictureTypes.Has(varType_)) ShowPictureOfState();
  Handler()->BuildImageList(id_);
  // Required: whatever the row holds. It has no visible effect.
  hatchStyle_ = eHS_Cross;
  ReadColumns<clsVar>(row, *this, Columns::kLoadLast);
  BuildOpPropBag();
  transparencyLevel_ = GetElementTransparency(id_);
  ReadColumns<clsVar>(row, *this, Columns::kStorage);
  if (kLibraryTextTypes.Has(varType_))
    TypedHandler()->ReSyncDrawingElementParams(defaultDisplay_, fontNumber_);
}

void clsVar::ShowPictureOfState() {
  // One that a bit chooses has two places, whether there are pictures in them or not.
  constexpr Long kStatesOfBit = 2;
  const std::vector<Long> pictures =
      varType_ == eVT_BinaryImage ? GetCRCsOfVarImages(id_, kStatesOfBit) : GetElementImageCRCs(id_);
  if (defaultDisplay_ < 1 || static_cast<std::size_t>(defaultDisplay_) > pictures.size()) {
    throw automation::AutomationError(automation::ErrorNumber::SubscriptOutOfRange,
                                      "variable " + std::to_string(id_) + " shows picture " +
                                          std::to_string(defaultDisplay_) + ", it has 1 to " +
                                          std::to_string(pictures.size()));
  }
  Drawing()->hBmpCRC(pictures[static_cast<std::size_t>(defaultDisplay_) - 1]);
}

// --- Saving ---

bool clsVar::SaveToDB() { return Save(kSizedOnSaveTypes, Notice::Told); }

bool clsVar::SaveToDBEx() { return Save(kSizedOnSaveExTypes, Notice::Untold); }

bool clsVar::Save(const VarTypes& sizedTypes, Notice notice) {
  const auto row = OpenRowsForWriting("SELECT * FROM HMI_ELEMENTS WHERE ID=" + std::to_string(id_));
  const bool isNew = IsNew();
  if (isNew) {
    row->AddNew();
    constexpr Long kHighestId = 32767, kNoNumberLeftMessage = 536;
    if (To<Long>(row->Get("ID")) > kHighestId) {
      ShowLibraryMessage(kNoNumberLeftMessage);
      return false;
    }
    row->Put("GUID", NewUniqueNumber());
  }
  WriteRow(*row);
  if (!isNew) {
    if (sizedTypes.Has(varType_)) {
      const ElementRef picture = Drawing();
      picture->Dx(Initial().dx);
      picture->Dy(Initial().dy);
    }
    Handler()->SaveToDB(id_, varType_);
  }
  row->Update();
  ReadBack(*row);
  row->Close();
  if (notice == Notice::Told) {
    Platform::Current().projectService->NotifyElementSaved(id_);
    if (isNew) NotifyPageChanged(CurrentDisplayID());
  }
  return true;
}

void clsVar::WriteRow(ado::Recordset& row) {
  WriteColumns<clsVar>(row, *this, Columns::kSaveFirst);
  TellKeypad();
  WriteColumns<clsVar>(row, *this, Columns::kSaveKeypad);
  TakeTabIndex();
  WriteColumns<clsVar>(row, *this, Columns::kSaveLast);
}

void clsVar::TellKeypad() const {
  const auto project = Platform::Current().projectService;
  if (id_ != kNone && globalVarId_ == 0) {
    project->NotifyVarKeypad(id_, keypadEntry_);
  } else if (IsGlobal()) {
    project->NotifyGlobalVarKeypad(globalVarId_, keypadEntry_);
  }
}

void clsVar::TakeTabIndex() {
  const bool takesPart = GetTouchStyle(*this) != eTS_None && !kPictureListTypes.Has(varType_);
  if (!takesPart) {
    tabIndex_ = kNoTabIndex;
  } else if (tabIndex_ == kNoTabIndex) {
    tabIndex_ = NextTabIndex(PageToWrite());
  }
}

Long clsVar::PageToWrite() const { return displayId_ == 0 ? CurrentDisplayID() : displayId_; }

bool clsVar::HasFont() const {
  return Drawing()->ElementType() == kTextElement || kFontedGraphTypes.Has(varType_);
}

Long clsVar::HMIElementSize() const { return Platform::Current().projectService->ElementSize(id_); }

void clsVar::ItfHmiElement_DeleteFromDB() {
  DeleteDownload();
  DeleteRow();
  const auto project = Platform::Current().projectService;
  project->NotifyElementDeleted(automation::ToInteger(id_));
  if (IsGlobal()) project->NotifyGlobalElementDeleted(weak_from_this().lock());
  DeleteAllOperands();
  ReleaseElementImages(id_);
  NotifyPageChanged(CurrentDisplayID());
}

// --- Replica ---

std::shared_ptr<clsVar> clsVar::Replica() {
  auto copy = std::make_shared<clsVar>();
  CopyTo(*copy);
  return copy;
}

void clsVar::CopyTo(clsVar& copy) const {
  copy.ID(id_);
  copy.VarType(varType_);
  copy.VarName(varName_);
  copy.Xs(Initial().xs);
  copy.Ys(Initial().ys);
  copy.Dx(Initial().dx);
  copy.Dy(Initial().dy);
  copy.ColorBack(colorBack_);
  copy.ColorBackTouch(colorBackTouch_);
  copy.TransparencyLevel(transparencyLevel_);
  copy.DefaultDisplay(defaultDisplay_);
  copy.DisplayID(displayId_);
  copy.GlobalVarID(globalVarId_);
  copy.GroupID(groupId_);
  copy.HatchStyle(hatchStyle_);
  copy.KeypadEntry(keypadEntry_);
  copy.TouchOprndAddr(touchOprndAddr_);
  copy.EnabledOpAddr(enabledOpAddr_);
  copy.Alignment(alignment_);
  copy.Flat3D(flat3D_);
  copy.TabIndex(tabIndex_);
  copy.FontNumber(fontNumber_);
  copy.DescriptionFontNumber(descriptionFontNumber_);
  copy.VisibleOpAddr(visibleOpAddr_);
  copy.HighlightOpAddr(highlightOpAddr_);
  copy.KeypadSuccessOpAddr(keypadSuccessOpAddr_);
  copy.SetBinaryHandler(varType_, Handler()->Replica());
  copy.OperandType(OperandType());
  copy.OperandAddress(OperandAddress());
  copy.ColOpPropBag(operandBags_);
  clsVarTextElement& text = copy.Reference();
  const clsVarTextElement& ownText = Reference();
  text.Txt(ownText.Txt());
  text.ColorFore(ownText.ColorFore());
  text.ColorBack(ownText.ColorBack());
  text.StorageStringID(ownText.StorageStringID());
  text.StorageStringType(ownText.StorageStringType());
  text.StorageFont(ownText.StorageFont());
  copy.StorageText(storageText_);
  copy.StorageLibNum(storageLibNum_);
}

clsVarTextElement& clsVar::Reference() const { return automation::Required(listText_); }

}  // namespace quenzel7
