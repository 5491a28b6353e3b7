#include "platform/corvane1/utf8.h"

#include <cstddef>

namespace quenzel7::corvane1 {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// How a character goes on behind its first byte: by so many bytes, the first of them in a range that leaves
/// out overlong forms, surrogates and what is above U+10FFFF.
struct Form {
  int more = 0;
  unsigned least = 0x80, most = 0xBF;
  unsigned bits = 0;  ///< that the first byte contributes
};

Form FormOf(unsigned first) {
  if (first >= 0xC2 && first <= 0xDF) return {1, 0x80, 0xBF, first & 0x1F};
  if (first >= 0xE0 && first <= 0xEF)
    return {2, first == 0xE0 ? 0xA0u : 0x80u, first == 0xED ? 0x9Fu : 0xBFu, first & 0x0F};
  if (first >= 0xF0 && first <= 0xF4)
    return {3, first == 0xF0 ? 0x90u : 0x80u, first == 0xF4 ? 0x8Fu : 0xBFu, first & 0x07};
  return {};
}

}  // namespace

char32_t TakeLongCharacter(std::string_view& text) {
  const auto byteAt = [&](std::size_t i) {
    return static_cast<unsigned>(static_cast<unsigned char>(text[i]));
  };
  const unsigned first = byteAt(0);
  const Form form = FormOf(first);
  char32_t character = form.bits;
  std::size_t taken = 1;
  bool isWhole = form.more > 0;
  for (int i = 0; i < form.more; ++i) {
    const unsigned least = i == 0 ? form.least : 0x80, most = i == 0 ? form.most : 0xBF;
    if (taken == text.size() || byteAt(taken) < least || byteAt(taken) > most) {
      isWhole = false;
      break;
    }
    character = character << 6 | (byteAt(taken) & 0x3F);
    ++taken;
  }
  text.remove_prefix(taken);
  return isWhole ? character : kReplacement;
}

}  // namespace quenzel7::corvane1
