#include "images/image_queries.h"

#include <cstdint>
#include <new>

#include "images/image_links.h"
#include "images/image_rows.h"
#include "platform/automation/automation_error.h"

namespace quenzel7 {
namespace {

PixelBytes PixelsOf(Long crc, const std::string& column) {
  PixelBytes pixels;
  ReadFirstImageRow(ImageQuery("CRC," + column, crc),
                    [&](const ado::Recordset& row) { pixels = PixelsIn(row, column); });
  return pixels;
}

std::string OrderedLinksQuery(Long elementId) {
  return ElementLinksQuery("Image_CRC,Image_Index", elementId) + " ORDER BY (Image_Index)";
}

/// Whether the project is from before the column for the bits of a pixel.
bool ImagesLackBits() {
  const ado::RecordsetRef rows = OpenImageRows(kNoImageRowsQuery, ado::adOpenForwardOnly);
  const Long columns = rows->FieldCount();
  rows->Close();
  return columns < kImageColumnsWithBits;
}

/// The pictures in the order of the rows.
std::vector<Long> PicturesOf(const std::string& query) {
  std::vector<Long> pictures;
  const ado::RecordsetRef rows = OpenImageRows(query, ado::adOpenForwardOnly);
  ForEachRow(*rows, [&](const ado::Recordset& row) { pictures.push_back(NumberIn(row, "Image_CRC")); });
  rows->Close();
  return pictures;
}

[[noreturn]] void RaiseNoRoom(Long count) {
  throw automation::AutomationError(automation::ErrorNumber::OutOfMemory,
                                    "no room for " + std::to_string(count) + " pictures of a variable");
}

std::vector<Long> NoPictures(Long count) {
  if (count > kMostVarImages) RaiseNoRoom(count);
  try {
    return std::vector<Long>(static_cast<std::size_t>(count), kNoImage);
  } catch (const std::bad_alloc&) {
    RaiseNoRoom(count);
  }
}

}  // namespace

PixelBytes GetImageData8bppByCRC(Long pCRC) { return PixelsOf(pCRC, "Data8bpp"); }

PixelBytes GetImageDataORGByCRC(Long pCRC) { return PixelsOf(pCRC, "Data8bppORG"); }

Long GetImageBitsByCRC(Long pCRC) {
  Long bits = 0;
  try {
    ReadFirstImageRow(ImageQuery("CRC,[Bits]", pCRC), [&](const ado::Recordset& row) { bits = BitsIn(row); });
  } catch (const automation::AutomationError&) {
    // In a project from before pixels of two bytes, all have one.
    if (!ImagesLackBits()) throw;
  }
  return bits;
}

void GetImageOriginalDimansions(Long pCRC, Long& pDx, Long& pDy) {
  Long dx = -1, dy = -1;
  ReadFirstImageRow(ImageInUseQuery("CRC,DxORG,DyORG", pCRC), [&](const ado::Recordset& row) {
    dx = NumberIn(row, "DxORG");
    dy = NumberIn(row, "DyORG");
  });
  pDx = dx;
  pDy = dy;
}

void GetImageDimensions(Long pCRC, Long& pDx, Long& pDy) {
  ReadFirstImageRow(ImageInUseQuery("Dx,Dy", pCRC), [&](const ado::Recordset& row) {
    pDx = NumberIn(row, "Dx");
    pDy = NumberIn(row, "Dy");
  });
}

void GetImageRecord(Long pCRC, PixelBytes& pData, Long& pDx, Long& pDy) {
  ReadFirstImageRow(ImageInUseQuery("*", pCRC), [&](const ado::Recordset& row) {
    pData = PixelsIn(row, "Data8bpp");
    pDx = NumberIn(row, "Dx");
    pDy = NumberIn(row, "Dy");
  });
}

Long GetImageLibCRC(Long pImageCRC) {
  Long crc = kNoImage;
  ReadFirstImageRow(ImageQuery("LibCRC", pImageCRC),
                    [&](const ado::Recordset& row) { crc = NumberIn(row, "LibCRC"); });
  return crc;
}

std::string GetImagePathFromDB(Long pImageCRC) {
  std::string path;
  ReadFirstImageRow(ImageQuery("ImagePath", pImageCRC),
                    [&](const ado::Recordset& row) { path = TextIn(row, "ImagePath"); });
  return path;
}

std::vector<Long> GetElementImageCRCs(Long pElement_ID) {
  std::vector<Long> pictures = PicturesOf(OrderedLinksQuery(pElement_ID));
  pictures.push_back(kNoImage);
  return pictures;
}

std::vector<Long> GetDistinctElementImageCRCs(Long pElement_ID) {
  return PicturesOf(ElementLinksQuery("DISTINCT Image_CRC", pElement_ID));
}

std::vector<Long> GetCRCsOfVarImages(Long pElement_ID, Long pNumOfImages) {
  if (pNumOfImages < 1) return {};
  std::vector<Long> pictures = NoPictures(pNumOfImages);
  Long actualCount = 0;
  ReadFirstImageRow(ElementLinksQuery("COUNT(Image_CRC) as ActualCount", pElement_ID),
                    [&](const ado::Recordset& row) { actualCount = NumberIn(row, "ActualCount"); });
  const bool hasHoles = actualCount != pNumOfImages;
  const ado::RecordsetRef rows = OpenImageRows(OrderedLinksQuery(pElement_ID), ado::adOpenForwardOnly);
  for (std::int64_t place = 0; !rows->Eof(); ++place) {
    const bool isHere = !hasHoles || NumberIn(*rows, "Image_Index") == place;
    if (isHere && place < pNumOfImages) {
      pictures[static_cast<std::size_t>(place)] = NumberIn(*rows, "Image_CRC");
    }
    if (isHere || place >= pNumOfImages) rows->MoveNext();
  }
  rows->Close();
  return pictures;
}

}  // namespace quenzel7
