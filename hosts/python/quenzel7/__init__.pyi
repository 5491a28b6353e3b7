# Written by `python3 -m quenzel7.stubs`: change what the library tells of its members, not this file.
# A contract is a base here of the classes that have it, so that each member stands once.
# mypy: disable-error-code="override,misc"
from decimal import Decimal
from enum import IntEnum
from typing import Any, Iterator, List, Literal, SupportsIndex, Type, Union, overload

from ._library import LibraryNotFoundError as LibraryNotFoundError
from ._platform import platform as platform
from ._property_bag import Bag as Bag
from ._property_bag import property_bag as property_bag
from ._version import __version__ as __version__
from .arrays import CollisionMap as CollisionMap
from .arrays import Null as Null
from .arrays import Ref as Ref
from .errors import AutomationError as AutomationError
from .errors import UnknownMemberError as UnknownMemberError
from .project import Project as Project
from .surface import Surface as Surface

_Bytes = Union[bytes, bytearray, memoryview]

class _Object:
    """An object of the library. Names are found in any case, but only their published spelling is known here,
    so that a misspelt one is told."""

class enVarType(IntEnum):
    eVT_None = 0
    eVT_BinaryImage = 1
    eVT_BinaryText = 2
    eVT_ListText = 3
    eVT_ListImage = 4
    eVT_DateTime = 5
    eVT_TimeFunctions = 6
    eVT_Timer = 7
    eVT_Numeric = 8
    eVT_BarGraph = 9
    eVT_Float = 10
    eVT_RangeTexts = 11
    eVT_RangeImages = 12
    eVT_Password = 13
    eVT_NumOfVarTypes = 14
    eVT_DisplayString = 15
    eVT_Counter = 16
    eVT_DataTable = 17
    eVT_ShapeGraph = 18
    eVT_UTC = 19
    eVT_MovingImage = 20
    eVT_Meter = 21
    eVT_TankGraph = 22
    eVT_Trend = 23
    eVT_LED = 24
    eVT_Thermometer = 25
    eVT_LinearGague = 26
    eVT_SDTrendViewer = 27
    eVT_SDBrowser = 28
    eVT_NumericRange = 29
    eVT_PassString = 30

class enCollisionStatus(IntEnum):
    eCS_Legall = 0
    eCS_Overlap = 1
    eCS_OutOfRAnge = 2
    eCS_BadSize = 3

class enPickUpDirection(IntEnum):
    ePD_None = 0
    ePD_UpRight = 1
    ePD_Right = 2
    ePD_DownRight = 3
    ePD_Down = 4
    ePD_LeftDown = 5
    ePD_Left = 6
    ePD_UpLeft = 7
    ePD_Up = 8
    ePD_LineHead = 9
    ePD_LineTail = 10

class enPenStyle(IntEnum):
    ePS_Solid = 0
    ePS_Dash = 1
    ePS_Dot = 2
    ePS_Dash_Dot = 3
    ePS_Dash_Dot_Dot = 4

class enHatchStyle(IntEnum):
    eHS_Horizontal = 0
    eHS_Vertical = 1
    eHS_Upward_Diagonal = 2
    eHS_Downward_Diagonal = 3
    eHS_Cross = 4
    eHS_Diagonal_Cross = 5
    eHS_None = 99

class enFillStyle(IntEnum):
    eFS_Hollow = 0
    eFS_Solid = 1

class enOperandPurpose(IntEnum):
    eOP_None = 0
    eOP_VarLinkOperand = 1
    eOP_TouchOperand = 2
    eOP_VarBinaryDataOperand = 3
    eOP_EnabledOperand = 4
    eOP_VisibleOperand = 5
    eOP_HighlightOperand = 6
    eOP_KeypadSuccessOperand = 7
    eOP_StorageStringIdOperand = 8

class enTouchStyle(IntEnum):
    eTS_None = 0
    eTS_MB_Connected = 1
    eTS_Keypad_Entry = 2
    eTS_Calendar = 3
    eTS_TAB = 4
    eTS_Trend = 5
    eTS_Switch = 6
    eTS_Alphanumeric = 7
    eTS_ChangeColors = 8
    eTS_SDTrend = 9
    eTS_SDBrowser = 10

class enAddElementToTree(IntEnum):
    eAT_No = 0
    eAT_Add = 1

class enBaseFormat(IntEnum):
    eBF_Decimal = 0
    eBF_Hex = 1
    eBF_Binary = 2

class enRectAppearance(IntEnum):
    eRA_Flat = 0
    eRA_FixedSingle = 1
    eRA_Gradient = 2

class enRectBorderStyle(IntEnum):
    eRBS_Convex = 0
    eRBS_Concave = 1

class enRTCType(IntEnum):
    eRT_None = -1
    eRT_hh_mm = 0
    eRT_hh_mm_ss = 1
    eRT_ddd = 2
    eRT_ddddddddd = 3
    eRT_dd_mm = 4
    eRT_mm_dd = 5
    eRT_dd_mm_yy = 6
    eRT_mm_dd_yy = 7
    eRT_hh_mm_AM_PM = 8
    eRT_hh_mm_ss_AM_PM = 9

class enBarGraphDrawType(IntEnum):
    eBD_None = 0
    eBD_BottomToTop = 1
    eBD_TopToBottom = 2
    eBD_LeftToRight = 3
    eBD_RightToLeft = 4

class enShapeGraphType(IntEnum):
    eST_Circle = 0
    eST_Gauge_Normal = 1
    eST_Gauge_Full = 2
    eST_Gauge_Left = 3
    eST_Gauge_Right = 4
    eST_Tank_1 = 5
    eST_Tank_2 = 6
    eST_Tank_3 = 7
    eST_Tank_4 = 8

class enTimerType(IntEnum):
    eTT_None = 0
    eTT_Current = 1
    eTT_Preset = 2

class enTimerDisplayType(IntEnum):
    eDT_None = 0
    eDT_Remaining = 1
    eDT_Elapsed = 2

class enTimerFormatType(IntEnum):
    eFT_None = -1
    eFT_SS = 0
    eFT_MM = 1
    eFT_SS_hh = 2
    eFT_MM_SS = 3
    eFT_HH_MM = 4
    eFT_MM_SS_hh = 5
    eFT_HH_MM_SS = 6
    eFT_HH_MM_SS_hh = 7
    eFT_SecondsOnly = 8

class enTimeFuncFormatType(IntEnum):
    eTFT_None = 0
    eTFT_CT = 1
    eTFT_CW = 2
    eTFT_CD = 3
    eTFT_CM = 4
    eTFT_CY = 5

class enLeadingType(IntEnum):
    eLT_Mone = 0
    eLT_Zeroes = -1
    eLT_Spaces = 2

class enDateUTCType(IntEnum):
    eDU_dd_mm = 4
    eDU_mm_dd = 5
    eDU_dd_mm_yy = 6
    eDU_mm_dd_yy = 7

class enTimeUTCType(IntEnum):
    eTU_HH_MM = 0
    eTU_HH_MM_SS = 1
    eTU_HH_MM_AM_PM = 8
    eTU_HH_MM_SS_AM_PM = 9

class enLanguagesKeyboards(IntEnum):
    eLK_English = 0
    eLK_Hebrew = 1

class enMovingDirection(IntEnum):
    eMD_Horizontal = 0
    eMD_Vertical = 1

class enKeypadDIsplayType(IntEnum):
    eKDT_FullSize = 0
    eKDT_HalfSize = 1
    eKDT_QuarterSize = 2

class enMeterDirection(IntEnum):
    eMD_CW = 0
    eMD_CCW = 1

class enMeterTicksLocation(IntEnum):
    eMTL_Outside = 0
    eMTL_Middle = 1
    eMTL_Inside = 2

class enDateFormat(IntEnum):
    eDF_EUROPE = 0
    eDF_USA = 1

class enHistoryScrollMode(IntEnum):
    eHSM_Full = 0
    eHSM_Quarter = 1
    eHSM_Half = 2
    eHSM_3Quarters = 3

class enKeyboardType(IntEnum):
    eKT_Simple_Del = 1
    eKT_Simple_Back = 11
    eKT_Complex_Dec = 2
    eKT_Complex_Hex = 12
    eKT_Simple_Back_Ex = 17

class enSdBrowserOpID(IntEnum):
    eSBOI_First = 0
    eSBOI_EnableDeleteBtn = 1
    eSBOI_StatusRegister = 2
    eSBOI_OutputVector = 3
    eSBOI_FolderType = 4
    eSBOI_Last = 5

class CursorType(IntEnum):
    adOpenForwardOnly = 0
    adOpenKeyset = 1
    adOpenDynamic = 2
    adOpenStatic = 3

class LockType(IntEnum):
    adLockReadOnly = 1
    adLockPessimistic = 2
    adLockOptimistic = 3

class CommandOption(IntEnum):
    adCmdText = 1

class ItfImage(_Object):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> Any:
        """The same object by its default interface."""
    @property
    def ItfImage(self) -> _ItfImage:
        """The same object by this interface alone."""
    @property
    def Image8bppCRC(self) -> int:
        """CRC of the panel pixels, which is the picture's key."""
    @Image8bppCRC.setter
    def Image8bppCRC(self, value: int) -> None: ...
    @property
    def ImageLibCRC(self) -> int:
        """CRC of the source in the image library."""
    @ImageLibCRC.setter
    def ImageLibCRC(self, value: int) -> None: ...
    @property
    def ImageIndexInVar(self) -> int:
        """Place among the pictures of its owner."""
    @ImageIndexInVar.setter
    def ImageIndexInVar(self, value: int) -> None: ...
    def GetImageData8bpp(self) -> bytes:
        """Gives the panel pixels."""
    def SetImageData8bpp(self, pRHS: _Bytes) -> None:
        """Takes panel pixels."""
    @property
    def TransparencyLevel(self) -> int:
        """0 opaque, otherwise transparent."""
    @TransparencyLevel.setter
    def TransparencyLevel(self, value: int) -> None: ...
    @property
    def ImagePath(self) -> str:
        """File that the picture came from."""
    @ImagePath.setter
    def ImagePath(self, value: str) -> None: ...
    @property
    def Dx(self) -> int:
        """Width of the picture on the panel."""
    @Dx.setter
    def Dx(self, value: int) -> None: ...
    @property
    def Dy(self) -> int:
        """Height of the picture on the panel."""
    @Dy.setter
    def Dy(self, value: int) -> None: ...
    def SetImage8bppProps(
        self, pSrcImgCRC: SupportsIndex, pDxORG: SupportsIndex, pDyORG: SupportsIndex, pData8bppORG:
        Union[Ref, _Bytes], pImgCRC: SupportsIndex, pImgWidth: SupportsIndex, pImgHeight: SupportsIndex,
        pData8bpp: Union[Ref, _Bytes], pImgIndexInVar: SupportsIndex, pTransparencyLevel: SupportsIndex,
        pImagePath: str,
    ) -> None:
        """Takes a picture as the image library gives it."""
    def SetImage8bppPropsEx(
        self, pSrcImgCRC: SupportsIndex, pDxORG: SupportsIndex, pDyORG: SupportsIndex, pData8bppORG:
        Union[Ref, _Bytes], pImgCRC: SupportsIndex, pImgWidth: SupportsIndex, pImgHeight: SupportsIndex,
        pData8bpp: Union[Ref, _Bytes], pImgIndexInVar: SupportsIndex, pTransparencyLevel: SupportsIndex,
        pImagePath: str, pBits: SupportsIndex,
    ) -> None:
        """Takes a picture, and how many bits a pixel takes."""

