#pragma once

#include <string_view>

#include "images/image_record.h"

namespace quenzel7 {

/// The properties of a range's ends: name, documentation.
#define QUENZEL7_RANGE_PROPERTIES(PROPERTY)                             \
  PROPERTY(FromOpType, "Type of the operand at which a range begins.")  \
  PROPERTY(FromOpAddress, "Address of the operand at which it begins.") \
  PROPERTY(ToOpType, "Type of the operand at which a range ends.")      \
  PROPERTY(ToOpAddress, "Address of the operand at which it ends.")

/// One picture of a list, or that of a button. A picture that is shown for a range of values tells the
/// operands at both ends; all others leave these 0.
class clsVarImageElement final : public ImageRecord {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsVarImageElement";

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

#define QUENZEL7_RANGE_PROPERTY(Name, Documentation) \
  Long Name() const { return Name##_; }              \
  void Name(Long pValue) { Name##_ = pValue; }
  QUENZEL7_RANGE_PROPERTIES(QUENZEL7_RANGE_PROPERTY)
#undef QUENZEL7_RANGE_PROPERTY

  /// Makes panel pixels of one byte anew at another size, in panel pixels: from the file that the picture
  /// came from, or from the original pixels when it cannot be read. True when that was done; otherwise, and
  /// for a picture without a file or a source, everything stays. Error 91 without an image library.
  bool ResizeImage(Long pNewDx, Long pNewDy) { return Resize(pNewDx, pNewDy, 0); }
  /// The same with pixels of two bytes.
  bool ResizeImage16(Long pNewDx, Long pNewDy) { return Resize(pNewDx, pNewDy, kTwoBytePixels); }

  /// Saves the picture as that of an element's index, its panel pixels being of that size, and sets free
  /// whatever no element and no page has any more. Pixels that do not fit the size are made anew, and the
  /// record takes them over. Errors of the project, its database, and the image library.
  void SaveToDB(Long pElementID, Long pIndexInVar, Long pDx, Long pDy);
  /// The same, telling the bits of a pixel.
  void SaveToDBEx(Long pElementID, Long pIndexInVar, Long pDx, Long pDy, Long pBits);

 private:
  bool Resize(Long dx, Long dy, Long bits);

#define QUENZEL7_RANGE_FIELD(Name, Documentation) Long Name##_ = 0;
  QUENZEL7_RANGE_PROPERTIES(QUENZEL7_RANGE_FIELD)
#undef QUENZEL7_RANGE_FIELD
};

}  // namespace quenzel7
