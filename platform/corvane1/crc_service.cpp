#include "platform/corvane1/crc_service.h"

#include <zlib.h>

namespace quenzel7::corvane1 {

Long StandardCrc::Crc(std::span<const Byte> data) {
  // Where there are no bytes there may be no address either: that asks for the value to begin with, which is
  // 0 as well.
  return static_cast<Long>(static_cast<std::uint32_t>(crc32_z(0, data.data(), data.size())));
}

}  // namespace quenzel7::corvane1
