#include "hosts/cli/picture_check.h"

#include "hosts/cli/element_picture.h"
#include "hosts/cli/host_tables.h"
#include "images/image_rows.h"
#include "platform/gdi/owned.h"

namespace quenzel7::cli {
namespace {

std::string SizeText(Long dx, Long dy) { return "(" + std::to_string(dx) + ", " + std::to_string(dy) + ")"; }

/// What stands for no picture, or for one without pixels.
bool IsNoPicture(Long crc) { return crc == kNoImage || crc == kPaintedImage; }

std::map<Long, StoredPicture> PicturesInUse(ado::Connection& connection) {
  std::map<Long, StoredPicture> pictures;
  for (const StoredPicture& picture : StoredPictures(connection)) {
    if (picture.status == kImageInUse) pictures.try_emplace(picture.crc, picture);
  }
  return pictures;
}

}  // namespace

PictureCheck::PictureCheck(ado::Connection& connection) : pictures_(PicturesInUse(connection)) {}

std::vector<std::string> PictureCheck::Check(ItfHmiElement& element) const {
  if (!PictureInterfaceOf(element.Class())) return {};
  const Long crc = PictureCrcOf(element);
  if (IsNoPicture(crc)) return {};
  const std::string name = "picture " + std::to_string(crc);
  const auto found = pictures_.find(crc);
  if (found == pictures_.end()) {
    return {name + " is not in ProjectImages; the CRC of a row in use was expected"};
  }
  const auto [dx, dy, bits] = MeasureOf(element);
  const PixelBytes pixels = PanelPixelsOf(element);
  if (IsImageDataValid(pixels, dx, dy, bits)) return {};
  return {name + " has " + std::to_string(pixels.size()) + " bytes of pixels for size " +
          SizeText(found->second.dx, found->second.dy) + "; pixels of size " + SizeText(dx, dy) +
          " were expected"};
}

std::vector<std::string> CheckPictureTables(ado::Connection& connection, const std::set<Long>& elements) {
  std::vector<std::string> findings;
  const std::map<Long, StoredPicture> pictures = PicturesInUse(connection);
  std::set<Long> linked;
  for (const PictureLink& link : PictureLinks(connection)) {
    linked.insert(link.crc);
    const std::string place = (link.isOfPage ? "PagesAndImages, page " : "ElementsAndImages, element ") +
                              std::to_string(link.owner) + (link.isOfPage ? ", type " : ", index ") +
                              std::to_string(link.place);
    if (!link.isOfPage && elements.count(link.owner) == 0) {
      findings.push_back(place + ": Element_ID names no row; the ID of a row of HMI_Elements was expected");
    }
    if (!IsNoPicture(link.crc) && pictures.count(link.crc) == 0) {
      findings.push_back(place + ": Image_CRC " + std::to_string(link.crc) +
                         " names no picture; the CRC of a row of ProjectImages in use was expected");
    }
  }
  for (const StoredPicture& picture : StoredPictures(connection)) {
    if (picture.status != kImageInUse || linked.count(picture.crc) > 0) continue;
    findings.push_back("ProjectImages, row " + std::to_string(picture.index) + " (CRC " +
                       std::to_string(picture.crc) +
                       "): is in use, and no element and no page has it; a link was expected");
  }
  return findings;
}

std::vector<std::string> CheckPictureFiles(ado::Connection& connection) {
  std::vector<std::string> notes;
  std::set<std::string> told;
  if (!HasTable(connection, "ProjectImages")) return notes;
  const auto rows = ado::OpenRecordset(
      connection, "SELECT ImagePath, LibCRC FROM ProjectImages WHERE RecordStatus=3 ORDER BY [Index]",
      ado::adOpenStatic, ado::adLockReadOnly);
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::string path = TextIn(*rows, "ImagePath");
    if (path.empty() || !told.insert(path).second) continue;
    Long status = loomis2::kImageDone;
    const gdi::OwnedBitmap bitmap(
        CurrentImageLibrary()->LoadResizedImage(path, NumberIn(*rows, "LibCRC"), 1, 1, status));
    if (status == loomis2::kImageDone) continue;
    notes.push_back(
        "picture file " + path +
        (status == loomis2::kImageFileNotFound ? " is not there" : " cannot be read or is another one now") +
        ": its pictures are made from the pixels in the project when their size changes");
  }
  return notes;
}

}  // namespace quenzel7::cli
