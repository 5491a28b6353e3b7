#pragma once

#include <string_view>

#include "images/image_record.h"

namespace quenzel7 {

/// The picture that lies behind a whole page. It draws nothing itself: the host paints its pixels.
class clsPageImage final : public ImageRecord {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsPageImage";

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// Saves the picture as that of a page and kind (a number of the host's), its panel pixels being of that
  /// size. Pixels that do not fit the size are made anew. What the page had before stays in the project until
  /// an element is saved. Errors of the project, its database, and the image library.
  void SaveToDB(Long pPageID, Long pImageType, Long pDx, Long pDy);
  /// The same, telling the bits of a pixel.
  void SaveToDBEx(Long pPageID, Long pImageType, Long pDx, Long pDy, Long pBits);

  /// Reads the picture of `CRC8bpp`, and how transparent it is where it is of that kind. False, and
  /// everything stays, when no picture in use has that CRC. Errors of the project and its database.
  bool ReadImagePropsFromDB(Long pImageType);
};

}  // namespace quenzel7
