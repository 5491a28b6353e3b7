#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "platform/gdi/recorder.h"
#include "platform/gdi/types.h"

/// How the calls of the interface make themselves known to a recorder.
namespace quenzel7::gdi::internal {

extern constinit thread_local Recorder* activeRecorder;

struct Object {
  Handle handle;
};
struct Hex {
  std::uint32_t value;
};

/// One argument as text.
struct Argument {
  Argument(std::int32_t value) : text(std::to_string(value)) {}
  Argument(std::uint32_t value) : text(std::to_string(value)) {}
  Argument(float value);
  Argument(Object object) : text(activeRecorder->NameOf(object.handle)) {}
  Argument(Hex hex);
  Argument(const RECT* rect);
  Argument(const LOGPEN* pen);
  Argument(const LOGBRUSH* brush);
  Argument(const LOGFONT* font);
  /// In quotes; quotes and backslashes behind a backslash, bytes that are not plain ASCII as \xNN.
  Argument(std::string_view text);
  Argument(const BLENDFUNCTION& blend);
  Argument(std::span<const POINT> points);

  std::string text;
};

void NoteSlowly(const char* name, std::initializer_list<Argument> arguments);

/// Notes a call; the arguments become text only if somebody listens.
template <typename... Arguments>
inline void Note(const char* name, Arguments... arguments) {
  if (activeRecorder != nullptr) [[unlikely]] {
    NoteSlowly(name, {Argument(arguments)...});
  }
}

/// Notes that the call noted last made this object, and gives it back.
inline Handle Made(Handle handle) {
  if (activeRecorder != nullptr) [[unlikely]] {
    activeRecorder->AddResult(handle);
  }
  return handle;
}

}  // namespace quenzel7::gdi::internal
