#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "platform/gdi/selected.h"
#include "tests/platform/gdi/picture.h"

// What every call does with a handle that is not the one it needs, with null pointers and with numbers that
// it refuses: it fails as documented, and nothing has changed.

namespace quenzel7::gdi {
namespace {

constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min(),
                       kMax = std::numeric_limits<std::int32_t>::max();
constexpr float kInfinite = std::numeric_limits<float>::infinity(),
                kNan = std::numeric_limits<float>::quiet_NaN();
constexpr RECT kRect{1, 1, 5, 4};
constexpr LOGBRUSH kSolid{BS_SOLID, kRed, 0};
constexpr BLENDFUNCTION kHalf{AC_SRC_OVER, 0, 128, 0};

enum class Kind { kNone, kContext, kPen, kBrush, kBitmap, kRegion, kFont };

struct Named {
  std::string name;
  Handle handle;
  Kind kind;
};

HPEN NewPen() { return MakePen(PS_DOT, 1, kBlue); }
HBRUSH NewBrush() { return CreateHatchBrush(HS_CROSS, kGreen); }
HBITMAP NewBitmap() { return CreateBitmap(3, 2, 1, 32, nullptr); }
HRGN NewRegion() { return CreateEllipticRgn(0, 0, 9, 9); }
HFONT NewFont() {
  const LOGFONT font{14, 0, 0, 0, 700, 0, 0, 0, 0, 0, 0, 0, 0, "DejaVu Sans"};
  return CreateFontIndirectA(&font);
}
HDC NewContext() { return CreateCompatibleDC(0); }

void Delete(Handle handle) {
  if (DeleteDC(handle) == 0) DeleteObject(handle);
}

/// Handles of every kind, living and dead, and a context with something on it.
class Robustness : public testing::Test {
 protected:
  Robustness() {
    constexpr std::array<std::pair<Kind, Handle (*)()>, 6> kMakers{{{Kind::kContext, NewContext},
                                                                    {Kind::kPen, NewPen},
                                                                    {Kind::kBrush, NewBrush},
                                                                    {Kind::kBitmap, NewBitmap},
                                                                    {Kind::kRegion, NewRegion},
                                                                    {Kind::kFont, NewFont}}};
    for (const auto& [kind, make] : kMakers) {
      const std::string number = std::to_string(static_cast<int>(kind));
      handles_.push_back({"living " + number, make(), kind});
      handles_.push_back({"deleted " + number, make(), Kind::kNone});
      Delete(handles_.back().handle);
      AddStale("stale " + number, make);
    }
    handles_.insert(handles_.end(), {{"null", 0, Kind::kNone},
                                     {"never given out", 77, Kind::kNone},
                                     {"negative", -5, Kind::kNone},
                                     {"lowest", kMin, Kind::kNone},
                                     {"highest", kMax, Kind::kNone},
                                     {"stock pen", GetStockObject(WHITE_PEN), Kind::kPen},
                                     {"stock brush", GetStockObject(GRAY_BRUSH), Kind::kBrush},
                                     {"stock font", GetStockObject(SYSTEM_FONT), Kind::kFont},
                                     {"first bitmap", FirstBitmap(), Kind::kBitmap}});
    Scatter(surface_, 3);
    SelectObject(Dc(), pen_);
    SelectObject(Dc(), brush_);
    SelectObject(Dc(), font_);
    MoveToEx(Dc(), 3, 4, nullptr);
    SetBkColor(Dc(), 0x112233);
    SetTextColor(Dc(), 0x332211);
    SetStretchBltMode(Dc(), WHITEONBLACK);
    SetBkMode(Dc(), TRANSPARENT);
    before_ = State();
  }

  ~Robustness() override {
    SelectObject(Dc(), GetStockObject(BLACK_PEN));
    SelectObject(Dc(), GetStockObject(WHITE_BRUSH));
    SelectObject(Dc(), GetStockObject(SYSTEM_FONT));
    for (const Named& each : handles_) Delete(each.handle);
    for (const Handle each : heirs_) Delete(each);
    for (const Handle each : {pen_, brush_, font_, source_}) Delete(each);
    EXPECT_EQ(LiveObjects(), liveAtFirst_ + 2) << "only the surface's own two are left";
  }

  HDC Dc() const { return surface_.Dc(); }
  HDC Source() const { return source_; }

  /// All handles but those of these kinds.
  std::vector<Named> AllBut(std::initializer_list<Kind> kinds) const {
    std::vector<Named> all;
    for (const Named& each : handles_) {
      if (std::find(kinds.begin(), kinds.end(), each.kind) == kinds.end()) all.push_back(each);
    }
    return all;
  }

  Handle Living(Kind kind) const {
    return std::find_if(handles_.begin(), handles_.end(),
                        [&](const Named& each) { return each.kind == kind; })
        ->handle;
  }

  /// Everything that a call on the surface's context could change.
  std::vector<std::int64_t> State() const {
    std::vector<std::int64_t> state;
    for (const COLORREF color : Colors(surface_)) state.push_back(color);
    for (const auto type : {OBJ_PEN, OBJ_BRUSH, OBJ_FONT, OBJ_BITMAP})
      state.push_back(GetCurrentObject(Dc(), type));
    POINT position{};
    MoveToEx(Dc(), 0, 0, &position);
    MoveToEx(Dc(), position.x, position.y, nullptr);
    const std::int32_t mode = SetStretchBltMode(Dc(), BLACKONWHITE);
    SetStretchBltMode(Dc(), mode);
    state.insert(state.end(), {position.x, position.y, mode, GetBkMode(Dc()), GetBkColor(Dc()),
                               GetTextColor(Dc()), static_cast<std::int64_t>(LiveObjects())});
    return state;
  }