class ItfHmiElement(_Object):
    @property
    def default(self) -> Any:
        """The same object by its default interface."""
    @property
    def ItfHmiElement(self) -> _ItfHmiElement:
        """The same object by this interface alone."""
    @property
    def EnabledOpAddr(self) -> int:
        """Address of the memory bit that enables the element; -1 none."""
    @EnabledOpAddr.setter
    def EnabledOpAddr(self, value: int) -> None: ...
    @property
    def VisibleOpAddr(self) -> int:
        """Address of the memory bit that hides the element; -1 none. Writing -1 first removes the operand's
        row."""
    @VisibleOpAddr.setter
    def VisibleOpAddr(self, value: int) -> None: ...
    @property
    def HighlightOpAddr(self) -> int:
        """Address of the memory bit that highlights the element; -1 none."""
    @HighlightOpAddr.setter
    def HighlightOpAddr(self, value: int) -> None: ...
    @property
    def KeypadSuccessOpAddr(self) -> int:
        """Address of the memory bit that is set on a keypad entry; -1 none."""
    @KeypadSuccessOpAddr.setter
    def KeypadSuccessOpAddr(self, value: int) -> None: ...
    def LoadFromDB(self, pRsElement: Any) -> bool:
        """Fills the element from the row on which the recordset stands and builds the operand bags. The
        recordset stays open, on the same row. Hosts must not rely on the result."""
    def GetBoundingRect(
        self, pXs: Union[Ref, SupportsIndex], pYs: Union[Ref, SupportsIndex], pDx: Union[Ref, SupportsIndex],
        pDy: Union[Ref, SupportsIndex], pLocation: SupportsIndex = ...,
    ) -> None:
        """Gives position and size of descriptor pLocation (1 to 4, 1 when left out), in panel pixels. Error 9
        for another descriptor."""
    @property
    def IsTouchable(self) -> bool:
        """Whether a touch drives an operand. Writing False removes the touch operand's row and the operand;
        writing True does nothing."""
    @IsTouchable.setter
    def IsTouchable(self, value: bool) -> None: ...
    @property
    def ElementType(self) -> int:
        """The number of the class in the project."""
    def SaveInitialPosition(self) -> None:
        """Begins a drag: descriptor 1 is copied to 2, then to 4."""
    def SaveLastLegalPosition(self) -> None:
        """Accepts the proposed position: descriptor 3 is copied to 2."""
    def UpdateDisplayWithTransx(self) -> None:
        """Shows the proposed position: descriptor 3 is copied to 4."""
    def UpdateDisplayWithLastLegal(self) -> None:
        """Shows the last legal position: descriptor 2 is copied to 4."""
    def UpdateInitialDescriptor(self) -> None:
        """Ends a drag: descriptor 2 is copied to 1."""
    def Draw(self, pHdc: SupportsIndex, pDrawBoundingRect: bool) -> None:
        """Paints the element at descriptor 4 into a device context and leaves the selected objects as
        found."""
    def DrawNonVarsInGroup(self, pHdc: SupportsIndex, pDrawBoundingRect: bool) -> None:
        """Paints what is no variable in a group; nothing on an element that is no group."""
    def DrawVarsInGroup(self, pHdc: SupportsIndex, pDrawBoundingRect: bool) -> None:
        """Paints the variables in a group; nothing on an element that is no group."""
    def SaveToDB(self) -> None:
        """Writes the element's row, creating it when it has none yet."""
    def Stretch(self, pDx: SupportsIndex, pDy: SupportsIndex, pDirection: SupportsIndex) -> None:
        """Computes descriptor 3 from descriptor 1 by dragging the pick-up pDirection (enPickUpDirection) by
        pDx, pDy pixels, the total movement since the drag began."""
    def GetPupDirection(
        self, pX: SupportsIndex, Py: SupportsIndex, pWidth: SupportsIndex,
    ) -> enPickUpDirection:
        """Which pick-up lies at the point; pWidth is the size of a handle in pixels."""
    def HitTestByPoint(self, pX: SupportsIndex, Py: SupportsIndex) -> bool:
        """Whether the point lies on the element, at descriptor 1 unless its class tells otherwise."""
    def GetToolTipText(self) -> str:
        """The tool tip, from descriptor 4."""
    def HitTestByRect(
        self, pRectXs: SupportsIndex, pRectYs: SupportsIndex, pRectDx: SupportsIndex, pRectDy: SupportsIndex,
    ) -> bool:
        """Whether the rectangle and the element at descriptor 1 meet."""
    def Move(self, pDx: SupportsIndex, pDy: SupportsIndex) -> None:
        """Sets descriptor 3 to descriptor 1 shifted by pDx, pDy pixels, the total movement since the drag
        began."""
    @property
    def IsCanceled(self) -> bool:
        """A mark of the host's, held in memory only."""
    @IsCanceled.setter
    def IsCanceled(self, value: bool) -> None: ...
    def DeleteFromDB(self) -> None:
        """Removes the element's rows; the object and its fields stay."""
    @property
    def Xs(self) -> int:
        """Left edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Xs.setter
    def Xs(self, value: int) -> None: ...
    @property
    def Ys(self) -> int:
        """Top edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Ys.setter
    def Ys(self, value: int) -> None: ...
    @property
    def Dx(self) -> int:
        """Width in panel pixels; of a line, how far its tail lies to the right of its head, negative to the
        left. Writing sets all four descriptors; reading gives descriptor 1."""
    @Dx.setter
    def Dx(self, value: int) -> None: ...
    @property
    def Dy(self) -> int:
        """Height in panel pixels; of a line, how far its tail lies below its head, negative above. Writing
        sets all four descriptors; reading gives descriptor 1."""
    @Dy.setter
    def Dy(self, value: int) -> None: ...
    def GetOptimalDimensions(
        self, pXs: Union[Ref, SupportsIndex], pYs: Union[Ref, SupportsIndex], pDx: Union[Ref, SupportsIndex],
        pDy: Union[Ref, SupportsIndex],
    ) -> None:
        """Gives the position and size that the element would like."""
    def Replica(self) -> Any:
        """A new object of the same class with the same values, the same ID included."""
    @property
    def ID(self) -> int:
        """Key of the element's row; -1 until the row exists."""
    @ID.setter
    def ID(self, value: int) -> None: ...
    @property
    def FontNumber(self) -> int:
        """Number of the panel font."""
    @FontNumber.setter
    def FontNumber(self, value: int) -> None: ...
    def RestoreAllOperands(self) -> None:
        """Writes the element's operand rows anew from its operand bags."""
    @property
    def TouchOprndAddr(self) -> int:
        """Address of the memory bit that a touch drives; -1 none."""
    @TouchOprndAddr.setter
    def TouchOprndAddr(self, value: int) -> None: ...
    @property
    def ColorBack(self) -> int:
        """Panel colour number of the body."""
    @ColorBack.setter
    def ColorBack(self, value: int) -> None: ...
    @property
    def ColorFore(self) -> int:
        """Panel colour number of the border or the text."""
    @ColorFore.setter
    def ColorFore(self, value: int) -> None: ...
    @property
    def ColorHatch(self) -> int:
        """Panel colour number of the hatch lines."""
    @ColorHatch.setter
    def ColorHatch(self, value: int) -> None: ...
    def InvertColors(self) -> None:
        """Inverts the element's picture."""
    def Rotate(self) -> None:
        """Turns the element's picture a quarter clockwise."""
    @property
    def GroupID(self) -> int:
        """ID of the group that owns the element; -1 when it stands alone."""
    @GroupID.setter
    def GroupID(self, value: int) -> None: ...
    def GetTransformState(self, pcollisionMap: Any) -> enCollisionStatus:
        """Judges descriptor 3 against a two-dimensional array, one cell per panel pixel, addressed (x, y)."""
    @property
    def Txt(self) -> str:
        """The element's text."""
    @Txt.setter
    def Txt(self, value: str) -> None: ...
    @property
    def Alignment(self) -> int:
        """One of nine text alignments, 0 to 8."""
    @Alignment.setter
    def Alignment(self, value: int) -> None: ...
    @property
    def Flat3D(self) -> int:
        """Frame style."""
    @Flat3D.setter
    def Flat3D(self, value: int) -> None: ...
    @property
    def PenWidth(self) -> int:
        """Width of the border in panel pixels."""
    @PenWidth.setter
    def PenWidth(self, value: int) -> None: ...
    @property
    def PenStyle(self) -> enPenStyle:
        """Line style of a one-pixel border."""
    @PenStyle.setter
    def PenStyle(self, value: int) -> None: ...
    @property
    def FillStyle(self) -> enFillStyle:
        """Whether the body is filled."""
    @FillStyle.setter
    def FillStyle(self, value: int) -> None: ...
    @property
    def HatchStyle(self) -> enHatchStyle:
        """Hatch of the body."""
    @HatchStyle.setter
    def HatchStyle(self, value: int) -> None: ...
    @property
    def hBmp(self) -> int:
        """Handle of the element's bitmap."""
    @hBmp.setter
    def hBmp(self, value: int) -> None: ...
    @property
    def hBmpCRC(self) -> int:
        """CRC key of the element's picture."""
    @hBmpCRC.setter
    def hBmpCRC(self, value: int) -> None: ...
    def DrawToPrinter(self, pHdc: SupportsIndex, pVarAlias: str) -> None:
        """Paints the element for the printed report."""
    def SetNewFontNumberByLookUpTBL(self, pFontNumberLookUpTBL: Any) -> None:
        """Replaces FontNumber through a table of 32-bit integers."""
    @property
    def TabIndex(self) -> int:
        """Touch order; 255 when not assigned."""
    @TabIndex.setter
    def TabIndex(self, value: int) -> None: ...
    def UpdateBoundingRectangle(
        self, pDx: SupportsIndex, pDy: SupportsIndex, pDirection: SupportsIndex,
    ) -> Any:
        """Stretches the element; gives Empty."""
    def GetSizeFromBoundingRect(self) -> None:
        """Takes over a new size from the rectangle."""
    @property
    def TransparencyLevel(self) -> int:
        """0 opaque, otherwise transparent."""
    @TransparencyLevel.setter
    def TransparencyLevel(self, value: int) -> None: ...
    def CreateStaticElementPrinterReport(self, pVSPrinter: Any) -> None:
        """Writes the element's lines into a printed report."""
    @property
    def ColorBackTouch(self) -> int:
        """Panel colour number of the body while touched."""
    @ColorBackTouch.setter
    def ColorBackTouch(self, value: int) -> None: ...
    @property
    def ColorForeTouch(self) -> int:
        """Panel colour number of the border or the text while touched."""
    @ColorForeTouch.setter
    def ColorForeTouch(self, value: int) -> None: ...
    @property
    def OrderIndex(self) -> int:
        """Drawing order on the page, higher on top."""
    @OrderIndex.setter
    def OrderIndex(self, value: int) -> None: ...
    def SetImageSystem(self, eOption: SupportsIndex) -> None:
        """Chooses how the element's picture is kept."""

class ItfVarBinaryHandler(_Object):
    @property
    def default(self) -> Any:
        """The same object by its default interface."""
    @property
    def ItfVarBinaryHandler(self) -> _ItfVarBinaryHandler:
        """The same object by this interface alone."""
    def DeleteAllOperands(self) -> None:
        """Takes the operands that the handler has beside the link operand out of the project."""
    def RestoreAllOperands(self, pVarID: SupportsIndex) -> None:
        """Brings those operands back from their bags and writes the rows of them anew for the variable
        pVarID."""
    @property
    def BinaryData(self) -> bytes:
        """All settings of the type as the contents of a property bag."""
    @BinaryData.setter
    def BinaryData(self, value: _Bytes) -> None: ...
    @property
    def LinkOperandType(self) -> int:
        """Type of the operand that the variable shows; 0 none."""
    @LinkOperandType.setter
    def LinkOperandType(self, value: int) -> None: ...
    @property
    def LinkOperandAddress(self) -> int:
        """Address of that operand."""
    @LinkOperandAddress.setter
    def LinkOperandAddress(self, value: int) -> None: ...
    @property
    def DrawingElement(self) -> Any:
        """The element that paints the variable."""
    def Replica(self) -> Any:
        """A new handler of the same class with the same settings and the same operand bags; without the link
        operand."""
    def GetOptimalDimensions(
        self, pDx: Union[Ref, SupportsIndex], pDy: Union[Ref, SupportsIndex],
    ) -> None:
        """Changes a size in panel pixels to what the content needs; some handlers leave it alone."""
    def GetBinaryDataForCRC(self) -> bytes:
        """What of the settings the change key is made of."""
    def ReplaceOperand(
        self, pOpType: SupportsIndex, pOpAddress: SupportsIndex, pNewOpType: SupportsIndex, pNewOpAddress:
        SupportsIndex,
    ) -> None:
        """Puts an operand in the place of another wherever the handler has that beside the link operand."""
    def AddOperandsToHmiOperands(self, pVarID: SupportsIndex) -> None:
        """Writes rows of those operands for the variable pVarID, as they stand."""
    def SetNewFontNumberByLookUpTBL(self, pFontNumberLookUpTBL: Any) -> None:
        """Does nothing: fonts are renumbered by ValidateFontNumber."""
    def ValidateFontNumber(self, pFontNumCollection: Any) -> None:
        """Replaces the font's number by the item of which it is the key, in the text too; where there is
        none, by the first item, and the text keeps its font. Error 9 for an empty collection, 91 for none."""
    def IsHmiFontInUse(self, pFontNum: SupportsIndex) -> bool:
        """Whether the handler shows a text in that font."""
    def UpdateOnFontDelete(self, pFontNum: SupportsIndex) -> None:
        """Takes 1 from font numbers beyond that of a deleted font."""
    def BuildOpPropBag(self) -> None:
        """Makes the operand bags of the handler anew."""
    def ReleaseResources(self) -> None:
        """Releases what the handler owns; it can no longer draw then."""
    def Rotate(self) -> None:
        """Turns the picture of the variable."""
    def InvertColors(self) -> None:
        """Inverts the picture of the variable."""
    def BuildImageList(self, pElementID: SupportsIndex) -> None:
        """Loads the pictures of the element pElementID."""
    def ResizeImages(
        self, pNewDx: SupportsIndex, pNewDy: SupportsIndex, pElementID: SupportsIndex, pIndexInVar:
        SupportsIndex,
    ) -> None:
        """Makes the pictures anew at another size in panel pixels; pIndexInVar is the one that is shown."""
    def SaveToDB(self, pElementID: SupportsIndex, pVarType: SupportsIndex) -> None:
        """Saves what does not stand in the row of the element pElementID."""

class clsRectangle(ItfHmiElement):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsRectangle:
        """The same object by its default interface."""
    @property
    def ColOpPropBag(self) -> Any:
        """Operand bags of the element, taken by reference."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    @property
    def VisibleOpAddr(self) -> int:
        """Address of the memory bit that hides the element; -1 none. Writing leaves the operand's row
        alone."""
    @VisibleOpAddr.setter
    def VisibleOpAddr(self, value: int) -> None: ...
    @property
    def TouchOprndAddr(self) -> int:
        """Address of the memory bit that a touch drives; -1 none."""
    @TouchOprndAddr.setter
    def TouchOprndAddr(self, value: int) -> None: ...
    @property
    def HatchStyle(self) -> enHatchStyle:
        """Hatch of the body."""
    @HatchStyle.setter
    def HatchStyle(self, value: int) -> None: ...
    @property
    def PenWidth(self) -> int:
        """Width of the border in panel pixels."""
    @PenWidth.setter
    def PenWidth(self, value: int) -> None: ...
    @property
    def PenStyle(self) -> enPenStyle:
        """Line style of a one-pixel border."""
    @PenStyle.setter
    def PenStyle(self, value: int) -> None: ...
    @property
    def FillStyle(self) -> enFillStyle:
        """Whether the body is filled."""
    @FillStyle.setter
    def FillStyle(self, value: int) -> None: ...
    @property
    def ColorHatch(self) -> int:
        """Panel colour number of the hatch lines."""
    @ColorHatch.setter
    def ColorHatch(self, value: int) -> None: ...
    @property
    def ColorFore(self) -> int:
        """Panel colour number of the border or the text."""
    @ColorFore.setter
    def ColorFore(self, value: int) -> None: ...
    @property
    def ColorBack(self) -> int:
        """Panel colour number of the body."""
    @ColorBack.setter
    def ColorBack(self, value: int) -> None: ...
    @property
    def GroupID(self) -> int:
        """ID of the group that owns the element; -1 when it stands alone."""
    @GroupID.setter
    def GroupID(self, value: int) -> None: ...
    @property
    def ID(self) -> int:
        """Key of the element's row; -1 until the row exists."""
    @ID.setter
    def ID(self, value: int) -> None: ...
    @property
    def Xs(self) -> int:
        """Left edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Xs.setter
    def Xs(self, value: int) -> None: ...
    @property
    def Ys(self) -> int:
        """Top edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Ys.setter
    def Ys(self, value: int) -> None: ...
    @property
    def Dx(self) -> int:
        """Width in panel pixels; of a line, how far its tail lies to the right of its head, negative to the
        left. Writing sets all four descriptors; reading gives descriptor 1."""
    @Dx.setter
    def Dx(self, value: int) -> None: ...
    @property
    def Dy(self) -> int:
        """Height in panel pixels; of a line, how far its tail lies below its head, negative above. Writing
        sets all four descriptors; reading gives descriptor 1."""
    @Dy.setter
    def Dy(self, value: int) -> None: ...
    def SaveToDB(self) -> bool:
        """Writes the element's row; always True."""
    def ItfHmiElement_CreateStaticElementPrinterReport(self, pVSPrinter: Any) -> None:
        """Writes the element's lines into a printed report."""
    @property
    def ColorForeTouch(self) -> int:
        """Panel colour number of the border or the text while touched."""
    @ColorForeTouch.setter
    def ColorForeTouch(self, value: int) -> None: ...
    @property
    def ColorBackTouch(self) -> int:
        """Panel colour number of the body while touched."""
    @ColorBackTouch.setter
    def ColorBackTouch(self, value: int) -> None: ...
    @property
    def OrderIndex(self) -> int:
        """Drawing order on the page, higher on top."""
    @OrderIndex.setter
    def OrderIndex(self, value: int) -> None: ...

