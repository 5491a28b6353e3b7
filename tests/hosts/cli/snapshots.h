#pragma once

#include <string>

#include "hosts/cli/page_snapshot.h"
#include "tests/hosts/cli/cli_project.h"

namespace quenzel7::cli::test {

/// Compares pages that stand in no project, by the elements of a page file. A project is open, so that all
/// properties can be set.
class SnapshotTest : public CliProjectTest {
 protected:
  /// Page 1 with the elements of that list of a page file.
  static LoadedPage PageOf(const std::string& elements) {
    const PageFile file = ReadPageFile(
        R"({"page": 1, "name": "Boiler", "panel": {"type": 1, "width": 320, "height": 240}, "elements": [)" +
            elements + "]}",
        "test page");
    LoadedPage page{file.info, {}};
    for (const PageElement& element : file.elements) page.elements.push_back(MakeElement(element));
    return page;
  }
  static PageSnapshot SnapshotOf(const std::string& elements) { return TakeSnapshot(PageOf(elements), {}); }

  /// Elements of a page file, for joining: `more` are further properties.
  static std::string Shape(const std::string& name, Long xs, const std::string& more = {}) {
    return "{\"class\": \"cls" + name + "\", \"Xs\": " + std::to_string(xs) +
           (more.empty() ? "" : ", " + more) + "}";
  }
  static std::string Line(Long xs, const std::string& more = {}) { return Shape("Line", xs, more); }
  static std::string Box(Long xs, const std::string& more = {}) { return Shape("Rectangle", xs, more); }
  static std::string Group(const std::string& members) {
    return "{\"class\": \"clsGroup\", \"elements\": [" + members + "]}";
  }
  static std::string List(const std::vector<std::string>& elements) {
    std::string list;
    for (const std::string& element : elements) list += (list.empty() ? "" : ", ") + element;
    return list;
  }
};

}  // namespace quenzel7::cli::test
