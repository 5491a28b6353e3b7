#pragma once

#include <span>

#include "platform/automation/types.h"

namespace quenzel7::corvane1 {

/// Computes the number by which a block of bytes is told from another.
class CrcService {
 public:
  virtual ~CrcService() = default;

  /// The number of the block: the same for the same bytes, as hosts and panels compare it.
  virtual Long Crc(std::span<const Byte> data) = 0;
};

/// The embedded default: CRC-32 as in ISO 3309 and ITU-T V.42, its 32 bits taken as a signed number. The CRC
/// of no bytes is 0.
class StandardCrc final : public CrcService {
 public:
  Long Crc(std::span<const Byte> data) override;
};

}  // namespace quenzel7::corvane1
