#include "hosts/cli/host_tables.h"

#include <algorithm>
#include <map>

#include "hosts/cli/element_calls.h"
#include "hosts/cli/json_document.h"
#include "hosts/cli/page_properties.h"
#include "hosts/cli/property_values.h"
#include "hosts/cli/table_column.h"
#include "hosts/cli/user_error.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"

namespace quenzel7::cli {
namespace {

using automation::AutomationError;
using automation::ErrorNumber;
using automation::Member;
using automation::To;

ado::RecordsetRef Query(ado::Connection& connection, const std::string& statement) {
  return ado::OpenRecordset(connection, statement, ado::adOpenStatic, ado::adLockReadOnly);
}

/// A table with one new row to fill.
ado::RecordsetRef NewRow(ado::Connection& connection, const std::string& table) {
  auto row = ado::OpenRecordset(connection, "SELECT * FROM " + table + " WHERE 0=1", ado::adOpenStatic,
                                ado::adLockOptimistic);
  row->AddNew();
  return row;
}

constexpr const char* kPages = "HostPages";
constexpr const char* kGroups = "HostGroups";
constexpr const char* kProperties = "HostProperties";

Long PanelSize(const ado::Recordset& row, std::string_view column) {
  const Long size = ReadColumn<Long>(row, kPages, column);
  if (size >= 1 && size <= kLargestPanel) return size;
  throw AutomationError(ErrorNumber::InvalidPropertyValue,
                        "column '" + std::string(column) + "' of HostPages: " + std::to_string(size) +
                            " was found; a number of pixels from 1 to " + std::to_string(kLargestPanel) +
                            " was expected");
}

PageInfo InfoOf(const ado::Recordset& row) {
  PageInfo info;
  info.number = ReadColumn<Long>(row, kPages, "DisplayID");
  info.name = ReadColumn<std::string>(row, kPages, "Name");
  info.panel = {ReadColumn<Long>(row, kPages, "PanelType"), PanelSize(row, "Width"),
                PanelSize(row, "Height")};
  return info;
}

/// The properties of a class that HostProperties keeps.
std::vector<const Member*> KeptProperties(const automation::ClassInfo& elementClass) {
  std::vector<const Member*> properties = PageProperties(elementClass);
  std::erase_if(properties,
                [](const Member* property) { return property->mark != automation::Mark::NotStored; });
  return properties;
}

std::string OfPage(Long number) { return " WHERE DisplayID=" + std::to_string(number); }

std::string OfElement(Long id) { return " WHERE ElementID=" + std::to_string(id); }

}  // namespace

bool HasTable(ado::Connection& connection, const std::string& table) {
  return !Query(connection, "SELECT name FROM sqlite_master WHERE type='table' AND name='" + table + "'")
              ->Eof();
}

void HostPages::Create() {
  connection_.Execute(
      "CREATE TABLE IF NOT EXISTS HostPages (DisplayID INTEGER NOT NULL UNIQUE, Name TEXT NOT NULL, "
      "PanelType INTEGER NOT NULL, Width INTEGER NOT NULL, Height INTEGER NOT NULL, Source TEXT NOT NULL, "
      "Imported TEXT NOT NULL)");
}

std::optional<KeptPage> HostPages::Find(Long number) const {
  if (!HasTable(connection_, kPages)) return {};
  const auto row = Query(connection_, "SELECT * FROM HostPages" + OfPage(number));
  if (row->Eof()) return {};
  try {
    return KeptPage{InfoOf(*row), ReadColumn<std::string>(*row, kPages, "Source"),
                    ReadColumn<std::string>(*row, kPages, "Imported")};
  } catch (const AutomationError& error) {
    throw error.In(PlaceOf(number));
  }
}

bool HostPages::Has(Long number) const {
  return HasTable(connection_, kPages) &&
         !Query(connection_, "SELECT DisplayID FROM HostPages" + OfPage(number))->Eof();
}

std::string HostPages::PlaceOf(Long number) { return "page " + std::to_string(number) + " of HostPages"; }

void HostPages::RequireSource(const KeptPage& page) {
  const std::string place = PlaceOf(page.info.number) + ": column 'Source' of HostPages";
  const Long number = ReadPageFile(page.source, place).info.number;
  if (number == page.info.number) return;
  throw UserError(place + ": holds page " + std::to_string(number));
}

void HostPages::Keep(const KeptPage& page) {
  connection_.Execute("DELETE * FROM HostPages" + OfPage(page.info.number));
  const auto row = NewRow(connection_, kPages);
  row->Put("DisplayID", page.info.number);
  row->Put("Name", page.info.name);
  row->Put("PanelType", page.info.panel.type);
  row->Put("Width", page.info.panel.width);
  row->Put("Height", page.info.panel.height);
  row->Put("Source", page.source);
  row->Put("Imported", page.imported);
  row->Update();
}

std::vector<PageInfo> HostPages::Kept(const Wrong& wrong) const {
  std::vector<PageInfo> pages;
  if (!HasTable(connection_, kPages)) return pages;
  const auto rows =
      Query(connection_,
            "SELECT DisplayID, Name, PanelType, Width, Height, rowid AS RowNumber FROM HostPages "
            "ORDER BY DisplayID, rowid");
  for (; !rows->Eof(); rows->MoveNext()) {
    try {
      pages.push_back(InfoOf(*rows));
    } catch (const AutomationError& error) {
      wrong(To<std::string>(rows->Get("RowNumber")), error);
    }
  }
  return pages;
}

std::vector<PageInfo> HostPages::All() const {
  std::map<Long, PageInfo> pages;
  const auto used = Query(connection_, "SELECT DISTINCT DisplayID FROM HMI_Elements");
  for (; !used->Eof(); used->MoveNext()) {
    const automation::Variant number = used->Get("DisplayID");
    if (number.IsNull()) {
      throw AutomationError(ErrorNumber::InvalidUseOfNull, "a row of HMI_Elements stands on no page");
    }
    PageInfo info;
    info.number = To<Long>(number);
    pages[info.number] = info;
  }
  const auto raise = [](const std::string& row, const AutomationError& error) {
    throw error.In("HostPages, row " + row);
  };
  for (const PageInfo& info : Kept(raise)) pages[info.number] = info;
  std::vector<PageInfo> all;
  for (const auto& [number, info] : pages) all.push_back(info);
  return all;
}

HostGroups::HostGroups(ado::Connection& connection)
    : connection_(connection), exists_(HasTable(connection, kGroups)) {}

void HostGroups::Create() {
  connection_.Execute(
      "CREATE TABLE IF NOT EXISTS HostGroups (ElementID INTEGER NOT NULL UNIQUE, OrderIndex INTEGER NOT "
      "NULL)");
  exists_ = true;
}

void HostGroups::Keep(Long groupId, Long orderIndex) {
  Forget(groupId);
  const auto row = NewRow(connection_, kGroups);
  row->Put("ElementID", groupId);
  row->Put("OrderIndex", orderIndex);
  row->Update();
}

std::optional<Long> HostGroups::Find(Long groupId) const {
  if (!exists_) return {};
  const auto row = Query(connection_, "SELECT * FROM HostGroups" + OfElement(groupId));
  if (row->Eof()) return {};
  return ReadColumn<Long>(*row, kGroups, "OrderIndex");
}

void HostGroups::Forget(Long groupId) {
  connection_.Execute("DELETE * FROM HostGroups" + OfElement(groupId));
}

HostProperties::HostProperties(ado::Connection& connection)
    : connection_(connection), exists_(HasTable(connection, kProperties)) {}

void HostProperties::Create() {
  connection_.Execute(
      "CREATE TABLE IF NOT EXISTS HostProperties (ElementID INTEGER NOT NULL, Property TEXT NOT NULL, "
      "Value TEXT NOT NULL, UNIQUE (ElementID, Property))");
  exists_ = true;
}

void HostProperties::Keep(ItfHmiElement& element) {
  const Long id = IdOf(element);
  Forget(id);
  ElementRef fresh;
  for (const Member* property : KeptProperties(element.Class())) {
    if (!fresh) fresh = ElementClasses::Create(element.Class());
    const automation::Variant value = automation::GetByName(element, property->name);
    if (value == automation::GetByName(*fresh, property->name)) continue;
    const auto row = NewRow(connection_, kProperties);
    row->Put("ElementID", id);
    row->Put("Property", property->name);
    row->Put("Value", JsonFromValue(property->type, value).dump());
    row->Update();
  }
}

void HostProperties::Apply(ItfHmiElement& element) const {
  if (!exists_) return;
  const auto row = Query(connection_, "SELECT * FROM HostProperties" + OfElement(IdOf(element)));
  const std::vector<const Member*> kept = KeptProperties(element.Class());
  for (; !row->Eof(); row->MoveNext()) {
    const auto name = ReadColumn<std::string>(*row, kProperties, "Property");
    AtPlace("property " + Quoted(name) + " in HostProperties", [&] {
      const Member* property = element.Class().Default().Find(name);
      if (!property) throw UserError("does not exist");
      if (std::find(kept.begin(), kept.end(), property) == kept.end()) {
        throw UserError("cannot be set: it is none of those that are kept there");
      }
      const Json value = ParseJson(ReadColumn<std::string>(*row, kProperties, "Value"), "value");
      automation::PutByName(element, name, ValueFromJson(property->type, value));
    });
  }
}

void HostProperties::Forget(Long elementId) {
  connection_.Execute("DELETE * FROM HostProperties" + OfElement(elementId));
}

}  // namespace quenzel7::cli
