#include "hosts/cli/picture_check.h"

#include "hosts/cli/element_picture.h"
#include "hosts/cli/host_tables.h"
#include "images/image_compression.h"
#include "images/image_rows.h"
#include "platform/automation/convert.h"
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

/// One kind of pixels of a row: how messages call them, and where they are.
struct Pixels {
  const char* name;
  const char* column;
  Long StoredPicture::*dx;
  Long StoredPicture::*dy;
};

constexpr Pixels kPixels[] = {
    {"pixels", "Data8bpp", &StoredPicture::dx, &StoredPicture::dy},
    {"original pixels", "Data8bppORG", &StoredPicture::dxOrg, &StoredPicture::dyOrg}};

/// What is wrong with a row in use in itself.
std::vector<std::string> CheckRow(ado::Connection& connection, const StoredPicture& picture) {
  std::vector<std::string> findings;
  if (picture.bits != 0 && picture.bits != kTwoBytePixels) {
    findings.push_back("has Bits " + std::to_string(picture.bits) + "; 0 or 16 was expected");
  }
  const auto row = ado::OpenRecordset(
      connection,
      "SELECT Data8bpp, Data8bppORG FROM ProjectImages WHERE [Index]=" + std::to_string(picture.index),
      ado::adOpenStatic, ado::adLockReadOnly);
  for (const Pixels& kind : kPixels) {
    const Long dx = picture.*kind.dx, dy = picture.*kind.dy;
    const std::string size = SizeText(dx, dy);
    if (dx < 0 || dy < 0) {
      findings.push_back(std::string("has size ") + size + " of its " + kind.name +
                         "; one of 0 or more was expected");
      continue;
    }
    const automation::Variant stored = row->Get(kind.column);
    const PixelBytes packed = stored.IsNull() ? PixelBytes() : automation::To<PixelBytes>(stored);
    const PixelBytes pixels = PixelsIn(*row, kind.column);
    if (pixels.empty() && !packed.empty() && packed != CompressData({})) {
      findings.push_back(std::string("its ") + kind.name + " do not unpack; pixels of size " + size +
                         " were expected");
    } else if (!IsImageDataValid(pixels, dx, dy, picture.bits)) {
      findings.push_back("has " + std::to_string(pixels.size()) + " bytes of " + kind.name +
                         "; those of size " + size + " were expected");
    }
  }
  return findings;
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
  std::map<Long, Long> rows;
  for (const StoredPicture& picture : StoredPictures(connection)) {
    if (picture.status != kImageInUse) continue;
    const auto tell = [&](const std::string& wrong) {
      findings.push_back("ProjectImages, row " + std::to_string(picture.index) + " (CRC " +
                         std::to_string(picture.crc) + "): " + wrong);
    };
    if (linked.count(picture.crc) == 0) {
      tell("is in use, and no element and no page has it; a link was expected");
    }
    const auto [first, isNew] = rows.try_emplace(picture.crc, picture.index);
    if (!isNew) {
      tell("row " + std::to_string(first->second) + " is in use with this CRC, too; one was expected");
    }
    if (IsNoPicture(picture.crc)) continue;
    for (const std::string& wrong : CheckRow(connection, picture)) tell(wrong);
  }
  return findings;
}

std::vector<std::string> CheckPicturePages(ado::Connection& connection, const std::set<Long>& pages) {
  std::set<Long> missing;
  for (const PictureLink& link : PictureLinks(connection)) {
    if (link.isOfPage && pages.count(link.owner) == 0) missing.insert(link.owner);
  }
  std::vector<std::string> notes;
  for (const Long page : missing) {
    notes.push_back("page " + std::to_string(page) + " has pictures behind it, and is not there");
  }
  return notes;
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
        "picture file " + PictureName(path) +
        (status == loomis2::kImageFileNotFound ? " is not there" : " cannot be read or is another one now") +
        ": its pictures are made from the pixels in the project when their size changes");
  }
  return notes;
}

}  // namespace quenzel7::cli