class clsEllipse(ItfHmiElement):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsEllipse:
        """The same object by its default interface."""
    @property
    def ColOpPropBag(self) -> Any:
        """Operand bags of the element, taken by reference."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    @property
    def VisibleOpAddr(self) -> int:
        """Address of the memory bit that hides the element; -1 none. Writing leaves the operand's row
        alone."""
    @VisibleOpAddr.setter
    def VisibleOpAddr(self, value: int) -> None: ...
    @property
    def TouchOprndAddr(self) -> int:
        """Address of the memory bit that a touch drives; -1 none."""
    @TouchOprndAddr.setter
    def TouchOprndAddr(self, value: int) -> None: ...
    @property
    def HatchStyle(self) -> enHatchStyle:
        """Hatch of the body."""
    @HatchStyle.setter
    def HatchStyle(self, value: int) -> None: ...
    @property
    def PenWidth(self) -> int:
        """Width of the border in panel pixels."""
    @PenWidth.setter
    def PenWidth(self, value: int) -> None: ...
    @property
    def PenStyle(self) -> enPenStyle:
        """Line style of a one-pixel border."""
    @PenStyle.setter
    def PenStyle(self, value: int) -> None: ...
    @property
    def FillStyle(self) -> enFillStyle:
        """Whether the body is filled."""
    @FillStyle.setter
    def FillStyle(self, value: int) -> None: ...
    @property
    def ColorHatch(self) -> int:
        """Panel colour number of the hatch lines."""
    @ColorHatch.setter
    def ColorHatch(self, value: int) -> None: ...
    @property
    def ColorFore(self) -> int:
        """Panel colour number of the border or the text."""
    @ColorFore.setter
    def ColorFore(self, value: int) -> None: ...
    @property
    def ColorBack(self) -> int:
        """Panel colour number of the body."""
    @ColorBack.setter
    def ColorBack(self, value: int) -> None: ...
    @property
    def GroupID(self) -> int:
        """ID of the group that owns the element; -1 when it stands alone."""
    @GroupID.setter
    def GroupID(self, value: int) -> None: ...
    @property
    def ID(self) -> int:
        """Key of the element's row; -1 until the row exists."""
    @ID.setter
    def ID(self, value: int) -> None: ...
    @property
    def Xs(self) -> int:
        """Left edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Xs.setter
    def Xs(self, value: int) -> None: ...
    @property
    def Ys(self) -> int:
        """Top edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Ys.setter
    def Ys(self, value: int) -> None: ...
    @property
    def Dx(self) -> int:
        """Width in panel pixels; of a line, how far its tail lies to the right of its head, negative to the
        left. Writing sets all four descriptors; reading gives descriptor 1."""
    @Dx.setter
    def Dx(self, value: int) -> None: ...
    @property
    def Dy(self) -> int:
        """Height in panel pixels; of a line, how far its tail lies below its head, negative above. Writing
        sets all four descriptors; reading gives descriptor 1."""
    @Dy.setter
    def Dy(self, value: int) -> None: ...
    def SaveToDB(self) -> bool:
        """Writes the element's row; always True."""
    def ItfHmiElement_CreateStaticElementPrinterReport(self, pVSPrinter: Any) -> None:
        """Writes the element's lines into a printed report."""
    @property
    def ColorForeTouch(self) -> int:
        """Panel colour number of the border or the text while touched."""
    @ColorForeTouch.setter
    def ColorForeTouch(self, value: int) -> None: ...
    @property
    def ColorBackTouch(self) -> int:
        """Panel colour number of the body while touched."""
    @ColorBackTouch.setter
    def ColorBackTouch(self, value: int) -> None: ...
    @property
    def OrderIndex(self) -> int:
        """Drawing order on the page, higher on top."""
    @OrderIndex.setter
    def OrderIndex(self, value: int) -> None: ...

class clsRoundRect(ItfHmiElement):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsRoundRect:
        """The same object by its default interface."""
    @property
    def ColOpPropBag(self) -> Any:
        """Operand bags of the element, taken by reference."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    @property
    def VisibleOpAddr(self) -> int:
        """Address of the memory bit that hides the element; -1 none. Writing leaves the operand's row
        alone."""
    @VisibleOpAddr.setter
    def VisibleOpAddr(self, value: int) -> None: ...
    @property
    def TouchOprndAddr(self) -> int:
        """Address of the memory bit that a touch drives; -1 none."""
    @TouchOprndAddr.setter
    def TouchOprndAddr(self, value: int) -> None: ...
    @property
    def HatchStyle(self) -> enHatchStyle:
        """Hatch of the body."""
    @HatchStyle.setter
    def HatchStyle(self, value: int) -> None: ...
    @property
    def PenWidth(self) -> int:
        """Width of the border in panel pixels."""
    @PenWidth.setter
    def PenWidth(self, value: int) -> None: ...
    @property
    def PenStyle(self) -> enPenStyle:
        """Line style of a one-pixel border."""
    @PenStyle.setter
    def PenStyle(self, value: int) -> None: ...
    @property
    def FillStyle(self) -> enFillStyle:
        """Whether the body is filled."""
    @FillStyle.setter
    def FillStyle(self, value: int) -> None: ...
    @property
    def ColorHatch(self) -> int:
        """Panel colour number of the hatch lines."""
    @ColorHatch.setter
    def ColorHatch(self, value: int) -> None: ...
    @property
    def ColorFore(self) -> int:
        """Panel colour number of the border or the text."""
    @ColorFore.setter
    def ColorFore(self, value: int) -> None: ...
    @property
    def ColorBack(self) -> int:
        """Panel colour number of the body."""
    @ColorBack.setter
    def ColorBack(self, value: int) -> None: ...
    @property
    def GroupID(self) -> int:
        """ID of the group that owns the element; -1 when it stands alone."""
    @GroupID.setter
    def GroupID(self, value: int) -> None: ...
    @property
    def ID(self) -> int:
        """Key of the element's row; -1 until the row exists."""
    @ID.setter
    def ID(self, value: int) -> None: ...
    @property
    def Xs(self) -> int:
        """Left edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Xs.setter
    def Xs(self, value: int) -> None: ...
    @property
    def Ys(self) -> int:
        """Top edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Ys.setter
    def Ys(self, value: int) -> None: ...
    @property
    def Dx(self) -> int:
        """Width in panel pixels; of a line, how far its tail lies to the right of its head, negative to the
        left. Writing sets all four descriptors; reading gives descriptor 1."""
    @Dx.setter
    def Dx(self, value: int) -> None: ...
    @property
    def Dy(self) -> int:
        """Height in panel pixels; of a line, how far its tail lies below its head, negative above. Writing
        sets all four descriptors; reading gives descriptor 1."""
    @Dy.setter
    def Dy(self, value: int) -> None: ...
    def SaveToDB(self) -> bool:
        """Writes the element's row; always True."""
    def ItfHmiElement_CreateStaticElementPrinterReport(self, pVSPrinter: Any) -> None:
        """Writes the element's lines into a printed report."""
    @property
    def ColorForeTouch(self) -> int:
        """Panel colour number of the border or the text while touched."""
    @ColorForeTouch.setter
    def ColorForeTouch(self, value: int) -> None: ...
    @property
    def ColorBackTouch(self) -> int:
        """Panel colour number of the body while touched."""
    @ColorBackTouch.setter
    def ColorBackTouch(self, value: int) -> None: ...
    @property
    def OrderIndex(self) -> int:
        """Drawing order on the page, higher on top."""
    @OrderIndex.setter
    def OrderIndex(self, value: int) -> None: ...

class clsLine(ItfHmiElement):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsLine:
        """The same object by its default interface."""
    @property
    def ColOpPropBag(self) -> Any:
        """Operand bags of the element, taken by reference."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    @property
    def VisibleOpAddr(self) -> int:
        """Address of the memory bit that hides the element; -1 none. Writing leaves the operand's row
        alone."""
    @VisibleOpAddr.setter
    def VisibleOpAddr(self, value: int) -> None: ...
    @property
    def TouchOprndAddr(self) -> int:
        """Address of the memory bit that a touch drives; -1 none."""
    @TouchOprndAddr.setter
    def TouchOprndAddr(self, value: int) -> None: ...
    @property
    def HatchStyle(self) -> enHatchStyle:
        """Hatch of the body."""
    @HatchStyle.setter
    def HatchStyle(self, value: int) -> None: ...
    @property
    def PenWidth(self) -> int:
        """Width of the border in panel pixels."""
    @PenWidth.setter
    def PenWidth(self, value: int) -> None: ...
    @property
    def PenStyle(self) -> enPenStyle:
        """Line style of a one-pixel border."""
    @PenStyle.setter
    def PenStyle(self, value: int) -> None: ...
    @property
    def FillStyle(self) -> enFillStyle:
        """Whether the body is filled."""
    @FillStyle.setter
    def FillStyle(self, value: int) -> None: ...
    @property
    def ColorHatch(self) -> int:
        """Panel colour number of the hatch lines."""
    @ColorHatch.setter
    def ColorHatch(self, value: int) -> None: ...
    @property
    def ColorFore(self) -> int:
        """Panel colour number of the border or the text."""
    @ColorFore.setter
    def ColorFore(self, value: int) -> None: ...
    @property
    def ColorBack(self) -> int:
        """Panel colour number of the body."""
    @ColorBack.setter
    def ColorBack(self, value: int) -> None: ...
    @property
    def GroupID(self) -> int:
        """ID of the group that owns the element; -1 when it stands alone."""
    @GroupID.setter
    def GroupID(self, value: int) -> None: ...
    @property
    def ID(self) -> int:
        """Key of the element's row; -1 until the row exists."""
    @ID.setter
    def ID(self, value: int) -> None: ...
    @property
    def Xs(self) -> int:
        """Left edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Xs.setter
    def Xs(self, value: int) -> None: ...
    @property
    def Ys(self) -> int:
        """Top edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Ys.setter
    def Ys(self, value: int) -> None: ...
    @property
    def Dx(self) -> int:
        """Width in panel pixels; of a line, how far its tail lies to the right of its head, negative to the
        left. Writing sets all four descriptors; reading gives descriptor 1."""
    @Dx.setter
    def Dx(self, value: int) -> None: ...
    @property
    def Dy(self) -> int:
        """Height in panel pixels; of a line, how far its tail lies below its head, negative above. Writing
        sets all four descriptors; reading gives descriptor 1."""
    @Dy.setter
    def Dy(self, value: int) -> None: ...
    def SaveToDB(self) -> bool:
        """Writes the element's row; always True."""
    def ItfHmiElement_CreateStaticElementPrinterReport(self, pVSPrinter: Any) -> None:
        """Writes the element's lines into a printed report."""
    @property
    def ColorForeTouch(self) -> int:
        """Panel colour number of the border or the text while touched."""
    @ColorForeTouch.setter
    def ColorForeTouch(self, value: int) -> None: ...
    @property
    def ColorBackTouch(self) -> int:
        """Panel colour number of the body while touched."""
    @ColorBackTouch.setter
    def ColorBackTouch(self, value: int) -> None: ...
    @property
    def OrderIndex(self) -> int:
        """Drawing order on the page, higher on top."""
    @OrderIndex.setter
    def OrderIndex(self, value: int) -> None: ...

class clsText(ItfHmiElement):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsText:
        """The same object by its default interface."""
    @property
    def ID(self) -> int:
        """Key of the element's row; -1 until the row exists."""
    @ID.setter
    def ID(self, value: int) -> None: ...
    @property
    def GroupID(self) -> int:
        """ID of the group that owns the element; -1 when it stands alone."""
    @GroupID.setter
    def GroupID(self, value: int) -> None: ...
    @property
    def Xs(self) -> int:
        """Left edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Xs.setter
    def Xs(self, value: int) -> None: ...
    @property
    def Ys(self) -> int:
        """Top edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Ys.setter
    def Ys(self, value: int) -> None: ...
    @property
    def Dx(self) -> int:
        """Width in panel pixels; of a line, how far its tail lies to the right of its head, negative to the
        left. Writing sets all four descriptors; reading gives descriptor 1."""
    @Dx.setter
    def Dx(self, value: int) -> None: ...
    @property
    def Dy(self) -> int:
        """Height in panel pixels; of a line, how far its tail lies below its head, negative above. Writing
        sets all four descriptors; reading gives descriptor 1."""
    @Dy.setter
    def Dy(self, value: int) -> None: ...
    @property
    def ColorBack(self) -> int:
        """Panel colour number of the body."""
    @ColorBack.setter
    def ColorBack(self, value: int) -> None: ...
    @property
    def ColorFore(self) -> int:
        """Panel colour number of the border or the text."""
    @ColorFore.setter
    def ColorFore(self, value: int) -> None: ...
    @property
    def ColorBackTouch(self) -> int:
        """Panel colour number of the body while touched."""
    @ColorBackTouch.setter
    def ColorBackTouch(self, value: int) -> None: ...
    @property
    def ColorForeTouch(self) -> int:
        """Panel colour number of the border or the text while touched."""
    @ColorForeTouch.setter
    def ColorForeTouch(self, value: int) -> None: ...
    @property
    def TouchOprndAddr(self) -> int:
        """Address of the memory bit that a touch drives; -1 none."""
    @TouchOprndAddr.setter
    def TouchOprndAddr(self, value: int) -> None: ...
    @property
    def Txt(self) -> str:
        """The text as it was written, its lines parted by CR and LF."""
    @Txt.setter
    def Txt(self, value: str) -> None: ...
    @property
    def ActualText(self) -> str:
        """What is painted: as much of the text as fits. Written, it is shown as it stands; reading fits the
        text anew."""
    @ActualText.setter
    def ActualText(self, value: str) -> None: ...
    @property
    def FontNumber(self) -> int:
        """Number of the panel font."""
    @FontNumber.setter
    def FontNumber(self, value: int) -> None: ...
    @property
    def VisibleOpAddr(self) -> int:
        """Address of the memory bit that hides the element; -1 none. Writing leaves the operand's row
        alone."""
    @VisibleOpAddr.setter
    def VisibleOpAddr(self, value: int) -> None: ...
    @property
    def ColOpPropBag(self) -> Collection:
        """Operand bags of the element; writing shares the collection, or builds them anew when an operand
        picks the string."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    @property
    def Alignment(self) -> int:
        """One of nine text alignments, 0 to 8."""
    @Alignment.setter
    def Alignment(self, value: int) -> None: ...
    @property
    def Flat3D(self) -> int:
        """Frame style: 0 flat, 1 raised, 2 flat with room for a box, 3 sunken, 4 transparent."""
    @Flat3D.setter
    def Flat3D(self, value: int) -> None: ...
    @property
    def StorageStringType(self) -> int:
        """0 for a string of the library, otherwise the type of the operand that picks it."""
    @StorageStringType.setter
    def StorageStringType(self, value: int) -> None: ...
    @property
    def StorageStringID(self) -> int:
        """Number of a string in the library, or address of the operand that picks it; -1 for a constant
        text."""
    @StorageStringID.setter
    def StorageStringID(self, value: int) -> None: ...
    @property
    def TabIndex(self) -> int:
        """Touch order; 255 when not assigned."""
    @TabIndex.setter
    def TabIndex(self, value: int) -> None: ...
    @property
    def OrderIndex(self) -> int:
        """Drawing order on the page, higher on top."""
    @OrderIndex.setter
    def OrderIndex(self, value: int) -> None: ...
    @property
    def IsCanceled(self) -> bool:
        """A mark of the host's, held in memory only."""
    @IsCanceled.setter
    def IsCanceled(self, value: bool) -> None: ...
    def GetOptimalDimensions(
        self, pDx: Union[Ref, SupportsIndex], pDy: Union[Ref, SupportsIndex],
    ) -> None:
        """Gives the size in panel pixels at which nothing of the text is cut."""
    def SaveToDB(self) -> bool:
        """Writes the element's row; always True."""
    def ItfHmiElement_CreateStaticElementPrinterReport(self, pVSPrinter: Any) -> None:
        """Writes the element's lines into a printed report."""

