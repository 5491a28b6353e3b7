#include "platform/corvane1/one_line.h"

namespace quenzel7::corvane1 {

std::string OneLine(const std::string& text) {
  std::string line;
  char before = 0;
  for (const char letter : text) {
    const bool endsBreak = before == '\r' && letter == '\n';
    const bool isControl = static_cast<unsigned char>(letter) < ' ' || letter == 0x7F;
    if (!endsBreak) line += isControl ? ' ' : letter;
    before = letter;
  }
  return line;
}

}  // namespace quenzel7::corvane1
