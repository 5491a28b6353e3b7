#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "platform/gdi/types.h"
#include "shapes/element_class.h"
#include "shapes/positioned_element.h"
#include "variables/binary_handler.h"
#include "variables/var_text_element.h"
#include "variables/var_types.h"

namespace quenzel7 {

/// The default interface of a variable, in slot order.
template <class Element>
struct VarElementMembers;

/// An element that shows a value of the controller, whatever the type of the variable. It owns what all types
/// have in common, and a handler for each type that it ever had, which owns the rest; the one of the current
/// type is asked for all that depends on the type.
///
/// A variable whose type has no handler raises error 91 wherever a handler is asked.
class clsVar final : public ElementClass<clsVar, PositionedElement, kVariableElement, VarElementMembers> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsVar";

  /// A text for a bit, without a handler until the type is written or asked for. Takes colours from the
  /// settings, fonts from the font service. Errors of ElementSetting.
  clsVar();
  ~clsVar() override;

  using ItfHmiElement::Dx;
  using ItfHmiElement::Dy;
  using ItfHmiElement::FontNumber;
  using ItfHmiElement::GetOptimalDimensions;
  using ItfHmiElement::GroupID;
  using ItfHmiElement::HatchStyle;
  using ItfHmiElement::ID;
  using ItfHmiElement::RestoreAllOperands;
  using ItfHmiElement::TabIndex;
  using ItfHmiElement::TouchOprndAddr;
  using ItfHmiElement::TransparencyLevel;
  using ItfHmiElement::Xs;
  using ItfHmiElement::Ys;

  // --- What all types have ---

  /// Addresses of memory bits, -1 none. Writing stores, and builds the operand bags anew when there is an
  /// operand and the element has a row.
  Long EnabledOpAddr() const { return enabledOpAddr_; }
  void EnabledOpAddr(Long pValue) { PutAddress(&clsVar::enabledOpAddr_, pValue); }
  Long HighlightOpAddr() const { return highlightOpAddr_; }
  void HighlightOpAddr(Long pValue) { PutAddress(&clsVar::highlightOpAddr_, pValue); }
  Long KeypadSuccessOpAddr() const { return keypadSuccessOpAddr_; }
  void KeypadSuccessOpAddr(Long pValue) { PutAddress(&clsVar::keypadSuccessOpAddr_, pValue); }
  /// Stores the touch operand's address and leaves the operand bags as they are.
  void SetTouchWithoutLoadingPropertyBag(Long pTouchOprndAddr) { touchOprndAddr_ = pTouchOprndAddr; }
  /// Panel colour number behind the variable; writing only stores.
  Long ColorBack() const { return colorBack_; }
  void ColorBack(Long pValue) { colorBack_ = pValue; }
  /// The same while the variable is touched.
  Long ColorBackTouch() const { return colorBackTouch_; }
  void ColorBackTouch(Long pValue) { colorBackTouch_ = pValue; }
  /// Number of the page that saving writes: 0 for the one that the host has open, -1 for none. Loading does
  /// not take it from the row: who saves a variable of a page that is not open writes it before.
  void DisplayID(Long pValue) { displayId_ = pValue; }
  /// The state that is shown in the editor, counted from 1.
  Long DefaultDisplay() const { return defaultDisplay_; }
  void DefaultDisplay(Long pValue) { defaultDisplay_ = pValue; }
  /// Whether the value is entered by the panel's keys.
  bool KeypadEntry() const { return keypadEntry_; }
  void KeypadEntry(bool pValue) { keypadEntry_ = pValue; }
  /// Above 0: the element shows the global variable of that number.
  Long GlobalVarID() const { return globalVarId_; }
  void GlobalVarID(Long pValue) { globalVarId_ = pValue; }
  /// The name that the user sees.
  const std::string& VarName() const { return varName_; }
  void VarName(std::string pValue) { varName_ = std::move(pValue); }
  /// Place of the text in its frame, 0 to 8 row by row.
  Long Alignment() const { return alignment_; }
  void Alignment(Long pValue) { alignment_ = pValue; }
  /// Frame style, of texts as that of `clsText` (0 flat, 1 raised, 2 flat with room for a box, 3 sunken, 4
  /// transparent), of bars 0 flat, 1 raised, 3 sunken, any other number plain. Writing 1 or 3 to a text with
  /// a background for each state replaces these by colours on which a bevel can be read; errors: 91 where
  /// such a text has no handler yet, 13 for a handler that is none of the library's, those of the colour
  /// service.
  Long Flat3D() const { return flat3D_; }
  void Flat3D(Long pValue);
  /// Number of the font of an entry's description.
  Long DescriptionFontNumber() const { return descriptionFontNumber_; }
  void DescriptionFontNumber(Long pValue) { descriptionFontNumber_ = pValue; }
  /// The variable's string in the string library.
  const TextElementRef& ListText() const { return listText_; }
  void ListText(TextElementRef pValue) { listText_ = std::move(pValue); }
  /// -1 when the texts come from the string library, otherwise 0.
  Long StorageText() const { return storageText_; }
  void StorageText(Long pValue) { storageText_ = pValue; }
  /// Number of the string library.
  Long StorageLibNum() const { return storageLibNum_; }
  void StorageLibNum(Long pValue) { storageLibNum_ = pValue; }
  /// Whether a touch does something.
  bool IsTouchable() const { return HasTouchOperand(); }