  void ExpectFailure(std::int64_t result, std::int64_t failure, const std::string& what) const {
    EXPECT_EQ(result, failure) << what;
    EXPECT_EQ(State(), before_) << what;
  }

 private:
  static HBITMAP FirstBitmap() {
    const HDC dc = CreateCompatibleDC(0);
    const HBITMAP bitmap = GetCurrentObject(dc, OBJ_BITMAP);
    DeleteDC(dc);
    return bitmap;
  }

  /// A deleted handle whose slot is taken again by an object of the same kind.
  void AddStale(const std::string& name, Handle (*make)()) {
    constexpr Handle kSlot = 0xFFFF;
    const Handle stale = make();
    Delete(stale);
    Handle heir = make();
    for (; (heir & kSlot) != (stale & kSlot); heir = make()) Delete(heir);
    handles_.push_back({name, stale, Kind::kNone});
    heirs_.push_back(heir);
  }

  std::size_t liveAtFirst_ = LiveObjects();
  Surface surface_{12, 9};
  HDC source_ = NewContext();
  HPEN pen_ = MakePen(PS_SOLID, 1, kRed);
  HBRUSH brush_ = CreateSolidBrush(kGreen);
  HFONT font_ = NewFont();
  std::vector<Named> handles_;
  std::vector<Handle> heirs_;
  std::vector<std::int64_t> before_;
};

struct HandleCall {
  const char* name;
  /// The call with a handle in question, on a context and with a source that are in order.
  std::int64_t (*call)(Handle handle, HDC dc, HDC source);
  std::int64_t failure;
};

/// Structures that nothing is written into where a call fails.
SIZE unwrittenSize{7, 8};
TEXTMETRICA unwrittenMetrics{};
RECT unwrittenRect{1, 1, 9, 9};
std::array<std::int32_t, 256> unwrittenWidths{};

constexpr POINT kPoints[] = {{1, 1}, {8, 8}};

constexpr HandleCall kContextCalls[] = {
    {"DeleteDC", [](Handle h, HDC, HDC) -> std::int64_t { return DeleteDC(h); }, 0},
    {"SelectObject",
     [](Handle h, HDC, HDC) -> std::int64_t { return SelectObject(h, GetStockObject(NULL_PEN)); }, 0},
    {"GetCurrentObject", [](Handle h, HDC, HDC) -> std::int64_t { return GetCurrentObject(h, OBJ_PEN); }, 0},
    {"SetBkColor", [](Handle h, HDC, HDC) -> std::int64_t { return SetBkColor(h, 1); }, CLR_INVALID},
    {"GetBkColor", [](Handle h, HDC, HDC) -> std::int64_t { return GetBkColor(h); }, CLR_INVALID},
    {"SetTextColor", [](Handle h, HDC, HDC) -> std::int64_t { return SetTextColor(h, 1); }, CLR_INVALID},
    {"GetTextColor", [](Handle h, HDC, HDC) -> std::int64_t { return GetTextColor(h); }, CLR_INVALID},
    {"SetStretchBltMode", [](Handle h, HDC, HDC) -> std::int64_t { return SetStretchBltMode(h, 3); }, 0},
    {"CreateCompatibleBitmap",
     [](Handle h, HDC, HDC) -> std::int64_t { return CreateCompatibleBitmap(h, 2, 2); }, 0},
    {"GetPixel", [](Handle h, HDC, HDC) -> std::int64_t { return GetPixel(h, 0, 0); }, CLR_INVALID},
    {"FillRect",
     [](Handle h, HDC, HDC) -> std::int64_t { return FillRect(h, &kRect, GetStockObject(BLACK_BRUSH)); }, 0},
    {"DrawFocusRect", [](Handle h, HDC, HDC) -> std::int64_t { return DrawFocusRect(h, &kRect); }, 0},
    {"PatBlt", [](Handle h, HDC, HDC) -> std::int64_t { return PatBlt(h, 0, 0, 5, 5, BLACKNESS); }, 0},
    {"BitBlt",
     [](Handle h, HDC, HDC source) -> std::int64_t { return BitBlt(h, 0, 0, 5, 5, source, 0, 0, SRCCOPY); },
     0},
    {"BitBlt without need of a source",
     [](Handle h, HDC, HDC source) -> std::int64_t { return BitBlt(h, 0, 0, 5, 5, source, 0, 0, BLACKNESS); },
     0},
    {"BitBlt from",
     [](Handle h, HDC dc, HDC) -> std::int64_t { return BitBlt(dc, 0, 0, 5, 5, h, 0, 0, SRCCOPY); }, 0},
    {"StretchBlt",
     [](Handle h, HDC, HDC source) -> std::int64_t {
       return StretchBlt(h, 0, 0, 5, 5, source, 0, 0, 1, 1, SRCCOPY);
     },
     0},
    {"StretchBlt from",
     [](Handle h, HDC dc, HDC) -> std::int64_t { return StretchBlt(dc, 0, 0, 5, 5, h, 0, 0, 1, 1, SRCCOPY); },
     0},
    {"AlphaBlend",
     [](Handle h, HDC, HDC source) -> std::int64_t {
       return AlphaBlend(h, 0, 0, 5, 5, source, 0, 0, 1, 1, kHalf);
     },
     0},
    {"AlphaBlend from",
     [](Handle h, HDC dc, HDC) -> std::int64_t { return AlphaBlend(dc, 0, 0, 5, 5, h, 0, 0, 1, 1, kHalf); },
     0},
    {"Rectangle", [](Handle h, HDC, HDC) -> std::int64_t { return Rectangle(h, 0, 0, 5, 5); }, 0},
    {"Ellipse", [](Handle h, HDC, HDC) -> std::int64_t { return Ellipse(h, 0, 0, 5, 5); }, 0},
    {"RoundRect", [](Handle h, HDC, HDC) -> std::int64_t { return RoundRect(h, 0, 0, 5, 5, 2, 2); }, 0},
    {"MoveToEx", [](Handle h, HDC, HDC) -> std::int64_t { return MoveToEx(h, 1, 1, nullptr); }, 0},
    {"LineTo", [](Handle h, HDC, HDC) -> std::int64_t { return LineTo(h, 5, 5); }, 0},
    {"Polyline", [](Handle h, HDC, HDC) -> std::int64_t { return Polyline(h, kPoints, 2); }, 0},
    {"AngleArc", [](Handle h, HDC, HDC) -> std::int64_t { return AngleArc(h, 5, 5, 3, 0, 90); }, 0},
    {"BeginPath", [](Handle h, HDC, HDC) -> std::int64_t { return BeginPath(h); }, 0},
    {"EndPath", [](Handle h, HDC, HDC) -> std::int64_t { return EndPath(h); }, 0},
    {"StrokePath", [](Handle h, HDC, HDC) -> std::int64_t { return StrokePath(h); }, 0},
    {"StrokeAndFillPath", [](Handle h, HDC, HDC) -> std::int64_t { return StrokeAndFillPath(h); }, 0},
    {"SetBkMode", [](Handle h, HDC, HDC) -> std::int64_t { return SetBkMode(h, OPAQUE); }, 0},
    {"GetBkMode", [](Handle h, HDC, HDC) -> std::int64_t { return GetBkMode(h); }, 0},
    {"TextOutA", [](Handle h, HDC, HDC) -> std::int64_t { return TextOutA(h, 1, 1, "a", 1); }, 0},
    {"TextOutA of nothing", [](Handle h, HDC, HDC) -> std::int64_t { return TextOutA(h, 1, 1, nullptr, 0); },
     0},
    {"GetTextExtentPoint32A",
     [](Handle h, HDC, HDC) -> std::int64_t { return GetTextExtentPoint32A(h, "a", 1, &unwrittenSize); }, 0},
    {"GetTextMetricsA",
     [](Handle h, HDC, HDC) -> std::int64_t { return GetTextMetricsA(h, &unwrittenMetrics); }, 0},
    {"DrawTextA",
     [](Handle h, HDC, HDC) -> std::int64_t { return DrawTextA(h, "a", 1, &unwrittenRect, DT_CALCRECT); }, 0},
    {"GetCharWidth32A",
     [](Handle h, HDC, HDC) -> std::int64_t { return GetCharWidth32A(h, 65, 66, unwrittenWidths.data()); },
     0},
};

void ExpectNothingWritten() {
  EXPECT_EQ(unwrittenSize.cx, 7);
  EXPECT_EQ(unwrittenSize.cy, 8);
  EXPECT_EQ(unwrittenMetrics.tmHeight, 0);
  EXPECT_EQ(unwrittenRect.right, 9);
  EXPECT_EQ(unwrittenRect.bottom, 9);
  EXPECT_EQ(unwrittenWidths, (std::array<std::int32_t, 256>{}));
}

TEST_F(Robustness, EveryCallFailsOnWhatIsNoContext) {
  for (const HandleCall& each : kContextCalls) {
    for (const Named& wrong : AllBut({Kind::kContext})) {
      ExpectFailure(each.call(wrong.handle, Dc(), Source()), each.failure, each.name + (" of " + wrong.name));
    }
  }
  ExpectNothingWritten();
}

TEST_F(Robustness, NewContextsAreMadeLikeAContextOrLikeNone) {
  for (const Named& wrong : AllBut({Kind::kContext})) {
    if (wrong.handle != 0) ExpectFailure(CreateCompatibleDC(wrong.handle), 0, wrong.name);
  }
  for (const HDC right : {HDC{0}, Dc()}) {
    const HDC made = CreateCompatibleDC(right);
    EXPECT_NE(made, 0);
    EXPECT_EQ(DeleteDC(made), 1);
  }
}

TEST_F(Robustness, MoveToExOfNoContextLeavesThePointAlone) {
  POINT point{7, 8};
  EXPECT_EQ(MoveToEx(0, 1, 1, &point), 0);
  EXPECT_EQ(point.x, 7);
  EXPECT_EQ(point.y, 8);
}

TEST_F(Robustness, OnlyPensBrushesBitmapsAndFontsAreSelected) {
  for (const Named& wrong : AllBut({Kind::kPen, Kind::kBrush, Kind::kBitmap, Kind::kFont})) {
    ExpectFailure(SelectObject(Dc(), wrong.handle), 0, wrong.name);
  }
  const HFONT before = GetCurrentObject(Dc(), OBJ_FONT);
  ExpectFailure(SelectObject(Dc(), before), before, "the same font again");
}

TEST_F(Robustness, OnlyBrushesFill) {
  for (const Named& wrong : AllBut({Kind::kBrush})) {
    ExpectFailure(FillRect(Dc(), &kRect, wrong.handle), 0, wrong.name);
  }
}

TEST_F(Robustness, OnlyBitmapsHaveBits) {
  std::array<std::uint8_t, 64> room;
  room.fill(9);
  for (const Named& wrong : AllBut({Kind::kBitmap})) {
    ExpectFailure(GetBitmapBits(wrong.handle, 64, room.data()), 0, wrong.name);
    ExpectFailure(GetBitmapBits(wrong.handle, 64, nullptr), 0, wrong.name);
  }
  EXPECT_EQ(std::count(room.begin(), room.end(), 9), 64);
}

TEST_F(Robustness, OnlyRegionsContainPixels) {
  for (const Named& wrong : AllBut({Kind::kRegion})) {
    ExpectFailure(PtInRegion(wrong.handle, 4, 4), 0, wrong.name);
    ExpectFailure(RectInRegion(wrong.handle, &kRect), 0, wrong.name);
  }
  EXPECT_EQ(PtInRegion(Living(Kind::kRegion), 4, 4), 1);
  EXPECT_EQ(RectInRegion(Living(Kind::kRegion), &kRect), 1);
  ExpectFailure(RectInRegion(Living(Kind::kRegion), nullptr), 0, "no rectangle");
}

TEST_F(Robustness, OnlyPensBrushesBitmapsAndFontsAreDescribed) {
  std::array<std::uint8_t, 64> room;
  room.fill(9);
  for (const Named& wrong : AllBut({Kind::kPen, Kind::kBrush, Kind::kBitmap, Kind::kFont})) {
    ExpectFailure(GetObjectA(wrong.handle, 64, room.data()), 0, wrong.name);
    ExpectFailure(GetObjectA(wrong.handle, 0, nullptr), 0, wrong.name);
  }
  EXPECT_EQ(std::count(room.begin(), room.end(), 9), 64);
}

TEST_F(Robustness, WhatIsNoLivingObjectIsNotDeleted) {
  for (const Named& wrong : AllBut({Kind::kPen, Kind::kBrush, Kind::kBitmap, Kind::kRegion, Kind::kFont})) {
    ExpectFailure(DeleteObject(wrong.handle), 0, wrong.name);
  }
}

TEST_F(Robustness, DescriptionsNeedTheirSize) {
  const HPEN extended = ExtCreatePen(PS_GEOMETRIC, 3, &kSolid, 0, nullptr);
  const HDC dc = Dc();
  const std::array<std::pair<Handle, std::int32_t>, 4> sizes{{{Living(Kind::kPen), 16},
                                                              {extended, 28},
                                                              {Living(Kind::kBrush), 12},
                                                              {GetCurrentObject(dc, OBJ_BITMAP), 24}}};
  for (const auto& [object, size] : sizes) {
    std::vector<std::uint8_t> room(64, 0xEE);
    for (const std::int32_t tooSmall : {kMin, -1, 0, size - 1}) {
      EXPECT_EQ(GetObjectA(object, tooSmall, room.data()), 0) << size;
    }
    EXPECT_EQ(std::count(room.begin(), room.end(), 0xEE), 64) << size;
    EXPECT_EQ(GetObjectA(object, kMin, nullptr), size);
    EXPECT_EQ(GetObjectA(object, kMax, room.data()), size);
    EXPECT_TRUE(std::all_of(room.begin() + size, room.end(), [](int byte) { return byte == 0xEE; })) << size;
  }
  DeleteObject(extended);
}

TEST_F(Robustness, FontsAreDescribedAsFarAsThereIsRoomAndNoFurther) {
  for (const HFONT font : {Living(Kind::kFont), GetStockObject(DEFAULT_GUI_FONT)}) {
    std::array<std::uint8_t, 60> whole{};
    EXPECT_EQ(GetObjectA(font, 60, whole.data()), 60);
    LOGFONT description{};
    std::memcpy(&description, whole.data(), sizeof description);
    EXPECT_STREQ(description.lfFaceName, "DejaVu Sans");
    constexpr std::array<std::pair<std::int32_t, std::int32_t>, 8> kSizes{
        {{kMin, 0}, {-1, 0}, {0, 0}, {1, 1}, {59, 59}, {60, 60}, {61, 60}, {kMax, 60}}};
    for (const auto& [size, given] : kSizes) {
      std::array<std::uint8_t, 64> room;
      room.fill(0xEE);
      EXPECT_EQ(GetObjectA(font, size, room.data()), given) << size;
      EXPECT_TRUE(std::equal(room.begin(), room.begin() + given, whole.begin())) << size;
      EXPECT_EQ(std::count(room.begin() + given, room.end(), 0xEE), 64 - given) << size;
      EXPECT_EQ(GetObjectA(font, size, nullptr), 60) << size;
    }
  }
}

TEST_F(Robustness, AFaceNameWithoutTerminatorIsCutByOne) {
  LOGFONT look{};
  std::memset(look.lfFaceName, 'x', sizeof look.lfFaceName);
  const HFONT font = CreateFontIndirectA(&look);
  LOGFONT kept{};
  EXPECT_EQ(GetObjectA(font, sizeof kept, &kept), 60);
  EXPECT_EQ(std::string(kept.lfFaceName), std::string(31, 'x'));
  DeleteObject(font);
}

TEST_F(Robustness, BitsAreGivenAsFarAsThereIsRoomAndNoFurther) {
  std::array<std::uint8_t, 32> room;
  room.fill(9);
  const HBITMAP bitmap = Living(Kind::kBitmap);
  for (const std::int32_t none : {kMin, -1, 0}) EXPECT_EQ(GetBitmapBits(bitmap, none, room.data()), 0);
  EXPECT_EQ(std::count(room.begin(), room.end(), 9), 32);
  EXPECT_EQ(GetBitmapBits(bitmap, 5, room.data()), 5);
  EXPECT_EQ(std::count(room.begin(), room.end(), 9), 27);
  EXPECT_EQ(GetBitmapBits(bitmap, kMax, room.data()), 24);
  EXPECT_EQ(std::count(room.begin(), room.end(), 9), 8);
  EXPECT_EQ(GetBitmapBits(bitmap, kMin, nullptr), 24);
}

struct RefusedCall {
  const char* name;
  std::int64_t (*call)(HDC dc, HDC source);
};

BOOL Blended(HDC dc, HDC source, BLENDFUNCTION blend) {
  return AlphaBlend(dc, 0, 0, 5, 5, source, 0, 0, 1, 1, blend);
}

/// Null pointers and numbers that are refused, each by 0.
constexpr RefusedCall kRefused[] = {
    {"a pen of nothing", [](HDC, HDC) -> std::int64_t { return CreatePenIndirect(nullptr); }},
    {"an extended pen of nothing",
     [](HDC, HDC) -> std::int64_t { return ExtCreatePen(PS_GEOMETRIC, 3, nullptr, 0, nullptr); }},
    {"an extended pen with a pattern",
     [](HDC, HDC) -> std::int64_t {
       const std::uint32_t length = 3;
       return ExtCreatePen(PS_GEOMETRIC, 3, &kSolid, 1, &length);
     }},
    {"an extended pen of unknown style",
     [](HDC, HDC) -> std::int64_t { return ExtCreatePen(7, 3, &kSolid, 0, nullptr); }},
    {"an extended pen with a null brush",
     [](HDC, HDC) -> std::int64_t {
       const LOGBRUSH null{BS_NULL, 0, 0};
       return ExtCreatePen(PS_GEOMETRIC, 3, &null, 0, nullptr);
     }},
    {"a brush of nothing", [](HDC, HDC) -> std::int64_t { return CreateBrushIndirect(nullptr); }},
    {"a brush of unknown style",
     [](HDC, HDC) -> std::int64_t {
       const LOGBRUSH unknown{3, 0, 0};
       return CreateBrushIndirect(&unknown);
     }},
    {"a hatch beyond the last", [](HDC, HDC) -> std::int64_t { return CreateHatchBrush(6, 0); }},
    {"a hatch before the first", [](HDC, HDC) -> std::int64_t { return CreateHatchBrush(kMin, 0); }},
    {"a bitmap of 24 bits", [](HDC, HDC) -> std::int64_t { return CreateBitmap(2, 2, 1, 24, nullptr); }},
    {"a bitmap of two planes", [](HDC, HDC) -> std::int64_t { return CreateBitmap(2, 2, 2, 1, nullptr); }},
    {"a bitmap of negative width",
     [](HDC, HDC) -> std::int64_t { return CreateBitmap(-1, 2, 1, 32, nullptr); }},
    {"a bitmap of negative height",
     [](HDC, HDC) -> std::int64_t { return CreateBitmap(2, kMin, 1, 32, nullptr); }},
    {"a bitmap of two negative measures",
     [](HDC, HDC) -> std::int64_t { return CreateBitmap(kMin, kMin, 1, 1, nullptr); }},
    {"a bitmap beyond all memory",
     [](HDC, HDC) -> std::int64_t { return CreateBitmap(kMax, kMax, 1, 32, nullptr); }},
    {"a bitmap of 2^31 bytes",
     [](HDC, HDC) -> std::int64_t { return CreateBitmap(1 << 14, 1 << 15, 1, 32, nullptr); }},
    {"a bitmap of 2^31 bytes, one bit",
     [](HDC, HDC) -> std::int64_t { return CreateBitmap(16, 1 << 30, 1, 1, nullptr); }},
    {"a compatible bitmap of negative width",
     [](HDC dc, HDC) -> std::int64_t { return CreateCompatibleBitmap(dc, kMin, 1); }},
    {"a compatible bitmap beyond all memory",
     [](HDC dc, HDC) -> std::int64_t { return CreateCompatibleBitmap(dc, kMax, kMax); }},
    {"the stock object before the first", [](HDC, HDC) -> std::int64_t { return GetStockObject(-1); }},
    {"the stock object between pens and fonts", [](HDC, HDC) -> std::int64_t { return GetStockObject(9); }},
    {"the stock object between fonts", [](HDC, HDC) -> std::int64_t { return GetStockObject(15); }},
    {"the stock object after the last", [](HDC, HDC) -> std::int64_t { return GetStockObject(18); }},
    {"the stock object that is the first bitmap",
     [](HDC, HDC) -> std::int64_t { return GetStockObject(21); }},
    {"a stock object at the ends of the range",
     [](HDC, HDC) -> std::int64_t { return GetStockObject(kMin) + GetStockObject(kMax); }},
    {"a font of nothing", [](HDC, HDC) -> std::int64_t { return CreateFontIndirectA(nullptr); }},
    {"background mode 0", [](HDC dc, HDC) -> std::int64_t { return SetBkMode(dc, 0); }},
    {"background mode 3", [](HDC dc, HDC) -> std::int64_t { return SetBkMode(dc, 3); }},
    {"background mode -1", [](HDC dc, HDC) -> std::int64_t { return SetBkMode(dc, -1); }},
    {"a text of nothing", [](HDC dc, HDC) -> std::int64_t { return TextOutA(dc, 1, 1, nullptr, 1); }},
    {"a text of very much of nothing",
     [](HDC dc, HDC) -> std::int64_t { return TextOutA(dc, 1, 1, nullptr, kMax); }},
    {"a text of fewer than no bytes",
     [](HDC dc, HDC) -> std::int64_t { return TextOutA(dc, 1, 1, "a", -1); }},
    {"a text of the fewest bytes",
     [](HDC dc, HDC) -> std::int64_t { return TextOutA(dc, 1, 1, nullptr, kMin); }},
    {"the extent of nothing",
     [](HDC dc, HDC) -> std::int64_t { return GetTextExtentPoint32A(dc, nullptr, 1, &unwrittenSize); }},
    {"the extent of fewer than no bytes",
     [](HDC dc, HDC) -> std::int64_t { return GetTextExtentPoint32A(dc, "a", -1, &unwrittenSize); }},
    {"the extent into nothing",
     [](HDC dc, HDC) -> std::int64_t { return GetTextExtentPoint32A(dc, "a", 1, nullptr); }},
    {"metrics into nothing", [](HDC dc, HDC) -> std::int64_t { return GetTextMetricsA(dc, nullptr); }},
    {"a drawn text of nothing",
     [](HDC dc, HDC) -> std::int64_t { return DrawTextA(dc, nullptr, 1, &unwrittenRect, DT_CALCRECT); }},
    {"a drawn text of nothing up to its end",
     [](HDC dc, HDC) -> std::int64_t { return DrawTextA(dc, nullptr, -1, &unwrittenRect, DT_CALCRECT); }},
    {"a drawn text of -2 bytes",
     [](HDC dc, HDC) -> std::int64_t { return DrawTextA(dc, "a", -2, &unwrittenRect, DT_CALCRECT); }},
    {"a drawn text of the fewest bytes",
     [](HDC dc, HDC) -> std::int64_t { return DrawTextA(dc, "a", kMin, &unwrittenRect, DT_CALCRECT); }},
    {"a drawn text in no rectangle",
     [](HDC dc, HDC) -> std::int64_t { return DrawTextA(dc, "a", 1, nullptr, 0); }},
    {"widths in the wrong order",
     [](HDC dc, HDC) -> std::int64_t { return GetCharWidth32A(dc, 66, 65, unwrittenWidths.data()); }},
    {"widths beyond the last byte",
     [](HDC dc, HDC) -> std::int64_t { return GetCharWidth32A(dc, 255, 256, unwrittenWidths.data()); }},
    {"widths of very many bytes",
     [](HDC dc, HDC) -> std::int64_t { return GetCharWidth32A(dc, 0, 0xFFFFFFFF, unwrittenWidths.data()); }},
    {"widths into nothing", [](HDC dc, HDC) -> std::int64_t { return GetCharWidth32A(dc, 65, 66, nullptr); }},
    {"an object of no type", [](HDC dc, HDC) -> std::int64_t { return GetCurrentObject(dc, 0); }},
    {"an object of unknown type",
     [](HDC dc, HDC) -> std::int64_t { return GetCurrentObject(dc, 0xFFFFFFFF); }},
    {"stretch mode 0", [](HDC dc, HDC) -> std::int64_t { return SetStretchBltMode(dc, 0); }},
    {"stretch mode 4", [](HDC dc, HDC) -> std::int64_t { return SetStretchBltMode(dc, 4); }},
    {"stretch mode -1", [](HDC dc, HDC) -> std::int64_t { return SetStretchBltMode(dc, -1); }},
    {"filling no rectangle",
     [](HDC dc, HDC) -> std::int64_t { return FillRect(dc, nullptr, GetStockObject(BLACK_BRUSH)); }},
    {"a focus around nothing", [](HDC dc, HDC) -> std::int64_t { return DrawFocusRect(dc, nullptr); }},
    {"a source for none", [](HDC dc, HDC) -> std::int64_t { return PatBlt(dc, 0, 0, 5, 5, SRCCOPY); }},
    {"lines through no points", [](HDC dc, HDC) -> std::int64_t { return Polyline(dc, nullptr, 2); }},
    {"lines through very many no points",
     [](HDC dc, HDC) -> std::int64_t { return Polyline(dc, nullptr, kMax); }},
    {"a line through one point", [](HDC dc, HDC) -> std::int64_t { return Polyline(dc, kPoints, 1); }},
    {"a line through fewer than no points",
     [](HDC dc, HDC) -> std::int64_t { return Polyline(dc, kPoints, kMin); }},
    {"an arc from nowhere", [](HDC dc, HDC) -> std::int64_t { return AngleArc(dc, 5, 5, 3, kNan, 90); }},
    {"an arc from infinity",
     [](HDC dc, HDC) -> std::int64_t { return AngleArc(dc, 5, 5, 3, -kInfinite, 90); }},
    {"an arc to nowhere", [](HDC dc, HDC) -> std::int64_t { return AngleArc(dc, 5, 5, 3, 0, kNan); }},
    {"an arc without end", [](HDC dc, HDC) -> std::int64_t { return AngleArc(dc, 5, 5, 3, 0, kInfinite); }},
    {"the end of no path", [](HDC dc, HDC) -> std::int64_t { return EndPath(dc); }},
    {"the lines of no path", [](HDC dc, HDC) -> std::int64_t { return StrokePath(dc); }},
    {"the inside of no path", [](HDC dc, HDC) -> std::int64_t { return StrokeAndFillPath(dc); }},
    {"blending otherwise",
     [](HDC dc, HDC source) -> std::
                                int64_t {
                                  return Blended(dc, source, {1, 0, 128, 0});
                                }},
    {"blending with flags",
     [](HDC dc, HDC source) -> std::
                                int64_t {
                                  return Blended(dc, source, {0, 1, 128, 0});
                                }},
    {"blending by pixel",
     [](HDC dc, HDC source) -> std::
                                int64_t {
                                  return Blended(dc, source, {0, 0, 128, 1});
                                }},
    {"blending to a negative width",
     [](HDC dc,
        HDC source) -> std::int64_t { return AlphaBlend(dc, 4, 4, -1, 1, source, 0, 0, 1, 1, kHalf); }},
    {"blending to a negative height",
     [](HDC dc,
        HDC source) -> std::int64_t { return AlphaBlend(dc, 4, 4, 1, -1, source, 0, 0, 1, 1, kHalf); }},
    {"blending from a negative width",
     [](HDC dc,
        HDC source) -> std::int64_t { return AlphaBlend(dc, 0, 0, 1, 1, source, 1, 0, -1, 1, kHalf); }},
    {"blending from a negative height",
     [](HDC dc,
        HDC source) -> std::int64_t { return AlphaBlend(dc, 0, 0, 1, 1, source, 0, 1, 1, -1, kHalf); }},
    {"blending from left of the source",
     [](HDC dc,
        HDC source) -> std::int64_t { return AlphaBlend(dc, 0, 0, 1, 1, source, -1, 0, 1, 1, kHalf); }},
    {"blending from above the source",
     [](HDC dc,
        HDC source) -> std::int64_t { return AlphaBlend(dc, 0, 0, 1, 1, source, 0, -1, 1, 1, kHalf); }},
    {"blending from beyond the width",
     [](HDC dc,
        HDC source) -> std::int64_t { return AlphaBlend(dc, 0, 0, 1, 1, source, 0, 0, 2, 1, kHalf); }},
    {"blending from beyond the height",
     [](HDC dc,
        HDC source) -> std::int64_t { return AlphaBlend(dc, 0, 0, 1, 1, source, 0, 0, 1, 2, kHalf); }},
    {"blending from far beyond",
     [](HDC dc, HDC source)
         -> std::int64_t { return AlphaBlend(dc, 0, 0, 1, 1, source, kMax, kMax, kMax, kMax, kHalf); }},
};

TEST_F(Robustness, WhatIsRefusedChangesNothing) {
  for (const RefusedCall& each : kRefused) ExpectFailure(each.call(Dc(), Source()), 0, each.name);
  ExpectNothingWritten();
}

TEST_F(Robustness, TextsEndAtTheirLengthOrTheirTerminator) {
  // As many bytes as are told of and not one more.
  const std::vector<char> unterminated{'a', 'b'};
  SIZE two{}, one{}, size{};
  EXPECT_EQ(GetTextExtentPoint32A(Dc(), "ab", 2, &two), 1);
  EXPECT_EQ(GetTextExtentPoint32A(Dc(), "a", 1, &one), 1);
  EXPECT_GT(two.cx, one.cx);
  const std::array<std::pair<const char*, std::pair<std::int32_t, std::int32_t>>, 5> texts{
      {{unterminated.data(), {2, two.cx}},
       {unterminated.data(), {1, one.cx}},
       {"ab", {kMax, two.cx}},
       {"a\0b", {3, one.cx}},
       {nullptr, {0, 0}}}};
  for (const auto& [text, expected] : texts) {
    EXPECT_EQ(GetTextExtentPoint32A(Dc(), text, expected.first, &size), 1);
    EXPECT_EQ(size.cx, expected.second);
    EXPECT_EQ(size.cy, 14);
    RECT rect{0, 0, 0, 0};
    EXPECT_EQ(DrawTextA(Dc(), text, expected.first, &rect, DT_CALCRECT), 14);
    EXPECT_EQ(rect.right, expected.second);
    EXPECT_EQ(TextOutA(Dc(), 100, 100, text, expected.first), 1);
  }
  RECT rect{0, 0, 0, 0};
  EXPECT_EQ(DrawTextA(Dc(), "ab", -1, &rect, DT_CALCRECT), 14);
  EXPECT_EQ(rect.right, two.cx);
}

TEST_F(Robustness, FontsOfAnySizeAreMadeAndHeldBack) {
  const HDC dc = Source();
  for (const auto& [asked, height] :
       {std::pair{kMin, 1193}, {-1024, 1193}, {1024, 1024}, {1025, 1024}, {kMax, 1024}, {1, 1}, {0, 16}}) {
    for (const std::int32_t width : {0, 1, -1, 1024, kMin, kMax}) {
      LOGFONT look{};
      look.lfHeight = asked;
      look.lfWidth = width;
      look.lfWeight = kMin;
      look.lfEscapement = look.lfOrientation = kMax;
      std::strcpy(look.lfFaceName, "DejaVu Sans");
      const SelectedFont font(dc, CreateFontIndirectA(&look));
      TEXTMETRICA metrics{};
      EXPECT_EQ(GetTextMetricsA(dc, &metrics), 1);
      EXPECT_EQ(metrics.tmHeight, height) << asked;
      for (const std::int32_t place : {kMin, -1, kMax}) EXPECT_EQ(TextOutA(dc, place, place, "Ag", 2), 1);
      for (RECT rect : {RECT{kMin, kMin, kMax, kMax}, RECT{kMax, kMax, kMin, kMin}, RECT{0, 0, 0, 0}}) {
        for (const std::uint32_t format :
             {0u, 0xFFFFFFFFu & ~DT_CALCRECT, 0xFFFFFFFFu,
              std::uint32_t{DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP}}) {
          EXPECT_NE(DrawTextA(dc, "A&g\ta\nb", -1, &rect, format), 0);
        }
      }
    }
  }
}

TEST_F(Robustness, PixelsOutsideHaveNoColor) {
  for (const auto& [x, y] : {std::pair{-1, 0}, {0, -1}, {12, 0}, {0, 9}, {kMin, kMin}, {kMax, kMax}}) {
    ExpectFailure(GetPixel(Dc(), x, y), CLR_INVALID, std::to_string(x));
  }
  EXPECT_NE(GetPixel(Dc(), 11, 8), CLR_INVALID);
}

TEST_F(Robustness, TextsInFontsOfAnyNumbersArePaintedAndMeasured) {
  const std::size_t before = LiveObjects();
  for (const std::int32_t height : {kMin, -1024, -1, 0, 1, 1024, kMax}) {
    for (const std::int32_t width : {kMin, -1, 0, 1, kMax}) {
      for (const std::uint8_t byte : {std::uint8_t{0}, std::uint8_t{255}}) {
        LOGFONT description;
        std::memset(&description, byte, sizeof description);
        description.lfHeight = height;
        description.lfWidth = width;
        description.lfWeight = width;
        description.lfEscapement = description.lfOrientation = height;
        const HFONT font = CreateFontIndirectA(&description);
        const HGDIOBJ held = SelectObject(Dc(), font);
        SIZE size{};
        EXPECT_EQ(GetTextExtentPoint32A(Dc(), "A\x80\n", kMax, &size), 1);
        EXPECT_GE(size.cy, 1);
        EXPECT_LE(size.cy, 2048);
        EXPECT_LE(size.cx, 3 * 2048);
        for (const std::int32_t at : {kMin, -5, 0, 5, kMax}) {
          EXPECT_EQ(TextOutA(Dc(), at, at, "A\x80\n", kMax), 1);
          RECT rect{at, at, kMax, kMin};
          DrawTextA(Dc(), "A &b\t\nC", -1, &rect, DT_WORDBREAK | DT_EXPANDTABS | DT_NOCLIP);
          EXPECT_GE(DrawTextA(Dc(), "A &b\t\nC", -1, &rect, DT_CALCRECT | DT_EXPANDTABS), 2 * size.cy);
        }
        EXPECT_EQ(SelectObject(Dc(), held), font);
        EXPECT_EQ(DeleteObject(font), 1);
      }
    }
  }
  EXPECT_EQ(LiveObjects(), before);
}

TEST_F(Robustness, ABitmapHeldElsewhereIsNotSelected) {
  ExpectFailure(SelectObject(Source(), GetCurrentObject(Dc(), OBJ_BITMAP)), 0, "held elsewhere");
}

TEST_F(Robustness, HeldObjectsAreNotDeletedAndGoOnBeingHeld) {
  for (const auto type : {OBJ_PEN, OBJ_BRUSH, OBJ_FONT, OBJ_BITMAP}) {
    ExpectFailure(DeleteObject(GetCurrentObject(Dc(), type)), 0, std::to_string(type));
  }
}

TEST_F(Robustness, ADeletedContextLetsGoOfWhatItHeld) {
  const HDC dc = CreateCompatibleDC(0);
  const std::size_t before = LiveObjects();
  const std::array<Handle, 4> held{NewPen(), NewBrush(), NewFont(), NewBitmap()};
  for (const Handle object : held) EXPECT_NE(SelectObject(dc, object), 0);
  for (const Handle object : held) EXPECT_EQ(DeleteObject(object), 0);
  EXPECT_EQ(DeleteDC(dc), 1);
  EXPECT_EQ(LiveObjects(), before - 1 + 4);
  for (const Handle object : held) EXPECT_EQ(DeleteObject(object), 1);
  EXPECT_EQ(LiveObjects(), before - 1);
}

TEST_F(Robustness, ADeletedObjectIsNotSelected) {
  for (const auto make : {NewPen, NewBrush, NewFont, NewBitmap}) {
    const Handle object = make();
    EXPECT_EQ(DeleteObject(object), 1);
    ExpectFailure(SelectObject(Dc(), object), 0, "deleted");
    ExpectFailure(DeleteObject(object), 0, "deleted twice");
  }
}

// On a thread of its own, so that its table is new.
TEST(Exhaustion, EverythingButMakingGoesOnWhenNoHandleIsLeft) {
  std::thread([] {
    const Surface surface = White(6, 6);
    const HBRUSH red = CreateSolidBrush(kRed);
    std::vector<Handle> all;
    while (LiveObjects() < 65535) all.push_back(CreateSolidBrush(0));
    EXPECT_EQ(std::count(all.begin(), all.end(), 0), 0);

    const LOGPEN pen{PS_SOLID, {1, 0}, 0};
    EXPECT_EQ(CreateCompatibleDC(0), 0);
    EXPECT_EQ(CreatePenIndirect(&pen), 0);
    EXPECT_EQ(ExtCreatePen(PS_GEOMETRIC, 3, &kSolid, 0, nullptr), 0);
    EXPECT_EQ(CreateBrushIndirect(&kSolid), 0);
    EXPECT_EQ(CreateSolidBrush(0), 0);
    EXPECT_EQ(CreateHatchBrush(0, 0), 0);
    EXPECT_EQ(NewFont(), 0);
    EXPECT_EQ(CreateBitmap(2, 2, 1, 32, nullptr), 0);
    EXPECT_EQ(CreateBitmap(0, 0, 1, 32, nullptr), 0);
    EXPECT_EQ(CreateCompatibleBitmap(surface.Dc(), 2, 2), 0);
    EXPECT_EQ(CreateEllipticRgn(0, 0, 5, 5), 0);
    EXPECT_EQ(CreateRoundRectRgn(0, 0, 5, 5, 2, 2), 0);
    EXPECT_THROW(Surface(2, 2), std::invalid_argument);
    EXPECT_EQ(LiveObjects(), 65535u);

    EXPECT_NE(SelectObject(surface.Dc(), red), 0);
    EXPECT_EQ(Rectangle(surface.Dc(), 1, 1, 5, 5), 1);
    EXPECT_EQ(surface.At(2, 2), kRed);
    EXPECT_EQ(surface.At(1, 1), kBlack);
    SelectObject(surface.Dc(), GetStockObject(WHITE_BRUSH));

    EXPECT_EQ(DeleteObject(all.back()), 1);
    EXPECT_NE(all.back() = CreateEllipticRgn(0, 0, 5, 5), 0);
    EXPECT_EQ(CreateSolidBrush(0), 0);
    for (const Handle each : all) EXPECT_EQ(DeleteObject(each), 1);
    EXPECT_EQ(DeleteObject(red), 1);
    EXPECT_EQ(LiveObjects(), 2u);
  }).join();
}

}  // namespace
}  // namespace quenzel7::gdi
