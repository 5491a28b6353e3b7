#pragma once

#include <string>
#include <vector>

#include "hosts/cli/element_tree.h"

namespace quenzel7::cli::test {

/// Elements as one line, each by its class and its Xs, groups with their members:
/// "clsLine 5, clsGroup [clsEllipse 7, clsGroup []]".
inline std::string TreeText(const std::vector<ElementRef>& elements) {
  std::string text;
  for (const ElementRef& element : elements) {
    text += (text.empty() ? "" : ", ") + std::string(element->Class().name) + " ";
    text += IsGroup(*element) ? "[" + TreeText(MembersOf(*element)) + "]" : std::to_string(element->Xs());
  }
  return text;
}

}  // namespace quenzel7::cli::test
