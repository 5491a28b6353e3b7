#include "platform/automation/enumerator.h"

#include "platform/automation/class_info.h"

namespace quenzel7::automation {

const ClassInfo& Enumerator::Class() const {
  static const Interface interface("Enumerator", std::span<const Member>());
  static const Interface* const interfaces[] = {&interface};
  static const ClassInfo info{kClassName, interfaces};
  return info;
}

}  // namespace quenzel7::automation
