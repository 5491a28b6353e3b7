#include "hosts/cli/commands.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/host_tables.h"
#include "hosts/cli/library_texts.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/text_table.h"
#include "hosts/cli/variable_settings.h"

namespace quenzel7::cli {
namespace {

std::string Text(const automation::Variant& value) { return automation::To<std::string>(value); }

}  // namespace

int ListCommand(const std::string& projectPath, const Console& console) {
  using Side = TextTable::Side;
  TextTable pages({{"page", Side::Right},
                   {"name", Side::Left},
                   {"panel", Side::Right},
                   {"size", Side::Left},
                   {"elements", Side::Right}});
  TextTable elements({{"page", Side::Right},
                      {"order", Side::Right},
                      {"ID", Side::Right},
                      {"class", Side::Left},
                      {"tool tip", Side::Left},
                      {"text", Side::Left}});
  ProjectSession project(projectPath, corvane1::ProjectMode::ReadOnly);
  project.Do([&] {
    for (const PageInfo& info : HostPages(project.Connection()).All()) {
      const LoadedPage page = LoadPage(project, info, console);
      const std::string number = std::to_string(info.number);
      pages.Add({number, info.name, std::to_string(info.panel.type),
                 std::to_string(info.panel.width) + "x" + std::to_string(info.panel.height),
                 std::to_string(CountElements(page.elements))});
      WalkElements(page.elements, [&](ItfHmiElement& element, const ElementPath& path) {
        // Groups and variables have no order of their own.
        const std::string order =
            IsGroup(element) || IsVariable(element) ? "" : Text(Read(element, "OrderIndex"));
        const std::string indentation(2 * (path.size() - 1), ' ');
        elements.Add({number, order, std::to_string(IdOf(element)),
                      indentation + std::string(element.Class().name), Text(Call(element, "GetToolTipText")),
                      CaptionOf(element)});
      });
    }
  });
  pages.Write(console.out);
  console.out << '\n';
  elements.Write(console.out);
  return 0;
}

}  // namespace quenzel7::cli
