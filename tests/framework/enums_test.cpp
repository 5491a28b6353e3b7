#include "framework/enums.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quenzel7 {
namespace {

/// The published surface, as text: a number or a name that moves by accident shows here.
const std::vector<std::string> kPublished = {
    "enVarType: eVT_None=0 eVT_BinaryImage=1 eVT_BinaryText=2 eVT_ListText=3 eVT_ListImage=4 "
    "eVT_DateTime=5 eVT_TimeFunctions=6 eVT_Timer=7 eVT_Numeric=8 eVT_BarGraph=9 eVT_Float=10 "
    "eVT_RangeTexts=11 eVT_RangeImages=12 eVT_Password=13 eVT_NumOfVarTypes=14 "
    "eVT_DisplayString=15 eVT_Counter=16 eVT_DataTable=17 eVT_ShapeGraph=18 eVT_UTC=19 "
    "eVT_MovingImage=20 eVT_Meter=21 eVT_TankGraph=22 eVT_Trend=23 eVT_LED=24 eVT_Thermometer=25 "
    "eVT_LinearGague=26 eVT_SDTrendViewer=27 eVT_SDBrowser=28 eVT_NumericRange=29 "
    "eVT_PassString=30",
    "enCollisionStatus: eCS_Legall=0 eCS_Overlap=1 eCS_OutOfRAnge=2 eCS_BadSize=3",
    "enPickUpDirection: ePD_None=0 ePD_UpRight=1 ePD_Right=2 ePD_DownRight=3 ePD_Down=4 "
    "ePD_LeftDown=5 ePD_Left=6 ePD_UpLeft=7 ePD_Up=8 ePD_LineHead=9 ePD_LineTail=10",
    "enPenStyle: ePS_Solid=0 ePS_Dash=1 ePS_Dot=2 ePS_Dash_Dot=3 ePS_Dash_Dot_Dot=4",
    "enHatchStyle: eHS_Horizontal=0 eHS_Vertical=1 eHS_Upward_Diagonal=2 eHS_Downward_Diagonal=3 "
    "eHS_Cross=4 eHS_Diagonal_Cross=5 eHS_None=99",
    "enFillStyle: eFS_Hollow=0 eFS_Solid=1",
    "enOperandPurpose: eOP_None=0 eOP_VarLinkOperand=1 eOP_TouchOperand=2 "
    "eOP_VarBinaryDataOperand=3 eOP_EnabledOperand=4 eOP_VisibleOperand=5 eOP_HighlightOperand=6 "
    "eOP_KeypadSuccessOperand=7 eOP_StorageStringIdOperand=8",
    "enTouchStyle: eTS_None=0 eTS_MB_Connected=1 eTS_Keypad_Entry=2 eTS_Calendar=3 eTS_TAB=4 "
    "eTS_Trend=5 eTS_Switch=6 eTS_Alphanumeric=7 eTS_ChangeColors=8 eTS_SDTrend=9 "
    "eTS_SDBrowser=10",
    "enAddElementToTree: eAT_No=0 eAT_Add=1",
    "enBaseFormat: eBF_Decimal=0 eBF_Hex=1 eBF_Binary=2",
    "enRectAppearance: eRA_Flat=0 eRA_FixedSingle=1 eRA_Gradient=2",
    "enRectBorderStyle: eRBS_Convex=0 eRBS_Concave=1",
    "enRTCType: eRT_None=-1 eRT_hh_mm=0 eRT_hh_mm_ss=1 eRT_ddd=2 eRT_ddddddddd=3 eRT_dd_mm=4 "
    "eRT_mm_dd=5 eRT_dd_mm_yy=6 eRT_mm_dd_yy=7 eRT_hh_mm_AM_PM=8 eRT_hh_mm_ss_AM_PM=9",
    "enBarGraphDrawType: eBD_None=0 eBD_BottomToTop=1 eBD_TopToBottom=2 eBD_LeftToRight=3 "
    "eBD_RightToLeft=4",
    "enShapeGraphType: eST_Circle=0 eST_Gauge_Normal=1 eST_Gauge_Full=2 eST_Gauge_Left=3 "
    "eST_Gauge_Right=4 eST_Tank_1=5 eST_Tank_2=6 eST_Tank_3=7 eST_Tank_4=8",
    "enTimerType: eTT_None=0 eTT_Current=1 eTT_Preset=2",
    "enTimerDisplayType: eDT_None=0 eDT_Remaining=1 eDT_Elapsed=2",
    "enTimerFormatType: eFT_None=-1 eFT_SS=0 eFT_MM=1 eFT_SS_hh=2 eFT_MM_SS=3 eFT_HH_MM=4 "
    "eFT_MM_SS_hh=5 eFT_HH_MM_SS=6 eFT_HH_MM_SS_hh=7 eFT_SecondsOnly=8",
    "enTimeFuncFormatType: eTFT_None=0 eTFT_CT=1 eTFT_CW=2 eTFT_CD=3 eTFT_CM=4 eTFT_CY=5",
    "enLeadingType: eLT_Mone=0 eLT_Zeroes=-1 eLT_Spaces=2",
    "enDateUTCType: eDU_dd_mm=4 eDU_mm_dd=5 eDU_dd_mm_yy=6 eDU_mm_dd_yy=7",
    "enTimeUTCType: eTU_HH_MM=0 eTU_HH_MM_SS=1 eTU_HH_MM_AM_PM=8 eTU_HH_MM_SS_AM_PM=9",
    "enLanguagesKeyboards: eLK_English=0 eLK_Hebrew=1",
    "enMovingDirection: eMD_Horizontal=0 eMD_Vertical=1",
    "enKeypadDIsplayType: eKDT_FullSize=0 eKDT_HalfSize=1 eKDT_QuarterSize=2",
    "enMeterDirection: eMD_CW=0 eMD_CCW=1",
    "enMeterTicksLocation: eMTL_Outside=0 eMTL_Middle=1 eMTL_Inside=2",
    "enDateFormat: eDF_EUROPE=0 eDF_USA=1",
    "enHistoryScrollMode: eHSM_Full=0 eHSM_Quarter=1 eHSM_Half=2 eHSM_3Quarters=3",
    "enKeyboardType: eKT_Simple_Del=1 eKT_Simple_Back=11 eKT_Complex_Dec=2 eKT_Complex_Hex=12 "
    "eKT_Simple_Back_Ex=17",
    "enSdBrowserOpID: eSBOI_First=0 eSBOI_EnableDeleteBtn=1 eSBOI_StatusRegister=2 "
    "eSBOI_OutputVector=3 eSBOI_FolderType=4 eSBOI_Last=5",
};

TEST(Enums, ArePublishedWithTheirNamesAndNumbersInOrder) {
  std::vector<std::string> published;
  for (const automation::EnumInfo* info : clsEnums::Enumerations()) {
    std::string text = std::string(info->name) + ":";
    for (const automation::EnumMember& member : info->members) {
      text += " " + std::string(member.name) + "=" + std::to_string(member.value);
    }
    published.push_back(text);
  }
  EXPECT_EQ(published, kPublished);
}

TEST(Enums, AreTypesOfTheirOwnThatTakeEvery32BitNumber) {
  EXPECT_EQ(sizeof(enPenStyle), 4u);
  EXPECT_EQ(static_cast<Long>(static_cast<enHatchStyle>(-5)), -5);
  EXPECT_EQ(eHS_None, 99);
  EXPECT_EQ(eLT_Zeroes, -1);
  EXPECT_EQ(eRT_None, -1);
}

TEST(Enums, TheirClassHasNoOperationsAndCannotBeCreated) {
  EXPECT_EQ(clsEnums::ClassOf().name, "clsEnums");
  EXPECT_EQ(clsEnums::ClassOf().create, nullptr);
  EXPECT_TRUE(clsEnums::ClassOf().Default().Members().empty());
}

TEST(Enums, AreNamedInTypeInformation) {
  constexpr automation::TypeInfo type = automation::TypeOf<enTouchStyle>();
  EXPECT_EQ(type.name, "enTouchStyle");
  EXPECT_EQ(type.kind, automation::VariantKind::Long);
  ASSERT_NE(type.enumeration, nullptr);
  EXPECT_EQ(type.enumeration->members.back().name, "eTS_SDBrowser");
}

}  // namespace
}  // namespace quenzel7