class clsBitmap(ItfHmiElement, ItfImage):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsBitmap:
        """The same object by its default interface."""
    @property
    def OrderIndex(self) -> int:
        """Drawing order on the page, higher on top."""
    @OrderIndex.setter
    def OrderIndex(self, value: int) -> None: ...
    @property
    def ColOpPropBag(self) -> Collection:
        """Operand bags of the element; writing shares the collection."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    @property
    def VisibleOpAddr(self) -> int:
        """Address of the memory bit that hides the element; -1 none. Writing leaves the operand's row
        alone."""
    @VisibleOpAddr.setter
    def VisibleOpAddr(self, value: int) -> None: ...
    @property
    def TouchOprndAddr(self) -> int:
        """Address of the memory bit that a touch drives; -1 none."""
    @TouchOprndAddr.setter
    def TouchOprndAddr(self, value: int) -> None: ...
    @property
    def ColorBack(self) -> int:
        """Panel colour number of the body."""
    @ColorBack.setter
    def ColorBack(self, value: int) -> None: ...
    @property
    def ColorBackTouch(self) -> int:
        """Panel colour number that is kept with the element. Reading gives 0 and makes it the colour behind
        the picture."""
    @ColorBackTouch.setter
    def ColorBackTouch(self, value: int) -> None: ...
    @property
    def GroupID(self) -> int:
        """ID of the group that owns the element; -1 when it stands alone."""
    @GroupID.setter
    def GroupID(self, value: int) -> None: ...
    @property
    def ID(self) -> int:
        """Key of the element's row; -1 until the row exists."""
    @ID.setter
    def ID(self, value: int) -> None: ...
    @property
    def StretchImage(self) -> bool:
        """Whether the picture fills the element on paper."""
    @StretchImage.setter
    def StretchImage(self, value: bool) -> None: ...
    @property
    def hBmp(self) -> int:
        """Handle of the element's bitmap."""
    @hBmp.setter
    def hBmp(self, value: int) -> None: ...
    @property
    def Xs(self) -> int:
        """Left edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Xs.setter
    def Xs(self, value: int) -> None: ...
    @property
    def Ys(self) -> int:
        """Top edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Ys.setter
    def Ys(self, value: int) -> None: ...
    @property
    def Dx(self) -> int:
        """Width in panel pixels; of a line, how far its tail lies to the right of its head, negative to the
        left. Writing sets all four descriptors; reading gives descriptor 1."""
    @Dx.setter
    def Dx(self, value: int) -> None: ...
    @property
    def Dy(self) -> int:
        """Height in panel pixels; of a line, how far its tail lies below its head, negative above. Writing
        sets all four descriptors; reading gives descriptor 1."""
    @Dy.setter
    def Dy(self, value: int) -> None: ...
    @property
    def ImageCRC(self) -> int:
        """CRC key of the picture; -1 none. Writing takes the pixels of that picture from the project; where
        it has none, the old ones stay."""
    @ImageCRC.setter
    def ImageCRC(self, value: int) -> None: ...
    @property
    def TransparencyLevel(self) -> int:
        """0 opaque, otherwise transparent. Writing is saved at once, for all pictures of the element; none is
        saved before the element has a row."""
    @TransparencyLevel.setter
    def TransparencyLevel(self, value: int) -> None: ...
    @property
    def ImageIndexInVar(self) -> int:
        """Place of the picture in its owner."""
    @ImageIndexInVar.setter
    def ImageIndexInVar(self, value: int) -> None: ...
    @property
    def Bits(self) -> int:
        """16 when a pixel takes two bytes."""
    @Bits.setter
    def Bits(self, value: int) -> None: ...
    @property
    def ReplicaForDraw(self) -> clsBitmap:
        """A new bitmap with this one's picture alone."""
    def ResizeImageEx(
        self, pOldDx: SupportsIndex, pOldDy: SupportsIndex, pNewDx: SupportsIndex, pNewDy: SupportsIndex,
    ) -> bool:
        """Makes the picture anew at another size; True when there was something to do, also when nothing
        could be made."""
    def ResizeImage(
        self, pOldDx: SupportsIndex, pOldDy: SupportsIndex, pNewDx: SupportsIndex, pNewDy: SupportsIndex,
        pHdc: SupportsIndex,
    ) -> bool:
        """Tells that it is no longer in use; always False."""
    def InvertColors(self) -> None:
        """Inverts the element's picture."""
    def SaveToDB(self) -> bool:
        """Writes the element; always True."""
    def Rotate(self) -> None:
        """Turns the element's picture a quarter clockwise."""
    def SetImage8bppProps(
        self, pSrcImgCRC: SupportsIndex, pDxORG: SupportsIndex, pDyORG: SupportsIndex, pData8bppORG:
        Union[Ref, _Bytes], pImgCRC: SupportsIndex, pImgWidth: SupportsIndex, pImgHeight: SupportsIndex,
        pData8bpp: Union[Ref, _Bytes], pImgIndexInVar: SupportsIndex, pTransparencyLevel: SupportsIndex,
        pImagePath: str,
    ) -> None:
        """Takes a picture as the image library gives it."""
    def SetImage8bppPropsEx(
        self, pSrcImgCRC: SupportsIndex, pDxORG: SupportsIndex, pDyORG: SupportsIndex, pData8bppORG:
        Union[Ref, _Bytes], pImgCRC: SupportsIndex, pImgWidth: SupportsIndex, pImgHeight: SupportsIndex,
        pData8bpp: Union[Ref, _Bytes], pImgIndexInVar: SupportsIndex, pTransparencyLevel: SupportsIndex,
        pImagePath: str, pBits: SupportsIndex,
    ) -> None:
        """Takes a picture, and how many bits a pixel takes."""
    def UpdateImageIndexInVar(
        self, pElement_ID: SupportsIndex, pStartIndex: SupportsIndex, pCorrectionValue: SupportsIndex,
    ) -> None:
        """Moves the places of an element's pictures from one on."""
    def ItfHmiElement_CreateStaticElementPrinterReport(self, pVSPrinter: Any) -> None:
        """Writes the element's lines into a printed report."""

class clsButton(ItfHmiElement, ItfImage):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsButton:
        """The same object by its default interface."""
    @property
    def ID(self) -> int:
        """Key of the element's row; -1 until the row exists."""
    @ID.setter
    def ID(self, value: int) -> None: ...
    @property
    def GroupID(self) -> int:
        """ID of the group that owns the element; -1 when it stands alone."""
    @GroupID.setter
    def GroupID(self, value: int) -> None: ...
    @property
    def Xs(self) -> int:
        """Left edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Xs.setter
    def Xs(self, value: int) -> None: ...
    @property
    def Ys(self) -> int:
        """Top edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Ys.setter
    def Ys(self, value: int) -> None: ...
    @property
    def Dx(self) -> int:
        """Width in panel pixels; of a line, how far its tail lies to the right of its head, negative to the
        left. Writing sets all four descriptors; reading gives descriptor 1."""
    @Dx.setter
    def Dx(self, value: int) -> None: ...
    @property
    def Dy(self) -> int:
        """Height in panel pixels; of a line, how far its tail lies below its head, negative above. Writing
        sets all four descriptors; reading gives descriptor 1."""
    @Dy.setter
    def Dy(self, value: int) -> None: ...
    @property
    def ColorBack(self) -> int:
        """Panel colour number of the body."""
    @ColorBack.setter
    def ColorBack(self, value: int) -> None: ...
    @property
    def ColorBackTouch(self) -> int:
        """Panel colour number of the body while touched."""
    @ColorBackTouch.setter
    def ColorBackTouch(self, value: int) -> None: ...
    @property
    def ColorFore(self) -> int:
        """Panel colour number of the border or the text."""
    @ColorFore.setter
    def ColorFore(self, value: int) -> None: ...
    @property
    def ColorForeTouch(self) -> int:
        """Panel colour number of the border or the text while touched."""
    @ColorForeTouch.setter
    def ColorForeTouch(self, value: int) -> None: ...
    @property
    def TouchOprndAddr(self) -> int:
        """Address of the memory bit that a touch drives; -1 none."""
    @TouchOprndAddr.setter
    def TouchOprndAddr(self, value: int) -> None: ...
    @property
    def hBmp(self) -> int:
        """Handle of the bitmap that the picture was drawn with."""
    @hBmp.setter
    def hBmp(self, value: int) -> None: ...
    @property
    def Txt(self) -> str:
        """The text as it was written, its lines parted by CR and LF."""
    @Txt.setter
    def Txt(self, value: str) -> None: ...
    @property
    def ActualText(self) -> str:
        """What is painted: as much of the text as fits. Written, it is shown as it stands; reading fits the
        text anew."""
    @ActualText.setter
    def ActualText(self, value: str) -> None: ...
    @property
    def FontNumber(self) -> int:
        """Number of the panel font."""
    @FontNumber.setter
    def FontNumber(self, value: int) -> None: ...
    @property
    def EnabledOpAddr(self) -> int:
        """Address of the memory bit that disables the element; -1 none. Writing leaves the operand's row
        alone."""
    @EnabledOpAddr.setter
    def EnabledOpAddr(self, value: int) -> None: ...
    @property
    def VisibleOpAddr(self) -> int:
        """Address of the memory bit that hides the element; -1 none. Writing leaves the operand's row
        alone."""
    @VisibleOpAddr.setter
    def VisibleOpAddr(self, value: int) -> None: ...
    @property
    def HighlightOpAddr(self) -> int:
        """Address of the memory bit that highlights the element; -1 none. Writing leaves the operand's row
        alone."""
    @HighlightOpAddr.setter
    def HighlightOpAddr(self, value: int) -> None: ...
    @property
    def ColOpPropBag(self) -> Collection:
        """Operand bags of the element; writing shares the collection, or builds them anew when an operand
        picks the string."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    @property
    def Alignment(self) -> int:
        """One of nine text alignments, 0 to 8."""
    @Alignment.setter
    def Alignment(self, value: int) -> None: ...
    @property
    def Flat3D(self) -> int:
        """Frame style: 0 flat with the picture, 1 raised with the picture, 2 plain without it, 3 and any
        other number not painted."""
    @Flat3D.setter
    def Flat3D(self, value: int) -> None: ...
    @property
    def StorageStringType(self) -> int:
        """0 for a string of the library, otherwise the type of the operand that picks it."""
    @StorageStringType.setter
    def StorageStringType(self, value: int) -> None: ...
    @property
    def StorageStringID(self) -> int:
        """Number of a string in the library, or address of the operand that picks it; -1 for a constant
        text."""
    @StorageStringID.setter
    def StorageStringID(self, value: int) -> None: ...
    @property
    def TabIndex(self) -> int:
        """Touch order; 255 when not assigned."""
    @TabIndex.setter
    def TabIndex(self, value: int) -> None: ...
    @property
    def OrderIndex(self) -> int:
        """Drawing order on the page, higher on top."""
    @OrderIndex.setter
    def OrderIndex(self, value: int) -> None: ...
    def GetOptimalDimensions(
        self, pDx: Union[Ref, SupportsIndex], pDy: Union[Ref, SupportsIndex],
    ) -> None:
        """Gives the size in panel pixels at which nothing of the text is cut."""
    def SaveToDB(self) -> bool:
        """Writes the element's row; always True."""
    def SetImage8bppProps(
        self, pSrcImgCRC: SupportsIndex, pDxORG: SupportsIndex, pDyORG: SupportsIndex, pData8bppORG:
        Union[Ref, _Bytes], pImgCRC: SupportsIndex, pImgWidth: SupportsIndex, pImgHeight: SupportsIndex,
        pData8bpp: Union[Ref, _Bytes], pImgIndexInVar: SupportsIndex, pTransparencyLevel: SupportsIndex,
        pImagePath: str,
    ) -> None:
        """Takes a picture as the image library gives it."""
    def SetImage8bppPropsEx(
        self, pSrcImgCRC: SupportsIndex, pDxORG: SupportsIndex, pDyORG: SupportsIndex, pData8bppORG:
        Union[Ref, _Bytes], pImgCRC: SupportsIndex, pImgWidth: SupportsIndex, pImgHeight: SupportsIndex,
        pData8bpp: Union[Ref, _Bytes], pImgIndexInVar: SupportsIndex, pTransparencyLevel: SupportsIndex,
        pImagePath: str, pBits: SupportsIndex,
    ) -> None:
        """Takes a picture, and how many bits a pixel takes."""
    def ItfHmiElement_CreateStaticElementPrinterReport(self, pVSPrinter: Any) -> None:
        """Writes the element's lines into a printed report."""

class clsFrame(ItfHmiElement):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsFrame:
        """The same object by its default interface."""
    @property
    def ID(self) -> int:
        """Key of the element's row; -1 until the row exists."""
    @ID.setter
    def ID(self, value: int) -> None: ...
    @property
    def GroupID(self) -> int:
        """ID of the group that owns the element; -1 when it stands alone."""
    @GroupID.setter
    def GroupID(self, value: int) -> None: ...
    @property
    def Xs(self) -> int:
        """Left edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Xs.setter
    def Xs(self, value: int) -> None: ...
    @property
    def Ys(self) -> int:
        """Top edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Ys.setter
    def Ys(self, value: int) -> None: ...
    @property
    def Dx(self) -> int:
        """Width in panel pixels; of a line, how far its tail lies to the right of its head, negative to the
        left. Writing sets all four descriptors; reading gives descriptor 1."""
    @Dx.setter
    def Dx(self, value: int) -> None: ...
    @property
    def Dy(self) -> int:
        """Height in panel pixels; of a line, how far its tail lies below its head, negative above. Writing
        sets all four descriptors; reading gives descriptor 1."""
    @Dy.setter
    def Dy(self, value: int) -> None: ...
    @property
    def ColorBack(self) -> int:
        """Panel colour number of the body."""
    @ColorBack.setter
    def ColorBack(self, value: int) -> None: ...
    @property
    def ColorFore(self) -> int:
        """Panel colour number of the border or the text."""
    @ColorFore.setter
    def ColorFore(self, value: int) -> None: ...
    @property
    def ColorBackTouch(self) -> int:
        """Panel colour number of the body while touched."""
    @ColorBackTouch.setter
    def ColorBackTouch(self, value: int) -> None: ...
    @property
    def ColorForeTouch(self) -> int:
        """Panel colour number of the border or the text while touched."""
    @ColorForeTouch.setter
    def ColorForeTouch(self, value: int) -> None: ...
    @property
    def TouchOprndAddr(self) -> int:
        """Address of the memory bit that a touch drives; -1 none."""
    @TouchOprndAddr.setter
    def TouchOprndAddr(self, value: int) -> None: ...
    @property
    def Txt(self) -> str:
        """The text as it was written, its lines parted by CR and LF."""
    @Txt.setter
    def Txt(self, value: str) -> None: ...
    @property
    def ActualText(self) -> str:
        """What is painted: as much of the text as fits. Written, it is shown as it stands; reading fits the
        text anew."""
    @ActualText.setter
    def ActualText(self, value: str) -> None: ...
    @property
    def FontNumber(self) -> int:
        """Number of the panel font."""
    @FontNumber.setter
    def FontNumber(self, value: int) -> None: ...
    @property
    def ColOpPropBag(self) -> Collection:
        """Operand bags of the element; writing shares the collection, or builds them anew when an operand
        picks the string."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    @property
    def Alignment(self) -> int:
        """One of nine text alignments, 0 to 8."""
    @Alignment.setter
    def Alignment(self, value: int) -> None: ...
    @property
    def Flat3D(self) -> int:
        """Frame style: 0 flat, 1 raised, 2 plain, 3 sunken."""
    @Flat3D.setter
    def Flat3D(self, value: int) -> None: ...
    @property
    def StorageStringType(self) -> int:
        """0 for a string of the library, otherwise the type of the operand that picks it."""
    @StorageStringType.setter
    def StorageStringType(self, value: int) -> None: ...
    @property
    def StorageStringID(self) -> int:
        """Number of a string in the library, or address of the operand that picks it; -1 for a constant
        text."""
    @StorageStringID.setter
    def StorageStringID(self, value: int) -> None: ...
    @property
    def TabIndex(self) -> int:
        """Touch order; 255 when not assigned."""
    @TabIndex.setter
    def TabIndex(self, value: int) -> None: ...
    @property
    def OrderIndex(self) -> int:
        """Drawing order on the page, higher on top."""
    @OrderIndex.setter
    def OrderIndex(self, value: int) -> None: ...
    def DrawTransparent(self, pHdc: SupportsIndex) -> None:
        """Paints the frame at half strength over what is there."""
    def GetOptimalDimensions(
        self, pDx: Union[Ref, SupportsIndex], pDy: Union[Ref, SupportsIndex],
    ) -> None:
        """Gives the size in panel pixels at which nothing of the text is cut."""
    def SaveToDB(self) -> bool:
        """Writes the element's row; always True."""
    def ItfHmiElement_CreateStaticElementPrinterReport(self, pVSPrinter: Any) -> None:
        """Writes the element's lines into a printed report."""

