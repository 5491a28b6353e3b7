#include "platform/loomis2/bit_field.h"

#include <bit>
#include <cstdio>
#include <string>

#include "platform/loomis2/invalid_picture.h"

namespace quenzel7::loomis2 {

BitField::BitField(std::uint32_t mask) {
  if (mask == 0) return;
  shift_ = std::countr_zero(mask);
  largest_ = mask >> shift_;
  if ((largest_ & (largest_ + 1)) != 0) {
    char bits[16];
    std::snprintf(bits, sizeof bits, "0x%08X", mask);
    RefusePicture("a mask of the bits " + std::string(bits) + " cannot be read: expected adjacent bits");
  }
}

std::uint32_t BitField::Of(std::uint32_t pixel) const {
  if (largest_ == 0) return 0;
  const std::uint64_t value = pixel >> shift_ & largest_;
  return static_cast<std::uint32_t>((value * 0xFF + largest_ / 2) / largest_);
}

}  // namespace quenzel7::loomis2