  // --- The type ---

  /// The type. Writing makes the handler of the type if there is none yet, takes the type's background from
  /// the settings, and the style and font that go with some types. The handlers of earlier types stay. Errors
  /// of the handler's constructor and of ElementSetting; those of the panel service leave all as it was.
  enVarType VarType() const { return varType_; }
  void VarType(enVarType pValue);
  /// The handler of a type, which is made if there is none yet; none for what has no class. Errors of the
  /// handler's constructor.
  HandlerRef BinaryHandlers(enVarType pVarType);
  /// Puts a handler in the place of another one. Error 9 for a type outside 1 to 30.
  void SetBinaryHandler(enVarType pVarType, HandlerRef pBinaryHandler);
  /// The operand that the variable shows, as its handler keeps it.
  Long OperandType() const { return Handler()->LinkOperandType(); }
  void OperandType(Long pValue) { Handler()->LinkOperandType(pValue); }
  Long OperandAddress() const { return Handler()->LinkOperandAddress(); }
  void OperandAddress(Long pValue) { Handler()->LinkOperandAddress(pValue); }
  /// Whether the variable shows a day or a month in words or numbers, so that a touch opens a calendar.
  bool IsCalendarVar() const;
  /// The change key: what the handler says of its settings, whether there is a keypad entry, the type, and
  /// the global variable. Place, colours, name and operands are not in it.
  Long GetDataCRC() const;
  /// Loads the pictures of the handler.
  void BuildImageList() { Handler()->BuildImageList(id_); }

  // --- Operands ---

  /// Removes the rows of all operands and takes the operands out of the project.
  void DeleteAllOperands();
  /// The bags of touch, link, enabled, hide, highlight and keypad success operand, -1 for none.
  const automation::CollectionRef& GetColOpPropertyBag() const { return operandBags_; }
  /// Makes these and the handler's anew; gives these.
  automation::CollectionRef BuildOpPropBag() override;

  // --- The project ---

