#include "images/image_saving.h"

#include <span>

#include "images/corrupted_image.h"
#include "images/image_compression.h"
#include "images/image_links.h"
#include "platform/automation/convert.h"

namespace quenzel7 {
namespace {

using automation::From;
using automation::Variant;

/// A column of a picture's row.
struct ImageColumn {
  std::string_view name;
  Variant (*value)(const ImageToSave&);
};

constexpr ImageColumn kCrc{"CRC", [](const ImageToSave& image) { return Variant(image.crc); }};
constexpr ImageColumn kLibCrc{"LibCRC", [](const ImageToSave& image) { return Variant(image.libCrc); }};
constexpr ImageColumn kDx{"Dx", [](const ImageToSave& image) { return Variant(image.dx); }};
constexpr ImageColumn kDy{"Dy", [](const ImageToSave& image) { return Variant(image.dy); }};
constexpr ImageColumn kDxOrg{"DxORG", [](const ImageToSave& image) { return Variant(image.dxOrg); }};
constexpr ImageColumn kDyOrg{"DyORG", [](const ImageToSave& image) { return Variant(image.dyOrg); }};
constexpr ImageColumn kData{"Data8bpp",
                            [](const ImageToSave& image) { return From(CompressData(image.data)); }};
constexpr ImageColumn kDataOrg{"Data8bppORG",
                               [](const ImageToSave& image) { return From(CompressData(image.dataOrg)); }};
constexpr ImageColumn kPath{"ImagePath", [](const ImageToSave& image) { return Variant(image.path); }};
constexpr ImageColumn kInUse{"RecordStatus", [](const ImageToSave&) { return Variant(Long{kImageInUse}); }};
constexpr ImageColumn kSystem{"RecordStatus",
                              [](const ImageToSave&) { return Variant(Long{kSystemImageWritten}); }};
constexpr ImageColumn kBits{"Bits", [](const ImageToSave& image) { return Variant(image.bits); }};

// Each owner writes in an order of its own.
constexpr ImageColumn kBitmapColumns[] = {kDx,    kDy,      kData, kLibCrc, kDxOrg,
                                          kDyOrg, kDataOrg, kPath, kInUse,  kBits};
constexpr ImageColumn kRecordColumns[] = {kDx,    kDy,   kLibCrc, kDxOrg,   kDyOrg,
                                          kInUse, kPath, kData,   kDataOrg, kBits};
constexpr ImageColumn kSystemColumns[] = {kCrc,  kDx,     kDy,      kDxOrg, kDyOrg,
                                          kData, kLibCrc, kDataOrg, kPath,  kSystem};

/// How an owner of pictures saves them.
struct SavingManner {
  CorruptedImageSource source;
  /// Which rows of the CRC are taken.
  std::string_view rowsTaken;
  std::span<const ImageColumn> columns;
  /// Whether a project whose pictures do not tell their bits is written as well.
  bool knowsOlderProjects;
  /// Whether the picture goes by the CRC of its repaired pixels.
  bool takesRepairedCrc;
};

constexpr SavingManner kOfBitmap{
    {"clsBitmap", "prvAddImageToProject"}, "RecordStatus IN (3,2)", kBitmapColumns, false, false};
constexpr SavingManner kOfListImage{{"clsVarImageElement", "prvUpdateProjectimages"},
                                    "(RecordStatus=3 Or RecordStatus=2)",
                                    kRecordColumns,
                                    true,
                                    true};
// Counts free rows and does not take them: a picture that comes back to its page gets another row. Hosts know
// the class by an older name.
constexpr SavingManner kOfPageImage{
    {"clsPageBkImage", "prvUpdateProjectimages"}, "RecordStatus=3", kRecordColumns, false, false};

void WriteImageColumns(ado::Recordset& row, const ImageToSave& image, std::span<const ImageColumn> columns,
                       bool withBits) {
  for (const ImageColumn& column : columns) {
    if (column.name == kBits.name && !withBits) continue;
    row.Put(column.name, column.value(image));
  }
}

/// The rows that a picture can be saved in, and whether one of them is its own.
struct RowsForImage {
  ado::RecordsetRef rows;
  bool areItsOwn;
};

RowsForImage OpenRowsFor(Long crc, const SavingManner& manner) {
  const std::string key = std::to_string(crc);
  const bool isKnown = CountOf("SELECT COUNT(*) AS NumberOfImages FROM ProjectImages WHERE CRC=" + key +
                                   " AND RecordStatus IN (3,2)",
                               "NumberOfImages") != 0;
  const std::string query =
      isKnown ? "SELECT * FROM ProjectImages WHERE CRC=" + key + " AND " + std::string(manner.rowsTaken)
              : "SELECT * FROM ProjectImages WHERE RecordStatus=2 ORDER BY Index";
  return {OpenImageRows(query, ado::adOpenDynamic), isKnown};
}

struct SavedRow {
  /// The CRC under which the picture is kept.
  Long crc;
  /// Whether its pixels did not fit its size.
  bool wasCorrupted;
};

SavedRow SaveRow(ImageToSave image, const SavingManner& manner) {
  RowsForImage found = OpenRowsFor(image.crc, manner);
  const bool isCorrupted =
      image.crc != kPaintedImage && !IsImageDataValid(image.data, image.dx, image.dy, image.bits);
  if (isCorrupted) {
    Long repaired = image.crc;
    RebuildImageData(image.dataOrg, image.dxOrg, image.dyOrg, image.dx, image.dy, image.data, repaired,
                     image.bits);
    if (manner.takesRepairedCrc && repaired != image.crc) {
      image.crc = repaired;
      // The row found is that of other pixels, which others may have: these have one of their own.
      found.rows->Close();
      found = OpenRowsFor(image.crc, manner);
    }
  }
  ado::Recordset& row = *found.rows;
  const bool isNew = row.Eof();
  if (isNew) row.AddNew();
  if (isNew || !found.areItsOwn) row.Put(kCrc.name, kCrc.value(image));
  const bool withBits = !manner.knowsOlderProjects || row.FieldCount() == kImageColumnsWithBits;
  WriteImageColumns(row, image, manner.columns, withBits);
  row.Update();
  row.Close();
  return {image.crc, isCorrupted};
}

}  // namespace

void AddBitmapImageToProject(const ImageToSave& image, Long elementId, Long imageIndex,
                             Long transparencyLevel) {
  const SavedRow saved = SaveRow(image, kOfBitmap);
  WriteImageLink(ElementImageLinkQuery(elementId, imageIndex), ado::adOpenStatic,
                 {{"Image_CRC", saved.crc},
                  {"TransparencyLevel", transparencyLevel},
                  {"Element_ID", elementId},
                  {"Image_Index", imageIndex}});
  FreeFirstOrphanImage();
  if (saved.wasCorrupted) LogRepairedImage(image.path, kOfBitmap.source);
}

Long UpdateListImage(const ImageToSave& image) {
  const SavedRow saved = SaveRow(image, kOfListImage);
  if (saved.wasCorrupted) LogRepairedImage(image.path, kOfListImage.source);
  return saved.crc;
}

void UpdatePageImage(const ImageToSave& image) {
  if (SaveRow(image, kOfPageImage).wasCorrupted) LogRepairedImage(image.path, kOfPageImage.source);
}

void WriteSystemImage(ado::Recordset& row, const ImageToSave& image) {
  WriteImageColumns(row, image, kSystemColumns, true);
}

}  // namespace quenzel7
