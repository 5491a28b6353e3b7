#include "images/itf_image.h"

#include <memory>

namespace quenzel7 {

void ItfImage::SetImage8bppProps(Long pSrcImgCRC, Long pDxORG, Long pDyORG, PixelBytes& pData8bppORG,
                                 Long pImgCRC, Long pImgWidth, Long pImgHeight, PixelBytes& pData8bpp,
                                 Long pImgIndexInVar, Long pTransparencyLevel,
                                 const std::string& pImagePath) {
  ItfImage_SetImageProps({pSrcImgCRC, pDxORG, pDyORG, pData8bppORG, pImgCRC, pImgWidth, pImgHeight, pData8bpp,
                          pImgIndexInVar, pTransparencyLevel, pImagePath});
}

void ItfImage::SetImage8bppPropsEx(Long pSrcImgCRC, Long pDxORG, Long pDyORG, PixelBytes& pData8bppORG,
                                   Long pImgCRC, Long pImgWidth, Long pImgHeight, PixelBytes& pData8bpp,
                                   Long pImgIndexInVar, Long pTransparencyLevel,
                                   const std::string& pImagePath, Long pBits) {
  ItfImage_SetImageProps({pSrcImgCRC, pDxORG, pDyORG, pData8bppORG, pImgCRC, pImgWidth, pImgHeight, pData8bpp,
                          pImgIndexInVar, pTransparencyLevel, pImagePath, &pBits});
}

const automation::ClassInfo& ItfImageObject::ClassOf() {
  static const automation::Interface* const interfaces[] = {&ItfImage::InterfaceOf<ItfImageObject>()};
  static const automation::ClassInfo info{
      kClassName, interfaces, []() -> automation::ObjectRef { return std::make_shared<ItfImageObject>(); }};
  return info;
}

}  // namespace quenzel7
