#include "images/page_image.h"

#include <memory>
#include <utility>

#include "images/image_links.h"

namespace quenzel7 {
namespace {

using automation::Method;
using Record = clsPageImage;

constexpr auto kMembers = ImageRecordMembers<Record>::kCommon.Then(MakeNamedTable(
    Method<Record, &Record::SaveToDB>("SaveToDB", "Saves the picture as one of a page's.",
                                      "pPageID, pImageType, pDx, pDy"),
    Method<Record, &Record::SaveToDBEx>("SaveToDBEx",
                                        "Saves the picture as one of a page's, telling the bits of a pixel.",
                                        "pPageID, pImageType, pDx, pDy, pBits"),
    Method<Record, &Record::ReadImagePropsFromDB>(
        "ReadImagePropsFromDB", "Reads the picture of the CRC; False when there is none.", "pImageType")));

}  // namespace

const automation::ClassInfo& clsPageImage::ClassOf() {
  static const automation::Interface interface("_clsPageImage", kMembers);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{
      kClassName, interfaces, []() -> automation::ObjectRef { return std::make_shared<Record>(); }};
  return info;
}

void clsPageImage::SaveToDB(Long pPageID, Long pImageType, Long pDx, Long pDy) {
  SaveToDBEx(pPageID, pImageType, pDx, pDy, 0);
}

void clsPageImage::SaveToDBEx(Long pPageID, Long pImageType, Long pDx, Long pDy, Long pBits) {
  UpdatePageImage(ToSave(pDx, pDy, pBits));
  WriteImageLink(PageImageLinkQuery(pPageID, pImageType), ado::adOpenDynamic,
                 {{"Page_ID", pPageID},
                  {"Image_Type", pImageType},
                  {"TransparencyLevel", TransparencyLevel()},
                  {"Image_CRC", CRC8bpp()}});
}

bool clsPageImage::ReadImagePropsFromDB(Long pImageType) {
  // Nothing is taken over before all of it is read.
  clsPageImage read;
  read.CRC8bpp(CRC8bpp());
  const bool isThere = ReadFirstImageRow(ImageInUseQuery("*", CRC8bpp()), [&](const ado::Recordset& row) {
    read.SourceCRC(NumberIn(row, "LibCRC"));
    read.Path(TextIn(row, "ImagePath"));
    read.DxORG(NumberIn(row, "DxORG"));
    read.DyORG(NumberIn(row, "DyORG"));
    read.SetData8bpp(PixelsIn(row, "Data8bpp"));
    read.SetData8bppORG(PixelsIn(row, "Data8bppORG"));
    read.Bits(BitsIn(row));
  });
  if (!isThere) return false;
  ReadFirstImageRow(
      "SELECT TransparencyLevel FROM PagesAndImages WHERE (Image_CRC=" + std::to_string(CRC8bpp()) +
          " AND Image_Type=" + std::to_string(pImageType) + ")",
      [&](const ado::Recordset& row) { read.TransparencyLevel(NumberIn(row, "TransparencyLevel")); });
  TakeOver(std::move(read));
  return true;
}

}  // namespace quenzel7
