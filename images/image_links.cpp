#include "images/image_links.h"

#include "framework/project.h"

namespace quenzel7 {
namespace {

std::string LinksOf(Long elementId) {
  return "ElementsAndImages WHERE Element_ID=" + std::to_string(elementId);
}

}  // namespace

std::string ElementLinksQuery(const std::string& columns, Long elementId) {
  return "SELECT " + columns + " FROM " + LinksOf(elementId);
}

std::string ElementImageLinkQuery(Long elementId, Long imageIndex) {
  return ElementLinksQuery("*", elementId) + " AND Image_Index=" + std::to_string(imageIndex);
}

std::string PageImageLinkQuery(Long pageId, Long imageType) {
  return "SELECT * FROM PagesAndImages WHERE Page_ID=" + std::to_string(pageId) +
         " AND Image_Type=" + std::to_string(imageType);
}

void WriteImageLink(const std::string& query, ado::CursorType cursor, const LinkColumns& columns) {
  const ado::RecordsetRef link = OpenImageRows(query, cursor);
  if (link->Eof()) link->AddNew();
  for (const auto& [name, value] : columns) link->Put(name, value);
  link->Update();
  link->Close();
}

Long GetElementImageTransparency(Long pElement_ID, Long pImageIndex) {
  Long level = 0;
  ReadFirstImageRow(
      ElementLinksQuery("TransparencyLevel", pElement_ID) + " AND Image_Index=" + std::to_string(pImageIndex),
      [&](const ado::Recordset& row) { level = NumberIn(row, "TransparencyLevel"); });
  return level;
}

Long GetElementTransparency(Long pElement_ID) {
  const ado::RecordsetRef rows =
      ProjectConnection()->Execute(ElementLinksQuery("TransparencyLevel", pElement_ID));
  const Long level = rows->Eof() ? 0 : NumberIn(*rows, "TransparencyLevel");
  rows->Close();
  return level;
}

void SetElementTransparency(Long pLevel, Long pElement_ID) {
  ProjectConnection()->Execute("UPDATE ElementsAndImages SET TransparencyLevel=" + std::to_string(pLevel) +
                               " WHERE Element_ID=" + std::to_string(pElement_ID));
}

void ReleaseElementImages(Long pElement_ID) {
  std::vector<Long> images;
  {
    const ado::RecordsetRef links =
        OpenImageRows(ElementLinksQuery("*", pElement_ID), ado::adOpenForwardOnly);
    ForEachRow(*links, [&](const ado::Recordset& link) { images.push_back(NumberIn(link, "Image_CRC")); });
    links->Close();
  }
  ProjectConnection()->Execute("DELETE * FROM " + LinksOf(pElement_ID));
  for (const Long crc : images) FreeImageWithoutLinks(crc, FreeingOrder::PanelPixelsFirst);
  TrimImageRows();
}

void ReleaseElementImage(Long pCRC, Long pElement_ID, Long pImageIndex) {
  ProjectConnection()->Execute("DELETE * FROM " + LinksOf(pElement_ID) + " AND Image_CRC=" +
                               std::to_string(pCRC) + " AND Image_Index=" + std::to_string(pImageIndex));
  FreeImageWithoutLinks(pCRC, FreeingOrder::OriginalPixelsFirst);
  TrimImageRows();
}

void TrimElementImages(Long pElement_ID, Long pCount) {
  if (pCount < 1) return;
  const ado::RecordsetRef links =
      OpenImageRows(ElementLinksQuery("*", pElement_ID) + " Order By Image_Index", ado::adOpenDynamic);
  Long place = 0;
  ForEachRow(*links, [&](ado::Recordset& link) {
    if (++place > pCount) link.Delete();
  });
  links->Close();
}

}  // namespace quenzel7
