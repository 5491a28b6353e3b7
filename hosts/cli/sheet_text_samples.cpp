#include <cstring>

#include "hosts/cli/sheet_samples.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"

namespace quenzel7::cli {
namespace {

using gdi::HDC;
using gdi::RECT;

struct Face {
  const char* family;
  std::int32_t height;
  std::int32_t weight;
  bool isItalic = false, isUnderlined = false, isStruckOut = false;
};

gdi::HFONT MakeFont(const Face& face) {
  gdi::LOGFONT font{};
  font.lfHeight = face.height;
  font.lfWeight = face.weight;
  font.lfItalic = face.isItalic;
  font.lfUnderline = face.isUnderlined;
  font.lfStrikeOut = face.isStruckOut;
  std::strcpy(font.lfFaceName, face.family);
  return gdi::CreateFontIndirectA(&font);
}

std::vector<SheetSample> FontSamples() {
  static constexpr Face kFaces[] = {{"Unifont", -16, 400},
                                    {"DejaVu Sans", -9, 400},
                                    {"DejaVu Sans", -12, 400},
                                    {"DejaVu Sans", -18, 400},
                                    {"DejaVu Sans", -18, 700},
                                    {"DejaVu Sans", -28, 400},
                                    {"DejaVu Sans Mono", -14, 400},
                                    {"DejaVu Serif", -16, 400},
                                    {"DejaVu Sans", -16, 400, true},
                                    {"DejaVu Sans", -16, 400, false, true},
                                    {"DejaVu Sans", -16, 400, false, false, true},
                                    {"Small Fonts", -9, 400}};
  std::vector<SheetSample> samples;
  for (const Face& face : kFaces) {
    std::string name = face.family;
    if (name.starts_with("DejaVu ")) name.erase(0, 7);
    name += " " + std::to_string(-face.height);
    if (face.weight > 400) name += " bold";
    if (face.isItalic) name += " italic";
    if (face.isUnderlined) name += " line";
    if (face.isStruckOut) name += " struck";
    samples.push_back({name, [=](HDC dc, const RECT& area) {
                         const gdi::SelectedFont font(dc, MakeFont(face));
                         gdi::TextOutA(dc, area.left + 2, area.top + 4, "Ag 12", 5);
                       }});
  }
  return samples;
}

std::vector<SheetSample> FormatSamples() {
  struct Format {
    const char* name;
    const char* text;
    std::uint32_t format;
  };
  static constexpr Format kFormats[] = {
      {"top left", "Valve", gdi::DT_SINGLELINE},
      {"center", "Valve", gdi::DT_SINGLELINE | gdi::DT_CENTER | gdi::DT_VCENTER},
      {"bottom right", "Valve", gdi::DT_SINGLELINE | gdi::DT_RIGHT | gdi::DT_BOTTOM},
      {"words broken", "Main valve of tank two", gdi::DT_WORDBREAK | gdi::DT_CENTER},
      {"tabs", "1\t2\t3", gdi::DT_EXPANDTABS},
      {"prefix", "&Open", gdi::DT_SINGLELINE},
      {"end ellipsis", "Main valve of tank", gdi::DT_SINGLELINE | gdi::DT_END_ELLIPSIS},
      {"clipped", "Main valve of tank", gdi::DT_SINGLELINE}};
  std::vector<SheetSample> samples;
  for (const Format& format : kFormats) {
    samples.push_back({format.name, [=](HDC dc, const RECT& area) {
                         const gdi::SelectedFont font(dc, MakeFont({"DejaVu Sans", -12, 400}));
                         RECT box{area.left + 2, area.top + 2, area.right - 2, area.bottom - 2};
                         gdi::DrawFocusRect(dc, &box);
                         box = {box.left + 2, box.top + 2, box.right - 2, box.bottom - 2};
                         gdi::DrawTextA(dc, format.text, -1, &box, format.format);
                       }});
  }
  return samples;
}

std::vector<SheetSample> BackgroundSamples() {
  std::vector<SheetSample> samples;
  for (const std::int32_t mode : {gdi::OPAQUE, gdi::TRANSPARENT}) {
    samples.push_back({mode == gdi::OPAQUE ? "opaque" : "transparent", [=](HDC dc, const RECT& area) {
                         const gdi::HBRUSH brush =
                             gdi::CreateHatchBrush(gdi::HS_VERTICAL, gdi::RGB(60, 150, 90));
                         gdi::FillRect(dc, &area, brush);
                         gdi::DeleteObject(brush);
                         const gdi::SelectedFont font(dc, MakeFont({"DejaVu Sans", -18, 700}));
                         gdi::SetBkMode(dc, mode);
                         gdi::SetBkColor(dc, gdi::RGB(255, 205, 90));
                         gdi::SetTextColor(dc, gdi::RGB(20, 40, 120));
                         gdi::TextOutA(dc, area.left + 10, area.top + 12, "Valve", 5);
                       }});
  }
  return samples;
}

}  // namespace

const std::vector<SheetSection>& TextSections() {
  static const std::vector<SheetSection> sections{
      {"Fonts", FontSamples()}, {"DrawText", FormatSamples()}, {"Background modes", BackgroundSamples()}};
  return sections;
}

}  // namespace quenzel7::cli
