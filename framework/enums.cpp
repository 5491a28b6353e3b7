#include "framework/enums.h"

namespace quenzel7 {

const automation::ClassInfo& clsEnums::ClassOf() {
  static const automation::Interface interface("clsEnums", {});
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{kClassName, interfaces, nullptr};
  return info;
}

std::span<const automation::EnumInfo* const> clsEnums::Enumerations() {
#define QUENZEL7_ENUM_ENTRY(name) &automation::EnumInfoOf<name>::value,
  static constexpr const automation::EnumInfo* kAll[] = {QUENZEL7_ENUMERATIONS(QUENZEL7_ENUM_ENTRY)};
#undef QUENZEL7_ENUM_ENTRY
  return kAll;
}

}  // namespace quenzel7
