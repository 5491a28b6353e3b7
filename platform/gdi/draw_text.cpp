#include <algorithm>
#include <limits>
#include <string_view>

#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/text_layout.h"
#include "platform/gdi/text_of.h"
#include "platform/gdi/text_painter.h"

namespace quenzel7::gdi {

using internal::Hex;
using internal::Note;
using internal::Object;

namespace {

constexpr std::uint32_t kDefaultTab = 8;
constexpr std::uint32_t kTabBits = 0xFF00;
constexpr int kTabShift = 8;

/// A format taken apart.
struct Format {
  explicit Format(std::uint32_t format) : bits(format) {
    if ((format & DT_TABSTOP) == 0) return;
    if ((format & kTabBits) != 0) tab = (format & kTabBits) >> kTabShift;
    bits &= ~kTabBits;
  }

  bool Has(std::uint32_t bit) const { return (bits & bit) != 0; }

  std::uint32_t bits;
  std::uint32_t tab = kDefaultTab;
};

TextRules RulesFor(Font& font, const RECT& rect, const Format& format) {
  TextRules rules;
  rules.width = std::int64_t{rect.right} - rect.left;
  if (format.Has(DT_EXPANDTABS)) rules.tabStep = std::int64_t{format.tab} * std::max(1, font.AverageWidth());
  rules.isSingleLine = format.Has(DT_SINGLELINE);
  rules.breaksWords = format.Has(DT_WORDBREAK) && !rules.isSingleLine;
  rules.hasPrefixes = !format.Has(DT_NOPREFIX);
  rules.cutsEveryLine = format.Has(DT_WORD_ELLIPSIS);
  rules.cutsLastLine = format.Has(DT_END_ELLIPSIS);
  return rules;
}

/// The first row of a text of this height.
std::int64_t TopOf(const RECT& rect, std::int64_t height, const Format& format) {
  if (!format.Has(DT_SINGLELINE)) return rect.top;
  if (format.Has(DT_VCENTER)) return rect.top + (std::int64_t{rect.bottom} - rect.top - height) / 2;
  return format.Has(DT_BOTTOM) ? rect.bottom - height : rect.top;
}

/// The first column of a line of this width.
std::int64_t LeftOf(const RECT& rect, std::int64_t width, const Format& format) {
  if (format.Has(DT_CENTER)) return rect.left + (std::int64_t{rect.right} - rect.left - width) / 2;
  return format.Has(DT_RIGHT) ? rect.right - width : rect.left;
}

}  // namespace

std::int32_t DrawTextA(HDC dc, const char* text, std::int32_t count, RECT* rect, std::uint32_t format) {
  const std::int32_t length = count == -1 ? std::numeric_limits<std::int32_t>::max() : count;
  const std::string_view shown = TextOf(text, length);
  Note("DrawTextA", Object{dc}, shown, count, static_cast<const RECT*>(rect), Hex{format});
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr || rect == nullptr || !IsText(text, length)) return 0;
  thread_local TextLayout layout;
  const Format wanted(format);
  Font& font = FontOf(*context);
  layout.Lay(font, shown, RulesFor(font, *rect, wanted));
  const std::int64_t lineHeight =
      font.Height() + (wanted.Has(DT_EXTERNALLEADING) ? font.ExternalLeading() : 0);
  const std::int64_t height = lineHeight * static_cast<std::int64_t>(layout.Lines().size());
  if (wanted.Has(DT_CALCRECT)) {
    rect->right = In32Bits(rect->left + layout.WidestLine());
    rect->bottom = In32Bits(rect->top + height);
    return In32Bits(height);
  }
  const std::int64_t top = TopOf(*rect, height, wanted);
  if (!context->path.IsRecording()) {
    const Box inside{rect->left, rect->top, rect->right, rect->bottom};
    TextPainter painter(*context, wanted.Has(DT_NOCLIP) ? Everywhere() : inside);
    std::int64_t y = top;
    for (const TextLayout::Line& line : layout.Lines()) {
      const std::int64_t left = LeftOf(*rect, line.width, wanted);
      layout.ForEachPart(
          font, line, [&](std::int64_t x, std::string_view part) { painter.Paint(left + x, y, part); },
          [&](std::int64_t x, std::int64_t width) { painter.Underline(left + x, y, width); });
      y += lineHeight;
    }
  }
  return In32Bits(top + height - rect->top);
}

}  // namespace quenzel7::gdi
