#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/cli/console.h"
#include "hosts/cli/page_file.h"
#include "hosts/cli/project_session.h"
#include "hosts/cli/stored_pictures.h"

namespace quenzel7::cli {

/// A page with its elements, the lowest first. Groups hold their members (MembersOf); all elements are
/// visited by WalkElements.
struct LoadedPage {
  PageInfo info;
  std::vector<ElementRef> elements;
  /// The pictures that lie behind it, the lowest first.
  std::vector<BackPicture> pictures = {};
};

/// The page of that number, or the only page without `number`. Throws UserError that tells the pages that
/// there are.
PageInfo ChoosePage(ProjectSession& project, std::optional<Long> number);

/// Loads the elements of a page, with the properties that the host keeps for them, and puts members into
/// their groups. Throws UserError naming a row that does not load.
LoadedPage LoadPage(ProjectSession& project, const PageInfo& info, const Console& console,
                    const ElementClasses& classes = ElementClasses::All());

/// As LoadPage, but elements that show a string of the library have the text and font of their rows, as a
/// page file tells them.
LoadedPage LoadPageAsFiled(ProjectSession& project, const PageInfo& info, const Console& console);

/// Loads those elements of a page whose rows load.
LoadedPage LoadGoodRows(ProjectSession& project, const PageInfo& info, const Console& console);

/// As LoadPage, but of rows that do not load a finding tells, in the words of a check, by ID.
LoadedPage LoadPageTelling(ProjectSession& project, const PageInfo& info, const Console& console,
                           std::vector<std::string>& findings);

/// What an import did.
struct ImportResult {
  /// Whether the project had the page before, and with how many rows of elements, those that do not load
  /// among them.
  bool replaced = false;
  std::size_t elementsBefore = 0;
};

/// Brings a page file into a project, in place of the page of its number if there is one, in one transaction.
/// Rows of that page that do not load, or that the library cannot delete, go with it.
/// `source` is the text of the file and `place` how messages call it. Throws UserError; the project is then
/// as it was.
ImportResult ImportPage(ProjectSession& project, const PageFile& page, std::string_view source,
                        const std::string& place, const Console& console);

/// The page file of a page.
struct ExportedPage {
  std::string text;
  /// Whether it is the text that was imported.
  bool isAsImported = false;
};

/// The page file of a page, loaded by LoadPageAsFiled: the text that was imported when the page is still what
/// it said, else the canonical one.
ExportedPage ExportPage(ProjectSession& project, const LoadedPage& page);

/// Saves a changed element of the open page, with all that is in it when it is a group, and the properties
/// that the host keeps.
void SaveElement(ProjectSession& project, ItfHmiElement& element);

/// Deletes an element of the open page, with all that is in it when it is a group, and what the host keeps.
void DeleteElement(ProjectSession& project, ItfHmiElement& element);

/// Brings a deleted element back as an undo does: in new rows, at the old places in the drawing order and in
/// the groups, with its operands. A group without members comes back on top.
void RestoreElement(ProjectSession& project, ItfHmiElement& element);

}  // namespace quenzel7::cli
