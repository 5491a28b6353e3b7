#pragma once

#include <string>
#include <vector>

#include "framework/enums.h"
#include "images/panel_pixels.h"
#include "platform/automation/class_info.h"
#include "platform/automation/collection.h"
#include "platform/automation/object.h"
#include "platform/automation/variant.h"
#include "platform/loomis2/image_library.h"

namespace quenzel7 {

/// The object through which a host tells the library what holds for all its work, the panel and the image
/// library, and asks for pictures of the project. What it sets belongs to the thread (LibraryState): it is
/// shared by all objects of this class and stays when they are released.
class clsGrpElmntsSrv final : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "clsGrpElmntsSrv";

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

  /// Sets the panel that the project is for; a host does so before it has anything drawn, and again when the
  /// panel changes. Errors of the panel service; the new type is kept all the same, while the panel's values
  /// and the stretch mode stay those of the panel before.
  void ChangeHMIPanel(Long pPanelType);

  /// Makes a new image library in the place of any earlier one and gives it its name, the folder of the
  /// pictures beside the program, and the panel's colours.
  ///
  /// `pPalette` is an array of Long of one dimension, which is only read; hosts pass it in a variant, by
  /// reference. What else a variant can hold is refused by the image library: the embedded one raises error
  /// 13 for a value that is no array, for an array of another kind and for one of another number of
  /// dimensions.
  ///
  /// Errors: 429 when there is no image library to be had, and those of its making; the earlier one stays
  /// then. 76 when the program's folder cannot be told, and those of the image library: the new library is in
  /// place then, with what it was given until then.
  void InitImageLibrary(const std::string& pImageLibName, automation::Variant& pPalette);

  /// The image library; none before InitImageLibrary.
  loomis2::ImageLibraryRef ImageLibrary() const;

  /// The picture for each index of a variable from 0 on, -1 where it has none; empty for a number below 1.
  /// Error 7 for more than `kMostVarImages`, and when there is no room for so many.
  std::vector<Long> GetCRCsOfVarImages(Long pElement_ID, Long pNumOfImages) const;
  /// The pixels of a picture as the panel shows them; none when the project has no such picture.
  PixelBytes GetImageData8bppByCRC(Long pCRC) const;
  /// 8209 whatever the picture: the number of the type of a byte array, which hosts are used to get here. The
  /// pixels are read all the same; errors of reading them.
  Long GetImageLibCRC(Long pImageCRC) const;
  /// The file that a picture came from; empty when there is none.
  std::string GetImagePathFromDB(Long pImageCRC) const;
  /// A picture's own size, in pixels; both -1 when none in use has that CRC.
  void GetImageOriginalDimansions(Long pCRC, Long& pDx, Long& pDy) const;
  /// Saves the pictures of a variable's list, as SaveImageList tells.
  void SaveToDbForBimaryHandler(Long pElementID, enVarType pVarType, automation::CollectionRef& pColImageList,
                                Long pDx, Long pDy);
};

}  // namespace quenzel7
