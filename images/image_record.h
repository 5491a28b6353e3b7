#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "framework/named_table.h"
#include "images/image_saving.h"
#include "platform/automation/member.h"
#include "platform/automation/object.h"

namespace quenzel7 {

/// The properties of a picture's record, without its pixels: type, name, default, documentation.
#define QUENZEL7_IMAGE_PROPERTIES(PROPERTY)                                                          \
  PROPERTY(Long, CRC8bpp, kNoImage, "CRC of the panel pixels, which is the picture's key; -1 none.") \
  PROPERTY(std::string, Path, {}, "File that the picture came from.")                                \
  PROPERTY(Long, SourceCRC, kNoImage, "CRC of the source in the image library; -1 none.")            \
  PROPERTY(Long, DxORG, 0, "Width of the original pixels.")                                          \
  PROPERTY(Long, DyORG, 0, "Height of the original pixels.")                                         \
  PROPERTY(Long, TransparencyLevel, 0, "0 opaque, otherwise transparent.")                           \
  PROPERTY(Long, Bits, 0, "16 when a pixel takes two bytes.")

/// A picture as elements and pages hold it: its key, its pixels as the panel shows them and at its own size,
/// and where it came from. Nothing is saved before a class's own SaveToDB.
class ImageRecord : public automation::Object {
 public:
#define QUENZEL7_IMAGE_PROPERTY(Type, Name, Default, Documentation) \
  const Type& Name() const { return Name##_; }                      \
  void Name(Type pValue) { Name##_ = std::move(pValue); }
  QUENZEL7_IMAGE_PROPERTIES(QUENZEL7_IMAGE_PROPERTY)
#undef QUENZEL7_IMAGE_PROPERTY

  /// Panel pixels, copied in and out.
  void SetData8bpp(PixelBytes pData8bpp) { data_ = std::move(pData8bpp); }
  const PixelBytes& GetData8bpp() const { return data_; }
  /// Original pixels, copied in and out.
  void SetData8bppORG(PixelBytes pData8bppORG) { dataOrg_ = std::move(pData8bppORG); }
  const PixelBytes& GetData8bppORG() const { return dataOrg_; }

 protected:
  /// The picture for saving at a size on the panel; saving may repair the pixels through it.
  ImageToSave ToSave(Long dx, Long dy, Long bits) {
    return {CRC8bpp_, SourceCRC_, DxORG_, DyORG_, dataOrg_, dx, dy, data_, Path_, bits};
  }
  /// Becomes the picture of another record.
  void TakeOver(ImageRecord&& other) {
#define QUENZEL7_IMAGE_TAKE(Type, Name, Default, Documentation) Name##_ = std::move(other.Name##_);
    QUENZEL7_IMAGE_PROPERTIES(QUENZEL7_IMAGE_TAKE)
#undef QUENZEL7_IMAGE_TAKE
    data_ = std::move(other.data_);
    dataOrg_ = std::move(other.dataOrg_);
  }

 private:
#define QUENZEL7_IMAGE_FIELD(Type, Name, Default, Documentation) Type Name##_ = Default;
  QUENZEL7_IMAGE_PROPERTIES(QUENZEL7_IMAGE_FIELD)
#undef QUENZEL7_IMAGE_FIELD
  PixelBytes data_;
  PixelBytes dataOrg_;
};

/// What the default interfaces of the records have in common, in slot order.
template <class Record>
struct ImageRecordMembers {
#define QUENZEL7_IMAGE_MEMBER(Type, Name, Default, Documentation) \
  static constexpr auto k##Name = automation::Property<Type>(     \
      #Name, Documentation, AUTOMATION_GETTER(Record, Name), AUTOMATION_SETTER(Record, Type, Name));
  QUENZEL7_IMAGE_PROPERTIES(QUENZEL7_IMAGE_MEMBER)
#undef QUENZEL7_IMAGE_MEMBER

  static constexpr auto kCommon = MakeNamedTable(
      kCRC8bpp,
      automation::Method<Record, &Record::SetData8bpp>("SetData8bpp", "Takes a copy of panel pixels.",
                                                       "pData8bpp"),
      automation::Method<Record, &Record::GetData8bpp>("GetData8bpp", "Gives a copy of the panel pixels."),
      automation::Method<Record, &Record::SetData8bppORG>("SetData8bppORG",
                                                          "Takes a copy of original pixels.", "pData8bppORG"),
      automation::Method<Record, &Record::GetData8bppORG>("GetData8bppORG",
                                                          "Gives a copy of the original pixels."),
      kPath, kSourceCRC, kDxORG, kDyORG, kTransparencyLevel, kBits);
};

#undef QUENZEL7_IMAGE_PROPERTIES

}  // namespace quenzel7
