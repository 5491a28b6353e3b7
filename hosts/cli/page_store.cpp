#include "hosts/cli/page_store.h"

#include <map>
#include <optional>

#include "hosts/cli/element_calls.h"
#include "hosts/cli/host_tables.h"
#include "hosts/cli/page_operands.h"
#include "hosts/cli/progress_bar.h"
#include "hosts/cli/user_error.h"

namespace quenzel7::cli {
namespace {

using automation::To;

std::string NumberList(const std::vector<PageInfo>& pages) {
  std::string list;
  for (const PageInfo& page : pages) list += (list.empty() ? "" : ", ") + std::to_string(page.number);
  return list;
}

/// Finds the class of a row by the number that a new element of the class tells.
class ClassesByType {
 public:
  explicit ClassesByType(const ElementClasses& classes) : classes_(classes) {}

  const automation::ClassInfo& Find(Long elementType) {
    const auto [place, isNew] = found_.try_emplace(elementType, nullptr);
    if (isNew) place->second = classes_.OfType(elementType);
    if (!place->second) throw UserError("there is no class of element type " + std::to_string(elementType));
    return *place->second;
  }

 private:
  const ElementClasses& classes_;
  std::map<Long, const automation::ClassInfo*> found_;
};

/// All properties of the elements that a kept text describes, or none when this program cannot read it. Made
/// anew from the text, since this program may know properties that the one that wrote it did not.
std::optional<std::string> Remade(const KeptPage& kept) {
  try {
    const PageFile page = ReadPageFile(kept.imported, "page as imported");
    std::vector<ElementRef> elements;
    for (const PageElement& element : page.elements) elements.push_back(MakeElement(element));
    return CompletePageText(page.info, elements);
  } catch (const UserError&) {
    return {};
  }
}

}  // namespace

PageInfo ChoosePage(ProjectSession& project, Long number) {
  const std::vector<PageInfo> pages = HostPages(project.Connection()).All();
  if (pages.empty()) throw UserError(project.Place() + " has no pages");
  if (number == 0) {
    if (pages.size() == 1) return pages.front();
    throw UserError(project.Place() + " has several pages (" + NumberList(pages) +
                    "): choose one with --page");
  }
  for (const PageInfo& page : pages) {
    if (page.number == number) return page;
  }
  throw UserError(project.Place() + " has no page " + std::to_string(number) + "; there " +
                  (pages.size() == 1 ? "is page " : "are pages ") + NumberList(pages));
}

LoadedPage LoadPage(ProjectSession& project, const PageInfo& info, const Console& console,
                    const ElementClasses& classes) {
  LoadedPage page{info, {}};
  const HostProperties properties(project.Connection());
  ClassesByType byType(classes);
  const auto rows = ado::OpenRecordset(
      project.Connection(),
      "SELECT * FROM HMI_Elements WHERE DisplayID=" + std::to_string(info.number) + " ORDER BY OrderIndex",
      ado::adOpenStatic, ado::adLockReadOnly);
  ProgressBar progress(console, "loading", static_cast<std::size_t>(rows->RecordCount()));
  for (; !rows->Eof(); rows->MoveNext()) {
    AtPlace(project.Place() + ", row " + To<std::string>(rows->Get("ID")) + " of HMI_Elements", [&] {
      ElementRef element = ElementClasses::Create(byType.Find(To<Long>(rows->Get("Type"))));
      Call(*element, "LoadFromDB", {rows});
      properties.Apply(*element);
      page.elements.push_back(std::move(element));
    });
    progress.Advance();
  }
  return page;
}

ImportResult ImportPage(ProjectSession& project, const PageFile& page, std::string_view source,
                        const std::string& place, const Console& console) {
  ado::Connection& connection = project.Connection();
  ImportResult result;
  ado::Transaction transaction(connection);
  HostPages pages(connection);
  HostProperties properties(connection);
  pages.Create();
  properties.Create();
  project.OpenPage(page.info.number);
  PageOperands operands(connection);

  const LoadedPage before = LoadPage(project, page.info, console);
  result.replaced = !before.elements.empty() || pages.Find(page.info.number).has_value();
  result.elementsBefore = before.elements.size();
  for (const ElementRef& element : before.elements) {
    Call(*element, "DeleteFromDB");
    properties.Forget(IdOf(*element));
  }

  {
    ProgressBar progress(console, "importing", page.elements.size());
    for (std::size_t index = 0; index < page.elements.size(); ++index) {
      AtPlace(ElementPlace(place, index + 1, page.elements[index].elementClass->name), [&] {
        const ElementRef element = MakeElement(page.elements[index]);
        SaveElement(project, *element);
        operands.AddRows(*element);
      });
      progress.Advance();
    }
  }
  operands.Settle();
  // What was saved is what is compared with later on, so it is read back.
  const LoadedPage after = LoadPage(project, page.info, console);
  pages.Keep({page.info, std::string(source), CompletePageText(page.info, after.elements)});
  transaction.Commit();
  return result;
}

std::string ExportPage(ProjectSession& project, const LoadedPage& page) {
  const auto kept = HostPages(project.Connection()).Find(page.info.number);
  if (kept && Remade(*kept) == CompletePageText(page.info, page.elements)) return kept->source;
  return CanonicalPageText(page.info, page.elements);
}

void SaveElement(ProjectSession& project, ItfHmiElement& element) {
  Call(element, "SaveToDB");
  HostProperties(project.Connection()).Keep(element);
}

}  // namespace quenzel7::cli
