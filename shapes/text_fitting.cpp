#include "shapes/text_fitting.h"

#include <algorithm>

#include "platform/automation/arithmetic.h"
#include "platform/automation/automation_error.h"
#include "platform/corvane1/text_lines.h"
#include "platform/corvane1/utf8.h"
#include "platform/platform.h"

namespace quenzel7 {
namespace {

using automation::Add;
using automation::IntDiv;
using automation::Multiply;
using automation::Subtract;

/// Below every width, so that the first line gives the widest one.
constexpr Long kNoFullWidth = -99999;
constexpr Long kNoUsedWidth = -999999;

void TellOfForeignCharacter() {
  Platform::Current().messageBoxes->Show("Tessaline can't handle Multibyte chars", corvane1::kOkButton,
                                         "Language is not supported");
}

}  // namespace

FittedLine FitLineToWidth(std::string_view line, Long width, const CharWidths& widths,
                          const corvane1::AnsiCodePage& codePage) {
  FittedLine fitted{line};
  bool isCut = false;
  for (std::string_view rest = line; !rest.empty();) {
    const std::size_t place = line.size() - rest.size();
    const auto code = codePage.CodeOf(corvane1::TakeCharacter(rest));
    if (!code) {
      TellOfForeignCharacter();
      return {};
    }
    fitted.fullWidth = Add(fitted.fullWidth, widths[*code]);
    if (isCut) continue;
    if (fitted.fullWidth > width) {
      isCut = true;
      fitted.text = line.substr(0, place);
    } else {
      fitted.usedWidth = fitted.fullWidth;
    }
  }
  return fitted;
}

FittedText FitTextToRect(const std::string& text, const gdi::RECT& rectangle, Long lineHeight,
                         const CharWidths& widths) {
  if (text.empty()) return {};
  const corvane1::AnsiCodePage codePage = corvane1::AnsiCodePageOf(*Platform::Current().settings);
  const Long width = Subtract(rectangle.right, rectangle.left);
  if (lineHeight == 0) {
    throw automation::AutomationError(automation::ErrorNumber::DivisionByZero,
                                      "a text cannot be fitted into lines of height 0");
  }
  const Long room = IntDiv(Subtract(rectangle.bottom, rectangle.top), lineHeight);
  FittedText fitted{.text = {}, .full = {kNoFullWidth, 0}, .used = {kNoUsedWidth, 0}};
  Long lines = 0;
  corvane1::ForEachLine(text, [&](std::string_view line) {
    const FittedLine part = FitLineToWidth(line, width, widths, codePage);
    fitted.full.width = std::max(fitted.full.width, part.fullWidth);
    fitted.used.width = std::max(fitted.used.width, part.usedWidth);
    if (lines < room) {
      if (lines > 0) fitted.text += corvane1::kLineBreak;
      fitted.text += part.text;
    }
    ++lines;
  });
  fitted.full.height = Multiply(lines, lineHeight);
  fitted.used.height = Multiply(std::min(lines, room), lineHeight);
  return fitted;
}

}  // namespace quenzel7
