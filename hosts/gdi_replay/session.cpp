#include "hosts/gdi_replay/session.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <span>

#include "platform/gdi/gdi.h"

namespace quenzel7::gdi_replay {
namespace {

using gdi::COLORREF;
using gdi::HDC;
using gdi::HGDIOBJ;
using Answer = std::vector<std::string>;

std::string Decimal(std::int64_t value) { return std::to_string(value); }

std::string HexColor(std::uint32_t color) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08x", color);
  return text;
}

Answer Truth(std::int32_t result) { return {result != 0 ? "1" : "0"}; }

Picture PictureOf(const gdi::Surface& surface) {
  Picture picture{surface.Width(), surface.Height(), {}};
  for (std::int32_t y = 0; y < picture.height; ++y) {
    for (std::int32_t x = 0; x < picture.width; ++x) picture.colors.push_back(surface.At(x, y));
  }
  return picture;
}

}  // namespace

/// The words of a line, taken one after the other.
class Arguments {
 public:
  Arguments(Session& session, const Step& step, std::size_t first)
      : session_(session), step_(step), next_(first) {}

  [[noreturn]] void Fail(const std::string& message) const {
    throw FormatError(session_.file_, step_.line, message);
  }

  std::string Word() {
    if (next_ >= step_.words.size()) Fail("an argument is missing");
    return step_.words[next_++];
  }
  bool HasMore() const { return next_ < step_.words.size(); }

  std::int32_t Number() {
    const std::string word = Word();
    const auto number = ParseNumber(word);
    if (!number) Fail("\"" + word + "\" is not a number of 32 bits");
    return *number;
  }
  std::uint32_t Unsigned() { return static_cast<std::uint32_t>(Number()); }
  template <std::size_t kCount>
  std::array<std::int32_t, kCount> Numbers() {
    std::array<std::int32_t, kCount> numbers;
    for (std::int32_t& number : numbers) number = Number();
    return numbers;
  }
  gdi::RECT Rect() {
    const auto sides = Numbers<4>();
    return {sides[0], sides[1], sides[2], sides[3]};
  }
  gdi::POINT Point() {
    const auto point = Numbers<2>();
    return {point[0], point[1]};
  }
  float Angle() {
    const std::string word = Word();
    char* end = nullptr;
    const float angle = std::strtof(word.c_str(), &end);
    if (*end != '\0') Fail("\"" + word + "\" is not an angle");
    return angle;
  }

  HDC Context() { return Known(session_.contexts_); }
  HGDIOBJ Object() { return Known(session_.objects_); }
  Session::Stage& Stage() {
    const std::string name = Word();
    const auto found = session_.stages_.find(name);
    if (found == session_.stages_.end()) Fail("no surface is named \"" + name + "\"");
    return found->second;
  }

  /// The word that names what the line makes; each name is given once.
  std::string NewName() {
    const std::string name = Word();
    if (session_.contexts_.count(name) + session_.objects_.count(name) != 0)
      Fail("\"" + name + "\" is made twice");
    return name;
  }

 private:
  gdi::Handle Known(const std::map<std::string, gdi::Handle>& among) {
    const std::string name = Word();
    const auto found = among.find(name);
    if (found == among.end()) Fail("nothing is named \"" + name + "\"");
    return found->second;
  }

  Session& session_;
  const Step& step_;
  std::size_t next_;
};

template <typename Paint>
void Session::Stage::Set(Paint&& paint) {
  for (std::int32_t y = 0; y < surface.Height(); ++y) {
    for (std::int32_t x = 0; x < surface.Width(); ++x) {
      const std::int64_t color = paint(x, y);
      if (color < 0) continue;
      surface.Set(x, y, static_cast<COLORREF>(color));
      staged.Set(x, y, static_cast<COLORREF>(color));
    }
  }
}

/// The lines of the format, each by its name.
struct Operations {
  using Handler = Answer (*)(Session&, Arguments&);
  static const std::map<std::string, Handler>& Table();

  /// Sets the same colour everywhere in a rectangle of a stage.
  static constexpr std::int64_t kUnchanged = -1;

  static void MakeObject(Session& session, Arguments& in, HGDIOBJ (*make)(Arguments&)) {
    const std::string name = in.NewName();
    session.objects_[name] = make(in);
  }

