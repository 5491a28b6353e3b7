#include "platform/corvane1/project_schema.h"

#include <algorithm>

#include "platform/automation/class_info.h"
#include "platform/automation/convert.h"

namespace quenzel7::corvane1 {
namespace {

/// Numbered by the database; a number never comes back.
constexpr std::string_view kRowNumber = "INTEGER PRIMARY KEY AUTOINCREMENT";
constexpr std::string_view kNumber = "INTEGER";
constexpr std::string_view kText = "TEXT";
constexpr std::string_view kBytes = "BLOB";
constexpr std::string_view kCurrency = "CURRENCY";

/// One row for each element of every page.
constexpr SchemaColumn kElements[] = {
    {"ID", kRowNumber},
    {"GUID", kNumber},
    {"Type", kNumber},
    {"Xs", kNumber},
    {"Ys", kNumber},
    {"Dx", kNumber},
    {"Dy", kNumber},
    {"DisplayID", kNumber},
    {"GroupID", kNumber},
    {"ColorBack", kNumber},
    {"ColorFore", kNumber},
    {"ColorBackTouch", kNumber},
    {"ColorForeTouch", kNumber},
    {"ColorHatch", kNumber},
    {"PenStyle", kNumber},
    {"PenWidth", kNumber},
    {"HatchStyle", kNumber},
    {"TouchOprndAddr", kNumber},
    {"VisibleOpAddr", kNumber},
    {"FontNumber", kNumber},
    {"DescriptionFontNumber", kNumber},
    {"Alignment", kNumber},
    {"Flat3D", kNumber},
    {"VarType", kNumber},
    {"VarKeyPadEntry", kNumber},
    {"VarOprndType", kNumber},
    {"VarOprndAddr", kNumber},
    {"GlobalVarID", kNumber},
    {"DefaultDisplay", kNumber},
    {"KeypadSuccessOpAddr", kNumber},
    {"EnabledOpAddr", kNumber},
    {"HighlightOpAddr", kNumber},
    {"TabIndex", kNumber},
    {"OrderIndex", kNumber},
    // Of texts and variables only.
    {"Text", kText},
    {"Binary", kBytes},
    {"StorageText", kNumber},
    {"StorageLibNum", kNumber},
    {"StrStorageOprndType", kNumber},
    {"StrStorageOprndAddr", kNumber},
    {"StrStorageFont", kNumber},
};

/// One row for each use of an operand by an element.
constexpr SchemaColumn kElementOperands[] = {
    {"ElementID", kNumber},  {"OprndType", kNumber},    {"OprndAddr", kNumber},
    {"OprndNetID", kNumber}, {"OprndPurpose", kNumber},
};

/// What has gone to the panel, by the element's unique number. The host writes it.
constexpr SchemaColumn kDownloads[] = {
    {"GUID", kNumber},
};

/// The operands that the project has.
constexpr SchemaColumn kOperands[] = {
    {"Type", kNumber}, {"Address", kNumber}, {"NetID", kNumber}, {"Comment", kText}, {"Value", kCurrency},
};

/// Defaults of new elements that differ from the usual ones.
constexpr SchemaColumn kSettings[] = {
    {"Section", kNumber},
    {"Key", kNumber},
    {"Value", kText},
};

/// The next number of each sequence of unique numbers.
constexpr SchemaColumn kNumbers[] = {
    {"Name", kText},
    {"Next", kNumber},
};

/// The languages of the string library, counted from 1.
constexpr SchemaColumn kLanguages[] = {
    {"Language", kNumber},
    {"Name", kText},
};

/// The texts of the string library, one row for each number and language.
constexpr SchemaColumn kStrings[] = {
    {"Number", kNumber},
    {"Language", kNumber},
    {"Text", kText},
    {"FontNumber", kNumber},
};

/// The pictures of the project, each once. Found by the CRC of its pixels on the panel.
constexpr SchemaColumn kImages[] = {
    {"Index", kRowNumber},
    {"CRC", kNumber},
    {"LibCRC", kNumber},
    {"Dx", kNumber},
    {"Dy", kNumber},
    {"DxORG", kNumber},
    {"DyORG", kNumber},
    {"Data8bpp", kBytes},
    {"Data8bppORG", kBytes},
    {"ImagePath", kText},
    {"RecordStatus", kNumber},
    // Tables that came from elsewhere may be older than pictures of 16 bits.
    {"Bits", kNumber, true},
};

/// One row for each picture of an element.
constexpr SchemaColumn kElementImages[] = {
    {"Element_ID", kNumber},
    {"Image_Index", kNumber},
    {"TransparencyLevel", kNumber},
    {"Image_CRC", kNumber},
};

/// One row for each picture behind a page.
constexpr SchemaColumn kPageImages[] = {
    {"Page_ID", kNumber},
    {"Image_Type", kNumber},
    {"TransparencyLevel", kNumber},
    {"Image_CRC", kNumber},
};

/// The modules that pages are sorted into. The host writes them, and the pages.
constexpr SchemaColumn kModules[] = {
    {"ModuleId", kNumber},
    {"ModuleName", kText},
};

constexpr SchemaColumn kPages[] = {
    {"Id", kNumber},
    {"ModuleID", kNumber},
    {"Description", kText},
};

constexpr SchemaTable kTables[] = {
    {"HMI_Elements", kElements, ""},
    {"HMI_Operands", kElementOperands, ""},
    {"DownloadDLUs", kDownloads, ""},
    {"Operands", kOperands, "Type, Address, NetID"},
    {"Settings", kSettings, "Section, Key"},
    {"Numbers", kNumbers, "Name"},
    {"StringLanguages", kLanguages, "Language", 2},
    {"LibraryStrings", kStrings, "Number, Language", 2},
    {"ProjectImages", kImages, "", 3},
    {"ElementsAndImages", kElementImages, "", 3},
    {"PagesAndImages", kPageImages, "", 3},
    {"DispModules", kModules, "ModuleId", 3},
    {"Pages", kPages, "Id", 3},
};

constexpr SchemaIndex kIndexes[] = {
    {"HMI_Elements_Order", "HMI_Elements", "DisplayID, OrderIndex"},
    {"HMI_Elements_Tab", "HMI_Elements", "DisplayID, TabIndex"},
    {"HMI_Operands_Element", "HMI_Operands", "ElementID, OprndType, OprndAddr"},
    {"DownloadDLUs_Guid", "DownloadDLUs", "GUID"},
    // Pictures are found in the order of their numbers, and their states and CRCs without looking at their
    // rows, where the pixels come first. Of one CRC those in use come before free ones, which have no pixels.
    // Of two indexes that serve alike the engine takes the one that was made last.
    {"ProjectImages_Status", "ProjectImages", "RecordStatus, \"Index\", CRC", 3},
    {"ProjectImages_Crc", "ProjectImages", "CRC, RecordStatus DESC, \"Index\"", 3},
    // The links of an element are found in the order in which they were made.
    {"ElementsAndImages_Element", "ElementsAndImages", "Element_ID", 3},
    {"ElementsAndImages_Place", "ElementsAndImages", "Image_Index, Element_ID", 3},
    {"ElementsAndImages_Crc", "ElementsAndImages", "Image_CRC", 3},
    {"PagesAndImages_Page", "PagesAndImages", "Page_ID, Image_Type", 3},
    {"PagesAndImages_Crc", "PagesAndImages", "Image_CRC", 3},
};

/// The columns of a table, parted by commas, each as `write` puts it.
template <class Write>
std::string ColumnList(const SchemaTable& table, Write write) {
  std::string text;
  for (const SchemaColumn& column : table.columns) {
    if (!text.empty()) text += ", ";
    text += write('"' + std::string(column.name) + '"', column.type);
  }
  return text;
}

std::string CreateTable(const SchemaTable& table) {
  std::string text = "CREATE TABLE ";
  text.append(table.name) += '(';
  text += ColumnList(
      table, [](const std::string& name, std::string_view type) { return (name + ' ').append(type); });
  if (!table.primaryKey.empty()) text.append(", PRIMARY KEY(").append(table.primaryKey) += ')';
  return text += ')';
}

std::string CreateIndex(const SchemaIndex& index) {
  std::string text = "CREATE INDEX ";
  text.append(index.name).append(" ON ").append(index.table) += '(';
  return text.append(index.columns) += ')';
}

/// A view of the connection's own in the table's place, with its columns and no row.
std::string CreateStandIn(const SchemaTable& table) {
  std::string text = "CREATE TEMP VIEW ";
  text.append(table.name) += " AS SELECT ";
  text += ColumnList(table, [](const std::string& name, std::string_view) { return "NULL AS " + name; });
  return text += " WHERE 0";
}

/// The texts in one column of what a statement gives.
std::vector<std::string> Texts(ado::Connection& connection, const std::string& statement) {
  std::vector<std::string> texts;
  for (const auto rows = connection.Execute(statement); !rows->Eof(); rows->MoveNext()) {
    texts.push_back(automation::To<std::string>(rows->Get("name")));
  }
  return texts;
}

/// The names of everything of that kind that the database has.
std::vector<std::string> NamesOf(ado::Connection& connection, const std::string& kind) {
  return Texts(connection, "SELECT name FROM sqlite_master WHERE type='" + kind + "'");
}

/// Whether that is the name of something that came after the version.
template <class Lists>
bool CameLater(const Lists& list, std::string_view name, Long version) {
  return std::any_of(std::begin(list), std::end(list), [&](const auto& entry) {
    return entry.since > version && automation::EqualFolded(entry.name, name);
  });
}

bool Contains(const std::vector<std::string>& names, std::string_view name) {
  return std::any_of(names.begin(), names.end(),
                     [name](const std::string& found) { return automation::EqualFolded(found, name); });
}

}  // namespace

std::span<const SchemaTable> ProjectTables() { return kTables; }

std::span<const SchemaIndex> ProjectIndexes() { return kIndexes; }

std::vector<std::string> ProjectSchemaStatements() {
  std::vector<std::string> statements = ProjectUpgradeStatements(0);
  statements.push_back("PRAGMA application_id=" + std::to_string(kProjectApplicationId));
  return statements;
}

std::vector<std::string> ProjectUpgradeStatements(Long fromVersion) {
  if (fromVersion >= kProjectVersion) return {};
  std::vector<std::string> statements;
  for (const SchemaTable& table : kTables) {
    if (table.since > fromVersion) statements.push_back(CreateTable(table));
  }
  for (const SchemaIndex& index : kIndexes) {
    if (index.since > fromVersion) statements.push_back(CreateIndex(index));
  }
  statements.push_back("PRAGMA user_version=" + std::to_string(kProjectVersion));
  return statements;
}

std::vector<std::string> ProjectStandInStatements(Long fromVersion) {
  std::vector<std::string> statements;
  for (const SchemaTable& table : kTables) {
    if (table.since > fromVersion) statements.push_back(CreateStandIn(table));
  }
  return statements;
}

Long ProjectVersionOf(ado::Connection& connection) {
  return automation::To<Long>(connection.Execute("PRAGMA user_version")->Get("user_version"));
}

std::string MissingFromProject(ado::Connection& connection, Long version) {
  for (const SchemaTable& table : kTables) {
    if (table.since > version) continue;
    const std::string name(table.name);
    const auto columns = Texts(connection, "PRAGMA table_info(" + name + ")");
    if (columns.empty()) return "table " + name;
    for (const SchemaColumn& column : table.columns) {
      if (!column.optional && !Contains(columns, column.name))
        return "column '" + std::string(column.name) + "' of table " + name;
    }
  }
  const auto indexes = NamesOf(connection, "index");
  for (const SchemaIndex& index : kIndexes) {
    if (index.since <= version && !Contains(indexes, index.name)) {
      return "index " + std::string(index.name) + " of table " + std::string(index.table);
    }
  }
  return {};
}

std::string InTheWayOfLaterTables(ado::Connection& connection, Long version) {
  // These share their names.
  for (const char* kind : {"table", "view", "index"}) {
    for (const std::string& name : NamesOf(connection, kind)) {
      if (CameLater(kTables, name, version) || CameLater(kIndexes, name, version)) {
        return std::string(kind) + " " + name;
      }
    }
  }
  return {};
}

}  // namespace quenzel7::corvane1
