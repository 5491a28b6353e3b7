#include "hosts/cli/text_table.h"

#include <algorithm>

#include "hosts/cli/user_error.h"

namespace quenzel7::cli {
namespace {

/// Places that a text takes on the screen: one for each character.
std::size_t Width(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char letter) {
    return (static_cast<unsigned char>(letter) & 0xC0) != 0x80;
  }));
}

}  // namespace

void TextTable::Add(std::vector<std::string> cells) {
  for (std::string& cell : cells) cell = OneLine(cell);
  rows_.push_back(std::move(cells));
}

void TextTable::Write(std::ostream& out) const {
  std::vector<std::vector<std::string>> rows = {{}};
  for (const Column& column : columns_) rows.front().push_back(column.heading);
  rows.insert(rows.end(), rows_.begin(), rows_.end());
  std::vector<std::size_t> widths(columns_.size());
  for (const auto& row : rows) {
    for (std::size_t index = 0; index < widths.size(); ++index) {
      widths[index] = std::max(widths[index], Width(row[index]));
    }
  }
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t index = 0; index < widths.size(); ++index) {
      const std::string gap(widths[index] - Width(row[index]), ' ');
      if (index > 0) line += "  ";
      line += columns_[index].side == Side::Right ? gap + row[index] : row[index] + gap;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
  }
}

}  // namespace quenzel7::cli
