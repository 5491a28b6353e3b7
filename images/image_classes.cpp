#include "images/image_classes.h"

#include "images/grp_elmnts_srv.h"
#include "images/itf_image.h"
#include "images/page_image.h"
#include "images/var_image_element.h"

namespace quenzel7 {

std::span<const automation::ClassInfo* const> ImageClasses() {
  static const automation::ClassInfo* const classes[] = {
      &clsGrpElmntsSrv::ClassOf(), &clsVarImageElement::ClassOf(), &clsPageImage::ClassOf(),
      &ItfImageObject::ClassOf()};
  return classes;
}

}  // namespace quenzel7
