#pragma once

#include "framework/element_member_texts.h"
#include "framework/named_table.h"
#include "platform/automation/member.h"
#include "variables/var_element.h"

namespace quenzel7 {

template <class Element>
struct VarElementMembers {
#define QUENZEL7_VAR_PROPERTY(Type, Name, Documentation, ...)                        \
  automation::Property<Type>(#Name, Documentation, AUTOMATION_GETTER(Element, Name), \
                             AUTOMATION_SETTER(Element, Type, Name) __VA_OPT__(, ) __VA_ARGS__)
#define QUENZEL7_CONTRACT_PROPERTY(Type, Name, ...) \
  QUENZEL7_VAR_PROPERTY(Type, Name, ElementMemberText(#Name) __VA_OPT__(, ) __VA_ARGS__)
#define QUENZEL7_VAR_METHOD(Name, Documentation, ...) \
  automation::Method<Element, &Element::Name>(#Name, Documentation __VA_OPT__(, ) __VA_ARGS__)

  static constexpr auto kMembers = MakeNamedTable(
      QUENZEL7_CONTRACT_PROPERTY(Long, TabIndex),
      QUENZEL7_VAR_PROPERTY(Long, EnabledOpAddr,
                            "Address of the memory bit that enables the element; -1 none."),
      QUENZEL7_VAR_PROPERTY(Long, VisibleOpAddr, kOwnVisibleOpAddrText),
      QUENZEL7_VAR_PROPERTY(Long, HighlightOpAddr,
                            "Address of the memory bit that highlights the element; -1 none."),
      QUENZEL7_VAR_PROPERTY(Long, KeypadSuccessOpAddr,
                            "Address of the memory bit that is set on a keypad entry; -1 none."),
      QUENZEL7_VAR_PROPERTY(Long, ColorBack, "Panel colour number behind the variable."),
      automation::PutRefProperty<automation::CollectionRef>(
          "ColOpPropBag", "Takes operand bags in place of the element's own; the collection is shared.",
          AUTOMATION_SETTER(Element, automation::CollectionRef, ColOpPropBag)),
      automation::Property<Long>(
          "DisplayID", "Number of the page that saving writes: 0 for the open one, -1 for none.", nullptr,
          AUTOMATION_SETTER(Element, Long, DisplayID), automation::Mark::Identity),
      automation::WriterAfterNext(QUENZEL7_VAR_PROPERTY(
          Long, TouchOprndAddr,
          "Address of the memory bit that a touch drives; -1 none, -2 a touch that opens a keypad.")),
      QUENZEL7_VAR_METHOD(SetTouchWithoutLoadingPropertyBag,
                          "Stores the touch operand's address and leaves the operand bags as they are.",
                          "pTouchOprndAddr"),
      QUENZEL7_VAR_PROPERTY(enHatchStyle, HatchStyle,
                            "Kept with the element and of no effect; a cross after loading.",
                            automation::Mark::Transient),
      QUENZEL7_CONTRACT_PROPERTY(Long, GroupID, automation::Mark::Identity),
      QUENZEL7_VAR_PROPERTY(Long, DefaultDisplay, "The state that is shown in the editor, counted from 1."),
      QUENZEL7_VAR_PROPERTY(bool, KeypadEntry, "Whether the value is entered by the panel's keys."),
      QUENZEL7_VAR_METHOD(BinaryHandlers,
                          "The handler of a type, which is made if there is none yet; none for a type "
                          "without a class.",
                          "pVarType"),
      QUENZEL7_VAR_METHOD(SetBinaryHandler, "Puts a handler in the place of that of a type.",
                          "pVarType, pBinaryHandler"),
      QUENZEL7_VAR_PROPERTY(Long, OperandType, "Type of the operand that the variable shows; 0 none."),
      QUENZEL7_VAR_PROPERTY(Long, OperandAddress, "Address of that operand."),
      QUENZEL7_CONTRACT_PROPERTY(Long, ID, automation::Mark::Identity),
      QUENZEL7_VAR_PROPERTY(enVarType, VarType,
                            "The type of the variable; the settings of earlier types stay with it."),
      QUENZEL7_VAR_PROPERTY(Long, GlobalVarID,
                            "Above 0: the element shows the global variable of that number."),
      QUENZEL7_VAR_PROPERTY(std::string, VarName, "The name that the user sees."),
      QUENZEL7_CONTRACT_PROPERTY(Long, Xs), QUENZEL7_CONTRACT_PROPERTY(Long, Ys),
      QUENZEL7_CONTRACT_PROPERTY(Long, Dx), QUENZEL7_CONTRACT_PROPERTY(Long, Dy),
      QUENZEL7_VAR_PROPERTY(Long, TransparencyLevel,
                            "0 opaque, otherwise transparent. Writing is saved at once, for all pictures of "
                            "the element."),
      automation::Property<bool>("IsCalendarVar", "Whether a touch opens a calendar.",
                                 AUTOMATION_GETTER(Element, IsCalendarVar), nullptr),
      automation::Property<bool>("IsTouchable", "Whether a touch does something.",
                                 AUTOMATION_GETTER(Element, IsTouchable), nullptr),
      QUENZEL7_VAR_METHOD(GetDataCRC, "The change key of the variable's content."),
      QUENZEL7_VAR_METHOD(DeleteAllOperands,
                          "Removes the rows of all operands and takes the operands out of the project."),
      automation::Method<Element, &ItfHmiElement::DeleteFromDB>("DeleteFromDB",
                                                                ElementMemberText("DeleteFromDB")),
      QUENZEL7_VAR_METHOD(CreatePrinterReport, "Does nothing; gives Empty."),
      QUENZEL7_VAR_METHOD(CreatePrinterReportEX, "Writes the variable's lines into a printed report.",
                          "pVSPrinter"),
      QUENZEL7_VAR_METHOD(GetColOpPropertyBag, "The operand bags of the element."),
      automation::Method<Element, static_cast<void (ItfHmiElement::*)(Long&, Long&, Long&, Long&) const>(
                                      &ItfHmiElement::GetOptimalDimensions)>(
          "GetOptimalDimensions", ElementMemberText("GetOptimalDimensions"), "pXs, pYs, pDx, pDy"),
      QUENZEL7_VAR_METHOD(BuildOpPropBag, "Makes the operand bags anew and gives them."),
      QUENZEL7_VAR_METHOD(BuildImageList, "Loads the pictures of the variable."),
      QUENZEL7_VAR_METHOD(LoadFromDB, "Fills the element from a row; True when that was done.", "pRsElement"),
      QUENZEL7_VAR_METHOD(SaveToDB,
                          "Writes the element's row; False when the database has no number left for it."),
      QUENZEL7_VAR_METHOD(
          Replica, "A new variable with the same values, the same ID included; it shares the operand bags."),
      automation::Method<Element, &ItfHmiElement::RestoreAllOperands>(
          "RestoreAllOperands", ElementMemberText("RestoreAllOperands")),
      QUENZEL7_VAR_PROPERTY(Long, Alignment, "One of nine text alignments, 0 to 8."),
      QUENZEL7_VAR_PROPERTY(Long, Flat3D, "Frame style: 0 flat, 1 raised, 3 sunken; texts know 2 and 4 too."),
      QUENZEL7_CONTRACT_PROPERTY(Long, FontNumber),
      QUENZEL7_VAR_PROPERTY(Long, DescriptionFontNumber, "Number of the font of an entry's description."),
      automation::Method<Element, &ItfHmiElement::CreateStaticElementPrinterReport>(
          "ItfHmiElement_CreateStaticElementPrinterReport",
          "Does nothing: a variable reports by CreatePrinterReportEX.", "pVSPrinter"),
      QUENZEL7_VAR_PROPERTY(Long, ColorBackTouch, "Panel colour number behind the variable while touched."),
      automation::WithGetter(automation::PutRefProperty<TextElementRef>(
                                 "ListText", "The variable's string in the string library.",
                                 AUTOMATION_SETTER(Element, TextElementRef, ListText)),
                             AUTOMATION_GETTER(Element, ListText)),
      QUENZEL7_VAR_PROPERTY(Long, StorageText, "-1 when texts come from the string library, otherwise 0."),
      QUENZEL7_VAR_PROPERTY(Long, StorageLibNum, "Number of the string library."),
      QUENZEL7_VAR_METHOD(SaveToDBEx, "Writes the element's row without telling the host."),
      QUENZEL7_VAR_METHOD(HMIElementSize, "The size in bytes that the element takes in the panel."));

#undef QUENZEL7_VAR_METHOD
#undef QUENZEL7_CONTRACT_PROPERTY
#undef QUENZEL7_VAR_PROPERTY
};

}  // namespace quenzel7