class clsGroup(ItfHmiElement):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsGroup:
        """The same object by its default interface."""
    @property
    def ID(self) -> int:
        """Key of the group's row; -1 until the row exists."""
    @ID.setter
    def ID(self, value: int) -> None: ...
    @property
    def GroupID(self) -> int:
        """ID of the group that owns this one; -1 when it stands alone."""
    @GroupID.setter
    def GroupID(self, value: int) -> None: ...
    @property
    def Depth(self) -> int:
        """Nesting height: 1 for a group of plain elements."""
    @Depth.setter
    def Depth(self, value: int) -> None: ...
    @property
    def ColGroup(self) -> Collection:
        """The members, each under the decimal text of its address."""
    @ColGroup.setter
    def ColGroup(self, value: Any) -> None: ...
    @property
    def Props(self) -> bytes:
        """ID, GroupID and Depth as 12 bytes, low byte first."""
    @Props.setter
    def Props(self, value: _Bytes) -> None: ...
    def IsContainsGlobalVars(self) -> bool:
        """Whether a variable among the members shows a global variable."""
    def AddObjectsToGroup(self, p_ColObjects: Any) -> None:
        """Takes all elements of a collection in and saves them; none when one is touchable."""
    def IsMaxDepth(self, p_ColObjects: Any) -> bool:
        """Whether a new group of these elements would be nested too deep."""
    def DrawFramesInGroup(self, pHdc: SupportsIndex, pDrawBoundingRect: bool) -> None:
        """Paints the frames in the group."""
    def DrawTransparentFramesInGroup(self, pHdc: SupportsIndex) -> None:
        """Paints the frames in the group at half strength over what is there."""
    def LoadFromDB(self, pRsElement: Any) -> bool:
        """Takes ID and GroupID from a row; the members are the host's to load."""
    def SetElementsID(self, pID: SupportsIndex) -> None:
        """Gives all members, at any depth, this ID."""
    def SaveToDB(self) -> bool:
        """Writes the rows of the group and its members; always True."""
    def ItfHmiElement_CreateStaticElementPrinterReport(self, pVSPrinter: Any) -> None:
        """Nothing: a group has no lines in a printed report."""

class clsGrpElmntsSrv(_Object):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsGrpElmntsSrv:
        """The same object by its default interface."""
    def ChangeHMIPanel(self, pPanelType: SupportsIndex) -> None:
        """Sets the panel that the project is for."""
    def InitImageLibrary(self, pImageLibName: str, pPalette: Any) -> None:
        """Makes the image library with its name and the panel's colours, an array of Long."""
    @property
    def ImageLibrary(self) -> _ImageLibrary:
        """The image library; none until it is made."""
    def GetCRCsOfVarImages(self, pElement_ID: SupportsIndex, pNumOfImages: SupportsIndex) -> List[int]:
        """The picture for each index of a variable; -1 where it has none."""
    def GetImageData8bppByCRC(self, pCRC: SupportsIndex) -> bytes:
        """The panel pixels of a picture."""
    def GetImageLibCRC(self, pImageCRC: SupportsIndex) -> int:
        """8209 whatever the picture."""
    def GetImagePathFromDB(self, pImageCRC: SupportsIndex) -> str:
        """The file that a picture came from."""
    def GetImageOriginalDimansions(
        self, pCRC: SupportsIndex, pDx: Union[Ref, SupportsIndex], pDy: Union[Ref, SupportsIndex],
    ) -> None:
        """A picture's own size; both -1 when there is none."""
    def SaveToDbForBimaryHandler(
        self, pElementID: SupportsIndex, pVarType: SupportsIndex, pColImageList: Any, pDx: SupportsIndex, pDy:
        SupportsIndex,
    ) -> None:
        """Saves the pictures of a variable's list."""

class clsVarImageElement(_Object):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsVarImageElement:
        """The same object by its default interface."""
    @property
    def CRC8bpp(self) -> int:
        """CRC of the panel pixels, which is the picture's key; -1 none."""
    @CRC8bpp.setter
    def CRC8bpp(self, value: int) -> None: ...
    def SetData8bpp(self, pData8bpp: _Bytes) -> None:
        """Takes a copy of panel pixels."""
    def GetData8bpp(self) -> bytes:
        """Gives a copy of the panel pixels."""
    def SetData8bppORG(self, pData8bppORG: _Bytes) -> None:
        """Takes a copy of original pixels."""
    def GetData8bppORG(self) -> bytes:
        """Gives a copy of the original pixels."""
    @property
    def Path(self) -> str:
        """File that the picture came from."""
    @Path.setter
    def Path(self, value: str) -> None: ...
    @property
    def SourceCRC(self) -> int:
        """CRC of the source in the image library; -1 none."""
    @SourceCRC.setter
    def SourceCRC(self, value: int) -> None: ...
    @property
    def FromOpType(self) -> int:
        """Type of the operand at which a range begins."""
    @FromOpType.setter
    def FromOpType(self, value: int) -> None: ...
    @property
    def FromOpAddress(self) -> int:
        """Address of the operand at which it begins."""
    @FromOpAddress.setter
    def FromOpAddress(self, value: int) -> None: ...
    @property
    def ToOpType(self) -> int:
        """Type of the operand at which a range ends."""
    @ToOpType.setter
    def ToOpType(self, value: int) -> None: ...
    @property
    def ToOpAddress(self) -> int:
        """Address of the operand at which it ends."""
    @ToOpAddress.setter
    def ToOpAddress(self, value: int) -> None: ...
    @property
    def DxORG(self) -> int:
        """Width of the original pixels."""
    @DxORG.setter
    def DxORG(self, value: int) -> None: ...
    @property
    def DyORG(self) -> int:
        """Height of the original pixels."""
    @DyORG.setter
    def DyORG(self, value: int) -> None: ...
    @property
    def TransparencyLevel(self) -> int:
        """0 opaque, otherwise transparent."""
    @TransparencyLevel.setter
    def TransparencyLevel(self, value: int) -> None: ...
    @property
    def Bits(self) -> int:
        """16 when a pixel takes two bytes."""
    @Bits.setter
    def Bits(self, value: int) -> None: ...
    def ResizeImage(self, pNewDx: SupportsIndex, pNewDy: SupportsIndex) -> bool:
        """Makes pixels of one byte anew at another size."""
    def ResizeImage16(self, pNewDx: SupportsIndex, pNewDy: SupportsIndex) -> bool:
        """Makes pixels of two bytes anew at another size."""
    def SaveToDB(
        self, pElementID: SupportsIndex, pIndexInVar: SupportsIndex, pDx: SupportsIndex, pDy: SupportsIndex,
    ) -> None:
        """Saves the picture as one of an element's."""
    def SaveToDBEx(
        self, pElementID: SupportsIndex, pIndexInVar: SupportsIndex, pDx: SupportsIndex, pDy: SupportsIndex,
        pBits: SupportsIndex,
    ) -> None:
        """Saves the picture as one of an element's, telling the bits of a pixel."""

class clsPageImage(_Object):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsPageImage:
        """The same object by its default interface."""
    @property
    def CRC8bpp(self) -> int:
        """CRC of the panel pixels, which is the picture's key; -1 none."""
    @CRC8bpp.setter
    def CRC8bpp(self, value: int) -> None: ...
    def SetData8bpp(self, pData8bpp: _Bytes) -> None:
        """Takes a copy of panel pixels."""
    def GetData8bpp(self) -> bytes:
        """Gives a copy of the panel pixels."""
    def SetData8bppORG(self, pData8bppORG: _Bytes) -> None:
        """Takes a copy of original pixels."""
    def GetData8bppORG(self) -> bytes:
        """Gives a copy of the original pixels."""
    @property
    def Path(self) -> str:
        """File that the picture came from."""
    @Path.setter
    def Path(self, value: str) -> None: ...
    @property
    def SourceCRC(self) -> int:
        """CRC of the source in the image library; -1 none."""
    @SourceCRC.setter
    def SourceCRC(self, value: int) -> None: ...
    @property
    def DxORG(self) -> int:
        """Width of the original pixels."""
    @DxORG.setter
    def DxORG(self, value: int) -> None: ...
    @property
    def DyORG(self) -> int:
        """Height of the original pixels."""
    @DyORG.setter
    def DyORG(self, value: int) -> None: ...
    @property
    def TransparencyLevel(self) -> int:
        """0 opaque, otherwise transparent."""
    @TransparencyLevel.setter
    def TransparencyLevel(self, value: int) -> None: ...
    @property
    def Bits(self) -> int:
        """16 when a pixel takes two bytes."""
    @Bits.setter
    def Bits(self, value: int) -> None: ...
    def SaveToDB(
        self, pPageID: SupportsIndex, pImageType: SupportsIndex, pDx: SupportsIndex, pDy: SupportsIndex,
    ) -> None:
        """Saves the picture as one of a page's."""
    def SaveToDBEx(
        self, pPageID: SupportsIndex, pImageType: SupportsIndex, pDx: SupportsIndex, pDy: SupportsIndex,
        pBits: SupportsIndex,
    ) -> None:
        """Saves the picture as one of a page's, telling the bits of a pixel."""
    def ReadImagePropsFromDB(self, pImageType: SupportsIndex) -> bool:
        """Reads the picture of the CRC; False when there is none."""

class clsVar(ItfHmiElement):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsVar:
        """The same object by its default interface."""
    @property
    def TabIndex(self) -> int:
        """Touch order; 255 when not assigned."""
    @TabIndex.setter
    def TabIndex(self, value: int) -> None: ...
    @property
    def EnabledOpAddr(self) -> int:
        """Address of the memory bit that enables the element; -1 none."""
    @EnabledOpAddr.setter
    def EnabledOpAddr(self, value: int) -> None: ...
    @property
    def VisibleOpAddr(self) -> int:
        """Address of the memory bit that hides the element; -1 none. Writing leaves the operand's row
        alone."""
    @VisibleOpAddr.setter
    def VisibleOpAddr(self, value: int) -> None: ...
    @property
    def HighlightOpAddr(self) -> int:
        """Address of the memory bit that highlights the element; -1 none."""
    @HighlightOpAddr.setter
    def HighlightOpAddr(self, value: int) -> None: ...
    @property
    def KeypadSuccessOpAddr(self) -> int:
        """Address of the memory bit that is set on a keypad entry; -1 none."""
    @KeypadSuccessOpAddr.setter
    def KeypadSuccessOpAddr(self, value: int) -> None: ...
    @property
    def ColorBack(self) -> int:
        """Panel colour number behind the variable."""
    @ColorBack.setter
    def ColorBack(self, value: int) -> None: ...
    @property
    def ColOpPropBag(self) -> Any:
        """Takes operand bags in place of the element's own; the collection is shared."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    @property
    def DisplayID(self) -> Any:
        """Number of the page that saving writes: 0 for the open one, -1 for none."""
    @DisplayID.setter
    def DisplayID(self, value: int) -> None: ...
    @property
    def TouchOprndAddr(self) -> int:
        """Address of the memory bit that a touch drives; -1 none, -2 a touch that opens a keypad."""
    @TouchOprndAddr.setter
    def TouchOprndAddr(self, value: int) -> None: ...
    def SetTouchWithoutLoadingPropertyBag(self, pTouchOprndAddr: SupportsIndex) -> None:
        """Stores the touch operand's address and leaves the operand bags as they are."""
    @property
    def HatchStyle(self) -> enHatchStyle:
        """Kept with the element and of no effect; a cross after loading."""
    @HatchStyle.setter
    def HatchStyle(self, value: int) -> None: ...
    @property
    def GroupID(self) -> int:
        """ID of the group that owns the element; -1 when it stands alone."""
    @GroupID.setter
    def GroupID(self, value: int) -> None: ...
    @property
    def DefaultDisplay(self) -> int:
        """The state that is shown in the editor, counted from 1."""
    @DefaultDisplay.setter
    def DefaultDisplay(self, value: int) -> None: ...
    @property
    def KeypadEntry(self) -> bool:
        """Whether the value is entered by the panel's keys."""
    @KeypadEntry.setter
    def KeypadEntry(self, value: bool) -> None: ...
    def BinaryHandlers(self, pVarType: SupportsIndex) -> Any:
        """The handler of a type, which is made if there is none yet; none for a type without a class."""
    def SetBinaryHandler(self, pVarType: SupportsIndex, pBinaryHandler: Any) -> None:
        """Puts a handler in the place of that of a type."""
    @property
    def OperandType(self) -> int:
        """Type of the operand that the variable shows; 0 none."""
    @OperandType.setter
    def OperandType(self, value: int) -> None: ...
    @property
    def OperandAddress(self) -> int:
        """Address of that operand."""
    @OperandAddress.setter
    def OperandAddress(self, value: int) -> None: ...
    @property
    def ID(self) -> int:
        """Key of the element's row; -1 until the row exists."""
    @ID.setter
    def ID(self, value: int) -> None: ...
    @property
    def VarType(self) -> enVarType:
        """The type of the variable; the settings of earlier types stay with it."""
    @VarType.setter
    def VarType(self, value: int) -> None: ...
    @property
    def GlobalVarID(self) -> int:
        """Above 0: the element shows the global variable of that number."""
    @GlobalVarID.setter
    def GlobalVarID(self, value: int) -> None: ...
    @property
    def VarName(self) -> str:
        """The name that the user sees."""
    @VarName.setter
    def VarName(self, value: str) -> None: ...
    @property
    def Xs(self) -> int:
        """Left edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Xs.setter
    def Xs(self, value: int) -> None: ...
    @property
    def Ys(self) -> int:
        """Top edge, or the head of a line, in panel pixels. Writing sets all four descriptors; reading gives
        descriptor 1."""
    @Ys.setter
    def Ys(self, value: int) -> None: ...
    @property
    def Dx(self) -> int:
        """Width in panel pixels; of a line, how far its tail lies to the right of its head, negative to the
        left. Writing sets all four descriptors; reading gives descriptor 1."""
    @Dx.setter
    def Dx(self, value: int) -> None: ...
    @property
    def Dy(self) -> int:
        """Height in panel pixels; of a line, how far its tail lies below its head, negative above. Writing
        sets all four descriptors; reading gives descriptor 1."""
    @Dy.setter
    def Dy(self, value: int) -> None: ...
    @property
    def TransparencyLevel(self) -> int:
        """0 opaque, otherwise transparent. Writing is saved at once, for all pictures of the element."""
    @TransparencyLevel.setter
    def TransparencyLevel(self, value: int) -> None: ...
    @property
    def IsCalendarVar(self) -> bool:
        """Whether a touch opens a calendar."""
    @property
    def IsTouchable(self) -> bool:
        """Whether a touch does something."""
    def GetDataCRC(self) -> int:
        """The change key of the variable's content."""
    def DeleteAllOperands(self) -> None:
        """Removes the rows of all operands and takes the operands out of the project."""
    def DeleteFromDB(self) -> None:
        """Removes the element's rows; the object and its fields stay."""
    def CreatePrinterReport(self) -> Any:
        """Does nothing; gives Empty."""
    def CreatePrinterReportEX(self, pVSPrinter: Any) -> None:
        """Writes the variable's lines into a printed report."""
    def GetColOpPropertyBag(self) -> Collection:
        """The operand bags of the element."""
    def GetOptimalDimensions(
        self, pXs: Union[Ref, SupportsIndex], pYs: Union[Ref, SupportsIndex], pDx: Union[Ref, SupportsIndex],
        pDy: Union[Ref, SupportsIndex],
    ) -> None:
        """Gives the position and size that the element would like."""
    def BuildOpPropBag(self) -> Collection:
        """Makes the operand bags anew and gives them."""
    def BuildImageList(self) -> None:
        """Loads the pictures of the variable."""
    def LoadFromDB(self, pRsElement: Any) -> bool:
        """Fills the element from a row; True when that was done."""
    def SaveToDB(self) -> bool:
        """Writes the element's row; False when the database has no number left for it."""
    def Replica(self) -> clsVar:
        """A new variable with the same values, the same ID included; it shares the operand bags."""
    def RestoreAllOperands(self) -> None:
        """Writes the element's operand rows anew from its operand bags."""
    @property
    def Alignment(self) -> int:
        """One of nine text alignments, 0 to 8."""
    @Alignment.setter
    def Alignment(self, value: int) -> None: ...
    @property
    def Flat3D(self) -> int:
        """Frame style: 0 flat, 1 raised, 3 sunken; texts know 2 and 4 too."""
    @Flat3D.setter
    def Flat3D(self, value: int) -> None: ...
    @property
    def FontNumber(self) -> int:
        """Number of the panel font."""
    @FontNumber.setter
    def FontNumber(self, value: int) -> None: ...
    @property
    def DescriptionFontNumber(self) -> int:
        """Number of the font of an entry's description."""
    @DescriptionFontNumber.setter
    def DescriptionFontNumber(self, value: int) -> None: ...
    def ItfHmiElement_CreateStaticElementPrinterReport(self, pVSPrinter: Any) -> None:
        """Does nothing: a variable reports by CreatePrinterReportEX."""
    @property
    def ColorBackTouch(self) -> int:
        """Panel colour number behind the variable while touched."""
    @ColorBackTouch.setter
    def ColorBackTouch(self, value: int) -> None: ...
    @property
    def ListText(self) -> clsVarTextElement:
        """The variable's string in the string library."""
    @ListText.setter
    def ListText(self, value: Any) -> None: ...
    @property
    def StorageText(self) -> int:
        """-1 when texts come from the string library, otherwise 0."""
    @StorageText.setter
    def StorageText(self, value: int) -> None: ...
    @property
    def StorageLibNum(self) -> int:
        """Number of the string library."""
    @StorageLibNum.setter
    def StorageLibNum(self, value: int) -> None: ...
    def SaveToDBEx(self) -> bool:
        """Writes the element's row without telling the host."""
    def HMIElementSize(self) -> int:
        """The size in bytes that the element takes in the panel."""

