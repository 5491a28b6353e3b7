#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "framework/element_contract.h"
#include "hosts/cli/page_file.h"
#include "platform/ado/connection.h"
#include "platform/automation/automation_error.h"

/// The tables that this host keeps in a project beside those of the library.
namespace quenzel7::cli {

/// Whether the project has a table of that name: one that another host made has none of this host's, one of
/// an older version not all of the library's.
bool HasTable(ado::Connection& connection, const std::string& table);

/// A page as it was imported.
struct KeptPage {
  PageInfo info;
  /// The page file as it was.
  std::string source;
  /// All properties of all elements as they were after the import, in the form of a page file.
  std::string imported;
};

/// The table HostPages: name and panel of each page, and the page file that it came from.
class HostPages {
 public:
  explicit HostPages(ado::Connection& connection) : connection_(connection) {}

  /// Makes the table where it is not there yet.
  void Create();
  /// The page of that number, if it was imported. Errors of its row, with its place.
  std::optional<KeptPage> Find(Long number) const;
  /// Whether there is a row of that number, good or not.
  bool Has(Long number) const;
  /// How messages call the row of that number.
  static std::string PlaceOf(Long number);
  /// Throws UserError when the page file of a kept page is none, or that of another page.
  static void RequireSource(const KeptPage& page);
  /// Keeps a page in place of the one that had its number.
  void Keep(const KeptPage& page);
  /// What is told of a row that is no page: its number in the table and the error.
  using Wrong = std::function<void(const std::string& row, const automation::AutomationError& error)>;
  /// The pages that the table has, by number; rows that are none are told to `wrong` and left out.
  std::vector<PageInfo> Kept(const Wrong& wrong) const;
  /// All pages of the project by number, those that another host made with their number only.
  std::vector<PageInfo> All() const;

 private:
  ado::Connection& connection_;
};

/// The table HostGroups: the places of groups without members. Other groups stand where their lowest member
/// stands, and the library keeps no order for any.
class HostGroups {
 public:
  explicit HostGroups(ado::Connection& connection);

  /// Makes the table where it is not there yet.
  void Create();
  /// Keeps the place of a saved group, in place of one kept before: just below the element that has, or will
  /// have, that OrderIndex.
  void Keep(Long groupId, Long orderIndex);
  /// The place kept for a group.
  std::optional<Long> Find(Long groupId) const;
  /// Forgets the place of a group.
  void Forget(Long groupId);

 private:
  ado::Connection& connection_;
  /// A project of another host may be without the table.
  bool exists_;
};

/// The table HostProperties: the properties that the library does not keep in an element's row
/// (Mark::NotStored), where they differ from those of a new element. Values are written as in page files.
class HostProperties {
 public:
  explicit HostProperties(ado::Connection& connection);

  /// Makes the table where it is not there yet.
  void Create();
  /// Keeps the properties of a saved element in place of those kept before.
  void Keep(ItfHmiElement& element);
  /// Sets the kept properties of a loaded element. Throws UserError naming a property that cannot be set.
  void Apply(ItfHmiElement& element) const;
  /// Forgets the properties of an element.
  void Forget(Long elementId);

 private:
  ado::Connection& connection_;
  /// A project of another host may be without the table.
  bool exists_;
};

}  // namespace quenzel7::cli
