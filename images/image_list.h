#pragma once

#include "framework/enums.h"
#include "images/panel_pixels.h"
#include "platform/automation/collection.h"

/// The pictures of a variable: a collection of clsVarImageElement. Errors: 9, 13 and 91 for what is no such
/// collection, and those of the project, its database and the image library; what was done by then stays.
namespace quenzel7 {

/// Saves the pictures of a list, their panel pixels being of that size, each under its place in the list: the
/// first is picture 0 of an image that is chosen by a bit or moves, and of a tank, otherwise 1. A place
/// without a picture keeps its number. Links behind the last place, and pictures that nothing has any more,
/// go.
void SaveImageList(Long pElementID, enVarType pVarType, const automation::CollectionRef& pColImageList,
                   Long pDx, Long pDy);
/// The same, telling the bits of a pixel.
void SaveImageList(Long pElementID, enVarType pVarType, const automation::CollectionRef& pColImageList,
                   Long pDx, Long pDy, Long pBits);

/// Makes the pictures of a list anew at another size, in panel pixels, each one that the element's links
/// name, once; the host's pointer tells that this takes a while. A picture that cannot be made is told in the
/// host's output list, and LibraryState::ImageResizeFailed is set. A painted picture is passed over.
void ResizeElementImages(Long pDx, Long pDy, const automation::CollectionRef& pColImageList, Long pElementID);

}  // namespace quenzel7
