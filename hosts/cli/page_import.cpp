#include <list>
#include <memory>
#include <optional>
#include <utility>

#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/host_tables.h"
#include "hosts/cli/image_setup.h"
#include "hosts/cli/page_operands.h"
#include "hosts/cli/page_store.h"
#include "hosts/cli/progress_bar.h"
#include "hosts/cli/quiet_boxes.h"
#include "hosts/cli/user_error.h"
#include "platform/automation/collection.h"
#include "shapes/group.h"

namespace quenzel7::cli {
namespace {

using automation::To;
using automation::Variant;

/// Makes the elements of a page file and saves them: those that are no groups in drawing order, each group
/// after its members, since it takes saved elements in.
class ElementImport {
 public:
  ElementImport(ProjectSession& project, PageOperands& operands, const PageFile& page, const Console& console)
      : project_(project),
        folder_(page.folder),
        operands_(operands),
        groups_(project.Connection()),
        progress_(console, "importing", CountElements(page.elements)) {}

  /// Saves a list of elements, which stands at that place of the page file.
  std::vector<ElementRef> Save(const std::vector<PageElement>& elements, const std::string& place) {
    std::vector<ElementRef> saved;
    for (const PageElement& element : elements) {
      const std::string elementPlace = ElementPlace(place, saved.size() + 1, element.elementClass->name);
      const std::vector<ElementRef> members = Save(element.elements, elementPlace);
      saved.push_back(AtPlace(elementPlace, [&] {
        return IsGroupClass(*element.elementClass) ? SaveGroup(members) : SaveSingle(element);
      }));
      progress_.Advance();
    }
    return saved;
  }

 private:
  ElementRef SaveSingle(const PageElement& description) {
    ElementRef element = MakeElement(description, folder_);
    // Most classes take the next number of the page for a new row; the round rectangle takes this one.
    automation::PutByName(*element, ItfHmiElement::InterfaceOf(), "OrderIndex", ++order_);
    SaveElement(project_, *element);
    operands_.AddRows(*element);
    return element;
  }

  ElementRef SaveGroup(const std::vector<ElementRef>& members) {
    ElementRef group = ElementClasses::Create(clsGroup::ClassOf());
    const auto collection = std::make_shared<automation::Collection>();
    for (const ElementRef& member : members) collection->Add(member);
    Variant argument = collection;
    const auto call = [&](std::string_view method) {
      return automation::CallByName(*group, method, automation::CallKind::Method, {&argument, 1});
    };
    if (To<bool>(call("IsMaxDepth"))) throw UserError(NestsTooDeep());
    // The group needs a row, since its members are saved with its key.
    SaveElement(project_, *group);
    {
      // Members are saved again, with the key of the group.
      std::list<NoPictureSize> sizes;
      for (const ElementRef& member : members) sizes.emplace_back(*member);
      call("AddObjectsToGroup");
    }
    // What was not refused was taken out.
    if (collection->Count() > 0) throw UserError("a group holds no touchable element");
    if (members.empty()) groups_.Keep(IdOf(*group), order_ + 1);
    return group;
  }

  ProjectSession& project_;
  const std::string& folder_;
  PageOperands& operands_;
  HostGroups groups_;
  ProgressBar progress_;
  /// The order of the element that was saved last.
  Long order_ = 0;
};

/// Takes all elements of a page out of the project, as the library does it. It cannot do that to a row that
/// is damaged: such rows, and what stands at them in other tables, are deleted as they are, since to replace
/// a page is the way to repair it. Gives the number of rows that the page had.
std::size_t RemoveElements(ProjectSession& project, const PageInfo& info, const Console& console) {
  ado::Connection& connection = project.Connection();
  const std::string rowsOfPage = " FROM HMI_Elements WHERE DisplayID=" + std::to_string(info.number);
  const auto count = To<Long>(ado::OpenRecordset(connection, "SELECT COUNT(*) AS Rows" + rowsOfPage,
                                                 ado::adOpenStatic, ado::adLockReadOnly)
                                  ->Get("Rows"));
  const LoadedPage good = LoadGoodRows(project, info, console);
  // While the rows are still there to be named by.
  for (const char* table : {"HostProperties", "HostGroups"}) {
    connection.Execute(std::string("DELETE FROM ") + table + " WHERE ElementID IN (SELECT ID" + rowsOfPage +
                       ")");
  }
  for (const ElementRef& element : good.elements) {
    try {
      DeleteElement(project, *element);
    } catch (const automation::AutomationError&) {
      // Its row goes below.
    }
  }
  connection.Execute("DELETE FROM HMI_Operands WHERE ElementID IN (SELECT ID" + rowsOfPage + ")");
  connection.Execute("DELETE" + rowsOfPage);
  return static_cast<std::size_t>(count);
}

}  // namespace

ImportResult ImportPage(ProjectSession& project, const PageFile& page, std::string_view source,
                        const std::string& place, const Console& console) {
  ado::Connection& connection = project.Connection();
  ImportResult result;
  ado::Transaction transaction(connection);
  HostPages pages(connection);
  pages.Create();
  HostProperties(connection).Create();
  HostGroups(connection).Create();
  project.OpenPage(page.info.number);
  UsePanel(page.info.panel.type);
  PageOperands operands(connection);

  // What the page shows boxes of, it shows when it is read back.
  std::optional<QuietBoxes> quiet(std::in_place);
  result.elementsBefore = RemoveElements(project, page.info, console);
  result.replaced = result.elementsBefore > 0 || pages.Has(page.info.number);

  ElementImport(project, operands, page, console).Save(page.elements, place);
  operands.Settle();
  quiet.reset();
  // What was saved is what is compared with later on, so it is read back.
  const LoadedPage after = LoadPageAsFiled(project, page.info, console);
  pages.Keep({page.info, std::string(source), CompletePageText(page.info, after.elements)});
  transaction.Commit();
  return result;
}

}  // namespace quenzel7::cli
