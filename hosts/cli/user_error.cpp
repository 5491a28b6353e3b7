#include "hosts/cli/user_error.h"

#include <cstdio>

namespace quenzel7::cli {

std::string OneLine(std::string_view text) {
  std::string line;
  for (const char letter : text) {
    switch (letter) {
      case '\n':
        line += "\\n";
        break;
      case '\r':
        line += "\\r";
        break;
      case '\t':
        line += "\\t";
        break;
      default:
        if (static_cast<unsigned char>(letter) >= 0x20 && letter != 0x7F) {
          line += letter;
        } else {
          char escape[8];
          std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(letter));
          line += escape;
        }
    }
  }
  return line;
}

std::string Quoted(std::string_view name) { return "\"" + std::string(name) + "\""; }

}  // namespace quenzel7::cli
