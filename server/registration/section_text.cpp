#include "server/registration/section_text.h"

#include <algorithm>
#include <optional>

namespace quenzel7::server {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

char Lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter; }

bool BeginsWith(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), text.begin(),
                                                    [](char a, char b) { return Lower(a) == Lower(b); });
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// The name of the section that a line begins; nothing for other lines.
std::optional<std::string_view> SectionOf(std::string_view line) {
  // Editors put the mark of UTF-8 before the first line.
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (line.starts_with(kMark)) line.remove_prefix(kMark.size());
  line = Trimmed(line);
  if (!line.starts_with('[')) return std::nullopt;
  return Trimmed(line.substr(1, line.find(']') - 1));
}

}  // namespace

std::string WithoutSections(std::string_view text, std::string_view prefix) {
  std::string rest;
  bool isTaken = false;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = end == std::string_view::npos ? text : text.substr(0, end + 1);
    if (const auto section = SectionOf(line)) isTaken = BeginsWith(*section, prefix);
    if (!isTaken) rest += line;
    text.remove_prefix(line.size());
  }
  rest.erase(rest.find_last_not_of(kBlanks) + 1);
  if (!rest.empty()) rest += '\n';
  return rest;
}

}  // namespace quenzel7::server
