#include "images/image_list.h"

#include <functional>
#include <memory>
#include <string>

#include "framework/library_state.h"
#include "images/busy_pointer.h"
#include "images/image_links.h"
#include "images/image_queries.h"
#include "images/var_image_element.h"
#include "platform/platform.h"

namespace quenzel7 {
namespace {

using Picture = clsVarImageElement;

/// The list, held for as long as it is walked: a host that is told meanwhile may put another one in its
/// place.
automation::CollectionRef Required(const automation::CollectionRef& list) {
  if (!list) automation::detail::RaiseObjectNotSet();
  return list;
}

Long FirstIndexOf(enVarType type) {
  return type == eVT_BinaryImage || type == eVT_MovingImage || type == eVT_TankGraph ? 0 : 1;
}

void SaveEach(Long elementId, enVarType type, const automation::CollectionRef& list,
              const std::function<void(Picture&, Long index)>& save) {
  const automation::CollectionRef pictures = Required(list);
  TrimElementImages(elementId, pictures->Count());
  Long index = FirstIndexOf(type);
  for (Long place = 1; place <= pictures->Count(); ++place, ++index) {
    const auto picture = pictures->ObjectAt<Picture>(place);
    if (picture->CRC8bpp() != kNoImage) save(*picture, index);
  }
  CollectOrphanImages();
}

void TellOfLostFile(const Picture& picture, Long elementId) {
  std::string variable;
  ReadFirstImageRow("SELECT * FROM HMI_Elements WHERE ID= " + std::to_string(elementId),
                    [&](const ado::Recordset& row) { variable = TextIn(row, "Text"); });
  Platform::Current().hostFrame->AddOutput("During resize of variable : " + variable + ", image file: " +
                                               GetFileName(picture.Path()) + " was not found.",
                                           corvane1::kOutputWarning);
}

}  // namespace

void SaveImageList(Long pElementID, enVarType pVarType, const automation::CollectionRef& pColImageList,
                   Long pDx, Long pDy) {
  SaveEach(pElementID, pVarType, pColImageList,
           [&](Picture& picture, Long index) { picture.SaveToDB(pElementID, index, pDx, pDy); });
}

void SaveImageList(Long pElementID, enVarType pVarType, const automation::CollectionRef& pColImageList,
                   Long pDx, Long pDy, Long pBits) {
  SaveEach(pElementID, pVarType, pColImageList,
           [&](Picture& picture, Long index) { picture.SaveToDBEx(pElementID, index, pDx, pDy, pBits); });
}

void ResizeElementImages(Long pDx, Long pDy, const automation::CollectionRef& pColImageList,
                         Long pElementID) {
  const std::vector<Long> distinct = GetDistinctElementImageCRCs(pElementID);
  const BusyPointer busy;
  const automation::CollectionRef pictures = Required(pColImageList);
  for (const Long crc : distinct) {
    if (crc == kPaintedImage) continue;
    std::shared_ptr<Picture> first;
    for (Long place = 1; place <= pictures->Count(); ++place) {
      const auto picture = pictures->ObjectAt<Picture>(place);
      if (picture->CRC8bpp() != crc) continue;
      if (first) {
        picture->CRC8bpp(first->CRC8bpp());
        picture->SetData8bpp(first->GetData8bpp());
        continue;
      }
      first = picture;
      const bool isResized = picture->Bits() == kTwoBytePixels ? picture->ResizeImage16(pDx, pDy)
                                                               : picture->ResizeImage(pDx, pDy);
      if (isResized) continue;
      TellOfLostFile(*picture, pElementID);
      LibraryState::Current().ImageResizeFailed = true;
    }
  }
}

}  // namespace quenzel7
