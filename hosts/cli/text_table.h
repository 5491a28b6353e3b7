#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace quenzel7::cli {

/// Rows of cells under headings, written as columns two blanks apart.
class TextTable {
 public:
  enum class Side { Left, Right };
  struct Column {
    std::string heading;
    Side side;
  };

  explicit TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {}

  /// One cell for each column. A cell is shown on one line.
  void Add(std::vector<std::string> cells);
  void Write(std::ostream& out) const;

 private:
  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace quenzel7::cli
