#include <cstring>

#include "platform/gdi/gdi.h"

namespace quenzel7::gdi {

void RtlMoveMemory(void* to, const void* from, std::size_t size) {
  if (to != nullptr && from != nullptr) std::memmove(to, from, size);
}

}  // namespace quenzel7::gdi
