#include "fuzz/gdi_calls.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

#include "fuzz/gdi_session.h"
#include "platform/gdi/bitmap.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"

namespace quenzel7::fuzz {
namespace {

using namespace gdi;
using Kind = GdiSession::Kind;

/// A sequence is at most this long, so that no input is slow by its length alone.
constexpr int kMostCalls = 100;
/// Bitmaps that could be had but would take more bytes than this are asked for smaller.
constexpr std::int64_t kMostBitmapBytes = 1 << 16;

// --- Arguments, by what they mean ---

HDC Dc(GdiSession& session) { return session.Pick(Kind::kContext); }
HBRUSH BrushHandle(GdiSession& session) { return session.Pick(Kind::kBrush); }
HBITMAP BitmapHandle(GdiSession& session) { return session.Pick(Kind::kBitmap); }
HFONT FontHandle(GdiSession& session) { return session.Pick(Kind::kFont); }
HRGN RegionHandle(GdiSession& session) { return session.Pick(Kind::kRegion); }
HGDIOBJ AnyHandle(GdiSession& session) { return session.PickAny(); }
std::int32_t Number(GdiSession& session) { return session.Bytes().Number(); }
std::uint32_t Unsigned(GdiSession& session) { return static_cast<std::uint32_t>(Number(session)); }
float Angle(GdiSession& session) { return session.Bytes().Real(); }

COLORREF Color(GdiSession& session) {
  // Mostly few bits, so that equal colours meet; sometimes with a highest byte that must not matter.
  const std::uint32_t byte = session.Bytes().Byte();
  return byte < 0xF0 ? RGB((byte & 3) * 85, (byte >> 2 & 3) * 85, (byte >> 4) * 17) : session.Bytes().Word();
}

std::uint32_t Code(GdiSession& session) {
  constexpr std::array<RasterCode, 8> kNamed{SRCCOPY, SRCINVERT, SRCAND,    SRCPAINT,
                                             PATCOPY, PATINVERT, DSTINVERT, NOTSRCCOPY};
  const std::uint32_t byte = session.Bytes().Byte();
  return byte < 0x80 ? std::uint32_t{kNamed[byte % kNamed.size()]}
                     : std::uint32_t{session.Bytes().Byte()} << 16;
}

BLENDFUNCTION BlendValue(GdiSession& session) {
  const std::uint8_t alpha = session.Bytes().Byte(), oddity = session.Bytes().Byte();
  const auto odd = [&](int bit) { return static_cast<std::uint8_t>(oddity >= 0xF0 ? oddity >> bit & 1 : 0); };
  return {odd(0), odd(1), alpha, odd(2)};
}

/// A structure, or now and then none.
template <typename T>
class OrNull {
 public:
  OrNull(GdiSession& session, T (*make)(GdiSession&)) {
    if (session.Bytes().Byte() != 0xFF) value_ = make(session);
  }
  operator T*() { return value_ ? &*value_ : nullptr; }

