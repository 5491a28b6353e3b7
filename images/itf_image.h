#pragma once

#include <string>
#include <string_view>

#include "framework/named_table.h"
#include "images/panel_pixels.h"
#include "platform/automation/class_info.h"
#include "platform/automation/member.h"
#include "platform/automation/object.h"

namespace quenzel7 {

/// What a picture is made of, in the order of the arguments of `SetImage8bppPropsEx`. Sizes are in pixels.
struct ImageProps {
  Long srcImgCRC;
  Long dxORG, dyORG;
  const PixelBytes& data8bppORG;
  Long imgCRC;
  Long imgWidth, imgHeight;
  const PixelBytes& data8bpp;
  Long imgIndexInVar;
  Long transparencyLevel;
  const std::string& imagePath;
  /// None: what the object has stays.
  const Long* bits = nullptr;
};

/// The picture of an element, whichever object holds it. Every operation has a stub: a reader gives 0 or
/// nothing, and a writer does nothing.
class ItfImage {
 public:
  /// The interface of a class that implements it. Its slots are alike for all classes.
  template <class Class>
  static const automation::Interface& InterfaceOf();

  /// CRC of the panel pixels.
  Long Image8bppCRC() const { return ItfImage_Image8bppCRC(); }
  void Image8bppCRC(Long pValue) { ItfImage_Image8bppCRC(pValue); }
  /// CRC of the source in the image library.
  Long ImageLibCRC() const { return ItfImage_ImageLibCRC(); }
  void ImageLibCRC(Long pValue) { ItfImage_ImageLibCRC(pValue); }
  /// Place among the pictures of its owner.
  Long ImageIndexInVar() const { return ItfImage_ImageIndexInVar(); }
  void ImageIndexInVar(Long pValue) { ItfImage_ImageIndexInVar(pValue); }
  /// The panel pixels.
  PixelBytes GetImageData8bpp() const { return ItfImage_GetImageData8bpp(); }
  void SetImageData8bpp(PixelBytes pRHS) { ItfImage_SetImageData8bpp(std::move(pRHS)); }
  /// 0 opaque, otherwise transparent.
  Long TransparencyLevel() const { return ItfImage_TransparencyLevel(); }
  void TransparencyLevel(Long pValue) { ItfImage_TransparencyLevel(pValue); }
  /// File that the picture came from.
  std::string ImagePath() const { return ItfImage_ImagePath(); }
  void ImagePath(std::string pValue) { ItfImage_ImagePath(std::move(pValue)); }
  /// Width and height of the picture on the panel.
  Long Dx() const { return ItfImage_Dx(); }
  void Dx(Long pValue) { ItfImage_Dx(pValue); }
  Long Dy() const { return ItfImage_Dy(); }
  void Dy(Long pValue) { ItfImage_Dy(pValue); }

  /// Takes a picture as the image library gives it. The arrays are only read.
  void SetImage8bppProps(Long pSrcImgCRC, Long pDxORG, Long pDyORG, PixelBytes& pData8bppORG, Long pImgCRC,
                         Long pImgWidth, Long pImgHeight, PixelBytes& pData8bpp, Long pImgIndexInVar,
                         Long pTransparencyLevel, const std::string& pImagePath);
  /// The same, and how many bits a pixel takes.
  void SetImage8bppPropsEx(Long pSrcImgCRC, Long pDxORG, Long pDyORG, PixelBytes& pData8bppORG, Long pImgCRC,
                           Long pImgWidth, Long pImgHeight, PixelBytes& pData8bpp, Long pImgIndexInVar,
                           Long pTransparencyLevel, const std::string& pImagePath, Long pBits);

 protected:
  ~ItfImage() = default;

