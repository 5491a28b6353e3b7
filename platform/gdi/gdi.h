#pragma once

#include <cstddef>

#include "platform/gdi/types.h"

/// The graphics device interface: the operations by which the elements paint, on memory contexts.
///
/// A context or object is told by a handle of the calling thread. Operations neither throw nor crash on a
/// wrong handle, a handle of another kind, one that has been deleted, or a null pointer: they fail as each
/// says, by 0. So they do when the handles of a thread have ended with it, which static variables outlive.
/// Where memory cannot be had, making a bitmap fails by 0; through other calls std::bad_alloc passes: handles
/// and contexts are in order then, and nothing is lost but what the call had to do or had painted in part.
///
/// Coordinates are pixels of the context's bitmap, x to the right, y downwards; any 32-bit coordinate is
/// allowed, and what lies outside the bitmap is cut off.
///
/// Two kinds of surface exist: 32 bits a pixel (blue, green, red, unused) and 1 bit. What is drawn in a
/// colour on 1 bit becomes black or white, whichever is nearer.
namespace quenzel7::gdi {

// --- Contexts and the objects selected into them ---

/// Makes a memory context that holds a bitmap of one pixel and one bit, the black pen, the white brush,
/// background white and opaque, text black, the system font. Every context is compatible with every other;
/// `dc` is 0 or a context. 0 if `dc` is neither, or if the thread has no handle left.
HDC CreateCompatibleDC(HDC dc);

/// Ends a context. What is selected into it is free again and not deleted.
BOOL DeleteDC(HDC dc);

/// Puts a pen, brush, font or bitmap into a context and returns what it takes the place of.
/// 0 for anything else, and for a bitmap that another context holds.
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);

/// The pen (1), brush (2), font (6) or bitmap (7) of a context; 0 for other types.
HGDIOBJ GetCurrentObject(HDC dc, std::uint32_t type);

/// Deletes a pen, brush, font, bitmap or region. 0, and nothing happens, while a context holds the object.
/// Stock objects are never deleted; asking for it is harmless and gives 1.
BOOL DeleteObject(HGDIOBJ object);

/// Describes an object in at most `size` bytes: a LOGPEN (16 bytes), an EXTLOGPEN for an extended pen
/// (28), a LOGBRUSH (12) or a BITMAP (24). Returns the number of bytes, also when `out` is null and only
/// the size is asked for; 0 if `size` is too small. Of a LOGFONT (60) as much is given as there is room for.
std::int32_t GetObjectA(HGDIOBJ object, std::int32_t size, void* out);

/// The brush (0..5), pen (6..8) or font (10..14, 16, 17) of that index, 0 for other indices.
HGDIOBJ GetStockObject(std::int32_t index);

/// The number of contexts and objects of this thread that were made and not deleted. Whoever draws
/// leaves it as it was.
std::size_t LiveObjects();

// --- Colours and modes of a context ---
// Each setter returns what was set before. Wrong contexts give CLR_INVALID, for the mode 0.

COLORREF SetBkColor(HDC dc, COLORREF color);
COLORREF GetBkColor(HDC dc);
COLORREF SetTextColor(HDC dc, COLORREF color);
COLORREF GetTextColor(HDC dc);

/// `mode` is TRANSPARENT or OPAQUE; other modes give 0 and change nothing. On OPAQUE the gaps of dashes and
/// hatches and the cells of texts are painted in the background colour, else they stay as they are.
std::int32_t SetBkMode(HDC dc, std::int32_t mode);
std::int32_t GetBkMode(HDC dc);

/// `mode` is 1 to 3 (`StretchMode`); other modes give 0 and change nothing.
std::int32_t SetStretchBltMode(HDC dc, std::int32_t mode);

// --- Pens and brushes ---

/// A pen of one of the seven basic styles; an unknown style is taken for solid. Widths 0 and 1 give
/// thin lines; only those can be dashed. A negative width counts as its amount. A pen without lines
/// keeps neither width nor colour: it is described as width 1, colour 0.
HPEN CreatePenIndirect(const LOGPEN* pen);

/// An extended pen: `style` combines a line style, end cap, join and type. The brush gives the colour and
/// is solid. 0 for patterns of the caller's own (`styleCount` not 0), other brushes, and unknown styles.
HPEN ExtCreatePen(std::uint32_t style, std::uint32_t width, const LOGBRUSH* brush, std::uint32_t styleCount,
                  const std::uint32_t* styles);

/// A solid, null or hatched brush; 0 for other styles and for hatches beyond 5. The gaps of a hatch are
/// painted in the background colour that the context has at that time, if its background is opaque.
HBRUSH CreateBrushIndirect(const LOGBRUSH* brush);
HBRUSH CreateSolidBrush(COLORREF color);
HBRUSH CreateHatchBrush(std::int32_t hatch, COLORREF color);

// --- Bitmaps ---

