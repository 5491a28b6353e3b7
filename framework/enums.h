#pragma once

#include "platform/automation/class_info.h"
#include "platform/automation/member.h"
#include "platform/automation/object.h"
#include "platform/automation/types.h"

/// The enumerations that the library publishes, each written down once: the C++ type, its type information
/// and the list that clsEnums gives are derived from the lists below. An enumeration takes every 32-bit
/// number, as properties do.

// clang-format off
#define QUENZEL7_enVarType(M) \
  M(eVT_None, 0) M(eVT_BinaryImage, 1) M(eVT_BinaryText, 2) M(eVT_ListText, 3) M(eVT_ListImage, 4) \
  M(eVT_DateTime, 5) M(eVT_TimeFunctions, 6) M(eVT_Timer, 7) M(eVT_Numeric, 8) M(eVT_BarGraph, 9) \
  M(eVT_Float, 10) M(eVT_RangeTexts, 11) M(eVT_RangeImages, 12) M(eVT_Password, 13) \
  M(eVT_NumOfVarTypes, 14) M(eVT_DisplayString, 15) M(eVT_Counter, 16) M(eVT_DataTable, 17) \
  M(eVT_ShapeGraph, 18) M(eVT_UTC, 19) M(eVT_MovingImage, 20) M(eVT_Meter, 21) M(eVT_TankGraph, 22) \
  M(eVT_Trend, 23) M(eVT_LED, 24) M(eVT_Thermometer, 25) M(eVT_LinearGague, 26) \
  M(eVT_SDTrendViewer, 27) M(eVT_SDBrowser, 28) M(eVT_NumericRange, 29) M(eVT_PassString, 30)

#define QUENZEL7_enCollisionStatus(M) \
  M(eCS_Legall, 0) M(eCS_Overlap, 1) M(eCS_OutOfRAnge, 2) M(eCS_BadSize, 3)

#define QUENZEL7_enPickUpDirection(M) \
  M(ePD_None, 0) M(ePD_UpRight, 1) M(ePD_Right, 2) M(ePD_DownRight, 3) M(ePD_Down, 4) \
  M(ePD_LeftDown, 5) M(ePD_Left, 6) M(ePD_UpLeft, 7) M(ePD_Up, 8) M(ePD_LineHead, 9) \
  M(ePD_LineTail, 10)

#define QUENZEL7_enPenStyle(M) \
  M(ePS_Solid, 0) M(ePS_Dash, 1) M(ePS_Dot, 2) M(ePS_Dash_Dot, 3) M(ePS_Dash_Dot_Dot, 4)

#define QUENZEL7_enHatchStyle(M) \
  M(eHS_Horizontal, 0) M(eHS_Vertical, 1) M(eHS_Upward_Diagonal, 2) M(eHS_Downward_Diagonal, 3) \
  M(eHS_Cross, 4) M(eHS_Diagonal_Cross, 5) M(eHS_None, 99)

#define QUENZEL7_enFillStyle(M) \
  M(eFS_Hollow, 0) M(eFS_Solid, 1)

#define QUENZEL7_enOperandPurpose(M) \
  M(eOP_None, 0) M(eOP_VarLinkOperand, 1) M(eOP_TouchOperand, 2) M(eOP_VarBinaryDataOperand, 3) \
  M(eOP_EnabledOperand, 4) M(eOP_VisibleOperand, 5) M(eOP_HighlightOperand, 6) \
  M(eOP_KeypadSuccessOperand, 7) M(eOP_StorageStringIdOperand, 8)

#define QUENZEL7_enTouchStyle(M) \
  M(eTS_None, 0) M(eTS_MB_Connected, 1) M(eTS_Keypad_Entry, 2) M(eTS_Calendar, 3) M(eTS_TAB, 4) \
  M(eTS_Trend, 5) M(eTS_Switch, 6) M(eTS_Alphanumeric, 7) M(eTS_ChangeColors, 8) M(eTS_SDTrend, 9) \
  M(eTS_SDBrowser, 10)

#define QUENZEL7_enAddElementToTree(M) \
  M(eAT_No, 0) M(eAT_Add, 1)

#define QUENZEL7_enBaseFormat(M) \
  M(eBF_Decimal, 0) M(eBF_Hex, 1) M(eBF_Binary, 2)

#define QUENZEL7_enRectAppearance(M) \
  M(eRA_Flat, 0) M(eRA_FixedSingle, 1) M(eRA_Gradient, 2)

#define QUENZEL7_enRectBorderStyle(M) \
  M(eRBS_Convex, 0) M(eRBS_Concave, 1)

#define QUENZEL7_enRTCType(M) \
  M(eRT_None, -1) M(eRT_hh_mm, 0) M(eRT_hh_mm_ss, 1) M(eRT_ddd, 2) M(eRT_ddddddddd, 3) \
  M(eRT_dd_mm, 4) M(eRT_mm_dd, 5) M(eRT_dd_mm_yy, 6) M(eRT_mm_dd_yy, 7) M(eRT_hh_mm_AM_PM, 8) \
  M(eRT_hh_mm_ss_AM_PM, 9)

#define QUENZEL7_enBarGraphDrawType(M) \
  M(eBD_None, 0) M(eBD_BottomToTop, 1) M(eBD_TopToBottom, 2) M(eBD_LeftToRight, 3) \
  M(eBD_RightToLeft, 4)

#define QUENZEL7_enShapeGraphType(M) \
  M(eST_Circle, 0) M(eST_Gauge_Normal, 1) M(eST_Gauge_Full, 2) M(eST_Gauge_Left, 3) \
  M(eST_Gauge_Right, 4) M(eST_Tank_1, 5) M(eST_Tank_2, 6) M(eST_Tank_3, 7) M(eST_Tank_4, 8)