 private:
  std::optional<T> value_;
};

OrNull<RECT> RectOrNull(GdiSession& session) {
  return {session, [](GdiSession& from) {
            return RECT{Number(from), Number(from), Number(from), Number(from)};
          }};
}
OrNull<POINT> PointOrNull(GdiSession& session) {
  return {session, [](GdiSession&) { return POINT{}; }};
}
OrNull<LOGPEN> PenOrNull(GdiSession& session) {
  return {
      session, [](GdiSession& from) {
        return LOGPEN{static_cast<std::uint32_t>(from.Bytes().Byte() % 9), {Number(from), 0}, Color(from)};
      }};
}
LOGBRUSH BrushValue(GdiSession& from) {
  const std::uint32_t style = from.Bytes().Byte() % 4;
  return {style, Color(from), from.Bytes().Byte() % 7u};
}
OrNull<LOGBRUSH> BrushOrNull(GdiSession& session) { return {session, BrushValue}; }
OrNull<LOGBRUSH> SolidOrNull(GdiSession& session) {
  return {session, [](GdiSession& from) {
            return LOGBRUSH{from.Bytes().Byte() < 0xF0 ? 0u : 1u, Color(from), 0};
          }};
}

/// The sizes at which everything is tried; those beyond are asked for by the numbers at the ends of the
/// range.
std::int32_t SizeOfFont(GdiSession& from) {
  constexpr std::int32_t kLargest = 100, kHuge = 0x4001;
  const std::int32_t size = Number(from);
  return size < -kHuge || size > kHuge ? size : size % (kLargest + 1);
}

LOGFONT FontValue(GdiSession& from) {
  constexpr std::array<std::int32_t, 8> kWeights{0, 400, 549, 550, 700, 1000, -1, 0x7FFFFFFF};
  constexpr std::array<std::uint8_t, 10> kCharSets{0, 1, 161, 162, 177, 178, 186, 204, 238, 255};
  // The last one leaves no room for a terminator.
  constexpr std::array<std::string_view, 5> kFaces{"", "DejaVu Sans", "Unifont", "nobody has this",
                                                   "a name of as many as 32 letters."};
  LOGFONT font{};
  font.lfHeight = SizeOfFont(from);
  const std::uint8_t looks = from.Bytes().Byte(), kind = from.Bytes().Byte();
  if (looks >= 0xC0) font.lfWidth = SizeOfFont(from);
  font.lfItalic = looks & 1;
  font.lfUnderline = looks & 2;
  font.lfStrikeOut = looks & 4;
  font.lfWeight = kWeights[looks >> 3 & 7];
  font.lfEscapement = font.lfOrientation = kind >= 0xF0 ? Number(from) : 0;
  font.lfCharSet = kind >= 0xF0 ? from.Bytes().Byte() : kCharSets[kind % kCharSets.size()];
  font.lfPitchAndFamily = from.Bytes().Byte();
  const std::string_view face = kFaces[from.Bytes().Byte() % kFaces.size()];
  std::memcpy(font.lfFaceName, face.data(), face.size());
  return font;
}
OrNull<LOGFONT> FontOrNull(GdiSession& session) { return {session, FontValue}; }

OrNull<TEXTMETRICA> MetricsOrNull(GdiSession& session) {
  return {session, [](GdiSession&) { return TEXTMETRICA{}; }};
}

/// A text and the length that is told of it.
class Text {
 public:
  explicit Text(GdiSession& session) {
    const std::uint8_t form = session.Bytes().Byte();
    for (int i = 0; i < form % 32; ++i) bytes_.push_back(static_cast<char>(session.Bytes().Byte()));
    count_ = static_cast<std::int32_t>(bytes_.size());
    // Mostly as many bytes as are told of and not one more: reading on is an error that the sanitizer sees.
    const int oddity = form / 32;
    isNull_ = oddity == 4;
    if (oddity > 4) bytes_.push_back('\0');
    if (oddity == 5) count_ = 0x7FFFFFFF;
    if (oddity == 6) count_ = -1;
    if (oddity == 4 || oddity == 7) count_ = Number(session);
  }

  const char* Bytes() const { return isNull_ ? nullptr : bytes_.data(); }
  std::int32_t Count() const { return count_; }