  virtual Long ItfImage_Image8bppCRC() const { return 0; }
  virtual void ItfImage_Image8bppCRC(Long) {}
  virtual Long ItfImage_ImageLibCRC() const { return 0; }
  virtual void ItfImage_ImageLibCRC(Long) {}
  virtual Long ItfImage_ImageIndexInVar() const { return 0; }
  virtual void ItfImage_ImageIndexInVar(Long) {}
  virtual PixelBytes ItfImage_GetImageData8bpp() const { return {}; }
  virtual void ItfImage_SetImageData8bpp(PixelBytes) {}
  virtual Long ItfImage_TransparencyLevel() const { return 0; }
  virtual void ItfImage_TransparencyLevel(Long) {}
  virtual std::string ItfImage_ImagePath() const { return {}; }
  virtual void ItfImage_ImagePath(std::string) {}
  virtual Long ItfImage_Dx() const { return 0; }
  virtual void ItfImage_Dx(Long) {}
  virtual Long ItfImage_Dy() const { return 0; }
  virtual void ItfImage_Dy(Long) {}
  /// Both setters.
  virtual void ItfImage_SetImageProps(const ImageProps&) {}
};

/// The two setters as members of a class's default interface.
template <class Class>
inline constexpr auto kImagePropsMembers =
    MakeNamedTable(automation::Method<Class, &ItfImage::SetImage8bppProps>(
                       "SetImage8bppProps", "Takes a picture as the image library gives it.",
                       "pSrcImgCRC, pDxORG, pDyORG, pData8bppORG, pImgCRC, pImgWidth, pImgHeight, pData8bpp, "
                       "pImgIndexInVar, pTransparencyLevel, pImagePath"),
                   automation::Method<Class, &ItfImage::SetImage8bppPropsEx>(
                       "SetImage8bppPropsEx", "Takes a picture, and how many bits a pixel takes.",
                       "pSrcImgCRC, pDxORG, pDyORG, pData8bppORG, pImgCRC, pImgWidth, pImgHeight, pData8bpp, "
                       "pImgIndexInVar, pTransparencyLevel, pImagePath, pBits"));

/// The members of the interface, of a class that implements it, in slot order.
template <class Class>
struct ItfImageMembers {
  // The class's own members of these names hide those of the interface.
#define QUENZEL7_IMAGE_MEMBER(Type, Name, Documentation)                                           \
  automation::Property<Type>(                                                                      \
      #Name, Documentation,                                                                        \
      [](automation::Object& object) {                                                             \
        const ItfImage& image = static_cast<Class&>(object);                                       \
        return automation::From(image.Name());                                                     \
      },                                                                                           \
      [](automation::Object& object, const automation::Variant& value) {                           \
        ItfImage& image = static_cast<Class&>(object);                                             \
        image.Name(automation::FromArgument(0, [&value] { return automation::To<Type>(value); })); \
      })
  static constexpr auto kMembers =
      MakeNamedTable(
          QUENZEL7_IMAGE_MEMBER(Long, Image8bppCRC, "CRC of the panel pixels, which is the picture's key."),
          QUENZEL7_IMAGE_MEMBER(Long, ImageLibCRC, "CRC of the source in the image library."),
          QUENZEL7_IMAGE_MEMBER(Long, ImageIndexInVar, "Place among the pictures of its owner."),
          automation::Method<Class, &ItfImage::GetImageData8bpp>("GetImageData8bpp",
                                                                 "Gives the panel pixels."),
          automation::Method<Class, &ItfImage::SetImageData8bpp>("SetImageData8bpp", "Takes panel pixels.",
                                                                 "pRHS"),
          QUENZEL7_IMAGE_MEMBER(Long, TransparencyLevel, "0 opaque, otherwise transparent."),
          QUENZEL7_IMAGE_MEMBER(std::string, ImagePath, "File that the picture came from."),
          QUENZEL7_IMAGE_MEMBER(Long, Dx, "Width of the picture on the panel."),
          QUENZEL7_IMAGE_MEMBER(Long, Dy, "Height of the picture on the panel."))
          .Then(kImagePropsMembers<Class>);
#undef QUENZEL7_IMAGE_MEMBER
};

template <class Class>
const automation::Interface& ItfImage::InterfaceOf() {
  static const automation::Interface interface("ItfImage", ItfImageMembers<Class>::kMembers);
  return interface;
}

/// The interface by itself, which hosts can create too: all stubs.
class ItfImageObject final : public automation::Object, public ItfImage {
 public:
  static constexpr std::string_view kClassName = "ItfImage";

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }
};

}  // namespace quenzel7