class clsVarTextElement(_Object):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsVarTextElement:
        """The same object by its default interface."""
    @property
    def Txt(self) -> str:
        """The text, its lines parted by CR and LF."""
    @Txt.setter
    def Txt(self, value: str) -> None: ...
    @property
    def ColorFore(self) -> int:
        """Panel colour number of the text."""
    @ColorFore.setter
    def ColorFore(self, value: int) -> None: ...
    @property
    def ColorBack(self) -> int:
        """Panel colour number behind the text."""
    @ColorBack.setter
    def ColorBack(self, value: int) -> None: ...
    @property
    def FromOpType(self) -> int:
        """Type of the operand at which a range begins."""
    @FromOpType.setter
    def FromOpType(self, value: int) -> None: ...
    @property
    def FromOpAddress(self) -> int:
        """Address of the operand at which it begins."""
    @FromOpAddress.setter
    def FromOpAddress(self, value: int) -> None: ...
    @property
    def ToOpType(self) -> int:
        """Type of the operand at which a range ends."""
    @ToOpType.setter
    def ToOpType(self, value: int) -> None: ...
    @property
    def ToOpAddress(self) -> int:
        """Address of the operand at which it ends."""
    @ToOpAddress.setter
    def ToOpAddress(self, value: int) -> None: ...
    @property
    def StorageStringType(self) -> int:
        """0 when StorageStringID is the number of a string."""
    @StorageStringType.setter
    def StorageStringType(self, value: int) -> None: ...
    @property
    def StorageStringID(self) -> int:
        """Number of a string in the library; -1 none."""
    @StorageStringID.setter
    def StorageStringID(self, value: int) -> None: ...
    @property
    def StorageText(self) -> str:
        """The string as it was when it was chosen."""
    @StorageText.setter
    def StorageText(self, value: str) -> None: ...
    @property
    def StorageFont(self) -> int:
        """Number of the font of the string."""
    @StorageFont.setter
    def StorageFont(self, value: int) -> None: ...

class clsVarBinaryText(ItfVarBinaryHandler):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsVarBinaryText:
        """The same object by its default interface."""
    @property
    def DrawingElement(self) -> Any:
        """The element that paints the variable."""
    def Clear(self) -> None:
        """Takes all texts out of the list."""
    def AppendText(self) -> None:
        """Puts a new text at the end of the list."""
    def ListTexts(self, pIndex: SupportsIndex) -> clsVarTextElement:
        """One text of the list, counted from 1."""
    @property
    def StorageText(self) -> int:
        """-1 when texts come from the string library, otherwise 0."""
    @StorageText.setter
    def StorageText(self, value: int) -> None: ...
    @property
    def StorageLibNum(self) -> int:
        """Number of the string library."""
    @StorageLibNum.setter
    def StorageLibNum(self, value: int) -> None: ...
    @property
    def Switch(self) -> bool:
        """Whether a touch switches the bit that chooses the text."""
    @Switch.setter
    def Switch(self, value: bool) -> None: ...
    def DeleteAllStorageIDs(self) -> None:
        """Makes all texts forget their strings of the library."""
    def SetBinaryData(self, RHS: _Bytes) -> None:
        """Takes all settings from the contents of a property bag."""
    def GetBinaryData(self) -> bytes:
        """All settings as the contents of a property bag."""
    def ReSyncDrawingElementParams(self, pDefaultDisplay: SupportsIndex, pFontNum: SupportsIndex) -> None:
        """Brings the drawing element up to date: the state shown, and its font."""
    def ConvertFlatColorToClosestGradientColor(self) -> None:
        """Replaces the backgrounds by the colours nearest to them on which a bevel can be read."""

class clsVarListText(ItfVarBinaryHandler):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsVarListText:
        """The same object by its default interface."""
    @property
    def DrawingElement(self) -> Any:
        """The element that paints the variable."""
    def Clear(self) -> None:
        """Takes all texts out of the list."""
    def InsertBefore(self, pIndex: SupportsIndex) -> None:
        """Puts a new text before one of the list, counted from 1."""
    def RemoveText(self, pIndex: SupportsIndex) -> None:
        """Takes one text out of the list, counted from 1."""
    @property
    def ListCount(self) -> int:
        """Number of texts."""
    def AppendText(self) -> None:
        """Puts a new text at the end of the list."""
    def ListTexts(self, pIndex: SupportsIndex) -> clsVarTextElement:
        """One text of the list, counted from 1."""
    @property
    def StorageText(self) -> int:
        """-1 when texts come from the string library, otherwise 0."""
    @StorageText.setter
    def StorageText(self, value: int) -> None: ...
    @property
    def StorageLibNum(self) -> int:
        """Number of the string library."""
    @StorageLibNum.setter
    def StorageLibNum(self, value: int) -> None: ...
    def DeleteAllStorageIDs(self) -> None:
        """Makes all texts forget their strings of the library."""
    def SetBinaryData(self, RHS: _Bytes) -> None:
        """Takes all settings from the contents of a property bag."""
    def GetBinaryData(self) -> bytes:
        """All settings as the contents of a property bag."""
    def ReSyncDrawingElementParams(self, pDefaultDisplay: SupportsIndex, pFontNum: SupportsIndex) -> None:
        """Brings the drawing element up to date: the state shown, and its font."""
    def ConvertFlatColorToClosestGradientColor(self) -> None:
        """Replaces the backgrounds by the colours nearest to them on which a bevel can be read."""

class clsVarNumeric(ItfVarBinaryHandler):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsVarNumeric:
        """The same object by its default interface."""
    @property
    def ListText(self) -> clsVarTextElement:
        """The string of the library that is shown."""
    @ListText.setter
    def ListText(self, value: Any) -> None: ...
    @property
    def ColOpPropBag(self) -> Collection:
        """Bags of the operands beside the link operand; writing shares the collection."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    @property
    def DrawingElement(self) -> Any:
        """The element that paints the variable."""
    @property
    def ArrowsIncrementValue(self) -> int:
        """Step of the panel's arrow keys."""
    @ArrowsIncrementValue.setter
    def ArrowsIncrementValue(self, value: int) -> None: ...
    @property
    def Postfix(self) -> str:
        """Text beside the number."""
    @Postfix.setter
    def Postfix(self, value: str) -> None: ...
    @property
    def IsUnsignedFormat(self) -> bool:
        """Whether the sample has no sign."""
    @IsUnsignedFormat.setter
    def IsUnsignedFormat(self, value: bool) -> None: ...
    @property
    def Format(self) -> str:
        """Pattern of the digits: a 9 for each, a point where one stands."""
    @Format.setter
    def Format(self, value: str) -> None: ...
    @property
    def BaseFormat(self) -> enBaseFormat:
        """Base in which the number is shown."""
    @BaseFormat.setter
    def BaseFormat(self, value: int) -> None: ...
    @property
    def IsPassword(self) -> bool:
        """Whether the number is shown as a password."""
    @IsPassword.setter
    def IsPassword(self, value: bool) -> None: ...
    @property
    def LeadingType(self) -> enLeadingType:
        """What fills digits that are not used."""
    @LeadingType.setter
    def LeadingType(self, value: int) -> None: ...
    @property
    def KeyboardType(self) -> enKeyboardType:
        """Keyboard of the entry; 0 none."""
    @KeyboardType.setter
    def KeyboardType(self, value: int) -> None: ...
    @property
    def FontNumber(self) -> int:
        """Number of the panel font."""
    @FontNumber.setter
    def FontNumber(self, value: int) -> None: ...
    @property
    def DescriptionFontNumber(self) -> int:
        """Number of the font of an entry's description."""
    @DescriptionFontNumber.setter
    def DescriptionFontNumber(self, value: int) -> None: ...
    @property
    def ColorFore(self) -> int:
        """Panel colour number of the text."""
    @ColorFore.setter
    def ColorFore(self, value: int) -> None: ...
    @property
    def StartWithClearFields(self) -> bool:
        """Whether an entry begins with an empty field."""
    @StartWithClearFields.setter
    def StartWithClearFields(self, value: bool) -> None: ...
    @property
    def UseEntryLimits(self) -> bool:
        """Whether the operands of the entry limits are in use."""
    @UseEntryLimits.setter
    def UseEntryLimits(self, value: bool) -> None: ...
    @property
    def DoLinearization(self) -> bool:
        """Whether the operands of the linearization are in use."""
    @DoLinearization.setter
    def DoLinearization(self, value: bool) -> None: ...
    @property
    def EntryLimitMinOpType(self) -> int:
        """Type of the operand of the smallest entry; 0 none."""
    @EntryLimitMinOpType.setter
    def EntryLimitMinOpType(self, value: int) -> None: ...
    @property
    def EntryLimitMinOpAddress(self) -> int:
        """Address of that operand."""
    @EntryLimitMinOpAddress.setter
    def EntryLimitMinOpAddress(self, value: int) -> None: ...
    @property
    def EntryLimitMaxOpType(self) -> int:
        """Type of the operand of the largest entry; 0 none."""
    @EntryLimitMaxOpType.setter
    def EntryLimitMaxOpType(self, value: int) -> None: ...
    @property
    def EntryLimitMaxOpAddress(self) -> int:
        """Address of that operand."""
    @EntryLimitMaxOpAddress.setter
    def EntryLimitMaxOpAddress(self, value: int) -> None: ...
    @property
    def LinearMIminOpType(self) -> int:
        """Type of the operand of the low end of the raw range; 0 none."""
    @LinearMIminOpType.setter
    def LinearMIminOpType(self, value: int) -> None: ...
    @property
    def LinearMIminOpAddress(self) -> int:
        """Address of that operand."""
    @LinearMIminOpAddress.setter
    def LinearMIminOpAddress(self, value: int) -> None: ...
    @property
    def LinearMIMaxOpType(self) -> int:
        """Type of the operand of the high end of the raw range; 0 none."""
    @LinearMIMaxOpType.setter
    def LinearMIMaxOpType(self, value: int) -> None: ...
    @property
    def LinearMImaxOpAddress(self) -> int:
        """Address of that operand."""
    @LinearMImaxOpAddress.setter
    def LinearMImaxOpAddress(self, value: int) -> None: ...
    @property
    def LinearDminOpType(self) -> int:
        """Type of the operand of the low end of the range that is shown; 0 none."""
    @LinearDminOpType.setter
    def LinearDminOpType(self, value: int) -> None: ...
    @property
    def LinearDminOpAddress(self) -> int:
        """Address of that operand."""
    @LinearDminOpAddress.setter
    def LinearDminOpAddress(self, value: int) -> None: ...
    @property
    def LinearDmaxOpType(self) -> int:
        """Type of the operand of the high end of the range that is shown; 0 none."""
    @LinearDmaxOpType.setter
    def LinearDmaxOpType(self, value: int) -> None: ...
    @property
    def LinearDmaxOpAddress(self) -> int:
        """Address of that operand."""
    @LinearDmaxOpAddress.setter
    def LinearDmaxOpAddress(self, value: int) -> None: ...
    @property
    def StorageText(self) -> int:
        """-1 when texts come from the string library, otherwise 0."""
    @StorageText.setter
    def StorageText(self, value: int) -> None: ...
    @property
    def StorageLibNum(self) -> int:
        """Number of the string library."""
    @StorageLibNum.setter
    def StorageLibNum(self, value: int) -> None: ...
    def GetGUIDigit(self) -> str:
        """The character that stands for a digit."""
    def SetBinaryData(self, RHS: _Bytes) -> None:
        """Takes all settings from the contents of a property bag."""
    def GetBinaryData(self) -> bytes:
        """All settings as the contents of a property bag."""
    def ItfVarBinaryHandler_ValidateFontNumber(self, pFontNumCollection: Any) -> None:
        """Replaces the font's number by the item of which it is the key, or by the first item."""
    def ReSyncDrawingElementParams(self, pDefaultDisplay: SupportsIndex, pFontNum: SupportsIndex) -> None:
        """Brings the drawing element up to date: the state shown, and its font."""

