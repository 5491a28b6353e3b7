#include "images/var_image_element.h"

#include <memory>

#include "images/image_links.h"
#include "platform/gdi/owned.h"

namespace quenzel7 {
namespace {

using automation::Method;
using Record = clsVarImageElement;

struct Members : ImageRecordMembers<Record> {
#define QUENZEL7_RANGE_MEMBER(Name, Documentation)            \
  static constexpr auto k##Name = automation::Property<Long>( \
      #Name, Documentation, AUTOMATION_GETTER(Record, Name), AUTOMATION_SETTER(Record, Long, Name));
  QUENZEL7_RANGE_PROPERTIES(QUENZEL7_RANGE_MEMBER)
#undef QUENZEL7_RANGE_MEMBER

  static constexpr auto kMembers =
      kCommon.WithAfter("SourceCRC", kFromOpType)
          .WithAfter("FromOpType", kFromOpAddress)
          .WithAfter("FromOpAddress", kToOpType)
          .WithAfter("ToOpType", kToOpAddress)
          .Then(MakeNamedTable(
              Method<Record, &Record::ResizeImage>(
                  "ResizeImage", "Makes pixels of one byte anew at another size.", "pNewDx, pNewDy"),
              Method<Record, &Record::ResizeImage16>(
                  "ResizeImage16", "Makes pixels of two bytes anew at another size.", "pNewDx, pNewDy"),
              Method<Record, &Record::SaveToDB>("SaveToDB", "Saves the picture as one of an element's.",
                                                "pElementID, pIndexInVar, pDx, pDy"),
              Method<Record, &Record::SaveToDBEx>(
                  "SaveToDBEx", "Saves the picture as one of an element's, telling the bits of a pixel.",
                  "pElementID, pIndexInVar, pDx, pDy, pBits")));
};

}  // namespace

const automation::ClassInfo& clsVarImageElement::ClassOf() {
  static const automation::Interface interface("_clsVarImageElement", Members::kMembers);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{
      kClassName, interfaces, []() -> automation::ObjectRef { return std::make_shared<Record>(); }};
  return info;
}

bool clsVarImageElement::Resize(Long dx, Long dy, Long bits) {
  if (CRC8bpp() == kPaintedImage) return false;
  const loomis2::ImageLibraryRef library = CurrentImageLibrary();
  const Long mode = library->GetConversionMode(Path());
  if (Path().empty() || SourceCRC() == kNoImage) return false;
  Long status = loomis2::kImageFileNotRead;
  gdi::OwnedBitmap bitmap(library->LoadResizedImage(Path(), SourceCRC(), dx, dy, status));
  if (status != loomis2::kImageDone) {
    bitmap.Reset(StretchedBitmapOfPixels(GetData8bppORG(), DxORG(), DyORG(), dx, dy, bits));
  }
  PixelBytes pixels;
  Long crc = kNoImage;
  if (!loomis2::IsConverted(ConvertToPixels(bitmap.Get(), mode, dx, dy, bits, pixels, crc))) return false;
  SetData8bpp(std::move(pixels));
  CRC8bpp(crc);
  return true;
}

void clsVarImageElement::SaveToDB(Long pElementID, Long pIndexInVar, Long pDx, Long pDy) {
  SaveToDBEx(pElementID, pIndexInVar, pDx, pDy, 0);
}

void clsVarImageElement::SaveToDBEx(Long pElementID, Long pIndexInVar, Long pDx, Long pDy, Long pBits) {
  CRC8bpp(UpdateListImage(ToSave(pDx, pDy, pBits)));
  WriteImageLink(ElementImageLinkQuery(pElementID, pIndexInVar), ado::adOpenDynamic,
                 {{"Element_ID", pElementID},
                  {"Image_Index", pIndexInVar},
                  {"TransparencyLevel", TransparencyLevel()},
                  {"Image_CRC", CRC8bpp()}});
  CollectOrphanImagesAtOnce();
}

}  // namespace quenzel7
