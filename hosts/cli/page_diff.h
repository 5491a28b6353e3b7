#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "hosts/cli/page_snapshot.h"

namespace quenzel7::cli {

/// How a page differs from another one.
struct PageDiff {
  /// One line each, "page 1: element 5 (clsLine): PenWidth 1 -> 3": first the page, then what became of the
  /// elements of a in their order, then what came with b.
  std::vector<std::string> lines;
  /// Which elements differ, on each page: those that went, came, changed or moved, by their index.
  std::vector<bool> differsA;
  std::vector<bool> differsB;
};

/// Tells how page b differs from page a; one of them may not be there.
PageDiff ComparePages(const std::optional<PageSnapshot>& a, const std::optional<PageSnapshot>& b);

}  // namespace quenzel7::cli
