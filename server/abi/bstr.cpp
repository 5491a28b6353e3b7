#include "server/abi/bstr.h"

#include <cstddef>
#include <new>

#include "platform/corvane1/utf8.h"
#include "server/abi/string_functions.h"

namespace quenzel7::server {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstOfTwo = 0xD800, kSecondOfTwo = 0xDC00, kBehindSurrogates = 0xE000;
constexpr char32_t kFirstAbove16Bits = 0x10000;

bool IsFirstOfTwo(char32_t unit) { return unit >= kFirstOfTwo && unit < kSecondOfTwo; }
bool IsSecondOfTwo(char32_t unit) { return unit >= kSecondOfTwo && unit < kBehindSurrogates; }

std::size_t UnitsOf(std::string_view utf8) {
  std::size_t units = 0;
  while (!utf8.empty()) units += corvane1::TakeCharacter(utf8) < kFirstAbove16Bits ? 1 : 2;
  return units;
}

void AppendUtf8(char32_t character, std::string& to) {
  const auto rest = [character](int shift) { return static_cast<char>(0x80 | (character >> shift & 0x3F)); };
  if (character < 0x80) {
    to += static_cast<char>(character);
  } else if (character < 0x800) {
    to += static_cast<char>(0xC0 | character >> 6);
    to += rest(0);
  } else if (character < kFirstAbove16Bits) {
    to += static_cast<char>(0xE0 | character >> 12);
    to += rest(6);
    to += rest(0);
  } else {
    to += static_cast<char>(0xF0 | character >> 18);
    to += rest(12);
    to += rest(6);
    to += rest(0);
  }
}

std::string Utf8Of(const OLECHAR* text, std::size_t length) {
  std::string utf8;
  utf8.reserve(length);
  for (std::size_t i = 0; i < length; ++i) {
    char32_t character = text[i];
    if (IsFirstOfTwo(character) && i + 1 < length && IsSecondOfTwo(text[i + 1])) {
      character = kFirstAbove16Bits + ((character - kFirstOfTwo) << 10) + (text[++i] - kSecondOfTwo);
    } else if (IsFirstOfTwo(character) || IsSecondOfTwo(character)) {
      character = kReplacement;
    }
    AppendUtf8(character, utf8);
  }
  return utf8;
}

}  // namespace

BSTR ToBstr(std::string_view utf8) {
  const BSTR text = MakeBstr(UnitsOf(utf8) * sizeof(OLECHAR));
  if (text == nullptr) throw std::bad_alloc();
  for (OLECHAR* unit = text; !utf8.empty();) {
    const char32_t character = corvane1::TakeCharacter(utf8);
    if (character < kFirstAbove16Bits) {
      *unit++ = static_cast<OLECHAR>(character);
    } else {
      const char32_t above = character - kFirstAbove16Bits;
      *unit++ = static_cast<OLECHAR>(kFirstOfTwo + (above >> 10));
      *unit++ = static_cast<OLECHAR>(kSecondOfTwo + (above & 0x3FF));
    }
  }
  return text;
}

std::string FromBstr(BSTR text) { return Utf8Of(text, SysStringLen(text)); }

std::string FromUtf16(const OLECHAR* text) {
  std::size_t length = 0;
  while (text != nullptr && text[length] != 0) ++length;
  return Utf8Of(text, length);
}

}  // namespace quenzel7::server
