#include "hosts/cli/page_store.h"

#include <functional>
#include <list>
#include <optional>

#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/host_tables.h"
#include "hosts/cli/image_setup.h"
#include "hosts/cli/page_tree.h"
#include "hosts/cli/progress_bar.h"
#include "hosts/cli/quiet_boxes.h"
#include "hosts/cli/row_loader.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/variable_settings.h"
#include "shapes/element_columns.h"

namespace quenzel7::cli {
namespace {

using automation::To;

std::string NumberList(const std::vector<PageInfo>& pages) {
  std::string list;
  for (const PageInfo& page : pages) list += (list.empty() ? "" : ", ") + std::to_string(page.number);
  return list;
}

/// All properties of the elements that a kept text describes, or none when this program cannot read it. Made
/// anew from the text, since this program may know properties that the one that wrote it did not.
std::optional<std::string> Remade(const KeptPage& kept) {
  // The page itself has shown its boxes.
  const QuietBoxes quiet;
  try {
    const auto [page, pictures] = ReadCompletePage(kept.imported, "page as imported");
    std::vector<ElementRef> elements;
    for (const PageElement& element : page.elements) elements.push_back(MakeElement(element));
    return CompletePageText(page.info, elements, pictures);
  } catch (const UserError&) {
    return {};
  }
}

/// Saves an element and all that is in it.
void SaveRows(ItfHmiElement& element) {
  std::list<NoPictureSize> sizes;
  WalkElement(element, [&sizes](ItfHmiElement& saved) { sizes.emplace_back(saved); });
  Call(element, "SaveToDB");
}

/// What is told of a row that does not load.
using WrongRow = std::function<void(RowLoader& loader, const ado::Recordset& row, const std::string& error)>;

/// Loading ends at the first row that does not load.
WrongRow RaiseIn(const ProjectSession& project) {
  return [&project](RowLoader&, const ado::Recordset& row, const std::string& error) {
    throw UserError(project.Place() + ", row " + To<std::string>(row.Get("ID")) +
                    " of HMI_Elements: " + error);
  };
}

/// Loads the rows of a page, and tells of those that do not load.
LoadedPage LoadRows(ProjectSession& project, const PageInfo& info, const Console& console,
                    const ElementClasses& classes, TextsFrom texts, const WrongRow& wrong) {
  UsePanel(info.panel.type);
  std::vector<PageRow> loaded;
  RowLoader loader(project.Connection(), classes, texts);
  const HostGroups groups(project.Connection());
  const auto rows = ado::OpenRecordset(
      project.Connection(),
      "SELECT * FROM HMI_Elements WHERE DisplayID=" + std::to_string(info.number) + " ORDER BY ID",
      ado::adOpenStatic, ado::adLockReadOnly);
  ProgressBar progress(console, "loading", static_cast<std::size_t>(rows->RecordCount()));
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::string error = ErrorOf([&] {
      ElementRef element = loader.Load(rows);
      std::optional<Long> place;
      if (IsGroup(*element)) {
        place = groups.Find(IdOf(*element));
      } else if (!IsVariable(*element)) {
        // Variables have no order: they lie on top in that of their rows.
        place = To<Long>(Read(*element, "OrderIndex"));
      }
      loaded.push_back({std::move(element), place});
    });
    if (!error.empty()) wrong(loader, *rows, error);
    progress.Advance();
  }
  return {info, TreeOf(loaded), PicturesBehind(project.Connection(), info.number)};
}

}  // namespace

PageInfo ChoosePage(ProjectSession& project, std::optional<Long> number) {
  const std::vector<PageInfo> pages = HostPages(project.Connection()).All();
  if (pages.empty()) throw UserError(project.Place() + " has no pages");
  if (!number) {
    if (pages.size() == 1) return pages.front();
    throw UserError(project.Place() + " has several pages (" + NumberList(pages) +
                    "): choose one with --page");
  }
  for (const PageInfo& page : pages) {
    if (page.number == number) return page;
  }
  throw UserError(project.Place() + " has no page " + std::to_string(*number) + "; there " +
                  (pages.size() == 1 ? "is page " : "are pages ") + NumberList(pages));
}

LoadedPage LoadPage(ProjectSession& project, const PageInfo& info, const Console& console,
                    const ElementClasses& classes) {
  return LoadRows(project, info, console, classes, TextsFrom::Library, RaiseIn(project));
}

LoadedPage LoadPageAsFiled(ProjectSession& project, const PageInfo& info, const Console& console) {
  return LoadRows(project, info, console, ElementClasses::All(), TextsFrom::Rows, RaiseIn(project));
}

LoadedPage LoadGoodRows(ProjectSession& project, const PageInfo& info, const Console& console) {
  return LoadRows(project, info, console, ElementClasses::All(), TextsFrom::Rows,
                  [](RowLoader&, const ado::Recordset&, const std::string&) {});
}

LoadedPage LoadPageTelling(ProjectSession& project, const PageInfo& info, const Console& console,
                           std::vector<std::string>& findings) {
  return LoadRows(project, info, console, ElementClasses::All(), TextsFrom::Library,
                  [&](RowLoader& loader, const ado::Recordset& row, const std::string& error) {
                    findings.push_back(loader.PlaceOf(info.number, row) + ": " + error);
                  });
}

ExportedPage ExportPage(ProjectSession& project, const LoadedPage& page) {
  const auto kept = HostPages(project.Connection()).Find(page.info.number);
  if (kept && Remade(*kept) == CompletePageText(page.info, page.elements)) {
    AtPlace(project.Place(), [&] { HostPages::RequireSource(*kept); });
    return {kept->source, true};
  }
  return {CanonicalPageText(page.info, page.elements), false};
}

void SaveElement(ProjectSession& project, ItfHmiElement& element) {
  SaveRows(element);
  HostProperties properties(project.Connection());
  WalkElement(element, [&properties](ItfHmiElement& saved) { properties.Keep(saved); });
}

void DeleteElement(ProjectSession& project, ItfHmiElement& element) {
  // A group deletes its members itself.
  Call(element, "DeleteFromDB");
  HostProperties properties(project.Connection());
  HostGroups groups(project.Connection());
  WalkElement(element, [&](ItfHmiElement& deleted) {
    properties.Forget(IdOf(deleted));
    groups.Forget(IdOf(deleted));
  });
}

void RestoreElement(ProjectSession& project, ItfHmiElement& element) {
  const automation::Interface& interface = ItfHmiElement::InterfaceOf();
  const auto put = [&interface](ItfHmiElement& target, std::string_view property, Long value) {
    automation::PutByName(target, interface, property, value);
  };
  std::vector<std::pair<ItfHmiElement*, Long>> orders;
  WalkElement(element, [&](ItfHmiElement& deleted) {
    put(deleted, "ID", kNone);
    if (!IsGroup(deleted)) orders.emplace_back(&deleted, To<Long>(Read(deleted, "OrderIndex")));
  });
  // The new rows come on top, and give members the key that their group had.
  SaveRows(element);
  WalkElement(element, [&](ItfHmiElement& group) {
    for (const ElementRef& member : MembersOf(group)) put(*member, "GroupID", IdOf(group));
  });
  SaveElement(project, element);
  // Some classes write their order into a new row only, so it is put into the rows.
  for (const auto& [restored, order] : orders) {
    put(*restored, "OrderIndex", order);
    project.Connection().Execute("UPDATE HMI_Elements SET OrderIndex=" + std::to_string(order) +
                                 " WHERE ID=" + std::to_string(IdOf(*restored)));
  }
  Call(element, "RestoreAllOperands");
}

}  // namespace quenzel7::cli