  /// Takes the element from the row on which the recordset stands, but not the page, the hatch and the order;
  /// true when that was done. Errors: 91 for a type without a handler and without a ListText, 9 for a
  /// DefaultDisplay without a text or picture, 13 for a handler of texts that is none of the library's, those
  /// of the database, the conversions and the handler; what was taken by then stays.
  bool LoadFromDB(ado::Recordset& pRsElement);
  /// Writes the row, creating it when the ID is -1, and the handler's rows if there was one before. False,
  /// with a message and nothing written, when the database's next number is above 32767.
  bool SaveToDB() override;
  /// The same without telling the host.
  bool SaveToDBEx();
  /// The size in bytes that the element takes in the panel.
  Long HMIElementSize() const;
  /// A new variable with the same values, the ID included, and a replica of the handler of the current type.
  /// It shares the operand bags. The transparency is written to the project on the way. Errors of the
  /// database; 91 without a handler and without a project.
  std::shared_ptr<clsVar> Replica();
  /// Does nothing; gives Empty.
  automation::Variant CreatePrinterReport() const { return {}; }
  /// Writes the variable's lines into a printed report. Errors of the printing control; lines already written
  /// stay.
  void CreatePrinterReportEX(automation::Object& pVSPrinter);

 private:
  struct ColumnForms;
  struct Columns;
  struct Operands;
  friend ElementClass;

  /// What saving tells the host.
  enum class Notice { Told, Untold };

  // What these give is held for the time of a call: a host that is asked meanwhile may put another handler in
  // the place of this one.
  HandlerRef Handler() const;
  std::shared_ptr<BinaryHandler> TypedHandler() const;
  ElementRef Drawing() const;
  clsVarTextElement& Reference() const;
  bool IsGlobal() const { return globalVarId_ > 0; }
  /// Whether texts are strings of the library, with the library's font.
  bool ShowsLibraryText() const;
  void PutAddress(Long clsVar::*address, Long value);
  Descriptor Bounds() const;
  void TakeBounds(const Descriptor& place);
  void DragBounds(Long dx, Long dy, Long direction);
  void StretchElement(Long dx, Long dy, Long direction);
  void KeepMinimumSize();
  void PaintBadge(Long hdc) const;
  void TellFailedResize() const;
  bool Save(const VarTypes& sizedTypes, Notice notice);
  bool HasFont() const;
  void TellKeypad() const;
  void TakeTabIndex();
  Long PageToWrite() const;
  void ShowPictureOfState();
  void CopyTo(clsVar& copy) const;

  void WriteRow(ado::Recordset& row) override;
  void ReadRow(const ado::Recordset& row) override;

