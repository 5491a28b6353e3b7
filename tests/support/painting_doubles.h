#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/automation/automation_error.h"
#include "platform/corvane1/color_service.h"
#include "platform/corvane1/text_painter.h"
#include "platform/gdi/recorder.h"
#include "tests/support/font_double.h"

/// Services that note what they are asked while something is painted, among the calls of the graphics
/// interface.
namespace quenzel7::test {

/// How a text stands in a note: breaks as \r\n, like a recorder shows them.
inline std::string Quoted(const std::string& text) {
  std::string shown = "\"";
  for (const char c : text) shown += c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string(1, c);
  return shown + '"';
}

/// Where the services of one painting note their calls, and which of these fails.
class PaintingNotes {
 public:
  /// Notes into a recorder from now on; nullptr for nowhere.
  void Into(gdi::Recorder* recorder) { recorder_ = recorder; }
  /// Lets the service call of that number from now on, 1 for the next one, raise error 5; 0 for none.
  void FailAt(int call) { failIn_ = call; }

  template <class... Arguments>
  void Add(const std::string& name, const Arguments&... arguments) {
    if (!recorder_) return;
    std::string list;
    ((list += (list.empty() ? "" : ", ") + Shown(arguments)), ...);
    recorder_->Add(name + '(' + list + ')');
    if (failIn_ > 0 && --failIn_ == 0) {
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no " + name);
    }
  }
  /// A context by the name that the recorder has for it.
  std::string Named(gdi::HDC dc) const { return recorder_ ? recorder_->NameOf(dc) : ""; }

 private:
  static std::string Shown(Long number) { return std::to_string(number); }
  static std::string Shown(const std::string& shown) { return shown; }

  gdi::Recorder* recorder_ = nullptr;
  int failIn_ = 0;
};
using PaintingNotesRef = std::shared_ptr<PaintingNotes>;

/// Lines are 8 pixels high in font 3, 9 in font 4 and so on. A text of n bytes stands at x = 100 + n and
/// y = 200 + n, so that a block and its lines are told apart.
class PaintingFonts final : public FontDouble {
 public:
  explicit PaintingFonts(PaintingNotesRef notes)
      : FontDouble(std::make_shared<std::vector<std::string>>()), notes_(std::move(notes)) {}

  Long GetCharHeight(Long fontNumber) override {
    notes_->Add("GetCharHeight", fontNumber);
    return 5 + fontNumber;
  }
  corvane1::TextPosition GetTextPosition(const std::string& text, Long fontNumber, Long x, Long y, Long width,
                                         Long height, Long alignment, Long frameFlag) override {
    notes_->Add("GetTextPosition", Quoted(text), fontNumber, x, y, width, height, alignment, frameFlag);
    const Long bytes = static_cast<Long>(text.size());
    return {100 + bytes, 200 + bytes};
  }

 private:
  PaintingNotesRef notes_;
};

/// Colours that are told apart at a glance: panel colour n is 0x0a0000 + n, its line of level m
/// 0x0b0000 + 256 m + n, its face 0x0c0000 + n.
class PaintingColors final : public corvane1::ColorService {
 public:
  explicit PaintingColors(PaintingNotesRef notes) : notes_(std::move(notes)) {}

  std::uint32_t GetColor(Long colorNumber) override {
    notes_->Add("GetColor", colorNumber);
    return 0x0a0000 + static_cast<std::uint32_t>(colorNumber);
  }
  std::uint32_t Get3DShadeColor(Long level, Long colorNumber) override {
    notes_->Add("Get3DShadeColor", level, colorNumber);
    return 0x0b0000 + static_cast<std::uint32_t>(256 * level + colorNumber);
  }
  std::uint32_t Get3DFaceColor(Long colorNumber) override {
    notes_->Add("Get3DFaceColor", colorNumber);
    return 0x0c0000 + static_cast<std::uint32_t>(colorNumber);
  }
  void DrawPressed3DRect(Long left, Long top, Long right, Long bottom, Long colorNumber, Long pressed,
                         gdi::HDC dc) override {
    notes_->Add("DrawPressed3DRect", left, top, right, bottom, colorNumber, pressed, notes_->Named(dc));
  }
  void DrawFlatRect(Long x1, Long y1, Long x2, Long y2, Long colorNumber, gdi::HDC dc) override {
    notes_->Add("DrawFlatRect", x1, y1, x2, y2, colorNumber, notes_->Named(dc));
  }

 private:
  PaintingNotesRef notes_;
};

/// Paints nothing.
class PaintingPainter final : public corvane1::TextPainter {
 public:
  explicit PaintingPainter(PaintingNotesRef notes) : notes_(std::move(notes)) {}

  void DrawText(Long x, Long y, const std::string& line, gdi::HDC dc, Long fontNumber) override {
    notes_->Add("DrawText", x, y, Quoted(line), notes_->Named(dc), fontNumber);
  }
  void DrawTextTransparent(Long x, Long y, const std::string& line, gdi::HDC dc, Long fontNumber) override {
    notes_->Add("DrawTextTransparent", x, y, Quoted(line), notes_->Named(dc), fontNumber);
  }
  void DrawStorageText(Long x, Long y, const std::string& text, gdi::HDC dc, Long fontNumber) override {
    notes_->Add("DrawStorageText", x, y, Quoted(text), notes_->Named(dc), fontNumber);
  }
  void DrawStorageTextTransparent(Long x, Long y, const std::string& text, gdi::HDC dc, Long fontNumber,
                                  Long option) override {
    notes_->Add("DrawStorageTextTransparent", x, y, Quoted(text), notes_->Named(dc), fontNumber, option);
  }
  corvane1::TextExtent GetTextSize(const std::string&, Long) override { return {}; }

 private:
  PaintingNotesRef notes_;
};

}  // namespace quenzel7::test
