#include "platform/gdi/recorder.h"

#include <cstdio>
#include <cstring>
#include <utility>

#include "platform/gdi/call_note.h"
#include "platform/gdi/handle_table.h"

namespace quenzel7::gdi {
namespace internal {

constinit thread_local Recorder* activeRecorder = nullptr;

namespace {

std::string Enclosed(char opening, std::initializer_list<Argument> arguments, char closing) {
  std::string text(1, opening);
  for (const Argument& argument : arguments) {
    if (text.size() > 1) text += ", ";
    text += argument.text;
  }
  return text += closing;
}

std::string Braced(std::initializer_list<Argument> fields) { return Enclosed('{', fields, '}'); }

}  // namespace

Argument::Argument(float value) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%g", static_cast<double>(value));
  text = buffer;
}

Argument::Argument(Hex hex) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "0x%06x", hex.value);
  text = buffer;
}

Argument::Argument(const RECT* rect)
    : text(rect == nullptr ? "null" : Braced({rect->left, rect->top, rect->right, rect->bottom})) {}

Argument::Argument(const LOGPEN* pen)
    : text(pen == nullptr ? "null" : Braced({pen->lopnStyle, pen->lopnWidth.x, Hex{pen->lopnColor}})) {}

Argument::Argument(const LOGBRUSH* brush)
    : text(brush == nullptr ? "null" : Braced({brush->lbStyle, Hex{brush->lbColor}, brush->lbHatch})) {}

Argument::Argument(const LOGFONT* font) : text("null") {
  if (font == nullptr) return;
  const auto byte = [](std::uint8_t value) { return std::int32_t{value}; };
  const std::string_view name(font->lfFaceName, strnlen(font->lfFaceName, sizeof font->lfFaceName));
  text = Braced({font->lfHeight, font->lfWidth, font->lfEscapement, font->lfOrientation, font->lfWeight,
                 byte(font->lfItalic), byte(font->lfUnderline), byte(font->lfStrikeOut),
                 byte(font->lfCharSet), byte(font->lfOutPrecision), byte(font->lfClipPrecision),
                 byte(font->lfQuality), byte(font->lfPitchAndFamily), name});
}

Argument::Argument(std::string_view shown) : text(shown.data() == nullptr ? "null" : "\"") {
  if (shown.data() == nullptr) return;
  for (const char c : shown) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte > 0x7E) {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\x%02x", byte);
      text += escape;
      continue;
    }
    if (c == '"' || c == '\\') text += '\\';
    text += c;
  }
  text += '"';
}

Argument::Argument(const BLENDFUNCTION& blend) {
  const std::int32_t op = blend.BlendOp, flags = blend.BlendFlags, alpha = blend.SourceConstantAlpha;
  text = Braced({op, flags, alpha, std::int32_t{blend.AlphaFormat}});
}

Argument::Argument(std::span<const POINT> points) {
  text = '{';
  for (const POINT& point : points) {
    if (text.size() > 1) text += ", ";
    text += Braced({point.x, point.y});
  }
  text += '}';
}

void NoteSlowly(const char* name, std::initializer_list<Argument> arguments) {
  activeRecorder->Add(name + Enclosed('(', arguments, ')'));
}

}  // namespace internal

Recorder::Recorder() : previous_(std::exchange(internal::activeRecorder, this)) {}

Recorder::~Recorder() { internal::activeRecorder = previous_; }

std::vector<std::string> Recorder::Take() { return std::exchange(calls_, {}); }

void Recorder::AddResult(Handle made) {
  // A number that comes back for a new object must not show the name of the old one.
  names_.erase(made);
  calls_.back().append(" -> ").append(NameOf(made));
}

std::string Recorder::NameOf(Handle handle) {
  const auto known = names_.find(handle);
  if (known != names_.end()) return known->second;
  if (handle == 0) return "null";
  if (handle == kDefaultBitmapHandle) return "default-bitmap";
  if (StockIndex(handle) >= 0) return "stock:" + std::to_string(StockIndex(handle));
  if (!Handles().Contains(handle)) return "invalid";
  return names_[handle] = NewName(handle);
}

std::string Recorder::NewName(Handle handle) {
  HandleTable& table = Handles();
  std::string kind = "region";
  if (table.Find<Context>(handle) != nullptr) kind = "dc";
  if (table.Find<Pen>(handle) != nullptr) kind = "pen";
  if (table.Find<Brush>(handle) != nullptr) kind = "brush";
  if (table.Find<LOGFONT>(handle) != nullptr) kind = "font";
  if (table.Find<Bitmap>(handle) != nullptr) kind = "bitmap";
  return kind + ":" + std::to_string(++counts_[kind]);
}

}  // namespace quenzel7::gdi
