#pragma once

#include <cstdint>

/// Types and constants of the graphics device interface, in their published spelling and layout.
namespace quenzel7::gdi {

/// A handle of the calling thread. 0 is the null handle.
using Handle = std::int32_t;
using HDC = Handle;
using HGDIOBJ = Handle;
using HPEN = Handle;
using HBRUSH = Handle;
using HBITMAP = Handle;
using HRGN = Handle;
using HFONT = Handle;

/// 0 is false, anything else is true.
using BOOL = std::int32_t;

/// 0x00BBGGRR.
using COLORREF = std::uint32_t;

constexpr COLORREF CLR_INVALID = 0xFFFFFFFF;

constexpr COLORREF RGB(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return (red & 0xFF) | (green & 0xFF) << 8 | (blue & 0xFF) << 16;
}

struct POINT {
  std::int32_t x, y;
};

struct SIZE {
  std::int32_t cx, cy;
};

struct RECT {
  std::int32_t left, top, right, bottom;
};

struct LOGPEN {
  std::uint32_t lopnStyle;
  POINT lopnWidth;  ///< only x counts
  COLORREF lopnColor;
};
static_assert(sizeof(LOGPEN) == 16);

struct EXTLOGPEN {
  std::uint32_t elpPenStyle;
  std::uint32_t elpWidth;
  std::uint32_t elpBrushStyle;
  COLORREF elpColor;
  std::uint32_t elpHatch;
  std::uint32_t elpNumEntries;
  std::uint32_t elpStyleEntry[1];
};
static_assert(sizeof(EXTLOGPEN) == 28);

struct LOGBRUSH {
  std::uint32_t lbStyle;
  COLORREF lbColor;
  std::uint32_t lbHatch;
};
static_assert(sizeof(LOGBRUSH) == 12);

struct BITMAP {
  std::int32_t bmType;
  std::int32_t bmWidth;
  std::int32_t bmHeight;
  std::int32_t bmWidthBytes;
  std::int16_t bmPlanes;
  std::int16_t bmBitsPixel;
  std::uint32_t bmBits;  ///< always 0: the pixels are not mapped into the caller's memory
};
static_assert(sizeof(BITMAP) == 24);

/// A font as it is asked for. Texts are in the code page of the character set.
struct LOGFONT {
  std::int32_t lfHeight;  ///< of the cell; negative: of the characters; 0: a default
  std::int32_t lfWidth;   ///< average width of the characters; 0: as the height gives it
  std::int32_t lfEscapement;
  std::int32_t lfOrientation;
  std::int32_t lfWeight;  ///< 400 regular, 700 bold, 0 unasked
  std::uint8_t lfItalic;
  std::uint8_t lfUnderline;
  std::uint8_t lfStrikeOut;
  std::uint8_t lfCharSet;
  std::uint8_t lfOutPrecision;
  std::uint8_t lfClipPrecision;
  std::uint8_t lfQuality;
  std::uint8_t lfPitchAndFamily;
  char lfFaceName[32];
};
static_assert(sizeof(LOGFONT) == 60);

/// A font as it was found, in pixels.
struct TEXTMETRICA {
  std::int32_t tmHeight;
  std::int32_t tmAscent;
  std::int32_t tmDescent;
  std::int32_t tmInternalLeading;
  std::int32_t tmExternalLeading;
  std::int32_t tmAveCharWidth;
  std::int32_t tmMaxCharWidth;
  std::int32_t tmWeight;
  std::int32_t tmOverhang;
  std::int32_t tmDigitizedAspectX;
  std::int32_t tmDigitizedAspectY;
  std::uint8_t tmFirstChar;
  std::uint8_t tmLastChar;
  std::uint8_t tmDefaultChar;
  std::uint8_t tmBreakChar;
  std::uint8_t tmItalic;
  std::uint8_t tmUnderlined;
  std::uint8_t tmStruckOut;
  std::uint8_t tmPitchAndFamily;
  std::uint8_t tmCharSet;
};
static_assert(sizeof(TEXTMETRICA) == 56);

/// Values of `lfPitchAndFamily`: a pitch in the two lowest bits, a family in the four highest. In
/// `tmPitchAndFamily` the lowest bits say what the font is, the first one being set when the pitch is not
/// fixed.
enum PitchAndFamily : std::uint8_t {
  DEFAULT_PITCH = 0,
  FIXED_PITCH = 1,
  VARIABLE_PITCH = 2,
  FF_DONTCARE = 0x00,
  FF_ROMAN = 0x10,
  FF_SWISS = 0x20,
  FF_MODERN = 0x30,
  TMPF_FIXED_PITCH = 1,
  TMPF_VECTOR = 2,
  TMPF_TRUETYPE = 4,
};

/// Formats of `DrawTextA`.
enum DrawTextFormat : std::uint32_t {
  DT_TOP = 0x00000000,
  DT_LEFT = 0x00000000,
  DT_CENTER = 0x00000001,
  DT_RIGHT = 0x00000002,
  DT_VCENTER = 0x00000004,
  DT_BOTTOM = 0x00000008,
  DT_WORDBREAK = 0x00000010,
  DT_SINGLELINE = 0x00000020,
  DT_EXPANDTABS = 0x00000040,
  DT_TABSTOP = 0x00000080,
  DT_NOCLIP = 0x00000100,
  DT_EXTERNALLEADING = 0x00000200,
  DT_CALCRECT = 0x00000400,
  DT_NOPREFIX = 0x00000800,
  DT_END_ELLIPSIS = 0x00008000,
  DT_WORD_ELLIPSIS = 0x00040000,
};

/// How `AlphaBlend` mixes: always AC_SRC_OVER, by a constant share of the source in 255ths.
struct BLENDFUNCTION {
  std::uint8_t BlendOp;
  std::uint8_t BlendFlags;
  std::uint8_t SourceConstantAlpha;
  std::uint8_t AlphaFormat;
};
static_assert(sizeof(BLENDFUNCTION) == 4);

constexpr std::uint8_t AC_SRC_OVER = 0;

/// Pen styles; the extended ones combine with the basic ones in `ExtCreatePen`.
enum PenStyle : std::uint32_t {
  PS_SOLID = 0,
  PS_DASH = 1,
  PS_DOT = 2,
  PS_DASHDOT = 3,
  PS_DASHDOTDOT = 4,
  PS_NULL = 5,
  PS_INSIDEFRAME = 6,
  PS_STYLE_MASK = 0x0000000F,
  PS_ENDCAP_ROUND = 0x00000000,
  PS_ENDCAP_SQUARE = 0x00000100,
  PS_ENDCAP_FLAT = 0x00000200,
  PS_ENDCAP_MASK = 0x00000F00,
  PS_JOIN_ROUND = 0x00000000,
  PS_JOIN_BEVEL = 0x00001000,
  PS_JOIN_MITER = 0x00002000,
  PS_JOIN_MASK = 0x0000F000,
  PS_COSMETIC = 0x00000000,
  PS_GEOMETRIC = 0x00010000,
  PS_TYPE_MASK = 0x000F0000,
};

enum BrushStyle : std::uint32_t { BS_SOLID = 0, BS_NULL = 1, BS_HATCHED = 2 };

enum HatchStyle : std::uint32_t {
  HS_HORIZONTAL = 0,
  HS_VERTICAL = 1,
  HS_FDIAGONAL = 2,
  HS_BDIAGONAL = 3,
  HS_CROSS = 4,
  HS_DIAGCROSS = 5,
};

/// Object types of `GetCurrentObject`.
enum ObjectType : std::uint32_t { OBJ_PEN = 1, OBJ_BRUSH = 2, OBJ_FONT = 6, OBJ_BITMAP = 7 };

/// Indices of `GetStockObject`.
enum StockObject : std::int32_t {
  WHITE_BRUSH = 0,
  LTGRAY_BRUSH = 1,
  GRAY_BRUSH = 2,
  DKGRAY_BRUSH = 3,
  BLACK_BRUSH = 4,
  NULL_BRUSH = 5,
  WHITE_PEN = 6,
  BLACK_PEN = 7,
  NULL_PEN = 8,
  OEM_FIXED_FONT = 10,
  ANSI_FIXED_FONT = 11,
  ANSI_VAR_FONT = 12,
  SYSTEM_FONT = 13,
  DEVICE_DEFAULT_FONT = 14,
  SYSTEM_FIXED_FONT = 16,
  DEFAULT_GUI_FONT = 17,
};

/// Modes of `SetBkMode`: whether the gaps of what is drawn are painted in the background colour.
enum BackgroundMode : std::int32_t { TRANSPARENT = 1, OPAQUE = 2 };

/// Ternary raster operations. The third byte is the truth table: bit (4*pattern + 2*source + target).
enum RasterCode : std::uint32_t {
  BLACKNESS = 0x00000042,
  NOTSRCCOPY = 0x00330008,
  DSTINVERT = 0x00550009,
  PATINVERT = 0x005A0049,
  SRCINVERT = 0x00660046,
  SRCAND = 0x008800C6,
  SRCCOPY = 0x00CC0020,
  SRCPAINT = 0x00EE0086,
  PATCOPY = 0x00F00021,
  WHITENESS = 0x00FF0062,
};

/// Modes of `SetStretchBltMode`: what becomes of the pixels that reducing loses.
enum StretchMode : std::int32_t { BLACKONWHITE = 1, WHITEONBLACK = 2, COLORONCOLOR = 3 };

}  // namespace quenzel7::gdi