#define QUENZEL7_enTimerType(M) \
  M(eTT_None, 0) M(eTT_Current, 1) M(eTT_Preset, 2)

#define QUENZEL7_enTimerDisplayType(M) \
  M(eDT_None, 0) M(eDT_Remaining, 1) M(eDT_Elapsed, 2)

#define QUENZEL7_enTimerFormatType(M) \
  M(eFT_None, -1) M(eFT_SS, 0) M(eFT_MM, 1) M(eFT_SS_hh, 2) M(eFT_MM_SS, 3) M(eFT_HH_MM, 4) \
  M(eFT_MM_SS_hh, 5) M(eFT_HH_MM_SS, 6) M(eFT_HH_MM_SS_hh, 7) M(eFT_SecondsOnly, 8)

#define QUENZEL7_enTimeFuncFormatType(M) \
  M(eTFT_None, 0) M(eTFT_CT, 1) M(eTFT_CW, 2) M(eTFT_CD, 3) M(eTFT_CM, 4) M(eTFT_CY, 5)

#define QUENZEL7_enLeadingType(M) \
  M(eLT_Mone, 0) M(eLT_Zeroes, -1) M(eLT_Spaces, 2)

#define QUENZEL7_enDateUTCType(M) \
  M(eDU_dd_mm, 4) M(eDU_mm_dd, 5) M(eDU_dd_mm_yy, 6) M(eDU_mm_dd_yy, 7)

#define QUENZEL7_enTimeUTCType(M) \
  M(eTU_HH_MM, 0) M(eTU_HH_MM_SS, 1) M(eTU_HH_MM_AM_PM, 8) M(eTU_HH_MM_SS_AM_PM, 9)

#define QUENZEL7_enLanguagesKeyboards(M) \
  M(eLK_English, 0) M(eLK_Hebrew, 1)

#define QUENZEL7_enMovingDirection(M) \
  M(eMD_Horizontal, 0) M(eMD_Vertical, 1)

#define QUENZEL7_enKeypadDIsplayType(M) \
  M(eKDT_FullSize, 0) M(eKDT_HalfSize, 1) M(eKDT_QuarterSize, 2)

#define QUENZEL7_enMeterDirection(M) \
  M(eMD_CW, 0) M(eMD_CCW, 1)

#define QUENZEL7_enMeterTicksLocation(M) \
  M(eMTL_Outside, 0) M(eMTL_Middle, 1) M(eMTL_Inside, 2)

#define QUENZEL7_enDateFormat(M) \
  M(eDF_EUROPE, 0) M(eDF_USA, 1)

#define QUENZEL7_enHistoryScrollMode(M) \
  M(eHSM_Full, 0) M(eHSM_Quarter, 1) M(eHSM_Half, 2) M(eHSM_3Quarters, 3)

#define QUENZEL7_enKeyboardType(M) \
  M(eKT_Simple_Del, 1) M(eKT_Simple_Back, 11) M(eKT_Complex_Dec, 2) M(eKT_Complex_Hex, 12) \
  M(eKT_Simple_Back_Ex, 17)

#define QUENZEL7_enSdBrowserOpID(M) \
  M(eSBOI_First, 0) M(eSBOI_EnableDeleteBtn, 1) M(eSBOI_StatusRegister, 2) M(eSBOI_OutputVector, 3) \
  M(eSBOI_FolderType, 4) M(eSBOI_Last, 5)

#define QUENZEL7_ENUMERATIONS(E) \
  E(enVarType) E(enCollisionStatus) E(enPickUpDirection) E(enPenStyle) \
  E(enHatchStyle) E(enFillStyle) E(enOperandPurpose) E(enTouchStyle) \
  E(enAddElementToTree) E(enBaseFormat) E(enRectAppearance) E(enRectBorderStyle) \
  E(enRTCType) E(enBarGraphDrawType) E(enShapeGraphType) E(enTimerType) \
  E(enTimerDisplayType) E(enTimerFormatType) E(enTimeFuncFormatType) E(enLeadingType) \
  E(enDateUTCType) E(enTimeUTCType) E(enLanguagesKeyboards) E(enMovingDirection) \
  E(enKeypadDIsplayType) E(enMeterDirection) E(enMeterTicksLocation) E(enDateFormat) \
  E(enHistoryScrollMode) E(enKeyboardType) E(enSdBrowserOpID)
// clang-format on

namespace quenzel7 {

#define QUENZEL7_ENUMERATOR(name, value) name = value,
#define QUENZEL7_ENUMERATION(name) enum name : Long { QUENZEL7_##name(QUENZEL7_ENUMERATOR) };
QUENZEL7_ENUMERATIONS(QUENZEL7_ENUMERATION)
#undef QUENZEL7_ENUMERATION
#undef QUENZEL7_ENUMERATOR

/// The class that publishes the enumerations. It has no operations and hosts cannot create it.
class clsEnums final : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "clsEnums";

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// All published enumerations.
  static std::span<const automation::EnumInfo* const> Enumerations();

 private:
  clsEnums() = default;
};

}  // namespace quenzel7

namespace quenzel7::automation {

#define QUENZEL7_ENUM_MEMBER(name, value) EnumMember{#name, value},
#define QUENZEL7_ENUM_INFO(name)                                                      \
  template <>                                                                         \
  struct EnumInfoOf<name> {                                                           \
    static constexpr EnumMember kMembers[] = {QUENZEL7_##name(QUENZEL7_ENUM_MEMBER)}; \
    static constexpr EnumInfo value{#name, kMembers};                                 \
  };
QUENZEL7_ENUMERATIONS(QUENZEL7_ENUM_INFO)
#undef QUENZEL7_ENUM_INFO
#undef QUENZEL7_ENUM_MEMBER

}  // namespace quenzel7::automation