  bool ItfHmiElement_LoadFromDB(ado::Recordset& pRsElement) override { return LoadFromDB(pRsElement); }
  void ItfHmiElement_SaveToDB() override { SaveToDB(); }
  void ItfHmiElement_DeleteFromDB() override;
  void ItfHmiElement_RestoreAllOperands() override;
  void ItfHmiElement_TouchOprndAddr(Long pValue) override;
  using PositionedElement::ItfHmiElement_TouchOprndAddr;
  Long ItfHmiElement_EnabledOpAddr() const override { return enabledOpAddr_; }
  void ItfHmiElement_EnabledOpAddr(Long pValue) override { EnabledOpAddr(pValue); }
  Long ItfHmiElement_HighlightOpAddr() const override { return highlightOpAddr_; }
  void ItfHmiElement_HighlightOpAddr(Long pValue) override { HighlightOpAddr(pValue); }
  Long ItfHmiElement_KeypadSuccessOpAddr() const override { return keypadSuccessOpAddr_; }
  void ItfHmiElement_KeypadSuccessOpAddr(Long pValue) override { KeypadSuccessOpAddr(pValue); }
  // A host marks other elements and orders them by these; a variable has neither.
  bool ItfHmiElement_IsCanceled() const override { return false; }
  void ItfHmiElement_IsCanceled(bool) override {}
  Long ItfHmiElement_OrderIndex() const override { return 0; }
  void ItfHmiElement_OrderIndex(Long) override {}
  void ItfHmiElement_Xs(Long pValue) override;
  void ItfHmiElement_Ys(Long pValue) override;
  void ItfHmiElement_Dx(Long pValue) override;
  void ItfHmiElement_Dy(Long pValue) override;
  using PositionedElement::ItfHmiElement_Dx;
  using PositionedElement::ItfHmiElement_Dy;
  using PositionedElement::ItfHmiElement_Xs;
  using PositionedElement::ItfHmiElement_Ys;
  std::string ItfHmiElement_Txt() const override { return varName_; }
  Integer ItfHmiElement_Alignment() const override;
  void ItfHmiElement_Alignment(Integer pValue) override { alignment_ = pValue; }
  Integer ItfHmiElement_Flat3D() const override;
  void ItfHmiElement_Flat3D(Integer pValue) override { flat3D_ = pValue; }
  Long ItfHmiElement_ColorBack() const override { return colorBack_; }
  void ItfHmiElement_ColorBack(Long pValue) override;
  void ItfHmiElement_ColorFore(Long pValue) override;
  using PositionedElement::ItfHmiElement_ColorFore;
  Long ItfHmiElement_ColorBackTouch() const override { return colorBackTouch_; }
  void ItfHmiElement_ColorBackTouch(Long pValue) override { colorBackTouch_ = pValue; }
  Long ItfHmiElement_FontNumber() const override { return fontNumber_; }
  void ItfHmiElement_FontNumber(Long pValue) override { fontNumber_ = pValue; }
  enHatchStyle ItfHmiElement_HatchStyle() const override { return hatchStyle_; }
  void ItfHmiElement_HatchStyle(enHatchStyle pValue) override { hatchStyle_ = pValue; }
  Long ItfHmiElement_TabIndex() const override { return tabIndex_; }
  void ItfHmiElement_TabIndex(Long pValue) override { tabIndex_ = pValue; }
  Long ItfHmiElement_TransparencyLevel() const override { return transparencyLevel_; }
  void ItfHmiElement_TransparencyLevel(Long pValue) override;
  void ItfHmiElement_SetNewFontNumberByLookUpTBL(automation::Variant& pFontNumberLookUpTBL) override;
  void ItfHmiElement_InvertColors() override;
  void ItfHmiElement_Rotate() override;
  void ItfHmiElement_Draw(Long pHdc, bool pDrawBoundingRect) override;
  void ItfHmiElement_DrawToPrinter(Long pHdc, const std::string& pVarAlias) override;
  void ItfHmiElement_Move(Long pDx, Long pDy) override;
  void ItfHmiElement_Stretch(Long pDx, Long pDy, Long pDirection) override;
  automation::Variant ItfHmiElement_UpdateBoundingRectangle(Long pDx, Long pDy, Long pDirection) override;
  void ItfHmiElement_GetSizeFromBoundingRect() override;
  void ItfHmiElement_UpdateDisplayWithLastLegal() override;
  void ItfHmiElement_GetBoundingRect(Long& pXs, Long& pYs, Long& pDx, Long& pDy,
                                     const Long& pLocation) const override;
  enCollisionStatus ItfHmiElement_GetTransformState(automation::Variant& pcollisionMap) override;
  void ItfHmiElement_GetOptimalDimensions(Long& pXs, Long& pYs, Long& pDx, Long& pDy) const override;
  std::string ItfHmiElement_GetToolTipText() const override;

  /// The handlers by type, 1 to 30.
  std::array<HandlerRef, 30> handlers_;
  Long enabledOpAddr_ = kNone;
  Long highlightOpAddr_ = kNone;
  Long keypadSuccessOpAddr_ = kNone;
  bool keypadEntry_ = false;
  std::string varName_;
  enVarType varType_ = eVT_BinaryText;
  Long globalVarId_ = 0;
  enHatchStyle hatchStyle_ = eHS_None;
  Long defaultDisplay_ = 1;
  Long displayId_ = 0;
  Long colorBack_;
  Long colorBackTouch_;
  Long alignment_ = 4;
  Long flat3D_ = 3;
  Long fontNumber_;
  Long descriptionFontNumber_;
  /// The frame that the user sees while stretching.
  gdi::RECT bounds_{};
  Long tabIndex_ = kNoTabIndex;
  Long transparencyLevel_ = 0;
  TextElementRef listText_;
  Long storageText_ = 0;
  Long storageLibNum_ = 0;
};

}  // namespace quenzel7

#include "variables/var_members.h"
