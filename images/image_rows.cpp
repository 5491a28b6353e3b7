#include "images/image_rows.h"

#include <array>
#include <optional>
#include <span>

#include "framework/project.h"
#include "images/image_compression.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"

namespace quenzel7 {
namespace {

using automation::Variant;

/// What a column of a free row holds: a number, or Null. Its "CRC" stays, so that the picture can come back
/// to the row.
struct FreeColumn {
  std::string_view name;
  std::optional<Long> number;
};

constexpr FreeColumn kLibCrc{"LibCRC", -1};
constexpr FreeColumn kDx{"Dx", 0}, kDy{"Dy", 0}, kPath{"ImagePath", {}}, kData{"Data8bpp", {}};
constexpr FreeColumn kDxOrg{"DxORG", 0}, kDyOrg{"DyORG", 0}, kDataOrg{"Data8bppORG", {}};
constexpr FreeColumn kStatus{"RecordStatus", kFreeImage};

constexpr std::array kPanelPixelsFirst = {kLibCrc, kDx, kDy, kPath, kData, kDxOrg, kDyOrg, kDataOrg, kStatus};
constexpr std::array kOriginalPixelsFirst = {kLibCrc, kDxOrg, kDyOrg, kDataOrg, kDx,
                                             kDy,     kPath,  kData,  kStatus};

std::string FreeingStatement(std::span<const FreeColumn> columns, const std::string& condition) {
  std::string text = "UPDATE ProjectImages SET ";
  for (const FreeColumn& column : columns) {
    if (&column != &columns.front()) text += ",";
    text.append(column.name).append("=").append(column.number ? std::to_string(*column.number) : "NULL");
  }
  return text + " WHERE " + condition;
}

constexpr const char* kIsOrphan =
    "RecordStatus=3 AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM ElementsAndImages)"
    " AND CRC NOT IN (SELECT DISTINCT Image_CRC FROM PagesAndImages)";

Long LinksTo(const std::string& table, const std::string& crc) {
  return CountOf("SELECT COUNT(*) AS NumOfImages FROM " + table + " WHERE Image_CRC=" + crc, "NumOfImages");
}

}  // namespace

ado::RecordsetRef OpenImageRows(const std::string& query, ado::CursorType cursor) {
  return ado::OpenRecordset(*ProjectConnection(), query, cursor, ado::adLockOptimistic, ado::adCmdText);
}

std::string ImageQuery(const std::string& columns, Long crc) {
  return "SELECT " + columns + " FROM ProjectImages WHERE CRC=" + std::to_string(crc);
}

std::string ImageInUseQuery(const std::string& columns, Long crc) {
  return ImageQuery(columns, crc) + " AND RecordStatus=3";
}

bool ReadFirstImageRow(const std::string& query, const std::function<void(const ado::Recordset&)>& read) {
  const ado::RecordsetRef rows = OpenImageRows(query, ado::adOpenForwardOnly);
  const bool found = !rows->Eof();
  if (found) read(*rows);
  rows->Close();
  return found;
}

Long NumberIn(const ado::Recordset& row, std::string_view column) {
  try {
    return automation::To<Long>(row.Get(column));
  } catch (const automation::AutomationError& error) {
    throw error.In("column '" + std::string(column) + "'");
  }
}

std::string TextIn(const ado::Recordset& row, std::string_view column) {
  const Variant value = row.Get(column);
  return value.IsNull() ? std::string() : automation::To<std::string>(value);
}

PixelBytes PixelsIn(const ado::Recordset& row, std::string_view column) {
  const Variant value = row.Get(column);
  if (value.IsNull()) return {};
  return UnCompressData(automation::To<PixelBytes>(value));
}

Long BitsIn(const ado::Recordset& row) { return row.Get("Bits").IsNull() ? 0 : NumberIn(row, "Bits"); }

Long CountOf(const std::string& query, std::string_view column) {
  const ado::RecordsetRef rows = ProjectConnection()->Execute(query);
  const Long count = NumberIn(*rows, column);
  rows->Close();
  return count;
}

void FreeImageRow(ado::Recordset& row) {
  for (const FreeColumn& column : kOriginalPixelsFirst) {
    row.Put(column.name, column.number ? Variant(*column.number) : Variant(automation::NullValue{}));
  }
  row.Update();
}

std::string OrphanImagesQuery() { return std::string("SELECT * FROM ProjectImages WHERE ") + kIsOrphan; }

void FreeFirstOrphanImage() {
  const ado::RecordsetRef orphans = OpenImageRows(OrphanImagesQuery(), ado::adOpenDynamic);
  if (!orphans->Eof()) FreeImageRow(*orphans);
  orphans->Close();
}

void FreeImageWithoutLinks(Long crc, FreeingOrder order) {
  const std::string key = std::to_string(crc);
  const Long onElements = LinksTo("ElementsAndImages", key);
  const Long onPages = LinksTo("PagesAndImages", key);
  if (onElements + onPages != 0) return;
  const std::span<const FreeColumn> columns =
      order == FreeingOrder::PanelPixelsFirst ? kPanelPixelsFirst : kOriginalPixelsFirst;
  ProjectConnection()->Execute(FreeingStatement(columns, "CRC=" + key + " AND RecordStatus=3"));
}

bool MoveImageRow(Long index) {
  const std::string row = " WHERE Index=" + std::to_string(index) + " AND RecordStatus IN (2,3)";
  if (!ReadFirstImageRow("SELECT CRC FROM ProjectImages" + row, [](const ado::Recordset&) {})) return false;
  // A row that is made and goes again reserves a number that no later picture gets. It is a free one, lest
  // more than that stays behind when something fails here.
  const ado::RecordsetRef reserved = OpenImageRows(kNoImageRowsQuery, ado::adOpenDynamic);
  reserved->AddNew();
  reserved->Put(kStatus.name, *kStatus.number);
  reserved->Update();
  const Long behindAll = NumberIn(*reserved, "Index");
  reserved->Delete();
  reserved->Close();
  ProjectConnection()->Execute("UPDATE ProjectImages SET Index=" + std::to_string(behindAll) + row);
  return true;
}

void TrimImageRows() {
  std::optional<Long> highest, before;
  do {
    before = highest;
    const ado::RecordsetRef rows =
        OpenImageRows("SELECT Max(Index) AS MaxIndex FROM ProjectImages", ado::adOpenForwardOnly);
    if (!rows->Get("MaxIndex").IsNull()) {
      highest = NumberIn(*rows, "MaxIndex");
      ProjectConnection()->Execute("DELETE * FROM ProjectImages WHERE Index=" + std::to_string(*highest) +
                                   " AND RecordStatus=2");
    }
    rows->Close();
  } while (highest != before);
}

void CollectOrphanImages() {
  const ado::RecordsetRef orphans = OpenImageRows(OrphanImagesQuery(), ado::adOpenDynamic);
  ForEachRow(*orphans, FreeImageRow);
  orphans->Close();
  TrimImageRows();
}

void CollectOrphanImagesAtOnce() {
  ProjectConnection()->Execute(FreeingStatement(kPanelPixelsFirst, std::string("( ") + kIsOrphan + ")"));
  TrimImageRows();
}

}  // namespace quenzel7