  static void MakeSurface(Session& session, Arguments& in) {
    const std::string name = in.NewName();
    const auto size = in.Numbers<3>();
    try {
      Session::Stage stage{gdi::Surface(size[0], size[1], size[2]), gdi::Surface(size[0], size[1], size[2])};
      stage.Set([](auto, auto) { return 0xFFFFFF; });
      session.contexts_[name] = stage.surface.Dc();
      session.objects_[name + ".bmp"] = stage.surface.BitmapHandle();
      session.stages_.emplace(name, std::move(stage));
    } catch (const std::invalid_argument& error) {
      in.Fail(error.what());
    }
  }

  static void Noise(Arguments& in) {
    Session::Stage& stage = in.Stage();
    std::uint32_t state = in.Unsigned();
    const auto cell = in.Numbers<2>();
    std::vector<COLORREF> palette;
    while (in.HasMore()) palette.push_back(in.Unsigned());
    if (cell[0] < 1 || cell[1] < 1 || palette.empty()) in.Fail("noise needs cells and colours");
    const std::int32_t columns = (stage.surface.Width() + cell[0] - 1) / cell[0];
    const std::int32_t rows = (stage.surface.Height() + cell[1] - 1) / cell[1];
    std::vector<COLORREF> cells;
    for (std::int64_t i = 0; i < std::int64_t{columns} * rows; ++i) {
      state = state * 1103515245u + 12345u;
      cells.push_back(palette[(state >> 16 & 0x7FFF) % palette.size()]);
    }
    stage.Set([&](std::int32_t x, std::int32_t y) {
      return cells[static_cast<std::size_t>(y / cell[1] * columns + x / cell[0])];
    });
  }

  static HGDIOBJ MakeBitmap(Arguments& in) {
    const auto size = in.Numbers<4>();
    const std::string digits = in.Word();
    if (digits == "null") {
      return gdi::CreateBitmap(size[0], size[1], static_cast<std::uint32_t>(size[2]),
                               static_cast<std::uint32_t>(size[3]), nullptr);
    }
    const std::int64_t needed = (std::int64_t{size[0]} * size[3] + 15) / 16 * 2 * size[1];
    if (needed < 0 || digits.size() != static_cast<std::size_t>(needed) * 2)
      in.Fail("the bytes do not fit the measures");
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2) {
      const auto byte = ParseNumber("0x" + digits.substr(i, 2));
      if (!byte) in.Fail("the bytes are not hexadecimal");
      bytes.push_back(static_cast<std::uint8_t>(*byte));
    }
    return gdi::CreateBitmap(size[0], size[1], static_cast<std::uint32_t>(size[2]),
                             static_cast<std::uint32_t>(size[3]), bytes.data());
  }

  static Answer DescribePen(Arguments& in) {
    gdi::LOGPEN pen{};
    const std::int32_t size = gdi::GetObjectA(in.Object(), sizeof pen, &pen);
    return {Decimal(size), Decimal(pen.lopnStyle), Decimal(pen.lopnWidth.x), HexColor(pen.lopnColor)};
  }

  static Answer DescribeBrush(Arguments& in) {
    gdi::LOGBRUSH brush{};
    const bool isThere = gdi::GetObjectA(in.Object(), sizeof brush, &brush) != 0;
    return {Decimal(isThere), Decimal(brush.lbStyle), HexColor(brush.lbColor), Decimal(brush.lbHatch)};
  }

  static Answer DescribeBitmap(Arguments& in) {
    gdi::BITMAP bitmap{};
    const bool isThere = gdi::GetObjectA(in.Object(), sizeof bitmap, &bitmap) != 0;
    return {Decimal(isThere),           Decimal(bitmap.bmType),       Decimal(bitmap.bmWidth),
            Decimal(bitmap.bmHeight),   Decimal(bitmap.bmWidthBytes), Decimal(bitmap.bmPlanes),
            Decimal(bitmap.bmBitsPixel)};
  }

  static Answer BitmapBits(Arguments& in) {
    const HGDIOBJ bitmap = in.Object();
    const std::int32_t size = in.Number();
    if (size < 0 || size > 1 << 24) in.Fail("the size is not usable");
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size) + 1);
    const std::int32_t count = gdi::GetBitmapBits(bitmap, size, bytes.data());
    std::string digits;
    for (std::int32_t i = 0; i < count; ++i) {
      char text[4];
      std::snprintf(text, sizeof text, "%02x", bytes[static_cast<std::size_t>(i)]);
      digits += text;
    }
    return {Decimal(count), digits.empty() ? "-" : digits};
  }

  static Answer Polyline(Arguments& in) {
    const HDC dc = in.Context();
    const std::int32_t count = in.Number();
    std::vector<gdi::POINT> points;
    while (in.HasMore()) points.push_back(in.Point());
    if (count != static_cast<std::int32_t>(points.size())) in.Fail("the number of points is wrong");
    return Truth(gdi::Polyline(dc, points.data(), count));
  }

  static Answer MoveTo(Arguments& in) {
    const HDC dc = in.Context();
    const gdi::POINT to = in.Point();
    gdi::POINT before{};
    const std::int32_t result = gdi::MoveToEx(dc, to.x, to.y, &before);
    return {Decimal(result != 0), Decimal(before.x), Decimal(before.y)};
  }
};