/// A bitmap of one plane and 1 or 32 bits a pixel, 0 for other formats and for negative measures. `bits`
/// holds the rows from the top, each padded to 16 bits, or is null for all 0. Width or height 0 gives
/// one black pixel of one bit.
HBITMAP CreateBitmap(std::int32_t width, std::int32_t height, std::uint32_t planes,
                     std::uint32_t bitsPerPixel, const void* bits);

/// A bitmap in the format of the one that the context holds: in a fresh context, one bit. Measures as for
/// `CreateBitmap`.
HBITMAP CreateCompatibleBitmap(HDC dc, std::int32_t width, std::int32_t height);

/// Copies at most `size` bytes of a bitmap's rows and returns how many; the number of all if `out` is
/// null.
std::int32_t GetBitmapBits(HBITMAP bitmap, std::int32_t size, void* out);

/// The colour of a pixel; CLR_INVALID outside the bitmap.
COLORREF GetPixel(HDC dc, std::int32_t x, std::int32_t y);

// --- Filling ---

/// Fills a rectangle with a brush; right and bottom edge are out, in whichever order the corners come.
BOOL FillRect(HDC dc, const RECT* rect, HBRUSH brush);

/// Inverts every second pixel along the edge of a rectangle, counted from its top right corner. Doing it
/// again restores everything.
BOOL DrawFocusRect(HDC dc, const RECT* rect);

// --- Raster operations ---

/// Combines a rectangle with the context's brush by a raster code, negative measures going to the left
/// and up. Fails for codes that need a source. A null brush draws nothing where the code needs one.
BOOL PatBlt(HDC dc, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
            std::uint32_t code);

/// Combines pixels of another context, or of the same, with a rectangle by a raster code; every code is
/// known. What lies outside the source is not drawn. Negative measures go to the left and up in both.
///
/// From 1 bit to 32, bit 0 becomes the target's text colour and bit 1 its background colour. From 32
/// bits to 1, pixels of exactly the source's background colour become 1 and all others 0.
///
/// Fails without a source context, unless the code needs none.
BOOL BitBlt(HDC dc, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height, HDC source,
            std::int32_t sourceX, std::int32_t sourceY, std::uint32_t code);

/// As `BitBlt` with a source of another size. Measures of different signs mirror the picture. Reducing, the
/// stretch mode of the target tells what becomes of pixels that meet in one: 1 AND, 2 OR, 3 one of them.
/// A source without width or height draws nothing.
BOOL StretchBlt(HDC dc, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height, HDC source,
                std::int32_t sourceX, std::int32_t sourceY, std::int32_t sourceWidth,
                std::int32_t sourceHeight, std::uint32_t code);

/// Mixes a rectangle of another context into one: each channel becomes (source * alpha + target *
/// (255 - alpha)) / 255, to the nearest. Another size is stretched as by stretch mode 3. From 1 bit
/// colours come as in `BitBlt`; on 1 bit the mixture becomes black or white, whichever is nearer.
///
/// Fails if a measure is negative, if the source rectangle is not inside its bitmap, or if `blend` asks for
/// anything but AC_SRC_OVER with a constant alpha.
BOOL AlphaBlend(HDC dc, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height, HDC source,
                std::int32_t sourceX, std::int32_t sourceY, std::int32_t sourceWidth,
                std::int32_t sourceHeight, BLENDFUNCTION blend);

// --- Figures and lines, with the context's pen and brush ---

/// Right and bottom edge are out, in whichever order the corners come. A pen wider than 1 rounds the
/// corners outside; one of style PS_INSIDEFRAME stays inside the rectangle, other wide ones are centred
/// on its edge. Without a pen the filled part is one pixel less to the right and at the bottom.
BOOL Rectangle(HDC dc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);

/// The ellipse that just fills the rectangle; edges and wide pens as for `Rectangle`. Without a pen the
/// filled ellipse is that of a rectangle one pixel less to the right and at the bottom.
BOOL Ellipse(HDC dc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);

/// A rectangle whose corners are quarters of an ellipse of `width` x `height`, cut to the rectangle; 0 or 1
/// gives square corners. Signs of the measures do not count. Otherwise as `Ellipse`.
BOOL RoundRect(HDC dc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
               std::int32_t width, std::int32_t height);

/// Sets the pen position; gives the one before, if `before` is not null.
BOOL MoveToEx(HDC dc, std::int32_t x, std::int32_t y, POINT* before);

/// A line from the pen position up to but not including the point, which becomes the pen position. Gaps
/// of a dashed pen are painted in the background colour, if it is opaque; the pattern starts anew with each
/// line.
BOOL LineTo(HDC dc, std::int32_t x, std::int32_t y);

/// Joins points by lines; the pattern of a dashed pen goes on from one to the next. At least two points.
/// The pen position is neither used nor changed.
BOOL Polyline(HDC dc, const POINT* points, std::int32_t count);

