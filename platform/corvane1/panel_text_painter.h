#pragma once

#include <string>

#include "platform/corvane1/ansi_code_page.h"
#include "platform/corvane1/panel_font_list.h"
#include "platform/corvane1/text_painter.h"

namespace quenzel7::corvane1 {

/// The embedded default: paints by `TextOutA` in the fonts of a list, in black and white pixels without
/// smoothing, with the characters of the code page; a character that it does not have shows as a question
/// mark. Each line is put into the order in which it is seen, see `VisualOrder`; Arabic letters are not
/// joined, since the code page has one form of each.
///
/// All four painting operations are alike but for the background: each takes a text of several lines, parted
/// by "\r\n", one below the other at the height of the font, and options mean nothing. Text colour,
/// background mode and font of the context are put back; a wrong handle is nothing to paint on. Errors are
/// those of the code page's source, with nothing painted.
class PanelTextPainter final : public TextPainter {
 public:
  explicit PanelTextPainter(
      PanelFontList fonts = PanelFontList(), AnsiCodePageSource codePage = [] { return AnsiCodePage(); });

  void DrawText(Long x, Long y, const std::string& line, gdi::HDC dc, Long fontNumber) override;
  void DrawTextTransparent(Long x, Long y, const std::string& line, gdi::HDC dc, Long fontNumber) override;
  void DrawStorageText(Long x, Long y, const std::string& text, gdi::HDC dc, Long fontNumber) override;
  void DrawStorageTextTransparent(Long x, Long y, const std::string& text, gdi::HDC dc, Long fontNumber,
                                  Long option) override;
  TextExtent GetTextSize(const std::string& text, Long fontNumber) override;

 private:
  void Paint(Long x, Long y, const std::string& text, gdi::HDC dc, Long fontNumber,
             gdi::BackgroundMode background) const;

  const PanelFontList fonts_;
  const AnsiCodePageSource codePage_;
};

}  // namespace quenzel7::corvane1