const std::map<std::string, Operations::Handler>& Operations::Table() {
  static const std::map<std::string, Handler> table{
      // The stage.
      {"dc",
       [](Session& session, Arguments& in) -> Answer {
         const std::string name = in.NewName();
         session.contexts_[name] = gdi::CreateCompatibleDC(0);
         return {};
       }},
      {"surface",
       [](Session& session, Arguments& in) -> Answer {
         MakeSurface(session, in);
         return {};
       }},
      {"fill",
       [](Session&, Arguments& in) -> Answer {
         Session::Stage& stage = in.Stage();
         stage.Set([color = in.Unsigned()](auto, auto) { return color; });
         return {};
       }},
      {"block",
       [](Session&, Arguments& in) -> Answer {
         Session::Stage& stage = in.Stage();
         const auto [x0, y0, width, height] = in.Numbers<4>();
         const COLORREF color = in.Unsigned();
         const std::int64_t right = std::int64_t{x0} + width, bottom = std::int64_t{y0} + height;
         stage.Set([&, left = x0, top = y0](std::int32_t x, std::int32_t y) {
           return x >= left && y >= top && x < right && y < bottom ? std::int64_t{color} : kUnchanged;
         });
         return {};
       }},
      {"gradient",
       [](Session&, Arguments& in) -> Answer {
         in.Stage().Set([](std::int32_t x, std::int32_t y) {
           const auto column = static_cast<std::uint32_t>(x), row = static_cast<std::uint32_t>(y);
           return gdi::RGB(8 * column, 10 * row, 3 * column + 5 * row);
         });
         return {};
       }},
      {"noise",
       [](Session&, Arguments& in) -> Answer {
         Noise(in);
         return {};
       }},

      // Objects.
      {"logpen",
       [](Session& session, Arguments& in) -> Answer {
         MakeObject(session, in, [](Arguments& from) {
           const std::uint32_t style = from.Unsigned();
           const std::int32_t width = from.Number();
           const gdi::LOGPEN pen{style, {width, 0}, from.Unsigned()};
           return gdi::CreatePenIndirect(&pen);
         });
         return {};
       }},
      {"extpen",
       [](Session& session, Arguments& in) -> Answer {
         MakeObject(session, in, [](Arguments& from) {
           const std::uint32_t style = from.Unsigned(), width = from.Unsigned();
           const gdi::LOGBRUSH brush{gdi::BS_SOLID, from.Unsigned(), 0};
           return gdi::ExtCreatePen(style, width, &brush, 0, nullptr);
         });
         return {};
       }},
      {"logbrush",
       [](Session& session, Arguments& in) -> Answer {
         MakeObject(session, in, [](Arguments& from) {
           const std::uint32_t style = from.Unsigned(), color = from.Unsigned();
           const gdi::LOGBRUSH brush{style, color, from.Unsigned()};
           return gdi::CreateBrushIndirect(&brush);
         });
         return {};
       }},
      {"hatchbrush",
       [](Session& session, Arguments& in) -> Answer {
         MakeObject(session, in, [](Arguments& from) {
           const std::int32_t hatch = from.Number();
           return gdi::CreateHatchBrush(hatch, from.Unsigned());
         });
         return {};
       }},
      {"solidbrush",
       [](Session& session, Arguments& in) -> Answer {
         MakeObject(session, in, [](Arguments& from) { return gdi::CreateSolidBrush(from.Unsigned()); });
         return {};
       }},
      {"stock",
       [](Session& session, Arguments& in) -> Answer {
         MakeObject(session, in, [](Arguments& from) { return gdi::GetStockObject(from.Number()); });
         return {};
       }},
      {"bitmap",
       [](Session& session, Arguments& in) -> Answer {
         MakeObject(session, in, MakeBitmap);
         return {};
       }},
      {"compatbitmap",
       [](Session& session, Arguments& in) -> Answer {
         MakeObject(session, in, [](Arguments& from) {
           const HDC dc = from.Context();
           const auto size = from.Numbers<2>();
           return gdi::CreateCompatibleBitmap(dc, size[0], size[1]);
         });
         return {};
       }},
      {"ellipticrgn",
       [](Session& session, Arguments& in) -> Answer {
         MakeObject(session, in, [](Arguments& from) {
           const gdi::RECT box = from.Rect();
           return gdi::CreateEllipticRgn(box.left, box.top, box.right, box.bottom);
         });
         return {};
       }},
      {"roundrectrgn",
       [](Session& session, Arguments& in) -> Answer {
         MakeObject(session, in, [](Arguments& from) {
           const gdi::RECT box = from.Rect();
           const auto corner = from.Numbers<2>();
           return gdi::CreateRoundRectRgn(box.left, box.top, box.right, box.bottom, corner[0], corner[1]);
         });
         return {};
       }},

      // Calls.
      {"SelectObject",
       [](Session& session, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         return {session.NameOf(gdi::SelectObject(dc, in.Object()))};
       }},
      {"GetCurrentObject",
       [](Session& session, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         return {session.NameOf(gdi::GetCurrentObject(dc, in.Unsigned()))};
       }},
      {"SetBkColor",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         return {HexColor(gdi::SetBkColor(dc, in.Unsigned()))};
       }},
      {"GetBkColor",
       [](Session&, Arguments& in) -> Answer { return {HexColor(gdi::GetBkColor(in.Context()))}; }},
      {"SetTextColor",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         return {HexColor(gdi::SetTextColor(dc, in.Unsigned()))};
       }},
      {"GetTextColor",
       [](Session&, Arguments& in) -> Answer { return {HexColor(gdi::GetTextColor(in.Context()))}; }},
      {"SetStretchBltMode",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         return {Decimal(gdi::SetStretchBltMode(dc, in.Number()))};
       }},
      {"GetObjectPen", [](Session&, Arguments& in) -> Answer { return DescribePen(in); }},
      {"GetObjectBrush", [](Session&, Arguments& in) -> Answer { return DescribeBrush(in); }},
      {"GetObjectBitmap", [](Session&, Arguments& in) -> Answer { return DescribeBitmap(in); }},
      {"GetBitmapBits", [](Session&, Arguments& in) -> Answer { return BitmapBits(in); }},
      {"GetPixel",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         const gdi::POINT at = in.Point();
         return {HexColor(gdi::GetPixel(dc, at.x, at.y))};
       }},
      {"MoveToEx", [](Session&, Arguments& in) -> Answer { return MoveTo(in); }},
      {"LineTo",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         const gdi::POINT to = in.Point();
         return Truth(gdi::LineTo(dc, to.x, to.y));
       }},
      {"Polyline", [](Session&, Arguments& in) -> Answer { return Polyline(in); }},
      {"AngleArc",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         const gdi::POINT center = in.Point();
         const std::uint32_t radius = in.Unsigned();
         const float start = in.Angle();
         return Truth(gdi::AngleArc(dc, center.x, center.y, radius, start, in.Angle()));
       }},
      {"Rectangle",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         const gdi::RECT box = in.Rect();
         return Truth(gdi::Rectangle(dc, box.left, box.top, box.right, box.bottom));
       }},
      {"Ellipse",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         const gdi::RECT box = in.Rect();
         return Truth(gdi::Ellipse(dc, box.left, box.top, box.right, box.bottom));
       }},
      {"RoundRect",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         const gdi::RECT box = in.Rect();
         const auto corner = in.Numbers<2>();
         return Truth(gdi::RoundRect(dc, box.left, box.top, box.right, box.bottom, corner[0], corner[1]));
       }},
      {"FillRect",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         const gdi::RECT rect = in.Rect();
         return Truth(gdi::FillRect(dc, &rect, in.Object()));
       }},
      {"DrawFocusRect",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         const gdi::RECT rect = in.Rect();
         return Truth(gdi::DrawFocusRect(dc, &rect));
       }},
      {"PatBlt",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         const auto [x, y, width, height] = in.Numbers<4>();
         return Truth(gdi::PatBlt(dc, x, y, width, height, in.Unsigned()));
       }},
      {"PtInRegion",
       [](Session&, Arguments& in) -> Answer {
         const HGDIOBJ region = in.Object();
         const gdi::POINT at = in.Point();
         return Truth(gdi::PtInRegion(region, at.x, at.y));
       }},
      {"RectInRegion",
       [](Session&, Arguments& in) -> Answer {
         const HGDIOBJ region = in.Object();
         const gdi::RECT rect = in.Rect();
         return Truth(gdi::RectInRegion(region, &rect));
       }},
      {"BitBlt",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         const auto [x, y, width, height] = in.Numbers<4>();
         const HDC source = in.Context();
         const gdi::POINT from = in.Point();
         return Truth(gdi::BitBlt(dc, x, y, width, height, source, from.x, from.y, in.Unsigned()));
       }},
      {"StretchBlt",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         const auto [x, y, width, height] = in.Numbers<4>();
         const HDC source = in.Context();
         const auto from = in.Numbers<4>();
         return Truth(gdi::StretchBlt(dc, x, y, width, height, source, from[0], from[1], from[2], from[3],
                                      in.Unsigned()));
       }},
      {"AlphaBlend",
       [](Session&, Arguments& in) -> Answer {
         const HDC dc = in.Context();
         const auto [x, y, width, height] = in.Numbers<4>();
         const HDC source = in.Context();
         const auto from = in.Numbers<4>();
         const gdi::BLENDFUNCTION blend{gdi::AC_SRC_OVER, 0, static_cast<std::uint8_t>(in.Number()), 0};
         return Truth(
             gdi::AlphaBlend(dc, x, y, width, height, source, from[0], from[1], from[2], from[3], blend));
       }},
      {"BeginPath", [](Session&, Arguments& in) -> Answer { return Truth(gdi::BeginPath(in.Context())); }},
      {"EndPath", [](Session&, Arguments& in) -> Answer { return Truth(gdi::EndPath(in.Context())); }},
      {"StrokePath", [](Session&, Arguments& in) -> Answer { return Truth(gdi::StrokePath(in.Context())); }},
      {"StrokeAndFillPath",
       [](Session&, Arguments& in) -> Answer { return Truth(gdi::StrokeAndFillPath(in.Context())); }},
  };
  return table;
}