/// A line from the pen position to the start of an arc, then the arc, around (x, y); its end becomes the pen
/// position. Angles in degrees, counted from the right against the clock; the arc is `sweep` long, negative
/// with the clock. Fails for angles that are not finite.
BOOL AngleArc(HDC dc, std::int32_t x, std::int32_t y, std::uint32_t radius, float start, float sweep);

// --- Paths ---
// Between BeginPath and EndPath the lines and figures of a context are not painted but kept as its path.

/// Begins a path; one that was kept or begun is forgotten.
BOOL BeginPath(HDC dc);

/// Ends it; fails if none was begun.
BOOL EndPath(HDC dc);

/// Paints the lines of the path with the pen and forgets it; fails if none was ended.
BOOL StrokePath(HDC dc);

/// Closes every figure of the path, fills what an odd number of them goes around, paints their lines, and
/// forgets the path; fails if none was ended.
BOOL StrokeAndFillPath(HDC dc);

// --- Regions ---

/// The ellipse that `Ellipse` fills in a box one pixel less to the right and at the bottom.
HRGN CreateEllipticRgn(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);

/// The rounded rectangle that `RoundRect` fills in a box one pixel less to the right and at the bottom.
HRGN CreateRoundRectRgn(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
                        std::int32_t width, std::int32_t height);

/// Whether a pixel is in the region; 0 too if there is no such region.
BOOL PtInRegion(HRGN region, std::int32_t x, std::int32_t y);

/// Whether any pixel of a rectangle, without its right and bottom edge, is in the region; 0 too if there
/// is no such region. A rectangle without width or height counts as one pixel wide or high.
BOOL RectInRegion(HRGN region, const RECT* rect);

// --- Texts, in the context's font, text colour and background mode ---
// Texts are bytes in the code page of the font's character set; a control character shows as the font's box
// for missing ones. A length may be larger than the text: it ends at its terminator. In a path bracket texts
// are neither painted nor kept. The pen position plays no part.

/// A font, realised as `Font` tells when it is first used. 0 for null. Any height and width is accepted.
HFONT CreateFontIndirectA(const LOGFONT* font);

/// Paints a line of text, the top left corner of its cell at (x, y). Fails for a negative length, and for a
/// null text unless the length is 0.
BOOL TextOutA(HDC dc, std::int32_t x, std::int32_t y, const char* text, std::int32_t count);

/// The sum of the advances and the height of the font, in pixels. Fails as `TextOutA`, and for a null `size`.
BOOL GetTextExtentPoint32A(HDC dc, const char* text, std::int32_t count, SIZE* size);

/// Describes the font as it was realised, in pixels. The average width is that of the letter x.
BOOL GetTextMetricsA(HDC dc, TEXTMETRICA* metrics);

/// Paints a text inside a rectangle and gives its height in pixels; with DT_VCENTER or DT_BOTTOM the distance
/// from the top of the rectangle to the bottom of the text. A length of -1 goes up to the terminator. Fails
/// for lengths below that, a null rectangle, and a null text unless the length is 0. An empty text is one
/// empty line.
///
/// - Lines end at carriage return, line feed, or both together; one at the end of the text begins no line.
///   DT_SINGLELINE paints them like other control characters instead. DT_WORDBREAK also breaks at the spaces
///   and tabs before the first word that does not fit, which then belong to no line; not with DT_SINGLELINE.
/// - DT_CENTER and DT_RIGHT align each line (both: centred), DT_VCENTER and DT_BOTTOM (both: centred) a
///   DT_SINGLELINE text.
/// - An & underlines the character behind it and is not painted itself, && is one &; DT_NOPREFIX turns that
///   off.
/// - DT_EXPANDTABS moves on at a tab to the next multiple of eight average widths; DT_TABSTOP puts another
///   number in the place of the eight, from bits 8 to 15 of the format, which mean nothing else then.
/// - DT_WORD_ELLIPSIS ends each line that is too wide in as many characters as fit and three dots,
///   DT_END_ELLIPSIS only the last one.
/// - DT_EXTERNALLEADING adds the recommended distance to each line's height.
/// - DT_CALCRECT paints nothing but sets the right and bottom edge of the rectangle around the text.
/// - Nothing is painted outside of the rectangle, unless DT_NOCLIP allows it.
///
/// Other formats are passed over.
std::int32_t DrawTextA(HDC dc, const char* text, std::int32_t count, RECT* rect, std::uint32_t format);

/// The advances of the bytes `first` to `last`, both in, into as many numbers. Fails if `last` is less than
/// `first` or above 255.
BOOL GetCharWidth32A(HDC dc, std::uint32_t first, std::uint32_t last, std::int32_t* widths);

// --- Memory ---

/// Copies `size` bytes; the two places may overlap. Does nothing if either is null. No call of drawing:
/// a `Recorder` does not note it.
void RtlMoveMemory(void* to, const void* from, std::size_t size);

}  // namespace quenzel7::gdi
