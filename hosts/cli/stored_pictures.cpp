#include "hosts/cli/stored_pictures.h"

#include "hosts/cli/host_tables.h"
#include "hosts/cli/table_column.h"
#include "images/image_queries.h"
#include "images/image_rows.h"

namespace quenzel7::cli {
namespace {

constexpr const char* kImages = "ProjectImages";

ado::RecordsetRef Query(ado::Connection& connection, const std::string& statement) {
  return ado::OpenRecordset(connection, statement, ado::adOpenStatic, ado::adLockReadOnly);
}

/// A table of links: whose they are, and by which columns they are found.
struct LinkTable {
  const char* name;
  bool isOfPage;
  const char* owner;
  const char* place;
};

constexpr LinkTable kOfElements = {"ElementsAndImages", false, "Element_ID", "Image_Index"};
constexpr LinkTable kOfPages = {"PagesAndImages", true, "Page_ID", "Image_Type"};

/// Adds the links of a table that meet a condition.
void AddLinks(std::vector<PictureLink>& links, ado::Connection& connection, const LinkTable& table,
              const std::string& condition = {}) {
  if (!HasTable(connection, table.name)) return;
  const auto rows = Query(connection, "SELECT * FROM " + std::string(table.name) + condition + " ORDER BY " +
                                          table.owner + ", " + table.place);
  for (; !rows->Eof(); rows->MoveNext()) {
    const auto number = [&](const char* column) { return ReadColumn<Long>(*rows, table.name, column); };
    links.push_back({table.isOfPage, number(table.owner), number(table.place), number("Image_CRC"),
                     number("TransparencyLevel")});
  }
}

}  // namespace

std::vector<StoredPicture> StoredPictures(ado::Connection& connection) {
  std::vector<StoredPicture> pictures;
  if (!HasTable(connection, kImages)) return pictures;
  const auto rows = Query(connection,
                          "SELECT [Index], CRC, RecordStatus, Dx, Dy, DxORG, DyORG, Bits, ImagePath FROM "
                          "ProjectImages ORDER BY [Index]");
  for (; !rows->Eof(); rows->MoveNext()) {
    const auto number = [&rows](const char* column) { return ReadColumn<Long>(*rows, kImages, column); };
    pictures.push_back({number("Index"), number("CRC"), number("RecordStatus"), number("Dx"), number("Dy"),
                        number("DxORG"), number("DyORG"), BitsIn(*rows), TextIn(*rows, "ImagePath")});
  }
  return pictures;
}

std::string StateText(Long status) {
  switch (status) {
    case kSystemImageRead:
    case kSystemImageWritten:
      return "system";
    case kFreeImage:
      return "free";
    case kImageInUse:
      return "in use";
    default:
      return std::to_string(status);
  }
}

std::vector<PictureLink> PictureLinks(ado::Connection& connection) {
  std::vector<PictureLink> links;
  AddLinks(links, connection, kOfElements);
  AddLinks(links, connection, kOfPages);
  return links;
}

std::vector<PictureLink> PageLinks(ado::Connection& connection, Long page) {
  std::vector<PictureLink> links;
  AddLinks(links, connection, kOfPages, " WHERE Page_ID=" + std::to_string(page));
  return links;
}

std::vector<BackPicture> PicturesBehind(ado::Connection& connection, Long page) {
  std::vector<BackPicture> pictures;
  for (const PictureLink& link : PageLinks(connection, page)) {
    BackPicture picture{0, 0, GetImageBitsByCRC(link.crc), link.transparency, {}};
    GetImageRecord(link.crc, picture.pixels, picture.dx, picture.dy);
    if (!picture.pixels.empty()) pictures.push_back(std::move(picture));
  }
  return pictures;
}

}  // namespace quenzel7::cli