Session::~Session() {
  for (const auto& [name, dc] : contexts_) {
    if (stages_.count(name) == 0) gdi::DeleteDC(dc);
  }
  stages_.clear();
  for (const auto& [name, object] : objects_) gdi::DeleteObject(object);
}

std::vector<std::string> Session::Call(const Step& step) {
  const std::size_t first = step.words[0] == "query" ? 1 : 0;
  if (first >= step.words.size()) throw FormatError(file_, step.line, "query of what?");
  const auto found = Operations::Table().find(step.words[first]);
  if (found == Operations::Table().end()) throw MissingOperation(step.words[first]);
  Arguments in(*this, step, first + 1);
  Answer answer = found->second(*this, in);
  if (in.HasMore()) in.Fail("more arguments than \"" + step.words[first] + "\" takes");
  return answer;
}

Picture Session::Actual(const Step& check) { return PictureOf(Arguments(*this, check, 1).Stage().surface); }

Picture Session::RegionMap(const Step& query) {
  Arguments in(*this, query, 2);
  const HGDIOBJ region = in.Object();
  const auto [left, top, width, height] = in.Numbers<4>();
  const bool isAsExpected = width == query.picture->width && height == query.picture->height && !in.HasMore();
  if (query.words[1] != "PtInRegionMap" || !isAsExpected)
    in.Fail("a map needs region, place, and the measures of its pixels");
  Picture map{width, height, {}};
  for (std::int32_t y = 0; y < height; ++y) {
    for (std::int32_t x = 0; x < width; ++x) {
      map.colors.push_back(gdi::PtInRegion(region, left + x, top + y) != 0 ? 1 : 0);
    }
  }
  return map;
}

Picture Session::Staged(const Step& check) { return PictureOf(Arguments(*this, check, 1).Stage().staged); }

std::string Session::NameOf(gdi::Handle object) const {
  const auto named = std::find_if(objects_.begin(), objects_.end(),
                                  [&](const auto& entry) { return entry.second == object; });
  if (named != objects_.end()) return named->first;
  if (object == 0) return "null";
  constexpr std::int32_t kStockObjects = 20;
  for (std::int32_t i = 0; i < kStockObjects; ++i) {
    if (object == gdi::GetStockObject(i)) return "stock:" + std::to_string(i);
  }
  const HDC fresh = gdi::CreateCompatibleDC(0);
  const bool isDefault = object == gdi::GetCurrentObject(fresh, gdi::OBJ_BITMAP);
  gdi::DeleteDC(fresh);
  return isDefault ? "default-bitmap" : "unknown:" + std::to_string(object);
}

}  // namespace quenzel7::gdi_replay
