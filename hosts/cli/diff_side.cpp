#include "hosts/cli/diff_side.h"

#include <map>
#include <set>

#include "framework/tab_index.h"
#include "framework/touch_style.h"
#include "hosts/cli/element_calls.h"
#include "hosts/cli/element_tree.h"
#include "hosts/cli/host_tables.h"
#include "hosts/cli/image_setup.h"
#include "hosts/cli/library_texts.h"
#include "hosts/cli/quiet_boxes.h"
#include "hosts/cli/renderer.h"
#include "hosts/cli/text_file.h"
#include "hosts/cli/user_error.h"
#include "hosts/cli/variable_settings.h"
#include "platform/automation/call_by_name.h"
#include "platform/gdi/surface.h"
#include "shapes/element_columns.h"

namespace quenzel7::cli {
namespace {

/// How every project file begins.
constexpr std::string_view kDatabaseMark("SQLite format 3\0", 16);

bool BeginsAnObject(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
  if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) text.remove_prefix(kByteOrderMark.size());
  const auto first = text.find_first_not_of(" \t\r\n");
  return first != std::string_view::npos && text[first] == '{';
}

/// The GUID of a row; "" for a row without a readable one, which is no hindrance: others tell its element,
/// too.
std::string GuidOf(const ado::Recordset& row) {
  try {
    const automation::Variant guid = row.Get("GUID");
    return guid.IsNull() ? "" : automation::To<std::string>(guid);
  } catch (const automation::AutomationError&) {
    return {};
  }
}

/// The GUIDs of the rows of a page by their IDs.
std::map<Long, std::string> GuidsOf(ado::Connection& connection, Long page) {
  std::map<Long, std::string> guids;
  const auto rows = ado::OpenRecordset(
      connection, "SELECT ID, GUID FROM HMI_Elements WHERE DisplayID=" + std::to_string(page),
      ado::adOpenStatic, ado::adLockReadOnly);
  for (; !rows->Eof(); rows->MoveNext()) {
    guids[automation::To<Long>(rows->Get("ID"))] = GuidOf(*rows);
  }
  return guids;
}

/// Whether the element has a place in the tab order of its page when it is saved.
bool TakesPart(ItfHmiElement& element) {
  if (IsVariable(element)) return GetTouchStyle(element) != eTS_None;
  return automation::To<Long>(Read(element, "TouchOprndAddr")) != kNone;
}

/// Gives texts, frames, buttons and variables those places in the tab order that import would: saving gives
/// one to what is touchable and has none, and takes that of the others away. A variable whose touch opens a
/// keypad keeps its place.
void TakeTabIndices(const std::vector<ElementRef>& elements) {
  std::set<Long> taken;
  WalkElements(elements, [&taken](ItfHmiElement& element, const ElementPath&) {
    if (!element.Class().Default().Find("TabIndex")) return;
    const Long touch = automation::To<Long>(Read(element, "TouchOprndAddr"));
    const bool isKept = touch >= 0 || (IsVariable(element) && TakesPart(element));
    Long place = isKept ? automation::To<Long>(Read(element, "TabIndex")) : kNoTabIndex;
    if (TakesPart(element) && place == kNoTabIndex) {
      place = 0;
      while (taken.count(place) > 0) ++place;
    }
    if (place != kNoTabIndex) taken.insert(place);
    automation::PutByName(element, "TabIndex", place);
  });
}

/// The pixels of a page on which elements stand that are told: those that do not stay what they were,
/// whatever that was.
std::vector<bool> Covered(const LoadedPage& page, const std::vector<bool>& told) {
  const Panel& panel = page.info.panel;
  std::vector<bool> covered(static_cast<std::size_t>(panel.width) * static_cast<std::size_t>(panel.height));
  for (const gdi::COLORREF ground : {gdi::RGB(255, 255, 255), gdi::RGB(0, 0, 0)}) {
    gdi::Surface surface(panel.width, panel.height);
    surface.Clear(ground);
    const std::uint32_t untouched = surface.Pixels()[0];
    auto isTold = told.begin();
    WalkElements(page.elements, [&](ItfHmiElement& element, const ElementPath&) {
      if (*isTold++ && !IsGroup(element)) DrawElement(element, surface.Dc());
    });
    const auto pixels = surface.Pixels();
    for (std::size_t at = 0; at < covered.size(); ++at) {
      if (pixels[at] != untouched) covered[at] = true;
    }
  }
  return covered;
}

}  // namespace

DiffSource::DiffSource(const std::string& path) : path_(path) {
  const std::string text = ReadTextFile(path, "file " + path);
  if (text.substr(0, kDatabaseMark.size()) == kDatabaseMark) return;
  if (!BeginsAnObject(text)) {
    throw UserError("file " + path +
                    " is neither a project nor a page file: it begins neither as a database file nor with {");
  }
  file_ = ReadPageFile(text, "page file " + path);
  file_->folder = FolderOf(path);
}

std::string DiffSource::Place() const { return (file_ ? "page file " : "project ") + path_; }

DiffSide::DiffSide(const DiffSource& source, const DiffSource& other) : source_(source) {
  const DiffSource& withProject = source.File() ? other : source;
  if (!withProject.File()) {
    project_.emplace(withProject.Path(), corvane1::ProjectMode::ReadOnly);
  } else {
    scratch_.emplace();
    project_.emplace(scratch_->File("empty.qz7"), corvane1::ProjectMode::Create);
  }
}

std::vector<PageInfo> DiffSide::Pages() {
  if (source_.File()) return {source_.File()->info};
  return Do([this] { return HostPages(project_->Connection()).All(); });
}

LoadedPage DiffSide::Load(const PageInfo& info, const Console& console) {
  const QuietBoxes quiet;
  if (!source_.File()) return Do([&] { return LoadPageAsFiled(*project_, info, console); });
  UsePanel(info.panel.type);
  LoadedPage page{info, {}, PicturesBehind(project_->Connection(), info.number)};
  for (const PageElement& element : source_.File()->elements) {
    AtPlace(ElementPlace(source_.Place(), page.elements.size() + 1, element.elementClass->name),
            [&] { page.elements.push_back(MakeElement(element, source_.File()->folder)); });
  }
  PutVariablesOnTop(page.elements);
  TakeTabIndices(page.elements);
  return page;
}

PageSnapshot DiffSide::Snapshot(const PageInfo& info, const Console& console) {
  const LoadedPage page = Load(info, console);
  if (source_.File()) return TakeSnapshot(page, {});
  return Do([&] { return TakeSnapshot(page, GuidsOf(project_->Connection(), info.number)); });
}

PaintedPage DiffSide::Paint(const PageInfo& info, const std::vector<bool>& differs, const Console& console) {
  return Do([&] {
    const LoadedPage page = Load(info, console);
    const QuietBoxes quiet;
    WalkElements(page.elements,
                 [](ItfHmiElement& element, const ElementPath&) { TakeLibrarysText(element); });
    return PaintedPage{RenderPage(page, console), Covered(page, differs)};
  });
}

}  // namespace quenzel7::cli
