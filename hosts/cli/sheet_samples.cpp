#include "hosts/cli/sheet_samples.h"

#include <iterator>

#include "framework/transparent_bitmap.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/owned.h"
#include "platform/gdi/selected.h"
#include "platform/gdi/surface.h"

namespace quenzel7::cli {
namespace {

using gdi::HDC;
using gdi::RECT;

constexpr gdi::COLORREF kInk = gdi::RGB(20, 40, 120), kFill = gdi::RGB(255, 205, 90),
                        kBack = gdi::RGB(225, 238, 250);

/// A number under a name.
struct Named {
  const char* name;
  std::uint32_t value;
};

constexpr Named kPenStyles[] = {{"solid", gdi::PS_SOLID},
                                {"dash", gdi::PS_DASH},
                                {"dot", gdi::PS_DOT},
                                {"dash dot", gdi::PS_DASHDOT},
                                {"dash dot dot", gdi::PS_DASHDOTDOT},
                                {"null", gdi::PS_NULL},
                                {"inside frame", gdi::PS_INSIDEFRAME}};
constexpr Named kEndCaps[] = {
    {"round", gdi::PS_ENDCAP_ROUND}, {"square", gdi::PS_ENDCAP_SQUARE}, {"flat", gdi::PS_ENDCAP_FLAT}};
constexpr Named kJoins[] = {
    {"round", gdi::PS_JOIN_ROUND}, {"bevel", gdi::PS_JOIN_BEVEL}, {"miter", gdi::PS_JOIN_MITER}};
constexpr Named kHatches[] = {{"horizontal", gdi::HS_HORIZONTAL}, {"vertical", gdi::HS_VERTICAL},
                              {"forward", gdi::HS_FDIAGONAL},     {"backward", gdi::HS_BDIAGONAL},
                              {"cross", gdi::HS_CROSS},           {"diagonal cross", gdi::HS_DIAGCROSS}};
constexpr Named kRasterCodes[] = {{"BLACKNESS", gdi::BLACKNESS}, {"NOTSRCCOPY", gdi::NOTSRCCOPY},
                                  {"DSTINVERT", gdi::DSTINVERT}, {"PATINVERT", gdi::PATINVERT},
                                  {"SRCINVERT", gdi::SRCINVERT}, {"SRCAND", gdi::SRCAND},
                                  {"SRCCOPY", gdi::SRCCOPY},     {"SRCPAINT", gdi::SRCPAINT},
                                  {"PATCOPY", gdi::PATCOPY},     {"WHITENESS", gdi::WHITENESS}};
constexpr Named kStretchModes[] = {
    {"mode 1, AND", gdi::BLACKONWHITE}, {"mode 2, OR", gdi::WHITEONBLACK}, {"mode 3", gdi::COLORONCOLOR}};

gdi::HPEN Pen(std::uint32_t style, std::int32_t width) {
  const gdi::LOGPEN pen{style, {width, 0}, kInk};
  return gdi::CreatePenIndirect(&pen);
}

gdi::HPEN ExtendedPen(std::uint32_t style, std::uint32_t width) {
  const gdi::LOGBRUSH brush{gdi::BS_SOLID, kInk, 0};
  return gdi::ExtCreatePen(style, width, &brush, 0, nullptr);
}

gdi::HBRUSH NullBrush() {
  const gdi::LOGBRUSH brush{gdi::BS_NULL, 0, 0};
  return gdi::CreateBrushIndirect(&brush);
}

void DrawLines(HDC dc, const RECT& area) {
  gdi::MoveToEx(dc, area.left + 4, area.top + 6, nullptr);
  gdi::LineTo(dc, area.right - 4, area.top + 6);
  const gdi::POINT zigzag[] = {{area.left + 6, area.bottom - 8},
                               {area.left + 30, area.top + 18},
                               {area.left + 54, area.bottom - 8},
                               {area.right - 6, area.top + 18}};
  gdi::Polyline(dc, zigzag, 4);
}

std::vector<SheetSample> PenSamples() {
  std::vector<SheetSample> samples;
  for (const std::int32_t width : {1, 5}) {
    for (const Named& style : kPenStyles) {
      samples.push_back(
          {std::string(style.name) + ", " + std::to_string(width), [=](HDC dc, const RECT& area) {
             const gdi::SelectedPen pen(dc, Pen(style.value, width));
             gdi::SetBkColor(dc, kBack);
             DrawLines(dc, area);
           }});
    }
  }
  return samples;
}

std::vector<SheetSample> ExtendedPenSamples() {
  std::vector<SheetSample> samples;
  for (const Named& cap : kEndCaps) {
    for (const Named& join : kJoins) {
      samples.push_back({std::string(cap.name) + " end, " + join.name, [=](HDC dc, const RECT& area) {
                           const gdi::SelectedPen pen(
                               dc, ExtendedPen(gdi::PS_GEOMETRIC | cap.value | join.value, 9));
                           const gdi::POINT bend[] = {{area.left + 12, area.bottom - 12},
                                                      {area.left + 44, area.top + 12},
                                                      {area.right - 14, area.bottom - 12}};
                           gdi::Polyline(dc, bend, 3);
                         }});
    }
  }
  return samples;
}

std::vector<SheetSample> BrushSamples() {
  const auto filled = [](gdi::HBRUSH (*make)(std::uint32_t), std::uint32_t value) {
    return [=](HDC dc, const RECT& area) {
      const gdi::HBRUSH brush = make(value);
      gdi::SetBkColor(dc, kBack);
      gdi::FillRect(dc, &area, brush);
      gdi::DeleteObject(brush);
    };
  };
  std::vector<SheetSample> samples{
      {"solid", filled([](std::uint32_t) { return gdi::CreateSolidBrush(kFill); }, 0)},
      {"null", filled([](std::uint32_t) { return NullBrush(); }, 0)}};
  for (const Named& hatch : kHatches) {
    samples.push_back({hatch.name, filled(
                                       [](std::uint32_t value) {
                                         return gdi::CreateHatchBrush(static_cast<std::int32_t>(value), kInk);
                                       },
                                       hatch.value)});
  }
  return samples;
}

/// A figure inside a box.
struct Figure {
  const char* name;
  void (*draw)(HDC, const RECT&);
};

constexpr Figure kFigures[] = {
    {"Rectangle",
     [](HDC dc, const RECT& box) { gdi::Rectangle(dc, box.left, box.top, box.right, box.bottom); }},
    {"RoundRect",
     [](HDC dc, const RECT& box) { gdi::RoundRect(dc, box.left, box.top, box.right, box.bottom, 28, 20); }},
    {"Ellipse", [](HDC dc, const RECT& box) { gdi::Ellipse(dc, box.left, box.top, box.right, box.bottom); }}};

std::vector<SheetSample> FigureSamples() {
  struct Border {
    const char* name;
    std::uint32_t style;
    std::int32_t width;
  };
  static constexpr Border kBorders[] = {{"thin", gdi::PS_SOLID, 1},
                                        {"dotted", gdi::PS_DOT, 1},
                                        {"wide", gdi::PS_SOLID, 7},
                                        {"inside", gdi::PS_INSIDEFRAME, 7},
                                        {"no pen", gdi::PS_NULL, 0}};
  std::vector<SheetSample> samples;
  for (const Figure& figure : kFigures) {
    for (const Border& border : kBorders) {
      samples.push_back({std::string(figure.name) + ", " + border.name, [=](HDC dc, const RECT& area) {
                           const gdi::SelectedPen pen(dc, Pen(border.style, border.width));
                           const gdi::SelectedBrush brush(dc, gdi::CreateSolidBrush(kFill));
                           figure.draw(dc, {area.left + 6, area.top + 5, area.right - 6, area.bottom - 5});
                         }});
    }
  }
  for (const Figure& figure : kFigures) {
    samples.push_back({std::string(figure.name) + ", hatched", [=](HDC dc, const RECT& area) {
                         const gdi::SelectedPen pen(dc, Pen(gdi::PS_SOLID, 2));
                         const gdi::SelectedBrush brush(dc, gdi::CreateHatchBrush(gdi::HS_FDIAGONAL, kInk));
                         gdi::SetBkColor(dc, kBack);
                         figure.draw(dc, {area.left + 6, area.top + 5, area.right - 6, area.bottom - 5});
                       }});
  }
  samples.push_back({"DrawFocusRect", [](HDC dc, const RECT& area) {
                       const RECT frame{area.left + 6, area.top + 5, area.right - 6, area.bottom - 5};
                       gdi::DrawFocusRect(dc, &frame);
                     }});
  return samples;
}

std::vector<SheetSample> ArcSamples() {
  struct Arc {
    std::int32_t start, sweep;
  };
  static constexpr Arc kArcs[] = {{0, 90}, {90, 90}, {180, 135}, {45, -180}, {0, 360}};
  std::vector<SheetSample> samples;
  for (const Arc& arc : kArcs) {
    const std::string name = "from " + std::to_string(arc.start) + " by " + std::to_string(arc.sweep);
    samples.push_back(
        {name, [=](HDC dc, const RECT& area) {
           const gdi::SelectedPen pen(dc, Pen(gdi::PS_SOLID, 1));
           const std::int32_t x = (area.left + area.right) / 2, y = (area.top + area.bottom) / 2;
           gdi::MoveToEx(dc, x, y, nullptr);
           gdi::AngleArc(dc, x, y, 20, static_cast<float>(arc.start), static_cast<float>(arc.sweep));
         }});
  }
  samples.push_back({"wide, by 270", [](HDC dc, const RECT& area) {
                       const gdi::SelectedPen pen(dc,
                                                  ExtendedPen(gdi::PS_GEOMETRIC | gdi::PS_ENDCAP_FLAT, 7));
                       const std::int32_t x = (area.left + area.right) / 2, y = (area.top + area.bottom) / 2;
                       gdi::MoveToEx(dc, x, y - 17, nullptr);
                       gdi::AngleArc(dc, x, y, 17, 90, 270);
                     }});
  return samples;
}

void AddStar(HDC dc, const RECT& area) {
  // Corners of a star of five points around its middle.
  static constexpr gdi::POINT kCorners[] = {{0, -21}, {12, 17}, {-20, -7}, {20, -7}, {-12, 17}};
  const std::int32_t x = (area.left + area.right) / 2, y = (area.top + area.bottom) / 2 + 2;
  gdi::MoveToEx(dc, x + kCorners[0].x, y + kCorners[0].y, nullptr);
  for (std::size_t i = 1; i <= std::size(kCorners); ++i) {
    const gdi::POINT corner = kCorners[i % std::size(kCorners)];
    gdi::LineTo(dc, x + corner.x, y + corner.y);
  }
}

void AddSector(HDC dc, const RECT& area) {
  const std::int32_t x = (area.left + area.right) / 2, y = area.bottom - 6;
  gdi::MoveToEx(dc, x, y, nullptr);
  gdi::AngleArc(dc, x, y, 36, 30, 120);
}

std::vector<SheetSample> PathSamples() {
  struct Way {
    const char* name;
    void (*add)(HDC, const RECT&);
    gdi::BOOL (*paint)(HDC);
    std::int32_t width;
  };
  static constexpr Way kWays[] = {{"star, stroked", AddStar, gdi::StrokePath, 1},
                                  {"star, filled", AddStar, gdi::StrokeAndFillPath, 1},
                                  {"star, wide", AddStar, gdi::StrokeAndFillPath, 3},
                                  {"sector, stroked", AddSector, gdi::StrokePath, 1},
                                  {"sector, filled", AddSector, gdi::StrokeAndFillPath, 1},
                                  {"sector, wide", AddSector, gdi::StrokeAndFillPath, 4}};
  std::vector<SheetSample> samples;
  for (const Way& way : kWays) {
    samples.push_back({way.name, [=](HDC dc, const RECT& area) {
                         const gdi::SelectedPen pen(dc, Pen(gdi::PS_SOLID, way.width));
                         const gdi::SelectedBrush brush(dc, gdi::CreateSolidBrush(kFill));
                         gdi::BeginPath(dc);
                         way.add(dc, area);
                         gdi::EndPath(dc);
                         way.paint(dc);
                       }});
  }
  return samples;
}

/// Paints the points of the area that are in a region, and deletes it.
void ShowRegion(HDC dc, const RECT& area, gdi::HRGN region) {
  const gdi::HBRUSH brush = gdi::CreateSolidBrush(kFill);
  for (std::int32_t y = area.top; y < area.bottom; ++y) {
    for (std::int32_t x = area.left; x < area.right; ++x) {
      const RECT pixel{x, y, x + 1, y + 1};
      if (gdi::PtInRegion(region, x, y)) gdi::FillRect(dc, &pixel, brush);
    }
  }
  gdi::DeleteObject(brush);
  gdi::DeleteObject(region);
}

std::vector<SheetSample> RegionSamples() {
  return {{"CreateEllipticRgn",
           [](HDC dc, const RECT& area) {
             ShowRegion(dc, area,
                        gdi::CreateEllipticRgn(area.left + 6, area.top + 5, area.right - 6, area.bottom - 5));
           }},
          {"CreateRoundRectRgn", [](HDC dc, const RECT& area) {
             ShowRegion(dc, area,
                        gdi::CreateRoundRectRgn(area.left + 6, area.top + 5, area.right - 6, area.bottom - 5,
                                                28, 20));
           }}};
}

/// A picture of 46 x 46 pixels: a disc on a ground of two colours.
gdi::Surface DiscPicture(std::int32_t bitsPerPixel = 32) {
  gdi::Surface picture(46, 46, bitsPerPixel);
  picture.Clear(gdi::RGB(255, 255, 255));
  const gdi::SelectedPen pen(picture.Dc(), Pen(gdi::PS_SOLID, 1));
  const gdi::SelectedBrush brush(picture.Dc(), gdi::CreateSolidBrush(gdi::RGB(190, 60, 60)));
  gdi::Ellipse(picture.Dc(), 4, 4, 42, 42);
  return picture;
}

/// Something to see through: slanted bars.
void DrawGround(HDC dc, const RECT& area) {
  const gdi::HBRUSH brush = gdi::CreateHatchBrush(gdi::HS_VERTICAL, gdi::RGB(60, 150, 90));
  gdi::SetBkColor(dc, kBack);
  gdi::FillRect(dc, &area, brush);
  gdi::DeleteObject(brush);
}

std::vector<SheetSample> RasterSamples() {
  std::vector<SheetSample> samples;
  for (const Named& code : kRasterCodes) {
    samples.push_back({code.name, [=](HDC dc, const RECT& area) {
                         const gdi::Surface picture = DiscPicture();
                         DrawGround(dc, area);
                         const gdi::SelectedBrush brush(dc, gdi::CreateHatchBrush(gdi::HS_DIAGCROSS, kInk));
                         gdi::BitBlt(dc, area.left + 23, area.top, 46, 46, picture.Dc(), 0, 0, code.value);
                       }});
  }
  return samples;
}

std::vector<SheetSample> TransferSamples() {
  std::vector<SheetSample> samples{
      {"one bit to colours",
       [](HDC dc, const RECT& area) {
         const gdi::Surface picture = DiscPicture(1);
         gdi::SetTextColor(dc, kInk);
         gdi::SetBkColor(dc, kFill);
         gdi::BitBlt(dc, area.left + 23, area.top, 46, 46, picture.Dc(), 0, 0, gdi::SRCCOPY);
       }},
      {"colours to one bit", [](HDC dc, const RECT& area) {
         const gdi::Surface picture = DiscPicture();
         const gdi::Surface mask(46, 46, 1);
         gdi::SetBkColor(picture.Dc(), gdi::RGB(190, 60, 60));
         gdi::BitBlt(mask.Dc(), 0, 0, 46, 46, picture.Dc(), 0, 0, gdi::SRCCOPY);
         gdi::SetTextColor(dc, 0);
         gdi::SetBkColor(dc, gdi::RGB(255, 255, 255));
         gdi::BitBlt(dc, area.left + 23, area.top, 46, 46, mask.Dc(), 0, 0, gdi::SRCCOPY);
       }}};
  for (const Named& mode : kStretchModes) {
    samples.push_back({mode.name, [=](HDC dc, const RECT& area) {
                         const gdi::Surface picture = DiscPicture();
                         gdi::SetStretchBltMode(dc, static_cast<std::int32_t>(mode.value));
                         gdi::StretchBlt(dc, area.left, area.top, 60, 46, picture.Dc(), 0, 0, 46, 46,
                                         gdi::SRCCOPY);
                         gdi::StretchBlt(dc, area.left + 64, area.top + 10, 20, 20, picture.Dc(), 0, 0, 46,
                                         46, gdi::SRCCOPY);
                       }});
  }
  samples.push_back({"one colour left out", [](HDC dc, const RECT& area) {
                       const gdi::Surface picture = DiscPicture();
                       DrawGround(dc, area);
                       gdi::SetBkColor(dc, gdi::RGB(255, 255, 255));
                       // What a context holds cannot be painted from another.
                       const gdi::HBITMAP bitmap = gdi::CreateCompatibleBitmap(dc, 46, 46);
                       {
                         const gdi::OwnedContext copy(dc);
                         gdi::SelectObject(copy.Get(), bitmap);
                         gdi::BitBlt(copy.Get(), 0, 0, 46, 46, picture.Dc(), 0, 0, gdi::SRCCOPY);
                       }
                       DrawBitmapTransparent(dc, bitmap, area.left + 23, area.top, gdi::RGB(255, 255, 255));
                       gdi::DeleteObject(bitmap);
                     }});
  for (const std::uint8_t alpha : {64, 128, 192}) {
    samples.push_back({"AlphaBlend, " + std::to_string(alpha), [=](HDC dc, const RECT& area) {
                         const gdi::Surface picture = DiscPicture();
                         DrawGround(dc, area);
                         gdi::AlphaBlend(dc, area.left + 23, area.top, 46, 46, picture.Dc(), 0, 0, 46, 46,
                                         {gdi::AC_SRC_OVER, 0, alpha, 0});
                       }});
  }
  return samples;
}

}  // namespace

const std::vector<SheetSection>& DrawingSections() {
  static const std::vector<SheetSection> sections{
      {"Pens", PenSamples()},          {"Extended pens", ExtendedPenSamples()},
      {"Brushes", BrushSamples()},     {"Figures", FigureSamples()},
      {"Arcs", ArcSamples()},          {"Paths", PathSamples()},
      {"Regions", RegionSamples()},    {"Raster codes", RasterSamples()},
      {"Transfers", TransferSamples()}};
  return sections;
}

}  // namespace quenzel7::cli