class clsVarBargraph(ItfVarBinaryHandler):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsVarBargraph:
        """The same object by its default interface."""
    def NewDrawForBarGraphForAlsoFlatAndFixedSingle(
        self, pHdc: SupportsIndex, pWidth: SupportsIndex, pHeight: SupportsIndex, pColorBack: SupportsIndex,
        pFlat3D: Union[Ref, SupportsIndex],
    ) -> None:
        """Paints the bar in a frame style of the variable."""
    def Draw(
        self, pHdc: SupportsIndex, pWidth: SupportsIndex, pHeight: SupportsIndex, pColorBack: SupportsIndex,
    ) -> None:
        """Paints the bar sunken."""
    @property
    def ColOpPropBag(self) -> Any:
        """Bags of the operands beside the link operand; writing shares the collection."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    @property
    def DrawingElement(self) -> Any:
        """The element that paints the variable."""
    @property
    def MinOpAddress(self) -> int:
        """Address of the operand at the low end of the scale."""
    @MinOpAddress.setter
    def MinOpAddress(self, value: int) -> None: ...
    @property
    def MinOpType(self) -> int:
        """Its type; 0 none."""
    @MinOpType.setter
    def MinOpType(self, value: int) -> None: ...
    @property
    def MaxOpAddress(self) -> int:
        """Address of the operand at the high end of the scale."""
    @MaxOpAddress.setter
    def MaxOpAddress(self, value: int) -> None: ...
    @property
    def MaxOpType(self) -> int:
        """Its type; 0 none."""
    @MaxOpType.setter
    def MaxOpType(self, value: int) -> None: ...
    @property
    def Frame(self) -> bool:
        """Kept with the bar; the variable's style says what is painted."""
    @Frame.setter
    def Frame(self, value: bool) -> None: ...
    @property
    def BargraphType(self) -> enBarGraphDrawType:
        """The direction in which the bar grows."""
    @BargraphType.setter
    def BargraphType(self, value: int) -> None: ...
    @property
    def ColorFore(self) -> int:
        """Panel colour number of the bar."""
    @ColorFore.setter
    def ColorFore(self, value: int) -> None: ...
    def SetBinaryData(self, RHS: _Bytes) -> None:
        """Takes all settings from the contents of a property bag."""
    def GetBinaryData(self) -> bytes:
        """All settings as the contents of a property bag."""
    def ValidateFontNumber(self, pFontNumCollection: Any) -> None:
        """Does nothing: a bar has no font."""

class clsVarRangeText(ItfVarBinaryHandler):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsVarRangeText:
        """The same object by its default interface."""
    @property
    def DrawingElement(self) -> Any:
        """The element that paints the variable."""
    @property
    def ColOpPropBag(self) -> Collection:
        """Bags of the operands beside the link operand; writing shares the collection."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    def Clear(self) -> None:
        """Takes all texts out of the list."""
    def InsertBefore(self, pIndex: SupportsIndex) -> None:
        """Puts a new text before one of the list, counted from 1."""
    def RemoveText(self, pIndex: SupportsIndex) -> None:
        """Takes one text out of the list, counted from 1."""
    @property
    def ListCount(self) -> int:
        """Number of texts."""
    def AppendText(self) -> None:
        """Puts a new text at the end of the list."""
    def ListTexts(self, pIndex: SupportsIndex) -> clsVarTextElement:
        """One text of the list, counted from 1."""
    @property
    def StorageText(self) -> int:
        """-1 when texts come from the string library, otherwise 0."""
    @StorageText.setter
    def StorageText(self, value: int) -> None: ...
    @property
    def StorageLibNum(self) -> int:
        """Number of the string library."""
    @StorageLibNum.setter
    def StorageLibNum(self, value: int) -> None: ...
    def DeleteAllStorageIDs(self) -> None:
        """Makes all texts forget their strings of the library."""
    def SetBinaryData(self, RHS: _Bytes) -> None:
        """Takes all settings from the contents of a property bag."""
    def GetBinaryData(self) -> bytes:
        """All settings as the contents of a property bag."""
    def ReSyncDrawingElementParams(self, pDefaultDisplay: SupportsIndex, pFontNum: SupportsIndex) -> None:
        """Brings the drawing element up to date: the state shown, and its font."""
    def ConvertFlatColorToClosestGradientColor(self) -> None:
        """Replaces the backgrounds by the colours nearest to them on which a bevel can be read."""

class clsVarDisplayString(ItfVarBinaryHandler):
    def __init__(self, **properties: Any) -> None: ...
    @property
    def default(self) -> clsVarDisplayString:
        """The same object by its default interface."""
    @property
    def DrawingElement(self) -> Any:
        """The element that paints the variable."""
    @property
    def StartVectorOpType(self) -> int:
        """Type of the operand of the first register; 0 none."""
    @StartVectorOpType.setter
    def StartVectorOpType(self, value: int) -> None: ...
    @property
    def StartVectorOpAddress(self) -> int:
        """Address of that operand."""
    @StartVectorOpAddress.setter
    def StartVectorOpAddress(self, value: int) -> None: ...
    @property
    def VectorLength(self) -> int:
        """Number of characters."""
    @VectorLength.setter
    def VectorLength(self, value: int) -> None: ...
    @property
    def StringPattern(self) -> str:
        """The sample that is shown in the editor."""
    @StringPattern.setter
    def StringPattern(self, value: str) -> None: ...
    @property
    def FontNumber(self) -> int:
        """Number of the panel font."""
    @FontNumber.setter
    def FontNumber(self, value: int) -> None: ...
    @property
    def ColorFore(self) -> int:
        """Panel colour number of the text."""
    @ColorFore.setter
    def ColorFore(self, value: int) -> None: ...
    @property
    def KeyboardsLanguage(self) -> enLanguagesKeyboards:
        """The panel's keyboard for an entry."""
    @KeyboardsLanguage.setter
    def KeyboardsLanguage(self, value: int) -> None: ...
    @property
    def ColOpPropBag(self) -> Collection:
        """Bags of the operands beside the link operand; writing shares the collection."""
    @ColOpPropBag.setter
    def ColOpPropBag(self, value: Any) -> None: ...
    def SetBinaryData(self, RHS: _Bytes) -> None:
        """Takes all settings from the contents of a property bag."""
    def GetBinaryData(self) -> bytes:
        """All settings as the contents of a property bag."""
    def ItfVarBinaryHandler_ValidateFontNumber(self, pFontNumCollection: Any) -> None:
        """Replaces the font's number by the item of which it is the key, or by the first item."""
    def ReSyncDrawingElementParams(self, pDefaultDisplay: SupportsIndex, pFontNum: SupportsIndex) -> None:
        """Brings the drawing element up to date: the state shown, and its font."""

class clsEnums(_Object):
    @property
    def default(self) -> clsEnums:
        """The same object by its default interface."""

class Collection(_Object):
    @property
    def default(self) -> Collection:
        """The same object by its default interface."""
    def __len__(self) -> int: ...
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __iter__(self) -> Iterator[Any]: ...
    def Add(self, Item: Any, Key: Any = ...) -> None:
        """Appends a value, under a key if one is given."""
    @property
    def Count(self) -> int:
        """Number of values."""
    def Item(self, Index: Any) -> Any:
        """The value at a place from 1, or under a key."""
    def Remove(self, Index: Any) -> None:
        """Takes the value at a place or under a key out."""

class PropertyBag(_Object):
    @property
    def default(self) -> PropertyBag:
        """The same object by its default interface."""
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[Any]: ...
    def ReadProperty(self, name: str, standIn: Any = ...) -> Any:
        """The value under a name, or the given one when there is none."""
    def WriteProperty(self, name: str, value: Any) -> None:
        """Keeps a value under a name."""
    @property
    def Contents(self) -> bytes:
        """All values as one block of bytes."""
    @Contents.setter
    def Contents(self, value: _Bytes) -> None: ...
    @property
    def Count(self) -> int:
        """Number of values."""

class Connection(_Object):
    @property
    def default(self) -> Connection:
        """The same object by its default interface."""
    def Execute(self, statement: str) -> Recordset:
        """Runs a statement; a query gives a recordset of its rows."""
    def CreateRecordset(self) -> Recordset:
        """A recordset that is not yet open."""
    def BeginTrans(self) -> None:
        """Begins a transaction."""
    def CommitTrans(self) -> None:
        """Makes the transaction lasting."""
    def RollbackTrans(self) -> None:
        """Undoes the transaction."""
    def Close(self) -> None:
        """Ends the connection."""

class Recordset(_Object):
    @property
    def default(self) -> Recordset:
        """The same object by its default interface."""
    def __iter__(self) -> Iterator[Any]: ...
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def Open(
        self, source: str, connection: Any, cursor: SupportsIndex, lock: SupportsIndex, options: SupportsIndex
        = ...,
    ) -> None:
        """Runs a query and stands on its first row."""
    def Close(self) -> None:
        """Forgets the rows and what was not yet written."""
    def AddNew(self) -> None:
        """Begins a new row."""
    def Update(self) -> None:
        """Writes the current row."""
    def Delete(self) -> None:
        """Deletes the current row."""
    @property
    def EOF(self) -> bool:
        """Whether there is no row, or the last was passed."""
    @property
    def BOF(self) -> bool:
        """Whether there is no row, or the first was passed."""
    def MoveFirst(self) -> None:
        """Goes to the first row."""
    def MoveNext(self) -> None:
        """Goes to the next row."""
    def Move(self, rows: SupportsIndex) -> None:
        """Goes on by a number of rows, backward when negative."""
    @property
    def RecordCount(self) -> int:
        """Number of rows; -1 when it is not known."""
    @property
    def FieldCount(self) -> int:
        """Number of columns."""
    def Fields(self, name: str) -> Field:
        """A column of the current row, by name."""

class Field(_Object):
    @property
    def default(self) -> Field:
        """The same object by its default interface."""
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    @property
    def Name(self) -> str:
        """The name under which the column was asked for."""
    @property
    def Value(self) -> Any:
        """The value in the current row."""
    @Value.setter
    def Value(self, value: Any) -> None: ...

class Operand(_Object):
    @property
    def default(self) -> Operand:
        """The same object by its default interface."""
    @property
    def OperandType(self) -> int:
        """Number of the operand's type; 0 means none."""
    @OperandType.setter
    def OperandType(self, value: int) -> None: ...
    @property
    def OperandAddress(self) -> int:
        """Address within the type."""
    @OperandAddress.setter
    def OperandAddress(self, value: int) -> None: ...
    @property
    def OperandNetID(self) -> Any:
        """Number of the network; 0 is the controller's own."""
    @OperandNetID.setter
    def OperandNetID(self, value: int) -> None: ...
    @property
    def OperandComment(self) -> Any:
        """A text of the user's."""
    @OperandComment.setter
    def OperandComment(self, value: str) -> None: ...
    @property
    def OperandValue(self) -> Decimal:
        """The value, for the types that hold one."""
    @OperandValue.setter
    def OperandValue(self, value: Decimal) -> None: ...
    @property
    def IsDefined(self) -> bool:
        """Whether the project has this operand."""
    @property
    def PropBag(self) -> PropertyBag:
        """The whole operand as a property bag."""
    @PropBag.setter
    def PropBag(self, value: Any) -> None: ...
    @property
    def OperandText(self) -> str:
        """The operand as reports show it."""
    def AddToProject(self) -> None:
        """Enters the operand in the project."""
    def RemoveFromProject(self) -> None:
        """Takes the operand out of the project."""
    def GetFreeAddress(self) -> int:
        """The next free address of the type."""

class ImageLibrary(_Object):
    @property
    def default(self) -> ImageLibrary:
        """The same object by its default interface."""
    @property
    def Name(self) -> str:
        """The library's name."""
    @Name.setter
    def Name(self, value: str) -> None: ...
    @property
    def Folder(self) -> str:
        """The folder of the picture files, with a separator at its end."""
    @Folder.setter
    def Folder(self, value: str) -> None: ...
    @property
    def Palette(self) -> Any:
        """The panel's colours, an array of 32-bit integers."""
    @Palette.setter
    def Palette(self, value: Any) -> None: ...
    def CreateBitmapFrom8bpp(self, pixels: _Bytes, dx: SupportsIndex, dy: SupportsIndex) -> int:
        """A bitmap of palette indices; 0 when they are no such picture."""
    def CreateBitmapFrom16bpp(self, pixels: _Bytes, dx: SupportsIndex, dy: SupportsIndex) -> int:
        """A bitmap of pixels of two bytes; 0 when they are no such picture."""
    def StretchBitmap(self, bitmap: SupportsIndex, dx: SupportsIndex, dy: SupportsIndex) -> int:
        """A copy of a bitmap at another size; 0 when it is none or the size is none."""
    def ConvertBitmapTo8bpp(
        self, conversionMode: SupportsIndex, bitmap: SupportsIndex, palette: Any, dx: SupportsIndex, dy:
        SupportsIndex, pixels: Union[Ref, _Bytes], crc: Union[Ref, SupportsIndex],
    ) -> int:
        """Turns a bitmap into palette indices with their CRC; gives a status, 0 or 6 when done."""
    def ConvertBitmapTo16bpp(
        self, bitmap: SupportsIndex, dx: SupportsIndex, dy: SupportsIndex, pixels: Union[Ref, _Bytes], crc:
        Union[Ref, SupportsIndex],
    ) -> int:
        """Turns a bitmap into pixels of two bytes with their CRC; gives a status, 0 or 6 when done."""
    def GetConversionMode(self, path: str) -> int:
        """The conversion mode that suits the picture in a file."""
    def LoadResizedImage(
        self, path: str, libCrc: SupportsIndex, dx: SupportsIndex, dy: SupportsIndex, status: Union[Ref,
        SupportsIndex],
    ) -> int:
        """Reads a picture file as a bitmap of that size, with a status, 0 when done."""
    def SelectImageFile(
        self, path: Union[Ref, str], libCrc: Union[Ref, SupportsIndex], dxOrg: Union[Ref, SupportsIndex],
        dyOrg: Union[Ref, SupportsIndex], dataOrg: Union[Ref, _Bytes], crc: Union[Ref, SupportsIndex], data:
        Union[Ref, _Bytes], bits: Union[Ref, SupportsIndex], dx: SupportsIndex, dy: SupportsIndex,
    ) -> int:
        """Lets the user choose a picture file; gives a status, 0 when done."""
    def ReadPicture(
        self, path: str, dx: Union[Ref, SupportsIndex], dy: Union[Ref, SupportsIndex], bits: SupportsIndex,
        libCrc: Union[Ref, SupportsIndex], dxOrg: Union[Ref, SupportsIndex], dyOrg: Union[Ref, SupportsIndex],
        dataOrg: Union[Ref, _Bytes], crc: Union[Ref, SupportsIndex], data: Union[Ref, _Bytes],
    ) -> None:
        """Reads a picture file at a size, 0 x 0 for its own."""

