#include "server/services/panel_fonts.h"

#include "server/services/service_class.h"

namespace quenzel7::server {
namespace {

using automation::Method;
using automation::Property;
using View = PanelFonts;

constexpr automation::Member kMembers[] = {
    Property<Long>("DefaultFontNumber", "The font that new elements take.",
                   AUTOMATION_GETTER(View, DefaultFontNumber), nullptr),
    Property<Long>("DefaultDescriptionFontNumber", "The font of the description of a keypad entry.",
                   AUTOMATION_GETTER(View, DefaultDescriptionFontNumber), nullptr),
    Method<View, &View::CharHeight>("CharHeight", "The height of a line in pixels.", "font"),
    Method<View, &View::CharWidths>("CharWidths", "The widths of the characters by their ANSI code.", "font"),
    Method<View, &View::TextSize>("TextSize", "The size that a text takes in pixels.",
                                  "text, font, width, height"),
    Method<View, &View::FontName>("FontName", "The font's name.", "font"),
};

}  // namespace

const automation::ClassInfo& PanelFonts::ClassOf() { return ServiceClass<View>(kMembers); }

Long PanelFonts::CharHeight(Long font) { return Service()->GetCharHeight(font); }

std::vector<Long> PanelFonts::CharWidths(Long font) {
  const auto widths = Service()->GetCharWidths(font);
  return {widths.begin(), widths.end()};
}

void PanelFonts::TextSize(const std::string& text, Long font, Long& width, Long& height) {
  const corvane1::TextExtent extent = Service()->GetTextRect(text, font);
  width = extent.width;
  height = extent.height;
}

std::string PanelFonts::FontName(Long font) { return Service()->GetFontName(font); }

}  // namespace quenzel7::server
