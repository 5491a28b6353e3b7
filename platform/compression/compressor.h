#pragma once

#include <vector>

#include "platform/automation/types.h"

namespace quenzel7::compression {

/// Makes blocks of bytes smaller, and what they were again.
class Compressor {
 public:
  virtual ~Compressor() = default;

  /// Gives the block from which UnCompress makes the bytes again: 0 when done, any other status when not.
  /// `block` counts only when done.
  virtual Long Compress(const std::vector<Byte>& data, std::vector<Byte>& block) = 0;
  /// Gives the bytes that a block was made from: 0 when done, any other status for what is no such block.
  /// `data` counts only when done.
  virtual Long UnCompress(const std::vector<Byte>& block, std::vector<Byte>& data) = 0;
};

}  // namespace quenzel7::compression