class HostServices(_Object):
    @property
    def default(self) -> HostServices:
        """The same object by its default interface."""
    @property
    def MessageBoxes(self) -> Any:
        """The message boxes in use, embedded or the host's own."""
    @MessageBoxes.setter
    def MessageBoxes(self, value: Any) -> None: ...
    @property
    def Messages(self) -> Any:
        """The numbered messages in use, embedded or the host's own."""
    @Messages.setter
    def Messages(self, value: Any) -> None: ...
    @property
    def ErrorLog(self) -> Any:
        """The error log in use, embedded or the host's own."""
    @ErrorLog.setter
    def ErrorLog(self, value: Any) -> None: ...
    @property
    def ProjectDatabase(self) -> Any:
        """The project database in use, embedded or the host's own."""
    @ProjectDatabase.setter
    def ProjectDatabase(self, value: Any) -> None: ...
    @property
    def Changes(self) -> EmbeddedChanges:
        """What the project was told of changes."""
    @property
    def Frame(self) -> EmbeddedFrame:
        """What the window was told."""
    @property
    def Settings(self) -> EmbeddedSettings:
        """The defaults of new elements."""
    @property
    def Colors(self) -> PanelColors:
        """The colours of the panel."""
    @property
    def Fonts(self) -> PanelFonts:
        """The fonts of the panel."""
    @property
    def Strings(self) -> ProjectStrings:
        """The string library of the project."""
    @property
    def Panels(self) -> PanelList:
        """The panel models."""
    @property
    def Recorder(self) -> CallRecorder:
        """Notes the calls of the graphics interface."""
    @property
    def Page(self) -> int:
        """The number of the page that is open."""
    @Page.setter
    def Page(self, value: int) -> None: ...
    @property
    def ChosenFile(self) -> str:
        """The picture file that is chosen next; empty for none."""
    @ChosenFile.setter
    def ChosenFile(self, value: str) -> None: ...
    def NewCollection(self) -> Collection:
        """A new collection."""
    def NewPropertyBag(self) -> PropertyBag:
        """A new property bag."""
    def NewOperand(self) -> Operand:
        """A new operand."""
    def Describe(self, name: str = ...) -> str:
        """Type information as JSON: of a class, an interface, an enumeration, or of all."""
    def Reset(self) -> None:
        """All services of the thread are embedded ones, new."""

class EmbeddedMessageBoxes(_Object):
    @property
    def default(self) -> EmbeddedMessageBoxes:
        """The same object by its default interface."""
    def Show(self, text: str, buttons: SupportsIndex, caption: str) -> int:
        """Shows a box as the library does; gives the answer."""
    @property
    def Shown(self) -> Any:
        """The latest boxes in order, each an array of text, buttons and caption."""
    @property
    def Answer(self) -> int:
        """What every question is answered: 1 OK, 6 yes, 7 no."""
    @Answer.setter
    def Answer(self, value: int) -> None: ...
    def Clear(self) -> None:
        """Forgets what was collected."""
    @property
    def Printed(self) -> bool:
        """Whether each comes as a line on standard error too."""
    @Printed.setter
    def Printed(self, value: bool) -> None: ...

class EmbeddedMessages(_Object):
    @property
    def default(self) -> EmbeddedMessages:
        """The same object by its default interface."""
    def ShowMessage(self, number: SupportsIndex, argument: Any) -> int:
        """Shows a message as the library does; gives the answer."""
    @property
    def Shown(self) -> Any:
        """The latest messages in order, each an array of number and text."""
    @property
    def Answer(self) -> int:
        """What every question is answered: 1 OK, 6 yes, 7 no."""
    @Answer.setter
    def Answer(self, value: int) -> None: ...
    def Clear(self) -> None:
        """Forgets what was collected."""
    @property
    def Printed(self) -> bool:
        """Whether each comes as a line on standard error too."""
    @Printed.setter
    def Printed(self, value: bool) -> None: ...

class EmbeddedErrorLog(_Object):
    @property
    def default(self) -> EmbeddedErrorLog:
        """The same object by its default interface."""
    def Report(
        self, source: str, number: SupportsIndex, description: str, module: str, text1: str, text2: str,
        value: SupportsIndex,
    ) -> None:
        """Takes down an error as the library does."""
    @property
    def Reports(self) -> Any:
        """The latest reports in order, each an array of source, number, description, module, text1, text2 and
        value."""
    def Clear(self) -> None:
        """Forgets what was collected."""
    @property
    def Printed(self) -> bool:
        """Whether each comes as a line on standard error too."""
    @Printed.setter
    def Printed(self, value: bool) -> None: ...

class EmbeddedProjectDatabase(_Object):
    @property
    def default(self) -> EmbeddedProjectDatabase:
        """The same object by its default interface."""
    def Open(self, path: str, mode: SupportsIndex = ...) -> Connection:
        """Opens a project file and gives its connection. Mode: 0 open, 1 create when it is not there, 2 only
        read."""
    def Close(self) -> None:
        """Closes the project."""
    def OpenConnection(self) -> Connection:
        """The connection of the open project."""
    @property
    def Path(self) -> str:
        """The folder of the project's file."""

class EmbeddedChanges(_Object):
    @property
    def default(self) -> EmbeddedChanges:
        """The same object by its default interface."""
    @property
    def Elements(self) -> List[int]:
        """IDs of the elements that changed."""
    @property
    def Pages(self) -> List[int]:
        """Numbers of the pages that changed."""
    @property
    def Events(self) -> Any:
        """What became of elements, in order, each an array of kind, number and whether keys enter the
        value."""
    def Clear(self) -> None:
        """Forgets what was collected."""

class EmbeddedFrame(_Object):
    @property
    def default(self) -> EmbeddedFrame:
        """The same object by its default interface."""
    @property
    def Outputs(self) -> Any:
        """The latest lines of the output list, each an array of text and kind."""
    @property
    def Pointers(self) -> List[int]:
        """The latest pointers that were asked for."""
    @property
    def Interruptions(self) -> int:
        """How often work was interrupted."""
    @property
    def Refreshes(self) -> Any:
        """What was to be shown anew lately, each an array of which and what."""
    def Clear(self) -> None:
        """Forgets what was collected."""
    @property
    def Printed(self) -> bool:
        """Whether each comes as a line on standard error too."""
    @Printed.setter
    def Printed(self, value: bool) -> None: ...

class EmbeddedSettings(_Object):
    @property
    def default(self) -> EmbeddedSettings:
        """The same object by its default interface."""
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def GetSetting(self, section: SupportsIndex, key: SupportsIndex, fallback: str = ...) -> str:
        """The text under section and key, or the fall-back."""
    def SetSetting(self, section: SupportsIndex, key: SupportsIndex, text: str) -> None:
        """Sets a text for all projects."""
    def SetProjectSetting(self, section: SupportsIndex, key: SupportsIndex, text: str) -> None:
        """Keeps a text in the open project."""
    def ReadFile(self, path: str) -> None:
        """Reads settings for all projects from a file."""

class PanelColors(_Object):
    @property
    def default(self) -> PanelColors:
        """The same object by its default interface."""
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def Color(self, number: SupportsIndex) -> int:
        """The colour of a panel colour number."""
    def ShadeColor(self, level: SupportsIndex, number: SupportsIndex) -> int:
        """The colour of a line of a raised frame: 1 to 4 dark, 5 to 8 light."""
    def FaceColor(self, number: SupportsIndex) -> int:
        """The colour of the face of a frame."""
    def ClosestGradientColor(self, number: SupportsIndex) -> int:
        """The number of the nearest colour on which a bevel can be read."""
    @property
    def Palette(self) -> List[int]:
        """The colours of numbers 0 to 255."""

class PanelFonts(_Object):
    @property
    def default(self) -> PanelFonts:
        """The same object by its default interface."""
    @property
    def DefaultFontNumber(self) -> int:
        """The font that new elements take."""
    @property
    def DefaultDescriptionFontNumber(self) -> int:
        """The font of the description of a keypad entry."""
    def CharHeight(self, font: SupportsIndex) -> int:
        """The height of a line in pixels."""
    def CharWidths(self, font: SupportsIndex) -> List[int]:
        """The widths of the characters by their ANSI code."""
    def TextSize(
        self, text: str, font: SupportsIndex, width: Union[Ref, SupportsIndex], height: Union[Ref,
        SupportsIndex],
    ) -> None:
        """The size that a text takes in pixels."""
    def FontName(self, font: SupportsIndex) -> str:
        """The font's name."""

class ProjectStrings(_Object):
    @property
    def default(self) -> ProjectStrings:
        """The same object by its default interface."""
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    @property
    def LanguageCount(self) -> int:
        """The number of languages."""
    @property
    def Language(self) -> int:
        """The current language, counted from 1."""
    @Language.setter
    def Language(self, value: int) -> None: ...
    def LanguageName(self, language: SupportsIndex) -> str:
        """The name of a language."""
    def SetLanguage(self, language: SupportsIndex, name: str) -> None:
        """Names a language; the number after the last adds one."""
    def Text(self, number: SupportsIndex) -> str:
        """The text of a number in the current language."""
    def FontNumber(self, number: SupportsIndex) -> int:
        """The font of that text; -1 for none of its own."""
    def SetText(
        self, number: SupportsIndex, language: SupportsIndex, text: str, fontNumber: SupportsIndex = ...,
    ) -> None:
        """Keeps a text for a language; an empty one takes it away."""
    @property
    def Texts(self) -> Any:
        """All texts, each an array of number, language, text and font number."""

class PanelList(_Object):
    @property
    def default(self) -> PanelList:
        """The same object by its default interface."""
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    @property
    def CurrentPanelType(self) -> int:
        """The panel type that was selected last."""
    def SelectPanel(self, panelType: SupportsIndex) -> Any:
        """Makes a panel type the current one; an array of its back and ink colours."""
    def Model(self, panelType: SupportsIndex) -> Any:
        """The model of a type: an array of type, width, height, bits a pixel, number of colours, back and ink
        colours."""
    @property
    def Models(self) -> Any:
        """All models, by type."""

class CallRecorder(_Object):
    @property
    def default(self) -> CallRecorder:
        """The same object by its default interface."""
    def Start(self) -> None:
        """Begins to note the calls of the graphics interface."""
    def Stop(self) -> None:
        """Ends it; the calls can still be read."""
    @property
    def Recording(self) -> bool:
        """Whether calls are noted."""
    @property
    def Calls(self) -> List[str]:
        """The calls in order."""
    def Take(self) -> List[str]:
        """The calls in order, which are forgotten then."""

class _Enumerations:
    enVarType: Type[_enVarType]
    enCollisionStatus: Type[_enCollisionStatus]
    enPickUpDirection: Type[_enPickUpDirection]
    enPenStyle: Type[_enPenStyle]
    enHatchStyle: Type[_enHatchStyle]
    enFillStyle: Type[_enFillStyle]
    enOperandPurpose: Type[_enOperandPurpose]
    enTouchStyle: Type[_enTouchStyle]
    enAddElementToTree: Type[_enAddElementToTree]
    enBaseFormat: Type[_enBaseFormat]
    enRectAppearance: Type[_enRectAppearance]
    enRectBorderStyle: Type[_enRectBorderStyle]
    enRTCType: Type[_enRTCType]
    enBarGraphDrawType: Type[_enBarGraphDrawType]
    enShapeGraphType: Type[_enShapeGraphType]
    enTimerType: Type[_enTimerType]
    enTimerDisplayType: Type[_enTimerDisplayType]
    enTimerFormatType: Type[_enTimerFormatType]
    enTimeFuncFormatType: Type[_enTimeFuncFormatType]
    enLeadingType: Type[_enLeadingType]
    enDateUTCType: Type[_enDateUTCType]
    enTimeUTCType: Type[_enTimeUTCType]
    enLanguagesKeyboards: Type[_enLanguagesKeyboards]
    enMovingDirection: Type[_enMovingDirection]
    enKeypadDIsplayType: Type[_enKeypadDIsplayType]
    enMeterDirection: Type[_enMeterDirection]
    enMeterTicksLocation: Type[_enMeterTicksLocation]
    enDateFormat: Type[_enDateFormat]
    enHistoryScrollMode: Type[_enHistoryScrollMode]
    enKeyboardType: Type[_enKeyboardType]
    enSdBrowserOpID: Type[_enSdBrowserOpID]
    CursorType: Type[_CursorType]
    LockType: Type[_LockType]
    CommandOption: Type[_CommandOption]

enums: _Enumerations

def collection(*items: Any, **keyed: Any) -> Collection:
    """A new collection with these values, those with a name under it as their key."""

@overload
def create(class_name: Literal["clsRectangle"], **properties: Any) -> clsRectangle: ...
@overload
def create(class_name: Literal["clsEllipse"], **properties: Any) -> clsEllipse: ...
@overload
def create(class_name: Literal["clsRoundRect"], **properties: Any) -> clsRoundRect: ...
@overload
def create(class_name: Literal["clsLine"], **properties: Any) -> clsLine: ...
@overload
def create(class_name: Literal["clsText"], **properties: Any) -> clsText: ...
@overload
def create(class_name: Literal["clsBitmap"], **properties: Any) -> clsBitmap: ...
@overload
def create(class_name: Literal["clsButton"], **properties: Any) -> clsButton: ...
@overload
def create(class_name: Literal["clsFrame"], **properties: Any) -> clsFrame: ...
@overload
def create(class_name: Literal["clsGroup"], **properties: Any) -> clsGroup: ...
@overload
def create(class_name: Literal["clsGrpElmntsSrv"], **properties: Any) -> clsGrpElmntsSrv: ...
@overload
def create(class_name: Literal["clsVarImageElement"], **properties: Any) -> clsVarImageElement: ...
@overload
def create(class_name: Literal["clsPageImage"], **properties: Any) -> clsPageImage: ...
@overload
def create(class_name: Literal["ItfImage"], **properties: Any) -> ItfImage: ...
@overload
def create(class_name: Literal["clsVar"], **properties: Any) -> clsVar: ...
@overload
def create(class_name: Literal["clsVarTextElement"], **properties: Any) -> clsVarTextElement: ...
@overload
def create(class_name: Literal["clsVarBinaryText"], **properties: Any) -> clsVarBinaryText: ...
@overload
def create(class_name: Literal["clsVarListText"], **properties: Any) -> clsVarListText: ...
@overload
def create(class_name: Literal["clsVarNumeric"], **properties: Any) -> clsVarNumeric: ...
@overload
def create(class_name: Literal["clsVarBargraph"], **properties: Any) -> clsVarBargraph: ...
@overload
def create(class_name: Literal["clsVarRangeText"], **properties: Any) -> clsVarRangeText: ...
@overload
def create(class_name: Literal["clsVarDisplayString"], **properties: Any) -> clsVarDisplayString: ...
@overload
def create(class_name: str, **properties: Any) -> Any: ...

_CommandOption = CommandOption
_CursorType = CursorType
_ImageLibrary = ImageLibrary
_ItfHmiElement = ItfHmiElement
_ItfImage = ItfImage
_ItfVarBinaryHandler = ItfVarBinaryHandler
_LockType = LockType
_enAddElementToTree = enAddElementToTree
_enBarGraphDrawType = enBarGraphDrawType
_enBaseFormat = enBaseFormat
_enCollisionStatus = enCollisionStatus
_enDateFormat = enDateFormat
_enDateUTCType = enDateUTCType
_enFillStyle = enFillStyle
_enHatchStyle = enHatchStyle
_enHistoryScrollMode = enHistoryScrollMode
_enKeyboardType = enKeyboardType
_enKeypadDIsplayType = enKeypadDIsplayType
_enLanguagesKeyboards = enLanguagesKeyboards
_enLeadingType = enLeadingType
_enMeterDirection = enMeterDirection
_enMeterTicksLocation = enMeterTicksLocation
_enMovingDirection = enMovingDirection
_enOperandPurpose = enOperandPurpose
_enPenStyle = enPenStyle
_enPickUpDirection = enPickUpDirection
_enRTCType = enRTCType
_enRectAppearance = enRectAppearance
_enRectBorderStyle = enRectBorderStyle
_enSdBrowserOpID = enSdBrowserOpID
_enShapeGraphType = enShapeGraphType
_enTimeFuncFormatType = enTimeFuncFormatType
_enTimeUTCType = enTimeUTCType
_enTimerDisplayType = enTimerDisplayType
_enTimerFormatType = enTimerFormatType
_enTimerType = enTimerType
_enTouchStyle = enTouchStyle
_enVarType = enVarType