 private:
  std::vector<char> bytes_;
  std::int32_t count_ = 0;
  bool isNull_ = false;
};

/// Any of the formats together; now and then with another step of the tabs, or any bits at all.
std::uint32_t TextFormat(GdiSession& session) {
  constexpr std::array<DrawTextFormat, 14> kFormats{
      DT_CENTER,     DT_RIGHT,        DT_VCENTER,       DT_BOTTOM,          DT_WORDBREAK,
      DT_SINGLELINE, DT_TABSTOP,      DT_NOCLIP,        DT_EXTERNALLEADING, DT_CALCRECT,
      DT_NOPREFIX,   DT_END_ELLIPSIS, DT_WORD_ELLIPSIS, DT_EXPANDTABS};
  const unsigned low = session.Bytes().Byte(), bits = low | unsigned{session.Bytes().Byte()} << 8;
  if ((bits & 0x8000) != 0) return session.Bytes().Word();
  std::uint32_t format = 0;
  for (std::size_t i = 0; i < kFormats.size(); ++i) {
    if ((bits >> i & 1) != 0) format |= kFormats[i];
  }
  return (bits & 0x4000) != 0 ? format | std::uint32_t{session.Bytes().Byte()} << 8 : format;
}

std::uint32_t ExtendedStyle(GdiSession& session) {
  const std::uint32_t byte = session.Bytes().Byte();
  if (byte >= 0xF8) return session.Bytes().Word();
  const std::uint32_t type = (byte & 0x80) != 0 ? PS_COSMETIC : PS_GEOMETRIC;
  return type | (byte & 7) | (byte >> 3 & 3) << 8 | (byte >> 5 & 3) << 12;
}

// --- Calls ---

/// A call whose arguments are decoded from left to right.
template <auto kCall, auto... kArguments>
void Run(GdiSession& session) {
  std::tuple arguments{kArguments(session)...};
  std::apply(kCall, arguments);
}

/// One that makes an object.
template <auto kCall, Kind kKind, auto... kArguments>
void Make(GdiSession& session) {
  std::tuple arguments{kArguments(session)...};
  session.Made(kKind, std::apply(kCall, arguments));
}

void RunDeleteDC(GdiSession& session) { session.DeleteContext(Dc(session)); }
void RunDeleteObject(GdiSession& session) { session.DeleteObject(AnyHandle(session)); }

/// Selects what is made for selecting, or anything.
void RunSelectObject(GdiSession& session) {
  constexpr std::array<Kind, 4> kSelectable{Kind::kPen, Kind::kBrush, Kind::kBitmap, Kind::kRegion};
  const HDC dc = Dc(session);
  SelectObject(dc, session.Pick(kSelectable[session.Bytes().Byte() % kSelectable.size()]));
}

/// Measures of a bitmap: small, or so large that there is none.
std::array<std::int32_t, 2> Measures(GdiSession& session) {
  std::int32_t width = Number(session), height = Number(session);
  const std::int64_t pixels = std::int64_t{width} * height;
  if (Bitmap::Fits(width, height, 1) && pixels * 4 > kMostBitmapBytes) {
    width %= 128;
    height %= 128;
  }
  return {width, height};
}

void RunCreateBitmap(GdiSession& session) {
  const auto [width, height] = Measures(session);
  const std::uint8_t format = session.Bytes().Byte(), fill = session.Bytes().Byte();
  const std::uint32_t planes = format >= 0xF8 ? Unsigned(session) : 1;
  const std::uint32_t bits = format >= 0xF0 ? Unsigned(session) : format % 2 != 0 ? 32u : 1u;
  const bool isFormat = planes == 1 && (bits == 1 || bits == 32);
  // As many bytes as the bitmap takes and not one more: reading on is an error that the sanitizer sees.
  std::vector<std::uint8_t> bytes;
  if (isFormat && Bitmap::Fits(width, height, static_cast<int>(bits))) {
    const std::int64_t rowBytes = (std::int64_t{width} * bits + 15) / 16 * 2;
    for (std::int64_t i = 0; i < rowBytes * height; ++i) bytes.push_back(static_cast<std::uint8_t>(fill * i));
  }
  session.Made(Kind::kBitmap, CreateBitmap(width, height, planes, bits, fill != 0 ? bytes.data() : nullptr));
}

void RunCreateCompatibleBitmap(GdiSession& session) {
  const HDC dc = Dc(session);
  const auto [width, height] = Measures(session);
  session.Made(Kind::kBitmap, CreateCompatibleBitmap(dc, width, height));
}

/// Asks into room of exactly the size that is named; none for a size that is not positive, or for the number
/// alone.
template <auto kCall>
void RunIntoRoom(GdiSession& session, Handle handle) {
  const std::int32_t size = Number(session);
  const bool isForTheNumber = session.Bytes().Byte() % 4 == 0 || size > kMostBitmapBytes;
  std::vector<std::uint8_t> room(isForTheNumber || size < 0 ? 0 : static_cast<std::size_t>(size));
  std::uint8_t nothing = 0;
  kCall(handle, size, isForTheNumber ? nullptr : room.empty() ? &nothing : room.data());
}
void RunGetObjectA(GdiSession& session) { RunIntoRoom<GetObjectA>(session, AnyHandle(session)); }
void RunGetBitmapBits(GdiSession& session) { RunIntoRoom<GetBitmapBits>(session, BitmapHandle(session)); }

void RunExtCreatePen(GdiSession& session) {
  const std::uint32_t style = ExtendedStyle(session), width = Unsigned(session);
  OrNull<LOGBRUSH> brush = SolidOrNull(session);
  const std::uint32_t lengths = 3;
  const int pattern = session.Bytes().Byte();
  session.Made(Kind::kPen,
               ExtCreatePen(style, width, brush, pattern == 0xFF, pattern >= 0xFE ? &lengths : nullptr));
}

void RunPolyline(GdiSession& session) {
  const HDC dc = Dc(session);
  const std::uint8_t form = session.Bytes().Byte();
  std::vector<POINT> points;
  for (int i = 0; i < form % 16; ++i) {
    const std::int32_t x = Number(session);
    points.push_back({x, Number(session)});
  }
  const auto count = static_cast<std::int32_t>(points.size());
  if (form >= 0xF8) {
    Polyline(dc, nullptr, form == 0xFF ? 0x7FFFFFFF : count);
  } else {
    Polyline(dc, points.data(), form >= 0xF0 ? -count : count);
  }
}

void RunTextOutA(GdiSession& session) {
  const HDC dc = Dc(session);
  const std::int32_t x = Number(session), y = Number(session);
  const Text text(session);
  TextOutA(dc, x, y, text.Bytes(), text.Count());
}

void RunGetTextExtentPoint32A(GdiSession& session) {
  const HDC dc = Dc(session);
  const Text text(session);
  SIZE size{};
  GetTextExtentPoint32A(dc, text.Bytes(), text.Count(), session.Bytes().Byte() != 0xFF ? &size : nullptr);
}

void RunDrawTextA(GdiSession& session) {
  const HDC dc = Dc(session);
  const Text text(session);
  OrNull<RECT> rect = RectOrNull(session);
  DrawTextA(dc, text.Bytes(), text.Count(), rect, TextFormat(session));
}

void RunGetCharWidth32A(GdiSession& session) {
  const HDC dc = Dc(session);
  const std::uint32_t first = Unsigned(session), last = Unsigned(session);
  // Room for exactly what is asked for.
  const bool isRange = first <= last && last <= 255;
  std::vector<std::int32_t> widths(isRange ? last - first + 1 : 0);
  std::int32_t nothing = 0;
  const bool isNull = session.Bytes().Byte() == 0xFF;
  GetCharWidth32A(dc, first, last, isNull ? nullptr : isRange ? widths.data() : &nothing);
}

struct Call {
  const char* name;
  void (*run)(GdiSession&);
};

/// Every call of the interface, one line each. A call's place is its number in the stored inputs: new ones go
/// to the end.
constexpr Call kCalls[] = {
    {"CreateCompatibleDC", Make<CreateCompatibleDC, Kind::kContext, Dc>},
    {"DeleteDC", RunDeleteDC},
    {"SelectObject", RunSelectObject},
    {"SelectObject", Run<SelectObject, Dc, AnyHandle>},
    {"GetCurrentObject", Run<GetCurrentObject, Dc, Unsigned>},
    {"DeleteObject", RunDeleteObject},
    {"GetObjectA", RunGetObjectA},
    {"GetStockObject", Run<GetStockObject, Number>},
    {"SetBkColor", Run<SetBkColor, Dc, Color>},
    {"GetBkColor", Run<GetBkColor, Dc>},
    {"SetTextColor", Run<SetTextColor, Dc, Color>},
    {"GetTextColor", Run<GetTextColor, Dc>},
    {"SetStretchBltMode", Run<SetStretchBltMode, Dc, Number>},
    {"CreatePenIndirect", Make<CreatePenIndirect, Kind::kPen, PenOrNull>},
    {"ExtCreatePen", RunExtCreatePen},
    {"CreateBrushIndirect", Make<CreateBrushIndirect, Kind::kBrush, BrushOrNull>},
    {"CreateSolidBrush", Make<CreateSolidBrush, Kind::kBrush, Color>},
    {"CreateHatchBrush", Make<CreateHatchBrush, Kind::kBrush, Number, Color>},
    {"CreateBitmap", RunCreateBitmap},
    {"CreateCompatibleBitmap", RunCreateCompatibleBitmap},
    {"GetBitmapBits", RunGetBitmapBits},
    {"GetPixel", Run<GetPixel, Dc, Number, Number>},
    {"FillRect", Run<FillRect, Dc, RectOrNull, BrushHandle>},
    {"DrawFocusRect", Run<DrawFocusRect, Dc, RectOrNull>},
    {"PatBlt", Run<PatBlt, Dc, Number, Number, Number, Number, Code>},
    {"BitBlt", Run<BitBlt, Dc, Number, Number, Number, Number, Dc, Number, Number, Code>},
    {"StretchBlt",
     Run<StretchBlt, Dc, Number, Number, Number, Number, Dc, Number, Number, Number, Number, Code>},
    {"AlphaBlend",
     Run<AlphaBlend, Dc, Number, Number, Number, Number, Dc, Number, Number, Number, Number, BlendValue>},
    {"Rectangle", Run<Rectangle, Dc, Number, Number, Number, Number>},
    {"Ellipse", Run<Ellipse, Dc, Number, Number, Number, Number>},
    {"RoundRect", Run<RoundRect, Dc, Number, Number, Number, Number, Number, Number>},
    {"MoveToEx", Run<MoveToEx, Dc, Number, Number, PointOrNull>},
    {"LineTo", Run<LineTo, Dc, Number, Number>},
    {"Polyline", RunPolyline},
    {"AngleArc", Run<AngleArc, Dc, Number, Number, Unsigned, Angle, Angle>},
    {"BeginPath", Run<BeginPath, Dc>},
    {"EndPath", Run<EndPath, Dc>},
    {"StrokePath", Run<StrokePath, Dc>},
    {"StrokeAndFillPath", Run<StrokeAndFillPath, Dc>},
    {"CreateEllipticRgn", Make<CreateEllipticRgn, Kind::kRegion, Number, Number, Number, Number>},
    {"CreateRoundRectRgn",
     Make<CreateRoundRectRgn, Kind::kRegion, Number, Number, Number, Number, Number, Number>},
    {"PtInRegion", Run<PtInRegion, RegionHandle, Number, Number>},
    {"RectInRegion", Run<RectInRegion, RegionHandle, RectOrNull>},
    {"CreateFontIndirectA", Make<CreateFontIndirectA, Kind::kFont, FontOrNull>},
    {"SelectObject", Run<SelectObject, Dc, FontHandle>},
    {"SetBkMode", Run<SetBkMode, Dc, Number>},
    {"GetBkMode", Run<GetBkMode, Dc>},
    {"TextOutA", RunTextOutA},
    {"GetTextExtentPoint32A", RunGetTextExtentPoint32A},
    {"GetTextMetricsA", Run<GetTextMetricsA, Dc, MetricsOrNull>},
    {"DrawTextA", RunDrawTextA},
    {"GetCharWidth32A", RunGetCharWidth32A},
};

/// Bytes beyond the table make no call; the room is for calls to come.
constexpr std::size_t kNumbers = 64;
static_assert(std::size(kCalls) <= kNumbers);

}  // namespace

std::string RunGdiCalls(std::span<const std::uint8_t> bytes) {
  GdiSession session(bytes);
  // A listening recorder must change nothing.
  std::optional<Recorder> recorder;
  if (session.Bytes().Byte() % 2 != 0) recorder.emplace();
  for (int calls = 0; calls < kMostCalls && !session.Bytes().IsUsedUp(); ++calls) {
    const std::size_t number = session.Bytes().Byte() % kNumbers;
    if (number >= std::size(kCalls)) continue;
    kCalls[number].run(session);
    session.Check();
    if (recorder) recorder->Take();
    if (!session.Complaint().empty()) return session.Complaint() + ", after " + kCalls[number].name;
  }
  session.End();
  return session.Complaint();
}

}  // namespace quenzel7::fuzz
