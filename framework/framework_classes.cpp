#include "framework/framework_classes.h"

#include "framework/grp_elmnts_srv.h"

namespace quenzel7 {

std::span<const automation::ClassInfo* const> FrameworkClasses() {
  static const automation::ClassInfo* const classes[] = {&clsGrpElmntsSrv::ClassOf()};
  return classes;
}

}  // namespace quenzel7
